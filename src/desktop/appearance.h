#pragma once

#include <windows.h>

#include <string_view>

namespace orvane {

// The colours that go with the interface's appearance, 0x00BBGGRR.
struct AppearanceColors {
  COLORREF background = 0;
  COLORREF text = 0;  // of a highlighted menu entry too
  COLORREF selectedBackground = 0;
};

// By the appearance's exact name; any other word gets the standard dark colours.
AppearanceColors appearanceColors(std::string_view appearance);

}  // namespace orvane
