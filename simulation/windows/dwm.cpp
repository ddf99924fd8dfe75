#include <dwmapi.h>

#include <cstring>

#include "windows/call.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

bool isKnownAttribute(DWORD attribute) {
  return attribute == DWMWA_USE_IMMERSIVE_DARK_MODE || attribute == DWMWA_CAPTION_COLOR ||
         attribute == DWMWA_TEXT_COLOR;
}

}  // namespace

HRESULT DwmSetWindowAttribute(HWND window, DWORD attribute, LPCVOID data, DWORD size) {
  PlatformState& state = stateFor("DwmSetWindowAttribute");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("DwmSetWindowAttribute", about)) return faulted<HRESULT>(*fault);
  if (!isKnownAttribute(attribute)) stopRun("DwmSetWindowAttribute", "an unknown attribute");
  if (about == nullptr) return E_HANDLE;
  std::uint32_t value = 0;
  if (data == nullptr || size != sizeof value) return E_INVALIDARG;
  std::memcpy(&value, data, sizeof value);
  state.records.attributes.push_back({about->id, attribute, value});
  return S_OK;
}
