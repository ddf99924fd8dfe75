#pragma once

#include <windows.h>

#include <cstdint>

namespace orvane {

// Counts of a counter as milliseconds, cut towards zero; 0 where the counter has no frequency.
inline std::uint64_t wholeMilliseconds(std::int64_t counts, std::int64_t countsPerSecond) {
  return countsPerSecond <= 0 ? 0 : static_cast<std::uint64_t>(counts * 1000 / countsPerSecond);
}

// Time since its making by the high-resolution counter, QueryPerformanceCounter.
class ElapsedTimer {
 public:
  ElapsedTimer() : start_(readCounter()) {}

  // As `wholeMilliseconds` cuts them; 0 when QueryPerformanceFrequency fails.
  std::uint64_t elapsedMs() const {
    LARGE_INTEGER frequency{};
    ::QueryPerformanceFrequency(&frequency);
    return wholeMilliseconds(readCounter() - start_, frequency.QuadPart);
  }

 private:
  static std::int64_t readCounter() {
    LARGE_INTEGER counter{};
    ::QueryPerformanceCounter(&counter);
    return counter.QuadPart;
  }

  std::int64_t start_;
};

}  // namespace orvane
