#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/own_windows.h"
#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

using Log = std::vector<std::string>;

Log& events() {
  static Log seen;
  return seen;
}

SimulatedDesktop*& currentDesktop() {
  static SimulatedDesktop* desktop = nullptr;
  return desktop;
}

std::string nameOf(HWND window) {
  for (const char* id : {"mail", "chat", "twin", "main"}) {
    if (currentDesktop()->window(id) == window) return id;
  }
  return "?";
}

void CALLBACK note(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD ms) {
  events().push_back(nameOf(window) + " at " + std::to_string(ms));
}

class HookTest : public ::testing::Test {
 protected:
  HookTest() {
    currentDesktop() = &desktop;
    events().clear();
    main_ = windows.make(L"OrvaneHookMain", {100, 100, 700, 500});
    ::ShowWindow(main_, SW_SHOWNORMAL);
    hook_ = install();
    windows.takeSeen();
  }
  ~HookTest() override { ::UnhookWinEvent(hook_); }

  static HWINEVENTHOOK install() {
    return ::SetWinEventHook(EVENT_SYSTEM_FOREGROUND, EVENT_SYSTEM_FOREGROUND, nullptr, note, 0, 0,
                             WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
  }

  static Log eventsOfTheLoop() {
    OwnWindows::handleWaiting();
    return std::exchange(events(), {});
  }

  DWORD threadOf(const char* id) { return ::GetWindowThreadProcessId(desktop.window(id), nullptr); }

  HWND focusOf(const char* id) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    EXPECT_NE(::GetGUIThreadInfo(threadOf(id), &info), FALSE);
    EXPECT_EQ(info.hwndActive, info.hwndFocus);
    return info.hwndFocus;
  }

  SimulatedDesktop desktop{R"({"windows":[{"id":"mail","process":"mail.exe"},{"id":"chat","process":"chrome.exe"},
    {"id":"twin","process":"orvane.exe","pid":9000,"class":"FLUTTER_RUNNER_WIN32_WINDOW"}]})"};
  OwnWindows windows{{L"OrvaneHookMain"}};
  HWND main_ = nullptr;
  HWINEVENTHOOK hook_ = nullptr;
};

TEST_F(HookTest, Events_ComeInTheOrderOfTheForeground_WithTheirTime) {
  desktop.bringToFront("mail");
  ::Sleep(30);
  desktop.bringToFront("twin");
  EXPECT_EQ(eventsOfTheLoop(), (Log{"mail at 0", "twin at 30"}));
}

TEST_F(HookTest, Event_ComesBehindTheDeactivation_AndBeforePostedMessages) {
  ::PostMessageW(main_, WM_APP, 0, 0);
  desktop.bringToFront("mail");
  MSG message{};
  ASSERT_NE(::GetMessageW(&message, nullptr, 0, 0), FALSE);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_APP));
  EXPECT_EQ(events(), Log{"mail at 0"});
  const std::vector<OwnWindows::Seen> seen = windows.takeSeen();
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen[0].message, static_cast<UINT>(WM_ACTIVATE));
}

TEST_F(HookTest, NoForeground_AndOwnWindows_AreNoEvent) {
  desktop.bringToFront("");
  desktop.bringToFront("main");
  EXPECT_TRUE(eventsOfTheLoop().empty());
}

TEST_F(HookTest, WindowThatWent_IsStillNamed) {
  desktop.bringToFront("mail");
  desktop.world().closeByPerson(desktop.windowState("mail"));
  EXPECT_EQ(eventsOfTheLoop(), Log{"mail at 0"});
  EXPECT_EQ(::IsWindow(desktop.window("mail")), FALSE);
}

TEST_F(HookTest, ForegroundThatFallsBack_IsAnEvent) {
  desktop.bringToFront("mail");
  desktop.bringToFront("chat");
  eventsOfTheLoop();
  desktop.world().minimizeByPerson(desktop.windowState("chat"));
  EXPECT_EQ(eventsOfTheLoop(), Log{"mail at 0"});
}

TEST_F(HookTest, OwnRequest_IsAnEvent_OnlyWhenItIsGranted) {
  desktop.setFaults(R"([{"call":"SetForegroundWindow","result":0}])");
  EXPECT_EQ(::SetForegroundWindow(desktop.window("chat")), FALSE);
  EXPECT_TRUE(eventsOfTheLoop().empty());
  EXPECT_NE(::SetForegroundWindow(desktop.window("chat")), FALSE);
  EXPECT_EQ(eventsOfTheLoop(), Log{"chat at 0"});
}

