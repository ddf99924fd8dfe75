#pragma once

#include <utility>

namespace orvane {

// The one owner of a platform's resource. `Traits` tells how to handle it:
//   using Value = …;                            what the platform gives, cheap to copy
//   static constexpr Value invalid() noexcept;  the value that stands for none
//   static void release(Value) noexcept;        gives it back; never called with invalid()
template <typename Traits>
class [[nodiscard]] UniqueResource {
 public:
  using Value = typename Traits::Value;

  constexpr UniqueResource() noexcept = default;
  constexpr explicit UniqueResource(Value value) noexcept : value_(value) {}
  constexpr ~UniqueResource() { reset(); }

  UniqueResource(const UniqueResource&) = delete;
  UniqueResource& operator=(const UniqueResource&) = delete;
  constexpr UniqueResource(UniqueResource&& other) noexcept : value_(other.release()) {}
  constexpr UniqueResource& operator=(UniqueResource&& other) noexcept {
    if (this != &other) {
      reset(other.release());
    }
    return *this;
  }

  [[nodiscard]] constexpr explicit operator bool() const noexcept { return !(value_ == Traits::invalid()); }
  [[nodiscard]] constexpr Value get() const noexcept { return value_; }

  // Gives back what is held, and the place that a call fills with a resource of its own.
  [[nodiscard]] constexpr Value* put() noexcept {
    reset();
    return &value_;
  }

  // Hands the resource to the caller, who now has to give it back.
  [[nodiscard]] constexpr Value release() noexcept { return std::exchange(value_, Traits::invalid()); }

  // Gives back what is held and owns `value` instead.
  constexpr void reset(Value value = Traits::invalid()) noexcept {
    const Value former = std::exchange(value_, value);
    if (!(former == Traits::invalid())) {
      Traits::release(former);
    }
  }

 private:
  Value value_ = Traits::invalid();
};

}  // namespace orvane
