// verifyPromptBox on Perplexity: its host, its sign-in panel, its named composer and the focus in it.
#include <gtest/gtest.h>

#include "composer/prompt_box_verdict.h"
#include "support/browser_page.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using simulation::BrowserPage;
using simulation::desktopJson;
using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::SimulatedDesktop;

constexpr const char* urlNotVerified = "Perplexity URL not verified; nothing pasted";
constexpr const char* signInVisible =
    "Perplexity sign-in panel visible; nothing pasted. Make page ready manually, then retry.";
constexpr const char* exactEdit =
    "Verified Perplexity composer; role=50004; namedCandidates=1; browserFocusable=true; focus=exact element";
constexpr const char* editThroughProxy =
    "Verified Perplexity composer; role=50004; namedCandidates=1; browserFocusable=true; focus=contained proxy";
constexpr const char* focusElsewhere =
    "Perplexity composer focus not verified; focused control is not the named composer or its contained proxy; "
    "nothing pasted";
constexpr const char* noCondition = "Could not create prompt-search condition";
constexpr const char* composerFirst =
    R"({"id": "composer", "type": "edit", "name": "Ask anything...", "value": "", "bounds": [300, 400, 1100, 500]})";

Verdict verifyPerplexity(const SimulatedDesktop& desktop) { return verify(desktop, "Perplexity"); }

// The composer and further elements, each with a comma in front.
BrowserPage perplexity(const std::string& others = "", const std::string& rules = "[]",
                       const std::string& faults = "[]") {
  return {.page = std::string("[") + composerFirst + others + "]",
          .rules = rules,
          .faults = faults,
          .title = "Lisbon - Perplexity",
          .address = "https://www.perplexity.ai/search/lisbon"};
}

std::string messageOn(const BrowserPage& page) { return verifyPerplexity(SimulatedDesktop(desktopJson(page))).message; }

BrowserPage onlyElement(const std::string& element) {
  BrowserPage page = perplexity();
  page.page = "[" + element + "]";
  return page;
}

TEST(PerplexityBox, IsTheNamedEdit_WhenItTakesTheFocusItself) {
  const SimulatedDesktop desktop(desktopJson(perplexity()));

  const Verdict verdict = verifyPerplexity(desktop);

  EXPECT_TRUE(verdict.isVerified);
  EXPECT_EQ(verdict.message, exactEdit);
  EXPECT_EQ(desktop.focus(), "browser/composer");
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.nowMs(), 0);
}

TEST(PerplexityBox, CanBeADocument_WhenItIsNamed) {
  const SimulatedDesktop desktop(desktopJson(onlyElement(
      R"({"id": "composer", "type": "document", "name": "Ask a follow-up", "bounds": [300, 600, 1100, 700]})")));

  EXPECT_EQ(verifyPerplexity(desktop).message,
            "Verified Perplexity composer; role=50030; namedCandidates=1; browserFocusable=true; focus=exact element");
}

TEST(PerplexityBox, IsTheEdit_WhenALargerDocumentIsNamedToo) {
  const SimulatedDesktop desktop(desktopJson(
      perplexity(R"(, {"id": "page", "type": "document", "name": "Ask anything", "bounds": [0, 200, 1200, 800]})")));

  EXPECT_EQ(verifyPerplexity(desktop).message,
            "Verified Perplexity composer; role=50004; namedCandidates=2; browserFocusable=true; focus=exact element");
  EXPECT_EQ(desktop.focus(), "browser/composer");
}

class PerplexityName : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, PerplexityName,
                         testing::Values("Ask anything", "ASK A FOLLOW-UP question", "Ask follow-up"));

TEST_P(PerplexityName, MakesAControlTheComposer_WhenItStandsInTheName) {
  const SimulatedDesktop desktop(
      desktopJson(onlyElement(std::string(R"({"id": "composer", "type": "edit", "name": ")") + GetParam() +
                              R"(", "bounds": [300, 600, 1100, 700]})")));

  EXPECT_TRUE(verifyPerplexity(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/composer");
}

TEST(PerplexityBox, FollowsTheCommonRules_WhenTheProvidersNameIsLonger) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = R"([{"id": "composer", "type": "edit", "name": "Prompt", "bounds": [300, 600, 1100, 700]}])"}));

  for (const char* name : {"Perplexity Pro", "My Perplexity"}) {
    EXPECT_EQ(verify(desktop, name).message, std::string("Verified lower-page AI prompt box focused for ") + name);
  }
}

class WrongAddress : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, WrongAddress,
                         testing::Values("https://labs.perplexity.ai/", "https://example.org/?to=perplexity.ai",
                                         "https://perplexity.ai.example.org/", "", "https://claude.ai/new"));

