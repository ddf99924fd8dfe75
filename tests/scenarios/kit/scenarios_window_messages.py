"""Messages that come to the main window: which it finishes by itself, and which go on harmlessly."""
from .core import fault, user, window
from .placement import Placed, monitor
from .window_calls import DONE, FAILED, MAIN, TOOL_BOX_MESSAGE, Talk, logical, post, posted, tool_box_call

WM_NULL, WM_SIZE, WM_ACTIVATE, WM_CLOSE, WM_FONTCHANGE = 0x00, 0x05, 0x06, 0x10, 0x1D
WM_KEYDOWN, WM_TIMER, WM_USER = 0x100, 0x113, 0x400
WM_GETMINMAXINFO, WM_DRAWITEM, WM_MEASUREITEM = 0x24, 0x2B, 0x2C
WM_COLORIZATION = 0x320
RESTORE_BACKDROP = 0x8146
SCREEN = [monitor((0, 0, 1920, 1080))]
COLOURS = [{"window": MAIN, "attribute": 35, "value": 0x00425C12},
           {"window": MAIN, "attribute": 36, "value": 0x00FFFFFF}]


def notes(**facts):
    return window("notes", "notepad.exe", "notes - Notepad", (100, 100, 900, 700), **facts)


def alive(talk, placed=None):
    """The window still answers, and stands where it stood."""
    talk.ask("getBounds", ..., logical((placed or Placed(SCREEN)).bounds, 96))


def tool_box():
    talk = Talk("window/tool-box-message", "the tool box message becomes one call to the interface, without arguments")
    talk.do(post(TOOL_BOX_MESSAGE))
    yield talk.scenario(expect={"toInterface": [tool_box_call()],
                                "platformCalls": {"FlutterDesktopMessengerSend": 1, "SetForegroundWindow": 0}})

    talk = Talk("window/tool-box-message-parameters", "the tool box message's parameters don't matter")
    for w_param, l_param in ((1, 0), (0, 1), (0x8153, {"$window": "notes"})):
        talk.do(post(TOOL_BOX_MESSAGE, w_param=w_param, l_param=l_param))
    yield talk.scenario([notes()], expect={"toInterface": [tool_box_call()] * 3})

    talk = Talk("window/tool-box-message-each", "each tool box message is a call of its own, in its turn")
    talk.do(post(TOOL_BOX_MESSAGE), post(TOOL_BOX_MESSAGE))
    alive(talk)
    talk.wait(40)
    talk.do(post(TOOL_BOX_MESSAGE))
    talk.wait(10)
    yield talk.scenario(expect={"toInterface": [tool_box_call(), tool_box_call(), tool_box_call(40)]})

    talk = Talk("window/tool-box-message-minimized", "a minimized window passes the tool box message on, and stays so")
    talk.do(user(minimize=MAIN), post(TOOL_BOX_MESSAGE))
    yield talk.scenario([notes()], expect={"toInterface": [tool_box_call()],
                                           "desktop": {"foreground": "notes", "windows": {MAIN: {"minimized": True}}}})

    talk = Talk("window/tool-box-message-in-the-background", "the message itself brings nothing to the front")
    talk.do(user(foreground="notes"), post(TOOL_BOX_MESSAGE))
    yield talk.scenario([notes()], expect={"toInterface": [tool_box_call()],
                                           "desktop": {"foreground": "notes", "zOrder": ["notes", MAIN]}})

    for file, arguments in (("content-page", ["--orvane-content-page=7"]),
                            ("tool-box-start", ["--orvane-open-toolbox"])):
        talk = Talk(f"window/tool-box-message-{file}", "a process that started off screen passes the message on",
                    arguments)
        talk.do(post(TOOL_BOX_MESSAGE))
        alive(talk, Placed(SCREEN, (-32000, -32000)))
        yield talk.scenario(expect={"toInterface": [tool_box_call()],
                                    "platformCalls": {"SetWinEventHook": 1, "FlutterDesktopMessengerSetCallback": 2}})

    talk = Talk("window/tool-box-message-not-sent", "a call that can't be sent is not sent again")
    talk.do(post(TOOL_BOX_MESSAGE))
    alive(talk)
    yield talk.scenario(faults=[fault("FlutterDesktopMessengerSend", False)],
                        expect={"platformCalls": {"FlutterDesktopMessengerSend": 1}})

    talk = Talk("window/tool-box-message-to-the-backdrop", "the backdrop passes no tool box message on")
    talk.do({"call": {"channel": "orvane/window", "method": "syncCleanBackground"}}, post(TOOL_BOX_MESSAGE, "backdrop"))
    talk.replies.append({"as": "0", "method": "syncCleanBackground", "kind": "success", "value": {"visible": True}})
    yield talk.scenario()


