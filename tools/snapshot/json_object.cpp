#include "snapshot/json_object.h"

#include <utility>

#include "embedding/utf_conversion.h"

namespace orvane::snapshot {
namespace {

constexpr std::string_view hexadecimalDigits = "0123456789abcdef";
constexpr unsigned char firstPrintable = 0x20;

void appendEscaped(std::string& json, char byte) {
  const auto value = static_cast<unsigned char>(byte);
  switch (byte) {
    case '"':
    case '\\':
      json += '\\';
      json += byte;
      return;
    case '\n':
      json += "\\n";
      return;
    case '\r':
      json += "\\r";
      return;
    case '\t':
      json += "\\t";
      return;
    default:
      break;
  }
  if (value >= firstPrintable) {
    json += byte;
    return;
  }
  json += "\\u00";
  json += hexadecimalDigits[value >> 4];
  json += hexadecimalDigits[value & 0xF];
}

std::string lineStart(int depth) { return "\n" + std::string(static_cast<std::size_t>(depth) * 2, ' '); }

std::string enclose(const std::vector<std::string>& parts, std::string_view brackets, int depth) {
  if (parts.empty()) {
    return std::string(brackets);
  }
  std::string json(1, brackets.front());
  for (std::size_t part = 0; part < parts.size(); ++part) {
    json += (part == 0 ? "" : ",") + lineStart(depth + 1) + parts[part];
  }
  return json + lineStart(depth) + brackets.back();
}

}  // namespace

std::string jsonText(std::string_view utf8) {
  std::string json = "\"";
  for (const char byte : utf8) {
    appendEscaped(json, byte);
  }
  return json + '"';
}

std::string jsonText(std::wstring_view text) { return jsonText(std::string_view(utf8FromWide(text))); }

JsonObject& JsonObject::add(std::string_view key, std::string value) {
  members_.push_back(jsonText(key) + ": " + std::move(value));
  return *this;
}

JsonObject& JsonObject::addText(std::string_view key, std::wstring_view text) { return add(key, jsonText(text)); }

JsonObject& JsonObject::addNonEmpty(std::string_view key, std::wstring_view text) {
  return text.empty() ? *this : addText(key, text);
}

JsonObject& JsonObject::addIf(bool isSet, std::string_view key, std::string value) {
  return isSet ? add(key, std::move(value)) : *this;
}

std::string JsonObject::onOneLine() const {
  std::string json = "{";
  for (std::size_t member = 0; member < members_.size(); ++member) {
    json += (member == 0 ? "" : ", ") + members_[member];
  }
  return json + "}";
}

std::string JsonObject::onLines(int depth) const { return enclose(members_, "{}", depth); }

std::string jsonList(const std::vector<std::string>& items, int depth) { return enclose(items, "[]", depth); }

}  // namespace orvane::snapshot
