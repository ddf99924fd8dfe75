#pragma once

#include <windows.h>

#include <atomic>
#include <optional>
#include <thread>

namespace orvane::standins {

// Somebody at the keyboard while the host may open a menu: chooses from the first one that shows up,
// or dismisses it. An entry beyond the menu's is a dismissal.
class MenuPerson {
 public:
  explicit MenuPerson(std::optional<int> entry);  // from 1; nullopt: dismisses
  ~MenuPerson();
  MenuPerson(const MenuPerson&) = delete;
  MenuPerson& operator=(const MenuPerson&) = delete;

  bool hasSeenMenu() const { return hasSeenMenu_; }

 private:
  void watch();
  HWND awaitMenu() const;

  std::optional<int> entry_;
  DWORD hostThread_;
  std::atomic<bool> isOver_ = false;
  std::atomic<bool> hasSeenMenu_ = false;
  std::thread thread_;
};

}  // namespace orvane::standins
