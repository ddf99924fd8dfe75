#include "shell/win32_window.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/row_name.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

constexpr int iconSmall = 0;
constexpr int iconBig = 1;

std::string oneMonitor(int dpi) {
  return R"({"monitors": [{"bounds": [0, 0, 3840, 2160], "work": [0, 0, 3840, 2100], "dpi": )" + std::to_string(dpi) +
         "}]}";
}

// Counts what the base calls on its heir.
class CountingWindow : public Win32Window {
 public:
  int created = 0;
  int destroyed = 0;
  bool succeeds = true;

 protected:
  bool OnCreate() override {
    ++created;
    return succeeds;
  }
  void OnDestroy() override { ++destroyed; }
};

RECT boundsOf(HWND window) {
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  return bounds;
}

std::vector<LONG> sides(const RECT& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }

struct ScaleRow {
  const char* test;
  int dpi;
  Win32Window::Point origin;
  Win32Window::Size size;
  std::vector<LONG> sides;
};

class Scale : public ::testing::TestWithParam<ScaleRow> {};

TEST_P(Scale, MultipliesOriginAndSize_AndCutsTowardsZero) {
  const SimulatedDesktop desktop(oneMonitor(GetParam().dpi));
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", GetParam().origin, GetParam().size));
  EXPECT_EQ(sides(boundsOf(window.GetHandle())), GetParam().sides);
  EXPECT_FALSE(::IsWindowVisible(window.GetHandle()));
}

INSTANTIATE_TEST_SUITE_P(
    Each, Scale,
    ::testing::Values(ScaleRow{"Plain", 96, {10, 10}, {1280, 720}, {10, 10, 1290, 730}},
                      ScaleRow{"OneAndAQuarter", 120, {10, 10}, {1280, 720}, {12, 12, 1612, 912}},
                      ScaleRow{"OneAndAHalf", 144, {10, 10}, {1280, 720}, {15, 15, 1935, 1095}},
                      ScaleRow{"OffscreenPlain", 96, {-32000, -32000}, {1280, 720}, {-32000, -32000, -30720, -31280}},
                      ScaleRow{
                          "OffscreenOneAndAHalf", 144, {-32000, -32000}, {1280, 720}, {-48000, -48000, -46080, -46920}},
                      ScaleRow{"TowardsZero", 120, {-11, 11}, {201, 103}, {-13, 13, 238, 141}}),
    nameOfRow<ScaleRow>);

TEST(Win32WindowCreate, IsFalse_WhenThePlatformMakesNoWindow) {
  const SimulatedDesktop desktop(R"({"faults": [{"call": "CreateWindowExW", "result": null}]})");
  CountingWindow window;
  EXPECT_FALSE(window.Create(L"x", {10, 10}, {100, 100}));
  EXPECT_EQ(window.GetHandle(), nullptr);
  EXPECT_EQ(window.created, 0);
  EXPECT_EQ(desktop.platformCalls("LoadImageW"), 0);
  EXPECT_EQ(desktop.platformCalls("DwmSetWindowAttribute"), 0);
}

TEST(Win32WindowCreate, GivesTheHeirsAnswer) {
  const SimulatedDesktop desktop("{}");
  CountingWindow window;
  window.succeeds = false;
  EXPECT_FALSE(window.Create(L"x", {10, 10}, {100, 100}));
  EXPECT_EQ(window.created, 1);
  EXPECT_NE(window.GetHandle(), nullptr);
}

TEST(Win32WindowCreate, StartsClean_WhenThereIsAWindowAlready) {
  const SimulatedDesktop desktop("{}");
  CountingWindow window;
  ASSERT_TRUE(window.Create(L"first", {10, 10}, {100, 100}));
  const HWND first = window.GetHandle();
  ASSERT_TRUE(window.Create(L"second", {20, 20}, {100, 100}));
  EXPECT_FALSE(::IsWindow(first));
  EXPECT_TRUE(::IsWindow(window.GetHandle()));
  EXPECT_EQ(desktop.platformCalls("RegisterClassW"), 1) << "the class outlives a window while its object lives";
}

// The program's icon in this size; each size is one of its own.
LRESULT programIcon(int sidePixels) {
  return reinterpret_cast<LRESULT>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(101), IMAGE_ICON,
                                                sidePixels, sidePixels, LR_DEFAULTCOLOR));
}

TEST(Win32WindowCreate, TakesTheStyleTitleAndIcons) {
  const SimulatedDesktop desktop("{}");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"Orvane: The Desk for Every Assistant", {10, 10}, {1280, 720}));
  wchar_t title[64] = {};
  ::GetWindowTextW(window.GetHandle(), title, 64);
  EXPECT_EQ(std::wstring(title), L"Orvane: The Desk for Every Assistant");
  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window.GetHandle(), GWL_STYLE));
  EXPECT_EQ(style & WS_OVERLAPPEDWINDOW, static_cast<DWORD>(WS_OVERLAPPEDWINDOW));
  EXPECT_EQ(desktop.platformCalls("LoadImageW"), 2);
  EXPECT_EQ(::SendMessageW(window.GetHandle(), WM_SETICON, iconSmall, 0), programIcon(16));
  EXPECT_EQ(::SendMessageW(window.GetHandle(), WM_SETICON, iconBig, 0), programIcon(32));
  EXPECT_EQ(desktop.platformCalls("EnableNonClientDpiScaling"), 1);
}

