#include "snapshot/capture_desktop.h"

#include <algorithm>
#include <array>

#include "activation/com_apartment.h"
#include "activation/process_image.h"
#include "composer/uia_operations.h"
#include "composer/window_text.h"
#include "provider_identity/address_reader.h"
#include "provider_identity/address_rules.h"

namespace orvane::snapshot {
namespace {

constexpr int greatestClassNameUnits = 256;

bool isField(int type) { return type == UIA_EditControlTypeId || type == UIA_DocumentControlTypeId; }

bool isOfInterest(int type) {
  return isField(type) || type == UIA_ButtonControlTypeId || type == UIA_TabItemControlTypeId;
}

void readField(const UiaElement& element, CapturedElement& captured) {
  captured.isPassword = element.isPassword();
  // What a password field holds is nobody's business.
  if (captured.isPassword) {
    return;
  }
  ValueReading reading = element.readValue();
  captured.hasValue = reading.hasPattern;
  captured.value = std::move(reading.text);
  captured.helpText = element.textProperty(UIA_HelpTextPropertyId);
  captured.legacyValue = element.textProperty(UIA_LegacyIAccessibleValuePropertyId);
}

// Of controls that no rule presses, fills or tells by an id, only what a search of all controls looks at.
CapturedElement readElement(const UiaElement& element) {
  CapturedElement captured;
  captured.type = element.controlType();
  captured.name = element.name();
  captured.bounds = element.bounds();
  captured.isEnabled = element.isEnabled();
  captured.isOffscreen = element.isOffscreen();
  captured.isFocusable = element.isKeyboardFocusable();
  captured.isPassword = false;
  if (isOfInterest(captured.type)) {
    captured.automationId = element.automationId();
    captured.className = element.className();
    captured.frameworkId = element.frameworkId();
  }
  if (isField(captured.type)) {
    readField(element, captured);
  }
  captured.hasInvoke = captured.type == UIA_ButtonControlTypeId && element.offersInvoke();
  captured.isSelected = captured.type == UIA_TabItemControlTypeId && element.isSelected();
  return captured;
}

CapturedTab readTab(const UiaElement& element) {
  CapturedTab tab;
  tab.title = elementName(element);
  tab.automationId = element.automationId();
  tab.className = element.className();
  tab.frameworkId = element.frameworkId();
  tab.hasSelection = element.offersSelection();
  tab.isSelected = tab.hasSelection && element.isSelected();
  return tab;
}

bool isInside(const RECT& inner, const RECT& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

// A page may have tab items of its own; they come behind the Document that they lie in.
bool liesInDocument(const UiaElement& tabItem, const std::vector<CapturedElement>& earlier) {
  const std::optional<RECT> place = tabItem.bounds();
  return place && std::any_of(earlier.begin(), earlier.end(), [&](const CapturedElement& each) {
           return each.type == UIA_DocumentControlTypeId && each.bounds && hasPositiveSize(*each.bounds) &&
                  isInside(*place, *each.bounds);
         });
}

bool showsAddress(const CapturedElement& element, const std::wstring& address) {
  return addressOfField({.value = element.value.value_or(std::wstring()),
                         .valueProperty = {},
                         .legacyValue = element.legacyValue,
                         .helpText = element.helpText,
                         .name = element.name.value_or(std::wstring())}) == address;
}

bool isNamedAsAddressField(const CapturedElement& element) {
  return namesAddressField(element.name.value_or(std::wstring()), element.automationId, element.className);
}

using Elements = std::vector<CapturedElement>;

template <typename Test>
std::optional<CapturedElement> takeFirst(Elements& elements, const Test& test) {
  const auto found = std::find_if(elements.begin(), elements.end(), test);
  if (found == elements.end()) {
    return std::nullopt;
  }
  CapturedElement taken = std::move(*found);
  elements.erase(found);
  return taken;
}

bool isEdit(const CapturedElement& element) { return element.type == UIA_EditControlTypeId; }

// The one that shows the address, else the first that names itself.
std::optional<CapturedElement> takeAddressBar(Elements& elements, const std::wstring& address) {
  if (!address.empty()) {
    if (auto bar = takeFirst(
            elements, [&](const CapturedElement& each) { return isEdit(each) && showsAddress(each, address); })) {
      return bar;
    }
  }
  auto bar =
      takeFirst(elements, [](const CapturedElement& each) { return isEdit(each) && isNamedAsAddressField(each); });
  if (bar && !address.empty()) {
    // It shows its address by the property alone.
    bar->hasValue = true;
    bar->value = address;
  }
  return bar;
}

// A scenario's window with tabs has a Tab control and a Document of its own.
void dropOwnFrame(Elements& elements) {
  takeFirst(elements, [](const CapturedElement& each) { return each.type == UIA_TabControlTypeId; });
  takeFirst(elements, [](const CapturedElement& each) {
    return each.type == UIA_DocumentControlTypeId && !each.isFocusable && !each.hasValue;
  });
}

void readTree(const UiaSession& session, const UiaElement& root, CapturedWindow& window) {
  UiaCondition everything;
  UiaElementArray found;
  session.trueCondition(everything);
  if (!everything || FAILED(root.findAll(everything, found)) || !found) {
    return;
  }
  const int length = found.length();
  for (int index = 0; index < length; ++index) {
    UiaElement element;
    found.elementAt(index, element);
    if (!element) {
      continue;
    }
    if (element.controlType() == UIA_TabItemControlTypeId && !liesInDocument(element, window.elements)) {
      window.tabs.push_back(readTab(element));
    } else {
      window.elements.push_back(readElement(element));
    }
  }
  if (!window.tabs.empty()) {
    window.addressBar = takeAddressBar(window.elements, window.address);
    dropOwnFrame(window.elements);
  }
}

std::wstring classNameOf(HWND window) {
  std::array<wchar_t, greatestClassNameUnits> buffer{};
  const int units = ::GetClassNameW(window, buffer.data(), greatestClassNameUnits);
  return {buffer.data(), units > 0 ? static_cast<std::size_t>(units) : 0};
}

std::optional<RECT> boundsOf(HWND window) {
  RECT bounds{};
  if (::GetWindowRect(window, &bounds) == FALSE) {
    return std::nullopt;
  }
  return bounds;
}

CapturedWindow readWindow(const UiaSession& session, HWND handle, const std::wstring& imageName) {
  CapturedWindow window;
  window.process = imageName;
  window.className = classNameOf(handle);
  window.title = windowText(handle);
  window.isVisible = ::IsWindowVisible(handle) != FALSE;
  window.isMinimized = ::IsIconic(handle) != FALSE;
  window.isTopmost = (::GetWindowLongPtrW(handle, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  window.isForeground = ::GetForegroundWindow() == handle;
  // A minimised window lies outside of every screen.
  window.bounds = window.isMinimized ? std::nullopt : boundsOf(handle);
  UiaElement root;
  session.elementFromHandle(handle, root);
  window.hasRoot = static_cast<bool>(root);
  if (window.hasRoot) {
    window.address = readWindowAddress(session, root);
    readTree(session, root, window);
  }
  return window;
}

BOOL CALLBACK noteWindow(HWND window, LPARAM windows) {
  reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

}  // namespace

CaptureResult captureDesktop(const std::vector<std::wstring>& imageNames) {
  const ComApartment apartment;
  const UiaSession session;
  if (!session) {
    return {{}, false};
  }
  std::vector<HWND> handles;
  ::EnumWindows(noteWindow, reinterpret_cast<LPARAM>(&handles));
  CaptureResult result;
  for (const HWND handle : handles) {
    if (::IsWindow(handle) == FALSE || ::GetAncestor(handle, GA_ROOT) != handle) {
      continue;
    }
    const std::wstring imageName = readWindowProcess(handle).imageName;
    if (std::find(imageNames.begin(), imageNames.end(), imageName) != imageNames.end()) {
      result.desktop.windows.push_back(readWindow(session, handle, imageName));
    }
  }
  return result;
}

}  // namespace orvane::snapshot
