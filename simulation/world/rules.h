#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "world/clipboard.h"
#include "world/element.h"

namespace orvane::simulation {

struct Rule;

struct TabPlan {
  Text title;
  Text automationId;
  Text className;
  Text frameworkId;
  Text address;
  bool selected = false;
  bool hasSelectionItemPattern = true;
  std::vector<ElementPlan> page;
  std::vector<Rule> rules;
};

struct KeyChord {
  int virtualKey = 0;
  bool ctrl = false;
  bool shift = false;
  bool alt = false;
  bool operator==(const KeyChord&) const = default;
};

// What sets a rule off.
struct Trigger {
  enum class Kind { key, paste, invoke, focus, select, time, read };
  Kind kind = Kind::time;
  KeyChord chord;         // key
  std::string element;    // paste, invoke, focus, read: an element's id
  Text tabTitle;          // select
  std::int64_t atMs = 0;  // time: after the first step began
};

// What a page, a browser or the desktop does.
namespace action {
struct SetFacts {
  std::string element;
  std::function<void(ElementFacts&)> apply;
};
struct AddElement {
  ElementPlan element;
};
struct RemoveElement {
  std::string element;
};
struct SetAddress {
  Text address;
};
struct SetTitle {
  Text title;
};
struct SetWindowTitle {
  Text title;
};
struct SelectTab {
  Text title;
};
struct OpenTab {
  TabPlan tab;
};
struct CloseTab {
  Text title;
};
struct MoveFocus {
  std::optional<std::string> element;
};
struct MoveForeground {
  std::optional<std::string> window;
};
struct CloseWindow {
  std::string window;
};
struct MinimizeWindow {
  std::string window;
};
struct SetClipboard {
  ClipboardContent content;
  bool keepsForms = false;  // only who holds it open changes: no form, no sequence number
};
// What a sent message does on a page: the value of one control becomes that of another.
struct CopyValue {
  std::string from;
  std::string to;
};
}  // namespace action

using Action = std::variant<action::SetFacts, action::AddElement, action::RemoveElement, action::SetAddress,
                            action::SetTitle, action::SetWindowTitle, action::SelectTab, action::OpenTab,
                            action::CloseTab, action::MoveFocus, action::MoveForeground, action::CloseWindow,
                            action::MinimizeWindow, action::SetClipboard, action::CopyValue>;

struct Rule {
  Trigger on;
  std::int64_t afterMs = 0;  // 0: inside the call that fired it, after the platform's own effect
  std::optional<int> times;  // nullopt: no limit
  std::vector<Action> actions;
  int fired = 0;
};

}  // namespace orvane::simulation
