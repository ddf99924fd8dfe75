#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "page/page.h"
#include "page/page_file.h"
#include "scenario/child_runs.h"
#include "scenario/expect.h"
#include "scenario/person_printer.h"
#include "scenario/run_scenario.h"
#include "scenario/scenario_reader.h"
#include "version.h"

namespace orvane::simulation {
namespace {

constexpr int expectationFailed = 1;
constexpr int unusable = 2;  // a file, or the command line

struct Request {
  std::vector<std::string> files;
  bool json = false;
  bool list = false;
  std::optional<std::string> prompt;
  std::string report;  // empty: none is given
  std::optional<std::string> html;
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

// The page that was asked for, and the scenario that it shows.
class PageOfRun {
 public:
  explicit PageOfRun(const Request& request) : file_(*request.html), scenarioFile_(request.files.front()) {
    scenario_ = readScenarioText(scenarioFile_, request.prompt);
  }

  // After a line that says why when the page can't be written.
  bool canBeWritten() const {
    if (!file_.problem().empty()) complain(file_.path(), file_.problem());
    if (!scenario_) complain(scenarioFile_, "can't be read a second time, for the page");
    return file_.problem().empty() && scenario_;
  }

  bool write(const Json& report, const Json& record, const std::vector<std::string>& unmet) {
    Json data;
    data["file"] = validUtf8(std::filesystem::path(scenarioFile_).filename().string());
    data["scenario"] = *scenario_;
    data["report"] = report;
    data["record"] = record;
    data["unmet"] = unmet;
    if (file_.write(writePage(data))) return true;
    complain(file_.path(), file_.problem());
    return false;
  }

 private:
  PageFile file_;
  std::string scenarioFile_;
  std::optional<Json> scenario_;
};

class Runner {
 public:
  // `page` may be null: none is asked for.
  Runner(const Request& request, const std::vector<Scenario>& scenarios, PageOfRun* page)
      : request_(request), scenarios_(scenarios), page_(page) {}

  int run() {
    const std::size_t cores = std::thread::hardware_concurrency();
    doChildRuns(
        scenarios_.size(), request_.jobs == 0 ? cores : request_.jobs,
        [this](std::size_t index, const auto& readErrorText) {
          return page_ == nullptr ? runScenario(scenarios_[index], readErrorText)
                                  : runScenarioRecorded(scenarios_[index], readErrorText);
        },
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
    const Json& report = page_ == nullptr ? run.report : run.report.at("report");
    if (request_.json) {
      print(stdout, writeJson(report) + "\n");
    } else {
      print(stdout, (hasPrinted_ ? "\n\n" : "") + describeForPerson(scenario, report, isColored()));
    }
    hasPrinted_ = true;
    std::fflush(stdout);
    std::vector<std::string> unmet;
    if (scenario.expect) unmet = compareWithExpectation(*scenario.expect, report);
    for (const std::string& failure : unmet) fail(scenario, failure);
    if (page_ != nullptr && !page_->write(report, run.report.at("record"), unmet)) status_ = unusable;
  }

  void fail(const Scenario& scenario, const std::string& what) {
    complain(scenario.file, what);
    status_ = expectationFailed;
  }

  const Request& request_;
  const std::vector<Scenario>& scenarios_;
  PageOfRun* page_;
  bool hasPrinted_ = false;
  int status_ = EXIT_SUCCESS;
};

// Shows a run that was made elsewhere, such as by the real program.
int show(const Scenario& scenario, const std::string& reportFile, PageOfRun* page) {
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
  return page == nullptr || page->write(report, nullptr, {}) ? EXIT_SUCCESS : unusable;
}

int serve(const Request& request) {
  std::optional<std::vector<Scenario>> scenarios = readAll(request.files);
  if (!scenarios) return unusable;
  if (request.list) {
    for (const Scenario& scenario : *scenarios) print(stdout, scenario.file + "\t" + scenario.name + "\n");
    return EXIT_SUCCESS;
  }
  std::optional<PageOfRun> page;
  if (request.html) {
    page.emplace(request);
    if (!page->canBeWritten()) return unusable;
  }
  PageOfRun* const asked = page ? &*page : nullptr;
  if (!request.report.empty()) return show(scenarios->front(), request.report, asked);
  if (request.prompt) {
    for (Scenario& scenario : *scenarios) scenario.desktop.clipboard.setText(textFromUtf8(*request.prompt));
  }
  return Runner(request, *scenarios, asked).run();
}

// Options that say something about one run.
bool areForOneFile(const Request& request) {
  if (request.html && request.list) {
    complain("--html", "doesn't go with --list");
    return false;
  }
  if (request.files.size() == 1 || (request.report.empty() && !request.html)) return true;
  complain(request.html ? "--html" : "--report", "goes with one scenario file");
  return false;
}

int main(int argumentCount, char** arguments) {
  Request request;
  CLI::App app("Runs Orvane's host inside a simulated Windows and shows what it did.", "orvane-sim");
  app.set_version_flag("--version", "orvane-sim " ORVANE_VERSION_TEXT);
  app.add_option("FILE", request.files, "Scenario files, one or more")->type_name(" ");
  app.add_flag("--json", request.json, "Print one report per file, one line each, and nothing else");
  app.add_option("--prompt", request.prompt, "Text on the clipboard, in place of the scenario's");
  app.add_option("--html", request.html, "Write the one file's run as a page to OUT, too")->type_name("OUT");
  app.add_option("--report", request.report, "Show this report of the file's run for a person, and run nothing")
      ->type_name("REPORT");
  app.add_flag("--list", request.list, "Print each file's path and name, and run nothing");
  app.add_option("--jobs", request.jobs, "Scenarios that run at a time (default: one for each core)")->type_name("N");
  try {
    app.parse(argumentCount, arguments);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == EXIT_SUCCESS) return app.exit(error);
    complain("orvane-sim", std::string(error.what()) + " (see orvane-sim --help)");
    return unusable;
  }
  // Asked only here, so that an option that doesn't exist is told first.
  if (request.files.empty()) {
    complain("orvane-sim", "no scenario file is named (see orvane-sim --help)");
    return unusable;
  }
  return areForOneFile(request) ? serve(request) : unusable;
}

}  // namespace
}  // namespace orvane::simulation

int main(int argumentCount, char** arguments) { return orvane::simulation::main(argumentCount, arguments); }
