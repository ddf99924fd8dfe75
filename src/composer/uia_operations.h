#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "composer/com_owners.h"
#include "composer/uia_interfaces.h"

namespace orvane {

class UiaElement;

// A search condition; empty when it could not be made.
class UiaCondition {
 public:
  explicit operator bool() const noexcept { return static_cast<bool>(condition_); }

 private:
  friend class UiaSession;
  friend class UiaElement;
  ComReference<IUIAutomationCondition> condition_;
};

// The elements that a search found, in tree order; empty when the search failed.
class UiaElementArray {
 public:
  explicit operator bool() const noexcept { return static_cast<bool>(array_); }

  // Their number; 0 when it can't be read.
  int length() const;

  // Gives the element at `index` (0 upward); the element is empty when the call fails or gives null.
  HRESULT elementAt(int index, UiaElement& element) const;

 private:
  friend class UiaElement;
  ComReference<IUIAutomationElementArray> array_;
};

// What asking a pattern for its action came to.
struct PatternOutcome {
  bool hasPattern = false;
  HRESULT result = E_NOINTERFACE;  // of the action; without the pattern the error of looking for it
};

// What a Value pattern shows.
struct ValueReading {
  bool hasPattern = false;
  std::optional<std::wstring> text;  // nullopt: the read failed or gave a null string
};

// One live element. It is never kept beyond the operation that found it. Each read asks the
// browser anew, by the get_Current call of the same name; a read that fails gives the value with which the
// element fails the test. Only its bool may be asked of an empty element: every member uses the pointer.
class UiaElement {
 public:
  explicit operator bool() const noexcept { return static_cast<bool>(element_); }

  // nullopt: the read failed or gave a null string (get_CurrentName).
  std::optional<std::wstring> name() const;
  std::wstring automationId() const;   // empty on failure
  std::wstring className() const;      // empty on failure
  std::wstring frameworkId() const;    // empty on failure
  CONTROLTYPEID controlType() const;   // 0 on failure
  std::optional<RECT> bounds() const;  // screen pixels; nullopt on failure
  bool isEnabled() const;              // false on failure
  bool isOffscreen() const;            // true on failure
  bool isOffscreenForTrace() const;    // the same call for the diagnostics: false on failure
  bool isKeyboardFocusable() const;    // false on failure
  bool isPassword() const;             // true on failure

  // By get_CurrentValue of the Value pattern.
  ValueReading readValue() const;
  // A property that holds a text, by GetCurrentPropertyValue; empty when the read fails or it is of another
  // type.
  std::wstring textProperty(PROPERTYID property) const;

  // The descendants that fit, by FindAll; the array is empty when the call fails or gives null.
  HRESULT findAll(const UiaCondition& condition, UiaElementArray& found) const;

  HRESULT setFocus() const;  // success says nothing about where the focus is then
  // Writes a field by its Value pattern; a composer is never written this way.
  PatternOutcome setValue(const std::wstring& text) const;
  PatternOutcome invoke() const;           // Invoke of the Invoke pattern
  PatternOutcome select() const;           // Select of the SelectionItem pattern
  PatternOutcome doDefaultAction() const;  // DoDefaultAction of the LegacyIAccessible pattern
  bool isSelected() const;                 // false without a SelectionItem pattern and on failure

  // Whether the pattern is there, which is asked without using it; false on failure.
  bool offersInvoke() const;
  bool offersSelection() const;

 private:
  friend class UiaSession;
  friend class UiaElementArray;
  ComReference<IUIAutomationElement> element_;
};

// The scope of one UI Automation operation: an automation object made on entry and released on
// every way out. Needs an apartment on the calling thread. Each member is the IUIAutomation call of its name;
// only the bool may be asked of a session without an automation object.
class UiaSession {
 public:
  UiaSession();
  ~UiaSession() = default;
  UiaSession(const UiaSession&) = delete;
  UiaSession& operator=(const UiaSession&) = delete;

  // False when UI Automation is unavailable.
  explicit operator bool() const noexcept { return static_cast<bool>(automation_); }

  // The root element of a top-level window; empty when the call fails or gives null.
  HRESULT elementFromHandle(HWND window, UiaElement& element) const;
  // The element that holds the keyboard focus anywhere on the desktop; empty as above.
  HRESULT focusedElement(UiaElement& element) const;
  // Conditions (CreatePropertyCondition, CreateTrueCondition, CreateOrCondition) are empty when the call fails
  // or gives null.
  HRESULT controlTypeCondition(CONTROLTYPEID type, UiaCondition& condition) const;
  HRESULT trueCondition(UiaCondition& condition) const;
  HRESULT orCondition(const UiaCondition& first, const UiaCondition& second, UiaCondition& condition) const;
  // CompareElements: true when both stand for the same control; false on failure.
  bool isSameElement(const UiaElement& first, const UiaElement& second) const;

 private:
  ComReference<IUIAutomation> automation_;
};

// The facts as wide text; empty for an empty element, on failure and for a null string.
std::wstring elementName(const UiaElement& element);
std::wstring elementAutomationId(const UiaElement& element);
std::wstring elementClassName(const UiaElement& element);

// Left, top, right and bottom in decimal, joined by ","; "<unavailable>" for an empty element and on failure.
std::string elementBoundsText(const UiaElement& element);

// Right lies beyond left, and bottom beyond top.
bool hasPositiveSize(const RECT& bounds);

// True when the element is enabled, keyboard focusable, on screen and of positive size, read in
// this order; a failing read gives false. `bounds` may be null and is written on true only.
bool readUsableBounds(const UiaElement& element, RECT* bounds);

}  // namespace orvane
