#include "world/text.h"

#include <array>
#include <cstddef>

namespace orvane::simulation {
namespace {

constexpr char32_t replacement = 0xFFFD;

// How long the sequence is that this first byte opens, and the bounds of its second byte, which
// keep out overlong forms, surrogates and what lies above U+10FFFF. Length 0: opens nothing.
struct Lead {
  std::size_t length;
  unsigned char secondLow;
  unsigned char secondHigh;
};

Lead leadOf(unsigned char byte) {
  if (byte < 0x80) return {1, 0, 0};
  if (byte >= 0xC2 && byte <= 0xDF) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

struct Decoded {
  char32_t codePoint;
  std::size_t length;  // bytes taken: of a broken sequence its longest good beginning
};

Decoded decodeAt(std::string_view utf8, std::size_t at) {
  constexpr std::array<unsigned char, 5> leadMask{0, 0x7F, 0x1F, 0x0F, 0x07};
  const auto first = static_cast<unsigned char>(utf8[at]);
  const Lead lead = leadOf(first);
  if (lead.length == 0) return {replacement, 1};
  char32_t codePoint = first & leadMask[lead.length];
  for (std::size_t index = 1; index < lead.length; ++index) {
    if (at + index >= utf8.size()) return {replacement, index};
    const auto byte = static_cast<unsigned char>(utf8[at + index]);
    const unsigned char low = index == 1 ? lead.secondLow : 0x80;
    const unsigned char high = index == 1 ? lead.secondHigh : 0xBF;
    if (byte < low || byte > high) return {replacement, index};
    codePoint = (codePoint << 6) | (byte & 0x3Fu);
  }
  return {codePoint, lead.length};
}

void appendUtf8(std::string& out, char32_t codePoint) {
  const auto put = [&out](char32_t bits) { out.push_back(static_cast<char>(static_cast<unsigned char>(bits))); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (codePoint < 0x800) {
    put(0xC0 | (codePoint >> 6));
    put(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    put(0xE0 | (codePoint >> 12));
    put(0x80 | ((codePoint >> 6) & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  } else {
    put(0xF0 | (codePoint >> 18));
    put(0x80 | ((codePoint >> 12) & 0x3F));
    put(0x80 | ((codePoint >> 6) & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  }
}

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

Text textFromUtf8(std::string_view utf8) {
  Text text;
  text.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const Decoded decoded = decodeAt(utf8, at);
    at += decoded.length;
    if (decoded.codePoint < 0x10000) {
      text.push_back(static_cast<char16_t>(decoded.codePoint));
    } else {
      const char32_t offset = decoded.codePoint - 0x10000;
      text.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
      text.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
    }
  }
  return text;
}

std::string utf8FromText(TextView text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (isHighSurrogate(unit) && at + 1 < text.size() && isLowSurrogate(text[at + 1])) {
      const char32_t high = static_cast<char32_t>(unit) - 0xD800;
      const char32_t low = static_cast<char32_t>(text[++at]) - 0xDC00;
      appendUtf8(utf8, 0x10000 + (high << 10) + low);
    } else {
      appendUtf8(utf8, isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : static_cast<char32_t>(unit));
    }
  }
  return utf8;
}

Text foldAscii(TextView text) {
  Text folded(text);
  for (char16_t& unit : folded) {
    if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + (u'a' - u'A'));
  }
  return folded;
}

}  // namespace orvane::simulation
