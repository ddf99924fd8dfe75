#include "activation/tab_selection.h"

#include <gtest/gtest.h>

#include "activation/browser_tabs.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

using Results = std::vector<std::string>;

constexpr HRESULT notAvailable = static_cast<HRESULT>(0x80040201);
constexpr HRESULT refused = static_cast<HRESULT>(0x80131509);
constexpr const char* isSelected = "PASS: resolved tab is selected";
constexpr const char* isNotSelected = "FAILED: Select returned success but resolved tab is not selected";
constexpr const char* notUnique = "FAILED: recorded tab index no longer exists and title was not unique";
constexpr const char* strictNotUnique = "FAILED: strict ChatGPT title no longer identifies one tab";

struct Selection {
  HRESULT result = S_OK;
  std::wstring title;
  std::wstring automationId;
  TraceLog trace;
};

struct Wanted {
  std::wstring title = {};
  std::int32_t index = -1;
  bool strictTitle = false;
  std::wstring automationId = {};
};

Selection select(const SimulatedDesktop& desktop, const Wanted& wanted) {
  TabCandidate candidate;
  candidate.hwnd = desktop.window("browser");
  candidate.title = wanted.title;
  candidate.tabIndex = wanted.index;
  candidate.strictTitle = wanted.strictTitle;
  candidate.automationId = wanted.automationId;
  const UiaSession session;
  Selection selection;
  selection.result = selectResolvedTab(session, candidate, &selection.title, &selection.automationId, &selection.trace);
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.focus(), "");
  return selection;
}

std::string choice(const Selection& selection) {
  const Results results = resultsOf(selection.trace, "Activation choice");
  return results.size() == 1 ? results.front() : std::to_string(results.size()) + " choices";
}

std::string chosen(const std::string& reason, const std::string& title) {
  return "reason=" + reason + "; resolvedTitle=\"" + title + "\"; resolvedAutomationId=\"id-" + title + "\"";
}

const std::string threeTabs = "[" + selectedTab("Mail") + "," + tab("Plan") + "," + tab("Plan") + "]";

TEST(TabSelection, TellsEachStepAndProvesTheTab_WhenItSucceeds) {
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "," + tab("Plan - Claude") + "]"));

  const Selection selection = select(desktop, {.title = L"Plan - Claude", .index = 1, .automationId = L"id-Mail"});

  EXPECT_EQ(selection.result, S_OK);
  EXPECT_EQ(desktop.selectedTab("browser"), "Plan - Claude");
  EXPECT_EQ(selection.title, L"Plan - Claude");
  EXPECT_EQ(selection.automationId, L"id-Plan - Claude");
  EXPECT_EQ(stepNames(selection.trace), (Results{"Activation target", "Activation tab", "Activation tab",
                                                 "Activation choice", "Activation verification"}));
  EXPECT_EQ(resultsOf(selection.trace, "Activation target"),
            Results{"requestedIndex=1; requestedTitle=\"Plan - Claude\"; requestedAutomationId=\"id-Mail\"; "
                    "enumeratedTabs=2"});
  EXPECT_EQ(resultsOf(selection.trace, "Activation tab"),
            (Results{"index=0; title=\"Mail\"; automationId=\"id-Mail\"; selected=Y; indexMatch=N; titleMatch=N; "
                     "automationMatch=Y",
                     "index=1; title=\"Plan - Claude\"; automationId=\"id-Plan - Claude\"; selected=N; indexMatch=Y; "
                     "titleMatch=Y; automationMatch=N"}));
  EXPECT_EQ(choice(selection), chosen("INDEX_AND_TITLE", "Plan - Claude"));
  EXPECT_EQ(resultsOf(selection.trace, "Activation verification"), Results{isSelected});
  EXPECT_EQ(desktop.nowMs(), 100);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationSelectionItemPattern::Select"), 1);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
}

struct DecisionRow {
  const char* name;
  std::string tabs;
  Wanted wanted;
  std::string decision;  // the step "Activation choice"
  const char* selected;  // the tab that is selected then
};

std::string decisionName(const testing::TestParamInfo<DecisionRow>& info) { return info.param.name; }

class TabDecision : public testing::TestWithParam<DecisionRow> {};

