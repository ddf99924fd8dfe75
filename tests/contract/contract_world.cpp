#include "contract/contract_world.h"

#include <memory>

#include "windows/platform.h"

namespace orvane::contract {
namespace {

struct World {
  simulation::Clock& clock = *new simulation::Clock;  // never freed: see Clock
  simulation::Books books;
  simulation::Desktop desktop{clock, books};
  simulation::Platform platform{desktop, nullptr, {}};
};

}  // namespace

ContractTest::ContractTest() {
  static std::unique_ptr<World> world;
  world.reset();
  world = std::make_unique<World>();
}

}  // namespace orvane::contract
