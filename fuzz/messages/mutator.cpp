#include "messages/mutator.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include "embedding/standard_method_codec.h"
#include "messages/methods.h"
#include "messages/records.h"

// The fuzzer's own change of bytes. In a program without a fuzzer, where nothing calls the mutator, it
// isn't there.
extern "C" __attribute__((weak)) std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size,
                                                              std::size_t maxSize);

namespace orvane::fuzzing {
namespace {

constexpr std::array<const char*, 39> keys{"name",
                                           "domain",
                                           "patterns",
                                           "rememberedTitle",
                                           "rememberedAutomationId",
                                           "rememberedBrowser",
                                           "rememberedWindowHandle",
                                           "rememberedTabIndex",
                                           "expectedWindowHandle",
                                           "windowHandle",
                                           "url",
                                           "text",
                                           "html",
                                           "processId",
                                           "showToolBoxMenu",
                                           "word",
                                           "language",
                                           "enabled",
                                           "reopen",
                                           "resetHeight",
                                           "appearance",
                                           "height",
                                           "workingDirectory",
                                           "batchPath",
                                           "filePath",
                                           "keys",
                                           "items",
                                           "fontScale",
                                           "rtl",
                                           "anchorX",
                                           "anchorY",
                                           "x",
                                           "y",
                                           "width",
                                           "clientHeight",
                                           "action",
                                           "label",
                                           "shortcut",
                                           "dark"};

constexpr std::array<const char*, 28> texts{"",
                                            "ChatGPT",
                                            "Claude",
                                            "Gemini",
                                            "Perplexity",
                                            "DeepSeek",
                                            "Grok",
                                            "Qwen",
                                            "Doubao",
                                            "chatgpt.com",
                                            "claude.ai",
                                            "gemini.google.com",
                                            "Chrome",
                                            "Edge",
                                            "0",
                                            "1",
                                            "-1",
                                            "99999999999999999999",
                                            "en-US",
                                            "de-DE",
                                            "teh",
                                            "Win+Shift+R",
                                            "White",
                                            "Deep Blue",
                                            "\xF0\x9F\x93\x8E",
                                            "\xED\xA0\x80",
                                            "line\nline\r\nline",
                                            "&File\t(&x)"};

constexpr std::array<double, 12> doubles{0.0,
                                         -0.0,
                                         1.0,
                                         -1.0,
                                         0.5,
                                         1e308,
                                         -1e308,
                                         2147483648.0,
                                         -2147483649.0,
                                         std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity()};

constexpr std::int64_t firstHandle = 0x10104;
constexpr std::int64_t handleStep = 0x22;

class Mutator {
 public:
  explicit Mutator(unsigned int seed) : random_(seed) {}

  void change(Input& input) {
    const std::size_t choice = below(10);
    if (input.records.empty() || choice == 0) {
      return insert(input, freshRecord());
    }
    const std::size_t at = below(input.records.size());
    if (choice == 1) {
      input.records.erase(input.records.begin() + static_cast<std::ptrdiff_t>(at));
    } else if (choice == 2) {
      insert(input, Record(input.records[at]));
    } else if (choice == 3) {
      input.world = static_cast<std::uint8_t>(below(256));
    } else {
      changeRecord(input.records[at]);
    }
  }

  std::size_t below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }

 private:
  template <typename Value, std::size_t Count>
  Value oneOf(const std::array<Value, Count>& values) {
    return values[below(Count)];
  }

  void insert(Input& input, Record record) {
    const auto at = input.records.begin() + static_cast<std::ptrdiff_t>(below(input.records.size() + 1));
    input.records.insert(at, std::move(record));
  }

  Record freshRecord() {
    Record record;
    record.kind = static_cast<RecordKind>(below(recordKinds));
    record.content = {static_cast<std::uint8_t>(below(256)), static_cast<std::uint8_t>(below(12))};
    if (record.kind <= RecordKind::windowMessage) {
      const std::size_t method = below(methods.size());
      record.kind = method < browserMethods ? RecordKind::browserMessage : RecordKind::windowMessage;
      record.content = encode(methods[method], map(below(6)));
    }
    return record;
  }

