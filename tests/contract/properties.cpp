#include <windows.h>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

HANDLE number(std::uintptr_t value) { return reinterpret_cast<HANDLE>(value); }

class Properties : public ContractTest {
 protected:
  ~Properties() override { ::DestroyWindow(window_); }

  OwnClass class_{L"OrvaneContractProperties"};
  HWND window_ = class_.makeWindow();
};

TEST_F(Properties, Value_IsKept_UntilItIsRemoved) {
  EXPECT_EQ(::GetPropW(window_, L"Orvane.Contract"), nullptr);
  ASSERT_NE(::SetPropW(window_, L"Orvane.Contract", number(1)), FALSE);
  EXPECT_EQ(::GetPropW(window_, L"Orvane.Contract"), number(1));
  ASSERT_NE(::SetPropW(window_, L"Orvane.Contract", number(7)), FALSE);
  EXPECT_EQ(::RemovePropW(window_, L"Orvane.Contract"), number(7));
  EXPECT_EQ(::GetPropW(window_, L"Orvane.Contract"), nullptr);
  EXPECT_EQ(::RemovePropW(window_, L"Orvane.Contract"), nullptr);
}

TEST_F(Properties, Name_IsFoundInAnyCase_AndOnlyWhole) {
  ASSERT_NE(::SetPropW(window_, L"Orvane.Contract", number(3)), FALSE);
  EXPECT_EQ(::GetPropW(window_, L"ORVANE.contract"), number(3));
  EXPECT_EQ(::GetPropW(window_, L"Orvane.Contrac"), nullptr);
  ASSERT_NE(::SetPropW(window_, L"orvane.CONTRACT", number(4)), FALSE);
  EXPECT_EQ(::RemovePropW(window_, L"Orvane.Contract"), number(4));
}

TEST_F(Properties, Value_BelongsToOneWindow) {
  const HWND other = class_.makeWindow();
  ASSERT_NE(::SetPropW(window_, L"Orvane.Contract", number(5)), FALSE);
  EXPECT_EQ(::GetPropW(other, L"Orvane.Contract"), nullptr);
  ::DestroyWindow(other);
}

TEST_F(Properties, DeadWindow_HasNone) {
  const HWND other = class_.makeWindow();
  ASSERT_NE(::SetPropW(other, L"Orvane.Contract", number(5)), FALSE);
  ::DestroyWindow(other);
  EXPECT_EQ(::GetPropW(other, L"Orvane.Contract"), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
  EXPECT_EQ(::SetPropW(other, L"Orvane.Contract", number(5)), FALSE);
  EXPECT_EQ(::RemovePropW(other, L"Orvane.Contract"), nullptr);
}

}  // namespace
}  // namespace orvane::contract
