#include "snapshot/scenario_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "composer/uia_interfaces.h"
#include "provider_identity/text_rules.h"
#include "snapshot/json_object.h"

namespace orvane::snapshot {
namespace {

constexpr std::string_view prompt = "A prompt in place of the one that did not arrive";
constexpr std::wstring_view browserChannel = L"orvane/browser";
constexpr LONG stripHeightPixels = 40;  // of a scenario's row of tabs, and of its address bar below it

struct TypeWord {
  int type;
  std::string_view word;
};

constexpr std::array<TypeWord, 5> typeWords{{{UIA_EditControlTypeId, "edit"},
                                             {UIA_DocumentControlTypeId, "document"},
                                             {UIA_ButtonControlTypeId, "button"},
                                             {UIA_TabControlTypeId, "tab"},
                                             {UIA_TabItemControlTypeId, "tabItem"}}};

const TypeWord* wordOf(int type) {
  const auto found =
      std::find_if(typeWords.begin(), typeWords.end(), [type](const TypeWord& each) { return each.type == type; });
  return found == typeWords.end() ? nullptr : &*found;
}

std::string boundsJson(const RECT& bounds) {
  return "[" + std::to_string(bounds.left) + ", " + std::to_string(bounds.top) + ", " + std::to_string(bounds.right) +
         ", " + std::to_string(bounds.bottom) + "]";
}

std::string flagJson(bool flag) { return flag ? "true" : "false"; }

std::string optionalText(const std::optional<std::wstring>& text) { return text ? jsonText(*text) : "null"; }

bool isFocusableByDefault(int type) {
  return type == UIA_EditControlTypeId || type == UIA_DocumentControlTypeId || type == UIA_ButtonControlTypeId;
}

void addFacts(const CapturedElement& element, JsonObject& object) {
  const bool isButton = element.type == UIA_ButtonControlTypeId;
  object.addIf(!element.name, "name", "null");
  object.addNonEmpty("name", element.name.value_or(std::wstring()));
  object.addNonEmpty("automationId", element.automationId);
  object.addNonEmpty("className", element.className);
  object.addNonEmpty("frameworkId", element.frameworkId);
  object.addIf(element.hasValue, "value", optionalText(element.value));
  object.addNonEmpty("helpText", element.helpText);
  object.addNonEmpty("legacyValue", element.legacyValue);
  object.addIf(!element.isEnabled, "enabled", "false");
  object.addIf(element.isOffscreen, "offscreen", "true");
  object.addIf(element.isFocusable != isFocusableByDefault(element.type), "focusable", flagJson(element.isFocusable));
  object.addIf(element.isPassword, "password", "true");
  object.addIf(isButton && !element.hasInvoke, "invoke", "null");
  if (element.bounds) {
    object.add("bounds", boundsJson(*element.bounds));
  } else {
    object.add("unreadable", R"(["bounds"])");
  }
}

std::string elementJson(const CapturedElement& element, std::size_t place) {
  JsonObject object;
  const TypeWord* word = wordOf(element.type);
  // What a report may name has an id.
  object.addIf(word != nullptr, "id",
               word == nullptr ? "" : jsonText(std::string(word->word) + std::to_string(place + 1)));
  object.add("type", word == nullptr ? std::to_string(element.type) : jsonText(word->word));
  addFacts(element, object);
  return object.onOneLine();
}

std::string elementsJson(const std::vector<CapturedElement>& elements, int depth) {
  std::vector<std::string> items;
  for (std::size_t place = 0; place < elements.size(); ++place) {
    items.push_back(elementJson(elements[place], place));
  }
  return jsonList(items, depth);
}

// The bar that a scenario's window has by itself.
bool isDefaultBar(const CapturedElement& bar, const CapturedWindow& window) {
  const RECT place = window.bounds.value_or(RECT{});
  const bool hasPlace = bar.bounds && window.bounds && bar.bounds->left == place.left &&
                        bar.bounds->right == place.right && bar.bounds->top == place.top + stripHeightPixels &&
                        bar.bounds->bottom == place.top + 2 * stripHeightPixels;
  return hasPlace && bar.name == L"Address and search bar" && bar.isEnabled && !bar.isOffscreen && bar.isFocusable &&
         !bar.isPassword && bar.hasValue && bar.value && bar.automationId.empty() && bar.className.empty() &&
         bar.frameworkId.empty() && bar.helpText.empty() && bar.legacyValue.empty();
}

// The tab whose page was read: the selected one, else the first that the window's title names.
std::optional<std::size_t> shownTab(const CapturedWindow& window) {
  for (std::size_t tab = 0; tab < window.tabs.size(); ++tab) {
    if (window.tabs[tab].isSelected) {
      return tab;
    }
  }
  for (std::size_t tab = 0; tab < window.tabs.size(); ++tab) {
    if (!window.tabs[tab].hasSelection && textContains(window.title, window.tabs[tab].title)) {
      return tab;
    }
  }
  return std::nullopt;
}

// What the bar of a window shows while its captured tab is selected.
std::wstring barText(const CapturedWindow& window) {
  return window.addressBar ? window.addressBar->value.value_or(window.address) : window.address;
}

class WindowText {
 public:
  explicit WindowText(const CapturedWindow& window) : window_(window), shown_(shownTab(window)) {}

