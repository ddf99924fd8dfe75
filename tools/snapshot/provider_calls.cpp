#include "snapshot/provider_calls.h"

#include <algorithm>
#include <array>

#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane::snapshot {
namespace {

using namespace provider_host;

constexpr std::array<ProviderCall, 8> calls{{
    {L"ChatGPT", chatGptPrimary, L"chatgpt", chatGptLegacy},
    {L"Claude", claude, L"claude", {}},
    {L"Gemini", gemini, L"gemini", {}},
    {L"Perplexity", perplexity, L"perplexity", {}},
    {L"DeepSeek", deepSeekChat, L"deepseek", deepSeekDomain},
    {L"Grok", grok, L"grok", grokOnSecondHost},
    {L"Qwen", qwenChat, L"qwen", qwenSecond},
    {L"Doubao", doubao, L"doubao", {}},
}};

}  // namespace

std::span<const ProviderCall> providerCalls() { return calls; }

const ProviderCall* findProvider(std::wstring_view name) {
  const auto found = std::find_if(calls.begin(), calls.end(),
                                  [&](const ProviderCall& call) { return toLower(call.name) == toLower(name); });
  return found == calls.end() ? nullptr : &*found;
}

const ProviderCall* providerOfAddress(std::wstring_view address) {
  const auto found = std::find_if(calls.begin(), calls.end(), [&](const ProviderCall& call) {
    return textContains(address, call.domain) || textContains(address, call.furtherDomain);
  });
  return found == calls.end() ? nullptr : &*found;
}

}  // namespace orvane::snapshot
