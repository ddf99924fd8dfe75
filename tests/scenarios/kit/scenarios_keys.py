"""sendWindowsHotKey: each chord in one batch, to whatever has the focus, and nothing for any other text."""
from .core import button, edit, fault, key_events, move_focus, on_key, change, user, window
from .window_calls import DONE, FAILED, MAIN, NO_TEXTS, Talk

WIN, SHIFT, ALT, PRINT = 0x5B, 0x10, 0x12, 0x2C
HOT_KEYS = {
    "Win+Shift+R": (WIN, SHIFT, ord("R")), "Win+Alt+R": (WIN, ALT, ord("R")), "Alt+PrtSc": (ALT, PRINT),
    "Win+PrtSc": (WIN, PRINT), "Win+D": (WIN, ord("D")), "Win+E": (WIN, ord("E")), "Win+H": (WIN, ord("H")),
    "Win+V": (WIN, ord("V"))}


def slug(keys):
    return keys.lower().replace("+", "-")


def pressed(keys):
    """Down in order, up in the reverse order."""
    return [(key, False) for key in keys] + [(key, True) for key in reversed(keys)]


def notes(**facts):
    return window("notes", "notepad.exe", "notes - Notepad", (100, 100, 900, 700),
                  [edit("text", "Text editor", (110, 160, 890, 690), value="Draft"),
                   button("save", "Save", (110, 110, 170, 150))], **facts)


def focus_text():
    return {"do": [move_focus("text")], "window": "notes"}


def chords():
    for keys, codes in HOT_KEYS.items():
        talk = Talk(f"keys/{slug(keys)}", f"{keys} goes out in one batch, to the focus of the window in front")
        talk.do(focus_text())
        talk.ask("sendWindowsHotKey", {"keys": keys, "other": 7}, DONE)
        yield talk.scenario([notes()], foreground="notes",
                            expect={"input": key_events(0, "notes", "text", 1, *pressed(codes)),
                                    "desktop": {"foreground": "notes", "values": {"notes/text": "Draft"}},
                                    "platformCalls": {"SendInput": 1, "SetForegroundWindow": 0, "Sleep": 0}})

    # What SendInput says against what was given; with fewer events nothing is sent again.
    for keys in ("Win+Shift+R", "Alt+PrtSc"):
        codes = HOT_KEYS[keys]
        talk = Talk(f"keys/{slug(keys)}-delivered", f"{keys} is a success when every one of its events is delivered")
        count = 2 * len(codes)
        for delivered in (0, 1, count - 1, count + 1, count):
            talk.ask("sendWindowsHotKey", {"keys": keys}, DONE if delivered == count else FAILED)
        yield talk.scenario(faults=[fault("SendInput", delivered, nth=at) for at, delivered
                                    in enumerate((0, 1, count - 1, count + 1, count), 1)],
                            expect={"platformCalls": {"SendInput": 5}})

    talk = Talk("keys/all-in-turn", "chords follow one another, each in a batch of its own")
    events = []
    for batch, (keys, codes) in enumerate(HOT_KEYS.items(), 1):
        talk.ask("sendWindowsHotKey", {"keys": keys}, DONE)
        talk.wait(10)
        events += key_events(10 * (batch - 1), MAIN, None, batch, *pressed(codes))
    yield talk.scenario(expect={"input": events, "platformCalls": {"SendInput": len(HOT_KEYS)}})

    talk = Talk("keys/nobody-in-front", "a chord goes out with no window in front too")
    talk.ask("sendWindowsHotKey", {"keys": "Win+D"}, DONE)
    yield talk.scenario([notes()], foreground=None,
                        expect={"input": key_events(0, None, None, 1, *pressed(HOT_KEYS["Win+D"]))})


def refusals():
    nothing = {"platformCalls": {"SendInput": 0}}
    talk = Talk("keys/other-texts", "any other text, and any other case, sends nothing")
    for keys in ("", "win+d", "WIN+D", "Win+d", "Win + D", " Win+D", "Win+D ", "Win+D\u0000", "D+Win", "Win", "Win+",
                 "Win+Shift+r", "Win+R+Shift", "Shift+Win+R", "Alt+PrtScn", "PrtSc", "Ctrl+V", "Win+L", "Win+R",
                 "Win+Shift+R+", "Win+V,Win+D", "Ｗin+D", "Enter"):
        talk.ask("sendWindowsHotKey", {"keys": keys}, FAILED)
    yield talk.scenario(expect=nothing)

    talk = Talk("keys/no-texts", "keys that are no text are none")
    for keys in NO_TEXTS:
        talk.ask("sendWindowsHotKey", {"keys": keys}, FAILED)
    for arguments in ({}, {"Keys": "Win+D"}, {"key": "Win+D"}):
        talk.ask("sendWindowsHotKey", arguments, FAILED)
    yield talk.scenario(expect=nothing)


def effects():
    talk = Talk("keys/released-again", "a chord leaves no key down behind it")
    talk.do(focus_text())
    talk.ask("sendWindowsHotKey", {"keys": "Win+Shift+R"}, DONE)
    talk.ask("sendWindowsHotKey", {"keys": "Win+V"}, DONE)
    # A chord of a rule names the keys that are held; nothing but the Windows key is, which no rule names.
    rules = [on_key("V", change("text", value="V alone")), on_key("Shift+V", change("text", value="Shift was held"))]
    events = key_events(0, "notes", "text", 1, *pressed(HOT_KEYS["Win+Shift+R"])) + \
        key_events(0, "notes", "text", 2, *pressed(HOT_KEYS["Win+V"]))
    yield talk.scenario([notes(rules=rules)], foreground="notes",
                        expect={"input": events, "desktop": {"values": {"notes/text": "V alone"}}})

    talk = Talk("keys/after-a-minimize", "a chord after minimizing goes to the window below")
    talk.ask("minimizeWindow", ..., DONE)
    talk.do(focus_text())
    talk.ask("sendWindowsHotKey", {"keys": "Win+PrtSc"}, DONE)
    yield talk.scenario([notes()], expect={"input": key_events(0, "notes", "text", 1, *pressed(HOT_KEYS["Win+PrtSc"])),
                                           "desktop": {"foreground": "notes"}})

    talk = Talk("keys/to-whom-a-person-went", "a chord follows the foreground")
    talk.ask("sendWindowsHotKey", {"keys": "Win+H"}, DONE)
    talk.do(user(foreground="notes"))
    talk.ask("sendWindowsHotKey", {"keys": "Win+H"}, DONE)
    codes = pressed(HOT_KEYS["Win+H"])
    yield talk.scenario([notes()], expect={"input": key_events(0, MAIN, None, 1, *codes) +
                                           key_events(0, "notes", None, 2, *codes)})


def scenarios():
    for part in (chords, refusals, effects):
        yield from part()
