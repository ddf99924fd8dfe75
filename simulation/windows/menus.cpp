// Menus: how they are made and filled.
#include "windows/menus.h"

#include "windows/call.h"
#include "windows/state.h"

using namespace orvane::simulation;

namespace {

constexpr std::uintptr_t firstMenu = 0x00050021;
constexpr std::uintptr_t handleStep = 0x10;
constexpr UINT atTheEnd = static_cast<UINT>(-1);

HMENU nthMenu(std::uintptr_t index) { return reinterpret_cast<HMENU>(firstMenu + handleStep * index); }

// Null, with the last error set, when there is none.
std::vector<MenuEntry>* entriesOf(PlatformState& state, const char* call, HMENU menu) {
  const auto found = state.menus.menus.find(menu);
  if (found == state.menus.menus.end()) {
    for (std::uintptr_t index = 0; index < state.menus.created; ++index) {
      if (nthMenu(index) == menu) stopRun(call, "a menu that was destroyed");
    }
    return failWith<std::vector<MenuEntry>*>(ERROR_INVALID_MENU_HANDLE);
  }
  if (state.menus.open == menu) stopRun(call, "changing a menu that is open isn't modelled");
  return &found->second;
}

void requireModelled(UINT item, BOOL byPosition, const MENUITEMINFOW& info) {
  constexpr const char* call = "InsertMenuItemW";
  if (item != atTheEnd || byPosition == FALSE) stopRun(call, "a place other than the end isn't modelled");
  if (info.fMask != (MIIM_FTYPE | MIIM_ID | MIIM_DATA) || info.fType != MFT_OWNERDRAW) {
    stopRun(call, "an entry that isn't drawn by its owner isn't modelled");
  }
}

}  // namespace

HMENU CreatePopupMenu() {
  PlatformState& state = stateFor("CreatePopupMenu");
  if (const auto fault = enter("CreatePopupMenu")) return faulted<HMENU>(*fault);
  const HMENU menu = nthMenu(state.menus.created++);
  state.menus.menus.emplace(menu, std::vector<MenuEntry>());
  holdNow(held_kind::menus, 1);
  return menu;
}

BOOL DestroyMenu(HMENU menu) {
  PlatformState& state = stateFor("DestroyMenu");
  if (const auto fault = enter("DestroyMenu")) return faulted<BOOL>(*fault);
  if (entriesOf(state, "DestroyMenu", menu) == nullptr) return FALSE;
  state.menus.menus.erase(menu);
  holdNow(held_kind::menus, -1);
  return TRUE;
}

BOOL InsertMenuItemW(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info) {
  PlatformState& state = stateFor("InsertMenuItemW");
  if (const auto fault = enter("InsertMenuItemW")) return faulted<BOOL>(*fault);
  if (info == nullptr || info->cbSize != sizeof *info) return failWith(ERROR_INVALID_PARAMETER, FALSE);
  std::vector<MenuEntry>* const entries = entriesOf(state, "InsertMenuItemW", menu);
  if (entries == nullptr) return FALSE;
  requireModelled(item, byPosition, *info);
  entries->push_back({info->wID, info->dwItemData});
  return TRUE;
}
