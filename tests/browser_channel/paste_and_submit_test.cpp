// What a delivery leaves behind in the process.
#include "browser_channel/paste_and_submit.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

#include "browser_channel/settled_providers.h"
#include "support/browser_page.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::BrowserPage;
using simulation::desktopJson;
using simulation::SimulatedDesktop;

BrowserPage answeringPage() {
  return {.page = R"([{"id": "composer", "type": "edit", "name": "Message DeepSeek", "value": "",
                       "bounds": [300, 640, 1100, 700]}])",
          .rules = R"([{"on": {"key": "Enter"}, "do": [{"set": {"element": "composer", "value": ""}}]}])",
          .title = "Plan - DeepSeek",
          .address = "https://chat.deepseek.com/a/chat/s/91c2"};
}

EncodableValue successOfDelivery(SimulatedDesktop& desktop, const char* provider) {
  desktop.perform("browser", R"([{"clipboard": {"text": "Plan a trip"}}])");
  const auto handle = static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(desktop.window("browser")));
  const EncodableMap arguments{{EncodableValue("name"), EncodableValue(provider)},
                               {EncodableValue("expectedWindowHandle"), EncodableValue(handle)}};
  return pasteAndSubmit(&arguments).at(EncodableValue("success"));
}

TEST(Delivery, SettlesNoExperimentalProvider_WhenItSucceeds) {
  SimulatedDesktop desktop(desktopJson(answeringPage()));

  EXPECT_EQ(successOfDelivery(desktop, "DeepSeek"), EncodableValue(true));

  EXPECT_EQ(settledProviders(), std::set<std::wstring>{});
}

TEST(Delivery, SettlesItsProviderUnderTheLowerCasedName_WhenItSucceeds) {
  SimulatedDesktop desktop(desktopJson(answeringPage()));

  EXPECT_EQ(successOfDelivery(desktop, "Grok BETA"), EncodableValue(true));

  EXPECT_EQ(settledProviders(), (std::set<std::wstring>{L"grok beta"}));
  settledProviders().clear();
}

}  // namespace
}  // namespace orvane
