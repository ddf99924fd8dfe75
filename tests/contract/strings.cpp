#include <windows.h>
// windows.h first: the next builds on it.
#include <oleauto.h>

#include <string>

#include "contract/contract_world.h"

namespace orvane::contract {
namespace {

using Strings = ContractTest;

TEST_F(Strings, Bstr_HoldsACopyWithItsLength) {
  std::wstring source = L"prompt";
  BSTR text = ::SysAllocString(source.c_str());
  source[0] = L'X';
  EXPECT_EQ(::SysStringLen(text), 6u);
  EXPECT_EQ(std::wstring(text), L"prompt");
  ::SysFreeString(text);
}

TEST_F(Strings, Bstr_IsNull_ForNull) {
  EXPECT_EQ(::SysAllocString(nullptr), nullptr);
  EXPECT_EQ(::SysStringLen(nullptr), 0u);
  ::SysFreeString(nullptr);
}

TEST_F(Strings, Bstr_IsNotNull_ForAnEmptyText) {
  BSTR text = ::SysAllocString(L"");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(::SysStringLen(text), 0u);
  ::SysFreeString(text);
}

TEST_F(Strings, Variant_IsEmpty_AfterInitAndAfterClear) {
  VARIANT value;
  ::VariantInit(&value);
  EXPECT_EQ(value.vt, VT_EMPTY);
  value.vt = VT_I4;
  value.lVal = -5;
  EXPECT_EQ(::VariantClear(&value), S_OK);
  EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST_F(Strings, Variant_GivesItsStringBack_WhenCleared) {
  VARIANT value;
  ::VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = ::SysAllocString(L"text");
  EXPECT_EQ(::VariantClear(&value), S_OK);
  EXPECT_EQ(value.vt, VT_EMPTY);
  EXPECT_EQ(::VariantClear(&value), S_OK);
}

}  // namespace
}  // namespace orvane::contract
