#include "desktop/appearance.h"

#include <array>

#include "desktop/clean_background_state.h"

namespace orvane {
namespace {

constexpr COLORREF white = 0xFFFFFF;
constexpr COLORREF black = 0x000000;
constexpr COLORREF darkHighlight = 0x657000;
constexpr COLORREF lightHighlight = 0xE7EBD6;

struct Appearance {
  std::string_view name;
  AppearanceColors colors;
};

constexpr std::array<Appearance, 3> appearances{{
    {"Deep Green", {0x0F1403, white, darkHighlight}},
    {"Deep Blue", {0x261406, white, darkHighlight}},
    {"White", {white, black, lightHighlight}},
}};
constexpr AppearanceColors standardColors = {standardBackgroundColor, white, darkHighlight};

}  // namespace

AppearanceColors appearanceColors(std::string_view appearance) {
  for (const Appearance& row : appearances) {
    if (row.name == appearance) {
      return row.colors;
    }
  }
  return standardColors;
}

}  // namespace orvane
