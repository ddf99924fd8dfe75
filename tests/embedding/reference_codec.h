#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "embedding/encodable_value.h"

namespace orvane::embedding_tests {

// A second, slow and simple writing of the byte form, to compare with.

// Appends `value` to `bytes`, whose start is the start of the message.
void writeReference(const EncodableValue& value, std::vector<std::uint8_t>& bytes);

struct ReferenceReading {
  EncodableValue value;
  std::vector<std::string> errors;  // the lines on the error stream, in order
  bool isTooDeep = false;
  std::size_t position = 0;  // behind the value
};

// Reads the first value of `bytes`, which may be any bytes at all.
ReferenceReading readReference(const std::vector<std::uint8_t>& bytes);

}  // namespace orvane::embedding_tests
