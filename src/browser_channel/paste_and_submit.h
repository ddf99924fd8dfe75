#pragma once

#include "embedding/encodable_value.h"

namespace orvane {

// Replaces the draft in the foreground provider's verified composer by the clipboard's content,
// submits it and looks for evidence of delivery. It is submitted once; Claude's Send control may be pressed
// once more, when it stands ready again beside the unchanged text. `arguments` may be null. Returns the
// reply: "success", "message" and "logs". Blocks the calling thread for up to about 27 s.
EncodableMap pasteAndSubmit(const EncodableMap* arguments);

}  // namespace orvane
