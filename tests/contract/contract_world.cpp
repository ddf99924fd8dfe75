#include "contract/contract_world.h"

#include <memory>
#include <utility>

#include "windows/platform.h"

namespace orvane::contract {
namespace {

struct World {
  simulation::Clock& clock = *new simulation::Clock;  // never freed: see Clock
  simulation::Books books;
  simulation::Desktop desktop{clock, books};
  simulation::Platform platform{desktop, nullptr, {}};
};

std::unique_ptr<World>& currentWorld() {
  static std::unique_ptr<World> world;
  return world;
}

}  // namespace

ContractTest::ContractTest() {
  currentWorld().reset();
  currentWorld() = std::make_unique<World>();
}

void ContractTest::leaveOnClipboard(const std::wstring& text) {
  simulation::ClipboardContent content;
  content.text = simulation::Text(text.begin(), text.end());
  currentWorld()->desktop.clipboard.replace(std::move(content));
}

void ContractTest::leaveClipboardEmpty() { currentWorld()->desktop.clipboard.replace({}); }

}  // namespace orvane::contract
