#include "browser/automation_answers.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace orvane::standins {
namespace {

using simulation::Desktop;
using simulation::Element;
using simulation::ElementFacts;
using simulation::Fact;
using simulation::Text;
using simulation::Window;

constexpr std::uint32_t unspecifiedFailure = 0x80004005;
constexpr std::uint32_t elementNotAvailable = 0x80040201;
constexpr std::uint32_t notSupported = 0x80040204;

constexpr int invokePattern = 10000;
constexpr int valuePattern = 10002;
constexpr int selectionItemPattern = 10010;
constexpr int legacyPattern = 10018;

Json failure(std::uint32_t result) { return {{"hresult", result}}; }

Json textOrNull(const std::optional<Text>& text) {
  return text ? Json(simulation::utf8FromText(*text)) : Json(nullptr);
}

Json textOf(const Text& text) { return simulation::utf8FromText(text); }

struct FactReader {
  std::string_view name;
  std::optional<Fact> fact;  // whose read may fail; nullopt: always readable
  Json (*read)(const ElementFacts& facts);
};

constexpr std::array<FactReader, 14> factReaders{{
    {"name", Fact::name, [](const ElementFacts& facts) { return textOrNull(facts.name); }},
    {"automationId", Fact::automationId, [](const ElementFacts& facts) { return textOf(facts.automationId); }},
    {"className", Fact::className, [](const ElementFacts& facts) { return textOf(facts.className); }},
    {"frameworkId", Fact::frameworkId, [](const ElementFacts& facts) { return textOf(facts.frameworkId); }},
    {"controlType", Fact::controlType, [](const ElementFacts& facts) { return Json(facts.controlType); }},
    {"bounds", Fact::bounds,
     [](const ElementFacts& facts) {
       return Json{facts.bounds.left, facts.bounds.top, facts.bounds.right, facts.bounds.bottom};
     }},
    {"enabled", Fact::enabled, [](const ElementFacts& facts) { return Json(facts.enabled); }},
    {"offscreen", Fact::offscreen, [](const ElementFacts& facts) { return Json(facts.offscreen); }},
    {"focusable", Fact::focusable, [](const ElementFacts& facts) { return Json(facts.focusable); }},
    {"password", Fact::password, [](const ElementFacts& facts) { return Json(facts.password); }},
    {"value", Fact::value, [](const ElementFacts& facts) { return textOrNull(facts.value); }},
    // As a property the value is there, empty, where its string is null.
    {"valueProperty", Fact::value,
     [](const ElementFacts& facts) {
       return facts.hasValuePattern ? textOf(facts.value.value_or(Text{})) : Json(nullptr);
     }},
    {"helpText", std::nullopt, [](const ElementFacts& facts) { return textOf(facts.helpText); }},
    {"legacyValue", std::nullopt, [](const ElementFacts& facts) { return textOf(facts.legacyValue); }},
}};

std::size_t numberOf(const Desktop& desktop, const Element& wanted) {
  const auto& elements = desktop.allElements();
  const auto found = std::find_if(elements.rbegin(), elements.rend(),
                                  [&wanted](const auto& element) { return element.get() == &wanted; });
  return static_cast<std::size_t>(elements.rend() - found) - 1;
}

Element& elementOf(const Desktop& desktop, const Json& request) {
  return *desktop.allElements().at(request.at("element").get<std::size_t>());
}

Json answerRoot(World& world, const Json& request) {
  const auto id = request.at("window").get<std::string>();
  const Window* window = world.desktop().windowById(id);
  const bool shows = window != nullptr && world.owns(*window) && window->uia;
  return shows ? Json{{"element", numberOf(world.desktop(), *window->root)}} : failure(elementNotAvailable);
}

Json answerFocused(World& world, const Json&) {
  const Element* focused = world.desktop().focusedElement();
  return {{"element", focused == nullptr ? Json(nullptr) : Json(numberOf(world.desktop(), *focused))}};
}

Json answerFind(World& world, const Json& request) {
  const Desktop& desktop = world.desktop();
  const Element& from = elementOf(desktop, request);
  if (!desktop.isAvailable(from)) return failure(elementNotAvailable);
  const Json& types = request.at("types");
  const auto isWanted = [&](const Element& element) {
    return types.is_null() ||
           std::find(types.begin(), types.end(), desktop.factsOf(element).controlType) != types.end();
  };
  Json found = Json::array();
  for (const Element* each : desktop.descendants(from)) {
    if (isWanted(*each)) found.push_back(numberOf(desktop, *each));
  }
  return {{"elements", std::move(found)}};
}

Json readFact(const Desktop& desktop, const Element& element, const std::string& name) {
  if (name == "selected") return {{"value", desktop.isSelected(element)}};
  const auto reader = std::find_if(factReaders.begin(), factReaders.end(),
                                   [&name](const FactReader& entry) { return entry.name == name; });
  if (reader == factReaders.end()) throw std::runtime_error("no fact is named \"" + name + "\"");
  const ElementFacts facts = desktop.factsOf(element);
  if (name == "value" && !facts.hasValuePattern) return failure(notSupported);
  if (reader->fact && facts.unreadable.contains(*reader->fact)) return failure(unspecifiedFailure);
  return {{"value", reader->read(facts)}};
}

Json answerRead(World& world, const Json& request) {
  Desktop& desktop = world.desktop();
  Element& element = elementOf(desktop, request);
  if (!desktop.isAvailable(element)) return failure(elementNotAvailable);
  Json answer = readFact(desktop, element, request.at("fact").get<std::string>());
  if (answer.contains("value")) desktop.factWasRead(element);
  return answer;
}

bool hasPattern(const ElementFacts& facts, int pattern) {
  switch (pattern) {
    case invokePattern:
      return facts.invoke.has_value();
    case valuePattern:
      return facts.hasValuePattern;
    case selectionItemPattern:
      return facts.hasSelectionItemPattern;
    case legacyPattern:
      return facts.defaultAction.has_value();
    default:
      return false;
  }
}

Json answerPattern(World& world, const Json& request) {
  const Desktop& desktop = world.desktop();
  const Element& element = elementOf(desktop, request);
  if (!desktop.isAvailable(element)) return failure(elementNotAvailable);
  return {{"available", hasPattern(desktop.factsOf(element), request.at("pattern").get<int>())}};
}

Json answerDefaultAction(World& world, const Json& request) {
  const Desktop& desktop = world.desktop();
  const Element& element = elementOf(desktop, request);
  if (!desktop.isAvailable(element)) return failure(elementNotAvailable);
  return failure(desktop.factsOf(element).defaultAction.value_or(notSupported));
}

template <std::uint32_t (Desktop::*Act)(Element&)>
Json answerAct(World& world, const Json& request) {
  return {{"hresult", (world.desktop().*Act)(elementOf(world.desktop(), request))}};
}

Json answerSetValue(World& world, const Json& request) {
  const Text value = simulation::textFromUtf8(request.at("value").get<std::string>());
  return {{"hresult", world.desktop().setValue(elementOf(world.desktop(), request), value)}};
}

struct Question {
  std::string_view op;
  Json (*answer)(World& world, const Json& request);
};

constexpr std::array<Question, 10> questions{{
    {"root", answerRoot},
    {"focused", answerFocused},
    {"find", answerFind},
    {"read", answerRead},
    {"pattern", answerPattern},
    {"invoke", answerAct<&Desktop::invoke>},
    {"select", answerAct<&Desktop::select>},
    {"setFocus", answerAct<&Desktop::setFocus>},
    {"defaultAction", answerDefaultAction},
    {"setValue", answerSetValue},
}};

}  // namespace

Json answerAutomation(World& world, const Json& request) {
  const std::string op = request.at("op").get<std::string>();
  const auto question =
      std::find_if(questions.begin(), questions.end(), [&op](const Question& entry) { return entry.op == op; });
  return question == questions.end() ? Json(nullptr) : question->answer(world, request);
}

}  // namespace orvane::standins
