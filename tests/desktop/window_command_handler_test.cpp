#include "desktop/window_command_handler.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desktop/clean_background_window.h"
#include "desktop/desktop_test.h"
#include "embedding/recorded_result.h"
#include "support/call_record.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::mapOf;
using desktop_tests::oneMonitor;
using desktop_tests::PlainWindow;
using embedding_tests::RecordedResult;
using embedding_tests::ResultCalls;
using simulation::CallRecord;
using simulation::SimulatedDesktop;

const std::vector<std::string> methods = {"readOrvaneDraftClipboard",
                                          "writeOrvaneDraftClipboard",
                                          "activateContentProcess",
                                          "checkSpelling",
                                          "restoreCleanBackground",
                                          "syncCleanBackground",
                                          "getWorkArea",
                                          "getBounds",
                                          "clipboardSequenceNumber",
                                          "readClipboardImage",
                                          "openScreenCapture",
                                          "openTaskManager",
                                          "openCommandPromptAt",
                                          "openCommandWindow",
                                          "runBatchFile",
                                          "openTextFile",
                                          "sendWindowsHotKey",
                                          "sendNewLineToPreviousWindow",
                                          "showNativeHotKeysMenu",
                                          "minimizeWindow",
                                          "closeWindow",
                                          "beginWindowDrag",
                                          "setBounds",
                                          "emergencyRestore"};

// The handler of a window, which may be none.
class Channel {
 public:
  explicit Channel(HWND window) : handler_({[window] { return window; }, [this](bool is) { isCompact = is; }}) {}

  ResultCalls call(const std::string& method, std::optional<EncodableValue> arguments = std::nullopt) const {
    ResultCalls calls;
    handler_.HandleMethodCall(
        MethodCall(method, arguments ? std::make_unique<EncodableValue>(std::move(*arguments)) : nullptr),
        std::make_unique<RecordedResult>(calls));
    return calls;
  }

  // The reply of a call that must succeed.
  EncodableMap reply(const std::string& method, std::optional<EncodableValue> arguments = std::nullopt) const {
    const ResultCalls calls = call(method, std::move(arguments));
    EXPECT_EQ(calls.names, std::vector<std::string>{"Success"}) << method;
    return calls.values.size() == 1 ? std::get<EncodableMap>(calls.values[0]) : EncodableMap();
  }

  std::optional<bool> isCompact;

 private:
  WindowCommandHandler handler_;
};

EncodableMap plain(bool success) { return mapOf({{"success", EncodableValue(success)}}); }

using WindowChannel = DesktopTest;

TEST_F(WindowChannel, AnswersEveryMethodAsFailed_WhenThereIsNoWindow) {
  const SimulatedDesktop desktop("{}");
  const Channel channel(nullptr);
  for (const std::string& method : methods) {
    EXPECT_EQ(channel.reply(method), plain(false)) << method;
  }
  EXPECT_EQ(channel.reply("noSuchMethod"), plain(false)) << "known or not";
  EXPECT_EQ(channel.reply(""), plain(false));
  EXPECT_EQ(desktop.platformCalls("GetDpiForWindow"), 0);
  EXPECT_EQ(desktop.platformCalls("OpenClipboard"), 0);
  EXPECT_EQ(desktop.platformCalls("ShellExecuteW"), 0);
}

TEST_F(WindowChannel, AnswersEveryMethodAsFailed_WhenTheWindowIsGone) {
  const SimulatedDesktop desktop("{}");
  HWND gone = nullptr;
  {
    const PlainWindow window;
    gone = window.get();
  }
  const Channel channel(gone);
  for (const std::string& method : methods) {
    EXPECT_EQ(channel.reply(method), plain(false)) << method;
  }
  EXPECT_EQ(channel.reply("noSuchMethod"), plain(false));
  EXPECT_EQ(desktop.platformCalls("IsWindow"), static_cast<std::int64_t>(methods.size()) + 1);
}

TEST_F(WindowChannel, IsNotImplemented_WhenTheNameIsNotExactlyAMethods) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  std::vector<std::string> names = {"",
                                    "showToolBoxMenu",
                                    "noSuchMethod",
                                    "SetBounds",
                                    "setbounds",
                                    "activateProvider",
                                    std::string("setBounds\0", 10)};
  for (const std::string& method : methods) {
    names.push_back(method + " ");
    names.push_back(" " + method);
    names.push_back(method.substr(1));
    names.push_back(method.substr(0, method.size() - 1));
  }
  for (const std::string& name : names) {
    EXPECT_EQ(channel.call(name, EncodableMap()).names, std::vector<std::string>{"NotImplemented"}) << name;
  }
}

