#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "browser/frames.h"
#include "browser/world.h"

namespace orvane::standins {

// Keeps the model and the real desktop in step. A turn begins with what the real desktop did and
// ends with what the model did: in between, the model is the truth.
class Mirror final : private simulation::HostWindows {
 public:
  Mirror(World& world, Frames& frames);

  // The model takes over what the real windows have become. Not `whole`: that is looked at only when
  // the foreground has moved.
  void pull(bool whole);
  // The real windows take over what the model has done since.
  void push();

  // The model's clipboard takes over the text that would be pasted.
  void pullPasteText();

  // The next push brings the window up even if it is in the foreground already; null: takes the
  // foreground from every window.
  void bringUp(simulation::Window* window);

  // Whether the next push moves the foreground.
  bool movesForeground() const { return bringing_.has_value(); }

  // Tells whoever listens on the desktop when one of the process's windows has come to the front.
  void announceForeground();

  // A window of the process keeps the clipboard open, or lets it go.
  void holdFor(const std::string& windowId, bool hold);

 private:
  struct Standing {
    HWND handle;
    simulation::Window* window;
  };

  void foregroundMoved(simulation::Window* from, simulation::Window* to) override;
  void closeAsked(simulation::Window& window) override;
  void minimizeAsked(simulation::Window& window) override;
  void resizeAsked(simulation::Window& window, const simulation::Rectangle& bounds) override;

  std::vector<Standing> standingWindows();
  void noteWindowsThatLeft(const std::vector<Standing>& standing);
  void pullState(const Standing& standing);
  void pushForeground();
  void pushFrame(Frame& frame);
  void pushClosings();
  void pushClipboard();
  void keepOpen(const std::string& windowId, bool hold);

  HWND handleOf(const simulation::Window& window);

  World& world_;
  Frames& frames_;
  bool isPulling_ = false;
  HWND foregroundRoot_ = nullptr;  // as it was last seen
  HWND announced_ = nullptr;
  std::vector<const simulation::Window*> seen_;          // windows of other processes that stood once
  std::vector<const simulation::Window*> askedToClose_;  // windows of other processes
  struct Bringing {
    simulation::Window* window;
  };
  std::optional<Bringing> bringing_;
  std::uint32_t clipboardSequence_ = 0;
  std::optional<std::string> clipboardHolder_;  // as it was when the turn began
  bool holdsClipboard_ = false;
};

}  // namespace orvane::standins
