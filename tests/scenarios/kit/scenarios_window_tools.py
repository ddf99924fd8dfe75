"""The tools that the shell starts, and the window's own commands: minimize, close, drag."""
from .core import ALWAYS, fault, user
from .desktops import notes
from .placement import Placed, monitor
from .window_calls import DONE, FAILED, MAIN, NO_TEXTS, Talk, logical, posted, slug

SCREEN = [monitor((0, 0, 1920, 1080))]
WM_CLOSE, WM_SYSCOMMAND, MOVE_BY_CAPTION = 0x10, 0x112, 0xF012

# What ShellExecuteW may answer, and whether that is a success.
SHELL_ANSWERS = ((0, False), (2, False), (3, False), (5, False), (8, False), (31, False), (32, False), (33, True),
                 (42, True), (-1, False))

# Nothing of a path is checked or escaped.
PATHS = ("C:\\jobs\\night.bat", "C:\\my jobs\\  night run .bat ", 'C:\\a" & calc "b', '"C:\\a.bat"',
         "C:\\Zürich\\Straße.bat", "D:\\工作\\夜间.bat", "C:\\😀\\🚀.bat", "%TEMP%\\^night&.bat",
         "\\\\server\\share\\night.bat", "C:/jobs/night.bat", "C:\\" + "folder name\\" * 40 + "night.bat", " ",
         "C:\\a\r\nb.bat")


def launched(file, parameters=None, directory=None, owner=MAIN):
    return {"owner": owner, "verb": "open", "file": file, "parameters": parameters, "directory": directory, "show": 1}


def batch(path, directory=None):
    return launched("cmd.exe", f'/d /k call "{path}"', directory)


def text_file(path):
    return launched("notepad.exe", f'"{path}"')


def with_code(code):
    return {"success": code > 32, "errorCode": code}


# method -> (an argument map that launches, its record, has its reply the error code)
LAUNCHERS = {
    "openScreenCapture": ({}, launched("ms-screenclip:", owner=None), False),
    "openTaskManager": ({}, launched("taskmgr.exe", owner=None), False),
    "openCommandPromptAt": ({"workingDirectory": "C:\\jobs"}, launched("cmd.exe", "/k", "C:\\jobs"), False),
    "openCommandWindow": ({"workingDirectory": "C:\\jobs"}, launched("cmd.exe", "/k explorer .", "C:\\jobs"), False),
    "runBatchFile": ({"batchPath": "C:\\a.bat", "workingDirectory": "C:\\jobs"}, batch("C:\\a.bat", "C:\\jobs"), True),
    "openTextFile": ({"filePath": "C:\\a.txt"}, text_file("C:\\a.txt"), True),
}


def launches():
    for method, (arguments, record, has_code) in LAUNCHERS.items():
        talk = Talk(f"window/tool-{slug(method)}", f"{method} starts its program by one call of the shell")
        reply = with_code(33) if has_code else DONE
        talk.ask(method, arguments, reply)
        talk.ask(method, {**arguments, "other": 7}, reply)
        yield talk.scenario(expect={"shell": [record] * 2, "platformCalls": {"ShellExecuteW": 2}})

        talk = Talk(f"window/tool-{slug(method)}-answers", f"{method}: the shell's answer is a success above 32")
        for answer, is_success in SHELL_ANSWERS:
            talk.ask(method, arguments, {"success": is_success, "errorCode": answer} if has_code
                     else {"success": is_success})
        yield talk.scenario(faults=[fault("ShellExecuteW", answer, nth=at) for at, (answer, _)
                                    in enumerate(SHELL_ANSWERS, 1)],
                            expect={"platformCalls": {"ShellExecuteW": len(SHELL_ANSWERS)}})


