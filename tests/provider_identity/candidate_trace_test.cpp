#include "provider_identity/candidate_rules.h"

#include <gtest/gtest.h>

#include <string>

#include "provider_identity/candidates.h"

namespace orvane {
namespace {

using namespace candidate_tests;

TEST(TraceTab, WritesOneLine_ForAnAcceptedTab) {
  TabCandidate tab = selectedTab(L"Chat\nGPT", L"https://chatgpt.com/c/1");
  tab.hwnd = windowOf(0xAB0C);
  tab.automationId = L"view_1";
  const IdentityTerms terms = makeIdentityTerms(requestFor(L"ChatGPT", chatGptDomain));
  const TabFlags flags = evaluateTab(tab, terms);
  const TabDecision decision = decideTab(tab, flags, terms);

  EXPECT_EQ(describeTabDecision(12, tab, flags, decision),
            "#12 hwnd=0xab0c; selected=Y; title=\"Chat GPT\"; url=\"https://chatgpt.com/c/1\"; domain=Y; "
            "automationId=\"view_1\"; tabIndex=2; remembered=N; rememberedAutomationId=N; rememberedPosition=N; "
            "anchoredTitle=N; verifiedContent=N; rawTitle=N; decision=ACCEPT; score=320");
  EXPECT_EQ(tab.title, L"Chat\nGPT");
}

TEST(TraceTab, WritesEachFlagInItsPlace) {
  IdentityRequest request = rememberingPosition();
  request.rememberedTitle = L"ChatGPT";
  request.rememberedAutomationId = L"a";
  TabCandidate tab = inactiveTab(L"ChatGPT");
  tab.automationId = L"a";

  EXPECT_EQ(judge(tab, request).line,
            "#1 hwnd=0xa0; selected=N; title=\"ChatGPT\"; url=\"\"; domain=N; automationId=\"a\"; tabIndex=2; "
            "remembered=Y; rememberedAutomationId=Y; rememberedPosition=Y; anchoredTitle=Y; verifiedContent=N; "
            "rawTitle=Y; decision=ACCEPT; score=1070");
}

TEST(TraceTab, EndsWithTheDecision_WhenTheTabWasNotAccepted) {
  const auto endsWith = [](const Judgement& judgement, const std::string& end) {
    return judgement.line.ends_with("; rawTitle=N; decision=" + end);
  };
  EXPECT_TRUE(
      endsWith(judge(selectedTab(L"x", L"https://openai.com/"), requestFor(L"chatgpt")), "REJECT_COMPANY_HOMEPAGE"));
  EXPECT_TRUE(endsWith(judge(selectedTab(L"x", L"https://claude.ai/settings"), requestFor(L"claude", L"claude.ai")),
                       "REJECT_NON_CHAT_CLAUDE_PAGE"));
  EXPECT_TRUE(
      endsWith(judge(selectedTab(L"x", L"https://grok.com/"), requestFor(L"chatgpt")), "REJECT_OTHER_PROVIDER"));
  EXPECT_TRUE(endsWith(judge(inactiveTab(L"x"), requestFor(L"chatgpt")), "NO_MATCH"));
}

TEST(TraceTab, CutsEachTextByItself) {
  TabCandidate tab = selectedTab(std::wstring(200, L't'), L"https://example.org/" + std::wstring(200, L'u'));
  tab.automationId = std::wstring(181, L'a');
  const std::string line = judge(tab, requestFor(L"chatgpt")).line;
  EXPECT_NE(line.find("title=\"" + std::string(177, 't') + "...\""), std::string::npos);
  EXPECT_NE(line.find("url=\"https://example.org/" + std::string(157, 'u') + "...\""), std::string::npos);
  EXPECT_NE(line.find("automationId=\"" + std::string(177, 'a') + "...\""), std::string::npos);
}

}  // namespace
}  // namespace orvane
