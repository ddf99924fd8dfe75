"""Reading the window's place and work area, and moves between monitors of one scale or several."""
from .core import user
from .desktops import notes
from .geometry import SCREENS, Geometry
from .placement import monitor
from .window_calls import MAIN, logical

FULL_HD = (0, 0, 1920, 1080)
# Where Windows parks a minimized window.
PARKED = (-32000, -32000, -31840, -31972)

# A second monitor, by where it lies.
BESIDE = {
    "right": (1920, 0, 4480, 1440), "left": (-2560, 0, 0, 1440), "above": (0, -1440, 2560, 0),
    "below": (0, 1080, 2560, 2520), "left-above": (-2560, -1440, 0, 0)}


def reads():
    for dpi, monitors in SCREENS.items():
        geometry = Geometry(f"reads-at-{dpi}", "bounds and work area are told in logical pixels", monitors)
        geometry.read_bounds()
        geometry.read_work_area()
        geometry.set_bounds(x=33, y=35, width=641, height=481)
        geometry.read_work_area()
        yield geometry.end(calls={"GetWindowRect": 2, "GetMonitorInfoW": 3})

    for file, work in (("left", (60, 0, 1920, 1080)), ("top", (0, 48, 1920, 1080)), ("right", (0, 0, 1860, 1080)),
                       ("none", (0, 0, 1920, 1080))):
        geometry = Geometry(f"reads-task-bar-{file}", "the work area is the monitor's without the task bar",
                            [monitor(FULL_HD, work=work)])
        geometry.read_work_area()
        yield geometry.end()

    for file, bounds in BESIDE.items():
        for dpi in (96, 144):
            monitors = [monitor(FULL_HD, dpi), monitor(bounds, dpi)]
            scale = dpi / 96
            geometry = Geometry(f"reads-{file}-of-the-primary-at-{dpi}",
                                "a window on another monitor tells that one's work area, below zero too", monitors)
            geometry.set_bounds(x=(bounds[0] + 300) / scale, y=(bounds[1] + 150) / scale, width=500, height=400)
            assert geometry.placed.monitor is monitors[1]
            geometry.read_work_area()
            yield geometry.end()

    geometry = Geometry("reads-while-minimized", "a minimized window tells where it is parked, and its monitor's area")
    geometry.do(user(minimize=MAIN))
    geometry.ask("getBounds", ..., logical(PARKED, 96))
    geometry.read_work_area()
    yield geometry.end([notes()], minimized=True, foreground="notes")

    monitors = [monitor(FULL_HD), monitor(BESIDE["left"])]
    geometry = Geometry("reads-while-minimized-elsewhere", "a minimized window belongs to the monitor it comes back to",
                        monitors)
    geometry.set_bounds(x=-2000, y=100, width=500, height=400)
    geometry.do(user(minimize=MAIN))
    geometry.ask("getBounds", ..., logical(PARKED, 96))
    geometry.read_work_area()
    yield geometry.end([notes()], minimized=True, foreground="notes")


def edges_elsewhere():
    """The edges are those of the monitor that the request lies on, not of the one the window stands on."""
    for file, bounds in BESIDE.items():
        monitors = [monitor(FULL_HD), monitor(bounds)]
        geometry = Geometry(f"edges-{file}-of-the-primary", "a request is kept on the monitor that it lies on",
                            monitors)
        for height in (100, 400):
            for x, y in ((bounds[0] + 10, bounds[1] + 10), (bounds[2] - 300, bounds[3] - 60),
                         (bounds[0] + 900, bounds[3] - 90)):
                geometry.set_bounds(x=x, y=y, width=640, height=height)
        geometry.set_bounds(x=bounds[0] + 500, y=bounds[1] + 300, width=200, height=470)
        geometry.set_bounds(x=100, y=100, width=640, height=480)
        yield geometry.end()

    monitors = [monitor(FULL_HD), monitor((4000, 0, 5920, 1080))]
    geometry = Geometry("between-two-monitors", "a request on no monitor goes to the nearest", monitors)
    geometry.set_bounds(x=2200, y=100, width=640, height=400)
    assert geometry.placed.bounds[0] == 1920 - 48
    geometry.set_bounds(x=3200, y=100, width=640, height=100)
    assert geometry.placed.bounds[0] == 4000
    geometry.set_bounds(x=9000, y=-900, width=300, height=300)
    yield geometry.end()

    monitors = [monitor(FULL_HD), monitor((1920, 0, 3840, 1080))]
    geometry = Geometry("across-two-monitors", "a request across two monitors belongs to the one with more of it",
                        monitors)
    geometry.set_bounds(x=1700, y=100, width=640, height=100)
    assert geometry.placed.bounds[0] == 1920
    geometry.set_bounds(x=1500, y=100, width=640, height=100)
    assert geometry.placed.bounds[2] == 1920
    geometry.set_bounds(x=1500, y=100, width=640, height=400)
    yield geometry.end()