  std::string write(const std::string& id) const {
    JsonObject object;
    object.add("id", jsonText(std::string_view(id)));
    object.addText("process", window_.process);
    object.addNonEmpty("class", window_.className);
    object.addText("title", window_.title);
    if (window_.bounds) {
      object.add("bounds", boundsJson(*window_.bounds));
    }
    object.addIf(!window_.isVisible, "visible", "false");
    object.addIf(window_.isMinimized, "minimized", "true");
    object.addIf(window_.isTopmost, "topmost", "true");
    object.addIf(!window_.hasRoot, "uia", "false");
    if (window_.tabs.empty()) {
      object.addIf(!window_.elements.empty(), "elements", elementsJson(window_.elements, depth + 1));
    } else {
      addBar(object);
      object.add("tabs", tabs());
    }
    return object.onLines(depth);
  }

 private:
  static constexpr int depth = 3;  // of a window inside the file

  void addBar(JsonObject& object) const {
    if (!window_.addressBar) {
      object.add("addressBar", "null");
      return;
    }
    if (isDefaultBar(*window_.addressBar, window_)) {
      return;
    }
    JsonObject bar;
    bar.add("id", R"("addressBar")").add("type", R"("edit")");
    addFacts(*window_.addressBar, bar);
    object.add("addressBar", bar.onOneLine());
    if (window_.addressBar->hasValue) {
      object.add("rules", jsonList(barRules(), depth + 1));
    }
  }

  // Of other tabs the address is unknown; back on the shown one it is there again.
  std::vector<std::string> barRules() const {
    std::vector<std::string> rules;
    std::set<std::wstring> seen;
    if (shown_) {
      seen.insert(window_.tabs[*shown_].title);
    }
    for (const CapturedTab& tab : window_.tabs) {
      if (seen.insert(tab.title).second) {
        rules.push_back(barRule(tab.title, L""));
      }
    }
    if (shown_) {
      rules.push_back(barRule(window_.tabs[*shown_].title, barText(window_)));
    }
    return rules;
  }

  static std::string barRule(const std::wstring& title, const std::wstring& value) {
    return R"({"on": {"select": )" + jsonText(title) + R"(}, "do": [{"set": {"element": "addressBar", "value": )" +
           jsonText(value) + "}}]}";
  }

  std::string tabs() const {
    std::vector<std::string> items;
    for (std::size_t tab = 0; tab < window_.tabs.size(); ++tab) {
      items.push_back(tabJson(window_.tabs[tab], shown_ == tab));
    }
    if (!shown_) {
      // The page belongs to none of them: a tab without a name, which no rule looks at, carries it.
      items.push_back(tabJson(CapturedTab(), true));
    }
    return jsonList(items, depth + 1);
  }