TEST(Win32WindowCreate, HasSetTheTheme_WhenTheHeirFails) {
  SimulatedDesktop desktop(R"({"lightTheme": false})");
  CountingWindow window;
  window.succeeds = false;
  EXPECT_FALSE(window.Create(L"x", {10, 10}, {100, 100}));
  EXPECT_EQ(desktop.platform().records().attributes.size(), 3U);
}

TEST(Win32WindowShow, TellsWhetherItWasVisibleBefore) {
  const SimulatedDesktop desktop("{}");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));
  EXPECT_FALSE(window.Show());
  EXPECT_TRUE(window.Show());
  EXPECT_TRUE(::IsWindowVisible(window.GetHandle()));
}

TEST(Win32WindowCreate, SetsTheIconsThatLoaded) {
  const SimulatedDesktop desktop(R"({"faults": [{"call": "LoadImageW", "result": null}]})");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));
  EXPECT_EQ(::SendMessageW(window.GetHandle(), WM_SETICON, iconSmall, 0), 0);
  EXPECT_NE(::SendMessageW(window.GetHandle(), WM_SETICON, iconBig, 0), 0);
}

TEST(Win32WindowClass, IsRegisteredByTheFirstAndUnregisteredAfterTheLast) {
  const SimulatedDesktop desktop("{}");
  {
    Win32Window first;
    ASSERT_TRUE(first.Create(L"1", {0, 0}, {100, 100}));
    {
      Win32Window second;
      ASSERT_TRUE(second.Create(L"2", {0, 0}, {100, 100}));
    }
    EXPECT_EQ(desktop.platformCalls("RegisterClassW"), 1);
    EXPECT_EQ(desktop.platformCalls("UnregisterClassW"), 0);
  }
  EXPECT_FALSE(::UnregisterClassW(L"FLUTTER_RUNNER_WIN32_WINDOW", ::GetModuleHandleW(nullptr))) << "it is gone already";
}

TEST(Win32WindowClass, IsDrawnAnewWithEachSize_AndHasIconAndArrow) {
  SimulatedDesktop desktop("{}");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {0, 0}, {100, 100}));
  const auto& classes = desktop.platform().records().classes;
  ASSERT_EQ(classes.size(), 1U);
  EXPECT_EQ(classes[0].name, u"FLUTTER_RUNNER_WIN32_WINDOW");
  EXPECT_EQ(classes[0].style, static_cast<std::uint32_t>(CS_HREDRAW | CS_VREDRAW));
  EXPECT_TRUE(classes[0].hasIcon);
  EXPECT_TRUE(classes[0].hasCursor);
}

TEST(Win32WindowClass, IsRegisteredAgain_ByTheFirstWindowAfterTheLast) {
  const SimulatedDesktop desktop("{}");
  for (const int registrations : {1, 2, 3}) {
    Win32Window window;
    ASSERT_TRUE(window.Create(L"x", {0, 0}, {100, 100}));
    EXPECT_EQ(desktop.platformCalls("RegisterClassW"), registrations);
  }
}

struct ThemeRow {
  const char* test;
  std::string desktop;
  bool setsDarkMode;
};

class Theme : public ::testing::TestWithParam<ThemeRow> {};

TEST_P(Theme, SetsTheCaptionColoursAlways_AndDarkModeWhereTheValueReads) {
  SimulatedDesktop desktop(GetParam().desktop);
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));

  std::vector<std::pair<std::uint32_t, std::uint32_t>> set;
  for (const auto& one : desktop.platform().records().attributes) set.emplace_back(one.attribute, one.value);
  std::vector<std::pair<std::uint32_t, std::uint32_t>> expected{{35, 0x00425C12}, {36, 0x00FFFFFF}};
  if (GetParam().setsDarkMode) expected.insert(expected.begin(), {20, 1});
  EXPECT_EQ(set, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Each, Theme,
    ::testing::Values(ThemeRow{"Light", R"({"lightTheme": true})", true},
                      ThemeRow{"Dark", R"({"lightTheme": false})", true}, ThemeRow{"Absent", "{}", false},
                      ThemeRow{"Unreadable",
                               R"({"lightTheme": true, "faults": [{"call": "RegGetValueW", "result": 5}]})", false}),
    nameOfRow<ThemeRow>);

