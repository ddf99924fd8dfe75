#pragma once

#include <cstdint>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// Pixels between a window's edge and its client area; left, right and bottom are the same.
struct FrameWidths {
  int side = 0;
  int top = 0;
};

// The frame that a style asks for. A style whose frame isn't modelled ends the run.
FrameWidths frameOfStyle(std::uint32_t style, int dpi);

// The frame that a window has: that of its style when the frame was last computed.
FrameWidths frameOf(PlatformState& state, const Window& window);
bool hasSizableFrame(PlatformState& state, const Window& window);

// Lets a window's frame follow its style.
void recomputeFrame(PlatformState& state, const Window& window);

}  // namespace orvane::simulation
