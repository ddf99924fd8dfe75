// Placing the main window, and the form that it takes by its width.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "desktop/desktop_test.h"
#include "desktop/main_window.h"
#include "support/call_record.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::box;
using desktop_tests::captionBits;
using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::frameBits;
using desktop_tests::Main;
using desktop_tests::mapOf;
using desktop_tests::normalTitle;
using desktop_tests::oneMonitor;
using desktop_tests::overlappedBits;
using desktop_tests::sidesOf;
using desktop_tests::styleOf;
using desktop_tests::titleOf;
using simulation::CallRecord;
using simulation::SimulatedDesktop;

using SetBounds = DesktopTest;

TEST_F(SetBounds, UsesTheDefaults_WhenNothingIsGiven) {
  const EncodableMap empty;
  const EncodableMap unusable = mapOf({{"x", EncodableValue("1")},
                                       {"y", EncodableValue(true)},
                                       {"width", EncodableValue()},
                                       {"height", EncodableValue(EncodableList())},
                                       {"clientHeight", EncodableValue(false)}});
  for (const EncodableMap* arguments : {&empty, &unusable, static_cast<const EncodableMap*>(nullptr)}) {
    for (const int dpi : {96, 144}) {
      const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
      Main main;
      EXPECT_TRUE(setBounds(main.asMain(), main.host, arguments));
      EXPECT_EQ(sidesOf(main.handle()), box(20 * dpi / 96, 20 * dpi / 96, 200 * dpi / 96, 470 * dpi / 96));
      EXPECT_EQ(main.compactModes, std::vector<bool>{true});
    }
  }
}

struct FormRow {
  const char* test;
  double width;
  bool isCompact;
};

class FormByWidth : public ::testing::TestWithParam<FormRow> {};

TEST_P(FormByWidth, IsCompactUpToThreeHundredLogicalPixels_WhateverTheDpi) {
  for (const int dpi : {48, 96, 144, 192}) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
    Main main;
    const DWORD before = styleOf(main.handle());

    EXPECT_TRUE(main.place(mapOf({{"width", EncodableValue(GetParam().width)}})));

    EXPECT_EQ(main.compactModes, std::vector<bool>{GetParam().isCompact});
    EXPECT_EQ(titleOf(main.handle()), GetParam().isCompact ? L"Orvane" : normalTitle);
    EXPECT_EQ(styleOf(main.handle()),
              GetParam().isCompact ? (before & ~captionBits) | frameBits : before | overlappedBits);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, FormByWidth,
                         ::testing::Values(FormRow{"AtTheLimit", 300.0, true}, FormRow{"JustAbove", 300.5, false},
                                           FormRow{"Narrow", 1.0, true}, FormRow{"Negative", -5.0, true},
                                           FormRow{"Wide", 1000.0, false}, FormRow{"NotANumber", std::nan(""), false}),
                         nameOfRow<FormRow>);

TEST_F(SetBounds, GivesTheCaptionBack_WhenTheWindowIsWideAgain) {
  const SimulatedDesktop desktop("{}");
  Main main;
  const DWORD before = styleOf(main.handle());
  main.place(mapOf({{"width", EncodableValue(200)}}));
  ASSERT_EQ(styleOf(main.handle()) & captionBits, 0U);
  main.place(mapOf({{"width", EncodableValue(800)}}));
  EXPECT_EQ(styleOf(main.handle()), before);
  EXPECT_EQ(main.compactModes, (std::vector<bool>{true, false}));
}

TEST_F(SetBounds, IsAtLeastOneHundredSixtyPixelsWide_AtAnyDpi) {
  for (const int dpi : {48, 96, 144, 192}) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
    Main main;
    const double logicalWidth = 100.0 * 96 / dpi;
    main.place(mapOf({{"width", EncodableValue(logicalWidth)}, {"height", EncodableValue(1000)}}));
    EXPECT_EQ(sidesOf(main.handle())[2] - sidesOf(main.handle())[0], 160);
  }
}

TEST_F(SetBounds, TakesTheWorkAreasWidth_WhenThatIsLess) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 150, 600}, 96));
  Main main;
  main.place(mapOf({{"x", EncodableValue(0)}, {"y", EncodableValue(0)}}));
  EXPECT_EQ(sidesOf(main.handle())[2] - sidesOf(main.handle())[0], 150);
}

struct HeightRow {
  const char* test;
  double height;
  std::vector<LONG> bounds;
};

