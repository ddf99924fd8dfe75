#include <algorithm>
#include <array>
#include <limits>

#include "scenario/readers.h"

namespace orvane::simulation {
namespace {

struct KeyWord {
  std::string_view word;
  int virtualKey;
};

constexpr std::array<KeyWord, 12> keyWords{{
    {"Enter", 0x0D},
    {"Escape", 0x1B},
    {"Tab", 0x09},
    {"Space", 0x20},
    {"Backspace", 0x08},
    {"Delete", 0x2E},
    {"Left", 0x25},
    {"Up", 0x26},
    {"Right", 0x27},
    {"Down", 0x28},
    {"Home", 0x24},
    {"End", 0x23},
}};

int keyFromWord(std::string_view word) {
  if (word.size() == 1) {
    const char letter = word.front();
    if (letter >= 'a' && letter <= 'z') return letter - 'a' + 'A';
    if ((letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9')) return letter;
  }
  const auto found =
      std::find_if(keyWords.begin(), keyWords.end(), [word](const KeyWord& entry) { return entry.word == word; });
  return found == keyWords.end() ? 0 : found->virtualKey;
}

bool takePrefix(std::string_view& word, std::string_view prefix) {
  if (!word.starts_with(prefix)) return false;
  word.remove_prefix(prefix.size());
  return true;
}

KeyChord readChord(const Node& node) {
  const std::string whole = node.utf8();
  std::string_view rest = whole;
  KeyChord chord;
  while (true) {
    bool& held = rest.starts_with("Ctrl+") ? chord.ctrl : rest.starts_with("Shift+") ? chord.shift : chord.alt;
    if (!takePrefix(rest, "Ctrl+") && !takePrefix(rest, "Shift+") && !takePrefix(rest, "Alt+")) break;
    held = true;
  }
  chord.virtualKey = keyFromWord(rest);
  if (chord.virtualKey == 0) node.fail("unknown key \"" + whole + "\"");
  return chord;
}

Trigger elementTrigger(Trigger::Kind kind, const Node& node, References& references) {
  references.mention(References::Kind::element, node);
  Trigger trigger;
  trigger.kind = kind;
  trigger.element = node.utf8();
  return trigger;
}

Trigger readTrigger(const Node& node, References& references) {
  node.requireKeys({"key", "paste", "invoke", "focus", "select", "time", "read"});
  const std::string kind = node.onlyKey();
  const Node what = node.at(kind);
  if (kind == "paste") return elementTrigger(Trigger::Kind::paste, what, references);
  if (kind == "invoke") return elementTrigger(Trigger::Kind::invoke, what, references);
  if (kind == "focus") return elementTrigger(Trigger::Kind::focus, what, references);
  if (kind == "read") return elementTrigger(Trigger::Kind::read, what, references);
  Trigger trigger;
  if (kind == "key") {
    trigger.kind = Trigger::Kind::key;
    trigger.chord = readChord(what);
  } else if (kind == "select") {
    references.mention(References::Kind::tab, what);
    trigger.kind = Trigger::Kind::select;
    trigger.tabTitle = what.text();
  } else {
    trigger.kind = Trigger::Kind::time;
    trigger.atMs = what.durationMs();
  }
  return trigger;
}

Rule readRule(const Node& node, References& references) {
  node.requireKeys({"on", "after", "times", "do"});
  Rule rule;
  rule.on = readTrigger(node.at("on"), references);
  if (const auto after = node.find("after")) rule.afterMs = after->durationMs();
  if (const auto times = node.find("times")) rule.times = times->count();
  rule.actions = readActions(node.at("do"), references);
  return rule;
}

Action readAdd(const Node& node, References& references) {
  std::set<std::string> ids;
  return action::AddElement{readElement(node, ids, references)};
}

Action readRemove(const Node& node, References& references) {
  references.mention(References::Kind::element, node);
  return action::RemoveElement{node.utf8()};
}

Action readTitle(const Node& node, References& references) {
  references.declare(References::Kind::tab, node.utf8());
  return action::SetTitle{node.text()};
}

Action readSelectTab(const Node& node, References& references) {
  references.mention(References::Kind::tab, node);
  return action::SelectTab{node.text()};
}

Action readCloseTab(const Node& node, References& references) {
  references.mention(References::Kind::tab, node);
  return action::CloseTab{node.text()};
}

Action readFocus(const Node& node, References& references) {
  if (node.isNull()) return action::MoveFocus{};
  references.mention(References::Kind::element, node);
  return action::MoveFocus{node.utf8()};
}

Action readForeground(const Node& node, References& references) {
  if (node.isNull()) return action::MoveForeground{};
  references.mention(References::Kind::window, node);
  return action::MoveForeground{node.utf8()};
}

Action readCloseWindow(const Node& node, References& references) {
  references.mention(References::Kind::window, node);
  return action::CloseWindow{node.utf8()};
}

Action readMinimize(const Node& node, References& references) {
  references.mention(References::Kind::window, node);
  return action::MinimizeWindow{node.utf8()};
}

Action readClipboardAction(const Node& node, References& references) {
  const bool namesOnlyTheLock = node.has("lockedBy") && node.json().size() == 1;
  return action::SetClipboard{readClipboard(node, references), namesOnlyTheLock};
}

Action readCopyValue(const Node& node, References& references) {
  node.requireKeys({"from", "to"});
  references.mention(References::Kind::element, node.at("from"));
  references.mention(References::Kind::element, node.at("to"));
  return action::CopyValue{node.at("from").utf8(), node.at("to").utf8()};
}

struct ActionKey {
  std::string_view key;
  Action (*read)(const Node& node, References& references);
};

constexpr std::array<ActionKey, 15> actionKeys{{
    {"set", [](const Node& node, References& references) -> Action { return readSetFacts(node, references); }},
    {"add", readAdd},
    {"remove", readRemove},
    {"address", [](const Node& node, References&) -> Action { return action::SetAddress{node.text()}; }},
    {"title", readTitle},
    {"windowTitle", [](const Node& node, References&) -> Action { return action::SetWindowTitle{node.text()}; }},
    {"selectTab", readSelectTab},
    {"openTab", [](const Node& node, References& refs) -> Action { return action::OpenTab{readTab(node, {}, refs)}; }},
    {"closeTab", readCloseTab},
    {"focus", readFocus},
    {"foreground", readForeground},
    {"closeWindow", readCloseWindow},
    {"minimize", readMinimize},
    {"clipboard", readClipboardAction},
    {"copyValue", readCopyValue},
}};

Action readAction(const Node& node, References& references) {
  const std::string key = node.onlyKey();
  const auto found =
      std::find_if(actionKeys.begin(), actionKeys.end(), [&](const ActionKey& entry) { return entry.key == key; });
  if (found == actionKeys.end()) node.at(key).fail("unknown key");
  return found->read(node.at(key), references);
}

}  // namespace

std::vector<Rule> readRules(const Node& node, References& references) {
  std::vector<Rule> rules;
  for (const Node& item : node.items()) rules.push_back(readRule(item, references));
  return rules;
}

std::vector<Action> readActions(const Node& node, References& references) {
  std::vector<Action> actions;
  for (const Node& item : node.items()) actions.push_back(readAction(item, references));
  return actions;
}

bool needsWindow(const Action& action) {
  return !std::holds_alternative<action::MoveForeground>(action) &&
         !std::holds_alternative<action::CloseWindow>(action) &&
         !std::holds_alternative<action::MinimizeWindow>(action) &&
         !std::holds_alternative<action::SetClipboard>(action);
}

}  // namespace orvane::simulation
