#include "composer/chatgpt_composer.h"

#include <cstdint>
#include <optional>

#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::wstring_view workspaceMark = L"\u00B7 Work";
constexpr std::int64_t leastComposerWidthPixels = 250;
constexpr std::int64_t highestTopPercent = 45;

bool standsInLowerPage(const UiaElement& element, const RECT& root) {
  const std::optional<RECT> bounds = element.bounds();
  const std::int64_t rootHeight = std::int64_t{root.bottom} - root.top;
  return bounds && std::int64_t{bounds->right} - bounds->left >= leastComposerWidthPixels && rootHeight >= 1 &&
         bounds->top >= root.top + rootHeight * highestTopPercent / 100;
}

// The looser words hold in a workspace window and nowhere else.
bool namesComposer(const UiaElement& element, bool isWorkWindow) {
  const std::wstring name = toLower(elementName(element));
  const std::wstring automationId = toLower(elementAutomationId(element));
  if (contains(automationId, L"prompt-textarea") || contains(name, L"message chatgpt")) {
    return true;
  }
  return isWorkWindow && (contains(name, L"ask anything") || name == L"prompt" || contains(name, L"message"));
}

bool findFields(const UiaSession& session, const UiaElement& root, UiaElementArray& fields) {
  UiaCondition edits;
  UiaCondition documents;
  UiaCondition either;
  session.controlTypeCondition(UIA_EditControlTypeId, edits);
  session.controlTypeCondition(UIA_DocumentControlTypeId, documents);
  if (!edits || !documents) {
    return false;
  }
  session.orCondition(edits, documents, either);
  return either && SUCCEEDED(root.findAll(either, fields)) && fields;
}

}  // namespace

bool verifyChatGptComposer(const UiaSession& session, const UiaElement& root, const std::wstring& windowTitle,
                           TraceLog* trace) {
  UiaElementArray fields;
  if (!session || !root || !findFields(session, root, fields)) {
    return false;
  }
  const RECT rootBounds = root.bounds().value_or(RECT{});
  const bool isWorkWindow = textContains(windowTitle, workspaceMark);
  const int length = fields.length();
  for (int index = 0; index < length; ++index) {
    UiaElement field;
    fields.elementAt(index, field);
    if (!field || field.isOffscreen() || !field.isKeyboardFocusable() || !standsInLowerPage(field, rootBounds) ||
        !namesComposer(field, isWorkWindow)) {
      continue;
    }
    if (trace != nullptr) {
      appendTrace(*trace, "ChatGPT content verification",
                  "PASS: selected tab exposes a verified lower-page ChatGPT composer");
    }
    return true;
  }
  return false;
}

}  // namespace orvane
