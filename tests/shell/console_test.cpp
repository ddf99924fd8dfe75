#include "shell/console.h"

#include <gtest/gtest.h>

#include <utility>

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
  SimulatedDesktop desktop(R"({"faults": [{"call": "AllocConsole", "result": 1},
                                                  {"call": "freopen_s", "times": 2, "result": 2}]})");
  CreateAndAttachConsole();
  EXPECT_EQ(desktop.platformCalls("_fileno"), 2);
  const auto& descriptors = desktop.platform().records().descriptors;
  ASSERT_EQ(descriptors.size(), 2U);
  EXPECT_EQ(std::pair(descriptors[0].from, descriptors[0].to), std::pair(1, 1));
  EXPECT_EQ(std::pair(descriptors[1].from, descriptors[1].to), std::pair(1, 2))
      << "the errors go where the output goes";
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopResyncOutputStreams"), 1);
}

}  // namespace
}  // namespace orvane
