#include "desktop/clean_background_window.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "desktop/clean_background_rect.h"
#include "desktop/desktop_test.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::handleWaiting;
using desktop_tests::internalError;
using desktop_tests::oneMonitor;
using desktop_tests::PlainWindow;
using desktop_tests::sides;
using desktop_tests::sidesOf;
using desktop_tests::styleOf;
using desktop_tests::titleOf;
using simulation::FilledArea;
using simulation::SimulatedDesktop;

using Ids = std::vector<std::string>;

const RECT panelPlace = {300, 500, 712, 700};

// A main window with its panel, which goes with it. Declared behind the desktop.
class Pair {
 public:
  Pair() { EXPECT_TRUE(ensureCleanBackgroundWindow(owner.get(), panelPlace)); }
  ~Pair() { destroyCleanBackgroundOf(owner.get()); }

  HWND panel() const { return cleanBackgroundState().cleanBackgroundWindow; }
  void show() const { ::ShowWindow(panel(), SW_SHOWNOACTIVATE); }

  PlainWindow owner{{300, 100, 700, 600}};
};

HANDLE propertyOf(HWND window) { return ::GetPropW(window, L"Orvane.CleanBackground"); }

using CleanBackgroundWindow = DesktopTest;

TEST_F(CleanBackgroundWindow, IsAHiddenTopLevelWindowOfItsOwn) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  const HWND panel = pair.panel();
  wchar_t className[64] = {};
  ::GetClassNameW(panel, className, 64);
  EXPECT_EQ(std::wstring(className), L"Orvane_Clean_Background_RC310");
  EXPECT_EQ(titleOf(panel), L"Orvane - Clean Background");
  EXPECT_EQ(styleOf(panel), 0x00CF0000U | WS_CLIPSIBLINGS);
  EXPECT_EQ(static_cast<DWORD>(::GetWindowLongPtrW(panel, GWL_EXSTYLE)), 0x00040000U | WS_EX_WINDOWEDGE);
  EXPECT_EQ(::GetAncestor(panel, GA_ROOT), panel);
  EXPECT_EQ(sidesOf(panel), sides(panelPlace));
  EXPECT_FALSE(::IsWindowVisible(panel));
  EXPECT_EQ(propertyOf(panel), reinterpret_cast<HANDLE>(std::uintptr_t{1}));
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, pair.owner.get());
}

TEST_F(CleanBackgroundWindow, HasAClassWithTheArrowAlone) {
  SimulatedDesktop desktop("{}");
  const Pair pair;
  const simulation::RegisteredClass& windowClass = desktop.platform().records().classes.back();
  EXPECT_EQ(windowClass.name, u"Orvane_Clean_Background_RC310");
  EXPECT_EQ(windowClass.style, 0U);
  EXPECT_FALSE(windowClass.hasIcon);
  EXPECT_TRUE(windowClass.hasCursor);
}

TEST_F(CleanBackgroundWindow, IsMadeOnce) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  const HWND panel = pair.panel();
  const PlainWindow other({0, 0, 50, 50}, L"Other");
  EXPECT_TRUE(ensureCleanBackgroundWindow(other.get(), {1, 2, 800, 900}));
  EXPECT_EQ(pair.panel(), panel);
  EXPECT_EQ(sidesOf(panel), sides(panelPlace)) << "whatever the rectangle";
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, pair.owner.get());
  EXPECT_EQ(desktop.platformCalls("RegisterClassW"), 3) << "of the panel once";
}

TEST_F(CleanBackgroundWindow, IsMadeAgain_WhenItIsGone) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  const HWND former = pair.panel();
  ::DestroyWindow(former);
  EXPECT_EQ(pair.panel(), nullptr);
  EXPECT_TRUE(ensureCleanBackgroundWindow(pair.owner.get(), panelPlace)) << "the class is there already";
  EXPECT_NE(pair.panel(), former);
  EXPECT_TRUE(::IsWindow(pair.panel()));
}

