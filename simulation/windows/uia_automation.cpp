#include <utility>

#include "windows/com.h"
#include "windows/uia.h"
#include "windows/uia_unused_slots.h"

namespace orvane::simulation {
namespace {

class AnyElement : public ConditionTest {
 public:
  bool accepts(const ElementFacts&) const override { return true; }
};

class HasControlType : public ConditionTest {
 public:
  explicit HasControlType(int controlType) : controlType_(controlType) {}
  bool accepts(const ElementFacts& facts) const override { return facts.controlType == controlType_; }

 private:
  int controlType_;
};

class EitherOf : public ConditionTest {
 public:
  EitherOf(SharedTest first, SharedTest second) : first_(std::move(first)), second_(std::move(second)) {}
  bool accepts(const ElementFacts& facts) const override { return first_->accepts(facts) || second_->accepts(facts); }

 private:
  SharedTest first_;
  SharedTest second_;
};

class Condition final : public ComObject<IUIAutomationCondition> {
 public:
  explicit Condition(SharedTest test) : ComObject(IID_IUIAutomationCondition), test_(std::move(test)) {}
  SharedTest test() const {
    requireAlive("IUIAutomationCondition");
    return test_;
  }

 private:
  SharedTest test_;
};

HRESULT giveCondition(SharedTest test, IUIAutomationCondition** condition) {
  *condition = makeComObject<Condition>(std::move(test));
  return S_OK;
}

// A window of the host shows UI Automation itself and nothing inside.
Element& rootOf(PlatformState& state, Window& window) {
  if (window.root != nullptr) return *window.root;
  const auto [place, isNew] = state.hostRoots.try_emplace(&window);
  Element& root = place->second;
  if (isNew) {
    root.window = &window;
    root.isRoot = true;
    root.facts.controlType = control_type::window;
    root.facts.className = window.className;
  }
  root.facts.name = state.desktop.windowTitle(window);
  root.facts.bounds = state.desktop.visibleBounds(window);
  return root;
}

class Automation final : public AutomationSlots<ComObject<IUIAutomation>> {
 public:
  Automation() : AutomationSlots(IID_IUIAutomation) {}

  HRESULT CompareElements(IUIAutomationElement* first, IUIAutomationElement* second, BOOL* same) override {
    Element* const one = elementBehind(first);
    Element* const other = elementBehind(second);
    const Window* const window = one == nullptr ? nullptr : one->window;
    if (const auto refused = refusalOf("IUIAutomation::CompareElements", window, one)) return endInto(*refused, same);
    if (one == nullptr || other == nullptr) return endInto(E_INVALIDARG, same);
    if (same == nullptr) return E_POINTER;
    *same = one == other ? TRUE : FALSE;
    return S_OK;
  }

  HRESULT ElementFromHandle(HWND handle, IUIAutomationElement** element) override {
    PlatformState& state = stateFor("IUIAutomation::ElementFromHandle");
    Window* const window = state.liveWindow(handle);
    if (const auto refused = refusalOf("IUIAutomation::ElementFromHandle", window, nullptr)) {
      return endInto(*refused, element);
    }
    if (element == nullptr) return E_POINTER;
    if (window == nullptr || !window->uia) return endInto(UIA_E_ELEMENTNOTAVAILABLE, element);
    *element = makeElement(rootOf(state, *window));
    return S_OK;
  }

  HRESULT GetFocusedElement(IUIAutomationElement** element) override {
    const Desktop& desktop = stateFor("IUIAutomation::GetFocusedElement").desktop;
    Element* const focused = desktop.focusedElement();
    if (const auto refused = refusalOf("IUIAutomation::GetFocusedElement", desktop.foreground(), focused)) {
      return endInto(*refused, element);
    }
    if (element == nullptr) return E_POINTER;
    *element = focused == nullptr ? nullptr : makeElement(*focused);
    return S_OK;
  }

  HRESULT CreateTrueCondition(IUIAutomationCondition** condition) override {
    if (const auto refused = refusalOf("IUIAutomation::CreateTrueCondition", nullptr, nullptr)) {
      return endInto(*refused, condition);
    }
    if (condition == nullptr) return E_POINTER;
    return giveCondition(std::make_shared<AnyElement>(), condition);
  }

  HRESULT CreatePropertyCondition(PROPERTYID property, VARIANT value, IUIAutomationCondition** condition) override {
    if (const auto refused = refusalOf("IUIAutomation::CreatePropertyCondition", nullptr, nullptr)) {
      return endInto(*refused, condition);
    }
    if (condition == nullptr) return E_POINTER;
    if (property != UIA_ControlTypePropertyId) {
      stopRun("IUIAutomation::CreatePropertyCondition", "a property other than the control type isn't modelled");
    }
    if (value.vt != VT_I4) return endInto(E_INVALIDARG, condition);
    return giveCondition(std::make_shared<HasControlType>(value.lVal), condition);
  }

  HRESULT CreateOrCondition(IUIAutomationCondition* first, IUIAutomationCondition* second,
                            IUIAutomationCondition** condition) override {
    if (const auto refused = refusalOf("IUIAutomation::CreateOrCondition", nullptr, nullptr)) {
      return endInto(*refused, condition);
    }
    if (condition == nullptr) return E_POINTER;
    if (first == nullptr || second == nullptr) return endInto(E_INVALIDARG, condition);
    return giveCondition(std::make_shared<EitherOf>(testBehind(first), testBehind(second)), condition);
  }
};

}  // namespace

HRESULT answerUnusedSlot(const char* interfaceName, int slot) {
  stopRun(interfaceName, "slot " + std::to_string(slot) + " isn't modelled");
}

IUIAutomation* makeAutomation() { return makeComObject<Automation>(); }

SharedTest testBehind(IUIAutomationCondition* condition) {
  return condition == nullptr ? nullptr : static_cast<Condition*>(condition)->test();
}

}  // namespace orvane::simulation
