#pragma once

#include <optional>
#include <string>
#include <vector>

#include "embedding/encodable_value.h"
#include "messages/records.h"

namespace orvane::fuzzing {

// A message of the interface, as far as it is a call.
struct CallShape {
  std::string channel;
  bool isKnown = false;  // a method of its channel
  std::string method;
  std::optional<EncodableMap> arguments;  // nullopt: no map

  bool isOf(const char* name) const { return isKnown && method == name; }
  // The text under `key`; empty when there is none.
  std::string text(const char* key) const;
};

CallShape readCall(const std::string& channel, const Bytes& message);

// A reply: empty bytes, a success or an error.
struct ReplyShape {
  bool isEmpty = false;
  std::optional<EncodableMap> map;  // of a success
  std::string errorCode;
  std::string errorMessage;
};

// A find for bytes that are no reply, and for a success without a map.
ReplyShape readReply(const Bytes& reply);

bool flagOf(const EncodableMap& map, const char* key);         // a find when there is none
std::string textIn(const EncodableMap& map, const char* key);  // the same

// The steps of a reply's trace. A find when it has none, or none in its form.
struct TraceStep {
  std::string step;
  std::string result;
};
std::vector<TraceStep> traceOf(const EncodableMap& reply);

}  // namespace orvane::fuzzing
