#include <windows.h>

#include <string>

#include "drawing_window.h"
#include "scenario/painted_report.h"
#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

constexpr UINT trackingFlags = TPM_RIGHTALIGN | TPM_NONOTIFY | TPM_RETURNCMD;

class WindowsMenusTest : public ::testing::Test {
 protected:
  WindowsMenusTest() {
    window.handle([this](HWND own, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
      if (message == WM_MEASUREITEM) return measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
      if (message == WM_DRAWITEM) return draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      if (message == WM_APP && quitsWhileOpen) ::PostQuitMessage(4);
      if (message == WM_APP && destroysMenuWhileOpen) ::DestroyMenu(menu);
      return ::DefWindowProcW(own, message, wParam, lParam);
    });
    menu = ::CreatePopupMenu();
  }
  ~WindowsMenusTest() override { ::DestroyMenu(menu); }

  BOOL append(UINT id, UINT kind = MFT_OWNERDRAW, UINT place = static_cast<UINT>(-1)) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_DATA;
    info.fType = kind;
    info.wID = id;
    return ::InsertMenuItemW(menu, place, TRUE, &info);
  }

  BOOL track(UINT flags = trackingFlags) { return ::TrackPopupMenuEx(menu, flags, 300, 200, window.get(), nullptr); }

  LRESULT measure(MEASUREITEMSTRUCT& asked) {
    EXPECT_EQ(asked.itemWidth + asked.itemHeight, 0u);
    asked.itemWidth = 40 + 10 * asked.itemID;
    asked.itemHeight = 20 + asked.itemID;
    return TRUE;
  }

  LRESULT draw(const DRAWITEMSTRUCT& asked) {
    ++drawn;
    const HBRUSH brush = ::CreateSolidBrush((asked.itemState & ODS_SELECTED) != 0 ? 9 : asked.itemID);
    ::FillRect(asked.hDC, &asked.rcItem, brush);
    if (leavesItSelected) ::SelectObject(asked.hDC, brush);
    ::DeleteObject(brush);
    return TRUE;
  }

  std::string report() { return writeJson(describePainted(desktop.platform().records().painted)); }

  SimulatedDesktop desktop{"{}"};
  DrawingWindow window;
  HMENU menu = nullptr;
  int drawn = 0;
  bool quitsWhileOpen = false;
  bool destroysMenuWhileOpen = false;
  bool leavesItSelected = false;
};

TEST_F(WindowsMenusTest, Report_HasTheMenuAndWhatWasDrawnInIt) {
  append(1);
  append(2);
  desktop.world().nextMenuChoice = 2;
  EXPECT_EQ(track(), 2);
  EXPECT_EQ(report(),
            R"([{"menu":1,"point":[300,200],"flags":392,"owner":"main","entries":[{"id":1,"width":50,"height":21},)"
            R"({"id":2,"width":60,"height":22}],"chosen":2},{"menu":1,"fill":1,"bounds":[0,0,60,21]},)"
            R"({"menu":1,"fill":2,"bounds":[0,21,60,43]},{"menu":1,"fill":9,"bounds":[0,21,60,43]}])");
}

TEST_F(WindowsMenusTest, Menus_AreNumbered_AndTheDismissedOnesChooseNothing) {
  append(1);
  desktop.world().nextMenuChoice = 2;
  EXPECT_EQ(track(), 0);
  EXPECT_EQ(desktop.world().nextMenuChoice, std::nullopt);
  EXPECT_EQ(track(), 0);
  EXPECT_EQ(report(),
            R"([{"menu":1,"point":[300,200],"flags":392,"owner":"main","entries":[{"id":1,"width":50,"height":21}],)"
            R"("chosen":null},{"menu":1,"fill":1,"bounds":[0,0,50,21]},)"
            R"({"menu":2,"point":[300,200],"flags":392,"owner":"main","entries":[{"id":1,"width":50,"height":21}],)"
            R"("chosen":null},{"menu":2,"fill":1,"bounds":[0,0,50,21]}])");
}

