// The act of selecting a tab item, and reading back that it is selected.
#include <gtest/gtest.h>

#include "activation/browser_tabs.h"
#include "activation/tab_selection.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::everyCallFails;
using simulation::SimulatedDesktop;

using Results = std::vector<std::string>;

constexpr HRESULT notAvailable = static_cast<HRESULT>(0x80040201);
constexpr HRESULT refused = static_cast<HRESULT>(0x80131509);
constexpr std::uint32_t refusedValue = 0x80131509;
constexpr const char* selectCall = "IUIAutomationSelectionItemPattern::Select";
constexpr const char* invokeCall = "IUIAutomationInvokePattern::Invoke";
constexpr const char* defaultActionCall = "IUIAutomationLegacyIAccessiblePattern::DoDefaultAction";

const std::string twoTabs = "[" + selectedTab("Mail") + "," + tab("Plan") + "]";

UiaElement tabItem(const SimulatedDesktop& desktop, const UiaSession& session, int index) {
  UiaElement root;
  UiaCondition condition;
  UiaElementArray items;
  UiaElement item;
  session.elementFromHandle(desktop.window("browser"), root);
  session.controlTypeCondition(UIA_TabItemControlTypeId, condition);
  root.findAll(condition, items);
  items.elementAt(index, item);
  return item;
}

HRESULT selectPlan(const SimulatedDesktop& desktop) {
  const UiaSession session;
  return selectTabElement(tabItem(desktop, session, 1));
}

struct Resolution {
  HRESULT result = S_OK;
  std::wstring title;
  std::wstring automationId;
  TraceLog trace;
};

Resolution resolvePlan(const SimulatedDesktop& desktop) {
  TabCandidate candidate;
  candidate.hwnd = desktop.window("browser");
  candidate.title = L"Plan";
  candidate.tabIndex = 1;
  Resolution resolution;
  resolution.result =
      selectResolvedTab(UiaSession(), candidate, &resolution.title, &resolution.automationId, &resolution.trace);
  return resolution;
}

TEST(SelectTab, IsAnInvalidPointer_WhenThereIsNoElement) {
  const SimulatedDesktop desktop(browserTabs(twoTabs));

  EXPECT_EQ(selectTabElement(UiaElement()), static_cast<HRESULT>(0x80004003));
}

TEST(SelectTab, IsEnough_WhenNeitherFurtherPatternExists) {
  const SimulatedDesktop desktop(browserTabs(twoTabs));

  EXPECT_EQ(selectPlan(desktop), S_OK);

  EXPECT_EQ(desktop.selectedTab("browser"), "Plan");
  EXPECT_EQ(desktop.platformCalls(invokeCall), 0);
  EXPECT_EQ(desktop.platformCalls(defaultActionCall), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::GetCurrentPatternAs"), 3);
}

TEST(SelectTab, HasNoInterface_WhenTheTabHasNoSelectionPattern) {
  const SimulatedDesktop desktop(
      browserTabs("[" + selectedTab("Mail") + "," + tab("Plan", R"(, "selection": "none")") + "]"));
  desktop.element("browser", "Plan").facts.invoke = 0;

  EXPECT_EQ(selectPlan(desktop), static_cast<HRESULT>(0x80004002));

  EXPECT_EQ(desktop.selectedTab("browser"), "Mail");
  EXPECT_EQ(desktop.invocations("browser", "Plan"), 0);
}

TEST(SelectTab, PassesTheErrorOn_WhenThePatternOrSelectFails) {
  for (const char* call : {"IUIAutomationElement::GetCurrentPatternAs", selectCall}) {
    const SimulatedDesktop desktop(browserTabs(twoTabs, everyCallFails(call, R"("0x80131509")")));
    desktop.element("browser", "Plan").facts.invoke = 0;

    EXPECT_EQ(selectPlan(desktop), refused) << call;

    EXPECT_EQ(desktop.selectedTab("browser"), "Mail");
    EXPECT_EQ(desktop.platformCalls(invokeCall), 0);
  }
}

TEST(SelectTab, InvokesToo_WhenTheTabHasThatPattern) {
  const SimulatedDesktop desktop(browserTabs(twoTabs));
  desktop.element("browser", "Plan").facts.invoke = 0;
  desktop.element("browser", "Plan").facts.defaultAction = refusedValue;

  EXPECT_EQ(selectPlan(desktop), S_OK);

  EXPECT_EQ(desktop.selectedTab("browser"), "Plan");
  EXPECT_EQ(desktop.invocations("browser", "Plan"), 1);
  EXPECT_EQ(desktop.platformCalls(defaultActionCall), 0);
}

TEST(SelectTab, ReportsTheErrorOfInvoke_WhenItFailsAfterSelect) {
  const SimulatedDesktop desktop(browserTabs(twoTabs));
  desktop.element("browser", "Plan").facts.invoke = refusedValue;

  EXPECT_EQ(selectPlan(desktop), refused);

  EXPECT_EQ(desktop.selectedTab("browser"), "Plan");
}

TEST(SelectTab, DoesTheDefaultAction_WhenThereIsNoInvokePattern) {
  const SimulatedDesktop desktop(browserTabs(twoTabs));
  desktop.element("browser", "Plan").facts.defaultAction = 0;

  EXPECT_EQ(selectPlan(desktop), S_OK);

  EXPECT_EQ(desktop.platformCalls(defaultActionCall), 1);
}

TEST(SelectTab, ReportsTheErrorOfTheDefaultAction_WhenItFailsAfterSelect) {
  const SimulatedDesktop desktop(browserTabs(twoTabs));
  desktop.element("browser", "Plan").facts.defaultAction = refusedValue;

  EXPECT_EQ(selectPlan(desktop), refused);

  EXPECT_EQ(desktop.selectedTab("browser"), "Plan");
}

TEST(SelectTab, TakesAFurtherPatternForAbsent_WhenLookingForItFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(browserTabs(
        twoTabs, R"([{"call": "IUIAutomationElement::GetCurrentPatternAs", "nth": 2, "times": 2, "result": )" +
                     std::string(result) + "}]"));
    desktop.element("browser", "Plan").facts.invoke = 0;

    EXPECT_EQ(selectPlan(desktop), S_OK);

    EXPECT_EQ(desktop.invocations("browser", "Plan"), 0);
  }
}

