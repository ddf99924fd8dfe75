"""setBounds: the form that a width gives, the rule that a height gives, and the sizes and edges that hold."""
from .core import user
from .desktops import notes
from .geometry import SCREENS, Geometry
from .placement import monitor
from .window_calls import MAIN


def forms():
    """Narrow or normal, by the logical width at any scale."""
    for dpi, monitors in SCREENS.items():
        for width, form in ((300, "compact"), (300.5, "normal"), (299.75, "compact"), (301, "normal")):
            geometry = Geometry(f"width-{str(width).replace('.', '-')}-at-{dpi}",
                                f"a width of {width} is {form} at {dpi} dpi", monitors)
            geometry.set_bounds(x=100, y=100, width=width, height=500)
            assert geometry.placed.compact == (form == "compact")
            yield geometry.end()

        geometry = Geometry(f"forms-and-back-at-{dpi}", "the forms follow one another, and each gives back its style",
                            monitors)
        for width in (200, 640, 300, 300.5, 120, 301):
            geometry.set_bounds(x=40, y=40, width=width, height=400)
        yield geometry.end()

        geometry = Geometry(f"frame-of-the-form-at-{dpi}", "the frame follows the form, also where the size stays",
                            monitors)
        # Each is as many pixels wide as the other at the scale of 100 percent.
        for width in (300, 300.5, 300):
            geometry.set_bounds(x=20, y=20, width=width, height=470)
            geometry.open_menu()
        yield geometry.end()

        geometry = Geometry(f"defaults-at-{dpi}", "without arguments the window is 200 by 470 at 20, 20", monitors)
        geometry.set_bounds()
        assert geometry.placed.bounds == [int(edge * dpi / 96) for edge in (20, 20, 220, 490)]
        yield geometry.end()


# Where a request lies: a place that needs no help, beyond each edge, and beyond two of them.
PLACES = {
    "free": (200, 150), "left": (-5000, 200), "right": (9000, 200), "top": (200, -5000), "bottom": (200, 9000),
    "left-top": (-5000, -5000), "right-bottom": (9000, 9000), "right-top": (9000, -5000), "left-bottom": (-5000, 9000)}


def edges():
    for place, (x, y) in PLACES.items():
        geometry = Geometry(f"edges-{place}", "a low window is kept inside the work area; a higher one may hang over "
                            "with 48 pixels left, but never over the top")
        for width in (640, 220):
            for height in (60, 100, 120, 120.5, 121, 240, 400):
                geometry.set_bounds(x=x, y=y, width=width, height=height)
                assert geometry.placed.bounds[1] >= 0
        yield geometry.end()

    for dpi, monitors in SCREENS.items():
        geometry = Geometry(f"height-of-120-at-{dpi}", "the height of 120 keeps a window inside, any above in sight",
                            monitors)
        work = monitors[0]["work"]
        for height in (120, 120.25, 121):
            geometry.set_bounds(x=9000, y=9000, width=640, height=height)
            left, top, right, bottom = geometry.placed.bounds
            if height == 120:
                assert (right, bottom) == (work[2], work[3])
            else:
                assert (left, top) == (work[2] - 48, work[3] - 48) and bottom - top >= 240
            geometry.set_bounds(x=-9000, y=-9000, width=640, height=height)
            assert geometry.placed.bounds[1] == 0
        yield geometry.end()


