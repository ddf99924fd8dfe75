#include "desktop_fixture.h"

namespace orvane::simulation {
namespace {

constexpr std::uint32_t notEnabled = 0x80040200;
constexpr std::uint32_t notAvailable = 0x80040201;
constexpr std::uint32_t invalidOperation = 0x80131509;

constexpr const char* twoTabs = R"({"windows":[{"id":"w","process":"chrome.exe","bounds":[100,50,500,650],"tabs":[
  {"title":"One","address":"one.example","selected":true,"automationId":"t1","page":[
    {"id":"pane","children":[{"id":"edit","type":"edit","value":"old"}]},
    {"id":"send","type":"button"},{"id":"off","type":"button","enabled":false},
    {"id":"stuck","type":"button","invoke":"0x80004005"},{"id":"text","type":"text"}]},
  {"title":"Two","address":"two.example","selection":"none","page":[{"id":"other","type":"edit","value":null}]}]}]})";

class BrowserTest : public DesktopFixture {
 protected:
  BrowserTest() { build(twoTabs); }

  ElementFacts facts(const std::string& id) { return desktop.factsOf(element("w", id)); }
};

TEST_F(BrowserTest, Tree_StandsInItsOrder) {
  std::vector<int> types;
  for (const Element* one : desktop.descendants(*window("w").root)) types.push_back(one->facts.controlType);
  EXPECT_EQ(types, (std::vector{50018, 50019, 50019, 50004, 50030, 50033, 50004, 50000, 50000, 50000, 50020}));
}

TEST_F(BrowserTest, Places_LieInRowsBelowEachOther) {
  EXPECT_EQ(facts("One").bounds, (Rectangle{100, 50, 300, 90}));
  EXPECT_EQ(facts("Two").bounds, (Rectangle{300, 50, 500, 90}));
  EXPECT_EQ(facts("addressBar").bounds, (Rectangle{100, 90, 500, 130}));
  EXPECT_EQ(desktop.factsOf(*window("w").document).bounds, (Rectangle{100, 130, 500, 650}));
}

TEST_F(BrowserTest, Names_FollowTheSelectedTab) {
  EXPECT_EQ(utf8FromText(desktop.windowTitle(window("w"))), "One - Google Chrome");
  EXPECT_EQ(value("w", "addressBar"), "one.example");
  desktop.switchTab(window("w"), u"Two");
  EXPECT_EQ(utf8FromText(desktop.windowTitle(window("w"))), "Two - Google Chrome");
  EXPECT_EQ(desktop.factsOf(*window("w").document).name, u"Two");
  EXPECT_EQ(value("w", "addressBar"), "two.example");
}

TEST_F(BrowserTest, Browser_IsKnownWhateverTheCaseOfItsImage) {
  build(R"({"windows":[{"id":"e","process":"MSEdge.EXE","tabs":[{"title":"One","selected":true}]}]})");
  EXPECT_EQ(utf8FromText(desktop.windowTitle(window("e"))), "One - Microsoft Edge");
}

TEST_F(BrowserTest, Page_LeavesTheTree_WhenAnotherTabIsSelected) {
  Element& edit = element("w", "edit");
  EXPECT_TRUE(desktop.isAvailable(edit));
  desktop.switchTab(window("w"), u"Two");
  EXPECT_FALSE(desktop.isAvailable(edit));
  EXPECT_EQ(find("w", "edit"), nullptr);
  EXPECT_NE(find("w", "other"), nullptr);
  EXPECT_EQ(desktop.setFocus(edit), notAvailable);
  desktop.switchTab(window("w"), u"One");
  EXPECT_TRUE(desktop.isAvailable(edit));
}

TEST_F(BrowserTest, Title_IsTheProductAlone_WhenNoTabIsSelected) {
  build(R"({"windows":[{"id":"f","process":"firefox.exe","tabs":[{"title":"One"}]}]})");
  EXPECT_EQ(utf8FromText(desktop.windowTitle(window("f"))), "Mozilla Firefox");
  EXPECT_EQ(value("f", "addressBar"), "");
  EXPECT_TRUE(window("f").document->children.empty());
}

