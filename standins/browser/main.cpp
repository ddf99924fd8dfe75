#include <windows.h>
// windows.h first: the next builds on it.
#include <shellapi.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

#include "browser/browser.h"
#include "browser/group.h"
#include "common/scenario_of_run.h"

namespace {

using namespace orvane::standins;

// The number behind --group.
int groupNumber() {
  int count = 0;
  const std::unique_ptr<wchar_t*, HLOCAL(WINAPI*)(HLOCAL)> arguments(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                                     ::LocalFree);
  if (count != 3 || std::wstring_view(arguments.get()[1]) != L"--group") {
    throw std::runtime_error("must be called with --group NUMBER");
  }
  return std::stoi(arguments.get()[2]);
}

// A line on the output says that the windows stand.
void play() {
  const int group = groupNumber();
  orvane::simulation::Scenario scenario = readScenarioOfRun();
  const auto ids = windowsOfGroup(scenario.desktop.windows, group);
  if (ids.empty()) throw std::runtime_error("the scenario has no group " + std::to_string(group));
  Browser browser(std::move(scenario), ids);
  browser.open();
  std::puts("ready");
  std::fflush(stdout);
  browser.run();
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
  ::SetProcessDPIAware();
  try {
    play();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "browser: %s\n", failure.what());
    return 2;
  }
  return 0;
}
