#include "automation/condition.h"
#include "automation/elements.h"
#include "common/com_object.h"
#include "common/link.h"
#include "windows/uia_unused_slots.h"

HRESULT orvane::simulation::answerUnusedSlot(const char*, int) { return E_NOTIMPL; }

namespace orvane::standins {
namespace {

bool isOfThisProcess(HWND window) {
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  return process == ::GetCurrentProcessId();
}

HRESULT giveCondition(Json types, IUIAutomationCondition** condition) {
  *condition = new Condition(std::move(types));
  return S_OK;
}

// Null where either accepts any element.
Json joinedTypes(const Json& first, const Json& second) {
  if (first.is_null() || second.is_null()) return nullptr;
  Json joined = first;
  joined.insert(joined.end(), second.begin(), second.end());
  return joined;
}

// The element that the process of a window names in its answer; null where it names none.
IUIAutomationElement* elementIn(const Json& answer) {
  const Json& number = answer.at("element");
  if (number.is_null()) return nullptr;
  const auto link = reinterpret_cast<HWND>(answer.at("link").get<std::uintptr_t>());
  return makeTreeElement({link, number.get<int>()});
}

class Automation final : public simulation::AutomationSlots<ComObject<IUIAutomation>> {
 public:
  Automation() : AutomationSlots(IID_IUIAutomation) {}

  HRESULT STDMETHODCALLTYPE CompareElements(IUIAutomationElement* first, IUIAutomationElement* second,
                                            BOOL* same) override {
    if (first == nullptr || second == nullptr) return endInto(E_INVALIDARG, same);
    if (same == nullptr) return E_POINTER;
    *same = isSameElement(first, second) ? TRUE : FALSE;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE ElementFromHandle(HWND window, IUIAutomationElement** element) override {
    if (element == nullptr) return E_POINTER;
    if (::IsWindow(window) == FALSE) return endInto(UIA_E_ELEMENTNOTAVAILABLE, element);
    if (isOfThisProcess(window)) {
      *element = makeBareWindow(window);
      return S_OK;
    }
    const std::optional<std::string> id = nameOfWindow(window);
    const std::optional<Json> answer = id ? askOwner(window, {{"op", "root"}, {"window", *id}}) : std::nullopt;
    if (!answer || !answer->contains("element")) return endInto(UIA_E_ELEMENTNOTAVAILABLE, element);
    *element = elementIn(*answer);
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetFocusedElement(IUIAutomationElement** element) override {
    if (element == nullptr) return E_POINTER;
    *element = nullptr;
    const HWND foreground = ::GetForegroundWindow();
    if (foreground == nullptr || isOfThisProcess(foreground) || !nameOfWindow(foreground)) return S_OK;
    const std::optional<Json> answer = askOwner(foreground, {{"op", "focused"}});
    if (answer && answer->contains("element")) *element = elementIn(*answer);
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE CreateTrueCondition(IUIAutomationCondition** condition) override {
    return condition == nullptr ? E_POINTER : giveCondition(nullptr, condition);
  }

  HRESULT STDMETHODCALLTYPE CreatePropertyCondition(PROPERTYID property, VARIANT value,
                                                    IUIAutomationCondition** condition) override {
    if (condition == nullptr) return E_POINTER;
    if (property != UIA_ControlTypePropertyId) return endInto(E_NOTIMPL, condition);
    if (value.vt != VT_I4) return endInto(E_INVALIDARG, condition);
    return giveCondition(Json::array({value.lVal}), condition);
  }

  HRESULT STDMETHODCALLTYPE CreateOrCondition(IUIAutomationCondition* first, IUIAutomationCondition* second,
                                              IUIAutomationCondition** condition) override {
    if (condition == nullptr) return E_POINTER;
    if (first == nullptr || second == nullptr) return endInto(E_INVALIDARG, condition);
    return giveCondition(joinedTypes(typesBehind(first), typesBehind(second)), condition);
  }
};

}  // namespace
}  // namespace orvane::standins

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID wanted, REFIID iid, void** object) {
  return orvane::standins::giveClassObject<orvane::standins::Automation>(orvane::CLSID_CUIAutomation, wanted, iid,
                                                                         object);
}

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllCanUnloadNow() {
  return orvane::standins::liveObjects() == 0 ? S_OK : S_FALSE;
}

// Objects that clients still hold.
extern "C" __declspec(dllexport) int OrvaneAutomationLiveObjects() { return orvane::standins::liveObjects(); }
