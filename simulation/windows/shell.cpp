#include <shellapi.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "windows/call.h"
#include "windows/command_line.h"
#include "windows/local_blocks.h"
#include "windows/state.h"
#include "windows/wide_text.h"

using namespace orvane::simulation;

namespace {

constexpr INT_PTR shellSuccess = 33;  // anything above 32

std::optional<Text> textOrNull(LPCWSTR text) {
  return text == nullptr ? std::nullopt : std::optional<Text>(textFromWide(text));
}

// The list of pointers and the texts behind it, in one block.
LPWSTR* argumentBlock(const std::vector<std::wstring>& arguments) {
  std::size_t units = 0;
  for (const std::wstring& argument : arguments) units += argument.size() + 1;
  const std::size_t pointers = arguments.size() + 1;
  auto* const list = static_cast<LPWSTR*>(allocateLocal(pointers * sizeof(LPWSTR) + units * sizeof(wchar_t)));
  auto* text = reinterpret_cast<wchar_t*>(list + pointers);
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    list[index] = text;
    text = std::copy(arguments[index].begin(), arguments[index].end(), text);
    *text++ = L'\0';
  }
  list[arguments.size()] = nullptr;
  return list;
}

}  // namespace

LPWSTR* CommandLineToArgvW(LPCWSTR commandLine, int* count) {
  if (const auto fault = enter("CommandLineToArgvW")) return faulted<LPWSTR*>(*fault);
  if (count == nullptr || commandLine == nullptr) return failWith<LPWSTR*>(ERROR_INVALID_PARAMETER);
  std::vector<std::wstring> arguments{wideFromText(hostImagePath)};
  if (*commandLine != L'\0') arguments = splitCommandLine(commandLine);
  *count = static_cast<int>(arguments.size());
  return argumentBlock(arguments);
}

HINSTANCE ShellExecuteW(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR directory, int show) {
  PlatformState& state = stateFor("ShellExecuteW");
  const Window* const window = state.liveWindow(owner);
  if (const auto fault = enter("ShellExecuteW", window)) return faulted<HINSTANCE>(*fault);
  ShellCall call;
  call.verb = textOrNull(verb);
  call.file = textOrNull(file);
  call.parameters = textOrNull(parameters);
  call.directory = textOrNull(directory);
  call.show = show;
  if (window != nullptr) call.owner = window->id;
  state.records.shell.push_back(std::move(call));
  return reinterpret_cast<HINSTANCE>(shellSuccess);
}
