#include "world/clipboard.h"

#include <cstring>
#include <utility>

#include "world/bytes.h"

namespace orvane::simulation {
namespace {

Bytes closedBlockOf(const Text& text) {
  Bytes bytes((text.size() + 1) * sizeof(char16_t));
  std::memcpy(bytes.data(), text.c_str(), bytes.size());
  return bytes;
}

Text textInFrontOfZero(const Bytes& bytes) {
  Text text;
  for (std::size_t at = 0; at + sizeof(char16_t) <= bytes.size(); at += sizeof(char16_t)) {
    char16_t unit = 0;
    std::memcpy(&unit, bytes.data() + at, sizeof unit);
    if (unit == 0) break;
    text.push_back(unit);
  }
  return text;
}

}  // namespace

void ClipboardContent::setText(Text with) {
  text = std::move(with);
  textBlock.reset();
}

void ClipboardContent::setTextBlock(std::vector<std::uint8_t> bytes) {
  setText(textInFrontOfZero(bytes));
  if (bytes != closedBlockOf(*text)) textBlock = std::move(bytes);
}

std::optional<std::vector<std::uint8_t>> ClipboardContent::bytesOfText() const {
  if (textBlock) return textBlock;
  return text ? std::optional(closedBlockOf(*text)) : std::nullopt;
}

}  // namespace orvane::simulation
