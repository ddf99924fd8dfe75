#include "composer/send_control.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "composer/button_search.h"
#include "composer/uia_operations.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::array<std::wstring_view, 4> commonNames{L"send", L"send message", L"send prompt", L"submit"};
constexpr std::wstring_view commonWord = L"send message";
constexpr std::array<std::wstring_view, 7> extendedNames{L"send",         L"send message", L"send prompt",  L"submit",
                                                         L"submit query", L"send query",   L"submit search"};

constexpr DWORD pauseBetweenChecksMs = 250;

bool isCommonSendName(const std::wstring& lowerName) {
  return std::find(commonNames.begin(), commonNames.end(), lowerName) != commonNames.end() ||
         lowerName.find(commonWord) != std::wstring::npos;
}

bool isExtendedSendName(const std::wstring& lowerName) {
  return std::find(extendedNames.begin(), extendedNames.end(), lowerName) != extendedNames.end();
}

std::string buttonSearchFailure(ButtonSearchResult result) {
  switch (result) {
    case ButtonSearchResult::noAutomation:
      return "UI Automation unavailable";
    case ButtonSearchResult::noRoot:
      return "Could not inspect browser window";
    case ButtonSearchResult::noCondition:
      return "Could not create send-button condition";
    case ButtonSearchResult::noButtons:
    case ButtonSearchResult::found:
      break;
  }
  return "No buttons exposed by browser";
}

struct PressCounters {
  int exactNamed = 0;
  int visibleEnabled = 0;
  int failedInvokes = 0;
};

// True when the button was a Send control and took the call.
bool pressIfSendButton(const UiaElement& button, const std::wstring& name, bool takesExtendedNames,
                       PressCounters& counters) {
  const std::wstring lowerName = toLower(name);
  if (!isCommonSendName(lowerName) && !(takesExtendedNames && isExtendedSendName(lowerName))) {
    return false;
  }
  ++counters.exactNamed;
  if (!isEnabledOnScreen(button)) {
    return false;
  }
  ++counters.visibleEnabled;
  const PatternOutcome outcome = button.invoke();
  if (outcome.hasPattern && FAILED(outcome.result)) {
    ++counters.failedInvokes;
  }
  return outcome.hasPattern && SUCCEEDED(outcome.result);
}

std::string nothingPressedMessage(int buttonCount, const PressCounters& counters) {
  return "No invokable Send button; buttons=" + std::to_string(buttonCount) +
         "; exactNamed=" + std::to_string(counters.exactNamed) +
         "; visibleEnabled=" + std::to_string(counters.visibleEnabled) +
         // Of the controls that could be invoked only those that refused are left to count here.
         "; invokable=" + std::to_string(counters.failedInvokes);
}

bool pressSendButton(HWND window, const std::string& providerName, std::string& message) {
  const UiaSession session;
  UiaElementArray buttons;
  if (const auto result = findButtons(session, window, buttons); result != ButtonSearchResult::found) {
    message = buttonSearchFailure(result);
    return false;
  }
  const bool takesExtendedNames = toLower(wideFromUtf8(providerName)) == provider_key::perplexity;
  PressCounters counters;
  const int length = buttons.length();
  for (int index = length - 1; index >= 0; --index) {
    UiaElement button;
    const std::optional<std::wstring> name = readNamedButton(buttons, index, button);
    if (name && pressIfSendButton(button, *name, takesExtendedNames, counters)) {
      message = "PASS: invoked exact send button " + utf8FromWide(*name) + " for " + providerName;
      return true;
    }
  }
  message = nothingPressedMessage(length, counters);
  return false;
}

}  // namespace

bool findEnabledSendButton(HWND window, std::wstring* name) {
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    return false;
  }
  const UiaSession session;
  UiaElementArray buttons;
  if (findButtons(session, window, buttons) != ButtonSearchResult::found) {
    return false;
  }
  for (int index = buttons.length() - 1; index >= 0; --index) {
    UiaElement button;
    const std::optional<std::wstring> found = readNamedButton(buttons, index, button);
    if (!found) {
      continue;
    }
    const std::wstring lowerName = toLower(*found);
    if ((isCommonSendName(lowerName) || isExtendedSendName(lowerName)) && isEnabledOnScreen(button)) {
      if (name != nullptr) {
        *name = *found;
      }
      return true;
    }
  }
  return false;
}

bool waitForStableSendButton(HWND window, int highestChecks, std::string& message, int requiredSightings) {
  std::wstring lastName;
  int streak = 0;
  for (int check = 1; check <= highestChecks; ++check) {
    std::wstring name;
    if (!findEnabledSendButton(window, &name)) {
      lastName.clear();
      streak = 0;
    } else if (name == lastName) {
      ++streak;
    } else {
      lastName = name;
      streak = 1;
    }
    if (streak >= requiredSightings) {
      message = "PASS: stable enabled Send button confirmed " + std::to_string(requiredSightings) +
                " times; attempt=" + std::to_string(check) + "; name=" + utf8FromWide(lastName);
      return true;
    }
    ::Sleep(pauseBetweenChecksMs);
  }
  message = "FAIL: enabled Send button did not become stable within " + std::to_string(highestChecks) + " checks";
  return false;
}

bool invokeSendButton(HWND window, const std::string& providerName, std::string* message) {
  std::string unused;
  std::string& text = message == nullptr ? unused : *message;
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    text = "No browser window";
    return false;
  }
  return pressSendButton(window, providerName, text);
}

}  // namespace orvane
