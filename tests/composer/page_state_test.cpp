// Whether the prompt box stays ready, and whether the page shows that an answer is on its way.
#include <gtest/gtest.h>

#include "composer/prompt_state.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"
#include "support/sleep_watch.h"

namespace orvane {
namespace {

using simulation::composer;
using simulation::desktopJson;
using simulation::enabledSend;
using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::pageWith;
using simulation::SimulatedDesktop;
using simulation::stop;

constexpr const char* untouched = "as before";

struct Ready {
  bool isReady = false;
  std::string message;
  std::int64_t tookMs = 0;
};

Ready waitFor(const SimulatedDesktop& desktop, int checks) {
  Ready result;
  const std::int64_t startMs = desktop.nowMs();
  result.isReady = waitForPromptBoxStable(desktop.window("browser"), "Claude", checks, result.message);
  result.tookMs = desktop.nowMs() - startMs;
  return result;
}

TEST(PromptBoxReady, TakesTwoPauses_WhenTheBoxIsThereAtOnce) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer)}));

  const Ready result = waitFor(desktop, 14);

  EXPECT_TRUE(result.isReady);
  EXPECT_EQ(result.message,
            "PASS: verified prompt box remained ready across three checks; attempt=3; Verified lower-page AI prompt "
            "box focused for Claude");
  EXPECT_EQ(result.tookMs, 500);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::SetFocus"), 3);
  EXPECT_TRUE(desktop.keys().empty());
}

TEST(PromptBoxReady, HoldsNothingOfThePage_DuringAPause) {
  SimulatedDesktop desktop(desktopJson({.page = pageWith(composer)}));
  const simulation::SleepWatch watch(desktop);

  EXPECT_TRUE(waitFor(desktop, 14).isReady);

  EXPECT_EQ(watch.comReferences(), (std::vector<std::int64_t>{0, 0}));
}

TEST(PromptBoxReady, StartsAgain_WhenOneCheckIsBad) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(composer),
                   .rules = R"([{"on": {"time": 400}, "do": [{"set": {"element": "composer", "enabled": false}}]},
                    {"on": {"time": 600}, "do": [{"set": {"element": "composer", "enabled": true}}]}])"}));

  const Ready result = waitFor(desktop, 14);

  EXPECT_EQ(result.message,
            "PASS: verified prompt box remained ready across three checks; attempt=6; Verified lower-page AI prompt "
            "box focused for Claude");
  EXPECT_EQ(result.tookMs, 1250);
}

TEST(PromptBoxReady, EndsAtTheLastCheck_WhenItIsTheThirdGoodOne) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = pageWith(""),
       .rules =
           R"([{"on": {"time": 200}, "do": [{"add": {"id": "late", "type": "edit", "bounds": [300, 640, 900, 700]}}]}])"}));

  EXPECT_TRUE(waitFor(desktop, 4).isReady);

  EXPECT_EQ(desktop.nowMs(), 750);
}

TEST(PromptBoxReady, FailsWithTheLastResult_WhenTheBoxNeverComes) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith("")}));

  const Ready result = waitFor(desktop, 14);

  EXPECT_FALSE(result.isReady);
  EXPECT_EQ(result.message,
            "FAIL: prompt box did not become stable; last result=No visible keyboard-focusable prompt box found");
  EXPECT_EQ(result.tookMs, 3500);
  EXPECT_EQ(desktop.focus(), "");
}

TEST(PromptBoxReady, FailsWithAGoodLastResult_WhenTheStreakIsTooShort) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer)}));

  const Ready result = waitFor(desktop, 2);

  EXPECT_FALSE(result.isReady);
  EXPECT_EQ(result.message,
            "FAIL: prompt box did not become stable; last result=Verified lower-page AI prompt box focused for Claude");
  EXPECT_EQ(result.tookMs, 500);
}

TEST(PromptBoxReady, FailsAtOnce_WhenNoCheckIsAllowed) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer)}));

  const Ready result = waitFor(desktop, 0);

  EXPECT_FALSE(result.isReady);
  EXPECT_EQ(result.message, "FAIL: prompt box did not become stable; last result=Prompt box not ready");
  EXPECT_EQ(result.tookMs, 0);
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(PromptBoxReady, Fails_WhenTheWindowIsClosedMeanwhile) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = pageWith(composer), .rules = R"([{"on": {"time": 300}, "do": [{"closeWindow": "browser"}]}])"}));

  EXPECT_EQ(waitFor(desktop, 4).message,
            "FAIL: prompt box did not become stable; last result=No foreground browser window");
}

