#include "embedding/fake_flutter_library.h"

#include <algorithm>
#include <array>

namespace orvane::embedding_tests {
namespace {

// Handles are the addresses of these.
std::array<char, 6> objects;

template <typename Handle>
Handle handleOf(std::size_t object) {
  return reinterpret_cast<Handle>(&objects.at(object));
}

FakeFlutterLibrary& noted(const char* call) {
  fakeLibrary().calls.emplace_back(call);
  return fakeLibrary();
}

Bytes copied(const std::uint8_t* bytes, std::size_t size) { return size == 0 ? Bytes() : Bytes(bytes, bytes + size); }

}  // namespace

FakeFlutterLibrary& fakeLibrary() {
  static FakeFlutterLibrary library;
  return library;
}

void resetFakeLibrary() { fakeLibrary() = FakeFlutterLibrary(); }

FlutterDesktopEngineRef FakeFlutterLibrary::engine() const { return handleOf<FlutterDesktopEngineRef>(0); }
FlutterDesktopViewControllerRef FakeFlutterLibrary::controller() const {
  return handleOf<FlutterDesktopViewControllerRef>(1);
}
FlutterDesktopViewRef FakeFlutterLibrary::view() const { return handleOf<FlutterDesktopViewRef>(2); }
FlutterDesktopMessengerRef FakeFlutterLibrary::messenger() const { return handleOf<FlutterDesktopMessengerRef>(3); }
FlutterDesktopPluginRegistrarRef FakeFlutterLibrary::registrar() const {
  return handleOf<FlutterDesktopPluginRegistrarRef>(4);
}
HWND FakeFlutterLibrary::viewWindow() const { return handleOf<HWND>(5); }

void FakeFlutterLibrary::deliver(const std::string& channel, const Bytes& message, std::size_t handle) const {
  const auto found = std::find_if(channelCallbacks.rbegin(), channelCallbacks.rend(),
                                  [&](const ChannelCallback& each) { return each.channel == channel; });
  const FlutterDesktopMessage incoming = {
      .struct_size = sizeof(FlutterDesktopMessage),
      .channel = channel.c_str(),
      .message = message.data(),
      .message_size = message.size(),
      .response_handle = reinterpret_cast<const FlutterDesktopMessageResponseHandle*>(handle),
  };
  found->callback(messenger(), &incoming, found->userData);
}

void FakeFlutterLibrary::drawFrame() const { frameCallback(frameUserData); }

}  // namespace orvane::embedding_tests

using orvane::embedding_tests::copied;
using orvane::embedding_tests::FakeFlutterLibrary;
using orvane::embedding_tests::fakeLibrary;
using orvane::embedding_tests::noted;

FlutterDesktopEngineRef FlutterDesktopEngineCreate(const FlutterDesktopEngineProperties* properties) {
  FakeFlutterLibrary& library = noted("EngineCreate");
  FakeFlutterLibrary::Properties given;
  given.assetsPath = properties->assets_path;
  given.icuDataPath = properties->icu_data_path;
  given.aotLibraryPath = properties->aot_library_path;
  given.entryPoint = properties->dart_entrypoint;
  given.argumentPointerIsNull = properties->dart_entrypoint_argv == nullptr;
  for (int index = 0; index < properties->dart_entrypoint_argc; ++index) {
    given.arguments.emplace_back(properties->dart_entrypoint_argv[index]);
  }
  given.options = {properties->first_option, properties->second_option, properties->third_option};
  library.properties = given;
  return library.makesEngine ? library.engine() : nullptr;
}

bool FlutterDesktopEngineDestroy(FlutterDesktopEngineRef engine) { return noted("EngineDestroy").engine() == engine; }

FlutterDesktopMessengerRef FlutterDesktopEngineGetMessenger(FlutterDesktopEngineRef engine) {
  FakeFlutterLibrary& library = noted("EngineGetMessenger");
  return engine == library.engine() ? library.messenger() : nullptr;
}

