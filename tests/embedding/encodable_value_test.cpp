#include "embedding/encodable_value.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

namespace orvane {
namespace {

// One value of each alternative, in their order.
EncodableList oneOfEachKind() {
  return {EncodableValue(),
          true,
          std::int32_t{1},
          std::int64_t{1},
          1.0,
          "text",
          std::vector<std::uint8_t>{1},
          std::vector<std::int32_t>{1},
          std::vector<std::int64_t>{1},
          std::vector<double>{1.0},
          EncodableList{1},
          EncodableMap{{1, 1}},
          CustomEncodableValue(1),
          std::vector<float>{1.0F}};
}

static_assert(std::is_nothrow_move_constructible_v<EncodableValue>);
static_assert(std::is_same_v<EncodableList, std::vector<EncodableValue>>);
static_assert(std::is_same_v<EncodableMap, std::map<EncodableValue, EncodableValue>>);
static_assert(!std::is_convertible_v<const wchar_t*, EncodableValue>, "no pointer turns into a bool");

TEST(EncodableValue, HasItsPlaceByIndex_ForEachAlternative) {
  const EncodableList values = oneOfEachKind();

  ASSERT_EQ(values.size(), 14U);

  for (std::size_t index = 0; index < values.size(); ++index) {
    EXPECT_EQ(values[index].index(), index);
    EXPECT_EQ(values[index].isNull(), index == 0);
  }
}

TEST(EncodableValue, OrdersByIndexFirst_WhateverTheValuesAre) {
  const EncodableList values = oneOfEachKind();

  for (std::size_t left = 0; left < values.size(); ++left) {
    for (std::size_t right = 0; right < values.size(); ++right) {
      EXPECT_EQ(values[left] < values[right], left < right) << left << ' ' << right;
      EXPECT_EQ(values[left] == values[right], left == right) << left << ' ' << right;
    }
  }

  EXPECT_LT(EncodableValue(std::int32_t{9}), EncodableValue(std::int64_t{1}));
}

TEST(EncodableValue, OrdersByValue_WithinOneIndex) {
  const EncodableList ascending[] = {
      {false, true},
      {-5, 0, 7},
      {std::int64_t{-5000000000}, std::int64_t{2}, std::int64_t{5000000000}},
      {-1.5, 0.0, 2.5},
      {"", "B", "a", "aa", "b", "\xC3\xA9"},
      {std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{1, 200}, std::vector<std::uint8_t>{2}},
      {std::vector<std::int32_t>{-1}, std::vector<std::int32_t>{1}, std::vector<std::int32_t>{1, 0}},
      {std::vector<std::int64_t>{-1}, std::vector<std::int64_t>{1}},
      {std::vector<double>{-0.5}, std::vector<double>{0.5}},
      {EncodableList{}, EncodableList{1}, EncodableList{1, "a"}, EncodableList{2}},
      {EncodableMap{}, EncodableMap{{"a", 1}}, EncodableMap{{"a", 2}}, EncodableMap{{"b", 0}}},
      {std::vector<float>{-0.5F}, std::vector<float>{0.5F}},
  };

  for (const EncodableList& values : ascending) {
    for (std::size_t index = 1; index < values.size(); ++index) {
      EXPECT_LT(values[index - 1], values[index]) << values[index].index() << ' ' << index;
      EXPECT_GT(values[index], values[index - 1]);
      EXPECT_NE(values[index], values[index - 1]);
    }
  }
}

TEST(EncodableValue, KeepsMapsOrdered_WhenKeysAreNoNumbers) {
  const double notANumber = std::numeric_limits<double>::quiet_NaN();

  EncodableMap map;
  for (const double key : {3.0, notANumber, 1.0, notANumber, 2.0}) {
    map.emplace(key, true);
  }

  EXPECT_EQ(map.size(), 4U);
  EXPECT_TRUE(map.contains(1.0));
  EXPECT_TRUE(map.contains(2.0));
  EXPECT_TRUE(map.contains(3.0));
  EXPECT_TRUE(map.contains(notANumber));
}

TEST(EncodableValue, BecomesText_WhenMadeOfCharacters) {
  const char* characters = "text";

  const EncodableValue value(characters);

  EXPECT_EQ(std::get<std::string>(value), "text");
}

TEST(EncodableValue, CopiesDeeply_AndMovesWhole) {
  const EncodableValue original(EncodableMap{{"list", EncodableList{1, 2.5, "three"}}});

  EncodableValue copy = original;
  std::get<EncodableList>(std::get<EncodableMap>(copy).at("list")).clear();
  EncodableValue moved = std::move(copy);

  EXPECT_EQ(std::get<EncodableList>(std::get<EncodableMap>(original).at("list")).size(), 3U);
  EXPECT_EQ(moved, EncodableValue(EncodableMap{{"list", EncodableList{}}}));
}

TEST(EncodableValue, IsDestroyedAndComparedSafely_WhenAThousandDeep) {
  EncodableValue deep;
  for (int level = 0; level < 1000; ++level) {
    EncodableList list;
    list.push_back(std::move(deep));
    deep = EncodableValue(std::move(list));
  }

  const EncodableValue copy = deep;

  EXPECT_EQ(copy, deep);
}

TEST(CustomEncodableValue, IsTheSameValue_OnlyWhenCopied) {
  const CustomEncodableValue original(std::string("content"));

  const CustomEncodableValue copy = original;  // NOLINT(performance-unnecessary-copy-initialization)
  const CustomEncodableValue other(std::string("content"));

  EXPECT_EQ(EncodableValue(copy), EncodableValue(original));
  EXPECT_NE(EncodableValue(other), EncodableValue(original));
  EXPECT_EQ(std::any_cast<std::string>(copy.content()), "content");
}

}  // namespace
}  // namespace orvane
