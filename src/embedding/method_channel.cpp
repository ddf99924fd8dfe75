#include "embedding/method_channel.h"

#include <utility>

#include "embedding/engine_method_result.h"
#include "embedding/error_stream.h"

namespace orvane {
namespace {

MessageHandler makeMessageHandler(MethodCallHandler handler, const MethodCodec* codec, std::string name) {
  return [handler = std::move(handler), codec, name = std::move(name)](const std::uint8_t* bytes, std::size_t size,
                                                                       ReplyFunction reply) {
    auto result = std::make_unique<EngineMethodResult>(std::move(reply), codec);
    const std::unique_ptr<MethodCall> call = codec->DecodeMethodCall(bytes, size);
    if (call == nullptr) {
      logErrorLine("Unable to construct method call from message on channel " + name);
      result->NotImplemented();
      return;
    }
    handler(*call, std::move(result));
  };
}

// The result is shared because function objects are copied.
ReplyFunction makeReplyFunction(std::shared_ptr<MethodResult> result, const MethodCodec* codec, std::string name) {
  return [result = std::move(result), codec, name = std::move(name)](const std::uint8_t* bytes, std::size_t size) {
    if (size == 0) {
      result->NotImplemented();
    } else if (!codec->DecodeAndProcessResponseEnvelope(bytes, size, *result)) {
      logErrorLine("Unable to decode reply to method invocation on channel " + name);
      result->NotImplemented();
    }
  };
}

}  // namespace

MethodChannel::MethodChannel(BinaryMessenger* messenger, std::string name, const MethodCodec* codec)
    : messenger_(messenger), name_(std::move(name)), codec_(codec) {}

void MethodChannel::InvokeMethod(const std::string& method, std::unique_ptr<EncodableValue> arguments,
                                 std::unique_ptr<MethodResult> result) const {
  const MethodCall call(method, std::move(arguments));
  const auto message = codec_->EncodeMethodCall(call);
  ReplyFunction reply;
  if (result != nullptr) {
    reply = makeReplyFunction(std::move(result), codec_, name_);
  }
  messenger_->Send(name_, message->data(), message->size(), std::move(reply));
}

void MethodChannel::SetMethodCallHandler(MethodCallHandler handler) const {
  messenger_->SetMessageHandler(name_,
                                handler ? makeMessageHandler(std::move(handler), codec_, name_) : MessageHandler());
}

}  // namespace orvane
