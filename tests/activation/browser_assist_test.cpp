#include "activation/browser_assist.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;
using Keys = std::vector<std::string>;

const std::string controlDown = "down 17";
const std::string controlUp = "up 17";
const std::string shiftDown = "down 16";
const std::string shiftUp = "up 16";
const std::string letterDown = "down 65";
const std::string letterUp = "up 65";

std::string chromeWindow(const std::string& id, const std::string& facts = "") {
  return R"({"id": ")" + id + R"(", "process": "chrome.exe", "bounds": [0, 0, 1200, 800])" + facts +
         R"(, "tabs": [{"title": "Mail", "selected": true}, {"title": "Report"}]})";
}

std::string desktopOf(const std::string& windows, const std::string& more = "") {
  return R"({"windows": [)" + windows + "]" + more + "}";
}

// As many tabs of the window as the last pass would have found in it.
void addTabs(std::vector<TabCandidate>& inventory, HWND window, int count, const std::wstring& browser = L"Chrome") {
  for (int index = 0; index < count; ++index) {
    TabCandidate tab;
    tab.hwnd = window;
    tab.browser = browser;
    tab.tabIndex = index;
    inventory.push_back(tab);
  }
}

TEST(ChooseChromeWindow, GivesNone_WhenTheInventoryIsEmpty) {
  const SimulatedDesktop desktop(desktopOf(chromeWindow("left"), R"(, "foreground": "left")"));
  EXPECT_EQ(chooseChromeWindow({}), nullptr);
}

TEST(ChooseChromeWindow, GivesNone_WhenOnlyOtherBrowsersHaveTabs) {
  const SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
  std::vector<TabCandidate> inventory;
  addTabs(inventory, desktop.window("left"), 3, L"Edge");
  addTabs(inventory, desktop.window("left"), 3, L"Chromes");
  addTabs(inventory, desktop.window("left"), 3, L"chrome.exe");
  EXPECT_EQ(chooseChromeWindow(inventory), nullptr);
}

TEST(ChooseChromeWindow, GivesTheWindow_WhenTheBrowsersNameDiffersInCase) {
  const SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
  std::vector<TabCandidate> inventory;
  addTabs(inventory, desktop.window("left"), 1, L"cHROME");
  EXPECT_EQ(chooseChromeWindow(inventory), desktop.window("left"));
}

TEST(ChooseChromeWindow, PassesWindowsOver_WhenTheyAreHiddenOrGone) {
  SimulatedDesktop desktop(desktopOf(chromeWindow("hidden", R"(, "visible": false)") + "," + chromeWindow("gone") +
                                     "," + chromeWindow("left") + "," + chromeWindow("right")));
  std::vector<TabCandidate> inventory;
  addTabs(inventory, desktop.window("hidden"), 9);
  addTabs(inventory, desktop.window("gone"), 8);
  addTabs(inventory, desktop.window("right"), 1);
  desktop.perform("left", R"([{"closeWindow": "gone"}])");
  EXPECT_EQ(chooseChromeWindow(inventory), desktop.window("right"));
}

TEST(ChooseChromeWindow, CountsAMinimisedWindow_WhenItIsVisibleAllTheSame) {
  const SimulatedDesktop desktop(
      desktopOf(chromeWindow("small", R"(, "minimized": true)") + "," + chromeWindow("large")));
  std::vector<TabCandidate> inventory;
  addTabs(inventory, desktop.window("large"), 1);
  addTabs(inventory, desktop.window("small"), 2);
  EXPECT_EQ(chooseChromeWindow(inventory), desktop.window("small"));
}

TEST(ChooseChromeWindow, GivesTheWindowInFront_WhenAnotherHasMoreTabs) {
  const SimulatedDesktop desktop(
      desktopOf(chromeWindow("left") + "," + chromeWindow("right"), R"(, "foreground": "right")"));
  std::vector<TabCandidate> inventory;
  addTabs(inventory, desktop.window("left"), 5);
  addTabs(inventory, desktop.window("right"), 1);
  EXPECT_EQ(chooseChromeWindow(inventory), desktop.window("right"));
}

TEST(ChooseChromeWindow, PassesTheWindowInFrontOver_WhenItHasNoTabInTheInventory) {
  const SimulatedDesktop desktop(
      desktopOf(chromeWindow("left") + "," + chromeWindow("right"), R"(, "foreground": "right")"));
  std::vector<TabCandidate> inventory;
  addTabs(inventory, desktop.window("left"), 1);
  EXPECT_EQ(chooseChromeWindow(inventory), desktop.window("left"));
}

TEST(ChooseChromeWindow, GivesTheWindowWithTheMostTabs_WhereverItStandsInTheInventory) {
  const SimulatedDesktop desktop(
      desktopOf(chromeWindow("first") + "," + chromeWindow("second") + "," + chromeWindow("third")));
  for (const char* most : {"first", "second", "third"}) {
    std::vector<TabCandidate> inventory;
    // Tabs of one window need not stand together.
    for (const char* id : {"first", "second", "third", "second", "first", "third"}) {
      addTabs(inventory, desktop.window(id), std::string(id) == most ? 2 : 1);
    }
    EXPECT_EQ(chooseChromeWindow(inventory), desktop.window(most)) << most;
  }
}