def directories():
    for method in ("openCommandPromptAt", "openCommandWindow", "runBatchFile"):
        plain, record, has_code = LAUNCHERS[method]
        plain = {key: value for key, value in plain.items() if key != "workingDirectory"}
        reply = with_code(33) if has_code else DONE
        talk = Talk(f"window/tool-{slug(method)}-directories",
                    f"{method}: a directory goes through as it is, or is null")
        records = []
        for path in PATHS:
            talk.ask(method, {**plain, "workingDirectory": path}, reply)
            records.append({**record, "directory": path})
        for wrong in ({}, {"workingDirectory": ""}, {"WorkingDirectory": "C:\\"}, {"directory": "C:\\"},
                      *({"workingDirectory": wrong} for wrong in NO_TEXTS)):
            talk.ask(method, {**plain, **wrong}, reply)
            records.append({**record, "directory": None})
        yield talk.scenario(expect={"shell": records})

    for method in ("openScreenCapture", "openTaskManager", "openTextFile"):
        arguments, record, has_code = LAUNCHERS[method]
        talk = Talk(f"window/tool-{slug(method)}-no-directory", f"{method} reads no directory")
        talk.ask(method, {**arguments, "workingDirectory": "C:\\jobs"}, with_code(33) if has_code else DONE)
        yield talk.scenario(expect={"shell": [record]})


def paths():
    for method, key, record in (("runBatchFile", "batchPath", batch), ("openTextFile", "filePath", text_file)):
        talk = Talk(f"window/tool-{slug(method)}-paths", f"{method}: a path goes between two quotes as it is")
        for path in PATHS:
            talk.ask(method, {key: path}, with_code(33))
        yield talk.scenario(expect={"shell": [record(path) for path in PATHS]})

    for method, key in (("runBatchFile", "batchPath"), ("openTextFile", "filePath")):
        talk = Talk(f"window/tool-{slug(method)}-without-a-path", f"{method} launches nothing without a path")
        other = "filePath" if key == "batchPath" else "batchPath"
        for wrong in ({}, {key: ""}, {other: "C:\\a"}, {key.lower(): "C:\\a"}, {"workingDirectory": "C:\\"},
                      *({key: value} for value in NO_TEXTS)):
            talk.ask(method, wrong, {"success": False, "errorCode": 2})
        # Told by the host itself: the shell isn't asked, whatever it would say.
        yield talk.scenario(faults=[fault("ShellExecuteW", 42, times=ALWAYS)],
                            expect={"platformCalls": {"ShellExecuteW": 0}})

    talk = Talk("window/tool-batch-file-alone", "a batch file without a directory gets a null one")
    for arguments in ({"batchPath": "C:\\a.bat"}, {"batchPath": "C:\\a.bat", "workingDirectory": ""}):
        talk.ask("runBatchFile", arguments, with_code(33))
    yield talk.scenario(expect={"shell": [batch("C:\\a.bat")] * 2})


def minimizing():
    def facts():
        return {MAIN: Placed(SCREEN).facts(minimized=True)}

    talk = Talk("window/minimize", "a minimized window gives the foreground to the next one below")
    talk.ask("minimizeWindow", ..., DONE)
    yield talk.scenario([notes("hidden", visible=False), notes("small", minimized=True), notes(), notes("deep")],
                        expect={"desktop": {"foreground": "notes", "windows": facts()},
                                "platformCalls": {"SetForegroundWindow": 0}})

    talk = Talk("window/minimize-twice", "minimizing a minimized window changes nothing and succeeds")
    talk.ask("minimizeWindow", ..., DONE)
    talk.ask("minimizeWindow", ..., DONE)
    yield talk.scenario([notes()], expect={"desktop": {"foreground": "notes", "windows": facts()}})

    talk = Talk("window/minimize-in-the-background", "minimizing behind another program leaves that one in front")
    talk.ask("minimizeWindow", ..., DONE)
    yield talk.scenario([notes("other"), notes()], foreground="notes",
                        expect={"desktop": {"foreground": "notes", "windows": facts()}})

    talk = Talk("window/minimize-refused", "what the platform answers to minimizing isn't told")
    talk.ask("minimizeWindow", ..., DONE)
    yield talk.scenario(faults=[fault("ShowWindow", False, nth=2)],
                        expect={"desktop": {"foreground": MAIN, "windows": {MAIN: Placed(SCREEN).facts()}}})

    placed = Placed(SCREEN)
    placed.set_bounds(width=200)
    talk = Talk("window/minimize-compact", "the compact form minimizes and comes back as it was")
    talk.ask("setBounds", {"width": 200}, DONE)
    talk.ask("minimizeWindow", ..., DONE)
    talk.ask("setBounds", {"width": 200}, DONE)
    talk.ask("getBounds", ..., logical(placed.bounds, 96))
    yield talk.scenario([notes()], expect={"desktop": {"foreground": MAIN, "windows": {MAIN: placed.facts()}}})


