#include "clipboard/html_format.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

namespace orvane {
namespace {

constexpr const char* headerFormat =
    "Version:1.0\r\nStartHTML:%010u\r\nEndHTML:%010u\r\nStartFragment:%010u\r\nEndFragment:%010u\r\n";
constexpr std::size_t headerBufferBytes = 256;
constexpr std::string_view prefix = "<html><body><!--StartFragment-->";
constexpr std::string_view suffix = "<!--EndFragment--></body></html>";

constexpr std::string_view startKey = "StartFragment:";
constexpr std::string_view endKey = "EndFragment:";
constexpr std::size_t greatestKeyOffsetBytes = 4'096;
constexpr std::string_view startMarker = "<!--StartFragment-->";
constexpr std::string_view endMarker = "<!--EndFragment-->";

// Byte offsets from the block's first byte.
struct HtmlOffsets {
  unsigned int startHtml = 0;
  unsigned int endHtml = 0;
  unsigned int startFragment = 0;
  unsigned int endFragment = 0;
};

std::string formatHeader(const HtmlOffsets& offsets) {
  std::array<char, headerBufferBytes> buffer{};
  const int lengthBytes = std::snprintf(buffer.data(), buffer.size(), headerFormat, offsets.startHtml, offsets.endHtml,
                                        offsets.startFragment, offsets.endFragment);
  return {buffer.data(), static_cast<std::size_t>(lengthBytes)};
}

// The number behind a key of the header; -1 when the key isn't there or begins too far in.
long long headerNumber(const std::string& block, std::string_view key) {
  const std::size_t at = block.find(key);
  if (at > greatestKeyOffsetBytes) {  // npos among them
    return -1;
  }
  constexpr int decimal = 10;
  return std::strtoll(block.c_str() + at + key.size(), nullptr, decimal);
}

std::optional<std::string> fragmentByOffsets(const std::string& block) {
  const long long start = headerNumber(block, startKey);
  const long long end = headerNumber(block, endKey);
  if (start < 0 || end < start || end > static_cast<long long>(block.size())) {
    return std::nullopt;
  }
  return block.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

std::string fragmentByMarkers(const std::string& block) {
  const std::size_t start = block.find(startMarker);
  const std::size_t end = block.find(endMarker);
  if (start == std::string::npos || end == std::string::npos || end < start + startMarker.size()) {
    return {};
  }
  const std::size_t begin = start + startMarker.size();
  return block.substr(begin, end - begin);
}

}  // namespace

std::string buildHtmlBlock(std::string_view fragment) {
  const auto headerBytes = static_cast<unsigned int>(formatHeader({}).size());
  const auto prefixBytes = static_cast<unsigned int>(prefix.size());
  const auto suffixBytes = static_cast<unsigned int>(suffix.size());
  const auto fragmentBytes = static_cast<unsigned int>(fragment.size());
  HtmlOffsets offsets;
  offsets.startHtml = headerBytes;
  offsets.startFragment = headerBytes + prefixBytes;
  offsets.endFragment = offsets.startFragment + fragmentBytes;
  offsets.endHtml = offsets.endFragment + suffixBytes;
  std::string block = formatHeader(offsets);
  block.reserve(offsets.endHtml);
  block.append(prefix).append(fragment).append(suffix);
  return block;
}

std::string extractHtmlFragment(std::string_view block) {
  const std::string terminated(block);  // the numbers are read up to its closing zero
  if (auto fragment = fragmentByOffsets(terminated)) {
    return *std::move(fragment);
  }
  return fragmentByMarkers(terminated);
}

}  // namespace orvane
