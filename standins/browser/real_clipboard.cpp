#include "browser/real_clipboard.h"

#include <cstring>
#include <string_view>
#include <vector>

#include "common/link.h"
#include "common/wide_text.h"

namespace orvane::standins {
namespace {

constexpr int openAttempts = 40;
constexpr DWORD betweenAttemptsMs = 5;

class OpenClipboard {
 public:
  OpenClipboard(HWND owner, int attempts) {
    for (int attempt = 0; attempt < attempts && !isOpen_; ++attempt) {
      if (attempt > 0) ::Sleep(betweenAttemptsMs);
      isOpen_ = ::OpenClipboard(owner) != FALSE;
    }
  }
  ~OpenClipboard() {
    if (isOpen_) ::CloseClipboard();
  }
  OpenClipboard(const OpenClipboard&) = delete;
  OpenClipboard& operator=(const OpenClipboard&) = delete;
  explicit operator bool() const { return isOpen_; }

 private:
  bool isOpen_ = false;
};

void put(UINT format, const void* bytes, std::size_t count) {
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, count);
  if (block == nullptr) return;
  if (void* place = ::GlobalLock(block)) {
    std::memcpy(place, bytes, count);
    ::GlobalUnlock(block);
  }
  if (::SetClipboardData(format, block) == nullptr) ::GlobalFree(block);
}

void put(UINT format, const std::optional<std::vector<std::uint8_t>>& bytes) {
  if (bytes) put(format, bytes->data(), bytes->size());
}

std::wstring textInFrontOfZero(const wchar_t* units, std::size_t bytes) {
  const std::wstring_view whole(units, bytes / sizeof(wchar_t));
  return std::wstring(whole.substr(0, whole.find(L'\0')));
}

}  // namespace

std::optional<simulation::Text> readClipboardText(HWND owner) {
  const OpenClipboard open(owner, 1);
  if (!open) return std::nullopt;
  const HANDLE block = ::GetClipboardData(CF_UNICODETEXT);
  const auto* units = block == nullptr ? nullptr : static_cast<const wchar_t*>(::GlobalLock(block));
  if (units == nullptr) return std::nullopt;
  const std::wstring text = textInFrontOfZero(units, ::GlobalSize(block));
  ::GlobalUnlock(block);
  return textFromWide(text);
}

void writeClipboard(HWND owner, const simulation::ClipboardContent& content) {
  const OpenClipboard open(owner, openAttempts);
  if (!open || ::EmptyClipboard() == FALSE) return;
  put(CF_UNICODETEXT, content.bytesOfText());
  if (content.html) put(::RegisterClipboardFormatW(L"HTML Format"), content.html->data(), content.html->size());
  put(::RegisterClipboardFormatW(L"PNG"), content.png);
  put(CF_DIB, content.dib);
  put(CF_DIBV5, content.dibv5);
}

std::optional<std::string> clipboardHolder() {
  const HWND holder = ::GetOpenClipboardWindow();
  return holder == nullptr ? std::nullopt : nameOfWindow(holder);
}

void holdClipboard(HWND window) {
  for (int attempt = 0; attempt < openAttempts && ::OpenClipboard(window) == FALSE; ++attempt) {
    ::Sleep(betweenAttemptsMs);
  }
}

void letClipboardGo() { ::CloseClipboard(); }

void askToHoldClipboard(HWND window, bool hold) {
  if (window != nullptr) ::PostMessageW(window, holdClipboardMessage(), hold ? 1 : 0, 0);
}

UINT holdClipboardMessage() {
  static const UINT message = ::RegisterWindowMessageW(L"Orvane.StandIn.HoldClipboard");
  return message;
}

}  // namespace orvane::standins
