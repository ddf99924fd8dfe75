#include <windows.h>

#include "windows/platform.h"
#include "windows/process.h"
#include "windows/script_turn.h"
#include "windows/state.h"

namespace orvane::simulation {

int Platform::run() {
  const int exitCode = ::wWinMain(moduleInstance(), nullptr, state_->commandLine.data(), SW_SHOWNORMAL);
  endScript(*state_);
  return exitCode;
}

}  // namespace orvane::simulation
