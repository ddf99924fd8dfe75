#include "embedding/flutter_library.h"
#include "windows/call.h"
#include "windows/messages.h"
#include "windows/state.h"
#include "windows/wide_text.h"
#include "windows/window_geometry.h"
#include "windows/window_life.h"

using namespace orvane::simulation;

namespace {

Text pathText(const wchar_t* path) { return path == nullptr ? Text() : textFromWide(path); }

void recordEngine(EngineRecord& record, const FlutterDesktopEngineProperties& properties) {
  record.created = true;
  record.assetsPath = pathText(properties.assets_path);
  record.icuDataPath = pathText(properties.icu_data_path);
  record.aotLibraryPath = pathText(properties.aot_library_path);
  record.argumentPointerWasNull = properties.dart_entrypoint_argv == nullptr;
  record.entryPointArguments.clear();
  for (int index = 0; index < properties.dart_entrypoint_argc; ++index) {
    record.entryPointArguments.emplace_back(properties.dart_entrypoint_argv[index]);
  }
}

void registerPlugin(const char* call, FlutterDesktopPluginRegistrarRef registrar) {
  PlatformState& state = stateFor(call);
  if (enter(call)) return;
  state.records.engine.plugins.push_back(state.engines.registrarBehind(call, registrar).plugin);
}

}  // namespace

FlutterDesktopEngineRef FlutterDesktopEngineCreate(const FlutterDesktopEngineProperties* properties) {
  PlatformState& state = stateFor("FlutterDesktopEngineCreate");
  if (const auto fault = enter("FlutterDesktopEngineCreate")) return faulted<FlutterDesktopEngineRef>(*fault);
  recordEngine(state.records.engine, *properties);
  return &state.engines.makeEngine();
}

bool FlutterDesktopEngineDestroy(FlutterDesktopEngineRef engine) {
  PlatformState& state = stateFor("FlutterDesktopEngineDestroy");
  if (const auto fault = enter("FlutterDesktopEngineDestroy")) return faulted<bool>(*fault);
  FlutterDesktopEngine& own = state.engines.engineBehind("FlutterDesktopEngineDestroy", engine);
  if (own.isTaken) stopRun("FlutterDesktopEngineDestroy", "the engine belongs to its view controller");
  state.engines.endEngine(own);
  return true;
}

FlutterDesktopMessengerRef FlutterDesktopEngineGetMessenger(FlutterDesktopEngineRef engine) {
  PlatformState& state = stateFor("FlutterDesktopEngineGetMessenger");
  if (const auto fault = enter("FlutterDesktopEngineGetMessenger")) return faulted<FlutterDesktopMessengerRef>(*fault);
  return state.engines.engineBehind("FlutterDesktopEngineGetMessenger", engine).messenger;
}

FlutterDesktopPluginRegistrarRef FlutterDesktopEngineGetPluginRegistrar(FlutterDesktopEngineRef engine,
                                                                        const char* plugin_name) {
  constexpr const char* call = "FlutterDesktopEngineGetPluginRegistrar";
  PlatformState& state = stateFor(call);
  if (const auto fault = enter(call)) return faulted<FlutterDesktopPluginRegistrarRef>(*fault);
  FlutterDesktopPluginRegistrar& registrar = state.engines.engineBehind(call, engine).registrars[plugin_name];
  registrar.plugin = plugin_name;
  return &registrar;
}

void FlutterDesktopEngineReloadSystemFonts(FlutterDesktopEngineRef engine) {
  PlatformState& state = stateFor("FlutterDesktopEngineReloadSystemFonts");
  if (enter("FlutterDesktopEngineReloadSystemFonts")) return;
  state.engines.engineBehind("FlutterDesktopEngineReloadSystemFonts", engine);
}

void FlutterDesktopEngineSetNextFrameCallback(FlutterDesktopEngineRef engine, FlutterDesktopFrameCallback callback,
                                              void* user_data) {
  PlatformState& state = stateFor("FlutterDesktopEngineSetNextFrameCallback");
  if (enter("FlutterDesktopEngineSetNextFrameCallback")) return;
  FlutterDesktopEngine& own = state.engines.engineBehind("FlutterDesktopEngineSetNextFrameCallback", engine);
  own.frameCallback = callback;
  own.frameUserData = user_data;
}

