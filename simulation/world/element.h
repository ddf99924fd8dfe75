#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "world/geometry.h"
#include "world/text.h"

namespace orvane::simulation {

struct Tab;
struct Window;

// UI Automation's control type ids.
namespace control_type {
inline constexpr int button = 50000;
inline constexpr int edit = 50004;
inline constexpr int tab = 50018;
inline constexpr int tabItem = 50019;
inline constexpr int text = 50020;
inline constexpr int document = 50030;
inline constexpr int window = 50032;
inline constexpr int pane = 50033;
}  // namespace control_type

enum class Fact {
  name,
  automationId,
  className,
  frameworkId,
  controlType,
  bounds,
  enabled,
  offscreen,
  focusable,
  password,
  value,
};

// What UI Automation can see of one control.
struct ElementFacts {
  std::string id;  // empty: rules and reports can't name it
  int controlType = control_type::pane;
  std::optional<Text> name = Text{};  // nullopt: the read succeeds with a null string
  Text automationId;
  Text className;
  Text frameworkId;
  Rectangle bounds;
  bool enabled = true;
  bool offscreen = false;
  bool focusable = false;
  std::optional<bool> acceptsFocus;  // nullopt: as `focusable` is
  bool password = false;
  bool hasValuePattern = false;
  std::optional<Text> value;             // with the pattern: nullopt is a null string
  std::optional<std::uint32_t> invoke;   // nullopt: no pattern; 0: works; else the HRESULT it refuses with
  bool hasSelectionItemPattern = false;  // tab items only
  // nullopt: no LegacyIAccessible pattern; 0: works, and changes nothing of a tab that is selected
  // already; else the HRESULT it refuses with. No scenario has it.
  std::optional<std::uint32_t> defaultAction;
  Text helpText;
  Text legacyValue;
  std::set<Fact> unreadable;  // reads that fail
};

// A control that is to be made, with what lies below it.
struct ElementPlan {
  ElementFacts facts;
  bool hasBounds = false;  // the plan says where it lies; an address bar has a place without that
  std::vector<ElementPlan> children;
};

// A control that was made. It is never freed before the process ends; when it has left its
// window's tree, `Desktop::isAvailable` says so.
struct Element {
  ElementFacts facts;
  Window* window = nullptr;
  Tab* tab = nullptr;  // the tab whose page it belongs to, or whose tab item it is
  bool isTabItem = false;
  bool isRoot = false;
  bool removed = false;
  Element* parent = nullptr;
  std::vector<Element*> children;
  int invokedCount = 0;
  bool allSelected = false;  // an edit whose whole text is selected
};

}  // namespace orvane::simulation
