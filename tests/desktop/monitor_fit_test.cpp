#include "desktop/monitor_fit.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "desktop/desktop_test.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::oneMonitor;
using desktop_tests::sides;
using simulation::SimulatedDesktop;

constexpr int overhangingHeight = 240;

struct FitRow {
  const char* test;
  RECT wanted;
  int leastHeight;
  ScreenFit fit;
  RECT fitted;
};

// The work area is 1000 by 700 at 100, 50.
class FitOnOneMonitor : public ::testing::TestWithParam<FitRow> {};

TEST_P(FitOnOneMonitor, GivesTheSizeFirst_AndThenThePlace) {
  const SimulatedDesktop desktop(oneMonitor({100, 50, 1100, 750}, 192));
  const FitRow& row = GetParam();
  EXPECT_EQ(sides(fitRectToMonitor(row.wanted, row.leastHeight, row.fit)), sides(row.fitted));
}

INSTANTIATE_TEST_SUITE_P(
    Each, FitOnOneMonitor,
    ::testing::Values(
        FitRow{"FitsAlready", {200, 100, 500, 400}, overhangingHeight, ScreenFit::overhanging, {200, 100, 500, 400}},
        FitRow{"LeastWidth", {200, 100, 300, 400}, overhangingHeight, ScreenFit::overhanging, {200, 100, 360, 400}},
        FitRow{
            "WidthAtTheLeast", {200, 100, 360, 400}, overhangingHeight, ScreenFit::overhanging, {200, 100, 360, 400}},
        FitRow{"LeastHeight", {200, 100, 500, 339}, overhangingHeight, ScreenFit::overhanging, {200, 100, 500, 340}},
        FitRow{"NoSize", {200, 100, 200, 100}, overhangingHeight, ScreenFit::overhanging, {200, 100, 360, 340}},
        FitRow{"NegativeSize", {200, 100, -800, -900}, overhangingHeight, ScreenFit::overhanging, {200, 100, 360, 340}},
        FitRow{"GreatestSize", {100, 50, 9000, 9000}, overhangingHeight, ScreenFit::overhanging, {100, 50, 1100, 750}},
        FitRow{"OverhangsLeft", {-152, 60, 148, 360}, overhangingHeight, ScreenFit::overhanging, {-152, 60, 148, 360}},
        FitRow{"OverhangsLeftTooFar",
               {-153, 60, 147, 360},
               overhangingHeight,
               ScreenFit::overhanging,
               {-152, 60, 148, 360}},
        FitRow{
            "OverhangsRight", {1052, 60, 1352, 360}, overhangingHeight, ScreenFit::overhanging, {1052, 60, 1352, 360}},
        FitRow{"OverhangsRightTooFar",
               {1053, 60, 1353, 360},
               overhangingHeight,
               ScreenFit::overhanging,
               {1052, 60, 1352, 360}},
        FitRow{
            "OverhangsBottom", {200, 702, 500, 1002}, overhangingHeight, ScreenFit::overhanging, {200, 702, 500, 1002}},
        FitRow{"OverhangsBottomTooFar",
               {200, 703, 500, 1003},
               overhangingHeight,
               ScreenFit::overhanging,
               {200, 702, 500, 1002}},
        FitRow{"NeverOverTheTop", {200, 49, 500, 349}, overhangingHeight, ScreenFit::overhanging, {200, 50, 500, 350}},
        FitRow{"InsideLeft", {-153, 60, 147, 360}, 100, ScreenFit::inside, {100, 60, 400, 360}},
        FitRow{"InsideRight", {1053, 60, 1353, 360}, 100, ScreenFit::inside, {800, 60, 1100, 360}},
        FitRow{"InsideTop", {200, 0, 500, 100}, 100, ScreenFit::inside, {200, 50, 500, 150}},
        FitRow{"InsideBottom", {200, 702, 500, 802}, 100, ScreenFit::inside, {200, 650, 500, 750}},
        FitRow{"InsideWidth", {200, 100, 210, 200}, 100, ScreenFit::inside, {200, 100, 360, 200}},
        FitRow{"InsideKeepsItsOwnHeight", {200, 100, 500, 110}, 10, ScreenFit::inside, {200, 100, 500, 110}}),
    nameOfRow<FitRow>);

using MonitorFit = DesktopTest;

