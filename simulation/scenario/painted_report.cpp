#include "scenario/painted_report.h"

namespace orvane::simulation {
namespace {

Json sidesOf(const Rectangle& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }

Json describeSurface(const Surface& surface) {
  Json json;
  if (surface.menu != 0) {
    json["menu"] = surface.menu;
  } else {
    json["window"] = surface.window;
  }
  return json;
}

Json describeFont(const Font& font) {
  if (const auto* stock = std::get_if<StockFont>(&font)) return stock->name;
  const auto& arguments = std::get<FontArguments>(font);
  Json json;
  json["face"] = utf8FromText(arguments.face);
  json["height"] = arguments.height;
  json["weight"] = arguments.weight;
  json["charset"] = arguments.charset;
  json["quality"] = arguments.quality;
  return json;
}

Json describe(const FilledArea& area) {
  Json json = describeSurface(area.surface);
  json["fill"] = area.color;
  json["bounds"] = sidesOf(area.bounds);
  return json;
}

Json describe(const DrawnText& drawn) {
  Json json = describeSurface(drawn.surface);
  json["text"] = utf8FromText(drawn.text);
  json["font"] = describeFont(drawn.font);
  json["textColor"] = drawn.color;
  json["flags"] = drawn.flags;
  json["bounds"] = sidesOf(drawn.bounds);
  json["bkMode"] = drawn.isTransparent ? "transparent" : "opaque";
  return json;
}

Json describe(const OpenedMenu& menu) {
  Json json;
  json["menu"] = menu.number;
  json["point"] = {menu.x, menu.y};
  json["flags"] = menu.flags;
  json["owner"] = menu.owner;
  json["entries"] = Json::array();
  for (const MeasuredEntry& entry : menu.entries) {
    json["entries"].push_back({{"id", entry.id}, {"width", entry.width}, {"height", entry.height}});
  }
  json["chosen"] = menu.chosen ? Json(*menu.chosen) : Json(nullptr);
  return json;
}

}  // namespace

Json describePainted(const std::vector<Painted>& painted) {
  Json list = Json::array();
  for (const Painted& entry : painted) {
    list.push_back(std::visit([](const auto& one) { return describe(one); }, entry));
  }
  return list;
}

}  // namespace orvane::simulation
