#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <string_view>

#include "scenario/report.h"
#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

constexpr const char* editorAndForms = R"({"windows": [{"id": "editor", "process": "Code.exe"}],
  "clipboard": {"html": "a\u0000b", "png": "", "dib": "AQID", "dibv5": "BA=="}})";

HGLOBAL blockOf(std::string_view bytes) {
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (bytes.empty()) return block;
  std::memcpy(::GlobalLock(block), bytes.data(), bytes.size());
  ::GlobalUnlock(block);
  return block;
}

std::string bytesIn(HGLOBAL block) {
  const std::string bytes(static_cast<const char*>(::GlobalLock(block)), ::GlobalSize(block));
  ::GlobalUnlock(block);
  return bytes;
}

class WindowsClipboardFormsTest : public ::testing::Test {
 protected:
  // A window of the host, which may own the clipboard.
  HWND hostWindow() {
    if (window_ == nullptr) window_ = &desktop.world().addHostWindow("main", nullptr);
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window_->handle));
  }

  void openAndEmpty() {
    ASSERT_NE(::OpenClipboard(hostWindow()), FALSE);
    ASSERT_NE(::EmptyClipboard(), FALSE);
  }

  static void close() { EXPECT_NE(::CloseClipboard(), FALSE); }

  std::string read(UINT format) {
    EXPECT_NE(::OpenClipboard(nullptr), FALSE);
    const HGLOBAL block = ::GetClipboardData(format);
    const std::string bytes = block == nullptr ? "(not there)" : bytesIn(block);
    close();
    return bytes;
  }

  // Another program leaves these forms.
  void leave(const std::string& forms) { desktop.perform("editor", R"([{"clipboard": )" + forms + "}]"); }

  Json reported() { return describeDesktop(desktop.world())["clipboard"]; }

  SimulatedDesktop desktop{editorAndForms};
  UINT html = ::RegisterClipboardFormatW(L"HTML Format");
  UINT png = ::RegisterClipboardFormatW(L"PNG");

 private:
  Window* window_ = nullptr;
};

TEST_F(WindowsClipboardFormsTest, Blocks_AreTheScenariosBytes_AndNothingMore) {
  EXPECT_EQ(read(html), std::string("a\0b", 3));
  EXPECT_EQ(read(CF_DIB), "\x01\x02\x03");
  EXPECT_EQ(read(CF_DIBV5), "\x04");
  EXPECT_EQ(read(CF_UNICODETEXT), "(not there)");
}

TEST_F(WindowsClipboardFormsTest, Block_IsThereButCannotBeLocked_WhenItHasNoByte) {
  EXPECT_NE(::IsClipboardFormatAvailable(png), FALSE);
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  const HGLOBAL block = ::GetClipboardData(png);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(::GlobalSize(block), 0u);
  EXPECT_EQ(::GlobalLock(block), nullptr);
  close();
}

TEST_F(WindowsClipboardFormsTest, OtherRegisteredForms_AreNeverThere) {
  const UINT other = ::RegisterClipboardFormatW(L"Rich Text Format");
  EXPECT_GE(other, 0xC000u);
  EXPECT_EQ(::IsClipboardFormatAvailable(other), FALSE);
  EXPECT_EQ(read(other), "(not there)");
}

TEST_F(WindowsClipboardFormsTest, TextBlock_IsHandedOutAsItStands) {
  leave(R"({"textBlock": "cABy"})");  // an odd size and no closing zero
  EXPECT_EQ(read(CF_UNICODETEXT), std::string("p\0r", 3));
  EXPECT_EQ(reported()["text"], "p");
}

TEST_F(WindowsClipboardFormsTest, TextBlock_ReadsUpToItsFirstZero) {
  leave(R"({"textBlock": "cAAAAHIA"})");
  EXPECT_EQ(read(CF_UNICODETEXT), std::string("p\0\0\0r\0", 6));
  EXPECT_EQ(reported()["text"], "p");
  leave(R"({"text": "q"})");
  EXPECT_EQ(read(CF_UNICODETEXT), std::string("q\0\0\0", 4));
}

