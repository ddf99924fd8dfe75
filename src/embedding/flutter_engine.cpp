#include "embedding/flutter_engine.h"

#include <utility>
#include <vector>

#include "embedding/error_stream.h"
#include "embedding/exception_barrier.h"

namespace orvane {
namespace {

FlutterDesktopEngineRef createEngine(const DartProject& project) {
  std::vector<const char*> arguments;
  arguments.reserve(project.entryPointArguments().size());
  for (const std::string& argument : project.entryPointArguments()) {
    arguments.push_back(argument.c_str());
  }
  const FlutterDesktopEngineProperties properties = {
      .assets_path = project.assetsPath().c_str(),
      .icu_data_path = project.icuDataPath().c_str(),
      .aot_library_path = project.aotLibraryPath().c_str(),
      .dart_entrypoint = project.entryPoint().c_str(),
      .dart_entrypoint_argc = static_cast<int>(arguments.size()),
      .dart_entrypoint_argv = arguments.empty() ? nullptr : arguments.data(),
      .first_option = project.firstOption(),
      .second_option = project.secondOption(),
      .third_option = project.thirdOption(),
  };
  return FlutterDesktopEngineCreate(&properties);
}

}  // namespace

FlutterEngine::FlutterEngine(const DartProject& project) : engine_(createEngine(project)) {
  if (engine_ != nullptr) {
    messenger_ = std::make_unique<BinaryMessengerImpl>(FlutterDesktopEngineGetMessenger(engine_));
  }
}

FlutterEngine::~FlutterEngine() {
  if (engine_ != nullptr && ownsEngine_) {
    FlutterDesktopEngineDestroy(engine_);
  }
}

FlutterDesktopEngineRef FlutterEngine::relinquish() noexcept {
  ownsEngine_ = false;
  return engine_;
}

FlutterDesktopPluginRegistrarRef FlutterEngine::GetRegistrarForPlugin(const std::string& plugin) {
  if (engine_ == nullptr) {
    logErrorLine("Cannot get plugin registrar on an engine that isn't running; call Run first.");
    return nullptr;
  }
  return FlutterDesktopEngineGetPluginRegistrar(engine_, plugin.c_str());
}

void FlutterEngine::ReloadSystemFonts() {
  if (engine_ != nullptr) {
    FlutterDesktopEngineReloadSystemFonts(engine_);
  }
}

void FlutterEngine::SetNextFrameCallback(std::function<void()> act) {
  nextFrame_ = std::move(act);
  if (engine_ != nullptr) {
    FlutterDesktopEngineSetNextFrameCallback(engine_, forwardFrame, this);
  }
}

// Emptied before the call, so that the function may ask for the frame after it.
void FlutterEngine::forwardFrame(void* userData) noexcept {
  auto& engine = *static_cast<FlutterEngine*>(userData);
  if (const std::function<void()> act = std::exchange(engine.nextFrame_, nullptr)) {
    callWithoutExceptions("a frame", act);
  }
}

}  // namespace orvane
