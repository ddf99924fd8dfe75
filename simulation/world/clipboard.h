#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "world/text.h"

namespace orvane::simulation {

// The forms that stand on the clipboard together; no form is made out of another.
struct ClipboardContent {
  std::optional<Text> text;  // what pastes
  // The text's block where it isn't just the text and its zero; `text` is then what is read out of it.
  std::optional<std::vector<std::uint8_t>> textBlock;
  std::optional<std::string> html;  // the raw block: UTF-8 bytes, nothing added
  std::optional<std::vector<std::uint8_t>> png;
  std::optional<std::vector<std::uint8_t>> dib;
  std::optional<std::vector<std::uint8_t>> dibv5;
  std::optional<std::string> lockedBy;  // id of the window that holds it open

  void setText(Text with);
  // The text is what stands in front of the first zero; an odd last byte is no unit.
  void setTextBlock(std::vector<std::uint8_t> bytes);
  // What is handed out as the text's block; nullopt without a text.
  std::optional<std::vector<std::uint8_t>> bytesOfText() const;
};

struct Clipboard {
  ClipboardContent content;
  std::uint32_t sequence = 1;  // rises by one with every change

  void replace(ClipboardContent with) {
    content = std::move(with);
    ++sequence;
  }
};

}  // namespace orvane::simulation
