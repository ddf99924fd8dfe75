#include "scenario/scenario_reader.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::simulation {
namespace {

struct BadFile {
  const char* name;
  const char* json;
  const char* error;
};

void PrintTo(const BadFile& row, std::ostream* out) { *out << row.name; }

class ScenarioErrors : public ::testing::TestWithParam<BadFile> {};

TEST_P(ScenarioErrors, File_IsRefusedWithThePlaceAndTheReason) {
  try {
    readScenario(GetParam().json);
    FAIL() << "it was accepted";
  } catch (const ScenarioError& error) {
    EXPECT_STREQ(error.what(), GetParam().error);
  }
}

constexpr BadFile badFiles[] = {
    {"NoJson", "{\"name\":\n1,}", "line 2: is no JSON: unexpected '}'; expected string literal"},
    {"NoUtf8", "{\"name\":\"\xFF\"}", "line 1: is no JSON: invalid string: ill-formed UTF-8 byte; last read: '\"\xFF'"},
    {"NoObject", "[]", "must be an object"},
    {"UnknownKeyAtTheTop", R"({"nam":""})", "nam: unknown key"},
    {"UnknownKeyOfAnElement",
     R"({"desktop":{"windows":[{"id":"a"},{"id":"b","tabs":[{"page":[{},{},{"colour":1}]}]}]}})",
     "desktop.windows[1].tabs[0].page[2].colour: unknown key"},
    {"WrongTypeOfAText", R"({"name":1})", "name: must be a text"},
    {"WrongTypeOfAList", R"({"arguments":"x"})", "arguments: must be a list"},
    {"WrongTypeOfAFlag", R"({"desktop":{"windows":[{"id":"a","visible":1}]}})",
     "desktop.windows[0].visible: must be true or false"},
    {"WrongTypeOfANumber", R"({"steps":[{"wait":1.5}]})", "steps[0].wait: must be a whole number"},
    {"NumberOutOfRange", R"({"steps":[{"wait":-1}]})", "steps[0].wait: must be from 0 to 1000000000000"},
    {"BoundsWithThreeSides", R"({"desktop":{"windows":[{"id":"a","bounds":[1,2,3]}]}})",
     "desktop.windows[0].bounds: must be [left, top, right, bottom]"},
    {"MissingId", R"({"desktop":{"windows":[{}]}})", "desktop.windows[0].id: must be there"},
    {"EmptyId", R"({"desktop":{"windows":[{"id":""}]}})", "desktop.windows[0].id: must not be empty"},
    {"DuplicateWindow", R"({"desktop":{"windows":[{"id":"a"},{"id":"a"}]}})",
     "desktop.windows[1].id: a window \"a\" stands there already"},
    {"HostsWindow", R"({"desktop":{"windows":[{"id":"main"}]}})",
     "desktop.windows[0].id: \"main\" names a window of the host"},
    {"DuplicateElement", R"({"desktop":{"windows":[{"id":"a","elements":[{"id":"x","children":[{"id":"x"}]}]}]}})",
     "desktop.windows[0].elements[0].children[0].id: \"x\" stands in this tree already"},
    {"DuplicateWithTheAddressBar",
     R"({"desktop":{"windows":[{"id":"a","addressBar":{"id":"x"},"tabs":[{"page":[{"id":"x"}]}]}]}})",
     "desktop.windows[0].tabs[0].page[0].id: \"x\" stands in this tree already"},
    {"TwoSelectedTabs", R"({"desktop":{"windows":[{"id":"a","tabs":[{"selected":true},{"selected":true}]}]}})",
     "desktop.windows[0].tabs[1].selected: another tab of the window is selected"},
    {"TabsAndElements", R"({"desktop":{"windows":[{"id":"a","tabs":[],"elements":[]}]}})",
     "desktop.windows[0].elements: a window with tabs has pages instead"},
    {"AddressBarWithoutTabs", R"({"desktop":{"windows":[{"id":"a","addressBar":{}}]}})",
     "desktop.windows[0].addressBar: only a window with tabs has one"},
    {"UnknownType", R"({"desktop":{"windows":[{"id":"a","elements":[{"type":"slider"}]}]}})",
     "desktop.windows[0].elements[0].type: unknown word \"slider\""},
    {"UnknownSelection", R"({"desktop":{"windows":[{"id":"a","tabs":[{"selection":"no"}]}]}})",
     "desktop.windows[0].tabs[0].selection: unknown word \"no\""},
    {"UnknownForegroundRequests", R"({"desktop":{"windows":[{"id":"a","foregroundRequests":"maybe"}]}})",
     "desktop.windows[0].foregroundRequests: unknown word \"maybe\""},
    {"UnknownFact", R"({"desktop":{"windows":[{"id":"a","elements":[{"unreadable":["size"]}]}]}})",
     "desktop.windows[0].elements[0].unreadable[0]: unknown word \"size\""},
    {"BadHresult", R"({"desktop":{"windows":[{"id":"a","elements":[{"invoke":"no"}]}]}})",
     "desktop.windows[0].elements[0].invoke: must be an HRESULT such as \"0x80004005\""},
    {"BadBase64", R"({"desktop":{"clipboard":{"png":"?"}}})", "desktop.clipboard.png: must be base64"},
    {"BadTextBlock", R"({"desktop":{"clipboard":{"textBlock":"cA"}}})", "desktop.clipboard.textBlock: must be base64"},
    {"TextAndTextBlock", R"({"desktop":{"clipboard":{"text":"","textBlock":""}}})",
     "desktop.clipboard.textBlock: the text is given already"},
    {"NoMonitor", R"({"desktop":{"monitors":[]}})", "desktop.monitors: must have a monitor"},
    {"UnknownForeground", R"({"desktop":{"foreground":"x"}})", "desktop.foreground: there is no window \"x\""},
    {"UnknownLock", R"({"desktop":{"clipboard":{"lockedBy":"x"}}})",
     "desktop.clipboard.lockedBy: there is no window \"x\""},
    {"UnknownFaultedElement", R"({"desktop":{"faults":[{"call":"A","element":"x","result":0}]}})",
     "desktop.faults[0].element: there is no element or tab \"x\""},
    {"BadFaultResult", R"({"desktop":{"faults":[{"call":"A","result":true}]}})",
     "desktop.faults[0].result: must be an HRESULT text, a number, false or null"},
    {"UnknownTrigger", R"({"desktop":{"windows":[{"id":"a","rules":[{"on":{"click":"x"},"do":[]}]}]}})",
     "desktop.windows[0].rules[0].on.click: unknown key"},
    {"TwoTriggers", R"({"desktop":{"windows":[{"id":"a","rules":[{"on":{"time":1,"read":"x"},"do":[]}]}]}})",
     "desktop.windows[0].rules[0].on: must have exactly one key"},
    {"UnknownKeyWord", R"({"desktop":{"windows":[{"id":"a","rules":[{"on":{"key":"Ctrl+Any"},"do":[]}]}]}})",
     "desktop.windows[0].rules[0].on.key: unknown key \"Ctrl+Any\""},
    {"UnknownTriggerElement", R"({"desktop":{"windows":[{"id":"a","rules":[{"on":{"paste":"x"},"do":[]}]}]}})",
     "desktop.windows[0].rules[0].on.paste: there is no element \"x\""},
    {"UnknownAction", R"({"steps":[{"do":[{"jump":1}]}]})", "steps[0].do[0].jump: unknown key"},
    {"UnknownTab", R"({"steps":[{"do":[{"selectTab":"x"}],"window":"main"}]})",
     "steps[0].do[0].selectTab: there is no tab \"x\""},
    {"FactThatStays", R"({"steps":[{"do":[{"set":{"element":"x","without":["bounds"]}}],"window":"main"}]})",
     "steps[0].do[0].set.without[0]: \"bounds\" can't be taken away"},
    {"ActionWithoutAWindow", R"({"steps":[{"do":[{"address":"x"}]}]})", "steps[0]: needs a \"window\""},
    {"UnknownStep", R"({"steps":[{"sleep":1}]})", "steps[0].sleep: unknown key"},
    {"UnknownUserAct", R"({"steps":[{"user":{"jump":1}}]})", "steps[0].user.jump: unknown key"},
    {"MenuEntryZero", R"({"steps":[{"user":{"chooseMenu":0}}]})",
     "steps[0].user.chooseMenu: must be from 1 to 2147483647"},
    {"CallWithoutAChannel", R"({"steps":[{"call":{"method":"m"}}]})", "steps[0].call.channel: must be there"},
    {"BadHex", R"({"steps":[{"bytes":"0g","channel":"c"}]})", "steps[0].bytes: must be pairs of hexadecimal digits"},
    {"PostToNobody", R"({"steps":[{"post":{"window":"x","message":1}}]})",
     "steps[0].post.window: there is no window \"x\""},
    {"UnknownForm", R"({"steps":[{"call":{"channel":"c","method":"m","arguments":[{"$time":1}]}}]})",
     "steps[0].call.arguments[0].$time: unknown form"},
    {"Int32OutOfRange", R"({"steps":[{"call":{"channel":"c","method":"m","arguments":{"$int32":2147483648}}}]})",
     "steps[0].call.arguments.$int32: must be from -2147483648 to 2147483647"},
    {"NumberTooBig", R"({"steps":[{"call":{"channel":"c","method":"m","arguments":18446744073709551615}}]})",
     "steps[0].call.arguments: must be from -9223372036854775808 to 9223372036854775807"},
    {"LaterReply", R"({"steps":[{"call":{"channel":"c","method":"m","arguments":{"$from":"a.x"}},"as":"a"}]})",
     "steps[0].call.arguments.$from: there is no earlier reply \"a\""},
    {"ReplyNameWithAPoint", R"({"steps":[{"bytes":"","channel":"c","as":"a.b"}]})",
     "steps[0].as: must not have a point"},
    {"BadPattern", R"({"expect":{"name":"~("}})", "expect.name: is no regular expression"},
    {"RepetitionsTooMany", R"({"expect":{"name":"~a{1,1111111111}"}})", "expect.name: is no regular expression"},
    {"GroupNumberTooGreat", R"({"expect":{"name":"~(a)\\1111111111"}})", "expect.name: is no regular expression"},
    {"ExpectationOfAList", R"({"expect":[]})", "expect: must be an object"},
};

INSTANTIATE_TEST_SUITE_P(Rows, ScenarioErrors, ::testing::ValuesIn(badFiles),
                         [](const auto& row) { return row.param.name; });

TEST(ScenarioReader, WholeNumbers_MayHaveAPoint) {
  const Scenario scenario = readScenario(R"({"desktop":{"windows":[{"id":"a","bounds":[0,0,10.0,2e1]}]},
                                             "steps":[{"wait":10.0}]})");
  EXPECT_EQ(scenario.desktop.windows.front().bounds, (Rectangle{0, 0, 10, 20}));
  EXPECT_EQ(std::get<step::Wait>(scenario.steps.front()).ms, 10);
}

TEST(ScenarioReader, LongNumbersInAPattern_AreTextUnlessTheyCount) {
  const Scenario scenario = readScenario(R"({"expect":{"name":"~^a{2},1111111111 \\\\1111111111\\{1111111111$"}})");
  EXPECT_TRUE(scenario.expect);
}

TEST(ScenarioReader, EmptyScenario_HasTheDefaults) {
  const Scenario scenario = readScenario("{}");
  ASSERT_EQ(scenario.desktop.monitors.size(), 1u);
  EXPECT_EQ(scenario.desktop.monitors[0].work, (Rectangle{0, 0, 1920, 1040}));
  EXPECT_EQ(scenario.desktop.monitors[0].dpi, 96u);
  EXPECT_FALSE(scenario.desktop.lightTheme);
  EXPECT_FALSE(scenario.desktop.setsForeground);
  EXPECT_FALSE(scenario.expect);
}

TEST(ScenarioReader, Elements_HaveTheDefaultsOfTheirType) {
  const Scenario scenario = readScenario(R"({"desktop":{"windows":[{"id":"a","elements":[
      {"type":"button"},{"type":"edit","acceptsFocus":false},{"type":"text"},{"type":50025,"focusable":true},
      {"type":"edit","value":null,"name":null},{"type":"button","invoke":null}]}]}})");
  const auto& elements = scenario.desktop.windows[0].elements;
  EXPECT_TRUE(elements[0].facts.focusable && !elements[0].facts.acceptsFocus);
  EXPECT_EQ(elements[0].facts.invoke, 0u);
  EXPECT_TRUE(elements[1].facts.focusable && elements[1].facts.acceptsFocus == false);
  EXPECT_FALSE(elements[1].facts.hasValuePattern);
  EXPECT_EQ(elements[1].facts.name, u"");
  EXPECT_FALSE(elements[2].facts.focusable || elements[2].facts.invoke);
  EXPECT_EQ(elements[3].facts.controlType, 50025);
  EXPECT_TRUE(elements[3].facts.focusable && !elements[3].facts.acceptsFocus);
  EXPECT_TRUE(elements[4].facts.hasValuePattern && !elements[4].facts.value && !elements[4].facts.name);
  EXPECT_FALSE(elements[5].facts.invoke);
}