TEST_P(WrongAddress, StopsTheOperation_WhenTheWindowShowsIt) {
  BrowserPage page = perplexity();
  page.address = GetParam();
  const SimulatedDesktop desktop(desktopJson(page));

  const Verdict verdict = verifyPerplexity(desktop);

  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(verdict.message, urlNotVerified);
  EXPECT_EQ(desktop.focus(), "");
}

class SignInWord : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, SignInWord,
                         testing::Values("Continue with Google", "CONTINUE WITH APPLE", "Or continue with email",
                                         "Login or sign up for free"));

TEST_P(SignInWord, StopsTheOperation_WhenAVisibleControlHasIt) {
  const SimulatedDesktop desktop(
      desktopJson(perplexity(std::string(R"(, {"id": "signIn", "type": "button", "name": ")") + GetParam() + R"("})")));

  const Verdict verdict = verifyPerplexity(desktop);

  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(verdict.message, signInVisible);
  EXPECT_EQ(desktop.focus(), "");
  EXPECT_EQ(desktop.invocations("browser", "signIn"), 0);
}

TEST_P(SignInWord, StopsNothing_WhenItsControlIsOffscreen) {
  for (const char* hidden : {R"("offscreen": true)", R"("unreadable": ["offscreen"])"}) {
    const SimulatedDesktop desktop(desktopJson(perplexity(
        std::string(R"(, {"id": "signIn", "type": "button", "name": ")") + GetParam() + R"(", )" + hidden + "}")));

    EXPECT_EQ(verifyPerplexity(desktop).message, exactEdit);
  }
}

TEST(SignInPanel, IsNotLookedFor_WhenTheHostIsWrong) {
  BrowserPage page = perplexity(R"(, {"id": "signIn", "type": "button", "name": "Continue with Google"})");
  page.address = "https://example.org/";
  const SimulatedDesktop desktop(desktopJson(page));

  EXPECT_EQ(verifyPerplexity(desktop).message, urlNotVerified);

  EXPECT_EQ(desktop.platformCalls("IUIAutomation::CreateTrueCondition"), 0);
}

TEST(SignInPanel, IsNotSeen_WhenAControlHasNoName) {
  const SimulatedDesktop desktop(desktopJson(perplexity(R"(, {"id": "signIn", "type": "button", "name": null})")));

  EXPECT_TRUE(verifyPerplexity(desktop).isVerified);
}

TEST(SignInPanel, IsSkippedSilently_WhenItsConditionOrSearchFails) {
  const std::string panel = R"(, {"id": "signIn", "type": "button", "name": "Continue with Google"})";
  for (const char* result : {R"("0x80004005")", "null"}) {
    EXPECT_EQ(messageOn(perplexity(panel, "[]", nthCallFails("IUIAutomation::CreateTrueCondition", 1, result))),
              exactEdit);
    // The first search is the address bar's, the second the panel's.
    EXPECT_EQ(messageOn(perplexity(panel, "[]", nthCallFails("IUIAutomationElement::FindAll", 2, result))), exactEdit);
  }
}

TEST(PerplexitySearch, UsesEditsAndDocuments_WhenTheTrueConditionFails) {
  const std::string button =
      R"(, {"id": "named", "type": "button", "name": "Ask anything", "bounds": [0, 600, 9, 609]})";
  const SimulatedDesktop desktop(
      desktopJson(perplexity(button, "[]", everyCallFails("IUIAutomation::CreateTrueCondition", "null"))));

  // The button is no part of this search, so it isn't counted.
  EXPECT_EQ(verifyPerplexity(desktop).message, exactEdit);
}

TEST(PerplexitySearch, HasNoCondition_WhenTheJoinFailsAlthoughTheTrueConditionWorks) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson(perplexity("", "[]", everyCallFails("IUIAutomation::CreateOrCondition", result))));

    EXPECT_EQ(verifyPerplexity(desktop).message, noCondition);

    // The panel's; the search stops before it asks for its own.
    EXPECT_EQ(desktop.platformCalls("IUIAutomation::CreateTrueCondition"), 1);
  }
}

TEST(PerplexitySearch, SurvivesOneFailedConditionAndNotTwo) {
  // The first is the address reader's; behind it come the two of the search.
  for (const int nth : {2, 3}) {
    EXPECT_EQ(
        messageOn(perplexity("", "[]", nthCallFails("IUIAutomation::CreatePropertyCondition", nth, R"("0x80004005")"))),
        exactEdit);
  }
  EXPECT_EQ(messageOn(perplexity("", "[]", R"([{"call": "IUIAutomation::CreatePropertyCondition", "nth": 2, "times": 2,
                                                "result": "0x80004005"}])")),
            noCondition);
}

TEST(PerplexitySearch, IsReported_WhenItFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson(perplexity("", "[]", nthCallFails("IUIAutomationElement::FindAll", 3, result))));

    EXPECT_EQ(verifyPerplexity(desktop).message, "No editable controls exposed by browser");
  }
}

