#include <windows.h>

#include <algorithm>

#include "windows/call.h"
#include "windows/state.h"
#include "windows/wide_text.h"

using namespace orvane::simulation;

namespace {

constexpr std::string_view threadHandles = "threadHandles";

std::string_view heldKind(const KernelObject& object) {
  return object.isProcess ? held_kind::processHandles : threadHandles;
}

HANDLE openObject(PlatformState& state, KernelObject object) {
  const auto handle = reinterpret_cast<HANDLE>(state.nextKernelHandle);
  state.nextKernelHandle += 4;
  holdNow(heldKind(object), 1);
  state.kernelObjects.emplace(handle, std::move(object));
  return handle;
}

const Window* windowOfProcess(PlatformState& state, DWORD processId) {
  const auto& windows = state.desktop.allWindows();
  const auto found = std::find_if(windows.begin(), windows.end(), [processId](const auto& window) {
    return window->pid == processId && !window->destroyed;
  });
  return found == windows.end() ? nullptr : found->get();
}

}  // namespace

HANDLE CreateThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T, LPTHREAD_START_ROUTINE start, LPVOID parameter,
                    DWORD flags, LPDWORD threadId) {
  PlatformState& state = stateFor("CreateThread");
  if (const auto fault = enter("CreateThread")) return faulted<HANDLE>(*fault);
  if (attributes != nullptr || flags != 0) stopRun("CreateThread", "attributes and flags aren't modelled");
  ++state.runningThreads;
  const int ordinal = state.desktop.clock().startThread([&state, start, parameter] {
    start(parameter);
    --state.runningThreads;
  });
  if (threadId != nullptr) *threadId = threadIdOf(ordinal);
  return openObject(state, {});
}

DWORD GetCurrentThreadId() {
  if (const auto fault = enter("GetCurrentThreadId")) return faulted<DWORD>(*fault);
  return threadIdOf(Clock::currentThread());
}

HANDLE OpenProcess(DWORD access, BOOL inherits, DWORD processId) {
  PlatformState& state = stateFor("OpenProcess");
  const Window* const window = windowOfProcess(state, processId);
  if (const auto fault = enter("OpenProcess", window)) return faulted<HANDLE>(*fault);
  if (access != PROCESS_QUERY_LIMITED_INFORMATION || inherits != FALSE) {
    stopRun("OpenProcess", "access other than PROCESS_QUERY_LIMITED_INFORMATION isn't modelled");
  }
  if (processId == hostProcessId) return openObject(state, {true, Text(hostImagePath), window});
  if (window == nullptr) return failWith<HANDLE>(ERROR_INVALID_PARAMETER);
  return openObject(state, {true, window->path, window});
}

BOOL QueryFullProcessImageNameW(HANDLE process, DWORD flags, LPWSTR path, LPDWORD size) {
  PlatformState& state = stateFor("QueryFullProcessImageNameW");
  const auto found = state.kernelObjects.find(process);
  const Window* const window = found == state.kernelObjects.end() ? nullptr : found->second.window;
  if (const auto fault = enter("QueryFullProcessImageNameW", window)) return faulted<BOOL>(*fault);
  if (flags != 0) stopRun("QueryFullProcessImageNameW", "an unknown flag");
  if (found == state.kernelObjects.end() || !found->second.isProcess) return failWith(ERROR_INVALID_HANDLE, FALSE);
  const std::wstring image = wideFromText(found->second.imagePath);
  if (*size < image.size() + 1) return failWith(ERROR_INSUFFICIENT_BUFFER, FALSE);
  *std::copy(image.begin(), image.end(), path) = L'\0';
  *size = static_cast<DWORD>(image.size());
  return TRUE;
}

BOOL CloseHandle(HANDLE handle) {
  PlatformState& state = stateFor("CloseHandle");
  if (const auto fault = enter("CloseHandle")) return faulted<BOOL>(*fault);
  const auto found = state.kernelObjects.find(handle);
  if (found == state.kernelObjects.end()) stopRun("CloseHandle", "a handle that isn't open");
  holdNow(heldKind(found->second), -1);
  state.kernelObjects.erase(found);
  return TRUE;
}
