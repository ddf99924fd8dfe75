// Writing both forms of a draft: limits, the blocks' bytes, and every step that fails.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "clipboard/draft_fixture.h"
#include "clipboard/html_format.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using simulation::Text;
using Bytes = std::vector<std::uint8_t>;

std::string closed(const std::string& block) { return block + std::string(1, '\0'); }

Bytes unitsOf(std::u16string_view units) {
  Bytes bytes;
  for (const char16_t unit : units) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
  }
  return bytes;
}

using DraftWriting = DraftClipboardTest;

TEST_F(DraftWriting, LeavesBothForms) {
  EXPECT_TRUE(write("é豆🚀", "<b>é豆🚀</b>"));

  EXPECT_EQ(content().html, closed(buildHtmlBlock("<b>é豆🚀</b>")));
  EXPECT_EQ(content().bytesOfText(), unitsOf(std::u16string_view(u"é豆🚀\0", 5)));
  EXPECT_EQ(calls("OpenClipboard"), 1);
  EXPECT_EQ(calls("EmptyClipboard"), 1);
  EXPECT_EQ(calls("SetClipboardData"), 2);
  EXPECT_EQ(calls("CloseClipboard"), 1);
  EXPECT_EQ(calls("GlobalFree"), 0) << "both blocks are the clipboard's";
}

TEST_F(DraftWriting, TakesTheOtherFormsAway) {
  content().png = Bytes{1};
  content().dib = Bytes{2};
  EXPECT_TRUE(write("new", "new"));

  EXPECT_EQ(content().png, std::nullopt);
  EXPECT_EQ(content().dib, std::nullopt);
}

TEST_F(DraftWriting, LeavesAnEmptyDocumentAndATextOfOneZero_WhenBothAreEmpty) {
  EXPECT_TRUE(write("", ""));

  EXPECT_EQ(content().html, closed("Version:1.0\r\nStartHTML:0000000105\r\nEndHTML:0000000169\r\n"
                                   "StartFragment:0000000137\r\nEndFragment:0000000137\r\n"
                                   "<html><body><!--StartFragment--><!--EndFragment--></body></html>"));
  EXPECT_EQ(content().bytesOfText(), (Bytes{0, 0}));
  const auto draft = read();
  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, "");
  EXPECT_EQ(draft->text, "");
}

TEST_F(DraftWriting, ComesBackByReading) {
  for (const char* const html : {"<b>new</b>", "a<!--EndFragment-->b", "<!--StartFragment-->", "EndFragment:3",
                                 "StartFragment:0000000001\r\nEndFragment:0000000002", "\xFF\xC3("}) {
    ASSERT_TRUE(write("new\r\n豆", html));
    const auto draft = read();
    ASSERT_TRUE(draft);
    EXPECT_EQ(draft->html, html);
    EXPECT_EQ(draft->text, "new\r\n豆");
  }
}

TEST_F(DraftWriting, KeepsZerosInside_WhichEndWhatIsRead) {
  EXPECT_TRUE(write(std::string("a\0b", 3), std::string("c\0d", 3)));

  EXPECT_EQ(content().html, closed(buildHtmlBlock(std::string("c\0d", 3))));
  EXPECT_EQ(content().bytesOfText(), unitsOf(std::u16string_view(u"a\0b\0", 4)));
  const auto draft = read();
  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->html, "") << "the end lies behind the zero, and so does its marker";
  EXPECT_EQ(draft->text, "a");
}

TEST_F(DraftWriting, ReplacesBadBytesOfTheText_AndNotOfTheHtml) {
  EXPECT_TRUE(write("a\xFF", "a\xFF"));

  EXPECT_EQ(content().text, u"a\uFFFD");
  EXPECT_EQ(content().html, closed(buildHtmlBlock("a\xFF")));
}

TEST_F(DraftWriting, TakesTheGreatestHtml) {
  const std::string html(greatestHtmlBytes, 'x');
  EXPECT_TRUE(write("new", html));

  EXPECT_TRUE(content().html == closed(buildHtmlBlock(html)));
  EXPECT_EQ(content().text, u"new");
}

TEST_F(DraftWriting, DoesNotTouchTheClipboard_WhenTheHtmlIsOneByteLarger) {
  EXPECT_FALSE(write("new", std::string(greatestHtmlBytes + 1, 'x')));

  expectUntouched();
  EXPECT_EQ(calls("GlobalAlloc"), 0);
}

TEST_F(DraftWriting, CountsTheHtmlInBytes) {
  std::string html;
  for (std::size_t count = 0; count < greatestHtmlBytes / 2; ++count) html += "é";
  EXPECT_TRUE(write("", html));
  EXPECT_FALSE(write("", html + "x"));

  EXPECT_TRUE(content().html == closed(buildHtmlBlock(html)));
}

TEST_F(DraftWriting, TakesTheLongestText) {
  EXPECT_TRUE(write(std::string(greatestTextUnits, 'x'), "new"));

  EXPECT_TRUE(content().text == Text(greatestTextUnits, u'x'));
}

TEST_F(DraftWriting, DoesNotTouchTheClipboard_WhenTheTextIsOneUnitLonger) {
  EXPECT_FALSE(write(std::string(greatestTextUnits + 1, 'x'), "new"));

  expectUntouched();
  EXPECT_EQ(calls("GlobalAlloc"), 0);
}

// A rocket is two units and four bytes.
TEST_F(DraftWriting, CountsTheTextInUnits) {
  std::string text;
  for (std::size_t count = 0; count < greatestTextUnits / 2; ++count) text += "🚀";
  EXPECT_FALSE(write(text + "x", "new"));
  expectUntouched();

  EXPECT_TRUE(write(text, "new"));
  EXPECT_EQ(content().text->size(), greatestTextUnits);
}

