#include "embedding/message_writer.h"

namespace orvane {

void MessageWriter::flush() {
  if (message_ == nullptr) {
    message_ = std::make_unique<std::vector<std::uint8_t>>();
    message_->reserve(countBytes_());
  }
  message_->insert(message_->end(), buffer_.data(), next_);
  flushed_ = message_->size();
  next_ = buffer_.data();
}

void MessageWriter::writeThrough(const std::uint8_t* bytes, std::size_t count) {
  flush();
  message_->insert(message_->end(), bytes, bytes + count);
  flushed_ = message_->size();
}

}  // namespace orvane
