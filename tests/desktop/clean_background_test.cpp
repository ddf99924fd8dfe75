#include "desktop/clean_background.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "desktop/clean_background_rect.h"
#include "desktop/clean_background_window.h"
#include "desktop/desktop_test.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::internalError;
using desktop_tests::mapOf;
using desktop_tests::PlainWindow;
using desktop_tests::sides;
using desktop_tests::sidesOf;
using simulation::SimulatedDesktop;

using Ids = std::vector<std::string>;

const std::string foreignWindow = R"({"windows": [{"id": "foreign", "process": "notepad.exe"}]})";

// A main window at 300, 100 with 400 by 500 pixels, and the commands about its panel.
class Main {
 public:
  ~Main() { destroyCleanBackgroundOf(window.get()); }

  EncodableMap sync(const EncodableMap& arguments = {}, double scale = 1.0) const {
    return syncCleanBackground(window.get(), scale, &arguments);
  }
  HWND panel() const { return cleanBackgroundState().cleanBackgroundWindow; }
  RECT wanted(PanelHeight height = PanelHeight::present) const {
    return computeCleanBackgroundRect(window.get(), height);
  }

  PlainWindow window{{300, 100, 700, 600}};
};

// What a reply says beside the bounds.
struct Reply {
  bool success = true;
  DWORD errorCode = 0;
  bool temporarilyClosed = false;
  bool visible = true;
};

// The whole reply, key by key; the bounds are the panel's when it stands.
void expectReply(const EncodableMap& reply, const Reply& expected, double scale = 1.0) {
  EncodableMap whole = mapOf({{"success", EncodableValue(expected.success)},
                              {"errorCode", EncodableValue(static_cast<std::int64_t>(expected.errorCode))},
                              {"temporarilyClosed", EncodableValue(expected.temporarilyClosed)},
                              {"visible", EncodableValue(expected.visible)}});
  if (const HWND panel = cleanBackgroundState().cleanBackgroundWindow) {
    const std::vector<LONG> bounds = sidesOf(panel);
    whole[EncodableValue("x")] = EncodableValue(bounds[0] / scale);
    whole[EncodableValue("y")] = EncodableValue(bounds[1] / scale);
    whole[EncodableValue("width")] = EncodableValue((bounds[2] - bounds[0]) / scale);
    whole[EncodableValue("height")] = EncodableValue((bounds[3] - bounds[1]) / scale);
  }
  EXPECT_EQ(reply, whole);
}

EncodableMap flag(const char* key) { return mapOf({{key, EncodableValue(1)}}); }

using SyncCleanBackground = DesktopTest;

TEST_F(SyncCleanBackground, MakesAndShowsThePanelBehindTheMainWindow) {
  const SimulatedDesktop desktop(foreignWindow);
  const Main main;
  const RECT wanted = main.wanted();
  const EncodableMap reply = main.sync();
  expectReply(reply, {});
  EXPECT_EQ(sidesOf(main.panel()), sides(wanted));
  EXPECT_EQ(desktop.zOrder(), (Ids{"main", "backdrop", "foreign"}));
  EXPECT_EQ(desktop.foreground(), "main");
}

TEST_F(SyncCleanBackground, ShowsThePanel_WhoeverIsInFront) {
  SimulatedDesktop desktop(foreignWindow);
  const Main main;
  desktop.bringToFront("foreign");
  expectReply(main.sync(), {});
  EXPECT_EQ(desktop.foreground(), "foreign");
  EXPECT_EQ(desktop.zOrder(), (Ids{"foreign", "main", "backdrop"}));
}

TEST_F(SyncCleanBackground, TellsTheBoundsInLogicalPixels) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  expectReply(main.sync({}, 1.5), {}, 1.5);
}

TEST_F(SyncCleanBackground, LeavesTheOrderAlone_WhileAnotherProgramIsInFront) {
  SimulatedDesktop desktop(foreignWindow);
  const Main main;
  main.sync();
  ::BringWindowToTop(main.panel());
  desktop.bringToFront("foreign");
  expectReply(main.sync(), {});
  EXPECT_EQ(desktop.zOrder(), (Ids{"foreign", "backdrop", "main"}));
  expectReply(main.sync(flag("reopen")), {});
  EXPECT_EQ(desktop.zOrder(), (Ids{"foreign", "main", "backdrop"}));
}

