"""How each call of the platform that the host makes can fail, and which calls can't.

A way is a fault's `result`. "0x…" is an HRESULT, None a null pointer, a number what the call returns. LIE stands for
a request that claims success and has no effect: what can be read back mustn't be believed.
"""
from typing import NamedTuple

ERROR = "0x80004005"
ELEMENT_GONE = "0x80040201"
DISCONNECTED = "0x80010108"
NOT_REGISTERED = "0x80040154"
CHANGED_MODE = "0x80010106"
BAD_VARIANT = "0x80020008"
LIE = 0
FALSE = 0
TRUE = 1
NOTHING = 0
NOT_NULL = 1
INVALID_COLOUR = 0xFFFFFFFF
ERRNO_DENIED = 13
FILE_NOT_FOUND = 2
ACCESS_DENIED = 5
NO_ASSOCIATION = 31
LARGEST_SHELL_ERROR = 32
NO_MORE_MESSAGES = "GetMessageW: no message can come any more"


class Call(NamedTuple):
    ways: tuple
    # What is still held when the call that gives it back fails.
    releases: tuple = ()
    # How the simulation ends a run that goes on behind such a failure: no word about the host.
    stops: tuple = ()
    # A failure may end the program at its start, or take a message or a reply away.
    may_end: bool = False
    may_silence: bool = False


def _read(*names):
    return {f"IUIAutomationElement::get_Current{name}": Call((ERROR,)) for name in names}


def _text(*names):
    return {f"IUIAutomationElement::get_Current{name}": Call((ERROR, None)) for name in names}


def _all(names, call):
    return {name: call for name in names.split()}


_AUTOMATION = {
    "CoCreateInstance": Call((NOT_REGISTERED, None)),
    "CoInitializeEx": Call((CHANGED_MODE,)),
    "IUIAutomation::CompareElements": Call((ERROR,)),
    **_all("IUIAutomation::CreateOrCondition IUIAutomation::CreatePropertyCondition IUIAutomation::CreateTrueCondition",
           Call((ERROR, None))),
    "IUIAutomation::ElementFromHandle": Call((ERROR, ELEMENT_GONE, None)),
    "IUIAutomation::GetFocusedElement": Call((ERROR, None)),
    "IUIAutomationElement::FindAll": Call((ERROR, ELEMENT_GONE, DISCONNECTED, None)),
    "IUIAutomationElement::GetCurrentPatternAs": Call((ERROR, None)),
    "IUIAutomationElement::GetCurrentPropertyValue": Call((ERROR, None)),
    "IUIAutomationElement::SetFocus": Call((ERROR, LIE)),
    **_text("Name", "AutomationId", "ClassName", "FrameworkId"),
    **_read("BoundingRectangle", "ControlType", "IsEnabled", "IsKeyboardFocusable", "IsOffscreen", "IsPassword"),
    "IUIAutomationElementArray::GetElement": Call((ERROR, None)),
    "IUIAutomationElementArray::get_Length": Call((ERROR,)),
    "IUIAutomationInvokePattern::Invoke": Call((ERROR, LIE)),
    "IUIAutomationLegacyIAccessiblePattern::DoDefaultAction": Call((ERROR, LIE)),
    "IUIAutomationSelectionItemPattern::Select": Call((ERROR, ELEMENT_GONE, DISCONNECTED, LIE)),
    "IUIAutomationSelectionItemPattern::get_CurrentIsSelected": Call((ERROR,)),
    "IUIAutomationValuePattern::SetValue": Call((ERROR, LIE)),
    "IUIAutomationValuePattern::get_CurrentValue": Call((ERROR, None)),
    "SysAllocString": Call((None,)),
    "VariantClear": Call((BAD_VARIANT,), releases=("variants", "bstrs")),
}

_SPELLING = {
    "IEnumSpellingError::Next": Call((ERROR, TRUE)),
    "IEnumString::Next": Call((ERROR, TRUE)),
    "ISpellChecker::Check": Call((ERROR, None)),
    "ISpellChecker::Suggest": Call((ERROR, None)),
    "ISpellCheckerFactory::CreateSpellChecker": Call((ERROR, None)),
    "ISpellCheckerFactory::IsSupported": Call((ERROR,)),
}