TEST_P(TabDecision, FollowsTitleAndIndex_WhenTheTabsAreEnumerated) {
  const SimulatedDesktop desktop(browserTabs(GetParam().tabs));

  const Selection selection = select(desktop, GetParam().wanted);

  const bool isResolved = GetParam().decision.starts_with("reason=");
  EXPECT_EQ(choice(selection), GetParam().decision);
  EXPECT_EQ(selection.result, isResolved ? S_OK : notAvailable);
  EXPECT_EQ(desktop.selectedTab("browser"), GetParam().selected);
  EXPECT_EQ(resultsOf(selection.trace, "Activation verification"), isResolved ? Results{isSelected} : Results{});
  EXPECT_EQ(desktop.platformCalls("IUIAutomationSelectionItemPattern::Select"), isResolved ? 1 : 0);
  EXPECT_EQ(desktop.nowMs(), isResolved ? 100 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Each, TabDecision,
    testing::Values(
        DecisionRow{"SameTitlesAndTheIndexOnOne", threeTabs, {L"Plan", 2}, chosen("INDEX_AND_TITLE", "Plan"), "Plan"},
        DecisionRow{"SameTitlesAndTheIndexBeyondTheEnd", threeTabs, {L"Plan", 3}, notUnique, "Mail"},
        DecisionRow{"SameTitlesAndTheIndexOnAThird",
                    "[" + selectedTab("News") + "," + tab("Plan") + "," + tab("Plan") + "," + tab("Mail") + "]",
                    {L"Plan", 3},
                    chosen("INDEX_FALLBACK", "Mail"),
                    "Mail"},
        DecisionRow{"MovedWithAUniqueTitle",
                    "[" + tab("Plan") + "," + selectedTab("Mail") + "," + tab("News") + "]",
                    {L"Plan", 2},
                    chosen("UNIQUE_TITLE", "Plan"),
                    "Plan"},
        DecisionRow{"TitleGoneAndIndexThere", threeTabs, {L"Gone", 1}, chosen("INDEX_FALLBACK", "Plan"), "Plan"},
        DecisionRow{"TitleAndIndexGone", threeTabs, {L"Gone", 7}, notUnique, "Mail"},
        DecisionRow{"StrictAndUnique",
                    "[" + selectedTab("Mail") + "," + tab("ChatGPT") + "]",
                    {L"ChatGPT", 0, true},
                    chosen("UNIQUE_TITLE", "ChatGPT"),
                    "ChatGPT"},
        DecisionRow{"StrictAndTheIndexFits",
                    "[" + selectedTab("Mail") + "," + tab("ChatGPT") + "]",
                    {L"ChatGPT", 1, true},
                    chosen("UNIQUE_TITLE", "ChatGPT"),
                    "ChatGPT"},
        DecisionRow{"StrictAndTwice", threeTabs, {L"Plan", 1, true}, strictNotUnique, "Mail"},
        DecisionRow{"StrictAndGone", threeTabs, {L"Gone", 1, true}, strictNotUnique, "Mail"},
        DecisionRow{"StatusNoteOnly",
                    "[" + selectedTab("Mail") + "," + tab("Plan - Claude - Memory usage - 120 MB") + "]",
                    {L"plan - claude", 1},
                    chosen("INDEX_AND_TITLE", "Plan - Claude - Memory usage - 120 MB"),
                    "Plan - Claude - Memory usage - 120 MB"},
        DecisionRow{"EmptyTitleAndEmptyTab",
                    "[" + selectedTab("Mail") + "," + tab("") + "]",
                    {L"", 1},
                    chosen("INDEX_AND_TITLE", ""),
                    ""},
        DecisionRow{"EmptyTitleAndNamedTab",
                    "[" + selectedTab("Mail") + "," + tab("Plan") + "]",
                    {L"", 1},
                    chosen("INDEX_FALLBACK", "Plan"),
                    "Plan"},
        DecisionRow{
            "EmptyTitleMatchesNoTitle", "[" + selectedTab("Mail") + "," + tab("") + "]", {L"", 5}, notUnique, "Mail"},
        DecisionRow{"IndexMinusOne", "[" + selectedTab("Mail") + "]", {L"Gone", -1}, notUnique, "Mail"},
        DecisionRow{"IdPlaysNoPart",
                    "[" + selectedTab("Mail") + "," + tab("Plan") + "]",
                    {L"Gone", -1, false, L"id-Plan"},
                    notUnique,
                    "Mail"}),
    decisionName);

TEST(TabSelection, TellsZeroTabsAndTheFailure_WhenTheWindowHasNone) {
  const SimulatedDesktop desktop(browserTabs("[]"));

  const Selection selection = select(desktop, {.title = L"Plan", .index = 0});

  EXPECT_EQ(selection.result, notAvailable);
  EXPECT_EQ(stepNames(selection.trace), (Results{"Activation target", "Activation choice"}));
  EXPECT_TRUE(resultsOf(selection.trace, "Activation target").front().ends_with("; enumeratedTabs=0"));
  EXPECT_EQ(selection.title, L"");
}

TEST(TabSelection, ShortensTheTitlesOfItsSteps_WhenTheyAreLongOrHoldLineEnds) {
  const std::string longTitle(300, 'p');
  const SimulatedDesktop desktop(browserTabs("[" + selectedTab(longTitle) + "," + tab("two\\nlines") + "]"));

  const Selection selection = select(desktop, {.title = std::wstring(300, L'p'), .index = 0});

  const std::string shown = "title=\"" + std::string(177, 'p') + "...\"";
  EXPECT_NE(resultsOf(selection.trace, "Activation tab").at(0).find(shown), std::string::npos);
  EXPECT_NE(resultsOf(selection.trace, "Activation tab").at(1).find("title=\"two lines\""), std::string::npos);
  EXPECT_EQ(selection.title.size(), 300U) << "what is given back stays whole";
}

TEST(TabSelection, IsDoneWithoutATrace_WhenNothingIsWanted) {
  const SimulatedDesktop desktop(browserTabs(threeTabs));
  TabCandidate candidate;
  candidate.hwnd = desktop.window("browser");
  candidate.title = L"Plan";
  candidate.tabIndex = 1;

  EXPECT_EQ(selectResolvedTab(UiaSession(), candidate, nullptr, nullptr, nullptr), S_OK);

  EXPECT_EQ(desktop.selectedTab("browser"), "Plan");
}

TEST(TabSelection, IsAnInvalidArgumentWithoutAStep_WhenWindowOrAutomationIsMissing) {
  SimulatedDesktop desktop(browserTabs(threeTabs));
  desktop.setFaults(simulation::everyCallFails("CoCreateInstance", "null"));
  EXPECT_EQ(select(desktop, {.title = L"Plan", .index = 1}).result, E_INVALIDARG);
  desktop.setFaults("[]");
  desktop.perform("editor", R"([{"closeWindow": "browser"}])");

  const Selection selection = select(desktop, {.title = L"Plan", .index = 1});

  EXPECT_EQ(selection.result, E_INVALIDARG);
  EXPECT_TRUE(selection.trace.empty());
  EXPECT_EQ(desktop.platformCalls("IUIAutomation::ElementFromHandle"), 0);
}

class TabSearchFault : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, TabSearchFault,
                         testing::Values("IUIAutomation::ElementFromHandle", "IUIAutomation::CreatePropertyCondition",
                                         "IUIAutomationElement::FindAll"));

