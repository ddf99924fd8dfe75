#include "desktop/menu_items.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desktop/desktop_test.h"

namespace orvane {
namespace {

using desktop_tests::mapOf;

EncodableValue entry(const EncodableValue& action, const EncodableValue& label) {
  return mapOf({{"action", action}, {"label", label}});
}

std::vector<MenuItemRecord> parse(const EncodableValue& items) {
  const EncodableMap arguments = mapOf({{"items", items}});
  return parseMenuItems(&arguments);
}

TEST(MenuItems, AreNone_WhenThereIsNoList) {
  EXPECT_TRUE(parseMenuItems(nullptr).empty());
  const EncodableMap empty;
  EXPECT_TRUE(parseMenuItems(&empty).empty());
  for (const EncodableValue& items :
       {EncodableValue(), EncodableValue("items"), EncodableValue(3), entry("a", "A"), EncodableValue(EncodableList()),
        EncodableValue(std::vector<std::int32_t>{1, 2})}) {
    EXPECT_TRUE(parse(items).empty());
  }
}

TEST(MenuItems, TakeTheirTextsFromTheMap) {
  const std::vector<MenuItemRecord> records =
      parse(EncodableList{mapOf({{"action", "cöpy"}, {"label", "Größe & 豆🚀"}, {"shortcut", "Strg+Ö"}})});
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].action, "cöpy");
  // A wide character holds one UTF-16 unit.
  EXPECT_EQ(records[0].label, (std::wstring{L'G', L'r', 0xF6, 0xDF, L'e', L' ', L'&', L' ', 0x8C46, 0xD83D, 0xDE80}));
  EXPECT_EQ(records[0].shortcut, (std::wstring{L'S', L't', L'r', L'g', L'+', 0xD6}));
}

TEST(MenuItems, BeginWithTheirDefaults) {
  const std::vector<MenuItemRecord> records = parse(EncodableList{entry("a", "A")});
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].tag, 0x4F484D31U);
  EXPECT_EQ(records[0].id, 1U);
  EXPECT_EQ(records[0].shortcut, L"");
  EXPECT_EQ(records[0].font, nullptr);
  EXPECT_FALSE(records[0].rtl);
  EXPECT_EQ(records[0].background, 0x1F1C19U);
  EXPECT_EQ(records[0].text, 0xFFFFFFU);
  EXPECT_EQ(records[0].selectedBackground, 0x6E7800U);
  EXPECT_EQ(records[0].selectedText, 0xFFFFFFU);
}

TEST(MenuItems, LeaveOutAnEntry_WhenActionOrLabelIsMissing_WithoutUsingUpItsId) {
  const EncodableValue dropped[] = {
      entry("", "A"),
      entry("a", ""),
      entry(EncodableValue(), "A"),
      entry("a", EncodableValue(7)),
      mapOf({{"action", "a"}}),
      mapOf({{"label", "A"}}),
      mapOf({{"action", "a"}, {"shortcut", "Ctrl+A"}}),
      mapOf({{"Action", "a"}, {"Label", "A"}}),
      EncodableMap(),
      EncodableValue(),
      EncodableValue(4),
      EncodableValue("a"),
      EncodableValue(EncodableList{EncodableValue("a"), EncodableValue("A")}),
  };
  for (const EncodableValue& one : dropped) {
    const std::vector<MenuItemRecord> records = parse(EncodableList{entry("first", "F"), one, entry("last", "L")});
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].id, 1U);
    EXPECT_EQ(records[0].action, "first");
    EXPECT_EQ(records[1].id, 2U);
    EXPECT_EQ(records[1].action, "last");
  }
}

TEST(MenuItems, NeedNoShortcut) {
  const std::vector<MenuItemRecord> records =
      parse(EncodableList{mapOf({{"action", "a"}, {"label", "A"}, {"shortcut", EncodableValue(1)}})});
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].shortcut, L"");
}

TEST(MenuItems, KeepEqualEntries) {
  const std::vector<MenuItemRecord> records = parse(EncodableList{entry("a", "A"), entry("a", "A")});
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[1].id, 2U);
}

ULONG_PTR dataOf(const MenuItemRecord* record) { return reinterpret_cast<ULONG_PTR>(record); }

TEST(LiveMenuItem, IsTheRecord_WhileItsMenuIsOpen) {
  const MenuItemRecord first;
  const MenuItemRecord second;
  {
    LiveMenuItems live;
    EXPECT_EQ(liveMenuItem(dataOf(&first)), nullptr);
    live.add(&first);
    live.add(&second);
    EXPECT_EQ(liveMenuItem(dataOf(&first)), &first);
    EXPECT_EQ(liveMenuItem(dataOf(&second)), &second);
  }
  EXPECT_EQ(liveMenuItem(dataOf(&first)), nullptr);
  EXPECT_EQ(liveMenuItem(dataOf(&second)), nullptr);
}

TEST(LiveMenuItem, IsNone_WhenTheTagIsWrong) {
  for (const std::uint64_t tag : {std::uint64_t{0}, std::uint64_t{0x4F484D30}, std::uint64_t{0x1'4F484D31}}) {
    MenuItemRecord record;
    LiveMenuItems live;
    live.add(&record);
    record.tag = tag;
    EXPECT_EQ(liveMenuItem(dataOf(&record)), nullptr);
    record.tag = menuItemTag;
    EXPECT_EQ(liveMenuItem(dataOf(&record)), &record);
  }
}

// Each of these would end the process if it were read.
TEST(LiveMenuItem, NeverReadsAnUnknownPointer) {
  const MenuItemRecord known;
  LiveMenuItems live;
  live.add(&known);
  auto freed = std::make_unique<MenuItemRecord>();
  const ULONG_PTR freedData = dataOf(freed.get());
  freed.reset();
  for (const ULONG_PTR data :
       {ULONG_PTR{0}, ULONG_PTR{1}, dataOf(&known) + 1, dataOf(&known) - 1, freedData, ~ULONG_PTR{0}}) {
    EXPECT_EQ(liveMenuItem(data), nullptr);
  }
}

TEST(LiveMenuItem, StaysWithAnotherMenu_WhenOneEnds) {
  const MenuItemRecord outer;
  const MenuItemRecord inner;
  LiveMenuItems outerMenu;
  outerMenu.add(&outer);
  {
    LiveMenuItems innerMenu;
    innerMenu.add(&inner);
  }
  EXPECT_EQ(liveMenuItem(dataOf(&outer)), &outer);
  EXPECT_EQ(liveMenuItem(dataOf(&inner)), nullptr);
}

}  // namespace
}  // namespace orvane
