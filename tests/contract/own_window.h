#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace orvane::contract {

struct SeenMessage {
  HWND window = nullptr;
  UINT message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
};

// A window class whose windows write down the messages that the host relies on and leave them to
// the platform.
class OwnClass {
 public:
  explicit OwnClass(const wchar_t* name);
  ~OwnClass();
  OwnClass(const OwnClass&) = delete;
  OwnClass& operator=(const OwnClass&) = delete;

  bool isRegistered() const { return isRegistered_; }
  const std::wstring& name() const { return name_; }

  // Makes a hidden top-level window of 400 by 300 pixels at 50, 60; null on failure.
  HWND makeWindow(const wchar_t* title = L"", void* parameter = nullptr) const;
  HWND makeChild(HWND parent) const;

 private:
  std::wstring name_;
  bool isRegistered_ = false;
};

// The messages seen since the last call, by all windows of such classes.
std::vector<SeenMessage> takeSeen();
// Their numbers alone.
std::vector<UINT> takeSeenNumbers();
// What the last window's creation was given.
void* lastCreationParameter();
// The answer of the windows to one message, in place of the platform's.
void answer(UINT message, LRESULT result);
void answerNothing();

}  // namespace orvane::contract
