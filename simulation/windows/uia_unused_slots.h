#pragma once

#include <string>

#include "composer/uia_interfaces.h"
#include "world/faults.h"

namespace orvane::simulation {

// The slots of UI Automation's interfaces that nothing here models. They keep their places in the
// tables; a call to one ends the run. `Base` derives from the interface.
[[noreturn]] inline void stopAtSlot(const char* interfaceName, int slot) {
  stopRun(interfaceName, "slot " + std::to_string(slot) + " isn't modelled");
}

template <typename Base>
class ValuePatternSlots : public Base {
 public:
  using Base::Base;

  HRESULT unusedSlot5() override { stopAtSlot("IUIAutomationValuePattern", 5); }
  HRESULT unusedSlot6() override { stopAtSlot("IUIAutomationValuePattern", 6); }
  HRESULT unusedSlot7() override { stopAtSlot("IUIAutomationValuePattern", 7); }
};

template <typename Base>
class SelectionItemPatternSlots : public Base {
 public:
  using Base::Base;

  HRESULT unusedSlot7() override { stopAtSlot("IUIAutomationSelectionItemPattern", 7); }
  HRESULT unusedSlot8() override { stopAtSlot("IUIAutomationSelectionItemPattern", 8); }
  HRESULT unusedSlot9() override { stopAtSlot("IUIAutomationSelectionItemPattern", 9); }
};

template <typename Base>
class ElementSlots : public Base {
 public:
  using Base::Base;

