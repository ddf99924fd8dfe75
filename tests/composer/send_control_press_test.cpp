// Pressing the Send control by UI Automation's Invoke.
#include <gtest/gtest.h>

#include "composer/send_control.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"

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

// The page's surroundings have four buttons of their own.
std::string buttonNamed(const std::string& id, const std::string& name, const std::string& facts = "") {
  return R"(, {"id": ")" + id + R"(", "type": "button", "name": ")" + name + R"(")" + facts + "}";
}

struct Press {
  bool isPressed = false;
  std::string message;
};

Press press(const SimulatedDesktop& desktop, const std::string& provider = "Claude") {
  Press result;
  result.isPressed = invokeSendButton(desktop.window("browser"), provider, &result.message);
  return result;
}

std::string nothingPressed(int buttons, int exactNamed, int visibleEnabled, int invokable) {
  return "No invokable Send button; buttons=" + std::to_string(buttons) + "; exactNamed=" + std::to_string(exactNamed) +
         "; visibleEnabled=" + std::to_string(visibleEnabled) + "; invokable=" + std::to_string(invokable);
}

TEST(SendPress, InvokesTheControlOnce_WhenThePageIsReady) {
  SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + stop + enabledSend)}));
  desktop.perform("browser", R"([{"focus": "composer"}])");

  const Press result = press(desktop);

  EXPECT_TRUE(result.isPressed);
  EXPECT_EQ(result.message, "PASS: invoked exact send button Send message for Claude");
  EXPECT_EQ(desktop.invocations("browser", "send"), 1);
  EXPECT_EQ(desktop.invocations("browser", "stop"), 0);
  EXPECT_EQ(desktop.invocations("browser", "attach"), 0);
  EXPECT_EQ(desktop.focus(), "browser/composer");
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.nowMs(), 0);
}

TEST(SendPress, TakesTheLaterButtonAlone_WhenTwoMatch) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(buttonNamed("first", "Send") + buttonNamed("second", "Send message now"))}));

  EXPECT_EQ(press(desktop, "chatGPT").message, "PASS: invoked exact send button Send message now for chatGPT");

  EXPECT_EQ(desktop.invocations("browser", "first"), 0);
  EXPECT_EQ(desktop.invocations("browser", "second"), 1);
}

class CommonSendName : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, CommonSendName,
                         testing::Values("Send", "SEND MESSAGE", "send prompt", "Submit", "Now send message please"));

TEST_P(CommonSendName, IsPressed_WhateverTheProvider) {
  for (const char* provider : {"Claude", "Perplexity", ""}) {
    const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("button", GetParam()))}));

    EXPECT_TRUE(press(desktop, provider).isPressed) << provider;
  }
}

class ExtendedSendName : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, ExtendedSendName, testing::Values("Submit query", "SEND QUERY", "submit search"));

TEST_P(ExtendedSendName, IsPressed_WhenTheProviderIsPerplexity) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("button", GetParam()))}));

  EXPECT_EQ(press(desktop, "PERPLEXITY").message,
            std::string("PASS: invoked exact send button ") + GetParam() + " for PERPLEXITY");

  EXPECT_EQ(desktop.invocations("browser", "button"), 1);
}

TEST_P(ExtendedSendName, SatisfiesTheWaitAlone_WhenTheProviderIsAnother) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("button", GetParam()))}));

  EXPECT_TRUE(findEnabledSendButton(desktop.window("browser"), nullptr));
  EXPECT_EQ(press(desktop, "Claude").message, nothingPressed(5, 0, 0, 0));
  EXPECT_EQ(press(desktop, "Perplexity Pro").message, nothingPressed(5, 0, 0, 0));
  EXPECT_EQ(press(desktop, "My Perplexity").message, nothingPressed(5, 0, 0, 0));

  EXPECT_EQ(desktop.invocations("browser", "button"), 0);
}

TEST(SendPress, LeavesOtherButtonsAlone_WhenTheyOnlyResembleSend) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(buttonNamed("friend", "Send to a friend") + buttonNamed("feedback", "Submit idea") +
                                    R"(, {"type": "button", "name": null})" +
                                    buttonNamed("unreadable", "Send", R"(, "unreadable": ["name"])") +
                                    R"(, {"id": "text", "type": "text", "name": "Send", "invoke": "ok"})")}));

  EXPECT_EQ(press(desktop).message, nothingPressed(8, 0, 0, 0));

  EXPECT_EQ(desktop.invocations("browser", "friend"), 0);
  EXPECT_EQ(desktop.invocations("browser", "feedback"), 0);
  EXPECT_EQ(desktop.invocations("browser", "unreadable"), 0);
  EXPECT_EQ(desktop.invocations("browser", "text"), 0);
}

TEST(SendPress, CountsWhichTestStoppedIt_WhenNoButtonTakesTheCall) {
  const std::string buttons = disabledSend + buttonNamed("offscreen", "Send", R"(, "offscreen": true)") +
                              buttonNamed("mute", "Send", R"(, "invoke": null)") +
                              buttonNamed("refusing", "Send", R"(, "invoke": "0x80004005")") +
                              buttonNamed("refusingToo", "Submit", R"(, "invoke": "0x80040200")") +
                              buttonNamed("unreadable", "Submit", R"(, "unreadable": ["enabled"])");
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttons)}));

  const Press result = press(desktop);

  EXPECT_FALSE(result.isPressed);
  EXPECT_EQ(result.message, nothingPressed(10, 6, 3, 2));
  EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 2);
  EXPECT_TRUE(desktop.keys().empty());
}