TEST(PerplexitySearch, CountsWhatItSaw_WhenNoControlIsTheComposer) {
  const std::string elements = R"([
      {"id": "unnamed", "type": "edit", "name": "Notes", "bounds": [300, 600, 1100, 700]},
      {"id": "field", "type": "edit", "name": "Search: ask anything", "bounds": [300, 600, 1100, 700]},
      {"id": "disabled", "type": "edit", "name": "Ask anything", "enabled": false, "bounds": [300, 600, 1100, 700]},
      {"id": "hidden", "type": "edit", "name": "Ask anything", "offscreen": true, "bounds": [300, 600, 1100, 700]},
      {"id": "flat", "type": "edit", "name": "Ask anything", "bounds": [300, 600, 300, 700]},
      {"id": "button", "type": "button", "name": "Ask anything", "bounds": [300, 600, 1100, 700]},
      {"id": "pane", "type": "pane", "name": "Ask follow-up", "bounds": [300, 600, 1100, 700]},
      {"id": "high", "type": "edit", "name": "Ask anything", "focusable": false, "bounds": [300, 100, 1100, 159]}])";
  BrowserPage page = perplexity();
  page.page = elements;
  const SimulatedDesktop desktop(desktopJson(page));

  const Verdict verdict = verifyPerplexity(desktop);

  // Beside the page: the row of tabs, its tab, the address bar and the document.
  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(
      verdict.message,
      "No verified Perplexity composer; scannedControls=12; named=6; visible=3; nonFocusableNamed=1; wrongType=2");
  EXPECT_EQ(desktop.focus(), "");
}

TEST(PerplexityLine, IsTwentyPercent_WhenAControlTouchesIt) {
  const std::string front = R"({"id": "composer", "type": "edit", "name": "Ask anything", "bounds": [300, )";
  EXPECT_EQ(messageOn(onlyElement(front + "160, 1100, 300]}")), exactEdit);
  EXPECT_EQ(messageOn(onlyElement(front + "159, 1100, 300]}")),
            "No verified Perplexity composer; scannedControls=5; named=1; visible=1; nonFocusableNamed=0; wrongType=0");
}

TEST(PerplexityBox, StaysACandidate_WhenItIsNotKeyboardFocusable) {
  const std::string front = R"({"id": "composer", "type": "edit", "name": "Ask anything", "focusable": false,
                                "bounds": [300, 600, 1100, 700], "acceptsFocus": )";
  EXPECT_EQ(messageOn(onlyElement(front + "true}")),
            "Verified Perplexity composer; role=50004; namedCandidates=1; browserFocusable=false; focus=exact element");
  EXPECT_EQ(messageOn(onlyElement(front + "false}")), "Prompt box found, but SetFocus failed");
}

struct ProxyRow {
  const char* name;
  const char* proxy;  // its facts
  const char* message;
};

std::string proxyName(const testing::TestParamInfo<ProxyRow>& info) { return info.param.name; }

class PerplexityProxy : public testing::TestWithParam<ProxyRow> {};

