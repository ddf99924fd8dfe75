#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "desktop/desktop_test.h"
#include "desktop/menu_drawing.h"

namespace orvane::desktop_tests {

inline constexpr UINT testMessage = WM_APP + 1;

// What the owner of a menu saw of it, and what it does on its own message.
struct OwnerState {
  std::vector<ULONG_PTR> measured;
  std::string foregroundAtMeasuring;
  std::function<void()> onTestMessage;
};

inline OwnerState& ownerState() {
  static OwnerState state;
  return state;
}

inline LRESULT CALLBACK ownerProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_MEASUREITEM) {
    auto* const item = reinterpret_cast<MEASUREITEMSTRUCT*>(lparam);
    ownerState().measured.push_back(item->itemData);
    ownerState().foregroundAtMeasuring = ::GetForegroundWindow() == window ? "owner" : "other";
    return measureMenuItem(window, item) ? 1 : 0;
  }
  if (message == WM_DRAWITEM) {
    return drawMenuItem(window, reinterpret_cast<const DRAWITEMSTRUCT*>(lparam)) ? 1 : 0;
  }
  if (message == testMessage && ownerState().onTestMessage) {
    ownerState().onTestMessage();
    return 0;
  }
  return ::DefWindowProcW(window, message, wparam, lparam);
}

// A visible window at 100, 60 that draws the entries of its menus. Declared behind the desktop.
class MenuOwner {
 public:
  MenuOwner() {
    ownerState() = {};
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = ownerProcedure;
    windowClass.lpszClassName = L"MenuOwner";
    ::RegisterClassW(&windowClass);
    window_ = ::CreateWindowExW(0, L"MenuOwner", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 60, 600, 400, nullptr,
                                nullptr, nullptr, nullptr);
  }
  ~MenuOwner() {
    ::DestroyWindow(window_);
    ownerState() = {};
  }
  MenuOwner(const MenuOwner&) = delete;
  MenuOwner& operator=(const MenuOwner&) = delete;

  HWND get() const { return window_; }

 private:
  HWND window_ = nullptr;
};

inline EncodableValue entry(const std::string& action, const std::string& label) {
  return mapOf({{"action", EncodableValue(action)}, {"label", EncodableValue(label)}});
}

inline const EncodableList threeEntries = {entry("one", "First"), entry("two", "Second & last"),
                                           entry("three", "Third")};

// The arguments of a menu of the three entries.
inline EncodableMap with(std::initializer_list<std::pair<const char*, EncodableValue>> more) {
  EncodableMap arguments = mapOf(more);
  arguments.emplace(EncodableValue("items"), EncodableValue(threeEntries));
  return arguments;
}

// What of one kind was painted, in order.
template <typename Kind>
std::vector<Kind> paintedOf(simulation::SimulatedDesktop& desktop) {
  std::vector<Kind> found;
  for (const auto& painted : desktop.platform().records().painted) {
    if (const auto* one = std::get_if<Kind>(&painted)) {
      found.push_back(*one);
    }
  }
  return found;
}

}  // namespace orvane::desktop_tests