_KEYS_AND_FOREGROUND = {
    # 1 is a part of every chord, the others a whole one that never arrived.
    "SendInput": Call((NOTHING, 1, 2, 4, 6)),
    "AttachThreadInput": Call((FALSE,), releases=("threadInputs",)),
    "GetForegroundWindow": Call((None,)),
    "SetForegroundWindow": Call((FALSE, TRUE)),
    **_all("BringWindowToTop ShowWindow ShowWindowAsync", Call((FALSE, TRUE))),
    **_all("SetActiveWindow SetFocus GetAncestor", Call((None,))),
    **_all("GetGUIThreadInfo ReleaseCapture", Call((FALSE,))),
    "GetWindowThreadProcessId": Call((NOTHING,)),
    "CreateThread": Call((None,)),
}

_WINDOWS = {
    "CreateWindowExW": Call((None,), may_end=True),
    "RegisterClassW": Call((NOTHING,), may_end=True),
    "UnregisterClassW": Call((FALSE,)),
    "DestroyWindow": Call((FALSE,)),
    "GetMessageW": Call((-1,)),
    "PostMessageW": Call((FALSE,), may_silence=True),
    **_all("EnumWindows GetClientRect GetWindowRect MoveWindow SetWindowPos SetWindowTextW SetPropW ClientToScreen "
           "AdjustWindowRectExForDpi EnableNonClientDpiScaling InvalidateRect IsWindow IsWindowVisible",
           Call((FALSE,))),
    "IsIconic": Call((FALSE, TRUE)),
    **_all("GetWindow GetTopWindow GetPropW RemovePropW SetParent", Call((None,))),
    **_all("GetClassNameW GetDpiForWindow GetWindowTextW GetWindowTextLengthW", Call((NOTHING,))),
    # 0 is an ordinary value too, and nothing tells the two apart: a window without its object is nobody's, so that the
    # program can't end with it; a style of 0 is written back.
    "SetWindowLongPtrW": Call((NOTHING,), stops=(NO_MORE_MESSAGES,)),
    "GetWindowLongPtrW": Call((NOTHING,), stops=(NO_MORE_MESSAGES, "showing by a style isn't modelled")),
    "GetSystemMetrics": Call((NOTHING,), stops=("LoadImageW: an icon without a size isn't modelled",)),
    "GetMonitorInfoW": Call((FALSE,)),
    **_all("MonitorFromPoint MonitorFromRect MonitorFromWindow", Call((None,))),
    "DwmGetWindowAttribute": Call((ERROR,)),
    "DwmSetWindowAttribute": Call((ERROR,)),
    "SetWinEventHook": Call((None,)),
    "UnhookWinEvent": Call((FALSE,), releases=("hooks",)),
    **_all("LoadCursorW LoadIconW LoadImageW", Call((None,))),
}

_MENUS_AND_PAINTING = {
    "CreatePopupMenu": Call((None,)),
    "InsertMenuItemW": Call((FALSE,)),
    "TrackPopupMenuEx": Call((FALSE,)),
    "DestroyMenu": Call((FALSE,), releases=("menus",)),
    **_all("CreateFontW CreateSolidBrush GetStockObject GetDC BeginPaint", Call((None,))),
    "SelectObject": Call((None,), releases=("gdiObjects",)),
    "DeleteObject": Call((FALSE,), releases=("gdiObjects",)),
    # A context that stays keeps what couldn't be selected out of it either.
    "ReleaseDC": Call((FALSE,), releases=("gdiObjects",),
                      stops=("DeleteObject: the object is selected into a device context",)),
    **_all("DrawTextW FillRect SetBkMode GetTextExtentPoint32W GetTextMetricsW", Call((NOTHING,))),
    "SetTextColor": Call((INVALID_COLOUR,)),
}

_CLIPBOARD = {
    "OpenClipboard": Call((FALSE,)),
    "CloseClipboard": Call((FALSE,), releases=("openClipboard",), stops=("OpenClipboard: it is open already",)),
    "EmptyClipboard": Call((FALSE,)),
    "GetClipboardData": Call((None,)),
    "SetClipboardData": Call((None,)),
    "IsClipboardFormatAvailable": Call((FALSE,)),
    "RegisterClipboardFormatW": Call((NOTHING,)),
    "GetClipboardSequenceNumber": Call((NOTHING,)),
    "GlobalAlloc": Call((None,)),
    "GlobalLock": Call((None,)),
    "GlobalSize": Call((NOTHING,)),
    "GlobalUnlock": Call((FALSE, TRUE), releases=("globalBlocks",), stops=("still locked",)),
    "GlobalFree": Call((NOT_NULL,), releases=("globalBlocks",)),
}

