#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvane::simulation {

struct Element;
struct Window;

// What a faulted call gives instead of its work.
struct FaultResult {
  enum class Kind { number, null };
  Kind kind = Kind::number;
  std::int64_t number = 0;  // false is 0; an HRESULT text its value; null in a call that gives a
                            // pointer through a parameter: success and a null pointer
  std::uint32_t lastError = 1359;
};

// A call of one platform operation that is to fail: the nth fitting one and those behind it.
struct Fault {
  std::string call;                    // as the platform names it: "IUIAutomationElement::FindAll"
  std::optional<std::string> element;  // an element's id, or a tab's title
  std::optional<std::string> window;   // a window's id
  int nth = 1;
  int times = 1;
  FaultResult result;
  int seen = 0;
};

// The kinds of `Books::hold`, as the report names them; all stand in `held` from the start, at 0.
namespace held_kind {
inline constexpr std::string_view comReferences = "comReferences";
inline constexpr std::string_view bstrs = "bstrs";
inline constexpr std::string_view variants = "variants";
inline constexpr std::string_view globalBlocks = "globalBlocks";
inline constexpr std::string_view menus = "menus";
inline constexpr std::string_view gdiObjects = "gdiObjects";
inline constexpr std::string_view processHandles = "processHandles";
inline constexpr std::string_view threadInputs = "threadInputs";
inline constexpr std::string_view hooks = "hooks";
inline constexpr std::string_view openClipboard = "openClipboard";
inline constexpr std::string_view taskStrings = "taskStrings";
}  // namespace held_kind

// The books of the platform: how often each operation was called, which calls fail, what is held.
class Books {
 public:
  void setFaults(std::vector<Fault> faults);

  // Counts one call by the host and says whether it fails. `window` and `element` are what the
  // call is about, null where it is about none.
  std::optional<FaultResult> enter(std::string_view call, const Window* window = nullptr,
                                   const Element* element = nullptr);

  const std::map<std::string, std::int64_t, std::less<>>& calls() const { return calls_; }

  // Is told of every call as it begins, a call that is to fail too.
  using Watcher = std::function<void(std::string_view call, const Window* window, const Element* element)>;
  void watch(Watcher watcher) { watcher_ = std::move(watcher); }

  // Something of this kind was taken (+1) or given back (-1). Below zero ends the run.
  void hold(std::string_view kind, int change);
  const std::map<std::string, std::int64_t, std::less<>>& held() const { return held_; }

 private:
  std::vector<Fault> faults_;
  Watcher watcher_;
  std::map<std::string, std::int64_t, std::less<>> calls_;
  std::map<std::string, std::int64_t, std::less<>> held_{
      {std::string(held_kind::comReferences), 0},  {std::string(held_kind::bstrs), 0},
      {std::string(held_kind::variants), 0},       {std::string(held_kind::globalBlocks), 0},
      {std::string(held_kind::menus), 0},          {std::string(held_kind::gdiObjects), 0},
      {std::string(held_kind::processHandles), 0}, {std::string(held_kind::threadInputs), 0},
      {std::string(held_kind::hooks), 0},          {std::string(held_kind::openClipboard), 0},
      {std::string(held_kind::taskStrings), 0},
  };
};

// Told of what ends the run, before the line is written; may end the process itself.
using StopHandler = void (*)(std::string_view call, std::string_view what);
void setStopHandler(StopHandler handler);

// Ends the run: the host did what the simulation doesn't model or what Windows forbids.
// Writes "simulation: CALL: WHAT" as one line to the error stream; the process ends with status 3.
[[noreturn]] void stopRun(std::string_view call, std::string_view what);

}  // namespace orvane::simulation
