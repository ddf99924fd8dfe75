#include "desktop/synthetic_keys.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "composer/key_events.h"
#include "desktop/desktop_test.h"
#include "desktop/previous_window.h"
#include "support/call_record.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::PlainWindow;
using simulation::CallRecord;
using simulation::SimulatedDesktop;

using Keys = std::vector<std::string>;

TEST(KeyEvent, HasItsVirtualKeyAndNothingElse) {
  for (const bool isUp : {false, true}) {
    const INPUT event = makeKeyEvent(VK_SNAPSHOT, isUp);
    EXPECT_EQ(event.type, static_cast<DWORD>(INPUT_KEYBOARD));
    EXPECT_EQ(event.ki.wVk, VK_SNAPSHOT);
    EXPECT_EQ(event.ki.wScan, 0);
    EXPECT_EQ(event.ki.dwFlags, static_cast<DWORD>(isUp ? KEYEVENTF_KEYUP : 0));
    EXPECT_EQ(event.ki.time, 0U);
    EXPECT_EQ(event.ki.dwExtraInfo, 0U);
  }
}

// Down in the chord's order, up in the reverse one.
Keys chord(const std::vector<int>& keys) {
  Keys events;
  for (const int key : keys) events.push_back("down " + std::to_string(key));
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) events.push_back("up " + std::to_string(*key));
  return events;
}

void expectOneBatch(const SimulatedDesktop& desktop) {
  for (const auto& event : desktop.keyEvents()) {
    EXPECT_EQ(event.batch, 1);
    EXPECT_EQ(event.ms, 0);
  }
  EXPECT_EQ(desktop.platformCalls("SendInput"), 1);
  EXPECT_EQ(desktop.nowMs(), 0) << "there is no delay in a chord";
}

TEST(KeyChord, SendsNothing_WhenItHasNoKeys) {
  const SimulatedDesktop desktop("{}");
  EXPECT_FALSE(sendKeyChord({}));
  EXPECT_EQ(desktop.platformCalls("SendInput"), 0);
}

TEST(KeyChord, GoesDownAndUpInOneCall) {
  for (const std::vector<WORD>& keys :
       {std::vector<WORD>{0x41}, {0x10, 0x0D}, {0x5B, 0x10, 0x52}, {0x10, 0x11, 0x12, 0x5B, 0x41}, {0x41, 0x41}}) {
    const SimulatedDesktop desktop("{}");
    EXPECT_TRUE(sendKeyChord(keys));
    EXPECT_EQ(desktop.keys(), chord({keys.begin(), keys.end()}));
    expectOneBatch(desktop);
  }
}

TEST(KeyChord, Succeeds_WhenAsManyEventsWereInsertedAsGiven) {
  for (const auto& [inserted, isSent] : {std::pair{"0", false}, {"3", false}, {"4", true}, {"5", false}}) {
    SimulatedDesktop desktop("{}");
    desktop.setFaults(faultOf("SendInput", inserted));
    const std::vector<WORD> keys = {0x10, 0x0D};
    EXPECT_EQ(sendKeyChord(keys), isSent) << inserted;
    EXPECT_EQ(desktop.platformCalls("SendInput"), 1) << "nothing is retried";
  }
}

struct HotKeyRow {
  const char* test;
  const char* keys;
  std::vector<int> chord;
};

class WindowsHotKey : public ::testing::TestWithParam<HotKeyRow> {};

TEST_P(WindowsHotKey, IsPressedWhereverTheFocusIs) {
  const SimulatedDesktop desktop(R"({"windows": [{"id": "front", "process": "notepad.exe"}], "foreground": "front"})");
  EXPECT_TRUE(sendWindowsHotKey(GetParam().keys));
  EXPECT_EQ(desktop.keys(), chord(GetParam().chord));
  EXPECT_EQ(desktop.keyEvents().front().window, "front");
  expectOneBatch(desktop);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
}

TEST_P(WindowsHotKey, Fails_WhenNotAllOfItWasInserted) {
  SimulatedDesktop desktop("{}");
  desktop.setFaults(faultOf("SendInput", "1"));
  EXPECT_FALSE(sendWindowsHotKey(GetParam().keys));
}

INSTANTIATE_TEST_SUITE_P(Each, WindowsHotKey,
                         ::testing::Values(HotKeyRow{"WinShiftR", "Win+Shift+R", {0x5B, 0x10, 0x52}},
                                           HotKeyRow{"WinAltR", "Win+Alt+R", {0x5B, 0x12, 0x52}},
                                           HotKeyRow{"AltPrtSc", "Alt+PrtSc", {0x12, 0x2C}},
                                           HotKeyRow{"WinPrtSc", "Win+PrtSc", {0x5B, 0x2C}},
                                           HotKeyRow{"WinD", "Win+D", {0x5B, 0x44}},
                                           HotKeyRow{"WinE", "Win+E", {0x5B, 0x45}},
                                           HotKeyRow{"WinH", "Win+H", {0x5B, 0x48}},
                                           HotKeyRow{"WinV", "Win+V", {0x5B, 0x56}}),
                         nameOfRow<HotKeyRow>);

