#pragma once

#include <minwindef.h>

#define CP_UTF8 65001
#define MB_ERR_INVALID_CHARS 0x00000008
#define WC_ERR_INVALID_CHARS 0x00000080

#define ATTACH_PARENT_PROCESS ((DWORD)-1)
#define PROCESS_QUERY_LIMITED_INFORMATION 0x1000
#define GMEM_MOVEABLE 0x0002

typedef struct _SECURITY_ATTRIBUTES {
  DWORD nLength;
  LPVOID lpSecurityDescriptor;
  BOOL bInheritHandle;
} SECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;

typedef DWORD(WINAPI* LPTHREAD_START_ROUTINE)(LPVOID parameter);

extern "C" {

BOOL WINAPI AttachConsole(DWORD processId);
BOOL WINAPI AllocConsole(void);
BOOL WINAPI IsDebuggerPresent(void);

LPWSTR WINAPI GetCommandLineW(void);
HLOCAL WINAPI LocalFree(HLOCAL block);
HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T sizeBytes);
HGLOBAL WINAPI GlobalFree(HGLOBAL block);
SIZE_T WINAPI GlobalSize(HGLOBAL block);
LPVOID WINAPI GlobalLock(HGLOBAL block);
BOOL WINAPI GlobalUnlock(HGLOBAL block);

DWORD WINAPI GetLastError(void);
void WINAPI SetLastError(DWORD error);

int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCCH bytes, int byteCount, LPWSTR units, int capacity);
int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWCH units, int unitCount, LPSTR bytes, int capacity,
                               LPCCH defaultCharacter, LPBOOL usedDefaultCharacter);

HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR path, DWORD capacity);
HMODULE WINAPI LoadLibraryA(LPCSTR name);
FARPROC WINAPI GetProcAddress(HMODULE library, LPCSTR name);
BOOL WINAPI FreeLibrary(HMODULE library);

ULONGLONG WINAPI GetTickCount64(void);
BOOL WINAPI QueryPerformanceCounter(LARGE_INTEGER* count);
BOOL WINAPI QueryPerformanceFrequency(LARGE_INTEGER* frequency);
void WINAPI Sleep(DWORD milliseconds);

HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T stackSize, LPTHREAD_START_ROUTINE start,
                           LPVOID parameter, DWORD flags, LPDWORD threadId);
DWORD WINAPI GetCurrentThreadId(void);
HANDLE WINAPI OpenProcess(DWORD access, BOOL inherits, DWORD processId);
BOOL WINAPI QueryFullProcessImageNameW(HANDLE process, DWORD flags, LPWSTR path, LPDWORD size);
BOOL WINAPI CloseHandle(HANDLE handle);

int WINAPI MulDiv(int number, int numerator, int denominator);

// The program's entry: defined by the host.
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR commandLine, int show);

}  // extern "C"
