#include <string_view>

#include "windows/com.h"
#include "windows/uia.h"
#include "windows/wide_text.h"

namespace orvane::simulation {
namespace {

constexpr HRESULT notSupported = static_cast<HRESULT>(0x80040204);  // UIA_E_NOTSUPPORTED

// What all patterns of an element share.
template <typename Interface>
class PatternObject : public ComObject<Interface> {
 public:
  PatternObject(const IID& iid, Desktop& desktop, Element& element)
      : ComObject<Interface>(iid), desktop_(desktop), element_(element) {}

 protected:
  std::optional<HRESULT> refusalHere(std::string_view call) const {
    if (const auto refused = this->refusalOf(call, element_.window, &element_)) return refused;
    if (!desktop_.isAvailable(element_)) return UIA_E_ELEMENTNOTAVAILABLE;
    return std::nullopt;
  }

  Desktop& desktop_;
  Element& element_;
};

class InvokePattern final : public PatternObject<IUIAutomationInvokePattern> {
 public:
  InvokePattern(Desktop& desktop, Element& element) : PatternObject(IID_IUIAutomationInvokePattern, desktop, element) {}

  HRESULT Invoke() override {
    if (const auto refused = refusalHere("IUIAutomationInvokePattern::Invoke")) return *refused;
    return static_cast<HRESULT>(desktop_.invoke(element_));
  }
};

class ValuePattern final : public PatternObject<IUIAutomationValuePattern> {
 public:
  ValuePattern(Desktop& desktop, Element& element) : PatternObject(IID_IUIAutomationValuePattern, desktop, element) {}

  HRESULT SetValue(BSTR value) override {
    if (const auto refused = refusalHere("IUIAutomationValuePattern::SetValue")) return *refused;
    return static_cast<HRESULT>(desktop_.setValue(element_, textOfBstr(value)));
  }

  HRESULT get_CurrentValue(BSTR* value) override {
    if (const auto refused = refusalHere("IUIAutomationValuePattern::get_CurrentValue"))
      return endInto(*refused, value);
    if (value == nullptr) return E_POINTER;
    const ElementFacts facts = desktop_.factsOf(element_);
    if (!facts.hasValuePattern) return endInto(notSupported, value);
    if (facts.unreadable.contains(Fact::value)) return endInto(E_FAIL, value);
    *value = facts.value ? makeBstr(*facts.value) : nullptr;
    desktop_.factWasRead(element_);
    return S_OK;
  }
};

class SelectionItemPattern final : public PatternObject<IUIAutomationSelectionItemPattern> {
 public:
  SelectionItemPattern(Desktop& desktop, Element& element)
      : PatternObject(IID_IUIAutomationSelectionItemPattern, desktop, element) {}

  HRESULT Select() override {
    if (const auto refused = refusalHere("IUIAutomationSelectionItemPattern::Select")) return *refused;
    return static_cast<HRESULT>(desktop_.select(element_));
  }
  HRESULT AddToSelection() override { stopRun("IUIAutomationSelectionItemPattern::AddToSelection", "isn't modelled"); }
  HRESULT RemoveFromSelection() override {
    stopRun("IUIAutomationSelectionItemPattern::RemoveFromSelection", "isn't modelled");
  }

  HRESULT get_CurrentIsSelected(BOOL* selected) override {
    if (const auto refused = refusalHere("IUIAutomationSelectionItemPattern::get_CurrentIsSelected")) {
      return endInto(*refused, selected);
    }
    if (selected == nullptr) return E_POINTER;
    *selected = desktop_.isSelected(element_) ? TRUE : FALSE;
    desktop_.factWasRead(element_);
    return S_OK;
  }
};

class LegacyPattern final : public PatternObject<IUIAutomationLegacyIAccessiblePattern> {
 public:
  LegacyPattern(Desktop& desktop, Element& element)
      : PatternObject(IID_IUIAutomationLegacyIAccessiblePattern, desktop, element) {}

  HRESULT Select(long) override { stopRun("IUIAutomationLegacyIAccessiblePattern::Select", "isn't modelled"); }
  HRESULT SetValue(LPCWSTR) override { stopRun("IUIAutomationLegacyIAccessiblePattern::SetValue", "isn't modelled"); }

  HRESULT DoDefaultAction() override {
    if (const auto refused = refusalHere("IUIAutomationLegacyIAccessiblePattern::DoDefaultAction")) return *refused;
    const std::optional<std::uint32_t> action = desktop_.factsOf(element_).defaultAction;
    return action ? static_cast<HRESULT>(*action) : notSupported;
  }
};

// Which interface belongs to which pattern, and when an element has it.
struct PatternKind {
  PATTERNID id;
  const IID* iid;
  bool (*isPresent)(const ElementFacts& facts);
  void* (*make)(Desktop& desktop, Element& element);
};

// As a pointer to the interface, which is what the host takes it for.
template <typename Pattern, typename Interface>
void* makeAs(Desktop& desktop, Element& element) {
  return static_cast<Interface*>(makeComObject<Pattern>(desktop, element));
}

constexpr PatternKind patternKinds[] = {
    {UIA_InvokePatternId, &IID_IUIAutomationInvokePattern,
     [](const ElementFacts& facts) { return facts.invoke.has_value(); },
     makeAs<InvokePattern, IUIAutomationInvokePattern>},
    {UIA_ValuePatternId, &IID_IUIAutomationValuePattern,
     [](const ElementFacts& facts) { return facts.hasValuePattern; }, makeAs<ValuePattern, IUIAutomationValuePattern>},
    {UIA_SelectionItemPatternId, &IID_IUIAutomationSelectionItemPattern,
     [](const ElementFacts& facts) { return facts.hasSelectionItemPattern; },
     makeAs<SelectionItemPattern, IUIAutomationSelectionItemPattern>},
    {UIA_LegacyIAccessiblePatternId, &IID_IUIAutomationLegacyIAccessiblePattern,
     [](const ElementFacts& facts) { return facts.defaultAction.has_value(); },
     makeAs<LegacyPattern, IUIAutomationLegacyIAccessiblePattern>},
};

}  // namespace

void* makePattern(Desktop& desktop, Element& element, PATTERNID pattern, REFIID iid) {
  for (const PatternKind& kind : patternKinds) {
    if (kind.id != pattern || *kind.iid != iid) continue;
    return kind.isPresent(desktop.factsOf(element)) ? kind.make(desktop, element) : nullptr;
  }
  stopRun("IUIAutomationElement::GetCurrentPatternAs", "a pattern or an interface that isn't modelled");
}

}  // namespace orvane::simulation
