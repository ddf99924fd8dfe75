#include <windows.h>

#include "windows/call.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

void requireModelled(const INPUT& input) {
  if (input.type != INPUT_KEYBOARD) stopRun("SendInput", "input other than the keyboard's isn't modelled");
  if ((input.ki.dwFlags & ~static_cast<DWORD>(KEYEVENTF_KEYUP)) != 0) stopRun("SendInput", "an unknown flag");
  if (input.ki.wScan != 0 || input.ki.time != 0) stopRun("SendInput", "a scan code or a time isn't modelled");
  if (input.ki.wVk == 0 || input.ki.wVk > 0xFE) stopRun("SendInput", "a virtual key out of range");
}

}  // namespace

UINT SendInput(UINT count, LPINPUT inputs, int size) {
  PlatformState& state = stateFor("SendInput");
  const int batch = ++state.input.batches;
  if (const auto fault = enter("SendInput", state.desktop.foreground())) return faulted<UINT>(*fault);
  if (count == 0 || inputs == nullptr || size != sizeof(INPUT)) return failWith<UINT>(ERROR_INVALID_PARAMETER);
  for (UINT index = 0; index < count; ++index) requireModelled(inputs[index]);
  for (UINT index = 0; index < count; ++index) {
    const KEYBDINPUT& key = inputs[index].ki;
    state.desktop.key(key.wVk, (key.dwFlags & KEYEVENTF_KEYUP) != 0, batch);
  }
  return count;
}
