#pragma once

namespace orvane::simulation {

class PlatformState;

// The script's turn on the platform thread, when no message waits: one step; or, when none is left,
// the end of the script and the closing of the main window. False when there is nothing to do.
bool performScriptTurn(PlatformState& state);

// Says once that the steps are done.
void endScript(PlatformState& state);

}  // namespace orvane::simulation
