#include <windows.h>
// windows.h first: the next builds on it.
#include <dwmapi.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/own_windows.h"
#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

using Ids = std::vector<std::string>;

constexpr const wchar_t* panelClass = L"Orvane_Clean_Background_RC310";

class OwnWindowsTest : public ::testing::Test {
 protected:
  SimulatedDesktop desktop{R"({"windows":[{"id":"mail","process":"mail.exe"}],
    "monitors":[{"bounds":[0,0,1920,1080],"work":[0,0,1920,1040]},
                {"bounds":[1920,0,3840,1200],"work":[1920,0,3840,1160],"dpi":144}]})"};
  OwnWindows windows{{L"OrvaneOwnWindowsMain", panelClass}};

  HWND makeMain() {
    const HWND main = windows.make(L"OrvaneOwnWindowsMain", {100, 100, 700, 500});
    ::ShowWindow(main, SW_SHOWNORMAL);
    return main;
  }

  HWND makePanel() {
    const HWND panel = windows.make(panelClass, {100, 500, 700, 700});
    ::SetWindowPos(panel, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    return panel;
  }

  Rectangle boundsOf(const char* id) { return desktop.windowState(id).bounds; }
};

TEST_F(OwnWindowsTest, Backdrop_HasItsName_AlsoWhenItIsMadeAnew) {
  makeMain();
  const HWND panel = makePanel();
  EXPECT_EQ(desktop.window("backdrop"), panel);
  ASSERT_NE(::DestroyWindow(panel), FALSE);
  EXPECT_FALSE(desktop.hasWindow("backdrop"));
  const HWND again = makePanel();
  EXPECT_NE(again, panel);
  EXPECT_EQ(desktop.window("backdrop"), again);
}

TEST_F(OwnWindowsTest, Backdrop_NeverTakesTheNameOfTheMainWindow) {
  makePanel();
  EXPECT_TRUE(desktop.hasWindow("backdrop"));
  const HWND main = makeMain();
  EXPECT_EQ(desktop.window("main"), main);
}

TEST_F(OwnWindowsTest, Foreground_IsTakenByTheFirstShowingAlone) {
  makeMain();
  EXPECT_EQ(desktop.foreground(), "main");
  desktop.bringToFront("mail");
  windows.handleWaiting();
  makePanel();
  EXPECT_EQ(desktop.foreground(), "mail");
  EXPECT_EQ(desktop.zOrder(), (Ids{"backdrop", "mail", "main"}));
}

TEST_F(OwnWindowsTest, Placing_ChangesTheOrderAlone_AlsoWhereWindowsWouldActivate) {
  const HWND main = makeMain();
  makePanel();
  desktop.bringToFront("backdrop");
  windows.handleWaiting();
  ASSERT_NE(::SetWindowPos(main, nullptr, 50, 60, 640, 480, SWP_FRAMECHANGED | SWP_SHOWWINDOW), FALSE);
  EXPECT_EQ(desktop.zOrder().front(), "main");
  EXPECT_EQ(desktop.foreground(), "backdrop");
}

TEST_F(OwnWindowsTest, Person_ClosesAndDragsTheBackdrop_AsTheMainWindow) {
  makeMain();
  makePanel();
  desktop.world().resizeByPerson(desktop.windowState("backdrop"), {100, 500, 900, 510});
  windows.handleWaiting();
  EXPECT_EQ(boundsOf("backdrop"), (Rectangle{100, 500, 900, 539}));
  desktop.world().closeByPerson(desktop.windowState("backdrop"));
  windows.handleWaiting();
  EXPECT_FALSE(desktop.hasWindow("backdrop"));
}

