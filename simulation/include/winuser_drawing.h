#pragma once

// Painting, menus and owner drawing: the part of <winuser.h> that needs a device context.
#include <wingdi.h>

#define DT_RIGHT 0x00000002
#define DT_VCENTER 0x00000004
#define DT_SINGLELINE 0x00000020
#define DT_NOPREFIX 0x00000800
#define DT_RTLREADING 0x00020000

#define MIIM_ID 0x00000002
#define MIIM_DATA 0x00000020
#define MIIM_FTYPE 0x00000100
#define MFT_OWNERDRAW 0x00000100L

#define TPM_RIGHTALIGN 0x0008L
#define TPM_NONOTIFY 0x0080L
#define TPM_RETURNCMD 0x0100L

#define ODT_MENU 1
#define ODA_DRAWENTIRE 0x0001
#define ODA_SELECT 0x0002
#define ODS_SELECTED 0x0001

typedef struct tagPAINTSTRUCT {
  HDC hdc;
  BOOL fErase;
  RECT rcPaint;
  BOOL fRestore;
  BOOL fIncUpdate;
  BYTE rgbReserved[32];
} PAINTSTRUCT, *LPPAINTSTRUCT;

typedef struct tagMENUITEMINFOW {
  UINT cbSize;
  UINT fMask;
  UINT fType;
  UINT fState;
  UINT wID;
  HMENU hSubMenu;
  HBITMAP hbmpChecked;
  HBITMAP hbmpUnchecked;
  ULONG_PTR dwItemData;
  LPWSTR dwTypeData;
  UINT cch;
  HBITMAP hbmpItem;
} MENUITEMINFOW;
typedef const MENUITEMINFOW* LPCMENUITEMINFOW;

typedef struct tagTPMPARAMS {
  UINT cbSize;
  RECT rcExclude;
} TPMPARAMS, *LPTPMPARAMS;

typedef struct tagMEASUREITEMSTRUCT {
  UINT CtlType;
  UINT CtlID;
  UINT itemID;
  UINT itemWidth;
  UINT itemHeight;
  ULONG_PTR itemData;
} MEASUREITEMSTRUCT;

typedef struct tagDRAWITEMSTRUCT {
  UINT CtlType;
  UINT CtlID;
  UINT itemID;
  UINT itemAction;
  UINT itemState;
  HWND hwndItem;
  HDC hDC;
  RECT rcItem;
  ULONG_PTR itemData;
} DRAWITEMSTRUCT;

extern "C" {

BOOL WINAPI InvalidateRect(HWND window, LPCRECT area, BOOL erases);
HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC context);
int WINAPI FillRect(HDC context, LPCRECT area, HBRUSH brush);
int WINAPI DrawTextW(HDC context, LPCWSTR text, int length, LPRECT area, UINT flags);

HMENU WINAPI CreatePopupMenu(void);
BOOL WINAPI DestroyMenu(HMENU menu);
BOOL WINAPI InsertMenuItemW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info);
BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, LPTPMPARAMS parameters);

}  // extern "C"
