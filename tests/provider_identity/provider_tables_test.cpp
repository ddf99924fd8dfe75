#include "provider_identity/provider_tables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "provider_identity/text_rules.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using Texts = std::vector<std::wstring>;

struct BrowserRow {
  const char* test;
  std::wstring imageName;
  std::wstring displayName;
};

class BrowserTable : public ::testing::TestWithParam<BrowserRow> {};

TEST_P(BrowserTable, NamesAndSupportsTheBrowser_WhenTheImageNameIsLowerCase) {
  EXPECT_TRUE(isSupportedBrowserImage(GetParam().imageName));
  EXPECT_EQ(browserDisplayName(GetParam().imageName), GetParam().displayName);
}

TEST_P(BrowserTable, IsExact_WhenTheTextIsNearlyAnImageName) {
  const std::wstring image = GetParam().imageName;
  const std::wstring capital = std::wstring(1, static_cast<wchar_t>(image[0] - L'a' + L'A')) + image.substr(1);

  for (const std::wstring& text :
       {capital, L" " + image, image + L" ", image.substr(0, image.size() - 4), image + L".exe", image.substr(1)}) {
    EXPECT_FALSE(isSupportedBrowserImage(text));
    EXPECT_EQ(browserDisplayName(text), text);
  }
}

const std::vector<BrowserRow> browserRows{
    {"Chrome", L"chrome.exe", L"Chrome"},    {"Edge", L"msedge.exe", L"Edge"},        {"Brave", L"brave.exe", L"Brave"},
    {"Firefox", L"firefox.exe", L"Firefox"}, {"Vivaldi", L"vivaldi.exe", L"Vivaldi"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BrowserTable, ::testing::ValuesIn(browserRows), nameOfRow<BrowserRow>);

TEST(BrowserTable, HoldsFiveRowsInTheirOrder) {
  ASSERT_EQ(browserKinds.size(), browserRows.size());
  for (std::size_t index = 0; index < browserRows.size(); ++index) {
    EXPECT_EQ(browserKinds[index].imageName, browserRows[index].imageName);
    EXPECT_EQ(browserKinds[index].displayName, browserRows[index].displayName);
  }
}

TEST(BrowserTable, GivesTheImageNameBack_WhenNoRowHoldsIt) {
  EXPECT_EQ(browserDisplayName(L"opera.exe"), L"opera.exe");
  EXPECT_FALSE(isSupportedBrowserImage(L"opera.exe"));
  EXPECT_EQ(browserDisplayName(L""), L"");
  EXPECT_FALSE(isSupportedBrowserImage(L""));
}

struct ProfileRow {
  const char* test;
  std::wstring lowerName;
  std::wstring displayName;
  Texts chatHosts;
  Texts composerWords;
};

class BestEffortTable : public ::testing::TestWithParam<ProfileRow> {};

TEST_P(BestEffortTable, GivesTheWholeProfile_WhenTheNameIsAccepted) {
  const BestEffortProfile profile = makeBestEffortProfile(GetParam().lowerName);

  EXPECT_EQ(profile.displayName, GetParam().displayName);
  EXPECT_EQ(profile.chatHosts, GetParam().chatHosts);
  EXPECT_EQ(profile.composerWords, GetParam().composerWords);
}

const Texts doubaoWords{L"发消息", L"发送消息", L"输入", L"问豆包", L"message", L"ask"};
const Texts qwenHosts{L"chat.qwen.ai", L"qianwen.com"};
const Texts qwenWords{L"message", L"ask", L"prompt", L"输入", L"发送消息", L"提问"};
const Texts deepSeekWords{L"message deepseek", L"message", L"给 deepseek", L"发送消息", L"输入", L"提问"};

INSTANTIATE_TEST_SUITE_P(
    Rows, BestEffortTable,
    ::testing::Values(ProfileRow{"Doubao", L"doubao", L"Doubao", {L"doubao.com"}, doubaoWords},
                      ProfileRow{"DoubaoInChinese", L"豆包", L"Doubao", {L"doubao.com"}, doubaoWords},
                      ProfileRow{"Qwen", L"qwen", L"Qwen", qwenHosts, qwenWords},
                      ProfileRow{"QwenInChinese", L"通义千问", L"Qwen", qwenHosts, qwenWords},
                      ProfileRow{"DeepSeek", L"deepseek", L"DeepSeek", {L"chat.deepseek.com"}, deepSeekWords}),
    nameOfRow<ProfileRow>);

TEST(BestEffortTable, HasNoProfile_WhenTheNameIsNotAcceptedWhole) {
  for (const wchar_t* name : {L"", L"chatgpt", L"claude", L"gemini", L"perplexity", L"grok", L"DeepSeek", L"deepseek ",
                              L" qwen", L"qwen chat", L"豆", L"通义", L"doubao.com"}) {
    const BestEffortProfile profile = makeBestEffortProfile(name);
    EXPECT_EQ(profile.displayName, L"") << "for " << ::testing::PrintToString(name);
    EXPECT_TRUE(profile.chatHosts.empty());
    EXPECT_TRUE(profile.composerWords.empty());
  }
}

TEST(BestEffortTable, WritesComposerWordsInLowerCase) {
  for (const wchar_t* name : {L"doubao", L"qwen", L"deepseek"}) {
    for (const std::wstring& word : makeBestEffortProfile(name).composerWords) EXPECT_EQ(word, toLower(word));
  }
}

}  // namespace
}  // namespace orvane
