#pragma once

#include <string>
#include <vector>

namespace orvane {

// A browser window, "browser" in Chrome, in front of "editor". `tabs` and `faults` are lists as a
// scenario writes them; `window` are further members of the window, each with a comma in front.
inline std::string browserTabs(const std::string& tabs, const std::string& faults = "[]",
                               const std::string& window = "", const std::string& otherWindows = "") {
  return R"({"windows": [{"id": "browser", "process": "chrome.exe", "bounds": [0, 0, 1200, 800], "tabs": )" + tabs +
         window + "}" + otherWindows + R"(, {"id": "editor", "process": "editor.exe", "title": "Notes"}],
         "foreground": "browser", "faults": )" +
         faults + "}";
}

// A tab of this title; `facts` are further members of it, each with a comma in front.
inline std::string tab(const std::string& title, const std::string& facts = "") {
  return R"({"title": ")" + title + R"(", "automationId": "id-)" + title + R"(")" + facts + "}";
}

inline std::string selectedTab(const std::string& title, const std::string& facts = "") {
  return tab(title, R"(, "selected": true)" + facts);
}

}  // namespace orvane
