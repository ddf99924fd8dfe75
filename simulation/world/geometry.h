#pragma once

namespace orvane::simulation {

// Screen pixels; right and bottom lie outside.
struct Rectangle {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool operator==(const Rectangle&) const = default;
};

}  // namespace orvane::simulation
