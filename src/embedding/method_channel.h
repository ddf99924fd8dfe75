#pragma once

#include <functional>
#include <memory>
#include <string>

#include "embedding/binary_messenger.h"
#include "embedding/method_codec.h"

namespace orvane {

// Takes a call, valid during the handler, and its result, which may be kept and answered later.
using MethodCallHandler = std::function<void(const MethodCall& call, std::unique_ptr<MethodResult> result)>;

// Calls by name between the host and the interface, over one named channel.
class MethodChannel {
 public:
  // `messenger` and `codec` outlive the channel; `codec` also its handler and what it waits for.
  MethodChannel(BinaryMessenger* messenger, std::string name, const MethodCodec* codec);

  // Calls the interface. `arguments` may be null. A `result` learns the reply: NotImplemented when
  // it is empty or undecodable, which is logged, and nothing at all when the call couldn't be sent.
  void InvokeMethod(const std::string& method, std::unique_ptr<EncodableValue> arguments,
                    std::unique_ptr<MethodResult> result = nullptr) const;

  // Replaces the handler of the interface's calls; an empty one removes it. A handler stays when the
  // channel goes. Undecodable calls are logged and answered with an empty reply.
  void SetMethodCallHandler(MethodCallHandler handler) const;

 private:
  BinaryMessenger* messenger_;
  std::string name_;
  const MethodCodec* codec_;
};

}  // namespace orvane
