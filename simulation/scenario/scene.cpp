#include "scenario/scene.h"

#include <array>
#include <string_view>

namespace orvane::simulation {
namespace {

struct TypeName {
  int controlType;
  std::string_view name;
};

// As scenario files name them.
constexpr std::array<TypeName, 7> typeNames{{
    {control_type::edit, "edit"},
    {control_type::document, "document"},
    {control_type::button, "button"},
    {control_type::tab, "tab"},
    {control_type::tabItem, "tabItem"},
    {control_type::text, "text"},
    {control_type::pane, "pane"},
}};

Json typeOf(int controlType) {
  for (const TypeName& known : typeNames) {
    if (known.controlType == controlType) return known.name;
  }
  return controlType;
}

Json sidesOf(const Rectangle& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }

Json describeElement(const Desktop& desktop, const Element& element) {
  const ElementFacts facts = desktop.factsOf(element);
  Json json;
  json["id"] = facts.id.empty() ? Json(nullptr) : Json(facts.id);
  json["type"] = typeOf(facts.controlType);
  json["name"] = utf8FromText(facts.name.value_or(Text{}));
  json["bounds"] = sidesOf(facts.bounds);
  json["enabled"] = facts.enabled;
  json["offscreen"] = facts.offscreen;
  json["password"] = facts.password;
  if (facts.hasValuePattern) json["value"] = facts.value ? Json(utf8FromText(*facts.value)) : Json(nullptr);
  if (desktop.focusedElement() == &element) json["focused"] = true;
  return json;
}

Json describeTabs(const Desktop& desktop, const Window& window) {
  Json tabs = Json::array();
  for (const Tab* tab : window.tabs) {
    Json json;
    json["title"] = utf8FromText(tab->title);
    json["bounds"] = sidesOf(desktop.factsOf(*tab->item).bounds);
    json["selected"] = tab == window.selected;
    tabs.push_back(std::move(json));
  }
  return tabs;
}

// Without what a browser's window always has: the tab control, its items and the document itself.
Json describeElements(const Desktop& desktop, const Window& window) {
  Json elements = Json::array();
  if (window.root == nullptr) return elements;
  for (const Element* element : desktop.descendants(*window.root)) {
    if (element->isTabItem || element == window.tabControl || element == window.document) continue;
    elements.push_back(describeElement(desktop, *element));
  }
  return elements;
}

Json describeWindow(const Desktop& desktop, const Window& window) {
  Json json;
  json["id"] = window.id;
  json["process"] = window.process;
  json["title"] = utf8FromText(desktop.windowTitle(window));
  json["bounds"] = sidesOf(window.bounds);
  json["visible"] = window.visible;
  json["minimized"] = window.minimized;
  json["topmost"] = window.topmost;
  if (window.isBrowser) json["tabs"] = describeTabs(desktop, window);
  json["elements"] = describeElements(desktop, window);
  return json;
}

Json describeFocus(const Desktop& desktop) {
  const Element* focused = desktop.focusedElement();
  const auto name = focused == nullptr ? std::nullopt : Desktop::reportName(*focused);
  return name ? Json(focused->window->id + "/" + *name) : Json(nullptr);
}

}  // namespace

Json describeScene(const Desktop& desktop) {
  Json scene;
  scene["monitors"] = Json::array();
  for (const Monitor& monitor : desktop.monitors) {
    scene["monitors"].push_back({{"bounds", sidesOf(monitor.bounds)}, {"work", sidesOf(monitor.work)}});
    scene["monitors"].back()["dpi"] = monitor.dpi;
  }
  const Window* foreground = desktop.foreground();
  scene["foreground"] = foreground == nullptr ? Json(nullptr) : Json(foreground->id);
  scene["focus"] = describeFocus(desktop);
  scene["windows"] = Json::array();
  for (const Window* window : desktop.zOrder()) scene["windows"].push_back(describeWindow(desktop, *window));
  return scene;
}

}  // namespace orvane::simulation
