#include "scenario/expect.h"

#include "scenario/pattern.h"

namespace orvane::simulation {
namespace {

constexpr std::size_t longestShown = 300;

bool isPattern(const Json& expected) {
  return expected.is_string() && expected.get_ref<const std::string&>().starts_with('~');
}

std::string patternOf(const Json& expected) { return expected.get<std::string>().substr(1); }

std::string shown(const Json& value) {
  const std::string text = writeJson(value);
  if (text.size() <= longestShown) return text;
  return validUtf8(std::string_view(text).substr(0, longestShown)) + "…";
}

// Objects that count by name have only the names that were counted.
bool countsByName(const std::string& path) { return path == "platformCalls" || path == "desktop.invoked"; }

class Comparison {
 public:
  void compare(const Json& expected, const Json& actual, const std::string& path) {
    if (expected.is_object() && actual.is_object()) return compareKeys(expected, actual, path);
    if (expected.is_array() && actual.is_array()) return compareItems(expected, actual, path);
    if (!holds(expected, actual)) report(path, "expected " + shown(expected) + ", came " + shown(actual));
  }

  std::vector<std::string> take() { return std::move(failures_); }

 private:
  // A double is no whole number, even where their values agree.
  static bool holds(const Json& expected, const Json& actual) {
    if (isPattern(expected)) {
      return actual.is_string() && isFound(patternOf(expected), actual.get_ref<const std::string&>());
    }
    return expected.is_number_float() == actual.is_number_float() && expected == actual;
  }

  void compareKeys(const Json& expected, const Json& actual, const std::string& path) {
    for (const auto& [key, value] : expected.items()) {
      const std::string place = path.empty() ? key : path + "." + key;
      if (actual.contains(key)) {
        compare(value, actual.at(key), place);
      } else if (!countsByName(path) || value != 0) {
        report(place, "expected " + shown(value) + ", came nothing");
      }
    }
  }

  void compareItems(const Json& expected, const Json& actual, const std::string& path) {
    if (expected.size() != actual.size()) {
      report(path, "expected " + std::to_string(expected.size()) + " items, came " + std::to_string(actual.size()) +
                       ": expected " + shown(expected) + ", came " + shown(actual));
      return;
    }
    for (std::size_t index = 0; index < expected.size(); ++index) {
      compare(expected[index], actual[index], path + "[" + std::to_string(index) + "]");
    }
  }

  void report(const std::string& path, const std::string& failure) { failures_.push_back(path + ": " + failure); }

  std::vector<std::string> failures_;
};

void checkPatterns(const Node& node) {
  const Json& json = node.json();
  if (json.is_object()) {
    for (const auto& [key, value] : node.members()) checkPatterns(value);
  } else if (json.is_array()) {
    for (const Node& item : node.items()) checkPatterns(item);
  } else if (isPattern(json) && !isRegularExpression(patternOf(json))) {
    node.fail("is no regular expression");
  }
}

}  // namespace

void checkExpectation(const Node& node) {
  if (!node.json().is_object()) node.fail("must be an object");
  checkPatterns(node);
}

std::vector<std::string> compareWithExpectation(const Json& expected, const Json& report) {
  Comparison comparison;
  comparison.compare(expected, report, "");
  return comparison.take();
}

}  // namespace orvane::simulation
