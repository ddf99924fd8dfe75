#include "desktop/clean_background_rect.h"

#include <dwmapi.h>

#include <algorithm>
#include <optional>

#include "desktop/clean_background_state.h"
#include "desktop/logical_scale.h"
#include "desktop/monitor_fit.h"
#include "desktop/window_place.h"

namespace orvane {
namespace {

constexpr RECT fixedRect = {8, 8, 808, 208};
constexpr LONG probeSidePixels = 100;
constexpr int captionHeightLogical = 32;
constexpr int bottomBorderLogical = 8;
constexpr int marginLogical = 12;
constexpr LONG bodyPercent = 20;
// Not every toolchain's dwmapi.h knows it.
constexpr DWORD extendedFrameBoundsAttribute = 9;

struct FrameHeights {
  LONG caption = 0;
  LONG bottomBorder = 0;
};

FrameHeights frameHeights(int dpi) {
  RECT probe{0, 0, probeSidePixels, probeSidePixels};
  if (::AdjustWindowRectExForDpi(&probe, cleanBackgroundStyle, FALSE, cleanBackgroundExStyle, static_cast<UINT>(dpi)) ==
      FALSE) {
    probe.top = -::MulDiv(captionHeightLogical, dpi, standardDpi);
    probe.bottom = probeSidePixels + ::MulDiv(bottomBorderLogical, dpi, standardDpi);
  }
  return {-probe.top, probe.bottom - probeSidePixels};
}

// Of a panel that stands open; an iconic one has none.
std::optional<LONG> presentHeight() {
  const HWND panel = cleanBackgroundState().cleanBackgroundWindow;
  RECT bounds{};
  if (panel == nullptr || ::IsWindow(panel) == FALSE || ::IsIconic(panel) != FALSE ||
      ::GetWindowRect(panel, &bounds) == FALSE) {
    return std::nullopt;
  }
  return bounds.bottom - bounds.top;
}

LONG bodyHeight(LONG gap) { return static_cast<LONG>(static_cast<LONGLONG>(gap) * bodyPercent / 100); }

}  // namespace

RECT computeCleanBackgroundRect(HWND owner, PanelHeight panelHeight) {
  RECT work{};
  RECT main{};
  if (!readWorkArea(::MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &work) ||
      ::GetWindowRect(owner, &main) == FALSE) {
    return fixedRect;
  }
  const auto dpi = static_cast<int>(::GetDpiForWindow(owner));
  const FrameHeights frame = frameHeights(dpi);
  LONG height = truncatedPixels(dpi * cleanBackgroundState().cleanBackgroundHeight / standardDpi);
  if (panelHeight == PanelHeight::present) {
    height = presentHeight().value_or(height);
  }
  RECT visible{};
  if (SUCCEEDED(::DwmGetWindowAttribute(owner, extendedFrameBoundsAttribute, &visible, sizeof visible))) {
    main.bottom = visible.bottom;
  }
  const LONG margin = ::MulDiv(marginLogical, dpi, standardDpi);
  const LONG left = clampedUpperFirst(main.left, work.left, work.right - 1);
  const LONG width = std::min(main.right - main.left + margin, work.right - left);
  const LONG gap = std::max<LONG>(1, work.bottom - main.bottom);
  if (height <= 0) {
    height = std::max<LONG>(1, bodyHeight(gap)) + frame.caption + frame.bottomBorder;
  }
  height = std::min(height, work.bottom - work.top);
  const LONG wantedTop = main.bottom - 2 * frame.bottomBorder - frame.caption;
  const LONG top = clampedUpperFirst(wantedTop, work.top, work.bottom - height);
  return {left, top, left + width, top + height};
}

}  // namespace orvane