TEST_F(SyncCleanBackground, StaysEnabled_WhenTheFlagIsNoNumber) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  for (const EncodableValue& enabled :
       {EncodableValue(false), EncodableValue(), EncodableValue("0"), EncodableValue(1), EncodableValue(-0.5)}) {
    expectReply(main.sync(mapOf({{"enabled", enabled}})), {});
  }
  for (const EncodableValue& enabled : {EncodableValue(0), EncodableValue(std::int64_t{0}), EncodableValue(0.0)}) {
    expectReply(main.sync(mapOf({{"enabled", enabled}})), {.visible = false});
    EXPECT_FALSE(::IsWindowVisible(main.panel()));
    main.sync();
  }
}

TEST_F(SyncCleanBackground, MakesNoPanel_WhenItIsNotEnabled) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  const EncodableMap reply =
      main.sync(mapOf({{"enabled", EncodableValue(0)}, {"height", EncodableValue(99)}, {"appearance", "White"}}));
  expectReply(reply, {.visible = false});
  EXPECT_EQ(main.panel(), nullptr);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundColor, 0xFFFFFFU) << "the colour is kept all the same";
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundHeight, 0.0) << "the height isn't";
}

TEST_F(SyncCleanBackground, HidesThePanel_WhenItIsNotEnabled_AndShowsItAtItsOldPlaceAgain) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  ::SetWindowPos(main.panel(), nullptr, 5, 6, 400, 300, SWP_NOZORDER | SWP_NOACTIVATE);
  expectReply(main.sync(mapOf({{"enabled", EncodableValue(0)}})), {.visible = false});
  expectReply(main.sync(), {});
  EXPECT_EQ(sidesOf(main.panel()), (std::vector<LONG>{5, 6, 405, 306}));
}

TEST_F(SyncCleanBackground, StaysHidden_WhenTheUserHasClosedThePanel) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  ::SendMessageW(main.panel(), WM_CLOSE, 0, 0);
  expectReply(main.sync(), {.temporarilyClosed = true, .visible = false});
  expectReply(main.sync(flag("resetHeight")), {.temporarilyClosed = true, .visible = false});
  expectReply(main.sync(mapOf({{"enabled", EncodableValue(0)}})), {.temporarilyClosed = true, .visible = false});
  expectReply(main.sync(mapOf({{"height", EncodableValue(70)}})), {.temporarilyClosed = true, .visible = false});
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundHeight, 0.0);
  expectReply(main.sync(flag("reopen")), {});
}

TEST_F(SyncCleanBackground, CountsAsDisabled_WhenReopenedWithoutBeingEnabled) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  ::SendMessageW(main.panel(), WM_CLOSE, 0, 0);
  expectReply(main.sync(mapOf({{"enabled", EncodableValue(0)}, {"reopen", EncodableValue(1)}})), {.visible = false});
  expectReply(main.sync(), {});
}

TEST_F(SyncCleanBackground, MovesThePanelOnlyWhenAsked) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  ::SetWindowPos(main.panel(), nullptr, 5, 6, 400, 222, SWP_NOZORDER | SWP_NOACTIVATE);
  main.sync(mapOf({{"height", EncodableValue(300)}}));
  EXPECT_EQ(sidesOf(main.panel()), (std::vector<LONG>{5, 6, 405, 228})) << "not moved at all";
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundHeight, 300.0);

  main.sync(mapOf({{"height", EncodableValue(300)}, {"reopen", EncodableValue(1)}}));
  EXPECT_EQ(sidesOf(main.panel()), sides(main.wanted()));
  EXPECT_EQ(sidesOf(main.panel())[3] - sidesOf(main.panel())[1], 222) << "the dragged height stays";

  main.sync(mapOf({{"height", EncodableValue(300)}, {"resetHeight", EncodableValue(1)}}));
  EXPECT_EQ(sidesOf(main.panel()), sides(main.wanted(PanelHeight::asked)));
  EXPECT_EQ(sidesOf(main.panel())[3] - sidesOf(main.panel())[1], 300);
}

TEST_F(SyncCleanBackground, RestoresAnIconicPanel_WhenItIsReopened) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  main.sync(mapOf({{"height", EncodableValue(250)}}));
  ::ShowWindow(main.panel(), SW_MINIMIZE);
  main.sync(flag("resetHeight"));
  EXPECT_TRUE(::IsIconic(main.panel()));
  main.sync(flag("reopen"));
  EXPECT_FALSE(::IsIconic(main.panel()));
}

