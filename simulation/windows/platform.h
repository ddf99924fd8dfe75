#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "windows/painted.h"
#include "world/bytes.h"
#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// The interface behind the embedding library: what performs a scenario's steps.
class InterfaceScript {
 public:
  virtual ~InterfaceScript() = default;

  // Called on the platform thread out of the message loop, once the first frame has been shown and
  // whenever no message waits. Performs one step; false when none is left.
  virtual bool performStep() = 0;

  // Called once, when the steps are done and the messages behind them are handled, and before the
  // host is closed: the moment of the end state. Also called when the host's loop ended by itself.
  virtual void stepsDone() = 0;

  // A call of the host to the interface over `channel`; its reply, nullopt for none.
  virtual std::optional<Bytes> messageFromHost(const std::string& channel, const Bytes& message) = 0;
};

// What the embedding library was given.
struct EngineRecord {
  bool created = false;
  Text assetsPath;
  Text icuDataPath;
  Text aotLibraryPath;
  std::vector<std::string> entryPointArguments;
  bool argumentPointerWasNull = true;
  int width = 0;
  int height = 0;
  std::vector<std::string> plugins;  // as registered, in order
};

struct ShellCall {
  std::optional<std::string> owner;
  std::optional<Text> verb;
  std::optional<Text> file;
  std::optional<Text> parameters;
  std::optional<Text> directory;
  int show = 0;
};

struct AttributeSet {
  std::string window;
  std::uint32_t attribute = 0;
  std::uint32_t value = 0;
};

struct PostedMessage {
  std::string window;
  std::uint32_t message = 0;
  std::uint64_t wParam = 0;
  std::int64_t lParam = 0;
};

// A window class as the program asked for it.
struct RegisteredClass {
  Text name;
  std::uint32_t style = 0;
  bool hasIcon = false;
  bool hasCursor = false;
};

struct DuplicatedDescriptor {
  int from = 0;
  int to = 0;
};

struct PlatformRecords {
  EngineRecord engine;
  std::vector<ShellCall> shell;
  std::vector<AttributeSet> attributes;
  std::vector<PostedMessage> posted;
  std::vector<Painted> painted;
  std::vector<RegisteredClass> classes;
  std::vector<DuplicatedDescriptor> descriptors;
};

// The platform's functions in front of one desktop, for one run of the host in this process.
// There is one of it in a process; it lives as long as the process. Where several stand one after
// another (tests), the functions belong to the last one made.
class Platform {
 public:
  // `script` may be null where no host runs (contract tests).
  Platform(Desktop& desktop, InterfaceScript* script, std::vector<Text> arguments);
  ~Platform();
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;

  // The host from wWinMain to its exit code. When the script's steps are done, closes the host's
  // main window as a person does.
  int run();

  // One message of the interface to the host, on the platform thread. Returns the reply: nullopt
  // when none came before the host's handler returned, empty bytes for an empty reply.
  std::optional<Bytes> sendToHost(const std::string& channel, const Bytes& message);

  // A message posted by another program.
  void post(Window& window, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);

  PlatformRecords& records();
  Desktop& desktop();

 private:
  std::unique_ptr<PlatformState> state_;
};

}  // namespace orvane::simulation
