#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "browser/frames.h"
#include "browser/mirror.h"
#include "browser/picture.h"
#include "browser/world.h"
#include "common/link.h"

namespace orvane::standins {

// One process of the scenario: its real windows, what stands in them, and whoever asks about them.
// There is one of it in a process.
class Browser {
 public:
  Browser(simulation::Scenario scenario, const std::vector<std::string>& ownIds);
  ~Browser();
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;

  // Opens the windows. Returns when all of them stand in their places.
  void open();
  // Handles messages until somebody asks the process to quit.
  void run();

 private:
  static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handleKey(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handleOfFrame(Frame& frame, UINT message, WPARAM wparam, LPARAM lparam);

  // What is looked up of the real desktop: all of it, what is in front, or that unless this very
  // millisecond did.
  enum class Pull { whole, foreground, recent };
  // Does `act` between what the real desktop did before it and what the model did by it.
  template <typename Act>
  void turn(Pull pull, const Act& act);
  void tick();

  Json answer(const Json& request);
  Json answerWhole(const std::string& op, const Json& request);
  void start(const Json& request);
  void key(int virtualKey, bool isUp);
  void syncModifiers();
  void close(Frame& frame);
  void noteMinimized(Frame& frame);
  void repaint();

  World world_;
  Frames frames_;
  Mirror mirror_;
  std::map<HWND, std::vector<Box>> pictures_;
  int depth_ = 0;
  bool isAnotherPushDue_ = false;
  ULONGLONG lastTick_ = 0;
  ULONGLONG lastPullTick_ = 0;
  ULONGLONG lastLookTick_ = 0;
};

}  // namespace orvane::standins
