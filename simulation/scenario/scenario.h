#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "scenario/json.h"
#include "world/desktop.h"

namespace orvane::simulation {

// What stands on the desktop before the host starts.
struct DesktopPlan {
  std::vector<Monitor> monitors{Monitor{}};
  std::optional<bool> lightTheme;
  std::vector<WindowPlan> windows;  // top of the z-order first
  bool setsForeground = false;      // before the first step; else the host keeps it
  std::optional<std::string> foreground;
  ClipboardContent clipboard;
  Spelling spelling;
  std::vector<Fault> faults;
};

namespace step {
struct Call {
  std::string channel;
  std::string method;
  Json arguments;  // in the forms that value_codec.h reads
  std::string as;
};
struct Bytes {
  std::string channel;
  std::vector<std::uint8_t> message;
  std::string as;
};
struct Wait {
  std::int64_t ms = 0;
};
// What a person does.
struct BringForward {
  std::optional<std::string> window;
};
struct Close {
  std::string window;
};
struct Minimize {
  std::string window;
};
struct Resize {
  std::string window;
  Rectangle bounds;
};
struct ChooseMenu {
  std::optional<int> entry;  // from 1; nullopt: dismissed
};
struct SwitchTab {
  std::string window;
  Text title;
};
// A message of another program.
struct Post {
  std::string window;
  std::uint32_t message = 0;
  Json wParam;  // a number, or {"$window": ID}
  Json lParam;
};
struct Do {
  std::vector<Action> actions;
  std::optional<std::string> window;
};
}  // namespace step

using Step = std::variant<step::Call, step::Bytes, step::Wait, step::BringForward, step::Close, step::Minimize,
                          step::Resize, step::ChooseMenu, step::SwitchTab, step::Post, step::Do>;

struct Scenario {
  std::string file;
  std::string name;
  std::vector<Text> arguments;
  DesktopPlan desktop;
  std::vector<Step> steps;
  std::optional<Json> expect;
};

}  // namespace orvane::simulation