TEST(WindowsHotKeys, AreNoOthers) {
  const SimulatedDesktop desktop("{}");
  for (const char* keys : {"", "win+d", "WIN+D", "Win+d", "Win + D", " Win+D", "Win+D ", "D", "Win", "Win+", "Win+L",
                           "Win+R", "Shift+Win+R", "Win+Shift+R+", "Ctrl+V", "Alt+PrtScn", "Alt+F4"}) {
    EXPECT_FALSE(sendWindowsHotKey(keys)) << keys;
  }
  EXPECT_FALSE(sendWindowsHotKey(std::string_view("Win+D\0", 6)));
  EXPECT_EQ(desktop.platformCalls("SendInput"), 0);
}

// The new line goes to the window that was active before the main one.
class NewLine : public DesktopTest {
 protected:
  // `editor` are further members of the editor's window, each with a comma in front.
  void standUp(const std::string& editor = "") {
    desktop = std::make_unique<SimulatedDesktop>(R"({"windows": [{"id": "editor", "process": "notepad.exe")" + editor +
                                                 R"(}, {"id": "other", "process": "other.exe"}]})");
    main = std::make_unique<PlainWindow>();
    remember(desktop->window("editor"));
  }

  void remember(HWND window) {
    noteActivation(nullptr, WA_ACTIVE, reinterpret_cast<LPARAM>(window));
    ASSERT_EQ(previousWindow(), window);
  }

  bool send() { return sendNewLineToPreviousWindow(main->get()); }

  void expectUntouched() {
    for (const char* call : {"ShowWindow", "AttachThreadInput", "BringWindowToTop", "SetForegroundWindow",
                             "SetActiveWindow", "SetFocus", "SendInput"}) {
      EXPECT_EQ(desktop->platformCalls(call), 0) << call;
    }
    EXPECT_EQ(desktop->nowMs(), 0);
    EXPECT_EQ(desktop->foreground(), "main");
  }

  std::unique_ptr<SimulatedDesktop> desktop;
  std::unique_ptr<PlainWindow> main;
};

TEST_F(NewLine, IsShiftAndReturnInThePreviousWindow) {
  standUp();
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->keys(), chord({0x10, 0x0D}));
  for (const auto& event : desktop->keyEvents()) {
    EXPECT_EQ(event.window, "editor");
    EXPECT_EQ(event.batch, 1);
    EXPECT_EQ(event.ms, 150);
  }
  EXPECT_EQ(desktop->foreground(), "editor") << "the user stays there";
  EXPECT_EQ(previousWindow(), desktop->window("editor"));
}

TEST_F(NewLine, IsNotSent_WhenThatWindowIsGone) {
  standUp();
  desktop->perform("other", R"([{"closeWindow": "editor"}])");
  EXPECT_FALSE(send());
  expectUntouched();
}

TEST_F(NewLine, IsNotSent_WhenItIsTheMainWindowItself) {
  standUp();
  remember(main->get());
  EXPECT_FALSE(send());
  expectUntouched();
}

TEST_F(NewLine, RestoresAMinimisedWindow) {
  standUp(R"(, "minimized": true)");
  EXPECT_TRUE(send());
  EXPECT_FALSE(::IsIconic(desktop->window("editor")));
}

TEST_F(NewLine, JoinsTheInputOfTheOtherThread_AndPutsTheFocusBack) {
  standUp();
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->platformCalls("AttachThreadInput"), 2);
  EXPECT_EQ(desktop->platformCalls("GetGUIThreadInfo"), 1);
  EXPECT_EQ(desktop->platformCalls("SetFocus"), 1);
  EXPECT_EQ(desktop->platformCalls("SetActiveWindow"), 1);
  EXPECT_EQ(desktop->held("threadInputs"), 0);
}

TEST_F(NewLine, PartsFromTheOtherThreadBeforeItWaits_AndLooksWhoIsInFrontAfterIt) {
  standUp(R"(, "minimized": true)");
  const CallRecord record(
      *desktop, {"ShowWindow", "AttachThreadInput", "BringWindowToTop", "SetForegroundWindow", "SetActiveWindow",
                 "GetGUIThreadInfo", "SetFocus", "Sleep", "GetForegroundWindow", "SendInput"});
  EXPECT_TRUE(send());
  EXPECT_EQ(record.calls(),
            (std::vector<std::string>{"ShowWindow editor", "AttachThreadInput editor", "BringWindowToTop editor",
                                      "SetForegroundWindow editor", "SetActiveWindow editor", "GetGUIThreadInfo editor",
                                      "SetFocus editor", "AttachThreadInput editor", "Sleep",
                                      "GetForegroundWindow editor", "SendInput editor"}));
}

