#include "support/find.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace orvane::fuzzing {
namespace {

// Taken before the fuzzer closes the error stream of what it runs.
const int reportDescriptor = ::dup(STDERR_FILENO);

struct CaughtStream {
  char* text = nullptr;
  std::size_t size = 0;
  std::FILE* stream = ::open_memstream(&text, &size);
};

CaughtStream& caughtStream() {
  static auto& caught = *new CaughtStream;
  return caught;
}

void print(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(reportDescriptor, text.data(), text.size());
    if (count <= 0) {
      return;
    }
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace

std::string takeErrorText() {
  CaughtStream& caught = caughtStream();
  if (stderr != caught.stream) {
    stderr = caught.stream;
    return {};
  }
  std::fflush(caught.stream);
  std::string text(caught.text, caught.size);
  ::fseeko(caught.stream, 0, SEEK_SET);
  return text;
}

void reportFind(std::string_view what) {
  print("FIND: ");
  print(what);
  print("\n");
  std::abort();
}

}  // namespace orvane::fuzzing

// The simulation ends a run that did what Windows forbids, or what isn't modelled, with a status of
// its own and without a crash. Linked in front of the C library's function (--wrap), this makes one of
// it.
extern "C" [[noreturn]] void __real__Exit(int status);
extern "C" [[noreturn]] void __wrap__Exit(int status);

void __wrap__Exit(int status) {
  constexpr int stoppedStatus = 3;
  if (status == stoppedStatus) {
    orvane::fuzzing::reportFind(orvane::fuzzing::takeErrorText());
  }
  __real__Exit(status);
}
