#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "embedding/encodable_value.h"
#include "embedding/method_call.h"
#include "embedding/method_result.h"

namespace orvane {

// The byte form of calls and of their replies. Bytes come in as a pointer and a size, where the
// pointer may be null when the size is 0; they go out as a vector, never null.
class MethodCodec {
 public:
  MethodCodec() = default;
  virtual ~MethodCodec() = default;

  MethodCodec(const MethodCodec&) = delete;
  MethodCodec& operator=(const MethodCodec&) = delete;

  // Null when the bytes are no method call, or hold values nested too deep.
  [[nodiscard]] std::unique_ptr<MethodCall> DecodeMethodCall(const std::uint8_t* bytes, std::size_t size) const {
    return DecodeMethodCallInternal(bytes, size);
  }

  [[nodiscard]] std::unique_ptr<std::vector<std::uint8_t>> EncodeMethodCall(const MethodCall& call) const {
    return EncodeMethodCallInternal(call);
  }

  // `result` is null when there is none.
  [[nodiscard]] std::unique_ptr<std::vector<std::uint8_t>> EncodeSuccessEnvelope(const EncodableValue* result) const {
    return EncodeSuccessEnvelopeInternal(result);
  }

  // An empty `message` counts as none; `details` is null when there are none.
  [[nodiscard]] std::unique_ptr<std::vector<std::uint8_t>> EncodeErrorEnvelope(const std::string& code,
                                                                               const std::string& message,
                                                                               const EncodableValue* details) const {
    return EncodeErrorEnvelopeInternal(code, message, details);
  }

  // Calls `result` with what the envelope says; false, and no call, when the bytes are no envelope or
  // hold values nested too deep.
  // Throws std::bad_variant_access for an error whose code is no text, or whose message neither a
  // text nor null.
  [[nodiscard]] bool DecodeAndProcessResponseEnvelope(const std::uint8_t* bytes, std::size_t size,
                                                      MethodResult& result) const {
    return DecodeAndProcessResponseEnvelopeInternal(bytes, size, result);
  }

 protected:
  virtual std::unique_ptr<MethodCall> DecodeMethodCallInternal(const std::uint8_t* bytes, std::size_t size) const = 0;
  virtual std::unique_ptr<std::vector<std::uint8_t>> EncodeMethodCallInternal(const MethodCall& call) const = 0;
  virtual std::unique_ptr<std::vector<std::uint8_t>> EncodeSuccessEnvelopeInternal(
      const EncodableValue* result) const = 0;
  virtual std::unique_ptr<std::vector<std::uint8_t>> EncodeErrorEnvelopeInternal(
      const std::string& code, const std::string& message, const EncodableValue* details) const = 0;
  virtual bool DecodeAndProcessResponseEnvelopeInternal(const std::uint8_t* bytes, std::size_t size,
                                                        MethodResult& result) const = 0;
};

}  // namespace orvane
