#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// What a search looks for and where it writes; filled once and used by all passes of a call.
struct DiscoveryRequest {
  std::uint32_t& passNumber;
  std::vector<TabCandidate>& inventory;
  std::vector<TabCandidate>& candidates;
  const UiaSession& session;
  const std::wstring& name;
  const std::wstring& domain;
  const std::wstring& rememberedTitle;
  const EncodableMap& arguments;  // "patterns" is read from here
  TraceLog& trace;
  const std::wstring& rememberedAutomationId;
  const std::wstring& rememberedBrowser;
  HWND rememberedWindowHandle;
  std::int32_t rememberedTabIndex;
};

// One walk over the top-level windows.
struct DiscoveryPass {
  const UiaSession* session = nullptr;
  std::wstring name;
  std::wstring domain;
  std::wstring rememberedTitle;
  std::vector<std::wstring> patterns;
  std::vector<TabCandidate>* inventory = nullptr;
  std::uint32_t topLevelWindows = 0;
  std::uint32_t browserWindows = 0;
  std::uint32_t uiaRoots = 0;
  std::uint32_t tabItems = 0;
  std::uint32_t browserOrdinal = 0;
  std::uint32_t passNumber = 0;
  TraceLog* trace = nullptr;  // null: the walk writes no step
};

}  // namespace orvane
