#include "composer/foreground.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "composer/input_attachment.h"
#include "composer/window_text.h"
#include "embedding/call_arguments.h"
#include "embedding/unique_kernel_handle.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr DWORD afterRestoreMs = 60;
constexpr std::array<DWORD, 3> readBackWaitsMs{120, 200, 280};
constexpr DWORD shortReadBackWaitMs = 120;
constexpr DWORD firstFollowUpMs = 180;
constexpr DWORD secondFollowUpMs = 270;

struct InputThreads {
  DWORD calling = 0;
  DWORD ofWindow = 0;
};

InputThreads readInputThreads(HWND window) {
  return {::GetCurrentThreadId(), ::GetWindowThreadProcessId(window, nullptr)};
}

DWORD threadOfForeground(HWND foreground) {
  return foreground == nullptr ? 0 : ::GetWindowThreadProcessId(foreground, nullptr);
}

void askForForegroundStrongly(HWND window, HWND foreground, const InputThreads& threads) {
  const InputAttachment toForeground(threads.calling, threadOfForeground(foreground));
  const InputAttachment toWindow(threads.calling, threads.ofWindow);
  ::SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
  ::BringWindowToTop(window);
  ::SetForegroundWindow(window);
  ::SetActiveWindow(window);
  ::SetFocus(window);
}

void askForForeground(HWND window, HWND foreground, const InputThreads& threads) {
  const InputAttachment toForeground(threads.calling, threadOfForeground(foreground));
  const InputAttachment toWindow(threads.calling, threads.ofWindow);
  ::BringWindowToTop(window);
  ::SetForegroundWindow(window);
  ::SetFocus(window);
}

void showForForeground(HWND window) {
  if (::IsIconic(window) != FALSE) {
    ::ShowWindowAsync(window, SW_RESTORE);
    ::Sleep(afterRestoreMs);
  } else {
    ::ShowWindowAsync(window, SW_SHOW);
  }
}

void followUp(HWND window) {
  ::Sleep(firstFollowUpMs);
  if (::IsWindow(window) != FALSE) {
    bringForward(window);
  }
  ::Sleep(secondFollowUpMs);
  if (::IsWindow(window) != FALSE && ::GetForegroundWindow() != window) {
    bringForward(window);
  }
}

DWORD WINAPI followUpThread(LPVOID window) {
  followUp(static_cast<HWND>(window));
  return 0;
}

std::vector<std::wstring> lowerPatterns(const EncodableMap* arguments) {
  std::vector<std::wstring> patterns;
  for (const std::string& pattern : stringListEntry(arguments, "patterns")) {
    patterns.push_back(toLower(wideFromUtf8(pattern)));
  }
  patterns.push_back(toLower(wideFromUtf8(stringEntry(arguments, "name"))));
  return patterns;
}

bool titleHoldsAny(const std::wstring& title, const std::vector<std::wstring>& patterns) {
  const std::wstring lowerTitle = toLower(title);
  for (const std::wstring& pattern : patterns) {
    if (!pattern.empty() && lowerTitle.find(pattern) != std::wstring::npos) {
      return true;
    }
  }
  return false;
}

}  // namespace

bool forceForeground(HWND window) {
  if (::IsWindow(window) == FALSE) {
    return false;
  }
  const InputThreads threads = readInputThreads(window);
  for (const DWORD readBackWaitMs : readBackWaitsMs) {
    if (::IsWindow(window) == FALSE) {
      return false;
    }
    showForForeground(window);
    const HWND foreground = ::GetForegroundWindow();
    if (foreground == window) {
      return true;
    }
    askForForegroundStrongly(window, foreground, threads);
    ::Sleep(readBackWaitMs);
    if (::GetForegroundWindow() == window) {
      return true;
    }
  }
  return false;
}

bool bringForward(HWND window) {
  if (::IsWindow(window) == FALSE) {
    return false;
  }
  const InputThreads threads = readInputThreads(window);
  if (::IsIconic(window) != FALSE) {
    ::ShowWindowAsync(window, SW_RESTORE);
  }
  askForForeground(window, ::GetForegroundWindow(), threads);
  ::Sleep(shortReadBackWaitMs);
  return ::GetForegroundWindow() == window;
}

void scheduleForegroundFollowUp(HWND window) {
  if (::IsWindow(window) == FALSE) {
    return;
  }
  // The thread runs on by itself; only its handle is given back.
  const UniqueKernelHandle thread(::CreateThread(nullptr, 0, followUpThread, window, 0, nullptr));
}

bool verifyForeground(HWND window, const EncodableMap* arguments, std::string* message) {
  std::string unused;
  std::string& text = message == nullptr ? unused : *message;
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    text = "No foreground window";
    return false;
  }
  if (const std::optional<std::int64_t> expected = integerEntry(arguments, "expectedWindowHandle")) {
    const bool isExpected = *expected == static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(window));
    text = isExpected ? "PASS: foreground HWND matches activated AI window"
                      : "FAIL: foreground HWND does not match activated AI window";
    return isExpected;
  }
  const std::wstring title = windowText(window);
  const bool isNamed = titleHoldsAny(title, lowerPatterns(arguments));
  text = (isNamed ? "PASS: foreground title is " : "FAIL: foreground title is ") + utf8FromWide(title);
  return isNamed;
}

}  // namespace orvane
