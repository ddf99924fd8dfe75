#pragma once

#include <set>
#include <string>

namespace orvane {

// Lower-cased names of the providers for which a submit has passed all verification in this
// process. Empty at start, never shrinks. Used on the platform thread only.
std::set<std::wstring>& settledProviders();

}  // namespace orvane