def scales():
    """A move to a monitor of another scale: asked for in the old scale, it looks as large in the new one."""
    for old, new in ((96, 144), (144, 96), (96, 120), (120, 192), (192, 96), (144, 120)):
        monitors = [monitor((0, 0, 2880, 1800), old), monitor((2880, 0, 6720, 2160), new)]
        for form, sizes in (("normal", ((640, 480), (500, 100))), ("compact", ((200, 470), (100, 60)))):
            geometry = Geometry(f"{form}-from-{old}-to-{new}",
                                f"from {old} to {new} dpi a window keeps its logical size", monitors)
            for width, height in sizes:
                geometry.set_bounds(x=3600 * 96 / old, y=300 * 96 / old, width=width, height=height)
                assert geometry.placed.dpi == new
                geometry.read_work_area()
                geometry.set_bounds(x=3600 * 96 / new, y=300 * 96 / new, width=width, height=height)
                geometry.set_bounds(x=100, y=100, width=width, height=height)
                assert geometry.placed.dpi == old
            yield geometry.end()

    monitors = [monitor((0, 0, 2880, 1800), 144), monitor((2880, 0, 4800, 1080), 96)]
    geometry = Geometry("scale-of-the-present-monitor", "the monitor the window stands on gives the scale of a request",
                        monitors)
    geometry.set_bounds(x=2100, y=100, width=400, height=300)
    assert geometry.placed.bounds == [3150, 150, 3150 + 400, 150 + 300]
    geometry.set_bounds(x=3150, y=150, width=400, height=300)
    assert geometry.placed.bounds == [3150, 150, 3550, 450]
    geometry.set_bounds(x=2100, y=100, width=400, height=300)
    assert geometry.placed.bounds == [2100, 100, 2100 + 600, 100 + 450]
    yield geometry.end()

    geometry = Geometry("client-height-elsewhere", "the frame on a client height is that of the present scale",
                        monitors)
    geometry.set_bounds(x=2100, y=100, width=400, clientHeight=300)
    geometry.set_bounds(x=3150, y=150, width=400, clientHeight=300)
    geometry.set_bounds(x=3150, y=150, width=200, clientHeight=300)
    geometry.set_bounds(x=100, y=150, width=200, clientHeight=300)
    yield geometry.end()


def restores():
    for dpi, monitors in SCREENS.items():
        geometry = Geometry(f"restore-at-{dpi}", "an emergency restore asks for 1100 by 720 in the middle", monitors)
        geometry.set_bounds(x=9000, y=9000, width=640, height=480)
        geometry.restore()
        yield geometry.end(calls={"SetForegroundWindow": 2})

        geometry = Geometry(f"restore-of-compact-at-{dpi}", "a restored compact window stays without a caption",
                            monitors)
        geometry.set_bounds(x=30, y=30, width=200, height=470)
        geometry.restore()
        assert geometry.placed.style == 0x000F0000
        yield geometry.end()

        geometry = Geometry(f"restore-ends-compact-at-{dpi}", "after a restore the compact tracking size is gone",
                            monitors)
        geometry.set_bounds(x=30, y=30, width=200, height=470)
        geometry.restore()
        left, top = geometry.placed.bounds[:2]
        geometry.drag((left, top, left + 10, top + 10))
        geometry.set_bounds(x=30, y=30, width=640, height=470)
        yield geometry.end()


def restores_by_screen():
    geometry = Geometry("restore-at-150-percent", "at 144 dpi a restore is 1650 by 1080 where there is room",
                        SCREENS[144])
    geometry.restore()
    left, top, right, bottom = geometry.placed.bounds
    assert (right - left, bottom - top) == (1650, 1080)
    yield geometry.end()

    for file, screen in (("wide", monitor((0, 0, 1920, 640), 144)), ("high", monitor((0, 0, 900, 1900), 144)),
                         ("small", monitor((0, 0, 801, 601))), ("odd", monitor((0, 0, 1367, 769))),
                         ("odd-below-zero", monitor((-1367, -769, 0, 0))), ("tiny", monitor((0, 0, 90, 80))),
                         ("bar-at-the-left", monitor(FULL_HD, work=(201, 0, 1920, 1080)))):
        geometry = Geometry(f"restore-on-a-{file}-screen",
                            "a restore is cut to the work area and centred by whole pixels", [screen])
        geometry.restore()
        yield geometry.end()

    for file, bounds in BESIDE.items():
        monitors = [monitor(FULL_HD), monitor(bounds, 144)]
        geometry = Geometry(f"restore-{file}-of-the-primary", "a restore stays on the window's own monitor", monitors)
        geometry.set_bounds(x=bounds[0] + 900, y=bounds[1] + 500, width=640, height=480)
        assert geometry.placed.monitor is monitors[1]
        geometry.restore()
        yield geometry.end()


def restores_by_state():
    geometry = Geometry("restore-of-an-iconic-window", "a restore brings a minimized window back")
    geometry.do(user(minimize=MAIN))
    geometry.restore()
    yield geometry.end([notes()], desktop={"zOrder": [MAIN, "notes"]})

    geometry = Geometry("restore-behind-others", "a restore brings the window to the front")
    geometry.do(user(foreground="notes"))
    geometry.restore()
    yield geometry.end([notes()], calls={"SetForegroundWindow": 1}, desktop={"zOrder": [MAIN, "notes"]})

    geometry = Geometry("restore-of-an-off-screen-start", "a restore fetches a window that started off screen",
                        [monitor(FULL_HD), monitor(BESIDE["left"], 144)], arguments=["--orvane-open-toolbox"],
                        origin=(-32000, -32000))
    geometry.read_bounds()
    geometry.restore()
    yield geometry.end()

    geometry = Geometry("restore-twice", "a second restore changes nothing")
    geometry.restore()
    first = list(geometry.placed.bounds)
    geometry.restore()
    assert geometry.placed.bounds == first
    yield geometry.end()


def scenarios():
    for part in (reads, edges_elsewhere, scales, restores, restores_by_screen, restores_by_state):
        yield from part()
