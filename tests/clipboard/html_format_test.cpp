// The block of "HTML Format": what is built, and which bytes are taken out of another program's.
#include "clipboard/html_format.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/row_name.h"

namespace orvane {
namespace {

constexpr std::size_t headerBytes = 105;
constexpr std::size_t prefixBytes = 32;
constexpr std::size_t suffixBytes = 32;
constexpr std::size_t keyReachBytes = 4'096;
constexpr std::string_view startKey = "StartFragment:";
constexpr std::string_view endKey = "EndFragment:";
constexpr std::string_view startMarker = "<!--StartFragment-->";
constexpr std::string_view endMarker = "<!--EndFragment-->";

std::string tenDigits(std::size_t number) {
  std::ostringstream digits;
  digits << std::setw(10) << std::setfill('0') << number;
  return digits.str();
}

std::string expectedBlock(const std::string& fragment) {
  const std::size_t start = headerBytes + prefixBytes;
  const std::size_t end = start + fragment.size();
  return "Version:1.0\r\nStartHTML:" + tenDigits(headerBytes) + "\r\nEndHTML:" + tenDigits(end + suffixBytes) +
         "\r\nStartFragment:" + tenDigits(start) + "\r\nEndFragment:" + tenDigits(end) +
         "\r\n<html><body><!--StartFragment-->" + fragment + "<!--EndFragment--></body></html>";
}

TEST(HtmlBlock, IsHeaderAndEmptyDocument_WhenTheFragmentIsEmpty) {
  EXPECT_EQ(buildHtmlBlock(""),
            "Version:1.0\r\n"
            "StartHTML:0000000105\r\n"
            "EndHTML:0000000169\r\n"
            "StartFragment:0000000137\r\n"
            "EndFragment:0000000137\r\n"
            "<html><body><!--StartFragment--><!--EndFragment--></body></html>");
}

TEST(HtmlBlock, PointsAtItsPiecesByByteOffsets) {
  const std::string fragment = "<b>é豆🚀</b>";
  const std::string block = buildHtmlBlock(fragment);

  EXPECT_EQ(block, expectedBlock(fragment));
  EXPECT_EQ(block.find("<html>"), headerBytes);
  EXPECT_EQ(block.find(fragment), headerBytes + prefixBytes);
  EXPECT_EQ(block.find(endMarker), headerBytes + prefixBytes + fragment.size());
  EXPECT_EQ(block.size(), headerBytes + prefixBytes + fragment.size() + suffixBytes);
}

TEST(HtmlBlock, TakesTheFragmentAsItStands) {
  for (const std::string& fragment :
       {std::string("<p>&amp;</p>\r\n"), std::string("a\0b", 3), std::string("\xFF\xC3\x28\xED\xA0\x80"),
        std::string("<!--EndFragment-->"), std::string("</body></html>"), std::string("%s%010u%n")}) {
    EXPECT_EQ(buildHtmlBlock(fragment), expectedBlock(fragment));
  }
}

// The greatest fragment that is ever written.
TEST(HtmlBlock, KeepsTenDigits_WhenTheFragmentIsTheGreatest) {
  const std::string fragment(0x800000, 'x');
  const std::string block = buildHtmlBlock(fragment);

  EXPECT_TRUE(block == expectedBlock(fragment));
  EXPECT_EQ(block.substr(23, 31), "0000000105\r\nEndHTML:0008388777\r");
}

TEST(HtmlFragment, IsTheThreeBytesBetweenTheOffsets) {
  std::string block = expectedBlock("abcdef");
  block.replace(block.find("EndFragment:0000000143"), 22, "EndFragment:0000000140");

  EXPECT_EQ(extractHtmlFragment(block), "abc");
}

// The keys in front, so that small offsets take out a part of "StartFragment:".
std::string headed(const std::string& start, const std::string& end) {
  return "StartFragment:" + start + "\r\nEndFragment:" + end + "\r\n<!--StartFragment-->marked<!--EndFragment-->";
}

struct NumberRow {
  const char* test;
  std::string start;
  std::string end;
  std::string fragment;
};

class HeaderNumbers : public testing::TestWithParam<NumberRow> {};
INSTANTIATE_TEST_SUITE_P(
    Offsets, HeaderNumbers,
    testing::Values(NumberRow{"Plain", "2", "5", "art"}, NumberRow{"FromTheFirstByte", "0", "5", "Start"},
                    NumberRow{"Equal", "3", "3", ""}, NumberRow{"BothNought", "0", "0", ""},
                    NumberRow{"ManyNoughts", "0000000000000000000000000002", "000000000000000000000000005", "art"},
                    NumberRow{"SignedPlus", "+2", "+5", "art"}, NumberRow{"MinusNought", "-0", "5", "Start"},
                    NumberRow{"BlankLed", "  2", "\t5", "art"}, NumberRow{"LineLed", "\r\n\v\f 2", "\n5", "art"},
                    NumberRow{"EndedByALetter", "2x", "5e9", "art"}, NumberRow{"EndedByAPoint", "2.9", "5.9", "art"},
                    NumberRow{"Hexadecimal", "0x2", "5", "Start"}, NumberRow{"OctalLooking", "02", "010", "artFragm"},
                    NumberRow{"SecondNumberBehind", "2 7", "5 9", "art"}),
    nameOfRow<NumberRow>);
INSTANTIATE_TEST_SUITE_P(
    DigitsMissing, HeaderNumbers,
    testing::Values(NumberRow{"AtTheStart", "", "5", "Start"}, NumberRow{"AtBoth", "", "", ""},
                    NumberRow{"AtTheEnd", "5", "", "marked"}, NumberRow{"SignAlone", "-", "5", "Start"},
                    NumberRow{"TwoSigns", "+-2", "5", "Start"}, NumberRow{"SignAndBlank", "- 2", "5", "Start"},
                    NumberRow{"Letters", "two", "five", ""}, NumberRow{"OtherScript", "２", "5", "Start"}),
    nameOfRow<NumberRow>);
INSTANTIATE_TEST_SUITE_P(
    OutOfBounds, HeaderNumbers,
    testing::Values(NumberRow{"EndInFrontOfStart", "5", "2", "marked"}, NumberRow{"NegativeStart", "-1", "5", "marked"},
                    NumberRow{"NegativeEnd", "0", "-1", "marked"}, NumberRow{"NegativeBoth", "-5", "-2", "marked"},
                    NumberRow{"EndBeyond", "0", "1000", "marked"}, NumberRow{"BothBeyond", "1000", "1001", "marked"},
                    NumberRow{"PastThirtyTwoBits", "0", "4294967298", "marked"},
                    NumberRow{"StartPastThirtyTwoBits", "4294967298", "5", "marked"},
                    NumberRow{"NegativePastThirtyTwoBits", "-4294967294", "5", "marked"},
                    NumberRow{"Greatest", "0", "9223372036854775807", "marked"},
                    NumberRow{"PastSixtyFourBits", "0", "18446744073709551618", "marked"},
                    NumberRow{"BothPastSixtyFourBits", "99999999999999999999", "99999999999999999999", "marked"},
                    NumberRow{"NegativePastSixtyFourBits", "-18446744073709551614", "5", "marked"},
                    NumberRow{"HugeDigitRow", std::string(300, '9'), "5", "marked"}),
    nameOfRow<NumberRow>);

TEST_P(HeaderNumbers, ChooseTheBytes) {
  EXPECT_EQ(extractHtmlFragment(headed(GetParam().start, GetParam().end)), GetParam().fragment);
}

TEST(HtmlFragment, MayReachToTheBlocksEnd_AndNotOneByteFurther) {
  const std::size_t length = headed("10", "99").size();
  ASSERT_TRUE(length >= 10 && length < 99) << "as two digits";
  const std::string end = std::to_string(length);
  const std::string beyond = std::to_string(length + 1);

  EXPECT_EQ(extractHtmlFragment(headed("10", end)), headed("10", end).substr(10));
  EXPECT_EQ(extractHtmlFragment(headed(end, end)), "") << "nothing at the very end is a fragment too";
  EXPECT_EQ(extractHtmlFragment(headed("10", beyond)), "marked");
  EXPECT_EQ(extractHtmlFragment(headed(beyond, beyond)), "marked");
}

TEST(HtmlFragment, GoesOutByteByByte_WhenTheOffsetsCutACharacter) {
  const std::string block = "StartFragment:31EndFragment:32 é";
  ASSERT_EQ(block.find("é"), 31U);
  EXPECT_EQ(extractHtmlFragment(block), "\xC3");
}

struct KeyRow {
  const char* test;
  std::string block;
  std::string fragment;
};

const std::string marked = "<!--StartFragment-->marked<!--EndFragment-->";

std::string padded(std::string block, std::size_t sizeBytes) {
  block.resize(sizeBytes, '.');
  return block;
}

class HeaderKeys : public testing::TestWithParam<KeyRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, HeaderKeys,
    testing::Values(
        KeyRow{"EndInFront", "EndFragment:3\r\nStartFragment:1\r\n" + marked, "nd"},
        KeyRow{"TheFirstOfSeveralCounts", "StartFragment:1 StartFragment:2 EndFragment:4 EndFragment:9" + marked,
               "tar"},
        KeyRow{"InsideALongerWord", "MyStartFragment:1YourEndFragment:3" + marked, "yS"},
        KeyRow{"AtTheVeryEnd", "StartFragment:0 EndFragment:", ""},
        KeyRow{"OfOtherCase", "startfragment:1 EndFragment:3" + marked, "marked"},
        KeyRow{"WithoutTheColon", "StartFragment 1 EndFragment 3" + marked, "marked"},
        KeyRow{"BlankInFrontOfTheColon", "StartFragment :1 EndFragment :3" + marked, "marked"},
        KeyRow{"StartAlone", "StartFragment:0" + marked, "marked"},
        KeyRow{"EndAlone", "EndFragment:3" + marked, "marked"},
        KeyRow{"StartAtTheReach", padded("EndFragment:3 ", keyReachBytes) + "StartFragment:1 " + marked, "nd"},
        KeyRow{"StartOneByteFurther", padded("EndFragment:3 ", keyReachBytes + 1) + "StartFragment:1 " + marked,
               "marked"},
        KeyRow{"EndAtTheReach", padded("StartFragment:1 ", keyReachBytes) + "EndFragment:3 " + marked, "ta"},
        KeyRow{"EndOneByteFurther", padded("StartFragment:1 ", keyReachBytes + 1) + "EndFragment:3 " + marked,
               "marked"},
        KeyRow{"BothFarInTheBody", marked + std::string(5'000, '.') + "StartFragment:1 EndFragment:3", "marked"},
        KeyRow{"FarInTheBodyWithoutMarkers", std::string(5'000, '.') + "StartFragment:1 EndFragment:3", ""}),
    nameOfRow<KeyRow>);

TEST_P(HeaderKeys, CountWhereTheyFirstBegin) { EXPECT_EQ(extractHtmlFragment(GetParam().block), GetParam().fragment); }

class Markers : public testing::TestWithParam<KeyRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, Markers,
    testing::Values(
        KeyRow{"Plain", "<p>out</p><!--StartFragment-->in<!--EndFragment--><p>out</p>", "in"},
        KeyRow{"NothingBetween", "<!--StartFragment--><!--EndFragment-->", ""}, KeyRow{"Nothing", "", ""},
        KeyRow{"None", "<p>the whole document</p>", ""}, KeyRow{"StartAlone", "<!--StartFragment-->in", ""},
        KeyRow{"EndAlone", "in<!--EndFragment-->", ""},
        KeyRow{"Reversed", "<!--EndFragment-->in<!--StartFragment-->", ""},
        KeyRow{"ReversedWithASecondEnd", "<!--EndFragment--><!--StartFragment-->in<!--EndFragment-->", ""},
        KeyRow{"NestedStart", "<!--StartFragment-->a<!--StartFragment-->b<!--EndFragment-->", "a<!--StartFragment-->b"},
        KeyRow{"NestedPair", "<!--StartFragment-->a<!--StartFragment-->b<!--EndFragment-->c<!--EndFragment-->",
               "a<!--StartFragment-->b"},
        KeyRow{"SecondEnd", "<!--StartFragment-->a<!--EndFragment-->b<!--EndFragment-->", "a"},
        KeyRow{"EndWithinAnUnfinishedStart", "<!--StartFragment<!--EndFragment-->-->", ""},
        KeyRow{"StartWithinAnUnfinishedEnd", "<!--EndFragment<!--StartFragment-->in", ""},
        KeyRow{"CutEnd", "<!--StartFragment-->in<!--EndFragment--", ""},
        KeyRow{"SpacedOut", "<!-- StartFragment -->in<!-- EndFragment -->", ""},
        KeyRow{"OfOtherCase", "<!--STARTFRAGMENT-->in<!--ENDFRAGMENT-->", ""},
        KeyRow{"WithBadBytes", "<!--StartFragment-->\xFF\xC3<!--EndFragment-->", "\xFF\xC3"}),
    nameOfRow<KeyRow>);

TEST_P(Markers, BoundTheFragment_WhenTheHeaderDoesNotTellIt) {
  EXPECT_EQ(extractHtmlFragment(GetParam().block), GetParam().fragment);
  EXPECT_EQ(extractHtmlFragment("StartFragment:9\r\nEndFragment:2\r\n" + GetParam().block), GetParam().fragment);
  EXPECT_EQ(extractHtmlFragment("StartFragment:0\r\nEndFragment:99999\r\n" + GetParam().block), GetParam().fragment);
}

using Random = std::mt19937;

std::string randomPieces(Random& random, std::size_t greatestCount) {
  static const std::vector<std::string> pieces{std::string(startKey),
                                               std::string(endKey),
                                               std::string(startMarker),
                                               std::string(endMarker),
                                               "\r\n",
                                               " ",
                                               "-",
                                               "+",
                                               "0",
                                               "7",
                                               "12",
                                               "9999999999999999999",
                                               std::string(1, '\0'),
                                               "é",
                                               "\xFF",
                                               "<b>",
                                               "Start",
                                               "Fragment:",
                                               "<!--",
                                               "-->",
                                               "Version:1.0\r\n",
                                               "\v",
                                               "0x1F",
                                               std::string(700, '.')};
  std::string text;
  for (auto count = random() % (greatestCount + 1); count != 0; --count) {
    text += pieces[random() % pieces.size()];
  }
  return text;
}

TEST(HtmlBlock, GivesBackEveryFragment) {
  Random random(20260407);
  for (int round = 0; round < 5'000; ++round) {
    const std::string fragment = randomPieces(random, 12);
    const std::string block = buildHtmlBlock(fragment);
    ASSERT_EQ(block, expectedBlock(fragment)) << "round " << round;
    ASSERT_EQ(extractHtmlFragment(block), fragment) << "round " << round;
  }
}

// A second reader, byte by byte.
class PlainReader {
 public:
  explicit PlainReader(std::string block) : block_(std::move(block)) {}

  std::string fragment() const {
    const long double start = number(startKey);
    const long double end = number(endKey);
    if (start >= 0 && end >= start && end <= static_cast<long double>(block_.size())) {
      return bytes(static_cast<std::size_t>(start), static_cast<std::size_t>(end));
    }
    const std::size_t opens = place(startMarker);
    const std::size_t closes = place(endMarker);
    const bool isBounded = opens != none && closes != none && closes >= opens + 20;
    return isBounded ? bytes(opens + 20, closes) : "";
  }

 private:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  std::size_t place(std::string_view sought) const {
    for (std::size_t at = 0; at + sought.size() <= block_.size(); ++at) {
      std::size_t same = 0;
      while (same < sought.size() && block_[at + same] == sought[same]) ++same;
      if (same == sought.size()) return at;
    }
    return none;
  }

  bool holds(std::size_t at, std::string_view any) const {
    return at < block_.size() && any.find(block_[at]) != std::string_view::npos;
  }

  // Never past 64 bits in a way that matters: no block is so long.
  long double number(std::string_view key) const {
    std::size_t at = place(key);
    if (at == none || at > 4'096) return -1;
    at += key.size();
    while (holds(at, " \t\n\v\f\r")) ++at;
    const bool isNegative = holds(at, "-");
    if (holds(at, "+-")) ++at;
    long double value = 0;
    for (; holds(at, "0123456789"); ++at) value = value * 10 + (block_[at] - '0');
    return isNegative ? -value : value;
  }

  std::string bytes(std::size_t from, std::size_t to) const {
    std::string taken;
    for (; from < to; ++from) taken.push_back(block_[from]);
    return taken;
  }

  std::string block_;
};

TEST(HtmlFragment, IsThatOfAPlainReader_WhenTheBlockIsRandom) {
  Random random(20260408);
  int foundCount = 0;
  for (int round = 0; round < 20'000; ++round) {
    const std::string block = randomPieces(random, 25);
    const std::string fragment = extractHtmlFragment(block);
    ASSERT_EQ(fragment, PlainReader(block).fragment()) << "round " << round;
    foundCount += fragment.empty() ? 0 : 1;
  }
  EXPECT_GT(foundCount, 1'000);
}

TEST(HtmlFragment, IsThatOfAPlainReader_WhenAWrittenBlockIsDamaged) {
  Random random(20260409);
  int otherCount = 0;
  for (int round = 0; round < 20'000; ++round) {
    const std::string fragment = randomPieces(random, 4);
    std::string block = buildHtmlBlock(fragment);
    for (auto count = random() % 4; count != 0; --count) {
      block[random() % expectedBlock("").size()] = "0123456789-+ \r<:S"[random() % 17];
    }
    const std::string found = extractHtmlFragment(block);
    ASSERT_EQ(found, PlainReader(block).fragment()) << "round " << round;
    otherCount += found == fragment ? 0 : 1;
  }
  EXPECT_GT(otherCount, 1'000);
}

TEST(HtmlFragment, IsThatOfAPlainReader_WhenTheBytesAreAny) {
  Random random(20260410);
  for (int round = 0; round < 2'000; ++round) {
    std::string block = random() % 2 == 0 ? "StartFragment:" : "EndFragment:";
    for (auto count = random() % 200; count != 0; --count) block.push_back(static_cast<char>(random() % 256));
    block += "StartFragment:3EndFragment:9";
    ASSERT_EQ(extractHtmlFragment(block), PlainReader(block).fragment()) << "round " << round;
  }
}

}  // namespace
}  // namespace orvane
