#include "scenario/report.h"

#include "scenario/painted_report.h"

namespace orvane::simulation {
namespace {

Json textOrNull(const std::optional<Text>& text) { return text ? Json(utf8FromText(*text)) : Json(nullptr); }

Json describeInput(const std::vector<KeyEvent>& events) {
  Json list = Json::array();
  for (const KeyEvent& event : events) {
    Json json;
    json["ms"] = event.ms;
    json["window"] = event.window.empty() ? Json(nullptr) : Json(event.window);
    json["element"] = event.element ? Json(*event.element) : Json(nullptr);
    json["vk"] = event.virtualKey;
    json["up"] = event.up;
    json["batch"] = event.batch;
    list.push_back(std::move(json));
  }
  return list;
}

Json describeShell(const std::vector<ShellCall>& calls) {
  Json list = Json::array();
  for (const ShellCall& call : calls) {
    Json json;
    json["owner"] = call.owner ? Json(*call.owner) : Json(nullptr);
    json["verb"] = textOrNull(call.verb);
    json["file"] = textOrNull(call.file);
    json["parameters"] = textOrNull(call.parameters);
    json["directory"] = textOrNull(call.directory);
    json["show"] = call.show;
    list.push_back(std::move(json));
  }
  return list;
}

Json describeAttributes(const std::vector<AttributeSet>& attributes) {
  Json list = Json::array();
  for (const AttributeSet& set : attributes) {
    Json json;
    json["window"] = set.window;
    json["attribute"] = set.attribute;
    json["value"] = set.value;
    list.push_back(std::move(json));
  }
  return list;
}

Json describePosted(const std::vector<PostedMessage>& messages) {
  Json list = Json::array();
  for (const PostedMessage& posted : messages) {
    Json json;
    json["window"] = posted.window;
    json["message"] = posted.message;
    json["wParam"] = posted.wParam;
    json["lParam"] = posted.lParam;
    list.push_back(std::move(json));
  }
  return list;
}

Json describeEngine(const EngineRecord& engine) {
  if (!engine.created) return nullptr;
  Json json;
  json["assetsPath"] = utf8FromText(engine.assetsPath);
  json["icuDataPath"] = utf8FromText(engine.icuDataPath);
  json["aotLibraryPath"] = utf8FromText(engine.aotLibraryPath);
  json["entryPointArguments"] = Json::array();
  for (const std::string& argument : engine.entryPointArguments) {
    json["entryPointArguments"].push_back(validUtf8(argument));
  }
  json["size"] = {engine.width, engine.height};
  json["plugins"] = engine.plugins;
  return json;
}

Json describeErrorLines(const std::string& errorText) {
  Json lines = Json::array();
  std::string line;
  for (const char character : errorText) {
    if (character == '\n') {
      lines.push_back(validUtf8(line));
      line.clear();
    } else if (character != '\r') {
      line += character;
    }
  }
  if (!line.empty()) lines.push_back(validUtf8(line));
  return lines;
}

Json describeCounts(const std::map<std::string, std::int64_t, std::less<>>& counts) {
  Json json = Json::object();
  for (const auto& [name, count] : counts) json[name] = count;
  return json;
}

}  // namespace

Json describeRun(const Scenario& scenario, int exitCode, const ScriptedInterface& script, Platform& platform,
                 const std::string& errorText) {
  Desktop& desktop = platform.desktop();
  const PlatformRecords& records = platform.records();
  Json report;
  report["name"] = scenario.name;
  report["exitCode"] = exitCode;
  report["virtualMs"] = desktop.clock().nowMs();
  report["replies"] = script.replies();
  report["toInterface"] = script.callsFromHost();
  report["input"] = describeInput(desktop.keyEvents());
  report["shell"] = describeShell(records.shell);
  report["painted"] = describePainted(records.painted);
  report["attributes"] = describeAttributes(records.attributes);
  report["posted"] = describePosted(records.posted);
  report["engine"] = describeEngine(records.engine);
  report["desktop"] = script.endState().is_null() ? describeDesktop(desktop) : script.endState();
  report["stderr"] = describeErrorLines(errorText);
  report["platformCalls"] = describeCounts(desktop.books().calls());
  report["live"] = describeCounts(desktop.books().held());
  return report;
}

}  // namespace orvane::simulation