  HRESULT unusedSlot4() override { stopAtSlot("IUIAutomationElement", 4); }
  HRESULT unusedSlot5() override { stopAtSlot("IUIAutomationElement", 5); }
  HRESULT unusedSlot7() override { stopAtSlot("IUIAutomationElement", 7); }
  HRESULT unusedSlot8() override { stopAtSlot("IUIAutomationElement", 8); }
  HRESULT unusedSlot9() override { stopAtSlot("IUIAutomationElement", 9); }
  HRESULT unusedSlot11() override { stopAtSlot("IUIAutomationElement", 11); }
  HRESULT unusedSlot12() override { stopAtSlot("IUIAutomationElement", 12); }
  HRESULT unusedSlot13() override { stopAtSlot("IUIAutomationElement", 13); }
  HRESULT unusedSlot15() override { stopAtSlot("IUIAutomationElement", 15); }
  HRESULT unusedSlot16() override { stopAtSlot("IUIAutomationElement", 16); }
  HRESULT unusedSlot17() override { stopAtSlot("IUIAutomationElement", 17); }
  HRESULT unusedSlot18() override { stopAtSlot("IUIAutomationElement", 18); }
  HRESULT unusedSlot19() override { stopAtSlot("IUIAutomationElement", 19); }
  HRESULT unusedSlot20() override { stopAtSlot("IUIAutomationElement", 20); }
  HRESULT unusedSlot22() override { stopAtSlot("IUIAutomationElement", 22); }
  HRESULT unusedSlot24() override { stopAtSlot("IUIAutomationElement", 24); }
  HRESULT unusedSlot25() override { stopAtSlot("IUIAutomationElement", 25); }
  HRESULT unusedSlot26() override { stopAtSlot("IUIAutomationElement", 26); }
  HRESULT unusedSlot31() override { stopAtSlot("IUIAutomationElement", 31); }
  HRESULT unusedSlot32() override { stopAtSlot("IUIAutomationElement", 32); }
  HRESULT unusedSlot33() override { stopAtSlot("IUIAutomationElement", 33); }
  HRESULT unusedSlot34() override { stopAtSlot("IUIAutomationElement", 34); }
  HRESULT unusedSlot36() override { stopAtSlot("IUIAutomationElement", 36); }
  HRESULT unusedSlot37() override { stopAtSlot("IUIAutomationElement", 37); }
  HRESULT unusedSlot39() override { stopAtSlot("IUIAutomationElement", 39); }
  HRESULT unusedSlot41() override { stopAtSlot("IUIAutomationElement", 41); }
  HRESULT unusedSlot42() override { stopAtSlot("IUIAutomationElement", 42); }
  HRESULT unusedSlot44() override { stopAtSlot("IUIAutomationElement", 44); }
  HRESULT unusedSlot45() override { stopAtSlot("IUIAutomationElement", 45); }
  HRESULT unusedSlot46() override { stopAtSlot("IUIAutomationElement", 46); }
  HRESULT unusedSlot47() override { stopAtSlot("IUIAutomationElement", 47); }
  HRESULT unusedSlot48() override { stopAtSlot("IUIAutomationElement", 48); }
  HRESULT unusedSlot49() override { stopAtSlot("IUIAutomationElement", 49); }
  HRESULT unusedSlot50() override { stopAtSlot("IUIAutomationElement", 50); }
  HRESULT unusedSlot51() override { stopAtSlot("IUIAutomationElement", 51); }
  HRESULT unusedSlot52() override { stopAtSlot("IUIAutomationElement", 52); }
  HRESULT unusedSlot53() override { stopAtSlot("IUIAutomationElement", 53); }
  HRESULT unusedSlot54() override { stopAtSlot("IUIAutomationElement", 54); }
  HRESULT unusedSlot55() override { stopAtSlot("IUIAutomationElement", 55); }
  HRESULT unusedSlot56() override { stopAtSlot("IUIAutomationElement", 56); }
  HRESULT unusedSlot57() override { stopAtSlot("IUIAutomationElement", 57); }
  HRESULT unusedSlot58() override { stopAtSlot("IUIAutomationElement", 58); }
  HRESULT unusedSlot59() override { stopAtSlot("IUIAutomationElement", 59); }
  HRESULT unusedSlot60() override { stopAtSlot("IUIAutomationElement", 60); }
  HRESULT unusedSlot61() override { stopAtSlot("IUIAutomationElement", 61); }
  HRESULT unusedSlot62() override { stopAtSlot("IUIAutomationElement", 62); }
  HRESULT unusedSlot63() override { stopAtSlot("IUIAutomationElement", 63); }
  HRESULT unusedSlot64() override { stopAtSlot("IUIAutomationElement", 64); }
  HRESULT unusedSlot65() override { stopAtSlot("IUIAutomationElement", 65); }
  HRESULT unusedSlot66() override { stopAtSlot("IUIAutomationElement", 66); }
  HRESULT unusedSlot67() override { stopAtSlot("IUIAutomationElement", 67); }
  HRESULT unusedSlot68() override { stopAtSlot("IUIAutomationElement", 68); }
  HRESULT unusedSlot69() override { stopAtSlot("IUIAutomationElement", 69); }
  HRESULT unusedSlot70() override { stopAtSlot("IUIAutomationElement", 70); }
  HRESULT unusedSlot71() override { stopAtSlot("IUIAutomationElement", 71); }
  HRESULT unusedSlot72() override { stopAtSlot("IUIAutomationElement", 72); }
  HRESULT unusedSlot73() override { stopAtSlot("IUIAutomationElement", 73); }
  HRESULT unusedSlot74() override { stopAtSlot("IUIAutomationElement", 74); }
  HRESULT unusedSlot75() override { stopAtSlot("IUIAutomationElement", 75); }
  HRESULT unusedSlot76() override { stopAtSlot("IUIAutomationElement", 76); }
  HRESULT unusedSlot77() override { stopAtSlot("IUIAutomationElement", 77); }
  HRESULT unusedSlot78() override { stopAtSlot("IUIAutomationElement", 78); }
  HRESULT unusedSlot79() override { stopAtSlot("IUIAutomationElement", 79); }
  HRESULT unusedSlot80() override { stopAtSlot("IUIAutomationElement", 80); }
  HRESULT unusedSlot81() override { stopAtSlot("IUIAutomationElement", 81); }
  HRESULT unusedSlot82() override { stopAtSlot("IUIAutomationElement", 82); }
  HRESULT unusedSlot83() override { stopAtSlot("IUIAutomationElement", 83); }
  HRESULT unusedSlot84() override { stopAtSlot("IUIAutomationElement", 84); }
};

template <typename Base>
class AutomationSlots : public Base {
 public:
  using Base::Base;

