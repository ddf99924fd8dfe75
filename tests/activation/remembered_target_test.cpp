#include "activation/remembered_target.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvane {
namespace {

HWND handle(std::uintptr_t value) { return reinterpret_cast<HWND>(value); }

RememberedTarget withEntry(const char* key, const EncodableValue& value) {
  return readRememberedTarget(EncodableMap{{EncodableValue(key), value}});
}

TEST(RememberedTarget, HoldsTheFiveValues_WhenAllAreTexts) {
  const RememberedTarget target = readRememberedTarget({{"rememberedTitle", "計画 - Claude"},
                                                        {"rememberedAutomationId", "tab-7"},
                                                        {"rememberedBrowser", "Edge"},
                                                        {"rememberedWindowHandle", "65796"},
                                                        {"rememberedTabIndex", "3"}});

  EXPECT_EQ(target.title, L"計画 - Claude");
  EXPECT_EQ(target.automationId, L"tab-7");
  EXPECT_EQ(target.browser, L"Edge");
  EXPECT_EQ(target.windowHandle, handle(65796));
  EXPECT_EQ(target.tabIndex, 3);
}

TEST(RememberedTarget, IsEmpty_WhenNothingIsThere) {
  const RememberedTarget target = readRememberedTarget({});

  EXPECT_EQ(target.title, L"");
  EXPECT_EQ(target.automationId, L"");
  EXPECT_EQ(target.browser, L"");
  EXPECT_EQ(target.windowHandle, nullptr);
  EXPECT_EQ(target.tabIndex, -1);
}

TEST(RememberedTarget, IsEmpty_WhenItsValuesAreOfOtherTypes) {
  const RememberedTarget target = readRememberedTarget({{"rememberedTitle", std::int32_t{1}},
                                                        {"rememberedAutomationId", true},
                                                        {"rememberedBrowser", EncodableList{"Edge"}},
                                                        {"rememberedWindowHandle", std::int64_t{65796}},
                                                        {"rememberedTabIndex", std::int32_t{3}}});

  EXPECT_EQ(target.title, L"");
  EXPECT_EQ(target.automationId, L"");
  EXPECT_EQ(target.browser, L"");
  EXPECT_EQ(target.windowHandle, nullptr);
  EXPECT_EQ(target.tabIndex, -1);
}

struct HandleRow {
  const char* text;
  std::uintptr_t value;
};

class RememberedHandle : public testing::TestWithParam<HandleRow> {};

TEST_P(RememberedHandle, IsReadAsADecimalText_WhenItHasDigitsInFront) {
  EXPECT_EQ(withEntry("rememberedWindowHandle", GetParam().text).windowHandle, handle(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(
    Each, RememberedHandle,
    testing::Values(HandleRow{"", 0}, HandleRow{"0", 0}, HandleRow{"abc", 0}, HandleRow{"0x10", 0},
                    HandleRow{"  42", 42}, HandleRow{"42abc", 42}, HandleRow{"4294967296", 4294967296U},
                    HandleRow{"18446744073709551615", std::numeric_limits<std::uintptr_t>::max()}));

struct IndexRow {
  const char* text;
  std::int32_t value;
};

class RememberedIndex : public testing::TestWithParam<IndexRow> {};

TEST_P(RememberedIndex, IsReadAsADecimalText_WhenItIsNotEmpty) {
  EXPECT_EQ(withEntry("rememberedTabIndex", GetParam().text).tabIndex, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Each, RememberedIndex,
                         testing::Values(IndexRow{"", -1}, IndexRow{"0", 0}, IndexRow{"-1", -1}, IndexRow{"-5", -5},
                                         IndexRow{"abc", 0}, IndexRow{" ", 0}, IndexRow{" 12", 12},
                                         IndexRow{"12 tabs", 12}, IndexRow{"2147483647", 2147483647}));

}  // namespace
}  // namespace orvane
