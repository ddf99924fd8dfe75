// long_life SCENARIO ROUNDS: the scenario's steps, so many times over, in one process of the host.
// Prints a JSON object a line: the first rounds' replies, a measure after each twentieth of the rounds, the report of
// the last round. Round 1 is the first use, every later one must answer as round 2 did; the exit
// status is 1 when one didn't, 2 when the scenario can't be used.
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "scenario/build_desktop.h"
#include "scenario/report.h"
#include "scenario/scenario_reader.h"
#include "scenario/scripted_interface.h"
#include "windows/com.h"
#include "windows/state.h"

namespace orvane::simulation {
namespace {

constexpr int differs = 1;
constexpr int unusable = 2;
constexpr int firstUse = 1;
constexpr int measuresWanted = 20;

void printLine(const Json& line) {
  const std::string text = line.dump() + "\n";
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

std::int64_t residentKb() {
  std::ifstream stream("/proc/self/statm");
  std::int64_t pages = 0;
  std::int64_t residentPages = 0;
  stream >> pages >> residentPages;
  return residentPages * ::sysconf(_SC_PAGESIZE) / 1024;
}

std::size_t openFiles() {
  std::size_t count = 0;
  for (int descriptor = 0; descriptor < ::sysconf(_SC_OPEN_MAX) && descriptor < 1024; ++descriptor) {
    count += ::lseek(descriptor, 0, SEEK_CUR) != -1 || errno == ESPIPE ? 1U : 0U;
  }
  return count;
}

// A reply without what a later round can't share with an earlier one: the time of day, the number of
// the search and of the clipboard's change.
Json comparable(Json reply) {
  const std::int64_t startMs = reply.at("startMs");
  reply["tookMs"] = reply.at("endMs").get<std::int64_t>() - startMs;
  for (const char* const key : {"startMs", "endMs", "replyHex"}) reply.erase(key);
  if (reply.contains("stepMs")) {
    for (Json& ms : reply["stepMs"]) ms = ms.get<std::int64_t>() - startMs;
  }
  Json& value = reply["value"];
  if (value.is_object() && value.contains("sequence")) value.erase("sequence");
  if (value.is_object() && value.contains("logs") && value.at("logs").is_array()) {
    for (Json& step : value["logs"]) {
      if (step.at("step") == "Search ID") step["result"] = "";
    }
  }
  return reply;
}

Json comparable(const ScriptedInterface& round) {
  Json replies = Json::array();
  for (const Json& reply : round.replies()) replies.push_back(comparable(reply));
  return replies;
}

// One scripted interface after another in front of one host.
class LongLife : public InterfaceScript {
 public:
  LongLife(const Scenario& scenario, int rounds)
      : scenario_(scenario),
        rounds_(rounds),
        desktop_(*new Clock, books_),
        platform_(desktop_, this, scenario.arguments) {
    buildDesktop(desktop_, scenario.desktop);
    beginRound();
  }

  int run() {
    const int exitCode = platform_.run();
    Json report = describeRun(scenario_, exitCode, *script_, platform_, "");
    report["rounds"] = round_;
    report["differing"] = differing_;
    printLine({{"last", std::move(report)}});
    return differing_ == 0 ? EXIT_SUCCESS : differs;
  }

  bool performStep() override {
    if (script_->performStep()) return true;
    endRound();
    if (round_ == rounds_) return false;
    beginRound();
    return true;
  }

  void stepsDone() override { script_->stepsDone(); }

  std::optional<Bytes> messageFromHost(const std::string& channel, const Bytes& message) override {
    return script_->messageFromHost(channel, message);
  }

 private:
  void beginRound() {
    ++round_;
    script_ = std::make_unique<ScriptedInterface>(scenario_, desktop_);
    script_->attach(platform_);
  }

  void endRound() {
    calls_ += static_cast<std::int64_t>(script_->replies().size());
    Json replies = comparable(*script_);
    if (round_ <= firstUse + 1) printLine({{"round", round_}, {"replies", script_->replies()}});
    if (round_ == firstUse + 1)
      expected_ = std::move(replies);
    else if (round_ > firstUse + 1)
      compare(replies);
    if (round_ == rounds_) return;
    forgetRound();
    if (round_ == firstUse || round_ * measuresWanted / rounds_ != (round_ - 1) * measuresWanted / rounds_) measure();
  }

  void compare(const Json& replies) {
    if (replies == expected_) return;
    ++differing_;
    if (differing_ > 1) return;
    for (std::size_t i = 0; i < std::min(replies.size(), expected_.size()); ++i) {
      if (replies[i] != expected_[i]) printLine({{"differsIn", round_}, {"first", expected_[i]}, {"now", replies[i]}});
    }
  }

  // What the model keeps for its report, and of objects that have gone, grows with every call; what is
  // left to measure is what the host and a desktop at rest take.
  void forgetRound() {
    desktop_.forgetKeyEvents();
    PlatformRecords& records = platform_.records();
    records.shell.clear();
    records.attributes.clear();
    records.posted.clear();
    records.painted.clear();
    currentState()->engines.forgetAnswered();
    std::erase_if(currentState()->comObjects, [](const auto& object) { return !object->isAlive(); });
  }

  void measure() {
    Json held = Json::object();
    for (const auto& [kind, count] : books_.held()) {
      if (count != 0) held[kind] = count;
    }
    printLine({{"round", round_},
               {"calls", calls_},
               {"residentKb", residentKb()},
               {"inUseBytes", ::mallinfo2().uordblks},
               {"openFiles", openFiles()},
               {"virtualMs", desktop_.clock().nowMs()},
               {"held", std::move(held)}});
  }

  const Scenario& scenario_;
  const int rounds_;
  Books books_;
  Desktop desktop_;
  Platform platform_;
  std::unique_ptr<ScriptedInterface> script_;
  Json expected_;
  int round_ = 0;
  int differing_ = 0;
  std::int64_t calls_ = 0;
};

int main(int argumentCount, char** arguments) {
  const int rounds = argumentCount == 3 ? std::atoi(arguments[2]) : 0;
  if (rounds <= firstUse) {
    std::fputs("usage: orvane_long_life SCENARIO ROUNDS   (at least 2 rounds)\n", stderr);
    return unusable;
  }
  try {
    // Threads of the host may still stand in it when the process ends.
    static const Scenario& scenario = *new Scenario(readScenarioFile(arguments[1]));
    static LongLife& life = *new LongLife(scenario, rounds);
    return life.run();
  } catch (const ScenarioError& error) {
    std::fprintf(stderr, "%s: %s\n", arguments[1], error.what());
    return unusable;
  }
}

}  // namespace
}  // namespace orvane::simulation

int main(int argumentCount, char** arguments) { return orvane::simulation::main(argumentCount, arguments); }
