#include "common/link.h"

#include <array>
#include <cstring>
#include <map>
#include <memory>

namespace orvane::standins {
namespace {

constexpr DWORD capacityBytes = 8 * 1024 * 1024;
constexpr UINT answerTimeoutMs = 10'000;
constexpr LRESULT served = 0x4F4C;
constexpr const wchar_t* nameProperty = L"Orvane.StandIn.Name";

struct SharedText {
  std::uint32_t lengthBytes;
  char bytes[capacityBytes - sizeof(std::uint32_t)];
};

void closeHandle(HANDLE handle) {
  if (handle != nullptr) ::CloseHandle(handle);
}

// A piece of memory that two processes see under one name.
class SharedMemory {
 public:
  explicit SharedMemory(const std::wstring& name)
      : mapping_(::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, capacityBytes, name.c_str()),
                 closeHandle),
        text_(mapping_
                  ? static_cast<SharedText*>(::MapViewOfFile(mapping_.get(), FILE_MAP_ALL_ACCESS, 0, 0, capacityBytes))
                  : nullptr,
              ::UnmapViewOfFile) {}

  [[nodiscard]] bool isReady() const { return text_ != nullptr; }
  [[nodiscard]] std::string read() const { return {text_->bytes, text_->lengthBytes}; }
  bool write(const std::string& text) {
    if (text.size() > sizeof text_->bytes) return false;
    text_->lengthBytes = static_cast<std::uint32_t>(text.size());
    std::memcpy(text_->bytes, text.data(), text.size());
    return true;
  }

 private:
  std::unique_ptr<void, void (*)(HANDLE)> mapping_;
  std::unique_ptr<SharedText, decltype(&::UnmapViewOfFile)> text_;
};

std::wstring memoryName(DWORD threadId) { return L"Orvane.StandIn.Memory." + std::to_wstring(threadId); }

std::wstring wide(std::string_view text) { return {text.begin(), text.end()}; }

std::string dumped(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json answered(const Answerer& answer, const std::string& request) {
  try {
    return answer(Json::parse(request));
  } catch (const std::exception& failure) {
    return {{"error", failure.what()}};
  }
}

}  // namespace

UINT linkMessage() {
  static const UINT message = ::RegisterWindowMessageW(L"Orvane.StandIn.Ask");
  return message;
}

LRESULT serveLink(WPARAM wparam, LPARAM, const Answerer& answer) {
  // Kept, because to map it takes longer than most answers. It is found again by its name, also by a
  // later thread of the same number.
  static std::map<DWORD, SharedMemory> memories;
  const auto threadId = static_cast<DWORD>(wparam);
  SharedMemory& memory = memories.try_emplace(threadId, memoryName(threadId)).first->second;
  if (!memory.isReady()) return 0;
  return memory.write(dumped(answered(answer, memory.read()))) ? served : 0;
}

std::optional<Json> askOwner(HWND window, const Json& request) {
  const DWORD threadId = ::GetCurrentThreadId();
  thread_local SharedMemory memory(memoryName(threadId));
  DWORD_PTR result = 0;
  // Messages of the one who is asked are handled meanwhile: who takes the clipboard or the foreground
  // has to tell this process first.
  if (!memory.isReady() || !memory.write(dumped(request)) ||
      ::SendMessageTimeoutW(window, linkMessage(), threadId, 0, SMTO_NORMAL | SMTO_ABORTIFHUNG, answerTimeoutMs,
                            &result) == 0 ||
      static_cast<LRESULT>(result) != served) {
    return std::nullopt;
  }
  return Json::parse(memory.read());
}

void nameWindow(HWND window, std::string_view id) {
  const ATOM atom = ::GlobalAddAtomW(wide(id).c_str());
  ::SetPropW(window, nameProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
}

std::optional<std::string> nameOfWindow(HWND window) {
  const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::GetPropW(window, nameProperty)));
  if (atom == 0) return std::nullopt;
  std::array<wchar_t, 256> name{};
  const UINT length = ::GlobalGetAtomNameW(atom, name.data(), static_cast<int>(name.size()));
  std::string id;
  for (const wchar_t unit : std::wstring_view(name.data(), length)) id.push_back(static_cast<char>(unit));
  return id;
}

HWND findNamedWindow(std::string_view id) {
  struct Search {
    std::string_view id;
    HWND found = nullptr;
  } search{id};
  ::EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        if (nameOfWindow(window) != wanted.id) return TRUE;
        wanted.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

std::int64_t nowTicks() {
  LARGE_INTEGER ticks{};
  ::QueryPerformanceCounter(&ticks);
  return ticks.QuadPart;
}

std::int64_t millisecondsSince(std::int64_t originTicks) {
  LARGE_INTEGER frequency{};
  ::QueryPerformanceFrequency(&frequency);
  return (nowTicks() - originTicks) * 1000 / frequency.QuadPart;
}

}  // namespace orvane::standins
