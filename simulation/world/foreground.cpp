#include <algorithm>

#include "world/desktop.h"

namespace orvane::simulation {
namespace {

Window& topLevelOf(Window& window) {
  Window* top = &window;
  while (top->parent != nullptr) top = top->parent;
  return *top;
}

}  // namespace

void Desktop::setForeground(Window* window) {
  if (foreground_ == window) return;
  Window* from = foreground_;
  foreground_ = window;
  if (host != nullptr) host->foregroundMoved(from, window);
}

bool Desktop::requestForeground(Window& window) {
  Window& top = topLevelOf(window);
  if (top.destroyed || top.refusedForegroundRequests < 0) return false;
  if (top.refusedForegroundRequests > 0) {
    --top.refusedForegroundRequests;
    return false;
  }
  moveForeground(&top);
  return true;
}

void Desktop::moveForeground(Window* window) {
  if (window == nullptr) return setForeground(nullptr);
  Window& top = topLevelOf(*window);
  if (top.destroyed) return;
  raise(top);
  setForeground(&top);
}

void Desktop::giveUpForeground(Window& window) {
  if (foreground_ != &window) return;
  const auto next = std::find_if(zOrder_.begin(), zOrder_.end(), [&window](const Window* other) {
    return other != &window && other->visible && !other->minimized;
  });
  setForeground(next == zOrder_.end() ? nullptr : *next);
}

Element* Desktop::focusedElement() const { return foreground_ == nullptr ? nullptr : foreground_->focus; }

void Desktop::moveFocus(Window& window, Element* element) {
  if (window.focus != nullptr && window.focus != element) window.focus->allSelected = false;
  window.focus = element;
}

void Desktop::dropLostFocus(Window& window) {
  if (window.focus != nullptr && !isAvailable(*window.focus)) moveFocus(window, nullptr);
}

void Desktop::switchTab(Window& window, TextView title) {
  if (Tab* tab = tabByTitle(window, title)) selectTab(window, tab);
}

void Desktop::closeByPerson(Window& window) {
  if (!window.ofHost) return destroyWindow(window);
  if (host != nullptr) host->closeAsked(window);
}

void Desktop::minimizeByPerson(Window& window) {
  if (window.ofHost) {
    if (host != nullptr) host->minimizeAsked(window);
    return;
  }
  window.minimized = true;
  giveUpForeground(window);
}

void Desktop::resizeByPerson(Window& window, const Rectangle& bounds) {
  if (!window.ofHost) {
    window.bounds = bounds;
  } else if (host != nullptr) {
    host->resizeAsked(window, bounds);
  }
}

}  // namespace orvane::simulation
