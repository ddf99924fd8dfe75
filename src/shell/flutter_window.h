#pragma once

#include <windows.h>

#include <memory>

#include "embedding/dart_project.h"
#include "embedding/flutter_view_controller.h"
#include "embedding/method_channel.h"
#include "shell/win32_window.h"

namespace orvane {

// The one top-level window of a process: embeds the Flutter view, opens the method channels and
// stands first in line for every window message.
class FlutterWindow : public Win32Window {
 public:
  explicit FlutterWindow(const DartProject& project);
  ~FlutterWindow() override;
  FlutterWindow(const FlutterWindow&) = delete;
  FlutterWindow& operator=(const FlutterWindow&) = delete;

 protected:
  LRESULT MessageHandler(HWND window, UINT message, WPARAM wparam, LPARAM lparam) override;
  bool OnCreate() override;
  void OnDestroy() override;

 private:
  LRESULT passOn(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  void registerPlugins();
  void installForegroundHook();
  void openBrowserChannel();
  void openWindowChannel();
  // Asks the interface to show its tool box.
  void showToolBoxMenu();
  // The Flutter view's own window; null when there is no controller or no view.
  HWND viewWindow() const;

  DartProject project_;
  std::unique_ptr<FlutterViewController> controller_;
  std::unique_ptr<MethodChannel> browserChannel_;
  std::unique_ptr<MethodChannel> windowChannel_;
  bool compactMode_ = false;  // the narrow form without a caption
};

}  // namespace orvane