TEST_F(WindowsClipboardFormsTest, TextBlock_MayBeEmpty) {
  leave(R"({"textBlock": ""})");
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  const HGLOBAL block = ::GetClipboardData(CF_UNICODETEXT);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(::GlobalSize(block), 0u);
  close();
  EXPECT_EQ(reported()["text"], "");
}

TEST_F(WindowsClipboardFormsTest, Forms_OfTheHostReachTheReport) {
  openAndEmpty();
  ASSERT_NE(::SetClipboardData(html, blockOf(std::string_view("<b>\0", 4))), nullptr);
  ASSERT_NE(::SetClipboardData(CF_UNICODETEXT, blockOf(std::string_view("p\0\0\0r\0\0\0", 8))), nullptr);
  close();
  EXPECT_EQ(reported().dump(), R"({"text":"p","html":"<b>","sequence":4})");
  EXPECT_EQ(read(html), std::string("<b>\0", 4));
  EXPECT_EQ(read(CF_UNICODETEXT), std::string("p\0\0\0r\0\0\0", 8));
  EXPECT_EQ(read(CF_DIB), "(not there)");
}

TEST_F(WindowsClipboardFormsTest, Sequence_RisesByOneWithEachChange) {
  EXPECT_EQ(::GetClipboardSequenceNumber(), 1u);
  openAndEmpty();
  EXPECT_EQ(::GetClipboardSequenceNumber(), 2u);
  ASSERT_NE(::SetClipboardData(CF_DIB, blockOf("x")), nullptr);
  EXPECT_EQ(::GetClipboardSequenceNumber(), 3u);
  close();
  leave(R"({"text": "q"})");
  EXPECT_EQ(::GetClipboardSequenceNumber(), 4u);
}

TEST_F(WindowsClipboardFormsTest, Block_IsTheHosts_UntilItIsAccepted) {
  openAndEmpty();
  const HGLOBAL block = blockOf("x");
  EXPECT_EQ(desktop.held("globalBlocks"), 1);
  desktop.setFaults(R"([{"call": "SetClipboardData", "result": null}])");
  EXPECT_EQ(::SetClipboardData(html, block), nullptr);
  EXPECT_EQ(desktop.held("globalBlocks"), 1);
  EXPECT_EQ(::SetClipboardData(html, block), block);
  EXPECT_EQ(desktop.held("globalBlocks"), 0);
  EXPECT_EQ(bytesIn(block), "x");
  close();
}

TEST_F(WindowsClipboardFormsTest, LentBlocks_AreNotHeld) {
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  ASSERT_NE(::GetClipboardData(html), nullptr);
  EXPECT_EQ(desktop.held("globalBlocks"), 0);
  close();
}

TEST_F(WindowsClipboardFormsTest, Setting_Fails_WithoutAnOwner) {
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);
  ASSERT_NE(::EmptyClipboard(), FALSE);
  const HGLOBAL block = blockOf("x");
  EXPECT_EQ(::SetClipboardData(html, block), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
  EXPECT_EQ(::GetClipboardSequenceNumber(), 2u);
  EXPECT_EQ(::GlobalFree(block), nullptr);
  close();
}

TEST_F(WindowsClipboardFormsTest, Setting_Fails_ForAFormatThatCouldNotBeRegistered) {
  desktop.setFaults(R"([{"call": "RegisterClipboardFormatW", "result": 0}])");
  const UINT none = ::RegisterClipboardFormatW(L"HTML Format");
  EXPECT_EQ(none, 0u);
  EXPECT_EQ(read(none), "(not there)");
  openAndEmpty();
  const HGLOBAL block = blockOf("x");
  EXPECT_EQ(::SetClipboardData(none, block), nullptr);
  EXPECT_EQ(::GlobalFree(block), nullptr);
  close();
}

