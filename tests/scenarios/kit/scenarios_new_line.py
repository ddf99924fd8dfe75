"""sendNewLineToPreviousWindow: which window counts as the previous one, and the way the line break takes to it."""
from .core import ALWAYS, at, bring_up, change, close_window, edit, fault, key_events, move_focus, on_key, user, window
from .window_calls import DONE, FAILED, MAIN, MAIN_CLASS, OTHER_INSTANCE, Talk, post

WM_ACTIVATE = 6
WAIT_MS = 150
SHIFT, RETURN = 0x10, 0x0D
LINE_BREAK = ((SHIFT, False), (RETURN, False), (RETURN, True), (SHIFT, True))
METHOD = "sendNewLineToPreviousWindow"
NOTHING_TOUCHED = {"SetForegroundWindow": 0, "BringWindowToTop": 0, "AttachThreadInput": 0, "Sleep": 0, "SendInput": 0}


def program(identifier="notes", **facts):
    rules = [on_key("Shift+Enter", change(f"{identifier}Text", value="Draft\n")), *facts.pop("rules", ())]
    return window(identifier, f"{identifier}.exe", identifier.title(), (100, 100, 900, 700),
                  [edit(f"{identifier}Text", "Text", (110, 160, 890, 690), value="Draft")], rules=rules, **facts)


def instance(identifier="page", **facts):
    return window(identifier, OTHER_INSTANCE, "Orvane", (200, 200, 1000, 800), **{"class": MAIN_CLASS, **facts})


def typing(identifier="notes"):
    """A person clicks into the program's text."""
    return [user(foreground=identifier), {"do": [move_focus(f"{identifier}Text")], "window": identifier}]


def activated(other, word=1):
    """WM_ACTIVATE of the main window, which names the window that lost."""
    return post(WM_ACTIVATE, w_param=word, l_param={"$window": other} if isinstance(other, str) else other)


def line_break(milliseconds=WAIT_MS, identifier="notes", batch=1, element=...):
    return key_events(milliseconds, identifier, f"{identifier}Text" if element is ... else element, batch, *LINE_BREAK)


def case(file, name, windows, steps, reply=DONE, to="notes", element=..., faults=(), calls=None, waits=..., end=None,
         **more):
    """One call behind the steps; `to`: who is in front after it and, on success, had the keys."""
    talk = Talk(f"keys/new-line-{file}", name)
    talk.do(*steps)
    waits = reply is DONE if waits is ... else waits
    talk.ask(METHOD, more.get("arguments", ...), reply, takes=WAIT_MS if waits else 0)
    expect = {"input": line_break(identifier=to, element=element) if reply is DONE else [],
              "desktop": {"foreground": to, **(end or {})}}
    if reply is DONE and element is ...:
        expect["desktop"]["values"] = {f"{to}/{to}Text": "Draft\n"}
    counted = calls if waits else {**NOTHING_TOUCHED, **(calls or {})}
    if counted:
        expect["platformCalls"] = counted
    return talk.scenario(windows, faults, expect)


# SetFocus into the view: once at the start, and whenever the main window's activation changes, which in these steps is
# its showing, the person's way there and back, and the call. One more puts the program's own focus back.
VIEW_FOCUSED = 5
# The main window comes back to the front after a person worked elsewhere.
BACK = user(foreground=MAIN)


