#include "activation/elapsed_timer.h"

#include <gtest/gtest.h>

#include "support/browser_page.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::everyCallFails;
using simulation::SimulatedDesktop;

TEST(WholeMilliseconds, AreCutTowardsZero) {
  constexpr std::int64_t countsPerSecond = 10'000'000;

  EXPECT_EQ(wholeMilliseconds(0, countsPerSecond), 0U);
  EXPECT_EQ(wholeMilliseconds(9'999, countsPerSecond), 0U);
  EXPECT_EQ(wholeMilliseconds(10'000, countsPerSecond), 1U);
  EXPECT_EQ(wholeMilliseconds(19'999, countsPerSecond), 1U);
  EXPECT_EQ(wholeMilliseconds(20'000, countsPerSecond), 2U);
}

TEST(WholeMilliseconds, FollowTheCountersFrequency) {
  EXPECT_EQ(wholeMilliseconds(3'579'545, 3'579'545), 1000U);
  EXPECT_EQ(wholeMilliseconds(7'159, 3'579'545), 1U);
  EXPECT_EQ(wholeMilliseconds(2, 1'000), 2U);
  EXPECT_EQ(wholeMilliseconds(2, 3), 666U);
}

TEST(WholeMilliseconds, AreNone_WhenTheCounterHasNoFrequency) {
  EXPECT_EQ(wholeMilliseconds(10'000, 0), 0U);
  EXPECT_EQ(wholeMilliseconds(10'000, -1), 0U);
}

TEST(ElapsedTimer, CountsFromItsMaking) {
  const SimulatedDesktop desktop("{}");
  ::Sleep(17);
  const ElapsedTimer timer;
  EXPECT_EQ(timer.elapsedMs(), 0U);
  ::Sleep(250);
  EXPECT_EQ(timer.elapsedMs(), 250U);
}

TEST(ElapsedTimer, SaysNone_WhenTheFrequencyCannotBeRead) {
  const SimulatedDesktop desktop(R"({"faults": )" + everyCallFails("QueryPerformanceFrequency", "false") + "}");
  const ElapsedTimer timer;
  ::Sleep(250);
  EXPECT_EQ(timer.elapsedMs(), 0U);
}

}  // namespace
}  // namespace orvane
