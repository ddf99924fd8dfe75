// Reading both forms of a draft: blocks of other programs, and every step that fails.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "clipboard/draft_fixture.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

using DraftReading = DraftClipboardTest;

TEST_F(DraftReading, GivesBothFormsOfOneOpening) {
  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, "<b>old</b>");
  EXPECT_EQ(draft->text, "old");
  EXPECT_EQ(calls("OpenClipboard"), 1);
  EXPECT_EQ(calls("CloseClipboard"), 1);
  EXPECT_EQ(calls("GlobalLock"), 2);
  EXPECT_EQ(calls("GlobalUnlock"), 2);
  expectUnchanged();
}

TEST_F(DraftReading, FailsAtOnce_WhenTheClipboardCannotBeOpened) {
  content().lockedBy = "editor";
  EXPECT_FALSE(read());
  content().lockedBy.reset();
  desktop.setFaults(R"([{"call": "OpenClipboard", "result": false}])");
  EXPECT_FALSE(read());

  EXPECT_EQ(calls("OpenClipboard"), 2) << "one for each reading";
  EXPECT_EQ(calls("GetClipboardData"), 0);
  EXPECT_EQ(calls("CloseClipboard"), 0);
}

TEST_F(DraftReading, GivesTwoEmptyForms_WhenNothingIsThere) {
  content() = {};
  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, "");
  EXPECT_EQ(draft->text, "");
  EXPECT_EQ(calls("GlobalSize"), 0);
}

TEST_F(DraftReading, GivesNoHtml_WhenTheBlockHasNeitherKeysNorMarkers) {
  content().html = "<html><body>the whole document</body></html>";
  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, "");
  EXPECT_EQ(draft->text, "old");
}

struct ReadingFaultRow {
  const char* test;
  const char* faults;
  const char* html;
  const char* text;
};

class DraftReadingFaults : public DraftClipboardTest, public testing::WithParamInterface<ReadingFaultRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, DraftReadingFaults,
    testing::Values(
        ReadingFaultRow{"HtmlData", R"([{"call": "GetClipboardData", "result": null}])", "", "old"},
        ReadingFaultRow{"HtmlSize", R"([{"call": "GlobalSize", "result": 0}])", "", "old"},
        ReadingFaultRow{"HtmlSizeTooLarge", R"([{"call": "GlobalSize", "result": 8388609}])", "", "old"},
        ReadingFaultRow{"HtmlLock", R"([{"call": "GlobalLock", "result": null}])", "", "old"},
        ReadingFaultRow{"Registration", R"([{"call": "RegisterClipboardFormatW", "result": 0}])", "", "old"},
        ReadingFaultRow{"TextData", R"([{"call": "GetClipboardData", "nth": 2, "result": null}])", "<b>old</b>", ""},
        ReadingFaultRow{"TextSize", R"([{"call": "GlobalSize", "nth": 2, "result": 0}])", "<b>old</b>", ""},
        ReadingFaultRow{"TextLock", R"([{"call": "GlobalLock", "nth": 2, "result": null}])", "<b>old</b>", ""},
        ReadingFaultRow{"Sizing", R"([{"call": "WideCharToMultiByte", "result": 0}])", "<b>old</b>", ""},
        ReadingFaultRow{"SizingBelowNought", R"([{"call": "WideCharToMultiByte", "result": -1}])", "<b>old</b>", ""},
        ReadingFaultRow{"Converting", R"([{"call": "WideCharToMultiByte", "nth": 2, "result": 0}])", "<b>old</b>", ""}),
    nameOfRow<ReadingFaultRow>);

TEST_P(DraftReadingFaults, LoseOneFormAlone) {
  desktop.setFaults(GetParam().faults);

  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, GetParam().html);
  EXPECT_EQ(draft->text, GetParam().text);
  EXPECT_EQ(calls("CloseClipboard"), 1);
  expectUnchanged();
}

struct HtmlSizeRow {
  const char* test;
  std::size_t sizeBytes;
  bool isTaken;
};

class HtmlBlockSizes : public DraftClipboardTest, public testing::WithParamInterface<HtmlSizeRow> {};
INSTANTIATE_TEST_SUITE_P(Each, HtmlBlockSizes,
                         testing::Values(HtmlSizeRow{"Nothing", 0, false}, HtmlSizeRow{"OneByte", 1, true},
                                         HtmlSizeRow{"TheGreatest", greatestBlockBytes, true},
                                         HtmlSizeRow{"OneByteTooMany", greatestBlockBytes + 1, false}),
                         nameOfRow<HtmlSizeRow>);

// The fragment at the block's very end, which has no closing zero.
TEST_P(HtmlBlockSizes, BoundWhatIsRead) {
  const std::string tail = "<!--StartFragment-->tail<!--EndFragment-->";
  const std::size_t sizeBytes = GetParam().sizeBytes;
  const bool hasTail = sizeBytes > tail.size();
  content().html = hasTail ? std::string(sizeBytes - tail.size(), 'x') + tail : std::string(sizeBytes, 'x');

  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, hasTail && GetParam().isTaken ? "tail" : "");
  EXPECT_EQ(draft->text, "old");
  EXPECT_EQ(calls("GlobalLock"), GetParam().isTaken ? 2 : 1) << "one out of bounds isn't even locked";
}

