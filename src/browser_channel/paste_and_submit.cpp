#include "browser_channel/paste_and_submit.h"

#include <windows.h>

#include <cstdint>
#include <string>

#include "browser_channel/delivery.h"
#include "browser_channel/elapsed_trace.h"
#include "browser_channel/settled_providers.h"
#include "browser_channel/trace_log.h"
#include "composer/attachment_cleanup.h"
#include "composer/best_effort_delivery.h"
#include "composer/delivery_keys.h"
#include "composer/foreground.h"
#include "composer/prompt_box.h"
#include "composer/prompt_state.h"
#include "embedding/call_arguments.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr DWORD beforeForegroundReadMs = 260;
constexpr DWORD firstUseSettleMs = 1800;
constexpr DWORD beforeSelectAllMs = 120;
constexpr DWORD beforePasteMs = 70;
constexpr int promptBoxChecks = 14;

// One call: a straight line with early exits. Each check can end it, and what was typed stays.
class Pipeline {
 public:
  explicit Pipeline(const EncodableMap* arguments) : arguments_(arguments) {}

  EncodableMap run() {
    if (!provesForeground()) {
      return reply();
    }
    readContext();
    if (const BestEffortProfile profile = makeBestEffortProfile(key_); !profile.displayName.empty()) {
      deliverByBestEffort(profile);
    } else if (preparesComposer() && replacesDraft()) {
      submitAndVerify();
      conclude();
    }
    return reply();
  }

 private:
  EncodableMap reply() const { return makeProviderReply(delivery_.isDelivered, message_, trace_); }

  void step(const std::string& name, const std::string& result) { appendTrace(trace_, name, result); }

  bool stop(const std::string& message) {
    message_ = message;
    return false;
  }

  bool provesForeground() {
    ::Sleep(beforeForegroundReadMs);
    delivery_.target = ::GetForegroundWindow();
    std::string verdict;
    const bool isVerified = verifyForeground(delivery_.target, arguments_, &verdict);
    step("Foreground Verification", verdict);
    return isVerified || stop("Wrong AI is in the foreground; send blocked");
  }

  void readContext() {
    delivery_.name = stringEntry(arguments_, "name");
    const std::int64_t expected = integerEntry(arguments_, "expectedWindowHandle").value_or(0);
    const auto foreground = static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(delivery_.target));
    step("Dispatch Context", "Provider=" + delivery_.name + "; foreground HWND=" + std::to_string(foreground) +
                                 "; expected HWND=" + std::to_string(expected));
    key_ = toLower(wideFromUtf8(delivery_.name));
    delivery_.flags = flagsOfProvider(key_);
  }

  void deliverByBestEffort(const BestEffortProfile& profile) {
    delivery_.isDelivered = deliverBestEffort(delivery_.target, profile, trace_);
    message_ = delivery_.isDelivered
                   ? "Experimental: composer cleared after submit; verify response on page"
                   : "Experimental: stopped or delivery unverified; inspect trace and page before retry";
  }

  bool preparesComposer() {
    settleFirstUse();
    if (delivery_.flags.isClaude) {
      cleanUpAttachments();
    }
    const std::uint64_t startTick = ::GetTickCount64();
    std::string detail;
    const bool isReady = waitForPromptBoxStable(delivery_.target, delivery_.name, promptBoxChecks, detail);
    appendTiming(trace_, "Prompt Readiness", ::GetTickCount64() - startTick);
    step("Prompt Box Readiness", detail);
    step("Focus Input", isReady ? "PASS: stable verified lower-page AI prompt box focused" : "FAIL: " + detail);
    return isReady || stop(detail);
  }

  void settleFirstUse() {
    if (!settledProviders().contains(key_)) {
      ::Sleep(firstUseSettleMs);
      step("First-Use Page Settle", "PASS: waited 1800 ms after initial provider activation");
    }
  }

  void cleanUpAttachments() {
    const int removed = removeAttachments(delivery_.target, nullptr);
    step("Claude Attachment Cleanup",
         removed > 0 ? "PASS: removed " + std::to_string(removed) + " pending attachment control(s)"
                     : "PASS: no pending attachment control was exposed");
  }

  bool replacesDraft() {
    ::Sleep(beforeSelectAllMs);
    const bool isSelected = sendSelectAllKeys();
    step("Clear Existing Draft", isSelected ? "PASS: Ctrl+A sent before paste" : "FAIL: Windows could not send Ctrl+A");
    if (!isSelected) {
      return stop("Could not select existing draft text");
    }
    ::Sleep(beforePasteMs);
    const bool isPasted = sendPasteKeys();
    step("Paste",
         isPasted ? "PASS: existing draft replaced with current prompt" : "FAIL: Windows could not send Ctrl+V");
    return isPasted || stop("Paste failed");
  }

  void submitAndVerify() {
    const std::uint64_t sendTick = ::GetTickCount64();
    submitPrompt(delivery_, trace_);
    appendTiming(trace_, "Send Action", ::GetTickCount64() - sendTick);
    if (delivery_.wasSent) {
      verifyDelivery(delivery_, trace_);
    }
  }

  void conclude() {
    const bool isDelivered = delivery_.isDelivered;
    if (isDelivered && !delivery_.flags.isClaude) {
      const bool isFocused = verifyPromptBox(delivery_.target, delivery_.name, nullptr);
      step("AI Input Focus",
           isFocused ? "PASS: cursor placed in ongoing AI chat input" : "INFO: ongoing AI input was not available yet");
    }
    if (isDelivered) {
      settledProviders().insert(key_);
    }
    step("Result", isDelivered ? "PASS: activation, foreground, paste, and submit completed"
                               : "FAIL/UNVERIFIED: submit did not pass verification; page left untouched");
    appendTiming(trace_, "Submit Total", ::GetTickCount64() - startTick_);
    message_ = isDelivered ? "Prompt pasted and submitted" : "Prompt pasted, but submit could not be verified";
  }

  std::uint64_t startTick_ = ::GetTickCount64();
  const EncodableMap* arguments_;
  TraceLog trace_;
  Delivery delivery_;
  ProviderKey key_;
  std::string message_;
};

}  // namespace

EncodableMap pasteAndSubmit(const EncodableMap* arguments) { return Pipeline(arguments).run(); }

}  // namespace orvane
