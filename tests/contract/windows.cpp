#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

class Windows : public ContractTest {
 protected:
  Windows() {
    answerNothing();
    takeSeen();
  }
  ~Windows() override {
    for (const HWND window : made_) ::DestroyWindow(window);
    answerNothing();
  }

  HWND make(const wchar_t* title = L"") {
    const HWND window = class_.makeWindow(title);
    made_.push_back(window);
    return window;
  }

  OwnClass class_{L"OrvaneContractWindow"};
  std::vector<HWND> made_;
};

BOOL CALLBACK collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

BOOL CALLBACK stopAtOnce(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return FALSE;
}

// Those of the given windows that the platform enumerates, in its order.
std::vector<HWND> orderOf(const std::vector<HWND>& windows) {
  std::vector<HWND> all;
  ::EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  std::erase_if(all,
                [&windows](HWND window) { return std::find(windows.begin(), windows.end(), window) == windows.end(); });
  return all;
}

std::wstring titleOf(HWND window) {
  wchar_t text[64] = {};
  const int length = ::GetWindowTextW(window, text, 64);
  return std::wstring(text, static_cast<std::size_t>(length));
}

TEST_F(Windows, Class_CanBeRegisteredOnce) {
  const OwnClass again(L"ORVANECONTRACTWINDOW");
  EXPECT_FALSE(again.isRegistered());
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
}

TEST_F(Windows, Class_CantGo_WhileAWindowIsThere) {
  make();
  EXPECT_EQ(::UnregisterClassW(class_.name().c_str(), ::GetModuleHandleW(nullptr)), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CLASS_HAS_WINDOWS));
}

TEST_F(Windows, Class_CantGo_WhenThereIsNone) {
  EXPECT_EQ(::UnregisterClassW(L"OrvaneNoSuchClass", ::GetModuleHandleW(nullptr)), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CLASS_DOES_NOT_EXIST));
}

TEST_F(Windows, Creation_Fails_WithoutTheClass) {
  EXPECT_EQ(::CreateWindowExW(0, L"OrvaneNoSuchClass", L"", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr,
                              ::GetModuleHandleW(nullptr), nullptr),
            nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_CANNOT_FIND_WND_CLASS));
}

TEST_F(Windows, Creation_IsAnnouncedInTwoSteps_WithItsParameter) {
  int parameter = 0;
  made_.push_back(class_.makeWindow(L"t", &parameter));
  const std::vector<SeenMessage> messages = takeSeen();
  ASSERT_GE(messages.size(), 2u);
  EXPECT_EQ(messages[0].message, static_cast<UINT>(WM_NCCREATE));
  EXPECT_EQ(messages[0].window, made_.back());
  EXPECT_EQ(messages[1].message, static_cast<UINT>(WM_CREATE));
  EXPECT_EQ(lastCreationParameter(), &parameter);
}

TEST_F(Windows, Creation_Fails_WhenTheWindowRefusesIt) {
  answer(WM_CREATE, -1);
  EXPECT_EQ(class_.makeWindow(), nullptr);
  const std::vector<UINT> messages = takeSeenNumbers();
  EXPECT_EQ(std::count(messages.begin(), messages.end(), static_cast<UINT>(WM_NCDESTROY)), 1);
}

TEST_F(Windows, NewWindow_HasWhatThePlatformAddsToItsStyles) {
  const HWND window = make();
  EXPECT_EQ(::GetWindowLongPtrW(window, GWL_STYLE), 0x04CF0000);
  EXPECT_EQ(::GetWindowLongPtrW(window, GWL_EXSTYLE), 0x00000100);
  EXPECT_NE(::IsWindow(window), FALSE);
  EXPECT_EQ(::IsWindowVisible(window), FALSE);
  EXPECT_EQ(::IsIconic(window), FALSE);
}

TEST_F(Windows, NewWindow_LiesWhereItWasPut) {
  RECT bounds{};
  ASSERT_NE(::GetWindowRect(make(), &bounds), FALSE);
  EXPECT_EQ(bounds.left, 50);
  EXPECT_EQ(bounds.top, 60);
  EXPECT_EQ(bounds.right, 450);
  EXPECT_EQ(bounds.bottom, 360);
}

TEST_F(Windows, UserData_IsKept) {
  const HWND window = make();
  EXPECT_EQ(::GetWindowLongPtrW(window, GWLP_USERDATA), 0);
  EXPECT_EQ(::SetWindowLongPtrW(window, GWLP_USERDATA, 0x123456789), 0);
  EXPECT_EQ(::SetWindowLongPtrW(window, GWLP_USERDATA, 7), 0x123456789);
  EXPECT_EQ(::GetWindowLongPtrW(window, GWLP_USERDATA), 7);
}