TEST_F(WindowsMenusTest, EmptyMenu_ShowsNothing_AndLeavesTheChoiceForTheNext) {
  desktop.world().nextMenuChoice = 1;
  EXPECT_EQ(track(), 0);
  EXPECT_EQ(report(), "[]");
  append(1);
  EXPECT_EQ(track(), 1);
}

TEST_F(WindowsMenusTest, Quit_ClosesTheMenu_AndStillWaits) {
  append(1);
  desktop.world().nextMenuChoice = 1;
  quitsWhileOpen = true;
  ::PostMessageW(window.get(), WM_APP, 0, 0);
  EXPECT_EQ(track(), 0);
  EXPECT_EQ(drawn, 0);
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), FALSE);
  EXPECT_EQ(message.wParam, 4u);
}

TEST_F(WindowsMenusTest, Window_IsPainted_WhileTheMenuIsOpen) {
  window.show();
  append(1);
  track();
  ::PostMessageW(window.get(), WM_APP, 0, 0);
  MSG message{};
  ::GetMessageW(&message, nullptr, 0, 0);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_APP));
  ::PostQuitMessage(0);
  EXPECT_FALSE(handleNextMessage());
  EXPECT_EQ(desktop.nowMs(), 0);
}

TEST_F(WindowsMenusTest, Faults_GiveTheirResultAndHaveNoEffect) {
  desktop.setFaults(R"([{"call": "InsertMenuItemW", "result": false}, {"call": "TrackPopupMenuEx", "result": 7},
    {"call": "CreatePopupMenu", "result": null}, {"call": "DestroyMenu", "result": false}])");
  EXPECT_EQ(append(1), FALSE);
  EXPECT_NE(append(2), FALSE);
  desktop.world().nextMenuChoice = 1;
  EXPECT_EQ(track(), 7);
  EXPECT_EQ(report(), "[]");
  EXPECT_EQ(track(), 2);
  EXPECT_EQ(::CreatePopupMenu(), nullptr);
  EXPECT_EQ(::DestroyMenu(menu), FALSE);
  EXPECT_EQ(desktop.held("menus"), 1);
}

using WindowsMenusDeathTest = WindowsMenusTest;

TEST_F(WindowsMenusDeathTest, Run_Stops_AtWhatIsNotModelled) {
  append(1);
  EXPECT_EXIT(append(2, 0), ::testing::ExitedWithCode(3), "simulation: InsertMenuItemW: ");
  EXPECT_EXIT(append(2, MFT_OWNERDRAW, 0), ::testing::ExitedWithCode(3), "simulation: InsertMenuItemW: ");
  EXPECT_EXIT(track(TPM_RETURNCMD), ::testing::ExitedWithCode(3), "simulation: TrackPopupMenuEx: ");
}

TEST_F(WindowsMenusDeathTest, Run_Stops_WhenAMenuIsUsedBehindItsTime) {
  const HMENU other = ::CreatePopupMenu();
  ::DestroyMenu(other);
  EXPECT_EXIT(::DestroyMenu(other), ::testing::ExitedWithCode(3), "simulation: DestroyMenu: a menu that was destroyed");
}

TEST_F(WindowsMenusDeathTest, Run_Stops_WhenAnOpenMenuIsChanged) {
  append(1);
  destroysMenuWhileOpen = true;
  ::PostMessageW(window.get(), WM_APP, 0, 0);
  EXPECT_EXIT(track(), ::testing::ExitedWithCode(3), "simulation: DestroyMenu: changing a menu that is open");
}

TEST_F(WindowsMenusDeathTest, Run_Stops_WhenAnEntryLeavesAnObjectSelected) {
  append(1);
  leavesItSelected = true;
  EXPECT_EXIT(track(), ::testing::ExitedWithCode(3), "simulation: DeleteObject: the object is selected");
}

}  // namespace
}  // namespace orvane::simulation
