#pragma once

#include <functional>
#include <memory>

#include "embedding/binary_messenger_impl.h"
#include "embedding/dart_project.h"
#include "embedding/flutter_library.h"
#include "embedding/plugin_registry.h"

namespace orvane {

// An engine of the embedding library, for use on the platform thread alone.
class FlutterEngine final : public PluginRegistry {
 public:
  // FlutterDesktopEngineCreate with the project; handle() is null when that fails.
  explicit FlutterEngine(const DartProject& project);
  // FlutterDesktopEngineDestroy, unless the engine has been handed on.
  ~FlutterEngine() override;

  FlutterEngine(const FlutterEngine&) = delete;
  FlutterEngine& operator=(const FlutterEngine&) = delete;

  [[nodiscard]] FlutterDesktopEngineRef handle() const noexcept { return engine_; }

  // FlutterDesktopEngineGetMessenger's; null without an engine. Lives as long as this object.
  [[nodiscard]] BinaryMessenger* messenger() const noexcept { return messenger_.get(); }

  // Hands the end of the engine to the caller. The handle stays in use here.
  [[nodiscard]] FlutterDesktopEngineRef relinquish() noexcept;

  // FlutterDesktopEngineGetPluginRegistrar; null, and logged, without an engine.
  FlutterDesktopPluginRegistrarRef GetRegistrarForPlugin(const std::string& plugin) override;

  // FlutterDesktopEngineReloadSystemFonts
  void ReloadSystemFonts();

  // Calls `act` once, after the next frame, in place of a function that still waits for it.
  void SetNextFrameCallback(std::function<void()> act);

 private:
  static void forwardFrame(void* userData) noexcept;

  FlutterDesktopEngineRef engine_;
  std::unique_ptr<BinaryMessengerImpl> messenger_;
  bool ownsEngine_ = true;
  std::function<void()> nextFrame_;
};

}  // namespace orvane
