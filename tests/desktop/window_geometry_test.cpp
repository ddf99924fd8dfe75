#include "desktop/window_geometry.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "desktop/desktop_test.h"
#include "desktop/main_window.h"
#include "support/call_record.h"

namespace orvane {
namespace {

using desktop_tests::box;
using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::Main;
using desktop_tests::mapOf;
using desktop_tests::normalTitle;
using desktop_tests::oneMonitor;
using desktop_tests::PlainWindow;
using desktop_tests::sidesOf;
using desktop_tests::styleOf;
using desktop_tests::titleOf;
using simulation::CallRecord;
using simulation::SimulatedDesktop;

using EmergencyRestore = DesktopTest;

TEST_F(EmergencyRestore, CentersTheNormalSize) {
  for (const int dpi : {96, 120, 144}) {
    const SimulatedDesktop desktop(oneMonitor({-500, 100, 3501, 2600}, dpi));
    Main main;
    const LONG width = 1100 * dpi / 96;
    const LONG height = 720 * dpi / 96;
    EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
    EXPECT_EQ(sidesOf(main.handle()), box(-500 + (4001 - width) / 2, 100 + (2500 - height) / 2, width, height));
    EXPECT_EQ(main.compactModes, std::vector<bool>{false});
    EXPECT_EQ(titleOf(main.handle()), normalTitle);
  }
}

TEST_F(EmergencyRestore, AsksForSixteenHundredFiftyByTenEighty_AtOneAndAHalf) {
  const SimulatedDesktop wide(oneMonitor({0, 0, 2000, 1200}, 144));
  Main main;
  EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
  EXPECT_EQ(sidesOf(main.handle()), box(175, 60, 1650, 1080));
}

TEST_F(EmergencyRestore, CutsTheSizeToTheWorkArea) {
  const SimulatedDesktop desktop(
      R"({"monitors": [{"bounds": [0, 0, 1600, 900], "work": [10, 20, 1600, 860], "dpi": 144}]})");
  Main main;
  EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
  EXPECT_EQ(sidesOf(main.handle()), box(10, 20, 1590, 840));
}

TEST_F(EmergencyRestore, UsesTheMonitorThatTheWindowStandsOn) {
  const SimulatedDesktop desktop(R"({"monitors": [{"bounds": [0, 0, 1920, 1080]},
                                                  {"bounds": [1920, 0, 4000, 1500]}]})");
  Main main;
  desktop_tests::moveTo(main.handle(), {2000, 100, 2300, 400});
  ::ShowWindow(main.handle(), SW_MINIMIZE);
  EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
  EXPECT_FALSE(::IsIconic(main.handle()));
  EXPECT_EQ(sidesOf(main.handle()), box(1920 + (2080 - 1100) / 2, (1500 - 720) / 2, 1100, 720));
}

TEST_F(EmergencyRestore, BringsNoCaptionBack) {
  const SimulatedDesktop desktop("{}");
  Main main;
  main.place(mapOf({{"width", EncodableValue(200)}}));
  const DWORD compact = styleOf(main.handle());
  EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
  EXPECT_EQ(styleOf(main.handle()), compact | WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
  EXPECT_EQ(styleOf(main.handle()) & WS_CAPTION, 0U);
  EXPECT_EQ(main.compactModes, (std::vector<bool>{true, false}));
}

TEST_F(EmergencyRestore, TakesTheForeground) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}]})");
  Main main;
  desktop.bringToFront("other");
  EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
  EXPECT_EQ(desktop.foreground(), "main");
}

TEST_F(EmergencyRestore, ChangesNothing_WhenTheMonitorCantBeRead) {
  SimulatedDesktop desktop("{}");
  Main main;
  const std::vector<LONG> bounds = sidesOf(main.handle());
  const DWORD style = styleOf(main.handle());
  for (const auto& [call, result] : {std::pair{"MonitorFromWindow", "null"}, {"GetMonitorInfoW", "false"}}) {
    desktop.setFaults(faultOf(call, result));
    EXPECT_FALSE(emergencyRestore(main.asMain(), main.host)) << call;
    EXPECT_TRUE(main.compactModes.empty());
    EXPECT_EQ(titleOf(main.handle()), L"Plain");
    EXPECT_EQ(styleOf(main.handle()), style);
    EXPECT_EQ(sidesOf(main.handle()), bounds);
    EXPECT_EQ(desktop.platformCalls("ShowWindow"), 0);
    EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
  }
}

