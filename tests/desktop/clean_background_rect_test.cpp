#include "desktop/clean_background_rect.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <vector>

#include "desktop/desktop_test.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::moveTo;
using desktop_tests::oneMonitor;
using desktop_tests::PlainWindow;
using desktop_tests::sides;
using simulation::SimulatedDesktop;

// The rule once more, step by step, over plain facts.
struct Facts {
  RECT work{};
  RECT owner{};
  std::optional<LONG> visibleBottom;  // of the extended frame
  int dpi = 96;
  LONG captionHeight = 0;
  LONG bottomBorder = 0;
  double stateHeight = 0.0;
  std::optional<LONG> presentHeight;
};

std::int64_t held(std::int64_t wanted, std::int64_t least, std::int64_t most) {
  if (most < wanted) return most;
  return wanted < least ? least : wanted;
}

std::vector<LONG> expected(const Facts& facts) {
  const RECT& work = facts.work;
  const std::int64_t bottom = facts.visibleBottom.value_or(facts.owner.bottom);
  std::int64_t height = static_cast<std::int64_t>(std::trunc(facts.dpi * facts.stateHeight / 96.0));
  if (facts.presentHeight) height = *facts.presentHeight;
  const std::int64_t left = held(facts.owner.left, work.left, work.right - 1);
  const std::int64_t margin = (12 * facts.dpi + 48) / 96;
  const std::int64_t width = std::min<std::int64_t>(facts.owner.right - facts.owner.left + margin, work.right - left);
  const std::int64_t gap = std::max<std::int64_t>(1, work.bottom - bottom);
  if (height <= 0) height = std::max<std::int64_t>(1, gap * 20 / 100) + facts.captionHeight + facts.bottomBorder;
  height = std::min<std::int64_t>(height, work.bottom - work.top);
  const std::int64_t wantedTop = bottom - 2 * std::int64_t{facts.bottomBorder} - facts.captionHeight;
  const std::int64_t top = held(wantedTop, work.top, work.bottom - height);
  return {static_cast<LONG>(left), static_cast<LONG>(top), static_cast<LONG>(left + width),
          static_cast<LONG>(top + height)};
}

// What the platform says of a captioned, sizable window of this density.
Facts factsAt(int dpi, const RECT& work, const RECT& owner) {
  Facts facts;
  facts.work = work;
  facts.owner = owner;
  facts.dpi = dpi;
  facts.captionHeight = ::MulDiv(31, dpi, 96);
  facts.bottomBorder = ::MulDiv(8, dpi, 96);
  facts.visibleBottom = owner.bottom - ::MulDiv(7, dpi, 96);
  return facts;
}

std::vector<LONG> computed(HWND owner, PanelHeight height = PanelHeight::present) {
  return sides(computeCleanBackgroundRect(owner, height));
}

const RECT work = {0, 0, 1920, 1040};
const RECT place = {300, 100, 700, 600};
const std::vector<LONG> fixedRect = {8, 8, 808, 208};

using CleanBackgroundRect = DesktopTest;

TEST_F(CleanBackgroundRect, HangsBelowTheOwner) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow owner(place);
  // The visible bottom is 593; the gap 447, a fifth of it 89; caption 31 and border 8 come on top.
  EXPECT_EQ(computed(owner.get()), (std::vector<LONG>{300, 593 - 16 - 31, 300 + 412, 593 - 47 + 128}));
}

TEST_F(CleanBackgroundRect, FollowsTheDpi) {
  for (const int dpi : {72, 96, 120, 144, 168, 192, 288}) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 3840, 2160}, dpi));
    const PlainWindow owner(place);
    EXPECT_EQ(computed(owner.get()), expected(factsAt(dpi, {0, 0, 3840, 2160}, place))) << dpi;
  }
}

struct OwnerRow {
  const char* why;
  RECT owner;
};

