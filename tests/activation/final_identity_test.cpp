#include "activation/final_identity.h"

#include <gtest/gtest.h>

#include "activation/browser_tabs.h"
#include "activation/discovery_fixture.h"
#include "support/browser_page.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::everyCallFails;
using simulation::SimulatedDesktop;

using Results = std::vector<std::string>;

constexpr const char* homepage = "BLOCKED: selected page is provider information, not an AI session";
constexpr const char* chatGptPass = "PASS: selected tab verified before foreground";
constexpr const char* chatGptFail = "FAIL: selected tab is not verified ChatGPT";
constexpr const char* claudePass = "PASS: selected URL is a usable Claude chat/composer page";
constexpr const char* claudeFail = "FAIL: selected Claude page is not a usable chat/composer URL";
constexpr const char* restored = "PASS: original tab restored";

const std::string chatGptComposer = R"(, "page": [{"id": "composer", "type": "edit", "name": "Message ChatGPT",
                                                   "bounds": [300, 640, 1100, 700]}])";

// "Mail" was selected before; "Target" is now, and shows this address and these facts.
std::string targetShows(const std::string& address, const std::string& facts = "", const std::string& faults = "[]",
                        const std::string& window = "") {
  return browserTabs(
      "[" + tab("Mail") + "," + selectedTab("Target", R"(, "address": ")" + address + R"(")" + facts) + "]", faults,
      window);
}

struct Proof {
  bool isProven = false;
  TraceLog trace;
  std::int64_t tookMs = 0;
};

TabCandidate recordOf(const SimulatedDesktop& desktop, const wchar_t* title, std::int32_t index, bool selected) {
  TabCandidate record;
  record.hwnd = desktop.window("browser");
  record.title = title;
  record.tabIndex = index;
  record.selected = selected;
  return record;
}

// As discovery saw the window, while "Mail" was selected.
std::vector<TabCandidate> inventoryOf(const SimulatedDesktop& desktop) {
  return {recordOf(desktop, L"Mail", 0, true), recordOf(desktop, L"Target", 1, false)};
}

Proof prove(const SimulatedDesktop& desktop, const ProviderKey& key, const std::vector<TabCandidate>& inventory) {
  const UiaSession session;
  Proof proof;
  const std::int64_t startMs = desktop.nowMs();
  proof.isProven = proveFinalIdentity(session, key, recordOf(desktop, L"Target", 1, false), inventory, proof.trace);
  proof.tookMs = desktop.nowMs() - startMs;
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::SetFocus"), 0);
  return proof;
}

Proof prove(const SimulatedDesktop& desktop, const ProviderKey& key) {
  return prove(desktop, key, inventoryOf(desktop));
}

class CompanyHomepage : public testing::TestWithParam<const wchar_t*> {};
INSTANTIATE_TEST_SUITE_P(Each, CompanyHomepage,
                         testing::Values(L"chatgpt", L"claude", L"gemini", L"perplexity", L"deepseek", L"grok", L"qwen",
                                         L"doubao", L""));

TEST_P(CompanyHomepage, IsBlockedAndLeft_WhateverTheProvider) {
  const SimulatedDesktop desktop(targetShows("https://help.openai.com/en/", chatGptComposer));

  const Proof proof = prove(desktop, GetParam());

  EXPECT_FALSE(proof.isProven);
  EXPECT_EQ(resultsOf(proof.trace, "Company homepage safeguard"), Results{homepage});
  EXPECT_EQ(resultsOf(proof.trace, "Company homepage restoration"), Results{restored});
  EXPECT_EQ(stepNames(proof.trace).front(), "Company homepage safeguard");
  EXPECT_EQ(stepNames(proof.trace).back(), "Company homepage restoration");
  EXPECT_TRUE(resultsOf(proof.trace, "ChatGPT final identity").empty());
  EXPECT_TRUE(resultsOf(proof.trace, "Claude final identity").empty());
  EXPECT_EQ(desktop.selectedTab("browser"), "Mail");
  EXPECT_EQ(proof.tookMs, 100) << "the selection's own pause";
}

TEST(CompanyHomepageSafeguard, RestoresNothing_WhenTheInventoryKnowsNoOtherSelectedTab) {
  const SimulatedDesktop desktop(
      targetShows("https://www.google.com/search?q=plan", "", "[]", R"(, "title": "Search")"));
  const TabCandidate target = recordOf(desktop, L"Target", 1, true);
  TabCandidate elsewhere = recordOf(desktop, L"Mail", 0, true);
  elsewhere.hwnd = desktop.window("editor");

  const Proof proof = prove(desktop, L"gemini", {elsewhere, target, recordOf(desktop, L"Mail", 0, false)});

  EXPECT_FALSE(proof.isProven);
  EXPECT_EQ(stepNames(proof.trace), Results{"Company homepage safeguard"});
  EXPECT_EQ(desktop.selectedTab("browser"), "Target");
}

