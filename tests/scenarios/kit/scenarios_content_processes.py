"""activateContentProcess: which window of which process comes to the front, and when the tool box is asked for."""
from .core import fault, user, window
from .desktops import notes
from .placement import Placed, monitor
from .window_calls import (DONE, FAILED, MAIN, MAIN_CLASS, NO_NUMBERS, OTHER_INSTANCE, TOOL_BOX_MESSAGE, Talk, posted)

PAGE_PID = 5000
PAGE_BOUNDS = [-32000, -32000, -30720, -31280]
ASKED = [posted("page", TOOL_BOX_MESSAGE)]
SCREEN = [monitor((0, 0, 1920, 1080))]


def instance(identifier="page", pid=PAGE_PID, **facts):
    """A window of another running copy of the program; content pages start off screen."""
    return window(identifier, OTHER_INSTANCE, "Orvane: The Desk for Every Assistant", facts.pop("bounds", PAGE_BOUNDS),
                  **{"pid": pid, "class": MAIN_CLASS, **facts})


def activate(**arguments):
    return {"processId": PAGE_PID, **arguments}


def case(file, name, windows, arguments, reply, /, foreground=..., sent=(), faults=(), calls=None, steps=(), **desktop):
    talk = Talk(f"window/content-process-{file}", name)
    talk.do(*steps)
    for one in arguments if isinstance(arguments, list) else [arguments]:
        talk.ask("activateContentProcess", one, reply)
    if foreground is ...:
        foreground = "page" if reply is DONE else MAIN
    expect = {"posted": list(sent), "desktop": {"foreground": foreground, **desktop},
              "platformCalls": {"Sleep": 0, **(calls or {})}}
    return talk.scenario(windows, faults, expect)


def found():
    page_facts = {"windows": {"page": {"bounds": PAGE_BOUNDS, "minimized": False},
                              MAIN: Placed(SCREEN).facts()}}
    yield case("raised", "the process's main window comes to the front, and stays where it stands",
               [notes(), instance()], activate(), DONE, calls={"EnumWindows": 1, "SetForegroundWindow": 1,
                                                               "ShowWindow": 1, "PostMessageW": 0},
               zOrder=["page", MAIN, "notes"], **page_facts)
    yield case("tool-box", "the tool box is asked for by a message, before the window comes up", [notes(), instance()],
               activate(showToolBoxMenu=1), DONE, sent=ASKED, **page_facts)
    yield case("already-in-front", "a window that is in front already is a success", [instance(), notes()], activate(),
               DONE, steps=[user(foreground="page")], zOrder=["page", MAIN, "notes"])
    yield case("first-by-z-order", "the first window in z-order is taken, and the search stops there",
               [notes(), instance("upper"), instance()], activate(), DONE, foreground="upper",
               calls={"EnumWindows": 1, "GetClassNameW": 1}, zOrder=["upper", MAIN, "notes", "page"])
    yield case("topmost-first", "a topmost window comes first in z-order", [instance("lower"), instance(topmost=True)],
               activate(), DONE)
    yield case("raised-twice", "it is found again after another program was in front", [notes(), instance()],
               [activate(), activate()], DONE)
    yield case("iconic", "a minimized window is restored",
               [notes(), instance(minimized=True, bounds=[50, 50, 850, 650])], activate(), DONE,
               calls={"ShowWindow": 2}, windows={"page": {"minimized": False, "bounds": [50, 50, 850, 650]}})
    yield case("iconic-tool-box", "the tool box is asked for while the window is still minimized",
               [instance(minimized=True)], activate(showToolBoxMenu=1), DONE, sent=ASKED,
               windows={"page": {"minimized": False}})
    yield case("path-in-another-case", "the image's path is compared without its case",
               [instance(path="c:\\PROGRAM FILES\\orvane\\ORVANE.exe")], activate(), DONE)
    yield case("image-name-is-not-asked", "the path alone tells an own process",
               [{**instance(path="C:\\Program Files\\Orvane\\orvane.exe"), "process": "chrome.exe"}], activate(), DONE)


# Windows of the process that are passed over, in front of the one that is taken.
PASSED_OVER = {
    "hidden": {"visible": False}, "panel": {"cleanBackground": True}, "other-class": {"class": "Chrome_WidgetWin_1"},
    "class-in-lower-case": {"class": MAIN_CLASS.lower()}, "class-with-more": {"class": MAIN_CLASS + "2"},
    "class-with-less": {"class": MAIN_CLASS[:-1]}, "class-very-long": {"class": MAIN_CLASS + "W" * 150},
    "no-class": {"class": ""}, "panel-class": {"class": "Orvane_Clean_Background_RC310"},
    "another-process": {"pid": PAGE_PID + 1}}


def passed_over():
    for file, facts in PASSED_OVER.items():
        yield case(f"passes-{file}", "what isn't a main window in sight of that process is passed over",
                   [instance("passed", **facts), notes(), instance()], activate(showToolBoxMenu=1), DONE, sent=ASKED)
        yield case(f"only-{file}", "without a main window in sight of that process nothing is touched",
                   [instance("passed", **facts), notes()], activate(showToolBoxMenu=1), FAILED,
                   calls={"EnumWindows": 1, "PostMessageW": 0, "SetForegroundWindow": 0, "OpenProcess": 0},
                   zOrder=[MAIN, "passed", "notes"])


