#pragma once

#include <string>
#include <string_view>

#include "provider_identity/provider_tables.h"

namespace orvane {

// What the title of a tab says. All are pure; a title is the tab item's UI Automation name as read.

// Lower-cased, with a browser's status suffix and trailing white space cut off.
std::wstring cleanTitle(std::wstring_view title);

// The provider that the raw title names; empty for none.
ProviderKey providerFromTitle(std::wstring_view title);

// The fuzzy comparison of remembered titles: equal when cleaned, or one contains the other and the
// shorter has at least eight characters.
bool titlesMatch(std::wstring_view first, std::wstring_view second);

// The cleaned title is that of a page of the browser itself, or empty.
bool isNonChatTitle(std::wstring_view title);

// The cleaned title is, or begins as, that of a page of the company behind ChatGPT.
bool isOpenAiCompanyTitle(std::wstring_view title);

// The raw title names a provider whose word `providerName` (a key or a display name) doesn't hold.
bool titleBelongsToOtherProvider(std::wstring_view title, std::wstring_view providerName);

// The title names the provider `key` at the place where its pages put the name.
bool isAnchoredTitle(std::wstring_view title, const ProviderKey& key);

}  // namespace orvane
