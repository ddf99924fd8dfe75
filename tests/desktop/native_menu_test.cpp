#include "desktop/native_menu.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "desktop/desktop_test.h"
#include "desktop/menu_items.h"
#include "desktop/menu_owner.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::entry;
using desktop_tests::faultOf;
using desktop_tests::mapOf;
using desktop_tests::MenuOwner;
using desktop_tests::oneMonitor;
using desktop_tests::ownerState;
using desktop_tests::paintedOf;
using desktop_tests::testMessage;
using desktop_tests::with;
using simulation::DrawnText;
using simulation::FontArguments;
using simulation::OpenedMenu;
using simulation::SimulatedDesktop;
using simulation::StockFont;

using NativeMenu = DesktopTest;

TEST_F(NativeMenu, GivesTheActionOfTheEntryChosen) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  for (const auto& [choice, action] : {std::pair{1, "one"}, {2, "two"}, {3, "three"}, {4, ""}}) {
    desktop.world().nextMenuChoice = choice;
    EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), action);
  }
}

TEST_F(NativeMenu, GivesNoAction_WhenItIsDismissed) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "");
  EXPECT_EQ(desktop.platformCalls("TrackPopupMenuEx"), 1);
}

TEST_F(NativeMenu, OpensWithItsRightEdgeOnThePoint) {
  for (const int dpi : {96, 144}) {
    SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
    const MenuOwner owner;
    const EncodableMap arguments =
        with({{"anchorX", EncodableValue(100.9)}, {"anchorY", EncodableValue(-20.7)}, {"rtl", EncodableValue(1)}});
    showNativeHotKeysMenu(owner.get(), &arguments);
    const auto opened = paintedOf<OpenedMenu>(desktop);
    ASSERT_EQ(opened.size(), 1U);
    const double scale = dpi / 96.0;
    EXPECT_EQ(opened[0].x, 100 + ::MulDiv(8, dpi, 96) + static_cast<int>(100.9 * scale));
    EXPECT_EQ(opened[0].y, 60 + ::MulDiv(31, dpi, 96) + static_cast<int>(-20.7 * scale));
    EXPECT_EQ(opened[0].flags, 0x188U) << "whatever rtl says";
    EXPECT_EQ(opened[0].owner, "main");
  }
}

TEST_F(NativeMenu, OpensAtTheClientAreasCorner_WhenNoPointIsGiven) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({{"anchorX", EncodableValue("9")}});
  showNativeHotKeysMenu(owner.get(), &arguments);
  EXPECT_EQ(paintedOf<OpenedMenu>(desktop).at(0).x, 108);
  EXPECT_EQ(paintedOf<OpenedMenu>(desktop).at(0).y, 91);
}

TEST_F(NativeMenu, HasItsEntriesInOrder) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  showNativeHotKeysMenu(owner.get(), &arguments);
  const OpenedMenu opened = paintedOf<OpenedMenu>(desktop).at(0);
  std::vector<std::uint32_t> ids;
  for (const auto& one : opened.entries) {
    ids.push_back(one.id);
  }
  EXPECT_EQ(ids, (std::vector<std::uint32_t>{1, 2, 3}));
  std::vector<std::u16string> texts;
  for (const auto& text : paintedOf<DrawnText>(desktop)) {
    texts.push_back(text.text);
  }
  EXPECT_EQ(texts, (std::vector<std::u16string>{u"First", u"Second & last", u"Third"}));
}

TEST_F(NativeMenu, BringsItsOwnerToTheFrontFirst) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}]})");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  desktop.bringToFront("other");
  desktop.world().nextMenuChoice = 1;
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "one");
  EXPECT_EQ(ownerState().foregroundAtMeasuring, "owner");

  desktop.bringToFront("other");
  desktop.windowState("main").refusedForegroundRequests = -1;
  desktop.world().nextMenuChoice = 1;
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "one") << "it opens all the same";
  EXPECT_EQ(ownerState().foregroundAtMeasuring, "other");
}

TEST_F(NativeMenu, IsNotShown_WhenThereIsNoEntry) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  desktop.world().nextMenuChoice = 1;
  const EncodableMap numbers = mapOf({{"items", EncodableList{EncodableValue(1), EncodableValue(2)}}});
  const EncodableMap unlabelled = mapOf({{"items", EncodableList{entry("a", ""), entry("", "A")}}});
  const EncodableMap none = mapOf({{"items", EncodableValue(EncodableList())}});
  for (const EncodableMap* arguments : {&numbers, &unlabelled, &none, static_cast<const EncodableMap*>(nullptr)}) {
    EXPECT_EQ(showNativeHotKeysMenu(owner.get(), arguments), "");
  }
  EXPECT_EQ(desktop.platformCalls("TrackPopupMenuEx"), 0);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
  EXPECT_EQ(desktop.platformCalls("CreatePopupMenu"), desktop.platformCalls("DestroyMenu"));
  EXPECT_TRUE(desktop.platform().records().posted.empty());
}

TEST_F(NativeMenu, IsNotShown_WhenItCantBeMade) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  desktop.setFaults(faultOf("CreatePopupMenu", "null"));
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "");
  EXPECT_EQ(desktop.platformCalls("TrackPopupMenuEx"), 0);
  EXPECT_EQ(desktop.platformCalls("DestroyMenu"), 0);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
}

TEST_F(NativeMenu, UsesTheStockFont_WhenTheFontCantBeMade) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  desktop.setFaults(faultOf("CreateFontW", "null"));
  desktop.world().nextMenuChoice = 3;
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "three");
  for (const DrawnText& text : paintedOf<DrawnText>(desktop)) {
    EXPECT_EQ(std::get<StockFont>(text.font).name, "DEFAULT_GUI_FONT");
  }
  EXPECT_EQ(desktop.platformCalls("DeleteObject"), desktop.platformCalls("CreateSolidBrush")) << "no font to delete";
}

