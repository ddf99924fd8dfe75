#include <windows.h>

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "embedding/flutter_library.h"
#include "windows/platform.h"

namespace orvane::simulation {
namespace {

// An interface whose steps are functions.
class StepList : public InterfaceScript {
 public:
  bool performStep() override {
    if (steps.empty()) return false;
    const std::function<void()> step = std::move(steps.front());
    steps.pop_front();
    step();
    return true;
  }
  void stepsDone() override { ++doneCount; }
  std::optional<Bytes> messageFromHost(const std::string& channel, const Bytes& message) override {
    received.emplace_back(channel, message);
    return answer;
  }

  std::deque<std::function<void()>> steps;
  std::vector<std::pair<std::string, Bytes>> received;
  std::optional<Bytes> answer;
  int doneCount = 0;
};

std::vector<std::pair<UINT, WPARAM>> seen;

LRESULT CALLBACK watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  seen.emplace_back(message, wParam);
  if (message == WM_DESTROY) ::PostQuitMessage(0);
  return ::DefWindowProcW(window, message, wParam, lParam);
}

int countOf(UINT message, WPARAM wParam) {
  int count = 0;
  for (const auto& entry : seen) count += entry == std::pair{message, wParam} ? 1 : 0;
  return count;
}

// A window, an engine and a view, as a host has them, without the host.
class EngineTest : public ::testing::Test {
 protected:
  EngineTest() {
    seen.clear();
    browser = &desktop.addWindow(plan("b"));
    desktop.moveForeground(browser);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = watch;
    windowClass.lpszClassName = L"EngineTest";
    ::RegisterClassW(&windowClass);
    window = ::CreateWindowExW(0, L"EngineTest", L"t", WS_OVERLAPPEDWINDOW, 100, 100, 640, 480, nullptr, nullptr,
                               ::GetModuleHandleW(nullptr), nullptr);
    const FlutterDesktopEngineProperties properties{};
    engine = ::FlutterDesktopEngineCreate(&properties);
    messenger = ::FlutterDesktopEngineGetMessenger(engine);
  }

  static WindowPlan plan(const std::string& id) {
    WindowPlan made;
    made.id = id;
    made.process = "chrome.exe";
    return made;
  }

  void startView() {
    controller = ::FlutterDesktopViewControllerCreate(640, 480, engine);
    const HWND view = ::FlutterDesktopViewGetHWND(::FlutterDesktopViewControllerGetView(controller));
    ::SetParent(view, window);
    ::FlutterDesktopEngineSetNextFrameCallback(
        engine, [](void* shown) { ::ShowWindow(*static_cast<HWND*>(shown), SW_SHOWNORMAL); }, &window);
    ::FlutterDesktopViewControllerForceRedraw(controller);
  }

  void loop() {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
  }

  static void answerWith(FlutterDesktopMessengerRef from, const FlutterDesktopMessage* message, void* reply) {
    const auto& bytes = *static_cast<Bytes*>(reply);
    ::FlutterDesktopMessengerSendResponse(from, message->response_handle, bytes.data(), bytes.size());
  }

