"""Screens of any density, and what of a window's frame the platform adds, hides and keeps."""
from .placement import STANDARD_DPI, mul_div
from .placement import monitor as monitor_at

FULL_HD = (0, 0, 1920, 1080)

FRAME_SIDE, CAPTIONED_TOP = 8, 31
INVISIBLE_FRAME = 7
MINIMIZED_PLACE = [-32000, -32000, -31840, -31972]


def scaled(value, dpi, base=STANDARD_DPI):
    return mul_div(value, dpi, base)


def monitor(dpi=STANDARD_DPI, bounds=FULL_HD, work=None):
    return monitor_at(bounds, dpi, work)


def frame_top(dpi, is_captioned=True):
    return scaled(CAPTIONED_TOP if is_captioned else FRAME_SIDE, dpi)


def client_size(bounds, dpi):
    """Of a captioned window."""
    side = scaled(FRAME_SIDE, dpi)
    return bounds[2] - bounds[0] - 2 * side, bounds[3] - bounds[1] - frame_top(dpi) - side


def logical_bounds(bounds, dpi):
    scale = dpi / STANDARD_DPI
    left, top, right, bottom = bounds
    return {"x": left / scale, "y": top / scale, "width": (right - left) / scale, "height": (bottom - top) / scale}
