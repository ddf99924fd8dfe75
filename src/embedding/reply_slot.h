#pragma once

#include <cstdint>
#include <vector>

#include "embedding/binary_messenger.h"

namespace orvane {

// Holds the one reply function of a message, and is empty after its use. A slot that goes while it
// still holds one leaves the sender waiting, and says so on the error stream.
class ReplySlot {
 public:
  explicit ReplySlot(ReplyFunction reply);
  ~ReplySlot();

  ReplySlot(const ReplySlot&) = delete;
  ReplySlot& operator=(const ReplySlot&) = delete;

  // Sends the bytes, or an empty reply when `bytes` is null. A second reply is logged and dropped.
  void Send(const std::vector<std::uint8_t>* bytes);

 private:
  ReplyFunction reply_;
};

}  // namespace orvane
