#pragma once

#include <windows.h>

#include "embedding/unique_resource.h"

namespace orvane {

struct OpenClipboardTraits {
  using Value = bool;
  static constexpr bool invalid() noexcept { return false; }
  static void release(bool) noexcept { ::CloseClipboard(); }
};
// Made of what OpenClipboard said: true while the clipboard is open.
using OpenedClipboard = UniqueResource<OpenClipboardTraits>;

struct LockedBlockTraits {
  using Value = HGLOBAL;
  static constexpr HGLOBAL invalid() noexcept { return nullptr; }
  static void release(HGLOBAL block) noexcept { ::GlobalUnlock(block); }
};
// A block that GlobalLock has locked.
using LockedBlock = UniqueResource<LockedBlockTraits>;

struct GlobalBlockTraits {
  using Value = HGLOBAL;
  static constexpr HGLOBAL invalid() noexcept { return nullptr; }
  static void release(HGLOBAL block) noexcept { ::GlobalFree(block); }
};
// A block of our own, until the clipboard has taken it.
using GlobalBlock = UniqueResource<GlobalBlockTraits>;

}  // namespace orvane
