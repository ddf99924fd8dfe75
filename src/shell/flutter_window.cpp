#include "shell/flutter_window.h"

#include <utility>

#include "browser_channel/provider_command_handler.h"
#include "desktop/clean_background_window.h"
#include "desktop/content_process.h"
#include "desktop/menu_drawing.h"
#include "desktop/previous_window.h"
#include "desktop/window_command_handler.h"
#include "desktop/window_geometry.h"
#include "embedding/flutter_library.h"
#include "embedding/standard_method_codec.h"

namespace orvane {
namespace {

// One hook for the process.
HWINEVENTHOOK& foregroundHook() {
  static HWINEVENTHOOK hook = nullptr;
  return hook;
}

void removeForegroundHook() {
  if (HWINEVENTHOOK hook = std::exchange(foregroundHook(), nullptr)) {
    ::UnhookWinEvent(hook);
  }
}

}  // namespace

FlutterWindow::FlutterWindow(const DartProject& project) : project_(project) {}

// A loop that ended without closing the window leaves hook and view to this. The view's end sends messages
// to the window around it, which must find no controller any more: reset() forgets it first.
FlutterWindow::~FlutterWindow() {
  removeForegroundHook();
  windowChannel_.reset();
  browserChannel_.reset();
  controller_.reset();
}

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
  installForegroundHook();
  openBrowserChannel();
  openWindowChannel();
  SetChildContent(viewWindow());
  controller_->engine()->SetNextFrameCallback([this] { Show(); });
  ::FlutterDesktopViewControllerForceRedraw(controller_->handle());
  return true;
}

void FlutterWindow::OnDestroy() {
  destroyCleanBackgroundOf(GetHandle());
  removeForegroundHook();
  windowChannel_.reset();
  browserChannel_.reset();
  controller_.reset();
  Win32Window::OnDestroy();
}

LRESULT FlutterWindow::MessageHandler(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case showToolBoxMessage:
      showToolBoxMenu();
      return 0;
    case WM_DESTROY:
      destroyCleanBackgroundOf(window);
      break;
    case WM_ACTIVATE:
      noteActivation(window, wparam, lparam);
      break;
    case WM_MEASUREITEM:
      if (lparam != 0 && measureMenuItem(window, reinterpret_cast<MEASUREITEMSTRUCT*>(lparam))) {
        return 1;
      }
      break;
    case WM_DRAWITEM:
      if (lparam != 0 && drawMenuItem(window, reinterpret_cast<const DRAWITEMSTRUCT*>(lparam))) {
        return 1;
      }
      break;
    case WM_GETMINMAXINFO:
      if (compactMode_ && lparam != 0) {
        limitTracking(window, leastCompactSize, *reinterpret_cast<MINMAXINFO*>(lparam));
        return 0;
      }
      break;
    default:
      break;
  }
  return passOn(window, message, wparam, lparam);
}

// The view has the first say over what this window doesn't finish by itself.
LRESULT FlutterWindow::passOn(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (controller_ != nullptr && controller_->handle() != nullptr) {
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

void FlutterWindow::openWindowChannel() {
  windowChannel_ = std::make_unique<MethodChannel>(controller_->engine()->messenger(), "orvane/window",
                                                   &StandardMethodCodec::instance());
  HostWindow host;
  host.readHandle = [this] { return GetHandle(); };
  host.setCompactMode = [this](bool isCompact) { compactMode_ = isCompact; };
  windowChannel_->SetMethodCallHandler(
      [handler = WindowCommandHandler(std::move(host))](const MethodCall& call, std::unique_ptr<MethodResult> result) {
        handler.HandleMethodCall(call, std::move(result));
      });
}

// Without it WM_ACTIVATE alone tells which window the user worked in.
void FlutterWindow::installForegroundHook() {
  if (foregroundHook() == nullptr) {
    foregroundHook() = ::SetWinEventHook(EVENT_SYSTEM_FOREGROUND, EVENT_SYSTEM_FOREGROUND, nullptr,
                                         noteForegroundChange, 0, 0, WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
  }
}

void FlutterWindow::showToolBoxMenu() {
  if (windowChannel_ != nullptr) {
    windowChannel_->InvokeMethod("showToolBoxMenu", nullptr, nullptr);
  }
}

HWND FlutterWindow::viewWindow() const {
  return controller_ == nullptr || controller_->view() == nullptr ? nullptr : controller_->view()->GetNativeWindow();
}

}  // namespace orvane
