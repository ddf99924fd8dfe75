#include "common/link.h"

#include <array>
#include <atomic>
#include <cstring>
#include <map>
#include <memory>
#include <utility>

namespace orvane::standins {
namespace {

constexpr DWORD capacityBytes = 8 * 1024 * 1024;
constexpr UINT answerTimeoutMs = 10'000;
constexpr LRESULT served = 0x4F4C;
// Somebody who reads a page asks again within some tens of microseconds.
constexpr std::int64_t listeningMicroseconds = 300;
// The answer to a question that is listened to takes some microseconds.
constexpr std::int64_t promptAnswerMicroseconds = 1'000;
// Beside the handle of the one who listens: it has been asked.
constexpr std::uint64_t askedMark = std::uint64_t{1} << 63;
constexpr const wchar_t* nameProperty = L"Orvane.StandIn.Name";

struct SharedText {
  // The window that is listening, with the mark once it has been asked; 0: none listens.
  std::atomic<std::uint64_t> listener;
  std::atomic<std::uint32_t> answers;  // given while listening
  std::uint32_t lengthBytes;
  char bytes[capacityBytes - 2 * sizeof(std::uint64_t)];
};
static_assert(sizeof(SharedText) == capacityBytes);
static_assert(std::atomic<std::uint64_t>::is_always_lock_free);

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

  [[nodiscard]] std::atomic<std::uint64_t>& listener() const { return text_->listener; }
  [[nodiscard]] std::atomic<std::uint32_t>& answers() const { return text_->answers; }

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

std::int64_t microsecondsSince(std::int64_t originTicks) {
  static const std::int64_t ticksPerSecond = [] {
    LARGE_INTEGER frequency{};
    ::QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
  }();
  return (nowTicks() - originTicks) * 1'000'000 / ticksPerSecond;
}

std::uint64_t markOf(HWND window) { return reinterpret_cast<std::uint64_t>(window); }

// Of the process that asks: one for each of its threads.
SharedMemory& ownMemory() {
  thread_local SharedMemory memory(memoryName(::GetCurrentThreadId()));
  return memory;
}

// The one that was answered last.
SharedMemory* lastServed = nullptr;

// False when it doesn't listen, or hangs: what only reads may be asked again by a message.
bool askListener(const SharedMemory& memory, HWND window) {
  std::uint64_t expected = markOf(window);
  const std::uint32_t before = memory.answers();
  if (!memory.listener().compare_exchange_strong(expected, expected | askedMark)) return false;
  const std::int64_t begunTicks = nowTicks();
  while (memory.answers() == before) {
    if (microsecondsSince(begunTicks) < promptAnswerMicroseconds) {
      // Both may have been given the same core.
      ::SwitchToThread();
      continue;
    }
    if (microsecondsSince(begunTicks) > std::int64_t{answerTimeoutMs} * 1000) return false;
    // As while a message is on its way: what is sent to this thread is handled.
    MSG message{};
    ::MsgWaitForMultipleObjectsEx(0, nullptr, 1, QS_SENDMESSAGE, 0);
    ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
  return true;
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
  lastServed = &memory;
  return memory.write(dumped(answered(answer, memory.read()))) ? served : 0;
}

void listenOnLink(HWND window, DWORD longestMs, const Answerer& answer) {
  if (lastServed == nullptr) return;
  SharedMemory& memory = *std::exchange(lastServed, nullptr);
  std::atomic<std::uint64_t>& listener = memory.listener();
  // Another one may be listening to the same thread, or be just asked by it.
  std::uint64_t other = listener;
  if ((other & askedMark) != 0 || !listener.compare_exchange_strong(other, markOf(window))) return;
  const std::int64_t begunTicks = nowTicks();
  std::int64_t heardTicks = begunTicks;
  while (true) {
    std::uint64_t seen = listener;
    if (seen == (markOf(window) | askedMark)) {
      memory.write(dumped(answered(answer, memory.read())));
      listener = markOf(window);
      ++memory.answers();
      heardTicks = nowTicks();
    } else if (seen != markOf(window)) {
      return;
    } else if ((microsecondsSince(heardTicks) > listeningMicroseconds ||
                microsecondsSince(begunTicks) > std::int64_t{longestMs} * 1000) &&
               listener.compare_exchange_strong(seen, 0)) {
      return;
    } else {
      ::SwitchToThread();
    }
  }
}

std::optional<Json> askFact(HWND window, const Json& request) {
  SharedMemory& memory = ownMemory();
  if (!memory.isReady() || !memory.write(dumped(request))) return std::nullopt;
  return askListener(memory, window) ? Json::parse(memory.read()) : askOwner(window, request);
}

std::optional<Json> askOwner(HWND window, const Json& request) {
  const DWORD threadId = ::GetCurrentThreadId();
  SharedMemory& memory = ownMemory();
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
