// What verifyPromptBox says of the control that really has the focus, and of calls that fail.
#include <gtest/gtest.h>

#include "composer/prompt_box_verdict.h"
#include "support/browser_page.h"

namespace orvane {
namespace {

using simulation::composer;
using simulation::desktopJson;
using simulation::everyCallFails;
using simulation::pageWith;
using simulation::SimulatedDesktop;

constexpr const char* notInTheLowerPage = "Focused control is not a verified lower-page AI prompt box";
constexpr const char* throughProxy = "Verified lower-page ChatGPT composer focused through UIA proxy";
constexpr const char* focusUnverified = "Prompt focus could not be verified";

// The page moves the focus on to another control as soon as the composer gets it.
simulation::BrowserPage movesFocusTo(const std::string& element, const std::string& other = "") {
  return {.page = pageWith(composer + other),
          .rules = R"([{"on": {"focus": "composer"}, "do": [{"focus": ")" + element + R"("}]}])"};
}

TEST(PromptFocus, IsRefused_WhenTheBrowserMovesItToTheAddressBar) {
  for (const char* provider : {"Claude", "ChatGPT"}) {
    const SimulatedDesktop desktop(desktopJson(movesFocusTo("addressBar")));

    const Verdict verdict = verify(desktop, provider);

    EXPECT_FALSE(verdict.isVerified);
    EXPECT_EQ(verdict.message, "Browser search/address field detected; message was not sent");
    EXPECT_EQ(desktop.focus(), "browser/addressBar");
    EXPECT_TRUE(desktop.keys().empty());
  }
}

TEST(PromptFocus, IsRefused_WhenItLandsInAPageSearchBox) {
  const SimulatedDesktop desktop(desktopJson(movesFocusTo("sideSearch")));

  EXPECT_EQ(verify(desktop).message, "Browser search/address field detected; message was not sent");
}

TEST(PromptFocus, IsAccepted_WhenAnotherUsableControlBelowTheLineTakesIt) {
  const SimulatedDesktop desktop(desktopJson(movesFocusTo("attach")));

  const Verdict verdict = verify(desktop);

  EXPECT_TRUE(verdict.isVerified);
  EXPECT_EQ(verdict.message, "Verified lower-page AI prompt box focused for Claude");
  EXPECT_EQ(desktop.focus(), "browser/attach");
  EXPECT_EQ(desktop.platformCalls("IUIAutomation::CompareElements"), 0);
}

struct ProxyRow {
  const char* name;
  const char* facts;
};

std::string proxyName(const testing::TestParamInfo<ProxyRow>& info) { return info.param.name; }

class UnusableProxy : public testing::TestWithParam<ProxyRow> {
 protected:
  static simulation::BrowserPage page() {
    return movesFocusTo("proxy",
                        std::string(R"(, {"id": "proxy", "type": "pane", "focusable": true)") + GetParam().facts + "}");
  }
};

INSTANTIATE_TEST_SUITE_P(
    Each, UnusableProxy,
    testing::Values(ProxyRow{"ZeroRectangle", R"(, "bounds": [0, 0, 0, 0])"},
                    ProxyRow{"AboveTheLine", R"(, "bounds": [300, 439, 900, 700])"},
                    ProxyRow{"Disabled", R"(, "bounds": [300, 640, 900, 700], "enabled": false)"},
                    ProxyRow{"Offscreen", R"(, "bounds": [300, 640, 900, 700], "offscreen": true)"},
                    ProxyRow{"NotFocusable", R"(, "bounds": [300, 640, 900, 700], "focusable": false)"},
                    ProxyRow{"UnreadableBounds", R"(, "bounds": [300, 640, 900, 700], "unreadable": ["bounds"])"}),
    proxyName);

TEST_P(UnusableProxy, FailsTheVerdict_WhenTheProviderIsNotChatGpt) {
  const SimulatedDesktop desktop(desktopJson(page()));

  const Verdict verdict = verify(desktop);

  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(verdict.message, notInTheLowerPage);
  EXPECT_EQ(desktop.focus(), "browser/proxy");
  EXPECT_FALSE(verifyPromptBox(desktop.window("browser"), "Claude", nullptr));
}

TEST_P(UnusableProxy, IsAccepted_WhenTheProvidersNameHoldsChatGpt) {
  for (const char* provider : {"ChatGPT", "My CHATGPT account"}) {
    const SimulatedDesktop desktop(desktopJson(page()));

    const Verdict verdict = verify(desktop, provider);

    EXPECT_TRUE(verdict.isVerified);
    EXPECT_EQ(verdict.message, throughProxy);
    EXPECT_TRUE(verifyPromptBox(desktop.window("browser"), provider, nullptr));
  }
}

TEST(PromptFocus, IsVerifiedWithoutTheProxy_WhenTheChatGptComposerItselfHasIt) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer)}));

  EXPECT_EQ(verify(desktop, "ChatGPT").message, "Verified lower-page AI prompt box focused for ChatGPT");
}

TEST(PromptFocus, IsRefusedByTheControl_WhenItDoesNotAcceptIt) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = R"([{"id": "field", "type": "edit", "bounds": [300, 640, 900, 700], "acceptsFocus": false}])"}));

  const Verdict verdict = verify(desktop);

  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(verdict.message, "Prompt box found, but SetFocus failed");
  EXPECT_EQ(desktop.platformCalls("IUIAutomation::GetFocusedElement"), 0);
}

