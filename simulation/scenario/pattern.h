#pragma once

#include <string>

namespace orvane::simulation {

// Regular expressions as ECMAScript has them.
bool isRegularExpression(const std::string& pattern);

// Whether `pattern`, which must be a regular expression, is found in `text`.
bool isFound(const std::string& pattern, const std::string& text);

}  // namespace orvane::simulation
