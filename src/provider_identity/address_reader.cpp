#include "provider_identity/address_reader.h"

#include <cstdint>
#include <optional>

#include "provider_identity/address_rules.h"

namespace orvane {
namespace {

constexpr std::int64_t leastFieldWidthPixels = 180;
constexpr std::int64_t greatestFieldHeightPixels = 120;
constexpr std::int64_t upperPartPercent = 35;

bool isNamedAsAddressField(const UiaElement& element) {
  const std::wstring name = elementName(element);
  const std::wstring automationId = elementAutomationId(element);
  return namesAddressField(name, automationId, elementClassName(element));
}

bool liesLikeAddressField(const RECT& field, const RECT& root) {
  const std::int64_t width = std::int64_t{field.right} - field.left;
  const std::int64_t height = std::int64_t{field.bottom} - field.top;
  const std::int64_t upperPart = (std::int64_t{root.bottom} - root.top) * upperPartPercent / 100;
  return width >= leastFieldWidthPixels && height >= 1 && height <= greatestFieldHeightPixels &&
         field.top >= root.top && field.top < root.top + upperPart;
}

bool isAddressFieldCandidate(const UiaElement& element, const RECT& root) {
  if (isNamedAsAddressField(element)) {
    return true;
  }
  const std::optional<RECT> field = element.bounds();
  return field && root.bottom > root.top && liesLikeAddressField(*field, root);
}

AddressFieldTexts readTexts(const UiaElement& field) {
  return {
      .value = field.readValue().text.value_or(std::wstring()),
      .valueProperty = field.textProperty(UIA_ValueValuePropertyId),
      .legacyValue = field.textProperty(UIA_LegacyIAccessibleValuePropertyId),
      .helpText = field.textProperty(UIA_HelpTextPropertyId),
      .name = elementName(field),
  };
}

}  // namespace

std::wstring readWindowAddress(const UiaSession& session, const UiaElement& root) {
  if (!session || !root) {
    return {};
  }
  UiaCondition condition;
  if (FAILED(session.controlTypeCondition(UIA_EditControlTypeId, condition)) || !condition) {
    return {};
  }
  UiaElementArray fields;
  if (FAILED(root.findAll(condition, fields)) || !fields) {
    return {};
  }
  const int length = fields.length();
  const RECT rootBounds = root.bounds().value_or(RECT{});
  for (int index = 0; index < length; ++index) {
    UiaElement field;
    fields.elementAt(index, field);
    if (!field || !isAddressFieldCandidate(field, rootBounds)) {
      continue;
    }
    if (std::wstring address = addressOfField(readTexts(field)); !address.empty()) {
      return address;
    }
  }
  return {};
}

std::wstring readWindowAddress(const UiaSession& session, HWND window) {
  if (!session) {
    return {};
  }
  UiaElement root;
  session.elementFromHandle(window, root);
  return readWindowAddress(session, root);
}

bool isExactChatHost(HWND window, std::wstring_view host) {
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    return false;
  }
  const UiaSession session;
  if (!session) {
    return false;
  }
  UiaElement root;
  session.elementFromHandle(window, root);
  if (!root) {
    return false;
  }
  const std::wstring found = hostOfAddress(readWindowAddress(session, root));
  return found == host || found == L"www." + std::wstring(host);
}

}  // namespace orvane
