#include <optional>
#include <utility>
#include <vector>

#include "windows/com.h"
#include "windows/uia.h"
#include "windows/uia_unused_slots.h"

namespace orvane::simulation {
namespace {

class ElementArray final : public ComObject<IUIAutomationElementArray> {
 public:
  ElementArray(const Window& window, std::vector<Element*> elements)
      : ComObject(IID_IUIAutomationElementArray), window_(window), elements_(std::move(elements)) {}

  HRESULT get_Length(int* length) override {
    if (const auto refused = refusalOf("IUIAutomationElementArray::get_Length", &window_, nullptr)) {
      return endInto(*refused, length);
    }
    if (length == nullptr) return E_POINTER;
    *length = static_cast<int>(elements_.size());
    return S_OK;
  }

  HRESULT GetElement(int index, IUIAutomationElement** element) override {
    const bool isInside = index >= 0 && static_cast<std::size_t>(index) < elements_.size();
    Element* const about = isInside ? elements_[static_cast<std::size_t>(index)] : nullptr;
    const Window* const window = isInside ? about->window : nullptr;
    if (const auto refused = refusalOf("IUIAutomationElementArray::GetElement", window, about)) {
      return endInto(*refused, element);
    }
    if (element == nullptr) return E_POINTER;
    if (!isInside) return endInto(E_INVALIDARG, element);
    *element = makeElement(*about);
    return S_OK;
  }

 private:
  const Window& window_;  // that was searched
  std::vector<Element*> elements_;
};

class ElementObject final : public ElementSlots<ComObject<IUIAutomationElement>> {
 public:
  explicit ElementObject(Element& element)
      : ElementSlots(IID_IUIAutomationElement), desktop_(stateFor("UI Automation").desktop), element_(element) {}

  Element& element() const {
    requireAlive("IUIAutomationElement");
    return element_;
  }

  HRESULT SetFocus() override {
    if (const auto refused = refusalHere("IUIAutomationElement::SetFocus")) return *refused;
    if (!desktop_.isAvailable(element_)) return UIA_E_ELEMENTNOTAVAILABLE;
    return static_cast<HRESULT>(desktop_.setFocus(element_));
  }

  HRESULT FindAll(TreeScope scope, IUIAutomationCondition* condition, IUIAutomationElementArray** found) override {
    if (const auto refused = refusalHere("IUIAutomationElement::FindAll")) return endInto(*refused, found);
    if (scope != TreeScope_Descendants) stopRun("IUIAutomationElement::FindAll", "a scope that isn't modelled");
    if (found == nullptr) return E_POINTER;
    if (condition == nullptr) return endInto(E_INVALIDARG, found);
    if (!desktop_.isAvailable(element_)) return endInto(UIA_E_ELEMENTNOTAVAILABLE, found);
    const SharedTest test = testBehind(condition);
    std::vector<Element*> matches;
    for (Element* each : desktop_.descendants(element_)) {
      if (test->accepts(desktop_.factsOf(*each))) matches.push_back(each);
    }
    *found = makeElementArray(*element_.window, std::move(matches));
    return S_OK;
  }

  HRESULT GetCurrentPropertyValue(PROPERTYID property, VARIANT* value) override {
    if (const auto refused = refusalHere("IUIAutomationElement::GetCurrentPropertyValue"))
      return empty(*refused, value);
    if (value == nullptr) return E_POINTER;
    if (!desktop_.isAvailable(element_)) return empty(UIA_E_ELEMENTNOTAVAILABLE, value);
    const ElementFacts facts = desktop_.factsOf(element_);
    if (property == UIA_ValueValuePropertyId && facts.unreadable.contains(Fact::value)) return empty(E_FAIL, value);
    empty(S_OK, value);
    if (property == UIA_ControlTypePropertyId) {
      value->vt = VT_I4;
      value->lVal = facts.controlType;
    } else if (const std::optional<Text> text = propertyText(facts, property)) {
      value->vt = VT_BSTR;
      value->bstrVal = makeBstr(*text);
      markInVariant(value->bstrVal);
    }
    desktop_.factWasRead(element_);
    return S_OK;
  }

  HRESULT GetCurrentPatternAs(PATTERNID pattern, REFIID iid, void** object) override {
    if (const auto refused = refusalHere("IUIAutomationElement::GetCurrentPatternAs")) return endInto(*refused, object);
    if (object == nullptr) return E_POINTER;
    if (!desktop_.isAvailable(element_)) return endInto(UIA_E_ELEMENTNOTAVAILABLE, object);
    *object = makePattern(desktop_, element_, pattern, iid);
    return S_OK;
  }

