#include "scenario/key_names.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace orvane::simulation {
namespace {

struct KeyName {
  int virtualKey;
  std::string_view name;
};

constexpr std::array<KeyName, 12> modifierNames{{
    {0x11, "Ctrl"},
    {0xA2, "Ctrl"},
    {0xA3, "Ctrl"},
    {0x10, "Shift"},
    {0xA0, "Shift"},
    {0xA1, "Shift"},
    {0x12, "Alt"},
    {0xA4, "Alt"},
    {0xA5, "Alt"},
    {0x5B, "Win"},
    {0x5C, "Win"},
    {0x14, "CapsLock"},
}};

constexpr std::array<KeyName, 12> keyNames{{
    {0x08, "Backspace"},
    {0x09, "Tab"},
    {0x0D, "Enter"},
    {0x1B, "Escape"},
    {0x20, "Space"},
    {0x23, "End"},
    {0x24, "Home"},
    {0x25, "Left"},
    {0x26, "Up"},
    {0x27, "Right"},
    {0x28, "Down"},
    {0x2E, "Delete"},
}};

template <typename Table>
std::string_view lookUp(const Table& table, int virtualKey) {
  const auto found = std::find_if(table.begin(), table.end(),
                                  [virtualKey](const KeyName& entry) { return entry.virtualKey == virtualKey; });
  return found == table.end() ? std::string_view{} : found->name;
}

std::string nameOf(int virtualKey) {
  const bool isPlain = (virtualKey >= '0' && virtualKey <= '9') || (virtualKey >= 'A' && virtualKey <= 'Z');
  if (isPlain) return std::string(1, static_cast<char>(virtualKey));
  const std::string_view name = lookUp(keyNames, virtualKey);
  return name.empty() ? "key " + std::to_string(virtualKey) : std::string(name);
}

}  // namespace

std::string describeKeys(const Json& input) {
  std::map<int, std::string_view> held;
  std::string words;
  for (const Json& event : input) {
    const int virtualKey = event.at("vk").get<int>();
    const std::string_view modifier = lookUp(modifierNames, virtualKey);
    if (event.at("up").get<bool>()) {
      held.erase(virtualKey);
    } else if (!modifier.empty()) {
      held[virtualKey] = modifier;
    } else {
      words += words.empty() ? "" : "  ";
      for (const auto& [key, name] : held) words += std::string(name) + "+";
      words += nameOf(virtualKey);
    }
  }
  return words;
}

}  // namespace orvane::simulation
