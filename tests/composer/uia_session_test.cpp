#include <gtest/gtest.h>
#include <windows.h>
// windows.h first: objbase.h builds on it.
#include <objbase.h>

#include "composer/uia_operations.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::desktopJson;
using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::SimulatedDesktop;

constexpr HRESULT elementNotAvailable = static_cast<HRESULT>(0x80040201);

const std::string twoButtons = R"([
    {"id": "first", "type": "button", "name": "First", "bounds": [10, 500, 60, 540]},
    {"id": "second", "type": "button", "name": "Second", "bounds": [70, 500, 120, 540]}])";

UiaElementArray buttonsOf(const SimulatedDesktop& desktop, const UiaSession& session) {
  UiaElement root;
  UiaCondition condition;
  UiaElementArray buttons;
  session.elementFromHandle(desktop.window("browser"), root);
  session.controlTypeCondition(UIA_ButtonControlTypeId, condition);
  root.findAll(condition, buttons);
  return buttons;
}

UiaElement buttonAt(const SimulatedDesktop& desktop, const UiaSession& session, int index) {
  UiaElement button;
  buttonsOf(desktop, session).elementAt(index, button);
  return button;
}

// A call fails either by an error or by a success that gives nothing.
struct Failure {
  const char* name;
  const char* result;  // as a scenario writes it
  HRESULT hresult;
};

std::string failureName(const testing::TestParamInfo<Failure>& info) { return info.param.name; }

class FailedCall : public testing::TestWithParam<Failure> {};
INSTANTIATE_TEST_SUITE_P(Each, FailedCall,
                         testing::Values(Failure{"Error", R"("0x80004005")", E_FAIL}, Failure{"Null", "null", S_OK}),
                         failureName);

TEST(UiaSession, HoldsNothing_WhenItHasEnded) {
  const SimulatedDesktop desktop(desktopJson({.page = twoButtons}));
  {
    const UiaSession session;
    const UiaElement button = buttonAt(desktop, session, 0);
    EXPECT_TRUE(session);
    EXPECT_TRUE(button);
    EXPECT_GT(desktop.held("comReferences"), 0);
  }
  EXPECT_EQ(desktop.held("comReferences"), 0);
}

TEST(UiaSession, IsUnavailable_WhenTheThreadHasNoApartment) {
  const SimulatedDesktop desktop(desktopJson({}));
  ::CoUninitialize();

  EXPECT_FALSE(UiaSession());

  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
}

TEST_P(FailedCall, MakesTheSessionUnavailable_WhenItIsCoCreateInstance) {
  const SimulatedDesktop desktop(desktopJson({.faults = everyCallFails("CoCreateInstance", GetParam().result)}));

  EXPECT_FALSE(UiaSession());
}

TEST_P(FailedCall, LeavesTheElementEmpty_WhenItIsElementFromHandle) {
  const SimulatedDesktop desktop(
      desktopJson({.faults = nthCallFails("IUIAutomation::ElementFromHandle", 2, GetParam().result)}));
  const UiaSession session;
  UiaElement root;
  session.elementFromHandle(desktop.window("browser"), root);
  EXPECT_TRUE(root);

  EXPECT_EQ(session.elementFromHandle(desktop.window("browser"), root), GetParam().hresult);

  EXPECT_FALSE(root);
}

TEST_P(FailedCall, LeavesTheElementEmpty_WhenItIsGetFocusedElement) {
  const SimulatedDesktop desktop(
      desktopJson({.faults = everyCallFails("IUIAutomation::GetFocusedElement", GetParam().result)}));
  const UiaSession session;
  UiaElement focused;

  EXPECT_EQ(session.focusedElement(focused), GetParam().hresult);

  EXPECT_FALSE(focused);
}

TEST_P(FailedCall, LeavesTheConditionEmpty_WhenItMakesOne) {
  SimulatedDesktop desktop(desktopJson({}));
  const UiaSession session;
  UiaCondition edits;
  UiaCondition all;
  session.controlTypeCondition(UIA_EditControlTypeId, edits);
  session.trueCondition(all);
  UiaCondition made = edits;

  desktop.setFaults(everyCallFails("IUIAutomation::CreatePropertyCondition", GetParam().result));
  EXPECT_EQ(session.controlTypeCondition(UIA_EditControlTypeId, made), GetParam().hresult);
  EXPECT_FALSE(made);
  desktop.setFaults(everyCallFails("IUIAutomation::CreateTrueCondition", GetParam().result));
  EXPECT_EQ(session.trueCondition(made), GetParam().hresult);
  EXPECT_FALSE(made);
  desktop.setFaults(everyCallFails("IUIAutomation::CreateOrCondition", GetParam().result));
  EXPECT_EQ(session.orCondition(edits, all, made), GetParam().hresult);
  EXPECT_FALSE(made);
}

