#include <windows.h>

#include <cstring>
#include <string_view>

#include "windows/call.h"
#include "windows/state.h"
#include "windows/wide_text.h"

using namespace orvane::simulation;

namespace {

constexpr std::wstring_view themeKey = L"software\\microsoft\\windows\\currentversion\\themes\\personalize";
constexpr std::wstring_view themeValue = L"appsuselighttheme";

bool isThemeValue(HKEY key, LPCWSTR subKey, LPCWSTR value) {
  return key == HKEY_CURRENT_USER && subKey != nullptr && value != nullptr && foldedName(subKey) == themeKey &&
         foldedName(value) == themeValue;
}

// The size rule of a value that is read: the needed size comes back in any case.
LSTATUS giveNumber(DWORD number, LPDWORD type, PVOID data, LPDWORD size) {
  if (data != nullptr && size == nullptr) return ERROR_INVALID_PARAMETER;
  if (type != nullptr) *type = REG_DWORD;
  const bool fits = data == nullptr || *size >= sizeof number;
  if (size != nullptr) *size = sizeof number;
  if (!fits) return ERROR_MORE_DATA;
  if (data != nullptr) std::memcpy(data, &number, sizeof number);
  return ERROR_SUCCESS;
}

}  // namespace

LSTATUS RegGetValueW(HKEY key, LPCWSTR subKey, LPCWSTR value, DWORD flags, LPDWORD type, PVOID data, LPDWORD size) {
  PlatformState& state = stateFor("RegGetValueW");
  if (const auto fault = enter("RegGetValueW")) return faulted<LSTATUS>(*fault);
  if (!isThemeValue(key, subKey, value)) stopRun("RegGetValueW", "a value other than the theme's isn't modelled");
  if (flags != RRF_RT_REG_DWORD) stopRun("RegGetValueW", "flags other than RRF_RT_REG_DWORD aren't modelled");
  if (!state.desktop.lightTheme) return ERROR_FILE_NOT_FOUND;
  return giveNumber(*state.desktop.lightTheme ? 1 : 0, type, data, size);
}
