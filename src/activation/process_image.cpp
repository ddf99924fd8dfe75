#include "activation/process_image.h"

#include <array>
#include <string_view>

#include "activation/process_handle.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr DWORD imagePathCapacityUnits = 1040;

}  // namespace

std::wstring processImageName(DWORD pid) {
  const UniqueProcessHandle process(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid));
  if (!process) {
    return {};
  }
  std::array<wchar_t, imagePathCapacityUnits> buffer{};
  DWORD lengthUnits = imagePathCapacityUnits;
  if (::QueryFullProcessImageNameW(process.get(), 0, buffer.data(), &lengthUnits) == FALSE) {
    return {};
  }
  const std::wstring_view path(buffer.data(), lengthUnits);
  const std::size_t separator = path.find_last_of(L"\\/");
  return toLower(separator == std::wstring_view::npos ? path : path.substr(separator + 1));
}

WindowProcess readWindowProcess(HWND window) {
  WindowProcess process;
  ::GetWindowThreadProcessId(window, &process.pid);
  process.imageName = processImageName(process.pid);
  return process;
}

}  // namespace orvane
