#pragma once

#include <cstdint>
#include <random>

#include "embedding/encodable_value.h"

namespace orvane::embedding_tests {

// Makes the same values from the same seed everywhere.
class RandomValues {
 public:
  explicit RandomValues(std::uint64_t seed) : engine_(seed) {}

  // Any value that the byte form carries, its containers nested at most `depth` deep.
  EncodableValue value(int depth);

  // Below `bound`.
  std::size_t below(std::size_t bound) { return static_cast<std::size_t>(engine_() % bound); }

 private:
  std::size_t sequenceSize();
  double anyDouble();
  EncodableValue scalar();
  EncodableValue sequence();
  EncodableValue container(int depth);
  template <typename Element, typename Make>
  std::vector<Element> fill(Make make);

  std::mt19937_64 engine_;
};

}  // namespace orvane::embedding_tests
