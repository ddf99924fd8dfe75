#pragma once

#include <minwindef.h>

#define HKEY_CURRENT_USER ((HKEY)(ULONG_PTR)((LONG)0x80000001))
#define RRF_RT_REG_DWORD 0x00000010
#define REG_DWORD 4

extern "C" LSTATUS WINAPI RegGetValueW(HKEY key, LPCWSTR subKey, LPCWSTR value, DWORD flags, LPDWORD type, PVOID data,
                                       LPDWORD size);