TEST_F(HookTest, Hooks_AreCounted_UntilTheyGo) {
  EXPECT_EQ(desktop.held("hooks"), 1);
  const HWINEVENTHOOK second = install();
  EXPECT_EQ(desktop.held("hooks"), 2);
  EXPECT_NE(::UnhookWinEvent(second), FALSE);
  EXPECT_EQ(::UnhookWinEvent(second), FALSE);
  EXPECT_EQ(desktop.held("hooks"), 1);
  desktop.setFaults(R"([{"call":"SetWinEventHook","result":null}])");
  EXPECT_EQ(install(), nullptr);
  EXPECT_EQ(desktop.held("hooks"), 1);
}

TEST_F(HookTest, ThreadInfo_NamesTheWindowInFrontLast_UnlessItIsMinimized) {
  EXPECT_EQ(focusOf("mail"), nullptr);
  desktop.bringToFront("mail");
  desktop.bringToFront("chat");
  EXPECT_EQ(focusOf("mail"), desktop.window("mail"));
  EXPECT_EQ(focusOf("chat"), desktop.window("chat"));
  desktop.world().minimizeByPerson(desktop.windowState("chat"));
  EXPECT_EQ(focusOf("chat"), nullptr);
}

TEST_F(HookTest, AnotherInstance_IsAProcessOfItsOwn_WithTheSameImage) {
  DWORD processId = 0;
  ASSERT_NE(::GetWindowThreadProcessId(desktop.window("twin"), &processId), 0u);
  EXPECT_EQ(processId, 9000u);
  const HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId);
  ASSERT_NE(process, nullptr);
  wchar_t image[300] = {};
  DWORD size = 300;
  ASSERT_NE(::QueryFullProcessImageNameW(process, 0, image, &size), FALSE);
  ::CloseHandle(process);
  wchar_t own[300] = {};
  EXPECT_EQ(::GetModuleFileNameW(nullptr, own, 300), size);
  EXPECT_EQ(std::wstring(own), std::wstring(image));
}

TEST_F(HookTest, AnotherInstance_TakesPostsAttachmentsAndRaising) {
  const HWND twin = desktop.window("twin");
  ASSERT_NE(::PostMessageW(twin, 0x8153, 0, 0), FALSE);
  ASSERT_EQ(desktop.platform().records().posted.size(), 1u);
  EXPECT_EQ(desktop.platform().records().posted[0].window, "twin");
  EXPECT_EQ(desktop.platform().records().posted[0].message, 0x8153u);
  const DWORD own = ::GetCurrentThreadId();
  ASSERT_NE(::AttachThreadInput(own, threadOf("twin"), TRUE), FALSE);
  EXPECT_NE(::BringWindowToTop(twin), FALSE);
  EXPECT_EQ(desktop.zOrder().front(), "twin");
  EXPECT_EQ(desktop.foreground(), "main");
  EXPECT_NE(::AttachThreadInput(own, threadOf("twin"), FALSE), FALSE);
}

using HookDeathTest = HookTest;

TEST_F(HookDeathTest, Run_Stops_AtAnyOtherHook) {
  const auto exits = ::testing::ExitedWithCode(3);
  constexpr const char* line = "simulation: SetWinEventHook: ";
  constexpr DWORD event = EVENT_SYSTEM_FOREGROUND;
  constexpr DWORD flags = WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS;
  EXPECT_EXIT(::SetWinEventHook(event, event + 1, nullptr, note, 0, 0, flags), exits, line);
  EXPECT_EXIT(::SetWinEventHook(event, event, nullptr, note, 0, 0, 0), exits, line);
  EXPECT_EXIT(::SetWinEventHook(event, event, nullptr, note, 1, 0, flags), exits, line);
  EXPECT_EXIT(::SetWinEventHook(event, event, nullptr, note, 0, 1, flags), exits, line);
  EXPECT_EXIT(::SetWinEventHook(event, event, nullptr, nullptr, 0, 0, flags), exits, line);
}

}  // namespace
}  // namespace orvane::simulation
