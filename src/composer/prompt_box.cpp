#include "composer/prompt_box.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "composer/uia_operations.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/address_reader.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::array<std::wstring_view, 4> browserFieldWords{L"search", L"address", L"url", L"omnibox"};
constexpr std::array<std::wstring_view, 7> promptWords{L"prompt", L"message", L"chat",   L"ask",
                                                       L"claude", L"gemini",  L"chatgpt"};
constexpr std::array<std::wstring_view, 3> perplexityComposerNames{L"ask anything", L"ask a follow-up",
                                                                   L"ask follow-up"};
constexpr std::array<std::wstring_view, 4> perplexitySignInWords{L"continue with google", L"continue with apple",
                                                                 L"continue with email", L"login or sign up"};

constexpr int lowerPagePercent = 55;
constexpr int perplexityLowerPagePercent = 20;

constexpr std::int64_t editScore = 3'000'000'000;
constexpr std::int64_t promptWordScore = 2'000'000'000;
constexpr std::int64_t wideScore = 500'000'000;
constexpr LONG wideAbovePixels = 300;

std::int64_t scoreCandidate(const RECT& bounds, CONTROLTYPEID type, const std::wstring& lowerName) {
  const std::int64_t width = std::int64_t{bounds.right} - bounds.left;
  const std::int64_t height = std::int64_t{bounds.bottom} - bounds.top;
  std::int64_t score = width * height;
  score += type == UIA_EditControlTypeId ? editScore : 0;
  score += containsAnyOf(lowerName, promptWords) ? promptWordScore : 0;
  score += width > wideAbovePixels ? wideScore : 0;
  return score;
}

bool liesInside(const RECT& inner, const RECT& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom && hasPositiveSize(inner);
}

struct Candidate {
  UiaElement element;
  std::int64_t score = -1;
  CONTROLTYPEID type = 0;
  bool isFocusable = false;
};

struct ScanCounters {
  int scanned = 0;
  int named = 0;
  int visible = 0;
  int nonFocusableNamed = 0;
  int wrongType = 0;
};

// One verification: the steps share the window, the session and what the scan counted.
class PromptBoxCheck {
 public:
  PromptBoxCheck(HWND window, const std::string& providerName)
      : window_(window),
        providerName_(providerName),
        lowerProvider_(toLower(wideFromUtf8(providerName))),
        isPerplexity_(lowerProvider_ == provider_key::perplexity) {}

  bool run() { return open() && identify() && search() && focusBest() && examineFocus(); }

  const std::string& message() const { return message_; }

 private:
  bool fail(std::string_view message) {
    message_ = message;
    return false;
  }

  bool open() {
    if (!session_) {
      return fail("UI Automation unavailable");
    }
    session_.elementFromHandle(window_, root_);
    return root_ ? true : fail("Could not inspect foreground window");
  }

  bool identify() {
    if (!isPerplexity_) {
      return true;
    }
    if (!isExactChatHost(window_, provider_host::perplexity)) {
      return fail("Perplexity URL not verified; nothing pasted");
    }
    return !isSignInPanelVisible() ||
           fail("Perplexity sign-in panel visible; nothing pasted. Make page ready manually, then retry.");
  }

  bool isSignInPanelVisible() const {
    UiaCondition everything;
    UiaElementArray elements;
    session_.trueCondition(everything);
    if (!everything || FAILED(root_.findAll(everything, elements)) || !elements) {
      return false;
    }
    const int length = elements.length();
    for (int index = 0; index < length; ++index) {
      UiaElement element;
      elements.elementAt(index, element);
      if (element && !element.isOffscreen() && containsAnyOf(toLower(elementName(element)), perplexitySignInWords)) {
        return true;
      }
    }
    return false;
  }

  bool search() {
    readLowerPageLine();
    UiaCondition condition;
    if (!makeSearchCondition(condition)) {
      return fail("Could not create prompt-search condition");
    }
    UiaElementArray elements;
    if (FAILED(root_.findAll(condition, elements)) || !elements) {
      return fail("No editable controls exposed by browser");
    }
    counters_.scanned = elements.length();
    for (int index = 0; index < counters_.scanned; ++index) {
      UiaElement element;
      elements.elementAt(index, element);
      if (element) {
        consider(element);
      }
    }
    root_ = UiaElement();  // the rest is about what was found in it
    return best_.element ? true : fail(noCandidateMessage());
  }

  void readLowerPageLine() {
    RECT bounds{};
    if (::GetWindowRect(window_, &bounds) == FALSE) {
      return;  // without the window's place nothing counts as its lower page
    }
    const std::int64_t percent = isPerplexity_ ? perplexityLowerPagePercent : lowerPagePercent;
    // The product has 32 bits; beyond them it wraps.
    const auto share = static_cast<std::int32_t>(percent * (bounds.bottom - bounds.top));
    lowerPageLine_ = bounds.top + share / 100;
  }

  bool makeSearchCondition(UiaCondition& condition) const {
    UiaCondition edits;
    UiaCondition documents;
    session_.controlTypeCondition(UIA_EditControlTypeId, edits);
    session_.controlTypeCondition(UIA_DocumentControlTypeId, documents);
    if (edits && documents) {
      session_.orCondition(edits, documents, condition);
    } else {
      condition = edits ? edits : documents;
    }
    if (!condition) {
      return false;
    }
    if (isPerplexity_) {
      UiaCondition everything;
      session_.trueCondition(everything);
      condition = everything ? everything : condition;
    }
    return true;
  }