TEST_F(MonitorFit, LetsASmallWorkAreaWinOverTheLeastSizes) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 120, 90}, 96));
  EXPECT_EQ(sides(fitRectToMonitor({0, 0, 500, 500}, overhangingHeight, ScreenFit::inside)),
            (std::vector<LONG>{0, 0, 120, 90}));
  EXPECT_EQ(sides(fitRectToMonitor({0, 0, 10, 10}, overhangingHeight, ScreenFit::overhanging)),
            (std::vector<LONG>{0, 0, 120, 90}));
}

TEST_F(MonitorFit, LetsTheUpperBoundWin_WhenTheRangeIsEmpty) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 30, 40}, 96));
  // Left: from 0 - 30 + 48 = 18 to 30 - 48 = -18; top: from 0 to 40 - 48 = -8.
  EXPECT_EQ(sides(fitRectToMonitor({5, 5, 400, 400}, overhangingHeight, ScreenFit::overhanging)),
            (std::vector<LONG>{-18, -8, 12, 32}));
  // Below the upper bound the lower one counts.
  EXPECT_EQ(sides(fitRectToMonitor({-20, -9, 400, 400}, overhangingHeight, ScreenFit::overhanging)),
            (std::vector<LONG>{18, 0, 48, 40}));
}

TEST_F(MonitorFit, FitsToTheMonitorThatTheRectangleLiesOn) {
  const SimulatedDesktop desktop(R"({"monitors": [
      {"bounds": [0, 0, 1920, 1080], "work": [0, 0, 1920, 1040]},
      {"bounds": [1920, 0, 3840, 2160], "work": [1920, 100, 3840, 2160], "dpi": 192},
      {"bounds": [-1280, -200, 0, 824], "work": [-1280, -200, 0, 784]}]})");
  // 400 of 500 pixels lie on the second one.
  EXPECT_EQ(sides(fitRectToMonitor({1820, 0, 2320, 300}, 100, ScreenFit::inside)),
            (std::vector<LONG>{1920, 100, 2420, 400}));
  EXPECT_EQ(sides(fitRectToMonitor({-900, -300, -500, -100}, 100, ScreenFit::inside)),
            (std::vector<LONG>{-900, -200, -500, 0}));
  // Beside all of them the nearest counts.
  EXPECT_EQ(sides(fitRectToMonitor({9000, 900, 9400, 1200}, overhangingHeight, ScreenFit::overhanging)),
            (std::vector<LONG>{3840 - 48, 900, 3840 - 48 + 400, 1200}));
  EXPECT_EQ(sides(fitRectToMonitor({-9000, 0, -8600, 300}, overhangingHeight, ScreenFit::overhanging)),
            (std::vector<LONG>{-1280 - 400 + 48, 0, -1280 + 48, 300}));
}

TEST_F(MonitorFit, LeavesTheRectangleAsItIs_WhenTheMonitorCantBeRead) {
  SimulatedDesktop desktop("{}");
  for (const auto& [call, result] : {std::pair{"MonitorFromRect", "null"}, {"GetMonitorInfoW", "false"}}) {
    desktop.setFaults(faultOf(call, result));
    EXPECT_EQ(sides(fitRectToMonitor({-5, -6, 4, 3}, overhangingHeight, ScreenFit::overhanging)),
              (std::vector<LONG>{-5, -6, 4, 3}));
    EXPECT_EQ(sides(fitRectToMonitor({-5, -6, 4, 3}, overhangingHeight, ScreenFit::inside)),
              (std::vector<LONG>{-5, -6, 4, 3}));
  }
}

TEST_F(MonitorFit, ReadsTheWorkAreaAlone) {
  SimulatedDesktop desktop(R"({"monitors": [{"bounds": [0, 0, 800, 600], "work": [10, 20, 790, 560]}]})");
  const POINT corner{0, 0};
  const HMONITOR monitor = ::MonitorFromPoint(corner, MONITOR_DEFAULTTONEAREST);
  RECT work{};
  EXPECT_TRUE(readWorkArea(monitor, &work));
  EXPECT_EQ(sides(work), (std::vector<LONG>{10, 20, 790, 560}));
  EXPECT_FALSE(readWorkArea(nullptr, &work));
}

// The rule once more, as plainly as it can be said.
struct Model {
  std::int64_t left, top, right, bottom;  // of the work area