TEST(TabProof, FailsAfterItsPause_WhenTheBrowserSelectsAnotherTab) {
  for (const char* after : {"0", "60"}) {
    const SimulatedDesktop desktop(browserTabs(twoTabs, "[]",
                                               std::string(R"(, "rules": [{"on": {"select": "Plan"}, "after": )") +
                                                   after + R"(, "do": [{"selectTab": "Mail"}]}])"));

    const Resolution resolution = resolvePlan(desktop);

    EXPECT_EQ(resolution.result, notAvailable);
    EXPECT_EQ(resultsOf(resolution.trace, "Activation verification"),
              Results{"FAILED: Select returned success but resolved tab is not selected"});
    EXPECT_EQ(desktop.nowMs(), 100);
    EXPECT_EQ(desktop.platformCalls(selectCall), 1) << "nothing is selected again";
  }
}

TEST(TabProof, BelievesNoSuccess_WhenSelectHasNoEffect) {
  const SimulatedDesktop desktop(browserTabs(twoTabs, everyCallFails(selectCall, "null")));

  EXPECT_EQ(resolvePlan(desktop).result, notAvailable);

  EXPECT_EQ(desktop.selectedTab("browser"), "Mail");
}

TEST(TabProof, FailsWithTheTabSelected_WhenTheStateCannotBeReadBack) {
  const SimulatedDesktop desktop(browserTabs(
      twoTabs, everyCallFails("IUIAutomationSelectionItemPattern::get_CurrentIsSelected", R"("0x80004005")")));

  const Resolution resolution = resolvePlan(desktop);

  EXPECT_EQ(resolution.result, notAvailable);
  EXPECT_EQ(desktop.selectedTab("browser"), "Plan");
  EXPECT_NE(resultsOf(resolution.trace, "Activation tab").at(0).find("selected=N"), std::string::npos);
}

TEST(TabProof, IsNotMade_WhenTheSelectionFails) {
  struct Row {
    std::optional<std::uint32_t> invoke;
    std::optional<std::uint32_t> defaultAction;
    const char* faults;
  };
  const std::string selectFails = everyCallFails(selectCall, R"("0x80131509")");
  for (const Row& row : {Row{{}, {}, selectFails.c_str()}, Row{refusedValue, {}, "[]"}, Row{{}, refusedValue, "[]"}}) {
    const SimulatedDesktop desktop(browserTabs(twoTabs, row.faults));
    desktop.element("browser", "Plan").facts.invoke = row.invoke;
    desktop.element("browser", "Plan").facts.defaultAction = row.defaultAction;

    const Resolution resolution = resolvePlan(desktop);

    EXPECT_EQ(resolution.result, refused);
    EXPECT_EQ(stepNames(resolution.trace).back(), "Activation choice");
    EXPECT_EQ(resolution.title, L"Plan") << "the pair is filled before the selection";
    EXPECT_EQ(resolution.automationId, L"id-Plan");
    EXPECT_EQ(desktop.nowMs(), 0);
  }
}

TEST(TabProof, ReadsOnlyTheSelectionPattern_WhenAskedWhetherATabIsSelected) {
  const SimulatedDesktop desktop(
      browserTabs("[" + selectedTab("Mail") + "," + tab("Plan") + "," + tab("News", R"(, "selection": "none")") + "]"));
  const UiaSession session;

  EXPECT_TRUE(isTabElementSelected(tabItem(desktop, session, 0)));
  EXPECT_FALSE(isTabElementSelected(tabItem(desktop, session, 1)));
  EXPECT_FALSE(isTabElementSelected(tabItem(desktop, session, 2)));
}

}  // namespace
}  // namespace orvane
