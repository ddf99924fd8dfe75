#include "composer/uia_operations.h"

#include <gtest/gtest.h>
// windows.h first: objbase.h builds on it.
#include <objbase.h>

#include "embedding/utf_conversion.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::BrowserPage;
using simulation::desktopJson;
using simulation::everyCallFails;
using simulation::SimulatedDesktop;

const std::string field = R"([{"id": "field", "type": "edit", "name": "Ask", "automationId": "prompt",
    "className": "ProseMirror", "frameworkId": "Chrome", "bounds": [300, -20, 900, 700], "value": "draft",
    "helpText": "https://claude.ai/new"}])";

BrowserPage pageOf(const std::string& page) { return {.page = page}; }

// The edit control of the page: the last one of the window, behind the address bar.
UiaElement lastEdit(const SimulatedDesktop& desktop, const UiaSession& session) {
  UiaElement root;
  UiaCondition edits;
  UiaElementArray found;
  UiaElement edit;
  session.elementFromHandle(desktop.window("browser"), root);
  session.controlTypeCondition(UIA_EditControlTypeId, edits);
  root.findAll(edits, found);
  found.elementAt(found.length() - 1, edit);
  return edit;
}

std::string yesOrNo(bool value) { return value ? "yes" : "no"; }

std::string describeValue(const UiaElement& element) {
  const ValueReading value = element.readValue();
  return yesOrNo(value.hasPattern) + ", " + (value.text ? utf8FromWide(*value.text) : "nothing");
}

struct FactRow {
  const char* fact;  // as a scenario names it
  const char* call;
  std::string (*read)(const UiaElement& element);
  const char* asShown;
  const char* onFailure;
};

std::string rowName(const testing::TestParamInfo<FactRow>& info) { return info.param.fact; }

class ElementFact : public testing::TestWithParam<FactRow> {};

TEST_P(ElementFact, IsWhatThePageShows_WhenItCanBeRead) {
  const SimulatedDesktop desktop(desktopJson(pageOf(field)));
  const UiaSession session;

  const std::string fact = GetParam().read(lastEdit(desktop, session));

  EXPECT_EQ(fact, GetParam().asShown);
}

TEST_P(ElementFact, IsItsDefault_WhenItIsUnreadable) {
  const SimulatedDesktop desktop(desktopJson(pageOf(field)));
  desktop.element("browser", "field").facts.unreadable = {
      simulation::Fact::name,     simulation::Fact::automationId, simulation::Fact::className,
      simulation::Fact::enabled,  simulation::Fact::frameworkId,  simulation::Fact::controlType,
      simulation::Fact::bounds,   simulation::Fact::offscreen,    simulation::Fact::focusable,
      simulation::Fact::password, simulation::Fact::value};
  const UiaSession session;

  const std::string fact = GetParam().read(lastEdit(desktop, session));

  EXPECT_EQ(fact, GetParam().onFailure);
}

TEST_P(ElementFact, IsItsDefault_WhenItsCallFails) {
  SimulatedDesktop desktop(desktopJson(pageOf(field)));
  desktop.setFaults(everyCallFails(GetParam().call, R"("0x80004005")"));
  const UiaSession session;

  const std::string fact = GetParam().read(lastEdit(desktop, session));

  EXPECT_EQ(fact, GetParam().onFailure);
  EXPECT_GT(desktop.platformCalls(GetParam().call), 0);
}

TEST_P(ElementFact, IsItsDefault_WhenTheControlHasLeftThePage) {
  SimulatedDesktop desktop(desktopJson(pageOf(field)));
  const UiaSession session;
  const UiaElement edit = lastEdit(desktop, session);
  desktop.perform("browser", R"([{"remove": "field"}])");

  const std::string fact = GetParam().read(edit);

  const bool isValue = std::string(GetParam().fact) == "value";
  EXPECT_EQ(fact, isValue ? "no, nothing" : GetParam().onFailure);
}

INSTANTIATE_TEST_SUITE_P(
    All, ElementFact,
    testing::Values(
        FactRow{"name", "IUIAutomationElement::get_CurrentName",
                [](const UiaElement& element) { return utf8FromWide(elementName(element)); }, "Ask", ""},
        FactRow{"automationId", "IUIAutomationElement::get_CurrentAutomationId",
                [](const UiaElement& element) { return utf8FromWide(elementAutomationId(element)); }, "prompt", ""},
        FactRow{"className", "IUIAutomationElement::get_CurrentClassName",
                [](const UiaElement& element) { return utf8FromWide(elementClassName(element)); }, "ProseMirror", ""},
        FactRow{"frameworkId", "IUIAutomationElement::get_CurrentFrameworkId",
                [](const UiaElement& element) { return utf8FromWide(element.frameworkId()); }, "Chrome", ""},
        FactRow{"controlType", "IUIAutomationElement::get_CurrentControlType",
                [](const UiaElement& element) { return std::to_string(element.controlType()); }, "50004", "0"},
        FactRow{"bounds", "IUIAutomationElement::get_CurrentBoundingRectangle", elementBoundsText, "300,-20,900,700",
                "<unavailable>"},
        FactRow{"enabled", "IUIAutomationElement::get_CurrentIsEnabled",
                [](const UiaElement& element) { return yesOrNo(element.isEnabled()); }, "yes", "no"},
        FactRow{"offscreen", "IUIAutomationElement::get_CurrentIsOffscreen",
                [](const UiaElement& element) { return yesOrNo(element.isOffscreen()); }, "no", "yes"},
        FactRow{"focusable", "IUIAutomationElement::get_CurrentIsKeyboardFocusable",
                [](const UiaElement& element) { return yesOrNo(element.isKeyboardFocusable()); }, "yes", "no"},
        FactRow{"password", "IUIAutomationElement::get_CurrentIsPassword",
                [](const UiaElement& element) { return yesOrNo(element.isPassword()); }, "no", "yes"},
        FactRow{"value", "IUIAutomationValuePattern::get_CurrentValue", describeValue, "yes, draft", "yes, nothing"}),
    rowName);