  std::vector<std::int64_t> fit(const RECT& wanted, std::int64_t leastHeight, ScreenFit screenFit) const {
    std::int64_t width = std::int64_t{wanted.right} - wanted.left;
    if (width < 160) width = 160;
    if (width > right - left) width = right - left;
    std::int64_t height = std::int64_t{wanted.bottom} - wanted.top;
    if (height < leastHeight) height = leastHeight;
    if (height > bottom - top) height = bottom - top;
    const std::int64_t x = screenFit == ScreenFit::inside ? placed(wanted.left, left, right - width)
                                                          : placed(wanted.left, left - width + 48, right - 48);
    const std::int64_t y = placed(wanted.top, top, screenFit == ScreenFit::inside ? bottom - height : bottom - 48);
    return {x, y, x + width, y + height};
  }

 private:
  static std::int64_t placed(std::int64_t wanted, std::int64_t least, std::int64_t most) {
    if (wanted > most) return most;
    return wanted < least ? least : wanted;
  }
};

Model modelFor(const RECT& wanted) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  EXPECT_TRUE(::GetMonitorInfoW(::MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST), &info));
  return {info.rcWork.left, info.rcWork.top, info.rcWork.right, info.rcWork.bottom};
}

void expectAsTheModel(const RECT& wanted, int leastHeight, ScreenFit screenFit) {
  const RECT fitted = fitRectToMonitor(wanted, leastHeight, screenFit);
  const std::vector<std::int64_t> expected = modelFor(wanted).fit(wanted, leastHeight, screenFit);
  EXPECT_EQ((std::vector<std::int64_t>{fitted.left, fitted.top, fitted.right, fitted.bottom}), expected)
      << wanted.left << ' ' << wanted.top << ' ' << wanted.right << ' ' << wanted.bottom << ", least " << leastHeight
      << ", inside " << (screenFit == ScreenFit::inside);
}

class FitAgainstTheModel : public ::testing::TestWithParam<const char*> {};

TEST_P(FitAgainstTheModel, AgreesOnRandomRectangles) {
  const SimulatedDesktop desktop(GetParam());
  std::mt19937 random(20260517);
  for (const int reach : {300, 5'000, 1'000'000, 1'000'000'000}) {
    std::uniform_int_distribution<int> place(-reach, reach);
    std::uniform_int_distribution<int> size(-reach / 4, reach);
    std::uniform_int_distribution<int> height(0, reach / 2);
    for (int round = 0; round < 1'000 && !HasFailure(); ++round) {
      const int left = place(random);
      const int top = place(random);
      const RECT wanted{left, top, left + size(random), top + size(random)};
      expectAsTheModel(wanted, round % 3 == 0 ? height(random) : overhangingHeight,
                       round % 2 == 0 ? ScreenFit::inside : ScreenFit::overhanging);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, FitAgainstTheModel,
    ::testing::Values("{}", R"({"monitors": [{"bounds": [0, 0, 150, 100], "work": [0, 0, 150, 100]}]})",
                      R"({"monitors": [{"bounds": [-40, -30, -10, 10], "work": [-38, -28, -12, 4]}]})",
                      R"({"monitors": [{"bounds": [0, 0, 1920, 1080], "work": [60, 0, 1920, 1080]},
                         {"bounds": [1920, -300, 4480, 1140], "work": [1920, -300, 4480, 1100], "dpi": 144},
                         {"bounds": [-1080, 0, 0, 1920], "work": [-1080, 0, 0, 1880], "dpi": 120},
                         {"bounds": [0, 1080, 100, 1130], "work": [0, 1080, 100, 1130]}]})"));

TEST_F(MonitorFit, AgreesWithTheModel_AtTheExtremes) {
  const SimulatedDesktop desktop("{}");
  constexpr int far = 1'000'000'000;
  for (const int left : {-far, 0, far}) {
    for (const int top : {-far, 0, far}) {
      for (const int width : {-far, 0, far}) {
        for (const int height : {-far, 0, far}) {
          expectAsTheModel({left, top, left + width, top + height}, overhangingHeight, ScreenFit::overhanging);
          expectAsTheModel({left, top, left + width, top + height}, height, ScreenFit::inside);
        }
      }
    }
  }
}

}  // namespace
}  // namespace orvane
