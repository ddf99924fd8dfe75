// Feeds the files, and those of the folders, that the command line names; --seconds N feeds changed ones
// for so long, --mutation N the one of that number.
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "support/mutations.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
// The sanitizers' last word, where they are linked.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace orvane::fuzzing {
namespace {

namespace fs = std::filesystem;
using SteadyClock = std::chrono::steady_clock;

const int reportDescriptor = ::dup(STDERR_FILENO);
// What the present input is called, for whoever looks for the one of a crash.
std::string& presentName() {
  static auto& name = *new std::string;
  return name;
}

void tellPresentName() {
  const std::string line = "with " + presentName() + "\n";
  [[maybe_unused]] const ssize_t written = ::write(reportDescriptor, line.data(), line.size());
}

void endBySignal(int number) {
  tellPresentName();
  std::signal(number, SIG_DFL);
  std::raise(number);
}

void tellOnCrash() {
  if (__sanitizer_set_death_callback != nullptr) {
    __sanitizer_set_death_callback(tellPresentName);
  }
  // An abort is a find of our own; the sanitizers leave it alone.
  std::signal(SIGABRT, endBySignal);
  if (__sanitizer_set_death_callback == nullptr) {
    std::signal(SIGSEGV, endBySignal);
  }
}

std::set<fs::path> filesBelow(const fs::path& place) {
  if (!fs::is_directory(place)) {
    return {place};
  }
  std::set<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(place)) {
    if (entry.is_regular_file()) {
      files.insert(entry.path());
    }
  }
  return files;
}

// nullopt when it can't be read.
std::optional<InputBytes> read(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!stream.is_open() || stream.bad()) {
    return std::nullopt;
  }
  return InputBytes(bytes.begin(), bytes.end());
}

void feed(const InputBytes& given, const std::string& name) {
  presentName() = name;
  // A block of just this size, so that a read behind its end is seen.
  const InputBytes input(given.begin(), given.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
}

void feedMutation(const std::vector<InputBytes>& corpus, std::uint32_t number) {
  feed(mutationOf(corpus, number), "--mutation " + std::to_string(number));
}

struct Request {
  std::vector<std::string> places;
  std::optional<std::uint32_t> mutation;
  int seconds = 0;
};

// nullopt for what can't be read as one.
std::optional<Request> readRequest(const std::vector<std::string>& words) {
  Request request;
  for (std::size_t index = 0; index < words.size(); ++index) {
    const bool isNumber = words[index] == "--seconds" || words[index] == "--mutation";
    if (!isNumber) {
      request.places.push_back(words[index]);
      continue;
    }
    if (index + 1 == words.size() || words[index + 1].find_first_not_of("0123456789") != std::string::npos) {
      return std::nullopt;
    }
    const unsigned long number = std::strtoul(words[index + 1].c_str(), nullptr, 10);
    if (words[index] == "--seconds") {
      request.seconds = static_cast<int>(number);
    } else {
      request.mutation = static_cast<std::uint32_t>(number);
    }
    ++index;
  }
  return request;
}

int run(const Request& request) {
  std::vector<InputBytes> corpus;
  std::vector<std::string> names;
  for (const std::string& place : request.places) {
    for (const fs::path& file : filesBelow(place)) {
      const std::optional<InputBytes> input = read(file);
      if (!input) {
        std::fprintf(stderr, "%s: can't be read\n", file.c_str());
        return EXIT_FAILURE;
      }
      corpus.push_back(*input);
      names.push_back(file.string());
    }
  }
  if (corpus.empty()) {
    std::fputs("no input\n", stderr);
    return EXIT_FAILURE;
  }
  tellOnCrash();
  if (request.mutation) {
    feedMutation(corpus, *request.mutation);
    return EXIT_SUCCESS;
  }
  for (std::size_t index = 0; index < corpus.size(); ++index) {
    feed(corpus[index], names[index]);
  }
  std::uint32_t mutations = 0;
  const auto end = SteadyClock::now() + std::chrono::seconds(request.seconds);
  while (SteadyClock::now() < end) {
    feedMutation(corpus, mutations++);
  }
  std::printf("%zu inputs replayed, %u mutations\n", corpus.size(), mutations);
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace orvane::fuzzing

int main(int argumentCount, char** arguments) {
  const auto request = orvane::fuzzing::readRequest({arguments + 1, arguments + argumentCount});
  if (!request) {
    std::fputs("--seconds and --mutation want a number\n", stderr);
    return EXIT_FAILURE;
  }
  return orvane::fuzzing::run(*request);
}
