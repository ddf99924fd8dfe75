#include "automation/elements.h"

#include <utility>

#include "automation/bare_window.h"
#include "automation/condition.h"
#include "automation/element_facts.h"
#include "automation/patterns.h"

namespace orvane::standins {
namespace {

class ElementArray final : public ComObject<IUIAutomationElementArray> {
 public:
  ElementArray(HWND link, std::vector<int> numbers)
      : ComObject(IID_IUIAutomationElementArray), link_(link), numbers_(std::move(numbers)) {}

  HRESULT STDMETHODCALLTYPE get_Length(int* length) override {
    if (length == nullptr) return E_POINTER;
    *length = static_cast<int>(numbers_.size());
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetElement(int index, IUIAutomationElement** element) override {
    if (element == nullptr) return E_POINTER;
    const auto place = static_cast<std::size_t>(index);
    if (index < 0 || place >= numbers_.size()) return endInto(E_INVALIDARG, element);
    *element = makeTreeElement({link_, numbers_[place]});
    return S_OK;
  }

 private:
  HWND link_;
  std::vector<int> numbers_;
};

// An element whose facts stand in the tree of another process.
class TreeElement final : public ElementFactReader {
 public:
  explicit TreeElement(const ElementPlace& place) : place_(place) {}

  const ElementPlace& place() const { return place_; }

  HRESULT STDMETHODCALLTYPE SetFocus() override { return resultOf(askAbout(place_, {{"op", "setFocus"}})); }

  HRESULT STDMETHODCALLTYPE FindAll(TreeScope scope, IUIAutomationCondition* condition,
                                    IUIAutomationElementArray** found) override {
    if (found == nullptr) return E_POINTER;
    if (condition == nullptr) return endInto(E_INVALIDARG, found);
    if (scope != TreeScope_Descendants) return endInto(E_NOTIMPL, found);
    const Json answer = askAbout(place_, {{"op", "find"}, {"types", typesBehind(condition)}});
    if (answer.contains("hresult")) return endInto(resultOf(answer), found);
    *found = makeElementArray(place_.link, answer.at("elements").get<std::vector<int>>());
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetCurrentPatternAs(PATTERNID pattern, REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const Json answer = askAbout(place_, {{"op", "pattern"}, {"pattern", pattern}});
    if (answer.contains("hresult")) return endInto(resultOf(answer), object);
    *object = answer.at("available").get<bool>() ? makePattern(place_, pattern, iid) : nullptr;
    return S_OK;
  }

 private:
  Json readFact(const char* fact) override { return askAbout(place_, {{"op", "read"}, {"fact", fact}}); }

  ElementPlace place_;
};

}  // namespace

IUIAutomationElement* makeTreeElement(const ElementPlace& place) { return new TreeElement(place); }

IUIAutomationElement* makeBareWindow(HWND window) { return new BareWindow(window); }

IUIAutomationElementArray* makeElementArray(HWND link, std::vector<int> numbers) {
  return new ElementArray(link, std::move(numbers));
}

bool isSameElement(IUIAutomationElement* first, IUIAutomationElement* second) {
  const auto* const oneTree = dynamic_cast<TreeElement*>(first);
  const auto* const otherTree = dynamic_cast<TreeElement*>(second);
  if (oneTree != nullptr && otherTree != nullptr) return oneTree->place() == otherTree->place();
  const auto* const oneWindow = dynamic_cast<BareWindow*>(first);
  const auto* const otherWindow = dynamic_cast<BareWindow*>(second);
  return oneWindow != nullptr && otherWindow != nullptr && oneWindow->window() == otherWindow->window();
}

}  // namespace orvane::standins
