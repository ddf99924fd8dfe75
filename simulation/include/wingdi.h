#pragma once

#include <minwindef.h>

#define DEFAULT_GUI_FONT 17
#define TRANSPARENT 1
#define OPAQUE 2

#define FW_NORMAL 400
#define DEFAULT_CHARSET 1
#define OUT_DEFAULT_PRECIS 0
#define CLIP_DEFAULT_PRECIS 0
#define CLEARTYPE_QUALITY 5
#define DEFAULT_PITCH 0
#define FF_DONTCARE (0 << 4)

#define CLR_INVALID 0xFFFFFFFF

#define RGB(r, g, b) ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))

typedef struct tagTEXTMETRICW {
  LONG tmHeight;
  LONG tmAscent;
  LONG tmDescent;
  LONG tmInternalLeading;
  LONG tmExternalLeading;
  LONG tmAveCharWidth;
  LONG tmMaxCharWidth;
  LONG tmWeight;
  LONG tmOverhang;
  LONG tmDigitizedAspectX;
  LONG tmDigitizedAspectY;
  WCHAR tmFirstChar;
  WCHAR tmLastChar;
  WCHAR tmDefaultChar;
  WCHAR tmBreakChar;
  BYTE tmItalic;
  BYTE tmUnderlined;
  BYTE tmStruckOut;
  BYTE tmPitchAndFamily;
  BYTE tmCharSet;
} TEXTMETRICW, *LPTEXTMETRICW;

extern "C" {

HBRUSH WINAPI CreateSolidBrush(COLORREF color);
HFONT WINAPI CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                         DWORD underline, DWORD strikeOut, DWORD charset, DWORD outputPrecision, DWORD clipPrecision,
                         DWORD quality, DWORD pitchAndFamily, LPCWSTR face);
HGDIOBJ WINAPI GetStockObject(int index);
HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object);
BOOL WINAPI DeleteObject(HGDIOBJ object);
int WINAPI SetBkMode(HDC context, int mode);
COLORREF WINAPI SetTextColor(HDC context, COLORREF color);
BOOL WINAPI GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size);
BOOL WINAPI GetTextMetricsW(HDC context, LPTEXTMETRICW metrics);

}  // extern "C"
