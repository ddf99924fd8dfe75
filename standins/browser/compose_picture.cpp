#include <algorithm>

#include "browser/picture.h"
#include "common/wide_text.h"

namespace orvane::standins {
namespace {

using simulation::Desktop;
using simulation::Element;
using simulation::ElementFacts;
using simulation::Window;
namespace control_type = simulation::control_type;

constexpr int titleHeight = 30;  // pixels: of a window without tabs

Look lookOf(const ElementFacts& facts, bool isAddressBar) {
  if (isAddressBar) return Look::addressBar;
  if (facts.controlType == control_type::edit) return Look::field;
  if (facts.controlType == control_type::button) return facts.enabled ? Look::button : Look::disabledButton;
  if (facts.controlType == control_type::text) return Look::text;
  return Look::frame;
}

// What lies above the first thing inside an element, in pixels.
int roomAboveChildren(const Desktop& desktop, const Element& element, const simulation::Rectangle& bounds) {
  int top = bounds.bottom;
  for (const Element* child : element.children) top = std::min(top, desktop.factsOf(*child).bounds.top);
  return std::max(top - bounds.top, 1);
}

Box boxOf(const Desktop& desktop, const Window& window, const Element& element) {
  const ElementFacts facts = desktop.factsOf(element);
  Box box;
  box.bounds = facts.bounds;
  box.look = lookOf(facts, &element == window.addressBar);
  box.hasFocus = window.focus == &element;
  const bool hasValue = facts.value && !facts.value->empty();
  box.isHint = !hasValue && (box.look == Look::field || box.look == Look::addressBar);
  if (!element.children.empty()) box.textHeight = roomAboveChildren(desktop, element, facts.bounds);
  box.text = wideFromText(hasValue ? *facts.value : facts.name.value_or(simulation::Text{}));
  return box;
}

void addTabs(const Desktop& desktop, const Window& window, std::vector<Box>& picture) {
  picture.push_back({desktop.factsOf(*window.tabControl).bounds, {}, Look::strip});
  for (const simulation::Tab* tab : window.tabs) {
    const bool isSelected = tab == window.selected;
    picture.push_back({desktop.factsOf(*tab->item).bounds, wideFromText(tab->title),
                       isSelected ? Look::selectedTab : Look::tab, window.focus == tab->item});
  }
}

void addTitle(const Desktop& desktop, const Window& window, std::vector<Box>& picture) {
  simulation::Rectangle bounds = window.bounds;
  bounds.bottom = bounds.top + titleHeight;
  picture.push_back({bounds, wideFromText(desktop.windowTitle(window)), Look::strip});
}

bool isDrawnByItself(const Window& window, const Element& element) {
  return !element.isTabItem && &element != window.tabControl && &element != window.document;
}

}  // namespace

std::vector<Box> composePicture(const Desktop& desktop, const Window& window) {
  std::vector<Box> picture;
  if (window.isBrowser) {
    addTabs(desktop, window, picture);
  } else {
    addTitle(desktop, window, picture);
  }
  for (const Element* element : desktop.descendants(*window.root)) {
    if (isDrawnByItself(window, *element) && !desktop.factsOf(*element).offscreen) {
      picture.push_back(boxOf(desktop, window, *element));
    }
  }
  return picture;
}

}  // namespace orvane::standins