  void changeRecord(Record& record) {
    const auto call = record.kind <= RecordKind::windowMessage ? StandardMethodCodec::instance().DecodeMethodCall(
                                                                     record.content.data(), record.content.size())
                                                               : nullptr;
    if (call == nullptr) {
      record.content.resize(std::max<std::size_t>(record.content.size(), 2));
      record.content[below(record.content.size())] = static_cast<std::uint8_t>(below(256));
      return;
    }
    EncodableValue arguments = *call->arguments();
    std::string method = call->method_name();
    if (below(8) == 0) {
      const bool isBrowser = record.kind == RecordKind::browserMessage;
      method =
          isBrowser ? methods[below(browserMethods)] : methods[browserMethods + below(methods.size() - browserMethods)];
    } else {
      changeValue(arguments);
    }
    record.content = encode(method, arguments);
  }

  static Bytes encode(const std::string& method, const EncodableValue& arguments) {
    return *StandardMethodCodec::instance().EncodeMethodCall(
        MethodCall(method, std::make_unique<EncodableValue>(arguments)));
  }

  void changeValue(EncodableValue& value) {
    if (auto* const map = std::get_if<EncodableMap>(&value); map != nullptr && below(10) != 0) {
      return changeMap(*map);
    }
    if (auto* const list = std::get_if<EncodableList>(&value); list != nullptr && below(6) != 0) {
      return changeList(*list);
    }
    if (auto* const text = std::get_if<std::string>(&value); text != nullptr && below(2) == 0) {
      return changeText(*text);
    }
    value = freshValue(2);
  }

  void changeMap(EncodableMap& map) {
    if (map.empty() || below(4) == 0) {
      map.insert_or_assign(EncodableValue(oneOf(keys)), freshValue(2));
      return;
    }
    const auto entry = std::next(map.begin(), static_cast<std::ptrdiff_t>(below(map.size())));
    if (below(6) == 0) {
      map.erase(entry);
    } else {
      changeValue(entry->second);
    }
  }

  void changeList(EncodableList& list) {
    if (list.empty() || below(4) == 0) {
      list.push_back(freshValue(2));
    } else if (below(6) == 0) {
      list.pop_back();
    } else {
      changeValue(list[below(list.size())]);
    }
  }

  void changeText(std::string& text) {
    const std::size_t at = below(text.size() + 1);
    switch (below(4)) {
      case 0:
        text.insert(at, oneOf(texts));
        return;
      case 1:
        text.erase(at, below(4));
        return;
      case 2:
        text.insert(at, std::string(below(400), 'x'));
        return;
      default:
        text.insert(at, 1, static_cast<char>(below(256)));
    }
  }

  EncodableValue freshValue(int depth) {
    switch (below(depth > 0 ? 11 : 9)) {
      case 0:
        return {};
      case 1:
        return below(2) == 0;
      case 2:
        return static_cast<std::int32_t>(random_());
      case 3:
        return static_cast<std::int32_t>(below(2000)) - 200;
      case 4:
        return firstHandle + handleStep * static_cast<std::int64_t>(below(10));
      case 5:
        return static_cast<std::int64_t>(random_()) << below(40);
      case 6:
        return oneOf(doubles);
      case 7:
        return std::to_string(firstHandle + handleStep * static_cast<std::int64_t>(below(10)));
      case 8:
        return oneOf(texts);
      case 9:
        return map(below(5));
      default:
        return list(below(5), depth - 1);
    }
  }

  EncodableMap map(std::size_t count) {
    EncodableMap made;
    while (made.size() < count) {
      made.insert_or_assign(EncodableValue(oneOf(keys)), freshValue(0));
    }
    return made;
  }

  EncodableList list(std::size_t count, int depth) {
    EncodableList made;
    while (made.size() < count) {
      made.push_back(freshValue(depth));
    }
    return made;
  }

  std::mt19937 random_;
};

}  // namespace

std::size_t mutateInput(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned int seed) {
  Mutator mutator(seed);
  constexpr std::size_t rawShare = 5;
  if (mutator.below(rawShare) == 0) {
    return LLVMFuzzerMutate(data, size, maxSize);
  }
  Input input = parseInput(data, size);
  for (std::size_t count = 1 + mutator.below(3); count > 0; --count) {
    mutator.change(input);
  }
  const Bytes bytes = writeInput(input);
  const std::size_t written = std::min(bytes.size(), maxSize);
  std::copy_n(bytes.begin(), written, data);
  return written;
}

}  // namespace orvane::fuzzing
