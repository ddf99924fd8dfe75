#pragma once

#include <unknwn.h>

#define CLSCTX_INPROC_SERVER 0x1
#define COINIT_APARTMENTTHREADED 0x2

extern "C" {

HRESULT WINAPI CoInitializeEx(LPVOID reserved, DWORD model);
void WINAPI CoUninitialize(void);
HRESULT WINAPI CoCreateInstance(REFCLSID classId, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* object);
void WINAPI CoTaskMemFree(LPVOID block);

}  // extern "C"
