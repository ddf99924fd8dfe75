#include <limits>

#include "scenario/readers.h"

namespace orvane::simulation {
namespace {

constexpr int refusesAll = -1;

bool readSelection(const Node& node) {
  const std::string word = node.utf8();
  if (word != "pattern" && word != "none") node.fail("unknown word \"" + word + "\"");
  return word == "pattern";
}

std::optional<int> readForegroundRequests(const Node& node) {
  if (!node.isText()) return node.count();
  const std::string word = node.utf8();
  if (word != "granted" && word != "refused") node.fail("unknown word \"" + word + "\"");
  return word == "refused" ? std::optional(refusesAll) : std::nullopt;
}

void readFlag(const Node& node, std::string_view key, bool& value) {
  if (const auto flag = node.find(key)) value = flag->flag();
}

void readText(const Node& node, std::string_view key, Text& value) {
  if (const auto text = node.find(key)) value = text->text();
}

std::string readWindowId(const Node& node, References& references) {
  std::string id = node.nonEmptyText();
  if (id == "main" || id == "backdrop") node.fail("\"" + id + "\" names a window of the host");
  if (references.isDeclared(References::Kind::window, id)) node.fail("a window \"" + id + "\" stands there already");
  references.declare(References::Kind::window, id);
  return id;
}

void readProcess(const Node& node, WindowPlan& plan) {
  if (const auto process = node.find("process")) plan.process = process->nonEmptyText();
  if (const auto pid = node.find("pid")) {
    plan.pid = static_cast<std::uint32_t>(pid->whole(1, std::numeric_limits<std::uint32_t>::max()));
  }
  if (const auto path = node.find("path")) plan.path = path->text();
}

void readState(const Node& node, WindowPlan& plan) {
  readText(node, "class", plan.className);
  if (const auto title = node.find("title")) plan.title = title->text();
  if (const auto bounds = node.find("bounds")) plan.bounds = bounds->bounds();
  readFlag(node, "visible", plan.visible);
  readFlag(node, "minimized", plan.minimized);
  readFlag(node, "topmost", plan.topmost);
  readFlag(node, "cleanBackground", plan.cleanBackground);
  readFlag(node, "uia", plan.uia);
  if (const auto requests = node.find("foregroundRequests")) {
    plan.refusedForegroundRequests = readForegroundRequests(*requests);
  }
}

std::vector<TabPlan> readTabs(const Node& node, const std::set<std::string>& ids, References& references) {
  std::vector<TabPlan> tabs;
  bool hasSelected = false;
  for (const Node& item : node.items()) {
    tabs.push_back(readTab(item, ids, references));
    if (!tabs.back().selected) continue;
    if (hasSelected) item.at("selected").fail("another tab of the window is selected");
    hasSelected = true;
  }
  return tabs;
}

void readAddressBar(const Node& node, WindowPlan& plan, std::set<std::string>& ids, References& references) {
  const auto bar = node.find("addressBar");
  plan.hasAddressBar = !bar || !bar->isNull();
  if (bar && plan.hasAddressBar) plan.addressBar = readElement(*bar, ids, references);
  if (!bar) references.declare(References::Kind::element, "addressBar");
}

void readTree(const Node& node, WindowPlan& plan, References& references) {
  std::set<std::string> ids;
  const auto tabs = node.find("tabs");
  if (!tabs) {
    const auto bar = node.find("addressBar");
    if (bar && !bar->isNull()) bar->fail("only a window with tabs has one");
    if (const auto elements = node.find("elements")) plan.elements = readElements(*elements, ids, references);
    return;
  }
  if (node.has("elements")) node.at("elements").fail("a window with tabs has pages instead");
  readAddressBar(node, plan, ids, references);
  plan.tabs = readTabs(*tabs, ids, references);
}

}  // namespace

TabPlan readTab(const Node& node, const std::set<std::string>& ids, References& references) {
  node.requireKeys(
      {"title", "automationId", "className", "frameworkId", "address", "selected", "selection", "page", "rules"});
  TabPlan tab;
  readText(node, "title", tab.title);
  references.declare(References::Kind::tab, utf8FromText(tab.title));
  readText(node, "automationId", tab.automationId);
  readText(node, "className", tab.className);
  readText(node, "frameworkId", tab.frameworkId);
  readText(node, "address", tab.address);
  readFlag(node, "selected", tab.selected);
  if (const auto selection = node.find("selection")) tab.hasSelectionItemPattern = readSelection(*selection);
  std::set<std::string> treeIds = ids;
  if (const auto page = node.find("page")) tab.page = readElements(*page, treeIds, references);
  if (const auto rules = node.find("rules")) tab.rules = readRules(*rules, references);
  return tab;
}

WindowPlan readWindow(const Node& node, References& references) {
  node.requireKeys({"id", "process", "pid", "path", "class", "title", "bounds", "visible", "minimized", "topmost",
                    "cleanBackground", "foregroundRequests", "uia", "addressBar", "tabs", "elements", "rules"});
  WindowPlan plan;
  plan.id = readWindowId(node.at("id"), references);
  plan.process = "program.exe";
  readProcess(node, plan);
  readState(node, plan);
  readTree(node, plan, references);
  if (const auto rules = node.find("rules")) plan.rules = readRules(*rules, references);
  return plan;
}

}  // namespace orvane::simulation
