#pragma once

#include <windows.h>

#include <cstring>
#include <optional>
#include <string_view>
#include <type_traits>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// The state of the platform that stands; null where none was made (tests of pure functions).
PlatformState* currentState();

// The same for a call that can't do without.
PlatformState& stateFor(std::string_view call);

// Every platform function begins here: counts the call and says whether it is to fail. `window` and
// `element` are what it is about.
std::optional<FaultResult> enter(std::string_view call, const Window* window = nullptr,
                                 const Element* element = nullptr);

// Books::hold of the platform that stands.
void holdNow(std::string_view kind, int change);

void setLastError(LONG error);

template <typename Result>
Result failWith(LONG error, Result result = {}) {
  setLastError(error);
  return result;
}

// What a faulted call returns.
template <typename Result>
Result faulted(const FaultResult& fault) {
  setLastError(static_cast<LONG>(fault.lastError));
  const std::int64_t number = fault.kind == FaultResult::Kind::null ? 0 : fault.number;
  if constexpr (std::is_pointer_v<Result>) {
    return reinterpret_cast<Result>(static_cast<std::uintptr_t>(number));
  } else if constexpr (std::is_same_v<Result, bool>) {
    return number != 0;
  } else {
    return static_cast<Result>(number);
  }
}

// Ends a call that gives something through `out`: after a failure it holds junk, so that nobody
// leans on it; a pointer is null, as COM asks for; a success without effect gives nothing.
template <typename Value>
HRESULT endInto(HRESULT result, Value* out) {
  if (out == nullptr) return result;
  if constexpr (std::is_pointer_v<Value>) {
    *out = nullptr;
  } else {
    static_assert(std::is_trivially_copyable_v<Value>);
    std::memset(static_cast<void*>(out), FAILED(result) ? 0xCD : 0, sizeof *out);
  }
  return result;
}

}  // namespace orvane::simulation
