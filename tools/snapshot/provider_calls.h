#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orvane::snapshot {

// What the interface sends to find a provider.
struct ProviderCall {
  std::wstring_view name;
  std::wstring_view domain;
  std::wstring_view pattern;
  std::wstring_view furtherDomain;  // another address of its pages; empty for none
};

std::span<const ProviderCall> providerCalls();

// By its name in any letter case; null for an unknown one.
const ProviderCall* findProvider(std::wstring_view name);

// The one whose page has this address; null for none.
const ProviderCall* providerOfAddress(std::wstring_view address);

}  // namespace orvane::snapshot
