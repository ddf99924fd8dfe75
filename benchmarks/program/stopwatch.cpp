// stopwatch.exe ROUNDS PROGRAM...: starts each program in turn, as often as ROUNDS says, and prints a
// line of microseconds for each start: from the call that creates the process until it first waits in
// its message loop. Each is ended there. Exit code 1, and a line, when a start can't be measured.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr DWORD longestStartMs = 30'000;
// The end of a program takes the display and Wine's server some time more, which isn't the next one's start.
constexpr DWORD settlingMs = 400;

struct Process {
  explicit Process(const wchar_t* program) {
    std::wstring commandLine = L'"' + std::wstring(program) + L'"';
    STARTUPINFOW start{};
    start.cb = sizeof start;
    isStarted = ::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                                 &handles) != FALSE;
  }
  ~Process() {
    if (!isStarted) return;
    ::TerminateProcess(handles.hProcess, 0);
    ::WaitForSingleObject(handles.hProcess, longestStartMs);
    ::CloseHandle(handles.hThread);
    ::CloseHandle(handles.hProcess);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  PROCESS_INFORMATION handles{};
  bool isStarted = false;
};

std::int64_t nowMicroseconds() {
  LARGE_INTEGER frequency{};
  LARGE_INTEGER ticks{};
  ::QueryPerformanceFrequency(&frequency);
  ::QueryPerformanceCounter(&ticks);
  return ticks.QuadPart / frequency.QuadPart * 1'000'000 +
         ticks.QuadPart % frequency.QuadPart * 1'000'000 / frequency.QuadPart;
}

// -1 when it doesn't get there.
std::int64_t timeStart(const wchar_t* program) {
  const std::int64_t began = nowMicroseconds();
  const Process process(program);
  if (!process.isStarted || ::WaitForInputIdle(process.handles.hProcess, longestStartMs) != 0) return -1;
  return nowMicroseconds() - began;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count < 3) {
    std::fputs("stopwatch.exe ROUNDS PROGRAM...\n", stderr);
    return EXIT_FAILURE;
  }
  const int rounds = static_cast<int>(std::wcstol(arguments[1], nullptr, 10));
  for (int round = 0; round < rounds; ++round) {
    for (int program = 2; program < count; ++program) {
      ::Sleep(settlingMs);
      const std::int64_t microseconds = timeStart(arguments[program]);
      if (microseconds < 0) {
        std::printf("%ls didn't reach its message loop\n", arguments[program]);
        return EXIT_FAILURE;
      }
      std::printf("%lld%c", static_cast<long long>(microseconds), program + 1 < count ? ' ' : '\n');
    }
    std::fflush(stdout);
  }
  return EXIT_SUCCESS;
}
