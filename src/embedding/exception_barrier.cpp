#include "embedding/exception_barrier.h"

#include <string>

#include "embedding/error_stream.h"

namespace orvane {

void logException(const char* subject, const char* what) noexcept {
  try {
    logErrorLine(std::string("Error: An exception ended the handling of ") + subject + ": " + what);
  } catch (const std::exception&) {
    return;  // no memory is left to say it with
  }
}

}  // namespace orvane
