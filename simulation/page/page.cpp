#include "page/page.h"

#include <array>
#include <string_view>

#include "page/page_template.h"

namespace orvane::simulation {
namespace {

struct Escape {
  std::string_view from;
  std::string_view to;
};

// In JSON these stand in texts alone, where an escape means the same. So nothing in the data can end
// the script element that holds it or open a comment in it, nor end a line.
constexpr std::array<Escape, 5> escapes{{
    {"<", "\\u003c"},
    {">", "\\u003e"},
    {"&", "\\u0026"},
    {"\xE2\x80\xA8", "\\u2028"},
    {"\xE2\x80\xA9", "\\u2029"},
}};

std::string escaped(const std::string& json) {
  std::string out;
  out.reserve(json.size() + json.size() / 8);
  for (std::size_t at = 0; at < json.size();) {
    const std::string_view rest = std::string_view(json).substr(at);
    const Escape* found = nullptr;
    for (const Escape& escape : escapes) {
      if (rest.starts_with(escape.from)) found = &escape;
    }
    if (found == nullptr) {
      out += json[at++];
    } else {
      out += found->to;
      at += found->from.size();
    }
  }
  return out;
}

}  // namespace

std::string writePage(const Json& data) {
  const std::size_t place = pageTemplate.find(pageDataMark);
  std::string page(pageTemplate.substr(0, place));
  page += escaped(writeJson(data));
  page += pageTemplate.substr(place + pageDataMark.size());
  return page;
}

}  // namespace orvane::simulation
