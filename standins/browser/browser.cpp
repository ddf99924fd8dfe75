#include "browser/browser.h"

#include <utility>

#include "browser/automation_answers.h"
#include "browser/own_report.h"
#include "browser/quiet_restore.h"
#include "browser/real_clipboard.h"
#include "browser/steps.h"

namespace orvane::standins {
namespace {

constexpr simulation::Rectangle parkingPlace{-32000, -32000, -31840, -31972};
constexpr DWORD tickMs = 5;
constexpr DWORD keysBehindMs = 2;
constexpr ULONGLONG betweenLooksMs = 50;  // how often the picture is compared with what was drawn
constexpr LPARAM wasDownBefore = 1 << 30;
constexpr int ownKeys = 0;  // batch of the events by which only the state of keys is taken over
constexpr int realKeys = 1;

Browser* theBrowser = nullptr;

bool isPaste(int virtualKey) { return virtualKey == 'V' && ::GetKeyState(VK_CONTROL) < 0; }

bool isUpMessage(UINT message) { return message == WM_KEYUP || message == WM_SYSKEYUP; }

// Keys that were typed right behind one that moves the foreground: they belong to the window that
// comes to the front, and would be lost with the one that leaves it.
std::vector<INPUT> takeKeysBehind() {
  ::Sleep(keysBehindMs);
  std::vector<INPUT> keys;
  MSG message{};
  while (::PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) != FALSE) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(message.wParam);
    input.ki.dwFlags = isUpMessage(message.message) ? KEYEVENTF_KEYUP : 0;
    keys.push_back(input);
  }
  return keys;
}

// The whole window is the page's: the elements lie by their own places from its corner on.
void liftSizeLimits(MINMAXINFO& limits) {
  limits.ptMinTrackSize = {1, 1};
  limits.ptMaxTrackSize = {32767, 32767};
}

std::optional<std::string> windowNamed(const Json& request) {
  const Json& window = request.at("window");
  return window.is_null() ? std::nullopt : std::optional(window.get<std::string>());
}

}  // namespace

Browser::Browser(simulation::Scenario scenario, const std::vector<std::string>& ownIds)
    : world_(std::move(scenario), ownIds), mirror_(world_, frames_) {
  theBrowser = this;
}

Browser::~Browser() {
  // Windows that the process still has when it ends get messages.
  theBrowser = nullptr;
}

void Browser::open() {
  frames_.open(world_, windowProcedure);
  turn(Pull::whole, [] {});
}

void Browser::run() {
  while (true) {
    // Not behind each question: whoever reads a page waits for the answer to the next one.
    auto sinceTickMs = static_cast<DWORD>(::GetTickCount64() - lastTick_);
    if (sinceTickMs >= tickMs) {
      tick();
      sinceTickMs = 0;
    }
    ::MsgWaitForMultipleObjectsEx(0, nullptr, tickMs - sinceTickMs, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      if (message.message == WM_QUIT) return;
      ::DispatchMessageW(&message);
    }
    listenOnLink(frames_.link(), tickMs, [this](const Json& request) { return answer(request); });
  }
}

template <typename Act>
void Browser::turn(Pull pull, const Act& act) {
  struct Depth {
    int& depth;
    explicit Depth(int& counted) : depth(counted) { ++depth; }
    ~Depth() { --depth; }
  };
  const bool isInside = depth_ > 0;
  const Depth deeper(depth_);
  if (isInside) {
    // A message or a question that came while the real windows were being moved.
    act();
    isAnotherPushDue_ = true;
    return;
  }
  if (const ULONGLONG now = ::GetTickCount64(); pull != Pull::recent || now != lastPullTick_) {
    lastPullTick_ = now;
    mirror_.pull(pull == Pull::whole);
  }
  world_.advance();
  mirror_.push();
  act();
  do {
    isAnotherPushDue_ = false;
    mirror_.push();
  } while (isAnotherPushDue_);
}

void Browser::tick() {
  lastTick_ = ::GetTickCount64();
  turn(Pull::foreground, [] {});
  if (::GetTickCount64() - lastLookTick_ >= betweenLooksMs) repaint();
}

void Browser::repaint() {
  lastLookTick_ = ::GetTickCount64();
  for (const Frame& frame : frames_.all()) {
    if (frame.handle == nullptr) continue;
    std::vector<Box> picture = composePicture(world_.desktop(), *frame.window);
    std::vector<Box>& drawn = pictures_[frame.handle];
    if (picture == drawn) continue;
    drawn = std::move(picture);
    ::InvalidateRect(frame.handle, nullptr, FALSE);
  }
}

// ---- questions

Json Browser::answer(const Json& request) {
  const std::string op = request.at("op").get<std::string>();
  Json given;
  const bool onlyLooks = op == "pattern" || op == "find" || op == "root" || op == "focused";
  turn(op == "read" ? Pull::recent
       : onlyLooks  ? Pull::foreground
                    : Pull::whole,
       [&] {
         given = answerAutomation(world_, request);
         if (given.is_null()) given = answerWhole(op, request);
         if (given.contains("element")) given["link"] = reinterpret_cast<std::uintptr_t>(frames_.link());
       });
  return given;
}

