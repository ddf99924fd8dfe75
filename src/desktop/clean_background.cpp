#include "desktop/clean_background.h"

#include <cstdint>

#include "desktop/appearance.h"
#include "desktop/clean_background_rect.h"
#include "desktop/clean_background_state.h"
#include "desktop/clean_background_window.h"
#include "desktop/logical_scale.h"
#include "desktop/own_program.h"
#include "desktop/window_order.h"
#include "desktop/window_place.h"
#include "embedding/call_arguments.h"
#include "embedding/reply_map.h"

namespace orvane {
namespace {

struct SyncOutcome {
  bool success = true;
  DWORD errorCode = ERROR_SUCCESS;
};

SyncOutcome lastErrorOutcome() { return {false, ::GetLastError()}; }

struct SyncFlags {
  bool reopen = false;
  bool resetHeight = false;
  bool colorChanged = false;
};

// Position and size are applied at creation and by the two flags only: what the user dragged stays.
bool movePanel(HWND panel, HWND mainWindow, const SyncFlags& flags) {
  if (!flags.reopen && !flags.resetHeight) {
    return true;
  }
  const PanelHeight height = flags.resetHeight ? PanelHeight::asked : PanelHeight::present;
  return placeAt(panel, computeCleanBackgroundRect(mainWindow, height), SWP_NOZORDER | SWP_NOACTIVATE);
}

SyncOutcome showPanel(HWND mainWindow, const SyncFlags& flags) {
  if (!ensureCleanBackgroundWindow(mainWindow, computeCleanBackgroundRect(mainWindow, PanelHeight::present))) {
    return lastErrorOutcome();
  }
  const HWND panel = cleanBackgroundState().cleanBackgroundWindow;
  if (flags.reopen && ::IsIconic(panel) != FALSE) {
    ::ShowWindow(panel, SW_RESTORE);
  }
  SyncOutcome outcome;
  const bool isMoved = movePanel(panel, mainWindow, flags);
  if (!isMoved) {
    outcome = lastErrorOutcome();
  }
  const bool isVisible = ::IsWindowVisible(panel) != FALSE;
  const Restack restack = !isVisible || flags.reopen ? Restack::always : Restack::whenOwnProgramIsInFront;
  if (isMoved && !placeBehindOwnWindows(panel, restack)) {
    outcome = lastErrorOutcome();
  }
  if (flags.colorChanged || !isVisible) {
    ::InvalidateRect(panel, nullptr, TRUE);
  }
  return outcome;
}

bool changeColor(const std::string& appearance) {
  CleanBackgroundState& state = cleanBackgroundState();
  const COLORREF color = appearanceColors(appearance).background;
  const bool isChanged = color != state.cleanBackgroundColor;
  state.cleanBackgroundColor = color;
  return isChanged;
}

EncodableMap syncReply(const SyncOutcome& outcome, double scale) {
  const CleanBackgroundState& state = cleanBackgroundState();
  const HWND panel = state.cleanBackgroundWindow;
  EncodableMap reply = successReply(outcome.success);
  addToReply(reply, "errorCode", static_cast<std::int64_t>(outcome.errorCode));
  addToReply(reply, "temporarilyClosed", state.temporarilyClosed);
  addToReply(reply, "visible", panel != nullptr && ::IsWindowVisible(panel) != FALSE);
  RECT bounds{};
  if (panel != nullptr && ::GetWindowRect(panel, &bounds) != FALSE) {
    addLogicalBounds(reply, bounds, scale);
  }
  return reply;
}

BOOL CALLBACK postToPanel(HWND window, LPARAM parameter) {
  if (::GetPropW(window, cleanBackgroundProperty) == nullptr || !isOwnProgramWindow(window)) {
    return TRUE;
  }
  *reinterpret_cast<bool*>(parameter) = ::PostMessageW(window, restoreCleanBackgroundMessage, 0, 0) != FALSE;
  return FALSE;
}

}  // namespace

EncodableMap syncCleanBackground(HWND mainWindow, double scale, const EncodableMap* arguments) {
  CleanBackgroundState& state = cleanBackgroundState();
  const bool isEnabled = flagEntry(arguments, "enabled", true);
  SyncFlags flags;
  flags.reopen = flagEntry(arguments, "reopen", false);
  flags.resetHeight = flagEntry(arguments, "resetHeight", false);
  if (flags.reopen) {
    state.temporarilyClosed = false;
  }
  flags.colorChanged = changeColor(stringEntry(arguments, "appearance"));
  SyncOutcome outcome;
  if (!isEnabled || state.temporarilyClosed) {
    if (state.cleanBackgroundWindow != nullptr) {
      ::ShowWindow(state.cleanBackgroundWindow, SW_HIDE);
    }
  } else {
    state.cleanBackgroundHeight = numberEntry(arguments, "height", 0.0);
    outcome = showPanel(mainWindow, flags);
  }
  return syncReply(outcome, scale);
}

bool restoreCleanBackground() {
  bool isPosted = false;
  ::EnumWindows(postToPanel, reinterpret_cast<LPARAM>(&isPosted));
  return isPosted;
}

}  // namespace orvane
