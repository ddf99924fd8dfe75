#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "embedding/method_call.h"
#include "embedding/method_result.h"

namespace orvane {

// Gives the window of the Flutter view; null when there is no controller or no view.
using ViewWindowReader = std::function<HWND()>;

// The handler of the channel `orvane/browser`. Answers every call before it returns.
class ProviderCommandHandler {
 public:
  explicit ProviderCommandHandler(ViewWindowReader readViewWindow);

  // Gives `result` exactly one answer: a map, whose "success" or "observed" tells of a failure too; the
  // error "bad_arguments" for an "activateProvider" without a map; not-implemented for an unknown name.
  void HandleMethodCall(const MethodCall& call, std::unique_ptr<MethodResult> result) const;

 private:
  ViewWindowReader readViewWindow_;
};

}  // namespace orvane
