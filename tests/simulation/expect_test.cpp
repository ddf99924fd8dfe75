#include "scenario/expect.h"

#include <gtest/gtest.h>

namespace orvane::simulation {
namespace {

using Failures = std::vector<std::string>;

struct Row {
  const char* name;
  const char* expected;
  const char* report;
  Failures failures;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

class Expectation : public ::testing::TestWithParam<Row> {};

TEST_P(Expectation, Comparison_NamesEachPlaceThatDoesNotHold) {
  EXPECT_EQ(compareWithExpectation(Json::parse(GetParam().expected), Json::parse(GetParam().report)),
            GetParam().failures);
}

const Row rows[] = {
    {"SubsetOfKeys", R"({"a":{"b":1}})", R"({"a":{"b":1,"c":2},"d":3})", {}},
    {"AbsentKey", R"({"a":{"x":null}})", R"({"a":{}})", {"a.x: expected null, came nothing"}},
    {"OtherValue", R"({"a":"x"})", R"({"a":"y"})", {R"(a: expected "x", came "y")"}},
    {"OtherType", R"({"a":{}})", R"({"a":[]})", {"a: expected {}, came []"}},
    {"DoubleIsNoWholeNumber", R"({"a":1})", R"({"a":1.0})", {"a: expected 1, came 1.0"}},
    {"SubsetInsideAList", R"({"l":[{"a":1},2]})", R"({"l":[{"a":1,"b":1},2]})", {}},
    {"OtherItem", R"({"l":[{"a":1}]})", R"({"l":[{"a":2}]})", {"l[0].a: expected 1, came 2"}},
    {"ListIsWhole", R"({"l":[1]})", R"({"l":[1,2]})", {"l: expected 1 items, came 2: expected [1], came [1,2]"}},
    {"PatternIsFound", R"({"a":"~b+c$"})", R"({"a":"abbc"})", {}},
    {"PatternIsNotFound", R"({"a":"~^b"})", R"({"a":"abbc"})", {R"(a: expected "~^b", came "abbc")"}},
    {"PatternCountsUnitsOfUtf16", R"({"a":"~^.[éü]..$"})", R"({"a":"豆é😀"})", {}},
    {"PatternRefersToItsGroup", R"({"a":"~^(a.)\\1$"})", R"({"a":"abab"})", {}},
    {"PatternOfNoText", R"({"a":"~1"})", R"({"a":1})", {R"(a: expected "~1", came 1)"}},
    {"AbsentCountIsZero", R"({"platformCalls":{"SendInput":0}})", R"({"platformCalls":{}})", {}},
    {"AbsentCountIsNotOne",
     R"({"desktop":{"invoked":{"w/x":1}}})",
     R"({"desktop":{"invoked":{}}})",
     {"desktop.invoked.w/x: expected 1, came nothing"}},
    {"SeveralFailures", R"({"a":1,"b":2})", R"({"a":2,"b":1})", {"a: expected 1, came 2", "b: expected 2, came 1"}},
};

Failures failuresOf(const std::string& pattern, const std::string& text) {
  return compareWithExpectation(Json{{"a", pattern}}, Json{{"a", text}});
}

TEST(Pattern, IsComparedWithALongText_InShortTime) {
  const std::string hex = "00" + std::string(200'000, 'a') + "01";
  EXPECT_EQ(failuresOf("~^00.*01$", hex), Failures{});
  EXPECT_EQ(failuresOf("~(a )+01$|[0-9a-f]+$", hex), Failures{});
  EXPECT_EQ(failuresOf("~02$", hex).size(), 1u);
}

TEST(Pattern, IsComparedInShortTime_WhenThePatternHasManyWays) {
  EXPECT_EQ(failuresOf("~^(a+)+b$", std::string(5'000, 'a')).size(), 1u);
}

TEST(Pattern, IsNotFoundInALongText_WhenThePatternRefersToItsGroup) {
  EXPECT_EQ(failuresOf("~^(a)\\1", std::string(4'000, 'a')), Failures{});
  EXPECT_EQ(failuresOf("~^(a)\\1", std::string(4'001, 'a')).size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Rows, Expectation, ::testing::ValuesIn(rows), [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace orvane::simulation