TEST_P(TabSearchFault, IsPassedOnWithoutAStep_WhenTheCallFailsOrGivesNull) {
  for (const bool isNull : {false, true}) {
    const SimulatedDesktop desktop(
        browserTabs(threeTabs, simulation::everyCallFails(GetParam(), isNull ? "null" : R"("0x80131509")")));

    const Selection selection = select(desktop, {.title = L"Plan", .index = 1});

    EXPECT_EQ(selection.result, isNull ? E_FAIL : refused);
    EXPECT_TRUE(selection.trace.empty());
    EXPECT_EQ(desktop.selectedTab("browser"), "Mail");
  }
}

TEST(TabSelection, SkipsAnIndex_WhenGetElementFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        browserTabs("[" + selectedTab("Mail") + "," + tab("Plan") + "," + tab("News") + "]",
                    simulation::nthCallFails("IUIAutomationElementArray::GetElement", 2, result)));

    const Selection selection = select(desktop, {.title = L"Plan", .index = 1});

    EXPECT_EQ(selection.result, notAvailable);
    EXPECT_EQ(resultsOf(selection.trace, "Activation tab").size(), 2U);
    EXPECT_EQ(choice(selection), notUnique);
  }
}

TEST(TabSelection, FindsATabWithoutATitle_WhenItsNameCannotBeRead) {
  const SimulatedDesktop desktop(
      browserTabs("[" + selectedTab("Mail") + "," + tab("Plan") + "]",
                  R"([{"call": "IUIAutomationElement::get_CurrentName", "element": "Plan", "result": "0x80004005"}])"));

  EXPECT_EQ(choice(select(desktop, {.title = L"Plan", .index = 1})),
            "reason=INDEX_FALLBACK; resolvedTitle=\"\"; resolvedAutomationId=\"id-Plan\"");
}

}  // namespace
}  // namespace orvane
