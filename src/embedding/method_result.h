#pragma once

#include <string>

#include "embedding/encodable_value.h"

namespace orvane {

// The reply to one call. Exactly one of Success, Error and NotImplemented is to be called, once.
class MethodResult {
 public:
  MethodResult() = default;
  virtual ~MethodResult() = default;

  MethodResult(const MethodResult&) = delete;
  MethodResult& operator=(const MethodResult&) = delete;

  void Success(const EncodableValue& result) { SuccessInternal(&result); }
  // The caller reads null.
  void Success() { SuccessInternal(nullptr); }

  void Error(const std::string& code, const std::string& message, const EncodableValue& details) {
    ErrorInternal(code, message, &details);
  }
  void Error(const std::string& code, const std::string& message = std::string()) {
    ErrorInternal(code, message, nullptr);
  }

  void NotImplemented() { NotImplementedInternal(); }

 protected:
  // `result` and `details` are null when there are none.
  virtual void SuccessInternal(const EncodableValue* result) = 0;
  virtual void ErrorInternal(const std::string& code, const std::string& message, const EncodableValue* details) = 0;
  virtual void NotImplementedInternal() = 0;
};

}  // namespace orvane
