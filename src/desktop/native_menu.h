#pragma once

#include <windows.h>

#include <string>

#include "embedding/encodable_value.h"

namespace orvane {

// Shows the owner-drawn popup menu that the arguments of the method `showNativeHotKeysMenu` describe
// and runs its modal loop (TrackPopupMenuEx). Gives the action of the entry chosen; empty when none was,
// when there is no entry, and when CreatePopupMenu fails.
std::string showNativeHotKeysMenu(HWND mainWindow, const EncodableMap* arguments);

}  // namespace orvane
