#include "windows/win_event_hook.h"

#include <windows.h>

#include "windows/call.h"
#include "windows/state.h"

namespace orvane::simulation {

void announceToHooks(PlatformState& state, const Window* window) {
  if (window == nullptr || window->ofHost) return;
  const auto ms = static_cast<DWORD>(state.desktop.clock().nowMs());
  for (const auto& [hook, callback] : state.eventHooks) {
    state.queue.events.push_back([&state, hook = hook, window, ms] {
      const auto found = state.eventHooks.find(hook);
      if (found == state.eventHooks.end()) return;
      // A copy: the callback may take its own hook away.
      const WINEVENTPROC call = found->second;
      call(hook, EVENT_SYSTEM_FOREGROUND, handleOf(window), OBJID_WINDOW, CHILDID_SELF, window->threadId, ms);
    });
  }
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

HWINEVENTHOOK SetWinEventHook(DWORD first, DWORD last, HMODULE library, WINEVENTPROC callback, DWORD processId,
                              DWORD threadId, DWORD flags) {
  constexpr const char* call = "SetWinEventHook";
  PlatformState& state = stateFor(call);
  if (const auto fault = enter(call)) return faulted<HWINEVENTHOOK>(*fault);
  if (first != EVENT_SYSTEM_FOREGROUND || last != EVENT_SYSTEM_FOREGROUND) {
    stopRun(call, "events other than the foreground's aren't modelled");
  }
  if (library != nullptr || flags != (WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS)) {
    stopRun(call, "a hook other than one out of context that skips its own process isn't modelled");
  }
  if (processId != 0 || threadId != 0) stopRun(call, "a hook on one process or thread isn't modelled");
  if (Clock::currentThread() != 0) stopRun(call, "a hook of a second thread isn't modelled");
  if (callback == nullptr) stopRun(call, "a hook without a callback isn't modelled");
  const auto hook = reinterpret_cast<HWINEVENTHOOK>(state.nextEventHook);
  state.nextEventHook += 2;
  state.eventHooks.emplace(hook, callback);
  holdNow(held_kind::hooks, 1);
  return hook;
}

BOOL UnhookWinEvent(HWINEVENTHOOK hook) {
  PlatformState& state = stateFor("UnhookWinEvent");
  if (const auto fault = enter("UnhookWinEvent")) return faulted<BOOL>(*fault);
  if (state.eventHooks.erase(hook) == 0) return failWith(ERROR_INVALID_HANDLE, FALSE);
  holdNow(held_kind::hooks, -1);
  return TRUE;
}