TEST(ElementName, IsNone_WhenTheReadSucceedsWithANullString) {
  const SimulatedDesktop desktop(desktopJson(pageOf(R"([{"id": "field", "type": "edit", "name": null}])")));
  const UiaSession session;
  const UiaElement edit = lastEdit(desktop, session);

  EXPECT_EQ(edit.name(), std::nullopt);
  EXPECT_EQ(elementName(edit), L"");
}

TEST(ElementName, IsThere_WhenItIsEmpty) {
  const SimulatedDesktop desktop(desktopJson(pageOf(R"([{"id": "field", "type": "edit", "name": ""}])")));
  const UiaSession session;

  EXPECT_EQ(lastEdit(desktop, session).name(), L"");
}

TEST(ElementTexts, AreDefaults_WhenThereIsNoElement) {
  const UiaElement nothing;

  EXPECT_EQ(elementName(nothing), L"");
  EXPECT_EQ(elementAutomationId(nothing), L"");
  EXPECT_EQ(elementClassName(nothing), L"");
  EXPECT_EQ(elementBoundsText(nothing), "<unavailable>");
}

TEST(ElementValue, HasNoPattern_WhenTheControlShowsNone) {
  const SimulatedDesktop desktop(desktopJson(pageOf(R"([{"id": "field", "type": "edit"}])")));
  const UiaSession session;

  EXPECT_EQ(describeValue(lastEdit(desktop, session)), "no, nothing");
}

TEST(ElementValue, IsNotExposed_WhenItIsANullString) {
  const SimulatedDesktop desktop(desktopJson(pageOf(R"([{"id": "field", "type": "edit", "value": null}])")));
  const UiaSession session;

  EXPECT_EQ(describeValue(lastEdit(desktop, session)), "yes, nothing");
}

TEST(ElementValue, IsAnEmptyText_WhenTheFieldIsEmpty) {
  const SimulatedDesktop desktop(desktopJson(pageOf(R"([{"id": "field", "type": "edit", "value": ""}])")));
  const UiaSession session;

  EXPECT_EQ(describeValue(lastEdit(desktop, session)), "yes, ");
}

TEST(ElementValue, HasNoPattern_WhenLookingForItFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    SimulatedDesktop desktop(desktopJson(pageOf(field)));
    const UiaSession session;
    const UiaElement edit = lastEdit(desktop, session);
    desktop.setFaults(everyCallFails("IUIAutomationElement::GetCurrentPatternAs", result));

    EXPECT_EQ(describeValue(edit), "no, nothing") << result;
    EXPECT_EQ(desktop.platformCalls("IUIAutomationValuePattern::get_CurrentValue"), 0);
  }
}

TEST(TextProperty, IsTaken_WhenItIsAString) {
  const SimulatedDesktop desktop(desktopJson(pageOf(field)));
  const UiaSession session;
  const UiaElement edit = lastEdit(desktop, session);

  EXPECT_EQ(edit.textProperty(UIA_ValueValuePropertyId), L"draft");
  EXPECT_EQ(edit.textProperty(UIA_HelpTextPropertyId), L"https://claude.ai/new");
  EXPECT_EQ(edit.textProperty(UIA_LegacyIAccessibleValuePropertyId), L"");
}

TEST(TextProperty, IsEmpty_WhenItIsOfAnotherTypeOrTheReadFails) {
  SimulatedDesktop desktop(desktopJson(pageOf(R"([{"id": "field", "type": "edit", "helpText": "help"}])")));
  const UiaSession session;
  const UiaElement edit = lastEdit(desktop, session);

  EXPECT_EQ(edit.textProperty(UIA_ValueValuePropertyId), L"");
  EXPECT_EQ(edit.textProperty(UIA_ControlTypePropertyId), L"") << "a number";
  desktop.setFaults(everyCallFails("IUIAutomationElement::GetCurrentPropertyValue", R"("0x80004005")"));
  EXPECT_EQ(edit.textProperty(UIA_HelpTextPropertyId), L"");
}

}  // namespace
}  // namespace orvane