def closing():
    closed = posted(MAIN, WM_CLOSE)
    talk = Talk("window/close-with-the-backdrop", "closing takes the backdrop along")
    talk.do({"call": {"channel": "orvane/window", "method": "syncCleanBackground"}, "as": "0"})
    talk.replies.append({"as": "0", "method": "syncCleanBackground", "kind": "success", "value": {"visible": True}})
    talk.ask("closeWindow", ..., DONE)
    yield talk.scenario([notes()], expect={"posted": [closed], "platformCalls": {"DestroyWindow": 1},
                                           "desktop": {"foreground": "notes", "zOrder": ["notes"]}})

    talk = Talk("window/close-refused", "a close that can't be posted succeeds all the same and leaves the window")
    talk.ask("closeWindow", ..., DONE)
    talk.ask("getBounds", ..., logical(Placed(SCREEN).bounds, 96))
    yield talk.scenario(faults=[fault("PostMessageW", False)],
                        expect={"desktop": {"foreground": MAIN, "windows": {MAIN: Placed(SCREEN).facts()}}})

    talk = Talk("window/close-minimized", "a minimized window closes too")
    talk.ask("minimizeWindow", ..., DONE)
    talk.ask("closeWindow", ..., DONE)
    yield talk.scenario([notes()], expect={"posted": [closed], "desktop": {"foreground": "notes", "zOrder": ["notes"]}})


def dragging():
    moved = posted(MAIN, WM_SYSCOMMAND, MOVE_BY_CAPTION)
    calls = {"ReleaseCapture": 1, "SetForegroundWindow": 1, "PostMessageW": 1}
    in_front = {"foreground": MAIN, "windows": {MAIN: Placed(SCREEN).facts()}}
    for file, name, failing, expected in (
            ("", "a drag lets the mouse go, brings the window up and posts the caption's move", (), in_front),
            ("-mouse-kept", "a mouse that can't be let go stops no drag", [fault("ReleaseCapture", False)], in_front),
            ("-foreground-refused", "a refused foreground stops no drag", [fault("SetForegroundWindow", False)],
             {"foreground": "notes", "windows": {MAIN: Placed(SCREEN).facts()}})):
        talk = Talk(f"window/drag{file}", name)
        talk.do(user(foreground="notes"))
        talk.ask("beginWindowDrag", ..., DONE)
        talk.ask("getBounds", ..., logical(Placed(SCREEN).bounds, 96))
        yield talk.scenario([notes()], faults=failing,
                            expect={"posted": [moved], "desktop": expected, "platformCalls": calls})

    talk = Talk("window/drag-not-posted", "a drag that can't be posted fails, with the window in front")
    talk.do(user(foreground="notes"))
    talk.ask("beginWindowDrag", ..., FAILED)
    yield talk.scenario([notes()], faults=[fault("PostMessageW", False)],
                        expect={"desktop": in_front, "platformCalls": calls})

    placed = Placed(SCREEN)
    placed.set_bounds(width=200, height=100)
    talk = Talk("window/drag-compact", "the compact form has no caption and is dragged the same way")
    talk.ask("setBounds", {"width": 200, "height": 100}, DONE)
    talk.ask("beginWindowDrag", {"x": 7}, DONE)
    yield talk.scenario(expect={"posted": [moved], "desktop": {"windows": {MAIN: placed.facts()}}})


def scenarios():
    for part in (launches, directories, paths, minimizing, closing, dragging):
        yield from part()