TEST_P(FailedCall, LeavesTheArrayEmpty_WhenItIsFindAll) {
  const SimulatedDesktop desktop(
      desktopJson({.page = twoButtons, .faults = everyCallFails("IUIAutomationElement::FindAll", GetParam().result)}));
  const UiaSession session;

  EXPECT_FALSE(buttonsOf(desktop, session));
}

TEST_P(FailedCall, LeavesTheElementEmpty_WhenItIsGetElement) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = twoButtons, .faults = nthCallFails("IUIAutomationElementArray::GetElement", 2, GetParam().result)}));
  const UiaSession session;
  const UiaElementArray buttons = buttonsOf(desktop, session);
  UiaElement button;
  buttons.elementAt(0, button);
  EXPECT_TRUE(button);

  EXPECT_EQ(buttons.elementAt(1, button), GetParam().hresult);

  EXPECT_FALSE(button);
}

TEST_P(FailedCall, GivesNoElements_WhenItIsGetLength) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = twoButtons, .faults = everyCallFails("IUIAutomationElementArray::get_Length", GetParam().result)}));
  const UiaSession session;

  EXPECT_EQ(buttonsOf(desktop, session).length(), 0);
}

TEST_P(FailedCall, TellsControlsApart_WhenItIsCompareElements) {
  const SimulatedDesktop desktop(
      desktopJson({.page = twoButtons, .faults = everyCallFails("IUIAutomation::CompareElements", GetParam().result)}));
  const UiaSession session;
  const UiaElement button = buttonAt(desktop, session, 0);

  EXPECT_FALSE(session.isSameElement(button, button));
}

TEST_P(FailedCall, IsAPatternThatIsNotThere_WhenItIsGetCurrentPatternAs) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = twoButtons, .faults = everyCallFails("IUIAutomationElement::GetCurrentPatternAs", GetParam().result)}));
  const UiaSession session;

  const PatternOutcome outcome = buttonAt(desktop, session, 0).invoke();

  EXPECT_FALSE(outcome.hasPattern);
  EXPECT_TRUE(FAILED(outcome.result));
  EXPECT_EQ(desktop.invocations("browser", "first"), 0);
}

TEST(UiaSession, ReportsTheError_WhenTheWindowHidesItsControlsOrIsGone) {
  SimulatedDesktop desktop(
      desktopJson({.otherWindows = R"(, {"id": "closed", "process": "chrome.exe"}, {"id": "mute", "uia": false})"}));
  desktop.perform("browser", R"([{"closeWindow": "closed"}])");
  const UiaSession session;
  UiaElement root;

  EXPECT_EQ(session.elementFromHandle(desktop.window("closed"), root), elementNotAvailable);
  EXPECT_FALSE(root);
  EXPECT_EQ(session.elementFromHandle(desktop.window("mute"), root), elementNotAvailable);
  EXPECT_FALSE(root);
}

TEST(UiaSession, KnowsAControlAgain_WhenItCameOnAnotherWay) {
  SimulatedDesktop desktop(desktopJson({.page = twoButtons}));
  desktop.perform("browser", R"([{"focus": "second"}])");
  const UiaSession session;
  UiaElement focused;
  session.focusedElement(focused);

  EXPECT_TRUE(session.isSameElement(focused, buttonAt(desktop, session, 1)));
  EXPECT_FALSE(session.isSameElement(focused, buttonAt(desktop, session, 0)));
}

TEST(UiaElementArray, HoldsTheMatchesInTreeOrder_WhenTheSearchSucceeds) {
  const SimulatedDesktop desktop(desktopJson({.page = twoButtons}));
  const UiaSession session;

  EXPECT_EQ(buttonsOf(desktop, session).length(), 2);
  EXPECT_EQ(elementName(buttonAt(desktop, session, 0)), L"First");
  EXPECT_EQ(elementName(buttonAt(desktop, session, 1)), L"Second");
}

