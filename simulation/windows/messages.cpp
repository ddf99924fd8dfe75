#include "windows/messages.h"

#include "windows/activation.h"
#include "windows/call.h"
#include "windows/painting.h"
#include "windows/show_state.h"
#include "windows/state.h"
#include "windows/window_life.h"

namespace orvane::simulation {
namespace {

LRESULT replaceIcon(PlatformState& state, Window& window, WPARAM size, LPARAM icon) {
  if (size != ICON_SMALL && size != ICON_BIG) stopRun("WM_SETICON", "an icon size that isn't modelled");
  HostWindow* const own = state.hostWindow(&window);
  return std::exchange(size == ICON_BIG ? own->bigIcon : own->smallIcon, icon);
}

// Another program's window would act on the platform's own messages; those of programs mean
// nothing to it.
void requirePrivateMessage(const char* call, const Window& window, UINT message) {
  if (!window.ofHost && message != WM_NULL && message < WM_USER) {
    stopRun(call, "a message that another program's window would act on isn't modelled");
  }
}

// No person moves the mouse: the window is let go where it was taken.
void dragCaption(PlatformState& state, const Window& window) {
  sendMessage(state, window, WM_ENTERSIZEMOVE, 0, 0);
  sendMessage(state, window, WM_EXITSIZEMOVE, 0, 0);
}

// What the window's menu and its task bar button send; the others need a mouse or keys.
enum class SystemCommand : WPARAM { minimize = 0xF020, close = 0xF060, restore = 0xF120 };

LRESULT performSystemCommand(PlatformState& state, Window& window, WPARAM command) {
  constexpr WPARAM kind = 0xFFF0;  // the four low bits are the platform's own
  switch (static_cast<SystemCommand>(command & kind)) {
    case SystemCommand::close:
      return sendMessage(state, window, WM_CLOSE, 0, 0);
    case SystemCommand::minimize:
      changeShowState(state, window, SW_MINIMIZE, "WM_SYSCOMMAND");
      return 0;
    case SystemCommand::restore:
      changeShowState(state, window, SW_RESTORE, "WM_SYSCOMMAND");
      return 0;
    default:
      break;
  }
  if (command != (SC_MOVE | HTCAPTION)) stopRun("WM_SYSCOMMAND", "a command that isn't modelled");
  dragCaption(state, window);
  return 0;
}

}  // namespace

LRESULT sendMessage(PlatformState& state, const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
  const HostWindow* const own = state.hostWindow(&window);
  if (own == nullptr || window.destroyed) return 0;
  if (own->thread != Clock::currentThread()) stopRun("message", "sending to another thread's window isn't modelled");
  return own->procedure(handleOf(&window), message, wParam, lParam);
}

void deliver(PlatformState& state, const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
  const HostWindow* const own = state.hostWindow(&window);
  if (own == nullptr) return;
  if (own->thread == Clock::currentThread()) {
    sendMessage(state, window, message, wParam, lParam);
    return;
  }
  state.queue.events.push_back(
      [&state, &window, message, wParam, lParam] { sendMessage(state, window, message, wParam, lParam); });
}

void postMessage(PlatformState& state, const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
  MSG entry{};
  entry.hwnd = handleOf(&window);
  entry.message = message;
  entry.wParam = wParam;
  entry.lParam = lParam;
  entry.time = static_cast<DWORD>(state.desktop.clock().nowMs());
  state.queue.posted.push_back(entry);
}

LRESULT defaultProcedure(PlatformState& state, Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCREATE:
      return TRUE;
    case WM_PAINT:
      validateWindow(state, window);
      return 0;
    case WM_CLOSE:
      endWindow(state, window);
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE && !window.minimized) moveKeyboardFocus(state, &window);
      return 0;
    case WM_SYSCOMMAND:
      return performSystemCommand(state, window, wParam);
    case WM_SETICON:
      return replaceIcon(state, window, wParam, lParam);
    default:
      return 0;
  }
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  PlatformState& state = stateFor("PostMessageW");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("PostMessageW", about)) return faulted<BOOL>(*fault);
  if (window == nullptr) stopRun("PostMessageW", "messages to a thread aren't modelled");
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  requirePrivateMessage("PostMessageW", *about, message);
  state.records.posted.push_back({about->id, message, wParam, lParam});
  if (about->ofHost) postMessage(state, *about, message, wParam, lParam);
  return TRUE;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  PlatformState& state = stateFor("SendMessageW");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("SendMessageW", about)) return faulted<LRESULT>(*fault);
  if (about == nullptr) return failWith<LRESULT>(ERROR_INVALID_WINDOW_HANDLE);
  requirePrivateMessage("SendMessageW", *about, message);
  return sendMessage(state, *about, message, wParam, lParam);
}

void PostQuitMessage(int exitCode) {
  PlatformState& state = stateFor("PostQuitMessage");
  if (enter("PostQuitMessage")) return;
  state.queue.quits = true;
  state.queue.exitCode = exitCode;
}

LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  PlatformState& state = stateFor("DefWindowProcW");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("DefWindowProcW", about)) return faulted<LRESULT>(*fault);
  if (about == nullptr) return failWith<LRESULT>(ERROR_INVALID_WINDOW_HANDLE);
  if (!about->ofHost) stopRun("DefWindowProcW", "another program's window");
  return defaultProcedure(state, *about, message, wParam, lParam);
}