def tracked():
    whole = {"AttachThreadInput": 2, "GetGUIThreadInfo": 1, "BringWindowToTop": 1, "SetForegroundWindow": 1,
             "SetActiveWindow": 1, "Sleep": 1, "SendInput": 1, "ShowWindow": 1}
    yield case("to-the-last-program", "the line break goes where a person worked last, after 150 ms", [program()],
               [*typing(), BACK], calls={**whole, "SetFocus": VIEW_FOCUSED + 1},
               end={"focus": "notes/notesText", "zOrder": ["notes", MAIN]})
    yield case("to-the-program-in-front", "the program in front gets it too", [program()], typing(), calls=whole)
    yield case("to-the-later-of-two", "the later of two programs gets it", [program(), program("mail")],
               [*typing(), *typing("mail"), BACK], to="mail",
               end={"values": {"mail/mailText": "Draft\n", "notes/notesText": "Draft"}})
    yield case("not-to-a-window-of-nobody", "a foreground of no window forgets nothing", [program()],
               [*typing(), user(foreground=None), BACK])
    yield case("with-arguments", "its arguments don't matter", [program()], [*typing(), BACK],
               arguments={"window": {"$window": MAIN}})
    yield case("by-a-rule", "a program that comes up by itself counts as well", [program(), program("mail")],
               [{"do": [bring_up("notes")]}, {"do": [move_focus("notesText")], "window": "notes"}, BACK])
    yield case("without-a-focus", "a program without a focused control gets it on its window", [program()],
               [user(foreground="notes"), BACK], element=None)
    yield case("to-an-iconic-program", "a minimized program is restored first", [program()],
               [*typing(), BACK, user(minimize="notes")], calls={"ShowWindow": 2},
               end={"windows": {"notes": {"minimized": False}}})
    yield case("of-a-minimized-window", "a minimized main window sends it too", [program(), program("mail")],
               [*typing(), BACK, user(minimize=MAIN)], end={"windows": {MAIN: {"minimized": True}}})

    talk = Talk("keys/new-line-twice", "what was recorded isn't used up, and the person stays there")
    talk.do(*typing(), BACK)
    talk.ask(METHOD, ..., DONE, takes=WAIT_MS)
    talk.ask(METHOD, ..., DONE, takes=WAIT_MS)
    talk.do(BACK)
    talk.ask(METHOD, ..., DONE, takes=WAIT_MS)
    yield talk.scenario([program()], expect={
        "input": [*line_break(150, batch=1), *line_break(300, batch=2), *line_break(450, batch=3)],
        "desktop": {"foreground": "notes"}})


def refusals():
    yield case("to-nobody", "without a previous window nothing happens", [program()], [], FAILED, to=MAIN)
    yield case("to-nobody-at-the-start", "what stood in front before the start isn't known", [program()], [BACK],
               FAILED, to=MAIN)
    yield case("to-a-closed-program", "a program that has closed since is found out, and nothing is touched",
               [program(), program("mail")], [*typing(), BACK, user(close="notes")], FAILED, to=MAIN,
               end={"zOrder": [MAIN, "mail"]})
    yield case("to-a-closed-program-in-front", "a closed program is found out whoever is in front then",
               [program(), program("mail")],
               [*typing("mail"), *typing(), BACK, user(foreground=None), {"do": [close_window("notes")]}], FAILED,
               to=None)
    yield case("foreground-refused", "where the program doesn't come up no key is sent; it stays high in the z-order",
               [program("mail"), program(foregroundRequests="refused")],
               [*typing(), BACK, user(foreground="mail"), BACK, activated("notes")], FAILED, to=MAIN,
               waits=True, calls={"Sleep": 1, "SendInput": 0, "SetForegroundWindow": 1},
               end={"zOrder": ["notes", MAIN, "mail"]})
    yield case("foreground-taken", "where another program takes the foreground meanwhile no key is sent",
               [program(), program("mail", rules=[at(149, bring_up("mail"))])], [*typing(), BACK], FAILED, to="mail",
               waits=True, calls={"SendInput": 0})
    yield case("foreground-lost", "where nobody is in front after the wait no key is sent",
               [program(rules=[at(100, bring_up(None))])], [*typing(), BACK], FAILED, to=None, waits=True,
               calls={"SendInput": 0})
    yield case("foreground-late", "a refused program that comes up within the 150 ms gets the line break",
               [program(foregroundRequests="refused", rules=[at(149, bring_up("notes"))])], [*typing(), BACK])
    yield case("foreground-too-late", "a program that comes up after the 150 ms gets none",
               [program(foregroundRequests="refused", rules=[at(151, bring_up("notes"))])], [*typing(), BACK], FAILED,
               to=MAIN, waits=True, calls={"SendInput": 0})
    yield case("closed-meanwhile", "a program that closes within the 150 ms gets none",
               [program(rules=[at(60, close_window("notes"))])], [*typing(), BACK], FAILED, to=MAIN, waits=True,
               calls={"SendInput": 0})

    talk = Talk("keys/new-line-second-try", "a failed call leaves what was recorded")
    talk.do(*typing(), BACK)
    talk.ask(METHOD, ..., FAILED, takes=WAIT_MS)
    talk.ask(METHOD, ..., DONE, takes=WAIT_MS)
    yield talk.scenario([program(foregroundRequests=1)], expect={"input": line_break(300),
                                                                 "desktop": {"foreground": "notes"}})

    talk = Talk("keys/new-line-events-wait", "a foreground that moves during the call counts once it is over")
    talk.do(*typing(), BACK)
    talk.ask(METHOD, ..., FAILED, takes=WAIT_MS)
    talk.do({"do": [move_focus("mailText")], "window": "mail"})
    talk.ask(METHOD, ..., DONE, takes=WAIT_MS)
    yield talk.scenario([program(), program("mail", rules=[at(60, bring_up("mail"))])],
                        expect={"input": line_break(300, "mail"), "desktop": {"foreground": "mail"}})


