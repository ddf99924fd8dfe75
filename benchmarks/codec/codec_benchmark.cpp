#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <iterator>
#include <memory>
#include <msgpack/sbuffer.hpp>
#include <string>
#include <utility>

#include "allocations.h"
#include "cbor_peer.h"
#include "embedding/standard_method_codec.h"
#include "flexbuffers_peer.h"
#include "msgpack_peer.h"
#include "payloads.h"

// Each payload through the codec, through its peers, and as plain copies. The names are
// PAYLOAD/encode/WHO, PAYLOAD/decode/WHO, PAYLOAD/copy/tree, PAYLOAD/copy/inserted and
// PAYLOAD/copy/bytes.
namespace orvane::benchmarks {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Does nothing with what it is told, but lets a check have it.
class TakenResult final : public MethodResult {
 public:
  explicit TakenResult(EncodableValue* taken = nullptr) : taken_(taken) {}

 protected:
  void SuccessInternal(const EncodableValue* result) override {
    benchmark::DoNotOptimize(result);
    if (taken_ != nullptr) {
      *taken_ = *result;
    }
  }
  void ErrorInternal(const std::string&, const std::string&, const EncodableValue*) override {}
  void NotImplementedInternal() override {}

 private:
  EncodableValue* taken_;
};

const StandardMethodCodec& codec() { return StandardMethodCodec::instance(); }

void require(bool condition, const std::string& what) {
  if (!condition) {
    std::fprintf(stderr, "orvane-codec-benchmark: %s\n", what.c_str());
    std::exit(1);
  }
}

std::unique_ptr<EncodableValue> copyValue(const EncodableValue& value) {
  return std::make_unique<EncodableValue>(value);
}

// The same tree, its maps built key by key as any reader has to build them.
EncodableValue copyByInserting(const EncodableValue& value) {
  if (const auto* const list = std::get_if<EncodableList>(&value)) {
    EncodableList copy;
    copy.reserve(list->size());
    for (const EncodableValue& element : *list) {
      copy.push_back(copyByInserting(element));
    }
    return copy;
  }
  if (const auto* const map = std::get_if<EncodableMap>(&value)) {
    EncodableMap copy;
    for (const auto& [key, element] : *map) {
      copy.emplace_hint(copy.end(), key, copyByInserting(element));
    }
    return copy;
  }
  return value;
}

// Measures `operation`, which leaves nothing behind, and counts its allocations.
void measure(const std::string& name, std::function<void()> operation) {
  benchmark::RegisterBenchmark(name.c_str(), [operation = std::move(operation)](benchmark::State& state) {
    const std::size_t before = countedAllocations();
    operation();
    const std::size_t allocations = countedAllocations() - before;
    for (auto iteration : state) {
      static_cast<void>(iteration);
      operation();
    }
    state.counters["allocations"] = static_cast<double>(allocations);
  });
}

// The whole message: a call with its name, or a reply in its envelope.
void measureCall(const Payload& payload) {
  const auto call = std::make_shared<const MethodCall>(payload.method, copyValue(payload.value));
  const std::shared_ptr<const Bytes> bytes = codec().EncodeMethodCall(*call);
  const auto decoded = codec().DecodeMethodCall(bytes->data(), bytes->size());
  require(decoded != nullptr && *decoded->arguments() == payload.value, payload.name + " doesn't come back");
  measure(payload.name + "/encode/orvane", [call] { benchmark::DoNotOptimize(codec().EncodeMethodCall(*call)); });
  measure(payload.name + "/decode/orvane",
          [bytes] { benchmark::DoNotOptimize(codec().DecodeMethodCall(bytes->data(), bytes->size())); });
  measure(payload.name + "/copy/tree", [call] {
    benchmark::DoNotOptimize(std::make_unique<MethodCall>(call->method_name(), copyValue(*call->arguments())));
  });
  measure(payload.name + "/copy/bytes", [bytes] { benchmark::DoNotOptimize(Bytes(*bytes)); });
}

void measureReply(const Payload& payload) {
  const std::shared_ptr<const Bytes> bytes = codec().EncodeSuccessEnvelope(&payload.value);
  EncodableValue decoded;
  TakenResult result(&decoded);
  require(codec().DecodeAndProcessResponseEnvelope(bytes->data(), bytes->size(), result) && decoded == payload.value,
          payload.name + " doesn't come back");
  measure(payload.name + "/encode/orvane",
          [&payload] { benchmark::DoNotOptimize(codec().EncodeSuccessEnvelope(&payload.value)); });
  measure(payload.name + "/decode/orvane", [bytes] {
    TakenResult taken;
    benchmark::DoNotOptimize(codec().DecodeAndProcessResponseEnvelope(bytes->data(), bytes->size(), taken));
  });
  measure(payload.name + "/copy/tree", [&payload] { benchmark::DoNotOptimize(EncodableValue(payload.value)); });
  measure(payload.name + "/copy/bytes", [bytes] { benchmark::DoNotOptimize(Bytes(*bytes)); });
}

void measureInserting(const Payload& payload) {
  measure(payload.name + "/copy/inserted", [&payload] { benchmark::DoNotOptimize(copyByInserting(payload.value)); });
}

void measureMsgpack(const Payload& payload) {
  const auto packed = std::make_shared<const msgpack::sbuffer>(packMsgpackBuffer(payload.value));
  require(unpackMsgpack(packed->data(), packed->size()) == payload.value, payload.name + " is another for msgpack");
  measure(payload.name + "/encode/msgpack", [&payload] { benchmark::DoNotOptimize(packMsgpack(payload.value)); });
  measure(payload.name + "/encode/msgpack-buffer",
          [&payload] { benchmark::DoNotOptimize(packMsgpackBuffer(payload.value)); });
  measure(payload.name + "/decode/msgpack",
          [packed] { benchmark::DoNotOptimize(unpackMsgpack(packed->data(), packed->size())); });
}

void measureCbor(const Payload& payload) {
  const auto json = std::make_shared<const nlohmann::json>(toJson(payload.value));
  const auto bytes = std::make_shared<const Bytes>(nlohmann::json::to_cbor(*json));
  require(nlohmann::json::from_cbor(*bytes) == *json, payload.name + " is another for CBOR");
  measure(payload.name + "/encode/cbor", [json] { benchmark::DoNotOptimize(nlohmann::json::to_cbor(*json)); });
  measure(payload.name + "/decode/cbor", [bytes] { benchmark::DoNotOptimize(nlohmann::json::from_cbor(*bytes)); });
}

void measureFlexBuffers(const Payload& payload) {
  const auto bytes = std::make_shared<const Bytes>(buildFlexBuffer(payload.value));
  require(readFlexBuffer(*bytes) == payload.value, payload.name + " is another for FlexBuffers");
  measure(payload.name + "/encode/flexbuffers",
          [&payload] { benchmark::DoNotOptimize(buildFlexBuffer(payload.value)); });
  measure(payload.name + "/decode/flexbuffers", [bytes] { benchmark::DoNotOptimize(readFlexBuffer(*bytes)); });
}

}  // namespace
}  // namespace orvane::benchmarks

int main(int argc, char** argv) {
  using namespace orvane::benchmarks;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  const std::vector<Payload> payloads = makePayloads();
  for (const Payload& payload : payloads) {
    payload.method.empty() ? measureReply(payload) : measureCall(payload);
    measureInserting(payload);
    measureMsgpack(payload);
    measureCbor(payload);
    measureFlexBuffers(payload);
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
