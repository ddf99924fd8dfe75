#include "desktop/logical_scale.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "desktop/desktop_test.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::mapOf;
using desktop_tests::oneMonitor;
using desktop_tests::PlainWindow;
using simulation::SimulatedDesktop;

using LogicalScale = DesktopTest;

TEST_F(LogicalScale, IsTheWindowsDpiByThatOfAStandardMonitor) {
  for (const int dpi : {48, 96, 120, 144, 192, 288, 97}) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
    const PlainWindow window;
    EXPECT_EQ(logicalScale(window.get()), dpi / 96.0);
  }
}

TEST_F(LogicalScale, IsOne_WhenTheDpiIsZero) {
  const SimulatedDesktop desktop(
      oneMonitor({0, 0, 4000, 3000}, 144, R"(, "faults": [{"call": "GetDpiForWindow", "result": 0}])"));
  const PlainWindow window;
  EXPECT_EQ(logicalScale(window.get()), 1.0);
  EXPECT_EQ(logicalScale(window.get()), 1.5) << "it is asked for afresh";
}

TEST_F(LogicalScale, IsOne_WhenThereIsNoSuchWindow) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, 144));
  HWND gone = nullptr;
  {
    const PlainWindow window;
    gone = window.get();
  }
  EXPECT_EQ(logicalScale(gone), 1.0);
  EXPECT_EQ(logicalScale(nullptr), 1.0);
}

TEST_F(LogicalScale, FollowsTheWindowToAnotherMonitor) {
  const SimulatedDesktop desktop(R"({"monitors": [{"bounds": [0, 0, 1000, 1000], "dpi": 96},
                                                  {"bounds": [1000, 0, 2000, 1000], "dpi": 192}]})");
  const PlainWindow window({100, 100, 500, 400});
  EXPECT_EQ(logicalScale(window.get()), 1.0);
  desktop_tests::moveTo(window.get(), {1100, 100, 1500, 400});
  EXPECT_EQ(logicalScale(window.get()), 2.0);
}

struct TruncationRow {
  const char* test;
  double pixels;
  int whole;
};

class Truncation : public ::testing::TestWithParam<TruncationRow> {};

TEST_P(Truncation, CutsTowardsZero_AndStaysWhereSumsFit) {
  EXPECT_EQ(truncatedPixels(GetParam().pixels), GetParam().whole);
}

constexpr double infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Each, Truncation,
    ::testing::Values(TruncationRow{"Zero", 0.0, 0}, TruncationRow{"NegativeZero", -0.0, 0},
                      TruncationRow{"JustBelowOne", 0.999999, 0}, TruncationRow{"JustAboveMinusOne", -0.999999, 0},
                      TruncationRow{"Positive", 20.9, 20}, TruncationRow{"Negative", -20.9, -20},
                      TruncationRow{"Whole", 470.0, 470}, TruncationRow{"Tiny", 5e-324, 0},
                      TruncationRow{"Limit", 1e9, 1'000'000'000}, TruncationRow{"NegativeLimit", -1e9, -1'000'000'000},
                      TruncationRow{"BelowTheLimit", 999'999'999.9, 999'999'999},
                      TruncationRow{"BeyondAnInteger", 3e9, 1'000'000'000}, TruncationRow{"Huge", 1e300, 1'000'000'000},
                      TruncationRow{"NegativeHuge", -1e300, -1'000'000'000},
                      TruncationRow{"Infinity", infinity, 1'000'000'000},
                      TruncationRow{"NegativeInfinity", -infinity, -1'000'000'000},
                      TruncationRow{"NotANumber", std::nan(""), 0}),
    nameOfRow<TruncationRow>);

TEST(LogicalBounds, AreTheRectangleByTheScale) {
  EncodableMap reply;
  addLogicalBounds(reply, {-30, 15, 300, 316}, 1.5);
  EXPECT_EQ(reply, mapOf({{"x", EncodableValue(-20.0)},
                          {"y", EncodableValue(10.0)},
                          {"width", EncodableValue(220.0)},
                          {"height", EncodableValue(301 / 1.5)}}));
}

TEST(LogicalBounds, HoldSizesBeyondAnInteger) {
  EncodableMap reply;
  addLogicalBounds(reply, {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, 1.0);
  EXPECT_EQ(reply.at(EncodableValue("width")), EncodableValue(4294967295.0));
  EXPECT_EQ(reply.at(EncodableValue("height")), EncodableValue(4294967295.0));
}

}  // namespace
}  // namespace orvane