_PROCESS = {
    "OpenProcess": Call((None,)),
    "QueryFullProcessImageNameW": Call((FALSE,)),
    "CloseHandle": Call((FALSE,), releases=("processHandles", "threadHandles")),
    "GetModuleFileNameW": Call((NOTHING,)),
    "CommandLineToArgvW": Call((None,)),
    "LocalFree": Call((NOT_NULL,), releases=("globalBlocks",)),
    "LoadLibraryA": Call((None,)),
    "GetProcAddress": Call((None,)),
    "FreeLibrary": Call((FALSE,)),
    "GetModuleHandleW": Call((None,)),
    "RegGetValueW": Call((FILE_NOT_FOUND, ACCESS_DENIED)),
    "ShellExecuteW": Call((NOTHING, FILE_NOT_FOUND, NO_ASSOCIATION, LARGEST_SHELL_ERROR)),
    "MultiByteToWideChar": Call((NOTHING,)),
    "WideCharToMultiByte": Call((NOTHING,)),
    # Without a console to attach to, false is what it gives anyway.
    "AttachConsole": Call((TRUE,)),
    "AllocConsole": Call((FALSE,)),
    "IsDebuggerPresent": Call((TRUE,)),
    "freopen_s": Call((ERRNO_DENIED,)),
    "_dup2": Call((-1,)),
    "_fileno": Call((-1, -2)),
}

_ENGINE = {
    **_all("FlutterDesktopEngineCreate FlutterDesktopViewControllerCreate", Call((None,), may_end=True)),
    **_all("FlutterDesktopViewControllerGetView FlutterDesktopViewGetHWND", Call((None,), may_end=True)),
    "FlutterDesktopEngineDestroy": Call((FALSE,)),
    "FlutterDesktopGetDpiForMonitor": Call((NOTHING,)),
    "FlutterDesktopMessengerIsAvailable": Call((FALSE,), may_silence=True),
    "FlutterDesktopMessengerSend": Call((FALSE,)),
    "FlutterDesktopMessengerSendWithReply": Call((FALSE,)),
}

CALLS = {**_AUTOMATION, **_SPELLING, **_KEYS_AND_FOREGROUND, **_WINDOWS, **_MENUS_AND_PAINTING, **_CLIPBOARD,
         **_PROCESS, **_ENGINE}

_GIVES_NOTHING = "gives nothing back"
_OWN_ANSWER = "gives back what the receiver answered; no value of it is a failure"
_ALWAYS = "documented to succeed"

UNFAILING = {
    **dict.fromkeys(
        ("CoTaskMemFree CoUninitialize DesktopDropPluginRegisterWithRegistrar FlutterDesktopEngineReloadSystemFonts "
         "FlutterDesktopEngineSetNextFrameCallback FlutterDesktopMessengerRelease FlutterDesktopMessengerSendResponse "
         "FlutterDesktopMessengerSetCallback FlutterDesktopMessengerUnlock FlutterDesktopResyncOutputStreams "
         "FlutterDesktopViewControllerDestroy FlutterDesktopViewControllerForceRedraw PostQuitMessage SetLastError "
         "Sleep SysFreeString UrlLauncherWindowsRegisterWithRegistrar VariantInit "
         "WebviewWindowsPluginRegisterWithRegistrar"
         ).split(), _GIVES_NOTHING),
    **dict.fromkeys("DefWindowProcW DispatchMessageW SendMessageW".split(), _OWN_ANSWER),
    **dict.fromkeys(("FlutterDesktopMessengerAddRef FlutterDesktopMessengerLock GetCommandLineW GetCurrentThreadId "
                     "GetLastError GetTickCount64 QueryPerformanceCounter QueryPerformanceFrequency "
                     "SysStringLen").split(),
                    _ALWAYS),
    **dict.fromkeys("FlutterDesktopEngineGetMessenger FlutterDesktopEngineGetPluginRegistrar".split(),
                    "null only for no engine, for which it isn't called"),
    "EndPaint": "always true",
    "FlutterDesktopViewControllerHandleTopLevelWindowProc": "false is the ordinary answer",
    "MulDiv": "fails only for a divisor of 0 or an overflow, which its callers don't pass",
    "TranslateMessage": "false is the ordinary answer, and true has no effect that the host sees",
}


def unknown_calls(names):
    """Those that neither table has."""
    return sorted(set(names) - CALLS.keys() - UNFAILING.keys())
