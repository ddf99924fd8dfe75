#include <windows.h>

#include "flutter_windows/performance.h"

// The process's end is the last moment for a report when the host didn't end its engine.
BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
  auto* const performance = orvane::standins::performance();
  if (reason == DLL_PROCESS_DETACH && performance != nullptr) {
    performance->noteProblem("the host ended without ending its engine");
    performance->writeReport();
  }
  return TRUE;
}
