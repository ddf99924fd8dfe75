#pragma once

#include <windows.h>

#include "composer/foreground.h"
#include "provider_identity/provider_tables.h"

namespace orvane {

// Brings the window of the provider `key` forward: ChatGPT's by force, any other's by asking once.
// True when it is confirmed to be in front.
inline bool bringProviderForward(const ProviderKey& key, HWND window) {
  return key == provider_key::chatGpt ? forceForeground(window) : bringForward(window);
}

}  // namespace orvane
