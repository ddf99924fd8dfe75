#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace orvane::snapshot {

// One control as UI Automation shows it. A fact that couldn't be read has the value with which a
// control fails the host's tests.
struct CapturedElement {
  int type = 0;                      // UI Automation's number of its control type; 0: unreadable
  std::optional<std::wstring> name;  // nullopt: a null string or unreadable
  std::wstring automationId;
  std::wstring className;
  std::wstring frameworkId;
  std::optional<RECT> bounds;  // screen pixels; nullopt: unreadable
  bool isEnabled = false;
  bool isOffscreen = true;
  bool isFocusable = false;
  bool isPassword = true;
  bool hasValue = false;              // a Value pattern; of fields that are no password
  std::optional<std::wstring> value;  // nullopt: a null string or unreadable
  bool hasInvoke = false;             // of buttons
  bool isSelected = false;            // of tab items inside a page
  std::wstring helpText;              // of fields, as is the next
  std::wstring legacyValue;
};

struct CapturedTab {
  std::wstring title;
  std::wstring automationId;
  std::wstring className;
  std::wstring frameworkId;
  bool hasSelection = false;  // a SelectionItem pattern
  bool isSelected = false;
};

struct CapturedWindow {
  std::wstring process;  // image name, lower-cased
  std::wstring className;
  std::wstring title;
  std::optional<RECT> bounds;  // screen pixels; nullopt while it is minimised
  bool isVisible = true;
  bool isMinimized = false;
  bool isTopmost = false;
  bool isForeground = false;
  bool hasRoot = false;                       // UI Automation gave an element for it
  std::wstring address;                       // as the host reads it; empty for none
  std::vector<CapturedTab> tabs;              // the browser's, not those of its page
  std::optional<CapturedElement> addressBar;  // of a window with tabs
  std::vector<CapturedElement> elements;      // all others, in tree order
};

struct CapturedDesktop {
  std::vector<CapturedWindow> windows;  // the uppermost first
};

}  // namespace orvane::snapshot
