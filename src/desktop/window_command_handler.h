#pragma once

#include <memory>

#include "desktop/host_window.h"
#include "embedding/method_call.h"
#include "embedding/method_result.h"

namespace orvane {

// The handler of the channel `orvane/window`. Answers every call before it returns, also those that
// wait or run a menu's loop.
class WindowCommandHandler {
 public:
  explicit WindowCommandHandler(HostWindow host);

  void HandleMethodCall(const MethodCall& call, std::unique_ptr<MethodResult> result) const;

 private:
  HostWindow host_;
};

}  // namespace orvane
