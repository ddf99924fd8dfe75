#include "embedding/engine_method_result.h"

#include <utility>

namespace orvane {

EngineMethodResult::EngineMethodResult(ReplyFunction reply, const MethodCodec* codec)
    : slot_(std::move(reply)), codec_(codec) {}

void EngineMethodResult::SuccessInternal(const EncodableValue* result) {
  slot_.Send(codec_->EncodeSuccessEnvelope(result).get());
}

void EngineMethodResult::ErrorInternal(const std::string& code, const std::string& message,
                                       const EncodableValue* details) {
  slot_.Send(codec_->EncodeErrorEnvelope(code, message, details).get());
}

void EngineMethodResult::NotImplementedInternal() { slot_.Send(nullptr); }

}  // namespace orvane
