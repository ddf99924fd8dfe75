#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "activation/tab_inventory.h"
#include "support/simulated_desktop.h"

namespace orvane {

// What a discovery needs and what it leaves.
struct Discovery {
  explicit Discovery(std::wstring providerName, std::wstring providerDomain = {})
      : name(std::move(providerName)), domain(std::move(providerDomain)) {}

  DiscoveryRequest request() {
    return {passNumber,
            inventory,
            candidates,
            session,
            name,
            domain,
            rememberedTitle,
            arguments,
            trace,
            rememberedAutomationId,
            rememberedBrowser,
            rememberedWindowHandle,
            rememberedTabIndex};
  }

  std::uint32_t passNumber = 0;
  std::vector<TabCandidate> inventory;
  std::vector<TabCandidate> candidates;
  UiaSession session;
  std::wstring name;
  std::wstring domain;
  std::wstring rememberedTitle;
  EncodableMap arguments;
  TraceLog trace;
  std::wstring rememberedAutomationId;
  std::wstring rememberedBrowser;
  HWND rememberedWindowHandle = nullptr;
  std::int32_t rememberedTabIndex = -1;
};

// Discovery only reads.
inline void expectOnlyRead(const simulation::SimulatedDesktop& desktop, const std::string& foreground = "browser") {
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.foreground(), foreground);
  for (const char* call : {"IUIAutomationSelectionItemPattern::Select", "IUIAutomationInvokePattern::Invoke",
                           "IUIAutomationElement::SetFocus", "SetForegroundWindow", "BringWindowToTop", "SetWindowPos",
                           "ShowWindowAsync", "OpenClipboard", "SendInput"}) {
    EXPECT_EQ(desktop.platformCalls(call), 0) << call;
  }
}

}  // namespace orvane
