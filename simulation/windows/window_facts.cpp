#include <windows.h>

#include <algorithm>
#include <vector>

#include "windows/call.h"
#include "windows/state.h"
#include "windows/wide_text.h"
#include "windows/window_geometry.h"
#include "windows/window_life.h"

using namespace orvane::simulation;

namespace {

constexpr std::uint32_t stateStyleBits = WS_VISIBLE | WS_MINIMIZE;

// What a style word changes of the window; bits of its state don't change this way.
LONG_PTR replaceStyle(Window& window, LONG_PTR value) {
  const std::uint32_t former = Desktop::styleOf(window);
  const auto style = static_cast<std::uint32_t>(value);
  if (((style ^ former) & stateStyleBits) != 0) stopRun("SetWindowLongPtrW", "showing by a style isn't modelled");
  window.style = style & ~stateStyleBits;
  return static_cast<LONG>(former);
}

LONG_PTR replaceExStyle(Window& window, LONG_PTR value) {
  const std::uint32_t former = Desktop::exStyleOf(window);
  const auto exStyle = static_cast<std::uint32_t>(value);
  if (((exStyle ^ former) & WS_EX_TOPMOST) != 0) stopRun("SetWindowLongPtrW", "raising by a style isn't modelled");
  window.exStyle = exStyle & ~static_cast<std::uint32_t>(WS_EX_TOPMOST);
  return static_cast<LONG>(former);
}

bool hasParent(const Window& window) { return window.parent != nullptr && !isUnparented(window); }

const Window& parentOf(const Window& window) {
  if (!hasParent(window)) stopRun("GetAncestor", "the desktop's own window isn't modelled");
  return *window.parent;
}

// As much of the text as fits before the closing NUL; returns how much that is.
int copyCut(const std::wstring& text, LPWSTR buffer, int capacity) {
  const int copied = std::min(static_cast<int>(text.size()), capacity - 1);
  *std::copy_n(text.begin(), copied, buffer) = L'\0';
  return copied;
}

}  // namespace

LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
  PlatformState& state = stateFor("SetWindowLongPtrW");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("SetWindowLongPtrW", about)) return faulted<LONG_PTR>(*fault);
  if (about == nullptr) return failWith<LONG_PTR>(ERROR_INVALID_WINDOW_HANDLE);
  HostWindow* const own = state.hostWindow(about);
  if (own == nullptr) stopRun("SetWindowLongPtrW", "another program's window");
  switch (index) {
    case GWLP_USERDATA:
      return std::exchange(own->userData, value);
    case GWL_STYLE:
      return replaceStyle(*about, value);
    case GWL_EXSTYLE:
      return replaceExStyle(*about, value);
    default:
      stopRun("SetWindowLongPtrW", "an index that isn't modelled");
  }
}

LONG_PTR GetWindowLongPtrW(HWND window, int index) {
  PlatformState& state = stateFor("GetWindowLongPtrW");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetWindowLongPtrW", about)) return faulted<LONG_PTR>(*fault);
  if (about == nullptr) return failWith<LONG_PTR>(ERROR_INVALID_WINDOW_HANDLE);
  const HostWindow* const own = state.hostWindow(about);
  if (index == GWLP_USERDATA && own != nullptr) return own->userData;
  if (index == GWL_STYLE) return static_cast<LONG>(Desktop::styleOf(*about));
  if (index == GWL_EXSTYLE) return static_cast<LONG>(Desktop::exStyleOf(*about));
  stopRun("GetWindowLongPtrW", "an index that isn't modelled");
}

BOOL IsWindow(HWND window) {
  const Window* const about = stateFor("IsWindow").liveWindow(window);
  if (const auto fault = enter("IsWindow", about)) return faulted<BOOL>(*fault);
  return about != nullptr ? TRUE : failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
}

