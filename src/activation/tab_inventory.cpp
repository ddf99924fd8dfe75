#include "activation/tab_inventory.h"

#include <optional>
#include <utility>

#include "activation/candidate_evaluation.h"
#include "activation/elapsed_timer.h"
#include "activation/process_image.h"
#include "activation/tab_item_facts.h"
#include "activation/tab_items.h"
#include "activation/xray.h"
#include "composer/chatgpt_composer.h"
#include "composer/window_text.h"
#include "embedding/call_arguments.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/address_reader.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr DWORD beforeSecondPassMs = 150;
constexpr DWORD beforeThirdPassMs = 300;

std::optional<BrowserWindow> recognizeBrowser(HWND window) {
  WindowProcess process = readWindowProcess(window);
  if (!isSupportedBrowserImage(process.imageName)) {
    return std::nullopt;
  }
  BrowserWindow browser;
  browser.window = window;
  browser.pid = process.pid;
  browser.imageName = std::move(process.imageName);
  browser.displayName = browserDisplayName(browser.imageName);
  return browser;
}

// Serves the diagnostics alone, so a failure is 0 and no more.
int countTabControls(const UiaSession& session, const UiaElement& root) {
  UiaCondition condition;
  session.controlTypeCondition(UIA_TabControlTypeId, condition);
  UiaElementArray controls;
  if (condition) {
    root.findAll(condition, controls);
  }
  return controls ? controls.length() : 0;
}

TabItemFacts readTabItem(const UiaElement& item, int index, const std::wstring& windowTitle) {
  TabItemFacts facts;
  facts.index = index;
  facts.name = elementName(item);
  facts.automationId = elementAutomationId(item);
  facts.className = elementClassName(item);
  facts.frameworkId = item.frameworkId();
  facts.isUiaSelected = item.isSelected();
  facts.isWindowTitleSelected = !facts.name.empty() && textContains(windowTitle, facts.name);
  return facts;
}

TabCandidate makeCandidate(const BrowserWindow& browser, const TabItemFacts& facts) {
  TabCandidate tab;
  tab.hwnd = browser.window;
  tab.pid = browser.pid;
  tab.browser = browser.displayName;
  tab.title = facts.name;
  tab.automationId = facts.automationId;
  tab.tabIndex = facts.index;
  tab.selected = facts.isSelected();
  tab.url = tab.selected ? browser.address : std::wstring();
  tab.verifiedContent = tab.selected && browser.isComposerProven;
  return tab;
}

void readTabs(DiscoveryPass& pass, BrowserWindow& browser, const UiaElement& root, const XrayDump& xray) {
  browser.tabControls = countTabControls(*pass.session, root);
  const TabItemSearch search = findTabItems(*pass.session, root);
  if (!search.hasCondition) {
    xray.writeConditionFailure(search.result);
    return;
  }
  if (!search.items) {
    xray.writeSearchFailure(search.result);
    return;
  }
  browser.tabItems = search.items.length();
  pass.tabItems += static_cast<std::uint32_t>(browser.tabItems);
  xray.writeTabs();
  for (int index = 0; index < browser.tabItems; ++index) {
    UiaElement item;
    if (const HRESULT result = search.items.elementAt(index, item); !item) {
      xray.writeTabFailure(index, result);
      continue;
    }
    const TabItemFacts facts = readTabItem(item, index, browser.title);
    xray.writeTab(item, facts);
    if (!facts.name.empty()) {
      pass.inventory->push_back(makeCandidate(browser, facts));
    }
  }
}

void inventoryWindow(HWND window, DiscoveryPass& pass) {
  ++pass.topLevelWindows;
  if (::IsWindow(window) == FALSE || ::GetAncestor(window, GA_ROOT) != window) {
    return;
  }
  std::optional<BrowserWindow> browser = recognizeBrowser(window);
  if (!browser) {
    return;
  }
  ++pass.browserWindows;
  browser->title = windowText(window);
  const XrayDump xray(pass.trace, pass.passNumber, pass.browserWindows, *browser);
  xray.writeWindow();
  UiaElement root;
  if (const HRESULT result = pass.session->elementFromHandle(window, root); !root) {
    xray.writeRootFailure(result);
    return;
  }
  ++pass.uiaRoots;
  browser->address = readWindowAddress(*pass.session, root);
  if (textContains(pass.name, L"ChatGPT")) {
    browser->isComposerProven = verifyChatGptComposer(*pass.session, root, browser->title, pass.trace);
  }
  readTabs(pass, *browser, root, xray);
}