TEST_F(DraftReading, EndsTheHtmlAtItsFirstZero) {
  const std::string keys = "StartFragment:31EndFragment:34 ";
  ASSERT_EQ(keys.size(), 31U);
  content().html = keys + "abc" + std::string(1, '\0') + "def";
  EXPECT_EQ(read()->html, "abc");

  content().html = keys + "ab" + std::string(1, '\0') + "c<!--StartFragment-->marked<!--EndFragment-->";
  EXPECT_EQ(read()->html, "") << "offsets and markers behind the zero don't count";

  content().html = "<!--StartFragment-->a<!--EndFragment-->" + std::string(1, '\0') + "<!--EndFragment-->";
  EXPECT_EQ(read()->html, "a");

  content().html = std::string(1, '\0') + "<!--StartFragment-->a<!--EndFragment-->";
  EXPECT_EQ(read()->html, "");
}

TEST_F(DraftReading, RunsToTheHtmlsEnd_WhenItHoldsNoZero) {
  content().html = "StartFragment:31EndFragment:34 abc";
  EXPECT_EQ(read()->html, "abc");
  content().html = "StartFragment:31EndFragment:35 abc";
  EXPECT_EQ(read()->html, "");
  content().html = "EndFragment:2 StartFragment:";
  EXPECT_EQ(read()->html, "En") << "a key at the block's end has no number behind it";
}

TEST_F(DraftReading, GivesBadBytesOfTheHtmlAsTheyAre) {
  content().html = "<!--StartFragment-->\xFF\xC3<!--EndFragment-->";
  EXPECT_EQ(read()->html, "\xFF\xC3");
}

struct TextBlockRow {
  const char* test;
  Bytes block;
  std::string text;
};

class TextBlocks : public DraftClipboardTest, public testing::WithParamInterface<TextBlockRow> {};
INSTANTIATE_TEST_SUITE_P(Each, TextBlocks,
                         testing::Values(TextBlockRow{"Nothing", {}, ""}, TextBlockRow{"OneByte", {'p'}, ""},
                                         TextBlockRow{"OneUnit", {'p', 0}, "p"},
                                         TextBlockRow{"OneUnitAndAByte", {'p', 0, 'q'}, "p"},
                                         TextBlockRow{"AZeroAlone", {0, 0}, ""},
                                         TextBlockRow{"AZeroAndAByte", {0, 0, 'q'}, ""},
                                         TextBlockRow{"NoZero", {'p', 0, 'q', 0}, "pq"},
                                         TextBlockRow{"AZeroInside", {'p', 0, 0, 0, 'q', 0, 0, 0}, "p"},
                                         TextBlockRow{"ZeroBytesOfTwoUnits", {'p', 1, 0, 1, 0, 0}, "ŰĀ"},
                                         TextBlockRow{"APair", {0x3D, 0xD8, 0x80, 0xDE}, "🚀"},
                                         TextBlockRow{"HalfAPair", {0x3D, 0xD8, 'p', 0}, "\uFFFDp"},
                                         TextBlockRow{"HalfAPairAtTheEnd", {'p', 0, 0x3D, 0xD8}, "p\uFFFD"},
                                         TextBlockRow{"PairCutByTheEnd", {'p', 0, 0x3D, 0xD8, 0x80}, "p\uFFFD"},
                                         TextBlockRow{"LineEnds", {'p', 0, '\r', 0, '\n', 0, 0, 0}, "p\r\n"}),
                         nameOfRow<TextBlockRow>);

TEST_P(TextBlocks, AreReadUnitByUnit) {
  content().setTextBlock(GetParam().block);

  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->text, GetParam().text);
  EXPECT_EQ(draft->html, "<b>old</b>") << "the other form is whole";
  EXPECT_EQ(calls("GlobalLock"), GetParam().block.size() < 2 ? 1 : 2);
}

TEST_F(DraftReading, TakesATextBlockOfTheGreatestSize_AndNoneOneByteLarger) {
  Bytes block;
  for (std::size_t unit = 0; unit < greatestBlockBytes / 2; ++unit) block.insert(block.end(), {'x', 0});
  content().setTextBlock(block);
  EXPECT_TRUE(read()->text == std::string(greatestBlockBytes / 2, 'x'));

  block.push_back(0);
  content().setTextBlock(block);
  EXPECT_EQ(read()->text, "");
}

// What was written at a limit is too large for reading by what stands around it.
TEST_F(DraftReading, RefusesTheGreatestDraft) {
  ASSERT_TRUE(write(std::string(greatestTextUnits, 'x'), std::string(greatestHtmlBytes, 'y')));
  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, "");
  EXPECT_EQ(draft->text, "");
}

TEST_F(DraftReading, TakesTheGreatestDraftWhoseBlocksFit) {
  constexpr std::size_t aroundBytes = 105 + 32 + 32 + 1;
  const std::string text(greatestTextUnits - 1, 'x');
  const std::string html(greatestBlockBytes - aroundBytes, 'y');
  ASSERT_TRUE(write(text, html));
  const auto draft = read();

  ASSERT_TRUE(draft);
  EXPECT_TRUE(draft->html == html);
  EXPECT_TRUE(draft->text == text);
}

}  // namespace
}  // namespace orvane
