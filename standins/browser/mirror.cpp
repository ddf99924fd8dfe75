#include "browser/mirror.h"

#include <algorithm>
#include <utility>

#include "browser/quiet_restore.h"
#include "browser/real_clipboard.h"
#include "common/link.h"
#include "common/wide_text.h"

namespace orvane::standins {
namespace {

using simulation::Rectangle;
using simulation::Window;

constexpr UINT longestTurnMs = 200;
constexpr UINT upOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

template <typename Item>
bool contains(const std::vector<Item>& items, const Window* window) {
  return std::find(items.begin(), items.end(), window) != items.end();
}

HWND rootInForeground() {
  const HWND foreground = ::GetForegroundWindow();
  return foreground == nullptr ? nullptr : ::GetAncestor(foreground, GA_ROOT);
}

Rectangle boundsOf(HWND handle) {
  RECT bounds{};
  ::GetWindowRect(handle, &bounds);
  return {bounds.left, bounds.top, bounds.right, bounds.bottom};
}

// The process of the window has handled what was sent to it: keys that follow find it active. It may
// be waiting for this one meanwhile, whose messages are handled therefore.
void awaitTurnOf(HWND handle) {
  DWORD_PTR unused = 0;
  ::SendMessageTimeoutW(handle, WM_NULL, 0, 0, SMTO_NORMAL | SMTO_ABORTIFHUNG, longestTurnMs, &unused);
}

// A window takes the foreground and gives up being active: then none is in front.
void leaveNoForeground() {
  const HWND passing = ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                         ::GetModuleHandleW(nullptr), nullptr);
  ::SetForegroundWindow(passing);
  ::SetActiveWindow(nullptr);
  ::DestroyWindow(passing);
}

}  // namespace

Mirror::Mirror(World& world, Frames& frames)
    : world_(world), frames_(frames), clipboardSequence_(world.desktop().clipboard.sequence) {
  world_.desktop().host = this;
  world_.desktop().clipboard.content.lockedBy.reset();
}

// ---- from the real desktop

void Mirror::pull(bool whole) {
  const HWND root = rootInForeground();
  if (!whole && root == foregroundRoot_) return;
  isPulling_ = true;
  const std::vector<Standing> standing = standingWindows();
  noteWindowsThatLeft(standing);
  Window* front = nullptr;
  for (auto one = standing.rbegin(); one != standing.rend(); ++one) {
    pullState(*one);
    if (one->handle == root) front = one->window;
  }
  world_.desktop().moveForeground(front);
  // Last, because moving the foreground raises.
  for (auto one = standing.rbegin(); one != standing.rend(); ++one) world_.desktop().raise(*one->window);
  isPulling_ = false;
  foregroundRoot_ = root;
  if (!holdsClipboard_) clipboardHolder_ = clipboardHolder();
  world_.desktop().clipboard.content.lockedBy = clipboardHolder_;
  announceForeground();
}

// Top of the z-order first.
std::vector<Mirror::Standing> Mirror::standingWindows() {
  struct Walk {
    simulation::Desktop& desktop;
    std::vector<Standing> standing;
  } walk{world_.desktop(), {}};
  ::EnumWindows(
      [](HWND handle, LPARAM parameter) -> BOOL {
        auto& [desktop, standing] = *reinterpret_cast<Walk*>(parameter);
        const std::optional<std::string> id = nameOfWindow(handle);
        if (Window* window = id ? desktop.windowById(*id) : nullptr) standing.push_back({handle, window});
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&walk));
  return walk.standing;
}

void Mirror::noteWindowsThatLeft(const std::vector<Standing>& standing) {
  for (const Standing& one : standing) {
    if (!world_.owns(*one.window) && !contains(seen_, one.window)) seen_.push_back(one.window);
  }
  for (const auto& window : world_.desktop().allWindows()) {
    const bool stands = std::any_of(standing.begin(), standing.end(),
                                    [&window](const Standing& one) { return one.window == window.get(); });
    if (stands || window->destroyed || !contains(seen_, window.get())) continue;
    // The host may make its windows anew.
    if (window->ofHost) {
      window->visible = false;
    } else {
      world_.desktop().destroyWindow(*window);
    }
  }
}

