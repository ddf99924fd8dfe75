// In place of the desktop's compositor, which isn't there: the part of a sizable frame that nothing
// is drawn on, and attributes that are taken without effect.
#include <windows.h>

namespace {

constexpr DWORD extendedFrameBounds = 9;
constexpr int unseenFramePixels = 7;  // at the standard scale
constexpr int standardDpi = 96;

RECT extendedFrame(HWND window) {
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  if (::IsIconic(window) != FALSE || (::GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME) == 0) return bounds;
  const int unseen = ::MulDiv(unseenFramePixels, static_cast<int>(::GetDpiForWindow(window)), standardDpi);
  return {bounds.left + unseen, bounds.top, bounds.right - unseen, bounds.bottom - unseen};
}

}  // namespace

extern "C" __declspec(dllexport) HRESULT WINAPI
    DwmGetWindowAttribute(HWND window, DWORD attribute, PVOID data, DWORD size) {
  if (::IsWindow(window) == FALSE) return E_HANDLE;
  if (attribute != extendedFrameBounds || data == nullptr || size != sizeof(RECT)) return E_INVALIDARG;
  *static_cast<RECT*>(data) = extendedFrame(window);
  return S_OK;
}

extern "C" __declspec(dllexport) HRESULT WINAPI DwmSetWindowAttribute(HWND window, DWORD, LPCVOID data, DWORD size) {
  if (::IsWindow(window) == FALSE) return E_HANDLE;
  return data == nullptr || size != sizeof(DWORD) ? E_INVALIDARG : S_OK;
}