TEST_F(WindowsClipboardFormsTest, Faults_HaveNoEffect) {
  desktop.setFaults(R"([{"call": "EmptyClipboard", "result": false}, {"call": "GlobalAlloc", "result": null},
    {"call": "IsClipboardFormatAvailable", "result": false}, {"call": "GetClipboardSequenceNumber", "result": 9}])");
  ASSERT_NE(::OpenClipboard(hostWindow()), FALSE);
  EXPECT_EQ(::EmptyClipboard(), FALSE);
  close();
  EXPECT_EQ(read(html), std::string("a\0b", 3));
  EXPECT_EQ(::GlobalAlloc(GMEM_MOVEABLE, 4), nullptr);
  EXPECT_EQ(desktop.held("globalBlocks"), 0);
  EXPECT_EQ(::IsClipboardFormatAvailable(html), FALSE);
  EXPECT_EQ(::GetClipboardSequenceNumber(), 9u);
  EXPECT_EQ(::GetClipboardSequenceNumber(), 1u);
}

using WindowsClipboardFormsDeathTest = WindowsClipboardFormsTest;

#define EXPECT_STOP(statement, reason) EXPECT_EXIT(statement, ::testing::ExitedWithCode(3), "simulation: " reason)

TEST_F(WindowsClipboardFormsDeathTest, Run_Stops_AtABlockThatIsNotTheHosts) {
  openAndEmpty();
  const HGLOBAL block = blockOf("x");
  ASSERT_NE(::SetClipboardData(html, block), nullptr);
  EXPECT_STOP(::GlobalFree(block), "GlobalFree: a block that belongs to the clipboard");
  EXPECT_STOP(::SetClipboardData(CF_DIB, block), "SetClipboardData: a block that belongs to the clipboard already");
  close();
  EXPECT_STOP(::GlobalFree(block), "GlobalFree: a block that isn't held");
}

TEST_F(WindowsClipboardFormsDeathTest, Run_Stops_AtASecondFreeAndAtOneOfALockedBlock) {
  const HGLOBAL block = blockOf("x");
  ASSERT_NE(::GlobalLock(block), nullptr);
  EXPECT_STOP(::GlobalFree(block), "GlobalFree: a block that is still locked");
  ::GlobalUnlock(block);
  EXPECT_EQ(::GlobalFree(block), nullptr);
  EXPECT_STOP(::GlobalFree(block), "GlobalFree: a block that isn't held");
}

TEST_F(WindowsClipboardFormsDeathTest, Run_Stops_AtWhatIsNotModelled) {
  EXPECT_STOP(::GlobalAlloc(0, 4), "GlobalAlloc: ");
  EXPECT_STOP(::OpenClipboard(desktop.window("editor")), "OpenClipboard: another program's window isn't modelled");
  EXPECT_STOP(::IsClipboardFormatAvailable(1), "IsClipboardFormatAvailable: a format that isn't modelled");
  const UINT other = ::RegisterClipboardFormatW(L"Rich Text Format");
  const HGLOBAL block = blockOf("x");
  const HGLOBAL empty = blockOf("");
  ASSERT_NE(::OpenClipboard(hostWindow()), FALSE);
  EXPECT_STOP(::SetClipboardData(html, block), "SetClipboardData: adding to what stands there isn't modelled");
  ASSERT_NE(::EmptyClipboard(), FALSE);
  EXPECT_STOP(::SetClipboardData(html, nullptr), "SetClipboardData: a form that is rendered later isn't modelled");
  EXPECT_STOP(::SetClipboardData(html, empty), "SetClipboardData: a block without a byte isn't modelled");
  EXPECT_STOP(::SetClipboardData(other, block), "SetClipboardData: a format that the desktop has no place for");
  close();
  EXPECT_EQ(::GlobalFree(block), nullptr);
  EXPECT_EQ(::GlobalFree(empty), nullptr);
}

}  // namespace
}  // namespace orvane::simulation
