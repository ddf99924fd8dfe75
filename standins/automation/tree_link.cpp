#include "automation/tree_link.h"

#include <oleauto.h>

#include "common/wide_text.h"
#include "composer/uia_interfaces.h"

namespace orvane::standins {

Json askAbout(const ElementPlace& place, Json question) {
  question["element"] = place.number;
  const bool onlyReads = question.at("op") == "read";
  const std::optional<Json> answer = onlyReads ? askFact(place.link, question) : askOwner(place.link, question);
  if (!answer) return {{"hresult", static_cast<std::uint32_t>(UIA_E_ELEMENTNOTAVAILABLE)}};
  return answer->contains("error") ? Json{{"hresult", static_cast<std::uint32_t>(E_FAIL)}} : *answer;
}

HRESULT resultOf(const Json& answer) {
  return answer.contains("hresult") ? static_cast<HRESULT>(answer.at("hresult").get<std::uint32_t>()) : S_OK;
}

BSTR makeBstr(const Json& text) { return text.is_null() ? nullptr : makeBstr(wideFromUtf8(text.get<std::string>())); }

BSTR makeBstr(const std::wstring& text) { return ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size())); }

}  // namespace orvane::standins
