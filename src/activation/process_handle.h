#pragma once

#include <windows.h>

#include "embedding/unique_resource.h"

namespace orvane {

struct ProcessHandleTraits {
  using Value = HANDLE;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value value) noexcept { ::CloseHandle(value); }
};
// What OpenProcess gave.
using UniqueProcessHandle = UniqueResource<ProcessHandleTraits>;

}  // namespace orvane
