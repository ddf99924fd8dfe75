#pragma once

#include <windows.h>

#include <deque>
#include <optional>
#include <vector>

namespace orvane::standins {

// Keeps the z-order as the programs made it. The display here learns only of windows that come to
// the top; of one that is put further down it shows the old place, tells its owner that this part is
// seen, and the platform then takes it for the window above. So an order is looked at again when the
// display has had its say, and made anew from below where it has changed.
class Stacking {
 public:
  // Top first; only windows that are seen count.
  void want(std::vector<HWND> order);
  // As the windows with a name of the scenario stand now; nothing to do where that is known already,
  // and while it is this that moves them.
  void wantPresent();

  // Call again and again. True when the order stands.
  bool settle();

 private:
  std::vector<HWND> wanted_;
  std::optional<ULONGLONG> nextLookTick_;  // nullopt: it stands
  std::deque<HWND> toRaise_;               // lowest first
  bool isRaising_ = false;
  int looks_ = 0;
};

}  // namespace orvane::standins
