#pragma once

#include <minwindef.h>

#define MAKEINTRESOURCEW(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))
#define IDC_ARROW MAKEINTRESOURCEW(32512)

#define IMAGE_ICON 1
#define LR_DEFAULTCOLOR 0x00000000
#define ICON_SMALL 0
#define ICON_BIG 1

#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CXSMICON 49
#define SM_CYSMICON 50

#define MONITOR_DEFAULTTONEAREST 0x00000002
#define MONITORINFOF_PRIMARY 0x00000001

#define CS_VREDRAW 0x0001
#define CS_HREDRAW 0x0002

#define WS_OVERLAPPED 0x00000000L
#define WS_MAXIMIZEBOX 0x00010000L
#define WS_MINIMIZEBOX 0x00020000L
#define WS_THICKFRAME 0x00040000L
#define WS_SYSMENU 0x00080000L
#define WS_DLGFRAME 0x00400000L
#define WS_BORDER 0x00800000L
#define WS_CAPTION 0x00C00000L
#define WS_CLIPSIBLINGS 0x04000000L
#define WS_VISIBLE 0x10000000L
#define WS_MINIMIZE 0x20000000L
#define WS_CHILD 0x40000000L
#define WS_POPUP 0x80000000L
#define WS_OVERLAPPEDWINDOW (WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)

#define WS_EX_DLGMODALFRAME 0x00000001L
#define WS_EX_TOPMOST 0x00000008L
#define WS_EX_WINDOWEDGE 0x00000100L
#define WS_EX_STATICEDGE 0x00020000L
#define WS_EX_APPWINDOW 0x00040000L

#define CW_USEDEFAULT ((int)0x80000000)

#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWLP_USERDATA (-21)

#define GA_PARENT 1
#define GA_ROOT 2
#define GW_HWNDNEXT 2

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOWNOACTIVATE 4
#define SW_SHOW 5
#define SW_MINIMIZE 6
#define SW_RESTORE 9

#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080
#define SWP_NOOWNERZORDER 0x0200

#define HWND_TOP ((HWND)0)
#define HWND_BOTTOM ((HWND)1)
#define HWND_TOPMOST ((HWND)(LONG_PTR)-1)
#define HWND_NOTOPMOST ((HWND)(LONG_PTR)-2)

#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SHOWWINDOW 0x0018
#define WM_FONTCHANGE 0x001D
#define WM_GETMINMAXINFO 0x0024
#define WM_DRAWITEM 0x002B
#define WM_MEASUREITEM 0x002C
#define WM_SETICON 0x0080
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_SYSCOMMAND 0x0112
#define WM_SIZING 0x0214
#define WM_ENTERSIZEMOVE 0x0231
#define WM_EXITSIZEMOVE 0x0232
#define WM_DPICHANGED 0x02E0
#define WM_DWMCOLORIZATIONCOLORCHANGED 0x0320
#define WM_USER 0x0400
#define WM_APP 0x8000

#define WA_INACTIVE 0
#define WA_ACTIVE 1
#define SIZE_RESTORED 0
#define SIZE_MINIMIZED 1
#define WMSZ_BOTTOMRIGHT 8
#define HTCAPTION 2
#define SC_MOVE 0xF010

#define INPUT_MOUSE 0
#define INPUT_KEYBOARD 1
#define INPUT_HARDWARE 2
#define KEYEVENTF_EXTENDEDKEY 0x0001
#define KEYEVENTF_KEYUP 0x0002
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_ESCAPE 0x1B
#define VK_SNAPSHOT 0x2C
#define VK_LWIN 0x5B

#define EVENT_SYSTEM_FOREGROUND 0x0003
#define WINEVENT_OUTOFCONTEXT 0x0000
#define WINEVENT_SKIPOWNPROCESS 0x0002
#define OBJID_WINDOW ((LONG)0x00000000)
#define CHILDID_SELF 0

#define CF_DIB 8
#define CF_UNICODETEXT 13
#define CF_DIBV5 17

typedef LRESULT(CALLBACK* WNDPROC)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
typedef BOOL(CALLBACK* WNDENUMPROC)(HWND window, LPARAM lParam);
typedef VOID(CALLBACK* WINEVENTPROC)(HWINEVENTHOOK hook, DWORD event, HWND window, LONG objectId, LONG childId,
                                     DWORD threadId, DWORD ms);

typedef struct tagWNDCLASSW {
  UINT style;
  WNDPROC lpfnWndProc;
  int cbClsExtra;
  int cbWndExtra;
  HINSTANCE hInstance;
  HICON hIcon;
  HCURSOR hCursor;
  HBRUSH hbrBackground;
  LPCWSTR lpszMenuName;
  LPCWSTR lpszClassName;
} WNDCLASSW;

typedef struct tagCREATESTRUCTW {
  LPVOID lpCreateParams;
  HINSTANCE hInstance;
  HMENU hMenu;
  HWND hwndParent;
  int cy;
  int cx;
  int y;
  int x;
  LONG style;
  LPCWSTR lpszName;
  LPCWSTR lpszClass;
  DWORD dwExStyle;
} CREATESTRUCTW;

typedef struct tagMSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
} MSG, *LPMSG;

