#include "automation/bare_window.h"

#include <array>
#include <string_view>

#include "automation/elements.h"
#include "common/wide_text.h"

namespace orvane::standins {
namespace {

constexpr int windowControlType = 50032;
constexpr HRESULT invalidOperation = static_cast<HRESULT>(0x80131509);
constexpr int longestTextUnits = 1024;

using TextReader = int(WINAPI*)(HWND window, wchar_t* text, int capacity);

Json textOf(HWND window, TextReader read) {
  std::array<wchar_t, longestTextUnits> text{};
  const int length = read(window, text.data(), longestTextUnits);
  return utf8FromWide(std::wstring_view(text.data(), static_cast<std::size_t>(length)));
}

Json boundsOf(HWND window) {
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  return {bounds.left, bounds.top, bounds.right, bounds.bottom};
}

Json valueOf(HWND window, std::string_view fact) {
  if (fact == "name") return textOf(window, ::GetWindowTextW);
  if (fact == "className") return textOf(window, ::GetClassNameW);
  if (fact == "bounds") return boundsOf(window);
  if (fact == "controlType") return windowControlType;
  if (fact == "enabled") return true;
  if (fact == "focusable" || fact == "offscreen" || fact == "password") return false;
  if (fact == "valueProperty") return nullptr;
  return "";
}

}  // namespace

HRESULT STDMETHODCALLTYPE BareWindow::SetFocus() {
  return ::IsWindow(window_) == FALSE ? UIA_E_ELEMENTNOTAVAILABLE : invalidOperation;
}

HRESULT STDMETHODCALLTYPE BareWindow::FindAll(TreeScope scope, IUIAutomationCondition* condition,
                                              IUIAutomationElementArray** found) {
  if (found == nullptr) return E_POINTER;
  if (condition == nullptr) return endInto(E_INVALIDARG, found);
  if (scope != TreeScope_Descendants) return endInto(E_NOTIMPL, found);
  if (::IsWindow(window_) == FALSE) return endInto(UIA_E_ELEMENTNOTAVAILABLE, found);
  *found = makeElementArray(nullptr, {});
  return S_OK;
}

HRESULT STDMETHODCALLTYPE BareWindow::GetCurrentPatternAs(PATTERNID, REFIID, void** object) {
  if (object == nullptr) return E_POINTER;
  return endInto(::IsWindow(window_) == FALSE ? UIA_E_ELEMENTNOTAVAILABLE : S_OK, object);
}

Json BareWindow::readFact(const char* fact) {
  if (::IsWindow(window_) == FALSE) return {{"hresult", static_cast<std::uint32_t>(UIA_E_ELEMENTNOTAVAILABLE)}};
  return {{"value", valueOf(window_, fact)}};
}

}  // namespace orvane::standins
