#pragma once

#include "embedding/method_codec.h"
#include "embedding/standard_codec_serializer.h"

namespace orvane {

// Calls and replies as standard values: a call is its name and its arguments; a reply is a byte
// that tells success from error, and the values that belong to it.
class StandardMethodCodec final : public MethodCodec {
 public:
  // `serializer` outlives the codec.
  explicit StandardMethodCodec(const StandardCodecSerializer& serializer) noexcept : serializer_(serializer) {}

  // The shared codec with the plain serializer.
  [[nodiscard]] static const StandardMethodCodec& instance();

 protected:
  std::unique_ptr<MethodCall> DecodeMethodCallInternal(const std::uint8_t* bytes, std::size_t size) const override;
  std::unique_ptr<std::vector<std::uint8_t>> EncodeMethodCallInternal(const MethodCall& call) const override;
  std::unique_ptr<std::vector<std::uint8_t>> EncodeSuccessEnvelopeInternal(const EncodableValue* result) const override;
  std::unique_ptr<std::vector<std::uint8_t>> EncodeErrorEnvelopeInternal(const std::string& code,
                                                                         const std::string& message,
                                                                         const EncodableValue* details) const override;
  bool DecodeAndProcessResponseEnvelopeInternal(const std::uint8_t* bytes, std::size_t size,
                                                MethodResult& result) const override;

 private:
  bool processSuccess(ByteBufferStreamReader& stream, MethodResult& result) const;
  bool processError(ByteBufferStreamReader& stream, MethodResult& result) const;

  const StandardCodecSerializer& serializer_;
};

}  // namespace orvane
