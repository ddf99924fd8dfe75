#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "windows/engine_room.h"
#include "windows/gdi.h"
#include "windows/menus.h"
#include "windows/platform.h"

namespace orvane::simulation {

struct WindowClass {
  std::wstring name;
  WNDPROC procedure = nullptr;
  UINT style = 0;
};

// What of a window has to be drawn: all of it or nothing.
struct UpdateState {
  bool isDirty = false;
  bool erases = false;         // the background is to be erased first
  int unansweredRequests = 0;  // WM_PAINT since the last drawing
};

// What the platform keeps of a window of the host beside its place on the desktop.
struct HostWindow {
  Window* window = nullptr;
  std::wstring windowClass;  // folded; empty for a window of the embedding library
  WNDPROC procedure = nullptr;
  LONG_PTR userData = 0;
  std::uint32_t frameStyle = 0;  // the style that its frame was last computed from
  int thread = 0;                // ordinal of the simulated thread that made it
  bool isDying = false;
  bool wasShown = false;
  UpdateState update;
  LRESULT smallIcon = 0;
  LRESULT bigIcon = 0;
};

// The host's main thread: what waits to be handled.
struct MessageQueue {
  std::deque<std::function<void()>> events;  // handled inside GetMessageW, in front of the messages
  std::deque<MSG> posted;
  bool quits = false;
  int exitCode = 0;
};

// The host's side of activation, keyboard focus and input.
struct InputQueue {
  Window* active = nullptr;
  Window* focus = nullptr;
  std::multiset<std::pair<DWORD, DWORD>> attached;
  std::map<DWORD, const Window*> lastInFront;  // of other programs, by thread
  int batches = 0;
};

struct KernelObject {
  bool isProcess = false;
  Text imagePath;
  const Window* window = nullptr;  // one of the process's; null for a thread and where it has none
};

// A COM object of ours. Its memory stays when its last reference has gone, so that a call through a
// dead pointer is told apart from memory that happens to look alive.
struct ComShell {
  virtual ~ComShell() = default;
  virtual bool isAlive() const = 0;
};

class PlatformState : public HostWindows {
 public:
  PlatformState(Desktop& desktopOf, InterfaceScript* scriptOf, const std::vector<Text>& arguments);
  ~PlatformState() override;
  PlatformState(const PlatformState&) = delete;
  PlatformState& operator=(const PlatformState&) = delete;

  void foregroundMoved(Window* from, Window* to) override;
  void closeAsked(Window& window) override;
  void minimizeAsked(Window& window) override;
  void resizeAsked(Window& window, const Rectangle& bounds) override;

  // The host's own window; null for another program's.
  HostWindow* hostWindow(const Window* window);
  Window* liveWindow(HWND handle) const;

  Desktop& desktop;
  InterfaceScript* script;
  PlatformRecords records;
  std::wstring programPath;
  std::wstring commandLine;

  std::map<std::wstring, WindowClass> classes;  // by folded name
  std::map<const Window*, HostWindow> hostWindows;
  std::wstring mainClass;      // of the first window
  bool hasShownFirst = false;  // the first showing of a program's first window brings it to the front
  int ownForegroundCalls = 0;  // depth of calls of the host that may move the foreground

  MessageQueue queue;
  InputQueue input;
  bool scriptIsOver = false;
  int runningThreads = 0;
  std::map<HANDLE, KernelObject> kernelObjects;
  std::uintptr_t nextKernelHandle = 0x104;
  int libraryReferences = 0;
  std::map<HWINEVENTHOOK, WINEVENTPROC> eventHooks;  // on the foreground, in the order of their making
  std::uintptr_t nextEventHook = 0x30201;

  GdiRoom gdi;
  MenuRoom menus;

  std::map<int, int> apartments;  // depth by simulated thread
  std::deque<std::unique_ptr<ComShell>> comObjects;
  std::map<const Window*, Element> hostRoots;  // UI Automation's view of the host's own windows

  EngineRoom engines;
};

inline HWND handleOf(const Window* window) {
  return window == nullptr ? nullptr : reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window->handle));
}

// The platform's id of a simulated thread of the host.
inline DWORD threadIdOf(int ordinal) { return hostThreadId + 4 * static_cast<DWORD>(ordinal); }

// While one stands, a foreground that moves was moved by the host's own call.
class OwnForegroundCall {
 public:
  explicit OwnForegroundCall(PlatformState& state) : state_(state) { ++state_.ownForegroundCalls; }
  ~OwnForegroundCall() { --state_.ownForegroundCalls; }
  OwnForegroundCall(const OwnForegroundCall&) = delete;
  OwnForegroundCall& operator=(const OwnForegroundCall&) = delete;

 private:
  PlatformState& state_;
};

}  // namespace orvane::simulation
