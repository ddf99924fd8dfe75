#include <io.h>
#include <windows.h>

#include <cerrno>
#include <cstring>

#include "windows/call.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

bool hasConsole = false;

bool isStandardDescriptor(int descriptor) { return descriptor >= 0 && descriptor <= 2; }

}  // namespace

BOOL AttachConsole(DWORD processId) {
  if (const auto fault = enter("AttachConsole")) return faulted<BOOL>(*fault);
  if (processId != ATTACH_PARENT_PROCESS) stopRun("AttachConsole", "a process other than the parent");
  // The program was started from no console.
  return failWith(ERROR_INVALID_HANDLE, FALSE);
}

BOOL AllocConsole() {
  if (const auto fault = enter("AllocConsole")) return faulted<BOOL>(*fault);
  if (hasConsole) return failWith(ERROR_ACCESS_DENIED, FALSE);
  hasConsole = true;
  return TRUE;
}

BOOL IsDebuggerPresent() {
  if (const auto fault = enter("IsDebuggerPresent")) return faulted<BOOL>(*fault);
  return FALSE;
}

int _fileno(FILE* stream) {
  if (const auto fault = enter("_fileno")) return faulted<int>(*fault);
  if (stream == stdin) return 0;
  if (stream == stdout) return 1;
  if (stream == stderr) return 2;
  stopRun("_fileno", "a stream other than the standard ones");
}

// The host's streams stay what they are: what it writes on its error stream is read by whoever runs
// the simulation, and its output stream is the report's.
int _dup2(int from, int to) {
  if (const auto fault = enter("_dup2")) return faulted<int>(*fault);
  stateFor("_dup2").records.descriptors.push_back({from, to});
  if (isStandardDescriptor(from) && isStandardDescriptor(to)) return 0;
  errno = EBADF;
  return -1;
}

// A console shows the host's streams where they go already.
errno_t freopen_s(FILE** stream, const char* path, const char* mode, FILE* reopened) {
  if (const auto fault = enter("freopen_s")) return faulted<errno_t>(*fault);
  if (std::strcmp(path, "CONOUT$") != 0 || std::strcmp(mode, "w") != 0) {
    stopRun("freopen_s", "anything but writing to the console isn't modelled");
  }
  *stream = hasConsole ? reopened : nullptr;
  return hasConsole ? 0 : ENOENT;
}