  std::string tabJson(const CapturedTab& tab, bool isShown) const {
    JsonObject object;
    object.addText("title", tab.title);
    object.addNonEmpty("automationId", tab.automationId);
    object.addNonEmpty("className", tab.className);
    object.addNonEmpty("frameworkId", tab.frameworkId);
    object.addIf(!tab.hasSelection, "selection", R"("none")");
    if (!isShown) {
      return object.onOneLine();
    }
    object.addNonEmpty("address", barText(window_));
    object.add("selected", "true");
    object.addIf(!window_.elements.empty(), "page", elementsJson(window_.elements, depth + 3));
    return object.onLines(depth + 2);
  }

  const CapturedWindow& window_;
  std::optional<std::size_t> shown_;
};

bool standsOnFurtherDomain(const CapturedDesktop& desktop, const ProviderCall& provider) {
  return std::any_of(desktop.windows.begin(), desktop.windows.end(), [&](const CapturedWindow& window) {
    return textContains(window.address, provider.furtherDomain) && !textContains(window.address, provider.domain);
  });
}

std::string stepJson(std::wstring_view method, const JsonObject& arguments, std::string_view as) {
  JsonObject call;
  call.addText("channel", browserChannel).addText("method", method).add("arguments", arguments.onOneLine());
  return JsonObject().add("call", call.onOneLine()).add("as", jsonText(as)).onOneLine();
}

std::string stepsJson(const CapturedDesktop& desktop, const ProviderCall& provider) {
  const std::string patterns = "[" + jsonText(provider.pattern) + "]";
  JsonObject search;
  search.addText("name", provider.name);
  search.addText("domain", standsOnFurtherDomain(desktop, provider) ? provider.furtherDomain : provider.domain);
  search.add("patterns", patterns);
  JsonObject delivery;
  delivery.addText("name", provider.name);
  delivery.add("expectedWindowHandle", R"({"$from": "activate.windowHandle"})").add("patterns", patterns);
  return jsonList({stepJson(L"activateProvider", search, "activate"), stepJson(L"pasteAndSubmit", delivery, "deliver")},
                  1);
}

std::string windowId(std::size_t place) { return "window" + std::to_string(place + 1); }

std::size_t countDroppedSelections(const CapturedDesktop& desktop) {
  std::size_t dropped = 0;
  for (const CapturedWindow& window : desktop.windows) {
    const auto selected = static_cast<std::size_t>(
        std::count_if(window.tabs.begin(), window.tabs.end(), [](const CapturedTab& tab) { return tab.isSelected; }));
    dropped += selected > 1 ? selected - 1 : 0;
    dropped += static_cast<std::size_t>(std::count_if(window.elements.begin(), window.elements.end(),
                                                      [](const CapturedElement& each) { return each.isSelected; }));
  }
  return dropped;
}

}  // namespace

ScenarioText writeScenario(const CapturedDesktop& desktop, const ProviderCall* provider) {
  JsonObject place;
  std::vector<std::string> windows;
  std::optional<std::string> foreground;
  for (std::size_t window = 0; window < desktop.windows.size(); ++window) {
    windows.push_back(WindowText(desktop.windows[window]).write(windowId(window)));
    if (desktop.windows[window].isForeground) {
      foreground = windowId(window);
    }
  }
  place.add("windows", jsonList(windows, 2));
  place.addIf(foreground.has_value(), "foreground", jsonText(std::string_view(foreground.value_or(""))));
  place.add("clipboard", JsonObject().add("text", jsonText(prompt)).onOneLine());
  JsonObject scenario;
  scenario.add("name", R"("A snapshot of the open browser windows")").add("desktop", place.onLines(1));
  scenario.add("steps", provider == nullptr ? "[]" : stepsJson(desktop, *provider));
  return {scenario.onLines(0) + "\n", countDroppedSelections(desktop)};
}

}  // namespace orvane::snapshot
