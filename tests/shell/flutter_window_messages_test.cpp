// Which message of the host window goes where, and which the view never sees.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/content_process.h"
#include "desktop/menu_items.h"
#include "shell/flutter_window_fixture.h"

namespace orvane {
namespace {

using desktop_tests::faultOf;
using desktop_tests::mapOf;
using desktop_tests::oneMonitor;
using desktop_tests::sidesOf;
using shell_tests::FlutterWindowTest;
using shell_tests::OpenWindow;
using shell_tests::viewsTurn;

constexpr UINT listBox = 2;  // a control type that isn't a menu's

TEST_F(FlutterWindowTest, NotesWhoLostTheActivation_AndGoesOn) {
  ASSERT_TRUE(start());
  const auto editor = reinterpret_cast<LPARAM>(desktop.window("editor"));
  const auto self = reinterpret_cast<LPARAM>(main());
  const HWND former = previousWindow();
  for (const auto& [word, parameter] : {std::pair<WPARAM, LPARAM>{WA_INACTIVE, editor},
                                        {0x10000, editor},
                                        {WA_ACTIVE, self},
                                        {WA_ACTIVE, 0},
                                        {WA_ACTIVE, 0x7FFF2}}) {
    EXPECT_EQ(viewsTurns([&, w = word, p = parameter] { send(WM_ACTIVATE, w, p); }), 1);
    EXPECT_EQ(previousWindow(), former) << word << ' ' << parameter;
  }
  EXPECT_EQ(viewsTurns([&] { send(WM_ACTIVATE, WA_ACTIVE, editor); }), 1);
  EXPECT_EQ(previousWindow(), desktop.window("editor"));
}

// A message of an entry of a menu, which may be open.
template <typename Item>
Item itemOf(const MenuItemRecord& record, UINT type = ODT_MENU) {
  Item item{};
  item.CtlType = type;
  item.itemData = reinterpret_cast<ULONG_PTR>(&record);
  return item;
}

TEST_F(FlutterWindowTest, MeasuresAndDrawsLiveMenuItems_WithoutAskingTheView) {
  ASSERT_TRUE(start());
  MenuItemRecord record;
  record.label = L"Copy";
  LiveMenuItems live;
  live.add(&record);
  auto measuring = itemOf<MEASUREITEMSTRUCT>(record);
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measuring)), 1); }), 0);
  EXPECT_EQ(measuring.itemHeight, 30U);
  auto drawing = itemOf<DRAWITEMSTRUCT>(record);
  drawing.hDC = ::GetDC(main());
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawing)), 1); }), 0);
  EXPECT_EQ(desktop.platformCalls("FillRect"), 1);
  ::ReleaseDC(main(), drawing.hDC);
}

TEST_F(FlutterWindowTest, PassesForeignItemsOn) {
  ASSERT_TRUE(start());
  MenuItemRecord record;
  {
    LiveMenuItems live;
    live.add(&record);
    auto foreign = itemOf<MEASUREITEMSTRUCT>(record, listBox);
    EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&foreign)), 0); }), 1);
    record.tag = 0;
    auto mistagged = itemOf<DRAWITEMSTRUCT>(record);
    EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&mistagged)), 0); }), 1);
    record.tag = menuItemTag;
  }
  auto measuring = itemOf<MEASUREITEMSTRUCT>(record);
  auto drawing = itemOf<DRAWITEMSTRUCT>(record);
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measuring)), 0); }), 1);
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawing)), 0); }), 1);
  measuring.itemData = drawing.itemData = 1;
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measuring)), 0); }), 1);
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawing)), 0); }), 1);
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_MEASUREITEM), 0); }), 1);
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_DRAWITEM), 0); }), 1);
  EXPECT_EQ(measuring.itemWidth, 0U);
  EXPECT_EQ(desktop.platformCalls("FillRect"), 0);
}

TEST_F(FlutterWindowTest, GivesTheViewTheFirstSay) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  const std::vector<LONG> before = sidesOf(main());
  RECT suggested{40, 50, 840, 650};
  desktop.setFaults(faultOf(viewsTurn, "1"));
  EXPECT_EQ(send(WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested)), 0);
  EXPECT_EQ(sidesOf(main()), before) << "what the view has handled ends there";
  send(WM_FONTCHANGE);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopEngineReloadSystemFonts"), 0);
  desktop.setFaults("[]");
  send(WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
  EXPECT_EQ(sidesOf(main()), (std::vector<LONG>{40, 50, 840, 650}));
}

