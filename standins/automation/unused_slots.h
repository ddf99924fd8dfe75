#pragma once

#include <windows.h>
// windows.h first: the next builds on it.
#include "composer/uia_interfaces.h"

namespace orvane::standins {

// The slots of UI Automation's interfaces that nobody here calls: they keep their places in the
// tables. `Base` derives from the interface.
template <typename Base>
class ValuePatternSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot5() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot6() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return E_NOTIMPL; }
};

template <typename Base>
class SelectionItemPatternSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot8() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot9() override { return E_NOTIMPL; }
};

template <typename Base>
class ElementSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot4() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot5() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot8() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot9() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot11() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot12() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot13() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot15() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot16() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot17() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot18() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot19() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot20() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot22() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot24() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot25() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot26() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot31() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot32() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot33() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot34() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot36() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot37() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot39() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot41() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot42() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot44() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot45() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot46() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot47() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot48() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot49() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot50() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot51() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot52() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot53() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot54() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot55() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot56() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot57() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot58() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot59() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot60() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot61() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot62() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot63() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot64() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot65() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot66() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot67() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot68() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot69() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot70() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot71() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot72() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot73() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot74() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot75() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot76() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot77() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot78() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot79() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot80() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot81() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot82() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot83() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot84() override { return E_NOTIMPL; }
};

template <typename Base>
class AutomationSlots : public Base {
 public:
  using Base::Base;

  HRESULT STDMETHODCALLTYPE unusedSlot4() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot5() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot7() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot9() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot10() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot11() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot12() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot13() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot14() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot15() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot16() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot17() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot18() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot19() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot20() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot22() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot24() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot25() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot26() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot27() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot29() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot30() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot31() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot32() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot33() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot34() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot35() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot36() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot37() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot38() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot39() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot40() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot41() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot42() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot43() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot44() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot45() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot46() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot47() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot48() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot49() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot50() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot51() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot52() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot53() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot54() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot55() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot56() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE unusedSlot57() override { return E_NOTIMPL; }
};

}  // namespace orvane::standins
