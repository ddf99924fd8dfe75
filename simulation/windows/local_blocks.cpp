#include "windows/local_blocks.h"

#include <windows.h>

#include <map>
#include <vector>

#include "windows/call.h"

namespace orvane::simulation {
namespace {

std::map<void*, std::vector<std::byte>>& localBlocks() {
  static std::map<void*, std::vector<std::byte>> blocks;
  return blocks;
}

}  // namespace

void* allocateLocal(std::size_t byteCount) {
  std::vector<std::byte> block(byteCount);
  void* const address = block.data();
  localBlocks().emplace(address, std::move(block));
  holdNow(held_kind::globalBlocks, 1);
  return address;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

HLOCAL LocalFree(HLOCAL block) {
  if (const auto fault = enter("LocalFree")) return faulted<HLOCAL>(*fault);
  if (block == nullptr) return nullptr;
  if (localBlocks().erase(block) == 0) stopRun("LocalFree", "a block that isn't held");
  holdNow(held_kind::globalBlocks, -1);
  return nullptr;
}
