#include "provider_identity/candidate_rules.h"

#include <algorithm>
#include <array>
#include <utility>

#include "provider_identity/address_rules.h"
#include "provider_identity/text_rules.h"
#include "provider_identity/title_rules.h"

namespace orvane {
namespace {

constexpr std::int32_t domainPoints = 300;
constexpr std::int32_t anchoredTitlePoints = 200;
constexpr std::int32_t rememberedPoints = 260;
constexpr std::int32_t verifiedContentPoints = 280;
constexpr std::int32_t strictChatGptTitlePoints = 250;
constexpr std::int32_t rememberedPositionPoints = 320;
constexpr std::int32_t rememberedAutomationIdPoints = 40;
constexpr std::int32_t rawTitlePoints = 60;
constexpr std::int32_t selectedPoints = 20;

bool isRememberedBrowser(const TabCandidate& tab, const IdentityTerms& terms) {
  return !terms.rememberedBrowserKey.empty() && terms.rememberedBrowserKey == toLower(tab.browser);
}

bool isAtRememberedPosition(const TabCandidate& tab, const IdentityTerms& terms) {
  return terms.key == provider_key::chatGpt && terms.rememberedWindow != nullptr && terms.rememberedTabIndex >= 0 &&
         tab.hwnd == terms.rememberedWindow && tab.tabIndex == terms.rememberedTabIndex &&
         isRememberedBrowser(tab, terms);
}

bool titleHoldsAnyWord(const std::wstring& title, const IdentityTerms& terms) {
  return textContains(title, terms.name) ||
         std::any_of(terms.patterns.begin(), terms.patterns.end(),
                     [&](const std::wstring& pattern) { return textContains(title, pattern); });
}

bool namesOtherProvider(const std::wstring& title, const IdentityTerms& terms) {
  const ProviderKey named = providerFromTitle(title);
  return (!named.empty() && named != terms.key) || titleBelongsToOtherProvider(title, terms.name);
}

// A selected ChatGPT tab has an address and a composer to show, so its title proves nothing.
bool acceptChatGpt(TabCandidate& tab, const TabFlags& flags, const IdentityTerms& terms) {
  const bool isCompanyTitle = isOpenAiCompanyTitle(tab.title);
  const bool isChatTitle = !isNonChatTitle(tab.title) && !isCompanyTitle;
  const bool exactInactive =
      !tab.selected && flags.exactRememberedTitle && isRememberedBrowser(tab, terms) && isChatTitle;
  const bool anchoredInactive = !tab.selected && flags.anchoredTitle && !isCompanyTitle;
  const bool positionInactive = !tab.selected && flags.rememberedPosition && isChatTitle;
  tab.explicitMatch = flags.domain || flags.verifiedContent;
  tab.strictTitle = exactInactive || anchoredInactive;
  return tab.explicitMatch || tab.strictTitle || positionInactive;
}

bool acceptOther(TabCandidate& tab, const TabFlags& flags) {
  tab.explicitMatch = flags.domain || flags.anchoredTitle;
  tab.strictTitle = false;
  return tab.explicitMatch || flags.remembered || flags.rawTitle;
}

std::int32_t scoreTab(const TabCandidate& tab, const TabFlags& flags, const IdentityTerms& terms) {
  const std::array<std::pair<bool, std::int32_t>, 9> rules{{
      {flags.domain, domainPoints},
      {flags.anchoredTitle, anchoredTitlePoints},
      {flags.remembered, rememberedPoints},
      {flags.verifiedContent, verifiedContentPoints},
      {terms.key == provider_key::chatGpt && tab.strictTitle, strictChatGptTitlePoints},
      {flags.rememberedPosition, rememberedPositionPoints},
      {flags.rememberedAutomationId, rememberedAutomationIdPoints},
      {flags.rawTitle && !flags.anchoredTitle, rawTitlePoints},
      {tab.selected, selectedPoints},
  }};
  std::int32_t score = 0;
  for (const auto& [holds, points] : rules) {
    score += holds ? points : 0;
  }
  return score;
}

std::string decisionText(TabDecision decision, std::int32_t score) {
  switch (decision) {
    case TabDecision::rejectCompanyHomepage:
      return "; decision=REJECT_COMPANY_HOMEPAGE";
    case TabDecision::rejectNonChatClaudePage:
      return "; decision=REJECT_NON_CHAT_CLAUDE_PAGE";
    case TabDecision::rejectOtherProvider:
      return "; decision=REJECT_OTHER_PROVIDER";
    case TabDecision::noMatch:
      return "; decision=NO_MATCH";
    case TabDecision::accept:
      break;
  }
  return "; decision=ACCEPT; score=" + std::to_string(score);
}

}  // namespace

IdentityTerms makeIdentityTerms(IdentityRequest request) {
  IdentityTerms terms;
  terms.key = toLower(request.name);
  terms.rememberedTitleIgnored = titleBelongsToOtherProvider(request.rememberedTitle, request.name);
  if (!terms.rememberedTitleIgnored) {
    terms.rememberedTitle = std::move(request.rememberedTitle);
  }
  terms.cleanRememberedTitle = cleanTitle(terms.rememberedTitle);
  terms.rememberedBrowserKey = toLower(request.rememberedBrowser);
  terms.name = std::move(request.name);
  terms.domain = std::move(request.domain);
  terms.patterns = std::move(request.patterns);
  terms.rememberedAutomationId = std::move(request.rememberedAutomationId);
  terms.rememberedWindow = request.rememberedWindow;
  terms.rememberedTabIndex = request.rememberedTabIndex;
  return terms;
}

TabFlags evaluateTab(const TabCandidate& tab, const IdentityTerms& terms) {
  TabFlags flags;
  flags.domain = tab.selected && !tab.url.empty() && textContains(tab.url, terms.domain);
  flags.remembered = !terms.cleanRememberedTitle.empty() && titlesMatch(tab.title, terms.rememberedTitle);
  flags.exactRememberedTitle =
      !terms.cleanRememberedTitle.empty() && cleanTitle(tab.title) == terms.cleanRememberedTitle;
  flags.rememberedAutomationId = flags.remembered && !terms.rememberedAutomationId.empty() &&
                                 isRememberedBrowser(tab, terms) && tab.automationId == terms.rememberedAutomationId;
  flags.rememberedPosition = isAtRememberedPosition(tab, terms);
  flags.anchoredTitle = isAnchoredTitle(tab.title, terms.key);
  flags.verifiedContent = terms.key == provider_key::chatGpt && tab.selected && tab.verifiedContent;
  flags.rawTitle = titleHoldsAnyWord(tab.title, terms);
  flags.companyHomepage = tab.selected && isCompanyHomepageAddress(tab.url);
  flags.otherProviderAddress = tab.selected && !providerFromAddress(tab.url).empty() && !flags.domain;
  flags.nonChatClaudePage =
      terms.key == provider_key::claude && tab.selected && !tab.url.empty() && !isUsableClaudeAddress(tab.url);
  flags.otherProviderTitle = namesOtherProvider(tab.title, terms);
  return flags;
}

TabDecision decideTab(TabCandidate& tab, const TabFlags& flags, const IdentityTerms& terms) {
  if (flags.companyHomepage) {
    return TabDecision::rejectCompanyHomepage;
  }
  if (flags.nonChatClaudePage) {
    return TabDecision::rejectNonChatClaudePage;
  }
  if (flags.otherProviderAddress || flags.otherProviderTitle) {
    return TabDecision::rejectOtherProvider;
  }
  tab.providerMatch = terms.key == provider_key::chatGpt ? acceptChatGpt(tab, flags, terms) : acceptOther(tab, flags);
  if (!tab.providerMatch) {
    return TabDecision::noMatch;
  }
  tab.score = scoreTab(tab, flags, terms);
  return TabDecision::accept;
}

std::string describeTabDecision(std::size_t ordinal, const TabCandidate& tab, const TabFlags& flags,
                                TabDecision decision) {
  return "#" + std::to_string(ordinal) + " hwnd=" + formatHandle(reinterpret_cast<std::uintptr_t>(tab.hwnd)) +
         "; selected=" + yesNo(tab.selected) + "; title=\"" + traceSafeText(tab.title) + "\"; url=\"" +
         traceSafeText(tab.url) + "\"; domain=" + yesNo(flags.domain) + "; automationId=\"" +
         traceSafeText(tab.automationId) + "\"; tabIndex=" + std::to_string(tab.tabIndex) +
         "; remembered=" + yesNo(flags.remembered) + "; rememberedAutomationId=" + yesNo(flags.rememberedAutomationId) +
         "; rememberedPosition=" + yesNo(flags.rememberedPosition) + "; anchoredTitle=" + yesNo(flags.anchoredTitle) +
         "; verifiedContent=" + yesNo(flags.verifiedContent) + "; rawTitle=" + yesNo(flags.rawTitle) +
         decisionText(decision, tab.score);
}

}  // namespace orvane
