#include "desktop_fixture.h"

namespace orvane::simulation {
namespace {

using Ids = std::vector<std::string>;

class Host : public HostWindows {
 public:
  void foregroundMoved(Window* from, Window* to) override {
    log.push_back((from == nullptr ? "-" : from->id) + ">" + (to == nullptr ? "-" : to->id));
  }
  void closeAsked(Window& window) override { log.push_back("close " + window.id); }
  void minimizeAsked(Window& window) override { log.push_back("minimize " + window.id); }
  void resizeAsked(Window& window, const Rectangle& bounds) override {
    log.push_back("resize " + window.id + " " + std::to_string(bounds.width()));
  }

  Ids log;
};

class WindowsTest : public DesktopFixture {
 protected:
  WindowsTest() { desktop.host = &host; }

  Ids order() const {
    Ids ids;
    for (const Window* one : desktop.zOrder()) ids.push_back(one->id);
    return ids;
  }

  void buildThree() { build(R"({"windows":[{"id":"a"},{"id":"b"},{"id":"c"}]})"); }

  Host host;
};

TEST_F(WindowsTest, ZOrder_IsThatOfTheFile_WhenTopmostOnesStandApart) {
  build(R"({"windows":[{"id":"a"},{"id":"top","topmost":true},{"id":"b"}]})");
  EXPECT_EQ(order(), (Ids{"top", "a", "b"}));
}

TEST_F(WindowsTest, Raise_StaysBelowTopmostWindows) {
  build(R"({"windows":[{"id":"top","topmost":true},{"id":"a"},{"id":"b"}]})");
  desktop.raise(window("b"));
  EXPECT_EQ(order(), (Ids{"top", "b", "a"}));
}

TEST_F(WindowsTest, Lower_GoesToTheBottomOfTheBand) {
  build(R"({"windows":[{"id":"top","topmost":true},{"id":"top2","topmost":true},{"id":"a"}]})");
  desktop.lower(window("top"));
  EXPECT_EQ(order(), (Ids{"top2", "top", "a"}));
}

TEST_F(WindowsTest, PlaceBehind_PutsTheWindowRightBelow) {
  buildThree();
  desktop.placeBehind(window("a"), window("b"));
  EXPECT_EQ(order(), (Ids{"b", "a", "c"}));
}

TEST_F(WindowsTest, PlaceBehind_TakesTopmostAway_WhenBehindAnOrdinaryWindow) {
  build(R"({"windows":[{"id":"top","topmost":true},{"id":"a"},{"id":"b"}]})");
  desktop.placeBehind(window("top"), window("a"));
  EXPECT_EQ(order(), (Ids{"a", "top", "b"}));
  EXPECT_FALSE(window("top").topmost);
}

TEST_F(WindowsTest, SetTopmost_MovesBetweenTheBands) {
  buildThree();
  desktop.setTopmost(window("c"), true);
  EXPECT_EQ(order(), (Ids{"c", "a", "b"}));
  desktop.setTopmost(window("b"), true);
  desktop.setTopmost(window("c"), false);
  EXPECT_EQ(order(), (Ids{"b", "c", "a"}));
}

TEST_F(WindowsTest, HostWindow_StandsOnTop_AndItsChildrenKeepOut) {
  buildThree();
  Window& main = desktop.addHostWindow("main", nullptr);
  Window& child = desktop.addHostWindow("", &main);
  EXPECT_EQ(order(), (Ids{"main", "a", "b", "c"}));
  EXPECT_EQ(desktop.windowByHandle(child.handle), &child);
  desktop.destroyWindow(main);
  EXPECT_EQ(desktop.windowByHandle(child.handle), nullptr);
}

TEST_F(WindowsTest, Handles_RiseInTheOrderOfTheFile_AndFitThirtyTwoBits) {
  buildThree();
  EXPECT_LT(0u, window("a").handle);
  EXPECT_LT(window("a").handle, window("b").handle);
  EXPECT_LT(window("b").handle, window("c").handle);
  EXPECT_LT(window("c").handle, 0x80000000u);
}

TEST_F(WindowsTest, HandleOfId_IsKnown_WhenTheWindowIsDestroyed) {
  buildThree();
  const std::uint64_t handle = window("a").handle;
  desktop.destroyWindow(window("a"));
  EXPECT_EQ(desktop.handleOfId("a"), handle);
  EXPECT_EQ(desktop.windowById("a"), nullptr);
  EXPECT_EQ(desktop.handleOfId("nobody"), 0u);
}

TEST_F(WindowsTest, ProcessIds_AreShared_ByWindowsOfTheSameImageOnly) {
  build(R"({"windows":[{"id":"a","process":"chrome.exe"},{"id":"b","process":"chrome.exe"},
                       {"id":"c","process":"chrome.exe","path":"D:\\chrome.exe"},
                       {"id":"d","process":"chrome.exe","pid":4242},{"id":"e","process":"msedge.exe"}]})");
  EXPECT_EQ(window("a").pid, window("b").pid);
  EXPECT_NE(window("a").pid, window("c").pid);
  EXPECT_EQ(window("d").pid, 4242u);
  EXPECT_NE(window("a").pid, window("e").pid);
  EXPECT_NE(window("a").pid, window("a").threadId);
}

