#include "desktop/content_process.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "desktop/clean_background_state.h"
#include "desktop/main_window_names.h"
#include "desktop/own_program.h"
#include "embedding/call_arguments.h"

namespace orvane {
namespace {

constexpr int classNameCapacityUnits = 128;

struct WindowSearch {
  DWORD processId = 0;
  HWND found = nullptr;
};

// The number of a process; 0 when it is none.
DWORD processIdOf(double number) {
  constexpr double limit = 0x1p63;  // what a 64-bit integer holds
  return std::abs(number) < limit ? static_cast<DWORD>(static_cast<std::int64_t>(number)) : 0;
}

bool hasMainWindowClass(HWND window) {
  std::array<wchar_t, classNameCapacityUnits> name{};
  const int lengthUnits = ::GetClassNameW(window, name.data(), classNameCapacityUnits);
  return std::wstring_view(name.data(), static_cast<std::size_t>(lengthUnits)) == mainWindowClassName;
}

BOOL CALLBACK findMainWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<WindowSearch*>(parameter);
  DWORD processId = 0;
  ::GetWindowThreadProcessId(window, &processId);
  if (processId != search.processId || ::IsWindowVisible(window) == FALSE ||
      ::GetPropW(window, cleanBackgroundProperty) != nullptr || !hasMainWindowClass(window)) {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

}  // namespace

bool activateContentProcess(const EncodableMap* arguments) {
  WindowSearch search;
  search.processId = processIdOf(numberEntry(arguments, "processId", 0.0));
  if (search.processId == 0) {
    return false;
  }
  ::EnumWindows(findMainWindow, reinterpret_cast<LPARAM>(&search));
  const HWND window = search.found;
  if (window == nullptr || !isOwnProgramWindow(window)) {
    return false;
  }
  if (flagEntry(arguments, "showToolBoxMenu", false)) {
    ::PostMessageW(window, showToolBoxMessage, 0, 0);
  }
  if (::IsIconic(window) != FALSE) {
    ::ShowWindow(window, SW_RESTORE);
  }
  ::SetForegroundWindow(window);
  return ::GetForegroundWindow() == window;
}

}  // namespace orvane
