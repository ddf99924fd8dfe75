#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "world/clipboard.h"
#include "world/clock.h"
#include "world/element.h"
#include "world/faults.h"
#include "world/geometry.h"
#include "world/rules.h"
#include "world/spelling.h"
#include "world/text.h"

namespace orvane::simulation {

// The process that the host runs in.
inline constexpr std::string_view hostProcess = "orvane.exe";
inline constexpr TextView hostImagePath = u"C:\\Program Files\\Orvane\\orvane.exe";
inline constexpr std::uint32_t hostProcessId = 6104;
inline constexpr std::uint32_t hostThreadId = 6108;

struct Monitor {
  Rectangle bounds{0, 0, 1920, 1080};
  Rectangle work{0, 0, 1920, 1040};
  std::uint32_t dpi = 96;
};

struct Tab {
  Text title;
  Text address;
  Element* item = nullptr;  // its name follows the title
  std::size_t index = 0;    // its place among the window's tabs
  std::vector<Element*> page;
  std::vector<Rule> rules;
  bool closed = false;
};

struct WindowPlan {
  std::string id;
  std::string process;  // image name
  std::optional<std::uint32_t> pid;
  std::optional<Text> path;  // full image path
  Text className;
  std::optional<Text> title;
  Rectangle bounds{0, 0, 1280, 800};
  bool visible = true;
  bool minimized = false;
  bool topmost = false;
  bool cleanBackground = false;
  std::optional<int> refusedForegroundRequests;  // nullopt: none; -1: all; n: the first n
  bool uia = true;
  bool hasAddressBar = true;                 // browsers only
  std::optional<ElementPlan> addressBar;     // nullopt: the default one, which follows the address
  std::optional<std::vector<TabPlan>> tabs;  // nullopt: no browser
  std::vector<ElementPlan> elements;
  std::vector<Rule> rules;
};

// One window of the desktop: another program's, or the host's own (which has no elements).
struct Window {
  std::string id;  // empty for the host's child windows
  std::uint64_t handle = 0;
  bool ofHost = false;
  bool destroyed = false;
  Window* parent = nullptr;  // child windows only
  std::string process;
  Text path;
  std::uint32_t pid = 0;
  bool sharesProcess = false;  // without a pid of its own: windows of the same image share one
  std::uint32_t threadId = 0;
  Text className;
  Text title;  // as set; a browser's without a title of its own follows its tab
  bool titleFollowsTab = false;
  Rectangle bounds;  // of the restored window
  bool visible = true;
  bool minimized = false;
  bool topmost = false;
  std::uint32_t style = 0;    // without the bits for visible and minimized
  std::uint32_t exStyle = 0;  // without the bit for topmost
  std::vector<std::pair<Text, std::uint64_t>> properties;
  int refusedForegroundRequests = 0;  // -1: all
  bool uia = true;

  bool isBrowser = false;
  Element* root = nullptr;
  Element* tabControl = nullptr;
  Element* addressBar = nullptr;
  bool hasDefaultAddressBar = false;
  bool addressBarFollowsTab = false;  // until something else is put into the default one
  bool addressBarHasPlace = false;    // it has bounds of its own
  Element* document = nullptr;
  std::vector<Tab*> tabs;
  Tab* selected = nullptr;
  std::vector<Element*> elements;  // of a window that is no browser
  std::vector<Rule> rules;
  Element* focus = nullptr;
};

// What the platform layer has to know of the host's own windows.
class HostWindows {
 public:
  virtual ~HostWindows() = default;
  // The foreground moved; either may be null or another program's window.
  virtual void foregroundMoved(Window* from, Window* to) = 0;
  // A person closes, minimises or drags the border of a window of the host.
  virtual void closeAsked(Window& window) = 0;
  virtual void minimizeAsked(Window& window) = 0;
  virtual void resizeAsked(Window& window, const Rectangle& bounds) = 0;
};

struct KeyEvent {
  std::int64_t ms = 0;
  std::string window;                  // where it went; empty: nowhere
  std::optional<std::string> element;  // what had the focus
  int virtualKey = 0;
  bool up = false;
  int batch = 0;  // number of its SendInput call, from 1
};

// The desktop: windows, focus, keys, clipboard, browsers and their pages. No platform types.
class Desktop {
 public:
  Desktop(Clock& clock, Books& books);

  Clock& clock() { return clock_; }
  Books& books() { return books_; }

  std::vector<Monitor> monitors{Monitor{}};
  std::optional<bool> lightTheme;
  Clipboard clipboard;
  Spelling spelling;
  // What a person does with the next menu: picks the entry shown at this place, from 1; nullopt:
  // dismisses it. Whoever opens a menu takes it back to nullopt.
  std::optional<int> nextMenuChoice;
  HostWindows* host = nullptr;