TEST_F(CleanBackgroundRect, KeepsToTheWorkArea) {
  const SimulatedDesktop desktop(R"({"monitors": [{"bounds": [0, 0, 1920, 1080], "work": [60, 30, 1900, 1040]}]})");
  const PlainWindow owner;
  const RECT area = {60, 30, 1900, 1040};
  const OwnerRow rows[] = {{"lower edge at the work area's", {300, 100, 700, 1047}},
                           {"lower edge below the work area", {300, 100, 700, 1500}},
                           {"beyond the right edge", {2500, 100, 2900, 600}},
                           {"one pixel left on the right", {1899, 100, 2300, 600}},
                           {"two pixels left on the right", {1898, 100, 2300, 600}},
                           {"over the left edge", {-200, 100, 300, 600}},
                           {"beyond the left edge", {-900, 100, -500, 600}},
                           {"above the work area", {300, -500, 700, -200}},
                           {"wider than the work area", {0, 100, 5000, 600}},
                           {"tiny", {300, 100, 301, 101}}};
  for (const OwnerRow& row : rows) {
    moveTo(owner.get(), row.owner);
    EXPECT_EQ(computed(owner.get()), expected(factsAt(96, area, row.owner))) << row.why;
  }
}

TEST_F(CleanBackgroundRect, HasAGapOfOnePixel_WhenTheOwnerReachesTheWorkAreasBottom) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow owner({300, 100, 700, 1047});
  // A body of one pixel, caption and border; the lower edge is that of the work area.
  EXPECT_EQ(computed(owner.get()), (std::vector<LONG>{300, 993, 712, 1033}));
}

TEST_F(CleanBackgroundRect, IsOnePixelWide_WhenTheOwnerIsBeyondTheRightEdge) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow owner({2500, 100, 2900, 600});
  EXPECT_EQ(computed(owner.get())[0], 1919);
  EXPECT_EQ(computed(owner.get())[2], 1920);
}

TEST_F(CleanBackgroundRect, AgreesWithTheRule_OnRandomOwners) {
  std::mt19937 random(6202);
  for (const int dpi : {96, 120, 144, 192}) {
    const RECT area = {-700, -300, 2500, 1300};
    const SimulatedDesktop desktop(oneMonitor(area, dpi));
    const PlainWindow owner;
    for (const int reach : {2'000, 20'000}) {
      std::uniform_int_distribution<int> corner(-reach, reach);
      std::uniform_int_distribution<int> size(1, 3'000);
      std::uniform_real_distribution<double> height(-300.0, 2'000.0);
      for (int round = 0; round < 300 && !HasFailure(); ++round) {
        RECT bounds{corner(random), corner(random), 0, 0};
        bounds.right = bounds.left + size(random);
        bounds.bottom = bounds.top + size(random);
        moveTo(owner.get(), bounds);
        Facts facts = factsAt(dpi, area, bounds);
        facts.stateHeight = cleanBackgroundState().cleanBackgroundHeight = height(random);
        EXPECT_EQ(computed(owner.get()), expected(facts)) << testing::PrintToString(sides(bounds)) << facts.stateHeight;
      }
    }
  }
}

TEST_F(CleanBackgroundRect, TakesTheStatesHeight) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 3840, 2160}, 144));
  const PlainWindow owner(place);
  for (const double height : {300.0, 300.9, 0.7, 0.6, -0.9, -5.0, 1e6, 1e300}) {
    cleanBackgroundState().cleanBackgroundHeight = height;
    Facts facts = factsAt(144, {0, 0, 3840, 2160}, place);
    facts.stateHeight = std::min(height, 1e6);
    EXPECT_EQ(computed(owner.get()), expected(facts)) << height;
    EXPECT_EQ(computed(owner.get(), PanelHeight::asked), expected(facts)) << height;
  }
  cleanBackgroundState().cleanBackgroundHeight = 300.0;
  EXPECT_EQ(computed(owner.get())[3] - computed(owner.get())[1], 450);
}

// The panel stands beside the owner, 123 high, and is the state's.
class WithAPanel : public DesktopTest {
 protected:
  void standUp() {
    owner = std::make_unique<PlainWindow>(place);
    panel = std::make_unique<PlainWindow>(RECT{0, 0, 300, 123}, L"Panel");
    cleanBackgroundState().cleanBackgroundWindow = panel->get();
    cleanBackgroundState().cleanBackgroundHeight = 300.0;
  }

  LONG height(PanelHeight panelHeight) const {
    const std::vector<LONG> rect = computed(owner->get(), panelHeight);
    return rect[3] - rect[1];
  }

  SimulatedDesktop desktop{"{}"};
  std::unique_ptr<PlainWindow> owner;
  std::unique_ptr<PlainWindow> panel;
};

TEST_F(WithAPanel, KeepsItsPresentHeight_UnlessThatIsIgnored) {
  standUp();
  EXPECT_EQ(height(PanelHeight::present), 123);
  EXPECT_EQ(height(PanelHeight::asked), 300);
  Facts facts = factsAt(96, work, place);
  facts.presentHeight = 123;
  EXPECT_EQ(computed(owner->get()), expected(facts));
}

