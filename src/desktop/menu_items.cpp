#include "desktop/menu_items.h"

#include <set>
#include <utility>

#include "embedding/call_arguments.h"
#include "embedding/utf_conversion.h"

namespace orvane {
namespace {

std::set<const MenuItemRecord*>& liveMenuItems() {
  static std::set<const MenuItemRecord*> items;
  return items;
}

}  // namespace

std::vector<MenuItemRecord> parseMenuItems(const EncodableMap* arguments) {
  std::vector<MenuItemRecord> records;
  const EncodableValue* entry = findEntry(arguments, "items");
  const auto* list = entry == nullptr ? nullptr : std::get_if<EncodableList>(entry);
  if (list == nullptr) {
    return records;
  }
  for (const EncodableValue& element : *list) {
    const auto* map = std::get_if<EncodableMap>(&element);
    std::string action = stringEntry(map, "action");
    const std::string label = stringEntry(map, "label");
    if (action.empty() || label.empty()) {
      continue;
    }
    MenuItemRecord& record = records.emplace_back();
    record.id = static_cast<std::uint32_t>(records.size());
    record.action = std::move(action);
    record.label = wideFromUtf8(label);
    record.shortcut = wideFromUtf8(stringEntry(map, "shortcut"));
  }
  return records;
}

LiveMenuItems::~LiveMenuItems() {
  for (const MenuItemRecord* record : records_) {
    liveMenuItems().erase(record);
  }
}

void LiveMenuItems::add(const MenuItemRecord* record) {
  records_.push_back(record);
  liveMenuItems().insert(record);
}

const MenuItemRecord* liveMenuItem(ULONG_PTR itemData) {
  const auto* const record = reinterpret_cast<const MenuItemRecord*>(itemData);
  return liveMenuItems().contains(record) && record->tag == menuItemTag ? record : nullptr;
}

}  // namespace orvane
