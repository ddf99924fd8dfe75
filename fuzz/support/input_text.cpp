#include "support/input_text.h"

namespace orvane::fuzzing {
namespace {

constexpr std::uint32_t firstBehindPlane = 0x10000;

std::uint8_t byteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<std::uint8_t>(text[at]) : 0;
}

// How many bytes the sequence at `at` has; 1 for a byte that begins none.
std::size_t sequenceBytes(std::string_view text, std::size_t at) {
  const std::uint8_t first = byteAt(text, at);
  const std::size_t count = first >= 0xF0 && first < 0xF5 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
  for (std::size_t index = 1; index < count; ++index) {
    if ((byteAt(text, at + index) & 0xC0) != 0x80) {
      return 1;
    }
  }
  return first >= 0xF5 ? 1 : count;
}

std::uint32_t codeOf(std::string_view text, std::size_t at, std::size_t count) {
  const std::uint32_t first = byteAt(text, at);
  std::uint32_t code = count == 1 ? first : first & (0x7FU >> count);
  for (std::size_t index = 1; index < count; ++index) {
    code = code << 6 | (byteAt(text, at + index) & 0x3FU);
  }
  return code;
}

void appendCode(std::uint32_t code, std::wstring& wide) {
  if (code < firstBehindPlane) {
    wide += static_cast<wchar_t>(code);
    return;
  }
  const std::uint32_t rest = (code - firstBehindPlane) & 0xFFFFF;
  wide += static_cast<wchar_t>(0xD800 + (rest >> 10));
  wide += static_cast<wchar_t>(0xDC00 + (rest & 0x3FF));
}

}  // namespace

std::wstring wideFromLooseText(std::string_view text) {
  std::wstring wide;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t count = sequenceBytes(text, at);
    if (codeOf(text, at, count) == 0) {
      count = 1;  // a long way to write zero: only the zero byte is one
    }
    appendCode(codeOf(text, at, count), wide);
    at += count;
  }
  return wide;
}

std::vector<std::string> splitText(std::string_view text, char separator) {
  std::vector<std::string> pieces(1);
  for (const char character : text) {
    if (character == separator) {
      pieces.emplace_back();
    } else {
      pieces.back() += character;
    }
  }
  return pieces;
}

}  // namespace orvane::fuzzing
