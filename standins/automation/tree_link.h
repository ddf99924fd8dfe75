#pragma once

#include <windows.h>

#include <string>

#include "common/link.h"

namespace orvane::standins {

// Where an element stands: the window through which its process is asked, and its number there.
struct ElementPlace {
  HWND link = nullptr;
  int number = 0;
  bool operator==(const ElementPlace&) const = default;
};

// One question about an element to the process that keeps it. `question` gets the element's number.
// A failure's "hresult" stands in the answer too when the process has gone.
Json askAbout(const ElementPlace& place, Json question);

// The answer's own result; S_OK where it holds none.
HRESULT resultOf(const Json& answer);

// A string that the caller will own; null for a JSON null.
BSTR makeBstr(const Json& text);
BSTR makeBstr(const std::wstring& text);

}  // namespace orvane::standins