std::vector<std::wstring> readPatterns(const EncodableMap& arguments) {
  std::vector<std::wstring> patterns;
  for (const std::string& pattern : stringListEntry(&arguments, "patterns")) {
    if (!pattern.empty()) {
      patterns.push_back(wideFromUtf8(pattern));
    }
  }
  return patterns;
}

void appendCounters(const DiscoveryRequest& request, const DiscoveryPass& last, int silentRetries) {
  appendTrace(request.trace, "Top-level windows", std::to_string(last.topLevelWindows));
  appendTrace(request.trace, "Browser HWNDs", std::to_string(last.browserWindows));
  appendTrace(request.trace, "UIA roots", std::to_string(last.uiaRoots));
  appendTrace(request.trace, "Tab items", std::to_string(last.tabItems));
  appendTrace(request.trace, "Silent retries", std::to_string(silentRetries));
  appendTrace(request.trace, "Visible probes", "0");
  appendTrace(request.trace, "Provider candidates", std::to_string(request.candidates.size()));
}

}  // namespace

DiscoveryPass runDiscovery(const DiscoveryRequest& request) {
  int silentRetries = 0;
  DiscoveryPass pass = runDiscoveryPass(request);
  for (const DWORD waitMs : {beforeSecondPassMs, beforeThirdPassMs}) {
    if (!request.candidates.empty()) {
      break;
    }
    ::Sleep(waitMs);
    ++silentRetries;
    pass = runDiscoveryPass(request);
  }
  appendCounters(request, pass, silentRetries);
  return pass;
}

DiscoveryPass runDiscoveryPass(const DiscoveryRequest& request) {
  const ElapsedTimer timer;
  ++request.passNumber;
  request.inventory.clear();
  request.candidates.clear();
  DiscoveryPass pass;
  pass.session = &request.session;
  pass.name = request.name;
  pass.domain = request.domain;
  pass.rememberedTitle = request.rememberedTitle;
  pass.patterns = readPatterns(request.arguments);
  pass.inventory = &request.inventory;
  pass.passNumber = request.passNumber;
  pass.trace = &request.trace;
  ::EnumWindows(enumBrowserWindow, reinterpret_cast<LPARAM>(&pass));
  evaluateInventory(request, pass, timer);
  return pass;
}

BOOL CALLBACK enumBrowserWindow(HWND window, LPARAM pass) {
  auto* state = reinterpret_cast<DiscoveryPass*>(pass);
  if (state->session != nullptr && *state->session && state->inventory != nullptr) {
    inventoryWindow(window, *state);
  }
  return TRUE;
}

bool inspectWindowTabs(const UiaSession& session, HWND window, std::vector<TabCandidate>& tabs, TraceLog* trace) {
  if (!session || ::IsWindow(window) == FALSE) {
    return false;
  }
  tabs.clear();
  const std::optional<BrowserWindow> browser = recognizeBrowser(window);
  if (!browser) {
    return false;
  }
  UiaElement root;
  session.elementFromHandle(window, root);
  if (!root) {
    return false;
  }
  const UiaElementArray items = findTabItems(session, root).items;
  if (!items) {
    return false;
  }
  const int length = items.length();
  for (int index = 0; index < length; ++index) {
    UiaElement item;
    items.elementAt(index, item);
    TabItemFacts facts;
    facts.index = index;
    facts.name = elementName(item);
    if (facts.name.empty()) {
      continue;
    }
    facts.automationId = elementAutomationId(item);
    facts.isUiaSelected = item.isSelected();
    tabs.push_back(makeCandidate(*browser, facts));
  }
  if (trace != nullptr) {
    appendTrace(*trace, "Warm target inspection",
                "hwnd=" + formatHandle(reinterpret_cast<std::uintptr_t>(window)) +
                    "; browser=" + utf8FromWide(browser->displayName) + "; tabs=" + std::to_string(tabs.size()));
  }
  return true;
}

}  // namespace orvane
