#pragma once

#include <unknwn.h>

typedef WCHAR OLECHAR;
typedef OLECHAR* BSTR;
typedef unsigned short VARTYPE;

enum VARENUM { VT_EMPTY = 0, VT_I4 = 3, VT_BSTR = 8 };

typedef struct tagVARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    LONGLONG llVal;
    LONG lVal;
    BSTR bstrVal;
    struct {
      PVOID pvRecord;
      PVOID pRecInfo;
    } record;  // no form of the host's: gives the union its size
  };
} VARIANT, VARIANTARG;

extern "C" {

BSTR WINAPI SysAllocString(const OLECHAR* text);
void WINAPI SysFreeString(BSTR text);
UINT WINAPI SysStringLen(BSTR text);
void WINAPI VariantInit(VARIANTARG* variant);
HRESULT WINAPI VariantClear(VARIANTARG* variant);

}  // extern "C"
