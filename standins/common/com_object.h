#pragma once

#include <windows.h>
// windows.h first: the next builds on it.
#include <unknwn.h>

#include <atomic>
#include <utility>

namespace orvane::standins {

inline constexpr IID unknownInterface = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
inline constexpr IID classFactoryInterface = {
    0x00000001, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// How many objects of this library are alive: what nobody gave back shows here in the end.
inline std::atomic<int>& liveObjects() {
  static std::atomic<int> count{0};
  return count;
}

// One object with its count of references; made with one, which goes to whoever asked for it.
// `Base` derives from a single COM interface.
template <typename Base, typename Interface = Base>
class ComObject : public Base {
 public:
  explicit ComObject(const IID& iid) : iid_(iid) { ++liveObjects(); }
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) final {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!::IsEqualIID(iid, iid_) && !::IsEqualIID(iid, unknownInterface)) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<Interface*>(this);
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() final { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~ComObject() { --liveObjects(); }

 private:
  const IID& iid_;
  std::atomic<ULONG> references_{1};
};

// What a call gives when it fails: nothing in `out`.
template <typename Value>
HRESULT endInto(HRESULT result, Value* out) {
  if (out != nullptr) *out = Value{};
  return result;
}

// Makes objects of one class for a client that asks for `Interface`.
template <typename Object>
class ClassFactory final : public ComObject<IClassFactory> {
 public:
  ClassFactory() : ComObject(classFactoryInterface) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (outer != nullptr) return endInto(CLASS_E_NOAGGREGATION, object);
    auto* const made = new Object;
    const HRESULT result = made->QueryInterface(iid, object);
    made->Release();
    return result;
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

// A library's answer to a client that asks for the factory of its one class.
template <typename Object>
HRESULT giveClassObject(const CLSID& known, REFCLSID wanted, REFIID iid, void** object) {
  if (!::IsEqualCLSID(wanted, known)) return endInto(CLASS_E_CLASSNOTAVAILABLE, object);
  auto* const factory = new ClassFactory<Object>;
  const HRESULT result = factory->QueryInterface(iid, object);
  factory->Release();
  return result;
}

}  // namespace orvane::standins
