#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "scenario/node.h"

namespace orvane::simulation {

// The names that a scenario file declares and those that it speaks of, checked when all of it has
// been read: what an action adds later counts as declared.
class References {
 public:
  enum class Kind { window, element, tab, reply };

  References();

  void declare(Kind kind, const std::string& name) { declared_[kind].insert(name); }
  void mention(Kind kind, const Node& node) { mentions_.push_back({kind, node.utf8(), node.path()}); }
  // An element's id or a tab's title.
  void mentionElementOrTab(const Node& node) { elementsOrTabs_.push_back({Kind::element, node.utf8(), node.path()}); }
  bool isDeclared(Kind kind, const std::string& name) const;

  // Throws ScenarioError for the first name that is declared nowhere.
  void check() const;

 private:
  struct Mention {
    Kind kind;
    std::string name;
    std::string path;
  };
  std::map<Kind, std::set<std::string>> declared_;
  std::vector<Mention> mentions_;
  std::vector<Mention> elementsOrTabs_;
};

}  // namespace orvane::simulation
