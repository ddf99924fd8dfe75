#include "windows/spelling_lists.h"

#include "windows/com.h"
#include "windows/spelling.h"
#include "windows/task_memory.h"

namespace orvane::simulation {
namespace {

// Each call may fail as a scenario says.
struct SimulatedServer {
  template <typename Interface>
  using Object = ComObject<Interface>;

  template <typename Made, typename... Arguments>
  static Made* make(Arguments&&... arguments) {
    return makeComObject<Made>(std::forward<Arguments>(arguments)...);
  }

  template <typename Value>
  static HRESULT endInto(HRESULT result, Value* out) {
    return simulation::endInto(result, out);
  }

  static LPWSTR makeTaskString(const Text& text) { return simulation::makeTaskString(text); }
  [[noreturn]] static HRESULT answerUnused(const char* call) { stopRun(call, "isn't modelled"); }
};

}  // namespace

IEnumSpellingError* makeSpellingErrors(bool isWrong, ULONG textUnits) {
  return makeComObject<SpellingErrors<SimulatedServer>>(isWrong, textUnits);
}

IEnumString* makeStringList(std::vector<Text> strings) {
  return makeComObject<StringList<SimulatedServer>>(std::move(strings));
}

}  // namespace orvane::simulation
