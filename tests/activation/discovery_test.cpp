// The passes of a search and the counters it leaves, and the quick reading of one known window.
#include <gtest/gtest.h>

#include <sstream>

#include "activation/browser_tabs.h"
#include "activation/discovery_fixture.h"
#include "support/browser_page.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::everyCallFails;
using simulation::SimulatedDesktop;

using Results = std::vector<std::string>;

// The value of each counter step, in their order.
Results countersOf(const Discovery& discovery) {
  Results values;
  for (const char* step : {"Top-level windows", "Browser HWNDs", "UIA roots", "Tab items", "Silent retries",
                           "Visible probes", "Provider candidates"}) {
    const Results results = resultsOf(discovery.trace, step);
    values.push_back(results.size() == 1 ? results.front() : std::to_string(results.size()) + " steps");
  }
  return values;
}

TEST(Discovery, TakesOnePass_WhenItFindsACandidate) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "," + tab("Plan - Claude") + "]"));
  Discovery discovery(L"Claude", L"claude.ai");

  const DiscoveryPass pass = runDiscovery(discovery.request());

  EXPECT_EQ(pass.passNumber, 1U);
  EXPECT_EQ(desktop.nowMs(), 0);
  ASSERT_EQ(discovery.candidates.size(), 1U);
  EXPECT_EQ(discovery.candidates[0].title, L"Plan - Claude");
  EXPECT_EQ(discovery.candidates[0].score, 200);
  EXPECT_EQ(countersOf(discovery), (Results{"2", "1", "1", "2", "0", "0", "1"}));
  expectOnlyRead(desktop);
}

TEST(Discovery, EndsItsTraceWithTheCountersInOrder_WhenItIsDone) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "]"));
  Discovery discovery(L"Claude");

  runDiscovery(discovery.request());

  const Results names = stepNames(discovery.trace);
  ASSERT_GE(names.size(), 7U);
  EXPECT_EQ(Results(names.end() - 7, names.end()),
            (Results{"Top-level windows", "Browser HWNDs", "UIA roots", "Tab items", "Silent retries", "Visible probes",
                     "Provider candidates"}));
}

TEST(Discovery, TakesThreePassesWithTheirPauses_WhenItFindsNothing) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "]"));
  Discovery discovery(L"Claude");

  const DiscoveryPass pass = runDiscovery(discovery.request());

  EXPECT_EQ(pass.passNumber, 3U);
  EXPECT_EQ(discovery.passNumber, 3U);
  EXPECT_EQ(desktop.nowMs(), 450);
  EXPECT_EQ(discovery.inventory.size(), 1U) << "of the last pass alone";
  EXPECT_EQ(countersOf(discovery), (Results{"2", "1", "1", "1", "2", "0", "0"}));
  for (const char* step : {"Timing discovery pass 1", "Timing discovery pass 2", "Timing discovery pass 3"}) {
    EXPECT_EQ(resultsOf(discovery.trace, step), Results{"0 ms"}) << step;
  }
  expectOnlyRead(desktop);
}

TEST(Discovery, TellsHowLongEachPassTook_WhenABrowserIsSlow) {
  SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "]"));
  Discovery discovery(L"Claude");
  DWORD slownessMs = 7;
  desktop.world().books().watch([&slownessMs](std::string_view call, const auto*, const auto*) {
    if (call == "IUIAutomationElement::get_CurrentFrameworkId") {
      ::Sleep(slownessMs);
      slownessMs += 4;
    }
  });

  runDiscovery(discovery.request());

  desktop.world().books().watch({});
  EXPECT_EQ(resultsOf(discovery.trace, "Timing discovery pass 1"), Results{"7 ms"});
  EXPECT_EQ(resultsOf(discovery.trace, "Timing discovery pass 2"), Results{"11 ms"});
  EXPECT_EQ(resultsOf(discovery.trace, "Timing discovery pass 3"), Results{"15 ms"});
}

