#include "composer/prompt_state.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "composer/button_search.h"
#include "composer/prompt_box.h"
#include "composer/uia_operations.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::array<std::wstring_view, 4> stopNames{L"stop response", L"stop generating", L"stop generation",
                                                     L"cancel response"};

constexpr int requiredStreak = 3;
constexpr DWORD pauseBetweenPasteChecksMs = 180;
constexpr DWORD pauseBetweenBoxChecksMs = 250;

enum class PromptReading { noAutomation, noFocus, notExposed, unreadable, empty, holdsText };

PromptReading readFocusedPrompt() {
  const UiaSession session;
  if (!session) {
    return PromptReading::noAutomation;
  }
  UiaElement focused;
  session.focusedElement(focused);
  if (!focused) {
    return PromptReading::noFocus;
  }
  const ValueReading value = focused.readValue();
  if (!value.hasPattern) {
    return PromptReading::notExposed;
  }
  if (!value.text) {
    return PromptReading::unreadable;
  }
  return value.text->empty() ? PromptReading::empty : PromptReading::holdsText;
}

bool sawPattern(PromptReading reading) {
  return reading == PromptReading::unreadable || reading == PromptReading::empty || reading == PromptReading::holdsText;
}

std::string describeReading(PromptReading reading) {
  switch (reading) {
    case PromptReading::noAutomation:
      return "UI Automation unavailable";
    case PromptReading::noFocus:
      return "No focused prompt element";
    case PromptReading::notExposed:
    case PromptReading::unreadable:
      return "Prompt text value is not exposed";
    case PromptReading::empty:
      return "Prompt is empty";
    case PromptReading::holdsText:
      break;
  }
  return "Prompt still contains text";
}

bool isStopControl(const UiaElement& button, const std::wstring& name) {
  return std::find(stopNames.begin(), stopNames.end(), toLower(name)) != stopNames.end() && isEnabledOnScreen(button);
}

}  // namespace

bool readPromptState(std::string* message, bool* valueExposed) {
  const PromptReading reading = readFocusedPrompt();
  if (valueExposed != nullptr) {
    *valueExposed = sawPattern(reading);
  }
  if (message != nullptr) {
    *message = describeReading(reading);
  }
  return reading == PromptReading::holdsText;
}

bool waitForPastedPromptStable(int highestChecks, std::string& message, bool* valueExposed) {
  bool unused = false;
  bool& exposed = valueExposed == nullptr ? unused : *valueExposed;
  exposed = false;
  int streak = 0;
  for (int check = 1; check <= highestChecks; ++check) {
    const PromptReading reading = readFocusedPrompt();
    exposed = exposed || sawPattern(reading);
    streak = reading == PromptReading::holdsText ? streak + 1 : 0;
    if (streak == requiredStreak) {
      message = "PASS: pasted prompt remained available across three checks; attempt=" + std::to_string(check);
      return true;
    }
    ::Sleep(pauseBetweenPasteChecksMs);
  }
  // A caller that gave no bool gets the milder text: it could not tell the two apart.
  message = valueExposed != nullptr && exposed ? "UNSTABLE: pasted prompt was not stable across three checks"
                                               : "INFO: prompt value is not exposed; conservative timing used";
  return false;
}

bool waitForPromptBoxStable(HWND window, const std::string& providerName, int highestChecks, std::string& message) {
  std::string lastResult = "Prompt box not ready";
  int streak = 0;
  for (int check = 1; check <= highestChecks; ++check) {
    streak = verifyPromptBox(window, providerName, &lastResult) ? streak + 1 : 0;
    if (streak == requiredStreak) {
      message = "PASS: verified prompt box remained ready across three checks; attempt=" + std::to_string(check) +
                "; " + lastResult;
      return true;
    }
    ::Sleep(pauseBetweenBoxChecksMs);
  }
  message = "FAIL: prompt box did not become stable; last result=" + lastResult;
  return false;
}

bool isRespondingControlVisible(HWND window, std::string* message) {
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    return false;
  }
  const UiaSession session;
  UiaElementArray buttons;
  if (findButtons(session, window, buttons) != ButtonSearchResult::found) {
    return false;
  }
  std::string unused;
  std::string& text = message == nullptr ? unused : *message;
  for (int index = buttons.length() - 1; index >= 0; --index) {
    UiaElement button;
    const std::optional<std::wstring> name = readNamedButton(buttons, index, button);
    if (name && isStopControl(button, *name)) {
      text = "PASS: AI responding control is visible: " + utf8FromWide(*name);
      return true;
    }
  }
  text = "No visible AI responding control found";
  return false;
}

}  // namespace orvane
