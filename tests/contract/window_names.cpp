#include <windows.h>

#include <string>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

class WindowNames : public ContractTest {
 protected:
  ~WindowNames() override { ::DestroyWindow(window_); }

  std::wstring title() const {
    wchar_t text[64] = {};
    ::GetWindowTextW(window_, text, 64);
    return text;
  }

  OwnClass class_{L"OrvaneContractNames"};
  HWND window_ = class_.makeWindow(L"first");
};

TEST_F(WindowNames, Title_IsReplaced) {
  ASSERT_NE(::SetWindowTextW(window_, L"second: longer"), FALSE);
  EXPECT_EQ(title(), L"second: longer");
  ASSERT_NE(::SetWindowTextW(window_, nullptr), FALSE);
  EXPECT_EQ(title(), L"");
}

TEST_F(WindowNames, ClassName_KeepsItsCase) {
  wchar_t name[128] = {};
  EXPECT_EQ(::GetClassNameW(window_, name, 128), 19);
  EXPECT_EQ(std::wstring(name), L"OrvaneContractNames");
}

TEST_F(WindowNames, ClassName_IsCutToTheBuffer) {
  wchar_t name[7] = {};
  EXPECT_EQ(::GetClassNameW(window_, name, 7), 6);
  EXPECT_EQ(std::wstring(name), L"Orvane");
}

TEST_F(WindowNames, DeadWindow_HasNone) {
  const HWND dead = class_.makeWindow();
  ::DestroyWindow(dead);
  wchar_t name[8] = {};
  EXPECT_EQ(::GetClassNameW(dead, name, 8), 0);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
  EXPECT_EQ(::SetWindowTextW(dead, L"x"), FALSE);
}

TEST_F(WindowNames, OtherProgramsWindow_TellsItsClass) {
  wchar_t name[128] = {};
  EXPECT_GT(::GetClassNameW(openOtherProgram(), name, 128), 0);
}

}  // namespace
}  // namespace orvane::contract
