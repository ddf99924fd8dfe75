#include "activation/warm_route.h"

#include <vector>

#include "activation/elapsed_timer.h"
#include "activation/process_image.h"
#include "activation/provider_foreground.h"
#include "activation/tab_inventory.h"
#include "activation/tab_selection.h"
#include "composer/chatgpt_composer.h"
#include "composer/window_text.h"
#include "provider_identity/address_reader.h"
#include "provider_identity/address_rules.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"
#include "provider_identity/title_rules.h"

namespace orvane {
namespace {

constexpr int verificationAttempts = 25;
constexpr DWORD pauseBetweenAttemptsMs = 20;

struct Verdict {
  bool isProven = false;
  std::wstring address;  // the last one read
};

// What one walk over the window's tabs found; where several fit, the last one counts.
struct RememberedTabs {
  const TabCandidate* current = nullptr;
  const TabCandidate* atIndex = nullptr;
  const TabCandidate* byTitle = nullptr;
  int titleMatches = 0;
};

RememberedTabs findRememberedTabs(const std::vector<TabCandidate>& tabs, const RememberedTarget& remembered) {
  RememberedTabs found;
  for (const TabCandidate& tab : tabs) {
    if (tab.selected) {
      found.current = &tab;
    }
    if (tab.tabIndex == remembered.tabIndex) {
      found.atIndex = &tab;
    }
    if (titlesMatch(tab.title, remembered.title)) {
      ++found.titleMatches;
      found.byTitle = &tab;
    }
  }
  return found;
}

class WarmRoute {
 public:
  WarmRoute(const UiaSession& session, const std::wstring& name, const RememberedTarget& remembered, TraceLog& trace,
            ActivatedTarget& result)
      : session_(session), name_(name), key_(toLower(name)), remembered_(remembered), trace_(trace), result_(result) {}

  bool run() {
    step("Activation route", "WARM TARGETED: remembered browser first");
    if (!hasCompleteMemory() || !isRememberedBrowser() || !readTabs() || !chooseTab()) {
      return false;
    }
    const bool isSelected = selectTarget();
    const Verdict verdict = isSelected ? verifyWarmProvider() : Verdict{};
    appendVerdict("Warm provider verification", verdict);
    if (verdict.isProven) {
      return bringToFront("; fallback=NO");
    }
    return recoverCurrentTab();
  }

 private:
  void step(const char* name, const std::string& result) { appendTrace(trace_, name, result); }

  bool miss(const char* reason) {
    step("Warm target", reason);
    return false;
  }

  bool hasCompleteMemory() {
    // An empty title is not incomplete: it just can't match.
    if (!session_ || remembered_.windowHandle == nullptr || remembered_.tabIndex < 0 || remembered_.browser.empty()) {
      return miss("SKIP: remembered target is incomplete");
    }
    return ::IsWindow(remembered_.windowHandle) != FALSE || miss("MISS: remembered window no longer exists");
  }

  bool isRememberedBrowser() {
    const std::wstring browser = browserDisplayName(readWindowProcess(remembered_.windowHandle).imageName);
    return toLower(browser) == toLower(remembered_.browser) || miss("MISS: remembered window browser changed");
  }

  bool readTabs() {
    return inspectWindowTabs(session_, remembered_.windowHandle, tabs_, &trace_) ||
           miss("MISS: targeted tab enumeration failed");
  }

  bool chooseTab() {
    const RememberedTabs found = findRememberedTabs(tabs_, remembered_);
    current_ = found.current;
    const char* reason = nullptr;
    if (found.atIndex != nullptr && titlesMatch(found.atIndex->title, remembered_.title)) {
      target_ = found.atIndex;
      reason = "REMEMBERED_INDEX_AND_TITLE";
    } else if (found.titleMatches == 1) {
      target_ = found.byTitle;
      reason = "UNIQUE_REMEMBERED_TITLE";
    } else if (found.atIndex != nullptr && !isNonChatTitle(found.atIndex->title)) {
      target_ = found.atIndex;
      reason = "REMEMBERED_INDEX_PENDING_PROVIDER_VERIFICATION";
    } else {
      return miss("MISS: remembered tab cannot be resolved safely");
    }
    if (!target_->selected && current_ == nullptr) {
      return miss("MISS: current tab is unknown, so warm selection was not attempted");
    }
    step("Warm target choice", std::string(reason) + "; title=\"" + traceSafeText(target_->title) + "\"");
    return true;
  }

