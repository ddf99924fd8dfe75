#include "composer/attachment_cleanup.h"

#include <algorithm>
#include <array>
#include <cwctype>
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

bool isWordUnit(wchar_t unit) { return std::iswalnum(static_cast<std::wint_t>(unit)) != 0; }

// "file" counts in "remove files" and not in "clear profile".
bool beginsAnyWordOf(const std::wstring& foldedName, std::wstring_view word) {
  for (std::size_t at = foldedName.find(word); at != std::wstring::npos; at = foldedName.find(word, at + 1)) {
    if (at == 0 || !isWordUnit(foldedName[at - 1])) {
      return true;
    }
  }
  return false;
}

template <std::size_t count>
bool holdsWordOf(const std::wstring& foldedName, const std::array<std::wstring_view, count>& words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::wstring_view word) { return beginsAnyWordOf(foldedName, word); });
}

bool namesRemoval(const std::wstring& name) {
  const std::wstring foldedName = toLower(name);
  return holdsWordOf(foldedName, removalWords) && holdsWordOf(foldedName, attachmentWords);
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
    buttons.elementAt(index, button);
    const std::optional<std::wstring> name = button ? button.name() : std::nullopt;
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
