#include "shell/command_line.h"

#include <windows.h>
// windows.h first: shellapi.h builds on it.
#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <cwchar>
#include <string_view>

#include "embedding/unique_resource.h"

namespace orvane {
namespace {

constexpr std::string_view contentPageFlag = "--orvane-content-page=";  // with any value behind it
constexpr std::string_view toolBoxFlag = "--orvane-open-toolbox";
constexpr std::size_t longestArgumentUnits = 32767;

struct ArgumentArrayTraits {
  using Value = LPWSTR*;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value value) noexcept { ::LocalFree(value); }
};
using UniqueArgumentArray = UniqueResource<ArgumentArrayTraits>;

}  // namespace

std::vector<std::string> GetCommandLineArguments() {
  int count = 0;
  const UniqueArgumentArray array(::CommandLineToArgvW(::GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  if (array) {
    for (int index = 1; index < count; ++index) {
      arguments.push_back(Utf8FromUtf16(array.get()[index]));
    }
  }
  return arguments;
}

std::string Utf8FromUtf16(const wchar_t* text) {
  if (text == nullptr) {
    return {};
  }
  const int lengthUnits = static_cast<int>(::wcsnlen(text, longestArgumentUnits));
  const int sizeBytes =
      ::WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text, lengthUnits, nullptr, 0, nullptr, nullptr);
  if (sizeBytes <= 0) {
    return {};
  }
  std::string utf8(static_cast<std::size_t>(sizeBytes), '\0');
  const int writtenBytes =
      ::WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text, lengthUnits, utf8.data(), sizeBytes, nullptr, nullptr);
  return writtenBytes > 0 ? utf8 : std::string();
}

bool asksForOffscreenStart(const std::vector<std::string>& arguments) {
  return std::any_of(arguments.begin(), arguments.end(), [](const std::string& argument) {
    return std::string_view(argument).starts_with(contentPageFlag) || argument == toolBoxFlag;
  });
}

}  // namespace orvane
