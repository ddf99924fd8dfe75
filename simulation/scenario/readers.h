#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "scenario/node.h"
#include "scenario/references.h"
#include "scenario/scenario.h"

// The readers of a scenario's pieces. Each checks all of its piece and throws ScenarioError.
namespace orvane::simulation {

// `ids` are those that its tree has already.
ElementPlan readElement(const Node& node, std::set<std::string>& ids, References& references);
std::vector<ElementPlan> readElements(const Node& node, std::set<std::string>& ids, References& references);
// The facts of a `set` action: a change that is applied when the action is performed.
action::SetFacts readSetFacts(const Node& node, References& references);

std::vector<Rule> readRules(const Node& node, References& references);
std::vector<Action> readActions(const Node& node, References& references);
// Whether an action means nothing without a window of its own.
bool needsWindow(const Action& action);

ClipboardContent readClipboard(const Node& node, References& references);
// `ids` are those of the window's tree outside of its pages.
TabPlan readTab(const Node& node, const std::set<std::string>& ids, References& references);
WindowPlan readWindow(const Node& node, References& references);
DesktopPlan readDesktop(const Node& node, References& references);

std::vector<Step> readSteps(const Node& node, References& references);

}  // namespace orvane::simulation
