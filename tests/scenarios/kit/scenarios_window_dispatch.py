"""Every method of the window channel: which arguments it reads, how, and exactly what it answers."""
import struct

from .channel import text_bytes
from .core import ALWAYS, call, fault, user, window
from .placement import Placed, monitor
from .window_calls import CHANNEL, DONE, FAILED, MAIN, NO_MAPS, NO_NUMBERS, Talk, logical, posted, slug

SCREEN = [monitor((0, 0, 1920, 1080))]
MAP_OF_OTHERS = {"other": 7, "Width": 640, "WORD": "teh", "Keys": "Win+D", "processid": 9, "": "x"}
EMPTY_HTML = ("Version:1.0\r\nStartHTML:0000000105\r\nEndHTML:0000000169\r\nStartFragment:0000000137\r\n"
              "EndFragment:0000000137\r\n<html><body><!--StartFragment--><!--EndFragment--></body></html>")
NO_MENU = {"success": False, "action": ""}
NO_PATH = {"success": False, "errorCode": 2}
PNG = "iVBORw0KGgo="

METHODS = (
    "readOrvaneDraftClipboard", "writeOrvaneDraftClipboard", "activateContentProcess", "checkSpelling",
    "restoreCleanBackground", "syncCleanBackground", "getWorkArea", "getBounds", "clipboardSequenceNumber",
    "readClipboardImage", "openScreenCapture", "openTaskManager", "openCommandPromptAt", "openCommandWindow",
    "runBatchFile", "openTextFile", "sendWindowsHotKey", "sendNewLineToPreviousWindow", "showNativeHotKeysMenu",
    "minimizeWindow", "closeWindow", "beginWindowDrag", "setBounds", "emergencyRestore")


