#include <windows.h>

#include "windows/call.h"
#include "windows/rectangles.h"
#include "windows/state.h"
#include "windows/window_geometry.h"

using namespace orvane::simulation;

namespace {

constexpr std::uintptr_t firstMonitorHandle = 0x10001;

HMONITOR monitorHandle(const Desktop& desktop, const Monitor& monitor) {
  const auto index = static_cast<std::uintptr_t>(&monitor - desktop.monitors.data());
  return reinterpret_cast<HMONITOR>(firstMonitorHandle + 2 * index);
}

// Null for a handle that is none.
const Monitor* monitorBehind(const Desktop& desktop, HMONITOR handle) {
  const auto offset = reinterpret_cast<std::uintptr_t>(handle) - firstMonitorHandle;
  const bool isKnown = handle != nullptr && offset % 2 == 0 && offset / 2 < desktop.monitors.size();
  return isKnown ? &desktop.monitors[offset / 2] : nullptr;
}

HMONITOR nearest(const char* call, const Rectangle& bounds, DWORD flags) {
  if (flags != MONITOR_DEFAULTTONEAREST) stopRun(call, "flags other than the nearest aren't modelled");
  const Desktop& desktop = stateFor(call).desktop;
  return monitorHandle(desktop, monitorNear(desktop, bounds));
}

}  // namespace

HMONITOR MonitorFromPoint(POINT point, DWORD flags) {
  if (const auto fault = enter("MonitorFromPoint")) return faulted<HMONITOR>(*fault);
  return nearest("MonitorFromPoint", {point.x, point.y, point.x + 1, point.y + 1}, flags);
}

HMONITOR MonitorFromRect(LPCRECT bounds, DWORD flags) {
  if (const auto fault = enter("MonitorFromRect")) return faulted<HMONITOR>(*fault);
  return nearest("MonitorFromRect", {bounds->left, bounds->top, bounds->right, bounds->bottom}, flags);
}

// An iconic window belongs to the monitor that it comes back to.
HMONITOR MonitorFromWindow(HWND window, DWORD flags) {
  Window* const about = stateFor("MonitorFromWindow").liveWindow(window);
  if (const auto fault = enter("MonitorFromWindow", about)) return faulted<HMONITOR>(*fault);
  if (window != nullptr && about == nullptr) return failWith<HMONITOR>(ERROR_INVALID_WINDOW_HANDLE);
  return nearest("MonitorFromWindow", about == nullptr ? Rectangle{} : topLevelOf(*about).bounds, flags);
}

BOOL GetMonitorInfoW(HMONITOR monitor, LPMONITORINFO info) {
  const Desktop& desktop = stateFor("GetMonitorInfoW").desktop;
  if (const auto fault = enter("GetMonitorInfoW")) return faulted<BOOL>(*fault);
  const Monitor* const about = monitorBehind(desktop, monitor);
  if (about == nullptr) return failWith(ERROR_INVALID_MONITOR_HANDLE, FALSE);
  if (info == nullptr || info->cbSize != sizeof(MONITORINFO)) return failWith(ERROR_INVALID_PARAMETER, FALSE);
  info->rcMonitor = rectOf(about->bounds);
  info->rcWork = rectOf(about->work);
  info->dwFlags = about == &desktop.monitors.front() ? MONITORINFOF_PRIMARY : 0;
  return TRUE;
}

namespace orvane::simulation {

std::uint32_t dpiOfMonitor(const Desktop& desktop, HMONITOR monitor) {
  const Monitor* const about = monitorBehind(desktop, monitor);
  return about == nullptr ? desktop.monitors.front().dpi : about->dpi;
}

}  // namespace orvane::simulation
