#include "windows/com.h"

#include <objbase.h>

#include "composer/uia_interfaces.h"
#include "windows/spelling.h"
#include "windows/uia.h"

const IID IID_IUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

namespace orvane::simulation {
namespace {

bool hasApartment(PlatformState& state) {
  const auto found = state.apartments.find(Clock::currentThread());
  return found != state.apartments.end() && found->second > 0;
}

bool isLastApartment(PlatformState& state) {
  int depth = 0;
  for (const auto& [thread, own] : state.apartments) depth += own;
  return depth == 1;
}

bool holdsReferences(PlatformState& state) {
  const auto& held = state.desktop.books().held();
  const auto found = held.find(held_kind::comReferences);
  return found != held.end() && found->second > 0;
}

}  // namespace

std::optional<HRESULT> refusal(std::string_view call, const Window* window, const Element* element) {
  if (const auto fault = enter(call, window, element)) return faulted<HRESULT>(*fault);
  if (!hasApartment(stateFor(call))) return CO_E_NOTINITIALIZED;
  return std::nullopt;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

HRESULT CoInitializeEx(LPVOID reserved, DWORD model) {
  PlatformState& state = stateFor("CoInitializeEx");
  if (const auto fault = enter("CoInitializeEx")) return faulted<HRESULT>(*fault);
  if (reserved != nullptr) return E_INVALIDARG;
  if (model != COINIT_APARTMENTTHREADED) stopRun("CoInitializeEx", "a model other than the apartment isn't modelled");
  return state.apartments[Clock::currentThread()]++ == 0 ? S_OK : S_FALSE;
}

void CoUninitialize() {
  PlatformState& state = stateFor("CoUninitialize");
  if (enter("CoUninitialize")) return;
  if (!hasApartment(state)) return;  // nothing to leave: Windows takes the call without a word
  if (isLastApartment(state) && holdsReferences(state)) {
    stopRun("CoUninitialize", "references are still held when the last apartment goes");
  }
  --state.apartments[Clock::currentThread()];
}

HRESULT CoCreateInstance(REFCLSID classId, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* object) {
  if (const auto refused = refusal("CoCreateInstance", nullptr, nullptr)) return endInto(*refused, object);
  if (object == nullptr) return E_POINTER;
  const bool isAutomation = classId == orvane::CLSID_CUIAutomation && iid == orvane::IID_IUIAutomation;
  const bool isSpelling = classId == spellCheckerFactoryClass && iid == spellCheckerFactoryInterface;
  if (!isAutomation && !isSpelling) stopRun("CoCreateInstance", "a class or an interface that isn't modelled");
  if (outer != nullptr || context != CLSCTX_INPROC_SERVER) {
    stopRun("CoCreateInstance", "anything but a plain object of a server in the process isn't modelled");
  }
  *object = isAutomation ? static_cast<void*>(makeAutomation()) : makeSpellCheckerFactory();
  return S_OK;
}
