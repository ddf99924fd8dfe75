// Movable blocks: their size, their locks, and what is in them.
#include <windows.h>

#include <cstring>
#include <string_view>

#include "contract/contract_world.h"

namespace orvane::contract {
namespace {

using GlobalMemory = ContractTest;

TEST_F(GlobalMemory, Size_IsWhatWasAskedFor) {
  for (const SIZE_T size : {SIZE_T{1}, SIZE_T{2}, SIZE_T{39}, SIZE_T{170}, SIZE_T{1'000'001}}) {
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, size);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(::GlobalSize(block), size);
    EXPECT_EQ(::GlobalFree(block), nullptr);
  }
}

TEST_F(GlobalMemory, Block_CannotBeLocked_WhenItHasNoByte) {
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, 0);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(::GlobalSize(block), 0u);
  EXPECT_EQ(::GlobalLock(block), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_DISCARDED));
  EXPECT_EQ(::GlobalFree(block), nullptr);
}

TEST_F(GlobalMemory, Content_Stays_BetweenTwoLocks) {
  constexpr std::string_view content = "moved and kept";
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, content.size());
  ASSERT_NE(block, nullptr);
  void* const first = ::GlobalLock(block);
  ASSERT_NE(first, nullptr);
  std::memcpy(first, content.data(), content.size());
  EXPECT_EQ(::GlobalUnlock(block), FALSE);
  const void* const second = ::GlobalLock(block);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(std::memcmp(second, content.data(), content.size()), 0);
  EXPECT_EQ(::GlobalUnlock(block), FALSE);
  EXPECT_EQ(::GlobalFree(block), nullptr);
}

TEST_F(GlobalMemory, Locks_GiveOneAddress_AndAreCounted) {
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, 8);
  ASSERT_NE(block, nullptr);
  const void* const address = ::GlobalLock(block);
  EXPECT_EQ(::GlobalLock(block), address);
  EXPECT_NE(::GlobalUnlock(block), FALSE);
  ::SetLastError(ERROR_INVALID_PARAMETER);
  EXPECT_EQ(::GlobalUnlock(block), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
  EXPECT_EQ(::GlobalFree(block), nullptr);
}

TEST_F(GlobalMemory, Null_IsNoBlock) {
  EXPECT_EQ(::GlobalSize(nullptr), 0u);
  EXPECT_EQ(::GlobalLock(nullptr), nullptr);
  EXPECT_EQ(::GlobalFree(nullptr), nullptr);
}

}  // namespace
}  // namespace orvane::contract
