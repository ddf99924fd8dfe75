#include "desktop_fixture.h"

namespace orvane::simulation {
namespace {

constexpr int enter = 0x0D;

class RulesTest : public DesktopFixture {
 protected:
  // A browser with two tabs; the rules are those of the selected one.
  void buildTab(const std::string& rules, const std::string& windowRules = "[]") {
    build(R"({"clipboard":{"text":"prompt"},"windows":[{"id":"w","process":"chrome.exe","rules":)" + windowRules +
          R"(,"tabs":[{"title":"One","address":"one.example","selected":true,"page":[
               {"id":"edit","type":"edit","value":""},{"id":"send","type":"button","enabled":false},
               {"id":"log","type":"edit","value":""}],"rules":)" +
          rules + R"(},{"title":"Two","page":[{"id":"else","type":"edit","value":"2"}]}]},{"id":"other"}]})");
    desktop.moveForeground(&window("w"));
    desktop.startRules();
  }

  static std::string writes(const std::string& on, const std::string& more = "") {
    return R"([{"on":)" + on + more + R"(,"do":[{"set":{"element":"log","value":"fired"}}]}])";
  }

  // What the log says: fired or nothing.
  bool hasFired() { return value("w", "log") == "fired"; }
};

TEST_F(RulesTest, KeyRule_FiresOnTheKeyGoingDown_OnlyWithItsExactModifiers) {
  buildTab(writes(R"({"key":"Ctrl+Shift+A"})"));
  desktop.key('A', true, 1);
  pressWithCtrl('A');
  EXPECT_FALSE(hasFired());
  desktop.key(0x10, false, 1);
  pressWithCtrl('A');
  EXPECT_TRUE(hasFired());
}

TEST_F(RulesTest, KeyRule_DoesNotFire_WhenAnotherWindowHasTheKeyboard) {
  buildTab(writes(R"({"key":"Enter"})"));
  desktop.moveForeground(&window("other"));
  press(enter);
  EXPECT_FALSE(hasFired());
}

TEST_F(RulesTest, PasteRule_ActsAfterTheInsertion) {
  buildTab(R"([{"on":{"paste":"edit"},"do":[{"copyValue":{"from":"edit","to":"log"}}]}])");
  desktop.setFocus(element("w", "edit"));
  pressWithCtrl('V');
  EXPECT_EQ(value("w", "log"), "prompt");
}

TEST_F(RulesTest, PasteRule_DoesNotFire_WhenAnotherElementHasTheFocus) {
  buildTab(writes(R"({"paste":"edit"})"));
  desktop.setFocus(element("w", "log"));
  pressWithCtrl('V');
  EXPECT_FALSE(hasFired());
}

TEST_F(RulesTest, InvokeRule_FiresOnlyWhenTheInvokeIsAccepted) {
  buildTab(writes(R"({"invoke":"send"})"));
  desktop.invoke(element("w", "send"));
  EXPECT_FALSE(hasFired());
  element("w", "send").facts.enabled = true;
  desktop.invoke(element("w", "send"));
  EXPECT_TRUE(hasFired());
}

TEST_F(RulesTest, FocusRule_FiresOnEachAcceptedSetFocus_NotOnAMoveByARule) {
  buildTab(R"([{"on":{"focus":"edit"},"do":[{"copyValue":{"from":"log","to":"edit"}},
              {"set":{"element":"log","value":"again"}}]}])");
  desktop.perform({action::MoveFocus{"edit"}}, &window("w"), nullptr);
  EXPECT_EQ(value("w", "log"), "");
  desktop.setFocus(element("w", "edit"));
  desktop.setFocus(element("w", "edit"));
  EXPECT_EQ(value("w", "edit"), "again");
}

TEST_F(RulesTest, ReadRule_FiresWhenAFactWasRead) {
  buildTab(writes(R"({"read":"edit"})"));
  desktop.factWasRead(element("w", "log"));
  EXPECT_FALSE(hasFired());
  desktop.factWasRead(element("w", "edit"));
  EXPECT_TRUE(hasFired());
}

TEST_F(RulesTest, SelectRule_FiresThroughUiAutomationOnly_AfterTheSwitch) {
  buildTab("[]", R"([{"on":{"select":"Two"},"do":[{"copyValue":{"from":"addressBar","to":"else"}},
                     {"address":"two.example"}]}])");
  desktop.switchTab(window("w"), u"Two");
  EXPECT_EQ(desktop.addressOf(window("w")), u"");
  desktop.select(element("w", "One"));
  desktop.select(element("w", "Two"));
  EXPECT_EQ(desktop.addressOf(window("w")), u"two.example");
}

