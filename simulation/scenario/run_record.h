#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "scenario/json.h"
#include "world/desktop.h"

namespace orvane::simulation {

// What a picture of a run needs beside its report: the desktop before and after the steps, and what
// the host asked, did and waited for meanwhile, with its times. Must live as long as the books of the
// desktop are written.
class RunRecord {
 public:
  explicit RunRecord(Desktop& desktop) : desktop_(desktop) {}
  RunRecord(const RunRecord&) = delete;
  RunRecord& operator=(const RunRecord&) = delete;

  // Called before the first step and behind the last one.
  void begin();
  void end();
  // Called around each call of the interface.
  void beginReply();
  void endReply();

  // `before` and `after` (scenes, null where the run didn't come that far); `replies`, for each the part
  // of the report's `input` that fell into it, `{"firstKey", "endKey"}`; `waits` (`{"ms", "endMs", "thread",
  // "reply"}`); `calls` (`{"ms", "call", "window", "element", "count", "reply"}`, those of one moment that are
  // alike stand together) and `clipboard` (`{"ms", "text"}`: what was on it from then on). A `reply` is an
  // index, null between two.
  Json describe() const;

 private:
  struct Wait {
    std::int64_t ms;
    std::int64_t endMs;
    int thread;
    std::optional<std::size_t> reply;
  };
  struct Call {
    std::int64_t ms;
    std::string name;
    std::string window;
    std::string element;
    int count;
    std::optional<std::size_t> reply;
    bool isAlike(const Call& other) const;
  };

  struct KeyRange {
    std::size_t first;
    std::size_t end;
  };

  void note(std::string_view call, const Window* window, const Element* element);
  void noteCall(Call call);
  void noteClipboard();
  void endWait(int thread);

  Desktop& desktop_;
  bool isOn_ = false;
  Json before_;
  Json after_;
  std::map<int, Wait> openWaits_;  // by thread
  std::optional<std::size_t> reply_;
  std::vector<KeyRange> keysOfReplies_;
  std::vector<Wait> waits_;
  std::vector<Call> calls_;
  std::vector<std::pair<std::int64_t, std::optional<Text>>> clipboard_;
  std::uint32_t clipboardSequence_ = 0;
};

}  // namespace orvane::simulation
