#pragma once
#pragma GCC system_header

// The C library's own, and what the platform's runtime adds to it.
#include_next <wchar.h>

extern "C" int _wcsicmp(const wchar_t* one, const wchar_t* other);
