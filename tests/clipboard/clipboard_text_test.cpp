// What is read of the clipboard, and how its line ends are made equal to a page's.
#include "clipboard/clipboard_text.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <random>
#include <string>

#include "support/row_name.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

constexpr std::size_t greatestBlockUnits = 8'388'608 / 2;

struct LineEndRow {
  const char* test;
  std::wstring text;
  std::wstring normalized;
};

class LineEnds : public testing::TestWithParam<LineEndRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, LineEnds,
    testing::Values(LineEndRow{"Nothing", L"", L""}, LineEndRow{"NoLineEnd", L"one line", L"one line"},
                    LineEndRow{"PairInside", L"a\r\nb", L"a\nb"}, LineEndRow{"PairAtTheStart", L"\r\na", L"\na"},
                    LineEndRow{"PairAtTheEnd", L"a\r\n", L"a\n"}, LineEndRow{"PairAlone", L"\r\n", L"\n"},
                    LineEndRow{"PairsInARow", L"\r\n\r\n", L"\n\n"}, LineEndRow{"LoneLineFeed", L"a\nb", L"a\nb"},
                    LineEndRow{"LoneCarriageReturn", L"a\rb", L"a\rb"},
                    LineEndRow{"CarriageReturnAtTheEnd", L"a\r", L"a\r"},
                    LineEndRow{"CarriageReturnBeforeAPair", L"a\r\r\nb", L"a\r\nb"},
                    LineEndRow{"LineFeedBeforeACarriageReturn", L"a\n\rb", L"a\n\rb"},
                    LineEndRow{"Mixed", L"a\r\nb\nc\rd\r\n", L"a\nb\nc\rd\n"}),
    nameOfRow<LineEndRow>);

TEST_P(LineEnds, LoseTheCarriageReturnOfEachPair) {
  EXPECT_EQ(normalizeLineEnds(GetParam().text), GetParam().normalized);
}

// The same by replacing one pair after the other, left to right.
std::wstring replacePairs(std::wstring text) {
  for (std::size_t at = text.find(L"\r\n"); at != std::wstring::npos; at = text.find(L"\r\n", at + 1)) {
    text.replace(at, 2, L"\n");
  }
  return text;
}

TEST(LineEnds, AreThoseOfAPlainReplacement_WhenTheTextIsRandom) {
  std::mt19937 random(20260301);
  for (int round = 0; round < 2000; ++round) {
    std::wstring text;
    for (auto units = random() % 12; units != 0; --units) {
      text.push_back(L"\r\nab"[random() % 4]);
    }
    ASSERT_EQ(normalizeLineEnds(text), replacePairs(text)) << "round " << round;
  }
}

std::string withText(const std::string& jsonText) {
  return R"({"windows": [{"id": "editor", "process": "Code.exe"}], "clipboard": {"text": ")" + jsonText + R"("}})";
}

void expectClosedAndUnchanged(SimulatedDesktop& desktop) {
  EXPECT_EQ(desktop.held("openClipboard"), 0);
  EXPECT_EQ(desktop.platformCalls("GlobalLock"), desktop.platformCalls("GlobalUnlock"));
  EXPECT_EQ(desktop.world().clipboard.sequence, 1u);
}

TEST(ClipboardText, IsTakenWithItsLineEndsNormalized) {
  SimulatedDesktop desktop(withText(R"(first\r\nsecond\n)"));

  EXPECT_EQ(takeClipboardText(), L"first\nsecond\n");

  EXPECT_EQ(desktop.platformCalls("OpenClipboard"), 1);
  EXPECT_EQ(desktop.platformCalls("CloseClipboard"), 1);
  expectClosedAndUnchanged(desktop);
}

TEST(ClipboardText, KeepsSurrogatesAndUnpairedHalves) {
  SimulatedDesktop desktop(withText(R"(a\ud83c\udfe0b)"));
  desktop.world().clipboard.content.text->push_back(u'\xD83C');

  EXPECT_EQ(takeClipboardText(), (std::wstring{L'a', wchar_t{0xD83C}, wchar_t{0xDFE0}, L'b', wchar_t{0xD83C}}));

  expectClosedAndUnchanged(desktop);
}

TEST(ClipboardText, EndsAtTheFirstZero) {
  SimulatedDesktop desktop(withText(R"(seen\u0000unseen)"));

  EXPECT_EQ(takeClipboardText(), L"seen");
}

TEST(ClipboardText, IsNone_WhenAnotherWindowHoldsTheClipboard) {
  SimulatedDesktop desktop(withText("prompt"));
  desktop.world().clipboard.content.lockedBy = "editor";

  EXPECT_EQ(takeClipboardText(), std::nullopt);

  EXPECT_EQ(desktop.platformCalls("GetClipboardData"), 0);
  EXPECT_EQ(desktop.platformCalls("CloseClipboard"), 0);
  expectClosedAndUnchanged(desktop);
}

