#pragma once

#include <windows.h>
// windows.h first: the next builds on it.
#include "composer/uia_interfaces.h"

namespace orvane::simulation {

// The slots of UI Automation's interfaces that the host never calls. They keep their places in the
// tables; what a call to one gives is for whoever makes the objects to say. `Base` derives from the
// interface.
HRESULT answerUnusedSlot(const char* interfaceName, int slot);

template <typename Base>
class ValuePatternSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot5() override { return answerUnusedSlot("IUIAutomationValuePattern", 5); }
  HRESULT STDMETHODCALLTYPE unusedSlot6() override { return answerUnusedSlot("IUIAutomationValuePattern", 6); }
  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return answerUnusedSlot("IUIAutomationValuePattern", 7); }
};

template <typename Base>
class SelectionItemPatternSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return answerUnusedSlot("IUIAutomationSelectionItemPattern", 7); }
  HRESULT STDMETHODCALLTYPE unusedSlot8() override { return answerUnusedSlot("IUIAutomationSelectionItemPattern", 8); }
  HRESULT STDMETHODCALLTYPE unusedSlot9() override { return answerUnusedSlot("IUIAutomationSelectionItemPattern", 9); }
};

template <typename Base>
class ElementSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot4() override { return answerUnusedSlot("IUIAutomationElement", 4); }
  HRESULT STDMETHODCALLTYPE unusedSlot5() override { return answerUnusedSlot("IUIAutomationElement", 5); }
  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return answerUnusedSlot("IUIAutomationElement", 7); }
  HRESULT STDMETHODCALLTYPE unusedSlot8() override { return answerUnusedSlot("IUIAutomationElement", 8); }
  HRESULT STDMETHODCALLTYPE unusedSlot9() override { return answerUnusedSlot("IUIAutomationElement", 9); }
  HRESULT STDMETHODCALLTYPE unusedSlot11() override { return answerUnusedSlot("IUIAutomationElement", 11); }
  HRESULT STDMETHODCALLTYPE unusedSlot12() override { return answerUnusedSlot("IUIAutomationElement", 12); }
  HRESULT STDMETHODCALLTYPE unusedSlot13() override { return answerUnusedSlot("IUIAutomationElement", 13); }
  HRESULT STDMETHODCALLTYPE unusedSlot15() override { return answerUnusedSlot("IUIAutomationElement", 15); }
  HRESULT STDMETHODCALLTYPE unusedSlot16() override { return answerUnusedSlot("IUIAutomationElement", 16); }
  HRESULT STDMETHODCALLTYPE unusedSlot17() override { return answerUnusedSlot("IUIAutomationElement", 17); }
  HRESULT STDMETHODCALLTYPE unusedSlot18() override { return answerUnusedSlot("IUIAutomationElement", 18); }
  HRESULT STDMETHODCALLTYPE unusedSlot19() override { return answerUnusedSlot("IUIAutomationElement", 19); }
  HRESULT STDMETHODCALLTYPE unusedSlot20() override { return answerUnusedSlot("IUIAutomationElement", 20); }
  HRESULT STDMETHODCALLTYPE unusedSlot22() override { return answerUnusedSlot("IUIAutomationElement", 22); }
  HRESULT STDMETHODCALLTYPE unusedSlot24() override { return answerUnusedSlot("IUIAutomationElement", 24); }
  HRESULT STDMETHODCALLTYPE unusedSlot25() override { return answerUnusedSlot("IUIAutomationElement", 25); }
  HRESULT STDMETHODCALLTYPE unusedSlot26() override { return answerUnusedSlot("IUIAutomationElement", 26); }
  HRESULT STDMETHODCALLTYPE unusedSlot31() override { return answerUnusedSlot("IUIAutomationElement", 31); }
  HRESULT STDMETHODCALLTYPE unusedSlot32() override { return answerUnusedSlot("IUIAutomationElement", 32); }
  HRESULT STDMETHODCALLTYPE unusedSlot33() override { return answerUnusedSlot("IUIAutomationElement", 33); }
  HRESULT STDMETHODCALLTYPE unusedSlot34() override { return answerUnusedSlot("IUIAutomationElement", 34); }
  HRESULT STDMETHODCALLTYPE unusedSlot36() override { return answerUnusedSlot("IUIAutomationElement", 36); }
  HRESULT STDMETHODCALLTYPE unusedSlot37() override { return answerUnusedSlot("IUIAutomationElement", 37); }
  HRESULT STDMETHODCALLTYPE unusedSlot39() override { return answerUnusedSlot("IUIAutomationElement", 39); }
  HRESULT STDMETHODCALLTYPE unusedSlot41() override { return answerUnusedSlot("IUIAutomationElement", 41); }
  HRESULT STDMETHODCALLTYPE unusedSlot42() override { return answerUnusedSlot("IUIAutomationElement", 42); }
  HRESULT STDMETHODCALLTYPE unusedSlot44() override { return answerUnusedSlot("IUIAutomationElement", 44); }
  HRESULT STDMETHODCALLTYPE unusedSlot45() override { return answerUnusedSlot("IUIAutomationElement", 45); }
  HRESULT STDMETHODCALLTYPE unusedSlot46() override { return answerUnusedSlot("IUIAutomationElement", 46); }
  HRESULT STDMETHODCALLTYPE unusedSlot47() override { return answerUnusedSlot("IUIAutomationElement", 47); }
  HRESULT STDMETHODCALLTYPE unusedSlot48() override { return answerUnusedSlot("IUIAutomationElement", 48); }
  HRESULT STDMETHODCALLTYPE unusedSlot49() override { return answerUnusedSlot("IUIAutomationElement", 49); }
  HRESULT STDMETHODCALLTYPE unusedSlot50() override { return answerUnusedSlot("IUIAutomationElement", 50); }
  HRESULT STDMETHODCALLTYPE unusedSlot51() override { return answerUnusedSlot("IUIAutomationElement", 51); }
  HRESULT STDMETHODCALLTYPE unusedSlot52() override { return answerUnusedSlot("IUIAutomationElement", 52); }
  HRESULT STDMETHODCALLTYPE unusedSlot53() override { return answerUnusedSlot("IUIAutomationElement", 53); }
  HRESULT STDMETHODCALLTYPE unusedSlot54() override { return answerUnusedSlot("IUIAutomationElement", 54); }
  HRESULT STDMETHODCALLTYPE unusedSlot55() override { return answerUnusedSlot("IUIAutomationElement", 55); }
  HRESULT STDMETHODCALLTYPE unusedSlot56() override { return answerUnusedSlot("IUIAutomationElement", 56); }
  HRESULT STDMETHODCALLTYPE unusedSlot57() override { return answerUnusedSlot("IUIAutomationElement", 57); }
  HRESULT STDMETHODCALLTYPE unusedSlot58() override { return answerUnusedSlot("IUIAutomationElement", 58); }
  HRESULT STDMETHODCALLTYPE unusedSlot59() override { return answerUnusedSlot("IUIAutomationElement", 59); }
  HRESULT STDMETHODCALLTYPE unusedSlot60() override { return answerUnusedSlot("IUIAutomationElement", 60); }
  HRESULT STDMETHODCALLTYPE unusedSlot61() override { return answerUnusedSlot("IUIAutomationElement", 61); }
  HRESULT STDMETHODCALLTYPE unusedSlot62() override { return answerUnusedSlot("IUIAutomationElement", 62); }
  HRESULT STDMETHODCALLTYPE unusedSlot63() override { return answerUnusedSlot("IUIAutomationElement", 63); }
  HRESULT STDMETHODCALLTYPE unusedSlot64() override { return answerUnusedSlot("IUIAutomationElement", 64); }
  HRESULT STDMETHODCALLTYPE unusedSlot65() override { return answerUnusedSlot("IUIAutomationElement", 65); }
  HRESULT STDMETHODCALLTYPE unusedSlot66() override { return answerUnusedSlot("IUIAutomationElement", 66); }
  HRESULT STDMETHODCALLTYPE unusedSlot67() override { return answerUnusedSlot("IUIAutomationElement", 67); }
  HRESULT STDMETHODCALLTYPE unusedSlot68() override { return answerUnusedSlot("IUIAutomationElement", 68); }
  HRESULT STDMETHODCALLTYPE unusedSlot69() override { return answerUnusedSlot("IUIAutomationElement", 69); }
  HRESULT STDMETHODCALLTYPE unusedSlot70() override { return answerUnusedSlot("IUIAutomationElement", 70); }
  HRESULT STDMETHODCALLTYPE unusedSlot71() override { return answerUnusedSlot("IUIAutomationElement", 71); }
  HRESULT STDMETHODCALLTYPE unusedSlot72() override { return answerUnusedSlot("IUIAutomationElement", 72); }
  HRESULT STDMETHODCALLTYPE unusedSlot73() override { return answerUnusedSlot("IUIAutomationElement", 73); }
  HRESULT STDMETHODCALLTYPE unusedSlot74() override { return answerUnusedSlot("IUIAutomationElement", 74); }
  HRESULT STDMETHODCALLTYPE unusedSlot75() override { return answerUnusedSlot("IUIAutomationElement", 75); }
  HRESULT STDMETHODCALLTYPE unusedSlot76() override { return answerUnusedSlot("IUIAutomationElement", 76); }
  HRESULT STDMETHODCALLTYPE unusedSlot77() override { return answerUnusedSlot("IUIAutomationElement", 77); }
  HRESULT STDMETHODCALLTYPE unusedSlot78() override { return answerUnusedSlot("IUIAutomationElement", 78); }
  HRESULT STDMETHODCALLTYPE unusedSlot79() override { return answerUnusedSlot("IUIAutomationElement", 79); }
  HRESULT STDMETHODCALLTYPE unusedSlot80() override { return answerUnusedSlot("IUIAutomationElement", 80); }
  HRESULT STDMETHODCALLTYPE unusedSlot81() override { return answerUnusedSlot("IUIAutomationElement", 81); }
  HRESULT STDMETHODCALLTYPE unusedSlot82() override { return answerUnusedSlot("IUIAutomationElement", 82); }
  HRESULT STDMETHODCALLTYPE unusedSlot83() override { return answerUnusedSlot("IUIAutomationElement", 83); }
  HRESULT STDMETHODCALLTYPE unusedSlot84() override { return answerUnusedSlot("IUIAutomationElement", 84); }
};