Json Browser::answerWhole(const std::string& op, const Json& request) {
  if (op == "report") return describeOwnWindows(world_);
  if (op == "start") {
    start(request);
  } else if (op == "step") {
    performStep(world_, mirror_, request.at("index").get<std::size_t>());
  } else if (op == "foreground") {
    bringForward(world_, mirror_, windowNamed(request));
  } else if (op == "quit") {
    ::PostQuitMessage(0);
  } else {
    return {{"error", "no question is named \"" + op + "\""}};
  }
  return Json::object();
}

void Browser::start(const Json& request) {
  world_.start(request.at("origin").get<std::int64_t>());
  const auto& holder = world_.scenario().desktop.clipboard.lockedBy;
  const simulation::Window* window = holder ? world_.desktop().windowById(*holder) : nullptr;
  if (window != nullptr && world_.owns(*window)) mirror_.holdFor(*holder, true);
}

// ---- keys

void Browser::key(int virtualKey, bool isUp) {
  std::vector<INPUT> behind;
  turn(Pull::whole, [&] {
    syncModifiers();
    if (!isUp && isPaste(virtualKey)) mirror_.pullPasteText();
    world_.desktop().key(virtualKey, isUp, realKeys);
    if (mirror_.movesForeground()) behind = takeKeysBehind();
  });
  if (!behind.empty()) ::SendInput(static_cast<UINT>(behind.size()), behind.data(), sizeof(INPUT));
  repaint();
}

// Those that went down or up while another program had the keyboard.
void Browser::syncModifiers() {
  for (const int modifier : {VK_CONTROL, VK_SHIFT, VK_MENU}) {
    const bool isDown = ::GetKeyState(modifier) < 0;
    if (world_.desktop().isKeyDown(modifier) != isDown) world_.desktop().key(modifier, !isDown, ownKeys);
  }
}

void Browser::close(Frame& frame) {
  turn(Pull::whole, [&] { world_.desktop().closeByPerson(*frame.window); });
}

// The platform here leaves it along the lower edge of the screen, and in the foreground if it was.
void Browser::noteMinimized(Frame& frame) {
  ::SetWindowPos(frame.handle, nullptr, parkingPlace.left, parkingPlace.top, parkingPlace.width(),
                 parkingPlace.height(), SWP_NOZORDER | SWP_NOACTIVATE);
  if (depth_ == 0) turn(Pull::whole, [&] { world_.desktop().giveUpForeground(*frame.window); });
}

// ---- messages

LRESULT CALLBACK Browser::windowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  return theBrowser == nullptr ? ::DefWindowProcW(window, message, wparam, lparam)
                               : theBrowser->handle(window, message, wparam, lparam);
}

LRESULT Browser::handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == linkMessage()) {
    return serveLink(wparam, lparam, [this](const Json& request) { return answer(request); });
  }
  if (message == WM_NCCALCSIZE) return 0;
  if (message == WM_GETMINMAXINFO) {
    liftSizeLimits(*reinterpret_cast<MINMAXINFO*>(lparam));
    return 0;
  }
  Frame* frame = frames_.byHandle(window);
  if (message == holdClipboardMessage() && frame != nullptr) {
    turn(Pull::whole, [&] { mirror_.holdFor(frame->window->id, wparam != 0); });
    return 0;
  }
  if (message == restoreMessage()) {
    restoreQuietly(window);
    return 0;
  }
  if (message >= WM_KEYFIRST && message <= WM_KEYLAST) return handleKey(message, wparam, lparam);
  return frame == nullptr ? ::DefWindowProcW(window, message, wparam, lparam)
                          : handleOfFrame(*frame, message, wparam, lparam);
}

LRESULT Browser::handleKey(UINT message, WPARAM wparam, LPARAM lparam) {
  const bool isDown = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
  const bool isRepeated = isDown && (lparam & wasDownBefore) != 0;
  if ((isDown && !isRepeated) || isUpMessage(message)) key(static_cast<int>(wparam), !isDown);
  return 0;
}

LRESULT Browser::handleOfFrame(Frame& frame, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_NCPAINT:
      return 0;
    case WM_NCACTIVATE:
      return TRUE;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      drawPicture(frame.handle, pictures_[frame.handle]);
      return 0;
    case WM_ACTIVATE:
      ::DefWindowProcW(frame.handle, message, wparam, lparam);
      mirror_.announceForeground();
      return 0;
    case WM_SIZE:
      if (wparam == SIZE_MINIMIZED) noteMinimized(frame);
      return 0;
    case WM_QUERYOPEN:
      return mayOpen(frame.handle) ? TRUE : FALSE;
    case WM_WINDOWPOSCHANGING:
      calmRestore(*reinterpret_cast<WINDOWPOS*>(lparam));
      return ::DefWindowProcW(frame.handle, message, wparam, lparam);
    case WM_CLOSE:
      close(frame);
      return 0;
    default:
      return ::DefWindowProcW(frame.handle, message, wparam, lparam);
  }
}

}  // namespace orvane::standins
