#include "shell/win32_window.h"

#include <cstdint>

#include <dwmapi.h>

#include "desktop/logical_scale.h"
#include "desktop/main_window_names.h"
#include "embedding/flutter_library.h"

namespace orvane {
namespace {

constexpr WORD iconResource = 101;
constexpr COLORREF captionColor = 0x00425C12;
constexpr COLORREF captionTextColor = 0x00FFFFFF;
constexpr const wchar_t* themeKey = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr const wchar_t* themeValue = L"AppsUseLightTheme";

// Not every toolchain's dwmapi.h knows these.
constexpr DWORD immersiveDarkModeAttribute = 20;
constexpr DWORD captionColorAttribute = 35;
constexpr DWORD captionTextColorAttribute = 36;

// What all windows of the process share.
struct WindowRegistrar {
  int activeWindows = 0;
  bool isClassRegistered = false;
};

WindowRegistrar& windowRegistrar() {
  static WindowRegistrar registrar;
  return registrar;
}

void registerClass(WNDPROC procedure) {
  WindowRegistrar& registrar = windowRegistrar();
  if (registrar.isClassRegistered) {
    return;
  }
  const HINSTANCE module = ::GetModuleHandleW(nullptr);
  WNDCLASSW windowClass{};
  windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  windowClass.lpszClassName = mainWindowClassName;
  windowClass.style = CS_HREDRAW | CS_VREDRAW;
  windowClass.hInstance = module;
  windowClass.hIcon = ::LoadIconW(module, MAKEINTRESOURCEW(iconResource));
  windowClass.lpfnWndProc = procedure;
  // Its failure shows when the window is made.
  ::RegisterClassW(&windowClass);
  registrar.isClassRegistered = true;
}

void unregisterClassAfterLastWindow() {
  WindowRegistrar& registrar = windowRegistrar();
  if (registrar.activeWindows == 0) {
    ::UnregisterClassW(mainWindowClassName, ::GetModuleHandleW(nullptr));
    registrar.isClassRegistered = false;
  }
}

HANDLE loadIcon(int widthMetric, int heightMetric) {
  return ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(iconResource), IMAGE_ICON,
                      ::GetSystemMetrics(widthMetric), ::GetSystemMetrics(heightMetric), LR_DEFAULTCOLOR);
}

void setIcon(HWND window, WPARAM kind, HANDLE icon) {
  if (icon != nullptr) {
    ::SendMessageW(window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
  }
}

void enableNonClientScaling(HWND window) {
  using Function = BOOL WINAPI(HWND);
  const HMODULE library = ::LoadLibraryA("User32.dll");
  if (library == nullptr) {
    return;
  }
  const auto address = reinterpret_cast<void*>(::GetProcAddress(library, "EnableNonClientDpiScaling"));
  if (auto* const enable = reinterpret_cast<Function*>(address)) {
    enable(window);
  }
  ::FreeLibrary(library);
}

void fitTo(HWND child, const RECT& area) {
  ::MoveWindow(child, area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);
}

int scaled(std::int32_t logicalPixels, double scale) { return static_cast<int>(logicalPixels * scale); }

}  // namespace

Win32Window::Win32Window() { ++windowRegistrar().activeWindows; }

Win32Window::~Win32Window() {
  --windowRegistrar().activeWindows;
  Destroy();
}

bool Win32Window::Create(const std::wstring& title, const Point& origin, const Size& size) {
  Destroy();
  registerClass(WndProc);
  const HMONITOR monitor = ::MonitorFromPoint(POINT{origin.x, origin.y}, MONITOR_DEFAULTTONEAREST);
  const double scale = ::FlutterDesktopGetDpiForMonitor(monitor) / static_cast<double>(standardDpi);
  const HWND window = ::CreateWindowExW(
      0, mainWindowClassName, title.c_str(), WS_OVERLAPPEDWINDOW, scaled(origin.x, scale), scaled(origin.y, scale),
      scaled(size.width, scale), scaled(size.height, scale), nullptr, nullptr, ::GetModuleHandleW(nullptr), this);
  if (window == nullptr) {
    return false;
  }
  const HANDLE smallIcon = loadIcon(SM_CXSMICON, SM_CYSMICON);
  const HANDLE bigIcon = loadIcon(SM_CXICON, SM_CYICON);
  setIcon(window, ICON_SMALL, smallIcon);
  setIcon(window, ICON_BIG, bigIcon);
  UpdateTheme(window);
  return OnCreate();
}

bool Win32Window::Show() { return ::ShowWindow(windowHandle_, SW_SHOWNORMAL) != FALSE; }

void Win32Window::Destroy() {
  // Out of the destructor this is the base's: the derived work has been done on WM_DESTROY.
  OnDestroy();  // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall)
  if (windowHandle_ != nullptr) {
    ::DestroyWindow(windowHandle_);
    windowHandle_ = nullptr;
  }
  unregisterClassAfterLastWindow();
}

void Win32Window::SetChildContent(HWND content) {
  childContent_ = content;
  ::SetParent(content, windowHandle_);
  fitTo(content, GetClientArea());
  ::SetFocus(content);
}

void Win32Window::SetQuitOnClose(bool quitOnClose) { quitOnClose_ = quitOnClose; }

HWND Win32Window::GetHandle() const { return windowHandle_; }

RECT Win32Window::GetClientArea() const {
  RECT area{};
  ::GetClientRect(windowHandle_, &area);
  return area;
}

LRESULT Win32Window::MessageHandler(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_DESTROY:
      windowHandle_ = nullptr;
      Destroy();
      if (quitOnClose_) {
        ::PostQuitMessage(0);
      }
      return 0;
    case WM_SIZE:
      if (childContent_ != nullptr) {
        fitTo(childContent_, GetClientArea());
      }
      return 0;
    case WM_ACTIVATE:
      if (childContent_ != nullptr) {
        ::SetFocus(childContent_);
      }
      return 0;
    case WM_DPICHANGED: {
      if (const auto* suggested = reinterpret_cast<const RECT*>(lparam)) {
        ::SetWindowPos(window, nullptr, suggested->left, suggested->top, suggested->right - suggested->left,
                       suggested->bottom - suggested->top, SWP_NOZORDER | SWP_NOACTIVATE);
      }
      return 0;
    }
    case WM_DWMCOLORIZATIONCOLORCHANGED:
      UpdateTheme(window);
      return 0;
    default:
      return ::DefWindowProcW(window, message, wparam, lparam);
  }
}

