// The clipboard's image: which form is taken, and what is left alone when a step fails.
#include "clipboard/clipboard_image.h"

#include <gtest/gtest.h>

#include <vector>

#include "clipboard/bitmap_file.h"
#include "support/row_name.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;
using Bytes = std::vector<std::uint8_t>;

// One pixel of 32 bits behind its header; `mark` is the pixel's value.
Bytes bitmapOf(std::uint8_t headerBytes, std::uint8_t mark) {
  Bytes block(headerBytes);
  block[0] = headerBytes;
  block[4] = 1;
  block[8] = 1;
  block[12] = 1;
  block[14] = 32;
  block.insert(block.end(), 4, mark);
  return block;
}

Bytes fileOf(const Bytes& block) { return bitmapFileFromBlock(block.data(), block.size()); }

const Bytes picture{0x89, 'P', 'N', 'G', 0, 0xFF, 0};
const Bytes newBitmap = bitmapOf(124, 5);
const Bytes oldBitmap = bitmapOf(40, 4);

class ClipboardImage : public testing::Test {
 protected:
  // Whatever happened, it is closed as often as opened and nothing is changed.
  void TearDown() override {
    EXPECT_EQ(desktop.held("openClipboard"), 0);
    EXPECT_EQ(desktop.held("globalBlocks"), 0);
    EXPECT_EQ(desktop.world().clipboard.sequence, 1U);
  }

  simulation::ClipboardContent& content() { return desktop.world().clipboard.content; }
  std::int64_t calls(std::string_view name) { return desktop.platformCalls(name); }
  Bytes read() { return readClipboardImage(owner); }

  void leaveAllForms() {
    content().png = picture;
    content().dibv5 = newBitmap;
    content().dib = oldBitmap;
  }

  SimulatedDesktop desktop{R"({"windows": [{"id": "editor", "process": "Code.exe"}]})"};
  HWND owner =
      reinterpret_cast<HWND>(static_cast<std::uintptr_t>(desktop.world().addHostWindow("main", nullptr).handle));
};

TEST_F(ClipboardImage, IsThePicturesBytes_WhenItIsThere) {
  leaveAllForms();
  EXPECT_EQ(read(), picture);

  EXPECT_EQ(calls("GetClipboardData"), 1) << "no bitmap is looked at";
  EXPECT_EQ(calls("OpenClipboard"), 1);
  EXPECT_EQ(calls("CloseClipboard"), 1);
  EXPECT_EQ(calls("GlobalLock"), calls("GlobalUnlock"));
}

TEST_F(ClipboardImage, IsNotExamined_WhenItIsAPicture) {
  content().png = Bytes{0};
  EXPECT_EQ(read(), Bytes{0});
}

TEST_F(ClipboardImage, IsAFileOfTheNewerBitmap_WhenThereIsNoPicture) {
  leaveAllForms();
  content().png.reset();
  const Bytes file = read();

  EXPECT_EQ(file, fileOf(newBitmap));
  ASSERT_GT(file.size(), 14U);
  EXPECT_EQ(file[10], 124 + 14) << "the pixels begin behind both headers";
  EXPECT_EQ(calls("GetClipboardData"), 1);
}

TEST_F(ClipboardImage, IsAFileOfTheOlderBitmap_WhenNothingElseIsThere) {
  content().dib = oldBitmap;
  const Bytes file = read();

  EXPECT_EQ(file, fileOf(oldBitmap));
  ASSERT_GT(file.size(), 14U);
  EXPECT_EQ(file[10], 40 + 14);
}

TEST_F(ClipboardImage, KeepsTheWholeBlock_WhenItIsLong) {
  content().dib = bitmapOf(40, 4);
  content().dib->insert(content().dib->begin() + 40, 5'000'000, 9);
  EXPECT_TRUE(read() == fileOf(*content().dib));
}

TEST_F(ClipboardImage, IsNone_WhenThereIsTextAlone) {
  content().setText(u"text");
  content().html = "<b>text</b>";
  EXPECT_TRUE(read().empty());

  EXPECT_EQ(calls("GetClipboardData"), 0);
  EXPECT_EQ(calls("CloseClipboard"), 1);
}

TEST_F(ClipboardImage, IsNone_WhenTheClipboardCannotBeOpened) {
  leaveAllForms();
  content().lockedBy = "editor";
  EXPECT_TRUE(read().empty());
  content().lockedBy.reset();
  desktop.setFaults(R"([{"call": "OpenClipboard", "result": false}])");
  EXPECT_TRUE(read().empty());

  EXPECT_EQ(calls("OpenClipboard"), 2) << "one for each reading";
  EXPECT_EQ(calls("IsClipboardFormatAvailable"), 0);
  EXPECT_EQ(calls("CloseClipboard"), 0);
}