def refused():
    untouched = {"PostMessageW": 0, "SetForegroundWindow": 0, "ShowWindow": 1}
    nothing = "a window of another program is refused, however like it is"
    for file, facts in (("other-program", {"process": "other.exe", "path": "C:\\Program Files\\Other\\other.exe"}),
                        ("copy-elsewhere", {"path": "D:\\Copy\\orvane.exe"}),
                        ("longer-path", {"path": "C:\\Program Files\\Orvane\\orvane.exe.exe"}),
                        ("iconic-other-program", {"path": "D:\\orvane.exe", "minimized": True})):
        yield case(file, nothing, [{**instance(), **facts}, notes()], activate(showToolBoxMenu=1), FAILED,
                   calls=untouched, windows={"page": {"minimized": facts.get("minimized", False)}})
    for call, result in (("OpenProcess", None), ("QueryFullProcessImageNameW", False), ("GetModuleFileNameW", 0)):
        yield case(f"{call}-fails".lower(), "a process that can't be told for an own one is refused",
                   [instance(), notes()], activate(showToolBoxMenu=1), FAILED, faults=[fault(call, result)],
                   calls=untouched)
    yield case("enumeration-fails", "windows that can't be listed hold none", [instance()], activate(), FAILED,
               faults=[fault("EnumWindows", False)], calls=untouched)

    name = "a foreground that isn't reached is a failure, though the tool box has been asked for"
    yield case("foreground-refused", name, [notes(), instance(foregroundRequests="refused")],
               activate(showToolBoxMenu=1), FAILED, sent=ASKED, calls={"SetForegroundWindow": 1},
               zOrder=[MAIN, "notes", "page"])
    yield case("foreground-refused-iconic", name, [notes(), instance(foregroundRequests="refused", minimized=True)],
               activate(showToolBoxMenu=1), FAILED, sent=ASKED, windows={"page": {"minimized": False}})
    yield case("foreground-call-fails", name, [instance()], activate(showToolBoxMenu=1), FAILED, sent=ASKED,
               faults=[fault("SetForegroundWindow", 1, window="page")])
    yield case("foreground-refused-in-front", "a refused request of a window in front is a success",
               [instance(foregroundRequests="refused")], activate(), DONE, steps=[user(foreground="page")])
    yield case("foreground-not-read", "the foreground read afterwards decides, not the request's answer", [instance()],
               activate(), FAILED, foreground="page", faults=[fault("GetForegroundWindow", None)])

    talk = Talk("window/content-process-second-request", "nothing is tried again until the interface asks again")
    talk.ask("activateContentProcess", activate(), FAILED)
    talk.ask("activateContentProcess", activate(), DONE)
    yield talk.scenario([instance(foregroundRequests=1)],
                        expect={"desktop": {"foreground": "page"}, "platformCalls": {"SetForegroundWindow": 2}})

    yield case("message-not-posted", "a tool box message that can't be posted stops nothing", [instance()],
               activate(showToolBoxMenu=1), DONE, faults=[fault("PostMessageW", False)], calls={"PostMessageW": 1})
    yield case("not-restored", "a window that can't be restored comes to the front minimized",
               [instance(minimized=True)], activate(), DONE, faults=[fault("ShowWindow", False, window="page")],
               windows={"page": {"minimized": True}})


def numbers():
    no_process = [..., None, {}, {"processId": 0}, {"processId": {"$int64": 0}}, {"processId": {"$double": 0}},
                  {"processId": {"$double": 0.75}}, {"processId": {"$double": -0.75}}, {"ProcessId": PAGE_PID},
                  {"processId": str(PAGE_PID)}, {"showToolBoxMenu": 1}, {"processId": {"$int64": 4294967296}},
                  *({"processId": wrong, "showToolBoxMenu": 1} for wrong in NO_NUMBERS)]
    yield case("no-process", "the process id 0 is refused without a look at any window", [instance(), notes()],
               no_process, FAILED, calls={"EnumWindows": 0, "PostMessageW": 0, "SetForegroundWindow": 0})

    for file, pid, number in (("int64", PAGE_PID, {"$int64": PAGE_PID}), ("double", PAGE_PID, {"$double": PAGE_PID}),
                              ("part", PAGE_PID, {"$double": PAGE_PID + 0.9}), ("greatest", 4294967295, 4294967295),
                              ("greatest-double", 4294967295, {"$double": 4294967295}),
                              ("negative", 4294967295, -1), ("negative-part", 4294967295, {"$double": -1.9}),
                              ("above-31-bits", 2147483648, {"$double": 2147483648}),
                              ("above-32-bits", PAGE_PID, {"$int64": 4294967296 + PAGE_PID})):
        yield case(f"number-{file}", "a process id is cut to a whole number of 32 bits", [notes(), instance(pid=pid)],
                   {"processId": number}, DONE)
    unknown = (PAGE_PID - 1, PAGE_PID + 1, {"$double": PAGE_PID - 0.1}, 2147483647, -PAGE_PID)
    yield case("unknown-number", "a process id of nobody finds nothing", [instance(), notes()],
               [{"processId": number} for number in unknown], FAILED, calls={"EnumWindows": len(unknown)})

    name = "the tool box's flag is a number other than 0"
    flags = (1, -1, {"$double": 0.5}, {"$int64": 1})
    yield case("flag-set", name, [instance()], [activate(showToolBoxMenu=flag) for flag in flags], DONE,
               sent=ASKED * len(flags))
    flags = (0, {"$int64": 0}, {"$double": 0}, *NO_NUMBERS)
    yield case("flag-not-set", name, [instance()], [activate(showToolBoxMenu=flag) for flag in flags], DONE)


def scenarios():
    for part in (found, passed_over, refused, numbers):
        yield from part()
