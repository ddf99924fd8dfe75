#include "desktop/own_program.h"

#include <gtest/gtest.h>

#include <string>

#include "desktop/desktop_test.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::PlainWindow;
using simulation::SimulatedDesktop;

struct ImageRow {
  const char* test;
  std::string window;  // its members beside the id
  bool isOwn;
};

class ImageOfAWindow : public ::testing::TestWithParam<ImageRow> {};

TEST_P(ImageOfAWindow, IsThisPrograms_WhenItsWholePathIs) {
  const SimulatedDesktop desktop(R"({"windows": [{"id": "w", )" + GetParam().window + "}]}");
  EXPECT_EQ(isOwnProgramWindow(desktop.window("w")), GetParam().isOwn);
}

// JSON escapes double each backslash.
INSTANTIATE_TEST_SUITE_P(
    Each, ImageOfAWindow,
    ::testing::Values(
        ImageRow{"AnotherInstance", R"("process": "orvane.exe")", true},
        ImageRow{"OtherLetterCase", R"("process": "ORVANE.EXE", "path": "c:\\PROGRAM files\\orvane\\ORVANE.exe")",
                 true},
        ImageRow{"AnotherFolder", R"("process": "orvane.exe", "path": "C:\\Program Files\\Orvane2\\orvane.exe")",
                 false},
        ImageRow{"AnotherDrive", R"("process": "orvane.exe", "path": "D:\\Program Files\\Orvane\\orvane.exe")", false},
        ImageRow{"LongerPath", R"("process": "orvane.exe", "path": "C:\\Program Files\\Orvane\\orvane.exe.bak")",
                 false},
        ImageRow{"ShorterPath", R"("process": "orvane.exe", "path": "C:\\Program Files\\Orvane\\orvane.ex")", false},
        ImageRow{"BareName", R"("process": "orvane.exe", "path": "orvane.exe")", false},
        ImageRow{"AnotherProgram", R"("process": "notepad.exe")", false},
        ImageRow{"PathBeyondTheUsualLimit",
                 R"("process": "orvane.exe", "path": "C:\\)" + std::string(2000, 'x') + R"(\\orvane.exe")", false}),
    nameOfRow<ImageRow>);

using OwnProgram = DesktopTest;

TEST_F(OwnProgram, OwnsTheWindowsOfThisProcess) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow window;
  EXPECT_TRUE(isOwnProgramWindow(window.get()));
}

TEST_F(OwnProgram, OwnsNoWindow_WhenThereIsNone) {
  const SimulatedDesktop desktop("{}");
  HWND gone = nullptr;
  {
    const PlainWindow window;
    gone = window.get();
  }
  EXPECT_FALSE(isOwnProgramWindow(nullptr));
  EXPECT_FALSE(isOwnProgramWindow(gone));
}

TEST_F(OwnProgram, OwnsNothing_WhenACallFails) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "w", "process": "orvane.exe"}]})");
  const struct {
    const char* call;
    const char* result;
  } failures[] = {{"GetWindowThreadProcessId", "0"},
                  {"OpenProcess", "null"},
                  {"QueryFullProcessImageNameW", "false"},
                  {"GetModuleFileNameW", "0"}};
  for (const auto& failure : failures) {
    desktop.setFaults(faultOf(failure.call, failure.result));
    EXPECT_FALSE(isOwnProgramWindow(desktop.window("w"))) << failure.call;
  }
  desktop.setFaults("[]");
  EXPECT_TRUE(isOwnProgramWindow(desktop.window("w")));
}

TEST_F(OwnProgram, OwnsNothing_WhenNoPathCanBeReadAtAll) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "w", "process": "orvane.exe"}]})");
  desktop.setFaults(R"([{"call": "QueryFullProcessImageNameW", "result": false},
                        {"call": "GetModuleFileNameW", "result": 0}])");
  EXPECT_FALSE(isOwnProgramWindow(desktop.window("w"))) << "two unknown paths aren't equal";
}

TEST_F(OwnProgram, GivesItsProcessHandleBack) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "w", "process": "orvane.exe"}]})");
  isOwnProgramWindow(desktop.window("w"));
  desktop.setFaults(faultOf("QueryFullProcessImageNameW", "false"));
  isOwnProgramWindow(desktop.window("w"));
  EXPECT_EQ(desktop.platformCalls("OpenProcess"), 2);
  EXPECT_EQ(desktop.held("processHandles"), 0);
}

}  // namespace
}  // namespace orvane
