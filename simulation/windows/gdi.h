#pragma once

#include <windows.h>

#include <cstdint>
#include <map>

#include "windows/painted.h"
#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

struct GdiObject {
  enum class Kind { brush, font };
  Kind kind = Kind::brush;
  bool isStock = false;
  COLORREF color = 0;  // of a brush
  Font font;
};

struct DeviceContext {
  enum class Origin { window, painting, menu };
  Origin origin = Origin::window;
  const Window* window = nullptr;
  int menu = 0;
  bool isClippedAway = false;  // nothing of what is drawn would show
  bool lostSelection = false;  // a selection was made to fail, so the host can't keep the order
  HGDIOBJ brush = nullptr;
  HGDIOBJ font = nullptr;
  int backgroundMode = OPAQUE;
  COLORREF textColor = RGB(0, 0, 0);
};

// The brushes, fonts and device contexts of the host. Handles are never given out twice.
struct GdiRoom {
  static constexpr std::uintptr_t handleStep = 0x10;

  GdiRoom();

  std::map<HGDIOBJ, GdiObject> objects;
  std::map<HDC, DeviceContext> contexts;
  HGDIOBJ stockBrush = nullptr;  // what a fresh context has
  HGDIOBJ stockFont = nullptr;
  HGDIOBJ guiFont = nullptr;
  std::uintptr_t nextObject;
  std::uintptr_t nextContext;
};

// Null, with the last error set, when there is no such object; a deleted one ends the run.
GdiObject* gdiObject(PlatformState& state, std::string_view call, HGDIOBJ handle);

// The fonts' measures, in pixels. Every UTF-16 unit is equally wide.
struct FontMeasures {
  int height = 0;
  int internalLeading = 0;
  int unitWidth = 0;
};
FontMeasures measuresOf(const Font& font);

// Makes a context, which has the stock objects. A menu's isn't counted: it is the platform's.
HDC openContext(PlatformState& state, const DeviceContext& plan);
// Ends the run when something of the host's is still selected.
void closeContext(PlatformState& state, std::string_view call, HDC context);
// Null, with the last error set, for a null handle; one that isn't held ends the run.
DeviceContext* deviceContext(PlatformState& state, std::string_view call, HDC context);

}  // namespace orvane::simulation
