#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

using Ids = std::vector<std::string>;

constexpr const char* threeWindows = R"({"windows":[
  {"id":"front","process":"chrome.exe"},
  {"id":"shy","process":"msedge.exe","foregroundRequests":1},
  {"id":"small","process":"brave.exe","minimized":true},
  {"id":"never","process":"vivaldi.exe","foregroundRequests":"refused"}],"foreground":"front"})";

class ForegroundTest : public ::testing::Test {
 protected:
  SimulatedDesktop desktop{threeWindows};

  static INPUT keyEvent(WORD virtualKey, DWORD flags = 0) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = virtualKey;
    event.ki.dwFlags = flags;
    return event;
  }

  DWORD threadOf(const char* id) { return ::GetWindowThreadProcessId(desktop.window(id), nullptr); }
};

TEST_F(ForegroundTest, Request_IsRefusedAsOftenAsTheWindowSays) {
  EXPECT_EQ(::SetForegroundWindow(desktop.window("shy")), FALSE);
  EXPECT_EQ(::GetForegroundWindow(), desktop.window("front"));
  EXPECT_NE(::SetForegroundWindow(desktop.window("shy")), FALSE);
  EXPECT_EQ(::GetForegroundWindow(), desktop.window("shy"));
  EXPECT_EQ(::SetForegroundWindow(desktop.window("never")), FALSE);
  EXPECT_EQ(::SetForegroundWindow(desktop.window("never")), FALSE);
}

TEST_F(ForegroundTest, Raising_ChangesTheOrderAlone) {
  EXPECT_NE(::BringWindowToTop(desktop.window("shy")), FALSE);
  EXPECT_EQ(desktop.zOrder(), (Ids{"shy", "front", "small", "never"}));
  EXPECT_NE(::SetWindowPos(desktop.window("never"), HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW),
            FALSE);
  EXPECT_EQ(desktop.zOrder().front(), "never");
  EXPECT_EQ(desktop.foreground(), "front");
}

TEST_F(ForegroundTest, Restoring_RestoresAnotherProgramsWindowAtOnce_AndKeepsTheForeground) {
  EXPECT_NE(::IsIconic(desktop.window("small")), FALSE);
  EXPECT_NE(::ShowWindowAsync(desktop.window("small"), SW_RESTORE), FALSE);
  EXPECT_EQ(::IsIconic(desktop.window("small")), FALSE);
  EXPECT_EQ(desktop.foreground(), "front");
}

