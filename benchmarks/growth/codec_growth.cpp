// orvane-codec-growth BYTES: encodes a call of about that many bytes, and decodes it. What either takes is counted
// from outside.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "embedding/encodable_value.h"
#include "embedding/method_call.h"
#include "embedding/standard_method_codec.h"

namespace orvane::growth {
namespace {

// As a record below is encoded.
constexpr std::size_t recordBytes = 120;

EncodableMap makeRecord(std::size_t number) {
  EncodableMap record;
  record.emplace(EncodableValue("title"), EncodableValue("Lease questions, page " + std::to_string(number % 10)));
  record.emplace(EncodableValue("index"), EncodableValue(static_cast<std::int32_t>(number)));
  record.emplace(EncodableValue("handle"), EncodableValue(static_cast<std::int64_t>(number)));
  record.emplace(EncodableValue("selected"), EncodableValue(number % 2 == 0));
  record.emplace(EncodableValue("bounds"), EncodableValue(std::vector<std::int32_t>{40, 20, 1640, 1020}));
  record.emplace(EncodableValue("score"), EncodableValue(0.25));
  return record;
}

// Records, and a text that fills up.
EncodableValue makeArguments(std::size_t sizeBytes) {
  EncodableList list;
  for (std::size_t number = 0; number < sizeBytes / recordBytes; ++number) {
    list.emplace_back(makeRecord(number));
  }
  list.emplace_back(std::string(sizeBytes % recordBytes, 'x'));
  return EncodableValue(std::move(list));
}

}  // namespace

using Bytes = std::unique_ptr<std::vector<std::uint8_t>>;

// Functions of their own, by which what happens in them is told from the rest.
[[gnu::noinline]] Bytes encodeCall(const MethodCall& call) {
  return StandardMethodCodec::instance().EncodeMethodCall(call);
}

[[gnu::noinline]] std::unique_ptr<MethodCall> decodeCall(const std::vector<std::uint8_t>& bytes) {
  return StandardMethodCodec::instance().DecodeMethodCall(bytes.data(), bytes.size());
}

int run(std::size_t sizeBytes) {
  const MethodCall call("grow", std::make_unique<EncodableValue>(makeArguments(sizeBytes)));
  const Bytes bytes = encodeCall(call);
  const std::unique_ptr<MethodCall> decoded = decodeCall(*bytes);
  if (decoded == nullptr || *decoded->arguments() != *call.arguments()) {
    std::fputs("what was decoded isn't what was encoded\n", stderr);
    return 1;
  }
  std::printf("%zu\n", bytes->size());
  return 0;
}

}  // namespace orvane::growth

int main(int count, char** words) {
  const unsigned long long sizeBytes = count == 2 ? std::strtoull(words[1], nullptr, 10) : 0;
  if (sizeBytes == 0) {
    std::fputs("usage: orvane-codec-growth BYTES\n", stderr);
    return 2;
  }
  return orvane::growth::run(static_cast<std::size_t>(sizeBytes));
}