TEST_F(OwnWindowsTest, Person_MinimizesTheBackdrop_AndBringsItBack) {
  makeMain();
  makePanel();
  desktop.bringToFront("backdrop");
  desktop.world().minimizeByPerson(desktop.windowState("backdrop"));
  windows.handleWaiting();
  EXPECT_TRUE(desktop.windowState("backdrop").minimized);
  EXPECT_EQ(desktop.foreground(), "main");
  desktop.bringToFront("backdrop");
  windows.handleWaiting();
  EXPECT_FALSE(desktop.windowState("backdrop").minimized);
  EXPECT_EQ(desktop.foreground(), "backdrop");
}

TEST_F(OwnWindowsTest, HiddenWindow_IsOutOfAPersonsReach) {
  makeMain();
  ::ShowWindow(makePanel(), SW_HIDE);
  desktop.world().resizeByPerson(desktop.windowState("backdrop"), {0, 0, 900, 900});
  desktop.world().minimizeByPerson(desktop.windowState("backdrop"));
  windows.handleWaiting();
  EXPECT_EQ(boundsOf("backdrop"), (Rectangle{100, 500, 700, 700}));
  EXPECT_FALSE(desktop.windowState("backdrop").minimized);
}

TEST_F(OwnWindowsTest, IconicWindow_StaysSo_WhenItGetsAnotherPlace) {
  const HWND main = makeMain();
  ::ShowWindow(main, SW_MINIMIZE);
  windows.takeMessages();
  ASSERT_NE(::SetWindowPos(main, nullptr, 10, 20, 300, 200, SWP_NOZORDER | SWP_NOACTIVATE), FALSE);
  EXPECT_NE(::IsIconic(main), FALSE);
  EXPECT_EQ(windows.takeMessages(), std::vector<UINT>{WM_GETMINMAXINFO});
  RECT bounds{};
  ::GetWindowRect(main, &bounds);
  EXPECT_EQ(bounds.left, -32000);
  ::ShowWindow(main, SW_RESTORE);
  ::GetWindowRect(main, &bounds);
  EXPECT_EQ(bounds.left, 10);
  EXPECT_EQ(bounds.bottom, 220);
}

TEST_F(OwnWindowsTest, RestoredWindow_HasTheFrameOfItsStyle) {
  const HWND main = makeMain();
  ::ShowWindow(main, SW_MINIMIZE);
  ::SetWindowLongPtrW(main, GWL_STYLE, ::GetWindowLongPtrW(main, GWL_STYLE) & ~LONG_PTR{WS_CAPTION});
  ::ShowWindow(main, SW_RESTORE);
  RECT client{};
  ::GetClientRect(main, &client);
  EXPECT_EQ(client.right, 600 - 16);
  EXPECT_EQ(client.bottom, 400 - 16);
}

TEST_F(OwnWindowsTest, CaptionDrag_IsRecordedAndEndsAtOnce) {
  const HWND main = makeMain();
  windows.takeMessages();
  ASSERT_NE(::PostMessageW(main, WM_SYSCOMMAND, SC_MOVE | HTCAPTION, 0), FALSE);
  EXPECT_TRUE(windows.takeMessages().empty());
  windows.handleWaiting();
  EXPECT_EQ(windows.takeMessages(), (std::vector<UINT>{WM_SYSCOMMAND, WM_ENTERSIZEMOVE, WM_EXITSIZEMOVE}));
  ASSERT_EQ(desktop.platform().records().posted.size(), 1u);
  EXPECT_EQ(desktop.platform().records().posted[0].window, "main");
  EXPECT_EQ(desktop.platform().records().posted[0].wParam, 0xF012u);
}

TEST_F(OwnWindowsTest, SystemCommands_MinimizeRestoreAndClose) {
  const HWND main = makeMain();
  ::ShowWindow(main, SW_SHOWNORMAL);
  ::SendMessageW(main, WM_SYSCOMMAND, 0xF020, 0);
  EXPECT_NE(::IsIconic(main), FALSE);
  ::SendMessageW(main, WM_SYSCOMMAND, 0xF122, 0);
  EXPECT_EQ(::IsIconic(main), FALSE);
  ::SendMessageW(main, WM_SYSCOMMAND, 0xF060, 0);
  EXPECT_EQ(::IsWindow(main), FALSE);
}

