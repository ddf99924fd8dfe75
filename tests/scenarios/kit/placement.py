"""Where the main window comes to stand: the arithmetic of its bounds, in pixels, over any set of monitors."""
from math import trunc

STANDARD_DPI = 96
NORMAL_TITLE = "Orvane: The Desk for Every Assistant"
COMPACT_TITLE = "Orvane"

# Style bits: what the host decides on, and what Windows keeps of a window that is shown.
SHOWN = 0x10000000 | 0x04000000
MINIMIZED = 0x20000000
OVERLAPPED = 0x00CF0000
CAPTION = 0x00C00000
COMPACT_CLEARED = 0x00C30000
COMPACT_SET = 0x000C0000
SIZE_BOXES = 0x00030000

KEPT_ON_SCREEN = 48
LEAST_WIDTH = 160
LEAST_HEIGHT = 240


def mul_div(number, numerator, denominator):
    """Rounded to the nearest, halves away from zero."""
    product = number * numerator
    rounded = (2 * abs(product) + denominator) // (2 * denominator)
    return rounded if product >= 0 else -rounded


def monitor(bounds, dpi=STANDARD_DPI, work=None):
    """With a task bar of 40 pixels at the bottom, unless `work` says otherwise."""
    left, top, right, bottom = bounds
    return {"bounds": list(bounds), "work": list(work or (left, top, right, bottom - 40)), "dpi": dpi}


def _overlap(one, other):
    width = min(one[2], other[2]) - max(one[0], other[0])
    height = min(one[3], other[3]) - max(one[1], other[1])
    return width * height if width > 0 and height > 0 else 0


def _distance(one, other):
    across = max(0, one[0] - other[2], other[0] - one[2])
    down = max(0, one[1] - other[3], other[1] - one[3])
    return across * across + down * down


def nearest(monitors, bounds):
    """The monitor with most of a rectangle, else the one that is least far away."""
    return max(monitors, key=lambda one: (_overlap(one["bounds"], bounds), -_distance(one["bounds"], bounds)))


def _held(wanted, lower, upper):
    return upper if upper < wanted else max(wanted, lower)


def fit(bounds, work, least_height, keep_inside):
    """A requested rectangle on a work area: at least 160 wide, inside or with 48 pixels left on it."""
    left, top, right, bottom = bounds
    width = min(max(right - left, LEAST_WIDTH), work[2] - work[0])
    height = min(max(least_height, bottom - top), work[3] - work[1])
    if keep_inside:
        left = _held(left, work[0], work[2] - width)
        top = _held(top, work[1], work[3] - height)
    else:
        left = _held(left, work[0] - width + KEPT_ON_SCREEN, work[2] - KEPT_ON_SCREEN)
        top = _held(top, work[1], work[3] - KEPT_ON_SCREEN)
    return [left, top, left + width, top + height]


def frame_height(style, dpi):
    """Top and bottom of the frame of a sizable window, with a caption or without."""
    side = mul_div(8, dpi, STANDARD_DPI)
    return side + (mul_div(31, dpi, STANDARD_DPI) if style & CAPTION else side)


class Placed:
    """The main window as it stands, and what each method makes of it."""

    def __init__(self, monitors, origin=(10, 10)):
        self.monitors = monitors
        scale = nearest(monitors, [*origin, origin[0] + 1, origin[1] + 1])["dpi"] / STANDARD_DPI
        left, top, width, height = (trunc(number * scale) for number in (*origin, 1280, 720))
        self.bounds = [left, top, left + width, top + height]
        self.style = OVERLAPPED
        self.title = NORMAL_TITLE
        self.compact = False

    @property
    def monitor(self):
        return nearest(self.monitors, self.bounds)

    @property
    def dpi(self):
        return self.monitor["dpi"]

    def least_size(self):
        """The tracking size that the window manager holds it to: its own in compact form, else the system's."""
        sizes = (150, 160) if self.compact else (136, 39)
        return [mul_div(size, self.dpi, STANDARD_DPI) for size in sizes]

    def place(self, bounds):
        """To a rectangle, as the window manager does it; on a monitor of another scale it takes another size."""
        left, top, right, bottom = bounds
        width, height = (max(size, least) for size, least in zip((right - left, bottom - top), self.least_size()))
        old_dpi = self.dpi
        self.bounds = [left, top, left + width, top + height]
        new_dpi = self.dpi
        if new_dpi != old_dpi:
            width, height = (max(mul_div(size, new_dpi, old_dpi), least)
                             for size, least in zip((width, height), self.least_size()))
            self.bounds = [left, top, left + width, top + height]
            assert self.dpi == new_dpi, "the suggested rectangle went to another monitor again"

    def client_corner(self):
        """Where the client area begins on the screen."""
        side = mul_div(8, self.dpi, STANDARD_DPI)
        return [self.bounds[0] + side, self.bounds[1] + frame_height(self.style, self.dpi) - side]

    def request(self, x=20, y=20, width=200, height=470, client_height=0, frame_known=True):
        scale = self.dpi / STANDARD_DPI
        left, top, wide, high = (trunc(number * scale) for number in (x, y, width, height))
        if client_height > 0 and frame_known:
            high = trunc(client_height * scale) + frame_height(self.style, self.dpi)
        return [left, top, left + wide, top + high]

    def fitted(self, bounds, height):
        work = nearest(self.monitors, bounds)["work"]
        if height <= 120:
            return fit(bounds, work, bounds[3] - bounds[1], True)
        return fit(bounds, work, LEAST_HEIGHT, False)

    def take_form(self, width):
        self.compact = width <= 300
        self.title = COMPACT_TITLE if self.compact else NORMAL_TITLE
        self.style = (self.style & ~COMPACT_CLEARED | COMPACT_SET) if self.compact else self.style | OVERLAPPED

    def set_bounds(self, x=20, y=20, width=200, height=470, clientHeight=0, frame_known=True, monitor_known=True,
                   is_placed=True):
        """`monitor_known`, `frame_known`, `is_placed`: whether the platform's calls work."""
        wanted = self.request(x, y, width, height, clientHeight, frame_known)
        if monitor_known:
            wanted = self.fitted(wanted, height)
        self.take_form(width)
        if is_placed:
            self.place(wanted)

    def restore(self, is_placed=True):
        """emergencyRestore."""
        left, top, right, bottom = self.monitor["work"]
        scale = self.dpi / STANDARD_DPI
        width = min(trunc(1100 * scale), right - left)
        height = min(trunc(720 * scale), bottom - top)
        self.compact = False
        self.title = NORMAL_TITLE
        self.style |= SIZE_BOXES
        left += (right - left - width) // 2
        top += (bottom - top - height) // 2
        if is_placed:
            self.place([left, top, left + width, top + height])

    def drag(self, bounds):
        """A person's drag of the border stops at the tracking size."""
        left, top, right, bottom = bounds
        width, height = (max(size, least) for size, least in zip((right - left, bottom - top), self.least_size()))
        self.bounds = [left, top, left + width, top + height]

    def facts(self, minimized=False):
        """As the report's end state tells it."""
        made = {"title": self.title, "visible": True, "minimized": minimized, "topmost": False,
                "style": self.style | SHOWN | (MINIMIZED if minimized else 0), "exStyle": 256}
        if not minimized:
            made["bounds"] = self.bounds
        return made
