#pragma once

#include <windows.h>
// windows.h first: the next two build on it.
#include <oleauto.h>
#include <unknwn.h>

#include <string>
#include <utility>

#include "embedding/unique_resource.h"

namespace orvane {

struct BstrTraits {
  using Value = BSTR;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value value) noexcept { ::SysFreeString(value); }
};
using UniqueBstr = UniqueResource<BstrTraits>;

// The text of a string that may be null.
inline std::wstring bstrText(BSTR value) {
  return value == nullptr ? std::wstring() : std::wstring(value, ::SysStringLen(value));
}

// A VARIANT that is cleared on every way out.
class UniqueVariant {
 public:
  UniqueVariant() noexcept { ::VariantInit(&value_); }
  explicit UniqueVariant(LONG number) noexcept : UniqueVariant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  ~UniqueVariant() { ::VariantClear(&value_); }
  UniqueVariant(const UniqueVariant&) = delete;
  UniqueVariant& operator=(const UniqueVariant&) = delete;

  const VARIANT& get() const noexcept { return value_; }
  VARIANT* put() noexcept {
    if (value_.vt != VT_EMPTY) {
      ::VariantClear(&value_);
    }
    return &value_;
  }

 private:
  VARIANT value_;
};

// One counted reference to a COM object; copies count.
template <typename Interface>
class ComReference {
 public:
  ComReference() = default;
  ComReference(const ComReference& other) noexcept : object_(other.object_) {
    if (object_ != nullptr) {
      object_->AddRef();
    }
  }
  ComReference(ComReference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComReference& operator=(const ComReference& other) noexcept {
    if (this != &other) {
      ComReference copy(other);
      std::swap(object_, copy.object_);
    }
    return *this;
  }
  ComReference& operator=(ComReference&& other) noexcept {
    ComReference moved(std::move(other));
    std::swap(object_, moved.object_);
    return *this;
  }
  ~ComReference() { reset(); }

  explicit operator bool() const noexcept { return object_ != nullptr; }
  Interface* get() const noexcept { return object_; }
  Interface* operator->() const noexcept { return object_; }

  // Drops what is held and gives the place that a call fills with a reference of its own.
  Interface** put() noexcept {
    reset();
    return &object_;
  }
  void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }

  void reset() noexcept {
    if (Interface* held = std::exchange(object_, nullptr)) {
      held->Release();
    }
  }

 private:
  Interface* object_ = nullptr;
};

}  // namespace orvane
