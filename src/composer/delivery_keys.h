#pragma once

namespace orvane {

// The keys of the delivery path, each one SendInput call. They go to the focus of the moment: the
// caller has verified the foreground and the composer. True when all events were inserted; false
// says that at most some were, and nothing is sent again.
bool sendEnterKey();
bool sendSelectAllKeys();
bool sendPasteKeys();

}  // namespace orvane
