#pragma once

#include <string_view>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// Whether the window and all its parents are visible.
bool isShown(const Window& window);

void changeVisibility(PlatformState& state, Window& window, bool visible);

// Does what a show command says; returns whether the window was visible before. `call` is named
// when the command isn't modelled.
bool changeShowState(PlatformState& state, Window& window, int command, std::string_view call);

}  // namespace orvane::simulation
