#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace orvane {

// Presses the page's own buttons that remove a pending attachment, the last in the tree first, ten
// at most. Returns how many took the call; `names`, which may be null, receives their names as
// exposed, in UTF-8 and in the order of pressing. Any failure means a smaller number. Blocks for 80 ms after
// each press.
int removeAttachments(HWND window, std::vector<std::string>* names);

}  // namespace orvane
