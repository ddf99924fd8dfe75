// The short form of asking for the foreground, and the thread that repeats it after a reply.
#include <gtest/gtest.h>

#include "composer/foreground.h"
#include "composer/foreground_windows.h"
#include "support/browser_page.h"

namespace orvane {
namespace {

using simulation::everyCallFails;
using simulation::SimulatedDesktop;

constexpr const char* attach = "AttachThreadInput";
constexpr DWORD longAfterTheEndMs = 2000;

bool bring(const SimulatedDesktop& desktop) { return bringForward(desktop.window("browser")); }

void expectAsked(const SimulatedDesktop& desktop, int times) {
  for (const char* call : {"BringWindowToTop", "SetForegroundWindow", "SetFocus"}) {
    EXPECT_EQ(desktop.platformCalls(call), times) << call;
  }
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), 0);
  EXPECT_EQ(desktop.platformCalls("SetActiveWindow"), 0);
}

TEST(BringForward, TakesOnePass_WhenTheRequestIsGranted) {
  const SimulatedDesktop desktop(twoWindows());

  EXPECT_TRUE(bring(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
  EXPECT_EQ(desktop.foreground(), "browser");
  EXPECT_EQ(desktop.zOrder(), (std::vector<std::string>{"browser", "editor"}));
  EXPECT_EQ(desktop.platformCalls("ShowWindowAsync"), 0);
  EXPECT_EQ(desktop.platformCalls(attach), 4);
  expectAsked(desktop, 1);
}

TEST(BringForward, AsksInOneOrderWhileBothThreadsAreJoined_WhenNeitherIsItsOwn) {
  SimulatedDesktop desktop(twoWindows());
  const JoinedCalls record(desktop);

  EXPECT_TRUE(bring(desktop));

  EXPECT_EQ(record.calls(),
            (std::vector<std::string>{"AttachThreadInput:", "AttachThreadInput: editor",
                                      "BringWindowToTop browser: editor browser",
                                      "SetForegroundWindow browser: editor browser", "SetFocus browser: editor browser",
                                      "AttachThreadInput: editor browser", "AttachThreadInput: editor", "Sleep:"}));
}

TEST(BringForward, LeavesNothingJoined_WhenBothWindowsAreOfOneThread) {
  const SimulatedDesktop desktop(twoWindowsOfOneThread);

  EXPECT_TRUE(bring(desktop));

  EXPECT_EQ(desktop.platformCalls(attach), 4);
  EXPECT_EQ(desktop.held("threadInputs"), 0);
}

TEST(BringForward, AsksAllTheSame_WhenTheWindowIsInFrontAlready) {
  const SimulatedDesktop desktop(twoWindows("", "[]", R"("browser")"));

  EXPECT_TRUE(bring(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
  expectAsked(desktop, 1);
}

TEST(BringForward, FailsAfterOnePass_WhenTheRequestIsRefused) {
  const SimulatedDesktop desktop(twoWindows(R"(, "foregroundRequests": 1)"));

  EXPECT_FALSE(bring(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
  EXPECT_EQ(desktop.foreground(), "editor");
  expectAsked(desktop, 1);
}

TEST(BringForward, RestoresWithoutAPause_WhenTheWindowIsMinimized) {
  const SimulatedDesktop desktop(twoWindows(R"(, "minimized": true)"));

  EXPECT_TRUE(bring(desktop));

  EXPECT_EQ(desktop.nowMs(), 120);
  EXPECT_FALSE(desktop.windowState("browser").minimized);
}

TEST(BringForward, LeavesTheWindowHidden_WhenItIs) {
  const SimulatedDesktop desktop(twoWindows(R"(, "visible": false)"));

  bring(desktop);

  EXPECT_FALSE(desktop.windowState("browser").visible);
}

TEST(BringForward, DoesNothing_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(twoWindows());
  desktop.perform("editor", R"([{"closeWindow": "browser"}])");

  EXPECT_FALSE(bringForward(nullptr));
  EXPECT_FALSE(bring(desktop));

  EXPECT_EQ(desktop.nowMs(), 0);
  EXPECT_EQ(desktop.platformCalls(attach), 0);
  expectAsked(desktop, 0);
}

TEST(BringForward, Fails_WhenTheWindowIsClosedInThePause) {
  const SimulatedDesktop desktop(twoWindows(atTime(50, R"([{"closeWindow": "browser"}])")));

  EXPECT_FALSE(bring(desktop));

  EXPECT_EQ(desktop.foreground(), "editor");
}

TEST(BringForward, AttachesToTheWindowAlone_WhenNoWindowIsInFront) {
  const SimulatedDesktop desktop(twoWindows("", "[]", "null"));

  EXPECT_TRUE(bring(desktop));

  EXPECT_EQ(desktop.platformCalls(attach), 2);
}

TEST(BringForward, NeverAttachesTheCallingThreadToItself_WhenItOwnsAWindow) {
  SimulatedDesktop desktop(twoWindows());
  const OwnWindow own;
  desktop.bringToFront("main");

  EXPECT_TRUE(bringForward(own.get()));
  EXPECT_EQ(desktop.platformCalls(attach), 0);
  EXPECT_TRUE(bring(desktop));
  EXPECT_EQ(desktop.platformCalls(attach), 2);
  EXPECT_TRUE(bringForward(own.get()));
  EXPECT_EQ(desktop.platformCalls(attach), 4);
}

TEST(BringForward, AsksAllTheSameAndDetachesNothing_WhenNoAttachmentWorks) {
  const SimulatedDesktop desktop(twoWindows("", everyCallFails(attach, "false")));

  EXPECT_TRUE(bring(desktop));

  EXPECT_EQ(desktop.platformCalls(attach), 2);
}

TEST(BringForward, BelievesNoSuccess_WhenTheRequestHasNoEffect) {
  const SimulatedDesktop desktop(twoWindows("", everyCallFails("SetForegroundWindow", "1")));

  EXPECT_FALSE(bring(desktop));
}

TEST(BringForward, BelievesNoFailure_WhenTheWindowComesForwardAnyway) {
  const SimulatedDesktop desktop(
      twoWindows(R"(, "foregroundRequests": "refused")" + atTime(100, R"([{"foreground": "browser"}])")));

  EXPECT_TRUE(bring(desktop));
}

TEST(ForegroundFollowUp, ReturnsAtOnceAndAsksOnce_WhenTheWindowStaysInFront) {
  const SimulatedDesktop desktop(twoWindows("", "[]", R"("browser")"));

  scheduleForegroundFollowUp(desktop.window("browser"));

  EXPECT_EQ(desktop.nowMs(), 0);
  expectAsked(desktop, 0);
  ::Sleep(179);
  expectAsked(desktop, 0);
  ::Sleep(2);
  expectAsked(desktop, 1);
  ::Sleep(longAfterTheEndMs);
  expectAsked(desktop, 1);
  EXPECT_EQ(desktop.foreground(), "browser");
  EXPECT_EQ(desktop.held("threadHandles"), 0);
  EXPECT_EQ(desktop.platformCalls("CoInitializeEx"), 1) << "the desktop's own";
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(ForegroundFollowUp, BringsTheWindowForward_WhenItWasRefusedBefore) {
  const SimulatedDesktop desktop(twoWindows(R"(, "foregroundRequests": 1)"));
  EXPECT_FALSE(bring(desktop));

  scheduleForegroundFollowUp(desktop.window("browser"));
  ::Sleep(181);

  EXPECT_EQ(desktop.foreground(), "browser");
  ::Sleep(longAfterTheEndMs);
}

TEST(ForegroundFollowUp, AsksAgain_WhenAnotherWindowCameInFrontInBetween) {
  const SimulatedDesktop desktop(twoWindows(atTime(400, R"([{"foreground": "editor"}])")));

  scheduleForegroundFollowUp(desktop.window("browser"));

  ::Sleep(569);
  EXPECT_EQ(desktop.foreground(), "editor");
  expectAsked(desktop, 1);
  ::Sleep(2);
  EXPECT_EQ(desktop.foreground(), "browser");
  expectAsked(desktop, 2);
  ::Sleep(longAfterTheEndMs);
  expectAsked(desktop, 2);
}

TEST(ForegroundFollowUp, AsksTwice_WhenTheWindowNeverComesForward) {
  const SimulatedDesktop desktop(twoWindows(R"(, "foregroundRequests": "refused")"));

  scheduleForegroundFollowUp(desktop.window("browser"));
  ::Sleep(longAfterTheEndMs);

  expectAsked(desktop, 2);
  EXPECT_EQ(desktop.foreground(), "editor");
  EXPECT_EQ(desktop.held("threadInputs"), 0);
}

TEST(ForegroundFollowUp, AsksNothing_WhenTheWindowIsClosedBeforeTheFirstRequest) {
  const SimulatedDesktop desktop(twoWindows(atTime(100, R"([{"closeWindow": "browser"}])")));

  scheduleForegroundFollowUp(desktop.window("browser"));
  ::Sleep(longAfterTheEndMs);

  expectAsked(desktop, 0);
  EXPECT_EQ(desktop.foreground(), "editor");
}

TEST(ForegroundFollowUp, AsksOnce_WhenTheWindowIsClosedBetweenTheRequests) {
  const SimulatedDesktop desktop(twoWindows(atTime(400, R"([{"closeWindow": "browser"}])")));

  scheduleForegroundFollowUp(desktop.window("browser"));
  ::Sleep(longAfterTheEndMs);

  expectAsked(desktop, 1);
  EXPECT_EQ(desktop.foreground(), "editor");
}

TEST(ForegroundFollowUp, StartsNoThread_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(twoWindows());
  desktop.perform("editor", R"([{"closeWindow": "browser"}])");

  scheduleForegroundFollowUp(nullptr);
  scheduleForegroundFollowUp(desktop.window("browser"));

  EXPECT_EQ(desktop.platformCalls("CreateThread"), 0);
}

TEST(ForegroundFollowUp, IsGivenUpSilently_WhenNoThreadCanBeStarted) {
  const SimulatedDesktop desktop(twoWindows("", everyCallFails("CreateThread", "null")));

  scheduleForegroundFollowUp(desktop.window("browser"));
  ::Sleep(longAfterTheEndMs);

  EXPECT_EQ(desktop.platformCalls("CloseHandle"), 0);
  expectAsked(desktop, 0);
}

}  // namespace
}  // namespace orvane
