#include <cstdint>
#include <optional>
#include <string>

#include "scenario/scenario_reader.h"
#include "support/find.h"
#include "support/input_text.h"

// Any text as a scenario file: a scenario, or an error on one line.
namespace orvane::fuzzing {
namespace {

using simulation::Scenario;
using simulation::ScenarioError;

struct Reading {
  std::optional<Scenario> scenario;
  std::string error;
};

Reading read(const std::string& text) {
  Reading reading;
  try {
    reading.scenario = simulation::readScenario(text);
  } catch (const ScenarioError& error) {
    reading.error = error.what();
  }
  return reading;
}

}  // namespace
}  // namespace orvane::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using orvane::fuzzing::require;
  const std::string text = orvane::fuzzing::textOf(data, size);
  const auto reading = orvane::fuzzing::read(text);
  if (!reading.scenario) {
    require(!reading.error.empty(), "an error says what is wrong");
    require(reading.error.find_first_of("\r\n") == std::string::npos, "an error is one line");
    require(orvane::fuzzing::read(text).error == reading.error, "the same text gives the same error");
    return 0;
  }
  require(!reading.scenario->desktop.monitors.empty(), "there is a monitor");
  return 0;
}
