#include "activation/final_identity.h"

#include <algorithm>
#include <string>

#include "activation/tab_selection.h"
#include "composer/chatgpt_composer.h"
#include "composer/window_text.h"
#include "provider_identity/address_reader.h"
#include "provider_identity/address_rules.h"

namespace orvane {
namespace {

constexpr DWORD beforeChatGptIdentityMs = 180;

void restorePreviousTab(const UiaSession& session, const TabCandidate& target,
                        const std::vector<TabCandidate>& inventory, const char* stepName, TraceLog& trace) {
  const auto previous = std::find_if(inventory.begin(), inventory.end(), [&](const TabCandidate& tab) {
    return tab.hwnd == target.hwnd && tab.selected && tab.tabIndex != target.tabIndex;
  });
  if (previous == inventory.end()) {
    return;
  }
  std::wstring resolvedTitle;
  std::wstring resolvedAutomationId;
  restoreTab(session, *previous, resolvedTitle, resolvedAutomationId, stepName, trace);
}

bool isCompanyHomepage(const UiaSession& session, const TabCandidate& target) {
  return isCompanyHomepageAddress(readWindowAddress(session, target.hwnd));
}

bool isChatGptShown(const UiaSession& session, const TabCandidate& target, TraceLog& trace) {
  UiaElement root;
  session.elementFromHandle(target.hwnd, root);
  const std::wstring address = readWindowAddress(session, root);
  const bool isComposerProven = verifyChatGptComposer(session, root, windowText(target.hwnd), &trace);
  return providerFromAddress(address) == provider_key::chatGpt || (address.empty() && isComposerProven);
}

}  // namespace

bool proveFinalIdentity(const UiaSession& session, const ProviderKey& key, const TabCandidate& target,
                        const std::vector<TabCandidate>& inventory, TraceLog& trace) {
  if (isCompanyHomepage(session, target)) {
    appendTrace(trace, "Company homepage safeguard",
                "BLOCKED: selected page is provider information, not an AI session");
    restorePreviousTab(session, target, inventory, "Company homepage restoration", trace);
    return false;
  }
  if (key == provider_key::chatGpt) {
    ::Sleep(beforeChatGptIdentityMs);
    const bool isShown = isChatGptShown(session, target, trace);
    appendTrace(
        trace, "ChatGPT final identity",
        isShown ? "PASS: selected tab verified before foreground" : "FAIL: selected tab is not verified ChatGPT");
    if (!isShown) {
      restorePreviousTab(session, target, inventory, "ChatGPT final restoration", trace);
    }
    return isShown;
  }
  if (key == provider_key::claude) {
    const bool isUsable = isUsableClaudeAddress(readWindowAddress(session, target.hwnd));
    appendTrace(trace, "Claude final identity",
                isUsable ? "PASS: selected URL is a usable Claude chat/composer page"
                         : "FAIL: selected Claude page is not a usable chat/composer URL");
    if (!isUsable) {
      restorePreviousTab(session, target, inventory, "Claude final restoration", trace);
    }
    return isUsable;
  }
  return true;
}

}  // namespace orvane
