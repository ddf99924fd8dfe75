#include <windows.h>
// windows.h first: objbase.h builds on it.
#include <objbase.h>

#include <string>
#include <utility>
#include <vector>

#include "desktop/main_window_names.h"
#include "embedding/dart_project.h"
#include "shell/command_line.h"
#include "shell/console.h"
#include "shell/flutter_window.h"

namespace {

constexpr orvane::Win32Window::Size windowSize{1280, 720};
constexpr orvane::Win32Window::Point normalOrigin{10, 10};
constexpr orvane::Win32Window::Point offscreenOrigin{-32000, -32000};

// Without a window filter GetMessageW doesn't fail.
void runMessageLoop() {
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) != 0) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

}  // namespace

int APIENTRY wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPWSTR /*commandLine*/, int /*show*/) {
  if (::AttachConsole(ATTACH_PARENT_PROCESS) == FALSE && ::IsDebuggerPresent() != FALSE) {
    orvane::CreateAndAttachConsole();
  }
  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);

  orvane::DartProject project(L"data");
  std::vector<std::string> arguments = orvane::GetCommandLineArguments();
  const bool isOffscreenStart = orvane::asksForOffscreenStart(arguments);
  project.setEntryPointArguments(std::move(arguments));

  orvane::FlutterWindow window(project);
  if (!window.Create(orvane::mainWindowTitle, isOffscreenStart ? offscreenOrigin : normalOrigin, windowSize)) {
    return 1;  // the end of the process closes the apartment
  }
  window.SetQuitOnClose(true);
  runMessageLoop();
  ::CoUninitialize();
  return 0;
}
