#pragma once

#include <string>
#include <string_view>

namespace orvane {

// The block of the clipboard format "HTML Format" around a fragment of UTF-8 bytes, which goes in as
// it is; without the closing zero byte.
std::string buildHtmlBlock(std::string_view fragment);

// The fragment of such a block: by the byte offsets of its header, and where they don't fit by the
// comment markers. Empty when neither tells it: the document as a whole is never taken for it.
std::string extractHtmlFragment(std::string_view block);

}  // namespace orvane
