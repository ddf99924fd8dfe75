#pragma once

#include <windows.h>

#include "embedding/flutter_library.h"

namespace orvane::standins {

// Tells the engine that the plugin behind `registrar` was registered. That is all it does here.
inline void noteRegistration(FlutterDesktopPluginRegistrarRef registrar) {
  using Function = void(FlutterDesktopPluginRegistrarRef);
  const HMODULE library = ::GetModuleHandleW(L"flutter_windows.dll");
  const auto address = reinterpret_cast<void*>(::GetProcAddress(library, "OrvaneStandInPluginRegistered"));
  if (auto* const note = reinterpret_cast<Function*>(address)) note(registrar);
}

}  // namespace orvane::standins
