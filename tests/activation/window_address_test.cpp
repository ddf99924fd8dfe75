// The reader of a window's address bar and the exact test of its host.
#include <gtest/gtest.h>

#include "provider_identity/address_reader.h"
#include "support/browser_page.h"
#include "support/row_name.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::desktopJson;
using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::SimulatedDesktop;

constexpr const char* noBar = R"(, "addressBar": null)";

std::wstring readAddress(const SimulatedDesktop& desktop) {
  const UiaSession session;
  UiaElement root;
  session.elementFromHandle(desktop.window("browser"), root);
  const std::wstring address = readWindowAddress(session, root);
  EXPECT_EQ(readWindowAddress(session, desktop.window("browser")), address);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::SetFocus"), 0);
  return address;
}

// A window without an address bar of its own, whose page has one edit control.
std::string withField(const std::string& facts) {
  return desktopJson({.page = R"([{"id": "field", "type": "edit", )" + facts + "}]", .window = noBar});
}

TEST(WindowAddress, IsTheAddressBarsValue_WhenTheBrowserShowsIt) {
  const SimulatedDesktop desktop(desktopJson({.address = "https://claude.ai/chat/9f2c?a=b#c"}));

  EXPECT_EQ(readAddress(desktop), L"https://claude.ai/chat/9f2c?a=b#c");
}

TEST(WindowAddress, IsEmpty_WhenThereIsNoSessionRootOrBar) {
  {
    const SimulatedDesktop desktop(desktopJson({.window = noBar}));
    EXPECT_EQ(readAddress(desktop), L"");
    EXPECT_EQ(readWindowAddress(UiaSession(), UiaElement()), L"");
  }
  const SimulatedDesktop unavailable(desktopJson({.faults = everyCallFails("CoCreateInstance", "null")}));
  EXPECT_EQ(readWindowAddress(UiaSession(), UiaElement()), L"");
}

TEST(WindowAddress, IsEmpty_WhenTheBarShowsAnUnknownHostWithoutAScheme) {
  const SimulatedDesktop desktop(desktopJson({.address = "example.org/claude"}));

  EXPECT_EQ(readAddress(desktop), L"");
}

TEST(WindowAddress, NeedsNoScheme_WhenItNamesAProvider) {
  const SimulatedDesktop desktop(desktopJson({.address = "perplexity.ai/search"}));

  EXPECT_EQ(readAddress(desktop), L"perplexity.ai/search");
}

struct FieldRow {
  const char* name;
  const char* facts;
  bool isRead;
};

std::string fieldName(const testing::TestParamInfo<FieldRow>& info) { return info.param.name; }

class AddressField : public testing::TestWithParam<FieldRow> {};