TEST_F(OwnWindowsTest, PostedMessages_ReachTheProcedure_InOrderWithTheirHandles) {
  const HWND main = makeMain();
  windows.takeMessages();
  Window& window = desktop.windowState("main");
  const std::uint64_t mail = desktop.windowState("mail").handle;
  desktop.platform().post(window, 0x8153, 0, 0);
  desktop.platform().post(window, WM_ACTIVATE, WA_ACTIVE, static_cast<std::int64_t>(mail));
  desktop.platform().post(window, 0xFFFF, mail, -1);
  windows.handleWaiting();
  const std::vector<OwnWindows::Seen> seen = windows.takeSeen();
  ASSERT_EQ(seen.size(), 3u);
  EXPECT_EQ(seen[0].message, 0x8153u);
  EXPECT_EQ(seen[0].window, main);
  EXPECT_EQ(reinterpret_cast<HWND>(seen[1].lParam), desktop.window("mail"));
  EXPECT_EQ(seen[2].message, 0xFFFFu);
  EXPECT_EQ(seen[2].wParam, mail);
  EXPECT_EQ(seen[2].lParam, -1);
}

TEST_F(OwnWindowsTest, Property_GoesWithItsWindow_AndIsNoneOfTheNext) {
  makeMain();
  const HWND panel = makePanel();
  ASSERT_NE(::SetPropW(panel, L"Orvane.CleanBackground", reinterpret_cast<HANDLE>(1)), FALSE);
  Window& state = desktop.windowState("backdrop");
  ASSERT_NE(::DestroyWindow(panel), FALSE);
  EXPECT_TRUE(state.properties.empty());
  EXPECT_EQ(::GetPropW(makePanel(), L"Orvane.CleanBackground"), nullptr);
}

TEST_F(OwnWindowsTest, Frame_AndLeastSize_FollowTheDensityOfTheMonitor) {
  const HWND dense = windows.make(panelClass, {2000, 100, 2010, 110});
  EXPECT_EQ(::GetDpiForWindow(dense), 144u);
  EXPECT_EQ(boundsOf("backdrop"), (Rectangle{2000, 100, 2000 + 204, 100 + 59}));
  RECT framed{0, 0, 100, 100};
  ASSERT_NE(::AdjustWindowRectExForDpi(&framed, WS_OVERLAPPEDWINDOW, FALSE, 0, 144), FALSE);
  EXPECT_EQ(framed.top, -47);
  EXPECT_EQ(framed.bottom, 112);
  RECT extended{};
  ASSERT_EQ(::DwmGetWindowAttribute(dense, DWMWA_EXTENDED_FRAME_BOUNDS, &extended, sizeof extended), S_OK);
  EXPECT_EQ(extended.left, 2011);
  EXPECT_EQ(extended.right, 2193);
}

TEST_F(OwnWindowsTest, Monitor_OfAnIconicWindow_IsThatItComesBackTo) {
  const HWND panel = windows.make(panelClass, {2000, 100, 2400, 400});
  ::ShowWindow(panel, SW_SHOWNOACTIVATE);
  ::ShowWindow(panel, SW_MINIMIZE);
  MONITORINFO info{};
  info.cbSize = sizeof info;
  ASSERT_NE(::GetMonitorInfoW(::MonitorFromWindow(panel, MONITOR_DEFAULTTONEAREST), &info), FALSE);
  EXPECT_EQ(info.rcMonitor.left, 1920);
  EXPECT_EQ(info.rcWork.bottom, 1160);
  EXPECT_EQ(info.dwFlags, 0u);
  const RECT mostlyRight{1900, 0, 2000, 50};
  EXPECT_EQ(::MonitorFromRect(&mostlyRight, MONITOR_DEFAULTTONEAREST),
            ::MonitorFromWindow(panel, MONITOR_DEFAULTTONEAREST));
}

