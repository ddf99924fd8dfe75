#include "shell/flutter_window.h"

#include <utility>

#include "browser_channel/provider_command_handler.h"
#include "embedding/flutter_library.h"
#include "embedding/standard_method_codec.h"

namespace orvane {

FlutterWindow::FlutterWindow(const DartProject& project) : project_(project) {}

FlutterWindow::~FlutterWindow() = default;

bool FlutterWindow::OnCreate() {
  if (!Win32Window::OnCreate()) {
    return false;
  }
  const RECT area = GetClientArea();
  controller_ = std::make_unique<FlutterViewController>(area.right - area.left, area.bottom - area.top, project_);
  if (controller_->engine() == nullptr || controller_->view() == nullptr) {
    return false;
  }
  registerPlugins();
  openBrowserChannel();
  SetChildContent(viewWindow());
  controller_->engine()->SetNextFrameCallback([this] { Show(); });
  ::FlutterDesktopViewControllerForceRedraw(controller_->handle());
  return true;
}

void FlutterWindow::OnDestroy() {
  browserChannel_.reset();
  controller_.reset();
  Win32Window::OnDestroy();
}

LRESULT FlutterWindow::MessageHandler(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (controller_ != nullptr) {
    LRESULT result = 0;
    if (::FlutterDesktopViewControllerHandleTopLevelWindowProc(controller_->handle(), window, message, wparam, lparam,
                                                               &result)) {
      return result;
    }
    if (message == WM_FONTCHANGE) {
      controller_->engine()->ReloadSystemFonts();
    }
  }
  return Win32Window::MessageHandler(window, message, wparam, lparam);
}

void FlutterWindow::registerPlugins() {
  FlutterEngine& engine = *controller_->engine();
  ::DesktopDropPluginRegisterWithRegistrar(engine.GetRegistrarForPlugin("DesktopDropPlugin"));
  ::UrlLauncherWindowsRegisterWithRegistrar(engine.GetRegistrarForPlugin("UrlLauncherWindows"));
  ::WebviewWindowsPluginRegisterWithRegistrar(engine.GetRegistrarForPlugin("WebviewWindowsPlugin"));
}

void FlutterWindow::openBrowserChannel() {
  browserChannel_ = std::make_unique<MethodChannel>(controller_->engine()->messenger(), "orvane/browser",
                                                    &StandardMethodCodec::instance());
  browserChannel_->SetMethodCallHandler([handler = ProviderCommandHandler([this] { return viewWindow(); })](
                                            const MethodCall& call, std::unique_ptr<MethodResult> result) {
    handler.HandleMethodCall(call, std::move(result));
  });
}

HWND FlutterWindow::viewWindow() const {
  return controller_ == nullptr || controller_->view() == nullptr ? nullptr : controller_->view()->GetNativeWindow();
}

}  // namespace orvane
