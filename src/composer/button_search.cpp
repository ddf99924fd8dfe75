#include "composer/button_search.h"

namespace orvane {

ButtonSearchResult findButtons(const UiaSession& session, HWND window, UiaElementArray& buttons) {
  if (!session) {
    return ButtonSearchResult::noAutomation;
  }
  UiaElement root;
  session.elementFromHandle(window, root);
  if (!root) {
    return ButtonSearchResult::noRoot;
  }
  UiaCondition condition;
  session.controlTypeCondition(UIA_ButtonControlTypeId, condition);
  if (!condition) {
    return ButtonSearchResult::noCondition;
  }
  root.findAll(condition, buttons);
  return buttons ? ButtonSearchResult::found : ButtonSearchResult::noButtons;
}

std::optional<std::wstring> readNamedButton(const UiaElementArray& buttons, int index, UiaElement& button) {
  buttons.elementAt(index, button);
  return button ? button.name() : std::nullopt;
}

bool isEnabledOnScreen(const UiaElement& button) {
  const bool isEnabled = button.isEnabled();
  const bool isOffscreen = button.isOffscreen();
  return isEnabled && !isOffscreen;
}

}  // namespace orvane