TEST_F(ForegroundTest, FocusAndActivation_ReachAnotherProgramOnlyWhenAttached) {
  EXPECT_EQ(::SetFocus(desktop.window("shy")), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
  ASSERT_NE(::AttachThreadInput(::GetCurrentThreadId(), threadOf("shy"), TRUE), FALSE);
  EXPECT_EQ(desktop.held("threadInputs"), 1);
  ::SetLastError(0);
  ::SetFocus(desktop.window("shy"));
  ::SetActiveWindow(desktop.window("shy"));
  EXPECT_EQ(::GetLastError(), 0u);
  EXPECT_EQ(desktop.foreground(), "front");
  EXPECT_NE(::AttachThreadInput(::GetCurrentThreadId(), threadOf("shy"), FALSE), FALSE);
  EXPECT_EQ(::AttachThreadInput(::GetCurrentThreadId(), threadOf("shy"), FALSE), FALSE);
  EXPECT_EQ(desktop.held("threadInputs"), 0);
}

TEST_F(ForegroundTest, Keys_GoToTheForeground_NumberedByCall) {
  INPUT chord[] = {keyEvent(VK_CONTROL), keyEvent('A'), keyEvent('A', KEYEVENTF_KEYUP),
                   keyEvent(VK_CONTROL, KEYEVENTF_KEYUP)};
  EXPECT_EQ(::SendInput(4, chord, sizeof(INPUT)), 4u);
  EXPECT_EQ(::SendInput(1, chord, sizeof(INPUT)), 1u);
  ASSERT_EQ(desktop.keyEvents().size(), 5u);
  EXPECT_EQ(desktop.keyEvents()[0].window, "front");
  EXPECT_EQ(desktop.keyEvents()[3].batch, 1);
  EXPECT_TRUE(desktop.keyEvents()[3].up);
  EXPECT_EQ(desktop.keyEvents()[4].batch, 2);
}

TEST_F(ForegroundTest, Keys_EndTheRun_WithAScanCodeOrATime) {
  INPUT scanned = keyEvent(VK_RETURN);
  scanned.ki.wScan = 28;
  INPUT timed = keyEvent(VK_RETURN);
  timed.ki.time = 1;
  for (INPUT* key : {&scanned, &timed}) {
    EXPECT_EXIT(::SendInput(1, key, sizeof(INPUT)), ::testing::ExitedWithCode(3),
                "simulation: SendInput: a scan code or a time isn't modelled");
  }
}

TEST_F(ForegroundTest, FaultedKeys_AreNotInserted) {
  desktop.setFaults(R"([{"call":"SendInput","result":1,"lastError":5}])");
  INPUT pair[] = {keyEvent(VK_RETURN), keyEvent(VK_RETURN, KEYEVENTF_KEYUP)};
  EXPECT_EQ(::SendInput(2, pair, sizeof(INPUT)), 1u);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
  EXPECT_TRUE(desktop.keyEvents().empty());
  EXPECT_EQ(desktop.platformCalls("SendInput"), 1);
}

TEST_F(ForegroundTest, Fault_ActsOnTheNamedWindow_WithoutTheCallsEffect) {
  desktop.setFaults(R"([{"call":"SetForegroundWindow","window":"shy","nth":2,"result":false},
                        {"call":"GetForegroundWindow","result":null}])");
  EXPECT_EQ(::SetForegroundWindow(desktop.window("shy")), FALSE);
  EXPECT_EQ(::SetForegroundWindow(desktop.window("shy")), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INTERNAL_ERROR));
  EXPECT_EQ(::GetForegroundWindow(), nullptr);
  EXPECT_EQ(::GetForegroundWindow(), desktop.window("front"));
  EXPECT_NE(::SetForegroundWindow(desktop.window("shy")), FALSE);
}

TEST_F(ForegroundTest, ProcessHandles_AreCounted_UntilClosed) {
  DWORD processId = 0;
  ::GetWindowThreadProcessId(desktop.window("front"), &processId);
  const HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId);
  EXPECT_EQ(desktop.held("processHandles"), 1);
  wchar_t path[260] = {};
  DWORD size = 260;
  ASSERT_NE(::QueryFullProcessImageNameW(process, 0, path, &size), FALSE);
  EXPECT_TRUE(std::wstring(path).ends_with(L"\\chrome.exe")) << size;
  EXPECT_NE(::CloseHandle(process), FALSE);
  EXPECT_EQ(desktop.held("processHandles"), 0);
}

using ForegroundDeathTest = ForegroundTest;

TEST_F(ForegroundDeathTest, Run_Stops_AtWhatIsNotModelled) {
  INPUT mouse{};
  mouse.type = INPUT_MOUSE;
  EXPECT_EXIT(::SendInput(1, &mouse, sizeof(INPUT)), ::testing::ExitedWithCode(3), "simulation: SendInput: ");
  EXPECT_EXIT(::SetWindowPos(desktop.window("shy"), nullptr, 0, 0, 0, 0, 0x4000), ::testing::ExitedWithCode(3),
              "simulation: SetWindowPos: ");
  EXPECT_EXIT(::PostMessageW(desktop.window("shy"), WM_CLOSE, 0, 0), ::testing::ExitedWithCode(3),
              "simulation: PostMessageW: ");
  EXPECT_EXIT(::ShowWindow(desktop.window("shy"), 3), ::testing::ExitedWithCode(3), "simulation: ShowWindow: ");
  EXPECT_EXIT(::CloseHandle(reinterpret_cast<HANDLE>(0x44)), ::testing::ExitedWithCode(3), "simulation: CloseHandle: ");
}

}  // namespace
}  // namespace orvane::simulation
