#include "world/desktop.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvane::simulation {
namespace {

struct Product {
  std::string_view process;
  TextView name;
  TextView windowClass;
};

constexpr std::array<Product, 5> products{{
    {"chrome.exe", u"Google Chrome", u"Chrome_WidgetWin_1"},
    {"msedge.exe", u"Microsoft Edge", u"Chrome_WidgetWin_1"},
    {"brave.exe", u"Brave", u"Chrome_WidgetWin_1"},
    {"firefox.exe", u"Mozilla Firefox", u"MozillaWindowClass"},
    {"vivaldi.exe", u"Vivaldi", u"Chrome_WidgetWin_1"},
}};

constexpr std::uint32_t captionedSizableStyle = 0x04CF0000;  // WS_OVERLAPPEDWINDOW | WS_CLIPSIBLINGS
constexpr std::uint32_t visibleBit = 0x10000000;
constexpr std::uint32_t minimizedBit = 0x20000000;
constexpr std::uint32_t windowEdge = 0x00000100;
constexpr std::uint32_t topmostBit = 0x00000008;
constexpr Rectangle parkingPlace{-32000, -32000, -31840, -31972};
constexpr TextView cleanBackgroundProperty = u"Orvane.CleanBackground";

constexpr std::uint64_t handleStep = 0x22;
constexpr std::uint32_t processIdStep = 4;
constexpr std::uint32_t threadIdOffset = 10001;

// Image names have no case.
bool hasSameName(std::string_view process, std::string_view other) {
  return foldAscii(textFromUtf8(process)) == foldAscii(textFromUtf8(other));
}

const Product* productOf(std::string_view process) {
  const auto found = std::find_if(products.begin(), products.end(),
                                  [process](const Product& product) { return hasSameName(product.process, process); });
  return found == products.end() ? nullptr : &*found;
}

Text stemOf(const std::string& process) { return textFromUtf8(process.substr(0, process.rfind('.'))); }

Text productName(const std::string& process) {
  const Product* product = productOf(process);
  return product == nullptr ? stemOf(process) : Text(product->name);
}

Text imagePath(const WindowPlan& plan) {
  if (plan.path) return *plan.path;
  if (hasSameName(plan.process, hostProcess)) return Text(hostImagePath);
  return u"C:\\Program Files\\" + stemOf(plan.process) + u"\\" + textFromUtf8(plan.process);
}

}  // namespace

Desktop::Desktop(Clock& clock, Books& books) : clock_(clock), books_(books) {}

Window& Desktop::makeWindow() {
  Window& window = *windows_.emplace_back(std::make_unique<Window>());
  window.handle = std::exchange(nextHandle_, nextHandle_ + handleStep);
  return window;
}

std::uint32_t Desktop::processIdFor(const WindowPlan& plan, TextView path) {
  if (plan.pid) return *plan.pid;
  const auto isTaken = [this](std::uint32_t pid) {
    return std::any_of(windows_.begin(), windows_.end(), [pid](const auto& window) { return window->pid == pid; });
  };
  for (const auto& window : windows_) {
    if (!window->ofHost && window->sharesProcess && window->process == plan.process && window->path == path) {
      return window->pid;
    }
  }
  while (isTaken(nextProcessId_)) nextProcessId_ += processIdStep;
  return std::exchange(nextProcessId_, nextProcessId_ + processIdStep);
}

Window& Desktop::addWindow(const WindowPlan& plan) {
  const Text path = imagePath(plan);
  const std::uint32_t pid = processIdFor(plan, path);
  Window& window = makeWindow();
  window.id = plan.id;
  window.process = plan.process;
  window.path = path;
  window.pid = pid;
  window.sharesProcess = !plan.pid;
  window.threadId = pid + threadIdOffset;
  const Product* product = productOf(plan.process);
  window.className = plan.className.empty() && product != nullptr ? Text(product->windowClass) : plan.className;
  window.title = plan.title.value_or(Text{});
  window.titleFollowsTab = !plan.title && plan.tabs;
  window.bounds = plan.bounds;
  window.visible = plan.visible;
  window.minimized = plan.minimized;
  window.topmost = plan.topmost;
  window.style = captionedSizableStyle;
  window.exStyle = windowEdge;
  if (plan.cleanBackground) window.properties.emplace_back(Text(cleanBackgroundProperty), 1);
  window.refusedForegroundRequests = plan.refusedForegroundRequests.value_or(0);
  window.uia = plan.uia;
  window.rules = plan.rules;
  const auto isLower = [&window](const Window* other) { return window.topmost && !other->topmost; };
  zOrder_.insert(std::find_if(zOrder_.begin(), zOrder_.end(), isLower), &window);
  buildTree(window, plan);
  if (rulesStartMs_) scheduleTimes(window, nullptr, window.rules);
  return window;
}

