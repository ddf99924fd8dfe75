// Which control verifyPromptBox takes for the composer.
#include <gtest/gtest.h>

#include <vector>

#include "composer/prompt_box_verdict.h"
#include "support/browser_page.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using simulation::composer;
using simulation::desktopJson;
using simulation::disabledSend;
using simulation::nthCallFails;
using simulation::pageWith;
using simulation::SimulatedDesktop;
using simulation::stop;

constexpr const char* nothingFound = "No visible keyboard-focusable prompt box found";
constexpr const char* verifiedForClaude = "Verified lower-page AI prompt box focused for Claude";

// Reading is all that happens beside the focus.
void expectUntouched(const SimulatedDesktop& desktop) {
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationValuePattern::SetValue"), 0);
  EXPECT_EQ(desktop.nowMs(), 0);
}

std::string edit(const std::string& id, const std::string& name, const std::string& bounds) {
  return R"({"id": ")" + id + R"(", "type": "edit", "name": ")" + name + R"(", "bounds": )" + bounds + "}";
}

TEST(PromptBox, IsTheComposer_WhenThePageHasAllItsSurroundings) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer + disabledSend + stop)}));

  const Verdict verdict = verify(desktop);

  EXPECT_TRUE(verdict.isVerified);
  EXPECT_EQ(verdict.message, verifiedForClaude);
  EXPECT_EQ(desktop.focus(), "browser/composer");
  EXPECT_EQ(desktop.value("browser", "composer"), "");
  expectUntouched(desktop);
}

TEST(PromptBox, IsReportedWithTheProvidersNameAsGiven_WhenItsLettersDiffer) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer)}));

  EXPECT_EQ(verify(desktop, "cLAUDE").message, "Verified lower-page AI prompt box focused for cLAUDE");
}

TEST(PromptBox, HasTheSameVerdict_WhenNoMessageIsWanted) {
  const SimulatedDesktop good(desktopJson({.page = pageWith(composer)}));
  EXPECT_TRUE(verifyPromptBox(good.window("browser"), "Claude", nullptr));
  EXPECT_FALSE(verifyPromptBox(nullptr, "Claude", nullptr));
}

TEST(PromptBox, IsReadFactByFactInOneOrder_BeforeAndAfterItTakesTheFocus) {
  SimulatedDesktop desktop(desktopJson({.page = "[" + edit("field", "Prompt", "[300, 640, 1100, 700]") + "]"}));
  std::vector<std::string> calls;
  desktop.world().books().watch(
      [&calls](std::string_view call, const simulation::Window*, const simulation::Element* element) {
        if (element != nullptr && element->facts.id == "field") {
          calls.emplace_back(call);
        }
      });

  EXPECT_TRUE(verify(desktop).isVerified);

  desktop.world().books().watch({});
  const std::string element = "IUIAutomationElement::";
  EXPECT_EQ(calls,
            (std::vector<std::string>{"IUIAutomationElementArray::GetElement", element + "get_CurrentControlType",
                                      element + "get_CurrentName", element + "get_CurrentIsEnabled",
                                      element + "get_CurrentIsOffscreen", element + "get_CurrentBoundingRectangle",
                                      element + "get_CurrentIsKeyboardFocusable", element + "SetFocus",
                                      "IUIAutomation::GetFocusedElement", element + "get_CurrentName",
                                      element + "get_CurrentIsEnabled", element + "get_CurrentIsKeyboardFocusable",
                                      element + "get_CurrentIsOffscreen", element + "get_CurrentBoundingRectangle"}));
}

TEST(PromptBox, NeedsNoAddress_WhenTheProviderIsNotPerplexity) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(composer), .address = "https://example.org/"}));

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::GetCurrentPropertyValue"), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomation::CreateTrueCondition"), 0);
}