  // ---- windows
  // Makes another program's window at the bottom of its z-order band.
  Window& addWindow(const WindowPlan& plan);
  // Makes a window of the host, on top of its band; children keep out of the z-order.
  Window& addHostWindow(std::string id, Window* parent);
  void destroyWindow(Window& window);            // the foreground falls to the next visible window in z-order
  Window* windowByHandle(std::uint64_t handle);  // live ones only
  Window* windowById(std::string_view id);       // live ones only
  // The handle that a window of this id has or had; 0: there never was one.
  std::uint64_t handleOfId(std::string_view id) const;
  // Every window that was ever made, in order, destroyed ones and children too.
  const std::deque<std::unique_ptr<Window>>& allWindows() const { return windows_; }
  const std::vector<Window*>& zOrder() const { return zOrder_; }  // live top-level windows, top first
  void raise(Window& window);                                     // to the top of its band (topmost ones lie above)
  void lower(Window& window);
  void placeBehind(Window& window, Window& above);
  void setTopmost(Window& window, bool topmost);
  Text windowTitle(const Window& window) const;
  Rectangle visibleBounds(const Window& window) const;  // of an iconic window: its parking place
  // The style words as the platform gives them, with the bits of the window's state.
  static std::uint32_t styleOf(const Window& window);
  static std::uint32_t exStyleOf(const Window& window);

  // ---- foreground and focus
  Window* foreground() const { return foreground_; }
  // A request by a program: may be refused, then false and nothing changes.
  bool requestForeground(Window& window);
  // A person or a rule; null: no window. Restores nothing.
  void moveForeground(Window* window);
  // A window that can't keep the foreground (hidden, minimised): it falls to the next visible
  // window in z-order. Nothing happens when it isn't in the foreground.
  void giveUpForeground(Window& window);
  Element* focusedElement() const;  // of the foreground window; null: none

  // ---- UI Automation's view
  // The descendants of an element in tree order, the element itself not among them.
  std::vector<Element*> descendants(const Element& element) const;
  bool isAvailable(const Element& element) const;
  // Every control that was ever made, in order, those that have left included.
  const std::deque<std::unique_ptr<Element>>& allElements() const { return elements_; }
  // How rules and reports name a control: its id, a tab item's title; nullopt: they can't.
  static std::optional<std::string> reportName(const Element& element);
  // An element's value, name or bounds as they stand, derived ones included.
  Text addressOf(const Window& window) const;
  ElementFacts factsOf(const Element& element) const;
  bool isSelected(const Element& tabItem) const;
  void factWasRead(Element& element);
  // UIA's SetFocus, Invoke and Select; an HRESULT, 0 on success.
  std::uint32_t setFocus(Element& element);
  std::uint32_t invoke(Element& element);
  std::uint32_t select(Element& tabItem);
  std::uint32_t setValue(Element& element, TextView value);

  // ---- input
  // One key event into the foreground window, with all that it does there.
  void key(int virtualKey, bool up, int batch);
  const std::vector<KeyEvent>& keyEvents() const { return keyEvents_; }
  void forgetKeyEvents() { keyEvents_.clear(); }
  bool isKeyDown(int virtualKey) const;

  // ---- rules and people
  // Rules that wait for a time count it from now.
  void startRules();
  void perform(const std::vector<Action>& actions, Window* window, Tab* tab);
  void switchTab(Window& window, TextView title);
  void closeByPerson(Window& window);
  void minimizeByPerson(Window& window);
  void resizeByPerson(Window& window, const Rectangle& bounds);

 private:
  friend class ActionPerformer;

  // windows
  Window& makeWindow();
  std::uint32_t processIdFor(const WindowPlan& plan, TextView path);
  void insertOnTopOfBand(Window& window);
  void setForeground(Window* window);

  // trees
  void buildTree(Window& window, const WindowPlan& plan);
  void buildAddressBar(Window& window, const WindowPlan& plan);
  Element& makeElement(Window& window, Tab* tab, Element* parent, const ElementPlan& plan);
  Tab& makeTab(Window& window, const TabPlan& plan);
  Element* elementById(Window& window, Tab* preferred, std::string_view id) const;
  Tab* tabByTitle(Window& window, TextView title) const;
  void addToPage(Window& window, Tab* tab, const ElementPlan& plan);
  void removeElement(Element& element);
  void selectTab(Window& window, Tab* tab);
  void closeTab(Window& window, Tab& tab);
  void setAddress(Window& window, Tab& tab, TextView address);
  void writeValue(Element& element, TextView value);
  void moveFocus(Window& window, Element* element);
  void dropLostFocus(Window& window);

  // keys and rules
  KeyChord chordOf(int virtualKey) const;
  void editByKey(Element& element, const KeyChord& chord);
  void paste(Element& element);
  void fire(Window& window, const std::function<bool(const Trigger&)>& fits);
  void fireOn(Element& element, Trigger::Kind kind);
  void fireRule(Window& window, Tab* tab, Rule& rule);
  void scheduleTimes(Window& window, Tab* tab, std::vector<Rule>& rules);

  Clock& clock_;
  Books& books_;
  std::deque<std::unique_ptr<Window>> windows_;
  std::deque<std::unique_ptr<Tab>> tabs_;
  std::deque<std::unique_ptr<Element>> elements_;
  std::vector<Window*> zOrder_;
  Window* foreground_ = nullptr;
  std::vector<KeyEvent> keyEvents_;
  std::vector<bool> keysDown_ = std::vector<bool>(256, false);
  std::uint64_t nextHandle_ = 0x00010104;
  std::uint32_t nextProcessId_ = 71004;
  std::optional<std::int64_t> rulesStartMs_;
};

}  // namespace orvane::simulation
