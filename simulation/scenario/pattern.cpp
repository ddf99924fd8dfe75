#include "scenario/pattern.h"

// GCC 12 takes a member of the library's automaton for uninitialized when it instruments the code.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <cstddef>
#include <regex>

#include "world/text.h"

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

// Units of UTF-16, as ECMAScript counts them.
std::wstring unitsOf(const std::string& utf8) {
  const Text text = textFromUtf8(utf8);
  return {text.begin(), text.end()};
}

// The pattern behind any start, so that one pass over the text looks for it everywhere.
std::wstring searching(const std::string& pattern) { return L"[\\s\\S]*?(?:" + unitsOf(pattern) + L")"; }

constexpr auto ecmaScript = std::regex_constants::ECMAScript;
// Follows all ways through the pattern side by side: neither the time nor the stack that it takes
// grows with the ways. It knows no reference to a group.
constexpr auto sideBySide = ecmaScript | std::regex_constants::__polynomial;
// The other way takes a frame of the stack for each unit.
constexpr std::size_t longestTextWithReferences = 4000;

}  // namespace

bool isRegularExpression(const std::string& pattern) {
  if (hasNumberTooGreat(pattern)) return false;
  try {
    const std::wregex compiled(unitsOf(pattern), ecmaScript);
    const std::wregex searched(searching(pattern), ecmaScript);  // a little larger: it may be too large
    return true;
  } catch (const std::regex_error&) {
    return false;
  }
}

bool isFound(const std::string& pattern, const std::string& text) {
  const std::wstring units = unitsOf(text);
  constexpr auto fromTheStart = std::regex_constants::match_continuous;
  try {
    return std::regex_search(units, std::wregex(searching(pattern), sideBySide), fromTheStart);
  } catch (const std::regex_error& error) {
    if (error.code() != std::regex_constants::error_complexity) throw;
  }
  return units.size() <= longestTextWithReferences &&
         std::regex_search(units, std::wregex(searching(pattern), ecmaScript), fromTheStart);
}

}  // namespace orvane::simulation
