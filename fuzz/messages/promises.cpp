#include "messages/promises.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <set>

#include "support/find.h"

namespace orvane::fuzzing {
namespace {

using simulation::Text;

constexpr std::size_t leastPromptBytes = 8;
constexpr std::int64_t longestCallMs = 30'000;
constexpr int enterKey = 13;
constexpr int keyCount = 256;

std::string folded(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char unit) { return std::tolower(unit); });
  return text;
}

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

bool isSendControl(const std::string& name) {
  static const std::set<std::string> names{"send",         "send message", "send prompt",  "submit",
                                           "submit query", "send query",   "submit search"};
  return names.contains(folded(name)) || holds(folded(name), "send message");
}

// The step on which a delivery with this message ends; empty: one of the best-effort route's own.
std::string lastStepFor(const std::string& message) {
  static const std::map<std::string, std::string> steps{
      {"Wrong AI is in the foreground; send blocked", "Foreground Verification"},
      {"Could not select existing draft text", "Clear Existing Draft"},
      {"Paste failed", "Paste"},
      {"Prompt pasted and submitted", "Timing Submit Total"},
      {"Prompt pasted, but submit could not be verified", "Timing Submit Total"},
      {"Experimental: stopped or delivery unverified; inspect trace and page before retry", ""},
      {"Experimental: composer cleared after submit; verify response on page", ""},
  };
  const auto found = steps.find(message);
  return found == steps.end() ? "Focus Input" : found->second;
}

bool isPass(const TraceStep& step) { return step.result.starts_with("PASS"); }

const TraceStep* findStep(const std::vector<TraceStep>& trace, const std::string& name) {
  const auto found = std::find_if(trace.rbegin(), trace.rend(), [&](const auto& step) { return step.step == name; });
  return found == trace.rend() ? nullptr : &*found;
}

}  // namespace

Promises::Promises(simulation::Desktop& desktop) : desktop_(desktop) {}

Promises::Moment Promises::takeMoment() const {
  Moment moment;
  moment.ms = desktop_.clock().nowMs();
  moment.keyEvents = desktop_.keyEvents().size();
  for (const auto& element : desktop_.allElements()) {
    if (isSendControl(simulation::utf8FromText(desktop_.factsOf(*element).name.value_or(Text())))) {
      moment.sendsByControl += element->invokedCount;
    }
  }
  moment.clipboardSequence = desktop_.clipboard.sequence;
  moment.clipboardText = desktop_.clipboard.content.text;
  moment.held = desktop_.books().held();
  for (const auto& window : desktop_.allWindows()) {
    moment.selectedTabs[window.get()] = window->selected;
  }
  return moment;
}

void Promises::beforeCall(const std::string& channel, const Bytes& message) {
  call_ = readCall(channel, message);
  const auto& text = desktop_.clipboard.content.text;
  prompt_ = text ? simulation::utf8FromText(*text) : std::string();
  if (prompt_.size() < leastPromptBytes) {
    prompt_.clear();
  }
  // Who says the prompt in a call hears it again.
  isPromptSaid_ = isPromptSaid_ || tellsPrompt(message);
  takeErrorText();
  before_ = takeMoment();
}

bool Promises::tellsPrompt(const Bytes& bytes) const {
  return !prompt_.empty() && std::search(bytes.begin(), bytes.end(), prompt_.begin(), prompt_.end()) != bytes.end();
}

void Promises::checkReply(const std::optional<Bytes>& reply) {
  require(reply.has_value(), "each call has a reply");
  const ReplyShape shape = readReply(*reply);
  require(shape.isEmpty == !call_.isKnown, "what is no known method, and nothing else, has an empty reply");
  const bool isRefused = call_.isOf("activateProvider") && !call_.arguments;
  require(
      !isRefused || (shape.errorCode == "bad_arguments" && shape.errorMessage == "Expected a provider argument map."),
      "activateProvider without a map is refused");
  require(shape.isEmpty || isRefused || shape.map.has_value(), "no other call is refused");
  checkGround();
  if (call_.channel == "orvane/browser") {
    require(isPromptSaid_ || !tellsPrompt(*reply), "no reply tells the prompt");
    checkBrowserCall(shape);
  } else if (shape.map && !call_.isOf("checkSpelling")) {
    static_cast<void>(flagOf(*shape.map, "success"));
  }
}

void Promises::checkGround() const {
  const Moment now = takeMoment();
  require(now.ms - before_.ms <= longestCallMs, "a call ends in time");
  for (const auto& [kind, count] : now.held) {
    const auto known = before_.held.find(kind);
    const std::int64_t earlier = known == before_.held.end() ? 0 : known->second;
    // A window of the host may come and go with what it owns.
    require(count <= earlier || call_.isOf("syncCleanBackground") || kind == "threadHandles",
            "a call gives back what it took: " + kind);
  }
  for (int key = 0; key < keyCount; ++key) {
    require(!desktop_.isKeyDown(key), "no key is left down");
  }
  const std::string errors = takeErrorText();
  // What can't be decoded is said in other words.
  require(!holds('\n' + errors, "\nError:") && !holds('\n' + errors, "\nWarning:"), "a call is answered just once");
  require(isPromptSaid_ || !tellsPrompt(Bytes(errors.begin(), errors.end())), "no error line tells the prompt");
}

void Promises::checkBrowserCall(const ReplyShape& reply) const {
  require(desktop_.clipboard.sequence == before_.clipboardSequence &&
              desktop_.clipboard.content.text == before_.clipboardText,
          "the browser channel leaves the clipboard alone");
  if (call_.isOf("pasteAndSubmit")) {
    return checkDelivery(*reply.map);
  }
  const bool mayType = call_.isOf("activateProvider") && reply.map;
  if (!mayType) {
    requireKeysOnly({}, "this call sends no key");
  }
  if (call_.isOf("activateProvider") && reply.map) {
    checkActivation(*reply.map);
    checkTabsBehind(*reply.map);
  }
}

