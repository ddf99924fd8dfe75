#include "embedding/binary_messenger_impl.h"

#include <utility>

#include "embedding/error_stream.h"
#include "embedding/exception_barrier.h"
#include "embedding/unique_resource.h"

namespace orvane {
namespace {

struct MessengerReferenceTraits {
  using Value = FlutterDesktopMessengerRef;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value messenger) noexcept { FlutterDesktopMessengerRelease(messenger); }
};
using MessengerReference = UniqueResource<MessengerReferenceTraits>;

struct MessengerLockTraits {
  using Value = FlutterDesktopMessengerRef;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value messenger) noexcept { FlutterDesktopMessengerUnlock(messenger); }
};
using MessengerLock = UniqueResource<MessengerLockTraits>;

// The answer that one message waits for. It may outlive the engine and be given on any thread.
class PendingResponse {
 public:
  PendingResponse(FlutterDesktopMessengerRef messenger, const FlutterDesktopMessageResponseHandle* handle)
      : messenger_(messenger), reference_(FlutterDesktopMessengerAddRef(messenger)), handle_(handle) {}

  void send(const std::uint8_t* bytes, std::size_t size) {
    FlutterDesktopMessengerLock(messenger_);
    const MessengerLock lock(messenger_);
    if (!FlutterDesktopMessengerIsAvailable(messenger_)) {
      return;
    }
    if (handle_ == nullptr) {
      logErrorLine("Error: Response can be set only once. Ignoring duplicate response.");
      return;
    }
    FlutterDesktopMessengerSendResponse(messenger_, std::exchange(handle_, nullptr), bytes, size);
  }

 private:
  FlutterDesktopMessengerRef messenger_;
  MessengerReference reference_;
  const FlutterDesktopMessageResponseHandle* handle_;
};

void forwardReply(const std::uint8_t* bytes, std::size_t size, void* userData) noexcept {
  const std::unique_ptr<ReplyFunction> reply(static_cast<ReplyFunction*>(userData));
  callWithoutExceptions("a reply", [&] { (*reply)(bytes, size); });
}

}  // namespace

void BinaryMessengerImpl::Send(const std::string& channel, const std::uint8_t* bytes, std::size_t size,
                               ReplyFunction reply) {
  if (!reply) {
    FlutterDesktopMessengerSend(messenger_, channel.c_str(), bytes, size);
    return;
  }
  auto kept = std::make_unique<ReplyFunction>(std::move(reply));
  if (FlutterDesktopMessengerSendWithReply(messenger_, channel.c_str(), bytes, size, forwardReply, kept.get())) {
    static_cast<void>(kept.release());  // forwardReply's from here on
  }
}

void BinaryMessengerImpl::SetMessageHandler(const std::string& channel, MessageHandler handler) {
  if (!handler) {
    handlers_.erase(channel);
    FlutterDesktopMessengerSetCallback(messenger_, channel.c_str(), nullptr, nullptr);
    return;
  }
  StoredHandler& stored = handlers_[channel];
  stored = std::make_shared<const MessageHandler>(std::move(handler));
  FlutterDesktopMessengerSetCallback(messenger_, channel.c_str(), forwardMessage, &stored);
}

void BinaryMessengerImpl::forwardMessage(FlutterDesktopMessengerRef messenger, const FlutterDesktopMessage* message,
                                         void* userData) noexcept {
  const StoredHandler handler = *static_cast<const StoredHandler*>(userData);
  callWithoutExceptions("a message", [&] {
    auto response = std::make_shared<PendingResponse>(messenger, message->response_handle);
    (*handler)(
        message->message, message->message_size,
        [response = std::move(response)](const std::uint8_t* bytes, std::size_t size) { response->send(bytes, size); });
  });
}

}  // namespace orvane
