#pragma once

#include <unknwn.h>

typedef WCHAR* LPOLESTR;
typedef const WCHAR* LPCOLESTR;

// A list of strings that the caller frees one by one with CoTaskMemFree.
struct IEnumString : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, LPOLESTR* strings, ULONG* fetched) = 0;
  virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
  virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
  virtual HRESULT STDMETHODCALLTYPE Clone(IEnumString** copy) = 0;

 protected:
  ~IEnumString() = default;
};
