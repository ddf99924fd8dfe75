// Keeps the desktop alive between two runs, and sets what belongs to no window of it: the
// clipboard, the theme and the pointer. A line "scene PATH" on its input names the next scenario; "ready" or one line
// that says what is wrong comes back. A line "windows" gives what stands on the desktop now, a line
// "handles ID" how many handles the process of that id has open. It ends with its input.
#include <windows.h>

#include <cstdio>
#include <exception>
#include <iterator>
#include <string>

#include "browser/real_clipboard.h"
#include "common/link.h"
#include "common/scenario_of_run.h"
#include "common/wide_text.h"
#include "session/look_about.h"
#include "session/open_handles.h"

namespace {

using namespace orvane::standins;
using orvane::simulation::Scenario;

constexpr const wchar_t* className = L"Orvane.StandIn.Session";
constexpr const wchar_t* themeKey = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr const wchar_t* themeValue = L"AppsUseLightTheme";
constexpr UINT sceneMessage = WM_APP + 1;

void setTheme(const std::optional<bool>& isLight) {
  if (!isLight) {
    ::RegDeleteKeyValueW(HKEY_CURRENT_USER, themeKey, themeValue);
    return;
  }
  const DWORD value = *isLight ? 1 : 0;
  ::RegSetKeyValueW(HKEY_CURRENT_USER, themeKey, themeValue, REG_DWORD, &value, sizeof value);
}

// A window that comes to lie under the pointer may be raised: it waits where only a full screen is.
void parkPointer() { ::SetCursorPos(::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1); }

std::string setScene(HWND window, const std::string& path) {
  try {
    ::SetEnvironmentVariableW(L"ORVANE_SCENARIO", wideFromUtf8(path).c_str());
    const Scenario scenario = readScenarioOfRun();
    parkPointer();
    writeClipboard(window, scenario.desktop.clipboard);
    setTheme(scenario.desktop.lightTheme);
    return "ready";
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

void answer(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == sceneMessage) {
    answer(setScene(window, *reinterpret_cast<const std::string*>(lParam)));
    return 0;
  }
  if (message == WM_DESTROY) ::PostQuitMessage(0);
  return ::DefWindowProcW(window, message, wParam, lParam);
}

bool readLine(std::string& line) {
  line.clear();
  for (int character = std::getchar(); character != EOF; character = std::getchar()) {
    if (character == '\n') return true;
    if (character != '\r') line.push_back(static_cast<char>(character));
  }
  return false;
}

DWORD WINAPI takeOrders(void* parameter) {
  const auto window = static_cast<HWND>(parameter);
  constexpr std::string_view order = "scene ";
  constexpr std::string_view handlesOrder = "handles ";
  std::string line;
  while (readLine(line)) {
    if (line == "windows") answer(describeWindows());
    if (line.starts_with(handlesOrder)) answer(std::to_string(countHandles(line.substr(handlesOrder.size()))));
    if (!line.starts_with(order)) continue;
    const std::string path = line.substr(order.size());
    ::SendMessageW(window, sceneMessage, 0, reinterpret_cast<LPARAM>(&path));
  }
  ::PostMessageW(window, WM_CLOSE, 0, 0);
  return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = className;
  ::RegisterClassW(&windowClass);
  // Never shown; a message-only window wouldn't keep the desktop.
  const HWND window =
      ::CreateWindowExW(WS_EX_TOOLWINDOW, className, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, instance, nullptr);
  if (window == nullptr) return 1;
  const HANDLE thread = ::CreateThread(nullptr, 0, takeOrders, window, 0, nullptr);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
  ::CloseHandle(thread);
  return 0;
}
