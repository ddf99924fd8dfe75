#include "shell/flutter_window.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/clean_background_window.h"
#include "desktop/content_process.h"
#include "embedding/captured_errors.h"
#include "shell/flutter_window_fixture.h"
#include "support/call_record.h"

namespace orvane {
namespace {

using desktop_tests::faultOf;
using desktop_tests::handleWaiting;
using desktop_tests::mapOf;
using desktop_tests::PlainWindow;
using embedding_tests::ResultCalls;
using shell_tests::FlutterWindowTest;
using shell_tests::OpenWindow;
using shell_tests::viewsTurn;
using simulation::CallRecord;

TEST_F(FlutterWindowTest, StaysHiddenUntilTheFirstFrame) {
  ASSERT_TRUE(start());
  EXPECT_FALSE(::IsWindowVisible(main()));
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopViewControllerForceRedraw"), 1);
  handleWaiting(main());
  EXPECT_FALSE(::IsWindowVisible(main()));
  drawFirstFrame();
  EXPECT_TRUE(::IsWindowVisible(main()));
  EXPECT_EQ(desktop.foreground(), "main");
}

TEST_F(FlutterWindowTest, GivesTheViewItsClientArea_AndRegistersThePluginsInOrder) {
  ASSERT_TRUE(start());
  const RECT area = window.GetClientArea();
  const simulation::EngineRecord& engine = desktop.platform().records().engine;
  EXPECT_EQ(engine.width, area.right);
  EXPECT_EQ(engine.height, area.bottom);
  EXPECT_EQ(engine.plugins,
            (std::vector<std::string>{"DesktopDropPlugin", "UrlLauncherWindows", "WebviewWindowsPlugin"}));
  EXPECT_EQ(desktop.platformCalls("SetParent"), 1);
}

TEST_F(FlutterWindowTest, IsSetUpInOrder_WhenItIsMade) {
  const CallRecord record(
      desktop,
      {"FlutterDesktopEngineCreate", "FlutterDesktopViewControllerCreate", "DesktopDropPluginRegisterWithRegistrar",
       "UrlLauncherWindowsRegisterWithRegistrar", "WebviewWindowsPluginRegisterWithRegistrar", "SetWinEventHook",
       "FlutterDesktopMessengerSetCallback", "FlutterDesktopViewGetHWND", "SetParent",
       "FlutterDesktopEngineSetNextFrameCallback", "FlutterDesktopViewControllerForceRedraw"});
  ASSERT_TRUE(start());
  EXPECT_EQ(
      record.calls(),
      (std::vector<std::string>{
          "FlutterDesktopEngineCreate", "FlutterDesktopViewControllerCreate", "DesktopDropPluginRegisterWithRegistrar",
          "UrlLauncherWindowsRegisterWithRegistrar", "WebviewWindowsPluginRegisterWithRegistrar", "SetWinEventHook",
          "FlutterDesktopMessengerSetCallback", "FlutterDesktopMessengerSetCallback", "FlutterDesktopViewGetHWND",
          "SetParent ", "FlutterDesktopEngineSetNextFrameCallback", "FlutterDesktopViewControllerForceRedraw"}));
}

TEST_F(FlutterWindowTest, EndsItsBackdropBeforeItsViewHearsOfTheEnd_ThenHookAndView) {
  ASSERT_TRUE(start());
  ASSERT_TRUE(succeeds("orvane/window", "syncCleanBackground"));
  const CallRecord record(desktop,
                          {"DestroyWindow", viewsTurn, "UnhookWinEvent", "FlutterDesktopViewControllerDestroy"});
  end();
  EXPECT_EQ(record.calls(),
            (std::vector<std::string>{"DestroyWindow main", "DestroyWindow backdrop", std::string(viewsTurn) + " main",
                                      "UnhookWinEvent", "FlutterDesktopViewControllerDestroy"}));
}

TEST_F(FlutterWindowTest, AnswersOnBothChannels) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  EXPECT_TRUE(succeeds("orvane/window", "getBounds"));
  EXPECT_TRUE(succeeds("orvane/browser", "activateOrvaneWindow"));
  EXPECT_EQ(call("orvane/window", "activateOrvaneWindow")->names, std::vector<std::string>{"NotImplemented"});
  EXPECT_EQ(call("orvane/browser", "getBounds")->names, std::vector<std::string>{"NotImplemented"});
}

TEST_F(FlutterWindowTest, IsNotMade_WhenThereIsNoEngineOrNoView) {
  for (const char* failing :
       {"FlutterDesktopEngineCreate", "FlutterDesktopViewControllerCreate", "FlutterDesktopViewControllerGetView"}) {
    const embedding_tests::CapturedErrors errors;
    desktop.setFaults(faultOf(failing, "null"));
    OpenWindow failed;
    EXPECT_FALSE(failed.Create(L"Orvane", {10, 10}, {800, 600})) << failing;
    EXPECT_TRUE(desktop.platform().records().engine.plugins.empty()) << failing;
    EXPECT_EQ(desktop.platformCalls("SetWinEventHook"), 0) << failing;
    EXPECT_EQ(desktop.platformCalls("FlutterDesktopMessengerSetCallback"), 0) << failing;
    EXPECT_EQ(desktop.platformCalls("FlutterDesktopEngineSetNextFrameCallback"), 0) << failing;
    EXPECT_EQ(::SendMessageW(failed.GetHandle(), showToolBoxMessage, 0, 0), 0) << "ignored before there is a channel";
    EXPECT_EQ(desktop.platformCalls("FlutterDesktopMessengerSend"), 0) << failing;
    EXPECT_EQ(desktop.held("hooks"), 0) << failing;
  }
}

TEST_F(FlutterWindowTest, HearsOfTheForegroundOfOtherPrograms) {
  ASSERT_TRUE(start());
  EXPECT_EQ(desktop.held("hooks"), 1);
  desktop.bringToFront("editor");
  handleWaiting(main());
  EXPECT_EQ(previousWindow(), desktop.window("editor"));
}

TEST_F(FlutterWindowTest, InstallsNoSecondHook_WhenItIsMadeAgain) {
  ASSERT_TRUE(start());
  EXPECT_TRUE(window.OnCreate());
  EXPECT_EQ(desktop.platformCalls("SetWinEventHook"), 1);
  EXPECT_EQ(desktop.held("hooks"), 1);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopViewControllerDestroy"), 1) << "the earlier controller is replaced";
  drawFirstFrame();
  EXPECT_TRUE(succeeds("orvane/window", "getBounds"));
}

TEST_F(FlutterWindowTest, GoesWithoutAHook_WhenItCantBeInstalled) {
  desktop.setFaults(R"([{"call": "SetWinEventHook", "result": null}])");
  ASSERT_TRUE(start());
  desktop.bringToFront("editor");
  handleWaiting(main());
  EXPECT_EQ(previousWindow(), desktop.window("other"));
  send(WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(desktop.window("editor")));
  EXPECT_EQ(previousWindow(), desktop.window("editor")) << "by the activation alone";
  end();
  EXPECT_EQ(desktop.platformCalls("UnhookWinEvent"), 0);
}

TEST_F(FlutterWindowTest, TriesForTheHookAgain_WhenThereIsNone) {
  desktop.setFaults(R"([{"call": "SetWinEventHook", "result": null}])");
  ASSERT_TRUE(start());
  EXPECT_TRUE(window.OnCreate());
  EXPECT_EQ(desktop.platformCalls("SetWinEventHook"), 2);
  EXPECT_EQ(desktop.held("hooks"), 1);
}

TEST_F(FlutterWindowTest, TakesEverythingWithIt_WhenItEnds) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  ASSERT_TRUE(succeeds("orvane/window", "syncCleanBackground"));
  const HWND backdrop = cleanBackgroundState().cleanBackgroundWindow;
  ASSERT_TRUE(::IsWindow(backdrop));

