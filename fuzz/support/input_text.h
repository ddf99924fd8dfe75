#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::fuzzing {

inline std::string textOf(const std::uint8_t* data, std::size_t size) {
  return size == 0 ? std::string() : std::string(reinterpret_cast<const char*>(data), size);
}

// UTF-16 units of nearly UTF-8: halves of surrogate pairs may stand alone, and a byte that begins
// nothing is a unit of its own. So every wide text has a spelling in bytes.
std::wstring wideFromLooseText(std::string_view text);

// The pieces between the separators; one more than there are separators.
std::vector<std::string> splitText(std::string_view text, char separator);

}  // namespace orvane::fuzzing