Window& Desktop::addHostWindow(std::string id, Window* parent) {
  Window& window = makeWindow();
  window.id = std::move(id);
  window.ofHost = true;
  window.parent = parent;
  window.process = hostProcess;
  window.path = hostImagePath;
  window.pid = hostProcessId;
  window.threadId = hostThreadId;
  if (parent == nullptr) insertOnTopOfBand(window);
  return window;
}

void Desktop::destroyWindow(Window& window) {
  if (window.destroyed) return;
  window.destroyed = true;
  window.focus = nullptr;
  std::erase(zOrder_, &window);
  for (const auto& other : windows_) {
    if (other->parent == &window) destroyWindow(*other);
  }
  if (clipboard.content.lockedBy == window.id) clipboard.content.lockedBy.reset();
  giveUpForeground(window);
}

Window* Desktop::windowByHandle(std::uint64_t handle) {
  const auto found = std::find_if(windows_.begin(), windows_.end(), [handle](const auto& window) {
    return window->handle == handle && !window->destroyed;
  });
  return found == windows_.end() ? nullptr : found->get();
}

Window* Desktop::windowById(std::string_view id) {
  const auto found = std::find_if(windows_.begin(), windows_.end(), [id](const auto& window) {
    return !id.empty() && window->id == id && !window->destroyed;
  });
  return found == windows_.end() ? nullptr : found->get();
}

std::uint64_t Desktop::handleOfId(std::string_view id) const {
  std::uint64_t handle = 0;
  for (const auto& window : windows_) {
    if (window->id != id) continue;
    handle = window->handle;
    if (!window->destroyed) break;
  }
  return handle;
}

void Desktop::insertOnTopOfBand(Window& window) {
  const auto isInBand = [&window](const Window* other) { return window.topmost || !other->topmost; };
  zOrder_.insert(std::find_if(zOrder_.begin(), zOrder_.end(), isInBand), &window);
}

void Desktop::raise(Window& window) {
  if (std::erase(zOrder_, &window) != 0) insertOnTopOfBand(window);
}

void Desktop::lower(Window& window) {
  if (std::erase(zOrder_, &window) == 0) return;
  const auto isBelowBand = [&window](const Window* other) { return window.topmost && !other->topmost; };
  zOrder_.insert(std::find_if(zOrder_.begin(), zOrder_.end(), isBelowBand), &window);
}

void Desktop::placeBehind(Window& window, Window& above) {
  if (&window == &above || std::erase(zOrder_, &window) == 0) return;
  const auto at = std::find(zOrder_.begin(), zOrder_.end(), &above);
  if (at == zOrder_.end()) return insertOnTopOfBand(window);
  // Behind an ordinary window nothing is topmost, and between topmost ones everything is.
  const auto next = at + 1;
  if (!above.topmost) window.topmost = false;
  if (above.topmost && next != zOrder_.end() && (*next)->topmost) window.topmost = true;
  zOrder_.insert(next, &window);
}

void Desktop::setTopmost(Window& window, bool topmost) {
  if (!topmost && !window.topmost) return;
  window.topmost = topmost;
  raise(window);
}

Text Desktop::windowTitle(const Window& window) const {
  if (!window.titleFollowsTab) return window.title;
  const Text product = productName(window.process);
  return window.selected == nullptr ? product : window.selected->title + u" - " + product;
}

Rectangle Desktop::visibleBounds(const Window& window) const { return window.minimized ? parkingPlace : window.bounds; }

std::uint32_t Desktop::styleOf(const Window& window) {
  return window.style | (window.visible ? visibleBit : 0) | (window.minimized ? minimizedBit : 0);
}

std::uint32_t Desktop::exStyleOf(const Window& window) { return window.exStyle | (window.topmost ? topmostBit : 0); }

}  // namespace orvane::simulation
