#include "browser/frames.h"

#include <algorithm>

#include "common/link.h"
#include "common/link_window.h"
#include "common/wide_text.h"

namespace orvane::standins {
namespace {

using simulation::Window;
using simulation::WindowPlan;

constexpr ULONGLONG longestNeighbourWaitMs = 5'000;
constexpr DWORD neighbourLookMs = 10;
constexpr ULONGLONG settleMs = 40;
constexpr const wchar_t* plainClass = L"Orvane.StandIn.Window";
constexpr const wchar_t* cleanBackgroundProperty = L"Orvane.CleanBackground";
constexpr UINT inPlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

void registerClass(const std::wstring& name, WNDPROC procedure) {
  WNDCLASSW description{};
  description.lpfnWndProc = procedure;
  description.hInstance = ::GetModuleHandleW(nullptr);
  description.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  description.lpszClassName = name.c_str();
  ::RegisterClassW(&description);  // fails harmlessly where windows share a class
}

// Bottom of the z-order first.
std::vector<WindowPlan> plansFromBottom(std::vector<WindowPlan> plans) {
  std::reverse(plans.begin(), plans.end());
  std::stable_partition(plans.begin(), plans.end(), [](const WindowPlan& plan) { return !plan.topmost; });
  return plans;
}

void handleMessages(DWORD forMs) {
  ::MsgWaitForMultipleObjectsEx(0, nullptr, forMs, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  MSG message{};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
}

// Messages are handled meanwhile: whoever makes windows sends some to those that stand already.
void awaitWindow(const std::string& id) {
  const ULONGLONG startTick = ::GetTickCount64();
  while (::GetTickCount64() - startTick < longestNeighbourWaitMs && findNamedWindow(id) == nullptr) {
    handleMessages(neighbourLookMs);
  }
}

HWND createWindow(const Window& window, WNDPROC procedure) {
  const std::wstring className = window.className.empty() ? plainClass : wideFromText(window.className);
  registerClass(className, procedure);
  const simulation::Rectangle& bounds = window.bounds;
  return ::CreateWindowExW(window.topmost ? WS_EX_TOPMOST : 0, className.c_str(), L"",
                           WS_OVERLAPPEDWINDOW | WS_CLIPSIBLINGS, bounds.left, bounds.top, bounds.width(),
                           bounds.height(), nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
}

// On top of its band. The screen says late which of the window it has uncovered, and the platform
// raises the window there then: until that has passed, no other may be laid above.
void show(HWND handle, const Window& window) {
  if (window.minimized) ::ShowWindow(handle, SW_SHOWMINNOACTIVE);
  const UINT visibility = window.visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
  ::SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, inPlace | visibility);
  const ULONGLONG startTick = ::GetTickCount64();
  while (window.visible && ::GetTickCount64() - startTick < settleMs) handleMessages(neighbourLookMs);
}

// A window that comes to lie under the pointer is raised above those it overlaps there, without a
// word: the pointer waits in the corner that only a full screen covers.
void parkPointer() { ::SetCursorPos(::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1); }

// Without it every thread with a window gets one more, which whoever lists the windows finds.
void disableInputMethods() {
  using Disable = BOOL(WINAPI*)(DWORD thread);
  const auto library = ::LoadLibraryW(L"imm32.dll");
  const auto disable = reinterpret_cast<Disable>(reinterpret_cast<void*>(::GetProcAddress(library, "ImmDisableIME")));
  if (disable != nullptr) disable(static_cast<DWORD>(-1));
}

}  // namespace

void Frames::open(World& world, WNDPROC procedure) {
  disableInputMethods();
  parkPointer();
  registerClass(linkWindowClass, procedure);
  link_ = ::CreateWindowExW(0, linkWindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ::GetModuleHandleW(nullptr),
                            nullptr);
  const WindowPlan* below = nullptr;
  const std::vector<WindowPlan> plans = plansFromBottom(world.scenario().desktop.windows);
  for (const WindowPlan& plan : plans) {
    Window& window = *world.desktop().windowById(plan.id);
    if (world.owns(window)) {
      if (below != nullptr) awaitWindow(below->id);
      make(world, window, procedure);
    }
    below = &plan;
  }
}

void Frames::make(World& world, Window& window, WNDPROC procedure) {
  Frame& frame = frames_.emplace_back();
  frame.window = &window;
  frame.bounds = window.bounds;
  frame.minimized = window.minimized;
  frame.handle = createWindow(window, procedure);
  frame.title = wideFromText(world.desktop().windowTitle(window));
  ::SetWindowTextW(frame.handle, frame.title.c_str());
  if (!window.properties.empty()) ::SetPropW(frame.handle, cleanBackgroundProperty, reinterpret_cast<HANDLE>(1));
  show(frame.handle, window);
  // Last: the window above waits for the name.
  nameWindow(frame.handle, window.id);
}

Frame* Frames::byHandle(HWND handle) {
  const auto found = std::find_if(frames_.begin(), frames_.end(),
                                  [handle](const Frame& frame) { return handle != nullptr && frame.handle == handle; });
  return found == frames_.end() ? nullptr : &*found;
}

Frame* Frames::byWindow(const Window& window) {
  const auto found =
      std::find_if(frames_.begin(), frames_.end(), [&window](const Frame& frame) { return frame.window == &window; });
  return found == frames_.end() ? nullptr : &*found;
}

}  // namespace orvane::standins
