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
    {"PatternOfNoText", R"({"a":"~1"})", R"({"a":1})", {R"(a: expected "~1", came 1)"}},
    {"AbsentCountIsZero", R"({"platformCalls":{"SendInput":0}})", R"({"platformCalls":{}})", {}},
    {"AbsentCountIsNotOne",
     R"({"desktop":{"invoked":{"w/x":1}}})",
     R"({"desktop":{"invoked":{}}})",
     {"desktop.invoked.w/x: expected 1, came nothing"}},
    {"SeveralFailures", R"({"a":1,"b":2})", R"({"a":2,"b":1})", {"a: expected 1, came 2", "b: expected 2, came 1"}},
};

INSTANTIATE_TEST_SUITE_P(Rows, Expectation, ::testing::ValuesIn(rows), [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace orvane::simulation