TEST_F(Windows, Title_ReadsBack_CutToTheBuffer) {
  const HWND window = make(L"Plan - Claude");
  EXPECT_EQ(::GetWindowTextLengthW(window), 13);
  EXPECT_EQ(titleOf(window), L"Plan - Claude");
  wchar_t small[5] = {};
  EXPECT_EQ(::GetWindowTextW(window, small, 5), 4);
  EXPECT_EQ(std::wstring(small), L"Plan");
  EXPECT_EQ(::GetWindowTextLengthW(make()), 0);
}

TEST_F(Windows, Destruction_IsAnnounced_ToTheWindowBeforeItsChildren) {
  const HWND window = class_.makeWindow();
  const HWND child = class_.makeChild(window);
  takeSeen();
  EXPECT_NE(::DestroyWindow(window), FALSE);
  std::vector<std::pair<HWND, UINT>> ends;
  for (const SeenMessage& entry : takeSeen()) {
    if (entry.message == WM_DESTROY || entry.message == WM_NCDESTROY) ends.emplace_back(entry.window, entry.message);
  }
  const std::vector<std::pair<HWND, UINT>> expected = {
      {window, WM_DESTROY}, {child, WM_DESTROY}, {child, WM_NCDESTROY}, {window, WM_NCDESTROY}};
  EXPECT_EQ(ends, expected);
  EXPECT_EQ(::IsWindow(window), FALSE);
  EXPECT_EQ(::IsWindow(child), FALSE);
}

TEST_F(Windows, DeadHandle_IsRefusedByEverything) {
  const HWND window = class_.makeWindow();
  ::DestroyWindow(window);
  RECT bounds{};
  EXPECT_EQ(::GetWindowRect(window, &bounds), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
  EXPECT_EQ(::DestroyWindow(window), FALSE);
  EXPECT_EQ(::SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE), FALSE);
  EXPECT_EQ(::GetAncestor(window, GA_ROOT), nullptr);
  EXPECT_EQ(::GetWindowThreadProcessId(window, nullptr), 0u);
  EXPECT_EQ(::PostMessageW(window, WM_APP, 0, 0), FALSE);
  EXPECT_EQ(::IsWindow(nullptr), FALSE);
}

TEST_F(Windows, Ancestor_OfAChild_IsItsTopLevelWindow) {
  const HWND window = make();
  const HWND child = class_.makeChild(window);
  const HWND grandchild = class_.makeChild(child);
  EXPECT_EQ(::GetAncestor(grandchild, GA_ROOT), window);
  EXPECT_EQ(::GetAncestor(window, GA_ROOT), window);
}

TEST_F(Windows, Child_NeedsAParent) {
  EXPECT_EQ(::CreateWindowExW(0, class_.name().c_str(), L"", WS_CHILD, 0, 0, 10, 10, nullptr, nullptr,
                              ::GetModuleHandleW(nullptr), nullptr),
            nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_TLW_WITH_WSCHILD));
}

TEST_F(Windows, Child_IsPlacedInItsParentsClientArea) {
  const HWND window = make();
  const HWND child = class_.makeChild(window);
  RECT before{};
  ::GetWindowRect(child, &before);
  EXPECT_NE(::MoveWindow(child, 30, 40, 200, 100, TRUE), FALSE);
  RECT after{};
  ::GetWindowRect(child, &after);
  EXPECT_EQ(after.left - before.left, 20);
  EXPECT_EQ(after.top - before.top, 20);
  EXPECT_EQ(after.right - after.left, 200);
  RECT client{};
  EXPECT_NE(::GetClientRect(child, &client), FALSE);
  EXPECT_EQ(client.right, 200);
  EXPECT_EQ(client.bottom, 100);
}

TEST_F(Windows, ClientArea_GrowsWithTheWindow) {
  const HWND window = make();
  RECT before{};
  ::GetClientRect(window, &before);
  takeSeen();
  ASSERT_NE(::SetWindowPos(window, nullptr, 0, 0, 500, 340, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE), FALSE);
  RECT after{};
  ::GetClientRect(window, &after);
  EXPECT_EQ(after.left, 0);
  EXPECT_EQ(after.right - before.right, 100);
  EXPECT_EQ(after.bottom - before.bottom, 40);
  const std::vector<SeenMessage> messages = takeSeen();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].message, static_cast<UINT>(WM_SIZE));
  EXPECT_EQ(messages[0].wParam, static_cast<WPARAM>(SIZE_RESTORED));
  EXPECT_EQ(LOWORD(messages[0].lParam), after.right);
  EXPECT_EQ(HIWORD(messages[0].lParam), after.bottom);
}

TEST_F(Windows, Move_IsToldApartFromASize) {
  const HWND window = make();
  takeSeen();
  ASSERT_NE(::SetWindowPos(window, nullptr, 80, 90, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE), FALSE);
  EXPECT_EQ(takeSeenNumbers(), std::vector<UINT>{WM_MOVE});
}