TEST_F(OwnWindowsTest, Fault_StandsInForTheCall) {
  const HWND main = makeMain();
  desktop.setFaults(R"([{"call":"SetPropW","window":"main","result":0,"lastError":8},
    {"call":"GetMonitorInfoW","result":0},{"call":"AdjustWindowRectExForDpi","result":0},
    {"call":"DwmGetWindowAttribute","result":"0x80004001"},{"call":"GetTopWindow","result":null},
    {"call":"GetModuleFileNameW","result":0},{"call":"MonitorFromRect","result":null}])");
  EXPECT_EQ(::SetPropW(main, L"x", reinterpret_cast<HANDLE>(1)), FALSE);
  EXPECT_EQ(::GetLastError(), 8u);
  EXPECT_EQ(::GetPropW(main, L"x"), nullptr);
  MONITORINFO info{};
  info.cbSize = sizeof info;
  const HMONITOR monitor = ::MonitorFromWindow(main, MONITOR_DEFAULTTONEAREST);
  EXPECT_EQ(::GetMonitorInfoW(monitor, &info), FALSE);
  RECT bounds{0, 0, 100, 100};
  EXPECT_EQ(::AdjustWindowRectExForDpi(&bounds, WS_OVERLAPPEDWINDOW, FALSE, 0, 96), FALSE);
  EXPECT_EQ(bounds.bottom, 100);
  EXPECT_EQ(::DwmGetWindowAttribute(main, DWMWA_EXTENDED_FRAME_BOUNDS, &bounds, sizeof bounds), E_NOTIMPL);
  EXPECT_EQ(::GetTopWindow(nullptr), nullptr);
  EXPECT_EQ(::MonitorFromRect(&bounds, MONITOR_DEFAULTTONEAREST), nullptr);
  wchar_t path[8] = {};
  EXPECT_EQ(::GetModuleFileNameW(nullptr, path, 8), 0u);
  EXPECT_EQ(::GetTopWindow(nullptr), main);
}

using OwnWindowsDeathTest = OwnWindowsTest;

TEST_F(OwnWindowsDeathTest, Run_Stops_AtWhatIsNotModelled) {
  const HWND main = makeMain();
  RECT bounds{};
  const auto stopsAt = [](const char* call) { return std::string("simulation: ") + call + ": "; };
  const auto exits = ::testing::ExitedWithCode(3);
  EXPECT_EXIT(::SendMessageW(main, WM_SYSCOMMAND, 0xF010, 0), exits, stopsAt("WM_SYSCOMMAND"));
  EXPECT_EXIT(::GetTopWindow(main), exits, stopsAt("GetTopWindow"));
  EXPECT_EXIT(::GetWindow(main, 3), exits, stopsAt("GetWindow"));
  EXPECT_EXIT(::SetPropW(desktop.window("mail"), L"x", nullptr), exits, stopsAt("SetPropW"));
  EXPECT_EXIT(::SetWindowTextW(desktop.window("mail"), L"x"), exits, stopsAt("SetWindowTextW"));
  EXPECT_EXIT(::AdjustWindowRectExForDpi(&bounds, WS_OVERLAPPEDWINDOW, TRUE, 0, 96), exits,
              stopsAt("AdjustWindowRectExForDpi"));
  EXPECT_EXIT(::AdjustWindowRectExForDpi(&bounds, WS_CAPTION, FALSE, 0, 96), exits, stopsAt("window frame"));
  EXPECT_EXIT(::MonitorFromRect(&bounds, 0), exits, stopsAt("MonitorFromRect"));
  EXPECT_EXIT(::GetModuleFileNameW(reinterpret_cast<HMODULE>(4), nullptr, 0), exits, stopsAt("GetModuleFileNameW"));
  EXPECT_EXIT(::GetGUIThreadInfo(0, nullptr), exits, stopsAt("GetGUIThreadInfo"));
}

}  // namespace
}  // namespace orvane::simulation
