#include "automation/patterns.h"

#include "common/com_object.h"
#include "common/wide_text.h"
#include "windows/uia_unused_slots.h"

namespace orvane::standins {
namespace {

template <typename Interface>
class PatternObject : public ComObject<Interface> {
 public:
  PatternObject(const IID& iid, const ElementPlace& place) : ComObject<Interface>(iid), place_(place) {}

 protected:
  ElementPlace place_;
};

class InvokePattern final : public PatternObject<IUIAutomationInvokePattern> {
 public:
  explicit InvokePattern(const ElementPlace& place) : PatternObject(IID_IUIAutomationInvokePattern, place) {}

  HRESULT STDMETHODCALLTYPE Invoke() override { return resultOf(askAbout(place_, {{"op", "invoke"}})); }
};

class ValuePattern final : public simulation::ValuePatternSlots<PatternObject<IUIAutomationValuePattern>> {
 public:
  explicit ValuePattern(const ElementPlace& place) : ValuePatternSlots(IID_IUIAutomationValuePattern, place) {}

  HRESULT STDMETHODCALLTYPE SetValue(BSTR value) override {
    const std::wstring_view text(value == nullptr ? L"" : value, ::SysStringLen(value));
    return resultOf(askAbout(place_, {{"op", "setValue"}, {"value", utf8FromWide(text)}}));
  }

  HRESULT STDMETHODCALLTYPE get_CurrentValue(BSTR* value) override {
    if (value == nullptr) return E_POINTER;
    const Json answer = askAbout(place_, {{"op", "read"}, {"fact", "value"}});
    if (answer.contains("hresult")) return endInto(resultOf(answer), value);
    *value = makeBstr(answer.at("value"));
    return S_OK;
  }
};

class SelectionItemPattern final
    : public simulation::SelectionItemPatternSlots<PatternObject<IUIAutomationSelectionItemPattern>> {
 public:
  explicit SelectionItemPattern(const ElementPlace& place)
      : SelectionItemPatternSlots(IID_IUIAutomationSelectionItemPattern, place) {}

  HRESULT STDMETHODCALLTYPE Select() override { return resultOf(askAbout(place_, {{"op", "select"}})); }
  HRESULT STDMETHODCALLTYPE AddToSelection() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveFromSelection() override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE get_CurrentIsSelected(BOOL* selected) override {
    if (selected == nullptr) return E_POINTER;
    const Json answer = askAbout(place_, {{"op", "read"}, {"fact", "selected"}});
    if (answer.contains("hresult")) return endInto(resultOf(answer), selected);
    *selected = answer.at("value").get<bool>() ? TRUE : FALSE;
    return S_OK;
  }
};

class LegacyPattern final : public PatternObject<IUIAutomationLegacyIAccessiblePattern> {
 public:
  explicit LegacyPattern(const ElementPlace& place) : PatternObject(IID_IUIAutomationLegacyIAccessiblePattern, place) {}

  HRESULT STDMETHODCALLTYPE Select(long) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetValue(LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DoDefaultAction() override { return resultOf(askAbout(place_, {{"op", "defaultAction"}})); }
};

struct PatternKind {
  PATTERNID id;
  const IID* iid;
  void* (*make)(const ElementPlace& place);
};

// As a pointer to the interface, which is what the client takes it for.
template <typename Pattern, typename Interface>
void* makeAs(const ElementPlace& place) {
  return static_cast<Interface*>(new Pattern(place));
}

constexpr PatternKind patternKinds[] = {
    {UIA_InvokePatternId, &IID_IUIAutomationInvokePattern, makeAs<InvokePattern, IUIAutomationInvokePattern>},
    {UIA_ValuePatternId, &IID_IUIAutomationValuePattern, makeAs<ValuePattern, IUIAutomationValuePattern>},
    {UIA_SelectionItemPatternId, &IID_IUIAutomationSelectionItemPattern,
     makeAs<SelectionItemPattern, IUIAutomationSelectionItemPattern>},
    {UIA_LegacyIAccessiblePatternId, &IID_IUIAutomationLegacyIAccessiblePattern,
     makeAs<LegacyPattern, IUIAutomationLegacyIAccessiblePattern>},
};

}  // namespace

void* makePattern(const ElementPlace& place, PATTERNID pattern, REFIID iid) {
  for (const PatternKind& kind : patternKinds) {
    if (kind.id == pattern && ::IsEqualIID(*kind.iid, iid)) return kind.make(place);
  }
  return nullptr;
}

}  // namespace orvane::standins
