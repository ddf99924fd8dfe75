#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <vector>

#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

constexpr const char* editorAndText = R"({"windows": [{"id": "editor", "process": "Code.exe"}],
  "foreground": "editor", "clipboard": {"text": "a\u0000b", "html": "<b>a</b>"}})";

class WindowsClipboardTest : public ::testing::Test {
 protected:
  SimulatedDesktop desktop{editorAndText};

  HGLOBAL openText() {
    EXPECT_NE(::OpenClipboard(nullptr), FALSE);
    return ::GetClipboardData(CF_UNICODETEXT);
  }

  static void close() { EXPECT_NE(::CloseClipboard(), FALSE); }
};

TEST_F(WindowsClipboardTest, Block_IsRealSixteenBitText_WithZeroesAndHalvesAsTheyAre) {
  desktop.world().clipboard.content.text->push_back(u'\xD83D');
  const HGLOBAL block = openText();
  ASSERT_NE(block, nullptr);
  const std::vector<char16_t> expected = {u'a', u'\0', u'b', u'\xD83D', u'\0'};
  ASSERT_EQ(::GlobalSize(block), expected.size() * sizeof(char16_t));
  const void* const bytes = ::GlobalLock(block);
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(std::memcmp(bytes, expected.data(), expected.size() * sizeof(char16_t)), 0);
  ::GlobalUnlock(block);
  close();
}

TEST_F(WindowsClipboardTest, Data_IsTheSameBlock_WhileItIsOpen) {
  const HGLOBAL block = openText();
  EXPECT_EQ(::GetClipboardData(CF_UNICODETEXT), block);
  close();
}

TEST_F(WindowsClipboardTest, Data_FollowsTheClipboard_BetweenTwoOpenings) {
  openText();
  close();
  desktop.perform("editor", R"([{"clipboard": {"text": "longer than before"}}])");
  EXPECT_EQ(::GlobalSize(openText()), 19 * sizeof(char16_t));
  close();
  EXPECT_EQ(desktop.world().clipboard.sequence, 2u);
}

TEST_F(WindowsClipboardTest, Data_IsNull_WhenOnlyAnotherFormIsThere) {
  desktop.perform("editor", R"([{"clipboard": {"html": "<b>a</b>"}}])");
  EXPECT_EQ(openText(), nullptr);
  close();
}

TEST_F(WindowsClipboardTest, Opening_IsDenied_WhileAnotherWindowHoldsIt) {
  desktop.perform("editor", R"([{"clipboard": {"lockedBy": "editor"}}])");
  EXPECT_EQ(::OpenClipboard(nullptr), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
  EXPECT_EQ(desktop.held("openClipboard"), 0);
  EXPECT_EQ(::CloseClipboard(), FALSE);

  desktop.perform("editor", R"([{"clipboard": {"lockedBy": null}}])");
  EXPECT_NE(openText(), nullptr);
  close();
}

TEST_F(WindowsClipboardTest, Opening_IsCounted_UntilClosed) {
  EXPECT_EQ(desktop.held("openClipboard"), 0);
  openText();
  EXPECT_EQ(desktop.held("openClipboard"), 1);
  close();
  EXPECT_EQ(desktop.held("openClipboard"), 0);
}

TEST_F(WindowsClipboardTest, Locks_AreCounted) {
  const HGLOBAL block = openText();
  ASSERT_NE(::GlobalLock(block), nullptr);
  EXPECT_EQ(::GlobalLock(block), ::GlobalLock(block));
  EXPECT_NE(::GlobalUnlock(block), FALSE);
  EXPECT_NE(::GlobalUnlock(block), FALSE);
  EXPECT_EQ(::GlobalUnlock(block), FALSE);
  close();
}

TEST_F(WindowsClipboardTest, Faults_GiveTheirResultAndHaveNoEffect) {
  desktop.setFaults(R"([{"call": "OpenClipboard", "result": false, "lastError": 5},
    {"call": "GetClipboardData", "result": null}, {"call": "GlobalSize", "result": 8388610},
    {"call": "GlobalLock", "result": null}])");
  EXPECT_EQ(::OpenClipboard(nullptr), FALSE);
  EXPECT_EQ(::GetLastError(), 5u);
  EXPECT_EQ(desktop.held("openClipboard"), 0);
  EXPECT_EQ(openText(), nullptr);
  const HGLOBAL block = ::GetClipboardData(CF_UNICODETEXT);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(::GlobalSize(block), 8388610u);
  EXPECT_EQ(::GlobalSize(block), 8u);
  EXPECT_EQ(::GlobalLock(block), nullptr);
  close();
}

TEST_F(WindowsClipboardTest, Opening_WorksAgain_WhenTheCloseWasRefused) {
  desktop.setFaults(R"([{"call": "CloseClipboard", "result": false}, {"call": "GlobalUnlock", "result": false}])");
  const HGLOBAL block = openText();
  ASSERT_NE(::GlobalLock(block), nullptr);
  EXPECT_EQ(::GlobalUnlock(block), FALSE);
  EXPECT_EQ(::CloseClipboard(), FALSE);
  EXPECT_EQ(desktop.held("openClipboard"), 1);
  EXPECT_NE(::OpenClipboard(nullptr), FALSE);
  EXPECT_EQ(desktop.held("openClipboard"), 1);
  close();
  EXPECT_EQ(desktop.held("openClipboard"), 0);
}

using WindowsClipboardDeathTest = WindowsClipboardTest;

TEST_F(WindowsClipboardDeathTest, Run_Stops_AtWhatIsNotModelled) {
  const HGLOBAL block = openText();
  EXPECT_EXIT(::OpenClipboard(nullptr), ::testing::ExitedWithCode(3), "simulation: OpenClipboard: it is open already");
  EXPECT_EXIT(::GetClipboardData(1), ::testing::ExitedWithCode(3), "simulation: GetClipboardData: ");
  EXPECT_EXIT(::GlobalUnlock(block), ::testing::ExitedWithCode(3), "simulation: GlobalUnlock: ");
  close();
}

TEST_F(WindowsClipboardDeathTest, Run_Stops_WhenABlockIsUsedBehindItsTime) {
  const HGLOBAL block = openText();
  close();
  EXPECT_EXIT(::GlobalSize(block), ::testing::ExitedWithCode(3), "simulation: GlobalSize: a block that isn't held");
  EXPECT_EXIT(::GlobalLock(block), ::testing::ExitedWithCode(3), "simulation: GlobalLock: a block that isn't held");
}

TEST_F(WindowsClipboardDeathTest, Run_Stops_WhenABlockIsStillLockedAtTheClose) {
  const HGLOBAL block = openText();
  ASSERT_NE(::GlobalLock(block), nullptr);
  EXPECT_EXIT(::CloseClipboard(), ::testing::ExitedWithCode(3), "simulation: CloseClipboard: a block is still locked");
  ::GlobalUnlock(block);
  close();
}

}  // namespace
}  // namespace orvane::simulation
