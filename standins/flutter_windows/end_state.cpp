#include "flutter_windows/end_state.h"

#include <algorithm>
#include <cstring>

#include "common/wide_text.h"

namespace orvane::standins {
namespace {

constexpr int fewAttempts = 4;
constexpr int manyAttempts = 80;
constexpr DWORD betweenAttemptsMs = 25;

simulation::Json ordered(const Json& json) { return simulation::Json::parse(json.dump()); }

void merge(simulation::Json& all, const Json& members) {
  for (const auto& [name, value] : members.items()) all[name] = ordered(value);
}

// ---- windows

struct NamedWindow {
  HWND handle;
  std::string id;
};

// Top of the z-order first.
std::vector<NamedWindow> namedWindows(HWND dyingWindow) {
  struct Walk {
    HWND dying;
    std::vector<NamedWindow> found;
  } walk{dyingWindow, {}};
  ::EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        auto& [dying, found] = *reinterpret_cast<Walk*>(parameter);
        const auto id = window == dying ? std::nullopt : nameOfWindow(window);
        if (id) found.push_back({window, *id});
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&walk));
  return walk.found;
}

std::wstring titleOf(HWND window) {
  std::wstring title(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  title.resize(static_cast<std::size_t>(::GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
  return title;
}

simulation::Json describeWindow(HWND window) {
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  const auto exStyle = static_cast<std::uint32_t>(::GetWindowLongPtrW(window, GWL_EXSTYLE));
  simulation::Json json;
  json["title"] = utf8FromWide(titleOf(window));
  json["bounds"] = {bounds.left, bounds.top, bounds.right, bounds.bottom};
  json["visible"] = ::IsWindowVisible(window) != FALSE;
  json["minimized"] = ::IsIconic(window) != FALSE;
  json["topmost"] = (exStyle & WS_EX_TOPMOST) != 0;
  json["style"] = static_cast<std::uint32_t>(::GetWindowLongPtrW(window, GWL_STYLE));
  json["exStyle"] = exStyle;
  return json;
}

simulation::Json describeForeground() {
  const HWND foreground = ::GetForegroundWindow();
  const auto id = foreground == nullptr ? std::nullopt : nameOfWindow(::GetAncestor(foreground, GA_ROOT));
  return id ? simulation::Json(*id) : simulation::Json(nullptr);
}

// ---- the clipboard

bool openClipboard(int attempts) {
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (::OpenClipboard(nullptr) != FALSE) return true;
    ::Sleep(betweenAttemptsMs);
  }
  return false;
}

std::optional<std::string> bytesOnClipboard(UINT format) {
  const HANDLE block = ::GetClipboardData(format);
  const void* bytes = block == nullptr ? nullptr : ::GlobalLock(block);
  if (bytes == nullptr) return std::nullopt;
  std::string copy(static_cast<const char*>(bytes), ::GlobalSize(block));
  ::GlobalUnlock(block);
  return copy;
}

simulation::Json textOnClipboard() {
  const auto bytes = bytesOnClipboard(CF_UNICODETEXT);
  if (!bytes) return nullptr;
  std::wstring units(bytes->size() / sizeof(wchar_t), L'\0');
  std::memcpy(units.data(), bytes->data(), units.size() * sizeof(wchar_t));
  return utf8FromWide(std::wstring_view(units).substr(0, units.find(L'\0')));
}

simulation::Json htmlOnClipboard() {
  auto bytes = bytesOnClipboard(::RegisterClipboardFormatW(L"HTML Format"));
  if (!bytes) return nullptr;
  if (!bytes->empty() && bytes->back() == '\0') bytes->pop_back();
  return simulation::validUtf8(*bytes);
}

simulation::Json describeClipboard(int attempts) {
  if (!openClipboard(attempts)) return nullptr;
  simulation::Json json;
  json["text"] = textOnClipboard();
  json["html"] = htmlOnClipboard();
  ::CloseClipboard();
  return json;
}

// ---- pages

void describePages(Browsers& browsers, EndState& end) {
  for (const char* part : {"tabs", "values", "invoked"}) end.desktop[part] = simulation::Json::object();
  std::vector<Json> input;
  for (const Json& report : browsers.askAll({{"op", "report"}})) {
    for (const char* part : {"tabs", "values", "invoked"}) merge(end.desktop[part], report.at(part));
    if (!report.at("focus").is_null()) end.desktop["focus"] = ordered(report.at("focus"));
    for (const Json& event : report.at("input")) input.push_back(event);
  }
  std::stable_sort(input.begin(), input.end(),
                   [](const Json& one, const Json& other) { return one.at("ms") < other.at("ms"); });
  for (const Json& event : input) end.input.push_back(ordered(event));
}

int liveObjects(const wchar_t* library, const char* function) {
  const HMODULE module = ::GetModuleHandleW(library);
  if (module == nullptr) return 0;
  const auto address = reinterpret_cast<void*>(::GetProcAddress(module, function));
  return address == nullptr ? 0 : reinterpret_cast<int (*)()>(address)();
}

}  // namespace

EndState describeEnd(Browsers& browsers, HWND dyingWindow) {
  EndState end;
  simulation::Json& desktop = end.desktop;
  desktop["foreground"] = describeForeground();
  desktop["focus"] = nullptr;
  desktop["zOrder"] = simulation::Json::array();
  desktop["windows"] = simulation::Json::object();
  for (const NamedWindow& window : namedWindows(dyingWindow)) {
    desktop["zOrder"].push_back(window.id);
    desktop["windows"][window.id] = describeWindow(window.handle);
  }
  describePages(browsers, end);
  desktop["clipboard"] = describeClipboard(fewAttempts);
  return end;
}

void describeHeldClipboard(EndState& end) {
  simulation::Json& clipboard = end.desktop["clipboard"];
  if (clipboard.is_null()) clipboard = describeClipboard(manyAttempts);
}

simulation::Json describeLiveObjects() {
  simulation::Json live;
  live["automation"] = liveObjects(L"orvane_automation.dll", "OrvaneAutomationLiveObjects");
  live["spelling"] = liveObjects(L"orvane_spelling.dll", "OrvaneSpellingLiveObjects");
  return live;
}

}  // namespace orvane::standins
