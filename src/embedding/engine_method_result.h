#pragma once

#include "embedding/binary_messenger.h"
#include "embedding/method_codec.h"
#include "embedding/method_result.h"
#include "embedding/reply_slot.h"

namespace orvane {

// The reply to a call of the interface, sent over the engine.
class EngineMethodResult final : public MethodResult {
 public:
  // Takes `reply` over. `codec` outlives the result.
  EngineMethodResult(ReplyFunction reply, const MethodCodec* codec);

 protected:
  void SuccessInternal(const EncodableValue* result) override;
  void ErrorInternal(const std::string& code, const std::string& message, const EncodableValue* details) override;
  void NotImplementedInternal() override;

 private:
  ReplySlot slot_;
  const MethodCodec* codec_;
};

}  // namespace orvane
