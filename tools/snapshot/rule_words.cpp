#include "snapshot/rule_words.h"

#include <array>
#include <vector>

#include "provider_identity/provider_tables.h"

namespace orvane::snapshot {
namespace {

using Words = std::vector<std::wstring_view>;

// Path forms count behind their host alone.
constexpr auto furtherAddressForms = std::to_array<std::wstring_view>(
    {L"claude.ai/chat/", L"claude.ai/new", L"www.", L"openai.com", L"anthropic.com", L"gemini.google", L"google.com"});

constexpr auto providerNames = std::to_array<std::wstring_view>(
    {L"chatgpt", L"claude", L"gemini", L"perplexity", L"deepseek", L"grok", L"qwen", L"doubao", L"通义千问", L"豆包"});

constexpr auto titleForms = std::to_array<std::wstring_view>({
    L" - google gemini",
    L"google gemini",
    L" - claude",
    L" - chatgpt",
    L" - high memory usage - ",
    L" - memory usage - ",
    L" - inactive tab - ",
    L" - sleeping tab - ",
    L" - memory saver - ",
    L" - tab sleeping - ",
    L"new tab",
    L"settings",
    L"downloads",
    L"history",
    L"extensions",
    L"bookmarks",
    L"chrome",
    L"microsoft edge",
    L"openai",
    L"openai |",
    L"openai:",
    L"about openai",
    L"\u00B7 work",
});

// A page is searched for these whatever their control; a tab item is one.
constexpr auto pageWords =
    std::to_array<std::wstring_view>({L"ask anything", L"ask a follow-up", L"ask follow-up", L"continue with google",
                                      L"continue with apple", L"continue with email", L"login or sign up"});

constexpr auto controlWords = std::to_array<std::wstring_view>(
    {// fields of the browser
     L"address", L"omnibox", L"location", L"search", L"url", L"search tabs",
     // composers
     L"prompt-textarea", L"message chatgpt", L"prompt", L"message", L"chat", L"ask", L"message deepseek",
     L"给 deepseek", L"发消息", L"发送消息", L"输入", L"问豆包", L"提问",
     // fields that are no composer
     L"email", L"password", L"phone", L"verification", L"搜索", L"邮箱", L"密码", L"手机", L"验证码",
     // Send controls
     L"send", L"send message", L"send prompt", L"submit", L"submit query", L"send query", L"submit search",
     // controls of a page at work
     L"stop response", L"stop generating", L"stop generation", L"cancel response",
     // attachments
     L"remove", L"delete", L"clear", L"attachment", L"file", L"upload",
     // the workspace form of ChatGPT's page and what browsers call their own controls
     L"ask anything", L"google chrome", L"bookmark", L"tab"});

template <typename... Lists>
Words join(const Lists&... lists) {
  Words words;
  words.reserve((lists.size() + ...));
  const auto append = [&words](const auto& list) {
    for (const std::wstring_view word : list) {
      words.push_back(word);
    }
  };
  (append(lists), ...);
  return words;
}

Words makeAddressWords() {
  using namespace provider_host;
  const Words hosts{chatGptPrimary, chatGptLegacy,    gemini,     claude,   deepSeekChat, deepSeekDomain,
                    grok,           grokOnSecondHost, perplexity, qwenChat, qwenSecond,   doubao};
  return join(hosts, furtherAddressForms);
}

}  // namespace

std::span<const std::wstring_view> addressWords() {
  static const Words words = makeAddressWords();
  return words;
}

std::span<const std::wstring_view> titleWords() {
  static const Words words = join(providerNames, titleForms, pageWords);
  return words;
}

std::span<const std::wstring_view> nameWords() {
  static const Words words = join(addressWords(), providerNames, pageWords, controlWords);
  return words;
}

}  // namespace orvane::snapshot
