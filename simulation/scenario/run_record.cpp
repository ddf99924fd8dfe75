#include "scenario/run_record.h"

#include <algorithm>
#include <array>

#include "scenario/scene.h"

namespace orvane::simulation {
namespace {

constexpr std::string_view waitCall = "Sleep";
constexpr std::string_view automationPrefix = "IUIAutomation";

// Beside the questions to UI Automation: what moves something on the desktop.
constexpr std::array<std::string_view, 17> deeds{
    "BringWindowToTop", "DestroyWindow", "EmptyClipboard",  "GetClipboardData", "MoveWindow",           "PostMessageW",
    "SendInput",        "SendMessageW",  "SetActiveWindow", "SetClipboardData", "SetForegroundWindow",  "SetWindowPos",
    "ShellExecuteW",    "ShowWindow",    "ShowWindowAsync", "TrackPopupMenuEx", "ISpellChecker::Check",
};

bool isOfInterest(std::string_view call) {
  return call.starts_with(automationPrefix) || std::find(deeds.begin(), deeds.end(), call) != deeds.end();
}

Json indexOrNull(const std::optional<std::size_t>& index) { return index ? Json(*index) : Json(nullptr); }

}  // namespace

bool RunRecord::Call::isAlike(const Call& other) const {
  return ms == other.ms && name == other.name && window == other.window && element == other.element &&
         reply == other.reply;
}

void RunRecord::begin() {
  before_ = describeScene(desktop_);
  isOn_ = true;
  noteClipboard();
  desktop_.books().watch(
      [this](std::string_view call, const Window* window, const Element* element) { note(call, window, element); });
}

void RunRecord::end() {
  isOn_ = false;
  while (!openWaits_.empty()) endWait(openWaits_.begin()->first);
  noteClipboard();
  after_ = describeScene(desktop_);
}

void RunRecord::beginReply() {
  reply_ = keysOfReplies_.size();
  const std::size_t keys = desktop_.keyEvents().size();
  keysOfReplies_.push_back({keys, keys});
}

void RunRecord::endReply() {
  keysOfReplies_.back().end = desktop_.keyEvents().size();
  // The host's own thread waits for the interface now.
  endWait(Clock::currentThread());
  reply_.reset();
}

void RunRecord::note(std::string_view call, const Window* window, const Element* element) {
  if (!isOn_) return;
  const int thread = Clock::currentThread();
  endWait(thread);
  noteClipboard();
  if (call == waitCall) openWaits_.emplace(thread, Wait{desktop_.clock().nowMs(), 0, thread, reply_});
  if (!isOfInterest(call)) return;
  const Window* about = window == nullptr && element != nullptr ? element->window : window;
  const auto name = element == nullptr ? std::nullopt : Desktop::reportName(*element);
  noteCall({desktop_.clock().nowMs(), std::string(call), about == nullptr ? std::string{} : about->id,
            name.value_or(std::string{}), 1, reply_});
}

// Searched backwards as far as this moment goes.
void RunRecord::noteCall(Call call) {
  for (auto known = calls_.rbegin(); known != calls_.rend() && known->ms == call.ms; ++known) {
    if (!known->isAlike(call)) continue;
    ++known->count;
    return;
  }
  calls_.push_back(std::move(call));
}

void RunRecord::noteClipboard() {
  const Clipboard& clipboard = desktop_.clipboard;
  if (clipboard.sequence == clipboardSequence_) return;
  clipboardSequence_ = clipboard.sequence;
  clipboard_.emplace_back(desktop_.clock().nowMs(), clipboard.content.text);
}

void RunRecord::endWait(int thread) {
  const auto open = openWaits_.find(thread);
  if (open == openWaits_.end()) return;
  open->second.endMs = desktop_.clock().nowMs();
  if (open->second.endMs > open->second.ms) waits_.push_back(open->second);
  openWaits_.erase(open);
}

Json RunRecord::describe() const {
  Json json;
  json["before"] = before_;
  json["after"] = after_;
  json["replies"] = Json::array();
  for (const KeyRange& keys : keysOfReplies_) {
    json["replies"].push_back({{"firstKey", keys.first}, {"endKey", keys.end}});
  }
  json["waits"] = Json::array();
  for (const Wait& wait : waits_) {
    json["waits"].push_back(
        {{"ms", wait.ms}, {"endMs", wait.endMs}, {"thread", wait.thread}, {"reply", indexOrNull(wait.reply)}});
  }
  json["calls"] = Json::array();
  for (const Call& call : calls_) {
    json["calls"].push_back({{"ms", call.ms},
                             {"call", call.name},
                             {"window", call.window.empty() ? Json(nullptr) : Json(call.window)},
                             {"element", call.element.empty() ? Json(nullptr) : Json(call.element)},
                             {"count", call.count},
                             {"reply", indexOrNull(call.reply)}});
  }
  json["clipboard"] = Json::array();
  for (const auto& [ms, text] : clipboard_) {
    json["clipboard"].push_back({{"ms", ms}, {"text", text ? Json(utf8FromText(*text)) : Json(nullptr)}});
  }
  return json;
}

}  // namespace orvane::simulation
