#pragma once

#include <string>

namespace orvane::simulation {

// A desktop with one browser window, "browser", in front, whose one tab shows a page. Lists and objects are JSON text
// as a scenario writes them.
struct BrowserPage {
  std::string page = "[]";        // the tab's elements
  std::string rules = "[]";       // of the tab
  std::string faults = "[]";      // of the platform
  std::string window = "";        // further members of the window, each with a comma in front
  std::string otherWindows = "";  // windows below it, each with a comma in front
  std::string title = "Plan - Claude";
  std::string address = "https://claude.ai/chat/9f2c";
  std::string bounds = "[0, 0, 1200, 800]";  // of the window
  std::string foreground = R"("browser")";
};

// The scenario's `desktop`.
inline std::string desktopJson(const BrowserPage& page) {
  return R"({"windows": [{"id": "browser", "process": "chrome.exe", "bounds": )" + page.bounds +
         R"(, "tabs": [{"title": ")" + page.title + R"(", "address": ")" + page.address +
         R"(", "selected": true, "page": )" + page.page + R"(, "rules": )" + page.rules + "}]" + page.window + "}" +
         page.otherWindows + R"(], "foreground": )" + page.foreground + R"(, "faults": )" + page.faults + "}";
}

// One fault that holds for every fitting call: `result` as a scenario writes it.
inline std::string everyCallFails(const std::string& call, const std::string& result) {
  return R"([{"call": ")" + call + R"(", "times": 1000, "result": )" + result + "}]";
}

// A fault of the nth call alone.
inline std::string nthCallFails(const std::string& call, int nth, const std::string& result) {
  return R"([{"call": ")" + call + R"(", "nth": )" + std::to_string(nth) + R"(, "result": )" + result + "}]";
}

// What stands on a provider's page beside the composer, all of it with ids.
inline const std::string surroundings = R"(
    {"id": "sideBar", "type": "pane", "name": "Side bar", "bounds": [0, 80, 260, 800], "children": [
      {"id": "newChat", "type": "button", "name": "New chat", "bounds": [10, 90, 250, 120]},
      {"id": "history", "type": "button", "name": "Trip to Lisbon", "bounds": [10, 130, 250, 160]},
      {"id": "sideSearch", "type": "edit", "name": "Search this chat", "value": "", "bounds": [10, 600, 250, 640]}]},
    {"id": "answer", "type": "text", "name": "Here is a plan.", "bounds": [300, 100, 1100, 420]},
    {"id": "attach", "type": "button", "name": "Attach", "bounds": [300, 720, 340, 760]},
    {"id": "voice", "type": "button", "name": "Dictate", "bounds": [350, 720, 390, 760]})";

// A page with its surroundings and these elements behind them, each with a comma in front.
inline std::string pageWith(const std::string& elements) { return "[" + surroundings + elements + "]"; }

inline const std::string composer =
    R"(, {"id": "composer", "type": "edit", "name": "Write your prompt", "value": "", "bounds": [300, 640, 1100, 700]})";
inline const std::string disabledSend =
    R"(, {"id": "send", "type": "button", "name": "Send message", "enabled": false, "bounds": [1060, 720, 1100, 760]})";
inline const std::string enabledSend =
    R"(, {"id": "send", "type": "button", "name": "Send message", "bounds": [1060, 720, 1100, 760]})";
inline const std::string stop =
    R"(, {"id": "stop", "type": "button", "name": "Stop response", "bounds": [1010, 720, 1050, 760]})";

}  // namespace orvane::simulation
