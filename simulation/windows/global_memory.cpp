#include "windows/global_memory.h"

#include <cstring>
#include <map>
#include <utility>

#include "windows/call.h"

namespace orvane::simulation {
namespace {

constexpr int junk = 0xCD;

std::map<HGLOBAL, GlobalBlock>& globalBlocks() {
  static std::map<HGLOBAL, GlobalBlock> blocks;
  return blocks;
}

HGLOBAL makeBlock(std::size_t sizeBytes, bool isClipboards) {
  static std::uintptr_t nextHandle = 0x00520002;
  GlobalBlock block;
  if (sizeBytes != 0) {
    block.memory = std::make_unique_for_overwrite<std::byte[]>(sizeBytes);
    std::memset(block.memory.get(), junk, sizeBytes);
  }
  block.sizeBytes = sizeBytes;
  block.isClipboards = isClipboards;
  const auto handle = reinterpret_cast<HGLOBAL>(std::exchange(nextHandle, nextHandle + 8));
  globalBlocks().emplace(handle, std::move(block));
  return handle;
}

// A block whose unlocking was refused stays locked by no fault of the host's.
bool isLockedByMistake(const GlobalBlock& block) { return block.locks != 0 && !block.isLeftLocked; }

}  // namespace

HGLOBAL makeClipboardBlock(std::span<const std::uint8_t> bytes) {
  const HGLOBAL handle = makeBlock(bytes.size(), true);
  if (!bytes.empty()) std::memcpy(globalBlocks().at(handle).memory.get(), bytes.data(), bytes.size());
  return handle;
}

GlobalBlock& globalBlockFor(std::string_view call, HGLOBAL handle) {
  const auto found = globalBlocks().find(handle);
  if (found == globalBlocks().end()) stopRun(call, "a block that isn't held");
  return found->second;
}

std::vector<std::uint8_t> bytesOf(const GlobalBlock& block) {
  std::vector<std::uint8_t> bytes(block.sizeBytes);
  if (!bytes.empty()) std::memcpy(bytes.data(), block.memory.get(), bytes.size());
  return bytes;
}

void handToClipboard(GlobalBlock& block) {
  block.isClipboards = true;
  holdNow(held_kind::globalBlocks, -1);
}

void dropClipboardBlock(std::string_view call, HGLOBAL handle) {
  if (isLockedByMistake(globalBlockFor(call, handle))) stopRun(call, "a block is still locked");
  globalBlocks().erase(handle);
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

HGLOBAL GlobalAlloc(UINT flags, SIZE_T sizeBytes) {
  if (const auto fault = enter("GlobalAlloc")) return faulted<HGLOBAL>(*fault);
  if (flags != GMEM_MOVEABLE) stopRun("GlobalAlloc", "flags other than GMEM_MOVEABLE aren't modelled");
  const HGLOBAL handle = makeBlock(sizeBytes, false);
  holdNow(held_kind::globalBlocks, 1);
  return handle;
}

HGLOBAL GlobalFree(HGLOBAL block) {
  if (const auto fault = enter("GlobalFree")) return faulted<HGLOBAL>(*fault);
  if (block == nullptr) return nullptr;
  const GlobalBlock& freed = globalBlockFor("GlobalFree", block);
  if (freed.isClipboards) stopRun("GlobalFree", "a block that belongs to the clipboard");
  if (isLockedByMistake(freed)) stopRun("GlobalFree", "a block that is still locked");
  globalBlocks().erase(block);
  holdNow(held_kind::globalBlocks, -1);
  return nullptr;
}

SIZE_T GlobalSize(HGLOBAL block) {
  if (const auto fault = enter("GlobalSize")) return faulted<SIZE_T>(*fault);
  if (block == nullptr) return failWith<SIZE_T>(ERROR_INVALID_HANDLE);
  return globalBlockFor("GlobalSize", block).sizeBytes;
}

LPVOID GlobalLock(HGLOBAL block) {
  if (const auto fault = enter("GlobalLock")) return faulted<LPVOID>(*fault);
  if (block == nullptr) return failWith<LPVOID>(ERROR_INVALID_HANDLE);
  GlobalBlock& found = globalBlockFor("GlobalLock", block);
  if (found.memory == nullptr) return failWith<LPVOID>(ERROR_DISCARDED);
  ++found.locks;
  return found.memory.get();
}

BOOL GlobalUnlock(HGLOBAL block) {
  GlobalBlock& found = globalBlockFor("GlobalUnlock", block);
  if (const auto fault = enter("GlobalUnlock")) {
    found.isLeftLocked = true;
    return faulted<BOOL>(*fault);
  }
  if (found.locks == 0) stopRun("GlobalUnlock", "a block that isn't locked");
  --found.locks;
  setLastError(ERROR_SUCCESS);
  return found.locks != 0 ? TRUE : FALSE;
}
