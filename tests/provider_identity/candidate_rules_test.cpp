#include "provider_identity/candidate_rules.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "provider_identity/candidates.h"

namespace orvane {
namespace {

using namespace candidate_tests;

// The score of an accepted tab; nothing for one that isn't accepted.
std::optional<int> scoreOf(const Judgement& judgement) {
  EXPECT_EQ(judgement.tab.providerMatch, judgement.decision == TabDecision::accept);
  if (judgement.decision != TabDecision::accept) return std::nullopt;
  return judgement.tab.score;
}

TEST(IdentityTerms, AreDerivedOnce) {
  IdentityRequest request = requestFor(L"ChatGPT Plus");
  request.rememberedTitle = L"Recipe Ideas - Memory Saver - x";
  request.rememberedBrowser = L"Chrome";

  const IdentityTerms terms = makeIdentityTerms(request);

  EXPECT_EQ(terms.key, L"chatgpt plus");
  EXPECT_EQ(terms.rememberedTitle, L"Recipe Ideas - Memory Saver - x");
  EXPECT_EQ(terms.cleanRememberedTitle, L"recipe ideas");
  EXPECT_EQ(terms.rememberedBrowserKey, L"chrome");
  EXPECT_FALSE(terms.rememberedTitleIgnored);
}

TEST(IdentityTerms, IgnoreARememberedTitle_WhenItBelongsToAnotherProvider) {
  IdentityRequest request = requestFor(L"gemini");
  request.rememberedTitle = L"Plan - Claude";

  const IdentityTerms terms = makeIdentityTerms(request);

  EXPECT_TRUE(terms.rememberedTitleIgnored);
  EXPECT_EQ(terms.rememberedTitle, L"");
  EXPECT_EQ(terms.cleanRememberedTitle, L"");
  for (const wchar_t* title : {L"Plan - Claude", L"Plan", L"Plan - Claude - and more"}) {
    EXPECT_FALSE(judge(inactiveTab(title), request).flags.remembered);
  }
}

TEST(TabDecision, RejectsTheProvidersOwnPage_WhenNoDomainWasSent) {
  const Judgement judgement = judge(selectedTab(L"Plan", L"https://chatgpt.com/c/1"), requestFor(L"chatgpt"));
  EXPECT_TRUE(judgement.flags.otherProviderAddress);
  EXPECT_EQ(judgement.decision, TabDecision::rejectOtherProvider);
}

TEST(TabDecision, RejectsACompanyHomepage_EvenWhenTheDomainMatches) {
  const Judgement judgement =
      judge(selectedTab(L"ChatGPT", L"https://openai.com/chatgpt"), requestFor(L"chatgpt", L"openai.com"));
  EXPECT_TRUE(judgement.flags.domain);
  EXPECT_EQ(judgement.decision, TabDecision::rejectCompanyHomepage);
  EXPECT_FALSE(judgement.tab.providerMatch);
}

TEST(TabDecision, RejectsACompanyHomepage_BeforeAnUnusableClaudePage) {
  const Judgement judgement =
      judge(selectedTab(L"Claude", L"https://www.anthropic.com/claude"), requestFor(L"claude", L"anthropic.com"));
  EXPECT_TRUE(judgement.flags.nonChatClaudePage);
  EXPECT_EQ(judgement.decision, TabDecision::rejectCompanyHomepage);
}

TEST(TabDecision, RejectsAnUnusableClaudePage_BeforeAnotherProvidersAddress) {
  const Judgement judgement = judge(selectedTab(L"x", L"https://gemini.google.com/app"), requestFor(L"claude"));
  EXPECT_TRUE(judgement.flags.otherProviderAddress);
  EXPECT_EQ(judgement.decision, TabDecision::rejectNonChatClaudePage);
}

TEST(TabDecision, LeavesAPageOfClaudeAlone_WhenItsAddressIsUnknown) {
  const Judgement judgement = judge(selectedTab(L"Claude", L""), requestFor(L"claude", L"claude.ai"));
  EXPECT_FALSE(judgement.flags.nonChatClaudePage);
  EXPECT_EQ(scoreOf(judgement), 200 + 20);
}

TEST(TabDecision, RejectsAnotherProvidersTitle_ForEveryOtherKey) {
  for (const wchar_t* name : {L"chatgpt", L"gemini", L"perplexity", L"deepseek"}) {
    EXPECT_EQ(judge(inactiveTab(L"Plan - Claude"), requestFor(name)).decision, TabDecision::rejectOtherProvider);
  }
  EXPECT_EQ(scoreOf(judge(inactiveTab(L"Plan - Claude"), requestFor(L"claude"))), 200);
}

TEST(TabDecision, RejectsATitleThatNamesTwoProviders) {
  const Judgement judgement = judge(inactiveTab(L"Claude vs - ChatGPT - Claude"), requestFor(L"claude"));
  EXPECT_TRUE(judgement.flags.anchoredTitle);
  EXPECT_EQ(judgement.decision, TabDecision::rejectOtherProvider);
}

TEST(TabDecision, ReadsTheKeyOfALongerName_AsAnUnknownOne) {
  // The title's provider differs from the key, though the name holds its word.
  EXPECT_EQ(judge(inactiveTab(L"Plan - ChatGPT"), requestFor(L"ChatGPT Plus")).decision,
            TabDecision::rejectOtherProvider);
  EXPECT_EQ(judge(inactiveTab(L"Plan - ChatGPT"), requestFor(L" chatgpt")).decision, TabDecision::rejectOtherProvider);
}

TEST(TabDecision, IsNoMatch_WhenASelectedChatGptTabHasItsTitleAlone) {
  const Judgement judgement = judge(selectedTab(L"Plan - ChatGPT", L""), requestFor(L"chatgpt", chatGptDomain));
  EXPECT_TRUE(judgement.flags.anchoredTitle);
  EXPECT_TRUE(judgement.flags.rawTitle);
  EXPECT_EQ(judgement.decision, TabDecision::noMatch);
}

TEST(TabDecision, ScoresAnInactiveChatGptTitle_WithoutItsRawTitle) {
  const Judgement judgement = judge(inactiveTab(L"ChatGPT"), requestFor(L"chatgpt", chatGptDomain));
  EXPECT_EQ(scoreOf(judgement), 450);
  EXPECT_TRUE(judgement.flags.rawTitle);
  EXPECT_TRUE(judgement.tab.strictTitle);
  EXPECT_FALSE(judgement.tab.explicitMatch);
}

TEST(TabDecision, ScoresASelectedChatGptTab_ByItsDomainTitleAndComposer) {
  TabCandidate tab = selectedTab(L"ChatGPT", L"https://chatgpt.com/");
  const Judgement withDomain = judge(tab, requestFor(L"chatgpt", chatGptDomain));
  EXPECT_EQ(scoreOf(withDomain), 520);
  EXPECT_TRUE(withDomain.tab.explicitMatch);
  EXPECT_FALSE(withDomain.tab.strictTitle);

  tab.verifiedContent = true;
  EXPECT_EQ(scoreOf(judge(tab, requestFor(L"chatgpt", chatGptDomain))), 800);
}

TEST(TabDecision, AcceptsASelectedChatGptTab_ByItsComposerAlone) {
  TabCandidate tab = selectedTab(L"Anything", L"");
  tab.verifiedContent = true;
  const Judgement judgement = judge(tab, requestFor(L"chatgpt", chatGptDomain));
  EXPECT_EQ(scoreOf(judgement), 280 + 20);
  EXPECT_TRUE(judgement.tab.explicitMatch);
}

TEST(TabDecision, LeavesAProvenComposerAside_WhenTheKeyIsNotChatGpt) {
  TabCandidate tab = selectedTab(L"Anything", L"");
  tab.verifiedContent = true;
  const Judgement judgement = judge(tab, requestFor(L"gemini"));
  EXPECT_FALSE(judgement.flags.verifiedContent);
  EXPECT_EQ(judgement.decision, TabDecision::noMatch);
}

TEST(TabDecision, AcceptsTheRememberedPosition_WithoutAStrictTitle) {
  const Judgement judgement = judge(inactiveTab(L"Recipe ideas"), rememberingPosition());
  EXPECT_EQ(scoreOf(judgement), 320);
  EXPECT_FALSE(judgement.tab.strictTitle);
  EXPECT_FALSE(judgement.tab.explicitMatch);
}

TEST(TabDecision, LeavesTheRememberedPositionAside_WhenAnyPartOfItDiffers) {
  const TabCandidate tab = inactiveTab(L"Recipe ideas");
  std::vector<IdentityRequest> others(6, rememberingPosition());
  others[0].name = L"gemini";
  others[1].rememberedBrowser = L"Edge";
  others[2].rememberedBrowser = L"";
  others[3].rememberedWindow = windowOf(0xA1);
  others[4].rememberedTabIndex = 1;
  others[5].rememberedTabIndex = -1;
  for (const IdentityRequest& request : others) {
    const Judgement judgement = judge(tab, request);
    EXPECT_FALSE(judgement.flags.rememberedPosition);
    EXPECT_EQ(judgement.decision, TabDecision::noMatch);
  }
}

TEST(TabDecision, LeavesTheRememberedPositionAside_WhenNoWindowWasRemembered) {
  TabCandidate tab = inactiveTab(L"Recipe ideas");
  tab.hwnd = nullptr;
  IdentityRequest request = rememberingPosition();
  request.rememberedWindow = nullptr;
  EXPECT_FALSE(judge(tab, request).flags.rememberedPosition);
}

TEST(TabDecision, LeavesTheRememberedPositionAside_WhenNoIndexWasRemembered) {
  TabCandidate tab = inactiveTab(L"Recipe ideas");
  tab.tabIndex = -1;
  IdentityRequest request = rememberingPosition();
  request.rememberedTabIndex = -1;
  EXPECT_FALSE(judge(tab, request).flags.rememberedPosition);
}

TEST(TabDecision, RefusesAnAnchoredTitle_WhenItIsTheCompanys) {
  const Judgement judgement = judge(inactiveTab(L"OpenAI: pricing - ChatGPT"), requestFor(L"chatgpt"));
  EXPECT_TRUE(judgement.flags.anchoredTitle);
  EXPECT_EQ(judgement.decision, TabDecision::noMatch);
}

TEST(TabDecision, RefusesTheRememberedPosition_WhenTheTitleIsNoChats) {
  for (const wchar_t* title : {L"New Tab", L"", L"OpenAI", L"OpenAI | Research"}) {
    const Judgement judgement = judge(inactiveTab(title), rememberingPosition());
    EXPECT_TRUE(judgement.flags.rememberedPosition);
    EXPECT_EQ(judgement.decision, TabDecision::noMatch);
  }
}

TEST(TabDecision, AcceptsTheExactRememberedTitle_InTheRememberedBrowserAlone) {
  IdentityRequest request = requestFor(L"ChatGPT");
  request.rememberedTitle = L"Recipe ideas";
  request.rememberedBrowser = L"chrome";
  const Judgement judgement = judge(inactiveTab(L"Recipe ideas - Sleeping tab - x"), request);
  EXPECT_EQ(scoreOf(judgement), 260 + 250);
  EXPECT_TRUE(judgement.tab.strictTitle);

  request.rememberedBrowser = L"Edge";
  EXPECT_EQ(judge(inactiveTab(L"Recipe ideas"), request).decision, TabDecision::noMatch);
  request.rememberedBrowser = L"";
  EXPECT_EQ(judge(inactiveTab(L"Recipe ideas"), request).decision, TabDecision::noMatch);
}

TEST(TabDecision, IsNoMatch_WhenAChatGptTabOnlyResemblesTheRememberedTitle) {
  IdentityRequest request = requestFor(L"ChatGPT");
  request.rememberedTitle = L"Recipe ideas";
  request.rememberedBrowser = L"Chrome";
  const Judgement judgement = judge(inactiveTab(L"Recipe ideas for a week"), request);
  EXPECT_TRUE(judgement.flags.remembered);
  EXPECT_FALSE(judgement.flags.exactRememberedTitle);
  EXPECT_EQ(judgement.decision, TabDecision::noMatch);
}

TEST(TabDecision, RefusesTheExactRememberedTitle_WhenItIsNoChats) {
  for (const wchar_t* title : {L"Settings", L"OpenAI"}) {
    IdentityRequest request = requestFor(L"ChatGPT");
    request.rememberedTitle = title;
    request.rememberedBrowser = L"Chrome";
    EXPECT_EQ(judge(inactiveTab(title), request).decision, TabDecision::noMatch);
  }
}

TEST(TabDecision, AcceptsAMention_ForOtherProvidersWithTheLowestScore) {
  const Judgement inactive = judge(inactiveTab(L"Talking to Claude"), requestFor(L"claude"));
  EXPECT_EQ(scoreOf(inactive), 60);
  EXPECT_FALSE(inactive.tab.explicitMatch);
  EXPECT_EQ(scoreOf(judge(selectedTab(L"Talking to Claude", L""), requestFor(L"claude"))), 80);
}

TEST(TabDecision, AcceptsAMentionOfAPattern_UnlessTheKeyIsChatGpt) {
  IdentityRequest request = requestFor(L"qwen");
  request.patterns = {L"", L"通义"};
  EXPECT_EQ(scoreOf(judge(inactiveTab(L"通义千问"), request)), 60);
  EXPECT_EQ(judge(inactiveTab(L"Anything"), request).decision, TabDecision::noMatch);
  request.name = L"chatgpt";
  EXPECT_EQ(judge(inactiveTab(L"通义千问"), request).decision, TabDecision::noMatch);
}

TEST(TabDecision, GivesGeminisTitlePointsOnce) {
  EXPECT_EQ(scoreOf(judge(inactiveTab(L"Google Gemini"), requestFor(L"gemini"))), 200);
}

TEST(TabDecision, AcceptsARememberedTitle_ForOtherProviders) {
  IdentityRequest request = requestFor(L"perplexity");
  request.rememberedTitle = L"Recipe ideas";
  const Judgement judgement = judge(inactiveTab(L"Recipe ideas for a week"), request);
  EXPECT_EQ(scoreOf(judgement), 260);
  EXPECT_FALSE(judgement.tab.explicitMatch);
  EXPECT_FALSE(judgement.tab.strictTitle);
}

TEST(TabDecision, AddsTheRememberedAutomationId_WhenTitleBrowserAndCaseFit) {
  IdentityRequest request = requestFor(L"perplexity");
  request.rememberedTitle = L"Recipe ideas";
  request.rememberedAutomationId = L"tab-A";
  request.rememberedBrowser = L"CHROME";
  TabCandidate tab = inactiveTab(L"Recipe ideas");
  tab.automationId = L"tab-A";
  EXPECT_EQ(scoreOf(judge(tab, request)), 260 + 40);

  tab.automationId = L"tab-a";
  EXPECT_EQ(scoreOf(judge(tab, request)), 260);

  tab.automationId = L"tab-A";
  tab.title = L"Perplexity";
  EXPECT_EQ(scoreOf(judge(tab, request)), 200);

  tab.title = L"Recipe ideas";
  request.rememberedBrowser = L"";
  EXPECT_EQ(scoreOf(judge(tab, request)), 260);

  request.rememberedBrowser = L"Chrome";
  request.rememberedAutomationId = L"";
  tab.automationId = L"";
  EXPECT_EQ(scoreOf(judge(tab, request)), 260);
}

TEST(TabDecision, LooksAtNoAddress_WhenTheTabIsNotSelected) {
  TabCandidate tab = inactiveTab(L"Anything");
  tab.url = L"https://openai.com/";
  tab.verifiedContent = true;
  const TabFlags flags = evaluateTab(tab, makeIdentityTerms(requestFor(L"chatgpt", L"openai.com")));
  EXPECT_FALSE(flags.domain);
  EXPECT_FALSE(flags.companyHomepage);
  EXPECT_FALSE(flags.otherProviderAddress);
  EXPECT_FALSE(flags.verifiedContent);
  tab.url = L"https://claude.ai/settings";
  EXPECT_FALSE(evaluateTab(tab, makeIdentityTerms(requestFor(L"claude"))).nonChatClaudePage);
}

TEST(TabDecision, AcceptsAnUnknownProvider_ByItsDomainAlone) {
  const Judgement judgement =
      judge(selectedTab(L"Start", L"https://chat.qwen.ai/c/1"), requestFor(L"qwen", L"chat.qwen.ai"));
  EXPECT_EQ(scoreOf(judgement), 300 + 20);
  EXPECT_TRUE(judgement.tab.explicitMatch);
}

}  // namespace
}  // namespace orvane