TEST(PromptBox, IsRefusedByItsName_WhenItIsAPageSearchBoxInTheLowerPart) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith("")}));

  const Verdict verdict = verify(desktop);

  EXPECT_FALSE(verdict.isVerified);
  EXPECT_EQ(verdict.message, nothingFound);
  EXPECT_EQ(desktop.focus(), "");
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::SetFocus"), 0);
}

class BrowserFieldWord : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, BrowserFieldWord,
                         testing::Values("Search messages", "Address", "Type a URL", "OmniBox prompt", "reSEARCHer"));

TEST_P(BrowserFieldWord, RefusesTheControl_WhenItStandsInTheName) {
  const SimulatedDesktop desktop(desktopJson({.page = "[" + edit("field", GetParam(), "[300, 640, 1100, 700]") + "]"}));

  EXPECT_EQ(verify(desktop).message, nothingFound);

  EXPECT_EQ(desktop.focus(), "");
}

TEST(PromptBox, IsRefusedByTheLine_WhenItIsTheOnlyControlAndStandsAtTheTop) {
  const SimulatedDesktop desktop(
      desktopJson({.page = "[" + edit("field", "", "[100, 45, 1100, 75]") + "]", .window = R"(, "addressBar": null)"}));

  EXPECT_EQ(verify(desktop).message, nothingFound);

  EXPECT_EQ(desktop.focus(), "");
}

struct LineRow {
  const char* name;
  const char* window;
  int top;
  bool isVerified;
};

std::string lineName(const testing::TestParamInfo<LineRow>& info) { return info.param.name; }

class LowerPageLine : public testing::TestWithParam<LineRow> {};

// 55 percent of the window's height below its top, cut to whole pixels.
INSTANTIATE_TEST_SUITE_P(Each, LowerPageLine,
                         testing::Values(LineRow{"OnTheLine", "[0, 0, 1200, 800]", 440, true},
                                         LineRow{"OnePixelAbove", "[0, 0, 1200, 800]", 439, false},
                                         LineRow{"MovedWindowOnTheLine", "[50, 101, 1200, 902]", 541, true},
                                         LineRow{"MovedWindowOnePixelAbove", "[50, 101, 1200, 902]", 540, false},
                                         LineRow{"UpperMonitorOnTheLine", "[0, -900, 1200, -99]", -460, true},
                                         LineRow{"UpperMonitorOnePixelAbove", "[0, -900, 1200, -99]", -461, false},
                                         // 55 x 900,000,000 in 32 bits is -2,039,607,552.
                                         LineRow{"WrappedOnTheLine", "[0, 0, 1200, 900000000]", -20396075, true},
                                         LineRow{"WrappedOnePixelAbove", "[0, 0, 1200, 900000000]", -20396076, false}),
                         lineName);

TEST_P(LowerPageLine, DecidesByTheTopEdgeAlone_WhenAControlTouchesIt) {
  const int top = GetParam().top;
  const std::string bounds = "[300, " + std::to_string(top) + ", 900, " + std::to_string(top + 4000) + "]";
  const SimulatedDesktop desktop(
      desktopJson({.page = "[" + edit("field", "Prompt", bounds) + "]", .bounds = GetParam().window}));

  EXPECT_EQ(verify(desktop).isVerified, GetParam().isVerified);
}

struct UnfitRow {
  const char* name;
  const char* facts;  // of the composer, each with a comma in front
};

std::string unfitName(const testing::TestParamInfo<UnfitRow>& info) { return info.param.name; }

class UnfitComposer : public testing::TestWithParam<UnfitRow> {};

TEST_P(UnfitComposer, IsNoCandidate_WhenOneTestFails) {
  const std::string page =
      std::string(R"([{"id": "field", "type": "edit", "name": "Prompt", "bounds": [300, 640, 1100, 700])") +
      GetParam().facts + "}]";
  const SimulatedDesktop desktop(desktopJson({.page = page}));

  EXPECT_EQ(verify(desktop).message, nothingFound);

  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::SetFocus"), 0);
}