def limits():
    geometry = Geometry("last-free-pixels", "the edges hold from the first pixel beyond them on")
    for left in (1920 - 48 - 1, 1920 - 48, 1920 - 48 + 1):
        geometry.set_bounds(x=left, y=0, width=640, height=400)
    for left in (48 - 640 + 1, 48 - 640, 48 - 640 - 1):
        geometry.set_bounds(x=left, y=1, width=640, height=400)
    for top in (1040 - 48 - 1, 1040 - 48, 1040 - 48 + 1, -1, 0):
        geometry.set_bounds(x=10, y=top, width=640, height=400)
    yield geometry.end()

    geometry = Geometry("last-free-pixels-inside", "a low window's edges hold from the first pixel beyond them on")
    for left in (1920 - 640 - 1, 1920 - 640, 1920 - 640 + 1, -1, 0, 1):
        geometry.set_bounds(x=left, y=7, width=640, height=100)
    for top in (1040 - 100 - 1, 1040 - 100, 1040 - 100 + 1, -1, 0, 1):
        geometry.set_bounds(x=7, y=top, width=640, height=100)
    yield geometry.end()

    geometry = Geometry("low-and-compact", "a low window in compact form is fitted by the height asked for, and may "
                        "hang over the lower edge by what its least height adds")
    geometry.set_bounds(x=1800, y=1000, width=250, height=100)
    assert geometry.placed.bounds == [1670, 940, 1670 + 250, 940 + 160]
    yield geometry.end()

    for dpi in (72, 96, 120, 144, 192):
        monitors = [monitor((0, 0, 3840, 2160), dpi)]
        geometry = Geometry(f"least-width-at-{dpi}", "no window is narrower than 160 pixels, which no scale changes, "
                            "nor than the compact tracking size", monitors)
        for width in (100, 0, -50, 159, 160, 161):
            geometry.set_bounds(x=30, y=30, width=width, height=400)
        geometry.set_bounds(x=30, y=30, width=100, height=400)
        tracking = (150 * dpi + 48) // 96
        assert geometry.placed.bounds[2] - geometry.placed.bounds[0] == max(160, tracking)
        yield geometry.end()

        geometry = Geometry(f"least-height-at-{dpi}", "above a height of 120 no window is lower than 240 pixels, which "
                            "no scale changes", monitors)
        for height in (121, 130, 160, 239, 240, 241, 320):
            geometry.set_bounds(x=30, y=30, width=640, height=height)
            high = geometry.placed.bounds[3] - geometry.placed.bounds[1]
            assert high == max(240, int(height * dpi / 96))
        yield geometry.end()

        geometry = Geometry(f"low-heights-at-{dpi}", "a low window keeps the height that was asked for, down to the "
                            "tracking size", monitors)
        for height in (120, 119.5, 40, 1, 0, -30):
            geometry.set_bounds(x=30, y=30, width=640, height=height)
        yield geometry.end()

        geometry = Geometry(f"compact-tracking-at-{dpi}", "a compact window is held to 150 by 160, a normal one isn't",
                            monitors)
        geometry.set_bounds(x=30, y=30, width=200, height=100)
        left, top = geometry.placed.bounds[:2]
        geometry.drag((left, top, left + 20, top + 20))
        least = [geometry.placed.bounds[2] - left, geometry.placed.bounds[3] - top]
        assert least == [(150 * dpi + 48) // 96, (160 * dpi + 48) // 96]
        geometry.drag((left, top, left + 600, top + 20))
        geometry.set_bounds(x=30, y=30, width=640, height=100)
        geometry.drag((left, top, left + 20, top + 20))
        yield geometry.end()


def work_areas():
    """Work areas that leave less room than a window needs; they win over the least sizes."""
    screens = {
        "larger-than-the-screen": monitor((0, 0, 1280, 720)),
        "bar-at-the-left-and-top": monitor((0, 0, 1920, 1080), work=(200, 100, 1920, 1080)),
        "narrow": monitor((0, 0, 140, 900)),
        "narrower-than-compact": monitor((0, 0, 155, 900)),
        "flat": monitor((0, 0, 1920, 140)),
        "flat-strip": monitor((0, 0, 1920, 1080), work=(0, 0, 1920, 200)),
        "tiny": monitor((0, 0, 100, 100)),
        # Here no place would leave 48 pixels in sight.
        "minute": monitor((0, 0, 40, 40)),
        "tiny-at-200-percent": monitor((0, 0, 300, 300), 192),
        "beyond-zero": monitor((-1920, -1080, 0, 0)),
    }
    for file, screen in screens.items():
        geometry = Geometry(f"work-area-{file}", "a window is never larger than the work area asks", [screen])
        for arguments in (dict(x=20, y=20, width=5000, height=5000), dict(x=20, y=20, width=5000, height=100),
                          dict(x=-700, y=-30, width=5000, height=3000), dict(x=30, y=30, width=320, height=130),
                          dict(x=30, y=30, width=200, height=100), dict(x=2500, y=2500, width=400, height=90),
                          dict(x=2500, y=2500, width=400, height=900), dict(x=0, y=0, width=400, height=300),
                          dict(x=-400, y=-400, width=400, height=300)):
            geometry.set_bounds(**arguments)
        yield geometry.end()

    geometry = Geometry("work-area-of-140", "a work area narrower than 160 gives a window of its width",
                        [monitor((0, 0, 140, 900))])
    geometry.set_bounds(x=0, y=0, width=400, height=500)
    assert geometry.placed.bounds == [0, 0, 140, 500]
    yield geometry.end()

    # A compact window's own least size holds where the work area is narrower still.
    geometry = Geometry("work-area-of-140-compact", "the tracking size holds on a work area narrower than it",
                        [monitor((0, 0, 140, 900))])
    geometry.set_bounds(x=0, y=0, width=200, height=500)
    assert geometry.placed.bounds == [0, 0, 150, 500]
    yield geometry.end()


def client_heights():
    for dpi, monitors in SCREENS.items():
        geometry = Geometry(f"client-height-at-{dpi}", "a client height gets the frame of the present style on top",
                            monitors)
        # The frame of the form before the call: with a caption, then without, then with one again.
        for width in (640, 200, 200, 640, 640):
            geometry.set_bounds(x=40, y=40, width=width, height=470, clientHeight=300)
        yield geometry.end()

        geometry = Geometry(f"client-height-of-parts-at-{dpi}",
                            "a client height is cut to whole pixels before the frame", monitors)
        for client_height in (300.4, 300.9, 0.4, 0.001):
            geometry.set_bounds(x=40, y=40, width=640, height=100, clientHeight=client_height)
        yield geometry.end()

    geometry = Geometry("client-height-of-nothing", "a client height of 0 or less is ignored")
    for client_height in (0, -1, -300, -0.5):
        geometry.set_bounds(x=40, y=40, width=640, height=333, clientHeight=client_height)
    assert geometry.placed.bounds == [40, 40, 680, 373]
    yield geometry.end()

    geometry = Geometry("client-height-and-rule", "the height argument selects the rule, also with a client height")
    geometry.set_bounds(x=9000, y=9000, width=640, height=120, clientHeight=500)
    assert geometry.placed.bounds == [1280, 1040 - 539, 1920, 1040]
    geometry.set_bounds(x=9000, y=9000, width=640, height=121, clientHeight=500)
    assert geometry.placed.bounds[:2] == [1872, 992]
    geometry.set_bounds(x=20, y=20, width=640, height=121, clientHeight=50)
    geometry.set_bounds(x=20, y=20, width=640, height=100, clientHeight=50)
    geometry.set_bounds(x=20, y=20, width=640, clientHeight=60)
    yield geometry.end()


def fractions():
    for dpi, monitors in SCREENS.items():
        geometry = Geometry(f"fractions-at-{dpi}", "pixels are cut towards zero", monitors)
        for arguments in (dict(x=33.3, y=33.3, width=400.7, height=300.9),
                          dict(x=-33.3, y=0.9, width=333.3, height=90.9),
                          dict(x=-0.9, y=-0.9, width=500.99, height=119.99),
                          dict(x=7, y=11, width=299, height=333)):
            geometry.set_bounds(**arguments)
        yield geometry.end()

    geometry = Geometry("numbers-beyond-any-screen", "numbers far beyond any screen end at its edges")
    for arguments in (dict(x=1000000, y=1000000), dict(x=-1000000, y=-1000000), dict(width=1000000, height=1000000),
                      dict(x=-1000000, y=5, width=1000000, height=50)):
        geometry.set_bounds(**arguments)
    yield geometry.end()


def round_trips():
    for dpi, monitors in SCREENS.items():
        geometry = Geometry(f"bounds-given-back-at-{dpi}", "bounds that are given back change nothing", monitors)
        geometry.set_bounds(x=48, y=64, width=640, height=480)
        before = list(geometry.placed.bounds)
        keys = ("x", "y", "width", "height")
        geometry.ask("setBounds", {key: {"$from": f"1.{key}"} for key in keys}, {"success": True})
        geometry.read_bounds()
        assert geometry.placed.bounds == before
        yield geometry.end()


def in_the_background():
    geometry = Geometry("brings-the-window-up", "a placed window comes to the front")
    geometry.do(user(foreground="notes"))
    geometry.set_bounds(x=40, y=40, width=640, height=480)
    yield geometry.end([notes()], calls={"SetForegroundWindow": 1}, desktop={"zOrder": [MAIN, "notes"]})

    geometry = Geometry("restores-an-iconic-window", "a minimized window is restored to the new place")
    geometry.do(user(minimize=MAIN))
    geometry.set_bounds(x=40, y=40, width=640, height=480)
    yield geometry.end([notes()])

    geometry = Geometry("restores-an-iconic-window-compact", "a minimized window is restored in its new form")
    geometry.do(user(minimize=MAIN))
    geometry.set_bounds(x=40, y=40, width=200, height=480)
    geometry.do(user(minimize=MAIN))
    geometry.set_bounds(x=40, y=40, width=200, height=100)
    yield geometry.end([notes()])

    geometry = Geometry("off-screen-start-comes-in", "a window that started off screen is placed like any other",
                        arguments=["--orvane-content-page=7"], origin=(-32000, -32000))
    geometry.read_bounds()
    geometry.read_work_area()
    geometry.set_bounds(x=40, y=40, width=640, height=480)
    yield geometry.end()


def scenarios():
    for part in (forms, edges, limits, work_areas, client_heights, fractions, round_trips, in_the_background):
        yield from part()
