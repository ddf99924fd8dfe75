#include "world/clock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::simulation {
namespace {

using Log = std::vector<std::string>;

class ClockTest : public ::testing::Test {
 protected:
  void note(const std::string& what) { log.push_back(what + "@" + std::to_string(clock.nowMs())); }

  Clock& clock = *new Clock;
  Log log;
};

TEST_F(ClockTest, Sleep_TakesExactlyItsTime_WhenNothingElseHappens) {
  clock.sleep(27'000);
  EXPECT_EQ(clock.nowMs(), 27'000);
}

TEST_F(ClockTest, Events_HappenInTheOrderOfTheirTimes_WhenScheduledInAnother) {
  clock.schedule(20, [this] { note("late"); });
  clock.schedule(10, [this] { note("early"); });
  clock.sleep(30);
  EXPECT_EQ(log, (Log{"early@10", "late@20"}));
}

TEST_F(ClockTest, Events_HappenInTheOrderOfScheduling_WhenDueAtOneMoment) {
  clock.schedule(10, [this] { note("first"); });
  clock.schedule(10, [this] { note("second"); });
  clock.sleep(10);
  EXPECT_EQ(log, (Log{"first@10", "second@10"}));
}

TEST_F(ClockTest, Event_HappensBeforeTheThreadWakes_WhenBothAreDueAtOneMoment) {
  clock.startThread([this] {
    clock.sleep(10);
    note("thread");
  });
  clock.sleep(0);
  clock.schedule(10, [this] { note("event"); });
  clock.sleep(10);
  EXPECT_EQ(log, (Log{"event@10", "thread@10"}));
}

TEST_F(ClockTest, Event_HappensAtOnceInItsTurn_WhenItsTimeHasPassed) {
  clock.sleep(50);
  clock.schedule(10, [this] { note("event"); });
  EXPECT_TRUE(log.empty());
  clock.sleep(0);
  EXPECT_EQ(log, (Log{"event@50"}));
}

TEST_F(ClockTest, Event_HappensInTheSameWait_WhenAnotherEventSchedulesIt) {
  clock.schedule(10, [this] { clock.schedule(15, [this] { note("second"); }); });
  clock.sleep(20);
  EXPECT_EQ(log, (Log{"second@15"}));
}

TEST_F(ClockTest, Event_DoesNotHappen_WhenTheWaitEndsBefore) {
  clock.schedule(11, [this] { note("event"); });
  clock.sleep(10);
  EXPECT_TRUE(log.empty());
}

TEST_F(ClockTest, StartedThread_RunsFirst_WhenItsStarterWaits) {
  clock.startThread([this] { note("thread"); });
  note("starter");
  clock.sleep(0);
  EXPECT_EQ(log, (Log{"starter@0", "thread@0"}));
}

TEST_F(ClockTest, Threads_WakeInTheOrderInWhichTheyWentToSleep_WhenDueAtOneMoment) {
  for (const int late : {2, 1}) {
    clock.startThread([this, late] {
      clock.sleep(late);
      clock.sleep(10 - late);
      note("slept " + std::to_string(late));
    });
  }
  clock.sleep(20);
  EXPECT_EQ(log, (Log{"slept 1@10", "slept 2@10"}));
}

TEST_F(ClockTest, Threads_HaveOrdinals_InTheOrderOfTheirStart) {
  std::vector<int> ordinals;
  const int first = clock.startThread([&] { ordinals.push_back(Clock::currentThread()); });
  const int second = clock.startThread([&] { ordinals.push_back(Clock::currentThread()); });
  clock.sleep(0);
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 2);
  EXPECT_EQ(ordinals, (std::vector{1, 2}));
  EXPECT_EQ(Clock::currentThread(), 0);
}

TEST_F(ClockTest, ManyThreads_TakeTheSameTurns_WhenRunAgain) {
  const auto run = [] {
    Clock& own = *new Clock;
    Log turns;
    for (int ordinal = 0; ordinal < 8; ++ordinal) {
      own.startThread([&own, &turns, ordinal] {
        for (int turn = 0; turn < 20; ++turn) {
          own.sleep((ordinal * 7 + turn * 3) % 11);
          turns.push_back(std::to_string(ordinal) + "@" + std::to_string(own.nowMs()));
        }
      });
    }
    own.sleep(1000);
    return turns;
  };
  const Log first = run();
  EXPECT_EQ(first.size(), 160u);
  EXPECT_EQ(first, run());
}

TEST_F(ClockTest, Wait_EndsTheRun_WhenAnEventAsksForIt) {
  EXPECT_EXIT(
      {
        clock.schedule(0, [this] { clock.sleep(1); });
        clock.sleep(1);
      },
      ::testing::ExitedWithCode(3), "simulation: Clock::sleep: ");
}

}  // namespace
}  // namespace orvane::simulation