def panel_reply():
    """The panel below a window of the first size at 96 dpi, one fifth of the gap high."""
    main = Placed(SCREEN).bounds
    caption, border, frame_bottom = 31, 8, main[3] - 7
    gap = max(1, 1040 - frame_bottom)
    width = min(main[2] - main[0] + 12, 1920 - main[0])
    height = max(1, gap * 20 // 100) + caption + border
    top = frame_bottom - 2 * border - caption
    return {**logical((main[0], top, main[0] + width, top + height), 96), "errorCode": {"$int64": 0},
            "temporarilyClosed": False, "visible": True}


def opened(owner, file, parameters=None):
    return {"owner": owner, "verb": "open", "file": file, "parameters": parameters, "directory": None, "show": 1}


def placed_facts(act):
    placed = Placed(SCREEN)
    act(placed)
    return {"desktop": {"foreground": MAIN, "windows": {MAIN: placed.facts()}}}


def answers():
    """By method: the answer to no arguments, and what a run of `count` such calls leaves; the desktop it needs."""
    first = {"desktop": {"foreground": MAIN, "windows": {MAIN: Placed(SCREEN).facts()}}}
    drafts = {"success": True, "html": "", "text": "Draft"}
    shell = {
        "openScreenCapture": opened(None, "ms-screenclip:"), "openTaskManager": opened(None, "taskmgr.exe"),
        "openCommandPromptAt": opened(MAIN, "cmd.exe", "/k"),
        "openCommandWindow": opened(MAIN, "cmd.exe", "/k explorer .")}
    drag = posted(MAIN, 0x112, 0xF012)

    yield "readOrvaneDraftClipboard", drafts, lambda count: first, {"clipboard": {"text": "Draft"}}
    yield ("writeOrvaneDraftClipboard", DONE,
           lambda count: {"desktop": {"clipboard": {"text": "", "html": EMPTY_HTML}}}, {"clipboard": {"text": "Draft"}})
    yield "activateContentProcess", FAILED, lambda count: {**first, "platformCalls": {"EnumWindows": 0}}, {}
    yield ("checkSpelling", {"supported": True, "misspelled": False, "suggestions": []}, lambda count: first,
           {"spelling": {"en-US": {"words": [""]}}})
    yield "restoreCleanBackground", FAILED, lambda count: {**first, "platformCalls": {"EnumWindows": count}}, {}
    yield ("syncCleanBackground", panel_reply(),
           lambda count: {"desktop": {"windows": {"backdrop": {"visible": True}}}}, {})
    yield "getWorkArea", logical(SCREEN[0]["work"], 96), lambda count: first, {}
    yield "getBounds", logical(Placed(SCREEN).bounds, 96), lambda count: first, {}
    yield ("clipboardSequenceNumber", {"success": True, "sequence": {"$int64": 1}},
           lambda count: {**first, "platformCalls": {"OpenClipboard": 0}}, {"clipboard": {"text": "Draft"}})
    yield "readClipboardImage", FAILED, lambda count: first, {"clipboard": {"text": "Draft"}}
    for method, record in shell.items():
        yield method, DONE, lambda count, record=record: {**first, "shell": [record] * count}, {}
    for method in ("runBatchFile", "openTextFile"):
        yield method, NO_PATH, lambda count: {**first, "platformCalls": {"ShellExecuteW": 0}}, {}
    yield "sendWindowsHotKey", FAILED, lambda count: {**first, "platformCalls": {"SendInput": 0}}, {}
    yield ("sendNewLineToPreviousWindow", FAILED,
           lambda count: {**first, "platformCalls": {"SetForegroundWindow": 0, "Sleep": 0, "SendInput": 0}}, {})
    yield ("showNativeHotKeysMenu", NO_MENU,
           lambda count: {**first, "painted": [], "platformCalls": {"CreatePopupMenu": count, "TrackPopupMenuEx": 0}},
           {})
    yield ("minimizeWindow", DONE,
           lambda count: {"desktop": {"foreground": None, "windows": {MAIN: Placed(SCREEN).facts(minimized=True)}}}, {})
    yield "beginWindowDrag", DONE, lambda count: {**first, "posted": [drag] * count}, {}
    yield "setBounds", DONE, lambda count: placed_facts(Placed.set_bounds), {}
    yield "emergencyRestore", DONE, lambda count: placed_facts(Placed.restore), {}


def without_a_map():
    for method, reply, left_behind, desktop in answers():
        talk = Talk(f"window/dispatch-{slug(method)}",
                    f"{method}: what is no map, or has none of its keys, counts as no arguments")
        kinds = (*NO_MAPS, {}, MAP_OF_OTHERS)
        for arguments in kinds:
            talk.ask(method, arguments, reply)
        yield talk.scenario(expect=left_behind(len(kinds)), **desktop)


def closing():
    for file, arguments in (("", ...), ("-with-arguments", {"success": False, "windowHandle": 7})):
        talk = Talk(f"window/dispatch-close-window{file}", "closeWindow answers first, then the window goes")
        talk.ask("closeWindow", arguments, DONE)
        talk.do(call("getBounds", channel=CHANNEL))
        yield talk.scenario(expect={"posted": [posted(MAIN, 0x10)], "desktop": {"foreground": None, "windows": {}},
                                    "platformCalls": {"PostQuitMessage": 1, "GetWindowRect": 0}})


def unknown():
    talk = Talk("window/unknown-methods", "a name that isn't exactly a method's is not implemented")
    for method in ("", "nothing", "showToolBoxMenu", "openExternalUrl", "activateProvider", "setBounds ", " setBounds",
                   "setBounds\u0000", "setBound", "setBoundsNow", "set_bounds", "ｓetBounds", "closeWindow()"):
        talk.refuse(method, {"x": 1, "keys": "Win+D", "batchPath": "a.bat"})
    talk.refuse("showToolBoxMenu")
    yield talk.scenario(expect={"desktop": {"foreground": MAIN, "windows": {MAIN: Placed(SCREEN).facts()}},
                                "platformCalls": {"SetWindowPos": 0, "SendInput": 0, "ShellExecuteW": 0}})

    for file, change in (("upper", str.upper), ("lower", str.lower),
                         ("first-letter-upper", lambda name: name[0].upper() + name[1:])):
        talk = Talk(f"window/letter-case-{file}", "a method's name is compared with its case")
        for method in METHODS:
            talk.refuse(change(method), {"x": 1})
        yield talk.scenario(expect={"desktop": {"windows": {MAIN: Placed(SCREEN).facts()}},
                                    "platformCalls": {"SetWindowPos": 0, "PostMessageW": 0, "ShellExecuteW": 0}})

    talk = Talk("window/methods-of-the-other-channel", "no channel answers for another")
    for method in METHODS:
        talk.do({"call": {"channel": "orvane/browser", "method": method}})
        talk.expect(method, "notImplemented", None, "")
    yield talk.scenario()


def invalid_window():
    talk = Talk("window/invalid-window", "without a living window every name, known or not, fails in one key")
    for method in (*METHODS, "nothing", "showToolBoxMenu", ""):
        talk.ask(method, {"keys": "Win+D", "batchPath": "a.bat", "filePath": "a.txt"}, FAILED)
    yield talk.scenario(
        faults=[fault("IsWindow", False, times=ALWAYS, window=MAIN)], clipboard={"text": "Draft"},
        expect={"desktop": {"windows": {MAIN: Placed(SCREEN).facts()}, "clipboard": {"text": "Draft", "sequence": 1}},
                "platformCalls": {"SetWindowPos": 0, "OpenClipboard": 0, "EnumWindows": 0, "PostMessageW": 0,
                                  "GetClipboardSequenceNumber": 0, "ShowWindow": 1}})

    talk = Talk("window/invalid-window-then-valid", "the window is asked for afresh at each call")
    talk.ask("clipboardSequenceNumber", ..., FAILED)
    talk.ask("clipboardSequenceNumber", ..., {"success": True, "sequence": {"$int64": 1}})
    talk.refuse("nothing")
    yield talk.scenario(faults=[fault("IsWindow", False, window=MAIN)])


def scale_of_nothing():
    screen = [monitor((0, 0, 3840, 2160), 144)]
    talk = Talk("window/scale-without-a-dpi", "a dpi of 0 counts as a scale of 1")
    talk.ask("getBounds", ..., logical(Placed(screen).bounds, 96))
    talk.ask("getWorkArea", ..., logical(screen[0]["work"], 96))
    talk.ask("getBounds", ..., logical(Placed(screen).bounds, 144))
    yield talk.scenario(monitors=screen, faults=[fault("GetDpiForWindow", 0, times=2, window=MAIN)])


# Kinds of numbers, and the number that each reads as.
NUMBERS = ((640, 640), ({"$int64": 640}, 640), ({"$double": 640}, 640), ({"$double": 640.75}, 640.75), (-640, -640))


def number_kinds():
    for key, plain in (("x", 20), ("y", 20), ("width", 200), ("height", 470), ("clientHeight", 0)):
        placed = Placed(SCREEN)
        talk = Talk(f"window/numbers-{slug(key)}", f"{key}: every kind of number is one, and everything else none")
        for value, number in (*NUMBERS, *((wrong, plain) for wrong in NO_NUMBERS)):
            talk.ask("setBounds", {key: value}, DONE)
            placed.set_bounds(**{key: number})
            talk.ask("getBounds", ..., logical(placed.bounds, 96))
        yield talk.scenario(expect={"desktop": {"windows": {MAIN: placed.facts()}}})


def flags():
    hidden = {**panel_reply(), "visible": False}
    talk = Talk("window/flags", "a flag is a number other than 0; a bool and a text leave its default in force")
    for enabled in (False, True, None, "0", [0], {"$bytes": "AA=="}, 1, -1, {"$double": 0.25}, {"$int64": 2}):
        talk.ask("syncCleanBackground", {"enabled": enabled}, panel_reply())
    for enabled in (0, {"$int64": 0}, {"$double": 0}, {"$double": -0.0}):
        talk.ask("syncCleanBackground", {"enabled": enabled}, hidden)
        talk.ask("syncCleanBackground", {"enabled": 1}, panel_reply())
    yield talk.scenario(expect={"desktop": {"windows": {"backdrop": {"visible": True}}}})

    talk = Talk("window/flag-enabled-false", "enabled as the bool false leaves the backdrop in sight")
    talk.ask("syncCleanBackground", {"enabled": False}, panel_reply())
    yield talk.scenario(expect={"desktop": {"zOrder": [MAIN, "backdrop"],
                                            "windows": {"backdrop": {"visible": True}}}})

    talk = Talk("window/flag-enabled-zero", "enabled as the number 0 hides the backdrop")
    talk.ask("syncCleanBackground", ..., panel_reply())
    talk.ask("syncCleanBackground", {"enabled": 0}, hidden)
    yield talk.scenario(expect={"desktop": {"windows": {"backdrop": {"visible": False}}}})


def spelling_arguments():
    wrong = {"supported": True, "misspelled": True, "suggestions": ["the"]}
    talk = Talk("window/spelling-language", "a language that is empty or no text is en-US")
    for language in ("", None, 7, ["de-DE"], {"tag": "de-DE"}, {"$bytes": "ZGUtREU="}, "en-US"):
        talk.ask("checkSpelling", {"word": "teh", "language": language}, wrong)
    talk.ask("checkSpelling", {"word": "teh"}, wrong)
    talk.ask("checkSpelling", {"word": "teh", "language": "de-DE"},
             {"supported": False, "misspelled": False, "suggestions": []})
    yield talk.scenario(spelling={"en-US": {"words": ["the"], "suggest": {"teh": ["the"]}}})


def raw_messages():
    """Messages as bytes: the arguments behind the name, or nothing there."""
    invalid_read = "Invalid read in StandardCodecByteStreamReader"
    sequence = {"success": True, "sequence": {"$int64": 1}}
    name = text_bytes("clipboardSequenceNumber")
    talk = Talk("window/raw-messages", "a message is read as far as it goes")
    talk.send(name + "00", "clipboardSequenceNumber", sequence)
    talk.send(name, ..., sequence)
    talk.send(name + "00ffff", ..., sequence)
    talk.send("05" + name[2:] + "00", ..., sequence)
    talk.send(text_bytes("setBounds") + "0d01" + text_bytes("width") + "0380020000", "setBounds", DONE)
    talk.send(text_bytes("getbounds") + "00", "getbounds", None)
    for reply in talk.replies:
        if reply["method"] is ...:
            del reply["method"]
    placed = Placed(SCREEN)
    placed.set_bounds(width=640)
    yield talk.scenario(expect={"desktop": {"windows": {MAIN: placed.facts()}}, "stderr": [invalid_read]})

    talk = Talk("window/raw-numbers", "a map's number is read by its tag")
    placed = Placed(SCREEN)
    opening = text_bytes("setBounds") + "0d01" + text_bytes("width")
    padding = -(len(opening) // 2 + 1) % 8
    for value, number in (("0358020000", 600), ("045802000000000000", 600), ("0c00", 200), ("00", 200), ("01", 200),
                          ("06" + "00" * padding + struct.pack("<d", 600).hex(), 600)):
        talk.send(opening + value, "setBounds", DONE)
        placed.set_bounds(width=number)
        talk.ask("getBounds", ..., logical(placed.bounds, 96))
    yield talk.scenario()


def image_reply():
    talk = Talk("window/image-reply", "an image comes as a byte list, and without one the key is absent")
    talk.ask("readClipboardImage", ..., {"success": True, "bytes": {"$bytes": PNG}})
    talk.do({"do": [{"clipboard": {"text": "no picture"}}]})
    talk.ask("readClipboardImage", ..., FAILED)
    talk.ask("clipboardSequenceNumber", ..., {"success": True, "sequence": {"$int64": 2}})
    yield talk.scenario(clipboard={"png": PNG})

    talk = Talk("window/sequence-of-a-locked-clipboard", "the sequence number never fails, not even while it is locked")
    talk.ask("clipboardSequenceNumber", ..., {"success": True, "sequence": {"$int64": 1}})
    talk.ask("readOrvaneDraftClipboard", ..., FAILED)
    talk.ask("readClipboardImage", ..., FAILED)
    talk.ask("writeOrvaneDraftClipboard", {"text": "a"}, FAILED)
    yield talk.scenario([window("paint", "mspaint.exe", "Untitled - Paint", (100, 100, 900, 700))],
                        clipboard={"text": "Draft", "lockedBy": "paint"}, foreground=None,
                        expect={"desktop": {"foreground": None, "clipboard": {"text": "Draft", "sequence": 1}}})

    talk = Talk("window/calls-in-the-background", "methods answer while another program is in front")
    talk.do(user(foreground="paint"))
    talk.ask("getBounds", ..., logical(Placed(SCREEN).bounds, 96))
    talk.ask("getWorkArea", ..., logical(SCREEN[0]["work"], 96))
    talk.ask("sendWindowsHotKey", {"keys": "none"}, FAILED)
    yield talk.scenario([window("paint", "mspaint.exe", "Untitled - Paint", (100, 100, 900, 700))],
                        expect={"desktop": {"foreground": "paint", "zOrder": ["paint", MAIN]}})


def scenarios():
    for part in (without_a_map, closing, unknown, invalid_window, scale_of_nothing, number_kinds, flags,
                 spelling_arguments, raw_messages, image_reply):
        yield from part()
