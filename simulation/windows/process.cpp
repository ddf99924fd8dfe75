#include "windows/process.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "windows/call.h"
#include "windows/state.h"
#include "windows/wide_text.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

constexpr std::uintptr_t instanceAddress = 0x140000000;
constexpr std::uintptr_t userLibraryAddress = 0x180000000;
constexpr std::wstring_view userLibraryName = L"user32.dll";

// The one function that the host looks up by its name.
BOOL WINAPI enableNonClientDpiScaling(HWND window) {
  Window* const about = stateFor("EnableNonClientDpiScaling").liveWindow(window);
  if (const auto fault = enter("EnableNonClientDpiScaling", about)) return faulted<BOOL>(*fault);
  return about != nullptr ? TRUE : failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
}

}  // namespace

HINSTANCE moduleInstance() { return reinterpret_cast<HINSTANCE>(instanceAddress); }

}  // namespace orvane::simulation

using namespace orvane::simulation;

LPWSTR GetCommandLineW() {
  PlatformState& state = stateFor("GetCommandLineW");
  if (const auto fault = enter("GetCommandLineW")) return faulted<LPWSTR>(*fault);
  return state.commandLine.data();
}

HMODULE GetModuleHandleW(LPCWSTR name) {
  if (const auto fault = enter("GetModuleHandleW")) return faulted<HMODULE>(*fault);
  if (name != nullptr) stopRun("GetModuleHandleW", "a module other than the program isn't modelled");
  return moduleInstance();
}

// A path that doesn't fit is cut, and still closed.
DWORD GetModuleFileNameW(HMODULE module, LPWSTR path, DWORD capacity) {
  PlatformState& state = stateFor("GetModuleFileNameW");
  if (const auto fault = enter("GetModuleFileNameW")) return faulted<DWORD>(*fault);
  if (module != nullptr && module != moduleInstance()) stopRun("GetModuleFileNameW", "another module isn't modelled");
  if (path == nullptr || capacity == 0) return failWith<DWORD>(ERROR_INSUFFICIENT_BUFFER);
  const std::wstring& image = state.programPath;
  const std::size_t copied = std::min<std::size_t>(image.size(), capacity - 1);
  *std::copy_n(image.begin(), copied, path) = L'\0';
  if (copied < image.size()) return failWith(ERROR_INSUFFICIENT_BUFFER, capacity);
  setLastError(ERROR_SUCCESS);
  return static_cast<DWORD>(copied);
}

HMODULE LoadLibraryA(LPCSTR name) {
  PlatformState& state = stateFor("LoadLibraryA");
  if (const auto fault = enter("LoadLibraryA")) return faulted<HMODULE>(*fault);
  if (name == nullptr) return failWith<HMODULE>(ERROR_INVALID_PARAMETER);
  if (foldedName(wideFromText(textFromUtf8(name))) != userLibraryName) return failWith<HMODULE>(ERROR_MOD_NOT_FOUND);
  ++state.libraryReferences;
  return reinterpret_cast<HMODULE>(userLibraryAddress);
}

FARPROC GetProcAddress(HMODULE library, LPCSTR name) {
  if (const auto fault = enter("GetProcAddress")) return faulted<FARPROC>(*fault);
  if (library != reinterpret_cast<HMODULE>(userLibraryAddress)) return failWith<FARPROC>(ERROR_MOD_NOT_FOUND);
  if (std::string_view(name) != "EnableNonClientDpiScaling") return failWith<FARPROC>(ERROR_PROC_NOT_FOUND);
  // By way of a plain pointer: the caller turns the address back into what it is.
  return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&enableNonClientDpiScaling));
}

BOOL FreeLibrary(HMODULE library) {
  PlatformState& state = stateFor("FreeLibrary");
  if (const auto fault = enter("FreeLibrary")) return faulted<BOOL>(*fault);
  if (library != reinterpret_cast<HMODULE>(userLibraryAddress)) return failWith(ERROR_MOD_NOT_FOUND, FALSE);
  if (state.libraryReferences == 0) stopRun("FreeLibrary", "the library isn't held");
  --state.libraryReferences;
  return TRUE;
}

int MulDiv(int number, int numerator, int denominator) {
  if (const auto fault = enter("MulDiv")) return faulted<int>(*fault);
  return scaledBy(number, numerator, denominator);
}
