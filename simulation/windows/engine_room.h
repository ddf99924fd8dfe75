#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "embedding/flutter_library.h"
#include "windows/platform.h"

// What lies behind the library's opaque handles. None is freed before the process ends, so that a
// handle used after its end is told apart.
struct FlutterDesktopPluginRegistrar {
  std::string plugin;
};

struct FlutterPlatformMessageResponseHandle {
  bool isAnswered = false;
  std::optional<orvane::simulation::Bytes> reply;
};

struct FlutterDesktopMessenger {
  int references = 1;
  int locks = 0;
  FlutterDesktopEngine* engine = nullptr;  // null when it has gone
};

struct FlutterDesktopView {
  orvane::simulation::Window* window = nullptr;
};

struct FlutterDesktopMessageHandler {
  FlutterDesktopMessageCallback callback = nullptr;
  void* userData = nullptr;
};

struct FlutterDesktopEngine {
  bool isAlive = true;
  bool isTaken = false;  // a view controller ends it
  FlutterDesktopMessenger* messenger = nullptr;
  std::map<std::string, FlutterDesktopMessageHandler> handlers;
  std::map<std::string, FlutterDesktopPluginRegistrar> registrars;
  FlutterDesktopFrameCallback frameCallback = nullptr;
  void* frameUserData = nullptr;
  bool wantsFrame = false;
};

struct FlutterDesktopViewController {
  bool isAlive = true;
  FlutterDesktopEngine* engine = nullptr;
  FlutterDesktopView view;
};

namespace orvane::simulation {

// The engines, views and messages of the embedding library.
class EngineRoom {
 public:
  FlutterDesktopEngine& makeEngine();
  void endEngine(FlutterDesktopEngine& engine);
  FlutterDesktopViewController& makeController(FlutterDesktopEngine& engine);

  // The thing behind a handle; anything else ends the run.
  FlutterDesktopEngine& engineBehind(const char* call, FlutterDesktopEngineRef engine);
  FlutterDesktopMessenger& messengerBehind(const char* call, FlutterDesktopMessengerRef messenger);
  FlutterDesktopViewController& controllerBehind(const char* call, FlutterDesktopViewControllerRef controller);
  FlutterDesktopView& viewBehind(const char* call, FlutterDesktopViewRef view);
  FlutterDesktopPluginRegistrar& registrarBehind(const char* call, FlutterDesktopPluginRegistrarRef registrar);
  void answer(const FlutterDesktopMessageResponseHandle* handle, Bytes reply);

  // One message of the interface to the host; see Platform::sendToHost.
  std::optional<Bytes> deliver(const std::string& channel, const Bytes& message);

  // Lets go of what is behind messages that have been answered: a second answer isn't told apart any more.
  void forgetAnswered();

  // A reply to the host that comes in the message loop's next turn.
  void queueReply(FlutterDesktopBinaryReply reply, void* userData, Bytes data);

  // One thing that the library does in the message loop; false when there is none.
  bool performTask();
  bool hasDrawnFrame() const { return hasDrawnFrame_; }

 private:
  bool drawFrame();

  std::deque<std::unique_ptr<FlutterDesktopEngine>> engines_;
  std::deque<std::unique_ptr<FlutterDesktopMessenger>> messengers_;
  std::deque<std::unique_ptr<FlutterDesktopViewController>> controllers_;
  std::deque<std::unique_ptr<FlutterPlatformMessageResponseHandle>> responses_;
  std::deque<std::function<void()>> replies_;
  bool hasDrawnFrame_ = false;
};

}  // namespace orvane::simulation
