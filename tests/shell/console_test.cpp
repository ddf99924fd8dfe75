#include "shell/console.h"

#include <gtest/gtest.h>

#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

TEST(Console, LeadsBothStreamsToIt_WhenThePlatformGivesOne) {
  const SimulatedDesktop desktop("{}");
  CreateAndAttachConsole();
  EXPECT_EQ(desktop.platformCalls("AllocConsole"), 1);
  EXPECT_EQ(desktop.platformCalls("freopen_s"), 2);
  EXPECT_EQ(desktop.platformCalls("_dup2"), 0);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopResyncOutputStreams"), 1);
}

TEST(Console, ChangesNothing_WhenThePlatformGivesNone) {
  const SimulatedDesktop desktop(R"({"faults": [{"call": "AllocConsole", "result": false}]})");
  CreateAndAttachConsole();
  EXPECT_EQ(desktop.platformCalls("freopen_s"), 0);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopResyncOutputStreams"), 0);
}

TEST(Console, DuplicatesStdout_WhenAStreamCantBeReopened) {
  const SimulatedDesktop desktop(R"({"faults": [{"call": "AllocConsole", "result": 1},
                                                  {"call": "freopen_s", "times": 2, "result": 2}]})");
  CreateAndAttachConsole();
  EXPECT_EQ(desktop.platformCalls("_fileno"), 2);
  EXPECT_EQ(desktop.platformCalls("_dup2"), 2);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopResyncOutputStreams"), 1);
}

}  // namespace
}  // namespace orvane
