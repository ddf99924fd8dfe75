#pragma once

#include <windows.h>

namespace orvane {

// The calling thread's input queue joined to another thread's, for as long as this lives.
class InputAttachment {
 public:
  InputAttachment(DWORD callingThread, DWORD otherThread)
      : callingThread_(callingThread),
        otherThread_(otherThread),
        isAttached_(otherThread != 0 && otherThread != callingThread &&
                    ::AttachThreadInput(callingThread, otherThread, TRUE) != FALSE) {}
  ~InputAttachment() {
    if (isAttached_) {
      ::AttachThreadInput(callingThread_, otherThread_, FALSE);
    }
  }
  InputAttachment(const InputAttachment&) = delete;
  InputAttachment& operator=(const InputAttachment&) = delete;

  [[nodiscard]] bool isAttached() const noexcept { return isAttached_; }

 private:
  DWORD callingThread_;
  DWORD otherThread_;
  bool isAttached_;
};

}  // namespace orvane
