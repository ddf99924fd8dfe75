#include "scenario/scenario_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "scenario/expect.h"
#include "scenario/readers.h"

namespace orvane::simulation {
namespace {

std::string placeOf(const std::string& json, std::size_t byte) {
  const auto end = json.begin() + static_cast<std::ptrdiff_t>(std::min(byte, json.size()));
  const auto line = 1 + std::count(json.begin(), end, '\n');
  return "line " + std::to_string(line);
}

// The parser's own words, without its prefix: "…: syntax error while parsing … - WORDS".
std::string wordsOf(const Json::parse_error& error) {
  const std::string whole = error.what();
  const std::size_t words = whole.find(" - ");
  return words == std::string::npos ? "is no JSON" : "is no JSON: " + whole.substr(words + 3);
}

// What is read of a file is walked as deep as it is nested.
constexpr int deepestNesting = 1000;

Json parse(const std::string& json) {
  const auto refuseDepth = [](int depth, Json::parse_event_t, const Json&) {
    if (depth > deepestNesting) throw ScenarioError("", "is nested too deep");
    return true;
  };
  try {
    return Json::parse(json, refuseDepth);
  } catch (const Json::parse_error& error) {
    throw ScenarioError(placeOf(json, error.byte), wordsOf(error));
  } catch (const Json::out_of_range&) {
    throw ScenarioError("", "holds a number that is too great");
  }
}

}  // namespace

Scenario readScenario(const std::string& json) {
  const Json file = parse(json);
  const Node root(file, "");
  root.requireKeys({"name", "arguments", "desktop", "steps", "expect"});
  Scenario scenario;
  References references;
  if (const auto name = root.find("name")) scenario.name = name->utf8();
  if (const auto arguments = root.find("arguments")) {
    for (const Node& argument : arguments->items()) scenario.arguments.push_back(argument.text());
  }
  if (const auto desktop = root.find("desktop")) scenario.desktop = readDesktop(*desktop, references);
  if (const auto steps = root.find("steps")) scenario.steps = readSteps(*steps, references);
  references.check();
  if (const auto expect = root.find("expect")) {
    checkExpectation(*expect);
    scenario.expect = expect->json();
  }
  return scenario;
}

Scenario readScenarioFile(const std::string& file) {
  if (std::filesystem::is_directory(file)) {
    throw ScenarioError("", std::make_error_code(std::errc::is_a_directory).message());
  }
  std::ifstream stream(file, std::ios::binary);
  const std::string json{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!stream.is_open() || stream.bad() || stream.fail()) {
    throw ScenarioError("", std::generic_category().message(errno == 0 ? EIO : errno));
  }
  Scenario scenario = readScenario(json);
  scenario.file = file;
  return scenario;
}

}  // namespace orvane::simulation