TEST(Discovery, DescribesTheLastPass_WhenAWindowComesMeanwhile) {
  const SimulatedDesktop desktop(
      browserTabs("[" + selectedTab("Mail") + "]", "[]",
                  R"(, "rules": [{"on": {"time": 100}, "do": [{"openTab": {"title": "Plan - Claude"}}]}])"));
  Discovery discovery(L"Claude");

  const DiscoveryPass pass = runDiscovery(discovery.request());

  EXPECT_EQ(pass.passNumber, 2U);
  EXPECT_EQ(pass.browserWindows, 1U) << "each pass counts afresh";
  EXPECT_EQ(desktop.nowMs(), 150);
  EXPECT_EQ(countersOf(discovery), (Results{"2", "1", "1", "2", "1", "0", "1"}));
}

TEST(Discovery, DescribesTheLastPass_WhenTheBrowserIsClosedMeanwhile) {
  const SimulatedDesktop desktop(
      browserTabs("[" + selectedTab("Mail") + "," + tab("News") + "]", "[]",
                  R"(, "rules": [{"on": {"time": 300}, "do": [{"closeWindow": "browser"}]}])"));
  Discovery discovery(L"Claude");

  runDiscovery(discovery.request());

  EXPECT_EQ(countersOf(discovery), (Results{"1", "0", "0", "0", "2", "0", "0"}));
  EXPECT_TRUE(discovery.inventory.empty());
}

TEST(Discovery, ReadsOnlyTheTextsOfThePatterns_WhenTheListHoldsMore) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "," + tab("Our workshop") + "]"));
  Discovery discovery(L"Claude");
  discovery.arguments = {{"patterns", EncodableList{"", std::int32_t{4}, "WORKSHOP", EncodableValue()}}};

  const DiscoveryPass pass = runDiscoveryPass(discovery.request());

  EXPECT_EQ(pass.patterns, std::vector<std::wstring>{L"WORKSHOP"});
  ASSERT_EQ(discovery.candidates.size(), 1U);
  EXPECT_EQ(discovery.candidates[0].title, L"Our workshop");
  EXPECT_EQ(discovery.candidates[0].score, 60);
}

TEST(Discovery, HasNoPatterns_WhenTheyAreNoList) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "]"));
  for (const EncodableValue& patterns : {EncodableValue("Mail"), EncodableValue(EncodableMap{}), EncodableValue()}) {
    Discovery discovery(L"Claude");
    discovery.arguments = {{"patterns", patterns}};

    EXPECT_TRUE(runDiscoveryPass(discovery.request()).patterns.empty());
    EXPECT_TRUE(discovery.candidates.empty());
  }
}

TEST(Discovery, ForgetsThePassBefore_WhenItRunsAgain) {
  SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan - Claude") + "]"));
  Discovery discovery(L"Claude");
  runDiscoveryPass(discovery.request());
  ASSERT_EQ(discovery.candidates.size(), 1U);
  desktop.perform("browser", R"([{"closeTab": "Plan - Claude"}])");

  runDiscoveryPass(discovery.request());

  EXPECT_TRUE(discovery.inventory.empty());
  EXPECT_TRUE(discovery.candidates.empty());
  EXPECT_EQ(discovery.passNumber, 2U);
}

struct Inspection {
  bool isDone = false;
  std::vector<TabCandidate> tabs{TabCandidate{}};
  TraceLog trace;
};

Inspection inspect(const SimulatedDesktop& desktop, const char* window = "browser") {
  const UiaSession session;
  Inspection inspection;
  inspection.isDone = inspectWindowTabs(session, desktop.window(window), inspection.tabs, &inspection.trace);
  expectOnlyRead(desktop, desktop.foreground());
  EXPECT_EQ(desktop.nowMs(), 0);
  return inspection;
}

