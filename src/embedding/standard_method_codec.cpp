#include "embedding/standard_method_codec.h"

#include <utility>

#include "embedding/byte_buffer_stream_reader.h"
#include "embedding/byte_buffer_stream_writer.h"
#include "embedding/error_stream.h"
#include "embedding/standard_codec_writing.h"

namespace orvane {
namespace {

constexpr std::uint8_t successByte = 0;
constexpr std::uint8_t errorByte = 1;

// `writeContent` writes the message to any target, and the same each time that it is called.
template <typename Content>
std::unique_ptr<std::vector<std::uint8_t>> writeMessage(const StandardCodecSerializer& serializer,
                                                        const Content& writeContent) {
  if (serializer.isExtended()) {
    auto message = std::make_unique<std::vector<std::uint8_t>>();
    ByteBufferStreamWriter stream(*message);
    writeContent(ExtendedTarget(serializer, stream));
    return message;
  }
  MessageWriter writer([&writeContent] {
    ByteCounter counter;
    writeContent(PlainTarget(counter));
    return counter.count();
  });
  writeContent(PlainTarget(writer));
  return writer.finish();
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
  std::unique_ptr<EncodableValue> arguments(new EncodableValue(serializer_.ReadValue(stream)));  // made in its place
  if (stream.limits().exceeded()) {
    return nullptr;
  }
  return std::make_unique<MethodCall>(std::move(*text), std::move(arguments));
}

std::unique_ptr<std::vector<std::uint8_t>> StandardMethodCodec::EncodeMethodCallInternal(const MethodCall& call) const {
  return writeMessage(serializer_, [&call](const auto& target) {
    target.writeText(call.method_name());
    target.writeElement(valueOrNull(call.arguments()));
  });
}

std::unique_ptr<std::vector<std::uint8_t>> StandardMethodCodec::EncodeSuccessEnvelopeInternal(
    const EncodableValue* result) const {
  return writeMessage(serializer_, [result](const auto& target) {
    target.stream().WriteByte(successByte);
    target.writeElement(valueOrNull(result));
  });
}

std::unique_ptr<std::vector<std::uint8_t>> StandardMethodCodec::EncodeErrorEnvelopeInternal(
    const std::string& code, const std::string& message, const EncodableValue* details) const {
  return writeMessage(serializer_, [&](const auto& target) {
    target.stream().WriteByte(errorByte);
    target.writeText(code);
    if (message.empty()) {
      target.writeElement(EncodableValue());
    } else {
      target.writeText(message);
    }
    target.writeElement(valueOrNull(details));
  });
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

bool StandardMethodCodec::processSuccess(ByteBufferStreamReader& stream, MethodResult& result) const {
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

bool StandardMethodCodec::processError(ByteBufferStreamReader& stream, MethodResult& result) const {
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