TEST_F(NewLine, AsksForTheForegroundAlone_WhenTheInputCantBeJoined) {
  standUp();
  desktop->setFaults(faultOf("AttachThreadInput", "false"));
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->platformCalls("AttachThreadInput"), 1) << "nothing to part from";
  EXPECT_EQ(desktop->platformCalls("GetGUIThreadInfo"), 0);
  EXPECT_EQ(desktop->platformCalls("SetFocus"), 0);
}

TEST_F(NewLine, JoinsNoInput_WhenTheWindowsThreadIsUnknown) {
  standUp();
  desktop->setFaults(faultOf("GetWindowThreadProcessId", "0"));
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->platformCalls("AttachThreadInput"), 0);
}

TEST_F(NewLine, JoinsNoInput_WhenTheWindowIsOfThisThread) {
  standUp();
  const PlainWindow own({0, 0, 100, 100}, L"Own");
  remember(own.get());
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->platformCalls("AttachThreadInput"), 0);
  EXPECT_EQ(desktop->keyEvents().front().window, "own");
}

TEST_F(NewLine, SetsNoFocus_WhenNobodyIsKnownToHaveHadIt) {
  standUp();
  desktop->setFaults(faultOf("GetGUIThreadInfo", "false"));
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->platformCalls("SetFocus"), 0);
  EXPECT_EQ(desktop->held("threadInputs"), 0);
}

TEST_F(NewLine, GoesOn_WhateverTheSingleRequestsAnswer) {
  for (const char* call : {"ShowWindow", "BringWindowToTop", "SetActiveWindow", "SetFocus"}) {
    standUp();
    desktop->setFaults(faultOf(call, "0"));
    EXPECT_TRUE(send()) << call;
    EXPECT_EQ(desktop->held("threadInputs"), 0) << call;
    main.reset();
    desktop.reset();
  }
}

TEST_F(NewLine, IsNotSent_WhenTheForegroundIsRefused) {
  standUp(R"(, "foregroundRequests": "refused")");
  EXPECT_FALSE(send());
  EXPECT_EQ(desktop->platformCalls("SendInput"), 0);
  EXPECT_EQ(desktop->platformCalls("SetForegroundWindow"), 1) << "nothing is retried";
  EXPECT_EQ(desktop->nowMs(), 150);
  EXPECT_EQ(desktop->foreground(), "main");
  EXPECT_EQ(desktop->zOrder().front(), "editor") << "its place in the order stays changed";
  EXPECT_EQ(previousWindow(), desktop->window("editor")) << "the next call may try again";
  EXPECT_EQ(desktop->held("threadInputs"), 0);
}

TEST_F(NewLine, IsSent_WhenTheWindowComesToTheFrontDuringTheWait) {
  standUp(R"(, "foregroundRequests": "refused",
             "rules": [{"on": {"time": 149}, "do": [{"foreground": "editor"}]}])");
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->keyEvents().size(), 4U);
}

TEST_F(NewLine, IsNotSent_WhenAnotherWindowTakesTheForegroundDuringTheWait) {
  for (const char* taker : {R"("other")", "null"}) {
    standUp(R"(, "rules": [{"on": {"time": 100}, "do": [{"foreground": )" + std::string(taker) + "}]}]");
    EXPECT_FALSE(send()) << taker;
    EXPECT_EQ(desktop->platformCalls("SendInput"), 0) << taker;
    main.reset();
    desktop.reset();
  }
}

TEST_F(NewLine, IsSent_WhenAChildOfTheWindowIsInFront) {
  standUp();
  const PlainWindow own({0, 0, 100, 100}, L"Own");
  const HWND child = ::CreateWindowExW(0, L"Own", L"", WS_CHILD, 0, 0, 10, 10, own.get(), nullptr, nullptr, nullptr);
  ASSERT_NE(child, nullptr);
  remember(own.get());
  desktop->setFaults(faultOf("GetForegroundWindow", std::to_string(reinterpret_cast<std::uintptr_t>(child))));
  EXPECT_TRUE(send());
  EXPECT_EQ(desktop->keyEvents().size(), 4U);
}

TEST_F(NewLine, IsNotSent_WhenTheForegroundCantBeRead) {
  for (const char* call : {"GetForegroundWindow", "GetAncestor"}) {
    standUp();
    desktop->setFaults(faultOf(call, "null"));
    EXPECT_FALSE(send()) << call;
    EXPECT_EQ(desktop->platformCalls("SendInput"), 0) << call;
    main.reset();
    desktop.reset();
  }
}

TEST_F(NewLine, Fails_WhenNotAllOfItWasInserted) {
  standUp();
  desktop->setFaults(faultOf("SendInput", "3"));
  EXPECT_FALSE(send());
  EXPECT_EQ(desktop->platformCalls("SendInput"), 1) << "no key is sent again";
}

}  // namespace
}  // namespace orvane
