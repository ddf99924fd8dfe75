#pragma once

#include <windows.h>

namespace orvane {

// The calling thread's input queue joined to another thread's (AttachThreadInput), for as long as this lives.
// Thread 0 and the calling thread itself are never attached.
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

  // False when there was nothing to attach or the call failed.
  [[nodiscard]] bool isAttached() const noexcept { return isAttached_; }

 private:
  DWORD callingThread_;
  DWORD otherThread_;
  bool isAttached_;
};

}  // namespace orvane