// Asked for at 1900, 1000 of a work area of 1920 by 1080, 400 wide.
class PlaceByHeight : public ::testing::TestWithParam<HeightRow> {};

TEST_P(PlaceByHeight, IsInsideTheWorkArea_WhenTheHeightIsLow) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 1920, 1080}, 96));
  Main main;
  main.place(mapOf({{"x", EncodableValue(1900)},
                    {"y", EncodableValue(1000)},
                    {"width", EncodableValue(400)},
                    {"height", EncodableValue(GetParam().height)}}));
  EXPECT_EQ(sidesOf(main.handle()), GetParam().bounds);
}

INSTANTIATE_TEST_SUITE_P(Each, PlaceByHeight,
                         ::testing::Values(HeightRow{"AtTheLimit", 120.0, box(1520, 960, 400, 120)},
                                           HeightRow{"Low", 30.9, box(1520, 1000, 400, 30)},
                                           HeightRow{"JustAbove", 120.5, box(1872, 1000, 400, 240)},
                                           HeightRow{"NextWhole", 121.0, box(1872, 1000, 400, 240)},
                                           HeightRow{"High", 500.0, box(1872, 1000, 400, 500)}),
                         nameOfRow<HeightRow>);

TEST_F(SetBounds, MeasuresTheLimitsInLogicalPixels_AndTheLeastHeightInPixels) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, 192));
  Main main;
  main.place(mapOf({{"width", EncodableValue(400)}, {"height", EncodableValue(120)}}));
  EXPECT_EQ(sidesOf(main.handle()), box(40, 40, 800, 240));
  main.place(mapOf({{"width", EncodableValue(400)}, {"height", EncodableValue(121)}}));
  EXPECT_EQ(sidesOf(main.handle()), box(40, 40, 800, 242));
}

TEST_F(SetBounds, CutsEachValueTowardsZero) {
  const SimulatedDesktop desktop(R"({"monitors": [{"bounds": [-2000, -2000, 4000, 3000], "dpi": 144}]})");
  Main main;
  main.place(mapOf({{"x", EncodableValue(-10.7)},          // -16.05
                    {"y", EncodableValue(-10.3)},          // -15.45
                    {"width", EncodableValue(400.6)},      // 600.9
                    {"height", EncodableValue(300.6)}}));  // 450.9
  EXPECT_EQ(sidesOf(main.handle()), box(-16, -15, 600, 450));
}

TEST_F(SetBounds, StaysWithinReach_WhateverIsAskedFor) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double far : {1e300, infinity}) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 1920, 1080}, 96));
    Main main;
    EXPECT_TRUE(main.place(mapOf({{"x", EncodableValue(far)}, {"y", EncodableValue(far)}})));
    EXPECT_EQ(sidesOf(main.handle()), box(1920 - 48, 1080 - 48, 200, 470));
    EXPECT_TRUE(main.place(mapOf({{"x", EncodableValue(-far)}, {"y", EncodableValue(-far)}})));
    EXPECT_EQ(sidesOf(main.handle()), box(48 - 200, 0, 200, 470));
    EXPECT_TRUE(main.place(mapOf({{"width", EncodableValue(far)}, {"height", EncodableValue(far)}})));
    EXPECT_EQ(sidesOf(main.handle()), box(20, 20, 1920, 1080));
    EXPECT_TRUE(main.place(mapOf({{"width", EncodableValue(400)}, {"clientHeight", EncodableValue(far)}})));
    EXPECT_EQ(sidesOf(main.handle()), box(20, 20, 400, 1080));
  }
}

TEST_F(SetBounds, AddsThePresentFrameToTheClientsHeight) {
  for (const int dpi : {96, 144, 192}) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
    const LONG side = ::MulDiv(8, dpi, 96);
    const LONG captionedTop = ::MulDiv(31, dpi, 96);
    const LONG client = 300 * dpi / 96;
    Main main;
    const EncodableMap narrow = mapOf({{"width", EncodableValue(250)}, {"clientHeight", EncodableValue(300)}});
    main.place(narrow);
    EXPECT_EQ(sidesOf(main.handle()), box(20 * dpi / 96, 20 * dpi / 96, 250 * dpi / 96, captionedTop + client + side));
    // By now the caption has gone.
    main.place(narrow);
    EXPECT_EQ(sidesOf(main.handle())[3] - sidesOf(main.handle())[1], side + client + side);
  }
}

