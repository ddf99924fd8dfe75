#include <windows.h>

#include "windows/call.h"
#include "windows/rectangles.h"
#include "windows/show_state.h"
#include "windows/state.h"
#include "windows/tracking_sizes.h"
#include "windows/window_geometry.h"
#include "windows/window_life.h"

using namespace orvane::simulation;

namespace {

constexpr UINT modelledFlags = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED |
                               SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_NOOWNERZORDER;
constexpr UINT untouchedPlace = SWP_NOSIZE | SWP_NOMOVE;

// False when the anchor is no window.
bool changeOrder(PlatformState& state, Window& window, HWND insertAfter) {
  Desktop& desktop = state.desktop;
  if (window.parent != nullptr) return true;
  if (insertAfter == HWND_TOP) {
    desktop.raise(window);
  } else if (insertAfter == HWND_BOTTOM) {
    window.topmost = false;
    desktop.lower(window);
  } else if (insertAfter == HWND_TOPMOST || insertAfter == HWND_NOTOPMOST) {
    desktop.setTopmost(window, insertAfter == HWND_TOPMOST);
  } else {
    Window* const above = state.liveWindow(insertAfter);
    if (above == nullptr) return false;
    desktop.placeBehind(window, *above);
  }
  return true;
}

void changePlace(PlatformState& state, Window& window, const Rectangle& place, UINT flags) {
  const bool isFrameChanged = (flags & SWP_FRAMECHANGED) != 0;
  if ((flags & untouchedPlace) == untouchedPlace && !isFrameChanged) return;
  const Rectangle before = window.bounds;
  const int left = (flags & SWP_NOMOVE) != 0 ? before.left : place.left;
  const int top = (flags & SWP_NOMOVE) != 0 ? before.top : place.top;
  const int width = (flags & SWP_NOSIZE) != 0 ? before.width() : place.width();
  const int height = (flags & SWP_NOSIZE) != 0 ? before.height() : place.height();
  const Rectangle wanted{left, top, left + width, top + height};
  const Rectangle allowed = (flags & SWP_NOSIZE) != 0 ? wanted : limitedBounds(state, window, wanted);
  changeBounds(state, window, allowed, isFrameChanged ? Frame::recomputed : Frame::kept);
}

Rectangle placed(int x, int y, int width, int height) {
  return {x, y, x + (width < 0 ? 0 : width), y + (height < 0 ? 0 : height)};
}

}  // namespace

BOOL GetClientRect(HWND window, LPRECT client) {
  PlatformState& state = stateFor("GetClientRect");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetClientRect", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  const Rectangle onScreen = clientOnScreen(state, *about);
  *client = {0, 0, onScreen.width(), onScreen.height()};
  return TRUE;
}

BOOL GetWindowRect(HWND window, LPRECT bounds) {
  PlatformState& state = stateFor("GetWindowRect");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetWindowRect", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  *bounds = rectOf(screenBounds(state, *about));
  return TRUE;
}

BOOL ClientToScreen(HWND window, LPPOINT point) {
  PlatformState& state = stateFor("ClientToScreen");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("ClientToScreen", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  const Rectangle onScreen = clientOnScreen(state, *about);
  point->x += onScreen.left;
  point->y += onScreen.top;
  return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL) {
  PlatformState& state = stateFor("MoveWindow");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("MoveWindow", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  changePlace(state, *about, placed(x, y, width, height), 0);
  return TRUE;
}

BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags) {
  PlatformState& state = stateFor("SetWindowPos");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("SetWindowPos", about)) return faulted<BOOL>(*fault);
  if ((flags & ~modelledFlags) != 0) stopRun("SetWindowPos", "an unknown flag");
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  if ((flags & SWP_NOZORDER) == 0 && !changeOrder(state, *about, insertAfter)) {
    return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  }
  changePlace(state, *about, placed(x, y, width, height), flags);
  const Activation activation = (flags & SWP_NOACTIVATE) != 0 ? Activation::none : Activation::allowed;
  if ((flags & SWP_SHOWWINDOW) != 0) changeVisibility(state, *about, true, activation);
  if ((flags & SWP_HIDEWINDOW) != 0) changeVisibility(state, *about, false, activation);
  return TRUE;
}

// Takes in a window that was made without a parent, as the embedding library's views are.
HWND SetParent(HWND child, HWND parent) {
  PlatformState& state = stateFor("SetParent");
  Window* const about = state.liveWindow(child);
  Window* const taker = state.liveWindow(parent);
  if (const auto fault = enter("SetParent", about)) return faulted<HWND>(*fault);
  if (about == nullptr || taker == nullptr) return failWith<HWND>(ERROR_INVALID_WINDOW_HANDLE);
  if (!about->ofHost || !taker->ofHost) stopRun("SetParent", "another program's window isn't modelled");
  if (about->parent == nullptr) stopRun("SetParent", "making a child of a top-level window isn't modelled");
  const HWND former = isUnparented(*about) ? nullptr : handleOf(about->parent);
  about->parent = taker;
  return former;
}

BOOL BringWindowToTop(HWND window) {
  PlatformState& state = stateFor("BringWindowToTop");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("BringWindowToTop", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  return changeOrder(state, *about, HWND_TOP) ? TRUE : FALSE;
}

UINT GetDpiForWindow(HWND window) {
  PlatformState& state = stateFor("GetDpiForWindow");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetDpiForWindow", about)) return faulted<UINT>(*fault);
  return about == nullptr ? failWith<UINT>(ERROR_INVALID_WINDOW_HANDLE) : dpiOf(state, *about);
}
