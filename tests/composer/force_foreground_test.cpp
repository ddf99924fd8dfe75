#include <gtest/gtest.h>

#include "composer/foreground.h"
#include "composer/foreground_windows.h"
#include "support/browser_page.h"

namespace orvane {
namespace {

using simulation::everyCallFails;
using simulation::SimulatedDesktop;

constexpr const char* attach = "AttachThreadInput";

bool force(const SimulatedDesktop& desktop) { return forceForeground(desktop.window("browser")); }

// Each of the five calls that ask for the foreground was made this often.
void expectAsked(const SimulatedDesktop& desktop, int times) {
  for (const char* call : {"SetWindowPos", "BringWindowToTop", "SetForegroundWindow", "SetActiveWindow", "SetFocus"}) {
    EXPECT_EQ(desktop.platformCalls(call), times) << call;
  }
}

TEST(ForceForeground, IsDoneAtOnce_WhenTheWindowIsInFront) {
  const SimulatedDesktop desktop(twoWindows("", "[]", R"("browser")"));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 0);
  EXPECT_EQ(desktop.platformCalls("ShowWindowAsync"), 1);
  EXPECT_EQ(desktop.platformCalls(attach), 0);
  expectAsked(desktop, 0);
}

TEST(ForceForeground, TakesOnePass_WhenTheRequestIsGranted) {
  const SimulatedDesktop desktop(twoWindows());

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
  EXPECT_EQ(desktop.foreground(), "browser");
  EXPECT_EQ(desktop.zOrder(), (std::vector<std::string>{"browser", "editor"}));
  EXPECT_EQ(desktop.platformCalls(attach), 4);
  EXPECT_EQ(desktop.held("threadInputs"), 0);
  expectAsked(desktop, 1);
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(ForceForeground, AsksInOneOrderWhileBothThreadsAreJoined_WhenNeitherIsItsOwn) {
  SimulatedDesktop desktop(twoWindows());
  const JoinedCalls record(desktop);

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(record.calls(), (std::vector<std::string>{
                                "ShowWindowAsync browser:", "AttachThreadInput:", "AttachThreadInput: editor",
                                "SetWindowPos browser: editor browser", "BringWindowToTop browser: editor browser",
                                "SetForegroundWindow browser: editor browser",
                                "SetActiveWindow browser: editor browser", "SetFocus browser: editor browser",
                                "AttachThreadInput: editor browser", "AttachThreadInput: editor", "Sleep:"}));
}

TEST(ForceForeground, LeavesNothingJoined_WhenBothWindowsAreOfOneThread) {
  const SimulatedDesktop desktop(twoWindowsOfOneThread);

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.platformCalls(attach), 4);
  EXPECT_EQ(desktop.held("threadInputs"), 0);
}

TEST(ForceForeground, LeavesTheWindowsPlaceAlone_WhenItRaisesIt) {
  SimulatedDesktop desktop(twoWindows(R"(, "bounds": [40, 60, 840, 660])"));

  EXPECT_TRUE(force(desktop));

  RECT bounds{};
  ::GetWindowRect(desktop.window("browser"), &bounds);
  EXPECT_EQ(bounds.left, 40);
  EXPECT_EQ(bounds.top, 60);
  EXPECT_EQ(bounds.right, 840);
  EXPECT_EQ(bounds.bottom, 660);
}

TEST(ForceForeground, ShowsTheWindowAsItRaisesIt_WhenShowingItBeforeHadNoEffect) {
  const SimulatedDesktop desktop(twoWindows(R"(, "visible": false)", everyCallFails("ShowWindowAsync", "false")));

  EXPECT_TRUE(force(desktop));

  EXPECT_TRUE(desktop.windowState("browser").visible);
}

struct RefusalRow {
  const char* name;
  const char* requests;
  bool isForward;
  int asked;
  int tookMs;
};

std::string refusalName(const testing::TestParamInfo<RefusalRow>& info) { return info.param.name; }

class RefusedForeground : public testing::TestWithParam<RefusalRow> {};

TEST_P(RefusedForeground, IsAskedForAgainWithLongerWaits_UntilThreePassesAreOver) {
  const SimulatedDesktop desktop(twoWindows(std::string(R"(, "foregroundRequests": )") + GetParam().requests));

  EXPECT_EQ(force(desktop), GetParam().isForward);

  EXPECT_EQ(desktop.nowMs(), GetParam().tookMs);
  EXPECT_EQ(desktop.foreground(), GetParam().isForward ? "browser" : "editor");
  EXPECT_EQ(desktop.platformCalls(attach), 4 * GetParam().asked);
  expectAsked(desktop, GetParam().asked);
}

INSTANTIATE_TEST_SUITE_P(Each, RefusedForeground,
                         testing::Values(RefusalRow{"Never", "0", true, 1, 120}, RefusalRow{"Once", "1", true, 2, 320},
                                         RefusalRow{"Twice", "2", true, 3, 600},
                                         RefusalRow{"ThreeTimes", "3", false, 3, 600},
                                         RefusalRow{"Always", R"("refused")", false, 3, 600}),
                         refusalName);

TEST(ForceForeground, RestoresWithOnePause_WhenTheWindowIsMinimized) {
  const SimulatedDesktop desktop(twoWindows(R"(, "minimized": true)"));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 180);
  EXPECT_FALSE(desktop.windowState("browser").minimized);
}

TEST(ForceForeground, MakesNoAttachment_WhenAMinimizedWindowIsInFrontAtTheFirstLook) {
  const SimulatedDesktop desktop(twoWindows(R"(, "minimized": true)" + atTime(60, R"([{"foreground": "browser"}])")));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 60);
  EXPECT_EQ(desktop.platformCalls(attach), 0);
  expectAsked(desktop, 0);
}

