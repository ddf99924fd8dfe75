#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/json.h"
#include "scenario/node.h"
#include "scenario/references.h"

// The interface's side of the standard message codec: between the JSON forms of a scenario and the
// bytes of a channel.
//
// JSON values stand for themselves: a whole number is a 32-bit integer where it fits, else a 64-bit
// one, a number with a point or exponent a double, an object a map with text keys in the order
// written. The other forms are objects with one key: $int32, $int64, $double (a number, or "NaN",
// "Infinity", "-Infinity"), $bytes (base64), $int32List, $int64List, $doubleList, $floatList,
// $map ([[key, value], …]: a map that has other keys than texts), and in arguments $window,
// $windowText, $from and $fromText.
namespace orvane::simulation {

// What the forms that speak of a run mean.
struct ValueSources {
  std::function<std::uint64_t(const std::string& windowId)> handleOf;
  // "NAME.KEY" of an earlier reply, in its JSON form; null where that reply has no such key.
  std::function<Json(const std::string& reference)> replyValue;
};

// Throws ScenarioError for a form that doesn't exist or isn't well-formed.
void checkValue(const Node& node, References& references);

// `value` must have passed checkValue.
std::vector<std::uint8_t> encodeMethodCall(const std::string& method, const Json& value, const ValueSources& sources);
std::vector<std::uint8_t> encodeValue(const Json& value, const ValueSources& sources);

struct DecodedCall {
  std::string method;
  Json arguments;
};

// nullopt for bytes that are no method call.
std::optional<DecodedCall> decodeMethodCall(const std::vector<std::uint8_t>& message);

struct DecodedReply {
  std::string kind;  // success, error, notImplemented, none; malformed: bytes that are no reply
  Json value;        // of a success
  Json error;        // of an error: code, message, details
};

// nullopt: no reply came.
DecodedReply decodeReply(const std::optional<std::vector<std::uint8_t>>& reply);

}  // namespace orvane::simulation
