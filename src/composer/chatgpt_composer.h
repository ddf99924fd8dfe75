#pragma once

#include <string>

#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"

namespace orvane {

// Proof by content: a ChatGPT composer stands in the lower part of the window. Writes a step into
// `trace`, which may be null, on success only. False for an empty session or root and on failure.
bool verifyChatGptComposer(const UiaSession& session, const UiaElement& root, const std::wstring& windowTitle,
                           TraceLog* trace);

}  // namespace orvane
