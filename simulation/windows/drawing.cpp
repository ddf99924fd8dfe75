// What is drawn into a device context, and how texts measure in it.
#include <windows.h>

#include <string_view>

#include "windows/call.h"
#include "windows/rectangles.h"
#include "windows/standard_dpi.h"
#include "windows/state.h"
#include "windows/wide_text.h"

using namespace orvane::simulation;

namespace {

constexpr UINT demandedFlags = DT_SINGLELINE | DT_NOPREFIX;
constexpr UINT modelledFlags = demandedFlags | DT_VCENTER | DT_RIGHT | DT_RTLREADING;

Surface surfaceOf(const DeviceContext& context) {
  return {context.window == nullptr ? std::string() : context.window->id, context.menu};
}

const Font& fontOf(PlatformState& state, const DeviceContext& context) {
  return state.gdi.objects.at(context.font).font;
}

void record(PlatformState& state, const DeviceContext& context, Painted painted) {
  if (!context.isClippedAway) state.records.painted.push_back(std::move(painted));
}

// Centred text is told by its lower edge, as the platform counts it.
int heightFrom(const RECT& area, UINT flags, int textHeight) {
  if ((flags & DT_VCENTER) == 0) return textHeight;
  return (area.bottom - area.top) / 2 - textHeight / 2 + textHeight;
}

}  // namespace

int FillRect(HDC context, LPCRECT area, HBRUSH brush) {
  PlatformState& state = stateFor("FillRect");
  if (const auto fault = enter("FillRect")) return faulted<int>(*fault);
  const DeviceContext* const target = deviceContext(state, "FillRect", context);
  if (target == nullptr) return 0;
  const GdiObject* const object = gdiObject(state, "FillRect", brush);
  if (object == nullptr) return 0;
  if (object->kind != GdiObject::Kind::brush) stopRun("FillRect", "an object that is no brush");
  record(state, *target, FilledArea{surfaceOf(*target), object->color, rectangleOf(*area)});
  return 1;
}

int DrawTextW(HDC context, LPCWSTR text, int length, LPRECT area, UINT flags) {
  PlatformState& state = stateFor("DrawTextW");
  if (const auto fault = enter("DrawTextW")) return faulted<int>(*fault);
  if ((flags & demandedFlags) != demandedFlags || (flags & ~modelledFlags) != 0) {
    stopRun("DrawTextW", "flags that aren't modelled");
  }
  if (length < -1) stopRun("DrawTextW", "a negative length");
  const DeviceContext* const target = deviceContext(state, "DrawTextW", context);
  if (target == nullptr || text == nullptr) return 0;
  const std::wstring_view drawn =
      length == -1 ? std::wstring_view(text) : std::wstring_view(text, static_cast<std::size_t>(length));
  const Font& font = fontOf(state, *target);
  record(state, *target,
         DrawnText{surfaceOf(*target), textFromWide(drawn), font, target->textColor, flags, rectangleOf(*area),
                   target->backgroundMode == TRANSPARENT});
  return heightFrom(*area, flags, measuresOf(font).height);
}

BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size) {
  PlatformState& state = stateFor("GetTextExtentPoint32W");
  if (const auto fault = enter("GetTextExtentPoint32W")) return faulted<BOOL>(*fault);
  const DeviceContext* const target = deviceContext(state, "GetTextExtentPoint32W", context);
  if (target == nullptr) return FALSE;
  if (length < 0 || (text == nullptr && length > 0)) return failWith(ERROR_INVALID_PARAMETER, FALSE);
  const FontMeasures measures = measuresOf(fontOf(state, *target));
  *size = {length * measures.unitWidth, measures.height};
  return TRUE;
}

BOOL GetTextMetricsW(HDC context, LPTEXTMETRICW metrics) {
  PlatformState& state = stateFor("GetTextMetricsW");
  if (const auto fault = enter("GetTextMetricsW")) return faulted<BOOL>(*fault);
  const DeviceContext* const target = deviceContext(state, "GetTextMetricsW", context);
  if (target == nullptr) return FALSE;
  const Font& font = fontOf(state, *target);
  const FontMeasures measures = measuresOf(font);
  const auto* const arguments = std::get_if<FontArguments>(&font);
  *metrics = {};
  metrics->tmHeight = measures.height;
  metrics->tmInternalLeading = measures.internalLeading;
  metrics->tmDescent = measures.internalLeading;
  metrics->tmAscent = measures.height - measures.internalLeading;
  metrics->tmAveCharWidth = measures.unitWidth;
  metrics->tmMaxCharWidth = measures.unitWidth;
  metrics->tmWeight = arguments == nullptr ? FW_NORMAL : arguments->weight;
  metrics->tmCharSet = static_cast<BYTE>(arguments == nullptr ? DEFAULT_CHARSET : arguments->charset);
  metrics->tmDigitizedAspectX = standardDpi;
  metrics->tmDigitizedAspectY = standardDpi;
  return TRUE;
}