TEST(ClipboardText, IsEmpty_WhenTheFormatIsAbsent) {
  SimulatedDesktop desktop(R"({"windows": [], "clipboard": {"html": "<b>prompt</b>"}})");

  EXPECT_EQ(takeClipboardText(), L"");

  EXPECT_EQ(desktop.platformCalls("GlobalSize"), 0);
  expectClosedAndUnchanged(desktop);
}

TEST(ClipboardText, IsEmpty_WhenTheBlockCannotBeLocked) {
  SimulatedDesktop desktop(withText("prompt"));
  desktop.setFaults(R"([{"call": "GlobalLock", "result": null}])");

  EXPECT_EQ(takeClipboardText(), L"");

  EXPECT_EQ(desktop.platformCalls("GlobalUnlock"), 0);
  EXPECT_EQ(desktop.held("openClipboard"), 0);
}

TEST(ClipboardText, IsReadFromAClipboardThatTheCallerHoldsOpen) {
  SimulatedDesktop desktop(withText(R"(first\r\nsecond)"));
  ASSERT_NE(::OpenClipboard(nullptr), FALSE);

  EXPECT_EQ(readClipboardText(), L"first\r\nsecond");
  EXPECT_EQ(readClipboardText(), L"first\r\nsecond");

  EXPECT_EQ(desktop.held("openClipboard"), 1);
  EXPECT_NE(::CloseClipboard(), FALSE);
}

TEST(ClipboardText, IsEmpty_WhenTheClipboardIsNotOpen) {
  SimulatedDesktop desktop(withText("prompt"));

  EXPECT_EQ(readClipboardText(), L"");
}

struct BlockSizeRow {
  const char* test;
  int reportedBytes;
  std::wstring text;
};

class ReportedBlockSize : public testing::TestWithParam<BlockSizeRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, ReportedBlockSize,
    testing::Values(BlockSizeRow{"Nothing", 0, L""}, BlockSizeRow{"OneByte", 1, L""}, BlockSizeRow{"OneUnit", 2, L"p"},
                    BlockSizeRow{"OneUnitAndAByte", 3, L"p"}, BlockSizeRow{"WithoutTheZero", 12, L"prompt"},
                    BlockSizeRow{"WithTheZero", 14, L"prompt"}, BlockSizeRow{"TheGreatest", 8'388'608, L"prompt"},
                    BlockSizeRow{"OneByteTooMany", 8'388'609, L""}, BlockSizeRow{"OneUnitTooMany", 8'388'610, L""}),
    nameOfRow<BlockSizeRow>);

TEST_P(ReportedBlockSize, BoundsTheText) {
  SimulatedDesktop desktop(withText("prompt"));
  desktop.setFaults(R"([{"call": "GlobalSize", "result": )" + std::to_string(GetParam().reportedBytes) + "}]");

  EXPECT_EQ(takeClipboardText(), GetParam().text);

  // A block out of bounds isn't even locked.
  EXPECT_EQ(desktop.platformCalls("GlobalLock"), GetParam().text.empty() ? 0 : 1);
  expectClosedAndUnchanged(desktop);
}

// Real blocks at the limit; the closing zero is a part of the block.
TEST(ClipboardText, IsWhole_WhenItsBlockHasTheGreatestSize) {
  SimulatedDesktop desktop(withText("prompt"));
  desktop.world().clipboard.content.text = simulation::Text(greatestBlockUnits - 1, u'x');

  EXPECT_TRUE(takeClipboardText() == std::wstring(greatestBlockUnits - 1, L'x'));

  expectClosedAndUnchanged(desktop);
}

TEST(ClipboardText, IsEmpty_WhenItsBlockIsOneUnitLarger) {
  SimulatedDesktop desktop(withText("prompt"));
  desktop.world().clipboard.content.text = simulation::Text(greatestBlockUnits, u'x');

  EXPECT_TRUE(takeClipboardText() == std::wstring());

  EXPECT_EQ(desktop.platformCalls("GlobalLock"), 0);
  expectClosedAndUnchanged(desktop);
}

// Without a zero in it the block ends the text.
TEST(ClipboardText, RunsToTheEndOfABlockOfTheGreatestSize_WhenThatHoldsNoZero) {
  SimulatedDesktop desktop(withText("prompt"));
  desktop.world().clipboard.content.text = simulation::Text(greatestBlockUnits, u'x');
  desktop.setFaults(R"([{"call": "GlobalSize", "result": 8388608}])");

  EXPECT_TRUE(takeClipboardText() == std::wstring(greatestBlockUnits, L'x'));

  expectClosedAndUnchanged(desktop);
}

}  // namespace
}  // namespace orvane
