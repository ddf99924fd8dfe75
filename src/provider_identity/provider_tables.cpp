#include "provider_identity/provider_tables.h"

#include <algorithm>
#include <span>

namespace orvane {
namespace {

constexpr std::array<std::wstring_view, 2> doubaoNames{L"doubao", L"豆包"};
constexpr std::array<std::wstring_view, 1> doubaoHosts{provider_host::doubao};
constexpr std::array<std::wstring_view, 6> doubaoWords{L"发消息", L"发送消息", L"输入", L"问豆包", L"message", L"ask"};

constexpr std::array<std::wstring_view, 2> qwenNames{L"qwen", L"通义千问"};
constexpr std::array<std::wstring_view, 2> qwenHosts{provider_host::qwenChat, provider_host::qwenSecond};
constexpr std::array<std::wstring_view, 6> qwenWords{L"message", L"ask", L"prompt", L"输入", L"发送消息", L"提问"};

constexpr std::array<std::wstring_view, 1> deepSeekNames{L"deepseek"};
constexpr std::array<std::wstring_view, 1> deepSeekHosts{provider_host::deepSeekChat};
constexpr std::array<std::wstring_view, 6> deepSeekWords{L"message deepseek", L"message", L"给 deepseek",
                                                         L"发送消息",         L"输入",    L"提问"};

struct ProfileRow {
  std::span<const std::wstring_view> names;
  std::wstring_view displayName;
  std::span<const std::wstring_view> chatHosts;
  std::span<const std::wstring_view> composerWords;
};

constexpr std::array<ProfileRow, 3> profileRows{{
    {doubaoNames, L"Doubao", doubaoHosts, doubaoWords},
    {qwenNames, L"Qwen", qwenHosts, qwenWords},
    {deepSeekNames, L"DeepSeek", deepSeekHosts, deepSeekWords},
}};

const BrowserKind* findBrowser(std::wstring_view imageName) {
  const auto row = std::find_if(browserKinds.begin(), browserKinds.end(),
                                [&](const BrowserKind& kind) { return kind.imageName == imageName; });
  return row == browserKinds.end() ? nullptr : &*row;
}

std::vector<std::wstring> copyTexts(std::span<const std::wstring_view> texts) { return {texts.begin(), texts.end()}; }

}  // namespace

std::wstring browserDisplayName(std::wstring_view imageName) {
  const BrowserKind* kind = findBrowser(imageName);
  return std::wstring(kind != nullptr ? kind->displayName : imageName);
}

bool isSupportedBrowserImage(std::wstring_view imageName) { return findBrowser(imageName) != nullptr; }

BestEffortProfile makeBestEffortProfile(std::wstring_view lowerName) {
  for (const ProfileRow& row : profileRows) {
    if (std::find(row.names.begin(), row.names.end(), lowerName) != row.names.end()) {
      return {std::wstring(row.displayName), copyTexts(row.chatHosts), copyTexts(row.composerWords)};
    }
  }
  return {};
}

}  // namespace orvane
