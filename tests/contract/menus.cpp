// Menus that their owner measures and draws, and what a person's choice gives back.
#include <windows.h>

#include <algorithm>
#include <vector>

#include "contract/contract_world.h"
#include "contract/drawn_window.h"

namespace orvane::contract {
namespace {

constexpr UINT trackingFlags = TPM_RIGHTALIGN | TPM_NONOTIFY | TPM_RETURNCMD;
constexpr UINT entryWidth = 80;
constexpr UINT entryHeight = 30;
constexpr UINT whileOpen = WM_APP + 1;

struct DrawnEntry {
  DRAWITEMSTRUCT asked{};
  bool isBehindMeasuring = false;
};

class Menus : public ContractTest {
 protected:
  Menus() {
    window_.handle([this](HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
      if (message == whileOpen) ++handledWhileOpen_;
      if (message == whileOpen && destroysOwner_) ::DestroyWindow(window_.get());
      if (message == whileOpen && opensAgain_) openAgain();
      if (message != WM_MEASUREITEM && message != WM_DRAWITEM) return false;
      EXPECT_EQ(wParam, 0u);
      result = TRUE;
      if (message == WM_MEASUREITEM) measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
      if (message == WM_DRAWITEM) draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return true;
    });
    ::ShowWindow(window_.get(), SW_SHOWNORMAL);
    handleWaiting(window_.get());
    menu_ = ::CreatePopupMenu();
  }
  ~Menus() override { ::DestroyMenu(menu_); }

  static BOOL append(HMENU menu, UINT id, ULONG_PTR data) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_DATA;
    info.fType = MFT_OWNERDRAW;
    info.wID = id;
    info.dwItemData = data;
    return ::InsertMenuItemW(menu, static_cast<UINT>(-1), TRUE, &info);
  }

  void fillMenu() {
    ASSERT_NE(append(menu_, 11, 101), FALSE);
    ASSERT_NE(append(menu_, 12, 102), FALSE);
    ASSERT_NE(append(menu_, 13, 103), FALSE);
  }

  BOOL track() { return ::TrackPopupMenuEx(menu_, trackingFlags, 300, 200, window_.get(), nullptr); }

  void measure(MEASUREITEMSTRUCT& asked) {
    measured_.push_back(asked);
    asked.itemWidth = entryWidth;
    asked.itemHeight = entryHeight + 10 * (asked.itemID - 11);
  }

  void draw(const DRAWITEMSTRUCT& asked) {
    drawn_.push_back({asked, measured_.size() == 3});
    EXPECT_NE(asked.hDC, nullptr);
  }

  void openAgain() {
    ::SetLastError(ERROR_SUCCESS);
    nestedResult_ = ::TrackPopupMenuEx(menu_, trackingFlags, 300, 200, window_.get(), nullptr);
    nestedError_ = ::GetLastError();
  }

  // The first drawing of each entry: the platform may draw one more than once.
  std::vector<DrawnEntry> firstDrawings() const {
    std::vector<DrawnEntry> first;
    for (const DrawnEntry& entry : drawn_) {
      const bool isKnown = std::any_of(first.begin(), first.end(), [&entry](const DrawnEntry& known) {
        return known.asked.itemID == entry.asked.itemID;
      });
      if (!isKnown && entry.asked.itemAction == ODA_DRAWENTIRE) first.push_back(entry);
    }
    return first;
  }

