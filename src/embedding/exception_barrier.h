#pragma once

#include <exception>

namespace orvane {

// Logs that an exception ended the handling of `subject`.
void logException(const char* subject, const char* what) noexcept;

// Calls `act` out of a callback of the library, whose frames know no exceptions: what `act` throws
// is logged and ends here. `subject` is what was being handled.
template <typename Act>
void callWithoutExceptions(const char* subject, const Act& act) noexcept {
  try {
    act();
  } catch (const std::exception& exception) {
    logException(subject, exception.what());
  } catch (...) {
    logException(subject, "unknown");
  }
}

}  // namespace orvane
