#pragma once

#include <windows.h>

#include "embedding/unique_resource.h"

namespace orvane {

struct KernelHandleTraits {
  using Value = HANDLE;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value value) noexcept { ::CloseHandle(value); }
};
// What OpenProcess or CreateThread gave.
using UniqueKernelHandle = UniqueResource<KernelHandleTraits>;

}  // namespace orvane
