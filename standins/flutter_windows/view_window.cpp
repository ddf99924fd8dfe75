#include "flutter_windows/view_window.h"

#include <algorithm>
#include <utility>

#include "world/faults.h"

namespace orvane::standins {
namespace {

constexpr const wchar_t* viewClassName = L"FLUTTERVIEW";
constexpr COLORREF paperColour = RGB(250, 250, 248);
constexpr COLORREF inkColour = RGB(40, 40, 44);
constexpr int marginPixels = 16;
constexpr int textHeightPixels = 16;
constexpr int lineHeightPixels = 24;

std::vector<std::wstring>& shownLines() {
  static std::vector<std::wstring> lines;
  return lines;
}

// The newest lines, as many as there is room for.
void drawLines(HDC context, const RECT& area) {
  const HFONT font =
      ::CreateFontW(-textHeightPixels, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, L"Tahoma");
  const HGDIOBJ before = ::SelectObject(context, font);
  ::SetBkMode(context, TRANSPARENT);
  ::SetTextColor(context, inkColour);
  const std::vector<std::wstring>& lines = shownLines();
  const auto room = static_cast<std::size_t>(std::max(0L, (area.bottom - 2 * marginPixels) / lineHeightPixels));
  RECT line{marginPixels, marginPixels, area.right - marginPixels, marginPixels + lineHeightPixels};
  for (std::size_t index = lines.size() > room ? lines.size() - room : 0; index < lines.size(); ++index) {
    ::DrawTextW(context, lines[index].c_str(), -1, &line, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    ::OffsetRect(&line, 0, lineHeightPixels);
  }
  ::SelectObject(context, before);
  ::DeleteObject(font);
}

void paint(HWND window) {
  PAINTSTRUCT painting{};
  const HDC context = ::BeginPaint(window, &painting);
  RECT area{};
  ::GetClientRect(window, &area);
  const HBRUSH brush = ::CreateSolidBrush(paperColour);
  ::FillRect(context, &area, brush);
  ::DeleteObject(brush);
  drawLines(context, area);
  ::EndPaint(window, &painting);
}

LRESULT CALLBACK viewProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_PAINT:
      paint(window);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    default:
      return ::DefWindowProcW(window, message, wparam, lparam);
  }
}

}  // namespace

HWND makeViewWindow(int width, int height) {
  WNDCLASSW description{};
  description.lpfnWndProc = viewProcedure;
  description.hInstance = ::GetModuleHandleW(nullptr);
  description.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  description.style = CS_HREDRAW | CS_VREDRAW;
  description.lpszClassName = viewClassName;
  ::RegisterClassW(&description);  // fails harmlessly for a second view
  const HWND window = ::CreateWindowExW(0, viewClassName, L"", WS_CHILD | WS_VISIBLE, 0, 0, width, height, HWND_MESSAGE,
                                        nullptr, description.hInstance, nullptr);
  if (window == nullptr) simulation::stopRun("FlutterDesktopViewControllerCreate", "no window for the view");
  return window;
}

void showInView(HWND view, std::vector<std::wstring> lines) {
  shownLines() = std::move(lines);
  ::InvalidateRect(view, nullptr, FALSE);
}

}  // namespace orvane::standins
