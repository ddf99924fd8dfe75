// Finding an enabled Send control, and waiting until it stays.
#include <gtest/gtest.h>

#include "composer/send_control.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"
#include "support/sleep_watch.h"

namespace orvane {
namespace {

using simulation::composer;
using simulation::desktopJson;
using simulation::disabledSend;
using simulation::enabledSend;
using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::pageWith;
using simulation::SimulatedDesktop;
using simulation::stop;

std::string buttonNamed(const std::string& name, const std::string& facts = "") {
  return R"(, {"type": "button", "name": ")" + name + R"(")" + facts + "}";
}

// The name found, or "<none>".
std::wstring find(const SimulatedDesktop& desktop) {
  std::wstring name = L"<none>";
  const bool isFound = findEnabledSendButton(desktop.window("browser"), &name);
  EXPECT_EQ(isFound, name != L"<none>");
  return name;
}

struct Wait {
  bool isStable = false;
  std::string message;
  std::int64_t tookMs = 0;
};

Wait waitFor(const SimulatedDesktop& desktop, int checks, int sightings) {
  Wait wait;
  const std::int64_t startMs = desktop.nowMs();
  wait.isStable = waitForStableSendButton(desktop.window("browser"), checks, wait.message, sightings);
  wait.tookMs = desktop.nowMs() - startMs;
  return wait;
}

struct NameRow {
  const char* name;
  bool isSend;
};

class SendName : public testing::TestWithParam<NameRow> {};

TEST_P(SendName, DecidesAlone_WhenTheButtonIsEnabledOnScreen) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed(GetParam().name))}));

  EXPECT_EQ(findEnabledSendButton(desktop.window("browser"), nullptr), GetParam().isSend);
}

INSTANTIATE_TEST_SUITE_P(
    Each, SendName,
    testing::Values(NameRow{"Send", true}, NameRow{"SEND MESSAGE", true}, NameRow{"Send prompt", true},
                    NameRow{"submit", true}, NameRow{"Send message now", true}, NameRow{"Please send message", true},
                    NameRow{"Submit query", true}, NameRow{"Send query", true}, NameRow{"Submit Search", true},
                    NameRow{"Send to a friend", false}, NameRow{" Send", false}, NameRow{"Send query now", false},
                    NameRow{"Resend", false}, NameRow{"Submit feedback", false}, NameRow{"", false}));

TEST(SendButton, IsFoundWithItsNameAsExposed_WhenThePageIsReady) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + stop + enabledSend)}));

  EXPECT_EQ(find(desktop), L"Send message");

  EXPECT_EQ(desktop.invocations("browser", "send"), 0);
  EXPECT_EQ(desktop.focus(), "");
  EXPECT_TRUE(desktop.keys().empty());
}

TEST(SendButton, IsTheLaterOne_WhenTwoMatch) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("Send") + buttonNamed("Submit"))}));

  EXPECT_EQ(find(desktop), L"Submit");
}

TEST(SendButton, IsTheEarlierOne_WhenTheLaterIsNotEnabledOnScreen) {
  for (const char* facts : {R"(, "enabled": false)", R"(, "offscreen": true)", R"(, "unreadable": ["enabled"])",
                            R"(, "unreadable": ["offscreen"])", R"(, "unreadable": ["name"])"}) {
    const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("Send") + buttonNamed("Submit", facts))}));

    EXPECT_EQ(find(desktop), L"Send") << facts;
  }
}

TEST(SendButton, IsNotFound_WhenItIsDisabledOrNoButtonOrHasANullName) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(disabledSend + R"(, {"type": "text", "name": "Send"})"
                                                   R"(, {"type": "button", "name": null})")}));

  EXPECT_EQ(find(desktop), L"<none>");
}

TEST(SendButton, IsSkipped_WhenGetElementFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    // The scan runs from the end of the array.
    const SimulatedDesktop desktop(
        desktopJson({.page = pageWith(buttonNamed("Send") + buttonNamed("Submit")),
                     .faults = nthCallFails("IUIAutomationElementArray::GetElement", 1, result)}));

    EXPECT_EQ(find(desktop), L"Send");
  }
}

TEST(SendButton, IsNotLookedFor_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(desktopJson({.otherWindows = R"(, {"id": "closed", "process": "chrome.exe"})"}));
  desktop.perform("browser", R"([{"closeWindow": "closed"}])");

  EXPECT_FALSE(findEnabledSendButton(nullptr, nullptr));
  EXPECT_FALSE(findEnabledSendButton(desktop.window("closed"), nullptr));

  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

class SendSearchFault : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, SendSearchFault,
                         testing::Values("CoCreateInstance", "IUIAutomation::ElementFromHandle",
                                         "IUIAutomation::CreatePropertyCondition", "IUIAutomationElement::FindAll",
                                         "IUIAutomationElementArray::get_Length",
                                         "IUIAutomationElementArray::GetElement"));

TEST_P(SendSearchFault, FindsNothing_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = pageWith(enabledSend), .faults = everyCallFails(GetParam(), result)}));

    EXPECT_EQ(find(desktop), L"<none>") << result;
  }
}

