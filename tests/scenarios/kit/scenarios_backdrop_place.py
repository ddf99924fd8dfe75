"""Where the backdrop hangs: the rectangle rule on screens of every density, its limits, and what dragging leaves."""
from .backdrop import FIXED_PLACE, MAIN, PANEL, RESTORE, Backdrop
from .core import ALWAYS, E_FAIL, fault
from .monitors import monitor, scaled

DENSITIES = (96, 120, 144, 192)
WIDE = (0, 0, 3840, 2160)
RIGHT_OF_FULL_HD = (1920, 0, 5760, 2160)
LEFT_OF_FULL_HD = (-2560, -200, 0, 1240)


def screen(dpi):
    return monitor(dpi) if dpi == 96 else monitor(dpi, WIDE)


def logical(bounds, dpi):
    return [scaled(side, dpi) for side in bounds]


# Main windows in logical pixels, and the height asked for.
SHAPES = (
    ("narrow-strip", "a fifth of the room below the main window is the default height", (100, 50, 340, 250), 0),
    ("given-height", "a height that is given counts in logical pixels, frame included", (100, 50, 340, 250), 300),
    ("fraction-of-a-pixel", "a height is cut to whole pixels", (100, 50, 340, 250), 150.99),
    ("less-than-a-pixel", "a height that comes to no pixel counts as none", (100, 50, 340, 250), 0.3),
    ("negative-height", "a negative height counts as none", (100, 50, 340, 250), -300.0),
    ("least-height", "the least tracking height of 80 logical pixels holds", (100, 50, 340, 250), 20),
    ("least-width", "the least tracking width of 160 logical pixels holds", (100, 50, 240, 250), 0),
    ("left-overhang", "a main window beyond the left edge leaves the backdrop at the edge", (-100, 50, 340, 250), 0),
    ("above-the-screen", "the backdrop never rises above the work area", (100, -20, 340, 25), 0),
)


def shapes():
    for stem, name, main, height in SHAPES:
        for dpi in DENSITIES:
            talk = Backdrop(f"place-{stem}-at-{dpi}", f"{name}, at {dpi} dpi", monitors=[screen(dpi)])
            talk.drag_main(*logical(main, dpi))
            talk.sync(height=height)
            yield talk.made()


def edges():
    for dpi in (96, 144):
        one = screen(dpi)
        _, _, right, bottom = one["work"]
        width, least = scaled(400, dpi), scaled(80, dpi)
        rows = (
            ("lower-edge-at-the-bottom", "no room below the main window counts as one pixel",
             (100, 100, 100 + width, bottom + scaled(7, dpi)), 0),
            ("lower-edge-below-the-bottom", "below the work area the backdrop is held at its bottom",
             (100, 100, 100 + width, bottom + 40), 0),
            ("little-room", "a fifth of four pixels still gives a body of one pixel",
             (100, 100, 100 + width, bottom + scaled(7, dpi) - 4), 0),
            ("taller-than-the-work-area", "a height beyond the work area is cut to it",
             (100, 100, 100 + width, 400), 5000),
            ("lifted-to-fit", "a tall backdrop is lifted until it fits", (100, 100, 100 + width, bottom - 100), 400),
            ("right-overhang", "the backdrop ends at the right edge", (right - width + 30, 100, right + 30, 300), 0),
            ("left-edge-at-the-right", "one pixel is left of a main window at the right edge",
             (right - 1, 100, right - 1 + width, 300), 0),
            ("beyond-the-right", "one pixel is left of a main window beyond the right edge",
             (right + 50, 100, right + 50 + width, 300), 0),
            ("margin-cut", "the margin at the right is cut at the edge",
             (right - width - 5, 100, right - 5, 300 + least), 0),
        )
        for stem, name, main, height in rows:
            talk = Backdrop(f"place-{stem}-at-{dpi}", f"{name}, at {dpi} dpi", monitors=[one])
            talk.drag_main(*main)
            talk.sync(height=height)
            yield talk.made()


