#pragma once

#include <memory>

#include "embedding/dart_project.h"
#include "embedding/flutter_engine.h"
#include "embedding/flutter_library.h"
#include "embedding/flutter_view.h"

namespace orvane {

// An engine that runs, and its view.
class FlutterViewController {
 public:
  // `width` and `height` of the view in pixels. When the library makes no controller, which is
  // logged, handle() and view() are null.
  FlutterViewController(int width, int height, const DartProject& project);
  // FlutterDesktopViewControllerDestroy, which also ends the library's engine.
  virtual ~FlutterViewController();

  FlutterViewController(const FlutterViewController&) = delete;
  FlutterViewController& operator=(const FlutterViewController&) = delete;

  [[nodiscard]] FlutterDesktopViewControllerRef handle() const noexcept { return controller_; }
  [[nodiscard]] FlutterEngine* engine() const noexcept { return engine_.get(); }
  [[nodiscard]] FlutterView* view() const noexcept { return view_.get(); }

 private:
  FlutterDesktopViewControllerRef controller_ = nullptr;
  // Destroyed in the reverse order: the view first.
  std::shared_ptr<FlutterEngine> engine_;
  std::unique_ptr<FlutterView> view_;
};

}  // namespace orvane
