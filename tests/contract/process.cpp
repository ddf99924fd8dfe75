#include <windows.h>
// windows.h first: the next builds on it.
#include <objbase.h>

#include <cwchar>
#include <string>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

using Process = ContractTest;

DWORD WINAPI noteTime(void* place) {
  ::Sleep(30);
  *static_cast<ULONGLONG*>(place) = ::GetTickCount64();
  return 0;
}

DWORD ownProcessId() {
  const OwnClass windowClass(L"OrvaneContractProcess");
  const HWND window = windowClass.makeWindow();
  DWORD processId = 0;
  ::GetWindowThreadProcessId(window, &processId);
  ::DestroyWindow(window);
  return processId;
}

TEST_F(Process, Ticks_GoOn_WhileItSleeps) {
  const ULONGLONG before = ::GetTickCount64();
  ::Sleep(50);
  const ULONGLONG passed = ::GetTickCount64() - before;
  EXPECT_GE(passed, 30u);  // ticks move in steps of up to 16 ms
  EXPECT_LT(passed, 2000u);
}

TEST_F(Process, Counter_GoesOn_AtItsFrequency) {
  LARGE_INTEGER frequency{};
  LARGE_INTEGER before{};
  LARGE_INTEGER after{};
  ASSERT_NE(::QueryPerformanceFrequency(&frequency), FALSE);
  EXPECT_GT(frequency.QuadPart, 0);
  ASSERT_NE(::QueryPerformanceCounter(&before), FALSE);
  ::Sleep(100);
  ASSERT_NE(::QueryPerformanceCounter(&after), FALSE);
  const LONGLONG milliseconds = (after.QuadPart - before.QuadPart) * 1000 / frequency.QuadPart;
  EXPECT_GE(milliseconds, 90);
  EXPECT_LT(milliseconds, 2000);
}

TEST_F(Process, Thread_RunsBesideTheOneThatMadeIt) {
  ULONGLONG threadsTime = 0;
  DWORD threadId = 0;
  const ULONGLONG before = ::GetTickCount64();
  const HANDLE thread = ::CreateThread(nullptr, 0, noteTime, &threadsTime, 0, &threadId);
  ASSERT_NE(thread, nullptr);
  EXPECT_NE(::CloseHandle(thread), FALSE);
  EXPECT_NE(threadId, ::GetCurrentThreadId());
  EXPECT_EQ(threadsTime, 0u);
  ::Sleep(200);
  EXPECT_GE(threadsTime, before + 10);
}

TEST_F(Process, LastError_IsWhatWasSet) {
  ::SetLastError(1234);
  EXPECT_EQ(::GetLastError(), 1234u);
}

TEST_F(Process, Image_IsNamedByItsFullPath) {
  const OwnClass windowClass(L"OrvaneContractProcess");
  const HWND window = windowClass.makeWindow();
  DWORD processId = 0;
  EXPECT_EQ(::GetWindowThreadProcessId(window, &processId), ::GetCurrentThreadId());
  const HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId);
  ASSERT_NE(process, nullptr);
  wchar_t path[1040] = {};
  DWORD size = 1040;
  ASSERT_NE(::QueryFullProcessImageNameW(process, 0, path, &size), FALSE);
  EXPECT_EQ(size, std::wcslen(path));
  EXPECT_NE(std::wstring(path).find(L".exe"), std::wstring::npos);
  DWORD tooSmall = 3;
  EXPECT_EQ(::QueryFullProcessImageNameW(process, 0, path, &tooSmall), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
  EXPECT_NE(::CloseHandle(process), FALSE);
  ::DestroyWindow(window);
}

TEST_F(Process, OwnImage_IsNamedByItsModuleToo) {
  wchar_t path[0x8000] = {};
  const DWORD length = ::GetModuleFileNameW(nullptr, path, 0x8000);
  ASSERT_GT(length, 0u);
  EXPECT_EQ(length, std::wcslen(path));
  const HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, ownProcessId());
  ASSERT_NE(process, nullptr);
  wchar_t image[0x8000] = {};
  DWORD size = 0x8000;
  ASSERT_NE(::QueryFullProcessImageNameW(process, 0, image, &size), FALSE);
  EXPECT_EQ(std::wstring(path), std::wstring(image));
  EXPECT_NE(::CloseHandle(process), FALSE);
}

TEST_F(Process, OwnImage_IsCutToTheBuffer) {
  wchar_t path[4] = {L'x', L'x', L'x', L'x'};
  EXPECT_EQ(::GetModuleFileNameW(nullptr, path, 4), 4u);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
  EXPECT_EQ(std::wcslen(path), 3u);
}

TEST_F(Process, OpenProcess_Fails_WhenThereIsNone) {
  EXPECT_EQ(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, 0xFFFFFFFC), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Process, UserLibrary_HasTheFunctionForScaledFrames) {
  const HMODULE library = ::LoadLibraryA("User32.dll");
  ASSERT_NE(library, nullptr);
  EXPECT_NE(::GetProcAddress(library, "EnableNonClientDpiScaling"), nullptr);
  EXPECT_EQ(::GetProcAddress(library, "NoSuchFunctionAnywhere"), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
  EXPECT_NE(::FreeLibrary(library), FALSE);
  EXPECT_EQ(::LoadLibraryA("no_such_library_anywhere.dll"), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}

TEST_F(Process, Apartment_IsCountedByThread) {
  EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
  EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
  ::CoUninitialize();
  ::CoUninitialize();
  EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
  ::CoUninitialize();
}

TEST_F(Process, MulDiv_RoundsHalvesAwayFromZero) {
  EXPECT_EQ(::MulDiv(31, 144, 96), 47);
  EXPECT_EQ(::MulDiv(-31, 144, 96), -47);
  EXPECT_EQ(::MulDiv(150, 144, 96), 225);
  EXPECT_EQ(::MulDiv(1, 1, 0), -1);
}

}  // namespace
}  // namespace orvane::contract