TEST(ScenarioReader, Names_CountAsDeclared_WhenAnActionMakesThem) {
  EXPECT_NO_THROW(readScenario(R"({"desktop":{"windows":[{"id":"a","tabs":[{"title":"T","rules":[
      {"on":{"invoke":"late"},"do":[{"closeTab":"New"},{"closeTab":"Named"},{"foreground":"backdrop"}]},
      {"on":{"time":1},"do":[{"add":{"id":"late","type":"button"}},{"title":"Named"},
        {"openTab":{"title":"New","page":[{"id":"inner"}]}},{"focus":"inner"},{"set":{"element":"addressBar"}}]}
      ]}]}]}})"));
}

TEST(ScenarioReader, Desktop_IsReadInAllItsForms) {
  const DesktopPlan plan = readScenario(R"({"desktop":{
      "monitors":[{"bounds":[0,0,100,100],"work":[0,0,100,90],"dpi":144}],"lightTheme":false,"foreground":null,
      "clipboard":{"text":"t","html":"a\u0000","png":"AQI=","dib":null},
      "spelling":{"en-US":{"words":["cat"],"suggest":{"kat":["cat","cut"]}}}}})")
                               .desktop;
  EXPECT_EQ(plan.monitors[0].dpi, 144u);
  EXPECT_EQ(plan.lightTheme, false);
  EXPECT_TRUE(plan.setsForeground && !plan.foreground);
  EXPECT_EQ(plan.clipboard.html, std::string("a\0", 2));
  EXPECT_EQ(plan.clipboard.png, (std::vector<std::uint8_t>{1, 2}));
  EXPECT_FALSE(plan.clipboard.dib);
  EXPECT_TRUE(plan.spelling.at("en-US").words.contains(u"cat"));
  EXPECT_EQ(plan.spelling.at("en-US").suggestions.at(u"kat").size(), 2u);
}

TEST(ScenarioReader, Replies_AreNamedByTheirPlace_WhenTheyHaveNoName) {
  const Scenario scenario =
      readScenario(R"({"steps":[{"wait":1},{"bytes":"0F","channel":"c"},{"call":{"channel":"c","method":"m"}}]})");
  EXPECT_EQ(std::get<step::Bytes>(scenario.steps[1]).as, "0");
  EXPECT_EQ(std::get<step::Bytes>(scenario.steps[1]).message, (std::vector<std::uint8_t>{15}));
  EXPECT_EQ(std::get<step::Call>(scenario.steps[2]).as, "1");
}

TEST(ScenarioReader, MissingFile_IsAnErrorThatSaysWhy) {
  EXPECT_THROW(readScenarioFile("/nowhere/at/all.json"), ScenarioError);
}

}  // namespace
}  // namespace orvane::simulation
