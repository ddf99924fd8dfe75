#include <cstdio>

#include "snapshot/command_line.h"
#include "snapshot/take_snapshot.h"

int wmain(int argumentCount, wchar_t** arguments) {
  using namespace orvane::snapshot;
  const Outcome outcome = takeSnapshot(readCommandLine({arguments + 1, arguments + argumentCount}));
  std::fwrite(outcome.told.data(), 1, outcome.told.size(), stdout);
  std::fwrite(outcome.complaint.data(), 1, outcome.complaint.size(), stderr);
  return outcome.exitStatus;
}
