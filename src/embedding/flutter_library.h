#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

// The C interface of flutter_windows.dll and of the three plugin libraries, as far as the host
// uses it. All handles are opaque and belong to the library.
extern "C" {

using FlutterDesktopEngineRef = struct FlutterDesktopEngine*;
using FlutterDesktopViewControllerRef = struct FlutterDesktopViewController*;
using FlutterDesktopViewRef = struct FlutterDesktopView*;
using FlutterDesktopPluginRegistrarRef = struct FlutterDesktopPluginRegistrar*;
using FlutterDesktopMessengerRef = struct FlutterDesktopMessenger*;
using FlutterDesktopMessageResponseHandle = struct FlutterPlatformMessageResponseHandle;

struct FlutterDesktopEngineProperties {
  const wchar_t* assets_path;
  const wchar_t* icu_data_path;
  const wchar_t* aot_library_path;
  const char* dart_entrypoint;
  int dart_entrypoint_argc;
  const char** dart_entrypoint_argv;
  std::int32_t first_option;
  std::int32_t second_option;
  std::int32_t third_option;
};

struct FlutterDesktopMessage {
  std::size_t struct_size;
  const char* channel;
  const std::uint8_t* message;
  std::size_t message_size;
  const FlutterDesktopMessageResponseHandle* response_handle;
};

using FlutterDesktopBinaryReply = void (*)(const std::uint8_t* data, std::size_t size, void* user_data);
using FlutterDesktopMessageCallback = void (*)(FlutterDesktopMessengerRef messenger,
                                               const FlutterDesktopMessage* message, void* user_data);
using FlutterDesktopFrameCallback = void (*)(void* user_data);

FlutterDesktopEngineRef FlutterDesktopEngineCreate(const FlutterDesktopEngineProperties* properties);
bool FlutterDesktopEngineDestroy(FlutterDesktopEngineRef engine);
FlutterDesktopMessengerRef FlutterDesktopEngineGetMessenger(FlutterDesktopEngineRef engine);
FlutterDesktopPluginRegistrarRef FlutterDesktopEngineGetPluginRegistrar(FlutterDesktopEngineRef engine,
                                                                        const char* plugin_name);
void FlutterDesktopEngineReloadSystemFonts(FlutterDesktopEngineRef engine);
void FlutterDesktopEngineSetNextFrameCallback(FlutterDesktopEngineRef engine, FlutterDesktopFrameCallback callback,
                                              void* user_data);

FlutterDesktopViewControllerRef FlutterDesktopViewControllerCreate(int width, int height,
                                                                   FlutterDesktopEngineRef engine);
void FlutterDesktopViewControllerDestroy(FlutterDesktopViewControllerRef controller);
FlutterDesktopViewRef FlutterDesktopViewControllerGetView(FlutterDesktopViewControllerRef controller);
void FlutterDesktopViewControllerForceRedraw(FlutterDesktopViewControllerRef controller);
bool FlutterDesktopViewControllerHandleTopLevelWindowProc(FlutterDesktopViewControllerRef controller, HWND window,
                                                          UINT message, WPARAM wparam, LPARAM lparam, LRESULT* result);
HWND FlutterDesktopViewGetHWND(FlutterDesktopViewRef view);
UINT FlutterDesktopGetDpiForMonitor(HMONITOR monitor);
void FlutterDesktopResyncOutputStreams(void);

bool FlutterDesktopMessengerSend(FlutterDesktopMessengerRef messenger, const char* channel, const std::uint8_t* message,
                                 std::size_t message_size);
bool FlutterDesktopMessengerSendWithReply(FlutterDesktopMessengerRef messenger, const char* channel,
                                          const std::uint8_t* message, std::size_t message_size,
                                          FlutterDesktopBinaryReply reply, void* user_data);
void FlutterDesktopMessengerSendResponse(FlutterDesktopMessengerRef messenger,
                                         const FlutterDesktopMessageResponseHandle* handle, const std::uint8_t* data,
                                         std::size_t size);
void FlutterDesktopMessengerSetCallback(FlutterDesktopMessengerRef messenger, const char* channel,
                                        FlutterDesktopMessageCallback callback, void* user_data);
FlutterDesktopMessengerRef FlutterDesktopMessengerAddRef(FlutterDesktopMessengerRef messenger);
void FlutterDesktopMessengerRelease(FlutterDesktopMessengerRef messenger);
FlutterDesktopMessengerRef FlutterDesktopMessengerLock(FlutterDesktopMessengerRef messenger);
void FlutterDesktopMessengerUnlock(FlutterDesktopMessengerRef messenger);
bool FlutterDesktopMessengerIsAvailable(FlutterDesktopMessengerRef messenger);

void DesktopDropPluginRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar);
void UrlLauncherWindowsRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar);
void WebviewWindowsPluginRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar);

}  // extern "C"