INSTANTIATE_TEST_SUITE_P(Each, UnfitComposer,
                         testing::Values(UnfitRow{"Disabled", R"(, "enabled": false)"},
                                         UnfitRow{"Offscreen", R"(, "offscreen": true)"},
                                         UnfitRow{"NotFocusable", R"(, "focusable": false)"},
                                         UnfitRow{"UnreadableEnabled", R"(, "unreadable": ["enabled"])"},
                                         UnfitRow{"UnreadableOffscreen", R"(, "unreadable": ["offscreen"])"},
                                         UnfitRow{"UnreadableBounds", R"(, "unreadable": ["bounds"])"},
                                         UnfitRow{"UnreadableType", R"(, "unreadable": ["controlType"])"},
                                         UnfitRow{"UnreadableFocusable", R"(, "unreadable": ["focusable"])"}),
                         unfitName);

TEST(PromptBox, IsNoCandidate_WhenItHasNoSize) {
  for (const char* bounds : {"[300, 640, 300, 700]", "[300, 640, 900, 640]", "[900, 640, 300, 700]", "[0, 0, 0, 0]"}) {
    const SimulatedDesktop desktop(desktopJson({.page = "[" + edit("field", "Prompt", bounds) + "]"}));

    EXPECT_EQ(verify(desktop).message, nothingFound) << bounds;
  }
}

TEST(PromptBox, IsNeverADocument_WhenTheProviderIsNotPerplexity) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = R"([{"id": "page", "type": "document", "name": "Ask anything", "bounds": [300, 640, 1100, 700]}])"}));

  EXPECT_EQ(verify(desktop).message, nothingFound);

  EXPECT_EQ(desktop.focus(), "");
}

TEST(PromptBox, IsTheFirstInTheTree_WhenTwoScoreTheSame) {
  const SimulatedDesktop desktop(desktopJson({.page = "[" + edit("first", "Prompt", "[300, 640, 1100, 700]") + "," +
                                                      edit("second", "Prompt", "[300, 710, 1100, 770]") + "]"}));

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/first");
}

TEST(PromptBox, IsTheNarrowNamedEdit_WhenAWideOneHasNoName) {
  const SimulatedDesktop desktop(desktopJson({.page = "[" + edit("wide", "", "[0, 450, 1200, 750]") + "," +
                                                      edit("narrow", "Prompt", "[0, 755, 250, 795]") + "]"}));

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/narrow");
}

TEST(PromptBox, IsTheWiderOne_WhenATallerOneIsNotAbove300PixelsWide) {
  const SimulatedDesktop desktop(desktopJson({.page = "[" + edit("tall", "Notes", "[0, 450, 300, 790]") + "," +
                                                      edit("wide", "Notes", "[400, 450, 701, 451]") + "]"}));

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/wide");
}

TEST(PromptBox, IsTheLargerOne_WhenNothingElseTellsThemApart) {
  const SimulatedDesktop desktop(desktopJson({.page = "[" + edit("small", "Notes", "[0, 450, 400, 460]") + "," +
                                                      edit("large", "Notes", "[0, 470, 400, 481]") + "]"}));

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/large");
}

struct WeightRow {
  const char* test;
  std::string first;
  std::string second;
  const char* focus;
};

class Weight : public testing::TestWithParam<WeightRow> {};

TEST_P(Weight, IsExact_ToThePixelOfArea) {
  const SimulatedDesktop desktop(desktopJson({.page = "[" + GetParam().first + "," + GetParam().second + "]"}));

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), std::string("browser/") + GetParam().focus);
}