TEST_F(SetBounds, IgnoresAClientHeightThatIsNotAboveZero) {
  for (const double clientHeight : {0.0, -0.0, -300.0, std::nan("")}) {
    const SimulatedDesktop desktop("{}");
    Main main;
    main.place(mapOf({{"width", EncodableValue(400)}, {"clientHeight", EncodableValue(clientHeight)}}));
    EXPECT_EQ(sidesOf(main.handle()), box(20, 20, 400, 470));
    EXPECT_EQ(desktop.platformCalls("AdjustWindowRectExForDpi"), 0);
  }
}

TEST_F(SetBounds, TakesTheHeight_WhenTheFrameCantBeAdded) {
  SimulatedDesktop desktop("{}");
  Main main;
  desktop.setFaults(faultOf("AdjustWindowRectExForDpi", "false"));
  main.place(
      mapOf({{"width", EncodableValue(400)}, {"height", EncodableValue(333)}, {"clientHeight", EncodableValue(500)}}));
  EXPECT_EQ(sidesOf(main.handle()), box(20, 20, 400, 333));
}

TEST_F(SetBounds, ChoosesTheRuleByTheHeight_AlsoWhenTheClientsHeightCounts) {
  const SimulatedDesktop desktop(oneMonitor({0, 0, 1920, 1080}, 96));
  Main main;
  main.place(mapOf({{"x", EncodableValue(1900)},
                    {"width", EncodableValue(400)},
                    {"height", EncodableValue(100)},
                    {"clientHeight", EncodableValue(500)}}));
  EXPECT_EQ(sidesOf(main.handle()), box(1520, 20, 400, 539)) << "kept inside";
  main.place(mapOf({{"x", EncodableValue(1900)},
                    {"width", EncodableValue(400)},
                    {"height", EncodableValue(470)},
                    {"clientHeight", EncodableValue(50)}}));
  EXPECT_EQ(sidesOf(main.handle()), box(1872, 20, 400, 240)) << "overhanging, with the least height";
}

TEST_F(SetBounds, AppliesNoLeastSize_WhenTheMonitorCantBeRead) {
  SimulatedDesktop desktop("{}");
  Main main;
  desktop.setFaults(faultOf("GetMonitorInfoW", "false"));
  EXPECT_TRUE(
      main.place(mapOf({{"x", EncodableValue(-900)}, {"width", EncodableValue(50)}, {"height", EncodableValue(60)}})));
  EXPECT_EQ(sidesOf(main.handle()), box(-900, 20, 50, 60));
}

TEST_F(SetBounds, RestoresAndRaisesTheWindow) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}]})");
  Main main;
  ::ShowWindow(main.handle(), SW_MINIMIZE);
  desktop.bringToFront("other");
  EXPECT_TRUE(main.place({}));
  EXPECT_FALSE(::IsIconic(main.handle()));
  EXPECT_EQ(desktop.foreground(), "main");
  EXPECT_EQ(desktop.zOrder().front(), "main");
}

TEST_F(SetBounds, ShowsAHiddenWindow) {
  const SimulatedDesktop desktop("{}");
  Main main(WS_OVERLAPPEDWINDOW);
  EXPECT_TRUE(main.place({}));
  EXPECT_TRUE(::IsWindowVisible(main.handle()));
}

TEST_F(SetBounds, DoesntReportWhetherTheForegroundWasGiven) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}]})");
  Main main;
  desktop.bringToFront("other");
  desktop.windowState("main").refusedForegroundRequests = -1;
  EXPECT_TRUE(main.place({}));
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 1);
  EXPECT_EQ(desktop.foreground(), "other");
}

TEST_F(SetBounds, HasChangedStyleAndTitle_WhenThePlaceIsRefused) {
  SimulatedDesktop desktop("{}");
  Main main;
  const std::vector<LONG> before = sidesOf(main.handle());
  desktop.setFaults(faultOf("SetWindowPos", "false"));
  EXPECT_FALSE(main.place({}));
  EXPECT_EQ(sidesOf(main.handle()), before);
  EXPECT_EQ(titleOf(main.handle()), L"Orvane");
  EXPECT_EQ(styleOf(main.handle()) & captionBits, 0U);
  EXPECT_EQ(main.compactModes, std::vector<bool>{true});
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), 1) << "nothing is retried";
}

TEST_F(SetBounds, GoesOn_WhenACallInBetweenFails) {
  SimulatedDesktop desktop("{}");
  for (const char* call : {"SetWindowTextW", "SetWindowLongPtrW", "ShowWindow", "SetForegroundWindow"}) {
    Main main;
    desktop.setFaults(faultOf(call, "0"));
    EXPECT_TRUE(main.place({})) << call;
    EXPECT_EQ(sidesOf(main.handle()), box(20, 20, 200, 470)) << call;
    desktop.setFaults("[]");
  }
}