TEST_F(FlutterWindowTest, ReloadsTheFonts_WhenTheyChange) {
  ASSERT_TRUE(start());
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_FONTCHANGE), 0); }), 1);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopEngineReloadSystemFonts"), 1);
}

class CompactWindow : public FlutterWindowTest {
 protected:
  CompactWindow() : FlutterWindowTest(oneMonitor({0, 0, 4000, 3000}, 144)) {}

  // The least tracking size after the message; 1, 2 before it.
  std::pair<LONG, LONG> leastSize() const {
    MINMAXINFO limits{};
    limits.ptMinTrackSize = {1, 2};
    EXPECT_EQ(send(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits)), 0);
    return {limits.ptMinTrackSize.x, limits.ptMinTrackSize.y};
  }

  bool place(double width, double height) {
    return succeeds("orvane/window", "setBounds",
                    mapOf({{"width", EncodableValue(width)}, {"height", EncodableValue(height)}}));
  }

  std::pair<LONG, LONG> size() const {
    const std::vector<LONG> sides = sidesOf(main());
    return {sides[2] - sides[0], sides[3] - sides[1]};
  }
};

TEST_F(CompactWindow, LimitsItsTrackingSize_WithoutAskingTheView) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(leastSize(), (std::pair<LONG, LONG>{1, 2})) << "no limit of its own"; }), 1);
  ASSERT_TRUE(place(300, 400));
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(leastSize(), (std::pair<LONG, LONG>{225, 240})); }), 0);
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(WM_GETMINMAXINFO), 0); }), 1) << "nothing to fill in";
  ASSERT_TRUE(place(300.5, 400));
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(leastSize(), (std::pair<LONG, LONG>{1, 2})); }), 1);
}

TEST_F(CompactWindow, LeavesItsLimit_InAnEmergency) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  ASSERT_TRUE(place(200, 400));
  ASSERT_TRUE(succeeds("orvane/window", "emergencyRestore"));
  EXPECT_EQ(leastSize(), (std::pair<LONG, LONG>{1, 2}));
  EXPECT_EQ(size(), (std::pair<LONG, LONG>{1650, 1080}));
}

TEST_F(CompactWindow, EndsAtItsLeastSize_WhenLessIsAskedFor) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  ASSERT_TRUE(place(100, 100));
  EXPECT_EQ(size(), (std::pair<LONG, LONG>{225, 240}));
}

// An interface that only listens.
class Listener : public simulation::InterfaceScript {
 public:
  bool performStep() override { return false; }
  void stepsDone() override {}
  std::optional<simulation::Bytes> messageFromHost(const std::string& channel,
                                                   const simulation::Bytes& message) override {
    heard.emplace_back(channel, message);
    return std::nullopt;
  }

  std::vector<std::pair<std::string, simulation::Bytes>> heard;
};

TEST(FlutterWindowToolBox, IsAskedForOverTheWindowChannel) {
  Listener listener;
  auto& clock = *new simulation::Clock;  // never freed, as it must be
  simulation::Books books;
  simulation::Desktop world{clock, books};
  const simulation::Platform platform{world, &listener, {}};
  OpenWindow window;
  ASSERT_TRUE(window.Create(L"Orvane", {10, 10}, {800, 600}));

  EXPECT_EQ(::SendMessageW(window.GetHandle(), showToolBoxMessage, 7, 8), 0);

  ASSERT_EQ(listener.heard.size(), 1U);
  EXPECT_EQ(listener.heard[0].first, "orvane/window");
  EXPECT_EQ(listener.heard[0].second,
            *StandardMethodCodec::instance().EncodeMethodCall(MethodCall("showToolBoxMenu", nullptr)));
  EXPECT_EQ(books.calls().at("FlutterDesktopMessengerSend"), 1);
  EXPECT_FALSE(books.calls().contains("FlutterDesktopMessengerSendWithReply")) << "no reply is expected";
  ::DestroyWindow(window.GetHandle());
  EXPECT_EQ(books.held().at("hooks"), 0);
}

TEST_F(FlutterWindowTest, AsksForTheToolBox_WithoutAskingTheView) {
  ASSERT_TRUE(start());
  EXPECT_EQ(viewsTurns([&] { EXPECT_EQ(send(showToolBoxMessage), 0); }), 0);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopMessengerSend"), 1);
}

}  // namespace
}  // namespace orvane
