#include "provider_identity/title_rules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/row_name.h"

namespace orvane {
namespace {

struct TextRow {
  const char* test;
  std::wstring text;
};

class StatusMarker : public ::testing::TestWithParam<TextRow> {};

TEST_P(StatusMarker, CutsTheTitle_WhenItStandsWithBothItsSeparators) {
  const std::wstring& marker = GetParam().text;
  EXPECT_EQ(cleanTitle(L"Plan" + marker + L"1.2 GB"), L"plan");
  EXPECT_EQ(cleanTitle(L"Plan" + marker), L"plan");
  EXPECT_EQ(cleanTitle(L"A" + marker + L"B" + marker + L"C"), L"a");
  EXPECT_EQ(cleanTitle(marker + L"x"), L"");
}

TEST_P(StatusMarker, KeepsTheWords_WhenASeparatorIsMissing) {
  const std::wstring& marker = GetParam().text;
  const std::wstring withoutEnd = L"plan" + marker.substr(0, marker.size() - 3);
  EXPECT_EQ(cleanTitle(withoutEnd), withoutEnd);
  EXPECT_EQ(cleanTitle(withoutEnd + L" -"), withoutEnd + L" -");
  EXPECT_EQ(cleanTitle(withoutEnd + L" - "), L"plan");
  EXPECT_EQ(cleanTitle(L"plan" + marker.substr(3) + L"x"), L"plan" + marker.substr(3) + L"x");
}

TEST_P(StatusMarker, IsFolded) {
  std::wstring shouted = GetParam().text;
  for (wchar_t& unit : shouted) unit = unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - 0x20) : unit;
  EXPECT_EQ(cleanTitle(L"PLAN" + shouted + L"X"), L"plan");
}

const std::vector<TextRow> markerRows{
    {"HighMemoryUsage", L" - high memory usage - "}, {"MemoryUsage", L" - memory usage - "},
    {"InactiveTab", L" - inactive tab - "},          {"SleepingTab", L" - sleeping tab - "},
    {"MemorySaver", L" - memory saver - "},          {"TabSleeping", L" - tab sleeping - "},
};

INSTANTIATE_TEST_SUITE_P(Rows, StatusMarker, ::testing::ValuesIn(markerRows), nameOfRow<TextRow>);

TEST(CleanTitle, KeepsTheShortestPrefix_WhenTwoMarkersStandInTheTitle) {
  for (const TextRow& first : markerRows) {
    for (const TextRow& second : markerRows) {
      EXPECT_EQ(cleanTitle(L"A" + first.text + L"B" + second.text + L"C"), L"a");
    }
  }
}

TEST(CleanTitle, CutsInTheOrderOfTheMarkers_WhenTwoShareASeparator) {
  EXPECT_EQ(cleanTitle(L"Plan - High memory usage - Memory saver - x"), L"plan");
  EXPECT_EQ(cleanTitle(L"Plan - Memory saver - High memory usage - x"), L"plan - memory saver");
}

TEST(CleanTitle, CutsTheMemoryNote_OfASleepingChat) {
  EXPECT_EQ(cleanTitle(L"ChatGPT - High memory usage - 1.2 GB"), L"chatgpt");
  EXPECT_EQ(cleanTitle(L"Plan - Memory Saver - x"), L"plan");
  EXPECT_EQ(cleanTitle(L"Plan - Memory Saver"), L"plan - memory saver");
}

TEST(CleanTitle, RemovesTrailingWhiteSpaceAlone) {
  EXPECT_EQ(cleanTitle(L"  Plan \t\r\n\v\f"), L"  plan");
  EXPECT_EQ(cleanTitle(L"Plan  - memory saver - x"), L"plan");
  EXPECT_EQ(cleanTitle(L" \t\n"), L"");
  EXPECT_EQ(cleanTitle(L""), L"");
}

TEST(CleanTitle, KeepsNotificationCounts) { EXPECT_EQ(cleanTitle(L"(3) ChatGPT"), L"(3) chatgpt"); }

struct TitleWordRow {
  const char* test;
  std::wstring word;
  std::wstring provider;
};

class TitleWord : public ::testing::TestWithParam<TitleWordRow> {};

TEST_P(TitleWord, NamesItsProvider_WhereverItStands) {
  EXPECT_EQ(providerFromTitle(GetParam().word), GetParam().provider);
  EXPECT_EQ(providerFromTitle(L"Plan" + GetParam().word + L" - x"), GetParam().provider);
}

TEST_P(TitleWord, IsForeign_ToEveryOtherName) {
  const std::wstring title = L"Plan" + GetParam().word;
  for (const wchar_t* name :
       {L"chatgpt", L"claude", L"gemini", L"perplexity", L"deepseek", L"grok", L"qwen", L"doubao", L"", L"other"}) {
    EXPECT_EQ(titleBelongsToOtherProvider(title, name), GetParam().provider != name) << ::testing::PrintToString(name);
  }
}

TEST_P(TitleWord, IsNotForeign_WhenTheNameHoldsItsProvider) {
  EXPECT_FALSE(titleBelongsToOtherProvider(L"PLAN" + GetParam().word, L"My " + GetParam().provider + L" Pro"));
}

const std::vector<TitleWordRow> titleWordRows{
    {"SeparatedGemini", L" - google gemini", L"gemini"},
    {"Gemini", L"google gemini", L"gemini"},
    {"Claude", L" - claude", L"claude"},
    {"ChatGpt", L" - chatgpt", L"chatgpt"},
};

INSTANTIATE_TEST_SUITE_P(Rows, TitleWord, ::testing::ValuesIn(titleWordRows), nameOfRow<TitleWordRow>);

TEST(ProviderFromTitle, TakesTheFirstWordOfTheOrder_WhenTwoStandInTheTitle) {
  for (std::size_t first = 0; first < titleWordRows.size(); ++first) {
    for (std::size_t second = first; second < titleWordRows.size(); ++second) {
      EXPECT_EQ(providerFromTitle(L"x" + titleWordRows[second].word + titleWordRows[first].word),
                titleWordRows[first].provider);
    }
  }
}

TEST(ProviderFromTitle, IsEmpty_WhenTheWordHasNoSeparatorInFront) {
  for (const wchar_t* title :
       {L"", L"ChatGPT", L"ChatGPT pricing", L"Claude", L"Talking to Claude", L"-claude", L"Gemini", L" - Gemini",
        L"Plan - Perplexity", L"Plan - DeepSeek", L"Plan - Grok", L"Plan - Qwen", L"Plan - Doubao"}) {
    EXPECT_EQ(providerFromTitle(title), L"") << ::testing::PrintToString(title);
  }
}

TEST(ProviderFromTitle, ReadsTheRawTitle_WhenAStatusSuffixFollows) {
  const std::wstring title = L"Mon plan - ChatGPT - Memory usage - 300 MB";
  EXPECT_EQ(providerFromTitle(title), L"chatgpt");
  EXPECT_EQ(cleanTitle(title), L"mon plan - chatgpt");
  EXPECT_EQ(providerFromTitle(L"Plan - Memory usage - x - Claude"), L"claude");
}

TEST(ProviderFromTitle, KnowsGeminiWithoutTheSeparator) { EXPECT_EQ(providerFromTitle(L"Google Gemini"), L"gemini"); }

TEST(TitlesMatch, IsFalse_WhenTheShorterHasFewerThanEightCharacters) {
  EXPECT_FALSE(titlesMatch(L"Recipe", L"Recipe ideas for a week"));
  EXPECT_FALSE(titlesMatch(L"1234567", L"12345678"));
  EXPECT_FALSE(titlesMatch(L"12345678", L"1234567"));
}

TEST(TitlesMatch, IsTrue_WhenTheLongerContainsAShorterOfEightCharacters) {
  EXPECT_TRUE(titlesMatch(L"Recipe ideas", L"Recipe ideas for a week - ChatGPT"));
  EXPECT_TRUE(titlesMatch(L"x 12345678 y", L"12345678"));
  EXPECT_TRUE(titlesMatch(L"12345678", L"123456789"));
}

TEST(TitlesMatch, IsTrue_WhenBothCleanToTheSame_HoweverShort) {
  EXPECT_TRUE(titlesMatch(L"A", L"a  "));
  EXPECT_TRUE(titlesMatch(L"ChatGPT - Sleeping tab - x", L"chatgpt"));
}

TEST(TitlesMatch, IsFalse_WhenEitherCleansToNothing) {
  EXPECT_FALSE(titlesMatch(L"", L""));
  EXPECT_FALSE(titlesMatch(L"   ", L" "));
  EXPECT_FALSE(titlesMatch(L"Recipe ideas", L""));
  EXPECT_FALSE(titlesMatch(L" - memory saver - Recipe ideas", L"Recipe ideas"));
}

TEST(TitlesMatch, IsFalse_WhenTitlesOfOneLengthDiffer) { EXPECT_FALSE(titlesMatch(L"Recipe ideas", L"Recipe idear")); }

class NonChatTitle : public ::testing::TestWithParam<TextRow> {};

TEST_P(NonChatTitle, IsNoChat_WhenTheTitleIsTheWordWhole) {
  const std::wstring& word = GetParam().text;
  EXPECT_TRUE(isNonChatTitle(word));
  EXPECT_TRUE(isNonChatTitle(word + L" \t"));
  EXPECT_TRUE(isNonChatTitle(word + L" - Sleeping tab - x"));
  EXPECT_FALSE(isNonChatTitle(L" " + word));
  EXPECT_FALSE(isNonChatTitle(word + L" - claude"));
  EXPECT_FALSE(isNonChatTitle(word + L"s"));
}

INSTANTIATE_TEST_SUITE_P(Rows, NonChatTitle,
                         ::testing::Values(TextRow{"NewTab", L"New Tab"}, TextRow{"Settings", L"Settings"},
                                           TextRow{"Downloads", L"Downloads"}, TextRow{"History", L"History"},
                                           TextRow{"Extensions", L"Extensions"}, TextRow{"Bookmarks", L"Bookmarks"},
                                           TextRow{"Chrome", L"Chrome"}, TextRow{"MicrosoftEdge", L"Microsoft Edge"}),
                         nameOfRow<TextRow>);

TEST(IsNonChatTitle, IsTrue_WhenNothingIsLeftOfTheTitle) {
  EXPECT_TRUE(isNonChatTitle(L""));
  EXPECT_TRUE(isNonChatTitle(L" \t \r\n"));
  EXPECT_TRUE(isNonChatTitle(L" - inactive tab - ChatGPT"));
}

TEST(IsNonChatTitle, IsFalse_WhenTheTitleOnlyBeginsWithAWord) {
  EXPECT_FALSE(isNonChatTitle(L"Chrome Web Store"));
  EXPECT_FALSE(isNonChatTitle(L"settings - claude"));
  EXPECT_FALSE(isNonChatTitle(L"Edge"));
}

TEST(IsOpenAiCompanyTitle, KnowsItsFourForms) {
  for (const wchar_t* title : {L"OpenAI", L"openai  ", L"OpenAI | Research", L"OpenAI |", L"OpenAI: news", L"OpenAI:",
                               L"About OpenAI", L"about openai blog", L"OpenAI - Memory saver - x"}) {
    EXPECT_TRUE(isOpenAiCompanyTitle(title)) << ::testing::PrintToString(title);
  }
}

TEST(IsOpenAiCompanyTitle, IsFalse_ForAnyOtherForm) {
  for (const wchar_t* title : {L"", L"Chat with OpenAI", L"OpenAI Platform", L"OpenAI|Research", L" OpenAI",
                               L"OpenAI -", L"Talk about OpenAI", L"ChatGPT"}) {
    EXPECT_FALSE(isOpenAiCompanyTitle(title)) << ::testing::PrintToString(title);
  }
}

TEST(TitleBelongsToOtherProvider, IsTrue_WhenTheTitleHoldsTwoProviders_ForEachOfThem) {
  const std::wstring title = L"Notes - Claude - ChatGPT";
  EXPECT_TRUE(titleBelongsToOtherProvider(title, L"claude"));
  EXPECT_TRUE(titleBelongsToOtherProvider(title, L"chatgpt"));
  EXPECT_FALSE(titleBelongsToOtherProvider(title, L"ChatGPT and Claude"));
}

TEST(TitleBelongsToOtherProvider, ReadsTheRawTitle_WhenASuffixHidesTheWord) {
  EXPECT_TRUE(titleBelongsToOtherProvider(L"Plan - memory saver - x - Claude", L"gemini"));
}

TEST(TitleBelongsToOtherProvider, IsFalse_WhenTheTitleNamesNobody) {
  EXPECT_FALSE(titleBelongsToOtherProvider(L"", L""));
  EXPECT_FALSE(titleBelongsToOtherProvider(L"Talking to Claude", L"gemini"));
  EXPECT_FALSE(titleBelongsToOtherProvider(L"ChatGPT", L"gemini"));
}

TEST(IsAnchoredTitle, IsTrue_WhenTheCleanTitleIsTheKey) {
  EXPECT_TRUE(isAnchoredTitle(L"ChatGPT", L"chatgpt"));
  EXPECT_TRUE(isAnchoredTitle(L"Perplexity - Sleeping tab - x", L"perplexity"));
  EXPECT_FALSE(isAnchoredTitle(L"ChatGPT pricing", L"chatgpt"));
  EXPECT_FALSE(isAnchoredTitle(L"(3) ChatGPT", L"chatgpt"));
  EXPECT_FALSE(isAnchoredTitle(L" ChatGPT", L"chatgpt"));
}

TEST(IsAnchoredTitle, KnowsGeminisWholeName_ForGeminiAlone) {
  EXPECT_TRUE(isAnchoredTitle(L"Google Gemini", L"gemini"));
  EXPECT_TRUE(isAnchoredTitle(L"Notes - Google Gemini", L"gemini"));
  EXPECT_FALSE(isAnchoredTitle(L"Google Gemini", L"claude"));
  EXPECT_TRUE(titleBelongsToOtherProvider(L"Notes - Google Gemini", L"claude"));
}

TEST(IsAnchoredTitle, IsTrue_WhenTheTitleWordIsTheKeys) {
  EXPECT_TRUE(isAnchoredTitle(L"Plan - Claude", L"claude"));
  EXPECT_TRUE(isAnchoredTitle(L"Plan - ChatGPT - Memory usage - 1 MB", L"chatgpt"));
  EXPECT_FALSE(isAnchoredTitle(L"Plan - Claude", L"claude pro"));
  EXPECT_FALSE(isAnchoredTitle(L"Talking to Claude", L"claude"));
}

TEST(IsAnchoredTitle, IsFalse_WhenNobodyIsNamedAndTheKeyIsEmpty) { EXPECT_FALSE(isAnchoredTitle(L"Plan", L"")); }

}  // namespace
}  // namespace orvane
