#include <algorithm>

#include "world/desktop.h"

namespace orvane::simulation {
namespace {

constexpr std::uint32_t succeeded = 0;
constexpr std::uint32_t elementNotEnabled = 0x80040200;
constexpr std::uint32_t elementNotAvailable = 0x80040201;
constexpr std::uint32_t invalidOperation = 0x80131509;

constexpr int stripHeight = 40;  // pixels: of the row of tab items, and of the address bar below it
constexpr int widestTabItem = 240;

Rectangle tabItemPlace(const Window& window, const Tab& tab) {
  const int count = std::max(1, static_cast<int>(window.tabs.size()));
  const int width = std::min(widestTabItem, window.bounds.width() / count);
  const int left = window.bounds.left + static_cast<int>(tab.index) * width;
  return {left, window.bounds.top, left + width, window.bounds.top + stripHeight};
}

Rectangle tabControlPlace(const Window& window) {
  const Rectangle& bounds = window.bounds;
  return {bounds.left, bounds.top, bounds.right, bounds.top + stripHeight};
}

Rectangle addressBarPlace(const Window& window) {
  const Rectangle& bounds = window.bounds;
  return {bounds.left, bounds.top + stripHeight, bounds.right, bounds.top + 2 * stripHeight};
}

Rectangle documentPlace(const Window& window) {
  const Rectangle& bounds = window.bounds;
  return {bounds.left, bounds.top + 2 * stripHeight, bounds.right, bounds.bottom};
}

}  // namespace

Text Desktop::addressOf(const Window& window) const {
  return window.selected == nullptr ? Text{} : window.selected->address;
}

ElementFacts Desktop::factsOf(const Element& element) const {
  ElementFacts facts = element.facts;
  const Window& window = *element.window;
  if (element.isRoot) {
    facts.name = windowTitle(window);
    facts.bounds = visibleBounds(window);
  } else if (element.isTabItem) {
    facts.name = element.tab->title;
    facts.bounds = tabItemPlace(window, *element.tab);
  } else if (&element == window.tabControl) {
    facts.bounds = tabControlPlace(window);
  } else if (&element == window.document) {
    facts.name = window.selected == nullptr ? Text{} : window.selected->title;
    facts.bounds = documentPlace(window);
  } else if (&element == window.addressBar) {
    if (window.addressBarFollowsTab) facts.value = addressOf(window);
    if (!window.addressBarHasPlace) facts.bounds = addressBarPlace(window);
  }
  return facts;
}

bool Desktop::isSelected(const Element& tabItem) const {
  return tabItem.tab != nullptr && tabItem.window->selected == tabItem.tab;
}

void Desktop::factWasRead(Element& element) { fireOn(element, Trigger::Kind::read); }

std::uint32_t Desktop::setFocus(Element& element) {
  if (!isAvailable(element)) return elementNotAvailable;
  if (!element.facts.acceptsFocus.value_or(element.facts.focusable)) return invalidOperation;
  moveFocus(*element.window, &element);
  fireOn(element, Trigger::Kind::focus);
  return succeeded;
}

std::uint32_t Desktop::invoke(Element& element) {
  if (!isAvailable(element)) return elementNotAvailable;
  if (!element.facts.enabled) return elementNotEnabled;
  if (!element.facts.invoke) return invalidOperation;
  if (*element.facts.invoke != succeeded) return *element.facts.invoke;
  ++element.invokedCount;
  fireOn(element, Trigger::Kind::invoke);
  return succeeded;
}

std::uint32_t Desktop::select(Element& tabItem) {
  if (!isAvailable(tabItem)) return elementNotAvailable;
  if (!tabItem.isTabItem || !tabItem.facts.hasSelectionItemPattern) return invalidOperation;
  selectTab(*tabItem.window, tabItem.tab);
  const Text title = tabItem.tab->title;
  fire(*tabItem.window,
       [&title](const Trigger& on) { return on.kind == Trigger::Kind::select && on.tabTitle == title; });
  return succeeded;
}

std::uint32_t Desktop::setValue(Element& element, TextView value) {
  if (!isAvailable(element)) return elementNotAvailable;
  if (!element.facts.enabled) return elementNotEnabled;
  if (!element.facts.hasValuePattern) return invalidOperation;
  writeValue(element, value);
  return succeeded;
}

}  // namespace orvane::simulation
