#include "composer/best_effort_delivery.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "browser_channel/elapsed_trace.h"
#include "clipboard/clipboard_text.h"
#include "composer/delivery_keys.h"
#include "composer/uia_operations.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/address_reader.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::array<std::wstring_view, 11> denyWords{L"search", L"address",      L"email", L"password",
                                                      L"phone",  L"verification", L"搜索",  L"邮箱",
                                                      L"密码",   L"手机",         L"验证码"};

constexpr int scanAttempts = 8;
constexpr DWORD pauseBetweenScansMs = 350;
constexpr LONG upperPartDivisor = 5;
constexpr LONG leastFieldWidthPixels = 180;
constexpr int pasteChecks = 10;
constexpr DWORD beforePasteCheckMs = 200;
constexpr int deliveryChecks = 12;
constexpr DWORD beforeDeliveryCheckMs = 250;

// What one scan counted; no label enters the trace.
struct InputScan {
  int edits = 0;
  int usable = 0;
  int namedCandidates = 0;
  UiaElement named;  // the last one
};

class BestEffortRoute {
 public:
  BestEffortRoute(HWND window, const BestEffortProfile& profile, TraceLog& trace)
      : window_(window), profile_(profile), trace_(trace) {}

  bool run() {
    step("Profile", "RC340 best-effort; provider=" + utf8FromWide(profile_.displayName) +
                        "; automatic resend=OFF; prompt/labels/values not logged");
    if (!isForegroundOnExactHost(window_, profile_)) {
      return stop("Identity", "FAIL: foreground or exact chat host mismatch; nothing pasted");
    }
    step("Identity", "PASS: exact chat host and foreground verified");
    session_.emplace();
    return openPage() && findComposer() && focusComposer() && requireEmptyComposer() && takePrompt() && paste() &&
           verifyPaste() && submit() && observeDelivery();
  }

 private:
  void step(const std::string& name, const std::string& result) {
    appendElapsedTrace(trace_, startTick_, name, result);
  }

  bool stop(const std::string& name, const std::string& result) {
    step(name, result);
    return false;
  }

  bool openPage() {
    if (!*session_) {
      return stop("UIA", "FAIL: automation unavailable");
    }
    session_->elementFromHandle(window_, root_);
    if (!root_) {
      return stop("UIA", "FAIL: browser root unavailable");
    }
    session_->controlTypeCondition(UIA_EditControlTypeId, edits_);
    return edits_ ? true : stop("UIA", "FAIL: edit condition unavailable");
  }

  bool findComposer() {
    for (int attempt = 1; attempt <= scanAttempts; ++attempt) {
      const InputScan scan = scanInputs();
      step("Input Scan", "attempt=" + std::to_string(attempt) + "; edits=" + std::to_string(scan.edits) + "; usable=" +
                             std::to_string(scan.usable) + "; namedCandidates=" + std::to_string(scan.namedCandidates));
      if (scan.namedCandidates == 1) {
        composer_ = scan.named;
        return true;
      }
      if (!isForegroundOnExactHost(window_, profile_)) {
        break;
      }
      ::Sleep(pauseBetweenScansMs);
    }
    return stop("Input", "FAIL: no unique named composer; check login/page readiness; nothing pasted");
  }

  InputScan scanInputs() const {
    InputScan scan;
    RECT bounds{};
    const bool hasBounds = ::GetWindowRect(window_, &bounds) != FALSE;
    UiaElementArray found;
    root_.findAll(edits_, found);
    scan.edits = found.length();
    for (int index = 0; index < scan.edits; ++index) {
      UiaElement element;
      found.elementAt(index, element);
      if (element) {
        consider(element, hasBounds ? &bounds : nullptr, scan);
      }
    }
    return scan;
  }

  // Without the window's place nothing can be told to lie in its page.
  void consider(const UiaElement& element, const RECT* window, InputScan& scan) const {
    RECT bounds{};
    if (!readUsableBounds(element, &bounds) || element.isPassword()) {
      return;
    }
    ++scan.usable;
    if (window == nullptr || bounds.top < window->top + (window->bottom - window->top) / upperPartDivisor ||
        bounds.right - bounds.left < leastFieldWidthPixels) {
      return;
    }
    const std::optional<std::wstring> name = element.name();
    if (name && isNamedComposer(profile_, toLower(*name))) {
      ++scan.namedCandidates;
      scan.named = element;
    }
  }

