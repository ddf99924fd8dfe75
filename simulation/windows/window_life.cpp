#include "windows/window_life.h"

#include <string_view>
#include <vector>

#include "windows/activation.h"
#include "windows/call.h"
#include "windows/messages.h"
#include "windows/show_state.h"
#include "windows/state.h"
#include "windows/tracking_sizes.h"
#include "windows/wide_text.h"
#include "windows/window_frame.h"

namespace orvane::simulation {
namespace {

// Where child windows stand that no window has taken in.
Window& nowhere() {
  static Window window;
  return window;
}

// The report's names of windows of other classes than the first one's.
struct ClassName {
  std::wstring_view windowClass;  // folded
  std::string_view id;
};
constexpr ClassName classNames[] = {{L"orvane_clean_background_rc310", "backdrop"}};

std::string nameOfClass(PlatformState& state, const std::wstring& windowClass) {
  for (const ClassName& known : classNames) {
    if (known.windowClass == windowClass) return std::string(known.id);
  }
  if (state.mainClass.empty()) state.mainClass = windowClass;
  if (windowClass == state.mainClass) return "main";
  return utf8FromText(textFromWide(windowClass));
}

// The first window of a kind has the plain name, further ones count on.
std::string freeId(PlatformState& state, const std::wstring& windowClass) {
  const std::string name = nameOfClass(state, windowClass);
  std::string id = name;
  for (int number = 2; state.desktop.windowById(id) != nullptr; ++number) id = name + std::to_string(number);
  return id;
}

// The bits that the platform adds by itself.
DWORD completedStyle(DWORD style) {
  if ((style & WS_CHILD) != 0) return style;
  const DWORD captioned = (style & WS_POPUP) == 0 ? style | WS_CAPTION : style;
  return captioned | WS_CLIPSIBLINGS;
}

DWORD completedExStyle(DWORD style, DWORD exStyle) {
  const bool isRaised = (exStyle & WS_EX_DLGMODALFRAME) != 0 ||
                        ((exStyle & WS_EX_STATICEDGE) == 0 && (style & (WS_DLGFRAME | WS_THICKFRAME)) != 0);
  return isRaised ? exStyle | WS_EX_WINDOWEDGE : exStyle & ~static_cast<DWORD>(WS_EX_WINDOWEDGE);
}

void adopt(PlatformState& state, Window& window, const std::wstring& windowClass, WNDPROC procedure) {
  HostWindow& own = state.hostWindows[&window];
  own.window = &window;
  own.windowClass = windowClass;
  own.procedure = procedure;
  own.thread = Clock::currentThread();
}

Window& placeOnDesktop(PlatformState& state, const WindowClass& windowClass, const CREATESTRUCTW& creation) {
  Window* const parent = state.liveWindow(creation.hwndParent);
  const std::wstring key = foldedName(windowClass.name);
  const auto style = static_cast<DWORD>(creation.style);
  Window& window = state.desktop.addHostWindow(parent == nullptr ? freeId(state, key) : std::string(), parent);
  window.className = textFromWide(windowClass.name);
  window.title = creation.lpszName == nullptr ? Text() : textFromWide(creation.lpszName);
  window.bounds = {creation.x, creation.y, creation.x + creation.cx, creation.y + creation.cy};
  window.visible = false;
  window.threadId = threadIdOf(Clock::currentThread());
  window.style = completedStyle(style) & ~static_cast<DWORD>(WS_VISIBLE);
  window.exStyle = completedExStyle(window.style, creation.dwExStyle) & ~static_cast<DWORD>(WS_EX_TOPMOST);
  if ((creation.dwExStyle & WS_EX_TOPMOST) != 0) state.desktop.setTopmost(window, true);
  adopt(state, window, key, windowClass.procedure);
  recomputeFrame(state, window);
  return window;
}

// The window's procedure has the last word on its size and on both messages of the creation.
bool introduce(PlatformState& state, Window& window, const CREATESTRUCTW& creation) {
  window.bounds = limitedBounds(state, window, window.bounds);
  const auto parameter = reinterpret_cast<LPARAM>(&creation);
  if (sendMessage(state, window, WM_NCCREATE, 0, parameter) == FALSE) {
    sendMessage(state, window, WM_NCDESTROY, 0, 0);
    state.desktop.destroyWindow(window);
    return false;
  }
  if (sendMessage(state, window, WM_CREATE, 0, parameter) == -1) {
    endWindow(state, window);
    return false;
  }
  return !window.destroyed;
}

void requireModelled(const CREATESTRUCTW& creation) {
  constexpr const char* call = "CreateWindowExW";
  const bool isChild = (creation.style & WS_CHILD) != 0;
  if (creation.x == CW_USEDEFAULT || creation.cx == CW_USEDEFAULT) stopRun(call, "a default place isn't modelled");
  if (!isChild && creation.hwndParent != nullptr) stopRun(call, "an owner isn't modelled");
  if (creation.hMenu != nullptr) stopRun(call, "a menu or child number isn't modelled");
}

std::vector<Window*> childrenOf(PlatformState& state, const Window& window) {
  std::vector<Window*> children;
  for (const auto& [handle, own] : state.hostWindows) {
    if (own.window->parent == &window && !own.window->destroyed) children.push_back(own.window);
  }
  return children;
}

void announceEnd(PlatformState& state, Window& window) {
  HostWindow& own = *state.hostWindow(&window);
  if (std::exchange(own.isDying, true)) return;
  sendMessage(state, window, WM_DESTROY, 0, 0);
  for (Window* child : childrenOf(state, window)) announceEnd(state, *child);
}

void finishEnd(PlatformState& state, Window& window) {
  for (Window* child : childrenOf(state, window)) finishEnd(state, *child);
  if (window.destroyed) return;
  sendMessage(state, window, WM_NCDESTROY, 0, 0);
  window.properties.clear();
  forgetInQueue(state, window);
  const OwnForegroundCall guard(state);
  state.desktop.destroyWindow(window);
}

LRESULT CALLBACK libraryProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  PlatformState& state = stateFor("view");
  Window* const about = state.liveWindow(window);
  return about == nullptr ? 0 : defaultProcedure(state, *about, message, wParam, lParam);
}

}  // namespace

