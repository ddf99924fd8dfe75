#include "embedding/error_stream.h"

#include <cstdio>

namespace orvane {

// C stdio, because a C++ stream would bring its whole library into the program.
void logErrorLine(const std::string& line) {
  const std::string text = line + '\n';
  if (std::fwrite(text.data(), 1, text.size(), stderr) == text.size()) {
    static_cast<void>(std::fflush(stderr));
  }
}

}  // namespace orvane
