#pragma once

#include <memory>
#include <vector>

#include "composer/uia_interfaces.h"
#include "world/desktop.h"

namespace orvane::simulation {

// What an element must be for a search to find it.
class ConditionTest {
 public:
  virtual ~ConditionTest() = default;
  virtual bool accepts(const ElementFacts& facts) const = 0;
};
using SharedTest = std::shared_ptr<const ConditionTest>;

// Each with one reference that goes to the host.
IUIAutomation* makeAutomation();
IUIAutomationElement* makeElement(Element& element);
IUIAutomationElementArray* makeElementArray(const Window& window, std::vector<Element*> elements);

// The pattern behind an element; null when it hasn't got it. A pair of pattern and interface that
// isn't modelled ends the run.
void* makePattern(Desktop& desktop, Element& element, PATTERNID pattern, REFIID iid);

// The object behind a pointer that the host passes in; null for null.
Element* elementBehind(IUIAutomationElement* element);
SharedTest testBehind(IUIAutomationCondition* condition);

}  // namespace orvane::simulation
