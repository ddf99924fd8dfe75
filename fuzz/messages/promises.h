#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "embedding/encodable_value.h"
#include "messages/call_shape.h"
#include "messages/records.h"
#include "world/desktop.h"

namespace orvane::fuzzing {

// What the host promises whatever it is asked: checked around each call of the interface and at the
// end. What doesn't hold is a find.
class Promises {
 public:
  explicit Promises(simulation::Desktop& desktop);

  void beforeCall(const std::string& channel, const Bytes& message);
  void checkReply(const std::optional<Bytes>& reply);
  void checkMessageOfHost(const std::string& channel, const Bytes& message) const;
  void checkEnd(int exitCode) const;

 private:
  struct Moment {
    std::int64_t ms = 0;
    std::size_t keyEvents = 0;
    int sendsByControl = 0;
    std::uint32_t clipboardSequence = 0;
    std::optional<simulation::Text> clipboardText;
    std::map<std::string, std::int64_t, std::less<>> held;
    std::map<const simulation::Window*, const simulation::Tab*> selectedTabs;
  };

  Moment takeMoment() const;
  void checkGround() const;
  void checkBrowserCall(const ReplyShape& reply) const;
  void checkDelivery(const EncodableMap& reply) const;
  std::string targetOf(const std::vector<TraceStep>& trace) const;
  void checkActivation(const EncodableMap& reply) const;
  void checkTabsBehind(const EncodableMap& reply) const;
  void requireKeysOnly(const std::vector<std::string>& windows, const char* promise) const;
  int keyDowns(int virtualKey) const;
  bool tellsPrompt(const Bytes& bytes) const;

  simulation::Desktop& desktop_;
  std::string prompt_;  // empty: too short to be looked for
  bool isPromptSaid_ = false;
  Moment before_;
  CallShape call_;
};

}  // namespace orvane::fuzzing
