#include "world/text.h"

#include <gtest/gtest.h>

namespace orvane::simulation {
namespace {

struct Row {
  const char* utf8;
  TextView text;
};

class TextConversion : public ::testing::TestWithParam<Row> {};

TEST_P(TextConversion, Text_ComesOutOfUtf8) { EXPECT_EQ(textFromUtf8(GetParam().utf8), GetParam().text); }

// Broken sequences by the published rule: one U+FFFD for each longest good beginning.
INSTANTIATE_TEST_SUITE_P(Rows, TextConversion,
                         ::testing::Values(Row{"", u""}, Row{"a\xC3\xA4\xE2\x82\xAC", u"a\u00E4\u20AC"},
                                           Row{"\xF0\x9F\x98\x80", u"\U0001F600"}, Row{"\xC3", u"\uFFFD"},
                                           Row{"\xE2\x82z", u"\uFFFDz"}, Row{"\xC0\x80", u"\uFFFD\uFFFD"},
                                           Row{"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"}, Row{"\xFFz", u"\uFFFDz"},
                                           Row{"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}));

TEST(Utf8, Pair_BecomesFourBytes) { EXPECT_EQ(utf8FromText(u"\U0001F600"), "\xF0\x9F\x98\x80"); }

TEST(Utf8, LoneHalf_BecomesReplacement) {
  const Text text{u'a', char16_t{0xD83D}, u'b', char16_t{0xDE00}};
  EXPECT_EQ(utf8FromText(text),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

}  // namespace
}  // namespace orvane::simulation