def screens():
    rows = (
        ("task-bar-above", "a task bar above is left free", [monitor(work=(0, 60, 1920, 1080))], (100, 0, 500, 90)),
        ("task-bar-at-the-left", "a task bar at the left is left free", [monitor(work=(80, 0, 1920, 1080))],
         (20, 100, 500, 300)),
        ("second-screen-of-the-same-scale", "the main window's screen is the backdrop's",
         [monitor(), monitor(bounds=(1920, 0, 3840, 1080))], (2000, 100, 2400, 400)),
        ("second-screen-of-another-scale", "the scale is that of the main window's screen",
         [monitor(), monitor(144, RIGHT_OF_FULL_HD)], (2000, 100, 2400, 400)),
        ("screen-at-the-left", "a screen may have negative coordinates",
         [monitor(), monitor(120, LEFT_OF_FULL_HD)], (-2000, -100, -1500, 200)),
        ("between-two-screens", "the screen that has most of the main window counts",
         [monitor(), monitor(bounds=(1920, 0, 3840, 1080))], (1800, 100, 2400, 400)),
        ("small-screen", "a screen smaller than the backdrop's least size", [monitor(bounds=(0, 0, 640, 120))],
         (10, 10, 400, 60)),
    )
    for stem, name, screens_, main in rows:
        talk = Backdrop(f"place-{stem}", name, monitors=screens_)
        talk.drag_main(*main)
        talk.sync()
        talk.sync(height=250, resetHeight=1)
        yield talk.made()

    talk = Backdrop("place-of-the-normal-window", "the backdrop hangs below the window as it starts")
    talk.sync()
    assert talk.panel.bounds == [10, 676, 1302, 778]
    yield talk.made()

    talk = Backdrop("place-below-a-minimized-window", "a minimized main window is where the platform puts it")
    talk.minimize_main()
    talk.sync(height=200)
    yield talk.made()


def moves_between_screens():
    """The backdrop is told by the platform that its density changed."""
    for stem, first, second in (("to-a-finer-screen", 96, 144), ("to-a-coarser-screen", 192, 96)):
        pair = [monitor(first), monitor(second, RIGHT_OF_FULL_HD)]
        talk = Backdrop(f"move-{stem}", "reopened on another screen it has the size that looks the same there",
                        monitors=pair)
        talk.drag_main(100, 100, 700, 400)
        talk.sync(height=120)
        talk.drag_main(2200, 100, 2800, 400)
        talk.sync(height=120)
        talk.sync(height=120, reopen=1)
        yield talk.made()

        talk = Backdrop(f"drag-{stem}", "dragged to another screen it takes the size suggested there, and is painted",
                        monitors=pair)
        talk.drag_main(100, 100, 700, 400)
        talk.sync(height=120)
        talk.drag(2500, 500, 3000, 900)
        yield talk.made()

        talk = Backdrop(f"brought-back-{stem}", "brought back by its message it follows the main window",
                        monitors=pair)
        talk.drag_main(100, 100, 700, 400)
        talk.sync(height=120)
        talk.close()
        talk.drag_main(2200, 100, 2800, 400)
        talk.post(RESTORE)
        talk.sync(height=120, resetHeight=1)
        yield talk.made()


def unreadable():
    rows = (
        ("no-monitor", "the fixed rectangle stands where the monitor can't be read", "place_is_readable",
         fault("GetMonitorInfoW", False, times=ALWAYS)),
        ("no-window-rectangle", "the fixed rectangle stands where the main window can't be read", "place_is_readable",
         fault("GetWindowRect", False, window=MAIN, times=ALWAYS)),
        ("no-visible-bounds", "without the visible bounds the window's own lower edge counts",
         "visible_bounds_are_readable", fault("DwmGetWindowAttribute", E_FAIL, times=ALWAYS)),
        ("no-frame", "without the frame's size its caption counts as 32 and its border as 8", "frame_is_readable",
         fault("AdjustWindowRectExForDpi", False, times=ALWAYS)),
    )
    for stem, name, fact, failing in rows:
        for dpi in (96, 144):
            talk = Backdrop(f"unreadable-{stem}-at-{dpi}", f"{name}, at {dpi} dpi", monitors=[screen(dpi)])
            setattr(talk, fact, False)
            talk.drag_main(*logical((200, 100, 700, 400), dpi))
            talk.sync()
            if fact == "place_is_readable":
                assert talk.panel.bounds == FIXED_PLACE
            talk.sync(height=220, resetHeight=1)
            yield talk.made([failing])

    talk = Backdrop("unreadable-panel", "the place is left out of the reply when the backdrop's own can't be read")
    talk.sync()
    talk.ask("syncCleanBackground", ..., {"success": True, "errorCode": {"$int64": 0}, "temporarilyClosed": False,
                                          "visible": True})
    talk.sync()
    yield talk.made([fault("GetWindowRect", False, nth=3, window=PANEL)], calls={"GetWindowRect": 8})


