// One walk over the windows: which tabs it lists, and what it notes of each.
#include <gtest/gtest.h>

#include "activation/browser_tabs.h"
#include "activation/discovery_fixture.h"
#include "support/browser_page.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::SimulatedDesktop;

struct Walk {
  explicit Walk(const SimulatedDesktop& desktop, std::wstring name = L"Claude")
      : discovery(std::move(name)), pass(runDiscoveryPass(discovery.request())) {
    expectOnlyRead(desktop);
    EXPECT_EQ(desktop.nowMs(), 0);
  }

  const std::vector<TabCandidate>& tabs() const { return discovery.inventory; }

  Discovery discovery;
  DiscoveryPass pass;
};

std::vector<std::int32_t> indexesOf(const std::vector<TabCandidate>& tabs) {
  std::vector<std::int32_t> indexes;
  for (const TabCandidate& each : tabs) {
    indexes.push_back(each.tabIndex);
  }
  return indexes;
}

TEST(TabCandidate, IsEmpty_WhenItIsNew) {
  const TabCandidate candidate;

  EXPECT_EQ(candidate.tabIndex, -1);
  EXPECT_EQ(candidate.score, 0);
  EXPECT_EQ(candidate.title + candidate.url + candidate.automationId + candidate.browser, L"");
  EXPECT_FALSE(candidate.selected || candidate.verifiedContent || candidate.providerMatch || candidate.explicitMatch ||
               candidate.strictTitle);
}

TEST(TabInventory, HoldsEveryTabWithItsFacts_WhenABrowserIsOpen) {
  const SimulatedDesktop desktop(browserTabs(
      "[" + tab("Mail") + "," + selectedTab("Plan - Claude", R"(, "address": "https://claude.ai/chat/1")") + "]", "[]",
      R"(, "pid": 4711)"));

  const Walk walk(desktop);

  ASSERT_EQ(walk.tabs().size(), 2U);
  const TabCandidate& mail = walk.tabs()[0];
  EXPECT_EQ(mail.hwnd, desktop.window("browser"));
  EXPECT_EQ(mail.pid, 4711U);
  EXPECT_EQ(mail.browser, L"Chrome");
  EXPECT_EQ(mail.title, L"Mail");
  EXPECT_EQ(mail.url, L"");
  EXPECT_EQ(mail.automationId, L"id-Mail");
  EXPECT_EQ(mail.tabIndex, 0);
  EXPECT_FALSE(mail.selected);
  const TabCandidate& plan = walk.tabs()[1];
  EXPECT_EQ(plan.title, L"Plan - Claude");
  EXPECT_EQ(plan.url, L"https://claude.ai/chat/1");
  EXPECT_EQ(plan.tabIndex, 1);
  EXPECT_TRUE(plan.selected);
  EXPECT_FALSE(plan.verifiedContent);
}

struct BrowserRow {
  const char* image;
  const wchar_t* browser;
};

class SupportedBrowser : public testing::TestWithParam<BrowserRow> {};
INSTANTIATE_TEST_SUITE_P(Each, SupportedBrowser,
                         testing::Values(BrowserRow{"chrome.exe", L"Chrome"}, BrowserRow{"MSEDGE.EXE", L"Edge"},
                                         BrowserRow{"brave.exe", L"Brave"}, BrowserRow{"firefox.exe", L"Firefox"},
                                         BrowserRow{"Vivaldi.exe", L"Vivaldi"}));

TEST_P(SupportedBrowser, IsInventoried_WhateverTheLettersOfItsImage) {
  const SimulatedDesktop desktop(R"({"windows": [{"id": "browser", "process": ")" + std::string(GetParam().image) +
                                 R"(", "tabs": [)" + selectedTab("Plan") + R"(]}], "foreground": "browser"})");

  const Walk walk(desktop);

  ASSERT_EQ(walk.tabs().size(), 1U);
  EXPECT_EQ(walk.tabs()[0].browser, GetParam().browser);
}

