#include "provider_identity/text_rules.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <sstream>
#include <string>

namespace orvane {
namespace {

TEST(ToLower, FoldsTheKey_WhenTheNameIsInMixedCase) {
  EXPECT_EQ(toLower(L"ChatGPT"), L"chatgpt");
  EXPECT_EQ(toLower(L"chatgpt"), L"chatgpt");
}

TEST(ToLower, KeepsBlanks_WhenTheNameIsPadded) {
  EXPECT_EQ(toLower(L" ChatGPT"), L" chatgpt");
  EXPECT_NE(toLower(L" ChatGPT"), toLower(L"ChatGPT"));
  EXPECT_EQ(toLower(L"Claude\t"), L"claude\t");
}

TEST(ToLower, FoldsEachAsciiLetterAndNothingElseOfAscii) {
  for (wchar_t unit = 0; unit < 0x80; ++unit) {
    const wchar_t expected = unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + 0x20) : unit;
    EXPECT_EQ(toLower(std::wstring(1, unit)), std::wstring(1, expected));
  }
}

TEST(ToLower, LeavesUnitsAlone_WhenTheyAreNotAscii) {
  const std::wstring text = L"É Ü Ω Ж İ 豆包 \xD83D\xDE00";
  EXPECT_EQ(toLower(text), text);
}

TEST(ToLower, KeepsTheWholeLength_WhenTheTextHoldsNul) {
  const std::wstring text(L"A\0B", 3);
  EXPECT_EQ(toLower(text), std::wstring(L"a\0b", 3));
}

TEST(TextContains, IsFalse_WhenTheNeedleIsEmpty) {
  EXPECT_FALSE(textContains(L"anything", L""));
  EXPECT_FALSE(textContains(L"", L""));
}

TEST(TextContains, FoldsBothSides) {
  EXPECT_TRUE(textContains(L"Plan - CLAUDE", L"Claude"));
  EXPECT_TRUE(textContains(L"plan - claude", L"CLAUDE"));
  EXPECT_TRUE(textContains(L"claude", L"claude"));
}

TEST(TextContains, IsFalse_WhenTheNeedleIsNowhere) {
  EXPECT_FALSE(textContains(L"", L"a"));
  EXPECT_FALSE(textContains(L"claud", L"claude"));
  EXPECT_FALSE(textContains(L"É", L"é"));
}

TEST(TraceSafeText, KeepsTheText_WhenItHas179Or180Bytes) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{179}, std::size_t{180}}) {
    const std::string text(size, 'x');
    EXPECT_EQ(traceSafeText(text), text);
  }
}

TEST(TraceSafeText, CutsTo177BytesAndThreeDots_WhenItHas181Or182Bytes) {
  for (const std::size_t size : {std::size_t{181}, std::size_t{182}, std::size_t{5000}}) {
    const std::string safe = traceSafeText(std::string(size, 'x'));
    EXPECT_EQ(safe.size(), 180U);
    EXPECT_EQ(safe, std::string(177, 'x') + "...");
  }
}

TEST(TraceSafeText, CutsInsideASequence_WhenTheLimitFallsThere) {
  // Two bytes each: the cut takes the first half of the 89th.
  std::string text;
  for (int index = 0; index < 91; ++index) text += "\xC3\xA9";
  EXPECT_EQ(traceSafeText(text), text.substr(0, 177) + "...");
  EXPECT_EQ(traceSafeText(text)[176], '\xC3');
}

TEST(TraceSafeText, CountsBytesOfTheUtf8Form_WhenTheTextIsWide) {
  // 60 characters of three bytes are 180 bytes, 61 are 183.
  const std::wstring fits(60, L'豆');
  const std::wstring tooLong(61, L'豆');
  EXPECT_EQ(traceSafeText(fits).size(), 180U);
  EXPECT_EQ(traceSafeText(fits).substr(177), "\xE8\xB1\x86");
  EXPECT_EQ(traceSafeText(tooLong).substr(177), "...");
  EXPECT_EQ(traceSafeText(tooLong).substr(0, 177), traceSafeText(fits).substr(0, 177));
}

TEST(TraceSafeText, WritesABlankForEachLineEnd) {
  EXPECT_EQ(traceSafeText(std::string_view("a\r\nb")), "a  b");
  EXPECT_EQ(traceSafeText(std::string_view("\n\r\t")), "  \t");
  EXPECT_EQ(traceSafeText(std::string(181, '\n')), std::string(177, ' ') + "...");
}

TEST(TraceSafeText, LeavesTheTextItselfUntouched_WhenItHoldsALineFeed) {
  const std::wstring title = L"Plan\nfor a week";
  EXPECT_EQ(traceSafeText(title), "Plan for a week");
  EXPECT_EQ(title, L"Plan\nfor a week");
}

TEST(TraceSafeText, FollowsItsRule_ForAnyBytes) {
  std::mt19937 random(20240611);
  for (int round = 0; round < 4000; ++round) {
    std::string text(random() % 400, '\0');
    for (char& byte : text) byte = static_cast<char>(random() % 20 == 0 ? "\r\n"[random() % 2] : random() % 256);

    std::string expected;
    for (const char byte : text) expected += byte == '\r' || byte == '\n' ? ' ' : byte;
    if (expected.size() >= 181) expected = expected.substr(0, 177) + "...";
    ASSERT_EQ(traceSafeText(text), expected);
  }
}

TEST(FormatHresult, WritesUpperCaseHexadecimalWithoutLeadingZeros) {
  EXPECT_EQ(formatHresult(0), "0x0");
  EXPECT_EQ(formatHresult(1), "0x1");
  EXPECT_EQ(formatHresult(0x1A), "0x1A");
  EXPECT_EQ(formatHresult(static_cast<std::int32_t>(0x80004005)), "0x80004005");
  EXPECT_EQ(formatHresult(static_cast<std::int32_t>(0x8000FFFF)), "0x8000FFFF");
  EXPECT_EQ(formatHresult(-1), "0xFFFFFFFF");
}

TEST(FormatHandle, WritesLowerCaseHexadecimalWithoutPadding) {
  EXPECT_EQ(formatHandle(0), "0x0");
  EXPECT_EQ(formatHandle(0xAB), "0xab");
  EXPECT_EQ(formatHandle(0x000A0B0C), "0xa0b0c");
  EXPECT_EQ(formatHandle(UINT64_MAX), "0xffffffffffffffff");
}

TEST(Formats, AgreeWithTheStreamsHexadecimal_ForAnyNumber) {
  std::mt19937_64 random(7);
  for (int round = 0; round < 3000; ++round) {
    const std::uint64_t number = random() >> (random() % 64);
    std::ostringstream lower;
    lower << "0x" << std::hex << number;
    ASSERT_EQ(formatHandle(number), lower.str());
    std::ostringstream upper;
    upper << "0x" << std::hex << std::uppercase << static_cast<std::uint32_t>(number);
    ASSERT_EQ(formatHresult(static_cast<std::int32_t>(static_cast<std::uint32_t>(number))), upper.str());
  }
}

TEST(YesNo, WritesSingleLetters) {
  EXPECT_EQ(yesNo(true), "Y");
  EXPECT_EQ(yesNo(false), "N");
}

}  // namespace
}  // namespace orvane
