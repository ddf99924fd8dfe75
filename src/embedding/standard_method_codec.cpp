#include "embedding/standard_method_codec.h"

#include <utility>

#include "embedding/byte_buffer_stream_reader.h"
#include "embedding/byte_buffer_stream_writer.h"
#include "embedding/error_stream.h"

namespace orvane {
namespace {

constexpr std::uint8_t successByte = 0;
constexpr std::uint8_t errorByte = 1;

// Most messages fit, and larger ones grow from here in few steps.
constexpr std::size_t initialCapacityBytes = 256;

std::unique_ptr<std::vector<std::uint8_t>> makeMessage() {
  auto message = std::make_unique<std::vector<std::uint8_t>>();
  message->reserve(initialCapacityBytes);
  return message;
}

const EncodableValue& valueOrNull(const EncodableValue* value) {
  static const EncodableValue null;
  return value == nullptr ? null : *value;
}

}  // namespace

const StandardMethodCodec& StandardMethodCodec::instance() {
  static const StandardMethodCodec codec(StandardCodecSerializer::instance());
  return codec;
}

std::unique_ptr<MethodCall> StandardMethodCodec::DecodeMethodCallInternal(const std::uint8_t* bytes,
                                                                          std::size_t size) const {
  ByteBufferStreamReader stream(bytes, size);
  EncodableValue name = serializer_.ReadValue(stream);
  auto* text = std::get_if<std::string>(&name);
  if (text == nullptr) {
    logErrorLine("Invalid method call; method name is not a string.");
    return nullptr;
  }
  auto arguments = std::make_unique<EncodableValue>(serializer_.ReadValue(stream));
  if (stream.limits().exceeded()) {
    return nullptr;
  }
  return std::make_unique<MethodCall>(std::move(*text), std::move(arguments));
}

std::unique_ptr<std::vector<std::uint8_t>> StandardMethodCodec::EncodeMethodCallInternal(const MethodCall& call) const {
  auto message = makeMessage();
  ByteBufferStreamWriter stream(*message);
  serializer_.WriteValue(call.method_name(), stream);
  serializer_.WriteValue(valueOrNull(call.arguments()), stream);
  return message;
}

std::unique_ptr<std::vector<std::uint8_t>> StandardMethodCodec::EncodeSuccessEnvelopeInternal(
    const EncodableValue* result) const {
  auto message = makeMessage();
  ByteBufferStreamWriter stream(*message);
  stream.WriteByte(successByte);
  serializer_.WriteValue(valueOrNull(result), stream);
  return message;
}

std::unique_ptr<std::vector<std::uint8_t>> StandardMethodCodec::EncodeErrorEnvelopeInternal(
    const std::string& code, const std::string& message, const EncodableValue* details) const {
  auto envelope = makeMessage();
  ByteBufferStreamWriter stream(*envelope);
  stream.WriteByte(errorByte);
  serializer_.WriteValue(code, stream);
  serializer_.WriteValue(message.empty() ? EncodableValue() : EncodableValue(message), stream);
  serializer_.WriteValue(valueOrNull(details), stream);
  return envelope;
}

bool StandardMethodCodec::DecodeAndProcessResponseEnvelopeInternal(const std::uint8_t* bytes, std::size_t size,
                                                                   MethodResult& result) const {
  ByteBufferStreamReader stream(bytes, size);
  switch (stream.ReadByte()) {
    case successByte:
      return processSuccess(stream, result);
    case errorByte:
      return processError(stream, result);
    default:
      return false;
  }
}

bool StandardMethodCodec::processSuccess(ByteStreamReader& stream, MethodResult& result) const {
  const EncodableValue value = serializer_.ReadValue(stream);
  if (stream.limits().exceeded()) {
    return false;
  }
  if (value.isNull()) {
    result.Success();
  } else {
    result.Success(value);
  }
  return true;
}

bool StandardMethodCodec::processError(ByteStreamReader& stream, MethodResult& result) const {
  const EncodableValue code = serializer_.ReadValue(stream);
  const EncodableValue message = serializer_.ReadValue(stream);
  const EncodableValue details = serializer_.ReadValue(stream);
  if (stream.limits().exceeded()) {
    return false;
  }
  const std::string& codeText = std::get<std::string>(code);
  const std::string messageText = message.isNull() ? std::string() : std::get<std::string>(message);
  if (details.isNull()) {
    result.Error(codeText, messageText);
  } else {
    result.Error(codeText, messageText, details);
  }
  return true;
}

}  // namespace orvane
