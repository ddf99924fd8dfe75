#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "browser/mirror.h"
#include "browser/world.h"

namespace orvane::standins {

// Does the step of the scenario that stands at `index`: what a person does to a window of the
// process, or actions that are done at once. Throws for a step that is neither or whose window has
// gone.
void performStep(World& world, Mirror& mirror, std::size_t index);

// A person brings the window up, restored; nullopt: no window is in front any more.
void bringForward(World& world, Mirror& mirror, const std::optional<std::string>& windowId);

}  // namespace orvane::standins
