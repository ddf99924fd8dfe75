#include "composer/uia_operations.h"

#include <objbase.h>

namespace orvane {
namespace {

using TextGetter = HRESULT (STDMETHODCALLTYPE IUIAutomationElement::*)(BSTR*);
using BoolGetter = HRESULT (STDMETHODCALLTYPE IUIAutomationElement::*)(BOOL*);

std::optional<std::wstring> readText(IUIAutomationElement* element, TextGetter getter) {
  UniqueBstr text;
  if (FAILED((element->*getter)(text.put())) || !text) {
    return std::nullopt;
  }
  return bstrText(text.get());
}

bool readBool(IUIAutomationElement* element, BoolGetter getter, bool valueOnFailure) {
  BOOL value = FALSE;
  return FAILED((element->*getter)(&value)) ? valueOnFailure : value != FALSE;
}

// A call that fails may have written into its out parameter: `made` is empty then. Gives `result` on.
template <typename Interface>
HRESULT emptyOnFailure(HRESULT result, ComReference<Interface>& made) {
  if (FAILED(result)) {
    made.reset();
  }
  return result;
}

// Null when the call fails; `result` is then the error, or E_NOINTERFACE for a null pattern.
template <typename Pattern>
ComReference<Pattern> findPattern(IUIAutomationElement* element, PATTERNID id, const IID& iid, HRESULT& result) {
  ComReference<Pattern> pattern;
  result = element->GetCurrentPatternAs(id, iid, pattern.putVoid());
  if (FAILED(result)) {
    return {};
  }
  if (!pattern) {
    result = E_NOINTERFACE;
  }
  return pattern;
}

}  // namespace

int UiaElementArray::length() const {
  int length = 0;
  return array_ && SUCCEEDED(array_->get_Length(&length)) ? length : 0;
}

HRESULT UiaElementArray::elementAt(int index, UiaElement& element) const {
  return emptyOnFailure(array_->GetElement(index, element.element_.put()), element.element_);
}

std::optional<std::wstring> UiaElement::name() const {
  return readText(element_.get(), &IUIAutomationElement::get_CurrentName);
}

std::wstring UiaElement::automationId() const {
  return readText(element_.get(), &IUIAutomationElement::get_CurrentAutomationId).value_or(std::wstring());
}

std::wstring UiaElement::className() const {
  return readText(element_.get(), &IUIAutomationElement::get_CurrentClassName).value_or(std::wstring());
}

std::wstring UiaElement::frameworkId() const {
  return readText(element_.get(), &IUIAutomationElement::get_CurrentFrameworkId).value_or(std::wstring());
}

CONTROLTYPEID UiaElement::controlType() const {
  CONTROLTYPEID type = 0;
  return FAILED(element_->get_CurrentControlType(&type)) ? 0 : type;
}

std::optional<RECT> UiaElement::bounds() const {
  RECT bounds{};
  if (FAILED(element_->get_CurrentBoundingRectangle(&bounds))) {
    return std::nullopt;
  }
  return bounds;
}

bool UiaElement::isEnabled() const {
  return readBool(element_.get(), &IUIAutomationElement::get_CurrentIsEnabled, false);
}

bool UiaElement::isOffscreen() const {
  return readBool(element_.get(), &IUIAutomationElement::get_CurrentIsOffscreen, true);
}

bool UiaElement::isOffscreenForTrace() const {
  return readBool(element_.get(), &IUIAutomationElement::get_CurrentIsOffscreen, false);
}

bool UiaElement::isKeyboardFocusable() const {
  return readBool(element_.get(), &IUIAutomationElement::get_CurrentIsKeyboardFocusable, false);
}

bool UiaElement::isPassword() const {
  return readBool(element_.get(), &IUIAutomationElement::get_CurrentIsPassword, true);
}

ValueReading UiaElement::readValue() const {
  HRESULT result = S_OK;
  const auto pattern =
      findPattern<IUIAutomationValuePattern>(element_.get(), UIA_ValuePatternId, IID_IUIAutomationValuePattern, result);
  if (!pattern) {
    return {};
  }
  UniqueBstr text;
  if (FAILED(pattern->get_CurrentValue(text.put())) || !text) {
    return {true, std::nullopt};
  }
  return {true, bstrText(text.get())};
}

std::wstring UiaElement::textProperty(PROPERTYID property) const {
  UniqueVariant value;
  if (FAILED(element_->GetCurrentPropertyValue(property, value.put())) || value.get().vt != VT_BSTR) {
    return {};
  }
  return bstrText(value.get().bstrVal);
}

HRESULT UiaElement::findAll(const UiaCondition& condition, UiaElementArray& found) const {
  return emptyOnFailure(element_->FindAll(TreeScope_Descendants, condition.condition_.get(), found.array_.put()),
                        found.array_);
}

HRESULT UiaElement::setFocus() const { return element_->SetFocus(); }

PatternOutcome UiaElement::setValue(const std::wstring& text) const {
  HRESULT result = S_OK;
  const auto pattern =
      findPattern<IUIAutomationValuePattern>(element_.get(), UIA_ValuePatternId, IID_IUIAutomationValuePattern, result);
  if (!pattern) {
    return {false, result};
  }
  const UniqueBstr value(::SysAllocString(text.c_str()));
  return {true, value ? pattern->SetValue(value.get()) : E_OUTOFMEMORY};
}

PatternOutcome UiaElement::invoke() const {
  HRESULT result = S_OK;
  const auto pattern = findPattern<IUIAutomationInvokePattern>(element_.get(), UIA_InvokePatternId,
                                                               IID_IUIAutomationInvokePattern, result);
  return pattern ? PatternOutcome{true, pattern->Invoke()} : PatternOutcome{false, result};
}

PatternOutcome UiaElement::select() const {
  HRESULT result = S_OK;
  const auto pattern = findPattern<IUIAutomationSelectionItemPattern>(element_.get(), UIA_SelectionItemPatternId,
                                                                      IID_IUIAutomationSelectionItemPattern, result);
  return pattern ? PatternOutcome{true, pattern->Select()} : PatternOutcome{false, result};
}

PatternOutcome UiaElement::doDefaultAction() const {
  HRESULT result = S_OK;
  const auto pattern = findPattern<IUIAutomationLegacyIAccessiblePattern>(
      element_.get(), UIA_LegacyIAccessiblePatternId, IID_IUIAutomationLegacyIAccessiblePattern, result);
  return pattern ? PatternOutcome{true, pattern->DoDefaultAction()} : PatternOutcome{false, result};
}

bool UiaElement::isSelected() const {
  HRESULT result = S_OK;
  const auto pattern = findPattern<IUIAutomationSelectionItemPattern>(element_.get(), UIA_SelectionItemPatternId,
                                                                      IID_IUIAutomationSelectionItemPattern, result);
  BOOL selected = FALSE;
  return pattern && SUCCEEDED(pattern->get_CurrentIsSelected(&selected)) && selected != FALSE;
}

bool UiaElement::offersInvoke() const {
  HRESULT result = S_OK;
  return static_cast<bool>(findPattern<IUIAutomationInvokePattern>(element_.get(), UIA_InvokePatternId,
                                                                   IID_IUIAutomationInvokePattern, result));
}

bool UiaElement::offersSelection() const {
  HRESULT result = S_OK;
  return static_cast<bool>(findPattern<IUIAutomationSelectionItemPattern>(
      element_.get(), UIA_SelectionItemPatternId, IID_IUIAutomationSelectionItemPattern, result));
}

UiaSession::UiaSession() {
  emptyOnFailure(
      ::CoCreateInstance(CLSID_CUIAutomation, nullptr, CLSCTX_INPROC_SERVER, IID_IUIAutomation, automation_.putVoid()),
      automation_);
}

HRESULT UiaSession::elementFromHandle(HWND window, UiaElement& element) const {
  return emptyOnFailure(automation_->ElementFromHandle(window, element.element_.put()), element.element_);
}

HRESULT UiaSession::focusedElement(UiaElement& element) const {
  return emptyOnFailure(automation_->GetFocusedElement(element.element_.put()), element.element_);
}

HRESULT UiaSession::controlTypeCondition(CONTROLTYPEID type, UiaCondition& condition) const {
  const UniqueVariant value{static_cast<LONG>(type)};
  return emptyOnFailure(
      automation_->CreatePropertyCondition(UIA_ControlTypePropertyId, value.get(), condition.condition_.put()),
      condition.condition_);
}

HRESULT UiaSession::trueCondition(UiaCondition& condition) const {
  return emptyOnFailure(automation_->CreateTrueCondition(condition.condition_.put()), condition.condition_);
}

HRESULT UiaSession::orCondition(const UiaCondition& first, const UiaCondition& second, UiaCondition& condition) const {
  return emptyOnFailure(
      automation_->CreateOrCondition(first.condition_.get(), second.condition_.get(), condition.condition_.put()),
      condition.condition_);
}

bool UiaSession::isSameElement(const UiaElement& first, const UiaElement& second) const {
  BOOL same = FALSE;
  return SUCCEEDED(automation_->CompareElements(first.element_.get(), second.element_.get(), &same)) && same != FALSE;
}

std::wstring elementName(const UiaElement& element) {
  return element ? element.name().value_or(std::wstring()) : std::wstring();
}

std::wstring elementAutomationId(const UiaElement& element) {
  return element ? element.automationId() : std::wstring();
}

std::wstring elementClassName(const UiaElement& element) { return element ? element.className() : std::wstring(); }

std::string elementBoundsText(const UiaElement& element) {
  const std::optional<RECT> bounds = element ? element.bounds() : std::nullopt;
  if (!bounds) {
    return "<unavailable>";
  }
  return std::to_string(bounds->left) + "," + std::to_string(bounds->top) + "," + std::to_string(bounds->right) + "," +
         std::to_string(bounds->bottom);
}

bool hasPositiveSize(const RECT& bounds) { return bounds.right > bounds.left && bounds.bottom > bounds.top; }

bool readUsableBounds(const UiaElement& element, RECT* bounds) {
  if (!element.isEnabled() || !element.isKeyboardFocusable() || element.isOffscreen()) {
    return false;
  }
  const std::optional<RECT> read = element.bounds();
  if (!read || !hasPositiveSize(*read)) {
    return false;
  }
  if (bounds != nullptr) {
    *bounds = *read;
  }
  return true;
}

}  // namespace orvane
