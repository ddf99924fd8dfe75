#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace orvane {

// A top-level window with the program's icons and caption colours and one child fitted to its
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

  void Destroy();

  // Fits a window into the client area and gives it the focus. It stays its owner's.
  void SetChildContent(HWND content);

  // The end of this window posts the quit message.
  void SetQuitOnClose(bool quitOnClose);

  HWND GetHandle() const;
  RECT GetClientArea() const;

 protected:
  virtual LRESULT MessageHandler(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  virtual bool OnCreate();
  virtual void OnDestroy();

 private:
  static void UpdateTheme(HWND window);
  static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  bool quitOnClose_ = false;
  HWND windowHandle_ = nullptr;
  HWND childContent_ = nullptr;
};

}  // namespace orvane
