#include "provider_identity/address_rules.h"

#include <algorithm>
#include <array>

#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

struct AddressForm {
  std::wstring_view form;
  std::wstring_view provider;
};

constexpr std::array<AddressForm, 9> addressForms{{
    {provider_host::chatGptPrimary, provider_key::chatGpt},
    {provider_host::chatGptLegacy, provider_key::chatGpt},
    {provider_host::gemini, provider_key::gemini},
    {provider_host::claude, provider_key::claude},
    {provider_host::deepSeekChat, provider_key::deepSeek},
    {provider_host::deepSeekDomain, provider_key::deepSeek},
    {provider_host::grok, provider_key::grok},
    {provider_host::grokOnSecondHost, provider_key::grok},
    {provider_host::perplexity, provider_key::perplexity},
}};

constexpr std::array<std::wstring_view, 4> companyHosts{L"openai.com", L"anthropic.com", L"gemini.google",
                                                        L"google.com"};

constexpr std::array<std::wstring_view, 3> addressFieldWords{L"address", L"omnibox", L"location"};

constexpr std::array<std::wstring_view, 2> webSchemes{L"http://", L"https://"};
constexpr std::wstring_view secureScheme = L"https://";

std::wstring join(std::wstring_view first, std::wstring_view second) {
  std::wstring joined(first);
  joined += second;
  return joined;
}

}  // namespace

ProviderKey providerFromAddress(std::wstring_view address) {
  const std::wstring lower = toLower(address);
  const auto hit = std::find_if(addressForms.begin(), addressForms.end(),
                                [&](const AddressForm& entry) { return contains(lower, entry.form); });
  return hit == addressForms.end() ? ProviderKey() : ProviderKey(hit->provider);
}

bool isAddressText(std::wstring_view text) {
  const std::wstring lower = toLower(text);
  const bool hasScheme = std::any_of(webSchemes.begin(), webSchemes.end(), [&](std::wstring_view scheme) {
    return std::wstring_view(lower).starts_with(scheme);
  });
  return hasScheme || !providerFromAddress(text).empty();
}

bool isCompanyHomepageAddress(std::wstring_view address) {
  if (address.empty() || !providerFromAddress(address).empty()) {
    return false;
  }
  const std::wstring lower = toLower(address);
  return std::any_of(companyHosts.begin(), companyHosts.end(),
                     [&](std::wstring_view host) { return contains(lower, host); });
}

bool isUsableClaudeAddress(std::wstring_view address) {
  const std::wstring lower = toLower(address);
  if (!contains(lower, provider_host::claude)) {
    return false;
  }
  if (contains(lower, join(provider_host::claude, L"/chat/")) ||
      contains(lower, join(provider_host::claude, L"/new"))) {
    return true;
  }
  const std::wstring bareHost = join(secureScheme, provider_host::claude);
  return lower == bareHost + L"/" || lower == bareHost;
}

bool isUsableProviderAddress(std::wstring_view providerName, std::wstring_view address) {
  return toLower(providerName) != provider_key::claude || isUsableClaudeAddress(address);
}

std::wstring hostOfAddress(std::wstring_view address) {
  std::wstring host = toLower(address);
  if (const std::size_t scheme = host.find(L"://"); scheme != std::wstring::npos) {
    host.erase(0, scheme + 3);
  }
  if (const std::size_t end = host.find_first_of(L"/:?#"); end != std::wstring::npos) {
    host.resize(end);
  }
  return host;
}

bool namesAddressField(std::wstring_view name, std::wstring_view automationId, std::wstring_view className) {
  const std::wstring texts = join(join(name, L" "), join(join(automationId, L" "), className));
  return containsAnyOf(toLower(texts), addressFieldWords);
}

std::wstring addressOfField(const AddressFieldTexts& texts) {
  for (const std::wstring* text :
       {&texts.value, &texts.valueProperty, &texts.legacyValue, &texts.helpText, &texts.name}) {
    if (isAddressText(*text)) {
      return *text;
    }
  }
  return {};
}

}  // namespace orvane
