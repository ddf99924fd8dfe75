#include "messages/records.h"

#include <algorithm>

namespace orvane::fuzzing {
namespace {

constexpr std::size_t headBytes = 3;
constexpr std::size_t greatestContent = 0xFFFF;

}  // namespace

Input parseInput(const std::uint8_t* data, std::size_t size) {
  Input input;
  if (size == 0) {
    return input;
  }
  input.world = data[0];
  for (std::size_t at = 1; at + headBytes <= size;) {
    Record record;
    record.kind = static_cast<RecordKind>(data[at] % recordKinds);
    const std::size_t told = data[at + 1] + 256U * data[at + 2];
    at += headBytes;
    const std::size_t count = std::min(told, size - at);
    record.content.assign(data + at, data + at + count);
    at += count;
    input.records.push_back(std::move(record));
  }
  return input;
}

Bytes writeInput(const Input& input) {
  Bytes bytes{input.world};
  for (const Record& record : input.records) {
    const std::size_t count = std::min(record.content.size(), greatestContent);
    bytes.push_back(static_cast<std::uint8_t>(record.kind));
    bytes.push_back(static_cast<std::uint8_t>(count % 256));
    bytes.push_back(static_cast<std::uint8_t>(count / 256));
    bytes.insert(bytes.end(), record.content.begin(), record.content.begin() + static_cast<std::ptrdiff_t>(count));
  }
  return bytes;
}

}  // namespace orvane::fuzzing
