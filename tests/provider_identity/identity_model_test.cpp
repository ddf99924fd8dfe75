#include "provider_identity/identity_model.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <string>

#include "provider_identity/address_rules.h"
#include "provider_identity/candidate_rules.h"
#include "provider_identity/candidates.h"
#include "provider_identity/title_rules.h"

namespace orvane {
namespace {

namespace model = identity_model;

constexpr int rounds = 6000;

// Texts out of the pieces that the rules look for, so that hits, near misses and their mixtures come up.
class Texts {
 public:
  explicit Texts(unsigned seed) : random_(seed) {}

  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
  bool isTrue(unsigned outOf) { return below(outOf) == 0; }

  template <std::size_t Count>
  std::wstring oneOf(const std::array<const wchar_t*, Count>& pieces) {
    return pieces[below(Count)];
  }

  std::wstring title() {
    std::wstring text;
    for (unsigned count = below(5); count > 0; --count) text += oneOf(titlePieces);
    return inSomeCase(text);
  }

  std::wstring address() {
    std::wstring text = oneOf(schemes);
    for (unsigned count = below(4); count > 0; --count) text += oneOf(addressPieces);
    return inSomeCase(text);
  }

  std::wstring name() { return inSomeCase(oneOf(names)); }
  std::wstring browser() { return inSomeCase(oneOf(browsers)); }
  std::wstring automationId() { return inSomeCase(oneOf(automationIds)); }
  std::wstring domain() { return inSomeCase(oneOf(domains)); }

 private:
  std::wstring inSomeCase(std::wstring text) {
    if (isTrue(2)) return text;
    for (wchar_t& unit : text) {
      if (unit >= L'a' && unit <= L'z' && isTrue(3)) unit = static_cast<wchar_t>(unit - 0x20);
    }
    return text;
  }

  static constexpr std::array titlePieces{L"Plan",
                                          L"Recipe ideas",
                                          L" for a week",
                                          L"ChatGPT",
                                          L" - chatgpt",
                                          L"Claude",
                                          L" - claude",
                                          L"google gemini",
                                          L" - ",
                                          L" ",
                                          L"gemini",
                                          L"perplexity",
                                          L" - high memory usage - ",
                                          L" - memory usage - ",
                                          L" - inactive tab - ",
                                          L" - sleeping tab - ",
                                          L" - memory saver - ",
                                          L" - tab sleeping - ",
                                          L"memory saver - ",
                                          L" - memory usage",
                                          L"settings",
                                          L"new tab",
                                          L"chrome",
                                          L"openai",
                                          L"openai |",
                                          L"about openai",
                                          L"\t\n",
                                          L"É豆包",
                                          L"-",
                                          L"microsoft edge",
                                          L"openai: ",
                                          L"1234567"};
  static constexpr std::array schemes{L"", L"https://", L"http://", L"https://www.", L"ftp://"};
  static constexpr std::array addressPieces{L"chatgpt.com",
                                            L"chat.openai.com",
                                            L"openai.com",
                                            L"gemini.google.com",
                                            L"gemini.google",
                                            L"google.com",
                                            L"claude.ai",
                                            L"/chat/",
                                            L"/new",
                                            L"/settings",
                                            L"/",
                                            L"deepseek.com",
                                            L"chat.",
                                            L"grok.com",
                                            L"x.com",
                                            L"/i/grok",
                                            L"perplexity.ai",
                                            L"?q=",
                                            L"anthropic.com",
                                            L"example.org",
                                            L"qianwen.com"};
  static constexpr std::array names{L"chatgpt",    L"chatgpt", L"chatgpt", L"claude",     L"claude",  L"gemini",
                                    L"perplexity", L"grok",    L"",        L"claude pro", L" chatgpt"};
  static constexpr std::array browsers{L"", L"chrome", L"edge", L"firefox"};
  static constexpr std::array automationIds{L"", L"tab-1", L"tab-2"};
  static constexpr std::array domains{L"", L"chatgpt.com", L"claude.ai", L"gemini.google.com", L"example.org", L"/"};

