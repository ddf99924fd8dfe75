#include "windows/engine_room.h"

#include <algorithm>
#include <utility>

#include "world/faults.h"

namespace orvane::simulation {
namespace {

template <typename Thing>
Thing& behind(const char* call, const std::deque<std::unique_ptr<Thing>>& things, const Thing* handle) {
  const auto found =
      std::find_if(things.begin(), things.end(), [handle](const auto& thing) { return thing.get() == handle; });
  if (found == things.end()) stopRun(call, "an unknown handle");
  return **found;
}

}  // namespace

FlutterDesktopEngine& EngineRoom::makeEngine() {
  const std::lock_guard guard(mutex_);
  FlutterDesktopEngine& engine = *engines_.emplace_back(std::make_unique<FlutterDesktopEngine>());
  engine.messenger = messengers_.emplace_back(std::make_unique<FlutterDesktopMessenger>()).get();
  engine.messenger->engine = &engine;
  return engine;
}

void EngineRoom::endEngine(FlutterDesktopEngine& engine) {
  engine.isAlive = false;
  const std::lock_guard guard(engine.messenger->lock);
  engine.messenger->engine = nullptr;
  --engine.messenger->references;
}

FlutterDesktopViewController& EngineRoom::makeController(FlutterDesktopEngine& engine) {
  FlutterDesktopViewController& controller =
      *controllers_.emplace_back(std::make_unique<FlutterDesktopViewController>());
  controller.engine = &engine;
  return controller;
}

FlutterDesktopEngine& EngineRoom::engineBehind(const char* call, FlutterDesktopEngineRef engine) {
  FlutterDesktopEngine& found = behind(call, engines_, engine);
  if (!found.isAlive) stopRun(call, "the engine has ended");
  return found;
}

FlutterDesktopMessenger& EngineRoom::messengerBehind(const char* call, FlutterDesktopMessengerRef messenger) {
  const std::lock_guard guard(mutex_);
  FlutterDesktopMessenger& found = behind(call, messengers_, messenger);
  if (found.references <= 0) stopRun(call, "a messenger without a reference");
  return found;
}

FlutterDesktopViewController& EngineRoom::controllerBehind(const char* call,
                                                           FlutterDesktopViewControllerRef controller) {
  FlutterDesktopViewController& found = behind(call, controllers_, controller);
  if (!found.isAlive) stopRun(call, "the view controller has ended");
  return found;
}

FlutterDesktopView& EngineRoom::viewBehind(const char* call, FlutterDesktopViewRef view) {
  for (const auto& controller : controllers_) {
    if (controller->isAlive && &controller->view == view) return controller->view;
  }
  stopRun(call, "an unknown view");
}

FlutterDesktopPluginRegistrar& EngineRoom::registrarBehind(const char* call,
                                                           FlutterDesktopPluginRegistrarRef registrar) {
  for (const auto& engine : engines_) {
    for (auto& [plugin, own] : engine->registrars) {
      if (engine->isAlive && &own == registrar) return own;
    }
  }
  stopRun(call, "an unknown registrar");
}

void EngineRoom::answer(const FlutterDesktopMessageResponseHandle* handle, Bytes reply) {
  constexpr const char* call = "FlutterDesktopMessengerSendResponse";
  const std::lock_guard guard(mutex_);
  FlutterPlatformMessageResponseHandle& response = behind(call, responses_, handle);
  if (response.isAnswered) stopRun(call, "the message is answered already");
  response.isAnswered = true;
  response.reply = std::move(reply);
}

std::optional<Bytes> EngineRoom::deliver(const std::string& channel, const Bytes& message) {
  const auto alive =
      std::find_if(engines_.rbegin(), engines_.rend(), [](const auto& engine) { return engine->isAlive; });
  if (alive == engines_.rend()) return std::nullopt;
  const auto handler = (*alive)->handlers.find(channel);
  if (handler == (*alive)->handlers.end()) return Bytes{};
  std::unique_lock guard(mutex_);
  FlutterPlatformMessageResponseHandle& response =
      *responses_.emplace_back(std::make_unique<FlutterPlatformMessageResponseHandle>());
  guard.unlock();
  const FlutterDesktopMessage envelope{sizeof(FlutterDesktopMessage), channel.c_str(), message.data(), message.size(),
                                       &response};
  // A copy: the handler may take itself away.
  const FlutterDesktopMessageHandler receiver = handler->second;
  receiver.callback((*alive)->messenger, &envelope, receiver.userData);
  guard.lock();
  return std::exchange(response.reply, std::nullopt);
}

void EngineRoom::forgetAnswered() {
  const std::lock_guard guard(mutex_);
  std::erase_if(responses_, [](const auto& response) { return response->isAnswered; });
}

void EngineRoom::queueReply(FlutterDesktopBinaryReply reply, void* userData, Bytes data) {
  const std::lock_guard guard(mutex_);
  replies_.push_back([reply, userData, data = std::move(data)] {
    reply(data.empty() ? nullptr : data.data(), data.size(), userData);
  });
}

bool EngineRoom::drawFrame() {
  for (const auto& engine : engines_) {
    if (!engine->isAlive || !std::exchange(engine->wantsFrame, false)) continue;
    hasDrawnFrame_ = true;
    if (const FlutterDesktopFrameCallback callback = std::exchange(engine->frameCallback, nullptr)) {
      callback(engine->frameUserData);
    }
    return true;
  }
  return false;
}

bool EngineRoom::performTask() {
  std::unique_lock guard(mutex_);
  if (replies_.empty()) {
    guard.unlock();
    return drawFrame();
  }
  const std::function<void()> reply = std::move(replies_.front());
  replies_.pop_front();
  guard.unlock();
  reply();
  return true;
}

}  // namespace orvane::simulation
