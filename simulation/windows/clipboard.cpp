#include <windows.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "windows/call.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

// A block that the clipboard owns: the host may look at it while it holds the clipboard open.
struct ClipboardBlock {
  std::vector<std::byte> bytes;
  int locks = 0;
};

struct OpenedClipboard {
  bool isOpen = false;
  std::map<UINT, ClipboardBlock> blocks;  // by format, as they were asked for
};

OpenedClipboard& opened() {
  static OpenedClipboard clipboard;
  return clipboard;
}

ClipboardBlock* findBlock(HGLOBAL handle) {
  for (auto& [format, block] : opened().blocks) {
    if (&block == handle) return &block;
  }
  return nullptr;
}

ClipboardBlock& blockFor(std::string_view call, HGLOBAL handle) {
  ClipboardBlock* const block = findBlock(handle);
  if (block == nullptr) stopRun(call, "a block that isn't held");
  return *block;
}

// Real 16-bit text with its closing zero.
std::vector<std::byte> textBlock(const Text& text) {
  std::vector<std::byte> bytes((text.size() + 1) * sizeof(char16_t));
  std::memcpy(bytes.data(), text.c_str(), bytes.size());
  return bytes;
}

}  // namespace

BOOL OpenClipboard(HWND owner) {
  PlatformState& state = stateFor("OpenClipboard");
  if (const auto fault = enter("OpenClipboard", state.liveWindow(owner))) return faulted<BOOL>(*fault);
  if (opened().isOpen) stopRun("OpenClipboard", "it is open already");
  if (state.desktop.clipboard.content.lockedBy) return failWith(ERROR_ACCESS_DENIED, FALSE);
  opened().isOpen = true;
  holdNow(held_kind::openClipboard, 1);
  return TRUE;
}

BOOL CloseClipboard() {
  if (const auto fault = enter("CloseClipboard")) return faulted<BOOL>(*fault);
  if (!opened().isOpen) return failWith(ERROR_CLIPBOARD_NOT_OPEN, FALSE);
  for (const auto& [format, block] : opened().blocks) {
    if (block.locks != 0) stopRun("CloseClipboard", "a block is still locked");
  }
  opened() = {};
  holdNow(held_kind::openClipboard, -1);
  return TRUE;
}

HANDLE GetClipboardData(UINT format) {
  const PlatformState& state = stateFor("GetClipboardData");
  if (const auto fault = enter("GetClipboardData")) return faulted<HANDLE>(*fault);
  if (!opened().isOpen) return failWith<HANDLE>(ERROR_CLIPBOARD_NOT_OPEN);
  if (format != CF_UNICODETEXT) stopRun("GetClipboardData", "a format that isn't modelled");
  const std::optional<Text>& text = state.desktop.clipboard.content.text;
  if (!text) return failWith<HANDLE>(ERROR_NOT_FOUND);
  ClipboardBlock& block = opened().blocks[format];
  if (block.bytes.empty()) block.bytes = textBlock(*text);
  return &block;
}

SIZE_T GlobalSize(HGLOBAL block) {
  if (const auto fault = enter("GlobalSize")) return faulted<SIZE_T>(*fault);
  return blockFor("GlobalSize", block).bytes.size();
}

LPVOID GlobalLock(HGLOBAL block) {
  if (const auto fault = enter("GlobalLock")) return faulted<LPVOID>(*fault);
  ClipboardBlock& found = blockFor("GlobalLock", block);
  ++found.locks;
  return found.bytes.data();
}

BOOL GlobalUnlock(HGLOBAL block) {
  if (const auto fault = enter("GlobalUnlock")) return faulted<BOOL>(*fault);
  ClipboardBlock& found = blockFor("GlobalUnlock", block);
  if (found.locks == 0) stopRun("GlobalUnlock", "a block that isn't locked");
  --found.locks;
  setLastError(ERROR_SUCCESS);
  return found.locks != 0 ? TRUE : FALSE;
}
