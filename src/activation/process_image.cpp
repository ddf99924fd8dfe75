#include "activation/process_image.h"

#include <cstddef>
#include <string_view>

#include "embedding/unique_kernel_handle.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr DWORD imagePathCapacityUnits = 1040;

}  // namespace

std::wstring processImagePath(DWORD pid, DWORD capacityUnits) {
  const UniqueKernelHandle process(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid));
  if (!process) {
    return {};
  }
  std::wstring path(capacityUnits, L'\0');
  DWORD lengthUnits = capacityUnits;
  if (::QueryFullProcessImageNameW(process.get(), 0, path.data(), &lengthUnits) == FALSE) {
    return {};
  }
  path.resize(lengthUnits);
  return path;
}

std::wstring processImageName(DWORD pid) {
  const std::wstring whole = processImagePath(pid, imagePathCapacityUnits);
  const std::wstring_view path = whole;
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