// Whether the panel is to be drawn again.
bool isToBeDrawn(SimulatedDesktop& desktop, HWND panel) {
  auto& painted = desktop.platform().records().painted;
  painted.clear();
  ::SendMessageW(panel, WM_PAINT, 0, 0);
  return !painted.empty();
}

TEST_F(SyncCleanBackground, DrawsThePanelAgain_WhenItsColourChangesOrItWasHidden) {
  SimulatedDesktop desktop("{}");
  const Main main;
  const auto drawn = [&](const EncodableMap& arguments) {
    main.sync(arguments);
    return isToBeDrawn(desktop, main.panel());
  };
  const EncodableMap white = mapOf({{"appearance", "White"}});
  EXPECT_TRUE(drawn(white));
  EXPECT_FALSE(drawn(white));
  EXPECT_TRUE(drawn(mapOf({{"appearance", "Pink"}})));
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundColor, 0x1F1C19U);
  EXPECT_FALSE(drawn({})) << "another word of the same colour";
  ::ShowWindow(main.panel(), SW_HIDE);
  const std::int64_t before = desktop.platformCalls("InvalidateRect");
  EXPECT_TRUE(drawn({}));
  EXPECT_EQ(desktop.platformCalls("InvalidateRect"), before + 1);
}

struct ColourRow {
  const char* test;
  const char* appearance;
  COLORREF colour;
};

class PanelColour : public ::testing::TestWithParam<ColourRow> {
 protected:
  PanelColour() { cleanBackgroundState() = {}; }
};

TEST_P(PanelColour, GoesByTheExactName) {
  const SimulatedDesktop desktop("{}");
  const Main main;
  main.sync(mapOf({{"enabled", EncodableValue(0)}, {"appearance", GetParam().appearance}}));
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundColor, GetParam().colour);
}

INSTANTIATE_TEST_SUITE_P(Each, PanelColour,
                         ::testing::Values(ColourRow{"DeepGreen", "Deep Green", RGB(3, 20, 15)},
                                           ColourRow{"DeepBlue", "Deep Blue", RGB(6, 20, 38)},
                                           ColourRow{"White", "White", RGB(255, 255, 255)},
                                           ColourRow{"Empty", "", RGB(25, 28, 31)},
                                           ColourRow{"Unknown", "Graphite", RGB(25, 28, 31)},
                                           ColourRow{"OtherLetterCase", "white", RGB(25, 28, 31)},
                                           ColourRow{"WithASpace", "White ", RGB(25, 28, 31)}),
                         nameOfRow<ColourRow>);

TEST_F(SyncCleanBackground, TellsTheError_WhenThePanelCantBeMade) {
  for (const auto& [call, result] : {std::pair{"RegisterClassW", "0"}, {"CreateWindowExW", "null"}}) {
    cleanBackgroundState() = {};
    SimulatedDesktop desktop("{}");
    const Main main;
    desktop.setFaults(faultOf(call, result));
    expectReply(main.sync(mapOf({{"height", EncodableValue(44)}, {"appearance", "White"}})),
                {.success = false, .errorCode = internalError, .visible = false});
    EXPECT_EQ(cleanBackgroundState().cleanBackgroundHeight, 44.0) << "the state is kept";
    EXPECT_EQ(cleanBackgroundState().cleanBackgroundColor, 0xFFFFFFU);
    desktop.setFaults("[]");
    expectReply(main.sync(), {});
  }
}

TEST_F(SyncCleanBackground, TellsTheError_WhenThePanelCantBeMoved) {
  SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  isToBeDrawn(desktop, main.panel());
  const std::int64_t before = desktop.platformCalls("SetWindowPos");
  desktop.setFaults(R"([{"call": "SetWindowPos", "result": false, "lastError": 5}])");
  const EncodableMap reply = main.sync(mapOf({{"reopen", EncodableValue(1)}, {"appearance", "White"}}));
  expectReply(reply, {.success = false, .errorCode = 5});
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), before + 1) << "the order is left alone";
  EXPECT_TRUE(isToBeDrawn(desktop, main.panel())) << "the new colour shows all the same";
}

TEST_F(SyncCleanBackground, LeavesAHiddenPanelHidden_WhenItCantBeMoved) {
  SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  ::SendMessageW(main.panel(), WM_CLOSE, 0, 0);
  desktop.setFaults(faultOf("SetWindowPos", "false"));
  expectReply(main.sync(flag("reopen")), {.success = false, .errorCode = internalError, .visible = false});
}

