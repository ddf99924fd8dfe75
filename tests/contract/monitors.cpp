#include <windows.h>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

class Monitors : public ContractTest {
 protected:
  static MONITORINFO infoOf(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    EXPECT_NE(::GetMonitorInfoW(monitor, &info), FALSE);
    return info;
  }
};

TEST_F(Monitors, Primary_BeginsAtTheOrigin_AndHoldsItsWorkArea) {
  const MONITORINFO info = infoOf(::MonitorFromPoint(POINT{0, 0}, MONITOR_DEFAULTTONEAREST));
  EXPECT_EQ(info.dwFlags, static_cast<DWORD>(MONITORINFOF_PRIMARY));
  EXPECT_EQ(info.rcMonitor.left, 0);
  EXPECT_EQ(info.rcMonitor.top, 0);
  EXPECT_GE(info.rcWork.left, info.rcMonitor.left);
  EXPECT_GE(info.rcWork.top, info.rcMonitor.top);
  EXPECT_LE(info.rcWork.right, info.rcMonitor.right);
  EXPECT_LE(info.rcWork.bottom, info.rcMonitor.bottom);
}

TEST_F(Monitors, SamePlace_HasTheSameMonitor_HoweverItIsAsked) {
  const OwnClass windowClass(L"OrvaneContractMonitors");
  const HWND window = windowClass.makeWindow();
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  const HMONITOR monitor = ::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST);
  EXPECT_NE(monitor, nullptr);
  EXPECT_EQ(::MonitorFromRect(&bounds, MONITOR_DEFAULTTONEAREST), monitor);
  EXPECT_EQ(::MonitorFromPoint(POINT{bounds.left, bounds.top}, MONITOR_DEFAULTTONEAREST), monitor);
  ::ShowWindow(window, SW_SHOWNORMAL);
  ::ShowWindow(window, SW_MINIMIZE);
  EXPECT_EQ(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), monitor);
  ::DestroyWindow(window);
}

TEST_F(Monitors, Nearest_IsGiven_WhenTheRectangleLiesOutside) {
  const RECT outside{-60000, -60000, -59000, -59000};
  EXPECT_NE(::MonitorFromRect(&outside, MONITOR_DEFAULTTONEAREST), nullptr);
}

TEST_F(Monitors, Info_NeedsItsSizeAndAMonitor) {
  MONITORINFO info{};
  const HMONITOR monitor = ::MonitorFromPoint(POINT{0, 0}, MONITOR_DEFAULTTONEAREST);
  EXPECT_EQ(::GetMonitorInfoW(monitor, &info), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
  info.cbSize = sizeof info;
  EXPECT_EQ(::GetMonitorInfoW(nullptr, &info), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_MONITOR_HANDLE));
}

}  // namespace
}  // namespace orvane::contract
