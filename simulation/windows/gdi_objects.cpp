// Brushes and fonts: how they are made, known and deleted.
#include <windows.h>

#include <algorithm>

#include "windows/call.h"
#include "windows/state.h"
#include "windows/wide_text.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

constexpr std::uintptr_t firstObject = 0x02100010;
constexpr std::uintptr_t firstContext = 0x01010050;
constexpr int guiCharacterHeight = 11;
constexpr int systemCharacterHeight = 12;

template <typename Handle>
Handle handleFrom(std::uintptr_t number) {
  return reinterpret_cast<Handle>(number);
}

HGDIOBJ addObject(GdiRoom& room, GdiObject object) {
  const HGDIOBJ handle = handleFrom<HGDIOBJ>(room.nextObject);
  room.nextObject += GdiRoom::handleStep;
  room.objects.emplace(handle, std::move(object));
  return handle;
}

HGDIOBJ addStock(GdiRoom& room, GdiObject object) {
  object.isStock = true;
  return addObject(room, std::move(object));
}

GdiObject stockFontOf(const char* name, int characterHeight) {
  return {GdiObject::Kind::font, true, 0, StockFont{name, characterHeight}};
}

bool wasDeleted(const GdiRoom& room, HGDIOBJ handle) {
  const auto number = reinterpret_cast<std::uintptr_t>(handle);
  return number >= firstObject && number < room.nextObject && (number - firstObject) % GdiRoom::handleStep == 0;
}

bool isSelected(const GdiRoom& room, HGDIOBJ handle) {
  return std::any_of(room.contexts.begin(), room.contexts.end(), [handle](const auto& entry) {
    return entry.second.brush == handle || entry.second.font == handle;
  });
}

HGDIOBJ addCounted(PlatformState& state, GdiObject object) {
  holdNow(held_kind::gdiObjects, 1);
  return addObject(state.gdi, std::move(object));
}

int characterHeightOf(const Font& font) {
  if (const auto* stock = std::get_if<StockFont>(&font)) return stock->characterHeight;
  return -std::get<FontArguments>(font).height;
}

}  // namespace

GdiRoom::GdiRoom() : nextObject(firstObject), nextContext(firstContext) {
  stockBrush = addStock(*this, {GdiObject::Kind::brush, true, RGB(255, 255, 255), {}});
  stockFont = addStock(*this, stockFontOf("SYSTEM_FONT", systemCharacterHeight));
  guiFont = addStock(*this, stockFontOf("DEFAULT_GUI_FONT", guiCharacterHeight));
}

GdiObject* gdiObject(PlatformState& state, std::string_view call, HGDIOBJ handle) {
  const auto found = state.gdi.objects.find(handle);
  if (found != state.gdi.objects.end()) return &found->second;
  if (wasDeleted(state.gdi, handle)) stopRun(call, "an object that was deleted");
  return failWith<GdiObject*>(ERROR_INVALID_HANDLE);
}

FontMeasures measuresOf(const Font& font) {
  const int characterHeight = characterHeightOf(font);
  const int height = scaledBy(characterHeight, 4, 3);
  return {height, height - characterHeight, std::max(1, scaledBy(characterHeight, 1, 2))};
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

HBRUSH CreateSolidBrush(COLORREF color) {
  PlatformState& state = stateFor("CreateSolidBrush");
  if (const auto fault = enter("CreateSolidBrush")) return faulted<HBRUSH>(*fault);
  return static_cast<HBRUSH>(addCounted(state, {GdiObject::Kind::brush, false, color, {}}));
}

HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic, DWORD underline,
                  DWORD strikeOut, DWORD charset, DWORD outputPrecision, DWORD clipPrecision, DWORD quality,
                  DWORD pitchAndFamily, LPCWSTR face) {
  PlatformState& state = stateFor("CreateFontW");
  if (const auto fault = enter("CreateFontW")) return faulted<HFONT>(*fault);
  if (height >= 0) stopRun("CreateFontW", "a height that isn't the characters' isn't modelled");
  const FontArguments arguments{height,         width,
                                escapement,     orientation,
                                weight,         italic,
                                underline,      strikeOut,
                                charset,        outputPrecision,
                                clipPrecision,  quality,
                                pitchAndFamily, face == nullptr ? Text() : textFromWide(face)};
  return static_cast<HFONT>(addCounted(state, {GdiObject::Kind::font, false, 0, arguments}));
}

HGDIOBJ GetStockObject(int index) {
  PlatformState& state = stateFor("GetStockObject");
  if (const auto fault = enter("GetStockObject")) return faulted<HGDIOBJ>(*fault);
  if (index != DEFAULT_GUI_FONT) stopRun("GetStockObject", "an object other than the interface's font isn't modelled");
  return state.gdi.guiFont;
}

BOOL DeleteObject(HGDIOBJ handle) {
  PlatformState& state = stateFor("DeleteObject");
  if (const auto fault = enter("DeleteObject")) return faulted<BOOL>(*fault);
  const GdiObject* const object = gdiObject(state, "DeleteObject", handle);
  if (object == nullptr) return FALSE;
  if (object->isStock) return TRUE;
  if (isSelected(state.gdi, handle)) stopRun("DeleteObject", "the object is selected into a device context");
  state.gdi.objects.erase(handle);
  holdNow(held_kind::gdiObjects, -1);
  return TRUE;
}
