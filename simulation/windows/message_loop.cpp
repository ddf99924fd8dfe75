#include "windows/message_loop.h"

#include <windows.h>

#include "windows/call.h"
#include "windows/messages.h"
#include "windows/painting.h"
#include "windows/script_turn.h"
#include "windows/state.h"

namespace orvane::simulation {
namespace {

bool handleEvent(MessageQueue& queue) {
  if (queue.events.empty()) return false;
  const std::function<void()> event = std::move(queue.events.front());
  queue.events.pop_front();
  event();
  return true;
}

bool takePosted(MessageQueue& queue, MSG& message) {
  if (queue.posted.empty()) return false;
  message = queue.posted.front();
  queue.posted.pop_front();
  return true;
}

MSG quitMessage(MessageQueue& queue) {
  queue.quits = false;
  MSG message{};
  message.message = WM_QUIT;
  message.wParam = static_cast<WPARAM>(queue.exitCode);
  return message;
}

// Nothing waits: only a thread of the host could still bring something.
void awaitThreads(PlatformState& state) {
  if (state.runningThreads == 0) stopRun("GetMessageW", "no message can come any more, and the loop hasn't ended");
  state.desktop.clock().sleep(1);
}

LRESULT dispatch(PlatformState& state, const MSG& message) {
  const Window* const window = state.liveWindow(message.hwnd);
  return window == nullptr ? 0 : sendMessage(state, *window, message.message, message.wParam, message.lParam);
}

}  // namespace

bool pumpWaiting(PlatformState& state) {
  while (true) {
    if (handleEvent(state.queue)) continue;
    MSG message{};
    if (!takePosted(state.queue, message)) {
      if (state.queue.quits) return false;
      if (!takePaintMessage(state, message)) return true;
    }
    if (message.message == WM_QUIT) {
      state.queue.quits = true;
      state.queue.exitCode = static_cast<int>(message.wParam);
      return false;
    }
    dispatch(state, message);
  }
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

BOOL GetMessageW(LPMSG message, HWND window, UINT first, UINT last) {
  PlatformState& state = stateFor("GetMessageW");
  if (const auto fault = enter("GetMessageW")) return faulted<BOOL>(*fault);
  if (window != nullptr || first != 0 || last != 0) stopRun("GetMessageW", "a filter isn't modelled");
  if (Clock::currentThread() != 0) stopRun("GetMessageW", "a message loop on a second thread isn't modelled");
  while (true) {
    if (handleEvent(state.queue)) continue;
    // Somebody else may post the quit message too.
    if (takePosted(state.queue, *message)) return message->message == WM_QUIT ? FALSE : TRUE;
    if (state.queue.quits) {
      *message = quitMessage(state.queue);
      return FALSE;
    }
    if (takePaintMessage(state, *message)) return TRUE;
    if (state.engines.performTask() || performScriptTurn(state)) continue;
    awaitThreads(state);
  }
}

// Key messages alone are translated, and none comes to a window of the host.
BOOL TranslateMessage(const MSG*) {
  if (const auto fault = enter("TranslateMessage")) return faulted<BOOL>(*fault);
  return FALSE;
}

LRESULT DispatchMessageW(const MSG* message) {
  PlatformState& state = stateFor("DispatchMessageW");
  const Window* const window = state.liveWindow(message->hwnd);
  if (const auto fault = enter("DispatchMessageW", window)) return faulted<LRESULT>(*fault);
  return dispatch(state, *message);
}