HWND GetAncestor(HWND window, UINT which) {
  Window* const about = stateFor("GetAncestor").liveWindow(window);
  if (const auto fault = enter("GetAncestor", about)) return faulted<HWND>(*fault);
  if (which != GA_ROOT && which != GA_PARENT) stopRun("GetAncestor", "an ancestor that isn't modelled");
  if (about == nullptr) return failWith<HWND>(ERROR_INVALID_WINDOW_HANDLE);
  if (which == GA_PARENT) return handleOf(&parentOf(*about));
  Window* top = about;
  while (hasParent(*top)) top = top->parent;
  return handleOf(top);
}

// The windows of the moment of the call; those that go meanwhile aren't visited.
BOOL EnumWindows(WNDENUMPROC visit, LPARAM parameter) {
  PlatformState& state = stateFor("EnumWindows");
  if (const auto fault = enter("EnumWindows")) return faulted<BOOL>(*fault);
  const std::vector<Window*> windows = state.desktop.zOrder();
  return std::all_of(windows.begin(), windows.end(), [visit, parameter](const Window* window) {
    return window->destroyed || visit(handleOf(window), parameter) != FALSE;
  });
}

HWND GetTopWindow(HWND parent) {
  PlatformState& state = stateFor("GetTopWindow");
  if (const auto fault = enter("GetTopWindow")) return faulted<HWND>(*fault);
  if (parent != nullptr) stopRun("GetTopWindow", "the order of child windows isn't modelled");
  const std::vector<Window*>& order = state.desktop.zOrder();
  return order.empty() ? nullptr : handleOf(order.front());
}

HWND GetWindow(HWND window, UINT relation) {
  PlatformState& state = stateFor("GetWindow");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetWindow", about)) return faulted<HWND>(*fault);
  if (relation != GW_HWNDNEXT) stopRun("GetWindow", "a relation other than the next window isn't modelled");
  if (about == nullptr) return failWith<HWND>(ERROR_INVALID_WINDOW_HANDLE);
  if (about->parent != nullptr) stopRun("GetWindow", "the order of child windows isn't modelled");
  const std::vector<Window*>& order = state.desktop.zOrder();
  const auto next = std::find(order.begin(), order.end(), about) + 1;
  return next == order.end() ? nullptr : handleOf(*next);
}

int GetClassNameW(HWND window, LPWSTR name, int capacity) {
  const Window* const about = stateFor("GetClassNameW").liveWindow(window);
  if (const auto fault = enter("GetClassNameW", about)) return faulted<int>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, 0);
  if (name == nullptr || capacity <= 0) return failWith(ERROR_INSUFFICIENT_BUFFER, 0);
  return copyCut(wideFromText(about->className), name, capacity);
}

// The window's procedure isn't asked.
BOOL SetWindowTextW(HWND window, LPCWSTR text) {
  Window* const about = stateFor("SetWindowTextW").liveWindow(window);
  if (const auto fault = enter("SetWindowTextW", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  if (!about->ofHost) stopRun("SetWindowTextW", "another program's window isn't modelled");
  about->title = text == nullptr ? Text() : textFromWide(text);
  return TRUE;
}

DWORD GetWindowThreadProcessId(HWND window, LPDWORD processId) {
  const Window* const about = stateFor("GetWindowThreadProcessId").liveWindow(window);
  if (const auto fault = enter("GetWindowThreadProcessId", about)) return faulted<DWORD>(*fault);
  if (about == nullptr) return failWith<DWORD>(ERROR_INVALID_WINDOW_HANDLE);
  if (processId != nullptr) *processId = about->pid;
  return about->threadId;
}

int GetWindowTextLengthW(HWND window) {
  PlatformState& state = stateFor("GetWindowTextLengthW");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetWindowTextLengthW", about)) return faulted<int>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, 0);
  setLastError(ERROR_SUCCESS);
  return static_cast<int>(state.desktop.windowTitle(*about).size());
}

int GetWindowTextW(HWND window, LPWSTR text, int capacity) {
  PlatformState& state = stateFor("GetWindowTextW");
  const Window* const about = state.liveWindow(window);
  if (const auto fault = enter("GetWindowTextW", about)) return faulted<int>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, 0);
  setLastError(ERROR_SUCCESS);
  if (text == nullptr || capacity <= 0) return 0;
  return copyCut(wideFromText(state.desktop.windowTitle(*about)), text, capacity);
}
