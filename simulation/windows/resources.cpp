#include <windows.h>

#include "windows/call.h"
#include "windows/process.h"

using namespace orvane::simulation;

namespace {

constexpr std::uintptr_t programIcon = 101;
constexpr std::uintptr_t iconHandle = 0x10001;
constexpr std::uintptr_t arrowHandle = 0x10003;

struct Metric {
  int index;
  int pixels;
};
constexpr Metric metrics[] = {{SM_CXICON, 32}, {SM_CYICON, 32}, {SM_CXSMICON, 16}, {SM_CYSMICON, 16}};

bool isProgramIcon(HINSTANCE instance, LPCWSTR name) {
  return instance == moduleInstance() && reinterpret_cast<std::uintptr_t>(name) == programIcon;
}

}  // namespace

HICON LoadIconW(HINSTANCE instance, LPCWSTR name) {
  if (const auto fault = enter("LoadIconW")) return faulted<HICON>(*fault);
  if (!isProgramIcon(instance, name)) return failWith<HICON>(ERROR_RESOURCE_NAME_NOT_FOUND);
  return reinterpret_cast<HICON>(iconHandle);
}

HCURSOR LoadCursorW(HINSTANCE instance, LPCWSTR name) {
  if (const auto fault = enter("LoadCursorW")) return faulted<HCURSOR>(*fault);
  if (instance != nullptr || name != IDC_ARROW) stopRun("LoadCursorW", "a cursor other than the arrow isn't modelled");
  return reinterpret_cast<HCURSOR>(arrowHandle);
}

// Each size is an icon of its own.
HANDLE LoadImageW(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height, UINT flags) {
  if (const auto fault = enter("LoadImageW")) return faulted<HANDLE>(*fault);
  if (type != IMAGE_ICON || flags != LR_DEFAULTCOLOR) stopRun("LoadImageW", "anything but a plain icon isn't modelled");
  if (width <= 0 || height <= 0) stopRun("LoadImageW", "an icon without a size isn't modelled");
  if (!isProgramIcon(instance, name)) return failWith<HANDLE>(ERROR_RESOURCE_NAME_NOT_FOUND);
  return reinterpret_cast<HANDLE>(iconHandle + (static_cast<std::uintptr_t>(width) << 20));
}

int GetSystemMetrics(int index) {
  if (const auto fault = enter("GetSystemMetrics")) return faulted<int>(*fault);
  for (const Metric& metric : metrics) {
    if (metric.index == index) return metric.pixels;
  }
  stopRun("GetSystemMetrics", "a measure that isn't modelled");
}
