#include <gtest/gtest.h>

#include <any>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "desktop/desktop_test.h"
#include "embedding/call_arguments.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::mapOf;

constexpr double fallback = 7.5;

struct ValueRow {
  const char* test;
  EncodableValue value;
  double number;  // with the fallback 7.5
  std::string text;
};

class EveryKindOfValue : public ::testing::TestWithParam<ValueRow> {};

TEST_P(EveryKindOfValue, ReadsAsANumber_WhenItIsOne_ElseAsTheFallback) {
  const EncodableMap map = mapOf({{"key", GetParam().value}});
  EXPECT_EQ(numberEntry(&map, "key", fallback), GetParam().number);
}

TEST_P(EveryKindOfValue, ReadsAsText_WhenItIsOne_ElseAsAnEmptyOne) {
  const EncodableMap map = mapOf({{"key", GetParam().value}});
  EXPECT_EQ(stringEntry(&map, "key"), GetParam().text);
}

TEST_P(EveryKindOfValue, IsASetFlag_WhenItsNumberIsNotZero) {
  const EncodableMap map = mapOf({{"key", GetParam().value}});
  const bool isNumber = GetParam().number != fallback;
  EXPECT_EQ(flagEntry(&map, "key", true), isNumber ? GetParam().number != 0.0 : true);
  EXPECT_EQ(flagEntry(&map, "key", false), isNumber ? GetParam().number != 0.0 : false);
}

INSTANTIATE_TEST_SUITE_P(
    Each, EveryKindOfValue,
    ::testing::Values(
        ValueRow{"Null", EncodableValue(), fallback, ""}, ValueRow{"False", EncodableValue(false), fallback, ""},
        ValueRow{"True", EncodableValue(true), fallback, ""}, ValueRow{"Int32", EncodableValue(-3), -3.0, ""},
        ValueRow{"Int32Zero", EncodableValue(0), 0.0, ""},
        ValueRow{"Int32Least", EncodableValue(std::numeric_limits<std::int32_t>::min()), -2147483648.0, ""},
        ValueRow{"Int64", EncodableValue(std::int64_t{5'000'000'000}), 5e9, ""},
        ValueRow{"Int64Zero", EncodableValue(std::int64_t{0}), 0.0, ""},
        ValueRow{"Int64Greatest", EncodableValue(std::numeric_limits<std::int64_t>::max()), 9223372036854775808.0, ""},
        ValueRow{"Double", EncodableValue(0.25), 0.25, ""}, ValueRow{"DoubleZero", EncodableValue(0.0), 0.0, ""},
        ValueRow{"DoubleNegativeZero", EncodableValue(-0.0), 0.0, ""},
        ValueRow{"DoubleTiny", EncodableValue(5e-324), 5e-324, ""},
        ValueRow{"DoubleInfinite", EncodableValue(std::numeric_limits<double>::infinity()),
                 std::numeric_limits<double>::infinity(), ""},
        ValueRow{"Text", EncodableValue("abc"), fallback, "abc"},
        ValueRow{"TextOfDigits", EncodableValue("12"), fallback, "12"},
        ValueRow{"TextEmpty", EncodableValue(""), fallback, ""},
        ValueRow{"TextWithNul", EncodableValue(std::string("a\0b", 3)), fallback, std::string("a\0b", 3)},
        ValueRow{"TextBeyondAscii", EncodableValue("Größe 豆"), fallback, "Größe 豆"},
        ValueRow{"ByteList", EncodableValue(std::vector<std::uint8_t>{1}), fallback, ""},
        ValueRow{"Int32List", EncodableValue(std::vector<std::int32_t>{1}), fallback, ""},
        ValueRow{"Int64List", EncodableValue(std::vector<std::int64_t>{1}), fallback, ""},
        ValueRow{"DoubleList", EncodableValue(std::vector<double>{1.0}), fallback, ""},
        ValueRow{"FloatList", EncodableValue(std::vector<float>{1.0F}), fallback, ""},
        ValueRow{"List", EncodableValue(EncodableList{EncodableValue(1)}), fallback, ""},
        ValueRow{"Map", EncodableValue(EncodableMap{{EncodableValue("key"), EncodableValue(1)}}), fallback, ""},
        ValueRow{"Custom", EncodableValue(CustomEncodableValue(std::any(1))), fallback, ""}),
    nameOfRow<ValueRow>);

TEST(NumberArgument, KeepsWhatIsNoNumberAtAll) {
  const EncodableMap map = mapOf({{"key", EncodableValue(std::nan(""))}});
  EXPECT_TRUE(std::isnan(numberEntry(&map, "key", fallback)));
  EXPECT_TRUE(flagEntry(&map, "key", false)) << "it isn't 0";
}

TEST(Arguments, TakeTheirDefaults_WhenThereIsNoMap) {
  EXPECT_EQ(numberEntry(nullptr, "key", fallback), fallback);
  EXPECT_EQ(stringEntry(nullptr, "key"), "");
  EXPECT_TRUE(flagEntry(nullptr, "key", true));
  EXPECT_FALSE(flagEntry(nullptr, "key", false));
}

TEST(Arguments, TakeTheirDefaults_WhenNoKeyIsExactlyTheirs) {
  EncodableMap map = mapOf({{"Key", EncodableValue(1)}, {"key ", EncodableValue(1)}, {"", EncodableValue("x")}});
  map[EncodableValue(1)] = EncodableValue(2.0);
  map[EncodableValue()] = EncodableValue("y");
  EXPECT_EQ(numberEntry(&map, "key", fallback), fallback);
  EXPECT_EQ(stringEntry(&map, "key"), "");
}

}  // namespace
}  // namespace orvane