  end();

  EXPECT_FALSE(::IsWindow(backdrop));
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundWindow, nullptr);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, nullptr);
  EXPECT_EQ(desktop.held("hooks"), 0);
  EXPECT_EQ(desktop.platformCalls("UnhookWinEvent"), 1);
  EXPECT_EQ(desktop.platformCalls("FlutterDesktopViewControllerDestroy"), 1);
  EXPECT_EQ(window.GetHandle(), nullptr);
  EXPECT_EQ(call("orvane/window", "getBounds"), std::nullopt) << "nobody listens any more";
}

TEST_F(FlutterWindowTest, LeavesAnotherWindowsBackdrop_WhenItEnds) {
  ASSERT_TRUE(start());
  const PlainWindow owner({0, 0, 100, 100}, L"Owner");
  ASSERT_TRUE(ensureCleanBackgroundWindow(owner.get(), {0, 0, 300, 200}));
  end();
  EXPECT_TRUE(::IsWindow(cleanBackgroundState().cleanBackgroundWindow));
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, owner.get());
  destroyCleanBackgroundOf(owner.get());
}

TEST_F(FlutterWindowTest, ForgetsItsOwnership_WhenTheBackdropHasGoneBefore) {
  ASSERT_TRUE(start());
  ASSERT_TRUE(succeeds("orvane/window", "syncCleanBackground"));
  ::DestroyWindow(cleanBackgroundState().cleanBackgroundWindow);
  end();
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, nullptr);
}

