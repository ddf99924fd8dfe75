#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "world/geometry.h"
#include "world/text.h"

namespace orvane::simulation {

// A font as it was asked for, in the order of the platform's call.
struct FontArguments {
  int height = 0;  // negative: of the characters, in pixels
  int width = 0;
  int escapement = 0;
  int orientation = 0;
  int weight = 0;
  std::uint32_t italic = 0;
  std::uint32_t underline = 0;
  std::uint32_t strikeOut = 0;
  std::uint32_t charset = 0;
  std::uint32_t outputPrecision = 0;
  std::uint32_t clipPrecision = 0;
  std::uint32_t quality = 0;
  std::uint32_t pitchAndFamily = 0;
  Text face;
};

// One of the platform's own fonts.
struct StockFont {
  std::string name;
  int characterHeight = 0;  // pixels, whatever the monitor's density is
};

using Font = std::variant<StockFont, FontArguments>;

// What was drawn on: a window, or else a menu.
struct Surface {
  std::string window;  // its id
  int menu = 0;        // the number of the menu opened in this run, from 1
};

// Bounds are in the window's client coordinates, or the menu's own.
struct FilledArea {
  Surface surface;
  std::uint32_t color = 0;
  Rectangle bounds;
};

struct DrawnText {
  Surface surface;
  Text text;
  Font font;
  std::uint32_t color = 0;
  std::uint32_t flags = 0;
  Rectangle bounds;
  bool isTransparent = false;
};

struct MeasuredEntry {
  std::uint32_t id = 0;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

struct OpenedMenu {
  int number = 0;
  int x = 0;
  int y = 0;
  std::uint32_t flags = 0;
  std::string owner;
  std::vector<MeasuredEntry> entries;
  std::optional<std::uint32_t> chosen;  // the id; nullopt: it was dismissed
};

using Painted = std::variant<FilledArea, DrawnText, OpenedMenu>;

}  // namespace orvane::simulation