def dragged():
    talk = Backdrop("dragged-height-is-kept", "a height that was dragged outlives every sync but a reset")
    talk.drag_main(100, 100, 700, 400)
    talk.sync()
    talk.drag(60, 420, 660, 900)
    talk.sync(height=300)
    talk.sync(height=300, appearance="White")
    talk.sync(height=300, reopen=1)
    talk.sync(height=300, resetHeight=1)
    yield talk.made()

    talk = Backdrop("dragged-height-is-kept-while-closed", "a closed backdrop comes back with the dragged height")
    talk.drag_main(100, 100, 700, 400)
    talk.sync(height=150)
    talk.drag(100, 380, 800, 700)
    talk.close()
    talk.sync(height=150)
    talk.sync(height=150, reopen=1)
    yield talk.made()

    talk = Backdrop("dragged-place-is-kept-while-disabled", "hidden and shown again it stands where it was dragged")
    talk.sync()
    talk.drag(400, 300, 900, 800)
    talk.sync(enabled=0)
    talk.sync()
    yield talk.made()

    talk = Backdrop("reset-to-the-default-height", "a reset without a height gives the default one")
    talk.drag_main(100, 100, 700, 400)
    talk.sync(height=500)
    talk.sync(resetHeight=1)
    talk.sync(height=500)
    talk.sync(height=500, resetHeight=1, reopen=1)
    yield talk.made()


def dragged_to_the_least():
    talk = Backdrop("least-size-when-dragged", "nobody drags it below its least size")
    talk.sync()
    talk.drag(50, 60, 70, 70)
    yield talk.made(end={"windows": {PANEL: {"bounds": [50, 60, 210, 140]}}})

    talk = Backdrop("least-size-when-dragged-at-192", "the least size grows with the density",
                    monitors=[monitor(192, WIDE)])
    talk.sync()
    talk.drag(50, 60, 70, 70)
    yield talk.made(end={"windows": {PANEL: {"bounds": [50, 60, 370, 220]}}})


def dragged_and_then():
    talk = Backdrop("painted-only-where-it-grows", "a smaller backdrop shows nothing new")
    talk.sync(appearance="Deep Blue")
    talk.drag(10, 676, 900, 760)
    talk.drag(300, 300, 1190, 384)
    talk.drag(300, 300, 1190, 385)
    yield talk.made()

    talk = Backdrop("main-window-moves-alone", "nothing moves the backdrop when the main window moves")
    talk.sync()
    before = list(talk.panel.bounds)
    talk.drag_main(300, 300, 800, 600)
    talk.sync(height=200)
    assert talk.panel.bounds == before
    talk.sync(height=200, reopen=1)
    yield talk.made()

    talk = Backdrop("minimized-has-no-height", "a minimized backdrop's height isn't taken over, once restored it is")
    talk.drag_main(100, 100, 700, 400)
    talk.sync(height=200)
    talk.drag(100, 380, 800, 900)
    talk.minimize()
    talk.sync(height=200)
    talk.post(RESTORE)
    talk.drag(100, 380, 800, 900)
    talk.minimize()
    talk.sync(height=200, reopen=1)
    yield talk.made()


def scenarios():
    for part in (shapes, edges, screens, moves_between_screens, unreadable, dragged, dragged_to_the_least,
                 dragged_and_then):
        yield from part()