typedef struct tagMINMAXINFO {
  POINT ptReserved;
  POINT ptMaxSize;
  POINT ptMaxPosition;
  POINT ptMinTrackSize;
  POINT ptMaxTrackSize;
} MINMAXINFO;

typedef struct tagMONITORINFO {
  DWORD cbSize;
  RECT rcMonitor;
  RECT rcWork;
  DWORD dwFlags;
} MONITORINFO, *LPMONITORINFO;

typedef struct tagGUITHREADINFO {
  DWORD cbSize;
  DWORD flags;
  HWND hwndActive;
  HWND hwndFocus;
  HWND hwndCapture;
  HWND hwndMenuOwner;
  HWND hwndMoveSize;
  HWND hwndCaret;
  RECT rcCaret;
} GUITHREADINFO, *LPGUITHREADINFO;

typedef struct tagMOUSEINPUT {
  LONG dx;
  LONG dy;
  DWORD mouseData;
  DWORD dwFlags;
  DWORD time;
  ULONG_PTR dwExtraInfo;
} MOUSEINPUT;

typedef struct tagKEYBDINPUT {
  WORD wVk;
  WORD wScan;
  DWORD dwFlags;
  DWORD time;
  ULONG_PTR dwExtraInfo;
} KEYBDINPUT;

typedef struct tagHARDWAREINPUT {
  DWORD uMsg;
  WORD wParamL;
  WORD wParamH;
} HARDWAREINPUT;

typedef struct tagINPUT {
  DWORD type;
  union {
    MOUSEINPUT mi;
    KEYBDINPUT ki;
    HARDWAREINPUT hi;
  };
} INPUT, *LPINPUT;

extern "C" {

BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageW(const MSG* message);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int exitCode);
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass);
BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE instance);
HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y, int width,
                            int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter);
BOOL WINAPI DestroyWindow(HWND window);

HICON WINAPI LoadIconW(HINSTANCE instance, LPCWSTR name);
HCURSOR WINAPI LoadCursorW(HINSTANCE instance, LPCWSTR name);
HANDLE WINAPI LoadImageW(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height, UINT flags);
int WINAPI GetSystemMetrics(int index);
HMONITOR WINAPI MonitorFromPoint(POINT point, DWORD flags);
HMONITOR WINAPI MonitorFromRect(LPCRECT bounds, DWORD flags);
HMONITOR WINAPI MonitorFromWindow(HWND window, DWORD flags);
BOOL WINAPI GetMonitorInfoW(HMONITOR monitor, LPMONITORINFO info);
UINT WINAPI GetDpiForWindow(HWND window);

LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
BOOL WINAPI GetClientRect(HWND window, LPRECT client);
BOOL WINAPI GetWindowRect(HWND window, LPRECT bounds);
BOOL WINAPI AdjustWindowRectExForDpi(LPRECT bounds, DWORD style, BOOL hasMenu, DWORD exStyle, UINT dpi);
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL WINAPI SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
HWND WINAPI SetParent(HWND child, HWND parent);
BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI ShowWindowAsync(HWND window, int command);

BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE value);
HANDLE WINAPI GetPropW(HWND window, LPCWSTR name);
HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name);

BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI IsIconic(HWND window);
HWND WINAPI GetAncestor(HWND window, UINT which);
HWND WINAPI GetTopWindow(HWND parent);
HWND WINAPI GetWindow(HWND window, UINT relation);
BOOL WINAPI EnumWindows(WNDENUMPROC visit, LPARAM parameter);
DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD processId);
int WINAPI GetClassNameW(HWND window, LPWSTR name, int capacity);
BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
int WINAPI GetWindowTextLengthW(HWND window);
int WINAPI GetWindowTextW(HWND window, LPWSTR text, int capacity);

HWND WINAPI GetForegroundWindow(void);
BOOL WINAPI SetForegroundWindow(HWND window);
BOOL WINAPI BringWindowToTop(HWND window);
HWND WINAPI SetActiveWindow(HWND window);
HWND WINAPI SetFocus(HWND window);
BOOL WINAPI AttachThreadInput(DWORD from, DWORD to, BOOL attaches);
BOOL WINAPI GetGUIThreadInfo(DWORD threadId, LPGUITHREADINFO info);
BOOL WINAPI ReleaseCapture(void);
HWINEVENTHOOK WINAPI SetWinEventHook(DWORD first, DWORD last, HMODULE library, WINEVENTPROC callback, DWORD processId,
                                     DWORD threadId, DWORD flags);
BOOL WINAPI UnhookWinEvent(HWINEVENTHOOK hook);

BOOL WINAPI OpenClipboard(HWND owner);
BOOL WINAPI CloseClipboard(void);
BOOL WINAPI EmptyClipboard(void);
HANDLE WINAPI GetClipboardData(UINT format);
HANDLE WINAPI SetClipboardData(UINT format, HANDLE block);
BOOL WINAPI IsClipboardFormatAvailable(UINT format);
UINT WINAPI RegisterClipboardFormatW(LPCWSTR name);
DWORD WINAPI GetClipboardSequenceNumber(void);
UINT WINAPI SendInput(UINT count, LPINPUT inputs, int size);

}  // extern "C"
