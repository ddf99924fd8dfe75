#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// What a search looks for and where it writes; filled once and used by all passes of a call. The
// first three and the trace are written, all else is read.
struct DiscoveryRequest {
  std::uint32_t& passNumber;              // of the pass that began last; counts on over the passes
  std::vector<TabCandidate>& inventory;   // of the last pass
  std::vector<TabCandidate>& candidates;  // those of them that were accepted
  const UiaSession& session;
  const std::wstring& name;
  const std::wstring& domain;
  const std::wstring& rememberedTitle;
  const EncodableMap& arguments;  // "patterns" is read from here
  TraceLog& trace;
  const std::wstring& rememberedAutomationId;
  const std::wstring& rememberedBrowser;
  HWND rememberedWindowHandle;      // null: none is remembered
  std::int32_t rememberedTabIndex;  // negative: none is remembered
};

// One walk over the top-level windows, with the counts that the walk keeps.
struct DiscoveryPass {
  const UiaSession* session = nullptr;
  std::wstring name;
  std::wstring domain;
  std::wstring rememberedTitle;
  std::vector<std::wstring> patterns;
  std::vector<TabCandidate>* inventory = nullptr;
  std::uint32_t topLevelWindows = 0;  // that EnumWindows reported
  std::uint32_t browserWindows = 0;   // of a supported browser; the n-th is browser number n of the dump
  std::uint32_t uiaRoots = 0;         // browser windows whose root element could be had
  std::uint32_t tabItems = 0;         // in all of them, those without a name included
  std::uint32_t passNumber = 0;       // the request's, from 1; 0 in a walk on its own
  TraceLog* trace = nullptr;          // null: the walk writes no step
};

}  // namespace orvane