  void consider(const UiaElement& element) {
    const CONTROLTYPEID type = element.controlType();
    const std::wstring name = toLower(elementName(element));
    if (containsAnyOf(name, browserFieldWords)) {
      return;
    }
    if (isPerplexity_) {
      if (!containsAnyOf(name, perplexityComposerNames)) {
        return;
      }
      ++counters_.named;
    }
    if (!element.isEnabled() || element.isOffscreen()) {
      return;
    }
    const std::optional<RECT> bounds = element.bounds();
    if (!bounds || !hasPositiveSize(*bounds)) {
      return;
    }
    ++counters_.visible;
    const bool isFocusable = element.isKeyboardFocusable();
    if (!acceptType(type) || !acceptFocusable(isFocusable) || bounds->top < lowerPageLine_) {
      return;
    }
    const std::int64_t score = scoreCandidate(*bounds, type, name);
    if (score > best_.score) {
      best_ = {element, score, type, isFocusable};
    }
  }

  bool acceptType(CONTROLTYPEID type) {
    if (type == UIA_EditControlTypeId || (isPerplexity_ && type == UIA_DocumentControlTypeId)) {
      return true;
    }
    counters_.wrongType += isPerplexity_ ? 1 : 0;
    return false;
  }

  bool acceptFocusable(bool isFocusable) {
    counters_.nonFocusableNamed += isPerplexity_ && !isFocusable ? 1 : 0;
    return isFocusable || isPerplexity_;
  }

  std::string noCandidateMessage() const {
    if (!isPerplexity_) {
      return "No visible keyboard-focusable prompt box found";
    }
    return "No verified Perplexity composer; scannedControls=" + std::to_string(counters_.scanned) +
           "; named=" + std::to_string(counters_.named) + "; visible=" + std::to_string(counters_.visible) +
           "; nonFocusableNamed=" + std::to_string(counters_.nonFocusableNamed) +
           "; wrongType=" + std::to_string(counters_.wrongType);
  }

  bool focusBest() { return SUCCEEDED(best_.element.setFocus()) || fail("Prompt box found, but SetFocus failed"); }

  // What was asked for doesn't count here: only what has the focus now.
  bool examineFocus() {
    UiaElement focused;
    session_.focusedElement(focused);
    if (!focused) {
      return fail("Prompt focus could not be verified");
    }
    if (containsAnyOf(toLower(elementName(focused)), browserFieldWords)) {
      return fail("Browser search/address field detected; message was not sent");
    }
    if (isPerplexity_ && !identifyPerplexityFocus(focused)) {
      return fail(
          "Perplexity composer focus not verified; focused control is not the named composer or its contained "
          "proxy; nothing pasted");
    }
    if (standsInLowerPage(focused)) {
      message_ = successMessage();
      return true;
    }
    if (lowerProvider_.find(provider_key::chatGpt) != std::wstring::npos) {
      message_ = "Verified lower-page ChatGPT composer focused through UIA proxy";
      return true;
    }
    return fail("Focused control is not a verified lower-page AI prompt box");
  }

  bool identifyPerplexityFocus(const UiaElement& focused) {
    if (session_.isSameElement(best_.element, focused)) {
      focusMode_ = "exact element";
      return true;
    }
    const std::optional<RECT> candidate = best_.element.bounds();
    const std::optional<RECT> proxy = focused.bounds();
    focusMode_ = "contained proxy";
    return candidate && proxy && liesInside(*proxy, *candidate);
  }

  bool standsInLowerPage(const UiaElement& focused) const {
    RECT bounds{};
    if (!isPerplexity_) {
      return readUsableBounds(focused, &bounds) && bounds.top >= lowerPageLine_;
    }
    const std::optional<RECT> read = focused.bounds();
    return read && hasPositiveSize(*read) && read->top >= lowerPageLine_;
  }

  std::string successMessage() const {
    if (!isPerplexity_) {
      return "Verified lower-page AI prompt box focused for " + providerName_;
    }
    return "Verified Perplexity composer; role=" + std::to_string(best_.type) +
           "; namedCandidates=" + std::to_string(counters_.named) +
           "; browserFocusable=" + (best_.isFocusable ? "true" : "false") + "; focus=" + focusMode_;
  }

  HWND window_;
  const std::string& providerName_;
  std::wstring lowerProvider_;
  bool isPerplexity_;
  std::string message_;
  UiaSession session_;
  UiaElement root_;
  LONG lowerPageLine_ = std::numeric_limits<LONG>::max();
  ScanCounters counters_;
  Candidate best_;
  std::string focusMode_;
};

}  // namespace

bool verifyPromptBox(HWND window, const std::string& providerName, std::string* message) {
  std::string unused;
  std::string& text = message == nullptr ? unused : *message;
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    text = "No foreground browser window";
    return false;
  }
  PromptBoxCheck check(window, providerName);
  const bool isVerified = check.run();
  text = check.message();
  return isVerified;
}

}  // namespace orvane
