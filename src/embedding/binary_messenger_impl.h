#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "embedding/binary_messenger.h"
#include "embedding/flutter_library.h"

namespace orvane {

// The messenger of an engine, its plain callbacks turned into function objects.
class BinaryMessengerImpl final : public BinaryMessenger {
 public:
  // `messenger` is FlutterDesktopEngineGetMessenger's and stays the engine's.
  explicit BinaryMessengerImpl(FlutterDesktopMessengerRef messenger) noexcept : messenger_(messenger) {}

  void Send(const std::string& channel, const std::uint8_t* bytes, std::size_t size, ReplyFunction reply) override;
  void SetMessageHandler(const std::string& channel, MessageHandler handler) override;

 private:
  // Shared with the call that is running it: a handler may be replaced, or the messenger dropped,
  // in the middle of one.
  using StoredHandler = std::shared_ptr<const MessageHandler>;

  static void forwardMessage(FlutterDesktopMessengerRef messenger, const FlutterDesktopMessage* message,
                             void* userData) noexcept;

  FlutterDesktopMessengerRef messenger_;
  // The library holds the address of each stored handler, which a map keeps.
  std::map<std::string, StoredHandler> handlers_;
};

}  // namespace orvane
