#include <windows.h>

#include <algorithm>

#include "windows/activation.h"
#include "windows/call.h"
#include "windows/state.h"
#include "windows/window_geometry.h"

using namespace orvane::simulation;

namespace {

// A window of the thread; null where it has none.
const Window* windowOfThread(PlatformState& state, DWORD threadId) {
  const auto& windows = state.desktop.allWindows();
  const auto found = std::find_if(windows.begin(), windows.end(), [threadId](const auto& window) {
    return !window->destroyed && window->threadId == threadId;
  });
  return found == windows.end() ? nullptr : found->get();
}

bool isKnownThread(PlatformState& state, DWORD threadId) {
  return threadId == threadIdOf(Clock::currentThread()) || windowOfThread(state, threadId) != nullptr;
}

// Activation and focus reach the windows of the calling thread and of those attached to it.
bool sharesInput(PlatformState& state, const Window& window) {
  const DWORD own = threadIdOf(Clock::currentThread());
  if (window.threadId == own) return true;
  const auto& attached = state.input.attached;
  return attached.contains({own, window.threadId}) || attached.contains({window.threadId, own});
}

// The window of another program's thread that keys go to, or went to last.
const Window* windowInUse(PlatformState& state, DWORD threadId) {
  const auto known = state.input.lastInFront.find(threadId);
  if (known == state.input.lastInFront.end()) return nullptr;
  const Window* const window = known->second;
  return window->destroyed || window->minimized ? nullptr : window;
}

}  // namespace

HWND GetForegroundWindow() {
  PlatformState& state = stateFor("GetForegroundWindow");
  if (const auto fault = enter("GetForegroundWindow", state.desktop.foreground())) return faulted<HWND>(*fault);
  return handleOf(state.desktop.foreground());
}

BOOL SetForegroundWindow(HWND window) {
  PlatformState& state = stateFor("SetForegroundWindow");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("SetForegroundWindow", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  const OwnForegroundCall guard(state);
  return state.desktop.requestForeground(topLevelOf(*about)) ? TRUE : FALSE;
}

HWND SetActiveWindow(HWND window) {
  PlatformState& state = stateFor("SetActiveWindow");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("SetActiveWindow", about)) return faulted<HWND>(*fault);
  if (about == nullptr) return failWith<HWND>(ERROR_INVALID_WINDOW_HANDLE);
  if (!sharesInput(state, *about)) return failWith<HWND>(ERROR_ACCESS_DENIED);
  const HWND former = handleOf(state.input.active);
  // In another program's queue nothing shows: that program looks after its own focus.
  if (about->ofHost) activateInQueue(state, topLevelOf(*about));
  return former;
}

HWND SetFocus(HWND window) {
  PlatformState& state = stateFor("SetFocus");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("SetFocus", about)) return faulted<HWND>(*fault);
  if (window != nullptr && about == nullptr) return failWith<HWND>(ERROR_INVALID_WINDOW_HANDLE);
  if (about != nullptr && !sharesInput(state, *about)) return failWith<HWND>(ERROR_ACCESS_DENIED);
  const HWND former = handleOf(state.input.focus);
  if (about == nullptr || about->ofHost) moveKeyboardFocus(state, about);
  return former;
}

BOOL GetGUIThreadInfo(DWORD threadId, LPGUITHREADINFO info) {
  PlatformState& state = stateFor("GetGUIThreadInfo");
  if (const auto fault = enter("GetGUIThreadInfo", windowOfThread(state, threadId))) return faulted<BOOL>(*fault);
  if (threadId == 0) stopRun("GetGUIThreadInfo", "the thread in front isn't modelled");
  if (info == nullptr || info->cbSize != sizeof(GUITHREADINFO) || !isKnownThread(state, threadId)) {
    return failWith(ERROR_INVALID_PARAMETER, FALSE);
  }
  const bool isOwn = threadId == threadIdOf(0);
  const Window* const inUse = isOwn ? nullptr : windowInUse(state, threadId);
  *info = {};
  info->cbSize = sizeof(GUITHREADINFO);
  info->hwndActive = handleOf(isOwn ? state.input.active : inUse);
  info->hwndFocus = handleOf(isOwn ? state.input.focus : inUse);
  return TRUE;
}

// Nothing in the host takes the mouse.
BOOL ReleaseCapture() {
  if (const auto fault = enter("ReleaseCapture")) return faulted<BOOL>(*fault);
  return TRUE;
}

BOOL AttachThreadInput(DWORD from, DWORD to, BOOL attaches) {
  PlatformState& state = stateFor("AttachThreadInput");
  // It is about the other thread's window; the caller gives its own thread first or second.
  const Window* const window = windowOfThread(state, from == threadIdOf(Clock::currentThread()) ? to : from);
  if (const auto fault = enter("AttachThreadInput", window)) return faulted<BOOL>(*fault);
  auto& attached = state.input.attached;
  if (attaches != FALSE) {
    if (from == to || !isKnownThread(state, from) || !isKnownThread(state, to)) {
      return failWith(ERROR_INVALID_PARAMETER, FALSE);
    }
    attached.emplace(from, to);
    holdNow(held_kind::threadInputs, 1);
    return TRUE;
  }
  const auto found = attached.find({from, to});
  if (found == attached.end()) return failWith(ERROR_INVALID_PARAMETER, FALSE);
  attached.erase(found);
  holdNow(held_kind::threadInputs, -1);
  return TRUE;
}
