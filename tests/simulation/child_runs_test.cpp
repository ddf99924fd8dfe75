#include "scenario/child_runs.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "world/faults.h"

namespace orvane::simulation {
namespace {

std::vector<ChildRun> runAll(std::size_t count, std::size_t jobs, const ReportMaker& make) {
  std::vector<ChildRun> runs;
  doChildRuns(count, jobs, make, [&runs](std::size_t index, ChildRun run) {
    EXPECT_EQ(index, runs.size());
    runs.push_back(std::move(run));
  });
  return runs;
}

ChildRun runOne(const std::function<Json()>& make) {
  return runAll(1, 1, [&make](std::size_t, const auto&) { return make(); }).at(0);
}

TEST(ChildRuns, Reports_ComeInOrder_WhateverTheNumberOfJobs) {
  for (const std::size_t jobs : {1u, 2u, 5u}) {
    const auto runs = runAll(7, jobs, [](std::size_t index, const auto&) { return Json{{"index", index}}; });
    ASSERT_EQ(runs.size(), 7u);
    for (std::size_t index = 0; index < runs.size(); ++index) EXPECT_EQ(runs[index].report.at("index"), index);
  }
}

TEST(ChildRuns, State_IsFresh_InEachRun) {
  static int counter = 0;
  const auto runs = runAll(3, 1, [](std::size_t, const auto&) { return Json{{"counter", ++counter}}; });
  for (const ChildRun& run : runs) EXPECT_EQ(run.report.at("counter"), 1);
  EXPECT_EQ(counter, 0);
}

TEST(ChildRuns, ErrorText_IsCaptured_AndStandardOutputKeptFree) {
  ::testing::internal::CaptureStdout();
  const auto runs = runAll(1, 1, [](std::size_t, const auto& readErrorText) {
    std::printf("noise");
    std::fprintf(stderr, "one\r\ntwo");
    return Json{{"text", readErrorText()}};
  });
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(runs.at(0).report.at("text"), "one\r\ntwo");
}

TEST(ChildRuns, LongReport_ComesWhole) {
  const std::string text(3'000'000, 'x');
  EXPECT_EQ(runOne([&text] { return Json{{"text", text}}; }).report.at("text"), text);
}

TEST(ChildRuns, StoppedRun_FailsWithItsLine) {
  const ChildRun run = runOne([]() -> Json { stopRun("SetWindowPos", "unknown flag"); });
  EXPECT_FALSE(run.hasEnded);
  EXPECT_EQ(run.failure, "the run ended as the simulation stopped it: simulation: SetWindowPos: unknown flag");
}

TEST(ChildRuns, CrashedRun_FailsWithTheSignalAndWhatItWrote) {
  const ChildRun run = runOne([]() -> Json {
    std::fprintf(stderr, "first\nsecond\n");
    std::signal(SIGTERM, SIG_DFL);
    std::raise(SIGTERM);
    return nullptr;
  });
  EXPECT_FALSE(run.hasEnded);
  EXPECT_EQ(run.failure, "the run ended by a signal: Terminated:\nfirst\nsecond");
}

TEST(ChildRuns, EarlyExit_IsNoEnd_EvenWithStatusZero) {
  const ChildRun run = runOne([]() -> Json { std::_Exit(EXIT_SUCCESS); });
  EXPECT_FALSE(run.hasEnded);
  EXPECT_EQ(run.failure, "the run ended with status 0");
}

}  // namespace
}  // namespace orvane::simulation