FlutterDesktopViewControllerRef FlutterDesktopViewControllerCreate(int width, int height,
                                                                   FlutterDesktopEngineRef engine) {
  constexpr const char* call = "FlutterDesktopViewControllerCreate";
  PlatformState& state = stateFor(call);
  if (const auto fault = enter(call)) return faulted<FlutterDesktopViewControllerRef>(*fault);
  if (engine == nullptr) return nullptr;
  FlutterDesktopEngine& own = state.engines.engineBehind(call, engine);
  if (own.isTaken) stopRun(call, "the engine belongs to another view controller");
  own.isTaken = true;
  FlutterDesktopViewController& controller = state.engines.makeController(own);
  controller.view.window = handleOf(&makeLibraryWindow(state, width, height));
  state.records.engine.width = width;
  state.records.engine.height = height;
  return &controller;
}

void FlutterDesktopViewControllerDestroy(FlutterDesktopViewControllerRef controller) {
  PlatformState& state = stateFor("FlutterDesktopViewControllerDestroy");
  if (enter("FlutterDesktopViewControllerDestroy")) return;
  FlutterDesktopViewController& own = state.engines.controllerBehind("FlutterDesktopViewControllerDestroy", controller);
  own.isAlive = false;
  if (Window* const window = state.liveWindow(own.view.window)) endWindow(state, *window);
  state.engines.endEngine(*own.engine);
}

FlutterDesktopViewRef FlutterDesktopViewControllerGetView(FlutterDesktopViewControllerRef controller) {
  PlatformState& state = stateFor("FlutterDesktopViewControllerGetView");
  if (const auto fault = enter("FlutterDesktopViewControllerGetView")) return faulted<FlutterDesktopViewRef>(*fault);
  return &state.engines.controllerBehind("FlutterDesktopViewControllerGetView", controller).view;
}

void FlutterDesktopViewControllerForceRedraw(FlutterDesktopViewControllerRef controller) {
  PlatformState& state = stateFor("FlutterDesktopViewControllerForceRedraw");
  if (enter("FlutterDesktopViewControllerForceRedraw")) return;
  state.engines.controllerBehind("FlutterDesktopViewControllerForceRedraw", controller).engine->wantsFrame = true;
}

bool FlutterDesktopViewControllerHandleTopLevelWindowProc(FlutterDesktopViewControllerRef controller, HWND window, UINT,
                                                          WPARAM, LPARAM, LRESULT* result) {
  constexpr const char* call = "FlutterDesktopViewControllerHandleTopLevelWindowProc";
  PlatformState& state = stateFor(call);
  const auto fault = enter(call, state.liveWindow(window));
  state.engines.controllerBehind(call, controller);
  const bool isTaken = fault && faulted<bool>(*fault);
  if (isTaken && result != nullptr) *result = 0;
  return isTaken;
}

HWND FlutterDesktopViewGetHWND(FlutterDesktopViewRef view) {
  PlatformState& state = stateFor("FlutterDesktopViewGetHWND");
  if (const auto fault = enter("FlutterDesktopViewGetHWND")) return faulted<HWND>(*fault);
  return state.engines.viewBehind("FlutterDesktopViewGetHWND", view).window;
}

UINT FlutterDesktopGetDpiForMonitor(HMONITOR monitor) {
  PlatformState& state = stateFor("FlutterDesktopGetDpiForMonitor");
  if (const auto fault = enter("FlutterDesktopGetDpiForMonitor")) return faulted<UINT>(*fault);
  return dpiOfMonitor(state.desktop, monitor);
}

void FlutterDesktopResyncOutputStreams() { enter("FlutterDesktopResyncOutputStreams"); }

void DesktopDropPluginRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar) {
  registerPlugin("DesktopDropPluginRegisterWithRegistrar", registrar);
}

void UrlLauncherWindowsRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar) {
  registerPlugin("UrlLauncherWindowsRegisterWithRegistrar", registrar);
}

void WebviewWindowsPluginRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar) {
  registerPlugin("WebviewWindowsPluginRegisterWithRegistrar", registrar);
}