TEST(SendPress, ShowsADisabledButtonAsNamedOnly_WhenItIsTheOnlyOne) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + disabledSend)}));

  EXPECT_EQ(press(desktop).message, nothingPressed(5, 1, 0, 0));

  EXPECT_EQ(desktop.invocations("browser", "send"), 0);
}

TEST(SendPress, GoesOnWithAnEarlierButton_WhenTheLaterOneRefuses) {
  const SimulatedDesktop desktop(desktopJson(
      {.page =
           pageWith(buttonNamed("first", "Send") + buttonNamed("second", "Submit", R"(, "invoke": "0x80004005")"))}));

  EXPECT_EQ(press(desktop).message, "PASS: invoked exact send button Send for Claude");

  EXPECT_EQ(desktop.invocations("browser", "first"), 1);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 2);
}

TEST(SendPress, GoesOnWithAnEarlierButton_WhenGetElementSkipsTheLaterOne) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = pageWith(buttonNamed("first", "Send") + buttonNamed("second", "Submit")),
                     .faults = nthCallFails("IUIAutomationElementArray::GetElement", 1, result)}));

    EXPECT_TRUE(press(desktop).isPressed);

    EXPECT_EQ(desktop.invocations("browser", "first"), 1);
    EXPECT_EQ(desktop.invocations("browser", "second"), 0);
  }
}

TEST(SendPress, BelievesTheSuccess_WhenTheInvokeHasNoEffect) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("first", "Send") + enabledSend),
                                              .faults = everyCallFails("IUIAutomationInvokePattern::Invoke", "null")}));

  EXPECT_TRUE(press(desktop).isPressed);

  EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 1);
}

TEST(SendPress, FindsNothing_WhenTheControlOfTheWaitHasGone) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(enabledSend), .rules = R"([{"on": {"time": 300}, "do": [{"remove": "send"}]}])"}));
  std::string message;
  ASSERT_TRUE(waitForStableSendButton(desktop.window("browser"), 8, message, 2));
  ::Sleep(250);

  EXPECT_EQ(press(desktop).message, nothingPressed(4, 0, 0, 0));
}

TEST(SendPress, HasTheSameVerdict_WhenNoMessageIsWanted) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(enabledSend)}));

  EXPECT_TRUE(invokeSendButton(desktop.window("browser"), "Claude", nullptr));
  EXPECT_FALSE(invokeSendButton(nullptr, "Claude", nullptr));

  EXPECT_EQ(desktop.invocations("browser", "send"), 1);
}

TEST(SendPress, IsReported_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(desktopJson({.otherWindows = R"(, {"id": "closed", "process": "chrome.exe"})"}));
  desktop.perform("browser", R"([{"closeWindow": "closed"}])");
  for (const HWND window : {HWND{}, desktop.window("closed")}) {
    std::string message;

    EXPECT_FALSE(invokeSendButton(window, "Claude", &message));

    EXPECT_EQ(message, "No browser window");
  }
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

struct FaultRow {
  const char* name;
  const char* call;
  std::string message;
};

std::string faultName(const testing::TestParamInfo<FaultRow>& info) { return info.param.name; }

class SendPressFault : public testing::TestWithParam<FaultRow> {};

TEST_P(SendPressFault, IsReportedInItsWords_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = pageWith(enabledSend), .faults = everyCallFails(GetParam().call, result)}));

    const Press pressed = press(desktop);

    EXPECT_FALSE(pressed.isPressed);
    EXPECT_EQ(pressed.message, GetParam().message) << result;
    EXPECT_EQ(desktop.invocations("browser", "send"), 0);
    EXPECT_TRUE(desktop.keys().empty());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, SendPressFault,
    testing::Values(FaultRow{"Automation", "CoCreateInstance", "UI Automation unavailable"},
                    FaultRow{"Root", "IUIAutomation::ElementFromHandle", "Could not inspect browser window"},
                    FaultRow{"Condition", "IUIAutomation::CreatePropertyCondition",
                             "Could not create send-button condition"},
                    FaultRow{"Search", "IUIAutomationElement::FindAll", "No buttons exposed by browser"},
                    FaultRow{"Length", "IUIAutomationElementArray::get_Length", nothingPressed(0, 0, 0, 0)},
                    FaultRow{"Element", "IUIAutomationElementArray::GetElement", nothingPressed(5, 0, 0, 0)},
                    FaultRow{"Name", "IUIAutomationElement::get_CurrentName", nothingPressed(5, 0, 0, 0)},
                    FaultRow{"Enabled", "IUIAutomationElement::get_CurrentIsEnabled", nothingPressed(5, 1, 0, 0)},
                    FaultRow{"Pattern", "IUIAutomationElement::GetCurrentPatternAs", nothingPressed(5, 1, 1, 0)}),
    faultName);

}  // namespace
}  // namespace orvane
