#pragma once

#include <windows.h>
// windows.h first: objbase.h builds on it.
#include <objbase.h>

namespace orvane {

// The calling thread's single-threaded apartment for as long as this lives; left again only when
// entering it succeeded.
class ComApartment {
 public:
  ComApartment() : isEntered_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~ComApartment() {
    if (isEntered_) {
      ::CoUninitialize();
    }
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  bool isEntered_;
};

}  // namespace orvane
