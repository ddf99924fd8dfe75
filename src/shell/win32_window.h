#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace orvane {

// A top-level window with the program's icons and caption colors and one child fitted to its
// client area.
class Win32Window {
 public:
  struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
  };
  struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;
  };

  Win32Window();
  virtual ~Win32Window();
  Win32Window(const Win32Window&) = delete;
  Win32Window& operator=(const Win32Window&) = delete;

  // Makes the window, invisible, on the monitor of `origin`; origin and size in logical pixels.
  // False when CreateWindowExW failed or OnCreate said so.
  bool Create(const std::wstring& title, const Point& origin, const Size& size);

  // Whether the window was visible before (ShowWindow).
  bool Show();

  // Ends the window, if there is one, and the window class after the last one. Calls OnDestroy first.
  void Destroy();

  // Fits a window into the client area and gives it the focus. It stays its owner's.
  void SetChildContent(HWND content);

  // The end of this window posts the quit message.
  void SetQuitOnClose(bool quitOnClose);

  // Null before Create and after the window's end.
  HWND GetHandle() const;

  // In pixels, by GetClientRect; all 0 when that fails.
  RECT GetClientArea() const;

 protected:
  // Handles every message but WM_NCCREATE; gives the message's result. Heirs pass on to the base what
  // they don't finish.
  virtual LRESULT MessageHandler(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  // Called by Create for the window just made. False makes Create fail.
  virtual bool OnCreate();
  // Called by Destroy, also when there is no window, and so perhaps twice.
  virtual void OnDestroy();

 private:
  static void UpdateTheme(HWND window);
  static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  bool quitOnClose_ = false;
  HWND windowHandle_ = nullptr;
  HWND childContent_ = nullptr;
};

}  // namespace orvane
