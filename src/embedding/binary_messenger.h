#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace orvane {

// Takes the bytes of a reply; null and 0 for an empty one.
using ReplyFunction = std::function<void(const std::uint8_t* bytes, std::size_t size)>;

// Takes a message and the function that answers it. The bytes are valid during the call; the
// function may be kept and called later, once.
using MessageHandler = std::function<void(const std::uint8_t* bytes, std::size_t size, ReplyFunction reply)>;

// Carries bytes between the host and the interface over named channels.
class BinaryMessenger {
 public:
  BinaryMessenger() = default;
  virtual ~BinaryMessenger() = default;

  BinaryMessenger(const BinaryMessenger&) = delete;
  BinaryMessenger& operator=(const BinaryMessenger&) = delete;

  // An empty `reply` asks for none. `reply` is never called when the message couldn't be sent.
  virtual void Send(const std::string& channel, const std::uint8_t* bytes, std::size_t size, ReplyFunction reply) = 0;

  // Replaces the channel's handler; an empty one removes it.
  virtual void SetMessageHandler(const std::string& channel, MessageHandler handler) = 0;
};

}  // namespace orvane
