#include "scenario/pattern.h"

// GCC 12 takes a member of the library's automaton for uninitialized when it instruments the code.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <regex>

namespace orvane::simulation {

bool isRegularExpression(const std::string& pattern) {
  try {
    const std::regex compiled(pattern);
    return true;
  } catch (const std::regex_error&) {
    return false;
  }
}

bool isFound(const std::string& pattern, const std::string& text) {
  return std::regex_search(text, std::regex(pattern));
}

}  // namespace orvane::simulation