// The keys that a reply may have, those of a success among them.
const std::map<std::string, std::set<std::string>> replyKeys = {
    {"readOrvaneDraftClipboard", {"success", "html", "text"}},
    {"checkSpelling", {"supported", "misspelled", "suggestions"}},
    {"syncCleanBackground", {"success", "errorCode", "temporarilyClosed", "visible", "x", "y", "width", "height"}},
    {"getWorkArea", {"success", "x", "y", "width", "height"}},
    {"getBounds", {"success", "x", "y", "width", "height"}},
    {"clipboardSequenceNumber", {"success", "sequence"}},
    {"runBatchFile", {"success", "errorCode"}},
    {"openTextFile", {"success", "errorCode"}},
    {"showNativeHotKeysMenu", {"success", "action"}},
};

TEST_F(WindowChannel, RepliesOnceWithItsKeys_WhateverTheArgumentsAre) {
  for (const EncodableValue& arguments :
       {EncodableValue(), EncodableValue("text"), EncodableValue(EncodableList()), EncodableValue(EncodableMap())}) {
    for (const std::string& method : methods) {
      cleanBackgroundState() = {};
      const SimulatedDesktop desktop(R"({"clipboard": {"text": "a"}})");
      const PlainWindow window;
      const Channel channel(window.get());
      std::set<std::string> keys;
      for (const auto& [key, value] : channel.reply(method, arguments)) {
        keys.insert(std::get<std::string>(key));
      }
      const auto known = replyKeys.find(method);
      EXPECT_EQ(keys, known == replyKeys.end() ? std::set<std::string>{"success"} : known->second) << method;
      destroyCleanBackgroundOf(window.get());
    }
  }
}

TEST_F(WindowChannel, AnswersBeforeItReturns_WithoutArgumentsAtAll) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  EXPECT_EQ(channel.reply("setBounds"), plain(true));
  EXPECT_EQ(channel.isCompact, true);
  EXPECT_EQ(desktop_tests::sidesOf(window.get()), (std::vector<LONG>{20, 20, 220, 490}));
}

TEST_F(WindowChannel, MeasuresTheScaleAfreshForEachCall) {
  const SimulatedDesktop desktop(R"({"monitors": [{"bounds": [0, 0, 1000, 1000]},
                                                  {"bounds": [1000, 0, 2000, 1000], "dpi": 192}]})");
  const PlainWindow window({100, 100, 500, 400});
  const Channel channel(window.get());
  EXPECT_EQ(channel.reply("getBounds").at(EncodableValue("width")), EncodableValue(400.0));
  desktop_tests::moveTo(window.get(), {1100, 100, 1500, 400});
  EXPECT_EQ(channel.reply("getBounds").at(EncodableValue("width")), EncodableValue(200.0));
}

TEST_F(WindowChannel, CountsPixelsAsLogicalOnes_WhenTheDpiIsZero) {
  SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, 192));
  const PlainWindow window({100, 100, 500, 400});
  desktop.setFaults(faultOf("GetDpiForWindow", "0"));
  EXPECT_EQ(Channel(window.get()).reply("getBounds"), mapOf({{"success", EncodableValue(true)},
                                                             {"x", EncodableValue(100.0)},
                                                             {"y", EncodableValue(100.0)},
                                                             {"width", EncodableValue(400.0)},
                                                             {"height", EncodableValue(300.0)}}));
}

TEST_F(WindowChannel, TellsTheClipboardsNumber_WhichNeverFails) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  const auto numbered = [](std::int64_t number) {
    return mapOf({{"success", EncodableValue(true)}, {"sequence", EncodableValue(number)}});
  };
  EXPECT_EQ(channel.reply("clipboardSequenceNumber"), numbered(1));
  desktop.setFaults(faultOf("GetClipboardSequenceNumber", "0"));
  EXPECT_EQ(channel.reply("clipboardSequenceNumber"), numbered(0));
  desktop.setFaults(faultOf("GetClipboardSequenceNumber", "4294967295"));
  EXPECT_EQ(channel.reply("clipboardSequenceNumber"), numbered(4294967295));
}

TEST_F(WindowChannel, Minimises_AndAlwaysSaysSo) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  desktop.setFaults(faultOf("ShowWindow", "false"));
  EXPECT_EQ(channel.reply("minimizeWindow"), plain(true));
  EXPECT_FALSE(::IsIconic(window.get()));
  desktop.setFaults("[]");
  EXPECT_EQ(channel.reply("minimizeWindow"), plain(true));
  EXPECT_TRUE(::IsIconic(window.get()));
}

TEST_F(WindowChannel, ClosesTheWindowAfterTheReply_AndAlwaysSaysSo) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  desktop.setFaults(faultOf("PostMessageW", "false"));
  EXPECT_EQ(channel.reply("closeWindow"), plain(true));
  EXPECT_TRUE(desktop.platform().records().posted.empty());
  desktop.setFaults("[]");
  EXPECT_EQ(channel.reply("closeWindow"), plain(true));
  EXPECT_TRUE(::IsWindow(window.get()));
  const auto& posted = desktop.platform().records().posted;
  ASSERT_EQ(posted.size(), 1U);
  EXPECT_EQ(posted[0].window, "main");
  EXPECT_EQ(posted[0].message, static_cast<std::uint32_t>(WM_CLOSE));
}

