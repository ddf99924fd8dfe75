#include "scenario/references.h"

namespace orvane::simulation {
namespace {

std::string describe(References::Kind kind) {
  switch (kind) {
    case References::Kind::window:
      return "window";
    case References::Kind::element:
      return "element";
    case References::Kind::tab:
      return "tab";
    case References::Kind::reply:
      return "earlier reply";
  }
  return {};
}

}  // namespace

References::References() {
  declare(Kind::window, "main");
  declare(Kind::window, "backdrop");
}

bool References::isDeclared(Kind kind, const std::string& name) const {
  const auto names = declared_.find(kind);
  return names != declared_.end() && names->second.contains(name);
}

void References::check() const {
  for (const Mention& mention : mentions_) {
    if (isDeclared(mention.kind, mention.name)) continue;
    throw ScenarioError(mention.path, "there is no " + describe(mention.kind) + " \"" + mention.name + "\"");
  }
  for (const Mention& mention : elementsOrTabs_) {
    if (isDeclared(Kind::element, mention.name) || isDeclared(Kind::tab, mention.name)) continue;
    throw ScenarioError(mention.path, "there is no element or tab \"" + mention.name + "\"");
  }
}

}  // namespace orvane::simulation