TEST(ForceForeground, PausesOnce_WhenAMinimizedWindowIsRestoredAndStaysBehind) {
  const SimulatedDesktop desktop(twoWindows(R"(, "minimized": true, "foregroundRequests": "refused")"));

  EXPECT_FALSE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 60 + 120 + 200 + 280);
}

TEST(ForceForeground, PausesInEachPass_WhenTheWindowStaysMinimized) {
  const SimulatedDesktop desktop(twoWindows(R"(, "minimized": true, "foregroundRequests": "refused")",
                                            everyCallFails("ShowWindowAsync", "false")));

  EXPECT_FALSE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 3 * 60 + 120 + 200 + 280);
  EXPECT_TRUE(desktop.windowState("browser").minimized);
}

TEST(ForceForeground, ShowsTheWindow_WhenItIsHidden) {
  const SimulatedDesktop desktop(twoWindows(R"(, "visible": false)"));

  EXPECT_TRUE(force(desktop));

  EXPECT_TRUE(desktop.windowState("browser").visible);
}

TEST(ForceForeground, DoesNothing_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(twoWindows());
  desktop.perform("editor", R"([{"closeWindow": "browser"}])");

  EXPECT_FALSE(forceForeground(nullptr));
  EXPECT_FALSE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 0);
  EXPECT_EQ(desktop.foreground(), "editor");
  EXPECT_EQ(desktop.platformCalls("ShowWindowAsync"), 0);
  EXPECT_EQ(desktop.platformCalls(attach), 0);
  expectAsked(desktop, 0);
}

TEST(ForceForeground, EndsAtTheNextPass_WhenTheWindowIsClosedInBetween) {
  const SimulatedDesktop desktop(
      twoWindows(R"(, "foregroundRequests": "refused")" + atTime(50, R"([{"closeWindow": "browser"}])")));

  EXPECT_FALSE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
  expectAsked(desktop, 1);
}

TEST(ForceForeground, EndsAtTheNextPass_WhenTheWindowIsClosedWhileItIsRestored) {
  const SimulatedDesktop desktop(twoWindows(R"(, "minimized": true)" + atTime(30, R"([{"closeWindow": "browser"}])")));

  EXPECT_FALSE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 180);
  EXPECT_EQ(desktop.foreground(), "editor");
}

TEST(ForceForeground, AttachesToTheWindowAlone_WhenNoWindowIsInFront) {
  const SimulatedDesktop desktop(twoWindows("", "[]", "null"));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.platformCalls(attach), 2);
}

TEST(ForceForeground, AttachesToTheForegroundAlone_WhenTheWindowIsOfTheCallingThread) {
  SimulatedDesktop desktop(twoWindows());
  const OwnWindow own;
  desktop.bringToFront("editor");
  const std::int64_t startMs = desktop.nowMs();

  EXPECT_TRUE(forceForeground(own.get()));

  EXPECT_EQ(desktop.nowMs() - startMs, 120);
  EXPECT_EQ(desktop.foreground(), "main");
  EXPECT_EQ(desktop.platformCalls(attach), 2);
}

TEST(ForceForeground, AttachesToTheWindowAlone_WhenTheForegroundIsOfTheCallingThread) {
  SimulatedDesktop desktop(twoWindows());
  const OwnWindow own;
  desktop.bringToFront("main");

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.foreground(), "browser");
  EXPECT_EQ(desktop.platformCalls(attach), 2);
}

TEST(ForceForeground, AsksAllTheSameAndDetachesNothing_WhenNoAttachmentWorks) {
  const SimulatedDesktop desktop(twoWindows("", everyCallFails(attach, "false")));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.platformCalls(attach), 2);
  expectAsked(desktop, 1);
}

TEST(ForceForeground, DetachesWhatWasAttached_WhenOneAttachmentFails) {
  for (const int nth : {1, 2}) {
    const SimulatedDesktop desktop(twoWindows("", simulation::nthCallFails(attach, nth, "false")));

    EXPECT_TRUE(force(desktop));

    EXPECT_EQ(desktop.platformCalls(attach), 3);
    EXPECT_EQ(desktop.held("threadInputs"), 0);
  }
}

TEST(ForceForeground, BelievesNoSuccess_WhenTheRequestHasNoEffect) {
  const SimulatedDesktop desktop(twoWindows("", everyCallFails("SetForegroundWindow", "1")));

  EXPECT_FALSE(force(desktop));

  EXPECT_EQ(desktop.foreground(), "editor");
  EXPECT_EQ(desktop.nowMs(), 600);
}

TEST(ForceForeground, BelievesNoFailure_WhenTheWindowComesForwardAnyway) {
  const SimulatedDesktop desktop(
      twoWindows(R"(, "foregroundRequests": "refused")" + atTime(100, R"([{"foreground": "browser"}])")));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
}

TEST(ForceForeground, AsksAgain_WhenAPersonTakesTheForegroundBackInThePause) {
  const SimulatedDesktop desktop(twoWindows(atTime(100, R"([{"foreground": "editor"}])")));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 320);
  expectAsked(desktop, 2);
}

class IgnoredCall : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, IgnoredCall,
                         testing::Values("ShowWindowAsync", "SetWindowPos", "BringWindowToTop", "SetActiveWindow",
                                         "SetFocus", "GetWindowThreadProcessId"));

TEST_P(IgnoredCall, StopsNothing_WhenItFails) {
  const SimulatedDesktop desktop(twoWindows("", everyCallFails(GetParam(), "0")));

  EXPECT_TRUE(force(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
}

}  // namespace
}  // namespace orvane
