#pragma once

#include <string>
#include <string_view>

namespace orvane::fuzzing {

// Says on the stream that the program was started with what doesn't hold, and ends the program as a
// crash does, so that the input is kept.
[[noreturn]] void reportFind(std::string_view what);

inline void require(bool holds, std::string_view promise) {
  if (!holds) {
    reportFind(promise);
  }
}

// The host's error stream, in memory: it may be long, and is looked at. Gives what was written since
// the last call; the first call begins the catching.
std::string takeErrorText();

}  // namespace orvane::fuzzing
