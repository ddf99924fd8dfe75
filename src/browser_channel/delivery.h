#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "browser_channel/trace_log.h"

namespace orvane {

// Which provider's rules a delivery follows. A name may hold two provider words, and then has two flags.
// None: the plain Enter branch.
struct ProviderFlags {
  bool isClaude = false;      // the key holds the word
  bool isGemini = false;      // the key holds the word
  bool isChatGpt = false;     // the key holds the word
  bool isPerplexity = false;  // the key equals the word
};

ProviderFlags flagsOfProvider(std::wstring_view lowerName);

// One pasted prompt on its way to the provider.
struct Delivery {
  HWND target = nullptr;
  std::string name;  // as received, UTF-8
  ProviderFlags flags;
  bool wasSent = false;          // a send action was performed; set by submitPrompt
  bool isDelivered = false;      // nothing tells against it since; set by verifyDelivery
  bool wasSentByButton = false;  // Claude: the first send went through the exact Send control
};

// Waits for the page to take the paste and sends the prompt once, each provider in its way; sets
// `wasSent` and `wasSentByButton`.
void submitPrompt(Delivery& delivery, TraceLog& trace);

// Looks for evidence after a performed send and sets `isDelivered`. What evidence is worth depends on the
// provider: ChatGPT and Gemini fail only when the text and a ready Send control are both back, Perplexity
// and Claude have rules of their own, and a plain Enter is delivered as soon as it was sent.
void verifyDelivery(Delivery& delivery, TraceLog& trace);

// The same for Claude, which is judged by its composer and may be sent once more, by its Send control.
void verifyClaudeDelivery(Delivery& delivery, TraceLog& trace);

}  // namespace orvane
