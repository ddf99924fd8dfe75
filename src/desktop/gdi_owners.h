#pragma once

#include <windows.h>

#include "embedding/unique_resource.h"

namespace orvane {

template <typename Handle>
struct GdiObjectTraits {
  using Value = Handle;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value object) noexcept { ::DeleteObject(object); }
};
using UniqueBrush = UniqueResource<GdiObjectTraits<HBRUSH>>;
using UniqueFont = UniqueResource<GdiObjectTraits<HFONT>>;

// An object selected into a device context until its end, which puts the former one back.
class SelectedObject {
 public:
  SelectedObject(HDC context, HGDIOBJ object) : context_(context), former_(::SelectObject(context, object)) {}
  ~SelectedObject() {
    if (former_ != nullptr) {
      ::SelectObject(context_, former_);
    }
  }
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;

 private:
  HDC context_;
  HGDIOBJ former_;  // null: nothing was selected
};

}  // namespace orvane
