#pragma once

namespace orvane::simulation {

// Pixels per inch at which a logical pixel is one of the screen's.
inline constexpr int standardDpi = 96;

}  // namespace orvane::simulation
