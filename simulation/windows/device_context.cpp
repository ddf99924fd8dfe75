// Device contexts: where they come from, what is selected into them, and their modes.
#include <windows.h>

#include "windows/call.h"
#include "windows/show_state.h"
#include "windows/state.h"

namespace orvane::simulation {
namespace {

bool isCounted(const DeviceContext& context) { return context.origin != DeviceContext::Origin::menu; }

}  // namespace

HDC openContext(PlatformState& state, const DeviceContext& plan) {
  GdiRoom& room = state.gdi;
  const HDC handle = reinterpret_cast<HDC>(room.nextContext);
  room.nextContext += GdiRoom::handleStep;
  DeviceContext& context = room.contexts[handle] = plan;
  context.brush = room.stockBrush;
  context.font = room.stockFont;
  if (isCounted(context)) holdNow(held_kind::gdiObjects, 1);
  return handle;
}

void closeContext(PlatformState& state, std::string_view call, HDC handle) {
  const auto found = state.gdi.contexts.find(handle);
  if (found == state.gdi.contexts.end()) stopRun(call, "a device context that isn't held");
  const DeviceContext& context = found->second;
  const bool isAsItCame = context.brush == state.gdi.stockBrush && context.font == state.gdi.stockFont;
  if (!isAsItCame && !context.lostSelection) stopRun(call, "an object is still selected");
  if (isCounted(context)) holdNow(held_kind::gdiObjects, -1);
  state.gdi.contexts.erase(found);
}

DeviceContext* deviceContext(PlatformState& state, std::string_view call, HDC handle) {
  if (handle == nullptr) return failWith<DeviceContext*>(ERROR_INVALID_HANDLE);
  const auto found = state.gdi.contexts.find(handle);
  if (found == state.gdi.contexts.end()) stopRun(call, "a device context that isn't held");
  return &found->second;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

HDC GetDC(HWND window) {
  PlatformState& state = stateFor("GetDC");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetDC", about)) return faulted<HDC>(*fault);
  if (window == nullptr) stopRun("GetDC", "the screen's device context isn't modelled");
  if (about == nullptr) return failWith<HDC>(ERROR_INVALID_WINDOW_HANDLE);
  if (!about->ofHost || about->parent != nullptr) stopRun("GetDC", "only the host's top-level windows are modelled");
  DeviceContext plan;
  plan.window = about;
  plan.isClippedAway = !isShown(*about) || about->minimized;
  return openContext(state, plan);
}

int ReleaseDC(HWND window, HDC context) {
  PlatformState& state = stateFor("ReleaseDC");
  if (const auto fault = enter("ReleaseDC", state.liveWindow(window))) return faulted<int>(*fault);
  const DeviceContext* const held = deviceContext(state, "ReleaseDC", context);
  if (held == nullptr) return 0;
  const bool isOfWindow = held->origin == DeviceContext::Origin::window && handleOf(held->window) == window;
  if (!isOfWindow) stopRun("ReleaseDC", "a device context that wasn't got from this window");
  closeContext(state, "ReleaseDC", context);
  return 1;
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
  PlatformState& state = stateFor("SelectObject");
  if (const auto fault = enter("SelectObject")) {
    const auto found = state.gdi.contexts.find(context);
    if (found != state.gdi.contexts.end()) found->second.lostSelection = true;
    return faulted<HGDIOBJ>(*fault);
  }
  DeviceContext* const target = deviceContext(state, "SelectObject", context);
  if (target == nullptr) return nullptr;
  const GdiObject* const chosen = gdiObject(state, "SelectObject", object);
  if (chosen == nullptr) return nullptr;
  return std::exchange(chosen->kind == GdiObject::Kind::brush ? target->brush : target->font, object);
}

int SetBkMode(HDC context, int mode) {
  PlatformState& state = stateFor("SetBkMode");
  if (const auto fault = enter("SetBkMode")) return faulted<int>(*fault);
  DeviceContext* const target = deviceContext(state, "SetBkMode", context);
  if (target == nullptr) return 0;
  if (mode != OPAQUE && mode != TRANSPARENT) return failWith(ERROR_INVALID_PARAMETER, 0);
  return std::exchange(target->backgroundMode, mode);
}

COLORREF SetTextColor(HDC context, COLORREF color) {
  PlatformState& state = stateFor("SetTextColor");
  if (const auto fault = enter("SetTextColor")) return faulted<COLORREF>(*fault);
  DeviceContext* const target = deviceContext(state, "SetTextColor", context);
  return target == nullptr ? CLR_INVALID : std::exchange(target->textColor, color);
}