TEST(WindowInspection, ListsTheTabsWithoutAddressAndProof_WhenTheWindowIsABrowsers) {
  const SimulatedDesktop desktop(browserTabs(
      "[" + selectedTab("Plan - ChatGPT", R"(, "address": "https://chatgpt.com/c/1", "page": [{"type": "edit",
          "name": "Message ChatGPT", "bounds": [300, 640, 1100, 700]}])") +
      R"(,{"title": ""},)" + tab("Plan", R"(, "selection": "none")") + "]"));

  const Inspection inspection = inspect(desktop);

  EXPECT_TRUE(inspection.isDone);
  ASSERT_EQ(inspection.tabs.size(), 2U);
  EXPECT_EQ(inspection.tabs[0].hwnd, desktop.window("browser"));
  EXPECT_EQ(inspection.tabs[0].browser, L"Chrome");
  EXPECT_EQ(inspection.tabs[0].title, L"Plan - ChatGPT");
  EXPECT_EQ(inspection.tabs[0].automationId, L"id-Plan - ChatGPT");
  EXPECT_TRUE(inspection.tabs[0].selected);
  EXPECT_EQ(inspection.tabs[0].url, L"");
  EXPECT_FALSE(inspection.tabs[0].verifiedContent);
  EXPECT_EQ(inspection.tabs[1].tabIndex, 2);
  EXPECT_FALSE(inspection.tabs[1].selected) << "the window's title is no sign here";
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::FindAll"), 1);
  std::ostringstream handle;
  handle << "0x" << std::hex << reinterpret_cast<std::uintptr_t>(desktop.window("browser"));
  EXPECT_EQ(stepNames(inspection.trace), Results{"Warm target inspection"});
  EXPECT_EQ(resultsOf(inspection.trace, "Warm target inspection"),
            Results{"hwnd=" + handle.str() + "; browser=Chrome; tabs=2"});
}

TEST(WindowInspection, SucceedsWithAnEmptyList_WhenTheBrowserHasNoTabs) {
  const SimulatedDesktop desktop(browserTabs("[]"));

  const Inspection inspection = inspect(desktop);

  EXPECT_TRUE(inspection.isDone);
  EXPECT_TRUE(inspection.tabs.empty());
}

TEST(WindowInspection, IsDone_WhenThereIsNoTrace) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan") + "]"));
  std::vector<TabCandidate> tabs;

  EXPECT_TRUE(inspectWindowTabs(UiaSession(), desktop.window("browser"), tabs, nullptr));

  EXPECT_EQ(tabs.size(), 1U);
}

TEST(WindowInspection, SkipsAnIndexSilently_WhenGetElementFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        browserTabs("[" + tab("One") + "," + tab("Two") + "]",
                    simulation::nthCallFails("IUIAutomationElementArray::GetElement", 1, result)));

    const Inspection inspection = inspect(desktop);

    EXPECT_TRUE(inspection.isDone);
    ASSERT_EQ(inspection.tabs.size(), 1U);
    EXPECT_EQ(inspection.tabs[0].tabIndex, 1);
    EXPECT_EQ(inspection.trace.size(), 1U);
  }
}

TEST(WindowInspection, Fails_WhenTheWindowIsNoBrowsersOrHasGone) {
  SimulatedDesktop desktop(browserTabs("[" + selectedTab("Plan") + "]"));
  EXPECT_FALSE(inspect(desktop, "editor").isDone);
  desktop.perform("editor", R"([{"closeWindow": "browser"}])");

  const Inspection inspection = inspect(desktop);

  EXPECT_FALSE(inspection.isDone);
  EXPECT_TRUE(inspection.trace.empty());
  EXPECT_EQ(desktop.platformCalls("IUIAutomation::ElementFromHandle"), 0);
}

class InspectionFault : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, InspectionFault,
                         testing::Values("CoCreateInstance", "OpenProcess", "QueryFullProcessImageNameW",
                                         "IUIAutomation::ElementFromHandle", "IUIAutomation::CreatePropertyCondition",
                                         "IUIAutomationElement::FindAll"));

TEST_P(InspectionFault, FailsWithoutAStep_WhenTheCallFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const bool isWin32 = std::string(GetParam()).find("Process") != std::string::npos;
    const SimulatedDesktop desktop(
        browserTabs("[" + selectedTab("Plan") + "]", everyCallFails(GetParam(), isWin32 ? "0" : result)));

    const Inspection inspection = inspect(desktop);

    EXPECT_FALSE(inspection.isDone) << result;
    EXPECT_TRUE(inspection.trace.empty());
  }
}

}  // namespace
}  // namespace orvane
