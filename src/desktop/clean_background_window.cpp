#include "desktop/clean_background_window.h"

#include <cstdint>

#include "desktop/clean_background_rect.h"
#include "desktop/clean_background_state.h"
#include "desktop/gdi_owners.h"
#include "desktop/window_order.h"
#include "desktop/window_place.h"

namespace orvane {
namespace {

constexpr const wchar_t* className = L"Orvane_Clean_Background_RC310";
constexpr const wchar_t* title = L"Orvane - Clean Background";
constexpr std::uintptr_t propertyValue = 1;
constexpr LogicalSize leastSize{160, 80};
constexpr UINT placedQuietlyFlags = SWP_NOZORDER | SWP_NOACTIVATE;

void forget(HWND window) {
  ::RemovePropW(window, cleanBackgroundProperty);
  CleanBackgroundState& state = cleanBackgroundState();
  if (state.cleanBackgroundWindow == window) {
    state.cleanBackgroundWindow = nullptr;
  }
}

void paint(HWND window) {
  PAINTSTRUCT painting{};
  const HDC context = ::BeginPaint(window, &painting);
  RECT client{};
  ::GetClientRect(window, &client);
  {
    const UniqueBrush brush(::CreateSolidBrush(cleanBackgroundState().cleanBackgroundColor));
    ::FillRect(context, &client, brush.get());
  }
  ::EndPaint(window, &painting);
}

// The interface learns of it from the next reply of syncCleanBackground.
void closeForNow(HWND window) {
  cleanBackgroundState().temporarilyClosed = true;
  ::ShowWindow(window, SW_HIDE);
}

void reopen(HWND window) {
  CleanBackgroundState& state = cleanBackgroundState();
  state.temporarilyClosed = false;
  const RECT rect = computeCleanBackgroundRect(state.cleanBackgroundOwner, PanelHeight::present);
  ::ShowWindow(window, ::IsIconic(window) != FALSE ? SW_RESTORE : SW_SHOWNOACTIVATE);
  placeAt(window, rect, placedQuietlyFlags);
  placeBehindOwnWindows(window, Restack::always);
}

LRESULT CALLBACK panelProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_DESTROY:
      forget(window);
      return 0;
    case WM_PAINT:
      paint(window);
      return 0;
    case WM_CLOSE:
      closeForNow(window);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_GETMINMAXINFO:
      if (lparam != 0) {
        limitTracking(window, leastSize, *reinterpret_cast<MINMAXINFO*>(lparam));
      }
      return 0;
    case WM_EXITSIZEMOVE:
      placeBehindOwnWindows(window, Restack::whenOwnProgramIsInFront);
      return 0;
    case WM_DPICHANGED:
      if (lparam != 0) {
        placeAt(window, *reinterpret_cast<const RECT*>(lparam), placedQuietlyFlags);
      }
      ::InvalidateRect(window, nullptr, TRUE);
      return 0;
    case restoreCleanBackgroundMessage:
      reopen(window);
      return 0;
    default:
      return ::DefWindowProcW(window, message, wparam, lparam);
  }
}

// False when there is no class. It outlives the panel: a later panel finds it there.
bool registerPanelClass() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = panelProcedure;
  windowClass.hInstance = ::GetModuleHandleW(nullptr);
  windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  windowClass.lpszClassName = className;
  return ::RegisterClassW(&windowClass) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

}  // namespace

bool ensureCleanBackgroundWindow(HWND owner, const RECT& rect) {
  CleanBackgroundState& state = cleanBackgroundState();
  if (state.cleanBackgroundWindow != nullptr && ::IsWindow(state.cleanBackgroundWindow) != FALSE) {
    return true;
  }
  if (!registerPanelClass()) {
    return false;
  }
  state.cleanBackgroundOwner = owner;
  state.cleanBackgroundWindow = ::CreateWindowExW(cleanBackgroundExStyle, className, title, cleanBackgroundStyle,
                                                  rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                                                  nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
  if (state.cleanBackgroundWindow == nullptr) {
    return false;
  }
  ::SetPropW(state.cleanBackgroundWindow, cleanBackgroundProperty, reinterpret_cast<HANDLE>(propertyValue));
  return true;
}

void destroyCleanBackgroundOf(HWND owner) {
  CleanBackgroundState& state = cleanBackgroundState();
  if (state.cleanBackgroundOwner != owner) {
    return;
  }
  if (state.cleanBackgroundWindow != nullptr) {
    ::DestroyWindow(state.cleanBackgroundWindow);
  }
  state.cleanBackgroundOwner = nullptr;
}

}  // namespace orvane