  std::mt19937 random_;
};

TEST(TitleRules, AgreeWithTheModel_ForAnyTitles) {
  Texts texts(11);
  int matches = 0;
  for (int round = 0; round < rounds; ++round) {
    const std::wstring first = texts.title();
    const std::wstring second = texts.isTrue(2) ? texts.title() : first + texts.title();
    const std::wstring name = texts.name();
    ASSERT_EQ(cleanTitle(first), model::clean(first)) << ::testing::PrintToString(first);
    ASSERT_EQ(titlesMatch(first, second), model::match(first, second))
        << ::testing::PrintToString(first) << " and " << ::testing::PrintToString(second);
    ASSERT_EQ(titlesMatch(second, first), titlesMatch(first, second));
    ASSERT_EQ(providerFromTitle(first), model::providerOfTitle(first)) << ::testing::PrintToString(first);
    ASSERT_EQ(titleBelongsToOtherProvider(first, name), model::belongsToOther(first, name))
        << ::testing::PrintToString(first) << " for " << ::testing::PrintToString(name);
    matches += titlesMatch(first, second) ? 1 : 0;
  }
  EXPECT_GT(matches, rounds / 10);
  EXPECT_LT(matches, rounds);
}

TEST(AddressRules, AgreeWithTheModel_ForAnyAddress) {
  Texts texts(12);
  std::map<std::wstring, int> seen;
  for (int round = 0; round < rounds; ++round) {
    const std::wstring address = texts.address();
    ASSERT_EQ(providerFromAddress(address), model::providerOfAddress(address)) << ::testing::PrintToString(address);
    ASSERT_EQ(isAddressText(address), model::isAddress(address)) << ::testing::PrintToString(address);
    ASSERT_EQ(isCompanyHomepageAddress(address), model::isCompanyPage(address)) << ::testing::PrintToString(address);
    ASSERT_EQ(isUsableClaudeAddress(address), model::isUsableClaudePage(address)) << ::testing::PrintToString(address);
    ++seen[providerFromAddress(address)];
  }
  EXPECT_EQ(seen.size(), 7U) << "each provider and none came up";
}

using candidate_tests::namesOf;
using candidate_tests::windowOf;

IdentityRequest makeRequest(Texts& texts) {
  IdentityRequest request;
  request.name = texts.name();
  request.domain = texts.domain();
  if (texts.isTrue(3)) request.patterns = {texts.title(), L"", L"recipe"};
  request.rememberedTitle = texts.isTrue(2) ? L"Recipe ideas" : texts.title();
  request.rememberedAutomationId = texts.automationId();
  request.rememberedBrowser = texts.browser();
  request.rememberedWindow = windowOf(texts.below(3) * 0xA0);
  request.rememberedTabIndex = static_cast<std::int32_t>(texts.below(4)) - 1;
  return request;
}

TabCandidate makeTab(Texts& texts) {
  TabCandidate tab;
  tab.hwnd = windowOf(texts.below(3) * 0xA0);
  tab.browser = texts.browser();
  tab.title = texts.title();
  tab.automationId = texts.automationId();
  tab.tabIndex = static_cast<std::int32_t>(texts.below(3));
  tab.selected = texts.isTrue(2);
  // Both belong to selected tabs; on another one the rules have to leave them alone.
  if (texts.isTrue(2)) tab.url = texts.address();
  tab.verifiedContent = texts.isTrue(4);
  return tab;
}

std::string decisionPart(const std::string& line) {
  const std::string start = "; decision=";
  const std::size_t at = line.rfind(start);
  return at == std::string::npos ? line : line.substr(at + start.size());
}

std::string expectedDecision(const model::Verdict& verdict) {
  return verdict.decision == "ACCEPT" ? "ACCEPT; score=" + std::to_string(verdict.score) : verdict.decision;
}

TEST(CandidateRules, AgreeWithTheModel_ForAnyTab) {
  Texts texts(13);
  std::map<std::string, int> decisions;
  std::set<std::string> flagsSeen;
  for (int round = 0; round < 4 * rounds; ++round) {
    const IdentityRequest request = makeRequest(texts);
    TabCandidate tab = makeTab(texts);
    const model::Verdict expected = model::judge(tab, request);
    SCOPED_TRACE("round " + std::to_string(round) + ", title " + ::testing::PrintToString(tab.title) + ", address " +
                 ::testing::PrintToString(tab.url) + ", name " + ::testing::PrintToString(request.name));

    const IdentityTerms terms = makeIdentityTerms(request);
    const TabFlags flags = evaluateTab(tab, terms);
    const TabDecision decision = decideTab(tab, flags, terms);
    const std::string line = describeTabDecision(1, tab, flags, decision);

    ASSERT_EQ(namesOf(flags), expected.flags);
    ASSERT_EQ(decisionPart(line), expectedDecision(expected));
    ASSERT_EQ(tab.providerMatch, expected.decision == "ACCEPT");
    ASSERT_EQ(tab.explicitMatch, expected.isExplicit);
    ASSERT_EQ(tab.strictTitle, expected.isStrict);
    ++decisions[expected.decision];
    flagsSeen.insert(expected.flags.begin(), expected.flags.end());
  }
  EXPECT_EQ(decisions.size(), 5U) << "each decision came up";
  EXPECT_EQ(flagsSeen.size(), 12U) << "each flag came up";
}

}  // namespace
}  // namespace orvane
