#include "desktop/previous_window.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "desktop/desktop_test.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::PlainWindow;
using simulation::SimulatedDesktop;

constexpr LONG objectClient = -4;
constexpr DWORD minimizeStart = 0x0016;

const std::string severalWindows = R"({"windows": [
    {"id": "editor", "process": "notepad.exe"},
    {"id": "remembered", "process": "notepad.exe"},
    {"id": "hidden", "process": "notepad.exe", "visible": false},
    {"id": "instance", "process": "orvane.exe", "pid": 77},
    {"id": "panel", "process": "orvane.exe", "cleanBackground": true},
    {"id": "namesake", "process": "orvane.exe", "path": "C:\\elsewhere\\orvane.exe"},
    {"id": "stranger", "process": "notepad.exe", "cleanBackground": true}]})";

// Each test begins with "remembered" as the previous window.
class PreviousWindow : public DesktopTest {
 protected:
  PreviousWindow() {
    noteActivation(main.get(), WA_ACTIVE, asParameter(desktop.window("remembered")));
    EXPECT_EQ(previous(), "remembered");
  }

  static LPARAM asParameter(HWND window) { return reinterpret_cast<LPARAM>(window); }

  static void noteForeground(HWND window, DWORD event = EVENT_SYSTEM_FOREGROUND, LONG objectId = OBJID_WINDOW,
                             LONG childId = CHILDID_SELF) {
    noteForegroundChange(nullptr, event, window, objectId, childId, 1, 2);
  }

  // The id of the previous window as it stands.
  std::string previous() const {
    for (const char* id : {"editor", "remembered", "hidden", "instance", "panel", "namesake", "stranger", "main"}) {
      if (desktop.window(id) == previousWindow()) return id;
    }
    return "unknown";
  }

  SimulatedDesktop desktop{severalWindows};
  PlainWindow main;
};

TEST_F(PreviousWindow, IsTheForeignWindowThatCameToTheFront) {
  noteForeground(desktop.window("editor"));
  EXPECT_EQ(previous(), "editor");
  noteForeground(desktop.window("namesake"));
  EXPECT_EQ(previous(), "namesake") << "a program of another folder is another program";
  noteForeground(desktop.window("hidden"));
  EXPECT_EQ(previous(), "hidden");
}

TEST_F(PreviousWindow, StaysWhenTheEventIsAnother) {
  const HWND editor = desktop.window("editor");
  noteForeground(editor, minimizeStart);
  noteForeground(editor, 0);
  noteForeground(editor, EVENT_SYSTEM_FOREGROUND, objectClient);
  noteForeground(editor, EVENT_SYSTEM_FOREGROUND, 1);
  noteForeground(editor, EVENT_SYSTEM_FOREGROUND, OBJID_WINDOW, 1);
  noteForeground(editor, EVENT_SYSTEM_FOREGROUND, OBJID_WINDOW, -1);
  EXPECT_EQ(previous(), "remembered");
}

TEST_F(PreviousWindow, StaysWhenThereIsNoSuchWindow) {
  noteForeground(nullptr);
  noteForeground(reinterpret_cast<HWND>(std::uintptr_t{0x7FFF2}));
  const HWND gone = desktop.window("editor");
  desktop.perform("remembered", R"([{"closeWindow": "editor"}])");
  noteForeground(gone);
  EXPECT_EQ(previous(), "remembered");
}

TEST_F(PreviousWindow, IsNeverOneOfThisProgram_ByTheHook) {
  for (const char* id : {"instance", "panel", "main"}) {
    noteForeground(desktop.window(id));
    EXPECT_EQ(previous(), "remembered") << id;
  }
}

TEST_F(PreviousWindow, IsNeverAPanel_ByTheHook) {
  noteForeground(desktop.window("stranger"));
  EXPECT_EQ(previous(), "remembered") << "whoever's it is";
}

TEST_F(PreviousWindow, IsTheRootOfWhatCameToTheFront_ByTheHook) {
  const auto root = std::to_string(reinterpret_cast<std::uintptr_t>(desktop.window("editor")));
  desktop.setFaults(faultOf("GetAncestor", root));
  noteForeground(desktop.window("hidden"));
  EXPECT_EQ(previous(), "editor");
}

TEST_F(PreviousWindow, StaysWhenThereIsNoRoot) {
  desktop.setFaults(faultOf("GetAncestor", "null"));
  noteForeground(desktop.window("editor"));
  EXPECT_EQ(previous(), "remembered");
}

TEST_F(PreviousWindow, CountsAWindowAsForeign_WhenItsProgramCantBeRead) {
  desktop.setFaults(faultOf("OpenProcess", "null", "instance"));
  noteForeground(desktop.window("instance"));
  EXPECT_EQ(previous(), "instance");
}

TEST_F(PreviousWindow, IsTheWindowThatLostTheActivation) {
  // Activated, by a click too, and while minimised.
  for (const WPARAM word : {WPARAM{1}, WPARAM{2}, WPARAM{0x10001}, WPARAM{0xFFFF}}) {
    noteActivation(main.get(), word, asParameter(desktop.window("remembered")));
    noteActivation(main.get(), word, asParameter(desktop.window("editor")));
    EXPECT_EQ(previous(), "editor") << word;
  }
}

TEST_F(PreviousWindow, MayBeAnotherInstancesWindow_ByTheActivation) {
  for (const char* id : {"instance", "panel", "stranger"}) {
    noteActivation(main.get(), WA_ACTIVE, asParameter(desktop.window(id)));
    EXPECT_EQ(previous(), id);
  }
  EXPECT_EQ(desktop.platformCalls("OpenProcess"), 0);
}

TEST_F(PreviousWindow, IsNotReducedToItsRoot_ByTheActivation) {
  const HWND child =
      ::CreateWindowExW(0, L"PlainWindow", L"", WS_CHILD, 0, 0, 10, 10, main.get(), nullptr, nullptr, nullptr);
  ASSERT_NE(child, nullptr);
  noteActivation(desktop.window("editor"), WA_ACTIVE, asParameter(child));
  EXPECT_EQ(previousWindow(), child);
}

TEST_F(PreviousWindow, StaysWhenTheMainWindowLosesTheActivation) {
  for (const WPARAM word : {WPARAM{0}, WPARAM{0x10000}, WPARAM{0xFFFF0000}}) {
    noteActivation(main.get(), word, asParameter(desktop.window("editor")));
    EXPECT_EQ(previous(), "remembered") << word;
  }
}

TEST_F(PreviousWindow, StaysWhenTheActivationNamesNoOtherWindow) {
  noteActivation(main.get(), WA_ACTIVE, 0);
  noteActivation(main.get(), WA_ACTIVE, asParameter(main.get()));
  noteActivation(main.get(), WA_ACTIVE, 0x7FFF2);
  const HWND gone = desktop.window("editor");
  desktop.perform("remembered", R"([{"closeWindow": "editor"}])");
  noteActivation(main.get(), WA_ACTIVE, asParameter(gone));
  EXPECT_EQ(previous(), "remembered");
}

TEST_F(PreviousWindow, IsKept_WhenThatWindowGoes) {
  const HWND gone = desktop.window("remembered");
  desktop.perform("editor", R"([{"closeWindow": "remembered"}])");
  EXPECT_EQ(previousWindow(), gone);
}

}  // namespace
}  // namespace orvane