FlutterDesktopPluginRegistrarRef FlutterDesktopEngineGetPluginRegistrar(FlutterDesktopEngineRef engine,
                                                                        const char* plugin_name) {
  FakeFlutterLibrary& library = noted("EngineGetPluginRegistrar");
  library.plugins.emplace_back(plugin_name);
  return engine == library.engine() ? library.registrar() : nullptr;
}

void FlutterDesktopEngineReloadSystemFonts(FlutterDesktopEngineRef engine) {
  noted(engine == fakeLibrary().engine() ? "EngineReloadSystemFonts" : "EngineReloadSystemFonts without engine");
}

void FlutterDesktopEngineSetNextFrameCallback(FlutterDesktopEngineRef engine, FlutterDesktopFrameCallback callback,
                                              void* user_data) {
  FakeFlutterLibrary& library = noted("EngineSetNextFrameCallback");
  if (engine == library.engine()) {
    library.frameCallback = callback;
    library.frameUserData = user_data;
  }
}

FlutterDesktopViewControllerRef FlutterDesktopViewControllerCreate(int width, int height,
                                                                   FlutterDesktopEngineRef engine) {
  FakeFlutterLibrary& library = noted("ViewControllerCreate");
  library.width = width;
  library.height = height;
  return library.makesController && engine == library.engine() ? library.controller() : nullptr;
}

void FlutterDesktopViewControllerDestroy(FlutterDesktopViewControllerRef controller) {
  noted(controller == fakeLibrary().controller() ? "ViewControllerDestroy" : "ViewControllerDestroy of another");
}

FlutterDesktopViewRef FlutterDesktopViewControllerGetView(FlutterDesktopViewControllerRef controller) {
  FakeFlutterLibrary& library = noted("ViewControllerGetView");
  return library.makesView && controller == library.controller() ? library.view() : nullptr;
}

HWND FlutterDesktopViewGetHWND(FlutterDesktopViewRef view) {
  FakeFlutterLibrary& library = noted("ViewGetHWND");
  return view == library.view() ? library.viewWindow() : nullptr;
}

bool FlutterDesktopMessengerSend(FlutterDesktopMessengerRef, const char* channel, const std::uint8_t* message,
                                 std::size_t message_size) {
  FakeFlutterLibrary& library = noted("MessengerSend");
  library.sent.push_back({channel, copied(message, message_size), nullptr, nullptr});
  return library.sends;
}

bool FlutterDesktopMessengerSendWithReply(FlutterDesktopMessengerRef, const char* channel, const std::uint8_t* message,
                                          std::size_t message_size, FlutterDesktopBinaryReply reply, void* user_data) {
  FakeFlutterLibrary& library = noted("MessengerSendWithReply");
  library.sent.push_back({channel, copied(message, message_size), reply, user_data});
  return library.sends;
}

void FlutterDesktopMessengerSendResponse(FlutterDesktopMessengerRef, const FlutterDesktopMessageResponseHandle* handle,
                                         const std::uint8_t* data, std::size_t size) {
  FakeFlutterLibrary& library = noted("MessengerSendResponse");
  library.responses.push_back({reinterpret_cast<std::size_t>(handle), copied(data, size), data == nullptr});
}

void FlutterDesktopMessengerSetCallback(FlutterDesktopMessengerRef, const char* channel,
                                        FlutterDesktopMessageCallback callback, void* user_data) {
  noted("MessengerSetCallback").channelCallbacks.push_back({channel, callback, user_data});
}

FlutterDesktopMessengerRef FlutterDesktopMessengerAddRef(FlutterDesktopMessengerRef messenger) {
  ++noted("MessengerAddRef").messengerReferences;
  return messenger;
}

void FlutterDesktopMessengerRelease(FlutterDesktopMessengerRef) { --noted("MessengerRelease").messengerReferences; }

FlutterDesktopMessengerRef FlutterDesktopMessengerLock(FlutterDesktopMessengerRef messenger) {
  ++noted("MessengerLock").messengerLocks;
  return messenger;
}

void FlutterDesktopMessengerUnlock(FlutterDesktopMessengerRef) { --noted("MessengerUnlock").messengerLocks; }

bool FlutterDesktopMessengerIsAvailable(FlutterDesktopMessengerRef) {
  return noted("MessengerIsAvailable").isAvailable;
}
