#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// A provider's name, lower-cased. Rules compare it with literal words; there is no list of allowed ones.
using ProviderKey = std::wstring;

namespace provider_key {
inline constexpr std::wstring_view chatGpt = L"chatgpt";
inline constexpr std::wstring_view claude = L"claude";
inline constexpr std::wstring_view gemini = L"gemini";
inline constexpr std::wstring_view perplexity = L"perplexity";
inline constexpr std::wstring_view deepSeek = L"deepseek";
inline constexpr std::wstring_view grok = L"grok";
}  // namespace provider_key

namespace provider_host {
inline constexpr std::wstring_view chatGptPrimary = L"chatgpt.com";
inline constexpr std::wstring_view chatGptLegacy = L"chat.openai.com";
inline constexpr std::wstring_view gemini = L"gemini.google.com";
inline constexpr std::wstring_view claude = L"claude.ai";
inline constexpr std::wstring_view deepSeekChat = L"chat.deepseek.com";
inline constexpr std::wstring_view deepSeekDomain = L"deepseek.com";
inline constexpr std::wstring_view grok = L"grok.com";
inline constexpr std::wstring_view grokOnSecondHost = L"x.com/i/grok";
inline constexpr std::wstring_view perplexity = L"perplexity.ai";
inline constexpr std::wstring_view qwenChat = L"chat.qwen.ai";
inline constexpr std::wstring_view qwenSecond = L"qianwen.com";
inline constexpr std::wstring_view doubao = L"doubao.com";
}  // namespace provider_host

// One browser: the image name of its process and the name that crosses the channel.
struct BrowserKind {
  std::wstring_view imageName;
  std::wstring_view displayName;
};

inline constexpr std::array<BrowserKind, 5> browserKinds{{
    {L"chrome.exe", L"Chrome"},
    {L"msedge.exe", L"Edge"},
    {L"brave.exe", L"Brave"},
    {L"firefox.exe", L"Firefox"},
    {L"vivaldi.exe", L"Vivaldi"},
}};

// The display name of a lower-case image name; an image name of no row comes back unchanged.
std::wstring browserDisplayName(std::wstring_view imageName);

// True when the text equals one of the lower-case image names exactly.
bool isSupportedBrowserImage(std::wstring_view imageName);

// A provider that has only best-effort delivery.
struct BestEffortProfile {
  std::wstring displayName;  // empty: no such profile
  std::vector<std::wstring> chatHosts;
  std::vector<std::wstring> composerWords;  // lower case, in the order in which they are tried
};

// The profile of a lower-cased name, compared whole; one without a display name for all others.
BestEffortProfile makeBestEffortProfile(std::wstring_view lowerName);

}  // namespace orvane