TEST_F(DraftWriting, CountsAFailedConversionAsEmptyText) {
  for (const int nth : {1, 2}) {
    desktop.setFaults(R"([{"call": "MultiByteToWideChar", "result": 0, "nth": )" + std::to_string(nth) + "}]");
    EXPECT_TRUE(write("new", "new")) << nth;
    EXPECT_EQ(content().bytesOfText(), (Bytes{0, 0})) << nth;
    EXPECT_EQ(content().html, closed(buildHtmlBlock("new"))) << nth;
  }
}

struct WritingFaultRow {
  const char* test;
  const char* faults;
  bool isOpened;            // it got as far as asking
  std::int64_t freedCount;  // blocks that came back to the host
};

class DraftWritingUnchanged : public DraftClipboardTest, public testing::WithParamInterface<WritingFaultRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, DraftWritingUnchanged,
    testing::Values(WritingFaultRow{"FirstBlock", R"([{"call": "GlobalAlloc", "result": null}])", false, 1},
                    WritingFaultRow{"SecondBlock", R"([{"call": "GlobalAlloc", "nth": 2, "result": null}])", false, 1},
                    WritingFaultRow{"BothBlocks", R"([{"call": "GlobalAlloc", "times": 2, "result": null}])", false, 0},
                    WritingFaultRow{"FirstLock", R"([{"call": "GlobalLock", "result": null}])", false, 2},
                    WritingFaultRow{"SecondLock", R"([{"call": "GlobalLock", "nth": 2, "result": null}])", false, 2},
                    WritingFaultRow{"BothLocks", R"([{"call": "GlobalLock", "times": 2, "result": null}])", false, 2},
                    WritingFaultRow{"Opening", R"([{"call": "OpenClipboard", "result": false}])", true, 2},
                    WritingFaultRow{"Emptying", R"([{"call": "EmptyClipboard", "result": false}])", true, 2}),
    nameOfRow<WritingFaultRow>);

TEST_P(DraftWritingUnchanged, FailsAndFreesItsBlocks_WhenAStepFails) {
  desktop.setFaults(GetParam().faults);

  EXPECT_FALSE(write("new", "new"));

  expectUnchanged();
  EXPECT_EQ(calls("OpenClipboard"), GetParam().isOpened ? 1 : 0) << "once, and never before both blocks are there";
  EXPECT_EQ(calls("SetClipboardData"), 0);
  EXPECT_EQ(calls("GlobalFree"), GetParam().freedCount);
  EXPECT_EQ(desktop.held("globalBlocks"), 0);
}

TEST_F(DraftWriting, DoesNotEmptyOrClose_WhenOpeningFails) {
  content().lockedBy = "editor";
  EXPECT_FALSE(write("new", "new"));

  EXPECT_EQ(calls("OpenClipboard"), 1);
  EXPECT_EQ(calls("EmptyClipboard"), 0);
  EXPECT_EQ(calls("CloseClipboard"), 0);
  expectUnchanged();
}

TEST_F(DraftWriting, BuildsBothBlocksBeforeItOpens) {
  content().lockedBy = "editor";
  EXPECT_FALSE(write("new", "new"));

  EXPECT_EQ(calls("GlobalAlloc"), 2);
  EXPECT_EQ(calls("GlobalLock"), 2);
  EXPECT_EQ(calls("GlobalUnlock"), 2);
}

TEST_F(DraftWriting, ClosesTheClipboard_WhenEmptyingFails) {
  desktop.setFaults(R"([{"call": "EmptyClipboard", "result": false}])");
  EXPECT_FALSE(write("new", "new"));

  EXPECT_EQ(calls("CloseClipboard"), 1);
}

struct SettingFaultRow {
  const char* test;
  const char* faults;
  bool hasHtml;
  bool hasText;
};

class DraftSetting : public DraftClipboardTest, public testing::WithParamInterface<SettingFaultRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, DraftSetting,
    testing::Values(
        SettingFaultRow{"Html", R"([{"call": "SetClipboardData", "result": null}])", false, true},
        SettingFaultRow{"Text", R"([{"call": "SetClipboardData", "nth": 2, "result": null}])", true, false},
        SettingFaultRow{"Both", R"([{"call": "SetClipboardData", "times": 2, "result": null}])", false, false},
        SettingFaultRow{"Registration", R"([{"call": "RegisterClipboardFormatW", "result": 0}])", false, true}),
    nameOfRow<SettingFaultRow>);

TEST_P(DraftSetting, LeavesWhatWasAcceptedAndFreesTheRest_WhenAFormFails) {
  desktop.setFaults(GetParam().faults);

  EXPECT_FALSE(write("new", "new"));

  const int acceptedCount = (GetParam().hasHtml ? 1 : 0) + (GetParam().hasText ? 1 : 0);
  EXPECT_EQ(content().html, GetParam().hasHtml ? std::optional(closed(buildHtmlBlock("new"))) : std::nullopt);
  EXPECT_EQ(content().text, GetParam().hasText ? std::optional<Text>(u"new") : std::nullopt);
  EXPECT_EQ(calls("SetClipboardData"), 2) << "the second whatever the first gave";
  EXPECT_EQ(calls("GlobalFree"), 2 - acceptedCount);
  EXPECT_EQ(calls("CloseClipboard"), 1);
  EXPECT_EQ(sequence(), 2U + static_cast<std::uint32_t>(acceptedCount));
}

}  // namespace
}  // namespace orvane
