#include "embedding/reply_slot.h"

#include <utility>

#include "embedding/error_stream.h"

namespace orvane {

ReplySlot::ReplySlot(ReplyFunction reply) : reply_(std::move(reply)) {}

ReplySlot::~ReplySlot() {
  if (reply_) {
    logErrorLine("Warning: Failed to respond to a message. This is a memory leak.");
  }
}

void ReplySlot::Send(const std::vector<std::uint8_t>* bytes) {
  if (!reply_) {
    logErrorLine(
        "Error: Only one of Success, Error, or NotImplemented can be called,"
        " and it can be called exactly once. Ignoring duplicate result.");
    return;
  }
  if (bytes == nullptr || bytes->empty()) {
    reply_(nullptr, 0);
  } else {
    reply_(bytes->data(), bytes->size());
  }
  reply_ = nullptr;
}

}  // namespace orvane
