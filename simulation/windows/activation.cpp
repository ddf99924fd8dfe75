#include "windows/activation.h"

#include <windows.h>

#include <utility>

#include "windows/messages.h"
#include "windows/show_state.h"
#include "windows/state.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

bool canHear(PlatformState& state, const Window* window) {
  const HostWindow* const own = window == nullptr ? nullptr : state.hostWindow(window);
  return own != nullptr && !own->isDying && !window->destroyed;
}

// A window of another program isn't named to the host.
LPARAM nameFor(PlatformState& state, const Window* other) {
  return canHear(state, other) ? reinterpret_cast<LPARAM>(handleOf(other)) : 0;
}

WPARAM activationWord(int kind, const Window& window) { return MAKEWPARAM(kind, window.minimized ? 1 : 0); }

// The window still counts as active while it hears that it no longer is, so that a handler that
// puts the focus back into it doesn't activate it again.
void deactivate(PlatformState& state, Window& window, Window* next) {
  deliver(state, window, WM_ACTIVATE, activationWord(WA_INACTIVE, window), nameFor(state, next));
  if (state.input.active == &window) state.input.active = nullptr;
  const Window* const focus = state.input.focus;
  if (focus != nullptr && next == nullptr) moveKeyboardFocus(state, nullptr);
}

void activate(PlatformState& state, Window& window, Window* previous) {
  state.input.active = &window;
  deliver(state, window, WM_ACTIVATE, activationWord(WA_ACTIVE, window), nameFor(state, previous));
}

}  // namespace

void announceForeground(PlatformState& state, Window* from, Window* to) {
  const bool entersHost = canHear(state, to);
  if (canHear(state, from)) deactivate(state, *from, entersHost ? to : nullptr);
  if (entersHost) activate(state, *to, from);
}

void activateInQueue(PlatformState& state, Window& window) {
  Window* const previous = state.input.active;
  if (previous == &window || !canHear(state, &window)) return;
  if (canHear(state, previous)) deactivate(state, *previous, &window);
  activate(state, window, previous);
}

void moveKeyboardFocus(PlatformState& state, Window* window) {
  Window* const previous = state.input.focus;
  if (previous == window) return;
  if (window != nullptr && isShown(*window)) activateInQueue(state, topLevelOf(*window));
  // The activation may have moved the focus already.
  Window* const held = std::exchange(state.input.focus, window);
  if (held == window) return;
  if (canHear(state, held)) deliver(state, *held, WM_KILLFOCUS, reinterpret_cast<WPARAM>(handleOf(window)), 0);
  if (canHear(state, window)) deliver(state, *window, WM_SETFOCUS, reinterpret_cast<WPARAM>(handleOf(held)), 0);
}

void forgetInQueue(PlatformState& state, const Window& window) {
  if (state.input.active == &window) state.input.active = nullptr;
  if (state.input.focus == &window) state.input.focus = nullptr;
}

}  // namespace orvane::simulation
