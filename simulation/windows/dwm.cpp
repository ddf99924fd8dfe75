#include <dwmapi.h>

#include <cstring>

#include "windows/call.h"
#include "windows/standard_dpi.h"
#include "windows/state.h"
#include "windows/window_frame.h"
#include "windows/window_geometry.h"

using namespace orvane::simulation;

namespace {

constexpr int unseenFrame = 7;  // pixels of a sizable frame that nothing is drawn on

bool isKnownAttribute(DWORD attribute) {
  return attribute == DWMWA_USE_IMMERSIVE_DARK_MODE || attribute == DWMWA_CAPTION_COLOR ||
         attribute == DWMWA_TEXT_COLOR;
}

Rectangle extendedFrame(PlatformState& state, const Window& window) {
  const Rectangle bounds = screenBounds(state, window);
  if (window.minimized || !hasSizableFrame(state, window)) return bounds;
  const int unseen = scaledBy(unseenFrame, static_cast<int>(dpiOf(state, window)), standardDpi);
  return {bounds.left + unseen, bounds.top, bounds.right - unseen, bounds.bottom - unseen};
}

}  // namespace

HRESULT DwmGetWindowAttribute(HWND window, DWORD attribute, PVOID data, DWORD size) {
  PlatformState& state = stateFor("DwmGetWindowAttribute");
  const Window* const about = state.liveWindow(window);
  auto* const bounds = size == sizeof(RECT) ? static_cast<RECT*>(data) : nullptr;
  if (const auto fault = enter("DwmGetWindowAttribute", about)) return endInto(faulted<HRESULT>(*fault), bounds);
  if (attribute != DWMWA_EXTENDED_FRAME_BOUNDS) stopRun("DwmGetWindowAttribute", "an unknown attribute");
  if (about == nullptr) return E_HANDLE;
  if (bounds == nullptr) return E_INVALIDARG;
  const Rectangle frame = extendedFrame(state, *about);
  *bounds = {frame.left, frame.top, frame.right, frame.bottom};
  return S_OK;
}

HRESULT DwmSetWindowAttribute(HWND window, DWORD attribute, LPCVOID data, DWORD size) {
  PlatformState& state = stateFor("DwmSetWindowAttribute");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("DwmSetWindowAttribute", about)) return faulted<HRESULT>(*fault);
  if (!isKnownAttribute(attribute)) stopRun("DwmSetWindowAttribute", "an unknown attribute");
  if (about == nullptr) return E_HANDLE;
  std::uint32_t value = 0;
  if (data == nullptr || size != sizeof value) return E_INVALIDARG;
  std::memcpy(&value, data, sizeof value);
  state.records.attributes.push_back({about->id, attribute, value});
  return S_OK;
}