TEST_F(BrowserTest, ExplicitAddressBar_KeepsItsFacts_AndTakesThePlaceOfTheDefaultOne) {
  build(R"({"windows":[{"id":"x","bounds":[0,0,100,200],"addressBar":{"id":"bar","type":"edit","value":"shown"},
                        "tabs":[{"title":"T","address":"t.example","selected":true}]},
                       {"id":"y","addressBar":null,"tabs":[]}]})");
  EXPECT_EQ(value("x", "bar"), "shown");
  EXPECT_EQ(desktop.factsOf(element("x", "bar")).bounds, (Rectangle{0, 40, 100, 80}));
  EXPECT_EQ(find("x", "addressBar"), nullptr);
  EXPECT_EQ(window("y").addressBar, nullptr);
}

TEST_F(BrowserTest, DefaultAddressBar_GivesItsIdUp_WhenAPageHasIt) {
  build(R"({"windows":[{"id":"x","tabs":[{"title":"T","selected":true,
             "page":[{"id":"addressBar","type":"edit","value":"mine"}]}]}]})");
  EXPECT_EQ(value("x", "addressBar"), "mine");
}

TEST_F(BrowserTest, Focus_IsRefused_ByWhatDoesNotAcceptIt) {
  EXPECT_EQ(desktop.setFocus(element("w", "text")), invalidOperation);
  EXPECT_EQ(window("w").focus, nullptr);
}

TEST_F(BrowserTest, Focus_MovesWithoutTheForeground_WhenTheWindowIsInTheBackground) {
  EXPECT_EQ(desktop.setFocus(element("w", "edit")), 0u);
  EXPECT_EQ(desktop.foreground(), nullptr);
  EXPECT_EQ(desktop.focusedElement(), nullptr);
  desktop.moveForeground(&window("w"));
  EXPECT_EQ(desktop.focusedElement(), &element("w", "edit"));
}

TEST_F(BrowserTest, Focus_IsLost_WhenItsElementLeavesTheTree) {
  desktop.moveForeground(&window("w"));
  desktop.setFocus(element("w", "edit"));
  desktop.perform({action::RemoveElement{"pane"}}, &window("w"), nullptr);
  EXPECT_EQ(desktop.focusedElement(), nullptr);
  desktop.setFocus(element("w", "send"));
  desktop.switchTab(window("w"), u"Two");
  EXPECT_EQ(desktop.focusedElement(), nullptr);
}

TEST_F(BrowserTest, Invoke_IsCountedOnlyWhenAccepted) {
  EXPECT_EQ(desktop.invoke(element("w", "send")), 0u);
  EXPECT_EQ(desktop.invoke(element("w", "off")), notEnabled);
  EXPECT_EQ(desktop.invoke(element("w", "stuck")), 0x80004005u);
  EXPECT_EQ(desktop.invoke(element("w", "text")), invalidOperation);
  EXPECT_EQ(element("w", "send").invokedCount, 1);
  EXPECT_EQ(element("w", "off").invokedCount + element("w", "stuck").invokedCount, 0);
}

TEST_F(BrowserTest, Select_SwitchesTheTab_UnlessItHasNoPattern) {
  EXPECT_EQ(desktop.select(element("w", "Two")), invalidOperation);
  EXPECT_TRUE(desktop.isSelected(element("w", "One")));
  desktop.switchTab(window("w"), u"Two");
  EXPECT_EQ(desktop.select(element("w", "One")), 0u);
  EXPECT_TRUE(desktop.isSelected(element("w", "One")));
}

TEST_F(BrowserTest, SetValue_StaysInTheAddressBar_UntilTheTabChanges) {
  EXPECT_EQ(desktop.setValue(element("w", "addressBar"), u"typed"), 0u);
  EXPECT_EQ(value("w", "addressBar"), "typed");
  EXPECT_EQ(desktop.addressOf(window("w")), u"one.example");
  desktop.switchTab(window("w"), u"Two");
  EXPECT_EQ(value("w", "addressBar"), "two.example");
  EXPECT_EQ(desktop.setValue(*window("w").document, u"x"), invalidOperation);
}

TEST_F(BrowserTest, ManyElements_AreListedAndAskedQuickly) {
  WindowPlan plan;
  plan.id = "big";
  plan.process = "chrome.exe";
  plan.elements.resize(100'000);
  Window& big = desktop.addWindow(plan);
  std::size_t available = 0;
  for (const Element* one : desktop.descendants(*big.root)) available += desktop.isAvailable(*one) ? 1 : 0;
  EXPECT_EQ(available, 100'000u);
}

}  // namespace
}  // namespace orvane::simulation
