#include <windows.h>

#include <algorithm>

#include "windows/call.h"
#include "windows/state.h"
#include "windows/wide_text.h"

using namespace orvane::simulation;

namespace {

// Names are kept as atoms are: their case doesn't count.
std::wstring propertyName(const char* call, LPCWSTR name) {
  constexpr std::uintptr_t firstText = 0x10000;
  if (reinterpret_cast<std::uintptr_t>(name) < firstText) stopRun(call, "a property named by an atom isn't modelled");
  return foldedName(name);
}

auto findProperty(Window& window, const std::wstring& name) {
  return std::find_if(window.properties.begin(), window.properties.end(),
                      [&name](const auto& property) { return foldedName(wideFromText(property.first)) == name; });
}

HANDLE valueOf(std::uint64_t value) { return reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(value)); }

void requireOwnWindow(const char* call, const Window& window) {
  if (!window.ofHost) stopRun(call, "another program's window isn't modelled");
}

}  // namespace

BOOL SetPropW(HWND window, LPCWSTR name, HANDLE value) {
  Window* const about = stateFor("SetPropW").liveWindow(window);
  if (const auto fault = enter("SetPropW", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  requireOwnWindow("SetPropW", *about);
  const auto number = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(value));
  const auto found = findProperty(*about, propertyName("SetPropW", name));
  if (found == about->properties.end()) {
    about->properties.emplace_back(textFromWide(name), number);
  } else {
    found->second = number;
  }
  return TRUE;
}

HANDLE GetPropW(HWND window, LPCWSTR name) {
  Window* const about = stateFor("GetPropW").liveWindow(window);
  if (const auto fault = enter("GetPropW", about)) return faulted<HANDLE>(*fault);
  if (about == nullptr) return failWith<HANDLE>(ERROR_INVALID_WINDOW_HANDLE);
  const auto found = findProperty(*about, propertyName("GetPropW", name));
  return found == about->properties.end() ? nullptr : valueOf(found->second);
}

HANDLE RemovePropW(HWND window, LPCWSTR name) {
  Window* const about = stateFor("RemovePropW").liveWindow(window);
  if (const auto fault = enter("RemovePropW", about)) return faulted<HANDLE>(*fault);
  if (about == nullptr) return failWith<HANDLE>(ERROR_INVALID_WINDOW_HANDLE);
  requireOwnWindow("RemovePropW", *about);
  const auto found = findProperty(*about, propertyName("RemovePropW", name));
  if (found == about->properties.end()) return nullptr;
  const HANDLE value = valueOf(found->second);
  about->properties.erase(found);
  return value;
}