TEST(TabInventory, CountsTopLevelWindowsAndBrowsersApart_WhenOthersAreOpen) {
  const SimulatedDesktop desktop(browserTabs(
      "[" + tab("One") + "]", "[]", "",
      R"(, {"id": "second", "process": "firefox.exe", "tabs": [)" + tab("Two") + "," + tab("Three") + R"(]})"));

  const Walk walk(desktop);

  EXPECT_EQ(walk.pass.topLevelWindows, 3U);
  EXPECT_EQ(walk.pass.browserWindows, 2U);
  EXPECT_EQ(walk.pass.uiaRoots, 2U);
  EXPECT_EQ(walk.pass.tabItems, 3U);
  EXPECT_EQ(walk.pass.passNumber, 1U);
  EXPECT_EQ(walk.tabs()[0].title, L"One") << "the upper window comes first";
  EXPECT_EQ(indexesOf(walk.tabs()), (std::vector<std::int32_t>{0, 0, 1}));
}

TEST(TabInventory, LeavesAHole_WhenATabHasNoName) {
  const SimulatedDesktop desktop(browserTabs("[" + tab("One") + "," + tab("") + "," + tab("Three") + "]"));

  const Walk walk(desktop);

  EXPECT_EQ(indexesOf(walk.tabs()), (std::vector<std::int32_t>{0, 2}));
  EXPECT_EQ(walk.pass.tabItems, 3U);
}

TEST(TabInventory, LeavesAHole_WhenANameCannotBeRead) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        browserTabs("[" + tab("One") + "," + tab("Two") + "," + tab("Three") + "]",
                    R"([{"call": "IUIAutomationElement::get_CurrentName", "element": "Two", "result": )" +
                        std::string(result) + "}]"));

    EXPECT_EQ(indexesOf(Walk(desktop).tabs()), (std::vector<std::int32_t>{0, 2}));
  }
}

TEST(TabInventory, LeavesAHole_WhenGetElementFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        browserTabs("[" + tab("One") + "," + tab("Two") + "," + tab("Three") + "]",
                    R"([{"call": "IUIAutomationElementArray::GetElement", "element": "Two", "result": )" +
                        std::string(result) + "}]"));

    EXPECT_EQ(indexesOf(Walk(desktop).tabs()), (std::vector<std::int32_t>{0, 2}));
  }
}

TEST(TabInventory, TakesTheWindowsTitleForASign_WhenTheTabsReportNoSelection) {
  const SimulatedDesktop desktop(
      browserTabs("[" + selectedTab("Plan - Claude", R"(, "selection": "none", "address": "https://claude.ai/new")") +
                  "," + tab("PLAN", R"(, "selection": "none")") + "," + tab("Mail", R"(, "selection": "none")") + "]"));

  const Walk walk(desktop);

  ASSERT_EQ(walk.tabs().size(), 3U);
  EXPECT_TRUE(walk.tabs()[0].selected);
  EXPECT_TRUE(walk.tabs()[1].selected) << "its title stands in the window's too";
  EXPECT_FALSE(walk.tabs()[2].selected);
  EXPECT_EQ(walk.tabs()[0].url, L"https://claude.ai/new");
  EXPECT_EQ(walk.tabs()[1].url, L"https://claude.ai/new");
  EXPECT_EQ(walk.tabs()[2].url, L"");
}

TEST(TabInventory, BelievesThePattern_WhenTheWindowsTitleSaysNothing) {
  const SimulatedDesktop desktop(
      browserTabs("[" + tab("Mail") + "," + selectedTab("Plan") + "]", "[]", R"(, "title": "A window")"));

  const Walk walk(desktop);

  EXPECT_FALSE(walk.tabs()[0].selected);
  EXPECT_TRUE(walk.tabs()[1].selected);
}

TEST(TabInventory, ListsTheTabsWithoutAnAddress_WhenNoneCanBeRead) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan", R"(, "address": "https://claude.ai/new")") + "]",
                                             "[]", R"(, "addressBar": null)"));

  const Walk walk(desktop);

  ASSERT_EQ(walk.tabs().size(), 1U);
  EXPECT_TRUE(walk.tabs()[0].selected);
  EXPECT_EQ(walk.tabs()[0].url, L"");
}