TEST(PromptFocus, CannotBeVerified_WhenThePageTakesItAway) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = pageWith(composer), .rules = R"([{"on": {"focus": "composer"}, "do": [{"focus": null}]}])"}));

  EXPECT_EQ(verify(desktop).message, focusUnverified);
}

TEST(PromptFocus, CannotBeVerified_WhenAnotherWindowIsInFront) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer),
                                              .otherWindows = R"(, {"id": "editor", "process": "editor.exe"})",
                                              .foreground = R"("editor")"}));

  EXPECT_EQ(verify(desktop).message, focusUnverified);
}

TEST(PromptFocus, IsNotGivenBack_WhenTheVerdictIsNegative) {
  SimulatedDesktop desktop(desktopJson(movesFocusTo("addressBar")));
  desktop.perform("browser", R"([{"focus": "newChat"}])");

  EXPECT_FALSE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/addressBar");
}

TEST(PromptBox, IsNotLookedFor_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(desktopJson({.otherWindows = R"(, {"id": "closed", "process": "chrome.exe"})"}));
  desktop.perform("browser", R"([{"closeWindow": "closed"}])");
  for (const HWND window : {HWND{}, desktop.window("closed")}) {
    std::string message;

    EXPECT_FALSE(verifyPromptBox(window, "Claude", &message));

    EXPECT_EQ(message, "No foreground browser window");
  }
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(PromptBox, CannotBeInspected_WhenTheWindowHidesItsControls) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer), .window = R"(, "uia": false)"}));

  EXPECT_EQ(verify(desktop).message, "Could not inspect foreground window");
}

struct FaultRow {
  const char* name;
  const char* call;
  const char* result;
  const char* message;
  bool focusMoved;
};

std::string faultName(const testing::TestParamInfo<FaultRow>& info) { return info.param.name; }

class PromptBoxFault : public testing::TestWithParam<FaultRow> {};

TEST_P(PromptBoxFault, IsReportedInItsWords_WhenTheCallFails) {
  SimulatedDesktop desktop(
      desktopJson({.page = pageWith(composer), .faults = everyCallFails(GetParam().call, GetParam().result)}));
  desktop.perform("browser", R"([{"focus": "newChat"}])");

  const Verdict verdict = verify(desktop);

  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(verdict.message, GetParam().message);
  EXPECT_FALSE(verifyPromptBox(desktop.window("browser"), "Claude", nullptr));
  EXPECT_EQ(desktop.focus(), GetParam().focusMoved ? "browser/composer" : "browser/newChat");
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.nowMs(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Each, PromptBoxFault,
    testing::Values(
        FaultRow{"AutomationError", "CoCreateInstance", R"("0x80040154")", "UI Automation unavailable", false},
        FaultRow{"AutomationNull", "CoCreateInstance", "null", "UI Automation unavailable", false},
        FaultRow{"RootError", "IUIAutomation::ElementFromHandle", R"("0x80040201")",
                 "Could not inspect foreground window", false},
        FaultRow{"RootNull", "IUIAutomation::ElementFromHandle", "null", "Could not inspect foreground window", false},
        FaultRow{"ConditionError", "IUIAutomation::CreatePropertyCondition", R"("0x80004005")",
                 "Could not create prompt-search condition", false},
        FaultRow{"ConditionNull", "IUIAutomation::CreatePropertyCondition", "null",
                 "Could not create prompt-search condition", false},
        FaultRow{"JoinError", "IUIAutomation::CreateOrCondition", R"("0x80004005")",
                 "Could not create prompt-search condition", false},
        FaultRow{"JoinNull", "IUIAutomation::CreateOrCondition", "null", "Could not create prompt-search condition",
                 false},
        FaultRow{"SearchError", "IUIAutomationElement::FindAll", R"("0x80004005")",
                 "No editable controls exposed by browser", false},
        FaultRow{"SearchNull", "IUIAutomationElement::FindAll", "null", "No editable controls exposed by browser",
                 false},
        FaultRow{"LengthError", "IUIAutomationElementArray::get_Length", R"("0x80004005")",
                 "No visible keyboard-focusable prompt box found", false},
        FaultRow{"ElementError", "IUIAutomationElementArray::GetElement", R"("0x80004005")",
                 "No visible keyboard-focusable prompt box found", false},
        FaultRow{"WindowPlace", "GetWindowRect", "false", "No visible keyboard-focusable prompt box found", false},
        FaultRow{"FocusError", "IUIAutomationElement::SetFocus", R"("0x80131509")",
                 "Prompt box found, but SetFocus failed", false},
        FaultRow{"FocusWithoutEffect", "IUIAutomationElement::SetFocus", "null", notInTheLowerPage, false},
        FaultRow{"FocusedError", "IUIAutomation::GetFocusedElement", R"("0x80004005")", focusUnverified, true},
        FaultRow{"FocusedNull", "IUIAutomation::GetFocusedElement", "null", focusUnverified, true}),
    faultName);

}  // namespace
}  // namespace orvane
