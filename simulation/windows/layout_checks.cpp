// Sizes and places of what crosses the platform's interface, as on 64-bit Windows.
#include <dwmapi.h>
#include <objbase.h>
#include <oleauto.h>
#include <shellapi.h>
#include <spellcheck.h>
#include <windows.h>

#include <cstddef>
#include <type_traits>

#include "embedding/flutter_library.h"

namespace {

static_assert(sizeof(BOOL) == 4 && sizeof(LONG) == 4 && sizeof(DWORD) == 4 && sizeof(UINT) == 4 && sizeof(WORD) == 2);
static_assert(sizeof(WPARAM) == 8 && sizeof(LPARAM) == 8 && sizeof(LRESULT) == 8 && sizeof(HRESULT) == 4);
static_assert(std::is_signed_v<LONG> && std::is_unsigned_v<DWORD> && std::is_signed_v<LPARAM>);
static_assert(std::is_unsigned_v<WPARAM> && std::is_signed_v<HRESULT>);
static_assert(!std::is_same_v<HWND, HINSTANCE> && !std::is_same_v<HWND, HICON> && !std::is_same_v<HKEY, HMONITOR>);
static_assert(std::is_same_v<HMODULE, HINSTANCE> && std::is_same_v<HCURSOR, HICON> && std::is_same_v<HANDLE, void*>);

static_assert(sizeof(POINT) == 8 && sizeof(SIZE) == 8 && sizeof(RECT) == 16 && offsetof(RECT, bottom) == 12);
static_assert(sizeof(LARGE_INTEGER) == 8);
static_assert(sizeof(GUID) == 16 && offsetof(GUID, Data4) == 8);

static_assert(sizeof(MSG) == 48 && offsetof(MSG, wParam) == 16 && offsetof(MSG, time) == 32 && offsetof(MSG, pt) == 36);
static_assert(sizeof(WNDCLASSW) == 72 && offsetof(WNDCLASSW, lpfnWndProc) == 8);
static_assert(offsetof(WNDCLASSW, hInstance) == 24 && offsetof(WNDCLASSW, lpszClassName) == 64);
static_assert(sizeof(CREATESTRUCTW) == 80 && offsetof(CREATESTRUCTW, cy) == 32);
static_assert(offsetof(CREATESTRUCTW, style) == 48 && offsetof(CREATESTRUCTW, lpszName) == 56);
static_assert(offsetof(CREATESTRUCTW, dwExStyle) == 72);
static_assert(sizeof(MINMAXINFO) == 40 && offsetof(MINMAXINFO, ptMinTrackSize) == 24);
static_assert(sizeof(MONITORINFO) == 40 && offsetof(MONITORINFO, rcWork) == 20 && offsetof(MONITORINFO, dwFlags) == 36);
static_assert(sizeof(GUITHREADINFO) == 72 && offsetof(GUITHREADINFO, hwndActive) == 8);
static_assert(offsetof(GUITHREADINFO, hwndFocus) == 16 && offsetof(GUITHREADINFO, rcCaret) == 56);

static_assert(sizeof(MOUSEINPUT) == 32 && sizeof(KEYBDINPUT) == 24 && sizeof(HARDWAREINPUT) == 8);
static_assert(sizeof(INPUT) == 40 && offsetof(INPUT, ki) == 8);
static_assert(offsetof(KEYBDINPUT, dwFlags) == 4 && offsetof(KEYBDINPUT, dwExtraInfo) == 16);

static_assert(sizeof(PAINTSTRUCT) == 72 && offsetof(PAINTSTRUCT, rcPaint) == 12);
static_assert(offsetof(PAINTSTRUCT, rgbReserved) == 36);
static_assert(sizeof(MENUITEMINFOW) == 80 && offsetof(MENUITEMINFOW, wID) == 16);
static_assert(offsetof(MENUITEMINFOW, dwItemData) == 48 && offsetof(MENUITEMINFOW, hbmpItem) == 72);
static_assert(sizeof(MEASUREITEMSTRUCT) == 32 && offsetof(MEASUREITEMSTRUCT, itemData) == 24);
static_assert(sizeof(DRAWITEMSTRUCT) == 64 && offsetof(DRAWITEMSTRUCT, hwndItem) == 24);
static_assert(offsetof(DRAWITEMSTRUCT, rcItem) == 40 && offsetof(DRAWITEMSTRUCT, itemData) == 56);
// TEXTMETRICW holds wide characters, which are wider here: only what stands in front of them lies the same.
static_assert(offsetof(TEXTMETRICW, tmInternalLeading) == 12 && offsetof(TEXTMETRICW, tmFirstChar) == 44);

static_assert(sizeof(VARIANT) == 24 && offsetof(VARIANT, vt) == 0);
static_assert(offsetof(VARIANT, lVal) == 8 && offsetof(VARIANT, bstrVal) == 8);
static_assert(sizeof(SECURITY_ATTRIBUTES) == 24);
static_assert(sizeof(CORRECTIVE_ACTION) == 4 && CORRECTIVE_ACTION_GET_SUGGESTIONS == 1);
static_assert(CF_DIB == 8 && CF_UNICODETEXT == 13 && CF_DIBV5 == 17 && GMEM_MOVEABLE == 2);

static_assert(sizeof(FlutterDesktopEngineProperties) == 64);
static_assert(offsetof(FlutterDesktopEngineProperties, dart_entrypoint_argv) == 40);
static_assert(sizeof(FlutterDesktopMessage) == 40 && offsetof(FlutterDesktopMessage, response_handle) == 32);

static_assert(WS_OVERLAPPEDWINDOW == 0x00CF0000 && WM_APP == 0x8000 && WM_DPICHANGED == 0x02E0);
static_assert(E_FAIL == static_cast<HRESULT>(0x80004005) && FAILED(E_FAIL) && SUCCEEDED(S_FALSE));
static_assert(LOWORD(0x12345678) == 0x5678 && HIWORD(0x12345678) == 0x1234 && MAKELONG(0x5678, 0x1234) == 0x12345678);

}  // namespace