TEST_F(WindowsTest, Path_IsTheHostsOwn_WhenTheProcessIsTheHostWithoutAPath) {
  build(R"({"windows":[{"id":"a","process":"orvane.exe"},{"id":"b","process":"notes.exe"}]})");
  EXPECT_EQ(window("a").path, hostImagePath);
  EXPECT_NE(window("a").pid, hostProcessId);
  EXPECT_TRUE(window("b").path.ends_with(u"\\notes.exe"));
}

TEST_F(WindowsTest, Styles_CarryTheBitsOfTheWindowsState) {
  build(R"({"windows":[{"id":"a"},{"id":"b","visible":false,"topmost":true},{"id":"c","minimized":true}]})");
  EXPECT_EQ(Desktop::styleOf(window("a")), 0x14CF0000u);
  EXPECT_EQ(Desktop::styleOf(window("b")), 0x04CF0000u);
  EXPECT_EQ(Desktop::exStyleOf(window("b")), 0x108u);
  EXPECT_EQ(Desktop::styleOf(window("c")), 0x34CF0000u);
  EXPECT_EQ(desktop.visibleBounds(window("c")), (Rectangle{-32000, -32000, -31840, -31972}));
}

TEST_F(WindowsTest, CleanBackground_IsAPropertyOfTheWindow) {
  build(R"({"windows":[{"id":"a","cleanBackground":true}]})");
  ASSERT_EQ(window("a").properties.size(), 1u);
  EXPECT_EQ(window("a").properties.front().first, u"Orvane.CleanBackground");
}

TEST_F(WindowsTest, GrantedRequest_RaisesTheWindowAndTellsTheHost) {
  buildThree();
  EXPECT_TRUE(desktop.requestForeground(window("c")));
  EXPECT_EQ(order(), (Ids{"c", "a", "b"}));
  EXPECT_EQ(host.log, (Ids{"->c"}));
  EXPECT_TRUE(desktop.requestForeground(window("c")));
  EXPECT_EQ(host.log.size(), 1u);
}

TEST_F(WindowsTest, RefusedRequest_ChangesNothing) {
  build(R"({"windows":[{"id":"a"},{"id":"b","foregroundRequests":"refused"}]})");
  EXPECT_FALSE(desktop.requestForeground(window("b")));
  EXPECT_FALSE(desktop.requestForeground(window("b")));
  EXPECT_EQ(order(), (Ids{"a", "b"}));
  EXPECT_EQ(desktop.foreground(), nullptr);
  EXPECT_TRUE(host.log.empty());
}

TEST_F(WindowsTest, Request_IsGrantedAfterTheFirstN_WhenANumberIsRefused) {
  build(R"({"windows":[{"id":"a","foregroundRequests":2}]})");
  EXPECT_FALSE(desktop.requestForeground(window("a")));
  EXPECT_FALSE(desktop.requestForeground(window("a")));
  EXPECT_TRUE(desktop.requestForeground(window("a")));
}

TEST_F(WindowsTest, ChildsRequest_StandsForItsTopLevelWindow) {
  Window& main = desktop.addHostWindow("main", nullptr);
  Window& child = desktop.addHostWindow("", &main);
  EXPECT_TRUE(desktop.requestForeground(child));
  EXPECT_EQ(desktop.foreground(), &main);
}

TEST_F(WindowsTest, Foreground_FallsToTheNextVisibleWindow_WhenItsWindowIsDestroyed) {
  build(R"({"windows":[{"id":"a"},{"id":"hidden","visible":false},{"id":"iconic","minimized":true},{"id":"b"}]})");
  desktop.moveForeground(&window("a"));
  desktop.destroyWindow(window("a"));
  EXPECT_EQ(desktop.foreground(), &window("b"));
  EXPECT_EQ(host.log, (Ids{"->a", "a>b"}));
}

TEST_F(WindowsTest, Person_MinimizesAnothersWindowAndAsksTheHostsOwn) {
  buildThree();
  Window& main = desktop.addHostWindow("main", nullptr);
  desktop.moveForeground(&window("a"));
  desktop.minimizeByPerson(window("a"));
  EXPECT_TRUE(window("a").minimized);
  EXPECT_EQ(desktop.foreground(), &main);
  desktop.minimizeByPerson(main);
  desktop.closeByPerson(main);
  desktop.resizeByPerson(main, {0, 0, 50, 10});
  desktop.resizeByPerson(window("b"), {1, 2, 3, 4});
  EXPECT_FALSE(main.minimized);
  EXPECT_EQ(window("b").bounds, (Rectangle{1, 2, 3, 4}));
  EXPECT_EQ(host.log, (Ids{"->a", "a>main", "minimize main", "close main", "resize main 50"}));
}

TEST_F(WindowsTest, Lock_IsReleased_WhenItsWindowGoes) {
  build(R"({"windows":[{"id":"a"}],"clipboard":{"text":"x","lockedBy":"a"}})");
  desktop.closeByPerson(window("a"));
  EXPECT_FALSE(desktop.clipboard.content.lockedBy);
  EXPECT_EQ(desktop.clipboard.content.text, u"x");
}

}  // namespace
}  // namespace orvane::simulation
