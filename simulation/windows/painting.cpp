// Drawing a window of the host: when it is asked for, and where it begins and ends.
#include "windows/painting.h"

#include <string>

#include "windows/call.h"
#include "windows/messages.h"
#include "windows/show_state.h"
#include "windows/state.h"
#include "windows/wide_text.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

constexpr int mostUnansweredRequests = 3;

// A window that is drawn here: children are the embedding library's.
HostWindow* paintedWindow(PlatformState& state, const Window& window) {
  return window.parent == nullptr && !window.destroyed ? state.hostWindow(&window) : nullptr;
}

bool canBeSeen(const Window& window) { return isShown(window) && !window.minimized; }

UINT classStyleOf(const PlatformState& state, const HostWindow& own) {
  const auto found = state.classes.find(own.windowClass);
  return found == state.classes.end() ? 0 : found->second.style;
}

// Where nobody erases, the background stays marked for the next time.
HDC beginUpdate(PlatformState& state, HostWindow& own, PAINTSTRUCT& paint) {
  const Window& window = *own.window;
  const bool wasDirty = std::exchange(own.update.isDirty, false);
  own.update.unansweredRequests = 0;
  DeviceContext plan;
  plan.origin = DeviceContext::Origin::painting;
  plan.window = &window;
  plan.isClippedAway = !wasDirty;
  paint = {};
  paint.hdc = openContext(state, plan);
  if (!wasDirty) return paint.hdc;
  const Rectangle client = clientOnScreen(state, window);
  paint.rcPaint = {0, 0, client.width(), client.height()};
  if (own.update.erases) {
    own.update.erases = sendMessage(state, window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint.hdc), 0) == 0;
    paint.fErase = own.update.erases ? TRUE : FALSE;
  }
  return paint.hdc;
}

}  // namespace

void invalidateWindow(PlatformState& state, const Window& window, bool erases) {
  HostWindow* const own = paintedWindow(state, window);
  if (own == nullptr || !canBeSeen(window)) return;
  own->update.isDirty = true;
  own->update.erases = own->update.erases || erases;
}

void forgetUpdate(PlatformState& state, const Window& window) {
  if (HostWindow* const own = paintedWindow(state, window)) own->update = {};
}

void invalidateResized(PlatformState& state, const Window& window, const Rectangle& before, const Rectangle& after) {
  const HostWindow* const own = paintedWindow(state, window);
  if (own == nullptr) return;
  const UINT style = classStyleOf(state, *own);
  const bool isDrawnForWidth =
      (style & CS_HREDRAW) != 0 ? after.width() != before.width() : after.width() > before.width();
  const bool isDrawnForHeight =
      (style & CS_VREDRAW) != 0 ? after.height() != before.height() : after.height() > before.height();
  if (isDrawnForWidth || isDrawnForHeight) invalidateWindow(state, window);
}

void validateWindow(PlatformState& state, const Window& window) {
  HostWindow* const own = paintedWindow(state, window);
  if (own == nullptr || !own->update.isDirty) return;
  PAINTSTRUCT paint{};
  closeContext(state, "WM_ERASEBKGND", beginUpdate(state, *own, paint));
}

bool takePaintMessage(PlatformState& state, MSG& message) {
  for (const Window* const window : state.desktop.zOrder()) {
    HostWindow* const own = paintedWindow(state, *window);
    if (own == nullptr || !own->update.isDirty || own->thread != Clock::currentThread()) continue;
    if (own->update.unansweredRequests++ == mostUnansweredRequests) {
      stopRun("WM_PAINT", "the window \"" + window->id + "\" never validates what it was asked to paint");
    }
    message = {};
    message.hwnd = handleOf(window);
    message.message = WM_PAINT;
    message.time = static_cast<DWORD>(state.desktop.clock().nowMs());
    return true;
  }
  return false;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

namespace {

HostWindow& ownWindowFor(PlatformState& state, const char* call, const Window& window) {
  HostWindow* const own = paintedWindow(state, window);
  if (own == nullptr) stopRun(call, "only the host's top-level windows are modelled");
  if (own->thread != Clock::currentThread()) stopRun(call, "another thread's window isn't modelled");
  return *own;
}

}  // namespace

BOOL InvalidateRect(HWND window, LPCRECT area, BOOL erases) {
  PlatformState& state = stateFor("InvalidateRect");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("InvalidateRect", about)) return faulted<BOOL>(*fault);
  if (window == nullptr) stopRun("InvalidateRect", "all windows at once aren't modelled");
  if (area != nullptr) stopRun("InvalidateRect", "a part of the window isn't modelled");
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  ownWindowFor(state, "InvalidateRect", *about);
  invalidateWindow(state, *about, erases != FALSE);
  return TRUE;
}

HDC BeginPaint(HWND window, LPPAINTSTRUCT paint) {
  PlatformState& state = stateFor("BeginPaint");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("BeginPaint", about)) {
    *paint = {};
    paint->hdc = faulted<HDC>(*fault);
    return paint->hdc;
  }
  if (about == nullptr) return failWith<HDC>(ERROR_INVALID_WINDOW_HANDLE);
  return beginUpdate(state, ownWindowFor(state, "BeginPaint", *about), *paint);
}

BOOL EndPaint(HWND window, const PAINTSTRUCT* paint) {
  PlatformState& state = stateFor("EndPaint");
  if (const auto fault = enter("EndPaint", state.liveWindow(window))) return faulted<BOOL>(*fault);
  if (paint->hdc == nullptr) return TRUE;
  const DeviceContext* const held = deviceContext(state, "EndPaint", paint->hdc);
  const bool isOfPainting = held->origin == DeviceContext::Origin::painting && handleOf(held->window) == window;
  if (!isOfPainting) stopRun("EndPaint", "a device context that didn't come with this window's painting");
  closeContext(state, "EndPaint", paint->hdc);
  return TRUE;
}
