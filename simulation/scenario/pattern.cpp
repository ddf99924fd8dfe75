#include "scenario/pattern.h"

// GCC 12 takes a member of the library's automaton for uninitialized when it instruments the code.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <cstddef>
#include <regex>

namespace orvane::simulation {
namespace {

// The library's reader of patterns adds up greater numbers until they overflow.
constexpr std::size_t mostDigits = 9;

bool isDigit(char unit) { return unit >= '0' && unit <= '9'; }

// Of a number of repetitions, or of a group that is referred to.
bool hasNumberTooGreat(const std::string& pattern) {
  bool isEscaped = false;
  bool isNumber = false;
  std::size_t digits = 0;
  for (const char unit : pattern) {
    if (isDigit(unit) && (isNumber || isEscaped)) {
      isNumber = true;
      if (++digits > mostDigits) return true;
    } else {
      isNumber = !isEscaped && (unit == '{' || (unit == ',' && isNumber));
      digits = 0;
    }
    isEscaped = unit == '\\' && !isEscaped;
  }
  return false;
}

}  // namespace

bool isRegularExpression(const std::string& pattern) {
  if (hasNumberTooGreat(pattern)) return false;
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
