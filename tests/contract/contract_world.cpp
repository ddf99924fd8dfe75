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

void ContractTest::chooseInNextMenu(int entry) { currentWorld()->desktop.nextMenuChoice = entry; }

HWND ContractTest::openOtherProgram() {
  simulation::WindowPlan plan;
  plan.id = "other";
  plan.process = "other.exe";
  plan.className = u"OtherProgram";
  const simulation::Window& window = currentWorld()->desktop.addWindow(plan);
  return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window.handle));
}

void ContractTest::bringToFront(HWND window) {
  simulation::Desktop& desktop = currentWorld()->desktop;
  desktop.moveForeground(desktop.windowByHandle(reinterpret_cast<std::uintptr_t>(window)));
}

}  // namespace orvane::contract
