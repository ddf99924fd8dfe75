#include "desktop/content_process.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "desktop/desktop_test.h"
#include "support/call_record.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::mapOf;
using simulation::CallRecord;
using simulation::SimulatedDesktop;

constexpr int contentProcess = 4242;

// A main window of another instance; `more` are further members, each with a comma in front.
std::string instance(const std::string& id, const std::string& more = "") {
  return R"({"id": ")" + id + R"(", "process": "orvane.exe", "class": "FLUTTER_RUNNER_WIN32_WINDOW", "pid": )" +
         std::to_string(contentProcess) + more + "}";
}

// With another program in front.
std::string desktopOf(const std::string& windows) {
  return R"({"windows": [{"id": "front", "process": "notepad.exe"}, )" + windows + R"(], "foreground": "front"})";
}

bool activate(const EncodableValue& processId, const EncodableValue& showsToolBox = EncodableValue()) {
  const EncodableMap arguments = mapOf({{"processId", processId}, {"showToolBoxMenu", showsToolBox}});
  return activateContentProcess(&arguments);
}

using ContentProcess = DesktopTest;

TEST_F(ContentProcess, ComesToTheFront) {
  SimulatedDesktop desktop(desktopOf(instance("content")));
  EXPECT_TRUE(activate(EncodableValue(contentProcess)));
  EXPECT_EQ(desktop.foreground(), "content");
  EXPECT_TRUE(desktop.platform().records().posted.empty());
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), 0) << "nothing moves it";
  EXPECT_EQ(desktop.nowMs(), 0);
}

struct ProcessIdRow {
  const char* test;
  EncodableValue processId;
  bool isFound;
};

class ProcessId : public ::testing::TestWithParam<ProcessIdRow> {};

TEST_P(ProcessId, IsTheNumberCutToThirtyTwoBits) {
  const SimulatedDesktop desktop(desktopOf(instance("content")));
  EXPECT_EQ(activate(GetParam().processId), GetParam().isFound);
  EXPECT_EQ(desktop.foreground(), GetParam().isFound ? "content" : "front");
}

INSTANTIATE_TEST_SUITE_P(
    Each, ProcessId,
    ::testing::Values(ProcessIdRow{"Int32", EncodableValue(4242), true},
                      ProcessIdRow{"Int64", EncodableValue(std::int64_t{4242}), true},
                      ProcessIdRow{"Double", EncodableValue(4242.0), true},
                      ProcessIdRow{"Fraction", EncodableValue(4242.99), true},
                      ProcessIdRow{"JustBelow", EncodableValue(4241.99), false},
                      ProcessIdRow{"BeyondThirtyTwoBits", EncodableValue(std::int64_t{4294967296 + 4242}), true},
                      ProcessIdRow{"Text", EncodableValue("4242"), false},
                      ProcessIdRow{"Negative", EncodableValue(-4242), false},
                      ProcessIdRow{"NotANumber", EncodableValue(std::nan("")), false},
                      ProcessIdRow{"Infinite", EncodableValue(std::numeric_limits<double>::infinity()), false},
                      ProcessIdRow{"Huge", EncodableValue(1e300), false}),
    nameOfRow<ProcessIdRow>);

TEST_F(ContentProcess, IsNotLookedFor_WhenItsIdIsZero) {
  const SimulatedDesktop desktop(desktopOf(instance("content")));
  for (const EncodableValue& id : {EncodableValue(0), EncodableValue(0.9), EncodableValue(-0.9), EncodableValue(),
                                   EncodableValue(true), EncodableValue(std::int64_t{4294967296})}) {
    EXPECT_FALSE(activate(id));
  }
  EXPECT_FALSE(activateContentProcess(nullptr));
  EXPECT_EQ(desktop.platformCalls("EnumWindows"), 0);
  EXPECT_EQ(desktop.foreground(), "front");
}