  HRESULT unusedSlot4() override { stopAtSlot("IUIAutomation", 4); }
  HRESULT unusedSlot5() override { stopAtSlot("IUIAutomation", 5); }
  HRESULT unusedSlot7() override { stopAtSlot("IUIAutomation", 7); }
  HRESULT unusedSlot9() override { stopAtSlot("IUIAutomation", 9); }
  HRESULT unusedSlot10() override { stopAtSlot("IUIAutomation", 10); }
  HRESULT unusedSlot11() override { stopAtSlot("IUIAutomation", 11); }
  HRESULT unusedSlot12() override { stopAtSlot("IUIAutomation", 12); }
  HRESULT unusedSlot13() override { stopAtSlot("IUIAutomation", 13); }
  HRESULT unusedSlot14() override { stopAtSlot("IUIAutomation", 14); }
  HRESULT unusedSlot15() override { stopAtSlot("IUIAutomation", 15); }
  HRESULT unusedSlot16() override { stopAtSlot("IUIAutomation", 16); }
  HRESULT unusedSlot17() override { stopAtSlot("IUIAutomation", 17); }
  HRESULT unusedSlot18() override { stopAtSlot("IUIAutomation", 18); }
  HRESULT unusedSlot19() override { stopAtSlot("IUIAutomation", 19); }
  HRESULT unusedSlot20() override { stopAtSlot("IUIAutomation", 20); }
  HRESULT unusedSlot22() override { stopAtSlot("IUIAutomation", 22); }
  HRESULT unusedSlot24() override { stopAtSlot("IUIAutomation", 24); }
  HRESULT unusedSlot25() override { stopAtSlot("IUIAutomation", 25); }
  HRESULT unusedSlot26() override { stopAtSlot("IUIAutomation", 26); }
  HRESULT unusedSlot27() override { stopAtSlot("IUIAutomation", 27); }
  HRESULT unusedSlot29() override { stopAtSlot("IUIAutomation", 29); }
  HRESULT unusedSlot30() override { stopAtSlot("IUIAutomation", 30); }
  HRESULT unusedSlot31() override { stopAtSlot("IUIAutomation", 31); }
  HRESULT unusedSlot32() override { stopAtSlot("IUIAutomation", 32); }
  HRESULT unusedSlot33() override { stopAtSlot("IUIAutomation", 33); }
  HRESULT unusedSlot34() override { stopAtSlot("IUIAutomation", 34); }
  HRESULT unusedSlot35() override { stopAtSlot("IUIAutomation", 35); }
  HRESULT unusedSlot36() override { stopAtSlot("IUIAutomation", 36); }
  HRESULT unusedSlot37() override { stopAtSlot("IUIAutomation", 37); }
  HRESULT unusedSlot38() override { stopAtSlot("IUIAutomation", 38); }
  HRESULT unusedSlot39() override { stopAtSlot("IUIAutomation", 39); }
  HRESULT unusedSlot40() override { stopAtSlot("IUIAutomation", 40); }
  HRESULT unusedSlot41() override { stopAtSlot("IUIAutomation", 41); }
  HRESULT unusedSlot42() override { stopAtSlot("IUIAutomation", 42); }
  HRESULT unusedSlot43() override { stopAtSlot("IUIAutomation", 43); }
  HRESULT unusedSlot44() override { stopAtSlot("IUIAutomation", 44); }
  HRESULT unusedSlot45() override { stopAtSlot("IUIAutomation", 45); }
  HRESULT unusedSlot46() override { stopAtSlot("IUIAutomation", 46); }
  HRESULT unusedSlot47() override { stopAtSlot("IUIAutomation", 47); }
  HRESULT unusedSlot48() override { stopAtSlot("IUIAutomation", 48); }
  HRESULT unusedSlot49() override { stopAtSlot("IUIAutomation", 49); }
  HRESULT unusedSlot50() override { stopAtSlot("IUIAutomation", 50); }
  HRESULT unusedSlot51() override { stopAtSlot("IUIAutomation", 51); }
  HRESULT unusedSlot52() override { stopAtSlot("IUIAutomation", 52); }
  HRESULT unusedSlot53() override { stopAtSlot("IUIAutomation", 53); }
  HRESULT unusedSlot54() override { stopAtSlot("IUIAutomation", 54); }
  HRESULT unusedSlot55() override { stopAtSlot("IUIAutomation", 55); }
  HRESULT unusedSlot56() override { stopAtSlot("IUIAutomation", 56); }
  HRESULT unusedSlot57() override { stopAtSlot("IUIAutomation", 57); }
};

}  // namespace orvane::simulation
