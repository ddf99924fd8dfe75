#include "windows/task_memory.h"

#include <objbase.h>

#include <map>
#include <memory>
#include <string>

#include "windows/call.h"
#include "windows/wide_text.h"

namespace orvane::simulation {
namespace {

std::map<void*, std::unique_ptr<wchar_t[]>>& taskStrings() {
  static std::map<void*, std::unique_ptr<wchar_t[]>> strings;
  return strings;
}

}  // namespace

LPWSTR makeTaskString(TextView text) {
  const std::wstring wide = wideFromText(text);
  auto units = std::make_unique<wchar_t[]>(wide.size() + 1);
  wide.copy(units.get(), wide.size());
  const LPWSTR address = units.get();
  taskStrings().emplace(address, std::move(units));
  holdNow(held_kind::taskStrings, 1);
  return address;
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

void CoTaskMemFree(LPVOID block) {
  if (enter("CoTaskMemFree")) return;
  if (block == nullptr) return;
  if (taskStrings().erase(block) == 0) stopRun("CoTaskMemFree", "a block that isn't held");
  holdNow(held_kind::taskStrings, -1);
}