// The window is 800 high: its upper part ends at 280.
TEST_P(AddressField, IsToldByItsWordsOrItsPlace_WhenItHoldsAnAddress) {
  const SimulatedDesktop desktop(withField(std::string(R"("value": "https://claude.ai/new", )") + GetParam().facts));

  EXPECT_EQ(readAddress(desktop), GetParam().isRead ? L"https://claude.ai/new" : L"");
}

INSTANTIATE_TEST_SUITE_P(
    Each, AddressField,
    testing::Values(FieldRow{"NamedAddress", R"("name": "ADDRESS and search bar", "bounds": [0, 700, 5, 705])", true},
                    FieldRow{"NamedLocation", R"("name": "Location")", true},
                    FieldRow{"OmniboxById", R"("automationId": "TheOmniBox", "offscreen": true)", true},
                    FieldRow{"LocationByClass", R"("className": "LocationBarView", "unreadable": ["bounds"])", true},
                    FieldRow{"WordAcrossTwoNames", R"("name": "loca", "automationId": "tion")", false},
                    FieldRow{"NamelessInPlace", R"("bounds": [100, 40, 900, 80])", true},
                    FieldRow{"LeastWidth", R"("bounds": [100, 40, 280, 80])", true},
                    FieldRow{"OnePixelNarrower", R"("bounds": [100, 40, 279, 80])", false},
                    FieldRow{"GreatestHeight", R"("bounds": [100, 40, 900, 160])", true},
                    FieldRow{"OnePixelHigher", R"("bounds": [100, 40, 900, 161])", false},
                    FieldRow{"LeastHeight", R"("bounds": [100, 40, 900, 41])", true},
                    FieldRow{"WithoutHeight", R"("bounds": [100, 40, 900, 40])", false},
                    FieldRow{"LowestTop", R"("bounds": [100, 279, 900, 300])", true},
                    FieldRow{"TopBelowTheUpperPart", R"("bounds": [100, 280, 900, 300])", false},
                    FieldRow{"AtTheWindowsTop", R"("bounds": [100, 0, 900, 40])", true},
                    FieldRow{"AboveTheWindow", R"("bounds": [100, -1, 900, 39])", false},
                    FieldRow{"UnreadablePlace", R"("bounds": [100, 40, 900, 80], "unreadable": ["bounds"])", false}),
    fieldName);

struct UpperPartRow {
  const char* test;
  const char* windowBounds;
  int lowestTop;
};

class UpperPart : public testing::TestWithParam<UpperPartRow> {};

TEST_P(UpperPart, EndsAt35PercentCutToAWholePixel_HoweverHighTheWindow) {
  for (const int belowLowestTop : {0, 1}) {
    const int top = GetParam().lowestTop + belowLowestTop;
    const SimulatedDesktop desktop(
        desktopJson({.page = R"([{"type": "edit", "value": "https://claude.ai/new", "bounds": [100, )" +
                             std::to_string(top) + ", 900, " + std::to_string(top + 40) + "]}]",
                     .window = noBar,
                     .bounds = GetParam().windowBounds}));

    EXPECT_EQ(readAddress(desktop), belowLowestTop == 0 ? L"https://claude.ai/new" : L"") << top;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, UpperPart,
                         testing::Values(UpperPartRow{"NoHundreds", "[0, 0, 1200, 850]", 296},
                                         UpperPartRow{"LessThanAHundred", "[0, 0, 1200, 99]", 33},
                                         UpperPartRow{"TwoThousandMillions", "[0, -1000000000, 1200, 1000000000]",
                                                      -300'000'001}),
                         nameOfRow<UpperPartRow>);

struct TextRow {
  const char* name;
  const char* facts;
  const wchar_t* address;
};

std::string textName(const testing::TestParamInfo<TextRow>& info) { return info.param.name; }

class AddressText : public testing::TestWithParam<TextRow> {};

TEST_P(AddressText, IsTheFirstThatIsAnAddress_WhenTheFieldHasSeveral) {
  const SimulatedDesktop desktop(withField(std::string(R"("automationId": "omnibox", )") + GetParam().facts));

  EXPECT_EQ(readAddress(desktop), GetParam().address);
}

INSTANTIATE_TEST_SUITE_P(
    Each, AddressText,
    testing::Values(
        TextRow{"Value", R"("value": "http://a.org", "legacyValue": "http://b.org", "helpText": "http://c.org")",
                L"http://a.org"},
        TextRow{"LegacyValue", R"("value": "typed text", "legacyValue": "http://b.org", "helpText": "http://c.org")",
                L"http://b.org"},
        TextRow{"HelpText", R"("helpText": "HTTPS://c.org", "name": "http://d.org")", L"HTTPS://c.org"},
        TextRow{"Name", R"("value": null, "name": "https://d.org")", L"https://d.org"},
        TextRow{"NullValue", R"("value": null)", L""},
        TextRow{"Unreadable", R"("value": "http://a.org", "unreadable": ["value"], "helpText": "http://c.org")",
                L"http://c.org"},
        TextRow{"NoAddress", R"("value": "", "name": "Address and search bar")", L""}),
    textName);

TEST(WindowAddress, ComesFromTheValueProperty_WhenThePatternIsNotGiven) {
  const SimulatedDesktop desktop(
      desktopJson({.faults = everyCallFails("IUIAutomationElement::GetCurrentPatternAs", R"("0x80004005")")}));

  EXPECT_EQ(readAddress(desktop), L"https://claude.ai/chat/9f2c");
}

TEST(WindowAddress, IsThePatternsValue_WhenNoPropertyCanBeRead) {
  const SimulatedDesktop desktop(
      desktopJson({.faults = everyCallFails("IUIAutomationElement::GetCurrentPropertyValue", R"("0x80004005")")}));

  EXPECT_EQ(readAddress(desktop), L"https://claude.ai/chat/9f2c");
}

TEST(WindowAddress, IsTheNextControls_WhenTheNamedFieldHasOnlyEmptyTexts) {
  const SimulatedDesktop desktop(desktopJson(
      {.page = R"([{"type": "edit", "name": "Location", "value": "https://claude.ai/new"}])", .address = ""}));

  EXPECT_EQ(readAddress(desktop), L"https://claude.ai/new");
}

TEST(WindowAddress, IsTheFirstControlsInTheTree_WhenTwoShowOne) {
  const SimulatedDesktop desktop(
      desktopJson({.page = R"([{"type": "edit", "name": "Location", "value": "https://example.org"}])"}));

  EXPECT_EQ(readAddress(desktop), L"https://claude.ai/chat/9f2c");
}

TEST(WindowAddress, IsTheNextControls_WhenGetElementSkipsOne) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = R"([{"type": "edit", "name": "Location", "value": "https://example.org"}])",
                     .faults = nthCallFails("IUIAutomationElementArray::GetElement", 1, result)}));
    const UiaSession session;

    EXPECT_EQ(readWindowAddress(session, desktop.window("browser")), L"https://example.org");
  }
}

TEST(WindowAddress, IsFoundByWordsAlone_WhenTheWindowsPlaceCannotBeRead) {
  {
    const SimulatedDesktop desktop(desktopJson(
        {.faults = everyCallFails("IUIAutomationElement::get_CurrentBoundingRectangle", R"("0x80004005")")}));
    EXPECT_EQ(readAddress(desktop), L"https://claude.ai/chat/9f2c");
  }
  const SimulatedDesktop nameless(
      desktopJson({.page = R"([{"type": "edit", "value": "https://claude.ai/new", "bounds": [100, 40, 900, 80]}])",
                   .faults = nthCallFails("IUIAutomationElement::get_CurrentBoundingRectangle", 1, R"("0x80004005")"),
                   .window = noBar}));
  const UiaSession session;
  EXPECT_EQ(readWindowAddress(session, nameless.window("browser")), L"");
}

class AddressFault : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, AddressFault,
                         testing::Values("IUIAutomation::ElementFromHandle", "IUIAutomation::CreatePropertyCondition",
                                         "IUIAutomationElement::FindAll", "IUIAutomationElementArray::get_Length",
                                         "IUIAutomationElementArray::GetElement"));

TEST_P(AddressFault, LeavesItEmpty_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(desktopJson({.faults = everyCallFails(GetParam(), result)}));

    EXPECT_EQ(readAddress(desktop), L"") << result;
  }
}

struct HostRow {
  const char* name;
  const char* address;
  bool isExact;
};

std::string hostName(const testing::TestParamInfo<HostRow>& info) { return info.param.name; }

class ExactHostOfAddress : public testing::TestWithParam<HostRow> {};

TEST_P(ExactHostOfAddress, PassesWithOrWithoutWww_AndNothingElse) {
  const SimulatedDesktop desktop(desktopJson({.address = GetParam().address}));

  EXPECT_EQ(isExactChatHost(desktop.window("browser"), L"perplexity.ai"), GetParam().isExact);

  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 1);
}

INSTANTIATE_TEST_SUITE_P(Each, ExactHostOfAddress,
                         testing::Values(HostRow{"Plain", "https://perplexity.ai", true},
                                         HostRow{"Path", "https://perplexity.ai/a/b", true},
                                         HostRow{"Www", "https://www.perplexity.ai/", true},
                                         HostRow{"NoScheme", "perplexity.ai/search", true},
                                         HostRow{"Port", "https://perplexity.ai:8443/search", true},
                                         HostRow{"PortWithoutScheme", "perplexity.ai:443/path", true},
                                         HostRow{"Query", "https://perplexity.ai?q=1", true},
                                         HostRow{"Fragment", "https://perplexity.ai#top", true},
                                         HostRow{"UpperCase", "HTTPS://WWW.Perplexity.AI/", true},
                                         HostRow{"OtherLabel", "https://labs.perplexity.ai/", false},
                                         HostRow{"TwoWww", "https://www.www.perplexity.ai/", false},
                                         HostRow{"Suffix", "https://perplexity.ai.example.org/", false},
                                         HostRow{"Prefix", "https://notperplexity.ai/", false},
                                         HostRow{"InThePath", "https://example.org/perplexity.ai", false},
                                         HostRow{"InTheQuery", "https://example.org/?u=https://perplexity.ai/", false},
                                         HostRow{"Empty", "", false}),
                         hostName);

TEST(ExactHostWithoutWindow, IsNotThere_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(desktopJson({.otherWindows = R"(, {"id": "closed", "process": "chrome.exe"})"}));
  desktop.perform("browser", R"([{"closeWindow": "closed"}])");

  EXPECT_FALSE(isExactChatHost(nullptr, L"claude.ai"));
  EXPECT_FALSE(isExactChatHost(desktop.window("closed"), L"claude.ai"));

  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

class ExactHostFault : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, ExactHostFault,
                         testing::Values("CoCreateInstance", "IUIAutomation::ElementFromHandle",
                                         "IUIAutomationElement::FindAll"));

TEST_P(ExactHostFault, FailsTheTest_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(desktopJson({.faults = everyCallFails(GetParam(), result)}));

    EXPECT_FALSE(isExactChatHost(desktop.window("browser"), L"claude.ai")) << result;
  }
}

TEST(ExactHostWithoutWindow, IsReadAfreshForEachHost_WhenSeveralAreTried) {
  const SimulatedDesktop desktop(desktopJson({}));

  EXPECT_FALSE(isExactChatHost(desktop.window("browser"), L"chatgpt.com"));
  EXPECT_TRUE(isExactChatHost(desktop.window("browser"), L"claude.ai"));

  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 2);
}

}  // namespace
}  // namespace orvane
