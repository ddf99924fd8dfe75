#include "windows/platform.h"

#include "windows/messages.h"
#include "windows/state.h"

namespace orvane::simulation {

Platform::Platform(Desktop& desktop, InterfaceScript* script, std::vector<Text> arguments)
    : state_(std::make_unique<PlatformState>(desktop, script, arguments)) {}

Platform::~Platform() = default;

std::optional<Bytes> Platform::sendToHost(const std::string& channel, const Bytes& message) {
  return state_->engines.deliver(channel, message);
}

void Platform::post(Window& window, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  if (window.ofHost && !window.destroyed) postMessage(*state_, window, message, wParam, lParam);
}

PlatformRecords& Platform::records() { return state_->records; }

Desktop& Platform::desktop() { return state_->desktop; }

}  // namespace orvane::simulation
