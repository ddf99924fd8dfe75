#pragma once

#include <windows.h>
// windows.h first: the next two build on it.
#include <oleauto.h>
#include <unknwn.h>

// UI Automation's client interfaces as far as the host calls them, slots in the published order.
// Slots that nothing here calls stand as placeholders, so that those behind them keep their place.
// Not every toolchain's <uiautomation.h> declares these.
namespace orvane {

inline constexpr CLSID CLSID_CUIAutomation = {
    0xFF48DBA4, 0x60EF, 0x4201, {0xAA, 0x87, 0x54, 0x10, 0x3E, 0xEF, 0x59, 0x4E}};
inline constexpr IID IID_IUIAutomation = {0x30CBE57D, 0xD9D0, 0x452A, {0xAB, 0x13, 0x7A, 0xC5, 0xAC, 0x48, 0x25, 0xEE}};
inline constexpr IID IID_IUIAutomationElement = {
    0xD22108AA, 0x8AC5, 0x49A5, {0x83, 0x7B, 0x37, 0xBB, 0xB3, 0xD7, 0x59, 0x1E}};
inline constexpr IID IID_IUIAutomationElementArray = {
    0x14314595, 0xB4BC, 0x4055, {0x95, 0xF2, 0x58, 0xF2, 0xE4, 0x2C, 0x98, 0x55}};
inline constexpr IID IID_IUIAutomationCondition = {
    0x352FFBA8, 0x0973, 0x437C, {0xA6, 0x1F, 0xF6, 0x4C, 0xAF, 0xD8, 0x1D, 0xF9}};
inline constexpr IID IID_IUIAutomationInvokePattern = {
    0xFB377FBE, 0x8EA6, 0x46D5, {0x9C, 0x73, 0x64, 0x99, 0x64, 0x2D, 0x30, 0x59}};
inline constexpr IID IID_IUIAutomationValuePattern = {
    0xA94CD8B1, 0x0844, 0x4CD6, {0x9D, 0x2D, 0x64, 0x05, 0x37, 0xAB, 0x39, 0xE9}};
inline constexpr IID IID_IUIAutomationSelectionItemPattern = {
    0xA8EFA66A, 0x0FDA, 0x421A, {0x91, 0x94, 0x38, 0x02, 0x1F, 0x35, 0x78, 0xEA}};
inline constexpr IID IID_IUIAutomationLegacyIAccessiblePattern = {
    0x828055AD, 0x355B, 0x4435, {0x86, 0xD5, 0x3B, 0x51, 0xC1, 0x4A, 0x9B, 0x1B}};

using CONTROLTYPEID = int;
using PATTERNID = int;
using PROPERTYID = int;

inline constexpr CONTROLTYPEID UIA_ButtonControlTypeId = 50000;
inline constexpr CONTROLTYPEID UIA_EditControlTypeId = 50004;
inline constexpr CONTROLTYPEID UIA_TabControlTypeId = 50018;
inline constexpr CONTROLTYPEID UIA_TabItemControlTypeId = 50019;
inline constexpr CONTROLTYPEID UIA_DocumentControlTypeId = 50030;

inline constexpr PATTERNID UIA_InvokePatternId = 10000;
inline constexpr PATTERNID UIA_ValuePatternId = 10002;
inline constexpr PATTERNID UIA_SelectionItemPatternId = 10010;
inline constexpr PATTERNID UIA_LegacyIAccessiblePatternId = 10018;

inline constexpr PROPERTYID UIA_ControlTypePropertyId = 30003;
inline constexpr PROPERTYID UIA_HelpTextPropertyId = 30013;
inline constexpr PROPERTYID UIA_ValueValuePropertyId = 30045;
inline constexpr PROPERTYID UIA_LegacyIAccessibleValuePropertyId = 30093;

enum TreeScope { TreeScope_Descendants = 4 };

inline constexpr HRESULT UIA_E_ELEMENTNOTAVAILABLE = static_cast<HRESULT>(0x80040201);

struct IUIAutomationElement;

struct IUIAutomationCondition : IUnknown {};

struct IUIAutomationElementArray : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE get_Length(int* length) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetElement(int index, IUIAutomationElement** element) = 0;
};