TEST(Win32WindowMessages, UpdateTheTheme_WhenTheSystemsColoursChange) {
  SimulatedDesktop desktop(R"({"lightTheme": false})");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));
  desktop.platform().records().attributes.clear();
  EXPECT_EQ(::SendMessageW(window.GetHandle(), WM_DWMCOLORIZATIONCOLORCHANGED, 0, 0), 0);
  EXPECT_EQ(desktop.platform().records().attributes.size(), 3U);
}

TEST(Win32WindowMessages, DoNothingOnSize_BeforeThereIsContent) {
  const SimulatedDesktop desktop("{}");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));
  EXPECT_EQ(::SendMessageW(window.GetHandle(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(50, 50)), 0);
  EXPECT_EQ(::SendMessageW(window.GetHandle(), WM_ACTIVATE, WA_ACTIVE, 0), 0);
  EXPECT_EQ(desktop.platformCalls("MoveWindow"), 0);
  EXPECT_EQ(desktop.platformCalls("SetFocus"), 0);
}

TEST(Win32WindowMessages, TakeTheSuggestedBounds_WhenTheDpiChanges) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "other", "process": "notepad.exe"}]})");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));
  ASSERT_FALSE(window.Show());
  desktop.bringToFront("other");
  RECT suggested{40, 50, 440, 350};
  EXPECT_EQ(
      ::SendMessageW(window.GetHandle(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested)), 0);
  EXPECT_EQ(sides(boundsOf(window.GetHandle())), (std::vector<LONG>{40, 50, 440, 350}));
  EXPECT_EQ(desktop.zOrder(), (std::vector<std::string>{"other", "main"}));
  EXPECT_EQ(desktop.foreground(), "other");
}

TEST(Win32WindowMessages, EndTheWindowOnce_WhenItIsDestroyed) {
  const SimulatedDesktop desktop("{}");
  CountingWindow window;
  window.SetQuitOnClose(true);
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));
  const int before = window.destroyed;
  const HWND handle = window.GetHandle();

  ::DestroyWindow(handle);

  EXPECT_FALSE(::IsWindow(handle));
  EXPECT_EQ(window.GetHandle(), nullptr);
  EXPECT_EQ(window.destroyed, before + 1);
  EXPECT_EQ(desktop.platformCalls("PostQuitMessage"), 1);
  EXPECT_EQ(desktop.platformCalls("UnregisterClassW"), 0) << "the object still lives";
}

TEST(Win32WindowMessages, PostNoQuit_UnlessTheWindowWasToldTo) {
  const SimulatedDesktop desktop("{}");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {100, 100}));
  ::DestroyWindow(window.GetHandle());
  EXPECT_EQ(desktop.platformCalls("PostQuitMessage"), 0);
}

// A child window as the embedded view is one; it goes with its parent.
HWND makeContent(HWND parent) {
  WNDCLASSW windowClass{};
  windowClass.lpszClassName = L"content";
  windowClass.hInstance = ::GetModuleHandleW(nullptr);
  windowClass.lpfnWndProc = ::DefWindowProcW;
  ::RegisterClassW(&windowClass);
  return ::CreateWindowExW(0, L"content", L"", WS_CHILD, 0, 0, 10, 10, parent, nullptr, ::GetModuleHandleW(nullptr),
                           nullptr);
}

TEST(Win32WindowContent, FillsTheClientArea_AndFollowsItsSize) {
  const SimulatedDesktop desktop("{}");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {500, 400}));
  const HWND content = makeContent(window.GetHandle());
  ASSERT_NE(content, nullptr);
  const auto contentSize = [content] {
    const RECT bounds = boundsOf(content);
    return std::vector<LONG>{bounds.right - bounds.left, bounds.bottom - bounds.top};
  };

  window.SetChildContent(content);
  EXPECT_EQ(contentSize(), (std::vector<LONG>{500 - 16, 400 - 39}));

  ::SetWindowPos(window.GetHandle(), nullptr, 0, 0, 800, 600, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(contentSize(), (std::vector<LONG>{800 - 16, 600 - 39}));
}

HWND focusedWindow() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  EXPECT_TRUE(::GetGUIThreadInfo(::GetCurrentThreadId(), &info));
  return info.hwndFocus;
}

TEST(Win32WindowContent, GetsTheFocus_WhenItIsSetAndWheneverTheWindowIsActivated) {
  const SimulatedDesktop desktop("{}");
  Win32Window window;
  ASSERT_TRUE(window.Create(L"x", {10, 10}, {500, 400}));
  const HWND content = makeContent(window.GetHandle());
  window.SetChildContent(content);
  EXPECT_EQ(desktop.platformCalls("SetFocus"), 1);
  EXPECT_EQ(focusedWindow(), content);
  EXPECT_EQ(::SendMessageW(window.GetHandle(), WM_ACTIVATE, WA_INACTIVE, 0), 0);
  EXPECT_EQ(desktop.platformCalls("SetFocus"), 2) << "whatever the kind of activation";
}

}  // namespace
}  // namespace orvane
