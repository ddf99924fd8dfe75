#include "activation/xray.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "activation/tab_inventory.h"
#include "support/simulated_desktop.h"
#include "support/trace_steps.h"
#include "world/text.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

// One line as its pairs; quoted values without their quotes.
using Line = std::map<std::string, std::string>;

Line readLine(const std::string& text) {
  Line line;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t equals = text.find('=', start);
    const bool isQuoted = equals + 1 < text.size() && text[equals + 1] == '"';
    const std::size_t valueStart = equals + (isQuoted ? 2 : 1);
    const std::size_t valueEnd = std::min(text.size(), text.find(isQuoted ? "\"" : ";", valueStart));
    line[text.substr(start, equals - start)] = text.substr(valueStart, valueEnd - valueStart);
    start = valueEnd + (isQuoted ? 3 : 2);
  }
  return line;
}

struct RebuiltTab {
  std::string title;
  std::string bounds;
  bool isSelected = false;
  bool operator==(const RebuiltTab&) const = default;
};

struct RebuiltWindow {
  std::string process;
  std::string title;
  std::string pid;
  bool isVisible = false;
  bool isMinimized = false;
  bool isInFront = false;
  std::string address;
  std::vector<RebuiltTab> tabs;
  bool operator==(const RebuiltWindow&) const = default;
};

// The browser windows in z-order as the lines of one pass tell them.
std::vector<RebuiltWindow> rebuildDesktop(const TraceLog& trace) {
  std::vector<RebuiltWindow> windows;
  for (const EncodableValue& step : trace) {
    const std::string name = traceEntry(step, "step");
    if (!name.starts_with("X-Ray")) {
      continue;
    }
    Line line = readLine(traceEntry(step, "result"));
    if (name == "X-Ray window") {
      windows.push_back({line["process"],
                         line["windowTitle"],
                         line["pid"],
                         line["visible"] == "Y",
                         line["minimized"] == "Y",
                         line["foreground"] == "Y",
                         "",
                         {}});
      EXPECT_EQ(line["browser#"], std::to_string(windows.size()));
    } else if (name == "X-Ray tabs") {
      windows.back().address = line["address"];
    } else {
      EXPECT_EQ(line["index"], std::to_string(windows.back().tabs.size()));
      windows.back().tabs.push_back({line["title"], line["bounds"], line["uiaSelected"] == "Y"});
    }
  }
  return windows;
}

std::vector<RebuiltWindow> describeWorld(SimulatedDesktop& desktop) {
  std::vector<RebuiltWindow> windows;
  for (const std::string& id : desktop.zOrder()) {
    const simulation::Window& window = desktop.windowState(id);
    if (!window.isBrowser) {
      continue;
    }
    RebuiltWindow rebuilt{window.process,
                          simulation::utf8FromText(desktop.world().windowTitle(window)),
                          std::to_string(window.pid),
                          window.visible,
                          window.minimized,
                          desktop.foreground() == id,
                          window.selected == nullptr ? "" : simulation::utf8FromText(window.selected->address),
                          {}};
    for (const simulation::Tab* tab : window.tabs) {
      const simulation::Rectangle place = desktop.world().factsOf(*tab->item).bounds;
      rebuilt.tabs.push_back({simulation::utf8FromText(tab->title),
                              std::to_string(place.left) + "," + std::to_string(place.top) + "," +
                                  std::to_string(place.right) + "," + std::to_string(place.bottom),
                              tab == window.selected});
    }
    windows.push_back(std::move(rebuilt));
  }
  return windows;
}

TraceLog searchOnce(const UiaSession& session) {
  std::uint32_t passNumber = 0;
  std::vector<TabCandidate> inventory;
  std::vector<TabCandidate> candidates;
  TraceLog trace;
  const std::wstring nothing;
  const std::wstring name = L"Gemini";
  const EncodableMap arguments;
  runDiscoveryPass({passNumber, inventory, candidates, session, name, nothing, nothing, arguments, trace, nothing,
                    nothing, nullptr, -1});
  return trace;
}

const std::string threeBrowsers = R"({"windows": [
    {"id": "editor", "process": "Code.exe", "title": "notes"},
    {"id": "first", "process": "chrome.exe", "pid": 77, "bounds": [0, 0, 1001, 700], "tabs": [
      {"title": "Mail", "address": "https://mail.example/"},
      {"title": "Mail", "address": "https://mail.example/2", "selected": true},
      {"title": "", "address": "https://nameless.example"}, {"title": "地図 - 東京", "address": "https://map.example"}]},
    {"id": "second", "process": "firefox.exe", "minimized": true, "tabs": [
      {"title": "Ramen", "selected": true, "address": "https://ramen.example"},
      {"title": "Soup", "address": "https://soup.example"}]},
    {"id": "third", "process": "vivaldi.exe", "visible": false, "topmost": true, "title": "Vivaldi", "tabs": []}],
  "foreground": "first"})";

TEST(XrayDump, RebuildsTheDesktop_WhenItsLinesAreReadBack) {
  SimulatedDesktop desktop(threeBrowsers);
  const UiaSession session;
  const std::vector<RebuiltWindow> rebuilt = rebuildDesktop(searchOnce(session));
  ASSERT_EQ(rebuilt.size(), 3U);
  EXPECT_EQ(rebuilt, describeWorld(desktop));
}

// Each change shows in the next dump; none before it does.
TEST(XrayDump, FollowsTheDesktop_WhenTabsAndWindowsChange) {
  SimulatedDesktop desktop(threeBrowsers);
  const UiaSession session;
  for (const char* change :
       {R"([{"openTab": {"title": "Bread", "address": "https://bread.example"}}])", R"([{"selectTab": "Soup"}])",
        R"([{"closeTab": "Ramen"}])", R"([{"foreground": "second"}])", R"([{"foreground": null}])",
        R"([{"closeWindow": "first"}])"}) {
    const std::vector<RebuiltWindow> before = rebuildDesktop(searchOnce(session));
    desktop.perform("second", change);
    const std::vector<RebuiltWindow> after = rebuildDesktop(searchOnce(session));
    EXPECT_NE(after, before) << change;
    EXPECT_EQ(after, describeWorld(desktop)) << change;
  }
}

TEST(XrayDump, WritesAndReadsNothing_WithoutATrace) {
  SimulatedDesktop desktop(threeBrowsers);
  const UiaSession session;
  UiaElement root;
  ASSERT_EQ(session.elementFromHandle(desktop.window("first"), root), S_OK);
  BrowserWindow browser;
  browser.window = desktop.window("first");
  const XrayDump dump(nullptr, 1, 1, browser);
  dump.writeWindow();
  dump.writeRootFailure(E_FAIL);
  dump.writeConditionFailure(E_FAIL);
  dump.writeSearchFailure(E_FAIL);
  dump.writeTabs();
  dump.writeTabFailure(0, E_FAIL);
  dump.writeTab(root, TabItemFacts());
  EXPECT_EQ(desktop.platformCalls("IsWindowVisible"), 0);
  EXPECT_EQ(desktop.platformCalls("IsIconic"), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::get_CurrentIsOffscreen"), 0);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationElement::get_CurrentBoundingRectangle"), 0);
}

}  // namespace
}  // namespace orvane
