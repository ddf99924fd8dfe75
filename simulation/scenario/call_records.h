#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "scenario/json.h"

namespace orvane::simulation {

// What the host's handlers answer, and are answered with, when there is nothing to say: a success
// with null.
const std::vector<std::uint8_t>& emptySuccess();

// The calls between the interface and the host, both ways, in the report's forms.
class CallRecords {
 public:
  // A call of the interface. `method` is null for bytes that are no call; `reply` nullopt when none
  // came. The record stays open for more.
  Json& addReply(const std::string& as, const Json& method, const std::optional<std::vector<std::uint8_t>>& reply,
                 std::int64_t startMs, std::int64_t endMs);
  // A call of the host.
  void addCallFromHost(const std::string& channel, const std::vector<std::uint8_t>& message, std::int64_t ms);

  // Forgets all replies but the newest.
  void keepNewest(std::size_t count);

  // "NAME.KEY": the value under KEY in the map of the last reply of that name; null when there is none.
  Json replyValue(const std::string& reference) const;

  const Json& replies() const { return replies_; }
  const Json& callsFromHost() const { return callsFromHost_; }

 private:
  Json replies_ = Json::array();
  Json callsFromHost_ = Json::array();
};

}  // namespace orvane::simulation
