#include "desktop/window_geometry.h"

#include <algorithm>

#include "desktop/clean_background_state.h"
#include "desktop/logical_scale.h"
#include "desktop/main_window_names.h"
#include "desktop/monitor_fit.h"
#include "desktop/window_order.h"
#include "desktop/window_place.h"
#include "embedding/call_arguments.h"
#include "embedding/reply_map.h"

namespace orvane {
namespace {

constexpr double defaultX = 20.0;
constexpr double defaultY = 20.0;
constexpr double defaultWidth = 200.0;
constexpr double defaultHeight = 470.0;
constexpr double greatestInsideHeight = 120.0;
constexpr double greatestCompactWidth = 300.0;
constexpr double restoredWidth = 1100.0;
constexpr double restoredHeight = 720.0;
constexpr int leastOverhangingHeightPixels = 240;

constexpr const wchar_t* compactTitle = L"Orvane";
constexpr LONG_PTR compactClearedStyle = WS_CAPTION | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
constexpr LONG_PTR compactSetStyle = WS_SYSMENU | WS_THICKFRAME;

constexpr UINT placedFlags = SWP_FRAMECHANGED | SWP_SHOWWINDOW;
constexpr UINT placedQuietlyFlags = placedFlags | SWP_NOZORDER | SWP_NOACTIVATE;

struct RequestedBounds {
  double width = defaultWidth;    // logical pixels
  double height = defaultHeight;  // logical pixels
  RECT rect{};                    // pixels
};

// How the window looks after the call.
struct WindowForm {
  bool isCompact = false;
  LONG_PTR style = 0;
  const wchar_t* title = nullptr;  // null: as it is
};

// The interface names the client height, and the frame is added; the width is taken as it is.
LONG heightOfClient(const MainWindow& window, double clientHeight, LONG width, LONG fallback) {
  RECT frame{0, 0, width, truncatedPixels(clientHeight * window.scale)};
  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window.handle, GWL_STYLE));
  const auto exStyle = static_cast<DWORD>(::GetWindowLongPtrW(window.handle, GWL_EXSTYLE));
  if (::AdjustWindowRectExForDpi(&frame, style, FALSE, exStyle, ::GetDpiForWindow(window.handle)) == FALSE) {
    return fallback;
  }
  return frame.bottom - frame.top;
}

RequestedBounds readRequest(const MainWindow& window, const EncodableMap* arguments) {
  RequestedBounds request;
  request.width = numberEntry(arguments, "width", defaultWidth);
  request.height = numberEntry(arguments, "height", defaultHeight);
  const LONG left = truncatedPixels(numberEntry(arguments, "x", defaultX) * window.scale);
  const LONG top = truncatedPixels(numberEntry(arguments, "y", defaultY) * window.scale);
  const LONG width = truncatedPixels(request.width * window.scale);
  LONG height = truncatedPixels(request.height * window.scale);
  const double clientHeight = numberEntry(arguments, "clientHeight", 0.0);
  if (clientHeight > 0.0) {
    height = heightOfClient(window, clientHeight, width, height);
  }
  request.rect = {left, top, left + width, top + height};
  return request;
}

RECT fittedRect(const RequestedBounds& request, bool isPanel) {
  if (request.height <= greatestInsideHeight || isPanel) {
    return fitRectToMonitor(request.rect, request.rect.bottom - request.rect.top, ScreenFit::inside);
  }
  return fitRectToMonitor(request.rect, leastOverhangingHeightPixels, ScreenFit::overhanging);
}

WindowForm chooseForm(HWND window, double width, bool isPanel) {
  const LONG_PTR style = ::GetWindowLongPtrW(window, GWL_STYLE);
  if (isPanel) {
    return {false, style, nullptr};
  }
  if (width <= greatestCompactWidth) {
    return {true, (style & ~compactClearedStyle) | compactSetStyle, compactTitle};
  }
  return {false, style | WS_OVERLAPPEDWINDOW, mainWindowTitle};
}

EncodableMap boundsReply(bool isRead, const RECT& bounds, double scale) {
  EncodableMap reply = successReply(isRead);
  if (isRead) {
    addLogicalBounds(reply, bounds, scale);
  }
  return reply;
}

RECT centeredIn(const RECT& work, double scale) {
  const LONG workWidth = work.right - work.left;
  const LONG workHeight = work.bottom - work.top;
  const LONG width = std::min<LONG>(truncatedPixels(restoredWidth * scale), workWidth);
  const LONG height = std::min<LONG>(truncatedPixels(restoredHeight * scale), workHeight);
  const LONG left = work.left + (workWidth - width) / 2;
  const LONG top = work.top + (workHeight - height) / 2;
  return {left, top, left + width, top + height};
}

}  // namespace

EncodableMap getWorkArea(const MainWindow& window) {
  RECT work{};
  const bool isRead = readWorkArea(::MonitorFromWindow(window.handle, MONITOR_DEFAULTTONEAREST), &work);
  return boundsReply(isRead, work, window.scale);
}

EncodableMap getBounds(const MainWindow& window) {
  RECT bounds{};
  const bool isRead = ::GetWindowRect(window.handle, &bounds) != FALSE;
  return boundsReply(isRead, bounds, window.scale);
}

bool setBounds(const MainWindow& window, const HostWindow& host, const EncodableMap* arguments) {
  const RequestedBounds request = readRequest(window, arguments);
  const bool isPanel = ::GetPropW(window.handle, cleanBackgroundProperty) != nullptr;
  const RECT rect = fittedRect(request, isPanel);
  const WindowForm form = chooseForm(window.handle, request.width, isPanel);
  host.setCompactMode(form.isCompact);
  if (form.title != nullptr) {
    ::SetWindowTextW(window.handle, form.title);
  }
  ::SetWindowLongPtrW(window.handle, GWL_STYLE, form.style);
  ::ShowWindow(window.handle, isPanel ? SW_SHOWNOACTIVATE : SW_RESTORE);
  if (!placeAt(window.handle, rect, isPanel ? placedQuietlyFlags : placedFlags)) {
    return false;
  }
  if (isPanel) {
    placeBehindOwnWindows(window.handle, Restack::always);
  } else {
    ::SetForegroundWindow(window.handle);
  }
  return true;
}

bool emergencyRestore(const MainWindow& window, const HostWindow& host) {
  RECT work{};
  if (!readWorkArea(::MonitorFromWindow(window.handle, MONITOR_DEFAULTTONEAREST), &work)) {
    return false;
  }
  host.setCompactMode(false);
  ::SetWindowTextW(window.handle, mainWindowTitle);
  // A caption that the compact form took away stays away.
  const LONG_PTR style = ::GetWindowLongPtrW(window.handle, GWL_STYLE) | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
  ::SetWindowLongPtrW(window.handle, GWL_STYLE, style);
  const RECT rect = centeredIn(work, window.scale);
  ::ShowWindow(window.handle, SW_RESTORE);
  if (!placeAt(window.handle, rect, placedFlags)) {
    return false;
  }
  ::SetForegroundWindow(window.handle);
  return true;
}

}  // namespace orvane