  Clock& clock = *new Clock;
  Books books;
  Desktop desktop{clock, books};
  StepList script;
  Platform platform{desktop, &script, {}};
  Window* browser = nullptr;
  HWND window = nullptr;
  FlutterDesktopEngineRef engine = nullptr;
  FlutterDesktopMessengerRef messenger = nullptr;
  FlutterDesktopViewControllerRef controller = nullptr;
};

TEST_F(EngineTest, FirstFrame_ShowsTheWindowInFront_BeforeTheStepsBegin) {
  std::string foreground;
  script.steps.push_back([&] { foreground = desktop.foreground()->id; });
  startView();
  EXPECT_EQ(::IsWindowVisible(window), FALSE);
  EXPECT_EQ(desktop.foreground(), browser);
  loop();
  EXPECT_EQ(foreground, "main");
  EXPECT_EQ(countOf(WM_ACTIVATE, WA_ACTIVE), 1);
  EXPECT_EQ(countOf(WM_SETFOCUS, 0), 1);
  EXPECT_EQ(countOf(WM_SIZE, SIZE_RESTORED), 1);
}

TEST_F(EngineTest, EndOfTheSteps_ClosesTheMainWindow) {
  startView();
  loop();
  EXPECT_EQ(script.doneCount, 1);
  EXPECT_EQ(countOf(WM_CLOSE, 0), 1);
  EXPECT_EQ(::IsWindow(window), FALSE);
}

TEST_F(EngineTest, Steps_NeverBegin_WithoutAFrame) {
  script.steps.push_back([] { ADD_FAILURE() << "a step without a frame"; });
  loop();
  EXPECT_EQ(script.doneCount, 1);
}

TEST_F(EngineTest, Messages_AreHandledBetweenSteps) {
  int atSecondStep = -1;
  script.steps.push_back([&] { platform.post(*desktop.windowById("main"), WM_APP + 1, 7, 0); });
  script.steps.push_back([&] { atSecondStep = countOf(WM_APP + 1, 7); });
  startView();
  loop();
  EXPECT_EQ(atSecondStep, 1);
  EXPECT_TRUE(platform.records().posted.empty());
}

TEST_F(EngineTest, ForegroundMovedByAPerson_IsToldInTheLoop) {
  int duringTheStep = -1;
  script.steps.push_back([&] {
    desktop.moveForeground(browser);
    duringTheStep = countOf(WM_ACTIVATE, WA_INACTIVE);
  });
  script.steps.push_back([&] {
    EXPECT_EQ(countOf(WM_ACTIVATE, WA_INACTIVE), 1);
    EXPECT_NE(::SetForegroundWindow(window), FALSE);
    EXPECT_EQ(countOf(WM_ACTIVATE, WA_ACTIVE), 2);
  });
  startView();
  loop();
  EXPECT_EQ(duringTheStep, 0);
}

TEST_F(EngineTest, Activation_InTheOwnQueue_LeavesTheForegroundAlone) {
  script.steps.push_back([&] { desktop.moveForeground(browser); });
  script.steps.push_back([&] {
    EXPECT_EQ(::SetActiveWindow(window), nullptr);
    EXPECT_EQ(countOf(WM_ACTIVATE, WA_ACTIVE), 2);
    EXPECT_EQ(::SetActiveWindow(window), window);
    EXPECT_EQ(countOf(WM_ACTIVATE, WA_ACTIVE), 2);
    EXPECT_EQ(desktop.foreground(), browser);
  });
  startView();
  loop();
  EXPECT_EQ(script.doneCount, 1);
}

TEST_F(EngineTest, Person_MinimizesResizesAndCloses) {
  script.steps.push_back([&] { desktop.resizeByPerson(*desktop.windowById("main"), {0, 0, 500, 400}); });
  script.steps.push_back([&] {
    RECT bounds{};
    ::GetWindowRect(window, &bounds);
    EXPECT_EQ(bounds.right, 500);
    EXPECT_EQ(countOf(WM_ENTERSIZEMOVE, 0), 1);
    EXPECT_EQ(countOf(WM_EXITSIZEMOVE, 0), 1);
    EXPECT_EQ(countOf(WM_SIZE, SIZE_RESTORED), 2);
    desktop.minimizeByPerson(*desktop.windowById("main"));
  });
  script.steps.push_back([&] {
    EXPECT_NE(::IsIconic(window), FALSE);
    EXPECT_EQ(countOf(WM_SIZE, SIZE_MINIMIZED), 1);
    EXPECT_EQ(desktop.foreground(), browser);
    desktop.closeByPerson(*desktop.windowById("main"));
  });
  script.steps.push_back([] { ADD_FAILURE() << "a step after the end"; });
  startView();
  loop();
  EXPECT_EQ(::IsWindow(window), FALSE);
  EXPECT_EQ(script.doneCount, 0);
}

TEST_F(EngineTest, ClientArea_IsTheWindowLessItsScaledFrame) {
  RECT client{};
  ::GetClientRect(window, &client);
  EXPECT_EQ(client.right, 640 - 16);
  EXPECT_EQ(client.bottom, 480 - 39);
  desktop.monitors[0].dpi = 144;
  ::GetClientRect(window, &client);
  EXPECT_EQ(client.right, 640 - 24);
  EXPECT_EQ(client.bottom, 480 - 59);
  EXPECT_EQ(::GetDpiForWindow(window), 144u);
}

TEST_F(EngineTest, Window_IsToldTheDensity_WhenItComesToAnotherMonitor) {
  desktop.monitors.push_back({{1920, 0, 3840, 1080}, {1920, 0, 3840, 1040}, 192});
  ::SetWindowPos(window, nullptr, 2000, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ(countOf(WM_DPICHANGED, MAKEWPARAM(192, 192)), 1);
  EXPECT_EQ(::FlutterDesktopGetDpiForMonitor(::MonitorFromPoint({2000, 100}, MONITOR_DEFAULTTONEAREST)), 192u);
}

TEST_F(EngineTest, Message_GetsTheHandlersReply) {
  Bytes reply{1, 2, 3};
  ::FlutterDesktopMessengerSetCallback(messenger, "c", answerWith, &reply);
  EXPECT_EQ(platform.sendToHost("c", {9}), reply);
  ::FlutterDesktopMessengerSetCallback(
      messenger, "c", [](auto, auto, auto) {}, nullptr);
  EXPECT_EQ(platform.sendToHost("c", {9}), std::nullopt);
  ::FlutterDesktopMessengerSetCallback(messenger, "c", nullptr, nullptr);
  EXPECT_EQ(platform.sendToHost("c", {9}), Bytes{});
}

TEST_F(EngineTest, CallToTheInterface_IsAnsweredInTheLoop) {
  Bytes replied;
  script.answer = Bytes{5};
  const std::uint8_t message[] = {1, 2};
  EXPECT_TRUE(::FlutterDesktopMessengerSendWithReply(
      messenger, "c", message, 2,
      [](const std::uint8_t* data, std::size_t size, void* place) {
        static_cast<Bytes*>(place)->assign(data, data + size);
      },
      &replied));
  ASSERT_EQ(script.received.size(), 1u);
  EXPECT_EQ(script.received[0].second, (Bytes{1, 2}));
  EXPECT_TRUE(replied.empty());
  startView();
  loop();
  EXPECT_EQ(replied, Bytes{5});
}

TEST_F(EngineTest, Messenger_OutlivesItsEngine_AndIsThenNotAvailable) {
  ::FlutterDesktopMessengerAddRef(messenger);
  EXPECT_TRUE(::FlutterDesktopMessengerIsAvailable(messenger));
  startView();
  ::FlutterDesktopViewControllerDestroy(controller);
  EXPECT_FALSE(::FlutterDesktopMessengerIsAvailable(messenger));
  EXPECT_FALSE(::FlutterDesktopMessengerSend(messenger, "c", nullptr, 0));
  ::FlutterDesktopMessengerRelease(messenger);
}

TEST_F(EngineTest, FailedController_IsNull) {
  Fault fault;
  fault.call = "FlutterDesktopViewControllerCreate";
  fault.result.kind = FaultResult::Kind::null;
  books.setFaults({fault});
  EXPECT_EQ(::FlutterDesktopViewControllerCreate(1, 1, engine), nullptr);
  EXPECT_TRUE(::FlutterDesktopEngineDestroy(engine));
}

using EngineDeathTest = EngineTest;

TEST_F(EngineDeathTest, Run_Stops_WhenSomethingEndsTwice) {
  startView();
  EXPECT_EXIT(::FlutterDesktopEngineDestroy(engine), ::testing::ExitedWithCode(3), "FlutterDesktopEngineDestroy");
  ::FlutterDesktopViewControllerDestroy(controller);
  EXPECT_EXIT(::FlutterDesktopViewControllerDestroy(controller), ::testing::ExitedWithCode(3),
              "FlutterDesktopViewControllerDestroy");
  EXPECT_EXIT(::FlutterDesktopMessengerRelease(messenger), ::testing::ExitedWithCode(3),
              "FlutterDesktopMessengerRelease");
}

TEST_F(EngineDeathTest, Run_Stops_WhenAMessageIsAnsweredTwice) {
  const auto answerTwice = [](FlutterDesktopMessengerRef from, const FlutterDesktopMessage* message, void*) {
    ::FlutterDesktopMessengerSendResponse(from, message->response_handle, nullptr, 0);
    ::FlutterDesktopMessengerSendResponse(from, message->response_handle, nullptr, 0);
  };
  ::FlutterDesktopMessengerSetCallback(messenger, "c", answerTwice, nullptr);
  EXPECT_EXIT(platform.sendToHost("c", {}), ::testing::ExitedWithCode(3), "FlutterDesktopMessengerSendResponse");
}

TEST_F(EngineDeathTest, Run_Stops_WhenNoMessageCanComeAnyMore) {
  ::DestroyWindow(window);
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), FALSE);
  EXPECT_EXIT(::GetMessageW(&message, nullptr, 0, 0), ::testing::ExitedWithCode(3), "simulation: GetMessageW: ");
}

}  // namespace
}  // namespace orvane::simulation
