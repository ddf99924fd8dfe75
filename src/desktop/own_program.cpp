#include "desktop/own_program.h"

#include <cwchar>
#include <string>

#include "activation/process_image.h"

namespace orvane {
namespace {

constexpr DWORD pathCapacityUnits = 0x8000;

// Empty when a call fails.
std::wstring imagePathOf(HWND window) {
  DWORD processId = 0;
  ::GetWindowThreadProcessId(window, &processId);
  return processImagePath(processId, pathCapacityUnits);
}

std::wstring ownImagePath() {
  std::wstring path(pathCapacityUnits, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), pathCapacityUnits));
  return path;
}

}  // namespace

bool isOwnProgramWindow(HWND window) {
  const std::wstring path = imagePathOf(window);
  if (path.empty()) {
    return false;
  }
  return ::_wcsicmp(path.c_str(), ownImagePath().c_str()) == 0;
}

}  // namespace orvane