def own_windows():
    """Windows of the program itself: the hook leaves them out, WM_ACTIVATE doesn't."""
    yield case("not-to-another-instance", "the hook never records another instance", [instance(), program()],
               [*typing(), user(foreground="page"), BACK])
    yield case("not-to-another-instance-alone", "another instance in front is nobody to the hook",
               [instance(), program()], [user(foreground="page"), BACK], FAILED, to=MAIN)
    yield case("to-another-instance-by-activation", "WM_ACTIVATE records another instance", [instance(), program()],
               [*typing(), BACK, activated("page")], to="page", element=None)
    yield case("by-hook-after-activation", "the hook replaces what WM_ACTIVATE recorded", [instance(), program()],
               [activated("page"), *typing(), BACK])
    yield case("not-to-a-panel", "the hook never records a window with the backdrop's mark",
               [program("mail", cleanBackground=True), program()], [*typing(), user(foreground="mail"), BACK])
    yield case("to-a-panel-by-activation", "WM_ACTIVATE records a window with the backdrop's mark",
               [program("mail", cleanBackground=True), program()], [*typing(), BACK, activated("mail")], to="mail",
               element=None)
    yield case("to-a-copy-elsewhere", "a copy of the program at another path is another program",
               [instance(path="D:\\Copy\\orvane.exe"), program()], [*typing(), user(foreground="page"), BACK],
               to="page", element=None)
    for call, result in (("OpenProcess", None), ("QueryFullProcessImageNameW", False), ("GetModuleFileNameW", 0)):
        yield case(f"to-another-instance-{call}-fails".lower(), "an instance that can't be told for one is recorded",
                   [instance(), program()], [user(foreground="page"), BACK], to="page", element=None,
                   faults=[fault(call, result)])

    def with_backdrop(file, name, steps, to, element=..., calls=None):
        talk = Talk(f"keys/new-line-{file}", name)
        talk.do({"call": {"channel": "orvane/window", "method": "syncCleanBackground"}}, *steps)
        talk.replies.append({"as": "0", "method": "syncCleanBackground", "kind": "success", "value": {"visible": True}})
        talk.ask(METHOD, ..., DONE, takes=WAIT_MS)
        expect = {"input": line_break(identifier=to, element=element), "desktop": {"foreground": to}}
        if calls:
            expect["platformCalls"] = calls
        return talk.scenario([program()], expect=expect)

    yield with_backdrop("not-to-the-backdrop", "the hook never records the backdrop",
                        [*typing(), user(foreground="backdrop")], "notes")
    # The same thread on both sides: there is no queue to attach to.
    yield with_backdrop("to-the-backdrop-by-activation", "the main window's activation from the backdrop records it",
                        [*typing(), user(foreground="backdrop"), BACK], "backdrop", None,
                        {"AttachThreadInput": 0, "GetGUIThreadInfo": 0, "SetActiveWindow": 1})


# Words of WM_ACTIVATE and what they name, and whether the window is recorded.
ACTIVATIONS = {
    "active": (lambda: activated("mail", 1), True), "clicked": (lambda: activated("mail", 2), True),
    "active-minimized": (lambda: activated("mail", 0x10001), True),
    "any-low-word": (lambda: activated("mail", 0x8000), True),
    "inactive": (lambda: activated("mail", 0), False),
    "inactive-minimized": (lambda: activated("mail", 0x10000), False),
    "itself": (lambda: activated(MAIN), False), "nobody": (lambda: activated(0), False),
    "no-window": (lambda: activated(0x7FFF0), False)}


