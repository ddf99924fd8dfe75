// Messages between the host and the interface.
#include "flutter_windows/performance.h"
#include "world/faults.h"

using namespace orvane::standins;
using orvane::simulation::Bytes;
using orvane::simulation::stopRun;

namespace {

FlutterDesktopMessenger& behind(const char* call, FlutterDesktopMessengerRef messenger) {
  return engineRoom().messengerBehind(call, messenger);
}

Bytes bytesOf(const std::uint8_t* data, std::size_t size) {
  return data == nullptr ? Bytes{} : Bytes(data, data + size);
}

}  // namespace

bool FlutterDesktopMessengerSend(FlutterDesktopMessengerRef messenger, const char* channel, const std::uint8_t* message,
                                 std::size_t message_size) {
  if (behind("FlutterDesktopMessengerSend", messenger).engine == nullptr) return false;
  performance()->messageFromHost(channel, bytesOf(message, message_size));
  return true;
}

bool FlutterDesktopMessengerSendWithReply(FlutterDesktopMessengerRef messenger, const char* channel,
                                          const std::uint8_t* message, std::size_t message_size,
                                          FlutterDesktopBinaryReply reply, void* user_data) {
  if (behind("FlutterDesktopMessengerSendWithReply", messenger).engine == nullptr) return false;
  Bytes data = performance()->messageFromHost(channel, bytesOf(message, message_size));
  if (reply != nullptr) engineRoom().queueReply(reply, user_data, std::move(data));
  return true;
}

void FlutterDesktopMessengerSendResponse(FlutterDesktopMessengerRef messenger,
                                         const FlutterDesktopMessageResponseHandle* handle, const std::uint8_t* data,
                                         std::size_t size) {
  behind("FlutterDesktopMessengerSendResponse", messenger);
  engineRoom().answer(handle, bytesOf(data, size));
}

void FlutterDesktopMessengerSetCallback(FlutterDesktopMessengerRef messenger, const char* channel,
                                        FlutterDesktopMessageCallback callback, void* user_data) {
  FlutterDesktopEngine* const engine = behind("FlutterDesktopMessengerSetCallback", messenger).engine;
  if (engine == nullptr) return;
  if (callback == nullptr) {
    engine->handlers.erase(channel);
  } else {
    engine->handlers[channel] = {callback, user_data};
  }
}

FlutterDesktopMessengerRef FlutterDesktopMessengerAddRef(FlutterDesktopMessengerRef messenger) {
  ++behind("FlutterDesktopMessengerAddRef", messenger).references;
  return messenger;
}

void FlutterDesktopMessengerRelease(FlutterDesktopMessengerRef messenger) {
  FlutterDesktopMessenger& own = behind("FlutterDesktopMessengerRelease", messenger);
  if (--own.references == 0 && own.engine != nullptr) {
    stopRun("FlutterDesktopMessengerRelease", "the engine's own reference");
  }
}

FlutterDesktopMessengerRef FlutterDesktopMessengerLock(FlutterDesktopMessengerRef messenger) {
  FlutterDesktopMessenger& own = behind("FlutterDesktopMessengerLock", messenger);
  own.lock.lock();
  ++own.locks;
  return messenger;
}

void FlutterDesktopMessengerUnlock(FlutterDesktopMessengerRef messenger) {
  FlutterDesktopMessenger& own = behind("FlutterDesktopMessengerUnlock", messenger);
  if (own.locks == 0) stopRun("FlutterDesktopMessengerUnlock", "the messenger isn't locked");
  --own.locks;
  own.lock.unlock();
}

bool FlutterDesktopMessengerIsAvailable(FlutterDesktopMessengerRef messenger) {
  return behind("FlutterDesktopMessengerIsAvailable", messenger).engine != nullptr;
}
