#include "embedding/flutter_view_controller.h"

#include "embedding/error_stream.h"

namespace orvane {

// The library's controller starts the engine, and ends it too.
FlutterViewController::FlutterViewController(int width, int height, const DartProject& project)
    : engine_(std::make_shared<FlutterEngine>(project)) {
  if (FlutterDesktopEngineRef engine = engine_->relinquish(); engine != nullptr) {
    controller_ = FlutterDesktopViewControllerCreate(width, height, engine);
  }
  if (controller_ == nullptr) {
    logErrorLine("Failed to create view controller.");
    return;
  }
  if (FlutterDesktopViewRef view = FlutterDesktopViewControllerGetView(controller_); view != nullptr) {
    view_ = std::make_unique<FlutterView>(view);
  }
}

FlutterViewController::~FlutterViewController() {
  if (controller_ != nullptr) {
    FlutterDesktopViewControllerDestroy(controller_);
  }
}

}  // namespace orvane