TEST_F(ClipboardImage, IsTheBitmap_WhenThePictureHasNoByte) {
  leaveAllForms();
  content().png = Bytes();
  EXPECT_EQ(read(), fileOf(newBitmap));
}

struct PictureFaultRow {
  const char* test;
  const char* faults;
};

class PictureFaults : public ClipboardImage, public testing::WithParamInterface<PictureFaultRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, PictureFaults,
    testing::Values(PictureFaultRow{"Registration", R"([{"call": "RegisterClipboardFormatW", "result": 0}])"},
                    PictureFaultRow{"Availability", R"([{"call": "IsClipboardFormatAvailable", "result": false}])"},
                    PictureFaultRow{"Data", R"([{"call": "GetClipboardData", "result": null}])"},
                    PictureFaultRow{"Size", R"([{"call": "GlobalSize", "result": 0}])"},
                    PictureFaultRow{"Lock", R"([{"call": "GlobalLock", "result": null}])"}),
    nameOfRow<PictureFaultRow>);

TEST_P(PictureFaults, LeadToTheBitmap) {
  leaveAllForms();
  desktop.setFaults(GetParam().faults);

  EXPECT_EQ(read(), fileOf(newBitmap));

  EXPECT_EQ(calls("OpenClipboard"), 1) << "within the same opening";
  EXPECT_EQ(calls("CloseClipboard"), 1);
}

TEST_P(PictureFaults, LeadToNothing_WhenThereIsNoBitmap) {
  content().png = picture;
  desktop.setFaults(GetParam().faults);

  EXPECT_TRUE(read().empty());

  EXPECT_EQ(calls("CloseClipboard"), 1);
}

TEST_F(ClipboardImage, UnlocksThePicture_WhenItsSizeIsNought) {
  leaveAllForms();
  desktop.setFaults(R"([{"call": "GlobalSize", "result": 0}])");
  EXPECT_EQ(read(), fileOf(newBitmap));

  EXPECT_EQ(calls("GlobalLock"), 2);
  EXPECT_EQ(calls("GlobalUnlock"), 2);
}

TEST_F(ClipboardImage, AsksForNoPicture_WhenItsNameGivesNoFormat) {
  leaveAllForms();
  desktop.setFaults(R"([{"call": "RegisterClipboardFormatW", "result": 0}])");
  EXPECT_EQ(read(), fileOf(newBitmap));

  EXPECT_EQ(calls("IsClipboardFormatAvailable"), 1) << "of the bitmap alone";
}

class BitmapFaults : public ClipboardImage, public testing::WithParamInterface<PictureFaultRow> {};
INSTANTIATE_TEST_SUITE_P(Each, BitmapFaults,
                         testing::Values(PictureFaultRow{"Data", R"([{"call": "GetClipboardData", "result": null}])"},
                                         PictureFaultRow{"Size", R"([{"call": "GlobalSize", "result": 0}])"},
                                         PictureFaultRow{"ShortSize", R"([{"call": "GlobalSize", "result": 39}])"},
                                         PictureFaultRow{"Lock", R"([{"call": "GlobalLock", "result": null}])"}),
                         nameOfRow<PictureFaultRow>);

TEST_P(BitmapFaults, LeadToNothing_EvenWithAnOlderBitmapBesideIt) {
  content().dibv5 = newBitmap;
  content().dib = oldBitmap;
  desktop.setFaults(GetParam().faults);

  EXPECT_TRUE(read().empty());

  EXPECT_EQ(calls("GetClipboardData"), 1);
  EXPECT_EQ(calls("CloseClipboard"), 1);
}

TEST_F(ClipboardImage, IsTheOlderBitmap_WhenTheNewerIsNotAvailable) {
  content().dibv5 = newBitmap;
  content().dib = oldBitmap;
  desktop.setFaults(R"([{"call": "IsClipboardFormatAvailable", "nth": 2, "result": false}])");
  EXPECT_EQ(read(), fileOf(oldBitmap));
}

TEST_F(ClipboardImage, IsNone_WhenTheNewerBitmapIsBad) {
  content().dib = oldBitmap;
  Bytes wide = newBitmap;
  wide[4] = 200;  // 800 bytes of pixels in a block of 128
  Bytes headless = newBitmap;
  headless[0] = 129;
  for (const Bytes& bad : {Bytes(), Bytes(39, 1), wide, headless, Bytes(64)}) {
    content().dibv5 = bad;
    EXPECT_TRUE(read().empty()) << bad.size();
  }
  EXPECT_EQ(calls("GetClipboardData"), 5) << "the older one is never fetched";
}

}  // namespace
}  // namespace orvane