TEST_F(SetBounds, GivesTheForm_ThenRestoresThenPlacesAndRaises) {
  SimulatedDesktop desktop("{}");
  Main main;
  for (const int width : {200, 640}) {
    const CallRecord record(desktop, {"GetMonitorInfoW", "SetWindowTextW", "SetWindowLongPtrW", "ShowWindow",
                                      "SetWindowPos", "SetForegroundWindow"});
    EXPECT_TRUE(main.place(mapOf({{"width", EncodableValue(width)}})));
    EXPECT_EQ(record.calls(),
              (std::vector<std::string>{"GetMonitorInfoW", "SetWindowTextW main", "SetWindowLongPtrW main",
                                        "ShowWindow main", "SetWindowPos main", "SetForegroundWindow main"}));
  }
}

TEST_F(SetBounds, ShowsAHiddenWindowByItsPlace_WhenItCantBeRestored) {
  SimulatedDesktop desktop("{}");
  for (const bool holdsProperty : {false, true}) {
    Main main(WS_OVERLAPPEDWINDOW);
    if (holdsProperty) {
      ::SetPropW(main.handle(), cleanBackgroundProperty, reinterpret_cast<HANDLE>(std::uintptr_t{1}));
    }
    // The order behind the program's own windows would show it too.
    desktop.setFaults(R"([{"call": "ShowWindow", "result": 0},
                          {"call": "SetWindowPos", "nth": 2, "result": false}])");
    EXPECT_TRUE(main.place({}));
    EXPECT_TRUE(::IsWindowVisible(main.handle())) << holdsProperty;
    desktop.setFaults("[]");
  }
}

// A main window never has the panel's property in normal running; the rule stands all the same.
TEST_F(SetBounds, LeavesFormAndForegroundAlone_WhenTheWindowHoldsThePanelsProperty) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "instance", "process": "orvane.exe"},
                                           {"id": "other", "process": "notepad.exe"}]})");
  Main main;
  ::SetPropW(main.handle(), cleanBackgroundProperty, reinterpret_cast<HANDLE>(std::uintptr_t{1}));
  const DWORD style = styleOf(main.handle());
  desktop.bringToFront("other");

  EXPECT_TRUE(main.place(mapOf({{"x", EncodableValue(1900)}, {"width", EncodableValue(200)}})));

  EXPECT_EQ(sidesOf(main.handle()), box(1720, 20, 200, 470)) << "kept inside whatever its height";
  EXPECT_EQ(main.compactModes, std::vector<bool>{false});
  EXPECT_EQ(styleOf(main.handle()), style);
  EXPECT_EQ(titleOf(main.handle()), L"Plain");
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
  EXPECT_EQ(desktop.foreground(), "other");
  EXPECT_EQ(desktop.zOrder(), (std::vector<std::string>{"other", "instance", "main"})) << "behind the program's own";
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), 2);
}

TEST_F(SetBounds, ShowsAHiddenWindowWithoutActivatingIt_WhenItHoldsThePanelsProperty) {
  const SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}], "foreground": "other"})");
  Main main(WS_OVERLAPPEDWINDOW);
  ::SetPropW(main.handle(), cleanBackgroundProperty, reinterpret_cast<HANDLE>(std::uintptr_t{1}));
  EXPECT_TRUE(main.place({}));
  EXPECT_TRUE(::IsWindowVisible(main.handle()));
  EXPECT_EQ(desktop.foreground(), "other");
}

TEST_F(SetBounds, DoesntReportTheOrder_WhenTheWindowHoldsThePanelsProperty) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}]})");
  Main main;
  ::SetPropW(main.handle(), cleanBackgroundProperty, reinterpret_cast<HANDLE>(std::uintptr_t{1}));
  desktop.bringToFront("other");
  desktop.setFaults(R"([{"call": "SetWindowPos", "nth": 2, "result": false}])");
  EXPECT_TRUE(main.place({}));
  EXPECT_EQ(desktop.zOrder(), (std::vector<std::string>{"other", "main"})) << "the place alone changes nothing in it";
  desktop.setFaults(R"([{"call": "SetWindowPos", "result": false}])");
  EXPECT_FALSE(main.place({}));
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), 3) << "no order without a place";
}

}  // namespace
}  // namespace orvane