TEST(StableSend, TakesTwoPauses_WhenThreeSightingsAreRequired) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + enabledSend)}));

  const Wait wait = waitFor(desktop, 20, 3);

  EXPECT_TRUE(wait.isStable);
  EXPECT_EQ(wait.message, "PASS: stable enabled Send button confirmed 3 times; attempt=3; name=Send message");
  EXPECT_EQ(wait.tookMs, 500);
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 3);
  EXPECT_EQ(desktop.invocations("browser", "send"), 0);
}

TEST(StableSend, TellsTheRequiredNumberAndTheCheck_WhenTheButtonComesLater) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(disabledSend),
                   .rules = R"([{"on": {"time": 400}, "do": [{"set": {"element": "send", "enabled": true}}]}])"}));

  const Wait wait = waitFor(desktop, 8, 2);

  EXPECT_TRUE(wait.isStable);
  EXPECT_EQ(wait.message, "PASS: stable enabled Send button confirmed 2 times; attempt=4; name=Send message");
  EXPECT_EQ(wait.tookMs, 750);
}

TEST(StableSend, StartsAgain_WhenOneCheckFindsNothing) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(enabledSend),
                   .rules = R"([{"on": {"time": 400}, "do": [{"set": {"element": "send", "enabled": false}}]},
                                {"on": {"time": 600}, "do": [{"set": {"element": "send", "enabled": true}}]}])"}));

  const Wait wait = waitFor(desktop, 20, 3);

  EXPECT_EQ(wait.message, "PASS: stable enabled Send button confirmed 3 times; attempt=6; name=Send message");
  EXPECT_EQ(wait.tookMs, 1250);
}

TEST(StableSend, StartsAgain_WhenTheNameChangesInItsLetters) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = pageWith(enabledSend),
       .rules = R"([{"on": {"time": 400}, "do": [{"set": {"element": "send", "name": "send message"}}]}])"}));

  const Wait wait = waitFor(desktop, 20, 3);

  EXPECT_EQ(wait.message, "PASS: stable enabled Send button confirmed 3 times; attempt=5; name=send message");
}

TEST(StableSend, CountsTheName_WhenAnotherControlTakesItsPlace) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(enabledSend), .rules = R"([{"on": {"time": 100}, "do": [{"remove": "send"},
                                {"add": {"type": "button", "name": "Send message"}}]}])"}));

  EXPECT_EQ(waitFor(desktop, 8, 3).tookMs, 500);
}

TEST(StableSend, NeverComes_WhenTheNameFlipsAtEachCheck) {
  std::string rules;
  for (int check = 1; check < 8; ++check) {
    rules += std::string(check == 1 ? "" : ", ") + R"({"on": {"time": )" + std::to_string(check * 250 - 1) +
             R"(}, "do": [{"set": {"element": "send", "name": ")" + (check % 2 == 1 ? "Send" : "Submit") + R"("}}]})";
  }
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(enabledSend), .rules = "[" + rules + "]"}));

  const Wait wait = waitFor(desktop, 8, 2);

  EXPECT_FALSE(wait.isStable);
  EXPECT_EQ(wait.message, "FAIL: enabled Send button did not become stable within 8 checks");
  EXPECT_EQ(wait.tookMs, 2000);
}

TEST(StableSend, FailsAfterAPauseForEachCheck_WhenThereIsNoButton) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + disabledSend)}));

  const Wait wait = waitFor(desktop, 12, 2);

  EXPECT_FALSE(wait.isStable);
  EXPECT_EQ(wait.message, "FAIL: enabled Send button did not become stable within 12 checks");
  EXPECT_EQ(wait.tookMs, 3000);
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 12);
}

TEST(StableSend, FailsAtOnce_WhenNoCheckIsAllowed) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(enabledSend)}));

  EXPECT_EQ(waitFor(desktop, 0, 2).message, "FAIL: enabled Send button did not become stable within 0 checks");
  EXPECT_EQ(waitFor(desktop, -1, 2).message, "FAIL: enabled Send button did not become stable within -1 checks");

  EXPECT_EQ(desktop.nowMs(), 0);
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(StableSend, Fails_WhenTheWindowIsClosedMeanwhile) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = pageWith(enabledSend), .rules = R"([{"on": {"time": 300}, "do": [{"closeWindow": "browser"}]}])"}));

  EXPECT_EQ(waitFor(desktop, 4, 3).message, "FAIL: enabled Send button did not become stable within 4 checks");

  EXPECT_EQ(desktop.nowMs(), 1000);
}

TEST(StableSend, TakesTheExtendedNames_WhateverTheProvider) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("Send query"))}));

  EXPECT_EQ(waitFor(desktop, 8, 2).message,
            "PASS: stable enabled Send button confirmed 2 times; attempt=2; name=Send query");
}

TEST(StableSend, ShowsTheNameInUtf8_WhenItHasOtherLetters) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("Send message — 發送 😀"))}));

  EXPECT_EQ(waitFor(desktop, 8, 2).message,
            "PASS: stable enabled Send button confirmed 2 times; attempt=2; name=Send message — 發送 😀");
}

TEST(SendWait, HoldsNothingOfThePage_DuringAPause) {
  SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + enabledSend)}));
  const simulation::SleepWatch watch(desktop);

  EXPECT_TRUE(waitFor(desktop, 8, 3).isStable);

  EXPECT_EQ(watch.comReferences(), (std::vector<std::int64_t>{0, 0}));
}

}  // namespace
}  // namespace orvane
