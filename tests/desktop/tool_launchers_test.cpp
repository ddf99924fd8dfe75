#include "desktop/tool_launchers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/desktop_test.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::mapOf;
using desktop_tests::PlainWindow;
using simulation::ShellCall;
using simulation::SimulatedDesktop;
using simulation::Text;

// A launcher's answer: whether it took place, and the error code where it has one.
EncodableMap plain(bool success) { return mapOf({{"success", EncodableValue(success)}}); }
EncodableMap coded(bool success, std::int32_t code) {
  return mapOf({{"success", EncodableValue(success)}, {"errorCode", EncodableValue(code)}});
}

struct LaunchRow {
  const char* test;
  std::function<EncodableMap(HWND, const EncodableMap*)> launch;
  EncodableMap arguments;
  std::optional<std::string> owner;
  Text file;
  std::optional<Text> parameters;
  std::optional<Text> directory;
  bool hasCode;
};

const auto screenCapture = [](HWND, const EncodableMap*) { return plain(openScreenCapture()); };
const auto taskManager = [](HWND, const EncodableMap*) { return plain(openTaskManager()); };
const auto commandPrompt = [](HWND window, const EncodableMap* arguments) {
  return plain(openCommandPromptAt(window, arguments));
};
const auto commandWindow = [](HWND window, const EncodableMap* arguments) {
  return plain(openCommandWindow(window, arguments));
};

class ToolLauncher : public ::testing::TestWithParam<LaunchRow> {};

TEST_P(ToolLauncher, GivesTheShellOneOrder) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const LaunchRow& row = GetParam();

  EXPECT_EQ(row.launch(window.get(), &row.arguments), row.hasCode ? coded(true, 33) : plain(true));

  const std::vector<ShellCall>& shell = desktop.platform().records().shell;
  ASSERT_EQ(shell.size(), 1U);
  EXPECT_EQ(shell[0].owner, row.owner);
  EXPECT_EQ(shell[0].verb, u"open");
  EXPECT_EQ(shell[0].file, row.file);
  EXPECT_EQ(shell[0].parameters, row.parameters);
  EXPECT_EQ(shell[0].directory, row.directory);
  EXPECT_EQ(shell[0].show, SW_SHOWNORMAL);
}

TEST_P(ToolLauncher, Succeeds_WhenTheShellsAnswerIsAboveThirtyTwo) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  for (const auto& [answer, success] :
       {std::pair{0, false}, {2, false}, {31, false}, {32, false}, {33, true}, {42, true}, {-1, false}}) {
    desktop.setFaults(faultOf("ShellExecuteW", std::to_string(answer)));
    EXPECT_EQ(GetParam().launch(window.get(), &GetParam().arguments),
              GetParam().hasCode ? coded(success, answer) : plain(success));
  }
}

EncodableMap directory(const EncodableValue& path) { return mapOf({{"workingDirectory", path}}); }

INSTANTIATE_TEST_SUITE_P(
    Each, ToolLauncher,
    ::testing::Values(
        LaunchRow{
            "ScreenCapture", screenCapture, {}, std::nullopt, u"ms-screenclip:", std::nullopt, std::nullopt, false},
        LaunchRow{"TaskManager", taskManager, {}, std::nullopt, u"taskmgr.exe", std::nullopt, std::nullopt, false},
        LaunchRow{"CommandPrompt", commandPrompt, directory("C:\\My work"), "main", u"cmd.exe", u"/k", u"C:\\My work",
                  false},
        LaunchRow{"CommandPromptAnywhere", commandPrompt, {}, "main", u"cmd.exe", u"/k", std::nullopt, false},
        LaunchRow{"CommandPromptEmptyDirectory", commandPrompt, directory(""), "main", u"cmd.exe", u"/k", std::nullopt,
                  false},
        LaunchRow{"CommandPromptNoText", commandPrompt, directory(EncodableValue(1)), "main", u"cmd.exe", u"/k",
                  std::nullopt, false},
        LaunchRow{"CommandWindow", commandWindow, directory("D:\\Größe"), "main", u"cmd.exe", u"/k explorer .",
                  u"D:\\Größe", false},
        LaunchRow{
            "CommandWindowAnywhere", commandWindow, {}, "main", u"cmd.exe", u"/k explorer .", std::nullopt, false},
        LaunchRow{"BatchFile", runBatchFile, mapOf({{"batchPath", "C:\\go.bat"}}), "main", u"cmd.exe",
                  u"/d /k call \"C:\\go.bat\"", std::nullopt, true},
        LaunchRow{"BatchFileInADirectory", runBatchFile,
                  mapOf({{"batchPath", "C:\\My work\\gö.bat"}, {"workingDirectory", "C:\\My work"}}), "main",
                  u"cmd.exe", u"/d /k call \"C:\\My work\\gö.bat\"", u"C:\\My work", true},
        LaunchRow{"BatchFileWithQuotesOfItsOwn", runBatchFile, mapOf({{"batchPath", "a\" & b.bat \"%x%"}}), "main",
                  u"cmd.exe", u"/d /k call \"a\" & b.bat \"%x%\"", std::nullopt, true},
        LaunchRow{"BatchFileOfOneSpace", runBatchFile, mapOf({{"batchPath", " "}}), "main", u"cmd.exe",
                  u"/d /k call \" \"", std::nullopt, true},
        LaunchRow{"TextFile", openTextFile, mapOf({{"filePath", "C:\\Ein Text 豆.txt"}}), "main", u"notepad.exe",
                  u"\"C:\\Ein Text 豆.txt\"", std::nullopt, true},
        LaunchRow{"TextFileTakesNoDirectory", openTextFile,
                  mapOf({{"filePath", "a.txt"}, {"workingDirectory", "C:\\"}}), "main", u"notepad.exe", u"\"a.txt\"",
                  std::nullopt, true}),
    nameOfRow<LaunchRow>);

using FileLauncher = DesktopTest;

TEST_F(FileLauncher, LaunchesNothing_WhenNoPathIsGiven) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const EncodableMap empty = mapOf({{"batchPath", ""}, {"filePath", ""}, {"workingDirectory", "C:\\"}});
  const EncodableMap numbers = mapOf({{"batchPath", EncodableValue(1)}, {"filePath", EncodableValue(2)}});
  const EncodableMap nothing;
  for (const EncodableMap* arguments : {&empty, &numbers, &nothing, static_cast<const EncodableMap*>(nullptr)}) {
    EXPECT_EQ(runBatchFile(window.get(), arguments), coded(false, 2));
    EXPECT_EQ(openTextFile(window.get(), arguments), coded(false, 2));
  }
  EXPECT_EQ(desktop.platformCalls("ShellExecuteW"), 0);
}

}  // namespace
}  // namespace orvane
