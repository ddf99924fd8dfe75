#include <oleauto.h>

#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "windows/com.h"
#include "windows/wide_text.h"

namespace orvane::simulation {
namespace {

constexpr std::size_t prefixBytes = 8;  // the length lies in the last four
constexpr std::uint32_t bytesPerUnit = 2;

struct OwnedString {
  std::vector<std::byte> block;
  bool isInVariant = false;
};

std::map<BSTR, OwnedString>& ownedStrings() {
  static std::map<BSTR, OwnedString> strings;
  return strings;
}

BSTR copyString(std::wstring_view text) {
  OwnedString owned;
  owned.block.resize(prefixBytes + (text.size() + 1) * sizeof(wchar_t));
  auto* const units = reinterpret_cast<BSTR>(owned.block.data() + prefixBytes);
  const auto byteLength = static_cast<std::uint32_t>(text.size()) * bytesPerUnit;
  std::memcpy(owned.block.data() + prefixBytes - sizeof byteLength, &byteLength, sizeof byteLength);
  std::copy(text.begin(), text.end(), units);
  ownedStrings().emplace(units, std::move(owned));
  holdNow(held_kind::bstrs, 1);
  return units;
}

void freeString(const char* call, BSTR text) {
  if (text == nullptr) return;
  const auto found = ownedStrings().find(text);
  if (found == ownedStrings().end()) stopRun(call, "a string that isn't held");
  if (found->second.isInVariant) holdNow(held_kind::variants, -1);
  holdNow(held_kind::bstrs, -1);
  ownedStrings().erase(found);
}

UINT lengthOf(const char* call, BSTR text) {
  if (text == nullptr) return 0;
  if (!ownedStrings().contains(text)) stopRun(call, "a string that isn't held");
  std::uint32_t byteLength = 0;
  std::memcpy(&byteLength, reinterpret_cast<const std::byte*>(text) - sizeof byteLength, sizeof byteLength);
  return byteLength / bytesPerUnit;
}

}  // namespace

BSTR makeBstr(TextView text) { return copyString(wideFromText(text)); }

void markInVariant(BSTR text) {
  ownedStrings().at(text).isInVariant = true;
  holdNow(held_kind::variants, 1);
}

Text textOfBstr(BSTR text) { return text == nullptr ? Text() : textFromWide({text, lengthOf("BSTR", text)}); }

}  // namespace orvane::simulation

using namespace orvane::simulation;

BSTR SysAllocString(const OLECHAR* text) {
  if (const auto fault = enter("SysAllocString")) return faulted<BSTR>(*fault);
  return text == nullptr ? nullptr : copyString(text);
}

void SysFreeString(BSTR text) {
  if (enter("SysFreeString")) return;
  freeString("SysFreeString", text);
}

UINT SysStringLen(BSTR text) {
  if (const auto fault = enter("SysStringLen")) return faulted<UINT>(*fault);
  return lengthOf("SysStringLen", text);
}

void VariantInit(VARIANTARG* variant) {
  if (enter("VariantInit")) return;
  *variant = {};
}

HRESULT VariantClear(VARIANTARG* variant) {
  if (const auto fault = enter("VariantClear")) return faulted<HRESULT>(*fault);
  if (variant == nullptr) return E_INVALIDARG;
  if (variant->vt == VT_BSTR) {
    freeString("VariantClear", variant->bstrVal);
  } else if (variant->vt != VT_EMPTY && variant->vt != VT_I4) {
    stopRun("VariantClear", "a kind of value that isn't modelled");
  }
  variant->vt = VT_EMPTY;
  return S_OK;
}
