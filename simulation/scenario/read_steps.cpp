#include <algorithm>
#include <array>
#include <limits>

#include "scenario/readers.h"
#include "scenario/value_codec.h"

namespace orvane::simulation {
namespace {

std::string readWindowName(const Node& node, References& references) {
  references.mention(References::Kind::window, node);
  return node.utf8();
}

// A reply's name: its place among the replies where the step gives none.
std::string declareReply(const Node& step, std::size_t place, References& references) {
  const auto as = step.find("as");
  std::string name = as ? as->nonEmptyText() : std::to_string(place);
  if (name.find('.') != std::string::npos) as->fail("must not have a point");
  references.declare(References::Kind::reply, name);
  return name;
}

Step readCall(const Node& node, std::size_t place, References& references) {
  node.requireKeys({"call", "as"});
  const Node call = node.at("call");
  call.requireKeys({"channel", "method", "arguments"});
  step::Call read;
  read.channel = call.at("channel").utf8();
  read.method = call.at("method").utf8();
  if (const auto arguments = call.find("arguments")) {
    checkValue(*arguments, references);
    read.arguments = arguments->json();
  }
  read.as = declareReply(node, place, references);
  return read;
}

Step readBytesStep(const Node& node, std::size_t place, References& references) {
  node.requireKeys({"bytes", "channel", "as"});
  step::Bytes read;
  auto message = bytesFromHex(node.at("bytes").utf8());
  if (!message) node.at("bytes").fail("must be pairs of hexadecimal digits");
  read.message = std::move(*message);
  read.channel = node.at("channel").utf8();
  read.as = declareReply(node, place, references);
  return read;
}

Step readResize(const Node& node, References& references) {
  node.requireKeys({"window", "bounds"});
  return step::Resize{readWindowName(node.at("window"), references), node.at("bounds").bounds()};
}

Step readSwitchTab(const Node& node, References& references) {
  node.requireKeys({"window", "title"});
  references.mention(References::Kind::tab, node.at("title"));
  return step::SwitchTab{readWindowName(node.at("window"), references), node.at("title").text()};
}

Step readChooseMenu(const Node& node) {
  if (node.isNull()) return step::ChooseMenu{};
  return step::ChooseMenu{static_cast<int>(node.whole(1, std::numeric_limits<int>::max()))};
}

Step readUser(const Node& node, References& references) {
  node.requireKeys({"user"});
  const Node user = node.at("user");
  const std::string act = user.onlyKey();
  const Node what = user.at(act);
  if (act == "foreground" && what.isNull()) return step::BringForward{};
  if (act == "foreground") return step::BringForward{readWindowName(what, references)};
  if (act == "close") return step::Close{readWindowName(what, references)};
  if (act == "minimize") return step::Minimize{readWindowName(what, references)};
  if (act == "resize") return readResize(what, references);
  if (act == "chooseMenu") return readChooseMenu(what);
  if (act == "switchTab") return readSwitchTab(what, references);
  what.fail("unknown key");
}

Json readMessageParameter(const Node& node, References& references) {
  if (node.json().is_object()) {
    node.requireKeys({"$window"});
    readWindowName(node.at("$window"), references);
  } else {
    if (!node.json().is_number_unsigned())
      node.whole(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max());
  }
  return node.json();
}

Step readPost(const Node& node, References& references) {
  node.requireKeys({"post"});
  const Node post = node.at("post");
  post.requireKeys({"window", "message", "wParam", "lParam"});
  step::Post read;
  read.window = readWindowName(post.at("window"), references);
  read.message = static_cast<std::uint32_t>(post.at("message").whole(0, 0xFFFF));
  const auto wParam = post.find("wParam");
  const auto lParam = post.find("lParam");
  read.wParam = wParam ? readMessageParameter(*wParam, references) : Json(0);
  read.lParam = lParam ? readMessageParameter(*lParam, references) : Json(0);
  return read;
}

Step readDo(const Node& node, References& references) {
  node.requireKeys({"do", "window"});
  step::Do read;
  read.actions = readActions(node.at("do"), references);
  if (const auto window = node.find("window")) {
    read.window = readWindowName(*window, references);
  } else if (std::any_of(read.actions.begin(), read.actions.end(), needsWindow)) {
    node.fail("needs a \"window\"");
  }
  return read;
}

Step readStep(const Node& node, std::size_t replies, References& references) {
  if (node.has("call")) return readCall(node, replies, references);
  if (node.has("bytes")) return readBytesStep(node, replies, references);
  if (node.has("user")) return readUser(node, references);
  if (node.has("post")) return readPost(node, references);
  if (node.has("do")) return readDo(node, references);
  node.requireKeys({"wait"});
  return step::Wait{node.at("wait").durationMs()};
}

bool givesReply(const Step& step) {
  return std::holds_alternative<step::Call>(step) || std::holds_alternative<step::Bytes>(step);
}

}  // namespace

std::vector<Step> readSteps(const Node& node, References& references) {
  std::vector<Step> steps;
  std::size_t replies = 0;
  for (const Node& item : node.items()) {
    steps.push_back(readStep(item, replies, references));
    if (givesReply(steps.back())) ++replies;
  }
  return steps;
}

}  // namespace orvane::simulation
