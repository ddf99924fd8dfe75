#include "messages/call_shape.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "embedding/recorded_result.h"
#include "embedding/standard_method_codec.h"
#include "messages/methods.h"
#include "support/find.h"

namespace orvane::fuzzing {
namespace {

std::span<const char* const> methodsOf(const std::string& channel) {
  return channel == "orvane/browser" ? browserChannel : windowChannel;
}

template <typename Value>
const Value* findIn(const EncodableMap& map, const char* key) {
  const auto found = map.find(EncodableValue(key));
  return found == map.end() ? nullptr : std::get_if<Value>(&found->second);
}

}  // namespace

std::string CallShape::text(const char* key) const {
  const auto* const text = arguments ? findIn<std::string>(*arguments, key) : nullptr;
  return text == nullptr ? std::string() : *text;
}

CallShape readCall(const std::string& channel, const Bytes& message) {
  CallShape shape;
  shape.channel = channel;
  const auto call = StandardMethodCodec::instance().DecodeMethodCall(message.data(), message.size());
  if (call == nullptr) {
    return shape;
  }
  shape.method = call->method_name();
  const std::span<const char* const> known = methodsOf(channel);
  shape.isKnown =
      std::any_of(known.begin(), known.end(), [&](std::string_view method) { return method == shape.method; });
  if (const auto* map = std::get_if<EncodableMap>(call->arguments())) {
    shape.arguments = *map;
  }
  return shape;
}

ReplyShape readReply(const Bytes& reply) {
  ReplyShape shape;
  shape.isEmpty = reply.empty();
  if (shape.isEmpty) {
    return shape;
  }
  embedding_tests::ResultCalls calls;
  embedding_tests::RecordedResult result(calls);
  require(StandardMethodCodec::instance().DecodeAndProcessResponseEnvelope(reply.data(), reply.size(), result),
          "a reply is an envelope");
  if (calls.names.front() == "Error") {
    shape.errorCode = calls.code;
    shape.errorMessage = calls.message;
    return shape;
  }
  require(!calls.values.empty() && std::holds_alternative<EncodableMap>(calls.values.front()), "a success has a map");
  shape.map = std::get<EncodableMap>(calls.values.front());
  return shape;
}

bool flagOf(const EncodableMap& map, const char* key) {
  const auto* const flag = findIn<bool>(map, key);
  require(flag != nullptr, "a reply has its flags");
  return *flag;
}

std::string textIn(const EncodableMap& map, const char* key) {
  const auto* const text = findIn<std::string>(map, key);
  require(text != nullptr, "a reply has its texts");
  return *text;
}

std::vector<TraceStep> traceOf(const EncodableMap& reply) {
  const auto* const logs = findIn<EncodableList>(reply, "logs");
  require(logs != nullptr && !logs->empty(), "a provider's reply has a trace");
  std::vector<TraceStep> steps;
  for (const EncodableValue& entry : *logs) {
    const auto* const step = std::get_if<EncodableMap>(&entry);
    require(step != nullptr && step->size() == 2, "a step has two texts");
    steps.push_back({textIn(*step, "step"), textIn(*step, "result")});
  }
  return steps;
}

}  // namespace orvane::fuzzing
