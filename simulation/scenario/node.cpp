#include "scenario/node.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace orvane::simulation {
namespace {

std::string keyPath(const std::string& path, std::string_view key) {
  return path.empty() ? std::string(key) : path + "." + std::string(key);
}

}  // namespace

void Node::requireKeys(std::initializer_list<std::string_view> known) const {
  if (!json_->is_object()) fail("must be an object");
  for (const auto& [key, value] : json_->items()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) {
      throw ScenarioError(keyPath(path_, key), "unknown key");
    }
  }
}

bool Node::has(std::string_view key) const { return json_->is_object() && json_->contains(std::string(key)); }

Node Node::at(std::string_view key) const {
  if (!json_->is_object()) fail("must be an object");
  if (!has(key)) throw ScenarioError(keyPath(path_, key), "must be there");
  return Node(json_->at(std::string(key)), keyPath(path_, key));
}

std::optional<Node> Node::find(std::string_view key) const {
  if (!has(key)) return std::nullopt;
  return at(key);
}

std::string Node::onlyKey() const {
  if (!json_->is_object()) fail("must be an object");
  if (json_->size() != 1) fail("must have exactly one key");
  return json_->begin().key();
}

std::vector<std::pair<std::string, Node>> Node::members() const {
  if (!json_->is_object()) fail("must be an object");
  std::vector<std::pair<std::string, Node>> members;
  for (const auto& [key, value] : json_->items()) members.emplace_back(key, Node(value, keyPath(path_, key)));
  return members;
}

std::vector<Node> Node::items() const {
  if (!json_->is_array()) fail("must be a list");
  std::vector<Node> items;
  items.reserve(json_->size());
  for (const Json& item : *json_) items.emplace_back(item, path_ + "[" + std::to_string(items.size()) + "]");
  return items;
}

bool Node::flag() const {
  if (!json_->is_boolean()) fail("must be true or false");
  return json_->get<bool>();
}

std::string Node::utf8() const {
  if (!json_->is_string()) fail("must be a text");
  return json_->get<std::string>();
}

std::string Node::nonEmptyText() const {
  std::string text = utf8();
  if (text.empty()) fail("must not be empty");
  return text;
}

std::int64_t Node::whole(std::int64_t least, std::int64_t most) const {
  // A number with a point may be whole too.
  constexpr double greatestExact = 0x1p53;
  if (json_->is_number_float() && std::trunc(json_->get<double>()) == json_->get<double>() &&
      std::abs(json_->get<double>()) <= greatestExact) {
    const Json number = static_cast<std::int64_t>(json_->get<double>());
    return Node(number, path_).whole(least, most);
  }
  if (!json_->is_number_integer()) fail("must be a whole number");
  const bool isTooBig =
      json_->is_number_unsigned() &&
      json_->get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  const std::int64_t number = isTooBig ? 0 : json_->get<std::int64_t>();
  if (isTooBig || number < least || number > most) {
    fail("must be from " + std::to_string(least) + " to " + std::to_string(most));
  }
  return number;
}

int Node::count() const { return static_cast<int>(whole(0, std::numeric_limits<int>::max())); }

std::int64_t Node::durationMs() const { return whole(0, 1'000'000'000'000); }

Rectangle Node::bounds() const {
  const std::vector<Node> sides = items();
  if (sides.size() != 4) fail("must be [left, top, right, bottom]");
  const auto side = [&sides](std::size_t index) {
    return static_cast<int>(sides[index].whole(-1'000'000'000, 1'000'000'000));
  };
  return {side(0), side(1), side(2), side(3)};
}

std::uint32_t Node::hresult() const {
  const std::string digits = utf8();
  std::uint32_t value = 0;
  const char* end = digits.data() + digits.size();
  const bool isHex = digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X');
  const auto parsed = isHex ? std::from_chars(digits.data() + 2, end, value, 16) : std::from_chars_result{};
  if (!isHex || parsed.ec != std::errc{} || parsed.ptr != end) fail("must be an HRESULT such as \"0x80004005\"");
  return value;
}

std::vector<std::uint8_t> Node::base64() const {
  auto bytes = bytesFromBase64(utf8());
  if (!bytes) fail("must be base64");
  return *bytes;
}

}  // namespace orvane::simulation
