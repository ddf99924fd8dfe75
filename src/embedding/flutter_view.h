#pragma once

#include "embedding/flutter_library.h"

namespace orvane {

// The view of a view controller, which owns the handle.
class FlutterView {
 public:
  explicit FlutterView(FlutterDesktopViewRef view) noexcept : view_(view) {}
  virtual ~FlutterView() = default;

  FlutterView(const FlutterView&) = delete;
  FlutterView& operator=(const FlutterView&) = delete;

  // By FlutterDesktopViewGetHWND; null when the library has none.
  [[nodiscard]] HWND GetNativeWindow() const { return FlutterDesktopViewGetHWND(view_); }

 private:
  FlutterDesktopViewRef view_;
};

}  // namespace orvane
