#include <limits>

#include "scenario/readers.h"

namespace orvane::simulation {
namespace {

Monitor readMonitor(const Node& node) {
  node.requireKeys({"bounds", "work", "dpi"});
  Monitor monitor;
  monitor.bounds = node.at("bounds").bounds();
  const auto work = node.find("work");
  monitor.work = work ? work->bounds() : monitor.bounds;
  if (const auto dpi = node.find("dpi")) monitor.dpi = static_cast<std::uint32_t>(dpi->whole(1, 10'000));
  return monitor;
}

std::vector<Monitor> readMonitors(const Node& node) {
  std::vector<Monitor> monitors;
  for (const Node& item : node.items()) monitors.push_back(readMonitor(item));
  if (monitors.empty()) node.fail("must have a monitor");
  return monitors;
}

SpellingDictionary readDictionary(const Node& node) {
  node.requireKeys({"words", "suggest"});
  SpellingDictionary dictionary;
  if (const auto words = node.find("words")) {
    for (const Node& word : words->items()) dictionary.words.insert(word.text());
  }
  if (!node.has("suggest")) return dictionary;
  for (const auto& [word, suggestions] : node.at("suggest").members()) {
    std::vector<Text>& list = dictionary.suggestions[textFromUtf8(word)];
    for (const Node& suggestion : suggestions.items()) list.push_back(suggestion.text());
  }
  return dictionary;
}

Spelling readSpelling(const Node& node) {
  Spelling spelling;
  for (const auto& [language, dictionary] : node.members()) spelling[language] = readDictionary(dictionary);
  return spelling;
}

FaultResult readFaultResult(const Node& node) {
  FaultResult result;
  if (node.isNull()) {
    result.kind = FaultResult::Kind::null;
  } else if (node.isText()) {
    result.number = node.hresult();
  } else if (node.json().is_boolean()) {
    if (node.flag()) node.fail("must be an HRESULT text, a number, false or null");
  } else {
    result.number = node.whole(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max());
  }
  return result;
}

int readOrdinal(const Node& node) { return static_cast<int>(node.whole(1, std::numeric_limits<int>::max())); }

Fault readFault(const Node& node, References& references) {
  node.requireKeys({"call", "element", "window", "nth", "times", "result", "lastError"});
  Fault fault;
  fault.call = node.at("call").nonEmptyText();
  if (const auto element = node.find("element")) {
    references.mentionElementOrTab(*element);
    fault.element = element->utf8();
  }
  if (const auto window = node.find("window")) {
    references.mention(References::Kind::window, *window);
    fault.window = window->utf8();
  }
  if (const auto nth = node.find("nth")) fault.nth = readOrdinal(*nth);
  if (const auto times = node.find("times")) fault.times = readOrdinal(*times);
  fault.result = readFaultResult(node.at("result"));
  if (const auto lastError = node.find("lastError")) {
    fault.result.lastError = static_cast<std::uint32_t>(lastError->whole(0, std::numeric_limits<std::uint32_t>::max()));
  }
  return fault;
}

void readForegroundKey(const Node& node, DesktopPlan& plan, References& references) {
  plan.setsForeground = true;
  if (node.isNull()) return;
  references.mention(References::Kind::window, node);
  plan.foreground = node.utf8();
}

template <typename Value, typename Read>
void readForm(const Node& node, std::string_view key, std::optional<Value>& form, Read read) {
  const auto value = node.find(key);
  if (value && !value->isNull()) form = read(*value);
}

void readTextBlock(const Node& node, ClipboardContent& content) {
  const auto block = node.find("textBlock");
  if (!block || block->isNull()) return;
  if (content.text) block->fail("the text is given already");
  content.setTextBlock(block->base64());
}

}  // namespace

ClipboardContent readClipboard(const Node& node, References& references) {
  node.requireKeys({"text", "textBlock", "html", "png", "dib", "dibv5", "lockedBy"});
  const auto readBytes = [](const Node& form) { return form.base64(); };
  ClipboardContent content;
  readForm(node, "text", content.text, [](const Node& form) { return form.text(); });
  readTextBlock(node, content);
  readForm(node, "html", content.html, [](const Node& form) { return form.utf8(); });
  readForm(node, "png", content.png, readBytes);
  readForm(node, "dib", content.dib, readBytes);
  readForm(node, "dibv5", content.dibv5, readBytes);
  readForm(node, "lockedBy", content.lockedBy, [&references](const Node& form) {
    references.mention(References::Kind::window, form);
    return form.utf8();
  });
  return content;
}

DesktopPlan readDesktop(const Node& node, References& references) {
  node.requireKeys({"monitors", "lightTheme", "windows", "foreground", "clipboard", "spelling", "faults"});
  DesktopPlan plan;
  if (const auto monitors = node.find("monitors")) plan.monitors = readMonitors(*monitors);
  if (const auto lightTheme = node.find("lightTheme")) plan.lightTheme = lightTheme->flag();
  if (const auto windows = node.find("windows")) {
    for (const Node& item : windows->items()) plan.windows.push_back(readWindow(item, references));
  }
  if (const auto foreground = node.find("foreground")) readForegroundKey(*foreground, plan, references);
  if (const auto clipboard = node.find("clipboard")) plan.clipboard = readClipboard(*clipboard, references);
  if (const auto spelling = node.find("spelling")) plan.spelling = readSpelling(*spelling);
  if (const auto faults = node.find("faults")) {
    for (const Node& item : faults->items()) plan.faults.push_back(readFault(item, references));
  }
  return plan;
}

}  // namespace orvane::simulation