  HRESULT get_CurrentControlType(CONTROLTYPEID* type) override {
    return read("IUIAutomationElement::get_CurrentControlType", Fact::controlType, type,
                [](const ElementFacts& facts) { return facts.controlType; });
  }
  HRESULT get_CurrentName(BSTR* name) override {
    return read("IUIAutomationElement::get_CurrentName", Fact::name, name,
                [](const ElementFacts& facts) { return facts.name ? makeBstr(*facts.name) : nullptr; });
  }
  HRESULT get_CurrentIsKeyboardFocusable(BOOL* focusable) override {
    return read("IUIAutomationElement::get_CurrentIsKeyboardFocusable", Fact::focusable, focusable,
                [](const ElementFacts& facts) { return facts.focusable ? TRUE : FALSE; });
  }
  HRESULT get_CurrentIsEnabled(BOOL* enabled) override {
    return read("IUIAutomationElement::get_CurrentIsEnabled", Fact::enabled, enabled,
                [](const ElementFacts& facts) { return facts.enabled ? TRUE : FALSE; });
  }
  HRESULT get_CurrentAutomationId(BSTR* id) override {
    return read("IUIAutomationElement::get_CurrentAutomationId", Fact::automationId, id,
                [](const ElementFacts& facts) { return makeBstr(facts.automationId); });
  }
  HRESULT get_CurrentClassName(BSTR* name) override {
    return read("IUIAutomationElement::get_CurrentClassName", Fact::className, name,
                [](const ElementFacts& facts) { return makeBstr(facts.className); });
  }
  HRESULT get_CurrentIsPassword(BOOL* password) override {
    return read("IUIAutomationElement::get_CurrentIsPassword", Fact::password, password,
                [](const ElementFacts& facts) { return facts.password ? TRUE : FALSE; });
  }
  HRESULT get_CurrentIsOffscreen(BOOL* offscreen) override {
    return read("IUIAutomationElement::get_CurrentIsOffscreen", Fact::offscreen, offscreen,
                [](const ElementFacts& facts) { return facts.offscreen ? TRUE : FALSE; });
  }
  HRESULT get_CurrentFrameworkId(BSTR* id) override {
    return read("IUIAutomationElement::get_CurrentFrameworkId", Fact::frameworkId, id,
                [](const ElementFacts& facts) { return makeBstr(facts.frameworkId); });
  }
  HRESULT get_CurrentBoundingRectangle(RECT* bounds) override {
    return read("IUIAutomationElement::get_CurrentBoundingRectangle", Fact::bounds, bounds,
                [](const ElementFacts& facts) {
                  return RECT{facts.bounds.left, facts.bounds.top, facts.bounds.right, facts.bounds.bottom};
                });
  }

 private:
  std::optional<HRESULT> refusalHere(std::string_view call) const {
    return refusalOf(call, element_.window, &element_);
  }

  // A VARIANT is empty after a failure too: whoever gets it clears it.
  static HRESULT empty(HRESULT result, VARIANT* value) {
    if (value != nullptr) *value = {};
    return result;
  }

  static std::optional<Text> propertyText(const ElementFacts& facts, PROPERTYID property) {
    switch (property) {
      case UIA_HelpTextPropertyId:
        return facts.helpText;
      case UIA_LegacyIAccessibleValuePropertyId:
        return facts.legacyValue;
      case UIA_ValueValuePropertyId:
        return facts.hasValuePattern ? std::optional(facts.value.value_or(Text())) : std::nullopt;
      default:
        stopRun("IUIAutomationElement::GetCurrentPropertyValue", "a property that isn't modelled");
    }
  }

  template <typename Value, typename Take>
  HRESULT read(std::string_view call, Fact fact, Value* value, Take take) {
    if (const auto refused = refusalHere(call)) return endInto(*refused, value);
    if (value == nullptr) return E_POINTER;
    if (!desktop_.isAvailable(element_)) return endInto(UIA_E_ELEMENTNOTAVAILABLE, value);
    const ElementFacts facts = desktop_.factsOf(element_);
    if (facts.unreadable.contains(fact)) return endInto(E_FAIL, value);
    *value = take(facts);
    desktop_.factWasRead(element_);
    return S_OK;
  }

  Desktop& desktop_;
  Element& element_;
};

}  // namespace

IUIAutomationElement* makeElement(Element& element) { return makeComObject<ElementObject>(element); }

IUIAutomationElementArray* makeElementArray(const Window& window, std::vector<Element*> elements) {
  return makeComObject<ElementArray>(window, std::move(elements));
}

Element* elementBehind(IUIAutomationElement* element) {
  return element == nullptr ? nullptr : &static_cast<ElementObject*>(element)->element();
}

}  // namespace orvane::simulation
