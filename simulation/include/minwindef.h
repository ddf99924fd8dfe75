#pragma once

#include <cstddef>
#include <cstdint>

// The platform's plain types at their sizes on 64-bit Windows. A wide character holds one UTF-16
// code unit here too, whatever the size of wchar_t is.

#define CALLBACK
#define WINAPI
#define APIENTRY
#define VOID void

typedef int BOOL;
typedef std::uint8_t BYTE;
typedef std::uint16_t WORD;
typedef std::uint16_t USHORT;
typedef std::int32_t INT;
typedef std::uint32_t UINT;
typedef std::int32_t LONG;
typedef std::uint32_t ULONG;
typedef std::uint32_t DWORD;
typedef std::int64_t LONGLONG;
typedef std::uint64_t ULONGLONG;
typedef char CHAR;
typedef wchar_t WCHAR;
typedef void* PVOID;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef CHAR* LPSTR;
typedef const CHAR* LPCSTR;
typedef const CHAR* LPCCH;
typedef WCHAR* LPWSTR;
typedef WCHAR* PWSTR;
typedef const WCHAR* LPCWSTR;
typedef const WCHAR* PCWSTR;
typedef const WCHAR* LPCWCH;
typedef BOOL* LPBOOL;
typedef BYTE* LPBYTE;
typedef WORD* LPWORD;
typedef LONG* LPLONG;
typedef DWORD* LPDWORD;
typedef DWORD* PDWORD;

typedef std::int64_t INT_PTR;
typedef std::uint64_t UINT_PTR;
typedef std::int64_t LONG_PTR;
typedef std::uint64_t ULONG_PTR;
typedef ULONG_PTR DWORD_PTR;
typedef ULONG_PTR SIZE_T;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;

typedef LONG HRESULT;
typedef LONG LSTATUS;
typedef WORD ATOM;
typedef DWORD COLORREF;

typedef void* HANDLE;
typedef HANDLE HLOCAL;
typedef HANDLE HGLOBAL;
#define DECLARE_HANDLE(name) typedef struct name##__* name
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HWINEVENTHOOK);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HMONITOR);
DECLARE_HANDLE(HKEY);
typedef HICON HCURSOR;
typedef void* HGDIOBJ;
typedef HINSTANCE HMODULE;
typedef INT_PTR(WINAPI* FARPROC)();

typedef union {
  struct {
    DWORD LowPart;
    LONG HighPart;
  } u;
  LONGLONG QuadPart;
} LARGE_INTEGER;

typedef struct tagPOINT {
  LONG x;
  LONG y;
} POINT, *LPPOINT;

typedef struct tagSIZE {
  LONG cx;
  LONG cy;
} SIZE, *LPSIZE;

typedef struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
} RECT, *LPRECT;
typedef const RECT* LPCRECT;

#define FALSE 0
#define TRUE 1
#define MAX_PATH 260
#define INFINITE 0xFFFFFFFF
#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)-1)

#define LOWORD(l) ((WORD)(((DWORD_PTR)(l)) & 0xffff))
#define HIWORD(l) ((WORD)((((DWORD_PTR)(l)) >> 16) & 0xffff))
#define MAKELONG(a, b) \
  ((LONG)(((WORD)(((DWORD_PTR)(a)) & 0xffff)) | ((DWORD)((WORD)(((DWORD_PTR)(b)) & 0xffff))) << 16))
#define MAKEWPARAM(l, h) ((WPARAM)(DWORD)MAKELONG(l, h))
#define MAKELPARAM(l, h) ((LPARAM)(DWORD)MAKELONG(l, h))
