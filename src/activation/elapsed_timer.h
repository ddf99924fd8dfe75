#pragma once

#include <windows.h>

#include <cstdint>

namespace orvane {

// Time since its making by the high-resolution counter.
class ElapsedTimer {
 public:
  ElapsedTimer() : start_(readCounter()) {}

  // Whole milliseconds, cut towards zero.
  std::uint64_t elapsedMs() const {
    LARGE_INTEGER frequency{};
    ::QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart <= 0 ? 0
                                   : static_cast<std::uint64_t>((readCounter() - start_) * 1000 / frequency.QuadPart);
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
