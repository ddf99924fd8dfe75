#include <cstdint>

#include "messages/mutator.h"
#include "messages/session.h"

// Whole messages over both channels, at any bytes, into the host on a desktop.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvane::fuzzing::runSession(orvane::fuzzing::parseInput(data, size));
  return 0;
}

// Named by the fuzzer, which alone calls it.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed);

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned int seed) {
  return orvane::fuzzing::mutateInput(data, size, maxSize, seed);
}
