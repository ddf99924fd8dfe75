#include "composer/chatgpt_composer.h"

#include <gtest/gtest.h>

#include "support/browser_page.h"
#include "support/simulated_desktop.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::desktopJson;
using simulation::nthCallFails;
using simulation::pageWith;
using simulation::SimulatedDesktop;

constexpr const wchar_t* plainTitle = L"Plan - ChatGPT - Google Chrome";
constexpr const wchar_t* workTitle = L"Plan · Work - Google Chrome";
constexpr const char* proven = "PASS: selected tab exposes a verified lower-page ChatGPT composer";

struct Proof {
  bool isProven = false;
  TraceLog trace;
};

Proof prove(const SimulatedDesktop& desktop, const std::wstring& title = plainTitle) {
  const UiaSession session;
  UiaElement root;
  if (session) {
    session.elementFromHandle(desktop.window("browser"), root);
  }
  Proof proof;
  proof.isProven = verifyChatGptComposer(session, root, title, &proof.trace);
  return proof;
}

// Proven, and told in the trace by the one step; or not, and no step is there.
void expectProof(const Proof& proof, bool isProven) {
  EXPECT_EQ(proof.isProven, isProven);
  EXPECT_EQ(stepNames(proof.trace),
            isProven ? std::vector<std::string>{"ChatGPT content verification"} : std::vector<std::string>{});
  EXPECT_EQ(resultsOf(proof.trace, "ChatGPT content verification"),
            isProven ? std::vector<std::string>{proven} : std::vector<std::string>{});
}

// One field of a page in a window that is 800 pixels high.
std::string fieldPage(const std::string& facts, const std::string& bounds = "[300, 640, 1100, 700]") {
  return pageWith(R"(, {"id": "field", "bounds": )" + bounds + ", " + facts + "}");
}

TEST(ChatGptComposer, IsProvenAndTold_WhenItStandsInTheLowerPage) {
  const SimulatedDesktop desktop(
      desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT", "value": "")")}));

  const Proof proof = prove(desktop);

  expectProof(proof, true);
  EXPECT_EQ(desktop.focus(), "");
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::SetFocus"), 0);
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.nowMs(), 0);
}

TEST(ChatGptComposer, HasTheSameVerdict_WhenThereIsNoTrace) {
  const SimulatedDesktop desktop(desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")")}));
  const UiaSession session;
  UiaElement root;
  session.elementFromHandle(desktop.window("browser"), root);

  EXPECT_TRUE(verifyChatGptComposer(session, root, plainTitle, nullptr));
}

struct IdentityRow {
  const char* name;
  const char* facts;
  const wchar_t* title;
  bool isProven;
};

std::string identityName(const testing::TestParamInfo<IdentityRow>& info) { return info.param.name; }

class ComposerIdentity : public testing::TestWithParam<IdentityRow> {};

TEST_P(ComposerIdentity, DecidesByNameAndAutomationId_WhenTheFieldStandsRight) {
  const SimulatedDesktop desktop(desktopJson({.page = fieldPage(GetParam().facts)}));

  expectProof(prove(desktop, GetParam().title), GetParam().isProven);
}

INSTANTIATE_TEST_SUITE_P(
    Each, ComposerIdentity,
    testing::Values(
        IdentityRow{"Name", R"("type": "edit", "name": "Please MESSAGE ChatGPT here")", plainTitle, true},
        IdentityRow{"AutomationId", R"("type": "edit", "automationId": "Prompt-TextArea-2")", plainTitle, true},
        IdentityRow{"Document", R"("type": "document", "automationId": "prompt-textarea")", plainTitle, true},
        IdentityRow{"Pane", R"("type": "pane", "focusable": true, "automationId": "prompt-textarea")", plainTitle,
                    false},
        IdentityRow{"OtherField", R"("type": "edit", "name": "Notes")", plainTitle, false},
        IdentityRow{"AskAnything", R"("type": "edit", "name": "Ask anything")", plainTitle, false},
        IdentityRow{"Prompt", R"("type": "edit", "name": "Prompt")", plainTitle, false},
        IdentityRow{"Message", R"("type": "edit", "name": "Your message")", plainTitle, false},
        IdentityRow{"WorkAskAnything", R"("type": "edit", "name": "ASK ANYTHING you like")", workTitle, true},
        IdentityRow{"WorkPrompt", R"("type": "edit", "name": "PROMPT")", workTitle, true},
        IdentityRow{"WorkLongerPrompt", R"("type": "edit", "name": "Prompt library")", workTitle, false},
        IdentityRow{"WorkMessage", R"("type": "edit", "name": "Your message")", workTitle, true},
        IdentityRow{"WorkOtherField", R"("type": "edit", "name": "Notes")", workTitle, false},
        IdentityRow{"WorkMarkInOtherLetters", R"("type": "edit", "name": "Your message")", L"Plan · WORK", true},
        IdentityRow{"WordWorkWithoutTheMark", R"("type": "edit", "name": "Your message")", L"Plan - Work", false},
        IdentityRow{"NullName", R"("type": "edit", "name": null)", workTitle, false}),
    identityName);

struct PlaceRow {
  const char* name;
  const char* bounds;
  bool isProven;
};

std::string placeName(const testing::TestParamInfo<PlaceRow>& info) { return info.param.name; }

