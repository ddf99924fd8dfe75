#include "scenario/report.h"

namespace orvane::simulation {
namespace {

Json textOrNull(const std::optional<Text>& text) { return text ? Json(utf8FromText(*text)) : Json(nullptr); }

Json sidesOf(const Rectangle& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }

// Windows that a report can name.
std::vector<const Window*> namedWindows(const Desktop& desktop) {
  std::vector<const Window*> named;
  for (const auto& window : desktop.allWindows()) {
    if (!window->destroyed && !window->id.empty()) named.push_back(window.get());
  }
  return named;
}

Json describeWindow(const Desktop& desktop, const Window& window) {
  Json json;
  json["title"] = utf8FromText(desktop.windowTitle(window));
  json["bounds"] = sidesOf(desktop.visibleBounds(window));
  json["visible"] = window.visible;
  json["minimized"] = window.minimized;
  json["topmost"] = window.topmost;
  json["style"] = Desktop::styleOf(window);
  json["exStyle"] = Desktop::exStyleOf(window);
  return json;
}

Json describeTabs(const Window& window) {
  Json json;
  json["titles"] = Json::array();
  for (const Tab* tab : window.tabs) json["titles"].push_back(utf8FromText(tab->title));
  json["selected"] = window.selected == nullptr ? Json(nullptr) : Json(window.selected->index);
  return json;
}

std::string placeOf(const Element& element, const std::string& name) { return element.window->id + "/" + name; }

Json describeFocus(const Desktop& desktop) {
  const Element* focused = desktop.focusedElement();
  const auto name = focused == nullptr ? std::nullopt : Desktop::reportName(*focused);
  return name ? Json(placeOf(*focused, *name)) : Json(nullptr);
}

Json describeValues(const Desktop& desktop) {
  Json values = Json::object();
  for (const auto& element : desktop.allElements()) {
    if (element->facts.id.empty() || !element->facts.hasValuePattern || !desktop.isAvailable(*element)) continue;
    values[placeOf(*element, element->facts.id)] = textOrNull(desktop.factsOf(*element).value);
  }
  return values;
}

Json describeInvoked(const Desktop& desktop) {
  Json invoked = Json::object();
  for (const auto& element : desktop.allElements()) {
    if (element->facts.id.empty() || element->invokedCount == 0) continue;
    const std::string place = placeOf(*element, element->facts.id);
    invoked[place] = invoked.value(place, 0) + element->invokedCount;
  }
  return invoked;
}

Json describeClipboard(const Clipboard& clipboard) {
  Json json;
  json["text"] = textOrNull(clipboard.content.text);
  json["html"] = nullptr;
  if (const auto& html = clipboard.content.html) {
    const bool isClosed = !html->empty() && html->back() == '\0';
    json["html"] = validUtf8(std::string_view(*html).substr(0, html->size() - (isClosed ? 1 : 0)));
  }
  json["sequence"] = clipboard.sequence;
  return json;
}

}  // namespace

Json describeDesktop(const Desktop& desktop) {
  Json json;
  const Window* foreground = desktop.foreground();
  json["foreground"] = foreground == nullptr ? Json(nullptr) : Json(foreground->id);
  json["focus"] = describeFocus(desktop);
  json["zOrder"] = Json::array();
  for (const Window* window : desktop.zOrder()) json["zOrder"].push_back(window->id);
  json["windows"] = Json::object();
  json["tabs"] = Json::object();
  for (const Window* window : namedWindows(desktop)) {
    json["windows"][window->id] = describeWindow(desktop, *window);
    if (window->isBrowser) json["tabs"][window->id] = describeTabs(*window);
  }
  json["values"] = describeValues(desktop);
  json["invoked"] = describeInvoked(desktop);
  json["clipboard"] = describeClipboard(desktop.clipboard);
  return json;
}

}  // namespace orvane::simulation
