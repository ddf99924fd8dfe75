#pragma once

#include <string_view>

#include "provider_identity/provider_tables.h"

namespace orvane {

// What the text of an address bar says. It may lack a scheme and may be partly typed; it is never
// parsed as an address in general. All are pure.

// The provider whose form occurs anywhere in the address, path and query included; empty for none.
ProviderKey providerFromAddress(std::wstring_view address);

// The text starts with a web scheme, or names a provider.
bool isAddressText(std::wstring_view text);

// A page of the companies behind the providers that is no provider's chat.
bool isCompanyHomepageAddress(std::wstring_view address);

// A chat or composer page of Claude.
bool isUsableClaudeAddress(std::wstring_view address);

// The page can take a prompt as far as its address tells: only Claude has a rule of its own.
bool isUsableProviderAddress(std::wstring_view providerName, std::wstring_view address);

// The host part of an address, lower-cased: behind the first "://" and in front of the first of "/:?#".
std::wstring hostOfAddress(std::wstring_view address);

}  // namespace orvane
