#include "activation/remembered_target.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "embedding/call_arguments.h"
#include "embedding/utf_conversion.h"

namespace orvane {
namespace {

std::wstring wideEntry(const EncodableMap& arguments, const char* key) {
  return wideFromUtf8(stringEntry(&arguments, key));
}

HWND handleFromDecimal(const std::string& text) {
  return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(std::strtoull(text.c_str(), nullptr, 10)));
}

// As atoi reads it, and held to 32 bits where atoi leaves the result open.
std::int32_t indexFromDecimal(const std::string& text) {
  if (text.empty()) {
    return -1;
  }
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  return static_cast<std::int32_t>(std::clamp<long long>(number, std::numeric_limits<std::int32_t>::min(),
                                                         std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

RememberedTarget readRememberedTarget(const EncodableMap& arguments) {
  RememberedTarget target;
  target.title = wideEntry(arguments, "rememberedTitle");
  target.automationId = wideEntry(arguments, "rememberedAutomationId");
  target.browser = wideEntry(arguments, "rememberedBrowser");
  target.windowHandle = handleFromDecimal(stringEntry(&arguments, "rememberedWindowHandle"));
  target.tabIndex = indexFromDecimal(stringEntry(&arguments, "rememberedTabIndex"));
  return target;
}

}  // namespace orvane