bool Win32Window::OnCreate() { return true; }

void Win32Window::OnDestroy() {}

// A system in light mode gets the dark attribute too: only a value that can't be read leaves it unset.
void Win32Window::UpdateTheme(HWND window) {
  DWORD lightTheme = 0;
  DWORD sizeBytes = sizeof(lightTheme);
  if (::RegGetValueW(HKEY_CURRENT_USER, themeKey, themeValue, RRF_RT_REG_DWORD, nullptr, &lightTheme, &sizeBytes) ==
      ERROR_SUCCESS) {
    const BOOL darkMode = TRUE;
    ::DwmSetWindowAttribute(window, immersiveDarkModeAttribute, &darkMode, sizeof(darkMode));
  }
  ::DwmSetWindowAttribute(window, captionColorAttribute, &captionColor, sizeof(captionColor));
  ::DwmSetWindowAttribute(window, captionTextColorAttribute, &captionTextColor, sizeof(captionTextColor));
}

LRESULT CALLBACK Win32Window::WndProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lparam);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    enableNonClientScaling(window);
    static_cast<Win32Window*>(creation->lpCreateParams)->windowHandle_ = window;
    return ::DefWindowProcW(window, message, wparam, lparam);
  }
  if (auto* const self = reinterpret_cast<Win32Window*>(::GetWindowLongPtrW(window, GWLP_USERDATA))) {
    return self->MessageHandler(window, message, wparam, lparam);
  }
  return ::DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace orvane
