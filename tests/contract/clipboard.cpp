// Reading the clipboard's text: who may, when, and what the block is.
#include <windows.h>

#include <cstring>
#include <string>

#include "contract/contract_world.h"

namespace orvane::contract {
namespace {

class ClipboardReading : public ContractTest {
 protected:
  ~ClipboardReading() override { ::CloseClipboard(); }

  // The units that lie in a block before its first zero.
  static std::u16string unitsOf(HGLOBAL block) {
    const auto* const bytes = static_cast<const char*>(::GlobalLock(block));
    if (bytes == nullptr) {
      return u"(not locked)";
    }
    std::u16string units;
    for (SIZE_T at = 0; at + sizeof(char16_t) <= ::GlobalSize(block); at += sizeof(char16_t)) {
      char16_t unit = 0;
      std::memcpy(&unit, bytes + at, sizeof unit);
      if (unit == 0) {
        break;
      }
      units.push_back(unit);
    }
    ::GlobalUnlock(block);
    return units;
  }
};

TEST_F(ClipboardReading, Opening_NeedsNoOwner_AndWorksAgainOnceClosed) {
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  EXPECT_NE(::CloseClipboard(), FALSE);
  EXPECT_NE(::OpenClipboard(nullptr), FALSE);
}

TEST_F(ClipboardReading, Closing_Fails_WhenItIsNotOpen) {
  EXPECT_EQ(::CloseClipboard(), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
}

TEST_F(ClipboardReading, Closing_FailsTheSecondTime) {
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  EXPECT_NE(::CloseClipboard(), FALSE);
  EXPECT_EQ(::CloseClipboard(), FALSE);
}

TEST_F(ClipboardReading, Data_IsNull_WhenItIsNotOpen) {
  leaveOnClipboard(L"prompt");
  EXPECT_EQ(::GetClipboardData(CF_UNICODETEXT), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
}

TEST_F(ClipboardReading, Data_IsNull_WhenTheFormatIsMissing) {
  leaveClipboardEmpty();
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  EXPECT_EQ(::GetClipboardData(CF_UNICODETEXT), nullptr);
}

// The size may be rounded up by the platform: it is never smaller than the text with its zero.
TEST_F(ClipboardReading, Block_HoldsTheTextWithItsZero) {
  leaveOnClipboard(L"prompt");
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  const HGLOBAL block = ::GetClipboardData(CF_UNICODETEXT);
  ASSERT_NE(block, nullptr);
  EXPECT_GE(::GlobalSize(block), 14u);
  EXPECT_EQ(unitsOf(block), u"prompt");
}

TEST_F(ClipboardReading, Block_HoldsAZeroAlone_WhenTheTextIsEmpty) {
  leaveOnClipboard(L"");
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  const HGLOBAL block = ::GetClipboardData(CF_UNICODETEXT);
  ASSERT_NE(block, nullptr);
  EXPECT_GE(::GlobalSize(block), 2u);
  EXPECT_EQ(unitsOf(block), u"");
}

TEST_F(ClipboardReading, Block_StaysWithTheClipboard_WhenItWasRead) {
  leaveOnClipboard(L"prompt");
  for (int reading = 0; reading < 2; ++reading) {
    ASSERT_NE(::OpenClipboard(nullptr), FALSE);
    const HGLOBAL block = ::GetClipboardData(CF_UNICODETEXT);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(unitsOf(block), u"prompt");
    EXPECT_NE(::CloseClipboard(), FALSE);
  }
}

TEST_F(ClipboardReading, LastUnlock_GivesFalseWithoutAnError) {
  leaveOnClipboard(L"prompt");
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  const HGLOBAL block = ::GetClipboardData(CF_UNICODETEXT);
  ASSERT_NE(::GlobalLock(block), nullptr);
  ::SetLastError(ERROR_INVALID_PARAMETER);
  EXPECT_EQ(::GlobalUnlock(block), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
}

}  // namespace
}  // namespace orvane::contract