def activations():
    for file, (step, is_recorded) in ACTIVATIONS.items():
        windows = [program("mail"), program()]
        yield case(f"activation-{file}", "WM_ACTIVATE records the window that lost, when the main window won", windows,
                   [*typing(), BACK, {"do": [move_focus("mailText")], "window": "mail"}, step()],
                   to="mail" if is_recorded else "notes")
        if not is_recorded:
            yield case(f"activation-{file}-alone",
                       "WM_ACTIVATE records nothing but a living window that lost to the main window", windows,
                       [step()], FAILED, to=MAIN)

    yield case("activation-of-a-closed-window", "WM_ACTIVATE records no window that has closed",
               [program("mail"), program()], [*typing(), BACK, user(close="mail"), activated("mail")])
    yield case("activation-not-a-window", "what IsWindow denies isn't recorded", [program("mail"), program()],
               [*typing(), BACK, activated("mail")], faults=[fault("IsWindow", False, window="mail")])


def without_a_hook():
    no_hook = [fault("SetWinEventHook", None)]
    calls = {"SetWinEventHook": 1, "UnhookWinEvent": 0}
    yield case("no-hook", "without the hook a person's way isn't seen, and nothing is said", [program()],
               [*typing(), BACK], FAILED, to=MAIN, faults=no_hook, calls=calls)
    yield case("no-hook-activation", "without the hook WM_ACTIVATE alone records", [program(), program("mail")],
               [*typing(), *typing("mail"), BACK, activated("notes")], faults=no_hook, calls=calls)
    yield case("hook", "the hook is installed once and taken away", [program()], [*typing(), BACK],
               calls={"SetWinEventHook": 1, "UnhookWinEvent": 1})


def failing_calls():
    steps = [*typing(), BACK]
    yield case("not-attached", "input that can't be attached stops nothing; no focus is put back", [program()], steps,
               faults=[fault("AttachThreadInput", False)],
               calls={"AttachThreadInput": 1, "GetGUIThreadInfo": 0, "SetFocus": VIEW_FOCUSED})
    yield case("focus-unknown", "a focus that can't be read isn't put back, and the input is let go", [program()],
               steps, faults=[fault("GetGUIThreadInfo", False)],
               calls={"AttachThreadInput": 2, "GetGUIThreadInfo": 1, "SetFocus": VIEW_FOCUSED})
    yield case("thread-unknown", "without the other thread nothing is attached", [program()],
               [activated("notes"), {"do": [move_focus("notesText")], "window": "notes"}],
               faults=[fault("GetWindowThreadProcessId", 0, window="notes")],
               calls={"AttachThreadInput": 0, "GetGUIThreadInfo": 0})
    for call, result in (("BringWindowToTop", False), ("SetActiveWindow", None), ("SetFocus", None)):
        about = {} if call == "SetFocus" else {"window": "notes"}
        yield case(f"{call}-fails".lower(), "what the requests answer isn't looked at", [program()], steps,
                   faults=[fault(call, result, times=ALWAYS, **about)])
    yield case("foreground-call-fails", "a foreground that isn't reached gets no key, whatever the request answers",
               [program()], steps, FAILED, to=MAIN, waits=True, faults=[fault("SetForegroundWindow", 1)],
               calls={"SendInput": 0}, end={"zOrder": ["notes", MAIN]})
    yield case("foreground-not-read", "a foreground that can't be read gets no key", [program()], steps, FAILED,
               to="notes", waits=True, faults=[fault("GetForegroundWindow", None)], calls={"SendInput": 0})
    yield case("root-not-read", "a root that can't be read gets no key", [program()], [activated("notes")], FAILED,
               to="notes", waits=True, faults=[fault("GetAncestor", None)], calls={"SendInput": 0})
    yield case("not-restored", "a minimized program that can't be restored gets the keys as it stands", [program()],
               [*steps, user(minimize="notes")], faults=[fault("ShowWindow", False, window="notes")],
               end={"windows": {"notes": {"minimized": True}}})
    for delivered in (0, 1, 2, 3):
        yield case(f"delivered-{delivered}", "fewer events than four are a failure, and nothing is sent again",
                   [program()], steps, FAILED, to="notes", waits=True, faults=[fault("SendInput", delivered)],
                   calls={"SendInput": 1})


def scenarios():
    for part in (tracked, refusals, own_windows, activations, without_a_hook, failing_calls):
        yield from part()
