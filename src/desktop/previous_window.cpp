#include "desktop/previous_window.h"

#include "desktop/clean_background_state.h"
#include "desktop/own_program.h"

namespace orvane {
namespace {

HWND& previousWindowState() {
  static HWND window = nullptr;
  return window;
}

}  // namespace

HWND previousWindow() { return previousWindowState(); }

void CALLBACK noteForegroundChange(HWINEVENTHOOK, DWORD event, HWND window, LONG objectId, LONG childId, DWORD, DWORD) {
  if (event != EVENT_SYSTEM_FOREGROUND || objectId != OBJID_WINDOW || childId != CHILDID_SELF || window == nullptr ||
      ::IsWindow(window) == FALSE) {
    return;
  }
  const HWND root = ::GetAncestor(window, GA_ROOT);
  if (root != nullptr && !isOwnProgramWindow(root) && ::GetPropW(root, cleanBackgroundProperty) == nullptr) {
    previousWindowState() = root;
  }
}

void noteActivation(HWND mainWindow, WPARAM wparam, LPARAM lparam) {
  const auto other = reinterpret_cast<HWND>(lparam);
  if (LOWORD(wparam) != WA_INACTIVE && other != nullptr && other != mainWindow && ::IsWindow(other) != FALSE) {
    previousWindowState() = other;
  }
}

}  // namespace orvane
