#include "windows/state.h"

#include <algorithm>

#include "windows/activation.h"
#include "windows/call.h"
#include "windows/command_line.h"
#include "windows/messages.h"
#include "windows/show_state.h"
#include "windows/wide_text.h"
#include "windows/win_event_hook.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

PlatformState* standing = nullptr;

}  // namespace

PlatformState* currentState() { return standing; }

PlatformState& stateFor(std::string_view call) {
  if (standing == nullptr) stopRun(call, "no platform was set up for this process");
  return *standing;
}

std::optional<FaultResult> enter(std::string_view call, const Window* window, const Element* element) {
  return standing == nullptr ? std::nullopt : standing->desktop.books().enter(call, window, element);
}

void holdNow(std::string_view kind, int change) {
  if (standing != nullptr) standing->desktop.books().hold(kind, change);
}

PlatformState::PlatformState(Desktop& desktopOf, InterfaceScript* scriptOf, const std::vector<Text>& arguments)
    : desktop(desktopOf), script(scriptOf), programPath(wideFromText(hostImagePath)) {
  commandLine = quotedProgram(programPath);
  for (const Text& argument : arguments) commandLine += L' ' + quotedArgument(wideFromText(argument));
  desktop.host = this;
  standing = this;
}

PlatformState::~PlatformState() {
  if (desktop.host == this) desktop.host = nullptr;
  if (standing == this) standing = nullptr;
}

HostWindow* PlatformState::hostWindow(const Window* window) {
  const auto found = hostWindows.find(window);
  return found == hostWindows.end() ? nullptr : &found->second;
}

Window* PlatformState::liveWindow(HWND handle) const {
  return desktop.windowByHandle(static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(handle)));
}

void PlatformState::foregroundMoved(Window* from, Window* to) {
  const bool isAnnouncedAtOnce = ownForegroundCalls > 0 && Clock::currentThread() == 0;
  const auto announce = [this, from, to] { announceForeground(*this, from, to); };
  if (isAnnouncedAtOnce) {
    announce();
  } else {
    queue.events.push_back([this, announce, to] {
      announce();
      // Who brings up a window of the host brings it up to work in it.
      if (to != nullptr && to->ofHost && to->minimized && !to->destroyed) {
        changeShowState(*this, *to, SW_RESTORE, "foreground");
      }
    });
  }
  if (to != nullptr && !to->ofHost) input.lastInFront[to->threadId] = to;
  announceToHooks(*this, to);
}

void PlatformState::closeAsked(Window& window) { postMessage(*this, window, WM_CLOSE, 0, 0); }

void PlatformState::minimizeAsked(Window& window) {
  queue.events.push_back([this, &window] {
    if (!window.destroyed && window.visible) changeShowState(*this, window, SW_MINIMIZE, "minimize");
  });
}

void PlatformState::resizeAsked(Window& window, const Rectangle& bounds) {
  queue.events.push_back([this, &window, bounds] { dragBorder(*this, window, bounds); });
}

}  // namespace orvane::simulation
