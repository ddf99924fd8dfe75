#include "flutter_windows/stacking.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "common/link.h"
#include "flutter_windows/host_person.h"

namespace orvane::standins {
namespace {

constexpr ULONGLONG untilShownMs = 30;
constexpr int mostLooks = 5;

std::vector<HWND> seenWindows() {
  std::vector<HWND> seen;
  ::EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        if (isSeen(window) && nameOfWindow(window)) reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&seen));
  return seen;
}

bool contains(const std::vector<HWND>& windows, HWND window) {
  return std::find(windows.begin(), windows.end(), window) != windows.end();
}

std::vector<HWND> only(const std::vector<HWND>& windows, const std::vector<HWND>& of) {
  std::vector<HWND> kept;
  std::copy_if(windows.begin(), windows.end(), std::back_inserter(kept),
               [&of](HWND window) { return contains(of, window); });
  return kept;
}

// Whether the windows stand in this order, whatever lies between them.
bool standInOrder(std::vector<HWND>::const_iterator first, std::vector<HWND>::const_iterator last,
                  const std::vector<HWND>& present) {
  auto below = present.begin();
  for (; first != last; ++first) {
    below = std::find(below, present.end(), *first);
    if (below == present.end()) return false;
  }
  return true;
}

// Those that must come to the top, lowest first: the others stand in their order already.
std::deque<HWND> windowsToRaise(const std::vector<HWND>& wanted, const std::vector<HWND>& present) {
  std::deque<HWND> raised;
  for (auto rest = wanted.begin(); !standInOrder(rest, wanted.end(), present); ++rest) raised.push_front(*rest);
  return raised;
}

}  // namespace

void Stacking::want(std::vector<HWND> order) {
  wanted_ = std::move(order);
  toRaise_.clear();
  looks_ = 0;
  nextLookTick_ = ::GetTickCount64() + untilShownMs;
}

void Stacking::wantPresent() {
  if (isRaising_) return;
  std::vector<HWND> present = seenWindows();
  if (present != wanted_) want(std::move(present));
}

bool Stacking::settle() {
  if (!nextLookTick_) return true;
  if (::GetTickCount64() < *nextLookTick_) return false;
  if (toRaise_.empty() && ++looks_ <= mostLooks) {
    const std::vector<HWND> present = seenWindows();
    toRaise_ = windowsToRaise(only(wanted_, present), present);
  }
  if (toRaise_.empty()) {
    nextLookTick_.reset();
    return true;
  }
  isRaising_ = true;
  ::SetWindowPos(toRaise_.front(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  isRaising_ = false;
  toRaise_.pop_front();
  nextLookTick_ = ::GetTickCount64() + untilShownMs;
  return false;
}

}  // namespace orvane::standins