  bool selectTarget() {
    resolvedTitle_ = target_->title;
    resolvedAutomationId_ = target_->automationId;
    if (target_->selected) {
      step("Warm tab selection", "PASS: target was already selected");
      return true;
    }
    const HRESULT result = selectResolvedTab(session_, *target_, &resolvedTitle_, &resolvedAutomationId_, &trace_);
    step("Warm tab selection", SUCCEEDED(result) ? "PASS" : "FAIL: " + formatHresult(result));
    return SUCCEEDED(result);
  }

  Verdict verifyWarmProvider() {
    Verdict verdict;
    for (int attempt = 1; attempt <= verificationAttempts; ++attempt) {
      UiaElement root;
      session_.elementFromHandle(remembered_.windowHandle, root);
      if (root && isProviderShown(root, verdict)) {
        verdict.isProven = true;
        break;
      }
      if (attempt < verificationAttempts) {
        ::Sleep(pauseBetweenAttemptsMs);
      }
    }
    return verdict;
  }

  bool isProviderShown(const UiaElement& root, Verdict& verdict) {
    verdict.address = readWindowAddress(session_, root);
    if (providerFromAddress(verdict.address) == key_ && isUsableProviderAddress(name_, verdict.address)) {
      return true;
    }
    return verdict.address.empty() && key_ == provider_key::chatGpt &&
           verifyChatGptComposer(session_, root, windowText(remembered_.windowHandle), &trace_);
  }

  void appendVerdict(const char* stepName, const Verdict& verdict) {
    step(stepName, std::string(verdict.isProven ? "PASS" : "FAIL") + "; provider=" + traceSafeText(name_) +
                       "; address=\"" + traceSafeText(verdict.address) + "\"");
  }

  void appendTotal(const std::string& outcome) {
    step("Timing warm targeted", std::to_string(timer_.elapsedMs()) + " ms" + outcome);
  }

  bool bringToFront(const std::string& outcome) {
    const bool isConfirmed = bringProviderForward(key_, remembered_.windowHandle);
    step("Warm foreground", isConfirmed ? "PASS" : "REQUESTED");
    appendTotal(outcome);
    result_ = {*target_, resolvedTitle_, resolvedAutomationId_};
    return isConfirmed || key_ != provider_key::chatGpt;
  }

  // The tab that the user was on is selected again; it may itself be the provider's.
  bool recoverCurrentTab() {
    if (current_ == nullptr || current_->tabIndex == target_->tabIndex) {
      return fallBack();
    }
    resolvedTitle_.clear();
    resolvedAutomationId_.clear();
    if (FAILED(restoreTab(session_, *current_, resolvedTitle_, resolvedAutomationId_, "Warm restoration", trace_))) {
      return fallBack();
    }
    const Verdict verdict = verifyWarmProvider();
    appendVerdict("Warm restored-provider verification", verdict);
    if (!verdict.isProven) {
      return fallBack();
    }
    target_ = current_;
    return bringToFront("; fallback=NO; recovered=RESTORED_TARGET");
  }

  bool fallBack() {
    appendTotal("; fallback=YES");
    return false;
  }

  ElapsedTimer timer_;
  const UiaSession& session_;
  const std::wstring& name_;
  ProviderKey key_;
  const RememberedTarget& remembered_;
  TraceLog& trace_;
  ActivatedTarget& result_;
  std::vector<TabCandidate> tabs_;
  const TabCandidate* current_ = nullptr;
  const TabCandidate* target_ = nullptr;
  std::wstring resolvedTitle_;
  std::wstring resolvedAutomationId_;
};

}  // namespace

bool activateWarmTarget(const UiaSession& session, const std::wstring& name, const RememberedTarget& remembered,
                        TraceLog& trace, ActivatedTarget& target) {
  return WarmRoute(session, name, remembered, trace, target).run();
}

}  // namespace orvane
