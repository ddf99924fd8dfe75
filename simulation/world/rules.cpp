#include "world/rules.h"

#include <utility>

#include "world/desktop.h"

namespace orvane::simulation {
namespace {

// Rules of a window act while it lives, those of a tab while the tab is selected too.
bool mayAct(const Window& window, const Tab* tab) {
  return !window.destroyed && (tab == nullptr || (!tab->closed && window.selected == tab));
}

struct DueRule {
  Rule* rule;
  Tab* tab;
};

void collect(std::vector<Rule>& rules, Tab* tab, const std::function<bool(const Trigger&)>& fits,
             std::vector<DueRule>& due) {
  for (Rule& rule : rules) {
    if (fits(rule.on)) due.push_back({&rule, tab});
  }
}

}  // namespace

void Desktop::startRules() {
  rulesStartMs_ = clock_.nowMs();
  for (const auto& window : windows_) {
    scheduleTimes(*window, nullptr, window->rules);
    for (Tab* tab : window->tabs) scheduleTimes(*window, tab, tab->rules);
  }
}

void Desktop::scheduleTimes(Window& window, Tab* tab, std::vector<Rule>& rules) {
  for (Rule& rule : rules) {
    const std::int64_t atMs = rulesStartMs_.value_or(0) + rule.on.atMs;
    if (rule.on.kind != Trigger::Kind::time || atMs < clock_.nowMs()) continue;
    clock_.schedule(atMs, [this, &window, tab, &rule] {
      if (mayAct(window, tab)) fireRule(window, tab, rule);
    });
  }
}

// Which rules one event fires is settled before the first of them acts.
void Desktop::fire(Window& window, const std::function<bool(const Trigger&)>& fits) {
  std::vector<DueRule> due;
  collect(window.rules, nullptr, fits, due);
  if (window.selected != nullptr) collect(window.selected->rules, window.selected, fits, due);
  for (const DueRule& one : due) fireRule(window, one.tab, *one.rule);
}

void Desktop::fireOn(Element& element, Trigger::Kind kind) {
  if (element.facts.id.empty()) return;
  const std::string id = element.facts.id;
  fire(*element.window, [&](const Trigger& on) { return on.kind == kind && on.element == id; });
}

void Desktop::fireRule(Window& window, Tab* tab, Rule& rule) {
  if (rule.times && rule.fired >= *rule.times) return;
  ++rule.fired;
  const auto act = [this, &window, tab, &rule] {
    if (mayAct(window, tab)) perform(rule.actions, &window, tab);
  };
  if (rule.afterMs == 0) return act();
  clock_.schedule(clock_.nowMs() + rule.afterMs, act);
}

}  // namespace orvane::simulation
