#pragma once

#include <algorithm>
#include <cstddef>

namespace orvane {

// What the decoding of one message may cost. What a message declares is no measure of what it
// holds: nesting is bounded, all its containers together reserve no more elements than it has bytes,
// and a few are made up for those that it lacks.
class DecodingLimits {
 public:
  static constexpr int maximumDepth = 1000;  // far beyond any call, far within the thread's stack
  static constexpr int maximumLackingElements = 1000;

  explicit DecodingLimits(std::size_t messageSize) noexcept : reservableElements_(messageSize) {}

  // One level of nesting, for as long as it lives.
  class Level {
   public:
    explicit Level(DecodingLimits& limits) noexcept : limits_(limits) {
      limits_.exceeded_ = limits_.exceeded_ || limits_.depth_ == maximumDepth;
      ++limits_.depth_;
    }
    ~Level() { --limits_.depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    DecodingLimits& limits_;
  };

  // True from the first level too deep on: the message as a whole is undecodable.
  [[nodiscard]] bool exceeded() const noexcept { return exceeded_; }

  // How many of `count` declared elements a container may reserve at once. Each element of a valid
  // message takes a byte at least, so its containers get all that they ask for.
  [[nodiscard]] std::size_t grantElements(std::size_t count) noexcept {
    const std::size_t granted = std::min(count, reservableElements_);
    reservableElements_ -= granted;
    return granted;
  }

  // Whether one more element may stand for what a container of `count` declares and the message
  // doesn't hold.
  [[nodiscard]] bool grantLackingElement(std::size_t count) noexcept {
    const bool isGranted = lackingElements_ != 0 && count <= std::size_t{maximumLackingElements};
    lackingElements_ -= isGranted ? 1 : 0;
    return isGranted;
  }

 private:
  std::size_t reservableElements_;
  int lackingElements_ = maximumLackingElements;
  int depth_ = 0;
  bool exceeded_ = false;
};

}  // namespace orvane
