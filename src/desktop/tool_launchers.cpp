#include "desktop/tool_launchers.h"

#include <shellapi.h>

#include <cstdint>
#include <string>

#include "embedding/call_arguments.h"
#include "embedding/reply_map.h"
#include "embedding/shell_result.h"
#include "embedding/utf_conversion.h"

namespace orvane {
namespace {

constexpr std::int32_t noPathGiven = 2;

const wchar_t* orNull(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

INT_PTR open(HWND owner, const wchar_t* file, const std::wstring& parameters = {}, const std::wstring& directory = {}) {
  return reinterpret_cast<INT_PTR>(
      ::ShellExecuteW(owner, L"open", file, orNull(parameters), orNull(directory), SW_SHOWNORMAL));
}

std::wstring directoryArgument(const EncodableMap* arguments) {
  return wideFromUtf8(stringEntry(arguments, "workingDirectory"));
}

EncodableMap launchReply(bool success, std::int32_t errorCode) {
  EncodableMap reply = successReply(success);
  addToReply(reply, "errorCode", errorCode);
  return reply;
}

EncodableMap launchReply(INT_PTR result) {
  return launchReply(result > greatestShellError, static_cast<std::int32_t>(result));
}

}  // namespace

bool openScreenCapture() { return open(nullptr, L"ms-screenclip:") > greatestShellError; }

bool openTaskManager() { return open(nullptr, L"taskmgr.exe") > greatestShellError; }

bool openCommandPromptAt(HWND mainWindow, const EncodableMap* arguments) {
  return open(mainWindow, L"cmd.exe", L"/k", directoryArgument(arguments)) > greatestShellError;
}

bool openCommandWindow(HWND mainWindow, const EncodableMap* arguments) {
  return open(mainWindow, L"cmd.exe", L"/k explorer .", directoryArgument(arguments)) > greatestShellError;
}

EncodableMap runBatchFile(HWND mainWindow, const EncodableMap* arguments) {
  const std::string path = stringEntry(arguments, "batchPath");
  if (path.empty()) {
    return launchReply(false, noPathGiven);
  }
  // The path goes between the quotes as it is.
  const std::wstring parameters = L"/d /k call \"" + wideFromUtf8(path) + L"\"";
  return launchReply(open(mainWindow, L"cmd.exe", parameters, directoryArgument(arguments)));
}

EncodableMap openTextFile(HWND mainWindow, const EncodableMap* arguments) {
  const std::string path = stringEntry(arguments, "filePath");
  if (path.empty()) {
    return launchReply(false, noPathGiven);
  }
  return launchReply(open(mainWindow, L"notepad.exe", L"\"" + wideFromUtf8(path) + L"\""));
}

}  // namespace orvane
