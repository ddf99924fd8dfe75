// verifyPromptBox on Perplexity: its host, its sign-in panel, its named composer and the focus in it.
#include <gtest/gtest.h>

#include "composer/prompt_box.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"

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
constexpr const char* composerFirst =
    R"({"id": "composer", "type": "edit", "name": "Ask anything...", "value": "", "bounds": [300, 400, 1100, 500]})";

struct Verdict {
  bool isVerified = false;
  std::string message;
};

Verdict verify(const SimulatedDesktop& desktop, const std::string& provider = "Perplexity") {
  Verdict verdict;
  verdict.isVerified = verifyPromptBox(desktop.window("browser"), provider, &verdict.message);
  return verdict;
}
// The composer and further elements, each with a comma in front.
BrowserPage perplexity(const std::string& others = "", const std::string& rules = "[]",
                       const std::string& faults = "[]") {
  return {.page = std::string("[") + composerFirst + others + "]",
          .rules = rules,
          .faults = faults,
          .title = "Lisbon - Perplexity",
          .address = "https://www.perplexity.ai/search/lisbon"};
}

std::string messageOn(const BrowserPage& page) { return verify(SimulatedDesktop(desktopJson(page))).message; }

BrowserPage onlyElement(const std::string& element) {
  BrowserPage page = perplexity();
  page.page = "[" + element + "]";
  return page;
}

TEST(PerplexityBox, IsTheNamedEdit_WhenItTakesTheFocusItself) {
  const SimulatedDesktop desktop(desktopJson(perplexity()));

  const Verdict verdict = verify(desktop);

  EXPECT_TRUE(verdict.isVerified);
  EXPECT_EQ(verdict.message, exactEdit);
  EXPECT_EQ(desktop.focus(), "browser/composer");
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.nowMs(), 0);
}

TEST(PerplexityBox, CanBeADocument_WhenItIsNamed) {
  const SimulatedDesktop desktop(desktopJson(onlyElement(
      R"({"id": "composer", "type": "document", "name": "Ask a follow-up", "bounds": [300, 600, 1100, 700]})")));

  EXPECT_EQ(verify(desktop).message,
            "Verified Perplexity composer; role=50030; namedCandidates=1; browserFocusable=true; focus=exact element");
}

TEST(PerplexityBox, IsTheEdit_WhenALargerDocumentIsNamedToo) {
  const SimulatedDesktop desktop(desktopJson(
      perplexity(R"(, {"id": "page", "type": "document", "name": "Ask anything", "bounds": [0, 200, 1200, 800]})")));

  EXPECT_EQ(verify(desktop).message,
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

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/composer");
}

TEST(PerplexityBox, FollowsTheCommonRules_WhenTheProvidersNameIsLonger) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = R"([{"id": "composer", "type": "edit", "name": "Prompt", "bounds": [300, 600, 1100, 700]}])"}));

  EXPECT_EQ(verify(desktop, "Perplexity Pro").message, "Verified lower-page AI prompt box focused for Perplexity Pro");
}

class WrongAddress : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, WrongAddress,
                         testing::Values("https://labs.perplexity.ai/", "https://example.org/?to=perplexity.ai",
                                         "https://perplexity.ai.example.org/", "", "https://claude.ai/new"));

TEST_P(WrongAddress, StopsTheOperation_WhenTheWindowShowsIt) {
  BrowserPage page = perplexity();
  page.address = GetParam();
  const SimulatedDesktop desktop(desktopJson(page));

  const Verdict verdict = verify(desktop);

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

  const Verdict verdict = verify(desktop);

  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(verdict.message, signInVisible);
  EXPECT_EQ(desktop.focus(), "");
  EXPECT_EQ(desktop.invocations("browser", "signIn"), 0);
}

TEST_P(SignInWord, StopsNothing_WhenItsControlIsOffscreen) {
  for (const char* hidden : {R"("offscreen": true)", R"("unreadable": ["offscreen"])"}) {
    const SimulatedDesktop desktop(desktopJson(perplexity(
        std::string(R"(, {"id": "signIn", "type": "button", "name": ")") + GetParam() + R"(", )" + hidden + "}")));

    EXPECT_EQ(verify(desktop).message, exactEdit);
  }
}

TEST(SignInPanel, IsNotSeen_WhenAControlHasNoName) {
  const SimulatedDesktop desktop(desktopJson(perplexity(R"(, {"id": "signIn", "type": "button", "name": null})")));

  EXPECT_TRUE(verify(desktop).isVerified);
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
  EXPECT_EQ(verify(desktop).message, exactEdit);
}

TEST(PerplexitySearch, IsReported_WhenItFails) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson(perplexity("", "[]", nthCallFails("IUIAutomationElement::FindAll", 3, result))));

    EXPECT_EQ(verify(desktop).message, "No editable controls exposed by browser");
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

  const Verdict verdict = verify(desktop);

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

  const Verdict verdict = verify(desktop);

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

TEST(PerplexityFocus, CountsAsAProxyOfItself_WhenItCannotBeCompared) {
  const SimulatedDesktop desktop(
      desktopJson(perplexity("", "[]", everyCallFails("IUIAutomation::CompareElements", R"("0x80004005")"))));

  EXPECT_EQ(verify(desktop).message, editThroughProxy);
}

TEST(PerplexityFocus, IsRefused_WhenItsOwnBoundsCannotBeReadAnyMore) {
  const SimulatedDesktop desktop(desktopJson(perplexity(
      "", R"([{"on": {"focus": "composer"}, "do": [{"set": {"element": "composer", "unreadable": ["bounds"]}}]}])")));

  EXPECT_EQ(verify(desktop).message, "Focused control is not a verified lower-page AI prompt box");
}

TEST(PerplexityFocus, IsRefused_WhenItMovedAboveTheLine) {
  const SimulatedDesktop desktop(desktopJson(perplexity(
      "",
      R"([{"on": {"focus": "composer"}, "do": [{"set": {"element": "composer", "bounds": [300, 100, 900, 159]}}]}])")));

  EXPECT_EQ(verify(desktop).message, "Focused control is not a verified lower-page AI prompt box");
}

}  // namespace
}  // namespace orvane
