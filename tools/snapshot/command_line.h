#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "snapshot/provider_calls.h"

namespace orvane::snapshot {

struct Request {
  std::vector<std::wstring> imageNames;  // lower case; the browsers' where none is named
  std::wstring output;
  const ProviderCall* provider = nullptr;  // null: the one whose page is shown
  DWORD delayMs = 0;
  bool isPlain = false;
  bool wantsHelp = false;
  bool wantsVersion = false;
  std::string complaint;  // in one line; empty when the request can be served
};

// `arguments` are those behind the program's name.
Request readCommandLine(const std::vector<std::wstring>& arguments);

// What `--help` prints.
std::string usage();

}  // namespace orvane::snapshot
