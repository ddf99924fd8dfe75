"""Scenarios of the main window's place: each call is told to a model of the window too, and both must agree."""
from .menus import NOTHING_CHOSEN, NULL_MESSAGE, Menu, item
from .placement import Placed, monitor
from .window_calls import DONE, FAILED, MAIN, Talk, logical

SCREEN = [monitor((0, 0, 1920, 1080))]
# Screens of one scale each, by dpi.
SCREENS = {96: SCREEN, 120: [monitor((0, 0, 2560, 1440), 120)], 144: [monitor((0, 0, 2880, 1800), 144)],
           192: [monitor((0, 0, 3840, 2160), 192)]}


class Geometry(Talk):
    """A conversation about the window's place; `placed` is where the rules put it."""

    def __init__(self, file, name, monitors=None, arguments=(), origin=(10, 10)):
        super().__init__(f"geometry/{file}", name, arguments)
        self.monitors = SCREEN if monitors is None else monitors
        self.placed = Placed(self.monitors, origin)
        self.painted = []
        self.posts = []

    def set_bounds(self, reply=True, asks=True, known=None, **arguments):
        """`known`: which of the platform's calls fail, for the model."""
        self.ask("setBounds", arguments, DONE if reply else FAILED)
        self.placed.set_bounds(**arguments, **(known or {}))
        if asks:
            self.read_bounds()

    def restore(self, reply=True, is_placed=True):
        self.ask("emergencyRestore", ..., DONE if reply else FAILED)
        self.placed.restore(is_placed)
        self.read_bounds()

    def read_bounds(self):
        self.ask("getBounds", ..., logical(self.placed.bounds, self.placed.dpi))

    def read_work_area(self):
        self.ask("getWorkArea", ..., logical(self.placed.monitor["work"], self.placed.dpi))

    def drag(self, bounds):
        self.do({"user": {"resize": {"window": MAIN, "bounds": list(bounds)}}})
        self.placed.drag(bounds)
        self.read_bounds()

    def open_menu(self, label="Copy draft"):
        """A menu at the corner of the client area, which nobody chooses from."""
        self.ask("showNativeHotKeysMenu", {"items": [item("copy", label)]}, NOTHING_CHOSEN)
        menu = Menu([(1, label)], self.placed.dpi, number=len(self.posts) + 1)
        self.painted += menu.painted(self.placed.client_corner())
        self.posts.append(NULL_MESSAGE)

    def end(self, windows=(), faults=(), foreground=MAIN, minimized=False, calls=None, first=..., desktop=None):
        """`first`: who is in front before the first step."""
        facts = self.placed.facts(minimized)
        expect = {"desktop": {"foreground": foreground, "windows": {MAIN: facts}, **(desktop or {})}}
        if self.painted:
            expect.update(painted=self.painted, posted=self.posts)
        if calls:
            expect["platformCalls"] = calls
        stands = {} if self.monitors is SCREEN else {"monitors": self.monitors}
        if first is not ...:
            stands["foreground"] = first
        return self.scenario(windows, faults, expect, **stands)
