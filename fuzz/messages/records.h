#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// An input of this target: a byte that chooses the desktop, then records of a kind, a size (two
// bytes, the low one first) and that many bytes.
namespace orvane::fuzzing {

using Bytes = std::vector<std::uint8_t>;

enum class RecordKind : std::uint8_t {
  browserMessage,  // raw bytes over orvane/browser
  windowMessage,   // raw bytes over orvane/window
  wait,            // milliseconds: two bytes
  bringForward,    // a person brings one of the desktop's windows forward: one byte
  chooseMenu,      // the entry that a person will pick in the next menu: one byte, 0 for none
  post,            // another program posts one of the private messages: one byte
};
inline constexpr std::size_t recordKinds = 6;

struct Record {
  RecordKind kind = RecordKind::browserMessage;
  Bytes content;

  // Of the content, 0 where it is shorter.
  std::uint8_t byte(std::size_t at) const { return at < content.size() ? content[at] : 0; }
};

struct Input {
  std::uint8_t world = 0;
  std::vector<Record> records;
};

// Any bytes are an input; what a record lacks at the end is missing.
Input parseInput(const std::uint8_t* data, std::size_t size);
Bytes writeInput(const Input& input);

}  // namespace orvane::fuzzing