TEST_F(CleanBackgroundWindow, IsMadeAgain_WhenTheHandleIsOfNoWindow) {
  const SimulatedDesktop desktop("{}");
  cleanBackgroundState().cleanBackgroundWindow = reinterpret_cast<HWND>(std::uintptr_t{0x7FFF0});
  const Pair pair;
  EXPECT_TRUE(::IsWindow(pair.panel()));
}

TEST_F(CleanBackgroundWindow, IsNotMade_WhenItsClassCantBeRegistered) {
  SimulatedDesktop desktop("{}");
  const PlainWindow owner;
  desktop.setFaults(faultOf("RegisterClassW", "0"));
  EXPECT_FALSE(ensureCleanBackgroundWindow(owner.get(), panelPlace));
  EXPECT_EQ(::GetLastError(), internalError);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundWindow, nullptr);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, nullptr);
}

TEST_F(CleanBackgroundWindow, IsMade_WhenItsClassWasThereBefore) {
  SimulatedDesktop desktop("{}");
  { const Pair first; }
  const PlainWindow owner;
  desktop.setFaults(R"([{"call": "RegisterClassW", "result": 0, "lastError": 1410}])");
  EXPECT_TRUE(ensureCleanBackgroundWindow(owner.get(), panelPlace));
  destroyCleanBackgroundOf(owner.get());
}

TEST_F(CleanBackgroundWindow, IsNotMade_WhenThePlatformMakesNone) {
  SimulatedDesktop desktop("{}");
  const PlainWindow owner;
  desktop.setFaults(faultOf("CreateWindowExW", "null"));
  EXPECT_FALSE(ensureCleanBackgroundWindow(owner.get(), panelPlace));
  EXPECT_EQ(::GetLastError(), internalError);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundWindow, nullptr);
  EXPECT_EQ(desktop.platformCalls("SetPropW"), 0);
  desktop.setFaults("[]");
  EXPECT_TRUE(ensureCleanBackgroundWindow(owner.get(), panelPlace)) << "the next try starts afresh";
  destroyCleanBackgroundOf(owner.get());
}

TEST_F(CleanBackgroundWindow, StandsWithoutItsProperty_WhenThatCantBeSet) {
  SimulatedDesktop desktop("{}");
  const PlainWindow owner;
  desktop.setFaults(faultOf("SetPropW", "false"));
  EXPECT_TRUE(ensureCleanBackgroundWindow(owner.get(), panelPlace));
  EXPECT_EQ(propertyOf(cleanBackgroundState().cleanBackgroundWindow), nullptr);
  destroyCleanBackgroundOf(owner.get());
}

TEST_F(CleanBackgroundWindow, GoesWithItsOwnerAlone) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow other({0, 0, 50, 50}, L"Other");
  const Pair pair;
  destroyCleanBackgroundOf(other.get());
  destroyCleanBackgroundOf(nullptr);
  EXPECT_TRUE(::IsWindow(pair.panel()));
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, pair.owner.get());
  const HWND panel = pair.panel();

  destroyCleanBackgroundOf(pair.owner.get());

  EXPECT_FALSE(::IsWindow(panel));
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundWindow, nullptr);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, nullptr);
  destroyCleanBackgroundOf(pair.owner.get());
  EXPECT_EQ(desktop.platformCalls("DestroyWindow"), 1) << "once is enough";
}

TEST_F(CleanBackgroundWindow, IsForgotten_WhenItEnds) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  EXPECT_EQ(::SendMessageW(pair.panel(), WM_NULL, 0, 0), 0);
  const HWND panel = pair.panel();
  ::DestroyWindow(panel);
  EXPECT_EQ(desktop.platformCalls("RemovePropW"), 1);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundWindow, nullptr);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundOwner, pair.owner.get()) << "until the owner goes";
}

