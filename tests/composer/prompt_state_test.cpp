// What the focused control holds, and whether a pasted text stays in it.
#include <gtest/gtest.h>

#include "composer/prompt_state.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"
#include "support/sleep_watch.h"

namespace orvane {
namespace {

using simulation::desktopJson;
using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::SimulatedDesktop;

constexpr const char* notExposed = "INFO: prompt value is not exposed; conservative timing used";
constexpr const char* unstable = "UNSTABLE: pasted prompt was not stable across three checks";

std::string fieldWith(const std::string& facts) {
  return R"([{"id": "field", "type": "edit", "name": "Prompt", "bounds": [300, 640, 900, 700])" + facts + "}]";
}

// The page with its field in focus.
struct FocusedField {
  explicit FocusedField(const std::string& facts, const std::string& rules = "[]", const std::string& faults = "[]")
      : desktop(desktopJson({.page = fieldWith(facts), .rules = rules, .faults = faults})) {
    desktop.perform("browser", R"([{"focus": "field"}])");
  }

  SimulatedDesktop desktop;
};

struct StateRow {
  const char* name;
  const char* facts;  // of the focused field
  bool hasText;
  bool valueExposed;
  const char* message;
};

std::string stateName(const testing::TestParamInfo<StateRow>& info) { return info.param.name; }

class PromptState : public testing::TestWithParam<StateRow> {};

TEST_P(PromptState, IsToldByItsWords_WhenTheFieldHasTheFocus) {
  const FocusedField field(GetParam().facts);
  std::string message;
  bool valueExposed = !GetParam().valueExposed;

  EXPECT_EQ(readPromptState(&message, &valueExposed), GetParam().hasText);

  EXPECT_EQ(message, GetParam().message);
  EXPECT_EQ(valueExposed, GetParam().valueExposed);
  EXPECT_EQ(readPromptState(nullptr, nullptr), GetParam().hasText);
  EXPECT_EQ(field.desktop.focus(), "browser/field");
  EXPECT_TRUE(field.desktop.keys().empty());
  EXPECT_EQ(field.desktop.nowMs(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Each, PromptState,
    testing::Values(StateRow{"Text", R"(, "value": "Plan a trip")", true, true, "Prompt still contains text"},
                    StateRow{"SingleBlank", R"(, "value": " ")", true, true, "Prompt still contains text"},
                    StateRow{"LineFeed", R"(, "value": "\n")", true, true, "Prompt still contains text"},
                    StateRow{"Empty", R"(, "value": "")", false, true, "Prompt is empty"},
                    StateRow{"NullString", R"(, "value": null)", false, true, "Prompt text value is not exposed"},
                    StateRow{"Unreadable", R"(, "value": "x", "unreadable": ["value"])", false, true,
                             "Prompt text value is not exposed"},
                    StateRow{"NoPattern", "", false, false, "Prompt text value is not exposed"}),
    stateName);

struct StateFaultRow {
  const char* name;
  const char* call;
  bool valueExposed;
  const char* message;
};

std::string stateFaultName(const testing::TestParamInfo<StateFaultRow>& info) { return info.param.name; }

class PromptStateFault : public testing::TestWithParam<StateFaultRow> {};

TEST_P(PromptStateFault, IsToldByItsWords_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const FocusedField field(R"(, "value": "text")", "[]", everyCallFails(GetParam().call, result));
    std::string message;
    bool valueExposed = !GetParam().valueExposed;

    EXPECT_FALSE(readPromptState(&message, &valueExposed)) << result;

    EXPECT_EQ(message, GetParam().message);
    EXPECT_EQ(valueExposed, GetParam().valueExposed);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, PromptStateFault,
    testing::Values(StateFaultRow{"Automation", "CoCreateInstance", false, "UI Automation unavailable"},
                    StateFaultRow{"Focus", "IUIAutomation::GetFocusedElement", false, "No focused prompt element"},
                    StateFaultRow{"Pattern", "IUIAutomationElement::GetCurrentPatternAs", false,
                                  "Prompt text value is not exposed"},
                    StateFaultRow{"Value", "IUIAutomationValuePattern::get_CurrentValue", true,
                                  "Prompt text value is not exposed"}),
    stateFaultName);

TEST(PromptState, HasNoFocusedElement_WhenNothingHasTheFocus) {
  const SimulatedDesktop desktop(desktopJson({.page = fieldWith(R"(, "value": "text")")}));
  std::string message;
  bool valueExposed = true;

  EXPECT_FALSE(readPromptState(&message, &valueExposed));

  EXPECT_EQ(message, "No focused prompt element");
  EXPECT_FALSE(valueExposed);
}

struct Stability {
  bool isStable = false;
  bool valueExposed = false;
  std::string message;
  std::int64_t tookMs = 0;
};

Stability waitFor(const SimulatedDesktop& desktop, int checks) {
  Stability result;
  result.valueExposed = true;
  const std::int64_t startMs = desktop.nowMs();
  result.isStable = waitForPastedPromptStable(checks, result.message, &result.valueExposed);
  result.tookMs = desktop.nowMs() - startMs;
  return result;
}

std::string setValueAt(int ms, const std::string& facts) {
  return R"({"on": {"time": )" + std::to_string(ms) + R"(}, "do": [{"set": {"element": "field", )" + facts + "}}]}";
}

TEST(PastedPrompt, IsStableAfterTwoPauses_WhenTheTextStays) {
  const FocusedField field(R"(, "value": "text")");

  const Stability result = waitFor(field.desktop, 7);

  EXPECT_TRUE(result.isStable);
  EXPECT_TRUE(result.valueExposed);
  EXPECT_EQ(result.message, "PASS: pasted prompt remained available across three checks; attempt=3");
  EXPECT_EQ(result.tookMs, 360);
  EXPECT_EQ(field.desktop.platformCalls("CoCreateInstance"), 3);
}

TEST(PastedPrompt, HoldsNothingOfThePage_DuringAPause) {
  FocusedField field(R"(, "value": "text")");
  const simulation::SleepWatch watch(field.desktop);

  EXPECT_TRUE(waitFor(field.desktop, 7).isStable);

  EXPECT_EQ(watch.comReferences(), (std::vector<std::int64_t>{0, 0}));
}

TEST(PastedPrompt, NeedsThreeGoodChecksAfterAGap_WhenTheTextGoesAndComesBack) {
  const FocusedField field(R"(, "value": "text")",
                           "[" + setValueAt(100, R"("value": "")") + "," + setValueAt(300, R"("value": "text")") + "]");

  const Stability result = waitFor(field.desktop, 7);

  EXPECT_TRUE(result.isStable);
  EXPECT_EQ(result.message, "PASS: pasted prompt remained available across three checks; attempt=5");
  EXPECT_EQ(result.tookMs, 720);
}

TEST(PastedPrompt, NeedsThreeGoodChecksAfterAGap_WhenOneCheckCannotLook) {
  for (const char* call :
       {"CoCreateInstance", "IUIAutomation::GetFocusedElement", "IUIAutomationElement::GetCurrentPatternAs",
        "IUIAutomationValuePattern::get_CurrentValue"}) {
    const FocusedField field(R"(, "value": "text")", "[]", nthCallFails(call, 2, R"("0x80004005")"));

    EXPECT_EQ(waitFor(field.desktop, 7).message,
              "PASS: pasted prompt remained available across three checks; attempt=5")
        << call;
  }
}

TEST(PastedPrompt, IsNotExposed_WhenTheFieldNeverShowsAValue) {
  const FocusedField field("");

  const Stability result = waitFor(field.desktop, 7);

  EXPECT_FALSE(result.isStable);
  EXPECT_FALSE(result.valueExposed);
  EXPECT_EQ(result.message, notExposed);
  EXPECT_EQ(result.tookMs, 7 * 180);
  EXPECT_EQ(field.desktop.platformCalls("CoCreateInstance"), 7);
}

TEST(PastedPrompt, IsNotExposed_WhenNothingHasTheFocusOrAutomationIsUnavailable) {
  {
    const SimulatedDesktop desktop(desktopJson({.page = fieldWith(R"(, "value": "text")")}));
    EXPECT_EQ(waitFor(desktop, 3).message, notExposed);
  }
  const FocusedField field(R"(, "value": "text")", "[]", everyCallFails("CoCreateInstance", R"("0x80040154")"));
  EXPECT_EQ(waitFor(field.desktop, 3).message, notExposed);
}

TEST(PastedPrompt, IsUnstable_WhenTheFieldStaysEmptyOrUnreadable) {
  for (const char* facts : {R"(, "value": "")", R"(, "value": null)", R"(, "value": "x", "unreadable": ["value"])"}) {
    const FocusedField field(facts);

    const Stability result = waitFor(field.desktop, 8);

    EXPECT_FALSE(result.isStable);
    EXPECT_TRUE(result.valueExposed);
    EXPECT_EQ(result.message, unstable) << facts;
    EXPECT_EQ(result.tookMs, 8 * 180);
  }
}

TEST(PastedPrompt, IsStable_WhenItIsASingleBlank) {
  const FocusedField field(R"(, "value": " ")");

  EXPECT_TRUE(waitFor(field.desktop, 3).isStable);
}

TEST(PastedPrompt, IsUnstable_WhenItsValueIsHiddenAfterTheFirstCheck) {
  const FocusedField field(R"(, "value": "text")", "[" + setValueAt(100, R"("without": ["value"])") + "]");

  const Stability result = waitFor(field.desktop, 7);

  EXPECT_TRUE(result.valueExposed);
  EXPECT_EQ(result.message, unstable);
}

TEST(PastedPrompt, IsNeverStable_WhenTwoChecksAreAllowed) {
  const FocusedField field(R"(, "value": "text")");

  const Stability result = waitFor(field.desktop, 2);

  EXPECT_FALSE(result.isStable);
  EXPECT_EQ(result.message, unstable);
  EXPECT_EQ(result.tookMs, 360);
}

TEST(PastedPrompt, IsNotLookedAt_WhenNoCheckIsAllowed) {
  const FocusedField field(R"(, "value": "text")");

  const Stability result = waitFor(field.desktop, 0);

  EXPECT_FALSE(result.isStable);
  EXPECT_FALSE(result.valueExposed);
  EXPECT_EQ(result.message, notExposed);
  EXPECT_EQ(result.tookMs, 0);
  EXPECT_EQ(field.desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(PastedPrompt, GetsTheMilderText_WhenTheCallerGaveNoBool) {
  const FocusedField field(R"(, "value": "")");
  std::string message;

  EXPECT_FALSE(waitForPastedPromptStable(3, message, nullptr));

  EXPECT_EQ(message, notExposed);
}

TEST(PastedPrompt, HasTheSameVerdict_WhenTheCallerGaveNoBool) {
  const FocusedField field(R"(, "value": "text")");
  std::string message;

  EXPECT_TRUE(waitForPastedPromptStable(3, message, nullptr));

  EXPECT_EQ(message, "PASS: pasted prompt remained available across three checks; attempt=3");
}

}  // namespace
}  // namespace orvane
