#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/json.h"
#include "world/geometry.h"
#include "world/text.h"

namespace orvane::simulation {

// A file that can't be read, isn't JSON, or holds what a scenario doesn't have.
class ScenarioError : public std::runtime_error {
 public:
  ScenarioError(const std::string& path, const std::string& problem)
      : std::runtime_error(onOneLine(path.empty() ? problem : path + ": " + problem)) {}

 private:
  // A file may quote line ends in its own names.
  static std::string onOneLine(std::string text) {
    for (char& character : text) {
      if (character == '\r' || character == '\n') character = ' ';
    }
    return text;
  }
};

// One value of a scenario file and the path to it. Every reader throws ScenarioError with that path
// for a value of another type or out of its range.
class Node {
 public:
  Node(const Json& json, std::string path) : json_(&json), path_(std::move(path)) {}

  const Json& json() const { return *json_; }
  const std::string& path() const { return path_; }
  [[noreturn]] void fail(const std::string& problem) const { throw ScenarioError(path_, problem); }

  bool isNull() const { return json_->is_null(); }
  bool isText() const { return json_->is_string(); }

  // An object with no other keys than these.
  void requireKeys(std::initializer_list<std::string_view> known) const;
  bool has(std::string_view key) const;
  Node at(std::string_view key) const;                   // an error when it isn't there
  std::optional<Node> find(std::string_view key) const;  // nullopt when it isn't there
  // The one key of an object that says which of several things it is.
  std::string onlyKey() const;
  std::vector<std::pair<std::string, Node>> members() const;
  std::vector<Node> items() const;

  bool flag() const;
  std::string utf8() const;
  Text text() const { return textFromUtf8(utf8()); }
  std::string nonEmptyText() const;
  std::int64_t whole(std::int64_t least, std::int64_t most) const;
  int count() const;                // from 0
  std::int64_t durationMs() const;  // from 0
  Rectangle bounds() const;
  std::uint32_t hresult() const;  // a text such as "0x80004005"
  std::vector<std::uint8_t> base64() const;

 private:
  const Json* json_;
  std::string path_;
};

}  // namespace orvane::simulation
