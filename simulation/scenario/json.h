#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::simulation {

// Keys keep the order in which they were written.
using Json = nlohmann::ordered_json;

// One line, without blanks. A double always has a point, so that it can be told from a whole
// number; texts must be valid UTF-8.
std::string writeJson(const Json& json);

// Texts for bytes. The readers give nullopt for what is no such text.
std::string hexFromBytes(const std::vector<std::uint8_t>& bytes);
std::optional<std::vector<std::uint8_t>> bytesFromHex(std::string_view hex);
std::string base64FromBytes(const std::vector<std::uint8_t>& bytes);
std::optional<std::vector<std::uint8_t>> bytesFromBase64(std::string_view base64);

// The text itself, with U+FFFD for what is no valid UTF-8.
std::string validUtf8(std::string_view text);

}  // namespace orvane::simulation
