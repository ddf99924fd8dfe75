#include "browser_channel/elapsed_trace.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <string>

#include "support/simulated_desktop.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

TEST(ElapsedTrace, WritesTheMilliseconds_SinceTheStartTick) {
  const SimulatedDesktop desktop("{}");
  TraceLog trace;
  const std::uint64_t startTick = ::GetTickCount64();
  ::Sleep(1530);

  appendElapsedTrace(trace, startTick, "Paste", "KEY SENT: awaiting exact text verification");

  EXPECT_EQ(stepNames(trace), std::vector<std::string>{"Experimental Paste"});
  EXPECT_EQ(resultsOf(trace, "Experimental Paste"),
            std::vector<std::string>{"KEY SENT: awaiting exact text verification; elapsed=1530 ms"});
}

TEST(ElapsedTrace, WritesZero_InTheTickOfTheStart) {
  const SimulatedDesktop desktop("{}");
  TraceLog trace;
  appendElapsedTrace(trace, ::GetTickCount64(), "", "");
  EXPECT_EQ(resultsOf(trace, "Experimental "), std::vector<std::string>{"; elapsed=0 ms"});
}

TEST(ElapsedTrace, SubtractsWithoutSign_WhenTheStartLiesAhead) {
  const SimulatedDesktop desktop("{}");
  TraceLog trace;
  appendElapsedTrace(trace, ::GetTickCount64() + 1, "x", "y");
  EXPECT_EQ(resultsOf(trace, "Experimental x"), std::vector<std::string>{"y; elapsed=18446744073709551615 ms"});
}

TEST(ElapsedTrace, ReadsTheTicksAtEachCall) {
  const SimulatedDesktop desktop("{}");
  TraceLog trace;
  const std::uint64_t startTick = ::GetTickCount64();
  appendElapsedTrace(trace, startTick, "a", "1");
  ::Sleep(70);
  appendElapsedTrace(trace, startTick, "a", "2");
  EXPECT_EQ(resultsOf(trace, "Experimental a"), (std::vector<std::string>{"1; elapsed=0 ms", "2; elapsed=70 ms"}));
}

TEST(TimingStep, IsTheDurationAndNothingElse) {
  TraceLog trace;
  appendTiming(trace, "Send Action", 0);
  appendTiming(trace, "Submit Total", 18446744073709551615U);
  EXPECT_EQ(resultsOf(trace, "Timing Send Action"), std::vector<std::string>{"0 ms"});
  EXPECT_EQ(resultsOf(trace, "Timing Submit Total"), std::vector<std::string>{"18446744073709551615 ms"});
}

}  // namespace
}  // namespace orvane
