#include "scenario/run_scenario.h"

#include <gtest/gtest.h>

#include "scenario/child_runs.h"
#include "scenario/expect.h"
#include "scenario/person_printer.h"
#include "scenario/scenario_reader.h"

namespace orvane::simulation {
namespace {

using Failures = std::vector<std::string>;

Json reportOf(const Scenario& scenario) {
  ChildRun result;
  doChildRuns(
      1, 1, [&](std::size_t, const auto& readErrorText) { return runScenario(scenario, readErrorText); },
      [&](std::size_t, ChildRun run) { result = std::move(run); });
  EXPECT_TRUE(result.hasEnded) << result.failure;
  return result.report;
}

Json reportOf(const std::string& json) { return reportOf(readScenario(json)); }

Failures failuresOf(const std::string& scenario, const std::string& expected) {
  return compareWithExpectation(Json::parse(expected), reportOf(scenario));
}

constexpr const char* wrongProvider = R"({"name":"wrong provider","desktop":{"foreground":"w","clipboard":
    {"text":"my secret prompt","html":"<b>\u0000"},"windows":[{"id":"w","process":"chrome.exe","tabs":[
      {"title":"Inbox","selected":true,"page":[{"id":"box","type":"edit","value":"my draft"}]}]}]},
    "steps":[{"wait":40},{"call":{"channel":"orvane/browser","method":"pasteAndSubmit",
      "arguments":{"name":"Claude","expectedWindowHandle":{"$window":"w"}}},"as":"deliver"}]})";

TEST(RunScenario, EmptyScenario_StartsAndEndsCleanly) {
  const Json report = reportOf("{}");
  EXPECT_EQ(compareWithExpectation(Json::parse(R"({"exitCode":0,"replies":[],"stderr":[],"virtualMs":0,
                 "desktop":{"foreground":"main","zOrder":["main"]}})"),
                                   report),
            Failures{});
  for (const auto& [kind, count] : report.at("live").items()) EXPECT_EQ(count, 0) << kind;
}

TEST(RunScenario, Report_HasItsKeysInOrder) {
  std::vector<std::string> keys;
  const Json report = reportOf("{}");
  for (const auto& [key, value] : report.items()) keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::string>{"name", "exitCode", "virtualMs", "replies", "toInterface", "input", "shell",
                                            "painted", "attributes", "posted", "engine", "desktop", "stderr",
                                            "platformCalls", "live"}));
}

TEST(RunScenario, Reply_SaysWhenItsStepsHappened) {
  const Json report = reportOf(wrongProvider);
  const Json& reply = report.at("replies").at(0);
  EXPECT_EQ(reply.at("as"), "deliver");
  EXPECT_EQ(reply.at("startMs"), 40);
  EXPECT_EQ(reply.at("value").at("success"), false);
  ASSERT_EQ(reply.at("stepMs").size(), reply.at("value").at("logs").size());
  EXPECT_GE(reply.at("stepMs").front(), 40);
  EXPECT_EQ(reply.at("stepMs").back(), reply.at("endMs"));
}

TEST(RunScenario, Clipboard_StandsInTheReportWithoutTheClosingNul) {
  EXPECT_EQ(
      failuresOf(wrongProvider, R"({"desktop":{"clipboard":{"text":"my secret prompt","html":"<b>","sequence":1}}})"),
      Failures{});
}

TEST(RunScenario, EqualRuns_GiveEqualReports) {
  EXPECT_EQ(writeJson(reportOf(wrongProvider)), writeJson(reportOf(wrongProvider)));
}

TEST(RunScenario, RawMessages_AreAnsweredAsTheHostAnswersThem) {
  EXPECT_EQ(failuresOf(R"({"steps":[{"bytes":"070100","channel":"orvane/browser"},
              {"bytes":"0700","channel":"nobody","as":"x"},
              {"call":{"channel":"orvane/browser","method":"activateProvider"}}]})",
                       R"({"replies":[{"as":"0","kind":"notImplemented","replyHex":"","value":null},
              {"as":"x","kind":"notImplemented"},
              {"as":"2","method":"activateProvider","kind":"error","error":{"code":"bad_arguments","details":null}}]})"),
            Failures{});
}

TEST(RunScenario, Steps_ActOnTheDesktop) {
  EXPECT_EQ(failuresOf(R"({"desktop":{"windows":[{"id":"a","title":"A"},{"id":"b","minimized":true},{"id":"c"},
              {"id":"t","process":"chrome.exe","tabs":[{"title":"One","selected":true},{"title":"Two"}]}]},
              "steps":[{"user":{"foreground":"b"}},{"user":{"close":"c"}},{"user":{"switchTab":{"window":"t",
              "title":"Two"}}},{"do":[{"windowTitle":"new"}],"window":"a"},{"do":[{"clipboard":{"text":"x"}}]},
              {"user":{"minimize":"a"}},{"user":{"resize":{"window":"t","bounds":[1,2,3,4]}}},{"wait":70}]})",
                       R"({"virtualMs":70,"desktop":{"foreground":"b","zOrder":["b","main","a","t"],
              "windows":{"a":{"title":"new","minimized":true},"b":{"minimized":false},
                         "t":{"title":"Two - Google Chrome","bounds":[1,2,3,4]}},
              "tabs":{"t":{"titles":["One","Two"],"selected":1}},"clipboard":{"text":"x","sequence":2}}})"),
            Failures{});
}

