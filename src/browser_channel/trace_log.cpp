#include "browser_channel/trace_log.h"

#include <utility>

namespace orvane {

void appendTrace(TraceLog& trace, const std::string& step, const std::string& result) {
  EncodableMap entry;
  entry.emplace(EncodableValue("step"), EncodableValue(step));
  entry.emplace(EncodableValue("result"), EncodableValue(result));
  trace.emplace_back(std::move(entry));
}

EncodableMap makeProviderReply(bool success, const std::string& message, const TraceLog& trace) {
  EncodableMap reply;
  reply.emplace(EncodableValue("success"), EncodableValue(success));
  reply.emplace(EncodableValue("message"), EncodableValue(message));
  reply.emplace(EncodableValue("logs"), EncodableValue(trace));
  return reply;
}

}  // namespace orvane
