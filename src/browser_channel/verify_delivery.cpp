#include <string>

#include "browser_channel/delivery.h"
#include "composer/prompt_box.h"
#include "composer/prompt_state.h"
#include "composer/send_control.h"

namespace orvane {
namespace {

constexpr DWORD postSubmitWaitMs = 800;
constexpr DWORD pauseBetweenPollsMs = 250;
constexpr int chatGptRespondingPolls = 10;
constexpr int geminiRespondingPolls = 8;
constexpr int perplexityPolls = 24;
constexpr int postSendChecks = 8;
constexpr int postSendSightings = 3;

// The words of one of the two branches that share this verification.
struct EvidenceTexts {
  int respondingPolls;
  const char* respondingStep;
  const char* readinessStep;
  const char* evidenceStep;
  const char* respondingEvidence;
  const char* probableEvidence;
};

constexpr EvidenceTexts chatGptTexts{
    chatGptRespondingPolls,
    "ChatGPT Responding State",
    "ChatGPT Post-Send Readiness",
    "ChatGPT Delivery Evidence",
    "PASS: ChatGPT entered a responding state; stale composer value ignored; duplicate retry blocked",
    "PASS/PROBABLE: Submit was invoked and the enabled Send control did not return to a stable ready state; stale "
    "composer value ignored; duplicate retry blocked",
};

constexpr EvidenceTexts geminiTexts{
    geminiRespondingPolls,
    "Gemini Responding State",
    "Gemini Post-Send Readiness",
    "Gemini Delivery Evidence",
    "PASS: Gemini entered a responding state; stale composer value ignored; duplicate retry blocked",
    "PASS/PROBABLE: Enter was delivered and the enabled Send control did not return to a stable ready state; stale "
    "composer value ignored; duplicate retry blocked",
};

constexpr const char* unconfirmedEvidence =
    "UNVERIFIED: composer still exposes the prompt and no post-send state transition was confirmed; draft preserved; "
    "no retry";

bool pollRespondingControl(HWND target, int polls, std::string& detail) {
  for (int poll = 0; poll < polls; ++poll) {
    if (isRespondingControlVisible(target, &detail)) {
      return true;
    }
    ::Sleep(pauseBetweenPollsMs);
  }
  return false;
}

// The composer still shows the text: what else tells that the page took it?
void weighRemainingText(Delivery& delivery, const EvidenceTexts& texts, TraceLog& trace) {
  std::string detail;
  const bool isResponding = pollRespondingControl(delivery.target, texts.respondingPolls, detail);
  appendTrace(trace, texts.respondingStep, isResponding ? detail : "INFO: " + detail);
  if (isResponding) {
    appendTrace(trace, texts.evidenceStep, texts.respondingEvidence);
    return;
  }
  const bool isSendBack = waitForStableSendButton(delivery.target, postSendChecks, detail, postSendSightings);
  appendTrace(trace, texts.readinessStep, detail);
  delivery.isDelivered = !isSendBack;
  appendTrace(trace, texts.evidenceStep, isSendBack ? unconfirmedEvidence : texts.probableEvidence);
}

void verifyChatGptOrGemini(Delivery& delivery, TraceLog& trace) {
  std::string detail;
  if (!verifyPromptBox(delivery.target, delivery.name, &detail)) {
    appendTrace(trace, "Submit Verification", "INFO: " + detail);
    return;
  }
  bool isValueExposed = false;
  const bool hasText = readPromptState(&detail, &isValueExposed);
  if (!isValueExposed) {
    appendTrace(trace, "Submit Verification", "INFO: prompt value is not exposed after Enter");
  } else if (!hasText) {
    appendTrace(trace, "Submit Verification", "PASS: prompt composer is empty after Enter");
  } else {
    weighRemainingText(delivery, delivery.flags.isChatGpt ? chatGptTexts : geminiTexts, trace);
  }
}

// The evidence of one pass; empty when it saw none.
std::string lookAtPerplexity(const Delivery& delivery, std::string& composerDetail) {
  if (isRespondingControlVisible(delivery.target, nullptr)) {
    return "PASS/OBSERVED: responding state appeared after exact Send; duplicate retry blocked";
  }
  if (!verifyPromptBox(delivery.target, delivery.name, &composerDetail)) {
    return {};
  }
  bool isValueExposed = false;
  const bool hasText = readPromptState(&composerDetail, &isValueExposed);
  return isValueExposed && !hasText ? "PASS/OBSERVED: composer cleared after exact Send; duplicate retry blocked"
                                    : std::string();
}

void verifyPerplexity(Delivery& delivery, TraceLog& trace) {
  std::string composerDetail = "Perplexity composer was not available after Send";
  for (int poll = 0; poll < perplexityPolls; ++poll) {
    const std::string evidence = lookAtPerplexity(delivery, composerDetail);
    if (!evidence.empty()) {
      appendTrace(trace, "Perplexity Delivery Evidence", evidence);
      return;
    }
    ::Sleep(pauseBetweenPollsMs);
  }
  std::string detail;
  const bool isSendBack = waitForStableSendButton(delivery.target, postSendChecks, detail, postSendSightings);
  appendTrace(trace, "Perplexity Post-Send Readiness", detail);
  delivery.isDelivered = !isSendBack;
  appendTrace(trace, "Perplexity Delivery Evidence",
              isSendBack ? "FAIL/UNVERIFIED: exact Send was invoked but no responding state, empty composer, or "
                           "Send-state transition was observed; no retry; " +
                               composerDetail
                         : "PASS/PROBABLE: exact Submit was invoked and its enabled Send control did not return to a "
                           "stable ready state; stale composer value ignored; duplicate retry blocked");
}

}  // namespace

void verifyDelivery(Delivery& delivery, TraceLog& trace) {
  delivery.isDelivered = delivery.wasSent;  // what is found below may tell against it
  if (delivery.flags.isClaude) {
    verifyClaudeDelivery(delivery, trace);
    return;
  }
  if (delivery.flags.isPerplexity) {
    verifyPerplexity(delivery, trace);
    return;
  }
  ::Sleep(postSubmitWaitMs);
  appendTrace(trace, "Post-Submit Observation", "PASS/OBSERVED: Enter was delivered; no automatic retry performed");
  if (delivery.flags.isChatGpt || delivery.flags.isGemini) {
    verifyChatGptOrGemini(delivery, trace);
  } else {
    appendTrace(trace, "Submit Verification", "INFO: prompt-value verification is not configured for this provider");
  }
}

}  // namespace orvane