TEST(TabInventory, ListsAWindowLikeAnyOther_WhenItIsMinimizedOrHidden) {
  for (const char* state : {R"(, "minimized": true)", R"(, "visible": false)"}) {
    const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan") + "]", "[]", state));

    EXPECT_EQ(Walk(desktop).tabs().size(), 1U) << state;
  }
}

TEST(TabInventory, SkipsAWindow_WhenItIsNotItsOwnRoot) {
  SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan") + "]"));
  const std::string otherWindow = std::to_string(reinterpret_cast<std::uintptr_t>(desktop.window("editor")));
  for (const std::string& root : {std::string("null"), otherWindow}) {
    desktop.setFaults(everyCallFails("GetAncestor", root));

    const Walk walk(desktop);

    EXPECT_EQ(walk.pass.topLevelWindows, 2U) << root;
    EXPECT_EQ(walk.pass.browserWindows, 0U) << root;
    EXPECT_TRUE(walk.tabs().empty()) << root;
  }
}

struct LostRow {
  const char* name;
  const char* call;
  int nth;  // within the first window
  std::uint32_t browserWindows;
  std::uint32_t roots;
};

std::string lostName(const testing::TestParamInfo<LostRow>& info) { return info.param.name; }

class LostWindow : public testing::TestWithParam<LostRow> {};

// A failing window never ends the walk.
TEST_P(LostWindow, LeavesTheOthersListed_WhenOneCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        browserTabs("[" + tab("Lost") + "]", nthCallFails(GetParam().call, GetParam().nth, result), "",
                    R"(, {"id": "second", "process": "msedge.exe", "tabs": [)" + tab("Kept") + "]}"));

    const Walk walk(desktop);

    ASSERT_EQ(walk.tabs().size(), 1U) << result;
    EXPECT_EQ(walk.tabs()[0].title, L"Kept");
    EXPECT_EQ(walk.pass.topLevelWindows, 3U);
    EXPECT_EQ(walk.pass.browserWindows, GetParam().browserWindows);
    EXPECT_EQ(walk.pass.uiaRoots, GetParam().roots);
    EXPECT_EQ(walk.pass.tabItems, 1U);
  }
}

// Of a window's conditions and searches the first serves the address, the second the number of tab
// controls, the third the tab items.
INSTANTIATE_TEST_SUITE_P(Each, LostWindow,
                         testing::Values(LostRow{"Root", "IUIAutomation::ElementFromHandle", 1, 2, 1},
                                         LostRow{"Condition", "IUIAutomation::CreatePropertyCondition", 3, 2, 2},
                                         LostRow{"Search", "IUIAutomationElement::FindAll", 3, 2, 2},
                                         LostRow{"Length", "IUIAutomationElementArray::get_Length", 3, 2, 2}),
                         lostName);

TEST(TabInventory, LeavesAWindowOut_WhenItsProcessCannotBeAsked) {
  for (const char* call : {"OpenProcess", "QueryFullProcessImageNameW", "GetWindowThreadProcessId"}) {
    const SimulatedDesktop desktop(browserTabs("[" + tab("Lost") + "]", everyCallFails(call, "0")));

    const Walk walk(desktop);

    EXPECT_EQ(walk.pass.browserWindows, 0U) << call;
    EXPECT_TRUE(walk.tabs().empty());
  }
}

TEST(TabInventory, IsNotDisturbed_WhenTheTabControlsCannotBeCounted) {
  for (const char* call : {"IUIAutomation::CreatePropertyCondition", "IUIAutomationElement::FindAll"}) {
    const SimulatedDesktop desktop(browserTabs("[" + tab("Kept") + "]", nthCallFails(call, 2, R"("0x80004005")")));

    EXPECT_EQ(Walk(desktop).tabs().size(), 1U) << call;
  }
}

