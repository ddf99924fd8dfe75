#include <windows.h>

#include "windows/call.h"

namespace orvane::simulation {
namespace {

thread_local DWORD threadsLastError = 0;

}  // namespace

void setLastError(LONG error) { threadsLastError = static_cast<DWORD>(error); }

}  // namespace orvane::simulation

using namespace orvane::simulation;

DWORD GetLastError() {
  if (const auto fault = enter("GetLastError")) return faulted<DWORD>(*fault);
  return threadsLastError;
}

void SetLastError(DWORD error) {
  if (enter("SetLastError")) return;
  threadsLastError = error;
}
