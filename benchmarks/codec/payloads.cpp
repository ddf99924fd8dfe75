#include "payloads.h"

#include <array>
#include <cstdint>
#include <random>
#include <utility>

#include "embedding/reply_map.h"

namespace orvane::benchmarks {
namespace {

constexpr std::uint32_t seed = 20;

struct StepText {
  const char* step;
  const char* result;
};

// The steps of a delivery and of a search.
constexpr std::array<StepText, 12> stepTexts{{
    {"Foreground Verification", "PASS: foreground HWND matches activated AI window"},
    {"Dispatch Context", "Provider=ChatGPT; foreground HWND=65864; expected HWND=65864"},
    {"First-Use Page Settle", "PASS: waited 1800 ms after initial provider activation"},
    {"Attachment Cleanup", "PASS: no pending attachment control was exposed"},
    {"Timing Prompt Readiness", "500 ms"},
    {"Prompt Box Readiness",
     "PASS: verified prompt box remained ready across three checks; attempt=3; Verified lower-page AI prompt box "
     "focused for ChatGPT"},
    {"Focus Input", "PASS: stable verified lower-page AI prompt box focused"},
    {"Clear Existing Draft", "PASS: Ctrl+A sent before paste"},
    {"Paste", "PASS: existing draft replaced with current prompt"},
    {"Send Readiness", "PASS: stable enabled Send button confirmed 2 times; attempt=2; name=Send message"},
    {"Send Button", "PASS: invoked exact send button Send message for ChatGPT"},
    {"Delivery Verification", "PASS: composer is empty after Send; attempt=1"},
}};

// `detail` is what the result of every step ends with: the title and the address of a tab.
EncodableValue makeReply(std::size_t steps, const std::string& detail) {
  EncodableList trace;
  for (std::size_t index = 0; index < steps; ++index) {
    const StepText& text = stepTexts[index % stepTexts.size()];
    EncodableMap step;
    addToReply(step, "step", std::string(text.step));
    addToReply(step, "result", text.result + detail);
    trace.emplace_back(std::move(step));
  }
  EncodableMap reply = successReply(true);
  addToReply(reply, "message", std::string("Prompt pasted and submitted"));
  addToReply(reply, "logs", std::move(trace));
  return reply;
}

EncodableValue makeArguments() {
  return EncodableMap{
      {"name", "ChatGPT"},
      {"url", "https://chatgpt.com/"},
      {"rememberedWindowHandle", "197284"},
      {"rememberedTitle", "Notice periods - ChatGPT"},
      {"rememberedUrl", "https://chatgpt.com/c/6f1d2c3b"},
      {"rememberedBrowser", "chrome.exe"},
      {"rememberedTab", "3"},
      {"language", "en-GB"},
      {"mode", "standard"},
      {"patterns", EncodableList{"chatgpt.com", "chat.openai.com", "ChatGPT", "OpenAI"}},
  };
}

EncodableValue makeImageReply() {
  constexpr std::size_t mebibyte = std::size_t{1} << 20;
  std::vector<std::uint8_t> bytes(8 * mebibyte);
  std::mt19937 random(seed);
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(random());
  }
  EncodableMap reply = successReply(true);
  addToReply(reply, "bytes", std::move(bytes));
  return reply;
}

EncodableValue makeGeometryReply() {
  EncodableMap reply = successReply(true);
  addToReply(reply, "x", 106.66666666666667);
  addToReply(reply, "y", 53.333333333333336);
  addToReply(reply, "width", 1280.5);
  addToReply(reply, "height", 719.25);
  return reply;
}

// Numbers that need their 64 bits in every form.
EncodableValue makeNumbers() {
  std::mt19937_64 random(seed);
  EncodableList numbers;
  for (int index = 0; index < 100'000; ++index) {
    numbers.emplace_back(static_cast<std::int64_t>(random() | std::uint64_t{1} << 62));
  }
  return numbers;
}

}  // namespace

std::vector<Payload> makePayloads() {
  const std::string shortDetail = "; title=Notice periods and rent - ChatGPT";
  const std::string longDetail = shortDetail + "; address=https://chatgpt.com/c/6f1d2c3b-41aa-4c4e-9d0e-0b1c2d3e4f50";
  std::vector<Payload> payloads;
  payloads.push_back({"A", "", makeReply(60, shortDetail)});
  payloads.push_back({"B", "", makeReply(5'000, longDetail)});
  payloads.push_back({"C", "activateProvider", makeArguments()});
  payloads.push_back({"D", "", makeImageReply()});
  payloads.push_back({"E", "", makeGeometryReply()});
  payloads.push_back({"F", "", makeNumbers()});
  return payloads;
}

}  // namespace orvane::benchmarks
