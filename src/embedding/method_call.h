#pragma once

#include <memory>
#include <string>
#include <utility>

#include "embedding/encodable_value.h"

namespace orvane {

// One call over a method channel, as it came or as it is to be sent.
class MethodCall {
 public:
  MethodCall(std::string method_name, std::unique_ptr<EncodableValue> arguments)
      : method_name_(std::move(method_name)), arguments_(std::move(arguments)) {}
  virtual ~MethodCall() = default;

  MethodCall(const MethodCall&) = delete;
  MethodCall& operator=(const MethodCall&) = delete;

  [[nodiscard]] const std::string& method_name() const noexcept { return method_name_; }

  // Null when the call was made without arguments; a call that came in holds a null value then.
  [[nodiscard]] const EncodableValue* arguments() const noexcept { return arguments_.get(); }

 private:
  std::string method_name_;
  std::unique_ptr<EncodableValue> arguments_;
};

}  // namespace orvane