class ChatGptComposerPlace : public testing::TestWithParam<PlaceRow> {};

// The line lies at 45 percent of the window: 360.
TEST_P(ChatGptComposerPlace, DecidesByWidthAndTop_WhenTheFieldIsNamed) {
  const SimulatedDesktop desktop(
      desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")", GetParam().bounds)}));

  expectProof(prove(desktop), GetParam().isProven);
}

INSTANTIATE_TEST_SUITE_P(Each, ChatGptComposerPlace,
                         testing::Values(PlaceRow{"OnTheLine", "[300, 360, 1100, 700]", true},
                                         PlaceRow{"OnePixelAbove", "[300, 359, 1100, 700]", false},
                                         PlaceRow{"LeastWidth", "[300, 640, 550, 700]", true},
                                         PlaceRow{"OnePixelNarrower", "[300, 640, 549, 700]", false},
                                         PlaceRow{"WithoutHeight", "[300, 640, 1100, 640]", true}),
                         placeName);

TEST(ChatGptComposer, IsMeasuredFromTheWindowsTop_WhenTheWindowIsMoved) {
  for (const int top : {99, 100}) {
    // The window's top is at -260; 45 percent of 801, cut to whole pixels, is 360.
    const std::string bounds = "[300, " + std::to_string(top) + ", 1100, 400]";
    const SimulatedDesktop desktop(desktopJson(
        {.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")", bounds), .bounds = "[0, -260, 1200, 541]"}));

    expectProof(prove(desktop), top == 100);
  }
}

TEST(ChatGptComposer, IsMeasuredInWholePixels_WhateverTheWindowsHeight) {
  struct Line {
    int height;
    int top;  // 45 percent of the height, cut
  };
  for (const auto& [height, line] : {Line{850, 382}, Line{100'000'000, 45'000'000}}) {
    for (const int top : {line - 1, line}) {
      const std::string bounds = "[300, " + std::to_string(top) + ", 1100, " + std::to_string(top + 60) + "]";
      const SimulatedDesktop desktop(
          desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")", bounds),
                       .bounds = "[0, 0, 1200, " + std::to_string(height) + "]"}));

      expectProof(prove(desktop), top == line);
    }
  }
}

TEST(ChatGptComposer, IsNotProven_WhenTheWindowHasNoHeight) {
  const SimulatedDesktop desktop(
      desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")"), .bounds = "[0, 0, 1200, 0]"}));

  expectProof(prove(desktop), false);
}

TEST(ChatGptComposer, NeedNotBeEnabled_WhenItIsFocusableOnScreen) {
  const SimulatedDesktop desktop(
      desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT", "enabled": false)")}));

  expectProof(prove(desktop), true);
}

TEST(ChatGptComposer, IsNotProven_WhenOneOfItsFactsIsMissing) {
  for (const char* facts :
       {R"("offscreen": true)", R"("focusable": false)", R"("unreadable": ["offscreen"])",
        R"("unreadable": ["focusable"])", R"("unreadable": ["bounds"])", R"("unreadable": ["name"])"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = fieldPage(std::string(R"("type": "edit", "name": "Message ChatGPT", )") + facts)}));

    expectProof(prove(desktop), false);
  }
}

TEST(ChatGptComposer, IsProvenOnce_WhenTwoFieldsFit) {
  const std::string field = R"(, {"type": "edit", "name": "Message ChatGPT", "bounds": [300, 640, 1100, 700]})";
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(field + field)}));

  expectProof(prove(desktop), true);
}

TEST(ChatGptComposer, IsFoundBehindAnother_WhenGetElementSkipsAnIndex) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")"),
                     .faults = nthCallFails("IUIAutomationElementArray::GetElement", 1, result)}));

    expectProof(prove(desktop), true);
  }
}

struct FaultRow {
  const char* name;
  const char* call;
  int nth;
};

std::string faultName(const testing::TestParamInfo<FaultRow>& info) { return info.param.name; }

class ComposerProofFault : public testing::TestWithParam<FaultRow> {};

TEST_P(ComposerProofFault, LeavesItUnproven_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")"),
                                                .faults = nthCallFails(GetParam().call, GetParam().nth, result)}));

    expectProof(prove(desktop), false);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, ComposerProofFault,
                         testing::Values(FaultRow{"Session", "CoCreateInstance", 1},
                                         FaultRow{"Edits", "IUIAutomation::CreatePropertyCondition", 1},
                                         FaultRow{"Documents", "IUIAutomation::CreatePropertyCondition", 2},
                                         FaultRow{"Join", "IUIAutomation::CreateOrCondition", 1},
                                         FaultRow{"Search", "IUIAutomationElement::FindAll", 1},
                                         FaultRow{"Length", "IUIAutomationElementArray::get_Length", 1},
                                         FaultRow{"RootBounds", "IUIAutomationElement::get_CurrentBoundingRectangle",
                                                  1}),
                         faultName);

TEST(ChatGptComposer, IsNotProven_WhenThereIsNoRoot) {
  const SimulatedDesktop desktop(
      desktopJson({.page = fieldPage(R"("type": "edit", "name": "Message ChatGPT")"), .window = R"(, "uia": false)"}));

  expectProof(prove(desktop), false);
}

}  // namespace
}  // namespace orvane
