#include "activation/chatgpt_destination.h"

#include <algorithm>
#include <string>
#include <vector>

#include "activation/tab_inventory.h"
#include "composer/foreground.h"
#include "provider_identity/address_rules.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"
#include "provider_identity/title_rules.h"

namespace orvane {
namespace {

using SelectedWindows = std::vector<const TabCandidate*>;

struct Destination {
  const TabCandidate* window = nullptr;
  const char* code = "";
};

std::vector<TabCandidate> takeInventory(const UiaSession& session) {
  std::vector<TabCandidate> inventory;
  DiscoveryPass pass;
  pass.session = &session;
  pass.name = L"ChatGPT";
  pass.domain = provider_host::chatGptPrimary;
  pass.inventory = &inventory;
  ::EnumWindows(enumBrowserWindow, reinterpret_cast<LPARAM>(&pass));
  return inventory;
}

SelectedWindows findSelectedChatGptWindows(const std::vector<TabCandidate>& inventory) {
  SelectedWindows windows;
  for (const TabCandidate& tab : inventory) {
    if (tab.selected && providerFromAddress(tab.url) == provider_key::chatGpt && ::IsWindow(tab.hwnd) != FALSE &&
        ::IsWindowVisible(tab.hwnd) != FALSE) {
      windows.push_back(&tab);
    }
  }
  return windows;
}

bool isRemembered(const TabCandidate& tab, const RememberedTarget& remembered) {
  const bool isAtRememberedPlace = remembered.windowHandle != nullptr && remembered.tabIndex >= 0 &&
                                   tab.hwnd == remembered.windowHandle && tab.tabIndex == remembered.tabIndex;
  return isAtRememberedPlace || (!remembered.title.empty() && titlesMatch(tab.title, remembered.title));
}

Destination chooseDestination(const SelectedWindows& windows, const RememberedTarget& remembered) {
  const HWND foreground = ::GetForegroundWindow();
  const auto inFront =
      std::find_if(windows.begin(), windows.end(), [&](const TabCandidate* tab) { return tab->hwnd == foreground; });
  if (inFront != windows.end()) {
    return {*inFront, "ALREADY_FOREGROUND_CHATGPT_WINDOW"};
  }
  const auto known = std::find_if(windows.begin(), windows.end(),
                                  [&](const TabCandidate* tab) { return isRemembered(*tab, remembered); });
  if (known != windows.end()) {
    return {*known, "REMEMBERED_VALID_CHATGPT_WINDOW"};
  }
  if (windows.empty()) {
    return {};
  }
  return {windows.front(), windows.size() == 1 ? "ONLY_SELECTED_CHATGPT_WINDOW" : "FIRST_VERIFIED_CHATGPT_WINDOW"};
}

}  // namespace

bool activateChatGptDestination(const UiaSession& session, TraceLog& trace, const RememberedTarget& remembered,
                                TabCandidate& target) {
  if (!session) {
    return false;
  }
  const std::vector<TabCandidate> inventory = takeInventory(session);
  const SelectedWindows windows = findSelectedChatGptWindows(inventory);
  const Destination destination = chooseDestination(windows, remembered);
  if (destination.window == nullptr) {
    appendTrace(trace, "ChatGPT destination priority",
                windows.empty() ? "No verified selected ChatGPT tab; remembered target may be used"
                                : "Verified selected ChatGPT windows could not be foregrounded");
    return false;
  }
  appendTrace(trace, "ChatGPT destination priority",
              std::string(destination.code) + "; selectedCandidates=" + std::to_string(windows.size()) + "; title=\"" +
                  traceSafeText(destination.window->title) + "\"");
  const bool isInFront = forceForeground(destination.window->hwnd);
  appendTrace(trace, "Selected ChatGPT foreground", isInFront ? "PASS" : "FAIL: foreground not confirmed");
  if (isInFront) {
    target = *destination.window;
  }
  return isInFront;
}

}  // namespace orvane