TEST_F(SyncCleanBackground, TellsTheError_WhenThePanelCantBePlacedBehind) {
  SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  desktop.setFaults(R"([{"call": "SetWindowPos", "nth": 2, "result": false, "lastError": 1400}])");
  expectReply(main.sync(flag("reopen")), {.success = false, .errorCode = 1400});
  EXPECT_EQ(sidesOf(main.panel()), sides(main.wanted()));
}

TEST_F(SyncCleanBackground, UsesTheFixedPlaceAndReportsNoFailure_WhenTheMonitorCantBeRead) {
  SimulatedDesktop desktop("{}");
  const Main main;
  desktop.setFaults(faultOf("GetMonitorInfoW", "false"));
  expectReply(main.sync(), {});
  EXPECT_EQ(sidesOf(main.panel()), (std::vector<LONG>{8, 8, 808, 208}));
}

TEST_F(SyncCleanBackground, TellsNoBounds_WhenTheyCantBeRead) {
  SimulatedDesktop desktop("{}");
  const Main main;
  main.sync();
  desktop.setFaults(faultOf("GetWindowRect", "false", "backdrop"));
  const EncodableMap reply = main.sync();
  EXPECT_EQ(reply.size(), 4U);
  EXPECT_EQ(reply.at(EncodableValue("visible")), EncodableValue(true));
}

using RestoreCleanBackground = DesktopTest;

TEST_F(RestoreCleanBackground, AsksThisProcessPanel) {
  SimulatedDesktop desktop(foreignWindow);
  const Main main;
  main.sync();
  ::SendMessageW(main.panel(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(restoreCleanBackground());
  EXPECT_FALSE(::IsWindowVisible(main.panel())) << "the message waits";
  desktop_tests::handleWaiting(main.window.get());
  EXPECT_TRUE(::IsWindowVisible(main.panel()));
  EXPECT_FALSE(cleanBackgroundState().temporarilyClosed);
}

TEST_F(RestoreCleanBackground, AsksTheFirstPanelOfThisProgram) {
  SimulatedDesktop desktop(R"({"windows": [
      {"id": "stranger", "process": "notepad.exe", "cleanBackground": true},
      {"id": "namesake", "process": "orvane.exe", "path": "C:\\elsewhere\\orvane.exe", "cleanBackground": true},
      {"id": "instance", "process": "orvane.exe"},
      {"id": "panel", "process": "orvane.exe", "cleanBackground": true, "visible": false},
      {"id": "second", "process": "orvane.exe", "cleanBackground": true}]})");
  EXPECT_TRUE(restoreCleanBackground());
  const auto& posted = desktop.platform().records().posted;
  ASSERT_EQ(posted.size(), 1U);
  EXPECT_EQ(posted[0].window, "panel");
  EXPECT_EQ(posted[0].message, 0x8146U);
  EXPECT_EQ(posted[0].wParam, 0U);
  EXPECT_EQ(posted[0].lParam, 0);
}

TEST_F(RestoreCleanBackground, Fails_WhenThereIsNoPanel) {
  SimulatedDesktop desktop(R"({"windows": [
      {"id": "stranger", "process": "notepad.exe", "cleanBackground": true},
      {"id": "instance", "process": "orvane.exe"}]})");
  EXPECT_FALSE(restoreCleanBackground());
  EXPECT_TRUE(desktop.platform().records().posted.empty());
}

TEST_F(RestoreCleanBackground, Fails_WhenTheMessageCantBePosted_AndAsksNoOther) {
  SimulatedDesktop desktop(R"({"windows": [
      {"id": "panel", "process": "orvane.exe", "cleanBackground": true},
      {"id": "second", "process": "orvane.exe", "cleanBackground": true}]})");
  desktop.setFaults(R"([{"call": "PostMessageW", "result": false}])");
  EXPECT_FALSE(restoreCleanBackground());
  EXPECT_EQ(desktop.platformCalls("PostMessageW"), 1);
}

TEST_F(RestoreCleanBackground, Fails_WhenTheWindowsCantBeWalked) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "panel", "process": "orvane.exe", "cleanBackground": true}]})");
  desktop.setFaults(faultOf("EnumWindows", "false"));
  EXPECT_FALSE(restoreCleanBackground());
}

}  // namespace
}  // namespace orvane
