#pragma once

#include <oleauto.h>
#include <windows.h>

#include <memory>
#include <optional>
#include <string_view>

#include "windows/call.h"
#include "windows/state.h"
#include "world/text.h"

namespace orvane::simulation {

// Why a call to a COM object ends at once: a fault's result, or that its thread has no apartment.
std::optional<HRESULT> refusal(std::string_view call, const Window* window, const Element* element);

// A string that the host will own.
BSTR makeBstr(TextView text);
// Notes that the host got the string in a VARIANT.
void markInVariant(BSTR text);
Text textOfBstr(BSTR text);

// One object with its count of references; every reference is the host's.
template <typename Interface>
class ComObject : public Interface, public ComShell {
 public:
  explicit ComObject(const IID& iid) : iid_(iid) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) final {
    requireAlive("QueryInterface");
    if (object == nullptr) return E_POINTER;
    if (iid != iid_ && iid != IID_IUnknown) stopRun("QueryInterface", "an interface that isn't modelled");
    AddRef();
    *object = static_cast<Interface*>(this);
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() final {
    requireAlive("AddRef");
    holdNow(held_kind::comReferences, 1);
    return ++references_;
  }

  ULONG STDMETHODCALLTYPE Release() final {
    requireAlive("Release");
    const bool isUncounted = isKept_ && references_ == 1;
    if (!isUncounted) holdNow(held_kind::comReferences, -1);
    return --references_;
  }

  bool isAlive() const final { return references_ != 0; }

 protected:
  void requireAlive(std::string_view call) const {
    if (references_ == 0) stopRun(call, "an object without a reference");
  }

  std::optional<HRESULT> refusalOf(std::string_view call, const Window* window, const Element* element) const {
    requireAlive(call);
    return refusal(call, window, element);
  }

 private:
  template <typename Object, typename... Arguments>
  friend Object* makeComObject(Arguments&&... arguments);
  template <typename Object, typename... Arguments>
  friend Object* makeKeptComObject(Arguments&&... arguments);

  IID iid_;
  ULONG references_ = 1;
  bool isKept_ = false;
};

// A new object with one reference.
template <typename Object, typename... Arguments>
Object* makeComObject(Arguments&&... arguments) {
  auto object = std::make_unique<Object>(std::forward<Arguments>(arguments)...);
  Object* const made = object.get();
  stateFor("COM").comObjects.push_back(std::move(object));
  holdNow(held_kind::comReferences, 1);
  return made;
}

// The same for one that the host keeps by design until the process ends: its last reference counts
// as nothing held.
template <typename Object, typename... Arguments>
Object* makeKeptComObject(Arguments&&... arguments) {
  Object* const made = makeComObject<Object>(std::forward<Arguments>(arguments)...);
  made->isKept_ = true;
  holdNow(held_kind::comReferences, -1);
  return made;
}

}  // namespace orvane::simulation
