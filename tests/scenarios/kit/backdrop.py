"""The backdrop as it must behave: where it hangs, how it stands in the z-order, when it is painted, what is replied.

A `Backdrop` is a conversation about one desktop. Each method adds a step and lets its effect happen here too; the
scenario then expects the state that came of it.
"""
from .core import user
from .monitors import (CAPTIONED_TOP, FRAME_SIDE, INVISIBLE_FRAME, MINIMIZED_PLACE, client_size, logical_bounds,
                       monitor, scaled)
from .placement import STANDARD_DPI, nearest
from .window_talk import NORMAL_TITLE, PLAIN_FAILURE, PLAIN_SUCCESS, WindowTalk, desktop_of, merged, posted

MAIN, PANEL = "main", "backdrop"
RESTORE = 0x8146
EXIT_SIZE_MOVE = 0x0232

PANEL_TITLE = "Orvane - Clean Background"
PANEL_STYLE, PANEL_EX_STYLE = 0x00CF0000, 0x00040000
# The platform's own bits: clipped siblings and a raised edge, shown, minimised.
CLIP_SIBLINGS, WINDOW_EDGE, VISIBLE, MINIMIZED = 0x04000000, 0x00000100, 0x10000000, 0x20000000

COLOURS = {"Deep Green": 0x0F1403, "Deep Blue": 0x261406, "White": 0xFFFFFF}
OTHER_COLOUR = 0x1F1C19

LEAST_WIDTH, LEAST_HEIGHT = 160, 80
FIXED_PLACE = [8, 8, 808, 208]

ORVANE = "orvane.exe"
IMAGE_PATH = "C:\\Program Files\\Orvane\\orvane.exe"


def another_instance(identifier, **facts):
    """A window of another process of this program."""
    made = {"id": identifier, "process": ORVANE, "pid": 9000, "class": "FLUTTER_RUNNER_WIN32_WINDOW",
            "title": NORMAL_TITLE, "bounds": [300, 200, 900, 700]}
    return {**made, **facts}


def another_panel(identifier, **facts):
    return another_instance(identifier, **{"class": "Orvane_Clean_Background_RC310", "title": PANEL_TITLE,
                                           "cleanBackground": True, **facts})


def number(value, default):
    """As the argument readers take it: a bool is no number."""
    if isinstance(value, dict) and len(value) == 1:
        form, inner = next(iter(value.items()))
        return inner if form in ("$int32", "$int64", "$double") else default
    return value if isinstance(value, (int, float)) and not isinstance(value, bool) else default


def held(wanted, least, most):
    """Between two bounds; the upper one wins where they cross."""
    return most if most < wanted else max(wanted, least)