TEST_F(CleanBackgroundWindow, ForgetsNoOtherPanel_WhenItEnds) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  const HWND former = pair.panel();
  const PlainWindow other({0, 0, 50, 50}, L"Other");
  cleanBackgroundState().cleanBackgroundWindow = other.get();
  ::DestroyWindow(former);
  EXPECT_EQ(cleanBackgroundState().cleanBackgroundWindow, other.get());
  cleanBackgroundState() = {};
}

TEST_F(CleanBackgroundWindow, HidesAndStays_WhenTheUserClosesIt) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  pair.show();
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(::SendMessageW(pair.panel(), WM_CLOSE, 0, 0), 0);
    EXPECT_TRUE(::IsWindow(pair.panel()));
    EXPECT_FALSE(::IsWindowVisible(pair.panel()));
    EXPECT_TRUE(cleanBackgroundState().temporarilyClosed);
  }
}

TEST_F(CleanBackgroundWindow, LimitsItsTrackingSizeByTheDpi) {
  for (const int dpi : {96, 120, 144, 192}) {
    const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
    const Pair pair;
    MINMAXINFO limits{};
    limits.ptMaxTrackSize = {7, 8};
    EXPECT_EQ(::SendMessageW(pair.panel(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits)), 0);
    EXPECT_EQ(limits.ptMinTrackSize.x, ::MulDiv(160, dpi, 96));
    EXPECT_EQ(limits.ptMinTrackSize.y, ::MulDiv(80, dpi, 96));
    EXPECT_EQ(limits.ptMaxTrackSize.x, 7);
    EXPECT_EQ(limits.ptMaxTrackSize.y, 8);
  }
}

TEST_F(CleanBackgroundWindow, LeavesOtherMessagesToThePlatform) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  pair.show();
  const std::int64_t before = desktop.platformCalls("DefWindowProcW");
  EXPECT_EQ(::SendMessageW(pair.panel(), WM_ERASEBKGND, 0, 0), 1);
  EXPECT_EQ(::SendMessageW(pair.panel(), WM_EXITSIZEMOVE, 0, 0), 0);
  EXPECT_EQ(desktop.platformCalls("DefWindowProcW"), before);
  EXPECT_EQ(::SendMessageW(pair.panel(), WM_ENTERSIZEMOVE, 0, 0), 0);
  EXPECT_EQ(::SendMessageW(pair.panel(), 0x8153, 0, 0), 0) << "means nothing to the panel";
  EXPECT_EQ(desktop.platformCalls("DefWindowProcW"), before + 2);
}

TEST_F(CleanBackgroundWindow, GoesBackBehind_WhenADragEnds) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "instance", "process": "orvane.exe"},
                                           {"id": "foreign", "process": "notepad.exe"}]})");
  const Pair pair;
  pair.show();
  ::BringWindowToTop(pair.panel());
  desktop.bringToFront("instance");
  ASSERT_EQ(desktop.zOrder(), (Ids{"instance", "backdrop", "main", "foreign"}));
  ::SendMessageW(pair.panel(), WM_EXITSIZEMOVE, 0, 0);
  EXPECT_EQ(desktop.zOrder(), (Ids{"instance", "main", "backdrop", "foreign"}));
}

TEST_F(CleanBackgroundWindow, StaysWhereItIs_WhenADragEndsAndAnotherProgramIsInFront) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "foreign", "process": "notepad.exe"}]})");
  const Pair pair;
  pair.show();
  ::BringWindowToTop(pair.panel());
  desktop.bringToFront("foreign");
  ::SendMessageW(pair.panel(), WM_EXITSIZEMOVE, 0, 0);
  EXPECT_EQ(desktop.zOrder(), (Ids{"foreign", "backdrop", "main"}));
}

