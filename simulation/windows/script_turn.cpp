#include "windows/script_turn.h"

#include "windows/messages.h"
#include "windows/state.h"

namespace orvane::simulation {

void endScript(PlatformState& state) {
  if (state.scriptIsOver || state.script == nullptr) return;
  state.scriptIsOver = true;
  state.script->stepsDone();
}

bool performScriptTurn(PlatformState& state) {
  if (state.script == nullptr || state.scriptIsOver) return false;
  // Without a first frame there is no interface that could perform anything.
  if (state.engines.hasDrawnFrame() && state.script->performStep()) return true;
  endScript(state);
  if (Window* window = state.desktop.windowById("main")) postMessage(state, *window, WM_CLOSE, 0, 0);
  return true;
}

}  // namespace orvane::simulation