TEST(CompanyHomepageSafeguard, RestoresTheFirst_WhenTheInventoryMarksTwo) {
  const SimulatedDesktop desktop(browserTabs("[" + tab("Mail") + "," + selectedTab("Target", R"(, "address":
      "https://www.anthropic.com/")") + "," + tab("News") +
                                             "]"));

  const Proof proof = prove(desktop, L"claude",
                            {recordOf(desktop, L"Target", 1, true), recordOf(desktop, L"News", 2, true),
                             recordOf(desktop, L"Mail", 0, true)});

  EXPECT_EQ(resultsOf(proof.trace, "Company homepage restoration"), Results{restored});
  EXPECT_EQ(desktop.selectedTab("browser"), "News");
}

TEST(CompanyHomepageSafeguard, ReportsTheRestorationOnce_WhenItFails) {
  const SimulatedDesktop desktop(
      targetShows("https://gemini.google/about", "",
                  everyCallFails("IUIAutomationSelectionItemPattern::Select", R"("0x80004005")")));

  const Proof proof = prove(desktop, L"gemini");

  EXPECT_EQ(resultsOf(proof.trace, "Company homepage restoration"),
            Results{"FAIL: original tab could not be restored"});
  EXPECT_EQ(desktop.selectedTab("browser"), "Target");
  EXPECT_EQ(desktop.platformCalls("IUIAutomationSelectionItemPattern::Select"), 1);
}

struct ChatGptRow {
  const char* name;
  const char* address;
  bool hasComposer;
  bool isProven;
};

std::string chatGptName(const testing::TestParamInfo<ChatGptRow>& info) { return info.param.name; }

class ChatGptIdentity : public testing::TestWithParam<ChatGptRow> {};

TEST_P(ChatGptIdentity, HoldsByTheAddressOrWithoutOneByTheComposer) {
  const SimulatedDesktop desktop(targetShows(GetParam().address, GetParam().hasComposer ? chatGptComposer : ""));

  const Proof proof = prove(desktop, L"chatgpt");

  EXPECT_EQ(proof.isProven, GetParam().isProven);
  EXPECT_EQ(resultsOf(proof.trace, "ChatGPT final identity"), Results{GetParam().isProven ? chatGptPass : chatGptFail});
  EXPECT_EQ(resultsOf(proof.trace, "ChatGPT final restoration"), GetParam().isProven ? Results{} : Results{restored});
  EXPECT_EQ(resultsOf(proof.trace, "ChatGPT content verification").size(), GetParam().hasComposer ? 1U : 0U);
  EXPECT_EQ(desktop.selectedTab("browser"), GetParam().isProven ? "Target" : "Mail");
  EXPECT_EQ(proof.tookMs, GetParam().isProven ? 180 : 280);
}

INSTANTIATE_TEST_SUITE_P(Each, ChatGptIdentity,
                         testing::Values(ChatGptRow{"Address", "https://chatgpt.com/c/1", false, true},
                                         ChatGptRow{"AddressAndComposer", "https://chatgpt.com/c/1", true, true},
                                         ChatGptRow{"LegacyAddress", "https://chat.openai.com/c/1", false, true},
                                         ChatGptRow{"ComposerAlone", "", true, true},
                                         ChatGptRow{"Nothing", "", false, false},
                                         ChatGptRow{"OtherProvidersAddress", "https://claude.ai/new", true, false},
                                         ChatGptRow{"UnknownAddress", "https://example.org/", true, false}),
                         chatGptName);

TEST(ChatGptFinalIdentity, LooksAfterItsPause_WhenThePageComesLate) {
  const SimulatedDesktop desktop(
      targetShows("https://example.org/", "", "[]",
                  R"(, "rules": [{"on": {"time": 170}, "do": [{"address": "https://chatgpt.com/"}]}])"));

  EXPECT_TRUE(prove(desktop, L"chatgpt").isProven);
}

TEST(ChatGptFinalIdentity, RestsOnTheWorkMarkOfTheWindow_WhenTheComposerHasALooserName) {
  const std::string page = R"(, "page": [{"id": "composer", "type": "edit", "name": "Ask anything",
                                          "bounds": [300, 640, 1100, 700]}])";
  {
    const SimulatedDesktop desktop(targetShows("", page, "[]", R"(, "title": "Plan · Work")"));
    EXPECT_TRUE(prove(desktop, L"chatgpt").isProven);
  }
  const SimulatedDesktop desktop(targetShows("", page, "[]", R"(, "title": "Plan")"));
  EXPECT_FALSE(prove(desktop, L"chatgpt").isProven);
}