TEST_F(NativeMenu, LeavesAnEntryOut_WhenItCantBeInserted) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  desktop.setFaults(R"([{"call": "InsertMenuItemW", "nth": 2, "result": false}])");
  desktop.world().nextMenuChoice = 2;
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "three");
  EXPECT_EQ(paintedOf<OpenedMenu>(desktop).at(0).entries.size(), 2U);
}

TEST_F(NativeMenu, GivesNoAction_WhenNoEntryCouldBeInserted) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  desktop.setFaults(faultOf("InsertMenuItemW", "false"));
  desktop.world().nextMenuChoice = 1;
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "");
}

TEST_F(NativeMenu, BelievesTheIdThatTheLoopReturns) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  for (const auto& [id, action] : {std::pair{"0", ""}, {"2", "two"}, {"4", ""}, {"-1", ""}}) {
    desktop.setFaults(faultOf("TrackPopupMenuEx", id));
    EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), action) << id;
  }
}

TEST_F(NativeMenu, TakesThePointsOwnScale_WhenTheDpiIsZero) {
  SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, 192));
  const MenuOwner owner;
  const EncodableMap arguments = with({{"anchorX", EncodableValue(50)}, {"anchorY", EncodableValue(40)}});
  desktop.setFaults(faultOf("GetDpiForWindow", "0"));
  showNativeHotKeysMenu(owner.get(), &arguments);
  EXPECT_EQ(paintedOf<OpenedMenu>(desktop).at(0).x, 100 + 16 + 50);
  EXPECT_EQ(paintedOf<OpenedMenu>(desktop).at(0).y, 60 + 62 + 40);
  EXPECT_EQ(std::get<FontArguments>(paintedOf<DrawnText>(desktop).at(0).font).height, -10) << "the floor";
}

TEST_F(NativeMenu, LeavesNothingBehind) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  showNativeHotKeysMenu(owner.get(), &arguments);
  ASSERT_EQ(ownerState().measured.size(), 3U);
  for (const ULONG_PTR data : ownerState().measured) {
    EXPECT_EQ(liveMenuItem(data), nullptr);
  }
  EXPECT_EQ(desktop.held("menus"), 0);
  EXPECT_EQ(desktop.held("gdiObjects"), 0);
  const auto& posted = desktop.platform().records().posted;
  ASSERT_EQ(posted.size(), 1U);
  EXPECT_EQ(posted[0].window, "main");
  EXPECT_EQ(posted[0].message, static_cast<std::uint32_t>(WM_NULL));
  EXPECT_EQ(posted[0].wParam, 0U);
  EXPECT_EQ(posted[0].lParam, 0);
}

// What had gone of a menu's records and calls when its loop was over, in order.
class MenusEnd {
 public:
  explicit MenusEnd(SimulatedDesktop& desktop) : desktop_(desktop) {
    desktop_.world().books().watch([this](std::string_view call, const simulation::Window*,
                                          const simulation::Element*) {
      if (call == "DestroyMenu") {
        steps_.clear();
      }
      if (call == "DestroyMenu" || call == "DeleteObject" || call == "PostMessageW") {
        const auto& measured = ownerState().measured;
        const bool areLive =
            std::any_of(measured.begin(), measured.end(), [](ULONG_PTR data) { return liveMenuItem(data) != nullptr; });
        steps_.push_back(std::string(call) + (areLive ? " live" : " over"));
      }
    });
  }
  ~MenusEnd() { desktop_.world().books().watch({}); }
  MenusEnd(const MenusEnd&) = delete;
  MenusEnd& operator=(const MenusEnd&) = delete;

  const std::vector<std::string>& steps() const { return steps_; }

 private:
  SimulatedDesktop& desktop_;
  std::vector<std::string> steps_;
};

TEST_F(NativeMenu, EndsBeforeItsRecordsAndTheseBeforeTheirFont) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  const MenusEnd end(desktop);
  showNativeHotKeysMenu(owner.get(), &arguments);
  ASSERT_EQ(ownerState().measured.size(), 3U);
  EXPECT_EQ(end.steps(), (std::vector<std::string>{"DestroyMenu live", "DeleteObject over", "PostMessageW over"}));
}

TEST_F(NativeMenu, KeepsItsRecords_WhileMessagesAreHandledInItsLoop) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  bool wereLive = false;
  std::string inner = "not asked";
  ownerState().onTestMessage = [&] {
    const std::vector<ULONG_PTR> outer = ownerState().measured;
    inner = showNativeHotKeysMenu(owner.get(), &arguments);
    wereLive = !outer.empty() &&
               std::all_of(outer.begin(), outer.end(), [](ULONG_PTR data) { return liveMenuItem(data) != nullptr; });
  };
  ::PostMessageW(owner.get(), testMessage, 0, 0);
  desktop.world().nextMenuChoice = 3;
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "three");
  EXPECT_EQ(inner, "") << "one menu at a time";
  EXPECT_TRUE(wereLive);
}

TEST_F(NativeMenu, GivesNoAction_WhenItsOwnerEndsInItsLoop) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  const EncodableMap arguments = with({});
  ::PostMessageW(owner.get(), WM_CLOSE, 0, 0);
  desktop.world().nextMenuChoice = 1;
  EXPECT_EQ(showNativeHotKeysMenu(owner.get(), &arguments), "");
  EXPECT_FALSE(::IsWindow(owner.get()));
  for (const ULONG_PTR data : ownerState().measured) {
    EXPECT_EQ(liveMenuItem(data), nullptr);
  }
}

}  // namespace
}  // namespace orvane
