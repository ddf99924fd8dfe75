#include <windows.h>

#include "windows/call.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

// A machine that has run for a while: nobody may take a tick count for a time since the start.
constexpr std::int64_t machineUptimeMs = 5'000'000;
constexpr std::int64_t countsPerMs = 10'000;

}  // namespace

ULONGLONG GetTickCount64() {
  PlatformState& state = stateFor("GetTickCount64");
  if (const auto fault = enter("GetTickCount64")) return faulted<ULONGLONG>(*fault);
  return static_cast<ULONGLONG>(machineUptimeMs + state.desktop.clock().nowMs());
}

BOOL QueryPerformanceCounter(LARGE_INTEGER* count) {
  PlatformState& state = stateFor("QueryPerformanceCounter");
  if (const auto fault = enter("QueryPerformanceCounter")) return faulted<BOOL>(*fault);
  count->QuadPart = (machineUptimeMs + state.desktop.clock().nowMs()) * countsPerMs;
  return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency) {
  if (const auto fault = enter("QueryPerformanceFrequency")) return faulted<BOOL>(*fault);
  frequency->QuadPart = countsPerMs * 1000;
  return TRUE;
}

void Sleep(DWORD milliseconds) {
  PlatformState& state = stateFor("Sleep");
  if (enter("Sleep")) return;
  if (milliseconds == INFINITE) stopRun("Sleep", "a sleep without an end");
  state.desktop.clock().sleep(milliseconds);
}
