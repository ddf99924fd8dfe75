#include "activation/browser_assist.h"

#include <cstdint>
#include <map>
#include <string_view>

#include "activation/process_image.h"
#include "activation/tab_items.h"
#include "composer/foreground.h"
#include "composer/key_events.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/address_reader.h"
#include "provider_identity/address_rules.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::wstring_view fieldWord = L"search tabs";
constexpr std::wstring_view chromeImage = L"chrome.exe";
constexpr std::wstring_view chromeKey = L"chrome";
constexpr WORD letterA = 0x41;

constexpr DWORD afterForegroundMs = 120;
constexpr DWORD afterKeysMs = 220;
constexpr DWORD afterFieldSetMs = 300;
constexpr DWORD afterEnterMs = 450;

bool isChatGptHost(const std::wstring& host) {
  return host == provider_host::chatGptPrimary || host == L"www." + std::wstring(provider_host::chatGptPrimary) ||
         host == provider_host::chatGptLegacy;
}

class BrowserAssist {
 public:
  BrowserAssist(const UiaSession& session, TraceLog& trace) : session_(session), trace_(trace) {}

  bool run(const std::vector<TabCandidate>& inventory) {
    step("Browser Assist", "provider=ChatGPT; browser=Chrome; strategy=Tab Search");
    return chooseWindow(inventory) && takeForeground() && openBox() && verifyField() && fillField() && confirm() &&
           verifyLanding();
  }

  // The window in front behind the search, which need not be the one that it began in.
  HWND landedWindow() const { return landedWindow_; }
  const std::wstring& selectedTitle() const { return selectedTitle_; }

 private:
  void step(const char* name, const std::string& result) { appendTrace(trace_, name, result); }

  bool fail(const char* name, const std::string& result) {
    step(name, result);
    return false;
  }

  bool chooseWindow(const std::vector<TabCandidate>& inventory) {
    window_ = chooseChromeWindow(inventory);
    if (window_ == nullptr) {
      return fail("Browser Assist", "No visible Chrome window is available");
    }
    step("Browser Assist target", "hwnd=" + formatHandle(reinterpret_cast<std::uintptr_t>(window_)));
    return true;
  }

  bool isInFront() const { return ::GetForegroundWindow() == window_; }

  bool takeForeground() {
    if (!bringForward(window_) || !isInFront()) {
      return fail("Browser Assist foreground", "FAIL: no input sent without confirmed Chrome foreground");
    }
    step("Browser Assist foreground", "PASS");
    return true;
  }

  bool openBox() {
    ::Sleep(afterForegroundMs);
    const bool isSent = sendCtrlShiftA();
    step("Browser Assist keys", isSent ? "Ctrl+Shift+A sent" : "FAILED sending Ctrl+Shift+A");
    return isSent;
  }

  bool verifyField() {
    ::Sleep(afterKeysMs);
    if (isInFront()) {
      session_.focusedElement(field_);
      if (field_ && field_.controlType() == UIA_EditControlTypeId && textContains(elementName(field_), fieldWord)) {
        return true;
      }
    }
    step("Browser Assist search field", "FAIL: Search tabs input not verified; no text or Enter sent");
    closeBoxIfInFront();
    return false;
  }

  bool fillField() {
    const std::wstring host(provider_host::chatGptPrimary);
    const PatternOutcome outcome = field_.setValue(host);
    if (!outcome.hasPattern || FAILED(outcome.result)) {
      step("Browser Assist search field", "FAIL: cannot set verified search field");
      closeBoxIfInFront();
      return false;
    }
    step("Browser Assist type", utf8FromWide(host) + " (verified Search tabs field)");
    return true;
  }

  bool confirm() {
    ::Sleep(afterFieldSetMs);
    if (!isFieldStillFocused()) {
      return fail("Browser Assist enter", "SKIPPED: search field lost focus");
    }
    const bool isSent = sendKeyEvent(VK_RETURN, false) && sendKeyEvent(VK_RETURN, true);
    step("Browser Assist enter", isSent ? "Sent" : "FAILED");
    return isSent;
  }

