#pragma once

#include <string_view>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// Whether the window and all its parents are visible.
bool isShown(const Window& window);

// Whether a window that is shown may come to the front, as a program's first window then does.
enum class Activation { allowed, none };

void changeVisibility(PlatformState& state, Window& window, bool visible, Activation activation);

// Does what a show command says; returns whether the window was visible before. `call` is named
// when the command isn't modelled.
bool changeShowState(PlatformState& state, Window& window, int command, std::string_view call);

}  // namespace orvane::simulation