TEST_F(EmergencyRestore, Fails_WhenThePlaceIsRefused) {
  SimulatedDesktop desktop("{}");
  Main main;
  desktop.setFaults(faultOf("SetWindowPos", "false"));
  EXPECT_FALSE(emergencyRestore(main.asMain(), main.host));
  EXPECT_EQ(titleOf(main.handle()), normalTitle);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
}

TEST_F(EmergencyRestore, RestoresTheWindow_BeforeItPlacesAndRaisesIt) {
  SimulatedDesktop desktop("{}");
  Main main;
  const CallRecord record(desktop,
                          {"SetWindowTextW", "SetWindowLongPtrW", "ShowWindow", "SetWindowPos", "SetForegroundWindow"});
  EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
  EXPECT_EQ(record.calls(),
            (std::vector<std::string>{"SetWindowTextW main", "SetWindowLongPtrW main", "ShowWindow main",
                                      "SetWindowPos main", "SetForegroundWindow main"}));
}

TEST_F(EmergencyRestore, ShowsAHiddenWindowByItsPlace_WhenItCantBeRestored) {
  SimulatedDesktop desktop("{}");
  Main main(WS_OVERLAPPEDWINDOW);
  desktop.setFaults(faultOf("ShowWindow", "0"));
  EXPECT_TRUE(emergencyRestore(main.asMain(), main.host));
  EXPECT_TRUE(::IsWindowVisible(main.handle()));
}

EncodableMap boundsReply(double x, double y, double width, double height) {
  return mapOf({{"success", EncodableValue(true)},
                {"x", EncodableValue(x)},
                {"y", EncodableValue(y)},
                {"width", EncodableValue(width)},
                {"height", EncodableValue(height)}});
}

const EncodableMap plainFailure = mapOf({{"success", EncodableValue(false)}});

using WindowGeometry = DesktopTest;

TEST_F(WindowGeometry, TellsTheWorkAreaAndTheBoundsInLogicalPixels) {
  const SimulatedDesktop desktop(R"({"monitors": [{"bounds": [0, 0, 1920, 1080]},
      {"bounds": [-1001, 0, 0, 800], "work": [-1001, 25, 0, 780], "dpi": 144}]})");
  Main main;
  desktop_tests::moveTo(main.handle(), {-900, 31, -501, 331});
  EXPECT_EQ(getWorkArea(main.asMain()), boundsReply(-1001 / 1.5, 25 / 1.5, 1001 / 1.5, 755 / 1.5));
  EXPECT_EQ(getBounds(main.asMain()), boundsReply(-900 / 1.5, 31 / 1.5, 399 / 1.5, 200));
}

TEST_F(WindowGeometry, HasSuccessAlone_WhenItCantBeRead) {
  SimulatedDesktop desktop("{}");
  const Main main;
  desktop.setFaults(faultOf("GetWindowRect", "false"));
  EXPECT_EQ(getBounds(main.asMain()), plainFailure);
  EXPECT_EQ(getWorkArea(main.asMain()), boundsReply(0, 0, 1920, 1040));
  desktop.setFaults(faultOf("GetMonitorInfoW", "false"));
  EXPECT_EQ(getWorkArea(main.asMain()), plainFailure);
  EXPECT_EQ(getBounds(main.asMain()), boundsReply(100, 100, 800, 600));
  desktop.setFaults(faultOf("MonitorFromWindow", "null"));
  EXPECT_EQ(getWorkArea(main.asMain()), plainFailure);
}

TEST_F(WindowGeometry, LimitsTheCompactFormByTheDpi) {
  const struct {
    int dpi;
    LONG width;
    LONG height;
  } rows[] = {{96, 150, 160}, {120, 188, 200}, {144, 225, 240}, {192, 300, 320}, {97, 152, 162}};
  for (const auto& row : rows) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, row.dpi));
    const PlainWindow window;
    MINMAXINFO limits{};
    limits.ptMaxTrackSize = {777, 888};
    limitTracking(window.get(), leastCompactSize, limits);
    EXPECT_EQ(limits.ptMinTrackSize.x, row.width) << row.dpi;
    EXPECT_EQ(limits.ptMinTrackSize.y, row.height) << row.dpi;
    EXPECT_EQ(limits.ptMaxTrackSize.x, 777);
    EXPECT_EQ(limits.ptMaxTrackSize.y, 888);
  }
}

}  // namespace
}  // namespace orvane
