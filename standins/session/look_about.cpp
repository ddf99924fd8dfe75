#include "session/look_about.h"

#include <windows.h>

#include <array>
#include <optional>

#include "common/link.h"
#include "common/wide_text.h"

namespace orvane::standins {
namespace {

constexpr int textCapacityUnits = 256;

using TextFunction = int WINAPI(HWND, LPWSTR, int);

std::string textOf(HWND window, TextFunction* read) {
  std::array<wchar_t, textCapacityUnits> units{};
  const int length = read(window, units.data(), textCapacityUnits);
  return utf8FromWide(std::wstring(units.data(), static_cast<std::size_t>(length)));
}

Json describe(HWND window, const std::optional<std::string>& name) {
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  Json json;
  json["name"] = name ? Json(*name) : Json(nullptr);
  json["process"] = process;
  json["class"] = textOf(window, ::GetClassNameW);
  json["title"] = textOf(window, ::GetWindowTextW);
  json["style"] = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE));
  json["exStyle"] = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_EXSTYLE));
  json["bounds"] = {bounds.left, bounds.top, bounds.right, bounds.bottom};
  json["isShown"] = ::IsWindowVisible(window) != FALSE;
  json["isInFront"] = ::GetForegroundWindow() == window;
  return json;
}

BOOL CALLBACK addWindow(HWND window, LPARAM parameter) {
  const std::optional<std::string> name = nameOfWindow(window);
  if (name || ::IsWindowVisible(window) != FALSE) {
    reinterpret_cast<Json*>(parameter)->push_back(describe(window, name));
  }
  return TRUE;
}

}  // namespace

std::string describeWindows() {
  Json windows = Json::array();
  ::EnumWindows(addWindow, reinterpret_cast<LPARAM>(&windows));
  return windows.dump(-1, ' ', true, Json::error_handler_t::replace);
}

}  // namespace orvane::standins
