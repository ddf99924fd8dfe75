// The engine, its view and what the host gives them.
#include <cstdio>
#include <exception>

#include "common/scenario_of_run.h"
#include "common/wide_text.h"
#include "flutter_windows/message_turn.h"
#include "flutter_windows/performance.h"
#include "flutter_windows/view_window.h"
#include "world/faults.h"

using namespace orvane::standins;
using orvane::simulation::stopRun;

namespace {

std::string pathText(const wchar_t* path) { return path == nullptr ? std::string() : utf8FromWide(path); }

void recordEngine(EngineFacts& facts, const FlutterDesktopEngineProperties& properties) {
  facts = {};
  facts.assetsPath = pathText(properties.assets_path);
  facts.icuDataPath = pathText(properties.icu_data_path);
  facts.aotLibraryPath = pathText(properties.aot_library_path);
  for (int index = 0; index < properties.dart_entrypoint_argc; ++index) {
    facts.entryPointArguments.emplace_back(properties.dart_entrypoint_argv[index]);
  }
}

UINT dpiBy(HMONITOR monitor) {
  using Function = HRESULT WINAPI(HMONITOR, int, UINT*, UINT*);
  constexpr int effectiveDpi = 0;
  UINT horizontal = 0;
  UINT vertical = 0;
  const HMODULE library = ::LoadLibraryW(L"shcore.dll");
  if (library != nullptr) {
    const auto address = reinterpret_cast<void*>(::GetProcAddress(library, "GetDpiForMonitor"));
    auto* const read = reinterpret_cast<Function*>(address);
    if (read == nullptr || FAILED(read(monitor, effectiveDpi, &horizontal, &vertical))) horizontal = 0;
    ::FreeLibrary(library);
  }
  return horizontal != 0 ? horizontal : ::GetDpiForSystem();
}

}  // namespace

FlutterDesktopEngineRef FlutterDesktopEngineCreate(const FlutterDesktopEngineProperties* properties) {
  try {
    recordEngine(startPerformance(readScenarioOfRun()).engine(), *properties);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "flutter_windows: %s\n", failure.what());
    return nullptr;
  }
  return &engineRoom().makeEngine();
}

bool FlutterDesktopEngineDestroy(FlutterDesktopEngineRef engine) {
  FlutterDesktopEngine& own = engineRoom().engineBehind("FlutterDesktopEngineDestroy", engine);
  if (own.isTaken) stopRun("FlutterDesktopEngineDestroy", "the engine belongs to its view controller");
  engineRoom().endEngine(own);
  performance()->finish(nullptr);
  return true;
}

FlutterDesktopMessengerRef FlutterDesktopEngineGetMessenger(FlutterDesktopEngineRef engine) {
  return engineRoom().engineBehind("FlutterDesktopEngineGetMessenger", engine).messenger;
}

FlutterDesktopPluginRegistrarRef FlutterDesktopEngineGetPluginRegistrar(FlutterDesktopEngineRef engine,
                                                                        const char* plugin_name) {
  auto& registrars = engineRoom().engineBehind("FlutterDesktopEngineGetPluginRegistrar", engine).registrars;
  FlutterDesktopPluginRegistrar& registrar = registrars[plugin_name];
  registrar.plugin = plugin_name;
  return &registrar;
}

void FlutterDesktopEngineReloadSystemFonts(FlutterDesktopEngineRef engine) {
  engineRoom().engineBehind("FlutterDesktopEngineReloadSystemFonts", engine);
}

void FlutterDesktopEngineSetNextFrameCallback(FlutterDesktopEngineRef engine, FlutterDesktopFrameCallback callback,
                                              void* user_data) {
  FlutterDesktopEngine& own = engineRoom().engineBehind("FlutterDesktopEngineSetNextFrameCallback", engine);
  own.frameCallback = callback;
  own.frameUserData = user_data;
}

FlutterDesktopViewControllerRef FlutterDesktopViewControllerCreate(int width, int height,
                                                                   FlutterDesktopEngineRef engine) {
  constexpr const char* call = "FlutterDesktopViewControllerCreate";
  if (engine == nullptr) return nullptr;
  FlutterDesktopEngine& own = engineRoom().engineBehind(call, engine);
  if (own.isTaken) stopRun(call, "the engine belongs to another view controller");
  own.isTaken = true;
  FlutterDesktopViewController& controller = engineRoom().makeController(own);
  controller.view.window = makeViewWindow(width, height);
  performance()->openView(controller.view.window, width, height);
  startMessageTurns();
  return &controller;
}

void FlutterDesktopViewControllerDestroy(FlutterDesktopViewControllerRef controller) {
  FlutterDesktopViewController& own = engineRoom().controllerBehind("FlutterDesktopViewControllerDestroy", controller);
  own.isAlive = false;
  stopMessageTurns();
  engineRoom().endEngine(*own.engine);
  // A window is hidden before it is told of its end; a host may also end without closing it.
  const HWND window = ::GetAncestor(own.view.window, GA_ROOT);
  performance()->finish(::IsWindowVisible(window) == FALSE ? window : nullptr);
  ::DestroyWindow(own.view.window);
}

FlutterDesktopViewRef FlutterDesktopViewControllerGetView(FlutterDesktopViewControllerRef controller) {
  return &engineRoom().controllerBehind("FlutterDesktopViewControllerGetView", controller).view;
}

void FlutterDesktopViewControllerForceRedraw(FlutterDesktopViewControllerRef controller) {
  engineRoom().controllerBehind("FlutterDesktopViewControllerForceRedraw", controller).engine->wantsFrame = true;
}

bool FlutterDesktopViewControllerHandleTopLevelWindowProc(FlutterDesktopViewControllerRef controller, HWND, UINT,
                                                          WPARAM, LPARAM, LRESULT*) {
  engineRoom().controllerBehind("FlutterDesktopViewControllerHandleTopLevelWindowProc", controller);
  return false;
}

HWND FlutterDesktopViewGetHWND(FlutterDesktopViewRef view) {
  return engineRoom().viewBehind("FlutterDesktopViewGetHWND", view).window;
}

UINT FlutterDesktopGetDpiForMonitor(HMONITOR monitor) { return dpiBy(monitor); }

void FlutterDesktopResyncOutputStreams() {}

// The plugins' libraries say through this that they were registered.
extern "C" __declspec(dllexport) void OrvaneStandInPluginRegistered(FlutterDesktopPluginRegistrarRef registrar) {
  const FlutterDesktopPluginRegistrar& own = engineRoom().registrarBehind("OrvaneStandInPluginRegistered", registrar);
  performance()->engine().plugins.push_back(own.plugin);
}
