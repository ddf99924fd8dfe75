#include "scenario/child_runs.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <system_error>
#include <utility>

namespace orvane::simulation {
namespace {

constexpr unsigned longestRunSeconds = 300;  // of real time: ends a run that hangs
constexpr int stoppedStatus = 3;             // of a run that the simulation stopped

[[noreturn]] void failSystemCall(const char* call) { throw std::system_error(errno, std::generic_category(), call); }

// A file in memory that a child writes and its parent reads.
class MemoryFile {
 public:
  explicit MemoryFile(const char* name) : descriptor_(::memfd_create(name, MFD_CLOEXEC)) {
    if (descriptor_ < 0) failSystemCall("memfd_create");
  }
  MemoryFile(MemoryFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  MemoryFile& operator=(MemoryFile&&) = delete;
  ~MemoryFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  int descriptor() const { return descriptor_; }

  std::string read() const {
    std::string text;
    char buffer[65536];
    while (true) {
      const ssize_t count = ::pread(descriptor_, buffer, sizeof buffer, static_cast<off_t>(text.size()));
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return text;
      text.append(buffer, static_cast<std::size_t>(count));
    }
  }

  void write(const std::string& text) const {
    for (std::size_t written = 0; written < text.size();) {
      const ssize_t count = ::write(descriptor_, text.data() + written, text.size() - written);
      if (count < 0 && errno != EINTR) failSystemCall("write");
      if (count > 0) written += static_cast<std::size_t>(count);
    }
  }

 private:
  int descriptor_;
};

struct Child {
  std::size_t index;
  MemoryFile report;
  MemoryFile errors;
};

void takeOverStreams(const MemoryFile& errors) {
  const int nowhere = ::open("/dev/null", O_WRONLY);
  if (nowhere < 0 || ::dup2(nowhere, STDOUT_FILENO) < 0 || ::dup2(errors.descriptor(), STDERR_FILENO) < 0) {
    std::_Exit(EXIT_FAILURE);
  }
  ::close(nowhere);
}

// By exit, so that checks of leaks and counts of coverage have their turn.
[[noreturn]] void runChild(const Child& child, const ReportMaker& make) {
  takeOverStreams(child.errors);
  ::alarm(longestRunSeconds);
  const auto readErrorText = [&child] {
    std::fflush(nullptr);
    return child.errors.read();
  };
  child.report.write(writeJson(make(child.index, readErrorText)));
  std::exit(EXIT_SUCCESS);
}

std::string withoutLineEnd(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text;
}

std::string describeEnd(int status, const std::string& errorText) {
  std::string how;
  if (WIFSIGNALED(status)) {
    const int signal = WTERMSIG(status);
    how = signal == SIGALRM ? "as it hung" : std::string("by a signal: ") + ::strsignal(signal);
  } else if (WEXITSTATUS(status) == stoppedStatus) {
    how = "as the simulation stopped it";
  } else {
    how = "with status " + std::to_string(WEXITSTATUS(status));
  }
  const std::string text = withoutLineEnd(errorText);
  if (text.empty()) return "the run ended " + how;
  const bool isOneLine = text.find('\n') == std::string::npos;
  return "the run ended " + how + (isOneLine ? ": " : ":\n") + text;
}

ChildRun resultOf(const Child& child, int status) {
  ChildRun run;
  const std::string report = child.report.read();
  run.hasEnded = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS && Json::accept(report);
  if (run.hasEnded) {
    run.report = Json::parse(report);
  } else {
    run.failure = describeEnd(status, child.errors.read());
  }
  return run;
}

class ChildRunner {
 public:
  explicit ChildRunner(const ReportMaker& make) : make_(make) {}

  std::size_t running() const { return children_.size(); }

  void start(std::size_t index) {
    Child child{index, MemoryFile("report"), MemoryFile("errors")};
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid < 0) failSystemCall("fork");
    if (pid == 0) runChild(child, make_);
    children_.emplace(pid, std::move(child));
  }

  std::pair<std::size_t, ChildRun> await() {
    while (true) {
      int status = 0;
      const pid_t pid = ::waitpid(-1, &status, 0);
      if (pid < 0 && errno != EINTR) failSystemCall("waitpid");
      const auto child = children_.find(pid);
      if (child == children_.end()) continue;
      std::pair<std::size_t, ChildRun> ended{child->second.index, resultOf(child->second, status)};
      children_.erase(child);
      return ended;
    }
  }

 private:
  const ReportMaker& make_;
  std::map<pid_t, Child> children_;
};

}  // namespace

void doChildRuns(std::size_t count, std::size_t jobs, const ReportMaker& make,
                 const std::function<void(std::size_t index, ChildRun run)>& take) {
  ChildRunner runner(make);
  std::map<std::size_t, ChildRun> ended;
  std::size_t nextStart = 0;
  for (std::size_t nextTake = 0; nextTake < count;) {
    while (nextStart < count && runner.running() < std::max<std::size_t>(jobs, 1)) runner.start(nextStart++);
    ended.insert(runner.await());
    for (auto next = ended.find(nextTake); next != ended.end(); next = ended.find(nextTake)) {
      take(nextTake++, std::move(next->second));
      ended.erase(next);
    }
  }
}

}  // namespace orvane::simulation
