#include "desktop/window_order.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/desktop_test.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::PlainWindow;
using simulation::SimulatedDesktop;

using Ids = std::vector<std::string>;

// Windows of these members, top first; "front" is a foreign one at the top unless others say so.
std::string desktopOf(const std::string& windows, const std::string& foreground = "null") {
  return R"({"windows": [)" + windows + R"(], "foreground": )" + foreground + "}";
}

const std::string foreign = R"({"id": "foreign", "process": "notepad.exe"})";

// The window to be placed; the first of its class, so the desktop's "main". Made on top, and hidden.
class Placed {
 public:
  Placed() : window({0, 0, 300, 200}, L"Placed", WS_OVERLAPPEDWINDOW) {}
  bool behindOwn(Restack restack) const { return placeBehindOwnWindows(window.get(), restack); }

  PlainWindow window;
};

using WindowOrder = DesktopTest;

TEST_F(WindowOrder, IsBehindTheLowestOwnWindow) {
  const SimulatedDesktop desktop(desktopOf(R"({"id": "a", "process": "orvane.exe"},
      {"id": "f1", "process": "notepad.exe"}, {"id": "b", "process": "orvane.exe"},
      {"id": "f2", "process": "notepad.exe"})"));
  const Placed placed;
  EXPECT_TRUE(placed.behindOwn(Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"a", "f1", "b", "main", "f2"}));
}

TEST_F(WindowOrder, CountsTheWindowsOfThisProcessToo) {
  const SimulatedDesktop desktop(desktopOf(foreign));
  const Placed placed;
  const PlainWindow own({0, 0, 100, 100}, L"Own");
  EXPECT_TRUE(placed.behindOwn(Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"own", "main", "foreign"}));
}

struct AnchorRow {
  const char* why;
  std::string lowest;  // further members of the lowest own window
  bool counts;
};

TEST_F(WindowOrder, PassesOverWindowsThatDontCount) {
  const AnchorRow rows[] = {
      {"plain", "", true},
      {"hidden", R"(, "visible": false)", false},
      {"iconic", R"(, "minimized": true)", false},
      {"a panel", R"(, "cleanBackground": true)", false},
      {"another image", R"(, "path": "C:\\elsewhere\\orvane.exe")", false},
      {"image in other letter case", R"(, "path": "C:\\PROGRAM FILES\\Orvane\\Orvane.exe")", true},
  };
  for (const AnchorRow& row : rows) {
    const SimulatedDesktop desktop(desktopOf(R"({"id": "upper", "process": "orvane.exe"}, )" + foreign +
                                             R"(, {"id": "lowest", "process": "orvane.exe")" + row.lowest + "}"));
    const Placed placed;
    EXPECT_TRUE(placed.behindOwn(Restack::always));
    EXPECT_EQ(desktop.zOrder(),
              row.counts ? (Ids{"upper", "foreign", "lowest", "main"}) : (Ids{"upper", "main", "foreign", "lowest"}))
        << row.why;
  }
}

TEST_F(WindowOrder, NeverTakesATopmostWindowAsTheAnchor) {
  const SimulatedDesktop desktop(desktopOf(R"({"id": "high", "process": "orvane.exe", "topmost": true}, )" + foreign));
  const Placed placed;
  EXPECT_TRUE(placed.behindOwn(Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"high", "main", "foreign"})) << "on top of those that aren't topmost";
  EXPECT_FALSE(desktop.windowState("main").topmost);
}

TEST_F(WindowOrder, PassesOverAWindow_WhenItsProgramCantBeRead) {
  for (const auto& [call, result] : {std::pair{"OpenProcess", "null"}, {"GetWindowThreadProcessId", "0"}}) {
    SimulatedDesktop desktop(desktopOf(R"({"id": "upper", "process": "orvane.exe"}, )" + foreign +
                                       R"(, {"id": "lowest", "process": "orvane.exe", "pid": 77})"));
    const Placed placed;
    desktop.setFaults(faultOf(call, result, "lowest"));
    EXPECT_TRUE(placed.behindOwn(Restack::always));
    EXPECT_EQ(desktop.zOrder(), (Ids{"upper", "main", "foreign", "lowest"})) << call;
  }
}

