#include "scenario/person_printer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string_view>

#include "scenario/key_names.h"

namespace orvane::simulation {
namespace {

constexpr std::string_view margin = "  ";

namespace color {
constexpr std::string_view none = "\x1b[0m";
constexpr std::string_view bold = "\x1b[1m";
constexpr std::string_view dim = "\x1b[2m";
constexpr std::string_view red = "\x1b[31m";
constexpr std::string_view green = "\x1b[32m";
constexpr std::string_view yellow = "\x1b[33m";
}  // namespace color

struct OpeningColor {
  std::string_view opening;
  std::string_view color;
};

// How a result reads goes by its opening word.
constexpr std::array<OpeningColor, 10> openingColors{{
    {"PASS", color::green},
    {"FAIL", color::red},
    {"BLOCKED", color::red},
    {"UNVERIFIED", color::yellow},
    {"UNSTABLE", color::yellow},
    {"RETRY", color::yellow},
    {"MISS", color::yellow},
    {"SKIP", color::yellow},
    {"DISABLED", color::yellow},
    {"ATTEMPTED", color::yellow},
}};

std::string_view colorOf(const std::string& result) {
  const auto found = std::find_if(openingColors.begin(), openingColors.end(),
                                  [&result](const OpeningColor& entry) { return result.starts_with(entry.opening); });
  return found == openingColors.end() ? color::dim : found->color;
}

// Code points: what stands in a column, near enough for the names of steps.
std::size_t widthOf(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

std::string padded(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, widthOf(text)), ' ');
}

std::string rightAligned(const std::string& text, std::size_t width) {
  return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string keyNames(const Json& object) {
  std::string names;
  if (!object.is_object()) return names;
  for (const auto& [key, value] : object.items()) names += (names.empty() ? "" : ", ") + key;
  return names;
}

// A control's text as far as it is anyone's business.
std::string describeValue(const Json& value) {
  if (value.is_null()) return "not exposed";
  const std::string text = value.get<std::string>();
  return text.empty() ? "empty" : "holds text (" + std::to_string(widthOf(text)) + " characters)";
}

struct Row {
  std::string label;
  std::string text;
};

class Printer {
 public:
  explicit Printer(bool colored) : colored_(colored) {}

  void line(std::string text) {
    while (text.ends_with(' ')) text.pop_back();
    out_ += text + '\n';
  }

  std::string painted(std::string_view with, const std::string& text) const {
    return colored_ ? std::string(with) + text + std::string(color::none) : text;
  }

  void printCall(const Json& reply, const Json& arguments) {
    line("");
    const std::string method = reply.at("method").is_string() ? reply.at("method").get<std::string>() : "raw message";
    const std::string names = keyNames(arguments);
    line(painted(color::bold, method) + (names.empty() ? "" : margin.data() + painted(color::dim, names)));
    const Json& value = reply.at("value");
    if (value.is_object() && value.contains("logs") && value.at("logs").is_array()) printTrace(reply, value.at("logs"));
    const std::string facts = replyFacts(value);
    if (!facts.empty()) line(std::string(margin) + facts);
    line(std::string(margin) + verdict(reply) + margin.data() + painted(color::dim, "took " + tookMs(reply)));
  }

  void printRows(const std::vector<Row>& rows) {
    std::size_t width = 0;
    for (const Row& row : rows) width = std::max(width, widthOf(row.label));
    for (const Row& row : rows) {
      line(std::string(margin) + painted(color::dim, padded(row.label, width)) + margin.data() + row.text);
    }
  }

  std::string take() { return std::move(out_); }

 private:
  static std::string replyFact(const std::string& key, const Json& part) {
    if (part.is_string()) return key == "action" ? writeJson(part) : describeValue(part);
    if (!part.is_object()) return writeJson(part);
    return part.contains("$int64") ? writeJson(part.at("$int64")) : "holds data";
  }

  // What a reply without a trace says beside its success; texts, which may be the user's own, by their length.
  static std::string replyFacts(const Json& value) {
    std::string facts;
    if (!value.is_object() || value.contains("logs") || !value.contains("success")) return facts;
    for (const auto& [key, part] : value.items()) {
      if (key == "success" || key == "message") continue;
      facts += (facts.empty() ? "" : "  ") + key + ' ' + replyFact(key, part);
    }
    return facts;
  }

  static std::string tookMs(const Json& reply) {
    return std::to_string(reply.at("endMs").get<std::int64_t>() - reply.at("startMs").get<std::int64_t>()) + " ms";
  }

  void printTrace(const Json& reply, const Json& steps) {
    const bool isTimed = reply.contains("stepMs");
    const std::size_t timeWidth = tookMs(reply).size();
    std::size_t nameWidth = 0;
    for (const Json& step : steps) nameWidth = std::max(nameWidth, widthOf(step.value("step", "")));
    for (std::size_t index = 0; index < steps.size(); ++index) {
      std::string text(margin);
      if (isTimed) text += painted(color::dim, "+ " + stepTime(reply, index, timeWidth)) + margin.data();
      const std::string result = steps[index].value("result", "");
      text += padded(steps[index].value("step", ""), nameWidth) + margin.data();
      line(text + painted(colorOf(result), result));
    }
  }

  static std::string stepTime(const Json& reply, std::size_t index, std::size_t width) {
    const std::int64_t atMs =
        reply.at("stepMs").at(index).get<std::int64_t>() - reply.at("startMs").get<std::int64_t>();
    return rightAligned(std::to_string(atMs) + " ms", width);
  }

  // Plain values as they are; of what has an inside the name alone.
  static std::string shortValues(const Json& value) {
    if (!value.is_object()) return value.is_array() ? keyNames(value) : writeJson(value);
    std::string text;
    for (const auto& [key, part] : value.items()) {
      text += (text.empty() ? "" : ", ") + key + (part.is_structured() ? "" : "=" + writeJson(part));
    }
    return text;
  }

  std::string verdict(const Json& reply) const {
    const std::string kind = reply.at("kind").get<std::string>();
    if (kind == "error") {
      const Json& error = reply.at("error");
      return painted(color::red, "ERROR") + margin.data() + writeJson(error.at("code")) + ": " +
             writeJson(error.at("message"));
    }
    if (kind == "notImplemented") return painted(color::red, "NOT IMPLEMENTED");
    if (kind != "success") return painted(color::red, kind == "none" ? "NO REPLY" : "MALFORMED REPLY");
    const Json& value = reply.at("value");
    if (!value.is_object() || !value.contains("success")) return "REPLIED" + std::string(margin) + shortValues(value);
    const bool succeeded = value.at("success") == true;
    const std::string word = succeeded ? painted(color::green, "SUCCESS") : painted(color::red, "NO SUCCESS");
    const std::string message = value.contains("message") && value.at("message").is_string()
                                    ? value.at("message").get<std::string>()
                                    : std::string{};
    return message.empty() ? word : word + margin.data() + message;
  }

  bool colored_;
  std::string out_;
};

std::map<std::string, const Json*> argumentsByReply(const Scenario& scenario) {
  std::map<std::string, const Json*> arguments;
  for (const Step& step : scenario.steps) {
    if (const auto* call = std::get_if<step::Call>(&step)) arguments[call->as] = &call->arguments;
  }
  return arguments;
}

Row describeForeground(const Json& desktop) {
  const Json& foreground = desktop.at("foreground");
  if (foreground.is_null()) return {"foreground", "none"};
  const std::string id = foreground.get<std::string>();
  if (!desktop.at("windows").contains(id)) return {"foreground", id};
  return {"foreground", id + "  \"" + desktop.at("windows").at(id).at("title").get<std::string>() + "\""};
}

// A menu that was opened: which of its entries, from 1, was chosen.
Row describeMenu(const Json& opened) {
  const Json& entries = opened.at("entries");
  for (std::size_t index = 0; index < entries.size(); ++index) {
    if (entries[index].at("id") != opened.at("chosen")) continue;
    return {"menu", "entry " + std::to_string(index + 1) + " of " + std::to_string(entries.size()) + " chosen"};
  }
  return {"menu", "none of " + std::to_string(entries.size()) + " chosen"};
}

std::vector<Row> describeEnd(const Json& report) {
  const Json& desktop = report.at("desktop");
  const std::string keys = describeKeys(report.at("input"));
  std::vector<Row> rows{{"keys sent", keys.empty() ? "none" : keys}, describeForeground(desktop)};
  for (const Json& painted : report.at("painted")) {
    if (painted.contains("entries")) rows.push_back(describeMenu(painted));
  }
  const Json& focus = desktop.at("focus");
  rows.push_back({"focus", focus.is_null() ? "none" : focus.get<std::string>()});
  for (const auto& [place, value] : desktop.at("values").items()) {
    if (!place.ends_with("/addressBar")) rows.push_back({place, describeValue(value)});
  }
  for (const Json& errorLine : report.at("stderr")) rows.push_back({"error line", errorLine.get<std::string>()});
  rows.push_back({"exit code", writeJson(report.at("exitCode"))});
  return rows;
}

}  // namespace

std::string describeForPerson(const Scenario& scenario, const Json& report, bool colored) {
  Printer printer(colored);
  printer.line(printer.painted(color::bold, scenario.name.empty() ? scenario.file : scenario.name));
  const auto arguments = argumentsByReply(scenario);
  for (const Json& reply : report.at("replies")) {
    const auto given = arguments.find(reply.at("as").get<std::string>());
    printer.printCall(reply, given == arguments.end() ? Json(nullptr) : *given->second);
  }
  printer.line("");
  printer.line(printer.painted(color::bold, "At the end") + margin.data() +
               printer.painted(color::dim, "after " + writeJson(report.at("virtualMs")) + " ms"));
  printer.printRows(describeEnd(report));
  return printer.take();
}

}  // namespace orvane::simulation
