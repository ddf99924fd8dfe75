#include "support/mutations.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <random>

// Changes by a target's own rules, where it has some.
extern "C" __attribute__((weak)) std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                                                     std::size_t maxSize, unsigned int seed);

// The fuzzer's plain changes, for such rules to ask for.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace orvane::fuzzing {
namespace {

constexpr std::size_t greatestBytes = 8192;
constexpr std::size_t longestPieceBytes = 32;
constexpr std::size_t greatestChanges = 4;
// Where lengths, counts and letters end.
constexpr std::array<std::uint8_t, 10> edges{0, 1, 0x0a, 0x20, 0x22, 0x5c, 0x7f, 0x80, 0xfe, 0xff};

std::mt19937& random() {
  static std::mt19937 one;
  return one;
}

// 0 where there is nothing to choose from.
std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random()() % limit; }

InputBytes::iterator placeIn(InputBytes& input, std::size_t place) {
  return input.begin() + static_cast<std::ptrdiff_t>(place);
}

void erasePiece(InputBytes& input, std::size_t place) {
  const std::size_t count = below(std::min(input.size() - place, longestPieceBytes) + 1);
  input.erase(placeIn(input, place), placeIn(input, place + count));
}

void insertPiece(InputBytes& input, std::size_t place, const InputBytes& source) {
  const std::size_t begin = below(source.size());
  const std::size_t count = below(std::min(source.size() - begin, longestPieceBytes) + 1);
  const auto first = source.begin() + static_cast<std::ptrdiff_t>(begin);
  input.insert(placeIn(input, place), first, first + static_cast<std::ptrdiff_t>(count));
}

void change(InputBytes& input) {
  const std::size_t place = below(input.size() + 1);
  switch (below(5)) {
    case 0:
      return erasePiece(input, place);
    case 1:
      return insertPiece(input, place, InputBytes(input));
    case 2:
      input.insert(placeIn(input, place), below(longestPieceBytes), edges[below(edges.size())]);
      return;
    case 3:
      if (place < input.size()) {
        input[place] = edges[below(edges.size())];
      }
      return;
    default:
      if (place < input.size()) {
        input[place] ^= static_cast<std::uint8_t>(1U << below(8));
      }
  }
}

}  // namespace

InputBytes mutationOf(const std::vector<InputBytes>& corpus, std::uint32_t number) {
  random().seed(number);
  InputBytes input = corpus[below(corpus.size())];
  if (LLVMFuzzerCustomMutator != nullptr) {
    const std::size_t size = std::min(input.size(), greatestBytes);
    input.resize(greatestBytes);
    input.resize(LLVMFuzzerCustomMutator(input.data(), size, input.size(), static_cast<unsigned int>(random()())));
    return input;
  }
  if (below(2) == 0) {
    insertPiece(input, below(input.size() + 1), corpus[below(corpus.size())]);
  }
  for (std::size_t left = 1 + below(greatestChanges); left > 0; --left) {
    change(input);
  }
  return input;
}

}  // namespace orvane::fuzzing

std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize) {
  orvane::fuzzing::InputBytes input(data, data + size);
  orvane::fuzzing::change(input);
  input.resize(std::min(input.size(), maxSize));
  std::copy(input.begin(), input.end(), data);
  return input.size();
}