void Mirror::pullState(const Standing& standing) {
  Window& window = *standing.window;
  window.visible = ::IsWindowVisible(standing.handle) != FALSE;
  window.minimized = ::IsIconic(standing.handle) != FALSE;
  window.topmost = (::GetWindowLongPtrW(standing.handle, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  if (!window.minimized) window.bounds = boundsOf(standing.handle);
  if (Frame* frame = frames_.byHandle(standing.handle)) {
    frame->minimized = window.minimized;
    frame->bounds = window.bounds;
  }
}

void Mirror::pullPasteText() {
  if (holdsClipboard_) return;
  simulation::ClipboardContent pasted;
  pasted.lockedBy = world_.desktop().clipboard.content.lockedBy;
  if (auto text = readClipboardText(frames_.link())) pasted.setText(std::move(*text));
  world_.desktop().clipboard.content = std::move(pasted);
}

void Mirror::announceForeground() {
  const HWND root = rootInForeground();
  if (root == announced_) return;
  announced_ = root;
  // The platform here tells of no change of the foreground by itself.
  if (frames_.byHandle(root) != nullptr) {
    ::NotifyWinEvent(EVENT_SYSTEM_FOREGROUND, root, OBJID_WINDOW, CHILDID_SELF);
  }
}

// ---- from the model

void Mirror::foregroundMoved(Window*, Window* to) {
  if (!isPulling_) bringing_ = Bringing{to};
}

void Mirror::bringUp(Window* window) { bringing_ = Bringing{window}; }

void Mirror::closeAsked(Window& window) { ::PostMessageW(handleOf(window), WM_CLOSE, 0, 0); }

void Mirror::minimizeAsked(Window& window) { ::PostMessageW(handleOf(window), WM_SYSCOMMAND, SC_MINIMIZE, 0); }

void Mirror::resizeAsked(Window& window, const Rectangle& bounds) {
  ::SetWindowPos(handleOf(window), nullptr, bounds.left, bounds.top, bounds.width(), bounds.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

void Mirror::push() {
  for (Frame& frame : frames_.all()) pushFrame(frame);
  // In front of the closings: a window that closes in the foreground would choose its follower.
  pushForeground();
  pushClosings();
  pushClipboard();
}

void Mirror::pushFrame(Frame& frame) {
  const Window& window = *frame.window;
  if (frame.handle == nullptr || window.destroyed) return;
  if (std::wstring title = wideFromText(world_.desktop().windowTitle(window)); title != frame.title) {
    frame.title = std::move(title);
    ::SetWindowTextW(frame.handle, frame.title.c_str());
  }
  if (window.minimized != frame.minimized) {
    frame.minimized = window.minimized;
    if (window.minimized) {
      ::ShowWindow(frame.handle, SW_SHOWMINNOACTIVE);
    } else {
      restoreQuietly(frame.handle);
    }
  }
  if (window.bounds != frame.bounds) {
    frame.bounds = window.bounds;
    ::SetWindowPos(frame.handle, nullptr, window.bounds.left, window.bounds.top, window.bounds.width(),
                   window.bounds.height(), SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

void Mirror::pushForeground() {
  if (!bringing_) return;
  const Window* window = bringing_->window;
  bringing_.reset();
  if (window == nullptr) {
    leaveNoForeground();
  } else if (const HWND handle = handleOf(*window)) {
    // Another process may be waiting for this one: its windows move when it comes to it.
    ::SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, upOnly | (world_.owns(*window) ? 0 : SWP_ASYNCWINDOWPOS));
    ::SetForegroundWindow(handle);
    if (!world_.owns(*window) && !window->ofHost) awaitTurnOf(handle);
  }
  foregroundRoot_ = rootInForeground();
  announceForeground();
}

void Mirror::pushClosings() {
  for (Frame& frame : frames_.all()) {
    if (frame.window->destroyed && frame.handle != nullptr) ::DestroyWindow(std::exchange(frame.handle, nullptr));
  }
  for (const auto& window : world_.desktop().allWindows()) {
    if (!window->destroyed || world_.owns(*window) || contains(askedToClose_, window.get())) continue;
    askedToClose_.push_back(window.get());
    if (const HWND handle = findNamedWindow(window->id)) ::PostMessageW(handle, WM_CLOSE, 0, 0);
  }
}

void Mirror::holdFor(const std::string& windowId, bool hold) {
  keepOpen(windowId, hold);
  world_.desktop().clipboard.content.lockedBy = clipboardHolder_;
}

void Mirror::pushClipboard() {
  simulation::Clipboard& clipboard = world_.desktop().clipboard;
  const std::optional<std::string> holder = clipboard.content.lockedBy;
  if (clipboard.sequence != clipboardSequence_) {
    clipboardSequence_ = clipboard.sequence;
    if (holdsClipboard_) keepOpen(*clipboardHolder_, false);
    writeClipboard(frames_.link(), clipboard.content);
  }
  if (holder == clipboardHolder_) return;
  if (clipboardHolder_) keepOpen(*clipboardHolder_, false);
  if (holder) keepOpen(*holder, true);
  clipboardHolder_ = holder;
}

void Mirror::keepOpen(const std::string& windowId, bool hold) {
  const auto isNamed = [&windowId](const Frame& frame) { return frame.window->id == windowId; };
  const auto frame = std::find_if(frames_.all().begin(), frames_.all().end(), isNamed);
  if (frame == frames_.all().end()) return askToHoldClipboard(findNamedWindow(windowId), hold);
  if (hold && !holdsClipboard_) {
    holdClipboard(frame->handle);
  } else if (!hold && holdsClipboard_) {
    letClipboardGo();
  }
  holdsClipboard_ = hold;
  clipboardHolder_ = hold ? std::optional(windowId) : std::nullopt;
}

HWND Mirror::handleOf(const Window& window) {
  const Frame* frame = frames_.byWindow(window);
  return frame == nullptr ? findNamedWindow(window.id) : frame->handle;
}

}  // namespace orvane::standins
