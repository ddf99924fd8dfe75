#include <algorithm>
#include <array>
#include <functional>
#include <limits>

#include "scenario/readers.h"

namespace orvane::simulation {
namespace {

template <typename Value>
struct Word {
  std::string_view word;
  Value value;
};

constexpr std::array<Word<int>, 7> typeWords{{
    {"edit", control_type::edit},
    {"document", control_type::document},
    {"button", control_type::button},
    {"tab", control_type::tab},
    {"tabItem", control_type::tabItem},
    {"text", control_type::text},
    {"pane", control_type::pane},
}};

constexpr std::array<Word<Fact>, 11> factWords{{
    {"name", Fact::name},
    {"automationId", Fact::automationId},
    {"className", Fact::className},
    {"frameworkId", Fact::frameworkId},
    {"controlType", Fact::controlType},
    {"bounds", Fact::bounds},
    {"enabled", Fact::enabled},
    {"offscreen", Fact::offscreen},
    {"focusable", Fact::focusable},
    {"password", Fact::password},
    {"value", Fact::value},
}};

template <typename Table>
auto lookUp(const Table& table, const Node& node) {
  const std::string word = node.utf8();
  const auto found = std::find_if(table.begin(), table.end(), [&](const auto& entry) { return entry.word == word; });
  if (found == table.end()) node.fail("unknown word \"" + word + "\"");
  return found->value;
}

int readType(const Node& node) {
  if (!node.isText()) return static_cast<int>(node.whole(0, std::numeric_limits<int>::max()));
  return lookUp(typeWords, node);
}

std::optional<std::uint32_t> readInvoke(const Node& node) {
  if (node.isNull()) return std::nullopt;
  return node.utf8() == "ok" ? 0 : node.hresult();
}

std::set<Fact> readFactList(const Node& node) {
  std::set<Fact> facts;
  for (const Node& item : node.items()) facts.insert(lookUp(factWords, item));
  return facts;
}

using Change = std::function<void(ElementFacts&)>;

struct FactKey {
  std::string_view key;
  Change (*read)(const Node& node);
  void (*takeAway)(ElementFacts& facts);  // null: it can't be taken away
};

template <auto Member>
Change readTextFact(const Node& node) {
  return [value = node.text()](ElementFacts& facts) { facts.*Member = value; };
}

template <auto Member>
Change readFlagFact(const Node& node) {
  return [value = node.flag()](ElementFacts& facts) { facts.*Member = value; };
}

template <auto Member>
void clearTextFact(ElementFacts& facts) {
  facts.*Member = Text{};
}

Change readValueFact(const Node& node) {
  const std::optional<Text> value = node.isNull() ? std::nullopt : std::optional(node.text());
  return [value](ElementFacts& facts) {
    facts.hasValuePattern = true;
    facts.value = value;
  };
}

void takeValueAway(ElementFacts& facts) {
  facts.hasValuePattern = false;
  facts.value.reset();
}

Change readNameFact(const Node& node) {
  const std::optional<Text> name = node.isNull() ? std::nullopt : std::optional(node.text());
  return [name](ElementFacts& facts) { facts.name = name; };
}

Change readTypeFact(const Node& node) {
  return [type = readType(node)](ElementFacts& facts) { facts.controlType = type; };
}

Change readBoundsFact(const Node& node) {
  return [bounds = node.bounds()](ElementFacts& facts) { facts.bounds = bounds; };
}

Change readInvokeFact(const Node& node) {
  return [invoke = readInvoke(node)](ElementFacts& facts) { facts.invoke = invoke; };
}

Change readUnreadableFact(const Node& node) {
  return [unreadable = readFactList(node)](ElementFacts& facts) { facts.unreadable = unreadable; };
}

constexpr std::array<FactKey, 16> factKeys{{
    {"type", readTypeFact, nullptr},
    {"name", readNameFact, [](ElementFacts& facts) { facts.name.reset(); }},
    {"automationId", readTextFact<&ElementFacts::automationId>, clearTextFact<&ElementFacts::automationId>},
    {"className", readTextFact<&ElementFacts::className>, clearTextFact<&ElementFacts::className>},
    {"frameworkId", readTextFact<&ElementFacts::frameworkId>, clearTextFact<&ElementFacts::frameworkId>},
    {"bounds", readBoundsFact, nullptr},
    {"enabled", readFlagFact<&ElementFacts::enabled>, nullptr},
    {"offscreen", readFlagFact<&ElementFacts::offscreen>, nullptr},
    {"focusable", readFlagFact<&ElementFacts::focusable>, nullptr},
    {"acceptsFocus", readFlagFact<&ElementFacts::acceptsFocus>, nullptr},
    {"password", readFlagFact<&ElementFacts::password>, nullptr},
    {"value", readValueFact, takeValueAway},
    {"invoke", readInvokeFact, [](ElementFacts& facts) { facts.invoke.reset(); }},
    {"helpText", readTextFact<&ElementFacts::helpText>, clearTextFact<&ElementFacts::helpText>},
    {"legacyValue", readTextFact<&ElementFacts::legacyValue>, clearTextFact<&ElementFacts::legacyValue>},
    {"unreadable", readUnreadableFact, [](ElementFacts& facts) { facts.unreadable.clear(); }},
}};

const FactKey* factKeyOf(std::string_view key) {
  const auto found =
      std::find_if(factKeys.begin(), factKeys.end(), [key](const FactKey& entry) { return entry.key == key; });
  return found == factKeys.end() ? nullptr : &*found;
}

// The changes of an object's facts; keys of `others` are left to the caller.
std::vector<Change> readFacts(const Node& node, std::initializer_list<std::string_view> others) {
  std::vector<Change> changes;
  for (const auto& [key, value] : node.members()) {
    if (const FactKey* fact = factKeyOf(key)) {
      changes.push_back(fact->read(value));
    } else if (std::find(others.begin(), others.end(), key) == others.end()) {
      value.fail("unknown key");
    }
  }
  return changes;
}

std::vector<Change> readTakenAway(const Node& node) {
  std::vector<Change> changes;
  for (const Node& item : node.items()) {
    const FactKey* fact = factKeyOf(item.utf8());
    if (fact == nullptr || fact->takeAway == nullptr) item.fail("\"" + item.utf8() + "\" can't be taken away");
    changes.emplace_back(fact->takeAway);
  }
  return changes;
}

ElementFacts defaultFacts(int type) {
  ElementFacts facts;
  facts.controlType = type;
  facts.focusable = type == control_type::edit || type == control_type::document || type == control_type::button;
  if (type == control_type::button) facts.invoke = 0;
  return facts;
}

}  // namespace

ElementPlan readElement(const Node& node, std::set<std::string>& ids, References& references) {
  const std::vector<Change> changes = readFacts(node, {"id", "children"});
  ElementPlan plan;
  plan.facts = defaultFacts(node.has("type") ? readType(node.at("type")) : control_type::pane);
  for (const Change& change : changes) change(plan.facts);
  plan.hasBounds = node.has("bounds");
  if (const auto id = node.find("id")) {
    plan.facts.id = id->nonEmptyText();
    if (!ids.insert(plan.facts.id).second) id->fail("\"" + plan.facts.id + "\" stands in this tree already");
    references.declare(References::Kind::element, plan.facts.id);
  }
  if (const auto children = node.find("children")) plan.children = readElements(*children, ids, references);
  return plan;
}

std::vector<ElementPlan> readElements(const Node& node, std::set<std::string>& ids, References& references) {
  std::vector<ElementPlan> plans;
  for (const Node& item : node.items()) plans.push_back(readElement(item, ids, references));
  return plans;
}

action::SetFacts readSetFacts(const Node& node, References& references) {
  std::vector<Change> changes = readFacts(node, {"element", "without"});
  if (const auto without = node.find("without")) {
    for (Change& change : readTakenAway(*without)) changes.push_back(std::move(change));
  }
  references.mention(References::Kind::element, node.at("element"));
  return {node.at("element").utf8(), [changes](ElementFacts& facts) {
            for (const Change& change : changes) change(facts);
          }};
}

}  // namespace orvane::simulation
