#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "embedding/encodable_value.h"

namespace orvane {

// Where the interface last found a provider. Only a pointer to look at first, never a proof.
struct RememberedTarget {
  std::wstring title;
  std::wstring automationId;
  std::wstring browser;         // display name
  HWND windowHandle = nullptr;  // null: none
  std::int32_t tabIndex = -1;   // negative: none
};

// Reads the five remembered arguments; handle and index travel as decimal texts, and what is
// missing or of another type reads as empty. An empty index is -1, one without digits 0; a handle
// without digits is null.
RememberedTarget readRememberedTarget(const EncodableMap& arguments);

}  // namespace orvane