TEST_F(RulesTest, TimeRule_CountsFromTheStartOfTheRules) {
  build(R"({"windows":[{"id":"t","title":"before","rules":[{"on":{"time":100},"do":[{"windowTitle":"after"}]}]}]})");
  clock.sleep(500);
  desktop.startRules();
  clock.sleep(99);
  EXPECT_EQ(window("t").title, u"before");
  clock.sleep(1);
  EXPECT_EQ(window("t").title, u"after");
}

TEST_F(RulesTest, TabsTimeRule_DoesNotAct_WhenTheTabIsNotSelectedThen) {
  buildTab(writes(R"({"time":100})"));
  desktop.switchTab(window("w"), u"Two");
  clock.sleep(200);
  desktop.switchTab(window("w"), u"One");
  EXPECT_FALSE(hasFired());
}

TEST_F(RulesTest, DelayedActions_DoNotHappen_WhenTheTabIsNotSelectedWhenTheyComeDue) {
  buildTab(writes(R"({"key":"Enter"})", R"(,"after":50)"));
  press(enter);
  desktop.switchTab(window("w"), u"Two");
  clock.sleep(60);
  desktop.switchTab(window("w"), u"One");
  EXPECT_FALSE(hasFired());
  press(enter);
  clock.sleep(49);
  EXPECT_FALSE(hasFired());
  clock.sleep(1);
  EXPECT_TRUE(hasFired());
}

TEST_F(RulesTest, Rule_FiresNoMoreOftenThanItsTimes) {
  buildTab(R"([{"on":{"key":"Enter"},"times":2,"do":[{"add":{"type":"text"}}]}])");
  const std::size_t before = window("w").document->children.size();
  for (int turn = 0; turn < 5; ++turn) press(enter);
  EXPECT_EQ(window("w").document->children.size(), before + 2);
}

TEST_F(RulesTest, WindowsRules_ActBeforeTheTabs_InTheOrderOfTheFile) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[{"title":"tab"}]}])",
           R"([{"on":{"key":"Enter"},"do":[{"title":"first"}]},{"on":{"key":"Enter"},"do":[{"title":"second"}]}])");
  press(enter);
  EXPECT_EQ(window("w").tabs[0]->title, u"tab");
}

TEST_F(RulesTest, TabsRule_DoesNotAct_WhenARuleBeforeItSwitchedTheTab) {
  buildTab(writes(R"({"key":"Enter"})"), R"([{"on":{"key":"Enter"},"do":[{"selectTab":"Two"}]}])");
  press(enter);
  desktop.switchTab(window("w"), u"One");
  EXPECT_FALSE(hasFired());
}

TEST_F(RulesTest, Set_ChangesFactsAndTakesThemAway) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[
    {"set":{"element":"send","enabled":true,"name":"Send","bounds":[1,2,3,4],"unreadable":["name"]}},
    {"set":{"element":"edit","without":["value","name"]}},
    {"set":{"element":"addressBar","value":"shown"}}]}])");
  press(enter);
  const ElementFacts& send = element("w", "send").facts;
  EXPECT_TRUE(send.enabled);
  EXPECT_EQ(send.name, u"Send");
  EXPECT_EQ(send.bounds, (Rectangle{1, 2, 3, 4}));
  EXPECT_TRUE(send.unreadable.contains(Fact::name));
  EXPECT_FALSE(element("w", "edit").facts.hasValuePattern);
  EXPECT_FALSE(element("w", "edit").facts.name);
  EXPECT_EQ(value("w", "addressBar"), "shown");
}

TEST_F(RulesTest, AcceptingTheFocus_FollowsFocusable_UntilItIsSaid) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[{"set":{"element":"edit","focusable":false}}]},
               {"on":{"key":"Escape"},"do":[{"set":{"element":"edit","acceptsFocus":true}}]}])");
  press(enter);
  EXPECT_NE(desktop.setFocus(element("w", "edit")), 0u);
  press(0x1B);
  EXPECT_EQ(desktop.setFocus(element("w", "edit")), 0u);
}