TEST(TabInventory, IsEmpty_WhenTheWindowsCannotBeEnumerated) {
  const SimulatedDesktop desktop(browserTabs("[" + tab("Lost") + "]", everyCallFails("EnumWindows", "false")));

  EXPECT_TRUE(Walk(desktop).tabs().empty());
}

const std::string chatGptPage = R"(, "page": [{"id": "composer", "type": "edit", "name": "Message ChatGPT",
                                               "bounds": [300, 640, 1100, 700]}])";

TEST(TabInventory, ProvesTheComposerOfTheSelectedTab_WhenTheNameHoldsChatGpt) {
  const SimulatedDesktop desktop(browserTabs("[" + tab("Mail") + "," + selectedTab("Plan", chatGptPage) + "]"));

  const Walk walk(desktop, L"my CHATGPT");

  EXPECT_FALSE(walk.tabs()[0].verifiedContent);
  EXPECT_TRUE(walk.tabs()[1].verifiedContent);
  EXPECT_EQ(resultsOf(walk.discovery.trace, "ChatGPT content verification").size(), 1U);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::FindAll"), 4);
}

TEST(TabInventory, ProvesNoContent_WhenTheProviderIsAnother) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan", chatGptPage) + "]"));

  const Walk walk(desktop, L"Claude");

  EXPECT_FALSE(walk.tabs()[0].verifiedContent);
  EXPECT_TRUE(resultsOf(walk.discovery.trace, "ChatGPT content verification").empty());
  EXPECT_EQ(desktop.platformCalls("IUIAutomation::CreateOrCondition"), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::FindAll"), 3);
}

TEST(BrowserWindowWalk, WritesNoStep_WhenThereIsNoTrace) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan", chatGptPage) + "]"));
  const UiaSession session;
  std::vector<TabCandidate> inventory;
  DiscoveryPass pass;
  pass.session = &session;
  pass.name = L"ChatGPT";
  pass.inventory = &inventory;

  EXPECT_EQ(enumBrowserWindow(desktop.window("browser"), reinterpret_cast<LPARAM>(&pass)), TRUE);

  ASSERT_EQ(inventory.size(), 1U);
  EXPECT_TRUE(inventory[0].verifiedContent);
}

TEST(BrowserWindowWalk, GoesOnWithoutCounting_WhenAutomationOrInventoryIsMissing) {
  SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan") + "]"));
  const UiaSession session;
  DiscoveryPass pass;
  std::vector<TabCandidate> inventory;
  pass.inventory = &inventory;
  EXPECT_EQ(enumBrowserWindow(desktop.window("browser"), reinterpret_cast<LPARAM>(&pass)), TRUE);
  pass.session = &session;
  pass.inventory = nullptr;
  EXPECT_EQ(enumBrowserWindow(desktop.window("browser"), reinterpret_cast<LPARAM>(&pass)), TRUE);

  EXPECT_EQ(pass.topLevelWindows, 0U);
  EXPECT_TRUE(inventory.empty());
}

TEST(BrowserWindowWalk, CountsAWindowAsTopLevelAlone_WhenItHasGone) {
  SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan") + "]"));
  desktop.perform("editor", R"([{"closeWindow": "browser"}])");
  const UiaSession session;
  std::vector<TabCandidate> inventory;
  DiscoveryPass pass;
  pass.session = &session;
  pass.inventory = &inventory;

  EXPECT_EQ(enumBrowserWindow(desktop.window("browser"), reinterpret_cast<LPARAM>(&pass)), TRUE);

  EXPECT_EQ(pass.topLevelWindows, 1U);
  EXPECT_EQ(pass.browserWindows, 0U);
}

}  // namespace
}  // namespace orvane
