#include "windows/show_state.h"

#include <windows.h>

#include "windows/call.h"
#include "windows/messages.h"
#include "windows/painting.h"
#include "windows/state.h"
#include "windows/window_frame.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

// A program that was just started comes to the front with its first window.
void finishFirstShowing(PlatformState& state, Window& window, Activation activation) {
  HostWindow* const own = state.hostWindow(&window);
  if (own == nullptr || own->wasShown || window.parent != nullptr) return;
  own->wasShown = true;
  if (activation == Activation::allowed && !std::exchange(state.hasShownFirst, true)) {
    const OwnForegroundCall guard(state);
    state.desktop.moveForeground(&window);
  }
  if (!window.destroyed) tellPlace(state, window);
}

void giveUpForeground(PlatformState& state, Window& window) {
  const OwnForegroundCall guard(state);
  state.desktop.giveUpForeground(window);
}

void minimize(PlatformState& state, Window& window) {
  if (window.minimized) return;
  window.minimized = true;
  forgetUpdate(state, window);
  recomputeFrame(state, window);
  if (window.ofHost) tellPlace(state, window);
  giveUpForeground(state, window);
}

void restore(PlatformState& state, Window& window) {
  if (!window.minimized) return;
  window.minimized = false;
  invalidateWindow(state, window);
  recomputeFrame(state, window);
  if (window.ofHost) tellPlace(state, window);
}

}  // namespace

bool isShown(const Window& window) { return window.visible && (window.parent == nullptr || isShown(*window.parent)); }

void changeVisibility(PlatformState& state, Window& window, bool visible, Activation activation) {
  if (window.visible == visible) return;
  if (window.ofHost) deliver(state, window, WM_SHOWWINDOW, visible ? TRUE : FALSE, 0);
  if (window.destroyed) return;
  window.visible = visible;
  if (visible) {
    invalidateWindow(state, window);
    finishFirstShowing(state, window, activation);
  } else {
    forgetUpdate(state, window);
    giveUpForeground(state, window);
  }
}

bool changeShowState(PlatformState& state, Window& window, int command, std::string_view call) {
  const bool wasVisible = window.visible;
  switch (command) {
    case SW_HIDE:
      changeVisibility(state, window, false, Activation::none);
      break;
    case SW_SHOW:
      changeVisibility(state, window, true, Activation::allowed);
      break;
    case SW_SHOWNORMAL:
    case SW_RESTORE:
      restore(state, window);
      changeVisibility(state, window, true, Activation::allowed);
      break;
    case SW_SHOWNOACTIVATE:
      restore(state, window);
      changeVisibility(state, window, true, Activation::none);
      break;
    case SW_MINIMIZE:
      minimize(state, window);
      break;
    default:
      stopRun(call, "a show command that isn't modelled");
  }
  return wasVisible;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

BOOL ShowWindow(HWND window, int command) {
  PlatformState& state = stateFor("ShowWindow");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("ShowWindow", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  return changeShowState(state, *about, command, "ShowWindow") ? TRUE : FALSE;
}

// Another program's window takes the command at once: nothing here keeps it from its own queue.
BOOL ShowWindowAsync(HWND window, int command) {
  PlatformState& state = stateFor("ShowWindowAsync");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("ShowWindowAsync", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  const bool wasVisible = about->visible;
  if (about->ofHost) {
    state.queue.events.push_back([&state, about, command] {
      if (!about->destroyed) changeShowState(state, *about, command, "ShowWindowAsync");
    });
  } else {
    changeShowState(state, *about, command, "ShowWindowAsync");
  }
  return wasVisible ? TRUE : FALSE;
}

BOOL IsWindowVisible(HWND window) {
  const Window* const about = stateFor("IsWindowVisible").liveWindow(window);
  if (const auto fault = enter("IsWindowVisible", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  return isShown(*about) ? TRUE : FALSE;
}

BOOL IsIconic(HWND window) {
  const Window* const about = stateFor("IsIconic").liveWindow(window);
  if (const auto fault = enter("IsIconic", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  return about->minimized ? TRUE : FALSE;
}