TEST_F(WithAPanel, KeepsItsPresentHeight_WhenItIsHidden) {
  standUp();
  ::ShowWindow(panel->get(), SW_HIDE);
  EXPECT_EQ(height(PanelHeight::present), 123);
}

TEST_F(WithAPanel, TakesTheStatesHeight_WhenItIsIconic) {
  standUp();
  ::ShowWindow(panel->get(), SW_MINIMIZE);
  EXPECT_EQ(height(PanelHeight::present), 300);
}

TEST_F(WithAPanel, TakesTheStatesHeight_WhenItIsGone) {
  standUp();
  panel.reset();
  EXPECT_EQ(height(PanelHeight::present), 300);
}

TEST_F(WithAPanel, TakesTheStatesHeight_WhenItsPlaceCantBeRead) {
  standUp();
  desktop.setFaults(faultOf("GetWindowRect", "false", "main"));
  EXPECT_EQ(computed(owner->get()), fixedRect) << "the owner's place is the main one";
  desktop.setFaults(R"([{"call": "GetWindowRect", "nth": 2, "result": false}])");
  EXPECT_EQ(height(PanelHeight::present), 300);
}

TEST_F(CleanBackgroundRect, IsTheFixedOne_WhenMonitorOrOwnerCantBeRead) {
  SimulatedDesktop desktop("{}");
  const PlainWindow owner(place);
  for (const auto& [call, result] :
       {std::pair{"MonitorFromWindow", "null"}, {"GetMonitorInfoW", "false"}, {"GetWindowRect", "false"}}) {
    desktop.setFaults(faultOf(call, result));
    EXPECT_EQ(computed(owner.get()), fixedRect) << call;
    EXPECT_EQ(computed(owner.get(), PanelHeight::asked), fixedRect) << call;
  }
  desktop.setFaults("[]");
  EXPECT_EQ(computed(nullptr), fixedRect);
}

TEST_F(CleanBackgroundRect, IsTheFixedOne_WhenTheOwnerIsGone) {
  const SimulatedDesktop desktop("{}");
  HWND gone = nullptr;
  {
    const PlainWindow owner;
    gone = owner.get();
  }
  EXPECT_EQ(computed(gone), fixedRect);
}

TEST_F(CleanBackgroundRect, KnowsAFrame_WhenThePlatformTellsNone) {
  for (const int dpi : {96, 120, 144}) {
    SimulatedDesktop desktop(oneMonitor({0, 0, 3840, 2160}, dpi));
    const PlainWindow owner(place);
    desktop.setFaults(faultOf("AdjustWindowRectExForDpi", "false"));
    Facts facts = factsAt(dpi, {0, 0, 3840, 2160}, place);
    facts.captionHeight = ::MulDiv(32, dpi, 96);
    facts.bottomBorder = ::MulDiv(8, dpi, 96);
    EXPECT_EQ(computed(owner.get()), expected(facts)) << dpi;
  }
}

TEST_F(CleanBackgroundRect, TakesTheWindowsOwnEdge_WhenTheExtendedFrameCantBeRead) {
  SimulatedDesktop desktop("{}");
  const PlainWindow owner(place);
  Facts facts = factsAt(96, work, place);
  facts.visibleBottom.reset();
  for (const char* result : {R"("0x80070006")", R"("0x80004005")"}) {
    desktop.setFaults(faultOf("DwmGetWindowAttribute", result));
    EXPECT_EQ(computed(owner.get()), expected(facts)) << result;
  }
}

TEST_F(CleanBackgroundRect, HasNoMarginAndNoFrame_WhenTheDpiIsZero) {
  SimulatedDesktop desktop("{}");
  const PlainWindow owner(place);
  cleanBackgroundState().cleanBackgroundHeight = 300.0;
  desktop.setFaults(R"([{"call": "GetDpiForWindow", "times": 9, "result": 0},
                        {"call": "AdjustWindowRectExForDpi", "times": 9, "result": false}])");
  Facts facts = factsAt(96, work, place);
  facts.dpi = 0;
  facts.captionHeight = 0;
  facts.bottomBorder = 0;
  facts.stateHeight = 300.0;
  EXPECT_EQ(computed(owner.get()), expected(facts));
}

}  // namespace
}  // namespace orvane