# Messages that mean nothing to this window by themselves, with their parameters.
HARMLESS = {
    "of-no-menu": [(message, control, 0) for message in (WM_MEASUREITEM, WM_DRAWITEM) for control in (0, 7)],
    "without-a-place": [(WM_GETMINMAXINFO, 0, 0)],
    "of-the-program-for-others": [(RESTORE_BACKDROP, 0, 0), (TOOL_BOX_MESSAGE - 1, 0, 0), (TOOL_BOX_MESSAGE + 1, 0, 0),
                                  (0x8000, 1, 2), (0xFFFF, 0, 0)],
    "of-the-system": [(WM_NULL, 0, 0), (WM_ACTIVATE, 0, 0), (WM_SIZE, 0, 0), (WM_KEYDOWN, 0x41, 0), (WM_TIMER, 1, 0),
                      (WM_USER, 0, 0), (0xC123, 1, 1)]}


def harmless():
    for file, messages in HARMLESS.items():
        talk = Talk(f"window/messages-{file}", "a message that isn't for this window goes on and changes nothing")
        for message, w_param, l_param in messages:
            talk.do(post(message, w_param=w_param, l_param=l_param))
            alive(talk)
        yield talk.scenario([notes()], expect={
            "desktop": {"foreground": MAIN, "zOrder": [MAIN, "notes"], "windows": {MAIN: Placed(SCREEN).facts()}},
            "painted": [], "platformCalls": {"ShowWindow": 1, "SetWindowPos": 0}})

    placed = Placed(SCREEN)
    placed.set_bounds(width=200)
    talk = Talk("window/messages-compact", "in compact form too, limits without a place go on and change nothing")
    talk.ask("setBounds", {"width": 200}, DONE)
    talk.do(post(WM_GETMINMAXINFO), post(WM_DRAWITEM), post(WM_MEASUREITEM))
    alive(talk, placed)
    yield talk.scenario(expect={"desktop": {"windows": {MAIN: placed.facts()}}})


def passed_on():
    talk = Talk("window/fonts-changed", "changed fonts are told to the engine")
    talk.do(post(WM_FONTCHANGE), post(WM_FONTCHANGE))
    alive(talk)
    yield talk.scenario(expect={"platformCalls": {"FlutterDesktopEngineReloadSystemFonts": 2}})

    talk = Talk("window/colours-changed", "changed system colours set the caption's colours again")
    talk.do(post(WM_COLORIZATION))
    alive(talk)
    yield talk.scenario(expect={"attributes": COLOURS * 2})

    talk = Talk("window/fonts-never-changed", "no other message reloads the fonts")
    for message in (WM_FONTCHANGE - 1, WM_FONTCHANGE + 1, TOOL_BOX_MESSAGE):
        talk.do(post(message))
    alive(talk)
    yield talk.scenario(expect={"toInterface": [tool_box_call()],
                                "platformCalls": {"FlutterDesktopEngineReloadSystemFonts": 0}})

    talk = Talk("window/close-message", "the close message of another program ends the run")
    talk.do(post(WM_CLOSE))
    yield talk.scenario([notes()], expect={"desktop": {"foreground": "notes", "zOrder": ["notes"]},
                                           "platformCalls": {"PostQuitMessage": 1, "UnhookWinEvent": 1}})

    talk = Talk("window/messages-in-order", "messages keep their order among calls")
    talk.do(post(TOOL_BOX_MESSAGE))
    talk.ask("minimizeWindow", ..., DONE)
    talk.do(post(TOOL_BOX_MESSAGE))
    talk.ask("sendWindowsHotKey", {"keys": ""}, FAILED)
    talk.ask("beginWindowDrag", ..., DONE)
    talk.do(post(TOOL_BOX_MESSAGE))
    yield talk.scenario([notes()], expect={"toInterface": [tool_box_call()] * 3,
                                           "posted": [posted(MAIN, 0x112, 0xF012)],
                                           "desktop": {"foreground": MAIN}})


def hook():
    talk = Talk("window/hook-installed-once", "a run installs one foreground hook and takes it away")
    alive(talk)
    yield talk.scenario(expect={"platformCalls": {"SetWinEventHook": 1, "UnhookWinEvent": 1}})

    talk = Talk("window/hook-refused", "a hook that isn't given is nothing to take away, and nothing is said")
    talk.do(user(foreground="notes"))
    alive(talk)
    yield talk.scenario([notes()], [fault("SetWinEventHook", None)],
                        {"stderr": [], "platformCalls": {"SetWinEventHook": 1, "UnhookWinEvent": 0}})

    talk = Talk("window/hook-kept-on-failure", "a hook that can't be taken away is not tried again")
    alive(talk)
    made = talk.scenario(faults=[fault("UnhookWinEvent", False)], expect={"platformCalls": {"UnhookWinEvent": 1}})
    # The platform kept it: the one thing that is left.
    made[1]["expect"]["live"] = {**made[1]["expect"]["live"], "hooks": 1}
    yield made


def scenarios():
    for part in (tool_box, harmless, passed_on, hook):
        yield from part()