TEST(ChooseChromeWindow, GivesTheLowestHandle_WhenTabsAreEqual) {
  const SimulatedDesktop desktop(
      desktopOf(chromeWindow("first") + "," + chromeWindow("second") + "," + chromeWindow("third")));
  const std::vector<HWND> windows{desktop.window("first"), desktop.window("second"), desktop.window("third")};
  const HWND lowest = *std::min_element(windows.begin(), windows.end(), [](HWND a, HWND b) {
    return reinterpret_cast<std::uintptr_t>(a) < reinterpret_cast<std::uintptr_t>(b);
  });
  for (std::size_t rotation = 0; rotation < windows.size(); ++rotation) {
    std::vector<TabCandidate> inventory;
    for (std::size_t offset = 0; offset < windows.size(); ++offset) {
      addTabs(inventory, windows[(rotation + offset) % windows.size()], 2);
    }
    EXPECT_EQ(chooseChromeWindow(inventory), lowest);
  }
}

TEST(SelectedTabName, GivesTheTabThatSaysSo) {
  const SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
  const UiaSession session;
  EXPECT_EQ(selectedTabName(session, desktop.window("left")), L"Mail");
}

TEST(SelectedTabName, GivesNothing_WhenTheWindowIsNoWindow) {
  const SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
  const UiaSession session;
  EXPECT_EQ(selectedTabName(session, nullptr), L"");
  EXPECT_EQ(selectedTabName(session, reinterpret_cast<HWND>(std::uintptr_t{0xFFFF0000})), L"");
}

TEST(SelectedTabName, GivesNothing_WhenAutomationIsUnavailable) {
  SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
  desktop.setFaults(R"([{"call": "CoCreateInstance", "result": "0x80040154"}])");
  const UiaSession session;
  EXPECT_EQ(selectedTabName(session, desktop.window("left")), L"");
}

TEST(SelectedTabName, GivesNothing_WhenNoTabSaysSo) {
  const SimulatedDesktop desktop(desktopOf(R"({"id": "left", "process": "chrome.exe", "tabs": [
        {"title": "Mail", "selected": true, "selection": "none"}, {"title": "Report"}]})"));
  const UiaSession session;
  EXPECT_EQ(selectedTabName(session, desktop.window("left")), L"");
}

TEST(SelectedTabName, GivesNothing_WhenACallFails) {
  for (const char* call :
       {"IUIAutomation::ElementFromHandle", "IUIAutomation::CreatePropertyCondition", "IUIAutomationElement::FindAll",
        "IUIAutomationElementArray::get_Length", "IUIAutomationSelectionItemPattern::get_CurrentIsSelected",
        "IUIAutomationElement::get_CurrentName"}) {
    SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
    const UiaSession session;
    desktop.setFaults(R"([{"call": ")" + std::string(call) + R"(", "result": "0x80004005"}])");
    EXPECT_EQ(selectedTabName(session, desktop.window("left")), L"") << call;
  }
}

TEST(SelectedTabName, PassesATabItemOver_WhenItCannotBeHad) {
  SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
  const UiaSession session;
  desktop.perform("left", R"([{"selectTab": "Report"}])");
  desktop.setFaults(R"([{"call": "IUIAutomationElementArray::GetElement", "result": null}])");
  EXPECT_EQ(selectedTabName(session, desktop.window("left")), L"Report");
}

struct KeyRow {
  int refusedEvent;  // 0: none
  bool isSent;
  Keys keys;
};

TEST(SendCtrlShiftA, LeavesNoKeyDown_WhicheverEventIsRefused) {
  const std::vector<KeyRow> rows{
      {0, true, {controlDown, shiftDown, letterDown, letterUp, shiftUp, controlUp}},
      {1, false, {}},
      {2, false, {controlDown, controlUp}},
      {3, false, {controlDown, shiftDown, letterUp, shiftUp, controlUp}},
      {4, false, {controlDown, shiftDown, letterDown, shiftUp, controlUp}},
      {5, true, {controlDown, shiftDown, letterDown, letterUp, controlUp}},
      {6, true, {controlDown, shiftDown, letterDown, letterUp, shiftUp}},
  };
  for (const KeyRow& row : rows) {
    SimulatedDesktop desktop(desktopOf(chromeWindow("left"), R"(, "foreground": "left")"));
    if (row.refusedEvent != 0) {
      desktop.setFaults(R"([{"call": "SendInput", "nth": )" + std::to_string(row.refusedEvent) + R"(, "result": 0}])");
    }
    EXPECT_EQ(sendCtrlShiftA(), row.isSent) << row.refusedEvent;
    EXPECT_EQ(desktop.keys(), row.keys) << row.refusedEvent;
  }
}

TEST(SendCtrlShiftA, SendsEachEventByACallOfItsOwn) {
  const SimulatedDesktop desktop(desktopOf(chromeWindow("left"), R"(, "foreground": "left")"));
  EXPECT_TRUE(sendCtrlShiftA());
  EXPECT_EQ(desktop.platformCalls("SendInput"), 6);
  int batch = 0;
  for (const simulation::KeyEvent& event : desktop.keyEvents()) {
    EXPECT_EQ(event.batch, ++batch);
  }
}

TEST(RunBrowserAssist, WritesNothingOut_WhenItFails) {
  const SimulatedDesktop desktop(desktopOf(chromeWindow("left")));
  const UiaSession session;
  std::vector<TabCandidate> inventory;
  addTabs(inventory, desktop.window("left"), 2);
  TraceLog trace;
  HWND window = desktop.window("left");
  std::wstring title = L"before";
  EXPECT_FALSE(runBrowserAssist(session, inventory, trace, window, title));
  EXPECT_EQ(window, desktop.window("left"));
  EXPECT_EQ(title, L"before");
  EXPECT_EQ(desktop.nowMs(), 120 + 120 + 220);
}

}  // namespace
}  // namespace orvane
