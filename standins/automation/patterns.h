#pragma once

#include "automation/tree_link.h"
#include "composer/uia_interfaces.h"

namespace orvane::standins {

// The pattern of an element, with a reference for the caller; null for a pair of pattern and
// interface that isn't there.
void* makePattern(const ElementPlace& place, PATTERNID pattern, REFIID iid);

}  // namespace orvane::standins
