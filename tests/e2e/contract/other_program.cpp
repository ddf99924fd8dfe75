#include "other_program.h"

#include <string>
#include <string_view>

namespace orvane::contract {
namespace {

constexpr const wchar_t* className = L"OtherProgram";
constexpr const char* option = "--other-program";
constexpr UINT takeFrontMessage = WM_APP + 1;
constexpr UINT closeMessage = WM_APP + 2;
constexpr DWORD startMs = 5000;
constexpr DWORD lookMs = 5;

struct Search {
  DWORD processId = 0;
  HWND found = nullptr;
};

BOOL CALLBACK findWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD processId = 0;
  ::GetWindowThreadProcessId(window, &processId);
  wchar_t name[32] = {};
  ::GetClassNameW(window, name, 32);
  if (processId != search.processId || std::wstring_view(name) != className || ::IsWindowVisible(window) == FALSE) {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

HWND awaitWindow(DWORD processId) {
  Search search{processId};
  for (DWORD waitedMs = 0; waitedMs < startMs && search.found == nullptr; waitedMs += lookMs) {
    ::EnumWindows(findWindow, reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) ::Sleep(lookMs);
  }
  return search.found;
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  // Not every platform of the suite announces the foreground by itself.
  if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE) {
    ::NotifyWinEvent(EVENT_SYSTEM_FOREGROUND, window, OBJID_WINDOW, CHILDID_SELF);
  }
  if (message == takeFrontMessage) return ::SetForegroundWindow(window);
  if (message == closeMessage) return ::DestroyWindow(window);
  if (message == WM_DESTROY) ::PostQuitMessage(0);
  return ::DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

OtherProgram::OtherProgram() {
  wchar_t path[MAX_PATH] = {};
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring commandLine = L"\"" + std::wstring(path) + L"\" --other-program";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (::CreateProcessW(path, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started) ==
      FALSE) {
    return;
  }
  ::CloseHandle(started.hThread);
  process_ = started.hProcess;
  window_ = awaitWindow(started.dwProcessId);
}

OtherProgram::~OtherProgram() {
  if (process_ == nullptr) return;
  ::PostMessageW(window_, closeMessage, 0, 0);
  if (::WaitForSingleObject(process_, startMs) != WAIT_OBJECT_0) ::TerminateProcess(process_, 1);
  ::CloseHandle(process_);
}

void OtherProgram::takeFront() const { ::SendMessageW(window_, takeFrontMessage, 0, 0); }

bool OtherProgram::isAskedFor(int argumentCount, char** arguments) {
  return argumentCount == 2 && std::string_view(arguments[1]) == option;
}

int OtherProgram::run() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = ::GetModuleHandleW(nullptr);
  windowClass.lpszClassName = className;
  ::RegisterClassW(&windowClass);
  const HWND window = ::CreateWindowExW(0, className, L"Other program", WS_OVERLAPPEDWINDOW, 600, 60, 400, 300, nullptr,
                                        nullptr, windowClass.hInstance, nullptr);
  if (window == nullptr) return 1;
  constexpr UINT asItIs = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;
  ::SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, asItIs | SWP_SHOWWINDOW);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
  return 0;
}

}  // namespace orvane::contract
