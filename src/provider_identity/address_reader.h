#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "composer/uia_operations.h"

namespace orvane {

// The text of the window's address bar, found by a scan of its edit controls; empty when none of
// them shows an address, and when the session or the root is empty.
std::wstring readWindowAddress(const UiaSession& session, const UiaElement& root);

// The same for a window handle, with a root element of its own; empty on failure.
std::wstring readWindowAddress(const UiaSession& session, HWND window);

// True when the window's address stands on `host` (lower case) or on "www." and that host; no
// sub-domain passes. Opens a session of its own; any failure gives false.
bool isExactChatHost(HWND window, std::wstring_view host);

}  // namespace orvane
