#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "clipboard/html_format.h"
#include "support/find.h"
#include "support/input_text.h"

// The fragment of an HTML block against a second writing of the rules for it.
namespace orvane::fuzzing {
namespace {

constexpr std::size_t reach = 4096;

// Where `part` occurs first.
std::optional<std::size_t> placeOf(const std::string& part, const std::string& text) {
  for (std::size_t at = 0; at + part.size() <= text.size(); ++at) {
    if (text.compare(at, part.size(), part) == 0) {
      return at;
    }
  }
  return std::nullopt;
}

// White space, a sign, digits; a number that is too great stays at the greatest.
long long decimalAt(const std::string& text, std::size_t at) {
  const auto has = [&](const char* characters) {
    return at < text.size() && text[at] != '\0' && std::string(characters).find(text[at]) != std::string::npos;
  };
  while (has(" \t\n\v\f\r")) {
    ++at;
  }
  const bool isNegative = has("-");
  if (has("+-")) {
    ++at;
  }
  constexpr long long greatest = std::numeric_limits<long long>::max();
  long long number = 0;
  for (; has("0123456789"); ++at) {
    const int digit = text[at] - '0';
    number = number > (greatest - digit) / 10 ? greatest : number * 10 + digit;
  }
  return isNegative ? -number : number;
}

long long numberBehind(const std::string& key, const std::string& text) {
  const auto at = placeOf(key, text);
  return at && *at <= reach ? decimalAt(text, *at + key.size()) : -1;
}

std::string expectedFragment(const std::string& block) {
  const long long start = numberBehind("StartFragment:", block);
  const long long end = numberBehind("EndFragment:", block);
  const auto size = static_cast<long long>(block.size());
  std::string fragment;
  if (start >= 0 && end >= start && end <= size) {
    for (long long at = start; at < end; ++at) {
      fragment += block[static_cast<std::size_t>(at)];
    }
    return fragment;
  }
  const auto begin = placeOf("<!--StartFragment-->", block);
  const auto stop = placeOf("<!--EndFragment-->", block);
  if (begin && stop && *stop >= *begin + 20) {
    fragment.assign(block.begin() + static_cast<std::ptrdiff_t>(*begin + 20),
                    block.begin() + static_cast<std::ptrdiff_t>(*stop));
  }
  return fragment;
}

std::string tenDigits(std::size_t number) {
  std::string digits = std::to_string(number);
  while (digits.size() < 10) {
    digits.insert(digits.begin(), '0');
  }
  return digits;
}

std::string expectedBlock(const std::string& fragment) {
  const std::size_t size = fragment.size();
  return "Version:1.0\r\nStartHTML:" + tenDigits(105) + "\r\nEndHTML:" + tenDigits(105 + size + 64) +
         "\r\nStartFragment:" + tenDigits(137) + "\r\nEndFragment:" + tenDigits(105 + size + 32) +
         "\r\n<html><body><!--StartFragment-->" + fragment + "<!--EndFragment--></body></html>";
}

}  // namespace
}  // namespace orvane::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  const std::string text = fuzzing::textOf(data, size);
  fuzzing::require(extractHtmlFragment(text) == fuzzing::expectedFragment(text), "the fragment is that of the rules");
  const std::string block = buildHtmlBlock(text);
  fuzzing::require(block == fuzzing::expectedBlock(text), "the block has the form of the rules");
  fuzzing::require(extractHtmlFragment(block) == text, "a fragment comes back out of its block");
  return 0;
}