Window& makeLibraryWindow(PlatformState& state, int width, int height) {
  Window& window = state.desktop.addHostWindow({}, &nowhere());
  window.className = u"FLUTTERVIEW";
  window.bounds = {0, 0, width, height};
  window.style = WS_CHILD;
  adopt(state, window, {}, libraryProcedure);
  return window;
}

bool isUnparented(const Window& window) { return window.parent == &nowhere(); }

bool endWindow(PlatformState& state, Window& window) {
  const HostWindow* const own = state.hostWindow(&window);
  if (own == nullptr || own->isDying || window.destroyed) return false;
  announceEnd(state, window);
  finishEnd(state, window);
  return true;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

ATOM RegisterClassW(const WNDCLASSW* windowClass) {
  constexpr std::size_t firstAtom = 0xC001;
  PlatformState& state = stateFor("RegisterClassW");
  if (const auto fault = enter("RegisterClassW")) return faulted<ATOM>(*fault);
  if (windowClass->lpszClassName == nullptr || windowClass->lpfnWndProc == nullptr) {
    return failWith<ATOM>(ERROR_INVALID_PARAMETER);
  }
  if (windowClass->hbrBackground != nullptr) stopRun("RegisterClassW", "a background brush isn't modelled");
  const WindowClass entry{windowClass->lpszClassName, windowClass->lpfnWndProc, windowClass->style};
  state.records.classes.push_back(
      {textFromWide(entry.name), entry.style, windowClass->hIcon != nullptr, windowClass->hCursor != nullptr});
  const bool isNew = state.classes.emplace(foldedName(entry.name), entry).second;
  if (!isNew) return failWith<ATOM>(ERROR_CLASS_ALREADY_EXISTS);
  return static_cast<ATOM>(firstAtom + state.classes.size());
}

BOOL UnregisterClassW(LPCWSTR name, HINSTANCE) {
  PlatformState& state = stateFor("UnregisterClassW");
  if (const auto fault = enter("UnregisterClassW")) return faulted<BOOL>(*fault);
  const std::wstring key = foldedName(name);
  if (!state.classes.contains(key)) return failWith(ERROR_CLASS_DOES_NOT_EXIST, FALSE);
  for (const auto& [window, own] : state.hostWindows) {
    if (own.windowClass == key && !window->destroyed) return failWith(ERROR_CLASS_HAS_WINDOWS, FALSE);
  }
  state.classes.erase(key);
  return TRUE;
}

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter) {
  PlatformState& state = stateFor("CreateWindowExW");
  if (const auto fault = enter("CreateWindowExW")) return faulted<HWND>(*fault);
  const CREATESTRUCTW creation{parameter, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
                               title,     className, exStyle};
  requireModelled(creation);
  const auto found = state.classes.find(foldedName(className));
  if (found == state.classes.end()) return failWith<HWND>(ERROR_CANNOT_FIND_WND_CLASS);
  if ((style & WS_CHILD) != 0 && parent == nullptr) return failWith<HWND>(ERROR_TLW_WITH_WSCHILD);
  if (parent != nullptr && state.liveWindow(parent) == nullptr) return failWith<HWND>(ERROR_INVALID_WINDOW_HANDLE);
  Window& window = placeOnDesktop(state, found->second, creation);
  if (!introduce(state, window, creation)) return nullptr;
  if ((style & WS_VISIBLE) != 0) changeVisibility(state, window, true, Activation::allowed);
  return handleOf(&window);
}

BOOL DestroyWindow(HWND window) {
  PlatformState& state = stateFor("DestroyWindow");
  Window* const about = state.liveWindow(window);
  if (const auto fault = enter("DestroyWindow", about)) return faulted<BOOL>(*fault);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  const HostWindow* const own = state.hostWindow(about);
  if (own == nullptr || own->thread != Clock::currentThread()) return failWith(ERROR_ACCESS_DENIED, FALSE);
  return endWindow(state, *about) ? TRUE : FALSE;
}
