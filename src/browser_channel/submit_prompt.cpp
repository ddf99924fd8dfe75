#include <string>

#include "browser_channel/delivery.h"
#include "composer/delivery_keys.h"
#include "composer/prompt_state.h"
#include "composer/send_control.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr DWORD claudePasteSettleMs = 1100;
constexpr DWORD chatGptPasteSettleMs = 500;
constexpr DWORD geminiPasteSettleMs = 650;
constexpr DWORD plainPasteSettleMs = 220;
constexpr DWORD perplexityExtraSettleMs = 500;
constexpr DWORD afterClaudeSendMs = 900;
constexpr DWORD afterSendMs = 350;

constexpr int chatGptPasteChecks = 7;
constexpr int geminiPasteChecks = 8;
constexpr int perplexityPasteChecks = 8;

constexpr int claudeSendChecks = 20;
constexpr int claudeSendSightings = 2;
constexpr int chatGptSendChecks = 10;
constexpr int perplexitySendChecks = 12;
constexpr int sendSightings = 3;

// What came of the exact Send control.
struct ButtonSend {
  bool isStable = false;
  bool isInvoked = false;
  std::string detail;
};

ButtonSend sendByButton(const Delivery& delivery, int highestChecks, int requiredSightings, const char* readinessStep,
                        TraceLog& trace) {
  ButtonSend send;
  send.isStable = waitForStableSendButton(delivery.target, highestChecks, send.detail, requiredSightings);
  appendTrace(trace, readinessStep, send.detail);
  if (send.isStable) {
    send.isInvoked = invokeSendButton(delivery.target, delivery.name, &send.detail);
  }
  return send;
}

bool sendByEnter(const char* step, const char* passText, TraceLog& trace) {
  const bool isSent = sendEnterKey();
  appendTrace(trace, step, isSent ? passText : "FAIL: Windows could not send Enter");
  return isSent;
}

void submitToClaude(Delivery& delivery, TraceLog& trace) {
  ::Sleep(claudePasteSettleMs);
  appendTrace(trace, "Claude First-Use Paste Settle", "PASS: waited 1100 ms for Claude composer readiness");
  const ButtonSend send = sendByButton(delivery, claudeSendChecks, claudeSendSightings, "Claude Send Readiness", trace);
  delivery.wasSent = send.isInvoked;
  delivery.wasSentByButton = send.isInvoked;
  if (send.isInvoked) {
    appendTrace(trace, "Claude Send Button", send.detail);
  } else {
    appendTrace(trace, "Claude Send Button",
                send.isStable ? "INFO: " + send.detail : "INFO: Send invocation skipped until stable");
    delivery.wasSent = sendByEnter("Claude Enter Fallback", "PASS: Enter sent to verified Claude input", trace);
  }
  ::Sleep(afterClaudeSendMs);
}

void settleAfterPaste(const Delivery& delivery, TraceLog& trace) {
  if (delivery.flags.isGemini) {
    ::Sleep(geminiPasteSettleMs);
    appendTrace(trace, "Gemini Paste Settle", "PASS: waited 650 ms before Enter");
  } else {
    ::Sleep(chatGptPasteSettleMs);
    appendTrace(trace, "ChatGPT Paste Settle", "PASS: waited 500 ms before Enter");
  }
}

// Advisory: whatever it finds, the branch goes on.
void checkPastedText(const Delivery& delivery, TraceLog& trace) {
  const bool isGemini = delivery.flags.isGemini;
  std::string detail;
  bool isValueExposed = false;
  const bool isStable =
      waitForPastedPromptStable(isGemini ? geminiPasteChecks : chatGptPasteChecks, detail, &isValueExposed);
  if (!isStable && isValueExposed) {
    detail = "INFO: " + detail + "; Enter retained without automatic retry";
  }
  appendTrace(trace, isGemini ? "Gemini Prompt Readiness" : "ChatGPT Prompt Readiness", detail);
}

void sendToChatGpt(Delivery& delivery, TraceLog& trace) {
  const ButtonSend send = sendByButton(delivery, chatGptSendChecks, sendSightings, "ChatGPT Send Readiness", trace);
  delivery.wasSent = send.isInvoked;
  if (send.isInvoked) {
    appendTrace(trace, "ChatGPT Send Button", send.detail);
    return;
  }
  appendTrace(trace, "ChatGPT Send Button",
              send.isStable ? "INFO: " + send.detail : "INFO: exact Send button unavailable");
  delivery.wasSent =
      sendByEnter("ChatGPT Enter Fallback", "PASS: Enter sent because exact Send was unavailable", trace);
}

void submitToChatGptOrGemini(Delivery& delivery, TraceLog& trace) {
  settleAfterPaste(delivery, trace);
  checkPastedText(delivery, trace);
  if (delivery.flags.isChatGpt) {
    sendToChatGpt(delivery, trace);
  } else {
    delivery.wasSent = sendByEnter("Send", "PASS: Enter sent to verified AI input", trace);
  }
  ::Sleep(afterSendMs);
}

// Binding: a value that was seen and did not hold stops the branch with nothing sent.
bool isPerplexityPasteAcceptable(TraceLog& trace) {
  std::string detail;
  bool isValueExposed = false;
  const bool isStable = waitForPastedPromptStable(perplexityPasteChecks, detail, &isValueExposed);
  if (!isStable) {
    detail = isValueExposed ? "FAIL/UNVERIFIED: " + detail + "; draft preserved; no submit"
                            : "INFO: " + detail + "; continuing to exact Send readiness";
  }
  appendTrace(trace, "Perplexity Paste Verification", detail);
  return isStable || !isValueExposed;
}

std::string perplexityButtonText(const ButtonSend& send) {
  if (send.isInvoked) {
    return send.detail;
  }
  return send.isStable ? "FAIL/UNVERIFIED: " + send.detail + "; draft preserved; no Enter fallback"
                       : "FAIL/UNVERIFIED: exact enabled Send button not stable; draft preserved; no Enter fallback";
}

// Enter is never sent to Perplexity.
void submitToPerplexity(Delivery& delivery, TraceLog& trace) {
  ::Sleep(plainPasteSettleMs);
  ::Sleep(perplexityExtraSettleMs);
  if (isPerplexityPasteAcceptable(trace)) {
    const ButtonSend send =
        sendByButton(delivery, perplexitySendChecks, sendSightings, "Perplexity Send Readiness", trace);
    delivery.wasSent = send.isInvoked;
    appendTrace(trace, "Perplexity Send Button", perplexityButtonText(send));
  }
  ::Sleep(afterSendMs);
}

void submitByPlainEnter(Delivery& delivery, TraceLog& trace) {
  ::Sleep(plainPasteSettleMs);
  delivery.wasSent = sendByEnter("Send", "PASS: Enter sent to verified AI input", trace);
  ::Sleep(afterSendMs);
}

}  // namespace

ProviderFlags flagsOfProvider(std::wstring_view lowerName) {
  return {contains(lowerName, provider_key::claude), contains(lowerName, provider_key::gemini),
          contains(lowerName, provider_key::chatGpt), lowerName == provider_key::perplexity};
}

void submitPrompt(Delivery& delivery, TraceLog& trace) {
  const ProviderFlags& flags = delivery.flags;
  if (flags.isClaude) {
    submitToClaude(delivery, trace);
  } else if (flags.isGemini || flags.isChatGpt) {
    submitToChatGptOrGemini(delivery, trace);
  } else if (flags.isPerplexity) {
    submitToPerplexity(delivery, trace);
  } else {
    submitByPlainEnter(delivery, trace);
  }
}

}  // namespace orvane
