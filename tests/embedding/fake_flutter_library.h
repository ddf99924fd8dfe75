#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "embedding/flutter_library.h"

namespace orvane::embedding_tests {

using Bytes = std::vector<std::uint8_t>;

// What the library was called with, and how it is to behave. One engine, one controller, one view.
struct FakeFlutterLibrary {
  // What fails.
  bool makesEngine = true;
  bool makesController = true;
  bool makesView = true;
  bool sends = true;
  bool isAvailable = true;

  // The names of the functions called, without the common prefix, in order.
  std::vector<std::string> calls;

  struct Properties {
    std::wstring assetsPath;
    std::wstring icuDataPath;
    std::wstring aotLibraryPath;
    std::string entryPoint;
    std::vector<std::string> arguments;
    bool argumentPointerIsNull = false;
    std::vector<std::int32_t> options;
  };
  std::optional<Properties> properties;
  int width = 0;
  int height = 0;
  std::vector<std::string> plugins;

  FlutterDesktopFrameCallback frameCallback = nullptr;
  void* frameUserData = nullptr;

  struct ChannelCallback {
    std::string channel;
    FlutterDesktopMessageCallback callback = nullptr;
    void* userData = nullptr;
  };
  std::vector<ChannelCallback> channelCallbacks;  // each one that was set, in order

  struct Sent {
    std::string channel;
    Bytes bytes;
    FlutterDesktopBinaryReply reply = nullptr;
    void* userData = nullptr;
  };
  std::vector<Sent> sent;

  struct Response {
    std::size_t handle = 0;
    Bytes bytes;
    bool isNull = false;
  };
  std::vector<Response> responses;

  int messengerReferences = 0;
  int messengerLocks = 0;

  [[nodiscard]] FlutterDesktopEngineRef engine() const;
  [[nodiscard]] FlutterDesktopViewControllerRef controller() const;
  [[nodiscard]] FlutterDesktopViewRef view() const;
  [[nodiscard]] FlutterDesktopMessengerRef messenger() const;
  [[nodiscard]] FlutterDesktopPluginRegistrarRef registrar() const;
  [[nodiscard]] HWND viewWindow() const;

  // Hands a message with the response handle `handle` to the last callback of the channel; handle 0
  // is the null handle.
  void deliver(const std::string& channel, const Bytes& message, std::size_t handle) const;
  void drawFrame() const;
};

// The library of the running test.
FakeFlutterLibrary& fakeLibrary();

// Puts a library without calls in place.
void resetFakeLibrary();

}  // namespace orvane::embedding_tests
