#pragma once

#include <string>
#include <vector>

#include "world/desktop.h"

namespace orvane::standins {

// The ids of the windows that one process owns, in the scenario's order. Windows of one image share
// a process; those of one `pid` are a process of their own. Groups are counted from 0 in the order
// of their first windows; empty: there is no such group.
std::vector<std::string> windowsOfGroup(const std::vector<simulation::WindowPlan>& windows, int number);

}  // namespace orvane::standins
