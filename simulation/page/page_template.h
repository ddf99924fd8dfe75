#pragma once

#include <string_view>

namespace orvane::simulation {

// page.html with style and scripts in it, put together by the build; the data belongs in the place of
// the mark.
extern const std::string_view pageTemplate;

inline constexpr std::string_view pageDataMark = "RUN-DATA";

}  // namespace orvane::simulation
