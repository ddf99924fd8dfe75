#include "composer/attachment_cleanup.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "composer/button_search.h"
#include "composer/uia_operations.h"
#include "embedding/utf_conversion.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::array<std::wstring_view, 3> removalWords{L"remove", L"delete", L"clear"};
constexpr std::array<std::wstring_view, 3> attachmentWords{L"attachment", L"file", L"upload"};
constexpr int removalLimit = 10;
constexpr DWORD pauseAfterRemovalMs = 80;

bool isWordUnit(wchar_t unit) {
  return (unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z') || (unit >= L'0' && unit <= L'9');
}

// An attachment's word counts where it begins: "file" in "remove files", not in "clear profile".
bool beginsWord(std::wstring_view lowerName, std::wstring_view word) {
  for (std::size_t at = lowerName.find(word); at != std::wstring_view::npos; at = lowerName.find(word, at + 1)) {
    if (at == 0 || !isWordUnit(lowerName[at - 1])) {
      return true;
    }
  }
  return false;
}

bool namesRemoval(const std::wstring& name) {
  const std::wstring lowerName = toLower(name);
  return containsAnyOf(lowerName, removalWords) &&
         std::any_of(attachmentWords.begin(), attachmentWords.end(),
                     [&](std::wstring_view word) { return beginsWord(lowerName, word); });
}

bool press(const UiaElement& button) {
  const PatternOutcome outcome = button.invoke();
  return outcome.hasPattern && SUCCEEDED(outcome.result);
}

}  // namespace

int removeAttachments(HWND window, std::vector<std::string>* names) {
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    return 0;
  }
  const UiaSession session;
  UiaElementArray buttons;
  if (findButtons(session, window, buttons) != ButtonSearchResult::found) {
    return 0;
  }
  int removed = 0;
  for (int index = buttons.length() - 1; index >= 0 && removed < removalLimit; --index) {
    UiaElement button;
    const std::optional<std::wstring> name = readNamedButton(buttons, index, button);
    if (!name || !namesRemoval(*name) || !isEnabledOnScreen(button) || !press(button)) {
      continue;
    }
    if (names != nullptr) {
      names->push_back(utf8FromWide(*name));
    }
    ++removed;
    ::Sleep(pauseAfterRemovalMs);
  }
  return removed;
}

}  // namespace orvane
