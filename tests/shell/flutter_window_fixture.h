#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/desktop_test.h"
#include "desktop/previous_window.h"
#include "embedding/recorded_result.h"
#include "embedding/standard_method_codec.h"
#include "shell/flutter_window.h"

namespace orvane::shell_tests {

using embedding_tests::ResultCalls;

inline constexpr const char* viewsTurn = "FlutterDesktopViewControllerHandleTopLevelWindowProc";

class OpenWindow : public FlutterWindow {
 public:
  OpenWindow() : FlutterWindow(DartProject(L"data")) {}
  using FlutterWindow::OnCreate;
};

// A host window on a desktop with an editor; each test makes and ends it itself or leaves it to the end.
class FlutterWindowTest : public desktop_tests::DesktopTest {
 protected:
  explicit FlutterWindowTest(const std::string& plan = R"({"windows": [{"id": "editor", "process": "notepad.exe"},
                                                                       {"id": "other", "process": "other.exe"}]})")
      : desktop(plan) {
    // The last window of an earlier desktop means nothing here.
    noteActivation(nullptr, WA_ACTIVE, reinterpret_cast<LPARAM>(desktop.window("other")));
  }

  ~FlutterWindowTest() override { end(); }

  bool start() { return window.Create(L"Orvane", {10, 10}, {800, 600}); }

  void end() {
    if (HWND handle = window.GetHandle()) {
      ::DestroyWindow(handle);
    }
  }

  // Lets the message loop come to its rest, where the view draws.
  void drawFirstFrame() const {
    MSG message{};
    ::GetMessageW(&message, nullptr, 0, 0);
    ::DispatchMessageW(&message);
  }

  HWND main() const { return window.GetHandle(); }
  LRESULT send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return ::SendMessageW(main(), message, wparam, lparam);
  }

  // How often the view was asked while this was done.
  std::int64_t viewsTurns(const std::function<void()>& act) const {
    const std::int64_t before = desktop.platformCalls(viewsTurn);
    act();
    return desktop.platformCalls(viewsTurn) - before;
  }

  // A call of the interface over one of the channels; nullopt when no reply came.
  std::optional<ResultCalls> call(const std::string& channel, const std::string& method,
                                  const EncodableMap& arguments = {}) {
    const StandardMethodCodec& codec = StandardMethodCodec::instance();
    const auto message = codec.EncodeMethodCall(MethodCall(method, std::make_unique<EncodableValue>(arguments)));
    const std::optional<simulation::Bytes> reply = desktop.platform().sendToHost(channel, *message);
    if (!reply) {
      return std::nullopt;
    }
    ResultCalls calls;
    embedding_tests::RecordedResult result(calls);
    if (reply->empty()) {
      result.NotImplemented();
    } else {
      EXPECT_TRUE(codec.DecodeAndProcessResponseEnvelope(reply->data(), reply->size(), result));
    }
    return calls;
  }

  bool succeeds(const std::string& channel, const std::string& method, const EncodableMap& arguments = {}) {
    const std::optional<ResultCalls> calls = call(channel, method, arguments);
    return calls && calls->values.size() == 1 &&
           std::get<EncodableMap>(calls->values[0]).at(EncodableValue("success")) == EncodableValue(true);
  }

  simulation::SimulatedDesktop desktop;
  OpenWindow window;
};

}  // namespace orvane::shell_tests
