#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "browser_channel/trace_log.h"

namespace orvane {

// Which provider's rules a delivery follows. The tests are independent flags: a name may hold two
// provider words. All false: the plain Enter branch.
struct ProviderTests {
  bool isClaude = false;      // the key holds the word
  bool isGemini = false;      // the key holds the word
  bool isChatGpt = false;     // the key holds the word
  bool isPerplexity = false;  // the key equals the word
};

ProviderTests testProvider(std::wstring_view lowerName);

// One pasted prompt on its way to the provider.
struct Delivery {
  HWND target = nullptr;
  std::string name;  // as received, UTF-8
  ProviderTests tests;
  bool isDelivered = false;
  bool wasSentByButton = false;  // Claude: the first send went through the exact Send control
};

// Waits for the page to take the paste and sends the prompt once, each provider in its way; sets
// `isDelivered` when a send action was performed.
void submitPrompt(Delivery& delivery, TraceLog& trace);

// Looks for evidence after a performed send and sets `isDelivered` to false where it is missing.
void verifyDelivery(Delivery& delivery, TraceLog& trace);

// The same for Claude, which is judged by its composer and has one retry.
void verifyClaudeDelivery(Delivery& delivery, TraceLog& trace);

}  // namespace orvane