TEST(ChatGptFinalIdentity, Fails_WhenTheRootCannotBeHad) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(targetShows("https://chatgpt.com/", chatGptComposer,
                                               everyCallFails("IUIAutomation::ElementFromHandle", result)));

    const Proof proof = prove(desktop, L"chatgpt");

    EXPECT_FALSE(proof.isProven);
    EXPECT_EQ(resultsOf(proof.trace, "ChatGPT final identity"), Results{chatGptFail});
    EXPECT_EQ(resultsOf(proof.trace, "ChatGPT final restoration"), Results{"FAIL: original tab could not be restored"});
  }
}

struct ClaudeRow {
  const char* name;
  const char* address;
  bool isProven;
};

std::string claudeName(const testing::TestParamInfo<ClaudeRow>& info) { return info.param.name; }

class ClaudeIdentity : public testing::TestWithParam<ClaudeRow> {};

TEST_P(ClaudeIdentity, HoldsByAUsableAddressAlone) {
  const SimulatedDesktop desktop(targetShows(GetParam().address));

  const Proof proof = prove(desktop, L"claude");

  EXPECT_EQ(proof.isProven, GetParam().isProven);
  EXPECT_EQ(resultsOf(proof.trace, "Claude final identity"), Results{GetParam().isProven ? claudePass : claudeFail});
  EXPECT_EQ(resultsOf(proof.trace, "Claude final restoration"), GetParam().isProven ? Results{} : Results{restored});
  EXPECT_EQ(desktop.selectedTab("browser"), GetParam().isProven ? "Target" : "Mail");
  EXPECT_EQ(proof.tookMs, GetParam().isProven ? 0 : 100);
}

INSTANTIATE_TEST_SUITE_P(
    Each, ClaudeIdentity,
    testing::Values(ClaudeRow{"Chat", "https://claude.ai/chat/1", true}, ClaudeRow{"New", "claude.ai/new", true},
                    ClaudeRow{"Host", "https://claude.ai", true}, ClaudeRow{"HostAndSlash", "https://claude.ai/", true},
                    ClaudeRow{"HostWithoutScheme", "claude.ai", false},
                    ClaudeRow{"Settings", "https://claude.ai/settings", false},
                    ClaudeRow{"OtherProvider", "https://chatgpt.com/", false}, ClaudeRow{"NoAddress", "", false}),
    claudeName);

TEST(ClaudeFinalIdentity, RestoresNothing_WhenNoOtherTabWasSelected) {
  const SimulatedDesktop desktop(targetShows("https://claude.ai/settings"));

  const Proof proof = prove(desktop, L"claude", {recordOf(desktop, L"Target", 1, true)});

  EXPECT_FALSE(proof.isProven);
  EXPECT_EQ(stepNames(proof.trace), Results{"Claude final identity"});
  EXPECT_EQ(desktop.selectedTab("browser"), "Target");
}

class UncheckedProvider : public testing::TestWithParam<const wchar_t*> {};
INSTANTIATE_TEST_SUITE_P(Each, UncheckedProvider,
                         testing::Values(L"gemini", L"perplexity", L"deepseek", L"grok", L"qwen", L"doubao", L""));

TEST_P(UncheckedProvider, HasNoCheckOfItsOwn_WhateverTheAddress) {
  for (const char* address : {"https://example.org/", "", "https://claude.ai/settings"}) {
    const SimulatedDesktop desktop(targetShows(address));

    const Proof proof = prove(desktop, GetParam());

    EXPECT_TRUE(proof.isProven);
    EXPECT_TRUE(proof.trace.empty());
    EXPECT_EQ(proof.tookMs, 0);
    EXPECT_EQ(desktop.selectedTab("browser"), "Target");
  }
}

TEST(FinalIdentity, HoldsForAnUncheckedProvider_WhenTheAddressCannotBeRead) {
  const SimulatedDesktop desktop(targetShows("https://www.google.com/", "",
                                             everyCallFails("IUIAutomation::ElementFromHandle", R"("0x80004005")")));

  EXPECT_TRUE(prove(desktop, L"gemini").isProven);
}

TEST(FinalIdentity, Fails_WhenTheWindowIsClosedInThePause) {
  const SimulatedDesktop desktop(targetShows(
      "https://chatgpt.com/", "", "[]", R"(, "rules": [{"on": {"time": 100}, "do": [{"closeWindow": "browser"}]}])"));
  const std::vector<TabCandidate> inventory = inventoryOf(desktop);

  const Proof proof = prove(desktop, L"chatgpt", inventory);

  EXPECT_FALSE(proof.isProven);
  EXPECT_EQ(resultsOf(proof.trace, "ChatGPT final restoration"), Results{"FAIL: original tab could not be restored"});
  EXPECT_TRUE(resultsOf(proof.trace, "Activation target").empty());
}

}  // namespace
}  // namespace orvane
