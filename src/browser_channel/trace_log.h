#pragma once

#include <string>

#include "embedding/encodable_value.h"

namespace orvane {

// The steps of one provider operation in the order in which they happened. Each entry is a map of
// "step" and "result", both UTF-8 strings. A trace belongs to one call and is never shortened.
using TraceLog = EncodableList;

// Appends one step at the end.
void appendTrace(TraceLog& trace, const std::string& step, const std::string& result);

// The reply of `pasteAndSubmit`: "success", "message" (one sentence for the user) and "logs", a
// copy of the trace.
EncodableMap makeProviderReply(bool success, const std::string& message, const TraceLog& trace);

}  // namespace orvane
