#pragma once

#include "automation/element_facts.h"

namespace orvane::standins {

// A window that shows UI Automation itself and nothing inside: it takes no focus and has no pattern.
class BareWindow final : public ElementFactReader {
 public:
  explicit BareWindow(HWND window) : window_(window) {}

  HWND window() const { return window_; }

  HRESULT STDMETHODCALLTYPE SetFocus() override;
  HRESULT STDMETHODCALLTYPE FindAll(TreeScope scope, IUIAutomationCondition* condition,
                                    IUIAutomationElementArray** found) override;
  HRESULT STDMETHODCALLTYPE GetCurrentPatternAs(PATTERNID pattern, REFIID iid, void** object) override;

 private:
  Json readFact(const char* fact) override;

  HWND window_;
};

}  // namespace orvane::standins
