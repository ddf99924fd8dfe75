#pragma once

#include <optional>
#include <vector>

#include "automation/tree_link.h"
#include "composer/uia_interfaces.h"

namespace orvane::standins {

// Each with one reference for the caller.
// An element of another process's tree.
IUIAutomationElement* makeTreeElement(const ElementPlace& place);
// A window that shows UI Automation itself and nothing inside.
IUIAutomationElement* makeBareWindow(HWND window);
IUIAutomationElementArray* makeElementArray(HWND link, std::vector<int> numbers);

bool isSameElement(IUIAutomationElement* first, IUIAutomationElement* second);

}  // namespace orvane::standins
