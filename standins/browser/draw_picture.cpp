#include <algorithm>
#include <array>
#include <memory>

#include "browser/picture.h"

namespace orvane::standins {
namespace {

constexpr int fontHeight = 17;       // pixels
constexpr int smallFontHeight = 10;  // pixels
constexpr int paddingPixels = 8;
constexpr COLORREF pageColour = RGB(255, 255, 255);
constexpr COLORREF textColour = RGB(32, 33, 36);
constexpr COLORREF hintColour = RGB(140, 145, 150);
constexpr COLORREF focusColour = RGB(26, 115, 232);

struct Style {
  COLORREF fill;
  COLORREF edge;
  COLORREF text;
  UINT layout;  // of DrawText
};

constexpr UINT oneLine = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
constexpr UINT wrapped = DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX | DT_EXPANDTABS;

// By Look.
constexpr std::array<Style, 9> styles{{
    {RGB(222, 225, 230), RGB(222, 225, 230), textColour, oneLine},                      // strip
    {RGB(235, 236, 239), RGB(200, 204, 209), RGB(95, 99, 104), oneLine},                // tab
    {RGB(255, 255, 255), RGB(255, 255, 255), textColour, oneLine},                      // selectedTab
    {RGB(241, 243, 244), RGB(218, 220, 224), textColour, oneLine},                      // addressBar
    {RGB(255, 255, 255), RGB(154, 160, 166), textColour, wrapped},                      // field
    {RGB(26, 115, 232), RGB(26, 115, 232), RGB(255, 255, 255), oneLine | DT_CENTER},    // button
    {RGB(232, 234, 237), RGB(218, 220, 224), RGB(154, 160, 166), oneLine | DT_CENTER},  // disabledButton
    {RGB(255, 255, 255), RGB(255, 255, 255), textColour, wrapped},                      // text
    {RGB(252, 252, 253), RGB(232, 234, 237), RGB(95, 99, 104), wrapped},                // frame
}};

template <typename Handle>
auto owned(Handle handle) {
  return std::unique_ptr<std::remove_pointer_t<Handle>, BOOL(WINAPI*)(HGDIOBJ)>(
      handle, [](HGDIOBJ object) -> BOOL { return ::DeleteObject(object); });
}

HFONT makeFont(int height) {
  return ::CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, VARIABLE_PITCH | FF_SWISS, L"DejaVu Sans");
}

void fill(HDC canvas, const RECT& bounds, COLORREF colour) {
  const auto brush = owned(::CreateSolidBrush(colour));
  ::FillRect(canvas, &bounds, brush.get());
}

void frame(HDC canvas, const RECT& bounds, COLORREF colour) {
  const auto brush = owned(::CreateSolidBrush(colour));
  ::FrameRect(canvas, &bounds, brush.get());
}

// The words of a button that is too narrow for them in a line, in small letters.
void drawSmallWords(HDC canvas, const Box& box, RECT bounds) {
  constexpr UINT layout = DT_WORDBREAK | DT_CENTER | DT_NOPREFIX;
  const auto font = owned(makeFont(smallFontHeight));
  const HGDIOBJ earlier = ::SelectObject(canvas, font.get());
  RECT needed = bounds;
  const int length = static_cast<int>(box.text.size());
  const int height = ::DrawTextW(canvas, box.text.c_str(), length, &needed, layout | DT_CALCRECT);
  bounds.top += std::max<LONG>(0, (bounds.bottom - bounds.top - height) / 2);
  ::DrawTextW(canvas, box.text.c_str(), length, &bounds, layout);
  ::SelectObject(canvas, earlier);
}

bool fitsInLine(HDC canvas, const Box& box, const RECT& bounds) {
  SIZE size{};
  ::GetTextExtentPoint32W(canvas, box.text.c_str(), static_cast<int>(box.text.size()), &size);
  return size.cx <= bounds.right - bounds.left;
}

void drawText(HDC canvas, const Box& box, RECT bounds, const Style& style) {
  const bool hasRoom = bounds.right - bounds.left > 6 * paddingPixels;
  ::InflateRect(&bounds, hasRoom ? -paddingPixels : -1, style.layout == wrapped ? -paddingPixels / 2 : 0);
  ::SetTextColor(canvas, box.isHint ? hintColour : style.text);
  const bool isButton = (style.layout & DT_CENTER) != 0;
  if (isButton && !fitsInLine(canvas, box, bounds)) return drawSmallWords(canvas, box, bounds);
  ::DrawTextW(canvas, box.text.c_str(), static_cast<int>(box.text.size()), &bounds, style.layout);
}

void drawBox(HDC canvas, const Box& box, POINT origin) {
  const Style& style = styles[static_cast<std::size_t>(box.look)];
  RECT bounds{box.bounds.left, box.bounds.top, box.bounds.right, box.bounds.bottom};
  ::OffsetRect(&bounds, -origin.x, -origin.y);
  fill(canvas, bounds, style.fill);
  frame(canvas, bounds, box.hasFocus ? focusColour : style.edge);
  drawText(canvas, box, bounds, style);
}

void drawAll(HDC canvas, const RECT& area, POINT origin, const std::vector<Box>& picture) {
  const auto font = owned(makeFont(fontHeight));
  const HGDIOBJ earlier = ::SelectObject(canvas, font.get());
  ::SetBkMode(canvas, TRANSPARENT);
  fill(canvas, area, pageColour);
  for (const Box& box : picture) drawBox(canvas, box, origin);
  ::SelectObject(canvas, earlier);
}

}  // namespace

void drawPicture(HWND window, const std::vector<Box>& picture) {
  PAINTSTRUCT paint{};
  const HDC screen = ::BeginPaint(window, &paint);
  RECT area{};
  ::GetClientRect(window, &area);
  POINT origin{};
  ::ClientToScreen(window, &origin);
  const HDC canvas = ::CreateCompatibleDC(screen);
  {
    const auto bitmap =
        owned(::CreateCompatibleBitmap(screen, std::max<LONG>(area.right, 1), std::max<LONG>(area.bottom, 1)));
    const HGDIOBJ earlier = ::SelectObject(canvas, bitmap.get());
    drawAll(canvas, area, origin, picture);
    ::BitBlt(screen, 0, 0, area.right, area.bottom, canvas, 0, 0, SRCCOPY);
    ::SelectObject(canvas, earlier);
  }
  ::DeleteDC(canvas);
  ::EndPaint(window, &paint);
}

}  // namespace orvane::standins
