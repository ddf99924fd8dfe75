"""The native menu as it must look: how its entries measure, in which font, colours and places they are drawn."""
from .core import user
from .monitors import FRAME_SIDE, frame_top, monitor, scaled
from .placement import STANDARD_DPI, nearest
from .window_talk import WindowTalk, desktop_of, posted

FLAGS = 0x188
LEFT_TO_RIGHT, RIGHT_TO_LEFT = 0x824, 0x20826
NULL_MESSAGE = posted("main", 0)

STOCK_FONT = "DEFAULT_GUI_FONT"
STOCK_FONT_HEIGHT = 11

# background, text, background of the entry under the pointer
COLOURS = {"White": (0xFFFFFF, 0x000000, 0xE7EBD6), "Deep Green": (0x0F1403, 0xFFFFFF, 0x657000),
           "Deep Blue": (0x261406, 0xFFFFFF, 0x657000)}
OTHER_COLOURS = (0x1F1C19, 0xFFFFFF, 0x657000)

NOTHING_CHOSEN = {"success": False, "action": ""}


def item(action, label, shortcut="Ctrl+1"):
    return {"action": action, "label": label, "shortcut": shortcut}


THREE = [item("copy", "Copy draft"), item("paste", "Paste"), item("settings", "Settings of the desk")]


def font_size(scale, dpi):
    """Character height in pixels."""
    exact = min(max(scale, 0.85), 1.2) * 14.0 * dpi / 96.0
    return max(int(exact + 0.5), 10)


def font(size):
    return {"face": "Segoe UI", "height": -size, "weight": 400, "charset": 1, "quality": 5}


def units(label):
    return len(label.encode("utf-16-le")) // 2


class Menu:
    """One menu as it is shown: entries are (id, label)."""

    def __init__(self, entries, dpi=STANDARD_DPI, scale=1.0, appearance="", is_rtl=False, number=1, has_font=True,
                 metrics_dpi=None):
        size = font_size(scale, dpi if metrics_dpi is None else metrics_dpi)
        self.dpi = dpi if metrics_dpi is None else metrics_dpi
        self.font, height = (font(size), size) if has_font else (STOCK_FONT, STOCK_FONT_HEIGHT)
        self.unit_width, self.text_height = max(1, scaled(height, 1, 2)), scaled(height, 4, 3)
        self.colours = COLOURS.get(appearance, OTHER_COLOURS)
        self.flags = RIGHT_TO_LEFT if is_rtl else LEFT_TO_RIGHT
        self.number = number
        self.entries = entries

    def measured(self):
        height = max(self.text_height + scaled(10, self.dpi), scaled(30, self.dpi))
        return [{"id": one, "width": units(label) * self.unit_width + scaled(28, self.dpi), "height": height}
                for one, label in self.entries]

    def painted(self, point, chosen=None):
        """`chosen`: the id of the entry that is picked."""
        measured = self.measured()
        width = max(one["width"] for one in measured)
        opened = {"menu": self.number, "point": list(point), "flags": FLAGS, "owner": "main", "entries": measured,
                  "chosen": chosen}
        drawn, top, areas = [opened], 0, {}
        for one, (identifier, label) in zip(measured, self.entries):
            areas[identifier] = ([0, top, width, top + one["height"]], label)
            top += one["height"]
        for area, label in areas.values():
            drawn += self._drawn(area, label, *self.colours[:2])
        if chosen is not None:
            area, label = areas[chosen]
            drawn += self._drawn(area, label, self.colours[2], self.colours[1])
        return drawn

    def _drawn(self, area, label, background, text_colour):
        inset = scaled(14, self.dpi)
        left, top, right, bottom = area
        return [{"menu": self.number, "fill": background, "bounds": area},
                {"menu": self.number, "text": label, "font": self.font, "textColor": text_colour, "flags": self.flags,
                 "bounds": [left + inset, top, right - inset, bottom], "bkMode": "transparent"}]


class MenuTalk(WindowTalk):
    """Menus that the interface asks for, at a main window where it starts."""

    def __init__(self, stem, name, windows=(), monitors=None, foreground=..., folder="menu"):
        super().__init__(folder, stem, name)
        self.given = {"windows": windows, "monitors": monitors, "foreground": foreground}
        self.dpi = nearest(monitors or [monitor()], [10, 10, 11, 11])["dpi"]
        origin = int(10 * (self.dpi / 96.0))
        self.client = (origin + scaled(FRAME_SIDE, self.dpi), origin + frame_top(self.dpi))
        self.painted = []
        self.posts = []
        self.count = 0

    def choose(self, nth):
        self.do(user(chooseMenu=nth))

    def point(self, x, y, scale_dpi=None):
        scale = (self.dpi if scale_dpi is None else scale_dpi) / 96.0
        return [self.client[0] + int(x * scale), self.client[1] + int(y * scale)]

    def open(self, items, chosen=None, kept=None, arguments=None, point=None, **look):
        """`kept`: the items that become entries; `chosen`: the id among them that is picked; `arguments`: besides
        the items."""
        given = {"items": items, **(arguments or {})}
        kept = items if kept is None else kept
        self.count += 1
        menu = Menu([(at, one["label"]) for at, one in enumerate(kept, 1)], self.dpi, number=self.count, **look)
        self.painted += menu.painted(self.point(0, 0) if point is None else point, chosen)
        self.answer(given, None if chosen is None else kept[chosen - 1]["action"])

    def answer(self, arguments, action=None, was_opened=True):
        """Only the call and what it must reply."""
        value = NOTHING_CHOSEN if action is None else {"success": True, "action": action}
        self.ask("showNativeHotKeysMenu", arguments, value)
        if was_opened:
            self.posts.append(NULL_MESSAGE)

    def made(self, faults=(), end=None, **more):
        return self.scenario(desktop_of(faults=faults, **self.given), self.painted, self.posts,
                             {"foreground": "main", **(end or {})}, **more)