  bool isComposerStillFocused() const {
    if (!isForegroundOnExactHost(window_, profile_)) {
      return false;
    }
    UiaElement focused;
    session_->focusedElement(focused);
    return focused && session_->isSameElement(focused, composer_);
  }

  // nullopt: no pattern, or a value that can't be read.
  std::optional<std::wstring> readComposerValue() const {
    const ValueReading value = composer_.readValue();
    return value.text ? std::optional(normalizeLineEnds(*value.text)) : std::nullopt;
  }

  bool focusComposer() {
    if (!isForegroundOnExactHost(window_, profile_) || FAILED(composer_.setFocus()) || !isComposerStillFocused()) {
      return stop("Focus", "FAIL: exact composer focus not verified; nothing pasted");
    }
    step("Focus", "PASS: exact editable composer focused");
    return true;
  }

  // The user's draft is never replaced here.
  bool requireEmptyComposer() {
    const std::optional<std::wstring> value = readComposerValue();
    if (!value) {
      return stop("Input Value", "FAIL: ValuePattern unavailable; nothing pasted");
    }
    return value->empty() ||
           stop("Existing Draft", "BLOCKED: composer is nonempty; clear or save it manually; nothing pasted");
  }

  bool takePrompt() {
    const std::optional<std::wstring> prompt = takeClipboardText();
    if (!prompt || prompt->empty() || !isComposerStillFocused()) {
      return stop("Clipboard", "FAIL: empty clipboard or focus changed; nothing pasted");
    }
    prompt_ = *prompt;
    return true;
  }

  bool paste() {
    if (!sendPasteKeys()) {
      return stop("Paste", "FAIL: Ctrl+V not confirmed; no submit or automatic retry");
    }
    step("Paste", "KEY SENT: awaiting exact text verification");
    return true;
  }

  bool verifyPaste() {
    for (int check = 0; check < pasteChecks; ++check) {
      ::Sleep(beforePasteCheckMs);
      if (!isComposerStillFocused()) {
        break;
      }
      if (readComposerValue() == prompt_) {
        step("Paste Verification", "PASS: exact clipboard text matched; content omitted");
        return true;
      }
    }
    return stop("Paste Verification", "FAIL/UNVERIFIED: no exact text match; no submit; inspect draft manually");
  }

  bool submit() {
    if (!isComposerStillFocused() || !sendEnterKey()) {
      return stop("Submit", "FAIL/UNVERIFIED: focus changed or Enter failed; no retry");
    }
    step("Submit", "ATTEMPTED: Enter once; no automatic resend");
    return true;
  }

  bool observeDelivery() {
    for (int check = 0; check < deliveryChecks; ++check) {
      ::Sleep(beforeDeliveryCheckMs);
      if (!isForegroundOnExactHost(window_, profile_)) {
        break;
      }
      if (readUsableBounds(composer_, nullptr) && readComposerValue() == std::wstring()) {
        step("Delivery", "OBSERVED: verified composer cleared after Enter; server receipt not independently verified");
        return true;
      }
    }
    return stop("Delivery", "UNVERIFIED: composer did not expose a cleared state; check page; do not resend blindly");
  }

  std::optional<UiaSession> session_;  // in front of its elements, which must not outlive it
  std::uint64_t startTick_ = ::GetTickCount64();
  HWND window_;
  const BestEffortProfile& profile_;
  TraceLog& trace_;
  UiaElement root_;
  UiaCondition edits_;
  UiaElement composer_;
  std::wstring prompt_;
};

}  // namespace

bool deliverBestEffort(HWND window, const BestEffortProfile& profile, TraceLog& trace) {
  return BestEffortRoute(window, profile, trace).run();
}

bool isNamedComposer(const BestEffortProfile& profile, const std::wstring& lowerName) {
  return !containsAnyOf(lowerName, denyWords) && containsAnyOf(lowerName, profile.composerWords);
}

bool isForegroundOnExactHost(HWND window, const BestEffortProfile& profile) {
  return ::GetForegroundWindow() == window &&
         std::any_of(profile.chatHosts.begin(), profile.chatHosts.end(),
                     [&](const std::wstring& host) { return isExactChatHost(window, host); });
}

}  // namespace orvane
