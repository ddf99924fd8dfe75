#include "world/desktop.h"

namespace orvane::simulation {

// Carries one action out. What it names may have gone meanwhile: then nothing happens.
class ActionPerformer {
 public:
  ActionPerformer(Desktop& desktop, Window* window, Tab* tab) : desktop_(desktop), window_(window), tab_(tab) {}

  void operator()(const action::SetFacts& act) const {
    Element* element = named(act.element);
    if (element == nullptr) return;
    const ElementFacts before = desktop_.factsOf(*element);
    element->facts = before;
    act.apply(element->facts);
    if (element == window_->addressBar) noteOwnFacts(*element, before);
    if (element->facts.value != before.value) element->allSelected = false;
  }

  void operator()(const action::AddElement& act) const {
    if (window_ != nullptr) desktop_.addToPage(*window_, actingTab(), act.element);
  }

  void operator()(const action::RemoveElement& act) const {
    if (Element* element = named(act.element)) desktop_.removeElement(*element);
  }

  void operator()(const action::SetAddress& act) const {
    if (Tab* tab = actingTab()) desktop_.setAddress(*window_, *tab, act.address);
  }

  void operator()(const action::SetTitle& act) const {
    if (Tab* tab = actingTab()) tab->title = act.title;
  }

  void operator()(const action::SetWindowTitle& act) const {
    if (window_ == nullptr) return;
    window_->title = act.title;
    window_->titleFollowsTab = false;
  }

  void operator()(const action::SelectTab& act) const {
    if (window_ != nullptr) desktop_.switchTab(*window_, act.title);
  }

  void operator()(const action::OpenTab& act) const {
    if (window_ == nullptr || !window_->isBrowser) return;
    Tab& tab = desktop_.makeTab(*window_, act.tab);
    if (act.tab.selected) desktop_.selectTab(*window_, &tab);
  }

  void operator()(const action::CloseTab& act) const {
    Tab* tab = window_ == nullptr ? nullptr : desktop_.tabByTitle(*window_, act.title);
    if (tab != nullptr) desktop_.closeTab(*window_, *tab);
  }

  void operator()(const action::MoveFocus& act) const {
    if (window_ == nullptr) return;
    Element* element = act.element ? named(*act.element) : nullptr;
    if (act.element && (element == nullptr || !desktop_.isAvailable(*element))) return;
    desktop_.moveFocus(*window_, element);
  }

  void operator()(const action::MoveForeground& act) const {
    if (!act.window) return desktop_.moveForeground(nullptr);
    if (Window* window = desktop_.windowById(*act.window)) desktop_.moveForeground(window);
  }

  void operator()(const action::CloseWindow& act) const {
    if (Window* window = desktop_.windowById(act.window)) desktop_.closeByPerson(*window);
  }

  void operator()(const action::MinimizeWindow& act) const {
    if (Window* window = desktop_.windowById(act.window)) desktop_.minimizeByPerson(*window);
  }

  void operator()(const action::SetClipboard& act) const {
    if (act.keepsForms) {
      desktop_.clipboard.content.lockedBy = act.content.lockedBy;
    } else {
      desktop_.clipboard.replace(act.content);
    }
  }

  void operator()(const action::CopyValue& act) const {
    const Element* from = named(act.from);
    Element* to = named(act.to);
    if (from == nullptr || to == nullptr) return;
    const std::optional<Text> value = desktop_.factsOf(*from).value;
    desktop_.writeValue(*to, value.value_or(Text{}));
    to->facts.value = value;
    to->facts.hasValuePattern = true;
  }

 private:
  Tab* actingTab() const {
    if (window_ == nullptr) return nullptr;
    return tab_ == nullptr ? window_->selected : tab_;
  }

  Element* named(const std::string& id) const {
    return window_ == nullptr ? nullptr : desktop_.elementById(*window_, actingTab(), id);
  }

  void noteOwnFacts(const Element& addressBar, const ElementFacts& before) const {
    if (addressBar.facts.value != before.value) window_->addressBarFollowsTab = false;
    if (addressBar.facts.bounds != before.bounds) window_->addressBarHasPlace = true;
  }

  Desktop& desktop_;
  Window* window_;
  Tab* tab_;
};

void Desktop::perform(const std::vector<Action>& actions, Window* window, Tab* tab) {
  const ActionPerformer performer(*this, window, tab);
  for (const Action& one : actions) std::visit(performer, one);
}

}  // namespace orvane::simulation
