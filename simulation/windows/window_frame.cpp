#include "windows/window_frame.h"

#include <windows.h>

#include "windows/call.h"
#include "windows/standard_dpi.h"
#include "windows/state.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

constexpr int frameSide = 8;
constexpr int captionedTop = 31;
constexpr std::uint32_t frameStyles = WS_CAPTION | WS_THICKFRAME;

// The style that the window's frame was last computed from.
std::uint32_t framedStyle(PlatformState& state, const Window& window) {
  const HostWindow* const own = state.hostWindow(&window);
  return own == nullptr ? window.style : own->frameStyle;
}

}  // namespace

FrameWidths frameOfStyle(std::uint32_t style, int dpi) {
  const std::uint32_t present = style & frameStyles;
  if (present == 0) return {};
  if (present != WS_THICKFRAME && present != frameStyles) {
    stopRun("window frame", "a frame that isn't sizable, or has a part of a caption alone, isn't modelled");
  }
  const int side = scaledBy(frameSide, dpi, standardDpi);
  return {side, present == frameStyles ? scaledBy(captionedTop, dpi, standardDpi) : side};
}

FrameWidths frameOf(PlatformState& state, const Window& window) {
  return frameOfStyle(framedStyle(state, window), static_cast<int>(dpiOf(state, window)));
}

bool hasSizableFrame(PlatformState& state, const Window& window) {
  return (framedStyle(state, window) & WS_THICKFRAME) != 0;
}

void recomputeFrame(PlatformState& state, const Window& window) {
  if (HostWindow* const own = state.hostWindow(&window)) own->frameStyle = window.style;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

BOOL AdjustWindowRectExForDpi(LPRECT bounds, DWORD style, BOOL hasMenu, DWORD exStyle, UINT dpi) {
  constexpr const char* call = "AdjustWindowRectExForDpi";
  constexpr DWORD framelessExStyles = WS_EX_TOPMOST | WS_EX_WINDOWEDGE | WS_EX_APPWINDOW;
  if (const auto fault = enter(call)) return faulted<BOOL>(*fault);
  if (hasMenu != FALSE) stopRun(call, "a menu bar isn't modelled");
  if ((exStyle & ~framelessExStyles) != 0) stopRun(call, "an extended style that isn't modelled");
  const FrameWidths frame = frameOfStyle(style, static_cast<int>(dpi));
  bounds->left -= frame.side;
  bounds->top -= frame.top;
  bounds->right += frame.side;
  bounds->bottom += frame.side;
  return TRUE;
}
