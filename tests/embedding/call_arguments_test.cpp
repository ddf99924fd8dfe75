#include "embedding/call_arguments.h"

#include <gtest/gtest.h>

#include <any>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace orvane {
namespace {

constexpr const char* key = "key";

EncodableMap mapOf(const EncodableValue& value) { return {{EncodableValue(key), value}}; }

// One value of every kind, in the order of the kinds.
std::vector<EncodableValue> everyKind() {
  return {EncodableValue(),
          EncodableValue(true),
          EncodableValue(std::int32_t{7}),
          EncodableValue(std::int64_t{7}),
          EncodableValue(7.0),
          EncodableValue("7"),
          EncodableValue(std::vector<std::uint8_t>{7}),
          EncodableValue(std::vector<std::int32_t>{7}),
          EncodableValue(std::vector<std::int64_t>{7}),
          EncodableValue(std::vector<double>{7}),
          EncodableValue(EncodableList{EncodableValue("7")}),
          EncodableValue(EncodableMap{{EncodableValue("7"), EncodableValue("7")}}),
          EncodableValue(CustomEncodableValue(std::any(7))),
          EncodableValue(std::vector<float>{7})};
}

TEST(CallArguments, CoverEveryKindOfValue) {
  const std::vector<EncodableValue> values = everyKind();
  ASSERT_EQ(values.size(), std::variant_size_v<EncodableVariant>);
  for (std::size_t index = 0; index < values.size(); ++index) EXPECT_EQ(values[index].index(), index);
}

TEST(ArgumentMap, CountsAMapAlone) {
  EXPECT_EQ(argumentMap(nullptr), nullptr);
  for (const EncodableValue& value : everyKind()) {
    const EncodableMap* map = argumentMap(&value);
    EXPECT_EQ(map, std::get_if<EncodableMap>(&value));
    EXPECT_EQ(map != nullptr, value.kind() == EncodableKind::map);
  }
}

TEST(FindEntry, IsNull_WhenThereIsNoMapOrNoKey) {
  EXPECT_EQ(findEntry(nullptr, key), nullptr);
  const EncodableMap empty;
  EXPECT_EQ(findEntry(&empty, key), nullptr);
  const EncodableMap map{{EncodableValue("Key"), EncodableValue("x")},
                         {EncodableValue("key "), EncodableValue("x")},
                         {EncodableValue("ke"), EncodableValue("x")},
                         {EncodableValue(), EncodableValue("x")},
                         {EncodableValue(7), EncodableValue("x")}};
  EXPECT_EQ(findEntry(&map, key), nullptr);
}

TEST(FindEntry, IsTheMapsOwnValue_WhateverItsKind) {
  for (const EncodableValue& value : everyKind()) {
    const EncodableMap map = mapOf(value);
    const EncodableValue* const found = findEntry(&map, key);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found, &map.begin()->second);
    EXPECT_EQ(found->index(), value.index());
  }
}

TEST(StringEntry, IsEmpty_WhenThereIsNoMapOrNoKey) {
  EXPECT_EQ(stringEntry(nullptr, key), "");
  const EncodableMap map{{EncodableValue("Key"), EncodableValue("x")}, {EncodableValue(7), EncodableValue("y")}};
  EXPECT_EQ(stringEntry(&map, key), "");
}

TEST(StringEntry, TakesAStringAlone) {
  for (const EncodableValue& value : everyKind()) {
    const EncodableMap map = mapOf(value);
    EXPECT_EQ(stringEntry(&map, key), value.kind() == EncodableKind::string ? "7" : "");
  }
  const EncodableMap empty = mapOf(EncodableValue(""));
  EXPECT_EQ(stringEntry(&empty, key), "");
}

TEST(StringEntry, KeepsEveryByte) {
  const std::string text("a\0\xFF", 3);
  const EncodableMap map = mapOf(EncodableValue(text));
  EXPECT_EQ(stringEntry(&map, key), text);
}

TEST(IntegerEntry, HasNoValue_WhenThereIsNoMapOrNoKey) {
  EXPECT_EQ(integerEntry(nullptr, key), std::nullopt);
  const EncodableMap map{{EncodableValue("other"), EncodableValue(7)}};
  EXPECT_EQ(integerEntry(&map, key), std::nullopt);
}

TEST(IntegerEntry, TakesBothIntegersAlike_AndNothingElse) {
  for (const EncodableValue& value : everyKind()) {
    const EncodableMap map = mapOf(value);
    const bool isInteger = value.kind() == EncodableKind::int32 || value.kind() == EncodableKind::int64;
    EXPECT_EQ(integerEntry(&map, key), isInteger ? std::optional<std::int64_t>(7) : std::nullopt);
  }
}

TEST(IntegerEntry, KeepsSignAndSize) {
  for (const std::int64_t number : {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1}, std::int64_t{0},
                                    std::numeric_limits<std::int64_t>::max()}) {
    const EncodableMap map = mapOf(EncodableValue(number));
    EXPECT_EQ(integerEntry(&map, key), number);
  }
  const EncodableMap narrow = mapOf(EncodableValue(std::numeric_limits<std::int32_t>::min()));
  EXPECT_EQ(integerEntry(&narrow, key), std::int64_t{-2147483648});
}

TEST(StringListEntry, TakesAListAlone) {
  EXPECT_TRUE(stringListEntry(nullptr, key).empty());
  for (const EncodableValue& value : everyKind()) {
    const EncodableMap map = mapOf(value);
    EXPECT_EQ(stringListEntry(&map, key).size(), value.kind() == EncodableKind::list ? 1U : 0U);
  }
}

TEST(StringListEntry, KeepsOrderRepeatsAndEmptyTexts_AndSkipsOtherKinds) {
  EncodableList list = everyKind();
  list.insert(list.begin(), {EncodableValue("b"), EncodableValue(""), EncodableValue("a"), EncodableValue("b")});
  const EncodableMap map = mapOf(EncodableValue(list));
  EXPECT_EQ(stringListEntry(&map, key), (std::vector<std::string>{"b", "", "a", "b", "7"}));
}

}  // namespace
}  // namespace orvane
