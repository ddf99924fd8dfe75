#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane::snapshot {

// A JSON text in quotes, of UTF-8 that is valid.
std::string jsonText(std::string_view utf8);
// The same of UTF-16; a lone surrogate half becomes U+FFFD.
std::string jsonText(std::wstring_view text);

// An object of JSON, member by member in the order in which they come.
class JsonObject {
 public:
  // `value` is JSON itself.
  JsonObject& add(std::string_view key, std::string value);
  JsonObject& addText(std::string_view key, std::wstring_view text);
  // Left out where the text is empty, the flag false.
  JsonObject& addNonEmpty(std::string_view key, std::wstring_view text);
  JsonObject& addIf(bool isSet, std::string_view key, std::string value);

  // On one line, or each member on a line of its own, indented by `depth` steps and one.
  std::string onOneLine() const;
  std::string onLines(int depth) const;

 private:
  std::vector<std::string> members_;
};

// A list with each item on a line of its own; items are JSON themselves.
std::string jsonList(const std::vector<std::string>& items, int depth);

}  // namespace orvane::snapshot
