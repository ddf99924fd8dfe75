#pragma once

#include "common/com_object.h"
#include "common/link.h"
#include "composer/uia_interfaces.h"

namespace orvane::standins {

// What an element must be for a search to find it, in the form that the process of the tree reads:
// null for any element, else a list of control types.
class Condition final : public ComObject<IUIAutomationCondition> {
 public:
  explicit Condition(Json types) : ComObject(IID_IUIAutomationCondition), types_(std::move(types)) {}
  const Json& types() const { return types_; }

 private:
  Json types_;
};

inline const Json& typesBehind(IUIAutomationCondition* condition) {
  return static_cast<Condition*>(condition)->types();
}

}  // namespace orvane::standins
