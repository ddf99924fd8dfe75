#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "embedding/method_result.h"

namespace orvane::embedding_tests {

// What was called on a result, in order.
struct ResultCalls {
  std::vector<std::string> names;
  std::vector<EncodableValue> values;  // of Success and of Error's details, when there were any
  std::string code;
  std::string message;
};

class RecordedResult final : public MethodResult {
 public:
  explicit RecordedResult(ResultCalls& calls) : calls_(calls) {}

 protected:
  void SuccessInternal(const EncodableValue* result) override { note("Success", result); }
  void ErrorInternal(const std::string& code, const std::string& message, const EncodableValue* details) override {
    calls_.code = code;
    calls_.message = message;
    note("Error", details);
  }
  void NotImplementedInternal() override { note("NotImplemented", nullptr); }

 private:
  void note(const char* name, const EncodableValue* value) {
    calls_.names.emplace_back(name);
    if (value != nullptr) {
      calls_.values.push_back(*value);
    }
  }

  ResultCalls& calls_;
};

// Throws whatever it is told.
class ThrowingResult final : public MethodResult {
 protected:
  void SuccessInternal(const EncodableValue*) override { throw std::runtime_error("success"); }
  void ErrorInternal(const std::string&, const std::string&, const EncodableValue*) override {
    throw std::runtime_error("error");
  }
  void NotImplementedInternal() override { throw std::runtime_error("not implemented"); }
};

}  // namespace orvane::embedding_tests