  bool isFieldStillFocused() const {
    if (!isInFront()) {
      return false;
    }
    UiaElement focused;
    session_.focusedElement(focused);
    return focused && session_.isSameElement(focused, field_);
  }

  bool verifyLanding() {
    ::Sleep(afterEnterMs);
    landedWindow_ = ::GetForegroundWindow();
    if (landedWindow_ == nullptr || readWindowProcess(landedWindow_).imageName != chromeImage) {
      return fail("Browser Assist verification", "FAIL: selected window is not Chrome");
    }
    const std::wstring address = readWindowAddress(session_, landedWindow_);
    selectedTitle_ = selectedTabName(session_, landedWindow_);
    const bool isVerified = isChatGptHost(hostOfAddress(address));
    step("Browser Assist verification", "address=\"" + traceSafeText(address) + "\"; selectedTitle=\"" +
                                            traceSafeText(selectedTitle_) + "\"; verified=" + yesNo(isVerified));
    if (!isVerified) {
      sendEscape();
    }
    return isVerified;
  }

  void closeBoxIfInFront() const {
    if (isInFront()) {
      sendEscape();
    }
  }

  static void sendEscape() {
    sendKeyEvent(VK_ESCAPE, false);
    sendKeyEvent(VK_ESCAPE, true);
  }

  const UiaSession& session_;
  TraceLog& trace_;
  HWND window_ = nullptr;  // the Chrome window whose box is used
  UiaElement field_;
  HWND landedWindow_ = nullptr;
  std::wstring selectedTitle_;
};

}  // namespace

bool runBrowserAssist(const UiaSession& session, const std::vector<TabCandidate>& inventory, TraceLog& trace,
                      HWND& window, std::wstring& selectedTitle) {
  BrowserAssist assist(session, trace);
  if (!assist.run(inventory)) {
    return false;
  }
  window = assist.landedWindow();
  selectedTitle = assist.selectedTitle();
  return true;
}

HWND chooseChromeWindow(const std::vector<TabCandidate>& inventory) {
  std::map<std::uintptr_t, int> tabCounts;  // in the order of the handles' values
  for (const TabCandidate& tab : inventory) {
    if (toLower(tab.browser) == chromeKey && ::IsWindow(tab.hwnd) != FALSE && ::IsWindowVisible(tab.hwnd) != FALSE) {
      ++tabCounts[reinterpret_cast<std::uintptr_t>(tab.hwnd)];
    }
  }
  const HWND foreground = ::GetForegroundWindow();
  if (tabCounts.contains(reinterpret_cast<std::uintptr_t>(foreground))) {
    return foreground;
  }
  std::uintptr_t chosen = 0;
  int mostTabs = 0;
  for (const auto& [handle, tabs] : tabCounts) {
    if (tabs > mostTabs) {
      chosen = handle;
      mostTabs = tabs;
    }
  }
  return reinterpret_cast<HWND>(chosen);
}

std::wstring selectedTabName(const UiaSession& session, HWND window) {
  if (!session || ::IsWindow(window) == FALSE) {
    return {};
  }
  UiaElement root;
  session.elementFromHandle(window, root);
  if (!root) {
    return {};
  }
  const UiaElementArray items = findTabItems(session, root).items;
  const int length = items.length();
  for (int index = 0; index < length; ++index) {
    UiaElement item;
    items.elementAt(index, item);
    if (item && item.isSelected()) {
      return elementName(item);
    }
  }
  return {};
}

bool sendCtrlShiftA() {
  if (!sendKeyEvent(VK_CONTROL, false)) {
    return false;
  }
  if (!sendKeyEvent(VK_SHIFT, false)) {
    sendKeyEvent(VK_CONTROL, true);
    return false;
  }
  const bool isDownSent = sendKeyEvent(letterA, false);
  const bool isUpSent = sendKeyEvent(letterA, true);
  sendKeyEvent(VK_SHIFT, true);
  sendKeyEvent(VK_CONTROL, true);
  return isDownSent && isUpSent;
}

}  // namespace orvane