TEST(PatternOutcome, TellsTheErrorOfTheAction_WhenThePatternRefuses) {
  const SimulatedDesktop desktop(
      desktopJson({.page = R"([{"id": "first", "type": "button", "name": "First", "invoke": "0x80131509"}])"}));
  const UiaSession session;

  const PatternOutcome outcome = buttonAt(desktop, session, 0).invoke();

  EXPECT_TRUE(outcome.hasPattern);
  EXPECT_EQ(outcome.result, static_cast<HRESULT>(0x80131509));
  EXPECT_EQ(desktop.invocations("browser", "first"), 0);
}

TEST(PatternOutcome, IsNoInterface_WhenTheControlHasNoSuchPattern) {
  const SimulatedDesktop desktop(desktopJson({.page = twoButtons}));
  const UiaSession session;
  const UiaElement button = buttonAt(desktop, session, 0);

  EXPECT_FALSE(button.select().hasPattern);
  EXPECT_EQ(button.select().result, E_NOINTERFACE);
  EXPECT_FALSE(button.doDefaultAction().hasPattern);
  EXPECT_FALSE(button.isSelected());
}

struct UnusableRow {
  const char* name;
  const char* facts;  // members of the button, each with a comma in front
};

std::string unusableName(const testing::TestParamInfo<UnusableRow>& info) { return info.param.name; }

class UnusableBounds : public testing::TestWithParam<UnusableRow> {};

TEST_P(UnusableBounds, AreNeitherGivenNorWritten_WhenOneTestFails) {
  const SimulatedDesktop desktop(
      desktopJson({.page = std::string(R"([{"id": "first", "type": "button")") + GetParam().facts + "}]"}));
  const UiaSession session;
  RECT bounds{1, 2, 3, 4};

  EXPECT_FALSE(readUsableBounds(buttonAt(desktop, session, 0), &bounds));

  EXPECT_EQ(bounds.left, 1);
  EXPECT_EQ(bounds.top, 2);
  EXPECT_EQ(bounds.right, 3);
  EXPECT_EQ(bounds.bottom, 4);
}

INSTANTIATE_TEST_SUITE_P(
    Each, UnusableBounds,
    testing::Values(UnusableRow{"Disabled", R"(, "bounds": [10, 10, 20, 20], "enabled": false)"},
                    UnusableRow{"NotFocusable", R"(, "bounds": [10, 10, 20, 20], "focusable": false)"},
                    UnusableRow{"Offscreen", R"(, "bounds": [10, 10, 20, 20], "offscreen": true)"},
                    UnusableRow{"NoWidth", R"(, "bounds": [10, 10, 10, 20])"},
                    UnusableRow{"NoHeight", R"(, "bounds": [10, 10, 20, 10])"},
                    UnusableRow{"UnreadableEnabled", R"(, "bounds": [10, 10, 20, 20], "unreadable": ["enabled"])"},
                    UnusableRow{"UnreadableFocusable", R"(, "bounds": [10, 10, 20, 20], "unreadable": ["focusable"])"},
                    UnusableRow{"UnreadableOffscreen", R"(, "bounds": [10, 10, 20, 20], "unreadable": ["offscreen"])"},
                    UnusableRow{"UnreadableBounds", R"(, "bounds": [10, 10, 20, 20], "unreadable": ["bounds"])"}),
    unusableName);

TEST(UsableBounds, AreGiven_WhenTheControlPassesEveryTest) {
  const SimulatedDesktop desktop(desktopJson({.page = twoButtons}));
  const UiaSession session;
  const UiaElement button = buttonAt(desktop, session, 0);
  RECT bounds{};

  EXPECT_TRUE(readUsableBounds(button, &bounds));
  EXPECT_TRUE(readUsableBounds(button, nullptr));

  EXPECT_EQ(bounds.left, 10);
  EXPECT_EQ(bounds.top, 500);
  EXPECT_EQ(bounds.right, 60);
  EXPECT_EQ(bounds.bottom, 540);
}

TEST(UsableBounds, AreNotReadFurther_WhenTheControlIsDisabled) {
  const SimulatedDesktop desktop(
      desktopJson({.page = R"([{"id": "first", "type": "button", "enabled": false, "bounds": [0, 0, 9, 9]}])"}));
  const UiaSession session;

  EXPECT_FALSE(readUsableBounds(buttonAt(desktop, session, 0), nullptr));

  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::get_CurrentIsKeyboardFocusable"), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::get_CurrentBoundingRectangle"), 0);
}

}  // namespace
}  // namespace orvane
