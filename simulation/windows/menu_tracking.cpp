// A menu while it is open: measured and drawn by its owner, then chosen from or dismissed by a person.
#include <windows.h>

#include <algorithm>

#include "windows/call.h"
#include "windows/message_loop.h"
#include "windows/messages.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

constexpr UINT modelledFlags = TPM_RIGHTALIGN | TPM_NONOTIFY | TPM_RETURNCMD;

struct ShownEntry {
  MenuEntry entry;
  UINT width = 0;
  UINT height = 0;
  RECT area{};  // in the menu's own coordinates
};

class OpenMenu {
 public:
  OpenMenu(PlatformState& state, HMENU menu, const Window& owner) : state_(state), menu_(menu), owner_(owner) {
    state_.menus.open = menu;
    number_ = ++state_.menus.openedCount;
    for (const MenuEntry& entry : state_.menus.menus.at(menu)) entries_.push_back({entry, 0, 0, {}});
  }
  ~OpenMenu() { state_.menus.open = nullptr; }
  OpenMenu(const OpenMenu&) = delete;
  OpenMenu& operator=(const OpenMenu&) = delete;

  void measure() {
    for (ShownEntry& shown : entries_) {
      MEASUREITEMSTRUCT asked{ODT_MENU, 0, shown.entry.id, 0, 0, shown.entry.data};
      sendMessage(state_, owner_, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&asked));
      shown.width = asked.itemWidth;
      shown.height = asked.itemHeight;
    }
  }

  // One below the other, all as wide as the widest.
  void layOut() {
    UINT width = 0;
    for (const ShownEntry& shown : entries_) width = std::max(width, shown.width);
    LONG top = 0;
    for (ShownEntry& shown : entries_) {
      shown.area = {0, top, static_cast<LONG>(width), top + static_cast<LONG>(shown.height)};
      top = shown.area.bottom;
    }
  }

  void record(int x, int y, UINT flags) {
    OpenedMenu opened{number_, x, y, flags, owner_.id, {}, {}};
    for (const ShownEntry& shown : entries_) opened.entries.push_back({shown.entry.id, shown.width, shown.height});
    place_ = state_.records.painted.size();
    state_.records.painted.emplace_back(std::move(opened));
  }

  void draw() {
    for (const ShownEntry& shown : entries_) draw(shown, ODA_DRAWENTIRE, 0);
  }

  // The id of what a person picks; 0 when the menu is dismissed.
  UINT choose(std::optional<int> choice) {
    if (!choice || *choice < 1 || *choice > static_cast<int>(entries_.size())) return 0;
    const ShownEntry& shown = entries_[static_cast<std::size_t>(*choice - 1)];
    draw(shown, ODA_SELECT, ODS_SELECTED);
    std::get<OpenedMenu>(state_.records.painted[place_]).chosen = shown.entry.id;
    return shown.entry.id;
  }

 private:
  void draw(const ShownEntry& shown, UINT action, UINT itemState) {
    DeviceContext plan;
    plan.origin = DeviceContext::Origin::menu;
    plan.menu = number_;
    const HDC context = openContext(state_, plan);
    DRAWITEMSTRUCT asked{ODT_MENU, 0,          shown.entry.id,  action, itemState, reinterpret_cast<HWND>(menu_),
                         context,  shown.area, shown.entry.data};
    sendMessage(state_, owner_, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&asked));
    closeContext(state_, "WM_DRAWITEM", context);
  }

  PlatformState& state_;
  HMENU menu_;
  const Window& owner_;
  int number_ = 0;
  std::size_t place_ = 0;
  std::vector<ShownEntry> entries_;
};

void requireModelled(UINT flags, LPTPMPARAMS parameters) {
  if (flags != modelledFlags) stopRun("TrackPopupMenuEx", "flags that aren't modelled");
  if (parameters != nullptr) stopRun("TrackPopupMenuEx", "an area to leave free isn't modelled");
}

void requireOwnWindow(PlatformState& state, const Window& owner) {
  const HostWindow* const own = state.hostWindow(&owner);
  if (own == nullptr) stopRun("TrackPopupMenuEx", "another program's window as the owner");
  if (own->thread != Clock::currentThread()) stopRun("TrackPopupMenuEx", "an owner of another thread isn't modelled");
}

// The menu closes with its owner and with the program.
BOOL track(PlatformState& state, HMENU menu, int x, int y, const Window& owner, UINT flags) {
  const std::optional<int> choice = std::exchange(state.desktop.nextMenuChoice, std::nullopt);
  OpenMenu opened(state, menu, owner);
  opened.measure();
  opened.layOut();
  opened.record(x, y, flags);
  if (!pumpWaiting(state) || owner.destroyed) return 0;
  opened.draw();
  return owner.destroyed ? 0 : static_cast<BOOL>(opened.choose(choice));
}

}  // namespace

BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, LPTPMPARAMS parameters) {
  PlatformState& state = stateFor("TrackPopupMenuEx");
  const Window* const about = state.liveWindow(owner);
  if (const auto fault = enter("TrackPopupMenuEx", about)) return faulted<BOOL>(*fault);
  requireModelled(flags, parameters);
  const auto found = state.menus.menus.find(menu);
  if (found == state.menus.menus.end()) return failWith(ERROR_INVALID_MENU_HANDLE, 0);
  if (about == nullptr) return failWith(ERROR_INVALID_WINDOW_HANDLE, 0);
  requireOwnWindow(state, *about);
  if (state.menus.open != nullptr) return failWith(ERROR_POPUP_ALREADY_ACTIVE, 0);
  return found->second.empty() ? 0 : track(state, menu, x, y, *about, flags);
}
