#include <windows.h>

#include <map>
#include <string_view>

#include "windows/call.h"
#include "windows/clipboard_formats.h"
#include "windows/global_memory.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

// The clipboard while the host holds it open.
struct OpenedClipboard {
  bool isOpen = false;
  bool wasEmptied = false;
  bool isLeftOpen = false;  // a close that was refused
  HWND owner = nullptr;
  std::map<UINT, HGLOBAL> blocks;  // lent out or taken over, by format
};

OpenedClipboard& opened() {
  static OpenedClipboard clipboard;
  return clipboard;
}

void dropBlocks(std::string_view call) {
  for (const auto& [format, block] : opened().blocks) dropClipboardBlock(call, block);
  opened().blocks.clear();
}

// A form takes the place of what was lent out of the same format.
void keepBlock(UINT format, HGLOBAL block) {
  HGLOBAL& place = opened().blocks[format];
  if (place != nullptr) dropClipboardBlock("SetClipboardData", place);
  place = block;
}

void requireOwnBlock(const GlobalBlock& block) {
  if (block.isClipboards) stopRun("SetClipboardData", "a block that belongs to the clipboard already");
  if (block.memory == nullptr) stopRun("SetClipboardData", "a block without a byte isn't modelled");
}

}  // namespace

BOOL OpenClipboard(HWND owner) {
  PlatformState& state = stateFor("OpenClipboard");
  const Window* const window = state.liveWindow(owner);
  if (const auto fault = enter("OpenClipboard", window)) return faulted<BOOL>(*fault);
  if (opened().isOpen && !opened().isLeftOpen) stopRun("OpenClipboard", "it is open already");
  // Who has it may open it again.
  if (opened().isOpen) return opened().owner == owner ? TRUE : failWith(ERROR_ACCESS_DENIED, FALSE);
  if (owner != nullptr && window == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  if (window != nullptr && !window->ofHost) stopRun("OpenClipboard", "another program's window isn't modelled");
  if (state.desktop.clipboard.content.lockedBy) return failWith(ERROR_ACCESS_DENIED, FALSE);
  opened().isOpen = true;
  opened().owner = owner;
  holdNow(held_kind::openClipboard, 1);
  return TRUE;
}

BOOL CloseClipboard() {
  if (const auto fault = enter("CloseClipboard")) {
    opened().isLeftOpen = opened().isOpen;
    return faulted<BOOL>(*fault);
  }
  if (!opened().isOpen) return failWith(ERROR_CLIPBOARD_NOT_OPEN, FALSE);
  dropBlocks("CloseClipboard");
  opened() = {};
  holdNow(held_kind::openClipboard, -1);
  return TRUE;
}

BOOL EmptyClipboard() {
  PlatformState& state = stateFor("EmptyClipboard");
  if (const auto fault = enter("EmptyClipboard")) return faulted<BOOL>(*fault);
  if (!opened().isOpen) return failWith(ERROR_CLIPBOARD_NOT_OPEN, FALSE);
  dropBlocks("EmptyClipboard");
  opened().wasEmptied = true;
  state.desktop.clipboard.replace({});
  return TRUE;
}

HANDLE GetClipboardData(UINT format) {
  const PlatformState& state = stateFor("GetClipboardData");
  if (const auto fault = enter("GetClipboardData")) return faulted<HANDLE>(*fault);
  if (!opened().isOpen) return failWith<HANDLE>(ERROR_CLIPBOARD_NOT_OPEN);
  const auto bytes = bytesOfFormat("GetClipboardData", state.desktop.clipboard.content, format);
  if (!bytes) return failWith<HANDLE>(ERROR_NOT_FOUND);
  HGLOBAL& block = opened().blocks[format];
  if (block == nullptr) block = makeClipboardBlock(*bytes);
  return block;
}

HANDLE SetClipboardData(UINT format, HANDLE handle) {
  Clipboard& clipboard = stateFor("SetClipboardData").desktop.clipboard;
  if (const auto fault = enter("SetClipboardData")) return faulted<HANDLE>(*fault);
  if (!opened().isOpen) return failWith<HANDLE>(ERROR_CLIPBOARD_NOT_OPEN);
  if (!opened().wasEmptied) stopRun("SetClipboardData", "adding to what stands there isn't modelled");
  if (handle == nullptr) stopRun("SetClipboardData", "a form that is rendered later isn't modelled");
  if (opened().owner == nullptr) return failWith<HANDLE>(ERROR_INVALID_HANDLE);
  if (format == 0) return failWith<HANDLE>(ERROR_INVALID_PARAMETER);
  GlobalBlock& block = globalBlockFor("SetClipboardData", handle);
  requireOwnBlock(block);
  putFormat("SetClipboardData", clipboard.content, format, bytesOf(block));
  ++clipboard.sequence;
  handToClipboard(block);
  keepBlock(format, handle);
  return handle;
}

BOOL IsClipboardFormatAvailable(UINT format) {
  const PlatformState& state = stateFor("IsClipboardFormatAvailable");
  if (const auto fault = enter("IsClipboardFormatAvailable")) return faulted<BOOL>(*fault);
  return bytesOfFormat("IsClipboardFormatAvailable", state.desktop.clipboard.content, format) ? TRUE : FALSE;
}

DWORD GetClipboardSequenceNumber() {
  const PlatformState& state = stateFor("GetClipboardSequenceNumber");
  if (const auto fault = enter("GetClipboardSequenceNumber")) return faulted<DWORD>(*fault);
  return state.desktop.clipboard.sequence;
}
