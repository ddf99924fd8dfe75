#pragma once

#include <string>

namespace orvane::standins {

// What stands on the desktop for any program to see: a JSON list on one line, the uppermost window
// first. Of each window that is shown or has a name: `name` (null: none), `process`, `class`, `title`,
// `style`, `exStyle`, `bounds` (pixels), `isShown`, `isInFront`.
std::string describeWindows();

}  // namespace orvane::standins