def place_of(main, work, dpi, height, frame=None, visible_bottom=None):
    """Where a panel of `height` pixels belongs. `frame`: its caption and lower border."""
    caption, border = frame or (scaled(CAPTIONED_TOP, dpi), scaled(FRAME_SIDE, dpi))
    main_bottom = main[3] if visible_bottom is None else visible_bottom
    left = held(main[0], work[0], work[2] - 1)
    width = min(main[2] - main[0] + scaled(12, dpi), work[2] - left)
    if height <= 0:
        height = max(1, max(1, work[3] - main_bottom) * 20 // 100) + caption + border
    height = min(height, work[3] - work[1])
    top = held(main_bottom - 2 * border - caption, work[1], work[3] - height)
    return [left, top, left + width, top + height]


class _Panel:
    def __init__(self):
        self.bounds = None
        self.visible = self.minimized = self.is_dirty = False


class Backdrop(WindowTalk):
    def __init__(self, stem, name, windows=(), monitors=None, foreground=..., folder="backdrop"):
        super().__init__(folder, stem, name)
        self.others = {one["id"]: one for one in windows}
        self.given = {"windows": windows, "monitors": monitors, "foreground": foreground}
        self.monitors = monitors or [monitor()]
        scale = nearest(self.monitors, [10, 10, 11, 11])["dpi"] / STANDARD_DPI
        self.main = [int(10 * scale), int(10 * scale), int(10 * scale) + int(1280 * scale),
                     int(10 * scale) + int(720 * scale)]
        self.is_main_minimized = False
        self.order = sorted(self.others, key=lambda one: not self._is_topmost(one))
        self.foreground = None
        self._come_forward(MAIN)
        if foreground is not ...:
            self._come_forward(foreground)
        self.panel = None
        self.is_closed = False
        self.colour = OTHER_COLOUR
        self.height = 0.0
        self.painted = []
        self.posts = []
        # What a fault takes away.
        self.frame_is_readable = self.visible_bounds_are_readable = self.place_is_readable = True
        self.knows_own_windows = True

    # Steps.

    def sync(self, arguments=..., **facts):
        """`facts`: the arguments by name, in place of a whole value."""
        given = facts if facts or arguments is ... else arguments
        value = given if isinstance(given, dict) else {}
        self._sync(value)
        scale_dpi = self._dpi()
        reply = {"success": True, "errorCode": {"$int64": 0}, "temporarilyClosed": self.is_closed,
                 "visible": self.panel is not None and self.panel.visible}
        if self.panel is not None:
            reply.update(logical_bounds(self._panel_place(), scale_dpi))
        self.ask("syncCleanBackground", ... if facts == {} and arguments is ... else given, reply)
        self._paint()

    def failed_sync(self, error_code, panel_bounds=None, visible=False, closed=False, **arguments):
        """One whose outcome is said by the scenario."""
        reply = {"success": False, "errorCode": {"$int64": error_code}, "temporarilyClosed": closed,
                 "visible": visible}
        if panel_bounds is not None:
            reply.update(logical_bounds(panel_bounds, self._dpi()))
        self.ask("syncCleanBackground", arguments, reply)

    def close(self):
        self.do(user(close=PANEL))
        self.is_closed = True
        self._hide()

    def drag(self, *bounds):
        self.do(user(resize={"window": PANEL, "bounds": list(bounds)}))
        if self.panel.visible and not self.panel.minimized:
            self._place(list(bounds))
            self._stack(False)
        self._paint()

    def drag_main(self, *bounds):
        self.do(user(resize={"window": MAIN, "bounds": list(bounds)}))
        if self.is_main_minimized:
            return
        before = self._dpi()
        self.main = list(bounds)
        after = self._dpi()
        if after != before:
            left, top, right, bottom = bounds
            self.main = [left, top, left + scaled(right - left, after, before),
                         top + scaled(bottom - top, after, before)]

    def minimize(self):
        self.do(user(minimize=PANEL))
        self.panel.minimized, self.panel.is_dirty = True, False
        self._give_up(PANEL)

    def minimize_main(self):
        self.do(user(minimize=MAIN))
        self.is_main_minimized = True
        self._give_up(MAIN)

    def front(self, window_id):
        self.do(user(foreground=window_id))
        self._come_forward(window_id)
        self._paint()

    def post(self, message, window=PANEL, w_param=0, l_param=0):
        """A message of another program to the panel."""
        self.do({"post": {"window": window, "message": message, "wParam": w_param, "lParam": l_param}})
        if message == RESTORE:
            self._reopen()
        elif message == EXIT_SIZE_MOVE:
            self._stack(False)
        self._paint()

    def restore(self):
        """By the call of the interface: the first panel of this program in the z-order is told."""
        found = next((one for one in self.order if self._is_panel(one) and self._is_own(one)), None)
        self.ask("restoreCleanBackground", ..., PLAIN_FAILURE if found is None else PLAIN_SUCCESS)
        if found is not None:
            self.posts.append(posted(found, RESTORE))
        if found == PANEL:
            self._reopen()
            self._paint()

    # What comes out.

    def made(self, faults=(), end=None, **more):
        desktop = desktop_of(faults=faults, **self.given)
        state = {"foreground": self.foreground, "zOrder": self.order,
                 "windows": {MAIN: {"bounds": MINIMIZED_PLACE if self.is_main_minimized else self.main,
                                    "minimized": self.is_main_minimized}}}
        if self.panel is not None:
            state["windows"][PANEL] = self._shown_panel()
        return self.scenario(desktop, self.painted, self.posts, merged(state, end or {}), **more)

    def create_hidden(self, height, colour=OTHER_COLOUR):
        """What a first sync leaves that can't show it."""
        self.height, self.colour = height, colour
        self._create()

    def move_hidden(self, height, colour):
        """What a sync that reopens leaves when it can move the backdrop and can't show it."""
        self.height, self.colour, self.is_closed = height, colour, False
        self._place(self.place())

    def expect_gone(self):
        """The run ended with the main window."""
        self.panel = None
        self.order = [one for one in self.order if one not in (MAIN, PANEL)]

    def fill(self, colour=None):
        """What painting the panel in a colour leaves."""
        width, height = client_size(self.panel.bounds, self._dpi(self.panel.bounds))
        return {"window": PANEL, "fill": self.colour if colour is None else colour, "bounds": [0, 0, width, height]}

    def place(self, ignores_height=False):
        if not self.place_is_readable:
            return list(FIXED_PLACE)
        dpi = self._dpi()
        height = int(dpi * self.height / 96.0)
        if not ignores_height and self.panel is not None and not self.panel.minimized:
            height = self.panel.bounds[3] - self.panel.bounds[1]
        main = MINIMIZED_PLACE if self.is_main_minimized else self.main
        bottom = main[3] - scaled(INVISIBLE_FRAME, dpi) if self.visible_bounds_are_readable else None
        frame = None if self.frame_is_readable else (scaled(32, dpi), scaled(8, dpi))
        return place_of(main, nearest(self.monitors, self.main)["work"], dpi, height, frame, bottom)

    # Effects.

    def _sync(self, value):
        is_enabled = number(value.get("enabled"), 1) != 0
        reopens = number(value.get("reopen"), 0) != 0
        resets = number(value.get("resetHeight"), 0) != 0
        if reopens:
            self.is_closed = False
        appearance = value.get("appearance")
        colour = COLOURS.get(appearance, OTHER_COLOUR) if isinstance(appearance, str) else OTHER_COLOUR
        is_changed, self.colour = colour != self.colour, colour
        if not is_enabled or self.is_closed:
            self._hide()
            return
        self.height = number(value.get("height"), 0.0)
        if self.panel is None:
            self._create()
        if reopens and self.panel.minimized:
            self._unminimize()
        if reopens or resets:
            self._place(self.place(resets))
        was_visible = self.panel.visible
        self._stack(not was_visible or reopens)
        if is_changed or not was_visible:
            self._invalidate()

    def _create(self):
        bounds = self.place()
        self.panel = _Panel()
        self.order.insert(self._topmost_count(), PANEL)
        self.panel.bounds = bounds
        self._place(bounds)

    def _reopen(self):
        self.is_closed = False
        bounds = self.place()
        if self.panel.minimized:
            self._unminimize()
        else:
            self._show()
        self._place(bounds)
        self._stack(True)

    def _unminimize(self):
        self.panel.minimized, self.panel.visible, self.panel.is_dirty = False, True, True

    def _show(self):
        if not self.panel.visible:
            self.panel.visible = True
            self._invalidate()

    def _hide(self):
        if self.panel is not None and self.panel.visible:
            self.panel.visible = self.panel.is_dirty = False
            self._give_up(PANEL)

    def _invalidate(self):
        if self.panel.visible and not self.panel.minimized:
            self.panel.is_dirty = True

    def _place(self, bounds):
        left, top, right, bottom = bounds
        before, old_dpi = self.panel.bounds, self._dpi(self.panel.bounds)
        right = left + max(right - left, scaled(LEAST_WIDTH, old_dpi))
        bottom = top + max(bottom - top, scaled(LEAST_HEIGHT, old_dpi))
        self.panel.bounds = [left, top, right, bottom]
        dpi = self._dpi(self.panel.bounds)
        old_size, size = client_size(before, old_dpi), client_size(self.panel.bounds, dpi)
        if size[0] > old_size[0] or size[1] > old_size[1]:
            self._invalidate()
        if dpi != old_dpi:
            width, height = scaled(right - left, dpi, old_dpi), scaled(bottom - top, dpi, old_dpi)
            self._place([left, top, left + width, top + height])
            self._invalidate()

    def _stack(self, force):
        in_front = self.foreground
        if not force and (in_front == PANEL or self.panel.minimized or not self._is_own(in_front)):
            return
        anchors = [one for one in self.order if self._is_anchor(one)]
        self.order.remove(PANEL)
        self.order.insert(self.order.index(anchors[-1]) + 1 if anchors else self._topmost_count(), PANEL)
        self._show()

    def _come_forward(self, window_id):
        self.foreground = window_id
        if window_id is None:
            return
        if window_id == PANEL and self.panel.minimized:
            self._unminimize()
        if window_id == MAIN:
            self.is_main_minimized = False
        if window_id in self.order:
            self.order.remove(window_id)
        self.order.insert(0 if self._is_topmost(window_id) else self._topmost_count(), window_id)

    def _give_up(self, window_id):
        if self.foreground == window_id:
            self.foreground = next((one for one in self.order if one != window_id and self._is_seen(one)), None)

    def _paint(self):
        if self.panel is not None and self.panel.is_dirty:
            self.panel.is_dirty = False
            self.painted.append(self.fill())

    # Facts.

    def _dpi(self, bounds=None):
        return nearest(self.monitors, self.main if bounds is None else bounds)["dpi"]

    def _panel_place(self):
        return MINIMIZED_PLACE if self.panel.minimized else self.panel.bounds

    def _is_topmost(self, window_id):
        return self.others.get(window_id, {}).get("topmost", False)

    def _topmost_count(self):
        return sum(1 for one in self.order if self._is_topmost(one))

    def _is_panel(self, window_id):
        return window_id == PANEL or self.others.get(window_id, {}).get("cleanBackground", False)

    def _is_own(self, window_id):
        if not self.knows_own_windows:
            return False
        if window_id in (MAIN, PANEL):
            return True
        facts = self.others.get(window_id, {})
        is_there_by_default = facts.get("process") == ORVANE
        return facts.get("path", IMAGE_PATH if is_there_by_default else "").lower() == IMAGE_PATH.lower()

    def _is_seen(self, window_id):
        if window_id == MAIN:
            return not self.is_main_minimized
        if window_id == PANEL:
            return self.panel.visible and not self.panel.minimized
        return self.others[window_id].get("visible", True) and not self.others[window_id].get("minimized", False)

    def _is_anchor(self, window_id):
        return (window_id != PANEL and self._is_seen(window_id) and not self._is_panel(window_id)
                and not self._is_topmost(window_id) and self._is_own(window_id))

    def _shown_panel(self):
        style = PANEL_STYLE | CLIP_SIBLINGS
        style |= (VISIBLE if self.panel.visible else 0) | (MINIMIZED if self.panel.minimized else 0)
        return {"title": PANEL_TITLE, "bounds": self._panel_place(), "visible": self.panel.visible,
                "minimized": self.panel.minimized, "topmost": False, "style": style,
                "exStyle": PANEL_EX_STYLE | WINDOW_EDGE}
