// How a word is written, unit by unit.
#include "spelling/word_case.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/row_name.h"

namespace orvane {
namespace {

struct WordRow {
  const char* test;
  std::wstring word;
  bool hasLetter;
  bool allCaps;
  bool mixedCase;
};

class WordCases : public testing::TestWithParam<WordRow> {};

TEST_P(WordCases, AreTold) {
  const WordCase found = classifyWord(GetParam().word);
  EXPECT_EQ(found.hasLetter, GetParam().hasLetter);
  EXPECT_EQ(found.allCaps, GetParam().allCaps);
  EXPECT_EQ(found.mixedCase, GetParam().mixedCase);
}

INSTANTIATE_TEST_SUITE_P(OneCase, WordCases,
                         testing::Values(WordRow{"Nothing", L"", false, false, false},
                                         WordRow{"SmallLetter", L"a", true, false, false},
                                         WordRow{"SmallWord", L"word", true, false, false},
                                         WordRow{"Capital", L"A", true, false, false},
                                         WordRow{"ThreeCapitals", L"USA", true, false, false},
                                         WordRow{"FourCapitals", L"NASA", true, true, false},
                                         WordRow{"ManyCapitals", L"PARLIAMENT", true, true, false}),
                         nameOfRow<WordRow>);

INSTANTIATE_TEST_SUITE_P(BothCases, WordCases,
                         testing::Values(WordRow{"Capitalised", L"Paris", true, false, false},
                                         WordRow{"ShortCapitalised", L"Io", true, false, false},
                                         WordRow{"SmallInFront", L"eBook", true, false, true},
                                         WordRow{"TwoCapitals", L"McKay", true, false, true},
                                         WordRow{"CapitalAtTheEnd", L"hellO", true, false, true},
                                         WordRow{"TwoInARow", L"HEllo", true, false, true},
                                         WordRow{"AllButOne", L"NASa", true, false, true},
                                         WordRow{"TwoLetters", L"aB", true, false, true},
                                         WordRow{"TwoWords", L"New York", true, false, true},
                                         WordRow{"CapitalisedBehindASign", L"-Paris", true, false, false},
                                         WordRow{"CapitalisedBehindADigit", L"3Paris", true, false, false},
                                         WordRow{"SmallBehindASign", L"'tIs", true, false, true}),
                         nameOfRow<WordRow>);

// The length counts every unit, letter or not.
INSTANTIATE_TEST_SUITE_P(DigitsAndSigns, WordCases,
                         testing::Values(WordRow{"Digits", L"1234", false, false, false},
                                         WordRow{"Signs", L"----", false, false, false},
                                         WordRow{"Blank", L" ", false, false, false},
                                         WordRow{"CapitalsAndADigit", L"WORD2", true, true, false},
                                         WordRow{"OneCapitalAmongDigits", L"A123", true, true, false},
                                         WordRow{"OneCapitalBehindDigits", L"123A", true, true, false},
                                         WordRow{"CapitalsAndASign", L"USA.", true, true, false},
                                         WordRow{"CapitalsAndADigitInThreeUnits", L"A12", true, false, false},
                                         WordRow{"SmallAmongDigits", L"a123", true, false, false},
                                         WordRow{"CapitalisedWithDigits", L"Word2", true, false, false},
                                         WordRow{"ZeroUnits", std::wstring(L"A\0\0\0", 4), true, true, false}),
                         nameOfRow<WordRow>);

// Half a surrogate pair is no letter, though it counts as a unit.
INSTANTIATE_TEST_SUITE_P(
    Surrogates, WordCases,
    testing::Values(
        WordRow{
            "PairsAlone", {wchar_t{0xD83D}, wchar_t{0xDE80}, wchar_t{0xD83D}, wchar_t{0xDE80}}, false, false, false},
        WordRow{"CapitalsAroundAPair", {L'A', wchar_t{0xD83D}, wchar_t{0xDE80}, L'B'}, true, true, false},
        WordRow{"CapitalAndAPair", {L'A', wchar_t{0xD83D}, wchar_t{0xDE80}}, true, false, false},
        WordRow{"LoneHalf", {L'a', wchar_t{0xDE80}}, true, false, false},
        // U+10400, a capital letter when its halves stand for one character.
        WordRow{"LetterOutsideThePlane", {wchar_t{0xD801}, wchar_t{0xDC00}, L'a', L'b'}, true, false, false}),
    nameOfRow<WordRow>);

bool isSmall(wchar_t unit) { return unit >= L'a' && unit <= L'z'; }
bool isCapital(wchar_t unit) { return unit >= L'A' && unit <= L'Z'; }

// The same by looking at the letters alone: their kinds in order, "u" or "l".
WordCase classifyPlainly(const std::wstring& word) {
  std::string kinds;
  for (const wchar_t unit : word) {
    if (isCapital(unit)) kinds += 'u';
    if (isSmall(unit)) kinds += 'l';
  }
  const bool hasUpper = kinds.find('u') != std::string::npos;
  const bool hasLower = kinds.find('l') != std::string::npos;
  const bool isCapitalised = kinds.rfind('u') == 0;  // the last capital is the first letter
  return {!kinds.empty(), word.size() >= 4 && hasUpper && !hasLower, hasUpper && hasLower && !isCapitalised};
}

std::wstring randomWord(std::mt19937& random) {
  static const std::wstring units = std::wstring(L"abzABZ09-' ._@[`{") + wchar_t{0xD83D} + wchar_t{0xDE80};
  std::wstring word;
  for (auto count = random() % 9; count != 0; --count) word.push_back(units[random() % units.size()]);
  return word;
}

TEST(WordCases, AreThoseOfAPlainLook_WhenTheWordIsRandom) {
  std::mt19937 random(20260413);
  for (int round = 0; round < 20'000; ++round) {
    const std::wstring word = randomWord(random);
    const WordCase found = classifyWord(word);
    const WordCase expected = classifyPlainly(word);
    ASSERT_EQ(found.hasLetter, expected.hasLetter) << "round " << round;
    ASSERT_EQ(found.allCaps, expected.allCaps) << "round " << round;
    ASSERT_EQ(found.mixedCase, expected.mixedCase) << "round " << round;
    ASSERT_FALSE(found.allCaps && found.mixedCase) << "round " << round;
  }
}

TEST(Units, AreRaisedAndLoweredOneByOne) {
  EXPECT_EQ(loweredUnits(L"WORD2 McKay-"), L"word2 mckay-");
  EXPECT_EQ(raisedUnits(L"word2 McKay-"), L"WORD2 MCKAY-");
  EXPECT_EQ(loweredUnits(L""), L"");
  EXPECT_EQ(raisedUnits(L""), L"");
  EXPECT_EQ(loweredUnits(std::wstring(L"A\0B", 3)), std::wstring(L"a\0b", 3));
  EXPECT_EQ(raisedUnits(std::wstring(L"a\0b", 3)), std::wstring(L"A\0B", 3));
}

TEST(Units, AreKept_WhenTheyAreHalvesOfPairs) {
  const std::wstring capital{wchar_t{0xD801}, wchar_t{0xDC00}};
  const std::wstring small{wchar_t{0xD801}, wchar_t{0xDC28}};
  EXPECT_EQ(loweredUnits(capital), capital);
  EXPECT_EQ(raisedUnits(small), small);
}

TEST(Units, KeepTheirCount_WhenTheWordIsRandom) {
  std::mt19937 random(20260414);
  for (int round = 0; round < 2'000; ++round) {
    const std::wstring word = randomWord(random);
    ASSERT_EQ(loweredUnits(word).size(), word.size());
    ASSERT_EQ(loweredUnits(raisedUnits(word)), loweredUnits(word));
    ASSERT_EQ(classifyWord(loweredUnits(word)).allCaps, false);
  }
}

}  // namespace
}  // namespace orvane