// A prompt word is worth 2,000,000,000 and a width above 300 is worth 500,000,000. The message box of 48,000 pixels has
// both, so that an edit without a word needs 2,000,048,000 pixels to be its equal: the first of the two is then taken.
const std::string messageBox = edit("message", "Message ChatGPT", "[300, 640, 1100, 700]");
const std::string equalRival = edit("rival", "Notes", "[0, 500, 1000, 2000548]");
INSTANTIATE_TEST_SUITE_P(Each, Weight,
                         testing::Values(WeightRow{"NameBeatsArea", edit("wide", "Notes", "[0, 500, 50000, 30500]"),
                                                   edit("named", "Prompt", "[0, 500, 20, 520]"), "named"},
                                         WeightRow{"AreaBeatsName", edit("wide", "Notes", "[0, 500, 50000, 30501]"),
                                                   edit("named", "Prompt", "[0, 500, 20, 520]"), "wide"},
                                         WeightRow{"WidthBeatsArea", edit("tall", "Notes", "[0, 500, 300, 1667167]"),
                                                   edit("wide", "Notes", "[0, 500, 301, 501]"), "wide"},
                                         WeightRow{"AreaBeatsWidth", edit("tall", "Notes", "[0, 500, 300, 1667168]"),
                                                   edit("wide", "Notes", "[0, 500, 301, 501]"), "tall"},
                                         WeightRow{"MessageBoxInFrontOfItsEqual", messageBox, equalRival, "message"},
                                         WeightRow{"MessageBoxBehindItsEqual", equalRival, messageBox, "rival"}),
                         nameOfRow<WeightRow>);

class PromptWord : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, PromptWord,
                         testing::Values("Your PROMPT", "Message", "Chat", "Ask", "Claude", "GEMINI", "ChatGPT"));

TEST_P(PromptWord, OutweighsWidthAndArea_WhenItStandsInTheName) {
  const SimulatedDesktop desktop(desktopJson({.page = "[" + edit("large", "Notes", "[0, 450, 1200, 750]") + "," +
                                                      edit("named", GetParam(), "[0, 755, 20, 775]") + "]"}));

  EXPECT_TRUE(verify(desktop).isVerified);

  EXPECT_EQ(desktop.focus(), "browser/named");
}

TEST(PromptBox, CanBeWithoutAName_WhenItsNameIsNullOrUnreadable) {
  for (const char* name : {R"("name": null)", R"("name": "Search", "unreadable": ["name"])"}) {
    const SimulatedDesktop desktop(desktopJson({.page = std::string(R"([{"id": "field", "type": "edit", )") + name +
                                                        R"(, "bounds": [300, 640, 1100, 700]}])"}));

    EXPECT_EQ(verify(desktop).message, verifiedForClaude) << name;
  }
}

TEST(PromptBox, IsTheNextOne_WhenGetElementSkipsAnIndex) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = "[" + edit("best", "Prompt", "[300, 640, 1100, 700]") + "," +
                             edit("next", "", "[300, 710, 400, 730]") + "]",
                     .faults = std::string(R"([{"call": "IUIAutomationElementArray::GetElement", "element": "best",
                                                "result": )") +
                               result + "}]"}));

    EXPECT_TRUE(verify(desktop).isVerified) << result;

    EXPECT_EQ(desktop.focus(), "browser/next");
  }
}

TEST(PromptBox, IsSearchedWithTheOtherConditionAlone_WhenOneCouldNotBeMade) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop withEdits(desktopJson(
        {.page = pageWith(composer), .faults = nthCallFails("IUIAutomation::CreatePropertyCondition", 2, result)}));
    EXPECT_TRUE(verify(withEdits).isVerified);
    EXPECT_EQ(withEdits.platformCalls("IUIAutomation::CreateOrCondition"), 0);
  }
  const SimulatedDesktop withDocuments(
      desktopJson({.page = pageWith(composer),
                   .faults = nthCallFails("IUIAutomation::CreatePropertyCondition", 1, R"("0x80004005")")}));
  EXPECT_EQ(verify(withDocuments).message, nothingFound);
  EXPECT_EQ(withDocuments.platformCalls("IUIAutomation::CreateOrCondition"), 0);
}

}  // namespace
}  // namespace orvane