struct Responding {
  bool isVisible = false;
  std::string message = untouched;
};

Responding look(const SimulatedDesktop& desktop) {
  Responding result;
  result.isVisible = isRespondingControlVisible(desktop.window("browser"), &result.message);
  return result;
}

std::string buttonNamed(const std::string& name, const std::string& facts = "") {
  return R"(, {"id": "control", "type": "button", "name": ")" + name + R"(")" + facts + "}";
}

class StopName : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, StopName,
                         testing::Values("Stop response", "STOP GENERATING", "Stop generation", "cancel Response"));

TEST_P(StopName, TellsThatAnAnswerIsOnItsWay_WhenItsButtonIsVisible) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + buttonNamed(GetParam()))}));

  const Responding result = look(desktop);

  EXPECT_TRUE(result.isVisible);
  EXPECT_EQ(result.message, std::string("PASS: AI responding control is visible: ") + GetParam());
  EXPECT_EQ(desktop.invocations("browser", "control"), 0);
  EXPECT_EQ(desktop.focus(), "");
  EXPECT_EQ(desktop.nowMs(), 0);
}

TEST_P(StopName, TellsNothing_WhenItsButtonIsNotEnabledOnScreen) {
  for (const char* facts : {R"(, "enabled": false)", R"(, "offscreen": true)", R"(, "unreadable": ["enabled"])",
                            R"(, "unreadable": ["offscreen"])", R"(, "unreadable": ["name"])"}) {
    const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed(GetParam(), facts))}));

    const Responding result = look(desktop);

    EXPECT_FALSE(result.isVisible) << facts;
    EXPECT_EQ(result.message, "No visible AI responding control found");
  }
}

TEST(RespondingControl, IsNotSeen_WhenTheNameIsNotWholeAndExact) {
  for (const char* name : {"Stop", "Stop response now", " Stop response", "Stop streaming", "Cancel"}) {
    const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed(name))}));

    EXPECT_FALSE(look(desktop).isVisible) << name;
  }
}

TEST(RespondingControl, IsNotSeen_WhenItIsNoButtonOrHasANullName) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(R"(, {"type": "text", "name": "Stop response"},
                                                                   {"type": "button", "name": null})")}));

  EXPECT_EQ(look(desktop).message, "No visible AI responding control found");
}

TEST(RespondingControl, IsTheLaterOne_WhenTwoAreVisible) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(stop + buttonNamed("Cancel response") + enabledSend)}));

  EXPECT_EQ(look(desktop).message, "PASS: AI responding control is visible: Cancel response");
}

TEST(RespondingControl, IsTheEarlierOne_WhenGetElementSkipsTheLater) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = pageWith(stop + buttonNamed("Cancel response")),
                     .faults = nthCallFails("IUIAutomationElementArray::GetElement", 1, result)}));

    EXPECT_EQ(look(desktop).message, "PASS: AI responding control is visible: Stop response");
  }
}

TEST(RespondingControl, LeavesTheTextAlone_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(desktopJson({.otherWindows = R"(, {"id": "closed", "process": "chrome.exe"})"}));
  desktop.perform("browser", R"([{"closeWindow": "closed"}])");
  std::string message = untouched;

  EXPECT_FALSE(isRespondingControlVisible(nullptr, &message));
  EXPECT_FALSE(isRespondingControlVisible(desktop.window("closed"), &message));

  EXPECT_EQ(message, untouched);
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

class RespondingFault : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, RespondingFault,
                         testing::Values("CoCreateInstance", "IUIAutomation::ElementFromHandle",
                                         "IUIAutomation::CreatePropertyCondition", "IUIAutomationElement::FindAll"));

TEST_P(RespondingFault, LeavesTheTextAlone_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(desktopJson({.page = pageWith(stop), .faults = everyCallFails(GetParam(), result)}));

    const Responding responding = look(desktop);

    EXPECT_FALSE(responding.isVisible);
    EXPECT_EQ(responding.message, untouched) << result;
  }
}

TEST(RespondingControl, HasTheSameVerdict_WhenNoMessageIsWanted) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(stop)}));

  EXPECT_TRUE(isRespondingControlVisible(desktop.window("browser"), nullptr));
}

}  // namespace
}  // namespace orvane