TEST_F(ContentProcess, IsLookedFor_WhateverTheSizeOfItsNumber) {
  // As a double it is 9,100,000,000,000,005,120.
  constexpr std::int64_t number = 9'100'000'000'000'004'711;
  constexpr auto processId = static_cast<std::uint32_t>(std::uint64_t{9'100'000'000'000'005'120});
  const SimulatedDesktop desktop(
      desktopOf(R"({"id": "content", "process": "orvane.exe", "class": "FLUTTER_RUNNER_WIN32_WINDOW", "pid": )" +
                std::to_string(processId) + "}"));
  EXPECT_TRUE(activate(EncodableValue(number)));
  EXPECT_EQ(desktop.platformCalls("EnumWindows"), 1);
  EXPECT_EQ(desktop.foreground(), "content");
}

TEST_F(ContentProcess, IsKnownByItsVisibleMainWindow) {
  const std::string pid = R"("pid": 4242)";
  const std::string cutClass(127, 'F');
  const struct {
    const char* why;
    std::string window;
  } rows[] = {
      {"hidden", instance("w", R"(, "visible": false)")},
      {"a panel", instance("w", R"(, "cleanBackground": true)")},
      {"another class", R"({"id": "w", "process": "orvane.exe", "class": "FLUTTERVIEW", )" + pid + "}"},
      {"a class in other letter case",
       R"({"id": "w", "process": "orvane.exe", "class": "Flutter_Runner_Win32_Window", )" + pid + "}"},
      {"a longer class",
       R"({"id": "w", "process": "orvane.exe", "class": "FLUTTER_RUNNER_WIN32_WINDOW2", )" + pid + "}"},
      {"a class that has to be cut", R"({"id": "w", "process": "orvane.exe", "class": "FLUTTER_RUNNER_WIN32_WINDOW)" +
                                         cutClass + R"(", )" + pid + "}"},
      {"no class", R"({"id": "w", "process": "orvane.exe", )" + pid + "}"},
      {"another process",
       R"({"id": "w", "process": "orvane.exe", "class": "FLUTTER_RUNNER_WIN32_WINDOW", "pid": 4243})"},
      {"another program",
       R"({"id": "w", "process": "notepad.exe", "class": "FLUTTER_RUNNER_WIN32_WINDOW", )" + pid + "}"},
      {"a namesake", instance("w", R"(, "path": "C:\\elsewhere\\orvane.exe")")},
  };
  for (const auto& row : rows) {
    SimulatedDesktop desktop(desktopOf(row.window));
    EXPECT_FALSE(activate(EncodableValue(contentProcess), EncodableValue(1))) << row.why;
    EXPECT_TRUE(desktop.platform().records().posted.empty()) << row.why;
    EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0) << row.why;
    EXPECT_EQ(desktop.foreground(), "front") << row.why;
  }
}

TEST_F(ContentProcess, HasItsFirstSuitableWindowBroughtUp) {
  const SimulatedDesktop desktop(desktopOf(instance("hidden", R"(, "visible": false)") + ", " +
                                           instance("panel", R"(, "cleanBackground": true)") + ", " +
                                           instance("upper") + ", " + instance("lower")));
  EXPECT_TRUE(activate(EncodableValue(contentProcess)));
  EXPECT_EQ(desktop.foreground(), "upper");
}

TEST_F(ContentProcess, IsRestored_WhenItIsMinimised) {
  const SimulatedDesktop desktop(desktopOf(instance("content", R"(, "minimized": true)")));
  EXPECT_TRUE(activate(EncodableValue(contentProcess)));
  EXPECT_FALSE(::IsIconic(desktop.window("content")));
}