TEST_F(WindowOrder, IsOnTop_WhenThereIsNoOtherOwnWindow) {
  const SimulatedDesktop desktop(desktopOf(foreign));
  const Placed placed;
  ::SetWindowPos(placed.window.get(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  ASSERT_EQ(desktop.zOrder(), (Ids{"foreign", "main"}));
  EXPECT_TRUE(placed.behindOwn(Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"main", "foreign"}));
}

TEST_F(WindowOrder, IsNeverBehindItself) {
  const SimulatedDesktop desktop(desktopOf(R"({"id": "upper", "process": "orvane.exe"}, )" + foreign));
  const PlainWindow window({0, 0, 300, 200}, L"Placed");
  ::SetWindowPos(window.get(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  ASSERT_EQ(desktop.zOrder(), (Ids{"upper", "foreign", "main"}));
  EXPECT_TRUE(placeBehindOwnWindows(window.get(), Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"upper", "main", "foreign"}));
}

TEST_F(WindowOrder, IsOnTop_WhenTheListCantBeRead) {
  SimulatedDesktop desktop(desktopOf(foreign + R"(, {"id": "a", "process": "orvane.exe"})"));
  const Placed placed;
  desktop.setFaults(faultOf("GetTopWindow", "null"));
  EXPECT_TRUE(placed.behindOwn(Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"main", "foreign", "a"}));
}

TEST_F(WindowOrder, EndsWhereTheListDoes) {
  SimulatedDesktop desktop(desktopOf(R"({"id": "upper", "process": "orvane.exe"}, )" + foreign +
                                     R"(, {"id": "lowest", "process": "orvane.exe"})"));
  const Placed placed;
  desktop.setFaults(faultOf("GetWindow", "null", "foreign"));
  EXPECT_TRUE(placed.behindOwn(Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"upper", "main", "foreign", "lowest"}));
}

TEST_F(WindowOrder, ShowsTheWindowWithoutMovingOrActivatingIt) {
  const SimulatedDesktop desktop(desktopOf(foreign, R"("foreign")"));
  const Placed placed;
  EXPECT_TRUE(placed.behindOwn(Restack::always));
  EXPECT_TRUE(::IsWindowVisible(placed.window.get()));
  EXPECT_EQ(desktop.foreground(), "foreign");
  EXPECT_EQ(desktop_tests::sidesOf(placed.window.get()), (std::vector<LONG>{0, 0, 300, 200}));
}

TEST_F(WindowOrder, Fails_WhenTheWindowCantBePlaced) {
  SimulatedDesktop desktop(desktopOf(foreign));
  const Placed placed;
  desktop.setFaults(faultOf("SetWindowPos", "false"));
  EXPECT_FALSE(placed.behindOwn(Restack::always));
  EXPECT_FALSE(placeBehindOwnWindows(nullptr, Restack::always));
}

struct DueRow {
  const char* why;
  std::string windows;
  std::string foreground;  // a window's id; empty for none
  bool isDue;
};

TEST_F(WindowOrder, ChangesOnlyWhileAnOwnWindowIsInFront_UnlessForced) {
  const std::string own = R"({"id": "own", "process": "orvane.exe"})";
  const DueRow rows[] = {
      {"another program", foreign + ", " + own, "foreign", false},
      {"nobody", foreign + ", " + own, "", false},
      {"another instance", foreign + ", " + own, "own", true},
      {"another instance's panel", foreign + R"(, {"id": "p", "process": "orvane.exe", "cleanBackground": true})", "p",
       true},
      {"a namesake from another folder",
       foreign + R"(, {"id": "n", "process": "orvane.exe", "path": "C:\\elsewhere\\orvane.exe"})", "n", false},
      {"the window itself", foreign + ", " + own, "main", false},
  };
  for (const DueRow& row : rows) {
    SimulatedDesktop desktop(desktopOf(row.windows));
    const Placed placed;
    desktop.bringToFront(row.foreground);
    const Ids before = desktop.zOrder();
    EXPECT_TRUE(placed.behindOwn(Restack::whenOwnProgramIsInFront)) << row.why;
    EXPECT_EQ(desktop.platformCalls("SetWindowPos"), row.isDue ? 1 : 0) << row.why;
    EXPECT_EQ(::IsWindowVisible(placed.window.get()) != FALSE, row.isDue) << row.why;
    if (!row.isDue) {
      EXPECT_EQ(desktop.zOrder(), before) << row.why;
    }
    EXPECT_TRUE(placed.behindOwn(Restack::always)) << row.why;
    EXPECT_TRUE(::IsWindowVisible(placed.window.get())) << row.why;
  }
}

TEST_F(WindowOrder, LeavesAnIconicWindowAlone_UnlessForced) {
  SimulatedDesktop desktop(desktopOf(R"({"id": "own", "process": "orvane.exe"}, )" + foreign));
  const PlainWindow window({0, 0, 300, 200}, L"Placed");
  ::ShowWindow(window.get(), SW_MINIMIZE);
  desktop.bringToFront("own");
  EXPECT_TRUE(placeBehindOwnWindows(window.get(), Restack::whenOwnProgramIsInFront));
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), 0);
  EXPECT_TRUE(placeBehindOwnWindows(window.get(), Restack::always));
  EXPECT_EQ(desktop.zOrder(), (Ids{"own", "main", "foreign"}));
  EXPECT_TRUE(::IsIconic(window.get())) << "its place in the order alone changes";
}

TEST_F(WindowOrder, Fails_WhenItIsDueAndTheWindowCantBePlaced) {
  SimulatedDesktop desktop(desktopOf(R"({"id": "own", "process": "orvane.exe"})"));
  const Placed placed;
  desktop.bringToFront("own");
  desktop.setFaults(faultOf("SetWindowPos", "false"));
  EXPECT_FALSE(placed.behindOwn(Restack::whenOwnProgramIsInFront));
}

}  // namespace
}  // namespace orvane
