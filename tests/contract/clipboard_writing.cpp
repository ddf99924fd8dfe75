// Writing the clipboard: who owns a block, in which order the calls come, and what they change.
#include <windows.h>

#include <cstring>
#include <string>
#include <string_view>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

constexpr std::string_view document = std::string_view("<b>a</b>\0", 9);

HGLOBAL blockOf(std::string_view bytes) {
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  void* const address = ::GlobalLock(block);
  if (address == nullptr) return nullptr;
  std::memcpy(address, bytes.data(), bytes.size());
  ::GlobalUnlock(block);
  return block;
}

std::string bytesIn(HGLOBAL block) {
  const auto* const bytes = static_cast<const char*>(::GlobalLock(block));
  if (bytes == nullptr) return "(not locked)";
  std::string copy(bytes, ::GlobalSize(block));
  ::GlobalUnlock(block);
  return copy;
}

class ClipboardWriting : public ContractTest {
 protected:
  ~ClipboardWriting() override {
    ::CloseClipboard();
    if (window_ != nullptr) ::DestroyWindow(window_);
  }

  void SetUp() override {
    leaveClipboardEmpty();
    ASSERT_NE(window_, nullptr);
    ASSERT_NE(html_, 0u);
  }

  void openAndEmpty() {
    ASSERT_NE(::OpenClipboard(window_), FALSE);
    ASSERT_NE(::EmptyClipboard(), FALSE);
  }

  void write(UINT format, std::string_view bytes) {
    const HGLOBAL block = blockOf(bytes);
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(::SetClipboardData(format, block), block);
  }

  std::string read(UINT format) {
    if (::OpenClipboard(window_) == FALSE) return "(not opened)";
    const HGLOBAL block = ::GetClipboardData(format);
    const std::string bytes = block == nullptr ? "(not there)" : bytesIn(block);
    ::CloseClipboard();
    return bytes;
  }

  UINT html_ = ::RegisterClipboardFormatW(L"HTML Format");
  OwnClass class_{L"ClipboardWriting"};
  HWND window_ = class_.makeWindow();
};

TEST_F(ClipboardWriting, Format_IsTheSame_ForItsNameInAnyCase) {
  EXPECT_EQ(::RegisterClipboardFormatW(L"HTML Format"), html_);
  EXPECT_EQ(::RegisterClipboardFormatW(L"html FORMAT"), html_);
  EXPECT_GE(html_, 0xC000u);
  EXPECT_LE(html_, 0xFFFFu);
}

TEST_F(ClipboardWriting, Formats_Differ_ForDifferentNames) {
  const UINT png = ::RegisterClipboardFormatW(L"PNG");
  EXPECT_NE(png, 0u);
  EXPECT_NE(png, html_);
}

TEST_F(ClipboardWriting, Format_IsNone_ForAnEmptyName) {
  EXPECT_EQ(::RegisterClipboardFormatW(L""), 0u);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_NAME));
}

TEST_F(ClipboardWriting, Emptying_Fails_WhenItIsNotOpen) {
  EXPECT_EQ(::EmptyClipboard(), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
}

TEST_F(ClipboardWriting, Emptying_TakesEveryFormAway) {
  leaveOnClipboard(L"prompt");
  EXPECT_NE(::IsClipboardFormatAvailable(CF_UNICODETEXT), FALSE);
  openAndEmpty();
  EXPECT_EQ(::GetClipboardData(CF_UNICODETEXT), nullptr);
  EXPECT_NE(::CloseClipboard(), FALSE);
  EXPECT_EQ(::IsClipboardFormatAvailable(CF_UNICODETEXT), FALSE);
}

TEST_F(ClipboardWriting, Setting_FailsAndLeavesTheBlockToItsOwner_WhenItIsNotOpen) {
  const HGLOBAL block = blockOf(document);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(::SetClipboardData(html_, block), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
  EXPECT_EQ(bytesIn(block), document);
  EXPECT_EQ(::GlobalFree(block), nullptr);
}

TEST_F(ClipboardWriting, Opening_Fails_ForAWindowThatHasGone) {
  const HWND gone = class_.makeWindow();
  ASSERT_NE(::DestroyWindow(gone), FALSE);
  EXPECT_EQ(::OpenClipboard(gone), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST_F(ClipboardWriting, Block_ComesBackByteByByte_WithItsSize) {
  openAndEmpty();
  write(html_, document);
  EXPECT_NE(::CloseClipboard(), FALSE);
  EXPECT_EQ(read(html_), document);
}

TEST_F(ClipboardWriting, Forms_StandTogether_AndNoOtherIsThere) {
  constexpr std::string_view text("p\0r\0\0\0", 6);
  openAndEmpty();
  write(html_, document);
  write(CF_UNICODETEXT, text);
  EXPECT_NE(::CloseClipboard(), FALSE);
  EXPECT_EQ(read(html_), document);
  EXPECT_EQ(read(CF_UNICODETEXT).substr(0, text.size()), text);
  EXPECT_EQ(::IsClipboardFormatAvailable(CF_DIB), FALSE);
  EXPECT_EQ(::IsClipboardFormatAvailable(::RegisterClipboardFormatW(L"PNG")), FALSE);
}

TEST_F(ClipboardWriting, Form_IsAvailable_WithoutOpening) {
  EXPECT_EQ(::IsClipboardFormatAvailable(html_), FALSE);
  openAndEmpty();
  write(html_, document);
  EXPECT_NE(::IsClipboardFormatAvailable(html_), FALSE);
  EXPECT_NE(::CloseClipboard(), FALSE);
  EXPECT_NE(::IsClipboardFormatAvailable(html_), FALSE);
  EXPECT_EQ(::IsClipboardFormatAvailable(0), FALSE);
}

// By how much is the platform's own affair.
TEST_F(ClipboardWriting, Sequence_Rises_WithAChangeAlone) {
  const DWORD before = ::GetClipboardSequenceNumber();
  EXPECT_NE(before, 0u);
  ASSERT_NE(::OpenClipboard(window_), FALSE);
  EXPECT_NE(::CloseClipboard(), FALSE);
  EXPECT_EQ(::GetClipboardSequenceNumber(), before);
  openAndEmpty();
  write(html_, document);
  EXPECT_NE(::CloseClipboard(), FALSE);
  const DWORD written = ::GetClipboardSequenceNumber();
  EXPECT_GT(written, before);
  EXPECT_EQ(read(html_), document);
  EXPECT_EQ(::GetClipboardSequenceNumber(), written);
}

}  // namespace
}  // namespace orvane::contract