TEST(RunScenario, TimeRules_CountFromTheFirstStep_AndStepsSeeWhatTheyDid) {
  EXPECT_EQ(failuresOf(R"({"desktop":{"windows":[{"id":"a","rules":[{"on":{"time":30},"do":[{"foreground":"a"}]}]}]},
              "steps":[{"wait":30}]})",
                       R"({"desktop":{"foreground":"a"}})"),
            Failures{});
}

TEST(RunScenario, RulesOfTheStart_ActBeforeTheFirstStepAndWithoutOne) {
  const std::string desktop = R"({"desktop":{"windows":[{"id":"a","title":"old","rules":[{"on":{"time":0},
      "do":[{"windowTitle":"new"}]}]}]})";
  const char* expected = R"({"virtualMs":0,"desktop":{"windows":{"a":{"title":"new"}}}})";
  EXPECT_EQ(failuresOf(desktop + "}", expected), Failures{});
  EXPECT_EQ(failuresOf(desktop + R"(,"steps":[{"call":{"channel":"orvane/window","method":"getBounds"}}]})", expected),
            Failures{});
}

TEST(RunScenario, StepOnAWindowThatHasGone_DoesNothing) {
  EXPECT_EQ(failuresOf(R"({"desktop":{"windows":[{"id":"a","tabs":[{"title":"t"}]},{"id":"b"}]},"steps":[
      {"user":{"close":"a"}},{"user":{"close":"a"}},{"user":{"foreground":"a"}},{"user":{"minimize":"a"}},
      {"user":{"resize":{"window":"a","bounds":[0,0,9,9]}}},{"user":{"switchTab":{"window":"a","title":"t"}}},
      {"post":{"window":"backdrop","message":16}},{"do":[{"windowTitle":"x"}],"window":"a"},
      {"user":{"foreground":"b"}}]})",
                       R"({"desktop":{"foreground":"b","zOrder":["b","main"]},"stderr":[]})"),
            Failures{});
}

TEST(RunScenario, RepliesOfOneName_AreToldByTheLast) {
  EXPECT_EQ(failuresOf(R"({"steps":[
      {"call":{"channel":"orvane/window","method":"getBounds"},"as":"1"},
      {"call":{"channel":"orvane/window","method":"setBounds","arguments":{"x":40.0,"y":50.0,"width":640.0,"height":480.0}}},
      {"call":{"channel":"orvane/window","method":"getBounds"},"as":"1"},
      {"call":{"channel":"orvane/window","method":"setBounds","arguments":{"x":0.0,"y":{"$from":"1.x"},
        "width":640.0,"height":480.0}}}]})",
                       R"({"desktop":{"windows":{"main":{"bounds":[0,40,640,520]}}}})"),
            Failures{});
}

TEST(RunScenario, AnyNumberOf64Bits_IsAMessagesParameter) {
  EXPECT_EQ(failuresOf(R"({"steps":[{"post":{"window":"main","message":33106,"wParam":18446744073709551615,
                "lParam":-9223372036854775808}}]})",
                       R"({"exitCode":0,"stderr":[]})"),
            Failures{});
}

TEST(RunScenario, EarlierReply_IsGivenBackInALaterCall) {
  const char* scenario = R"({"desktop":{"windows":[{"id":"w","process":"chrome.exe","tabs":[{"title":"Plan - Claude",
      "address":"https://claude.ai/chat/1","selected":true}]}]},"steps":[
      {"call":{"channel":"orvane/browser","method":"activateProvider","arguments":{"name":"Claude",
        "domain":"claude.ai"}},"as":"found"},{"do":[{"foreground":"main"}]},
      {"call":{"channel":"orvane/browser","method":"foregroundWindowHandle",
        "arguments":{"windowHandle":{"$from":"found.windowHandle"}}},"as":"shown"}]})";
  EXPECT_EQ(failuresOf(scenario, R"({"replies":[{"value":{"success":true}},{"value":{"success":true}}],
                                     "desktop":{"foreground":"w"}})"),
            Failures{});
}

TEST(PersonPrinter, ReadsTheTrace_AndNeverThePrompt) {
  const Scenario scenario = readScenario(wrongProvider);
  const std::string text = describeForPerson(scenario, reportOf(scenario), false);
  EXPECT_NE(text.find("wrong provider\n\npasteAndSubmit  name, expectedWindowHandle\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n  NO SUCCESS  "), std::string::npos) << text;
  EXPECT_NE(text.find("w/box       holds text (8 characters)\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("secret"), std::string::npos);
  EXPECT_EQ(text.find("draft"), std::string::npos);
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_NE(describeForPerson(scenario, reportOf(scenario), true).find("\x1b[31mFAIL"), std::string::npos);
}

TEST(PersonPrinter, Menus_AreShownWithWhatWasChosen) {
  const Scenario scenario = readScenario(R"({"steps":[{"user":{"chooseMenu":2}},
      {"call":{"channel":"orvane/window","method":"showNativeHotKeysMenu",
        "arguments":{"items":[{"action":"copy","label":"Copy"},{"action":"paste","label":"Paste"}]}}},
      {"call":{"channel":"orvane/window","method":"showNativeHotKeysMenu",
        "arguments":{"items":[{"action":"copy","label":"Copy"}]}}}]})");
  const std::string text = describeForPerson(scenario, reportOf(scenario), false);
  EXPECT_NE(text.find("  menu        entry 2 of 2 chosen\n  menu        none of 1 chosen\n"), std::string::npos)
      << text;
}

}  // namespace
}  // namespace orvane::simulation