template <typename Base>
class AutomationSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot4() override { return answerUnusedSlot("IUIAutomation", 4); }
  HRESULT STDMETHODCALLTYPE unusedSlot5() override { return answerUnusedSlot("IUIAutomation", 5); }
  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return answerUnusedSlot("IUIAutomation", 7); }
  HRESULT STDMETHODCALLTYPE unusedSlot9() override { return answerUnusedSlot("IUIAutomation", 9); }
  HRESULT STDMETHODCALLTYPE unusedSlot10() override { return answerUnusedSlot("IUIAutomation", 10); }
  HRESULT STDMETHODCALLTYPE unusedSlot11() override { return answerUnusedSlot("IUIAutomation", 11); }
  HRESULT STDMETHODCALLTYPE unusedSlot12() override { return answerUnusedSlot("IUIAutomation", 12); }
  HRESULT STDMETHODCALLTYPE unusedSlot13() override { return answerUnusedSlot("IUIAutomation", 13); }
  HRESULT STDMETHODCALLTYPE unusedSlot14() override { return answerUnusedSlot("IUIAutomation", 14); }
  HRESULT STDMETHODCALLTYPE unusedSlot15() override { return answerUnusedSlot("IUIAutomation", 15); }
  HRESULT STDMETHODCALLTYPE unusedSlot16() override { return answerUnusedSlot("IUIAutomation", 16); }
  HRESULT STDMETHODCALLTYPE unusedSlot17() override { return answerUnusedSlot("IUIAutomation", 17); }
  HRESULT STDMETHODCALLTYPE unusedSlot18() override { return answerUnusedSlot("IUIAutomation", 18); }
  HRESULT STDMETHODCALLTYPE unusedSlot19() override { return answerUnusedSlot("IUIAutomation", 19); }
  HRESULT STDMETHODCALLTYPE unusedSlot20() override { return answerUnusedSlot("IUIAutomation", 20); }
  HRESULT STDMETHODCALLTYPE unusedSlot22() override { return answerUnusedSlot("IUIAutomation", 22); }
  HRESULT STDMETHODCALLTYPE unusedSlot24() override { return answerUnusedSlot("IUIAutomation", 24); }
  HRESULT STDMETHODCALLTYPE unusedSlot25() override { return answerUnusedSlot("IUIAutomation", 25); }
  HRESULT STDMETHODCALLTYPE unusedSlot26() override { return answerUnusedSlot("IUIAutomation", 26); }
  HRESULT STDMETHODCALLTYPE unusedSlot27() override { return answerUnusedSlot("IUIAutomation", 27); }
  HRESULT STDMETHODCALLTYPE unusedSlot29() override { return answerUnusedSlot("IUIAutomation", 29); }
  HRESULT STDMETHODCALLTYPE unusedSlot30() override { return answerUnusedSlot("IUIAutomation", 30); }
  HRESULT STDMETHODCALLTYPE unusedSlot31() override { return answerUnusedSlot("IUIAutomation", 31); }
  HRESULT STDMETHODCALLTYPE unusedSlot32() override { return answerUnusedSlot("IUIAutomation", 32); }
  HRESULT STDMETHODCALLTYPE unusedSlot33() override { return answerUnusedSlot("IUIAutomation", 33); }
  HRESULT STDMETHODCALLTYPE unusedSlot34() override { return answerUnusedSlot("IUIAutomation", 34); }
  HRESULT STDMETHODCALLTYPE unusedSlot35() override { return answerUnusedSlot("IUIAutomation", 35); }
  HRESULT STDMETHODCALLTYPE unusedSlot36() override { return answerUnusedSlot("IUIAutomation", 36); }
  HRESULT STDMETHODCALLTYPE unusedSlot37() override { return answerUnusedSlot("IUIAutomation", 37); }
  HRESULT STDMETHODCALLTYPE unusedSlot38() override { return answerUnusedSlot("IUIAutomation", 38); }
  HRESULT STDMETHODCALLTYPE unusedSlot39() override { return answerUnusedSlot("IUIAutomation", 39); }
  HRESULT STDMETHODCALLTYPE unusedSlot40() override { return answerUnusedSlot("IUIAutomation", 40); }
  HRESULT STDMETHODCALLTYPE unusedSlot41() override { return answerUnusedSlot("IUIAutomation", 41); }
  HRESULT STDMETHODCALLTYPE unusedSlot42() override { return answerUnusedSlot("IUIAutomation", 42); }
  HRESULT STDMETHODCALLTYPE unusedSlot43() override { return answerUnusedSlot("IUIAutomation", 43); }
  HRESULT STDMETHODCALLTYPE unusedSlot44() override { return answerUnusedSlot("IUIAutomation", 44); }
  HRESULT STDMETHODCALLTYPE unusedSlot45() override { return answerUnusedSlot("IUIAutomation", 45); }
  HRESULT STDMETHODCALLTYPE unusedSlot46() override { return answerUnusedSlot("IUIAutomation", 46); }
  HRESULT STDMETHODCALLTYPE unusedSlot47() override { return answerUnusedSlot("IUIAutomation", 47); }
  HRESULT STDMETHODCALLTYPE unusedSlot48() override { return answerUnusedSlot("IUIAutomation", 48); }
  HRESULT STDMETHODCALLTYPE unusedSlot49() override { return answerUnusedSlot("IUIAutomation", 49); }
  HRESULT STDMETHODCALLTYPE unusedSlot50() override { return answerUnusedSlot("IUIAutomation", 50); }
  HRESULT STDMETHODCALLTYPE unusedSlot51() override { return answerUnusedSlot("IUIAutomation", 51); }
  HRESULT STDMETHODCALLTYPE unusedSlot52() override { return answerUnusedSlot("IUIAutomation", 52); }
  HRESULT STDMETHODCALLTYPE unusedSlot53() override { return answerUnusedSlot("IUIAutomation", 53); }
  HRESULT STDMETHODCALLTYPE unusedSlot54() override { return answerUnusedSlot("IUIAutomation", 54); }
  HRESULT STDMETHODCALLTYPE unusedSlot55() override { return answerUnusedSlot("IUIAutomation", 55); }
  HRESULT STDMETHODCALLTYPE unusedSlot56() override { return answerUnusedSlot("IUIAutomation", 56); }
  HRESULT STDMETHODCALLTYPE unusedSlot57() override { return answerUnusedSlot("IUIAutomation", 57); }
};

}  // namespace orvane::simulation