const EncodableMap oneEntry = mapOf({{"items", EncodableList{mapOf({{"action", "copy"}, {"label", "Copy"}})}}});

TEST_F(FlutterWindowTest, ShowsItsMenu) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  desktop.world().nextMenuChoice = 1;
  const std::optional<ResultCalls> calls = call("orvane/window", "showNativeHotKeysMenu", oneEntry);
  ASSERT_TRUE(calls);
  EXPECT_EQ(calls->values, std::vector<EncodableValue>{
                               mapOf({{"success", EncodableValue(true)}, {"action", EncodableValue("copy")}})});
}

TEST_F(FlutterWindowTest, EndsWithoutHarm_WhenItIsClosedInItsMenusLoop) {
  for (const bool quits : {false, true}) {
    OpenWindow closing;
    ASSERT_TRUE(closing.Create(L"Orvane", {10, 10}, {800, 600}));
    closing.SetQuitOnClose(quits);
    drawFirstFrame();
    ASSERT_TRUE(succeeds("orvane/window", "syncCleanBackground"));
    ::PostMessageW(closing.GetHandle(), WM_CLOSE, 0, 0);
    desktop.world().nextMenuChoice = 1;

    EXPECT_EQ(call("orvane/window", "showNativeHotKeysMenu", oneEntry), std::nullopt) << "nobody is left to hear it";

    EXPECT_EQ(closing.GetHandle(), nullptr);
    EXPECT_EQ(cleanBackgroundState().cleanBackgroundWindow, nullptr);
    EXPECT_EQ(desktop.held("menus"), 0);
    EXPECT_EQ(desktop.held("gdiObjects"), 0);
    EXPECT_EQ(desktop.held("hooks"), 0);
  }
}

// Does something in the message loop, whoever runs it.
class LoopGuest {
 public:
  explicit LoopGuest(std::function<void()> act) {
    action() = std::move(act);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.lpszClassName = L"LoopGuest";
    ::RegisterClassW(&windowClass);
    window_ = ::CreateWindowExW(0, L"LoopGuest", L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr,
                                nullptr);
    ::PostMessageW(window_, WM_APP, 0, 0);
  }
  ~LoopGuest() { ::DestroyWindow(window_); }
  LoopGuest(const LoopGuest&) = delete;
  LoopGuest& operator=(const LoopGuest&) = delete;

 private:
  static std::function<void()>& action() {
    static std::function<void()> act;
    return act;
  }
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_APP) {
      action()();
      return 0;
    }
    return ::DefWindowProcW(window, message, wparam, lparam);
  }

  HWND window_ = nullptr;
};

TEST_F(FlutterWindowTest, AnswersOtherCalls_WhileItsMenuIsOpen) {
  ASSERT_TRUE(start());
  drawFirstFrame();
  bool isAnswered = false;
  std::optional<ResultCalls> second;
  const LoopGuest guest([&] {
    isAnswered = succeeds("orvane/window", "getBounds");
    second = call("orvane/window", "showNativeHotKeysMenu", oneEntry);
  });
  desktop.world().nextMenuChoice = 1;
  EXPECT_TRUE(succeeds("orvane/window", "showNativeHotKeysMenu", oneEntry));
  EXPECT_TRUE(isAnswered);
  ASSERT_TRUE(second);
  EXPECT_EQ(second->values,
            std::vector<EncodableValue>{mapOf({{"success", EncodableValue(false)}, {"action", EncodableValue("")}})});
}

}  // namespace
}  // namespace orvane
