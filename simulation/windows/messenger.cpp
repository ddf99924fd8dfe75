#include <optional>

#include "embedding/flutter_library.h"
#include "windows/call.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

FlutterDesktopMessenger& behind(const char* call, FlutterDesktopMessengerRef messenger) {
  return stateFor(call).engines.messengerBehind(call, messenger);
}

Bytes bytesOf(const std::uint8_t* data, std::size_t size) {
  return data == nullptr ? Bytes{} : Bytes(data, data + size);
}

// Hands a call of the host to the interface; nullopt when it answers nothing.
std::optional<Bytes> callInterface(PlatformState& state, const char* channel, const std::uint8_t* message,
                                   std::size_t size) {
  return state.script == nullptr ? std::nullopt : state.script->messageFromHost(channel, bytesOf(message, size));
}

}  // namespace

bool FlutterDesktopMessengerSend(FlutterDesktopMessengerRef messenger, const char* channel, const std::uint8_t* message,
                                 std::size_t message_size) {
  constexpr const char* call = "FlutterDesktopMessengerSend";
  if (const auto fault = enter(call)) return faulted<bool>(*fault);
  if (behind(call, messenger).engine == nullptr) return false;
  callInterface(stateFor(call), channel, message, message_size);
  return true;
}

bool FlutterDesktopMessengerSendWithReply(FlutterDesktopMessengerRef messenger, const char* channel,
                                          const std::uint8_t* message, std::size_t message_size,
                                          FlutterDesktopBinaryReply reply, void* user_data) {
  constexpr const char* call = "FlutterDesktopMessengerSendWithReply";
  PlatformState& state = stateFor(call);
  if (const auto fault = enter(call)) return faulted<bool>(*fault);
  if (behind(call, messenger).engine == nullptr) return false;
  const std::optional<Bytes> data = callInterface(state, channel, message, message_size);
  if (data && reply != nullptr) state.engines.queueReply(reply, user_data, *data);
  return true;
}

void FlutterDesktopMessengerSendResponse(FlutterDesktopMessengerRef messenger,
                                         const FlutterDesktopMessageResponseHandle* handle, const std::uint8_t* data,
                                         std::size_t size) {
  constexpr const char* call = "FlutterDesktopMessengerSendResponse";
  if (enter(call)) return;
  behind(call, messenger);
  stateFor(call).engines.answer(handle, bytesOf(data, size));
}

void FlutterDesktopMessengerSetCallback(FlutterDesktopMessengerRef messenger, const char* channel,
                                        FlutterDesktopMessageCallback callback, void* user_data) {
  constexpr const char* call = "FlutterDesktopMessengerSetCallback";
  if (enter(call)) return;
  FlutterDesktopEngine* const engine = behind(call, messenger).engine;
  if (engine == nullptr) return;
  if (callback == nullptr) {
    engine->handlers.erase(channel);
  } else {
    engine->handlers[channel] = {callback, user_data};
  }
}

FlutterDesktopMessengerRef FlutterDesktopMessengerAddRef(FlutterDesktopMessengerRef messenger) {
  if (const auto fault = enter("FlutterDesktopMessengerAddRef")) return faulted<FlutterDesktopMessengerRef>(*fault);
  ++behind("FlutterDesktopMessengerAddRef", messenger).references;
  return messenger;
}

void FlutterDesktopMessengerRelease(FlutterDesktopMessengerRef messenger) {
  if (enter("FlutterDesktopMessengerRelease")) return;
  FlutterDesktopMessenger& own = behind("FlutterDesktopMessengerRelease", messenger);
  if (--own.references == 0 && own.engine != nullptr) {
    stopRun("FlutterDesktopMessengerRelease", "the engine's own reference");
  }
}

FlutterDesktopMessengerRef FlutterDesktopMessengerLock(FlutterDesktopMessengerRef messenger) {
  if (const auto fault = enter("FlutterDesktopMessengerLock")) return faulted<FlutterDesktopMessengerRef>(*fault);
  ++behind("FlutterDesktopMessengerLock", messenger).locks;
  return messenger;
}

void FlutterDesktopMessengerUnlock(FlutterDesktopMessengerRef messenger) {
  if (enter("FlutterDesktopMessengerUnlock")) return;
  FlutterDesktopMessenger& own = behind("FlutterDesktopMessengerUnlock", messenger);
  if (own.locks == 0) stopRun("FlutterDesktopMessengerUnlock", "the messenger isn't locked");
  --own.locks;
}

bool FlutterDesktopMessengerIsAvailable(FlutterDesktopMessengerRef messenger) {
  if (const auto fault = enter("FlutterDesktopMessengerIsAvailable")) return faulted<bool>(*fault);
  return behind("FlutterDesktopMessengerIsAvailable", messenger).engine != nullptr;
}
