#pragma once

#include "automation/tree_link.h"
#include "common/com_object.h"
#include "windows/uia_unused_slots.h"

namespace orvane::standins {

// The getters of an element, all out of one question for a fact by its name.
class ElementFactReader : public simulation::ElementSlots<ComObject<IUIAutomationElement>> {
 public:
  ElementFactReader() : ElementSlots(IID_IUIAutomationElement) {}

  HRESULT STDMETHODCALLTYPE get_CurrentControlType(CONTROLTYPEID* type) final;
  HRESULT STDMETHODCALLTYPE get_CurrentName(BSTR* name) final { return readText("name", name); }
  HRESULT STDMETHODCALLTYPE get_CurrentIsKeyboardFocusable(BOOL* flag) final { return readFlag("focusable", flag); }
  HRESULT STDMETHODCALLTYPE get_CurrentIsEnabled(BOOL* flag) final { return readFlag("enabled", flag); }
  HRESULT STDMETHODCALLTYPE get_CurrentAutomationId(BSTR* id) final { return readText("automationId", id); }
  HRESULT STDMETHODCALLTYPE get_CurrentClassName(BSTR* name) final { return readText("className", name); }
  HRESULT STDMETHODCALLTYPE get_CurrentIsPassword(BOOL* flag) final { return readFlag("password", flag); }
  HRESULT STDMETHODCALLTYPE get_CurrentIsOffscreen(BOOL* flag) final { return readFlag("offscreen", flag); }
  HRESULT STDMETHODCALLTYPE get_CurrentFrameworkId(BSTR* id) final { return readText("frameworkId", id); }
  HRESULT STDMETHODCALLTYPE get_CurrentBoundingRectangle(RECT* bounds) final;
  HRESULT STDMETHODCALLTYPE GetCurrentPropertyValue(PROPERTYID property, VARIANT* value) final;

 private:
  // {"value": …} or {"hresult": H}
  virtual Json readFact(const char* fact) = 0;

  HRESULT readText(const char* fact, BSTR* text);
  HRESULT readFlag(const char* fact, BOOL* flag);
};

}  // namespace orvane::standins