  std::vector<MEASUREITEMSTRUCT> measured_;
  std::vector<DrawnEntry> drawn_;
  int handledWhileOpen_ = 0;
  bool destroysOwner_ = false;
  bool opensAgain_ = false;
  BOOL nestedResult_ = -1;
  DWORD nestedError_ = 0;
  DrawnWindow window_;
  HMENU menu_ = nullptr;
};

TEST_F(Menus, Entries_AreMeasuredInOrder_WithTheirIdsAndData) {
  fillMenu();
  track();
  ASSERT_EQ(measured_.size(), 3u);
  for (UINT index = 0; index < 3; ++index) {
    EXPECT_EQ(measured_[index].CtlType, static_cast<UINT>(ODT_MENU));
    EXPECT_EQ(measured_[index].itemID, 11 + index);
    EXPECT_EQ(measured_[index].itemData, 101 + index);
  }
}

TEST_F(Menus, Entries_AreDrawnInOrder_WhenAllAreMeasured) {
  fillMenu();
  track();
  const std::vector<DrawnEntry> drawings = firstDrawings();
  ASSERT_EQ(drawings.size(), 3u);
  for (UINT index = 0; index < 3; ++index) {
    const DRAWITEMSTRUCT& asked = drawings[index].asked;
    EXPECT_TRUE(drawings[index].isBehindMeasuring);
    EXPECT_EQ(asked.CtlType, static_cast<UINT>(ODT_MENU));
    EXPECT_EQ(asked.itemID, 11 + index);
    EXPECT_EQ(asked.itemData, 101 + index);
    EXPECT_EQ(asked.itemState & ODS_SELECTED, 0u);
    EXPECT_EQ(reinterpret_cast<HMENU>(asked.hwndItem), menu_);
  }
}

TEST_F(Menus, Entries_LieOneBelowTheOther_EquallyWide) {
  fillMenu();
  track();
  const std::vector<DrawnEntry> drawings = firstDrawings();
  ASSERT_EQ(drawings.size(), 3u);
  for (UINT index = 0; index < 3; ++index) {
    const RECT& area = drawings[index].asked.rcItem;
    EXPECT_EQ(area.bottom - area.top, static_cast<LONG>(entryHeight + 10 * index));
    EXPECT_GE(area.right - area.left, static_cast<LONG>(entryWidth));
    EXPECT_EQ(area.right - area.left, drawings[0].asked.rcItem.right - drawings[0].asked.rcItem.left);
    const LONG above = index == 0 ? area.top : drawings[index - 1].asked.rcItem.bottom;
    EXPECT_EQ(area.top, above);
  }
}

TEST_F(Menus, Choice_GivesItsId_AndIsDrawnSelected) {
  fillMenu();
  chooseInNextMenu(2);
  EXPECT_EQ(track(), 12);
  const auto selected = std::find_if(drawn_.begin(), drawn_.end(), [](const DrawnEntry& entry) {
    return entry.asked.itemID == 12 && (entry.asked.itemState & ODS_SELECTED) != 0;
  });
  ASSERT_NE(selected, drawn_.end());
  EXPECT_EQ(selected->asked.itemData, 102u);
}

TEST_F(Menus, Dismissal_GivesZero) {
  fillMenu();
  EXPECT_EQ(track(), 0);
}

TEST_F(Menus, Choice_HoldsForOneMenuOnly) {
  fillMenu();
  chooseInNextMenu(1);
  EXPECT_EQ(track(), 11);
  EXPECT_EQ(track(), 0);
}

TEST_F(Menus, Messages_AreHandledWhileOneIsOpen) {
  fillMenu();
  ::PostMessageW(window_.get(), whileOpen, 0, 0);
  track();
  EXPECT_EQ(handledWhileOpen_, 1);
}

TEST_F(Menus, Second_IsRefused_WhileOneIsOpen) {
  fillMenu();
  opensAgain_ = true;
  ::PostMessageW(window_.get(), whileOpen, 0, 0);
  track();
  EXPECT_EQ(nestedResult_, FALSE);
  EXPECT_EQ(nestedError_, static_cast<DWORD>(ERROR_POPUP_ALREADY_ACTIVE));
}

TEST_F(Menus, OwnersEnd_EndsTheMenu) {
  fillMenu();
  destroysOwner_ = true;
  ::PostMessageW(window_.get(), whileOpen, 0, 0);
  chooseInNextMenu(1);
  EXPECT_EQ(track(), 0);
}

TEST_F(Menus, Tracking_Fails_WithoutAnOwner) {
  fillMenu();
  EXPECT_EQ(::TrackPopupMenuEx(menu_, trackingFlags, 0, 0, nullptr, nullptr), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
  EXPECT_TRUE(measured_.empty());
}

TEST_F(Menus, Calls_Fail_WithoutAMenu) {
  EXPECT_EQ(append(nullptr, 1, 0), FALSE);
  EXPECT_EQ(::DestroyMenu(nullptr), FALSE);
  EXPECT_EQ(::TrackPopupMenuEx(nullptr, trackingFlags, 0, 0, window_.get(), nullptr), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_MENU_HANDLE));
}

TEST_F(Menus, Inserting_Fails_WhenTheSizeIsWrong) {
  MENUITEMINFOW info{};
  info.cbSize = 12;
  info.fMask = MIIM_ID;
  EXPECT_EQ(::InsertMenuItemW(menu_, static_cast<UINT>(-1), TRUE, &info), FALSE);
}

}  // namespace
}  // namespace orvane::contract
