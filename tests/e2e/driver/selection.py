"""Which scenarios can be played with the real program."""
import json

from driver.screen import Screen, ScreenError

SCALES = (96, 144)
CAPTION = 0x00C00000


def actions_of(node):
    """Every object inside a scenario, actions and elements among them."""
    if isinstance(node, dict):
        yield node
        node = list(node.values())
    if isinstance(node, list):
        for child in node:
            yield from actions_of(child)


def why_not(scenario, report):
    """What keeps a scenario out of the real world; None when nothing does."""
    desktop = scenario.get("desktop", {})
    windows = desktop.get("windows", [])
    try:
        screen = Screen.of(desktop)
    except ScreenError as error:
        return str(error)
    rules = (
        (screen.dpi not in SCALES, "a scale that no prefix has"),
        (desktop.get("faults"), "faults: the real platform does what it does"),
        (any(window.get("foregroundRequests", "granted") != "granted" for window in windows),
         "refused requests for the foreground: Wine grants them"),
        (any("pid" in window or "path" in window for window in windows), "process ids and paths that are given"),
        (any(window.get("process", "").lower() == "orvane.exe" for window in windows),
         "another instance of the program itself"),
        (any("foreground" in node and node["foreground"] is None for node in actions_of(scenario)),
         "no window in front: some window always is"),
        (any("minimize" in node or node.get("minimized") is True for node in actions_of([scenario, report["desktop"]])),
         "minimised windows: Wine lays them along the lower edge and brings none of them to the front"),
        (any(reply["method"] == "activateOrvaneWindow" for reply in report["replies"]),
         "the view brought to the front: Wine takes no child window for that"),
        (report["desktop"]["windows"].get("main", {}).get("style", CAPTION) & CAPTION != CAPTION,
         "a frame without a caption: Wine's is a pixel narrower"),
        (report["shell"], "programs that are started"),
        (report["engine"] is None, "a host that never gets to its interface"),
        ({"AttachConsole", "AllocConsole"} & set(report["platformCalls"]) and report["stderr"],
         "the error stream of a console"),
    )
    return next((reason for holds, reason in rules if holds), None)


def read(file):
    return json.loads(file.read_text(encoding="utf-8"))