TEST_F(WindowChannel, BeginsADragByTheSystemsMoveCommand) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}]})");
  const PlainWindow window;
  const Channel channel(window.get());
  desktop.bringToFront("other");
  EXPECT_EQ(channel.reply("beginWindowDrag"), plain(true));
  EXPECT_EQ(desktop.platformCalls("ReleaseCapture"), 1);
  EXPECT_EQ(desktop.foreground(), "main");
  const auto& posted = desktop.platform().records().posted;
  ASSERT_EQ(posted.size(), 1U);
  EXPECT_EQ(posted[0].message, static_cast<std::uint32_t>(WM_SYSCOMMAND));
  EXPECT_EQ(posted[0].wParam, 0xF012U);
  EXPECT_EQ(posted[0].lParam, 0);
}

TEST_F(WindowChannel, LetsTheMouseGoAndRaisesTheWindow_BeforeItBeginsADrag) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  const CallRecord record(desktop, {"ReleaseCapture", "SetForegroundWindow", "PostMessageW"});
  EXPECT_EQ(channel.reply("beginWindowDrag"), plain(true));
  EXPECT_EQ(record.calls(),
            (std::vector<std::string>{"ReleaseCapture", "SetForegroundWindow main", "PostMessageW main"}));
}

TEST_F(WindowChannel, TellsOfADragWhetherTheCommandWasPosted) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  desktop.setFaults(faultOf("PostMessageW", "false"));
  EXPECT_EQ(channel.reply("beginWindowDrag"), plain(false));
  desktop.setFaults(
      R"([{"call": "ReleaseCapture", "result": false}, {"call": "SetForegroundWindow", "result": false}])");
  EXPECT_EQ(channel.reply("beginWindowDrag"), plain(true)) << "the rest isn't looked at";
}

TEST_F(WindowChannel, LaunchesForItsWindow) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  channel.reply("runBatchFile", mapOf({{"batchPath", "a.bat"}, {"workingDirectory", ""}}));
  channel.reply("openScreenCapture");
  channel.reply("openTaskManager");
  channel.reply("openCommandPromptAt", mapOf({{"workingDirectory", "C:\\"}}));
  channel.reply("openCommandWindow");
  channel.reply("openTextFile", mapOf({{"filePath", "a.txt"}}));
  std::vector<std::pair<std::optional<std::string>, simulation::Text>> orders;
  for (const auto& one : desktop.platform().records().shell) {
    orders.emplace_back(one.owner, one.parameters.value_or(u"none"));
  }
  EXPECT_EQ(orders,
            (std::vector<std::pair<std::optional<std::string>, simulation::Text>>{{"main", u"/d /k call \"a.bat\""},
                                                                                  {std::nullopt, u"none"},
                                                                                  {std::nullopt, u"none"},
                                                                                  {"main", u"/k"},
                                                                                  {"main", u"/k explorer ."},
                                                                                  {"main", u"\"a.txt\""}}));
  EXPECT_EQ(desktop.platform().records().shell[0].directory, std::nullopt);
}

TEST_F(WindowChannel, PassesTheKeysOn) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  EXPECT_EQ(channel.reply("sendWindowsHotKey", mapOf({{"keys", "Win+E"}})), plain(true));
  EXPECT_EQ(channel.reply("sendWindowsHotKey", mapOf({{"keys", "win+e"}})), plain(false));
  EXPECT_EQ(desktop.platformCalls("SendInput"), 1);
}

TEST_F(WindowChannel, TellsTheMenusAction) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  const EncodableMap arguments = mapOf({{"items", EncodableList{mapOf({{"action", "copy"}, {"label", "Copy"}})}}});
  const auto answer = [](const char* action) {
    return mapOf({{"success", EncodableValue(*action != '\0')}, {"action", EncodableValue(action)}});
  };
  desktop.world().nextMenuChoice = 1;
  EXPECT_EQ(channel.reply("showNativeHotKeysMenu", arguments), answer("copy"));
  EXPECT_EQ(channel.reply("showNativeHotKeysMenu", arguments), answer(""));
  EXPECT_EQ(channel.reply("showNativeHotKeysMenu"), answer(""));
}

TEST_F(WindowChannel, LeavesTheCompactFormInAnEmergency) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const Channel channel(window.get());
  channel.reply("setBounds");
  ASSERT_EQ(channel.isCompact, true);
  EXPECT_EQ(channel.reply("emergencyRestore"), plain(true));
  EXPECT_EQ(channel.isCompact, false);
}

}  // namespace
}  // namespace orvane