// What the panel painted since the last asking; it paints nothing that isn't to be drawn.
std::vector<FilledArea> paintedNow(SimulatedDesktop& desktop, HWND panel) {
  auto& painted = desktop.platform().records().painted;
  painted.clear();
  EXPECT_EQ(::SendMessageW(panel, WM_PAINT, 0, 0), 0);
  std::vector<FilledArea> areas;
  for (const auto& one : painted) {
    areas.push_back(std::get<FilledArea>(one));
  }
  return areas;
}

TEST_F(CleanBackgroundWindow, TakesTheSuggestedPlaceAndIsDrawnAgain_WhenTheDpiChanges) {
  SimulatedDesktop desktop("{}");
  const Pair pair;
  pair.show();
  paintedNow(desktop, pair.panel());
  ASSERT_TRUE(paintedNow(desktop, pair.panel()).empty()) << "all is drawn";
  const PlainWindow above({0, 0, 50, 50}, L"Above");
  ASSERT_EQ(desktop.zOrder(), (Ids{"above", "backdrop", "main"}));
  RECT suggested{10, 20, 710, 420};
  EXPECT_EQ(::SendMessageW(pair.panel(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested)), 0);
  EXPECT_EQ(sidesOf(pair.panel()), sides(suggested));
  EXPECT_EQ(paintedNow(desktop, pair.panel()).size(), 1U);
  EXPECT_EQ(desktop.foreground(), "main") << "it isn't activated";
  EXPECT_EQ(desktop.zOrder(), (Ids{"above", "backdrop", "main"}));
}

TEST_F(CleanBackgroundWindow, IsDrawnAgain_WhenTheDpiChangesAndItCantBeMoved) {
  SimulatedDesktop desktop("{}");
  const Pair pair;
  pair.show();
  paintedNow(desktop, pair.panel());
  desktop.setFaults(faultOf("SetWindowPos", "false"));
  RECT suggested{10, 20, 710, 420};
  EXPECT_EQ(::SendMessageW(pair.panel(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested)), 0);
  EXPECT_EQ(sidesOf(pair.panel()), sides(panelPlace));
  EXPECT_EQ(paintedNow(desktop, pair.panel()).size(), 1U);
}

TEST_F(CleanBackgroundWindow, IsFilledWithItsColourAndNothingElse) {
  SimulatedDesktop desktop("{}");
  const Pair pair;
  pair.show();
  cleanBackgroundState().cleanBackgroundColor = 0x123456;
  const std::vector<FilledArea> areas = paintedNow(desktop, pair.panel());
  ASSERT_EQ(areas.size(), 1U);
  EXPECT_EQ(areas[0].surface.window, "backdrop");
  EXPECT_EQ(areas[0].color, 0x123456U);
  EXPECT_EQ(areas[0].bounds, (simulation::Rectangle{0, 0, 412 - 16, 200 - 39}));
  EXPECT_EQ(desktop.held("gdiObjects"), 0);
}

TEST_F(CleanBackgroundWindow, TakesNoHarm_WhenAStepOfDrawingFails) {
  SimulatedDesktop desktop("{}");
  const Pair pair;
  pair.show();
  for (const auto& [call, result] :
       {std::pair{"BeginPaint", "null"}, {"GetClientRect", "false"}, {"CreateSolidBrush", "null"}, {"FillRect", "0"}}) {
    ::InvalidateRect(pair.panel(), nullptr, TRUE);
    desktop.setFaults(faultOf(call, result));
    paintedNow(desktop, pair.panel());
    desktop.setFaults("[]");
    EXPECT_EQ(desktop.held("gdiObjects"), 0) << call;
  }
  ::InvalidateRect(pair.panel(), nullptr, TRUE);
  EXPECT_EQ(paintedNow(desktop, pair.panel()).size(), 1U) << "the next drawing is whole";
}

