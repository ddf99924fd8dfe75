#pragma once

#include <string>

namespace orvane::simulation {

// Regular expressions as ECMAScript has them, over units of UTF-16.
bool isRegularExpression(const std::string& pattern);

// Whether `pattern`, which must be a regular expression, is found in `text`. One that refers to its
// own groups is found in no text of more than 4,000 units.
bool isFound(const std::string& pattern, const std::string& text);

}  // namespace orvane::simulation
