// How the native menu looks: its font, its colours and the direction of its texts.
#include <gtest/gtest.h>

#include <limits>
#include <tuple>
#include <utility>
#include <variant>

#include "desktop/desktop_test.h"
#include "desktop/menu_owner.h"
#include "desktop/native_menu.h"
#include "support/row_name.h"

namespace orvane {
namespace {

using desktop_tests::MenuOwner;
using desktop_tests::oneMonitor;
using desktop_tests::paintedOf;
using desktop_tests::with;
using simulation::DrawnText;
using simulation::FilledArea;
using simulation::FontArguments;
using simulation::SimulatedDesktop;

struct FontRow {
  const char* test;
  EncodableValue scale;
  int dpi;
  int height;
};

class MenuFont : public ::testing::TestWithParam<FontRow> {};

TEST_P(MenuFont, HasTheScaledHeightWithinItsLimits) {
  SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, GetParam().dpi));
  const MenuOwner owner;
  const EncodableMap arguments = with({{"fontScale", GetParam().scale}});
  showNativeHotKeysMenu(owner.get(), &arguments);
  const auto texts = paintedOf<DrawnText>(desktop);
  ASSERT_EQ(texts.size(), 3U);
  for (const DrawnText& text : texts) {
    const auto& font = std::get<FontArguments>(text.font);
    EXPECT_EQ(font.height, GetParam().height);
    EXPECT_EQ(std::make_tuple(font.width, font.escapement, font.orientation, font.weight),
              std::make_tuple(0, 0, 0, 400));
    EXPECT_EQ(std::make_tuple(font.italic, font.underline, font.strikeOut), std::make_tuple(0U, 0U, 0U));
    EXPECT_EQ(
        std::make_tuple(font.charset, font.outputPrecision, font.clipPrecision, font.quality, font.pitchAndFamily),
        std::make_tuple(1U, 0U, 0U, 5U, 0U));
    EXPECT_EQ(font.face, u"Segoe UI");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, MenuFont,
    ::testing::Values(
        FontRow{"Plain", EncodableValue(1.0), 96, -14}, FontRow{"Integer", EncodableValue(1), 96, -14},
        FontRow{"NoNumber", EncodableValue("2"), 96, -14}, FontRow{"Greatest", EncodableValue(1.2), 96, -17},
        FontRow{"AboveTheGreatest", EncodableValue(2.0), 96, -17},
        FontRow{"Infinite", EncodableValue(std::numeric_limits<double>::infinity()), 96, -17},
        FontRow{"Least", EncodableValue(0.85), 96, -12}, FontRow{"BelowTheLeast", EncodableValue(0.1), 96, -12},
        FontRow{"Negative", EncodableValue(-1.0), 96, -12}, FontRow{"Floor", EncodableValue(0.85), 48, -10},
        FontRow{"FloorAtOne", EncodableValue(1.0), 48, -10}, FontRow{"FloorReached", EncodableValue(1.0), 69, -10},
        FontRow{"OneAndAHalf", EncodableValue(1.0), 144, -21},
        FontRow{"HalfUp", EncodableValue(1.0), 120, -18},  // 17.5
        FontRow{"Double", EncodableValue(1.2), 192, -34}),
    nameOfRow<FontRow>);

struct AppearanceRow {
  const char* test;
  const char* appearance;
  COLORREF background;
  COLORREF text;
  COLORREF selectedBackground;
};

class MenuColours : public ::testing::TestWithParam<AppearanceRow> {};

TEST_P(MenuColours, GoByTheAppearancesExactName) {
  SimulatedDesktop desktop("{}");
  const MenuOwner owner;
  desktop.world().nextMenuChoice = 2;
  const EncodableMap arguments = with({{"appearance", GetParam().appearance}});
  showNativeHotKeysMenu(owner.get(), &arguments);
  const auto areas = paintedOf<FilledArea>(desktop);
  const auto texts = paintedOf<DrawnText>(desktop);
  ASSERT_EQ(areas.size(), 4U);
  ASSERT_EQ(texts.size(), 4U);
  for (std::size_t index = 0; index < 3; ++index) {
    EXPECT_EQ(areas[index].color, GetParam().background);
    EXPECT_EQ(texts[index].color, GetParam().text);
  }
  EXPECT_EQ(texts[3].text, u"Second & last");
  EXPECT_EQ(areas[3].color, GetParam().selectedBackground);
  EXPECT_EQ(texts[3].color, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Each, MenuColours,
                         ::testing::Values(AppearanceRow{"White", "White", 0xFFFFFF, 0x000000, RGB(214, 235, 231)},
                                           AppearanceRow{"DeepGreen", "Deep Green", 0x0F1403, 0xFFFFFF,
                                                         RGB(0, 112, 101)},
                                           AppearanceRow{"DeepBlue", "Deep Blue", 0x261406, 0xFFFFFF, 0x657000},
                                           AppearanceRow{"Empty", "", 0x1F1C19, 0xFFFFFF, 0x657000},
                                           AppearanceRow{"Unknown", "deep blue", 0x1F1C19, 0xFFFFFF, 0x657000}),
                         nameOfRow<AppearanceRow>);

TEST(MenuTexts, AreDrawnFromTheRight_WhenAsked) {
  for (const auto& [rtl, flags] : {std::pair{EncodableValue(1), 0x20826U},
                                   {EncodableValue(0.5), 0x20826U},
                                   {EncodableValue(0), 0x824U},
                                   {EncodableValue(true), 0x824U}}) {
    SimulatedDesktop desktop("{}");
    const MenuOwner owner;
    const EncodableMap arguments = with({{"rtl", rtl}});
    showNativeHotKeysMenu(owner.get(), &arguments);
    EXPECT_EQ(paintedOf<DrawnText>(desktop).at(0).flags, flags);
  }
}

}  // namespace
}  // namespace orvane
