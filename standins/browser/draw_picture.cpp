#include <algorithm>
#include <array>
#include <memory>

#include "browser/picture.h"

namespace orvane::standins {
namespace {

constexpr int fontHeight = 17;  // pixels
// In pixels, the larger ones first.
constexpr std::array smallFontHeights{12, 10, 8};
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

// A font in use for as long as this lives.
class FontUse {
 public:
  FontUse(HDC canvas, int height)
      : canvas_(canvas), font_(owned(makeFont(height))), earlier_(::SelectObject(canvas, font_.get())) {}
  ~FontUse() { ::SelectObject(canvas_, earlier_); }
  FontUse(const FontUse&) = delete;
  FontUse& operator=(const FontUse&) = delete;

 private:
  HDC canvas_;
  decltype(owned(HFONT())) font_;
  HGDIOBJ earlier_;
};

void fill(HDC canvas, const RECT& bounds, COLORREF colour) {
  const auto brush = owned(::CreateSolidBrush(colour));
  ::FillRect(canvas, &bounds, brush.get());
}

void frame(HDC canvas, const RECT& bounds, COLORREF colour) {
  const auto brush = owned(::CreateSolidBrush(colour));
  ::FrameRect(canvas, &bounds, brush.get());
}

constexpr UINT wordsInButton = DT_WORDBREAK | DT_CENTER | DT_NOPREFIX;

SIZE measureWords(HDC canvas, const std::wstring& text, RECT bounds) {
  ::DrawTextW(canvas, text.c_str(), static_cast<int>(text.size()), &bounds, wordsInButton | DT_CALCRECT);
  return {bounds.right - bounds.left, bounds.bottom - bounds.top};
}

bool haveRoom(HDC canvas, const std::wstring& text, const RECT& bounds) {
  const SIZE needed = measureWords(canvas, text, bounds);
  return needed.cx <= bounds.right - bounds.left && needed.cy <= bounds.bottom - bounds.top;
}

// The words in which the text fits, from the first one on; the first one in any case.
std::wstring takeFittingWords(HDC canvas, const std::wstring& text, const RECT& bounds) {
  std::wstring fitting = text;
  std::size_t end = text.size();
  while (!haveRoom(canvas, fitting, bounds)) {
    end = text.find_last_of(L' ', end - 1);
    if (end == std::wstring::npos || end == 0) return fitting;
    fitting = text.substr(0, end) + L"\u2026";
  }
  return fitting;
}

// The words of a button that is too narrow for them in a line, in the largest small letters that have room.
void drawSmallWords(HDC canvas, const Box& box, RECT bounds) {
  for (const int height : smallFontHeights) {
    const FontUse font(canvas, height);
    const bool isLast = height == smallFontHeights.back();
    if (!isLast && !haveRoom(canvas, box.text, bounds)) continue;
    const std::wstring text = takeFittingWords(canvas, box.text, bounds);
    const LONG spare = bounds.bottom - bounds.top - measureWords(canvas, text, bounds).cy;
    bounds.top += std::max<LONG>(0, spare / 2);
    ::DrawTextW(canvas, text.c_str(), static_cast<int>(text.size()), &bounds, wordsInButton);
    return;
  }
}

bool fitsInLine(HDC canvas, const Box& box, const RECT& bounds) {
  SIZE size{};
  ::GetTextExtentPoint32W(canvas, box.text.c_str(), static_cast<int>(box.text.size()), &size);
  return size.cx <= bounds.right - bounds.left;
}

// The name of what holds others stands above the first of them.
void drawHeading(HDC canvas, const Box& box, RECT bounds) {
  bounds.bottom = std::min<LONG>(bounds.bottom, bounds.top + box.textHeight);
  const LONG room = bounds.bottom - bounds.top;
  if (room < smallFontHeights.front()) return;
  const FontUse font(canvas, room < fontHeight + paddingPixels ? smallFontHeights.front() : fontHeight);
  ::DrawTextW(canvas, box.text.c_str(), static_cast<int>(box.text.size()), &bounds, oneLine);
}

void drawText(HDC canvas, const Box& box, RECT bounds, const Style& style) {
  const bool hasRoom = bounds.right - bounds.left > 6 * paddingPixels;
  ::InflateRect(&bounds, hasRoom ? -paddingPixels : -1, 0);
  ::SetTextColor(canvas, box.isHint ? hintColour : style.text);
  if (box.textHeight != 0) return drawHeading(canvas, box, bounds);
  ::InflateRect(&bounds, 0, style.layout == wrapped ? -paddingPixels / 2 : 0);
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
  const FontUse font(canvas, fontHeight);
  ::SetBkMode(canvas, TRANSPARENT);
  fill(canvas, area, pageColour);
  for (const Box& box : picture) drawBox(canvas, box, origin);
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
