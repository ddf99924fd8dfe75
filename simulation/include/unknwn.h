#pragma once

#include <windows.h>

#define STDMETHODCALLTYPE

extern "C" const IID IID_IUnknown;

struct IUnknown {
  virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
  virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
  virtual ULONG STDMETHODCALLTYPE Release() = 0;

 protected:
  // Objects end by Release alone.
  ~IUnknown() = default;
};
typedef IUnknown* LPUNKNOWN;
