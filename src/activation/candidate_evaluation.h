#pragma once

#include "activation/discovery_types.h"
#include "activation/elapsed_timer.h"

namespace orvane {

// Decides about each tab of the pass's inventory, copies the accepted ones in inventory order to
// the candidates, and writes a step for each tab and those that close the pass. `timer` started
// with the pass.
void evaluateInventory(const DiscoveryRequest& request, const DiscoveryPass& pass, const ElapsedTimer& timer);

}  // namespace orvane