struct IUIAutomationInvokePattern : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Invoke() = 0;
};

struct IUIAutomationValuePattern : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SetValue(BSTR value) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentValue(BSTR* value) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot5() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot6() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot7() = 0;
};

struct IUIAutomationSelectionItemPattern : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Select() = 0;
  virtual HRESULT STDMETHODCALLTYPE AddToSelection() = 0;
  virtual HRESULT STDMETHODCALLTYPE RemoveFromSelection() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentIsSelected(BOOL* selected) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot7() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot8() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot9() = 0;
};

struct IUIAutomationLegacyIAccessiblePattern : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Select(long flags) = 0;
  virtual HRESULT STDMETHODCALLTYPE DoDefaultAction() = 0;
  virtual HRESULT STDMETHODCALLTYPE SetValue(LPCWSTR value) = 0;
};

struct IUIAutomationElement : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SetFocus() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot4() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot5() = 0;
  virtual HRESULT STDMETHODCALLTYPE FindAll(TreeScope scope, IUIAutomationCondition* condition,
                                            IUIAutomationElementArray** found) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot7() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot8() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot9() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCurrentPropertyValue(PROPERTYID property, VARIANT* value) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot11() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot12() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot13() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCurrentPatternAs(PATTERNID pattern, REFIID iid, void** object) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot15() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot16() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot17() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot18() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot19() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot20() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentControlType(CONTROLTYPEID* type) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot22() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentName(BSTR* name) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot24() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot25() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot26() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentIsKeyboardFocusable(BOOL* focusable) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentIsEnabled(BOOL* enabled) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentAutomationId(BSTR* id) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentClassName(BSTR* name) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot31() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot32() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot33() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot34() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentIsPassword(BOOL* password) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot36() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot37() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentIsOffscreen(BOOL* offscreen) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot39() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentFrameworkId(BSTR* id) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot41() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot42() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CurrentBoundingRectangle(RECT* bounds) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot44() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot45() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot46() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot47() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot48() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot49() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot50() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot51() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot52() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot53() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot54() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot55() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot56() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot57() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot58() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot59() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot60() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot61() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot62() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot63() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot64() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot65() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot66() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot67() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot68() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot69() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot70() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot71() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot72() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot73() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot74() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot75() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot76() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot77() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot78() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot79() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot80() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot81() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot82() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot83() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot84() = 0;
};

struct IUIAutomation : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE CompareElements(IUIAutomationElement* first, IUIAutomationElement* second,
                                                    BOOL* same) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot4() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot5() = 0;
  virtual HRESULT STDMETHODCALLTYPE ElementFromHandle(HWND window, IUIAutomationElement** element) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot7() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetFocusedElement(IUIAutomationElement** element) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot9() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot10() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot11() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot12() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot13() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot14() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot15() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot16() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot17() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot18() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot19() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot20() = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateTrueCondition(IUIAutomationCondition** condition) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot22() = 0;
  virtual HRESULT STDMETHODCALLTYPE CreatePropertyCondition(PROPERTYID property, VARIANT value,
                                                            IUIAutomationCondition** condition) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot24() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot25() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot26() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot27() = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateOrCondition(IUIAutomationCondition* first, IUIAutomationCondition* second,
                                                      IUIAutomationCondition** condition) = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot29() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot30() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot31() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot32() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot33() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot34() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot35() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot36() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot37() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot38() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot39() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot40() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot41() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot42() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot43() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot44() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot45() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot46() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot47() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot48() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot49() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot50() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot51() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot52() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot53() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot54() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot55() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot56() = 0;
  virtual HRESULT STDMETHODCALLTYPE unusedSlot57() = 0;
};

}  // namespace orvane
