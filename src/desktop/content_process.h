#pragma once

#include <windows.h>

#include "embedding/encodable_value.h"

namespace orvane {

// Posted to the main window of a content process: its interface is to show its tool box.
inline constexpr UINT showToolBoxMessage = 0x8153;

// Hands the foreground to the main window of another running instance, found by EnumWindows, after
// posting `showToolBoxMessage` to it where asked for. The keys are those of the method
// `activateContentProcess`. True when GetForegroundWindow names that window afterwards.
bool activateContentProcess(const EncodableMap* arguments);

}  // namespace orvane
