#include "composer/delivery_keys.h"

#include <gtest/gtest.h>

#include "support/browser_page.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::desktopJson;
using simulation::SimulatedDesktop;

using Keys = std::vector<std::string>;

struct KeysRow {
  const char* name;
  bool (*send)();
  Keys events;
};

std::string keysName(const testing::TestParamInfo<KeysRow>& info) { return info.param.name; }

class DeliveryKeys : public testing::TestWithParam<KeysRow> {
 protected:
  static SimulatedDesktop& focused(SimulatedDesktop& desktop) {
    desktop.perform("browser", R"([{"focus": "field"}])");
    return desktop;
  }
  static std::string page(const std::string& faults = "[]") {
    return desktopJson({.page = R"([{"id": "field", "type": "edit", "value": "draft"}])", .faults = faults});
  }
};

TEST_P(DeliveryKeys, GoToTheFocusInOneBatch_WhenTheyAreInserted) {
  SimulatedDesktop desktop(page());

  EXPECT_TRUE(GetParam().send());

  EXPECT_EQ(desktop.keys(), GetParam().events);
  EXPECT_EQ(desktop.platformCalls("SendInput"), 1);
  for (const simulation::KeyEvent& event : desktop.keyEvents()) {
    EXPECT_EQ(event.batch, 1);
    EXPECT_EQ(event.window, "browser");
    EXPECT_EQ(event.ms, 0);
    EXPECT_FALSE(desktop.world().isKeyDown(event.virtualKey));
  }
}

TEST_P(DeliveryKeys, AreNamedWithWhatHadTheFocus_WhenAFieldHasIt) {
  SimulatedDesktop desktop(page());
  focused(desktop);

  EXPECT_TRUE(GetParam().send());

  for (const simulation::KeyEvent& event : desktop.keyEvents()) {
    EXPECT_EQ(event.element, "field");
  }
}

TEST_P(DeliveryKeys, AreNotSentAgain_WhenOnlySomeOrNoneAreInserted) {
  for (std::size_t inserted = 0; inserted < GetParam().events.size(); ++inserted) {
    const SimulatedDesktop desktop(
        page(R"([{"call": "SendInput", "times": 9, "result": )" + std::to_string(inserted) + "}]"));

    EXPECT_FALSE(GetParam().send()) << inserted;

    EXPECT_EQ(desktop.platformCalls("SendInput"), 1);
    EXPECT_TRUE(desktop.keys().empty());
  }
}

TEST_P(DeliveryKeys, AreTakenAsSent_WhenAllAreReportedInserted) {
  const SimulatedDesktop desktop(
      page(R"([{"call": "SendInput", "result": )" + std::to_string(GetParam().events.size()) + "}]"));

  EXPECT_TRUE(GetParam().send());
}

INSTANTIATE_TEST_SUITE_P(Each, DeliveryKeys,
                         testing::Values(KeysRow{"Enter", sendEnterKey, {"down 13", "up 13"}},
                                         KeysRow{
                                             "SelectAll", sendSelectAllKeys, {"down 17", "down 65", "up 65", "up 17"}},
                                         KeysRow{"Paste", sendPasteKeys, {"down 17", "down 86", "up 86", "up 17"}}),
                         keysName);

TEST(DeliveryKeysTogether, ReplaceADraftByTheClipboard_WhenTheFieldHasTheFocus) {
  SimulatedDesktop desktop(desktopJson({.page = R"([{"id": "field", "type": "edit", "value": "draft"}])"}));
  desktop.perform("browser", R"([{"focus": "field"}, {"clipboard": {"text": "prompt"}}])");

  EXPECT_TRUE(sendSelectAllKeys());
  EXPECT_TRUE(sendPasteKeys());

  EXPECT_EQ(desktop.value("browser", "field"), "prompt");
  EXPECT_EQ(desktop.keyEvents().back().batch, 2);
}

}  // namespace
}  // namespace orvane
