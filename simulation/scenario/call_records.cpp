#include "scenario/call_records.h"

#include "scenario/value_codec.h"

namespace orvane::simulation {

const std::vector<std::uint8_t>& emptySuccess() {
  static const std::vector<std::uint8_t> envelope{0, 0};
  return envelope;
}

Json& CallRecords::addReply(const std::string& as, const Json& method,
                            const std::optional<std::vector<std::uint8_t>>& reply, std::int64_t startMs,
                            std::int64_t endMs) {
  DecodedReply decoded = decodeReply(reply);
  Json record;
  record["as"] = as;
  record["method"] = method;
  record["kind"] = decoded.kind;
  record["value"] = std::move(decoded.value);
  record["error"] = std::move(decoded.error);
  if (reply) record["replyHex"] = hexFromBytes(*reply);
  record["startMs"] = startMs;
  record["endMs"] = endMs;
  return replies_.emplace_back(std::move(record));
}

void CallRecords::addCallFromHost(const std::string& channel, const std::vector<std::uint8_t>& message,
                                  std::int64_t ms) {
  const auto call = decodeMethodCall(message);
  Json& record = callsFromHost_.emplace_back(Json::object());
  record["channel"] = validUtf8(channel);
  record["method"] = call ? Json(call->method) : Json(nullptr);
  record["arguments"] = call ? call->arguments : Json(nullptr);
  record["messageHex"] = hexFromBytes(message);
  record["ms"] = ms;
}

void CallRecords::keepNewest(std::size_t count) {
  if (replies_.size() <= count) return;
  replies_.erase(replies_.begin(), replies_.end() - static_cast<std::ptrdiff_t>(count));
}

Json CallRecords::replyValue(const std::string& reference) const {
  const std::size_t point = reference.find('.');
  const std::string name = reference.substr(0, point);
  const std::string key = reference.substr(point + 1);
  for (std::size_t index = replies_.size(); index > 0; --index) {
    const Json& reply = replies_[index - 1];
    if (reply.at("as") != name) continue;
    const Json& value = reply.at("value");
    return value.is_object() && value.contains(key) ? value.at(key) : Json(nullptr);
  }
  return nullptr;
}

}  // namespace orvane::simulation
