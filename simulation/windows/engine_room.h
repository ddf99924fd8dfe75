#pragma once

#include <windows.h>

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "embedding/flutter_library.h"
#include "world/bytes.h"

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
  std::atomic<int> references = 1;
  std::recursive_mutex lock;                            // the host's, where its threads are real ones
  std::atomic<int> locks = 0;                           // how often it is locked
  std::atomic<FlutterDesktopEngine*> engine = nullptr;  // null when it has gone
};

struct FlutterDesktopView {
  HWND window = nullptr;
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

// The engines, views and messages of the embedding library, all on the platform thread but for
// replies. A use that the library's contract forbids ends the run.
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

  // One message of the interface to the host. Its reply: nullopt when none came before the host's
  // handler returned, empty bytes for an empty one and for a channel without a handler.
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

  std::recursive_mutex mutex_;  // of the lists: replies may be sent on any thread
  std::deque<std::unique_ptr<FlutterDesktopEngine>> engines_;
  std::deque<std::unique_ptr<FlutterDesktopMessenger>> messengers_;
  std::deque<std::unique_ptr<FlutterDesktopViewController>> controllers_;
  std::deque<std::unique_ptr<FlutterPlatformMessageResponseHandle>> responses_;
  std::deque<std::function<void()>> replies_;
  bool hasDrawnFrame_ = false;
};

}  // namespace orvane::simulation
