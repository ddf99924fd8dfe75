#include <algorithm>
#include <utility>

#include "world/desktop.h"

namespace orvane::simulation {
namespace {

constexpr std::string_view defaultAddressBarId = "addressBar";

bool namesId(const std::vector<ElementPlan>& plans, std::string_view id) {
  return std::any_of(plans.begin(), plans.end(),
                     [id](const ElementPlan& plan) { return plan.facts.id == id || namesId(plan.children, id); });
}

bool tabsNameId(const std::vector<TabPlan>& tabs, std::string_view id) {
  return std::any_of(tabs.begin(), tabs.end(), [id](const TabPlan& tab) { return namesId(tab.page, id); });
}

ElementPlan plainElement(int controlType) {
  ElementPlan plan;
  plan.facts.controlType = controlType;
  return plan;
}

ElementPlan defaultAddressBar(const WindowPlan& window) {
  ElementPlan plan = plainElement(control_type::edit);
  if (!tabsNameId(*window.tabs, defaultAddressBarId)) plan.facts.id = defaultAddressBarId;
  plan.facts.name = u"Address and search bar";
  plan.facts.focusable = true;
  plan.facts.acceptsFocus = true;
  plan.facts.hasValuePattern = true;
  plan.facts.value = Text{};
  return plan;
}

Element* findById(const std::vector<Element*>& elements, std::string_view id) {
  std::vector<Element*> open(elements.rbegin(), elements.rend());
  while (!open.empty()) {
    Element* element = open.back();
    open.pop_back();
    if (element->facts.id == id) return element;
    open.insert(open.end(), element->children.rbegin(), element->children.rend());
  }
  return nullptr;
}

}  // namespace

Element& Desktop::makeElement(Window& window, Tab* tab, Element* parent, const ElementPlan& plan) {
  Element& element = *elements_.emplace_back(std::make_unique<Element>());
  element.facts = plan.facts;
  element.window = &window;
  element.tab = tab;
  element.parent = parent;
  element.children.reserve(plan.children.size());
  for (const ElementPlan& child : plan.children) {
    element.children.push_back(&makeElement(window, tab, &element, child));
  }
  return element;
}

void Desktop::buildTree(Window& window, const WindowPlan& plan) {
  ElementPlan root = plainElement(control_type::window);
  root.facts.className = window.className;
  window.root = &makeElement(window, nullptr, nullptr, root);
  window.root->isRoot = true;
  window.isBrowser = plan.tabs.has_value();
  if (!window.isBrowser) {
    for (const ElementPlan& element : plan.elements) {
      window.elements.push_back(&makeElement(window, nullptr, window.root, element));
    }
    window.root->children = window.elements;
    return;
  }
  window.tabControl = &makeElement(window, nullptr, window.root, plainElement(control_type::tab));
  window.root->children.push_back(window.tabControl);
  buildAddressBar(window, plan);
  window.document = &makeElement(window, nullptr, window.root, plainElement(control_type::document));
  window.root->children.push_back(window.document);
  for (const TabPlan& tabPlan : *plan.tabs) {
    Tab& tab = makeTab(window, tabPlan);
    if (tabPlan.selected) selectTab(window, &tab);
  }
}

void Desktop::buildAddressBar(Window& window, const WindowPlan& plan) {
  if (!plan.hasAddressBar) return;
  window.hasDefaultAddressBar = !plan.addressBar;
  window.addressBarFollowsTab = window.hasDefaultAddressBar;
  window.addressBarHasPlace = plan.addressBar && plan.addressBar->hasBounds;
  const ElementPlan bar = plan.addressBar ? *plan.addressBar : defaultAddressBar(plan);
  window.addressBar = &makeElement(window, nullptr, window.root, bar);
  window.root->children.push_back(window.addressBar);
}

Tab& Desktop::makeTab(Window& window, const TabPlan& plan) {
  Tab& tab = *tabs_.emplace_back(std::make_unique<Tab>());
  tab.title = plan.title;
  tab.address = plan.address;
  tab.index = window.tabs.size();
  ElementPlan item = plainElement(control_type::tabItem);
  item.facts.automationId = plan.automationId;
  item.facts.className = plan.className;
  item.facts.frameworkId = plan.frameworkId;
  item.facts.hasSelectionItemPattern = plan.hasSelectionItemPattern;
  tab.item = &makeElement(window, &tab, window.tabControl, item);
  tab.item->isTabItem = true;
  for (const ElementPlan& element : plan.page) {
    tab.page.push_back(&makeElement(window, &tab, window.document, element));
  }
  tab.rules = plan.rules;
  window.tabs.push_back(&tab);
  window.tabControl->children.push_back(tab.item);
  if (rulesStartMs_) scheduleTimes(window, &tab, tab.rules);
  return tab;
}

std::vector<Element*> Desktop::descendants(const Element& element) const {
  std::vector<Element*> found;
  std::vector<Element*> open(element.children.rbegin(), element.children.rend());
  while (!open.empty()) {
    Element* next = open.back();
    open.pop_back();
    found.push_back(next);
    open.insert(open.end(), next->children.rbegin(), next->children.rend());
  }
  return found;
}

bool Desktop::isAvailable(const Element& element) const {
  if (element.removed || element.window->destroyed) return false;
  if (element.tab == nullptr) return true;
  return !element.tab->closed && (element.isTabItem || element.window->selected == element.tab);
}

std::optional<std::string> Desktop::reportName(const Element& element) {
  if (element.isTabItem) return utf8FromText(element.tab->title);
  return element.facts.id.empty() ? std::nullopt : std::optional(element.facts.id);
}

// Where the same id stands on several pages, the one of the rule's own tab is meant.
Element* Desktop::elementById(Window& window, Tab* preferred, std::string_view id) const {
  if (id.empty() || window.root == nullptr) return nullptr;
  if (preferred != nullptr) {
    if (Element* found = findById(preferred->page, id)) return found;
  }
  if (Element* found = findById(window.root->children, id)) return found;
  for (const Tab* tab : window.tabs) {
    if (Element* found = findById(tab->page, id)) return found;
  }
  return nullptr;
}

Tab* Desktop::tabByTitle(Window& window, TextView title) const {
  const auto found =
      std::find_if(window.tabs.begin(), window.tabs.end(), [title](const Tab* tab) { return tab->title == title; });
  return found == window.tabs.end() ? nullptr : *found;
}

void Desktop::selectTab(Window& window, Tab* tab) {
  if (window.selected == tab) return;
  window.selected = tab;
  window.document->children = tab == nullptr ? std::vector<Element*>{} : tab->page;
  window.addressBarFollowsTab = window.hasDefaultAddressBar;
  dropLostFocus(window);
}

void Desktop::closeTab(Window& window, Tab& tab) {
  const std::size_t index = tab.index;
  tab.closed = true;
  std::erase(window.tabs, &tab);
  std::erase(window.tabControl->children, tab.item);
  for (std::size_t at = index; at < window.tabs.size(); ++at) window.tabs[at]->index = at;
  if (window.selected == &tab) {
    // The neighbour on the right follows, at the right end the one on the left.
    const bool isLast = index == window.tabs.size();
    selectTab(window, window.tabs.empty() ? nullptr : window.tabs[isLast ? index - 1 : index]);
  }
  dropLostFocus(window);
}

void Desktop::setAddress(Window& window, Tab& tab, TextView address) {
  tab.address = address;
  if (window.selected == &tab) window.addressBarFollowsTab = window.hasDefaultAddressBar;
}

void Desktop::addToPage(Window& window, Tab* tab, const ElementPlan& plan) {
  if (window.isBrowser && tab == nullptr) return;
  Element* parent = window.isBrowser ? window.document : window.root;
  Element* element = &makeElement(window, tab, parent, plan);
  (window.isBrowser ? tab->page : window.elements).push_back(element);
  if (tab == window.selected) parent->children.push_back(element);
}

void Desktop::removeElement(Element& element) {
  for (Element* child : descendants(element)) child->removed = true;
  element.removed = true;
  std::erase(element.parent->children, &element);
  if (element.tab != nullptr) std::erase(element.tab->page, &element);
  std::erase(element.window->elements, &element);
  if (element.window->addressBar == &element) element.window->addressBar = nullptr;
  dropLostFocus(*element.window);
}

void Desktop::writeValue(Element& element, TextView value) {
  if (&element == element.window->addressBar) element.window->addressBarFollowsTab = false;
  element.facts.value = Text(value);
  element.allSelected = false;
}

}  // namespace orvane::simulation