TEST_F(Windows, Order_IsTopFirst_AndFollowsEachCall) {
  const HWND a = make();
  const HWND b = make();
  const HWND c = make();
  const std::vector<HWND> all = {a, b, c};
  constexpr UINT orderOnly = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;
  ASSERT_NE(::SetWindowPos(a, HWND_TOP, 0, 0, 0, 0, orderOnly), FALSE);
  ASSERT_NE(::SetWindowPos(b, a, 0, 0, 0, 0, orderOnly), FALSE);
  ASSERT_NE(::SetWindowPos(c, b, 0, 0, 0, 0, orderOnly), FALSE);
  EXPECT_EQ(orderOf(all), (std::vector<HWND>{a, b, c}));
  ASSERT_NE(::SetWindowPos(a, HWND_BOTTOM, 0, 0, 0, 0, orderOnly), FALSE);
  EXPECT_EQ(orderOf(all), (std::vector<HWND>{b, c, a}));
  ASSERT_NE(::SetWindowPos(a, b, 0, 0, 0, 0, orderOnly), FALSE);
  EXPECT_EQ(orderOf(all), (std::vector<HWND>{b, a, c}));
}

TEST_F(Windows, TopmostWindows_LieAboveTheOthers) {
  const HWND a = make();
  const HWND b = make();
  constexpr UINT orderOnly = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;
  ASSERT_NE(::SetWindowPos(a, HWND_TOPMOST, 0, 0, 0, 0, orderOnly), FALSE);
  ASSERT_NE(::SetWindowPos(b, HWND_TOP, 0, 0, 0, 0, orderOnly), FALSE);
  EXPECT_EQ(orderOf({a, b}), (std::vector<HWND>{a, b}));
  EXPECT_NE(::GetWindowLongPtrW(a, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  ASSERT_NE(::SetWindowPos(a, HWND_NOTOPMOST, 0, 0, 0, 0, orderOnly), FALSE);
  EXPECT_EQ(::GetWindowLongPtrW(a, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(Windows, Enumeration_EndsEarly_WhenTheVisitorSaysSo) {
  make();
  make();
  int count = 0;
  EXPECT_EQ(::EnumWindows(stopAtOnce, reinterpret_cast<LPARAM>(&count)), FALSE);
  EXPECT_EQ(count, 1);
}

TEST_F(Windows, Showing_ReturnsWhetherItWasVisible_AndTellsTheSize) {
  const HWND window = make();
  takeSeen();
  EXPECT_EQ(::ShowWindow(window, SW_SHOWNORMAL), FALSE);
  EXPECT_NE(::IsWindowVisible(window), FALSE);
  const std::vector<UINT> messages = takeSeenNumbers();
  EXPECT_EQ(std::count(messages.begin(), messages.end(), static_cast<UINT>(WM_SHOWWINDOW)), 1);
  EXPECT_GE(std::count(messages.begin(), messages.end(), static_cast<UINT>(WM_SIZE)), 1);
  EXPECT_NE(::ShowWindow(window, SW_HIDE), FALSE);
  EXPECT_EQ(::IsWindowVisible(window), FALSE);
}

TEST_F(Windows, ChildOfAHiddenWindow_IsNotVisible) {
  const HWND window = make();
  const HWND child = class_.makeChild(window);
  EXPECT_EQ(::IsWindowVisible(child), FALSE);
  ::ShowWindow(window, SW_SHOW);
  EXPECT_NE(::IsWindowVisible(child), FALSE);
}

TEST_F(Windows, Minimized_KeepsVisible_AndComesBackWhereItWas) {
  const HWND window = make();
  ::ShowWindow(window, SW_SHOWNORMAL);
  ::ShowWindow(window, SW_MINIMIZE);
  EXPECT_NE(::IsIconic(window), FALSE);
  EXPECT_NE(::IsWindowVisible(window), FALSE);
  ::ShowWindow(window, SW_RESTORE);
  EXPECT_EQ(::IsIconic(window), FALSE);
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  EXPECT_EQ(bounds.left, 50);
  EXPECT_EQ(bounds.right, 450);
}

TEST_F(Windows, Icon_ReplacesTheFormerOne) {
  const HWND window = make();
  ::SendMessageW(window, WM_SETICON, ICON_BIG, 0x1111);
  EXPECT_EQ(::SendMessageW(window, WM_SETICON, ICON_BIG, 0), 0x1111);
  EXPECT_EQ(::SendMessageW(window, WM_SETICON, ICON_SMALL, 0), 0);
}

TEST_F(Windows, Dpi_OfAWindow_IsAtLeastTheBase) {
  EXPECT_GE(::GetDpiForWindow(make()), 96u);
  EXPECT_NE(::MonitorFromPoint(POINT{-50000, -50000}, MONITOR_DEFAULTTONEAREST), nullptr);
}

}  // namespace
}  // namespace orvane::contract