TEST_F(ContentProcess, IsAskedForItsToolBox_WhenTheFlagIsSet) {
  for (const auto& [flag, isAsked] : {std::pair{EncodableValue(1), true},
                                      {EncodableValue(-0.5), true},
                                      {EncodableValue(0), false},
                                      {EncodableValue(true), false},
                                      {EncodableValue("1"), false}}) {
    SimulatedDesktop desktop(desktopOf(instance("content")));
    EXPECT_TRUE(activate(EncodableValue(contentProcess), flag));
    const auto& posted = desktop.platform().records().posted;
    ASSERT_EQ(posted.size(), isAsked ? 1U : 0U);
    if (isAsked) {
      EXPECT_EQ(posted[0].window, "content");
      EXPECT_EQ(posted[0].message, 0x8153U);
      EXPECT_EQ(posted[0].wParam, 0U);
      EXPECT_EQ(posted[0].lParam, 0);
    }
  }
}

TEST_F(ContentProcess, IsAskedForItsToolBoxFirst_ThenRestoredAndBroughtUp) {
  const std::vector<std::string> restored{"PostMessageW content", "ShowWindow content", "SetForegroundWindow content",
                                          "GetForegroundWindow content"};
  const std::vector<std::string> open{"PostMessageW content", "SetForegroundWindow content",
                                      "GetForegroundWindow content"};
  for (const bool isIconic : {false, true}) {
    SimulatedDesktop desktop(desktopOf(instance("content", isIconic ? R"(, "minimized": true)" : "")));
    const CallRecord record(desktop, {"PostMessageW", "ShowWindow", "SetForegroundWindow", "GetForegroundWindow"});
    EXPECT_TRUE(activate(EncodableValue(contentProcess), EncodableValue(1)));
    EXPECT_EQ(record.calls(), isIconic ? restored : open);
  }
}

TEST_F(ContentProcess, IsAskedForItsToolBox_EvenWhenItIsNotGivenTheForeground) {
  SimulatedDesktop desktop(desktopOf(instance("content", R"(, "foregroundRequests": "refused")")));
  EXPECT_FALSE(activate(EncodableValue(contentProcess), EncodableValue(1)));
  EXPECT_EQ(desktop.platform().records().posted.size(), 1U);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 1) << "no further attempt";
  EXPECT_EQ(desktop.foreground(), "front");
}

TEST_F(ContentProcess, ComesToTheFront_WhenTheMessageCantBePosted) {
  SimulatedDesktop desktop(desktopOf(instance("content")));
  desktop.setFaults(faultOf("PostMessageW", "false"));
  EXPECT_TRUE(activate(EncodableValue(contentProcess), EncodableValue(1)));
  EXPECT_EQ(desktop.foreground(), "content");
}

TEST_F(ContentProcess, IsJudgedByTheForegroundAndNotByTheAnswer) {
  SimulatedDesktop desktop(desktopOf(instance("content")));
  desktop.setFaults(faultOf("SetForegroundWindow", "1"));
  EXPECT_FALSE(activate(EncodableValue(contentProcess))) << "said yes and did nothing";
  desktop.setFaults("[]");
  desktop.bringToFront("content");
  desktop.setFaults(faultOf("SetForegroundWindow", "false"));
  EXPECT_TRUE(activate(EncodableValue(contentProcess))) << "it is there already";
}

TEST_F(ContentProcess, IsRefused_WhenACallFails) {
  SimulatedDesktop desktop(desktopOf(instance("content")));
  for (const auto& [call, result] : {std::pair{"EnumWindows", "false"},
                                     {"GetWindowThreadProcessId", "0"},
                                     {"IsWindowVisible", "false"},
                                     {"GetClassNameW", "0"},
                                     {"OpenProcess", "null"},
                                     {"QueryFullProcessImageNameW", "false"},
                                     {"GetModuleFileNameW", "0"}}) {
    desktop.setFaults(faultOf(call, result));
    EXPECT_FALSE(activate(EncodableValue(contentProcess), EncodableValue(1))) << call;
    EXPECT_TRUE(desktop.platform().records().posted.empty()) << call;
    EXPECT_EQ(desktop.foreground(), "front") << call;
  }
}

}  // namespace
}  // namespace orvane
