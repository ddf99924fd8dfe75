#include "automation/element_facts.h"

#include <oleauto.h>

namespace orvane::standins {
namespace {

// Null: no property that this tree has.
const char* factOfProperty(PROPERTYID property) {
  switch (property) {
    case UIA_HelpTextPropertyId:
      return "helpText";
    case UIA_LegacyIAccessibleValuePropertyId:
      return "legacyValue";
    case UIA_ValueValuePropertyId:
      return "valueProperty";
    default:
      return nullptr;
  }
}

}  // namespace

HRESULT ElementFactReader::readText(const char* fact, BSTR* text) {
  if (text == nullptr) return E_POINTER;
  const Json answer = readFact(fact);
  if (answer.contains("hresult")) return endInto(resultOf(answer), text);
  *text = makeBstr(answer.at("value"));
  return S_OK;
}

HRESULT ElementFactReader::readFlag(const char* fact, BOOL* flag) {
  if (flag == nullptr) return E_POINTER;
  const Json answer = readFact(fact);
  if (answer.contains("hresult")) return endInto(resultOf(answer), flag);
  *flag = answer.at("value").get<bool>() ? TRUE : FALSE;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ElementFactReader::get_CurrentControlType(CONTROLTYPEID* type) {
  if (type == nullptr) return E_POINTER;
  const Json answer = readFact("controlType");
  if (answer.contains("hresult")) return endInto(resultOf(answer), type);
  *type = answer.at("value").get<int>();
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ElementFactReader::get_CurrentBoundingRectangle(RECT* bounds) {
  if (bounds == nullptr) return E_POINTER;
  const Json answer = readFact("bounds");
  if (answer.contains("hresult")) return endInto(resultOf(answer), bounds);
  const Json& sides = answer.at("value");
  *bounds = {sides.at(0).get<LONG>(), sides.at(1).get<LONG>(), sides.at(2).get<LONG>(), sides.at(3).get<LONG>()};
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ElementFactReader::GetCurrentPropertyValue(PROPERTYID property, VARIANT* value) {
  if (value == nullptr) return E_POINTER;
  ::VariantInit(value);
  const char* const fact = factOfProperty(property);
  if (fact == nullptr) return E_NOTIMPL;
  const Json answer = readFact(fact);
  if (answer.contains("hresult")) return resultOf(answer);
  if (const Json& text = answer.at("value"); !text.is_null()) {
    value->vt = VT_BSTR;
    value->bstrVal = makeBstr(text);
  }
  return S_OK;
}

}  // namespace orvane::standins