TEST_P(PerplexityProxy, DecidesByItsPlace_WhenItTakesTheFocus) {
  const SimulatedDesktop desktop(
      desktopJson(perplexity(std::string(R"(, {"id": "proxy", "type": "pane", )") + GetParam().proxy + "}",
                             R"([{"on": {"focus": "composer"}, "do": [{"focus": "proxy"}]}])")));

  const Verdict verdict = verifyPerplexity(desktop);

  EXPECT_EQ(verdict.message, GetParam().message);
  EXPECT_EQ(verdict.isVerified, verdict.message == editThroughProxy);
  EXPECT_EQ(desktop.focus(), "browser/proxy");
  EXPECT_TRUE(desktop.keys().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Each, PerplexityProxy,
    testing::Values(
        ProxyRow{"Inside", R"("bounds": [310, 410, 1090, 490])", editThroughProxy},
        ProxyRow{"SamePlace", R"("bounds": [300, 400, 1100, 500])", editThroughProxy},
        ProxyRow{"UnusableButInside", R"("bounds": [310, 410, 320, 420], "enabled": false)", editThroughProxy},
        ProxyRow{"OnePixelLeft", R"("bounds": [299, 400, 1100, 500])", focusElsewhere},
        ProxyRow{"OnePixelAbove", R"("bounds": [300, 399, 1100, 500])", focusElsewhere},
        ProxyRow{"OnePixelRight", R"("bounds": [300, 400, 1101, 500])", focusElsewhere},
        ProxyRow{"OnePixelBelow", R"("bounds": [300, 400, 1100, 501])", focusElsewhere},
        ProxyRow{"WithoutSize", R"("bounds": [310, 410, 310, 490])", focusElsewhere},
        ProxyRow{"Unreadable", R"("bounds": [310, 410, 1090, 490], "unreadable": ["bounds"])", focusElsewhere},
        ProxyRow{"NamedSearch", R"("name": "Search", "bounds": [310, 410, 1090, 490])",
                 "Browser search/address field detected; message was not sent"}),
    proxyName);

struct LateRow {
  const char* test;
  const char* change;  // of the composer, while a proxy at its first place takes the focus
  const char* message;
};

class ComposerAtItsFocus : public testing::TestWithParam<LateRow> {};

TEST_P(ComposerAtItsFocus, IsMeasuredAsItStandsThen_WhenAProxyTakesTheFocus) {
  const SimulatedDesktop desktop(desktopJson(perplexity(
      R"(, {"id": "proxy", "type": "pane", "focusable": true, "bounds": [310, 610, 1090, 690]})",
      std::string(R"([{"on": {"focus": "composer"}, "do": [)") + GetParam().change + R"(, {"focus": "proxy"}]}])")));

  EXPECT_EQ(verifyPerplexity(desktop).message, GetParam().message);

  EXPECT_EQ(desktop.focus(), "browser/proxy");
}

INSTANTIATE_TEST_SUITE_P(
    Each, ComposerAtItsFocus,
    testing::Values(LateRow{"MovesAroundTheProxy",
                            R"({"set": {"element": "composer", "bounds": [300, 600, 1100, 700]}})", editThroughProxy},
                    LateRow{"MovesAwayFromTheProxy", R"({"set": {"element": "proxy", "bounds": [310, 410, 1090, 490]}},
                                            {"set": {"element": "composer", "bounds": [300, 600, 1100, 700]}})",
                            focusElsewhere},
                    LateRow{"BecomesUnreadable", R"({"set": {"element": "proxy", "bounds": [310, 410, 1090, 490]}},
                                        {"set": {"element": "composer", "unreadable": ["bounds"]}})",
                            focusElsewhere},
                    LateRow{"IsGone",
                            R"({"set": {"element": "proxy", "bounds": [310, 410, 1090, 490]}}, {"remove": "composer"})",
                            focusElsewhere}),
    nameOfRow<LateRow>);

struct DocumentRow {
  const char* test;
  const char* bounds;  // of a document that is a composer by its name, beside an edit of 20 x 20 pixels
  const char* focus;
};

class DocumentOfArea : public testing::TestWithParam<DocumentRow> {};

// An edit is worth 3,000,000,000; the document is wide, which is worth 500,000,000.
TEST_P(DocumentOfArea, IsTheComposer_WhenItsAreaOutweighsTheEdit) {
  const SimulatedDesktop desktop(desktopJson(onlyElement(
      std::string(R"({"id": "document", "type": "document", "name": "Ask anything", "bounds": )") + GetParam().bounds +
      R"(}, {"id": "edit", "type": "edit", "name": "Ask anything", "bounds": [0, 500, 20, 520]})")));

  EXPECT_TRUE(verifyPerplexity(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), GetParam().focus);
}

INSTANTIATE_TEST_SUITE_P(Each, DocumentOfArea,
                         testing::Values(DocumentRow{"TooSmall", "[0, 500, 50000, 50500]", "browser/edit"},
                                         DocumentRow{"LargeEnough", "[0, 500, 50000, 50501]", "browser/document"}),
                         nameOfRow<DocumentRow>);

TEST(PerplexityFocus, CountsAsAProxyOfItself_WhenItCannotBeCompared) {
  const SimulatedDesktop desktop(
      desktopJson(perplexity("", "[]", everyCallFails("IUIAutomation::CompareElements", R"("0x80004005")"))));

  EXPECT_EQ(verifyPerplexity(desktop).message, editThroughProxy);
}

TEST(PerplexityFocus, IsRefused_WhenItsOwnBoundsCannotBeReadAnyMore) {
  const SimulatedDesktop desktop(desktopJson(perplexity(
      "", R"([{"on": {"focus": "composer"}, "do": [{"set": {"element": "composer", "unreadable": ["bounds"]}}]}])")));

  EXPECT_EQ(verifyPerplexity(desktop).message, "Focused control is not a verified lower-page AI prompt box");
}

TEST(PerplexityFocus, IsRefused_WhenItMovedAboveTheLine) {
  const SimulatedDesktop desktop(desktopJson(perplexity(
      "",
      R"([{"on": {"focus": "composer"}, "do": [{"set": {"element": "composer", "bounds": [300, 100, 900, 159]}}]}])")));

  EXPECT_EQ(verifyPerplexity(desktop).message, "Focused control is not a verified lower-page AI prompt box");
}

}  // namespace
}  // namespace orvane
