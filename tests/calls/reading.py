"""What one reading of the platform demands: the calls of the small steps that the routes are made of.

Written down from what each step has to find out and in which order; the host's code is not looked at.
"""
from formula import calls, total

NOTHING = calls()

AUTOMATION = "IUIAutomation::"
ELEMENT = "IUIAutomationElement::"
ARRAY = "IUIAutomationElementArray::"
VALUE = "IUIAutomationValuePattern::"
SELECTION = "IUIAutomationSelectionItemPattern::"

# ---- texts and values that the platform hands over or takes


def utf8(texts=1):
    """Texts that aren't empty, for a trace or a reply: one call for the size of each, one for its bytes."""
    return calls(WideCharToMultiByte=2) * texts


def wide(texts=1):
    """Texts of the interface that aren't empty, likewise."""
    return calls(MultiByteToWideChar=2) * texts


def text_facts(*names):
    """Facts that come as a string: measured, copied and freed."""
    return total(*(calls(ELEMENT + "get_Current" + name, "SysStringLen", "SysFreeString") for name in names))


def facts(*names):
    return calls(*(ELEMENT + "get_Current" + name for name in names))


def condition():
    """On the control type; the value in it is a VARIANT."""
    return calls(AUTOMATION + "CreatePropertyCondition", "VariantInit", "VariantClear")


def text_property():
    """A VARIANT, made, filled with a string and cleared."""
    return calls(ELEMENT + "GetCurrentPropertyValue", "VariantInit", "VariantClear", "SysStringLen")


def pattern(*operations):
    return calls(ELEMENT + "GetCurrentPatternAs", *operations)


def value():
    return pattern(VALUE + "get_CurrentValue", "SysStringLen", "SysFreeString")


def is_selected():
    return pattern(SELECTION + "get_CurrentIsSelected")


# ---- searches


def session():
    return calls("CoCreateInstance")


def root():
    return calls(AUTOMATION + "ElementFromHandle")


def search():
    """A search by a condition that stands, and its number of elements."""
    return calls(ELEMENT + "FindAll", ARRAY + "get_Length")


def element():
    return calls(ARRAY + "GetElement")


def fields_condition():
    """Edits or documents."""
    return 2 * condition() + calls(AUTOMATION + "CreateOrCondition")


# ---- the address of a window


def address_search():
    return condition() + search() + facts("BoundingRectangle")


def names_of_field():
    return element() + text_facts("Name", "AutomationId", "ClassName")


def texts_of_field():
    """Value, the three properties and the name: all are gathered before one is taken."""
    return value() + 3 * text_property() + text_facts("Name")


def address():
    """The address bar is the first field and says what it is."""
    return address_search() + names_of_field() + texts_of_field()


def exact_host(hosts=1):
    """One host after the other, each with a look of its own."""
    return hosts * (calls("IsWindow") + session() + root() + address())


# ---- windows


def image():
    """The program that a window belongs to."""
    return calls("GetWindowThreadProcessId", "OpenProcess", "QueryFullProcessImageNameW", "CloseHandle")


def window_title():
    return calls("GetWindowTextLengthW", "GetWindowTextW")


def sleeps(times=1):
    return calls("Sleep") * times


def time_begins():
    return calls("QueryPerformanceCounter")


def time_read():
    return calls("QueryPerformanceCounter", "QueryPerformanceFrequency")


def heard():
    """The hook hears that another program's window came to the front."""
    return calls("IsWindow", "GetAncestor", "GetModuleFileNameW", "GetPropW") + image()


# ---- the foreground

HOST, STRANGER, NOBODY = "host", "stranger", "nobody"


def attached(front):
    """Own input joined to that of the window in front, then to the target's, and both apart again."""
    in_front = {HOST: NOTHING, STRANGER: calls(AttachThreadInput=2), NOBODY: NOTHING}[front]
    asked = NOTHING if front == NOBODY else calls("GetWindowThreadProcessId")
    return asked + in_front + calls(AttachThreadInput=2)


def bring_forward(front):
    return (calls("IsWindow", "GetCurrentThreadId", "GetWindowThreadProcessId", "IsIconic", "GetForegroundWindow") +
            attached(front) + calls("BringWindowToTop", "SetForegroundWindow", "SetFocus") + sleeps() +
            calls("GetForegroundWindow"))


def force_pass_looks():
    return calls("IsWindow", "IsIconic", "ShowWindowAsync", "GetForegroundWindow")


def force_pass_asks(front):
    return (attached(front) + calls("SetWindowPos", "BringWindowToTop", "SetForegroundWindow", "SetActiveWindow",
                                    "SetFocus") + sleeps() + calls("GetForegroundWindow"))


def force_begins():
    return calls("IsWindow", "GetCurrentThreadId", "GetWindowThreadProcessId")


def force_at_once():
    """The window is in front already."""
    return force_begins() + force_pass_looks()


def force(front, passes=1):
    return force_begins() + passes * (force_pass_looks() + force_pass_asks(front))


def follow_up():
    """The thread's whole life in front of a window that stays where it is."""
    return (calls("IsWindow", "CreateThread", "CloseHandle") + 2 * sleeps() + calls("IsWindow") +
            bring_forward(STRANGER) + calls("IsWindow", "GetForegroundWindow"))


# ---- the channel


def answered():
    """One message of the interface and its answer."""
    return calls("FlutterDesktopMessengerAddRef", "FlutterDesktopMessengerLock", "FlutterDesktopMessengerIsAvailable",
                 "FlutterDesktopMessengerSendResponse", "FlutterDesktopMessengerUnlock",
                 "FlutterDesktopMessengerRelease")
