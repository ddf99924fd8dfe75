#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "embedding/codec_bytes.h"
#include "embedding/recorded_result.h"
#include "embedding/reference_codec.h"
#include "embedding/standard_method_codec.h"
#include "support/find.h"
#include "support/input_text.h"

// Any bytes as a value, as a call and as a reply: read as the second writing of the codec reads them,
// and stable from the first decoding on.
namespace orvane::fuzzing {
namespace {

using embedding_tests::Bytes;
using embedding_tests::readReference;
using embedding_tests::RecordedResult;
using embedding_tests::ReferenceReading;
using embedding_tests::ResultCalls;
using embedding_tests::writeReference;
using embedding_tests::written;

const StandardMethodCodec& codec() { return StandardMethodCodec::instance(); }

std::vector<std::string> takeErrorLines() {
  std::vector<std::string> lines = splitText(takeErrorText(), '\n');
  lines.pop_back();  // behind the last line's end
  return lines;
}

Bytes writtenByModel(const EncodableValue& value) {
  Bytes bytes;
  writeReference(value, bytes);
  return bytes;
}

void checkStability(const EncodableValue& value) {
  const Bytes once = written(value);
  require(once == writtenByModel(value), "a value is written as the model writes it");
  const EncodableValue again = embedding_tests::read(once);
  require(again == value, "a value comes back equal");
  require(written(again) == once, "a value that came back is written alike");
  require((value <=> EncodableValue(value)) == 0, "a value equals its copy");
}

void checkValue(const Bytes& bytes) {
  const ReferenceReading expected = readReference(bytes);
  ByteBufferStreamReader reader(bytes.data(), bytes.size());
  takeErrorText();
  const EncodableValue value = StandardCodecSerializer::instance().ReadValue(reader);
  require(takeErrorLines() == expected.errors, "the error lines are those of the model");
  require(reader.limits().exceeded() == expected.isTooDeep, "what is too deep for the model is so for the codec");
  require(reader.position() == expected.position, "the codec reads as far as the model");
  require(writtenByModel(value) == writtenByModel(expected.value), "the value is that of the model");
  if (!expected.isTooDeep) {
    checkStability(value);
    require(takeErrorText().empty(), "a whole value is read without an error line");
  }
}

void checkCall(const Bytes& bytes) {
  const ReferenceReading name = readReference(bytes);
  takeErrorText();
  const auto call = codec().DecodeMethodCall(bytes.data(), bytes.size());
  const bool isNamed = std::holds_alternative<std::string>(name.value);
  if (!isNamed) {
    require(call == nullptr, "a call without a name is none");
    require(takeErrorLines().back() == "Invalid method call; method name is not a string.", "and the log says so");
    return;
  }
  if (call == nullptr) {
    return;  // too deep
  }
  require(call->method_name() == std::get<std::string>(name.value), "the name is that of the model");
  require(call->arguments() != nullptr, "a call that came has arguments");
  const auto once = codec().EncodeMethodCall(*call);
  const auto again = codec().DecodeMethodCall(once->data(), once->size());
  require(again != nullptr && again->method_name() == call->method_name() && *again->arguments() == *call->arguments(),
          "a call comes back equal");
  require(*codec().EncodeMethodCall(*again) == *once, "a call that came back is written alike");
}

// nullopt when the envelope throws, as one whose texts are none does.
std::optional<bool> process(const Bytes& bytes, ResultCalls& calls) {
  RecordedResult result(calls);
  try {
    return codec().DecodeAndProcessResponseEnvelope(bytes.data(), bytes.size(), result);
  } catch (const std::bad_variant_access&) {
    return std::nullopt;
  }
}

Bytes envelopeOf(const ResultCalls& calls) {
  const EncodableValue* const value = calls.values.empty() ? nullptr : &calls.values.front();
  return calls.names.front() == "Success" ? *codec().EncodeSuccessEnvelope(value)
                                          : *codec().EncodeErrorEnvelope(calls.code, calls.message, value);
}

void checkEnvelope(const Bytes& bytes) {
  ResultCalls calls;
  const std::optional<bool> isEnvelope = process(bytes, calls);
  const int kind = bytes.empty() ? 0 : bytes.front();
  require(isEnvelope.has_value() || kind == 1, "only an error's texts may be of another type");
  require(!isEnvelope.value_or(false) || kind <= 1, "an envelope begins with 0 or 1");
  require(calls.names.size() == (isEnvelope.value_or(false) ? 1U : 0U), "an envelope is told once, other bytes never");
  if (calls.names.empty()) {
    return;
  }
  require(calls.names.front() == (kind == 0 ? "Success" : "Error"), "the first byte tells success from error");
  const Bytes once = envelopeOf(calls);
  ResultCalls again;
  require(process(once, again) == true && again.names == calls.names && again.values == calls.values &&
              again.code == calls.code && again.message == calls.message,
          "an envelope comes back equal");
  require(envelopeOf(again) == once, "an envelope that came back is written alike");
}

}  // namespace
}  // namespace orvane::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  const fuzzing::Bytes bytes(data, data + size);
  fuzzing::checkValue(bytes);
  fuzzing::checkCall(bytes);
  fuzzing::checkEnvelope(bytes);
  return 0;
}
