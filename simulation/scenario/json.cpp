#include "scenario/json.h"

#include <array>
#include <cstddef>

#include "world/text.h"

namespace orvane::simulation {
namespace {

constexpr std::string_view base64Digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view hexDigits = "0123456789abcdef";

std::string writeDouble(const Json& number) {
  std::string text = number.dump();
  const std::size_t exponent = text.find('e');
  if (text.find('.') == std::string::npos && exponent != std::string::npos) text.insert(exponent, ".0");
  return text;
}

void write(const Json& json, std::string& out) {
  if (json.is_object()) {
    char before = '{';
    for (const auto& [key, value] : json.items()) {
      out += before;
      out += Json(key).dump() + ':';
      write(value, out);
      before = ',';
    }
    out += json.empty() ? "{}" : "}";
  } else if (json.is_array()) {
    char before = '[';
    for (const Json& value : json) {
      out += before;
      write(value, out);
      before = ',';
    }
    out += json.empty() ? "[]" : "]";
  } else {
    out += json.is_number_float() ? writeDouble(json) : json.dump();
  }
}

// The digit's place, or nullopt.
std::optional<std::uint32_t> digitOf(std::string_view digits, char character) {
  const std::size_t place = digits.find(character);
  if (place == std::string_view::npos) return std::nullopt;
  return static_cast<std::uint32_t>(place);
}

char lowered(char character) {
  return character >= 'A' && character <= 'F' ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace

std::string writeJson(const Json& json) {
  std::string out;
  write(json, out);
  return out;
}

std::string hexFromBytes(const std::vector<std::uint8_t>& bytes) {
  std::string hex;
  for (const std::uint8_t byte : bytes) {
    hex += hexDigits[byte >> 4];
    hex += hexDigits[byte & 15];
  }
  return hex;
}

std::optional<std::vector<std::uint8_t>> bytesFromHex(std::string_view hex) {
  if (hex.size() % 2 != 0) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  for (std::size_t at = 0; at < hex.size(); at += 2) {
    const auto high = digitOf(hexDigits, lowered(hex[at]));
    const auto low = digitOf(hexDigits, lowered(hex[at + 1]));
    if (!high || !low) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(*high << 4 | *low));
  }
  return bytes;
}

std::string base64FromBytes(const std::vector<std::uint8_t>& bytes) {
  std::string base64;
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
    std::uint32_t group = 0;
    for (std::size_t index = 0; index < 3; ++index) group = group << 8 | (index < count ? bytes[at + index] : 0u);
    for (std::size_t index = 0; index < 4; ++index) {
      base64 += index <= count ? base64Digits[group >> (18 - 6 * index) & 63] : '=';
    }
  }
  return base64;
}

std::optional<std::vector<std::uint8_t>> bytesFromBase64(std::string_view base64) {
  if (base64.size() % 4 != 0) return std::nullopt;
  std::size_t padding = 0;
  while (padding < 2 && !base64.empty() && base64.back() == '=') {
    base64.remove_suffix(1);
    ++padding;
  }
  std::vector<std::uint8_t> bytes;
  std::uint32_t bits = 0;
  unsigned bitCount = 0;
  for (const char character : base64) {
    const auto digit = digitOf(base64Digits, character);
    if (!digit) return std::nullopt;
    bits = bits << 6 | *digit;
    bitCount += 6;
    if (bitCount < 8) continue;
    bitCount -= 8;
    bytes.push_back(static_cast<std::uint8_t>(bits >> bitCount));
  }
  return bytes;
}

std::string validUtf8(std::string_view text) { return utf8FromText(textFromUtf8(text)); }

}  // namespace orvane::simulation
