#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "scenario/child_runs.h"
#include "scenario/expect.h"
#include "scenario/person_printer.h"
#include "scenario/run_scenario.h"
#include "scenario/scenario_reader.h"

namespace orvane::simulation {
namespace {

constexpr int expectationFailed = 1;
constexpr int unusable = 2;  // a file, or the command line

struct Request {
  std::vector<std::string> files;
  bool json = false;
  bool list = false;
  std::optional<std::string> prompt;
  std::string report;    // empty: none is given
  std::size_t jobs = 0;  // 0: one for each core
};

void print(std::FILE* stream, const std::string& text) { std::fwrite(text.data(), 1, text.size(), stream); }

void complain(const std::string& file, const std::string& what) { print(stderr, file + ": " + what + "\n"); }

// All of them, or nullopt after a line for each that can't be used.
std::optional<std::vector<Scenario>> readAll(const std::vector<std::string>& files) {
  std::vector<Scenario> scenarios;
  for (const std::string& file : files) {
    try {
      scenarios.push_back(readScenarioFile(file));
    } catch (const ScenarioError& error) {
      complain(file, error.what());
    }
  }
  if (scenarios.size() != files.size()) return std::nullopt;
  return scenarios;
}

bool isColored() { return ::isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr; }

class Runner {
 public:
  Runner(const Request& request, const std::vector<Scenario>& scenarios) : request_(request), scenarios_(scenarios) {}

  int run() {
    const std::size_t cores = std::thread::hardware_concurrency();
    doChildRuns(
        scenarios_.size(), request_.jobs == 0 ? cores : request_.jobs,
        [this](std::size_t index, const auto& readErrorText) { return runScenario(scenarios_[index], readErrorText); },
        [this](std::size_t index, const ChildRun& run) { take(index, run); });
    return status_;
  }

 private:
  void take(std::size_t index, const ChildRun& run) {
    const Scenario& scenario = scenarios_[index];
    if (!run.hasEnded) {
      fail(scenario, run.failure);
      return;
    }
    if (request_.json) {
      print(stdout, writeJson(run.report) + "\n");
    } else {
      print(stdout, (hasPrinted_ ? "\n\n" : "") + describeForPerson(scenario, run.report, isColored()));
    }
    hasPrinted_ = true;
    std::fflush(stdout);
    if (!scenario.expect) return;
    for (const std::string& failure : compareWithExpectation(*scenario.expect, run.report)) fail(scenario, failure);
  }

  void fail(const Scenario& scenario, const std::string& what) {
    complain(scenario.file, what);
    status_ = expectationFailed;
  }

  const Request& request_;
  const std::vector<Scenario>& scenarios_;
  bool hasPrinted_ = false;
  int status_ = EXIT_SUCCESS;
};

// Shows a run that was made elsewhere, such as by the real program.
int show(const Scenario& scenario, const std::string& reportFile) {
  std::ifstream stream(reportFile, std::ios::binary);
  const Json report = Json::parse(stream, nullptr, false);
  if (!report.is_object()) {
    complain(reportFile, "is no report");
    return unusable;
  }
  try {
    print(stdout, describeForPerson(scenario, report, isColored()));
  } catch (const Json::exception& error) {
    complain(reportFile, error.what());
    return unusable;
  }
  return EXIT_SUCCESS;
}

int serve(const Request& request) {
  std::optional<std::vector<Scenario>> scenarios = readAll(request.files);
  if (!scenarios) return unusable;
  if (request.list) {
    for (const Scenario& scenario : *scenarios) print(stdout, scenario.file + "\t" + scenario.name + "\n");
    return EXIT_SUCCESS;
  }
  if (!request.report.empty()) return show(scenarios->front(), request.report);
  if (request.prompt) {
    for (Scenario& scenario : *scenarios) scenario.desktop.clipboard.setText(textFromUtf8(*request.prompt));
  }
  return Runner(request, *scenarios).run();
}

int main(int argumentCount, char** arguments) {
  Request request;
  CLI::App app("Runs Orvane's host inside a simulated Windows and shows what it did.", "orvane-sim");
  app.add_option("FILE", request.files, "Scenario files")->required();
  app.add_flag("--json", request.json, "Print one report per file, one line each, and nothing else");
  app.add_option("--prompt", request.prompt, "Text on the clipboard, in place of the scenario's");
  app.add_option("--report", request.report, "Show this report of the file's run for a person, and run nothing");
  app.add_flag("--list", request.list, "Print each file's path and name, and run nothing");
  app.add_option("--jobs", request.jobs, "Scenarios that run at a time (default: one for each core)");
  try {
    app.parse(argumentCount, arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == EXIT_SUCCESS ? EXIT_SUCCESS : unusable;
  }
  if (!request.report.empty() && request.files.size() != 1) {
    complain("--report", "goes with one scenario file");
    return unusable;
  }
  return serve(request);
}

}  // namespace
}  // namespace orvane::simulation

int main(int argumentCount, char** arguments) { return orvane::simulation::main(argumentCount, arguments); }
