#include "shell/console.h"

#include <windows.h>
// windows.h first: io.h builds on it where it is simulated.
#include <io.h>

#include <cstdio>

#include "embedding/flutter_library.h"

namespace orvane {
namespace {

constexpr int stdoutNumber = 1;
constexpr int stderrNumber = 2;

void leadToConsole(std::FILE* stream, int number) {
  std::FILE* reopened = nullptr;
  if (::freopen_s(&reopened, "CONOUT$", "w", stream) != 0) {
    // Of stderr too: errors then go where the output goes.
    ::_dup2(::_fileno(stdout), number);
  }
}

}  // namespace

void CreateAndAttachConsole() {
  if (::AllocConsole() == FALSE) {
    return;
  }
  leadToConsole(stdout, stdoutNumber);
  leadToConsole(stderr, stderrNumber);
  // The C++ streams are synchronised with stdio from the start, and nothing here ends that.
  ::FlutterDesktopResyncOutputStreams();
}

}  // namespace orvane
