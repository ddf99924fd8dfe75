"""What the methods of the window channel demand, as far as their number doesn't hang on messages that follow."""
from formula import calls, size
from reading import NOTHING, answered, image, utf8, wide

ENTRIES, SUGGESTIONS, CHOSEN, OTHERS = size("m"), size("s"), size("c"), size("o")


def command(*parts):
    """The main window is looked for and its scale read before any method."""
    whole = calls("IsWindow", "GetDpiForWindow") + answered()
    for part in parts:
        whole = whole + part
    return whole


def message():
    """One message to the main window that isn't the host's own."""
    return calls("GetWindowLongPtrW", "FlutterDesktopViewControllerHandleTopLevelWindowProc", "DefWindowProcW")


def posted_message():
    return calls("GetMessageW", "TranslateMessage", "DispatchMessageW") + message()


def entry_measured():
    return (calls("GetWindowLongPtrW", "GetDC", "GetTextExtentPoint32W", "GetTextMetricsW", "ReleaseDC",
                  "GetDpiForWindow") + calls(SelectObject=2, MulDiv=3))


def entry_drawn():
    """Font in and out again, and one inset for both sides."""
    return (calls("GetWindowLongPtrW", "CreateSolidBrush", "FillRect", "DeleteObject", "SetBkMode", "SetTextColor",
                  "GetDpiForWindow", "MulDiv", "DrawTextW") + calls(SelectObject=2))


def menu():
    """`m` entries with label and shortcut; the chosen one, if there is, is drawn once more."""
    opened = calls("CreatePopupMenu", "GetDpiForWindow", "CreateFontW", "ClientToScreen", "SetForegroundWindow",
                   "TrackPopupMenuEx", "DestroyMenu", "DeleteObject", "PostMessageW")
    each = wide(2) + calls("InsertMenuItemW") + entry_measured() + entry_drawn()
    return command(opened, ENTRIES * each, CHOSEN * entry_drawn(), posted_message())


def draft_written():
    block = calls("GlobalAlloc", "GlobalLock", "GlobalUnlock")
    return command(wide(), 2 * block, calls("OpenClipboard", "EmptyClipboard", "RegisterClipboardFormatW",
                                            "CloseClipboard"), calls(SetClipboardData=2))


def draft_read():
    block = calls("GetClipboardData", "GlobalSize", "GlobalLock", "GlobalUnlock")
    return command(calls("OpenClipboard", "RegisterClipboardFormatW", "CloseClipboard"), 2 * block, utf8())


def spelling():
    """Made once: factory and checker. A word with `s` suggestions, 7 at most: one more is asked for."""
    made = calls("CoCreateInstance", "ISpellCheckerFactory::IsSupported", "ISpellCheckerFactory::CreateSpellChecker")
    checked = calls("ISpellChecker::Check", "IEnumSpellingError::Next", "ISpellChecker::Suggest")
    each = calls("IEnumString::Next", "CoTaskMemFree") + utf8()
    return command(wide(2), made, checked, SUGGESTIONS * each, calls("IEnumString::Next"))


def all_windows(each):
    """The host's own and the others."""
    return calls("EnumWindows") + (OTHERS + 1) * each


def content_process_raised():
    """Its window is the first, and in front."""
    found = calls("EnumWindows", "GetWindowThreadProcessId", "IsWindowVisible", "GetPropW", "GetClassNameW")
    return command(found, image(),
                   calls("GetModuleFileNameW", "IsIconic", "SetForegroundWindow", "GetForegroundWindow"))


def picture_looked_for(formats):
    return calls("OpenClipboard", "RegisterClipboardFormatW", "CloseClipboard",
                 IsClipboardFormatAvailable=formats)


MENU = menu()
MENU_WITHOUT_ENTRIES = command(calls("CreatePopupMenu", "DestroyMenu"))
WORK_AREA = command(calls("MonitorFromWindow", "GetMonitorInfoW"))
BOUNDS = command(calls("GetWindowRect"))
SEQUENCE = command(calls("GetClipboardSequenceNumber"))
LAUNCH = command(calls("ShellExecuteW"))
LAUNCH_WITH_TEXT = command(calls("ShellExecuteW"), wide())
LAUNCH_WITH_TWO_TEXTS = command(calls("ShellExecuteW"), wide(2))
KEYS = command(calls("SendInput"))
REFUSED = command()
DRAFT_WRITTEN, DRAFT_READ, SPELLING = draft_written(), draft_read(), spelling()

CONTENT_PROCESS_MISSING = command(all_windows(calls("GetWindowThreadProcessId")))
CONTENT_PROCESS_RAISED = content_process_raised()
BACKGROUND_MISSING = command(all_windows(calls("GetPropW")))
NO_PICTURE = command(picture_looked_for(3))
PNG_READ = command(picture_looked_for(1), calls("GetClipboardData", "GlobalSize", "GlobalLock", "GlobalUnlock"))

WINDOW_RAISED = calls("IsWindow", "ShowWindow", "SetForegroundWindow") + answered()
URL_OPENED = calls("ShellExecuteW") + wide() + answered()
NOTHING_OPENED = answered() + NOTHING