TEST_F(RulesTest, AddAndRemove_ChangeThePage) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[{"add":{"id":"new","children":[{"id":"inner"}]}},{"remove":"send"}]},
               {"on":{"key":"Escape"},"do":[{"remove":"new"}]}])");
  Element& send = element("w", "send");
  press(enter);
  EXPECT_FALSE(desktop.isAvailable(send));
  EXPECT_EQ(find("w", "send"), nullptr);
  Element& inner = element("w", "inner");
  EXPECT_TRUE(desktop.isAvailable(inner));
  press(0x1B);
  EXPECT_FALSE(desktop.isAvailable(inner));
}

TEST_F(RulesTest, OpenedTab_StandsAtTheEnd_AndItsRulesAct) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[{"openTab":{"title":"Three","selected":true,
               "page":[{"id":"fresh","type":"edit","value":"3"}],
               "rules":[{"on":{"time":70},"do":[{"set":{"element":"fresh","value":"ticked"}}]},
                        {"on":{"time":10},"do":[{"set":{"element":"fresh","value":"too late"}}]}]}}]}])");
  clock.sleep(50);
  press(enter);
  EXPECT_EQ(window("w").tabs.back()->title, u"Three");
  EXPECT_EQ(value("w", "fresh"), "3");
  clock.sleep(10);
  EXPECT_EQ(value("w", "fresh"), "3");
  clock.sleep(10);
  EXPECT_EQ(value("w", "fresh"), "ticked");
}

TEST_F(RulesTest, ClosedTab_LeavesItsNeighbourSelected) {
  buildTab("[]");
  Element& item = element("w", "One");
  desktop.perform({action::CloseTab{u"One"}}, &window("w"), nullptr);
  EXPECT_FALSE(desktop.isAvailable(item));
  EXPECT_TRUE(desktop.isSelected(element("w", "Two")));
  EXPECT_EQ(window("w").tabs[0]->index, 0u);
  desktop.perform({action::CloseTab{u"Two"}}, &window("w"), nullptr);
  EXPECT_EQ(window("w").selected, nullptr);
  EXPECT_TRUE(window("w").document->children.empty());
}

TEST_F(RulesTest, Actions_ReachTheDesktop) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[{"foreground":"other"},{"clipboard":{"text":"new"}}]}])");
  press(enter);
  EXPECT_EQ(desktop.foreground(), &window("other"));
  EXPECT_EQ(desktop.clipboard.content.text, u"new");
  EXPECT_EQ(desktop.clipboard.sequence, 2u);
  desktop.perform({action::MoveForeground{}, action::CloseWindow{"w"}}, nullptr, nullptr);
  EXPECT_EQ(desktop.foreground(), nullptr);
  EXPECT_EQ(desktop.windowById("w"), nullptr);
}

TEST_F(RulesTest, MinimizeAction_TakesTheWindowFromTheFront) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[{"minimize":"w"}]}])");
  press(enter);
  EXPECT_TRUE(window("w").minimized);
  EXPECT_EQ(desktop.foreground(), &window("other"));
}

TEST_F(RulesTest, ClipboardAction_KeepsTheForms_WhenItNamesOnlyTheLock) {
  buildTab(R"([{"on":{"key":"Enter"},"do":[{"clipboard":{"lockedBy":"other"}}]}])");
  press(enter);
  EXPECT_EQ(desktop.clipboard.content.text, u"prompt");
  EXPECT_EQ(desktop.clipboard.content.lockedBy, "other");
  EXPECT_EQ(desktop.clipboard.sequence, 1u);
}

TEST_F(RulesTest, SameId_IsTheOneOfTheRulesOwnTab_WhenTwoPagesHaveIt) {
  build(R"({"windows":[{"id":"w","tabs":[
    {"title":"One","page":[{"id":"box","type":"edit","value":"1"}]},
    {"title":"Two","selected":true,"page":[{"id":"box","type":"edit","value":"2"}],
     "rules":[{"on":{"focus":"box"},"do":[{"set":{"element":"box","value":"focused"}}]}]}]}]})");
  desktop.setFocus(element("w", "box"));
  EXPECT_EQ(value("w", "box"), "focused");
  desktop.switchTab(window("w"), u"One");
  EXPECT_EQ(value("w", "box"), "1");
}

TEST_F(RulesTest, Rules_DoNothing_WhenTheirWindowIsGone) {
  build(R"({"clipboard":{"text":"kept"},"windows":[{"id":"w",
             "rules":[{"on":{"time":10},"do":[{"clipboard":{"text":"changed"}}]}]}]})");
  desktop.startRules();
  desktop.destroyWindow(window("w"));
  clock.sleep(20);
  EXPECT_EQ(desktop.clipboard.content.text, u"kept");
}

}  // namespace
}  // namespace orvane::simulation
