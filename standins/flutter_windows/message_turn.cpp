#include "flutter_windows/message_turn.h"

#include <utility>

#include "flutter_windows/performance.h"
#include "world/faults.h"

namespace orvane::standins {
namespace {

constexpr const wchar_t* className = L"Orvane.StandIn.Turn";
constexpr UINT_PTR turnTimer = 1;
constexpr UINT betweenTurnsMs = USER_TIMER_MINIMUM;

HWND turnWindow = nullptr;

// The host lets its window be dragged as if the mouse held the caption: nobody holds it, so it is
// let go.
bool releaseDraggedWindow() {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  if (::GetGUIThreadInfo(::GetCurrentThreadId(), &thread) == FALSE || (thread.flags & GUI_INMOVESIZE) == 0) {
    return false;
  }
  INPUT release{};
  release.type = INPUT_MOUSE;
  release.mi.dwFlags = MOUSEEVENTF_LEFTUP;
  ::SendInput(1, &release, sizeof release);
  return true;
}

void takeTurn() {
  static bool isInTurn = false;
  if (isInTurn || releaseDraggedWindow()) return;
  isInTurn = true;
  if (!engineRoom().performTask() && engineRoom().hasDrawnFrame()) performance()->takeTurn();
  isInTurn = false;
}

LRESULT CALLBACK turnProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != WM_TIMER) return ::DefWindowProcW(window, message, wparam, lparam);
  takeTurn();
  return 0;
}

}  // namespace

void startMessageTurns() {
  if (turnWindow != nullptr) return;
  WNDCLASSW description{};
  description.lpfnWndProc = turnProcedure;
  description.hInstance = ::GetModuleHandleW(nullptr);
  description.lpszClassName = className;
  ::RegisterClassW(&description);
  turnWindow =
      ::CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, description.hInstance, nullptr);
  if (turnWindow == nullptr || ::SetTimer(turnWindow, turnTimer, betweenTurnsMs, nullptr) == 0) {
    simulation::stopRun("FlutterDesktopViewControllerCreate", "no timer for the message loop");
  }
}

void stopMessageTurns() {
  if (turnWindow != nullptr) ::DestroyWindow(std::exchange(turnWindow, nullptr));
}

HWND messageTurnWindow() { return turnWindow; }

}  // namespace orvane::standins
