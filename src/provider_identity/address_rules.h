#pragma once

#include <string>
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

// The host part of an address, lower-cased: behind the first "://", or from the start where there is
// none, and in front of the first of "/:?#" behind that, or to the end where none of these comes.
std::wstring hostOfAddress(std::wstring_view address);

// The three texts by which an edit control names itself hold a word for a browser's address bar; a
// word doesn't reach from one text into the next.
bool namesAddressField(std::wstring_view name, std::wstring_view automationId, std::wstring_view className);

// The texts of an edit control in which a browser may show its address, in the order in which they count.
struct AddressFieldTexts {
  std::wstring value;          // by the Value pattern
  std::wstring valueProperty;  // UIA_ValueValuePropertyId
  std::wstring legacyValue;    // UIA_LegacyIAccessibleValuePropertyId
  std::wstring helpText;       // UIA_HelpTextPropertyId
  std::wstring name;
};

// The first of the texts that is an address; empty for none.
std::wstring addressOfField(const AddressFieldTexts& texts);

}  // namespace orvane