TEST_F(CleanBackgroundWindow, ComesBackBelowItsOwner_WhenItIsAskedTo) {
  SimulatedDesktop desktop(R"({"windows": [{"id": "foreign", "process": "notepad.exe"}]})");
  const Pair pair;
  cleanBackgroundState().temporarilyClosed = true;
  desktop.bringToFront("foreign");
  const RECT wanted = computeCleanBackgroundRect(pair.owner.get(), PanelHeight::present);
  ASSERT_NE(sides(wanted), sides(panelPlace));

  EXPECT_EQ(::SendMessageW(pair.panel(), restoreCleanBackgroundMessage, 0, 0), 0);

  EXPECT_FALSE(cleanBackgroundState().temporarilyClosed);
  EXPECT_TRUE(::IsWindowVisible(pair.panel()));
  EXPECT_EQ(sidesOf(pair.panel()), sides(wanted));
  EXPECT_EQ(desktop.foreground(), "foreign") << "it isn't activated";
  EXPECT_EQ(desktop.zOrder(), (Ids{"foreign", "main", "backdrop"})) << "though another program is in front";
}

TEST_F(CleanBackgroundWindow, IsNotActivated_WhenItIsTheFirstWindowShown) {
  const SimulatedDesktop desktop(
      R"({"windows": [{"id": "foreign", "process": "notepad.exe"}], "foreground": "foreign"})");
  const PlainWindow owner({300, 100, 700, 600}, L"Owner", WS_OVERLAPPEDWINDOW);
  ASSERT_TRUE(ensureCleanBackgroundWindow(owner.get(), panelPlace));
  const HWND panel = cleanBackgroundState().cleanBackgroundWindow;
  ::SendMessageW(panel, restoreCleanBackgroundMessage, 0, 0);
  EXPECT_TRUE(::IsWindowVisible(panel));
  EXPECT_EQ(desktop.foreground(), "foreign");
  destroyCleanBackgroundOf(owner.get());
}

TEST_F(CleanBackgroundWindow, IsRestored_WhenItWasIconic) {
  SimulatedDesktop desktop("{}");
  const Pair pair;
  pair.show();
  ::ShowWindow(pair.panel(), SW_MINIMIZE);
  cleanBackgroundState().cleanBackgroundHeight = 150.0;
  const RECT wanted = computeCleanBackgroundRect(pair.owner.get(), PanelHeight::present);
  ASSERT_EQ(wanted.bottom - wanted.top, 150) << "the iconic height doesn't count";
  ::SendMessageW(pair.panel(), restoreCleanBackgroundMessage, 0, 0);
  EXPECT_FALSE(::IsIconic(pair.panel()));
  EXPECT_TRUE(::IsWindowVisible(pair.panel()));
  EXPECT_EQ(sidesOf(pair.panel()), sides(wanted));
}

TEST_F(CleanBackgroundWindow, ComesBackAtTheFixedPlace_WhenItsOwnerIsGone) {
  const SimulatedDesktop desktop("{}");
  const Pair pair;
  cleanBackgroundState().cleanBackgroundOwner = nullptr;
  ::SendMessageW(pair.panel(), restoreCleanBackgroundMessage, 0, 0);
  EXPECT_EQ(sidesOf(pair.panel()), (std::vector<LONG>{8, 8, 808, 208}));
  cleanBackgroundState().cleanBackgroundOwner = pair.owner.get();
}

TEST_F(CleanBackgroundWindow, IsShown_WhenItComesBackAndCantBePlaced) {
  SimulatedDesktop desktop("{}");
  const Pair pair;
  cleanBackgroundState().temporarilyClosed = true;
  desktop.setFaults(faultOf("SetWindowPos", "false"));
  EXPECT_EQ(::SendMessageW(pair.panel(), restoreCleanBackgroundMessage, 0, 0), 0);
  EXPECT_TRUE(::IsWindowVisible(pair.panel()));
  EXPECT_FALSE(cleanBackgroundState().temporarilyClosed);
  EXPECT_EQ(desktop.platformCalls("SetWindowPos"), 2) << "place and order are tried once each";
}

}  // namespace
}  // namespace orvane
