#pragma once

#include <string>
#include <vector>

#include "embedding/encodable_value.h"

namespace orvane::benchmarks {

// One message as it crosses a channel.
struct Payload {
  std::string name;
  std::string method;  // empty for a reply
  EncodableValue value;
};

// A a reply with 60 trace steps, B the same with 5,000, C the arguments of a call, D a reply with a
// list of 8 MiB, E a reply of geometry, F a list of 100,000 integers of 64 bits.
std::vector<Payload> makePayloads();

}  // namespace orvane::benchmarks
