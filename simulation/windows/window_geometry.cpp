#include "windows/window_geometry.h"

#include <algorithm>
#include <cstdlib>

#include "windows/messages.h"
#include "windows/painting.h"
#include "windows/rectangles.h"
#include "windows/state.h"
#include "windows/tracking_sizes.h"
#include "windows/window_frame.h"

namespace orvane::simulation {
namespace {

std::int64_t overlap(const Rectangle& one, const Rectangle& other) {
  const int width = std::min(one.right, other.right) - std::max(one.left, other.left);
  const int height = std::min(one.bottom, other.bottom) - std::max(one.top, other.top);
  return width > 0 && height > 0 ? static_cast<std::int64_t>(width) * height : 0;
}

std::int64_t distance(const Rectangle& one, const Rectangle& other) {
  const std::int64_t across = std::max({0, one.left - other.right, other.left - one.right});
  const std::int64_t down = std::max({0, one.top - other.bottom, other.top - one.bottom});
  return across * across + down * down;
}

LPARAM packed(int low, int high) { return MAKELPARAM(low, high); }

void tellPosition(PlatformState& state, const Window& window, const Rectangle& client) {
  Rectangle origin;
  if (window.parent != nullptr) origin = clientOnScreen(state, *window.parent);
  deliver(state, window, WM_MOVE, 0, packed(client.left - origin.left, client.top - origin.top));
}

void tellSize(PlatformState& state, const Window& window, const Rectangle& client) {
  const WPARAM kind = window.minimized ? SIZE_MINIMIZED : SIZE_RESTORED;
  deliver(state, window, WM_SIZE, kind, packed(client.width(), client.height()));
}

// The window has come to a monitor of another density: it is told the size that looks the same there.
void tellDpiChange(PlatformState& state, const Window& window, int oldDpi, int newDpi) {
  const Rectangle& bounds = window.bounds;
  RECT suggested = rectOf(bounds);
  suggested.right = bounds.left + scaledBy(bounds.width(), newDpi, oldDpi);
  suggested.bottom = bounds.top + scaledBy(bounds.height(), newDpi, oldDpi);
  sendMessage(state, window, WM_DPICHANGED, MAKEWPARAM(newDpi, newDpi), reinterpret_cast<LPARAM>(&suggested));
}

}  // namespace

int scaledBy(int number, int numerator, int denominator) {
  if (denominator == 0) return -1;
  const std::int64_t product = static_cast<std::int64_t>(number) * numerator;
  const std::int64_t half = std::abs(static_cast<std::int64_t>(denominator)) / 2;
  const std::int64_t result = (product < 0 ? product - half : product + half) / denominator;
  return result > INT32_MAX || result < INT32_MIN ? -1 : static_cast<int>(result);
}

Window& topLevelOf(Window& window) {
  Window* top = &window;
  while (top->parent != nullptr) top = top->parent;
  return *top;
}

const Monitor& monitorNear(const Desktop& desktop, const Rectangle& bounds) {
  if (desktop.monitors.empty()) stopRun("monitors", "the desktop has no monitor");
  const Monitor* best = &desktop.monitors.front();
  for (const Monitor& monitor : desktop.monitors) {
    const std::int64_t gain = overlap(monitor.bounds, bounds) - overlap(best->bounds, bounds);
    const bool isNearer = distance(monitor.bounds, bounds) < distance(best->bounds, bounds);
    if (gain > 0 || (gain == 0 && isNearer)) best = &monitor;
  }
  return *best;
}

std::uint32_t dpiOf(PlatformState& state, const Window& window) {
  const Window* top = &window;
  while (top->parent != nullptr) top = top->parent;
  return monitorNear(state.desktop, top->bounds).dpi;
}

Rectangle screenBounds(PlatformState& state, const Window& window) {
  if (window.parent == nullptr) return state.desktop.visibleBounds(window);
  const Rectangle origin = clientOnScreen(state, *window.parent);
  const Rectangle& bounds = window.bounds;
  return {origin.left + bounds.left, origin.top + bounds.top, origin.left + bounds.right, origin.top + bounds.bottom};
}

Rectangle clientOnScreen(PlatformState& state, const Window& window) {
  const Rectangle bounds = screenBounds(state, window);
  if (window.minimized) return {bounds.left, bounds.top, bounds.left, bounds.top};
  const FrameWidths frame = frameOf(state, window);
  const Rectangle client{bounds.left + frame.side, bounds.top + frame.top, bounds.right - frame.side,
                         bounds.bottom - frame.side};
  return {client.left, client.top, std::max(client.left, client.right), std::max(client.top, client.bottom)};
}

void changeBounds(PlatformState& state, Window& window, const Rectangle& bounds, Frame frame) {
  if (!window.ofHost) {
    window.bounds = bounds;
    return;
  }
  const Rectangle before = clientOnScreen(state, window);
  const auto oldDpi = static_cast<int>(dpiOf(state, window));
  const bool isResized = window.bounds.width() != bounds.width() || window.bounds.height() != bounds.height();
  window.bounds = bounds;
  if (isResized || frame == Frame::recomputed) recomputeFrame(state, window);
  const auto newDpi = static_cast<int>(dpiOf(state, window));
  const Rectangle after = clientOnScreen(state, window);
  invalidateResized(state, window, before, after);
  if (before.left != after.left || before.top != after.top) tellPosition(state, window, after);
  if (before.width() != after.width() || before.height() != after.height()) tellSize(state, window, after);
  if (window.parent == nullptr && newDpi != oldDpi) tellDpiChange(state, window, oldDpi, newDpi);
}

void tellPlace(PlatformState& state, const Window& window) {
  const Rectangle client = clientOnScreen(state, window);
  tellSize(state, window, client);
  tellPosition(state, window, client);
}

void dragBorder(PlatformState& state, Window& window, const Rectangle& bounds) {
  if (window.destroyed || window.minimized || !window.visible) return;
  sendMessage(state, window, WM_ENTERSIZEMOVE, 0, 0);
  RECT dragged = rectOf(limitedBounds(state, window, bounds));
  sendMessage(state, window, WM_SIZING, WMSZ_BOTTOMRIGHT, reinterpret_cast<LPARAM>(&dragged));
  changeBounds(state, window, rectangleOf(dragged), Frame::kept);
  sendMessage(state, window, WM_EXITSIZEMOVE, 0, 0);
}

}  // namespace orvane::simulation