int Promises::keyDowns(int virtualKey) const {
  const auto& events = desktop_.keyEvents();
  return static_cast<int>(
      std::count_if(events.begin() + static_cast<std::ptrdiff_t>(before_.keyEvents), events.end(),
                    [virtualKey](const auto& event) { return !event.up && event.virtualKey == virtualKey; }));
}

void Promises::requireKeysOnly(const std::vector<std::string>& windows, const char* promise) const {
  const auto& events = desktop_.keyEvents();
  for (std::size_t at = before_.keyEvents; at < events.size(); ++at) {
    require(std::find(windows.begin(), windows.end(), events[at].window) != windows.end(), promise);
  }
}

// The window that a delivery found in front at its start, and keeps to: its id.
std::string Promises::targetOf(const std::vector<TraceStep>& trace) const {
  const TraceStep* const context = findStep(trace, "Dispatch Context");
  require(context != nullptr, "a delivery that types tells its target");
  const std::string start = "; foreground HWND=";
  const std::size_t at = context->result.rfind(start);
  require(at != std::string::npos, "the target is told");
  const std::uint64_t handle = std::strtoull(context->result.c_str() + at + start.size(), nullptr, 10);
  const auto& windows = desktop_.allWindows();
  const auto target =
      std::find_if(windows.begin(), windows.end(), [handle](const auto& window) { return window->handle == handle; });
  require(target != windows.end(), "the target is a window");
  return (*target)->id;
}

void Promises::checkDelivery(const EncodableMap& reply) const {
  const bool isDelivered = flagOf(reply, "success");
  const std::string message = textIn(reply, "message");
  const std::vector<TraceStep> trace = traceOf(reply);
  const TraceStep& last = trace.back();
  const std::string expectedLast = lastStepFor(message);
  const bool isBestEffort = expectedLast.empty();
  require(isBestEffort ? last.step.starts_with("Experimental ") : last.step == expectedLast,
          "the last step names the place of the stop: " + last.step + " for " + message);
  if (last.step == "Timing Submit Total") {
    const TraceStep* const result = findStep(trace, "Result");
    require(result != nullptr && isPass(*result) == isDelivered, "the result tells the verdict");
  } else if (!isDelivered) {
    require(!isPass(last), "a stop ends on a step that says why: " + last.result);
  }
  const int byEnter = keyDowns(enterKey);
  const int byControl = takeMoment().sendsByControl - before_.sendsByControl;
  const bool isClaude = !isBestEffort && holds(folded(call_.text("name")), "claude");
  require(byEnter <= 1, "Enter is sent once at most");
  require(byEnter + byControl <= (isClaude ? 2 : 1), "a prompt is sent once at most");
  if (desktop_.keyEvents().size() > before_.keyEvents) {
    requireKeysOnly({targetOf(trace)}, "keys go to the target alone");
    const TraceStep* const focus = findStep(trace, isBestEffort ? "Experimental Focus" : "Focus Input");
    require(focus != nullptr && holds(focus->result, "PASS"), "nothing is typed before the composer is proven");
  }
}

void Promises::checkActivation(const EncodableMap& reply) const {
  const std::vector<TraceStep> trace = traceOf(reply);
  require(trace.front().step == "Search ID", "a search begins with its number");
  const TraceStep* const result = findStep(trace, "Result");
  require(result != nullptr, "a search ends with its result");
  require((result->result == "Ready") == flagOf(reply, "success"), "the result tells the verdict");
  require(trace.back().step == "Result" || trace.back().step == "Timing activation total", "the trace is whole");
  std::vector<std::string> chromes;
  for (const auto& window : desktop_.allWindows()) {
    if (window->process == "chrome.exe" && folded(call_.text("name")) == "chatgpt") {
      chromes.push_back(window->id);
    }
  }
  requireKeysOnly(chromes, "a search types into Chrome alone, and for ChatGPT");
  require(keyDowns(enterKey) <= 1, "a search sends Enter once at most");
}

// The tab that a person was on is left for the provider's alone.
void Promises::checkTabsBehind(const EncodableMap& reply) const {
  if (keyDowns(enterKey) != 0) {
    return;  // the tab search goes where Chrome goes
  }
  const auto handle = reply.find(EncodableValue("windowHandle"));
  const auto* const number = handle == reply.end() ? nullptr : std::get_if<std::int64_t>(&handle->second);
  for (const auto& [window, tab] : before_.selectedTabs) {
    const bool isTarget = number != nullptr && static_cast<std::uint64_t>(*number) == window->handle;
    if (tab == nullptr || window->destroyed || (isTarget && flagOf(reply, "success"))) {
      continue;
    }
    require(tab->closed || window->selected == tab, "a tab that was left is selected again: " + window->id);
  }
}

void Promises::checkMessageOfHost(const std::string& channel, const Bytes& message) const {
  require(channel == "orvane/window" && readCall(channel, message).method == "showToolBoxMenu",
          "the host calls the interface for its tool box alone");
  require(isPromptSaid_ || !tellsPrompt(message), "no call to the interface tells the prompt");
}

void Promises::checkEnd(int exitCode) const {
  require(exitCode == 0, "the host ends by itself");
  for (const auto& [kind, count] : desktop_.books().held()) {
    require(count == 0, "nothing is held at the end: " + kind);
  }
}

}  // namespace orvane::fuzzing
