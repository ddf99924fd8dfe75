#include "desktop_fixture.h"

namespace orvane::simulation {
namespace {

class KeyboardTest : public DesktopFixture {
 protected:
  KeyboardTest() {
    build(R"({"clipboard":{"text":"pasted"},"windows":[{"id":"w","elements":[
      {"id":"edit","type":"edit","value":"old"},{"id":"null","type":"edit","value":null},
      {"id":"off","type":"edit","value":"old","enabled":false},{"id":"text","type":"text","value":"old",
      "acceptsFocus":true},{"id":"bare","type":"edit"}]},{"id":"other"}]})");
    desktop.moveForeground(&window("w"));
  }

  void focus(const std::string& id) { EXPECT_EQ(desktop.setFocus(element("w", id)), 0u); }
};

TEST_F(KeyboardTest, Paste_GoesToTheEnd_WhenNothingIsSelected) {
  focus("edit");
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "edit"), "oldpasted");
}

TEST_F(KeyboardTest, Paste_ReplacesAll_WhenAllIsSelected) {
  focus("edit");
  pressWithCtrl('A');
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "edit"), "pasted");
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "edit"), "pastedpasted");
}

TEST_F(KeyboardTest, Selection_IsGone_WhenTheFocusWasElsewhere) {
  focus("edit");
  pressWithCtrl('A');
  focus("bare");
  focus("edit");
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "edit"), "oldpasted");
}

TEST_F(KeyboardTest, Paste_InsertsNothing_WhenTheControlIsNoEditWithAText) {
  for (const char* id : {"null", "off", "text"}) {
    const std::string before = value("w", id);
    focus(id);
    pressWithCtrl('V');
    EXPECT_EQ(value("w", id), before) << id;
  }
}

TEST_F(KeyboardTest, Paste_InsertsNothing_WhenTheClipboardHasNoTextOrIsLocked) {
  focus("edit");
  desktop.clipboard.content.lockedBy = "other";
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "edit"), "old");
  desktop.clipboard.replace({});
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "edit"), "old");
}

TEST_F(KeyboardTest, Paste_InsertsNothing_WhenAnotherModifierIsHeld) {
  focus("edit");
  desktop.key(0x10, false, 1);
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "edit"), "old");
}

TEST_F(KeyboardTest, Keys_AreRecordedWithWhereTheyWent) {
  focus("edit");
  clock.sleep(5);
  desktop.key(0x0D, false, 7);
  desktop.moveForeground(nullptr);
  desktop.key(0x0D, true, 8);
  ASSERT_EQ(desktop.keyEvents().size(), 2u);
  const KeyEvent& down = desktop.keyEvents()[0];
  EXPECT_EQ(down.ms, 5);
  EXPECT_EQ(down.window, "w");
  EXPECT_EQ(down.element, "edit");
  EXPECT_EQ(down.virtualKey, 0x0D);
  EXPECT_FALSE(down.up);
  EXPECT_EQ(down.batch, 7);
  EXPECT_EQ(desktop.keyEvents()[1].window, "");
  EXPECT_FALSE(desktop.keyEvents()[1].element);
}

TEST_F(KeyboardTest, Keys_AreHeld_UntilTheyGoUp) {
  desktop.key(0xA2, false, 1);
  EXPECT_TRUE(desktop.isKeyDown(0xA2));
  EXPECT_FALSE(desktop.isKeyDown(0x11));
  focus("edit");
  press('V');
  EXPECT_EQ(value("w", "edit"), "oldpasted");
  desktop.key(0xA2, true, 1);
  EXPECT_FALSE(desktop.isKeyDown(0xA2));
}

}  // namespace
}  // namespace orvane::simulation
