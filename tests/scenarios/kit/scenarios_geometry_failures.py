"""What comes of the window's place where a call of the platform fails, and of a window with the backdrop's mark."""
from .core import fault, user
from .desktops import notes
from .geometry import SCREENS, Geometry
from .placement import fit
from .window_calls import DONE, FAILED, MAIN, OTHER_INSTANCE


def reads():
    for method, call in (("getWorkArea", "GetMonitorInfoW"), ("getBounds", "GetWindowRect")):
        geometry = Geometry(f"{call}-fails".lower(), f"{method} fails without coordinates")
        geometry.ask(method, ..., FAILED)
        if method == "getBounds":
            geometry.read_work_area()
            geometry.read_bounds()
        else:
            geometry.read_bounds()
            geometry.read_work_area()
        yield geometry.end(faults=[fault(call, False, **({"window": MAIN} if method == "getBounds" else {}))])

    geometry = Geometry("no-monitor-of-the-window", "without a monitor neither the work area nor a restore comes")
    geometry.ask("getWorkArea", ..., FAILED)
    geometry.ask("emergencyRestore", ..., FAILED)
    geometry.read_bounds()
    yield geometry.end(faults=[fault("MonitorFromWindow", None, times=2)], calls={"SetWindowPos": 0})


def unknown_monitors():
    for dpi, monitors in SCREENS.items():
        for file, failing in (("information", fault("GetMonitorInfoW", False)),
                              ("monitor", fault("MonitorFromRect", None))):
            geometry = Geometry(f"unknown-{file}-at-{dpi}", "without a monitor's facts a request is taken as it is",
                                monitors)
            geometry.set_bounds(x=40, y=40, width=700, height=121, known={"monitor_known": False})
            geometry.set_bounds(x=40, y=40, width=700, height=121)
            yield geometry.end(faults=[failing])

    for file, arguments in (("compact", dict(x=40, y=40, width=100, height=100)),
                            ("beyond-the-edges", dict(x=5000, y=-700, width=640, height=90)),
                            ("large", dict(x=-20, y=-20, width=5000, height=3000))):
        geometry = Geometry(f"unknown-monitor-{file}", "no least size and no edge applies without a monitor")
        geometry.set_bounds(**arguments, known={"monitor_known": False})
        yield geometry.end(faults=[fault("GetMonitorInfoW", False)])


def frames():
    for dpi, monitors in SCREENS.items():
        geometry = Geometry(f"unknown-frame-at-{dpi}", "a frame that can't be computed leaves the height argument",
                            monitors)
        geometry.set_bounds(x=40, y=40, width=640, height=333, clientHeight=500, known={"frame_known": False})
        geometry.set_bounds(x=40, y=40, width=640, height=333, clientHeight=500)
        geometry.set_bounds(x=40, y=40, width=640, height=100, clientHeight=500, known={"frame_known": False})
        yield geometry.end(faults=[fault("AdjustWindowRectExForDpi", False),
                                   fault("AdjustWindowRectExForDpi", False, nth=3)],
                           calls={"AdjustWindowRectExForDpi": 3})

    geometry = Geometry("no-frame-asked-for", "without a client height no frame is computed")
    for client_height in (0, -3):
        geometry.set_bounds(x=40, y=40, width=640, height=333, clientHeight=client_height)
    yield geometry.end(calls={"AdjustWindowRectExForDpi": 0})


def refused_places():
    refused = {"is_placed": False}
    for file, width in (("compact", 200), ("normal", 640)):
        geometry = Geometry(f"place-refused-{file}", "where the place is refused, style and title have changed already")
        geometry.do(user(foreground="notes"))
        geometry.set_bounds(x=40, y=40, width=width, height=480, reply=False, known=refused)
        yield geometry.end([notes()], [fault("SetWindowPos", False)], foreground="notes",
                           calls={"SetForegroundWindow": 0, "SetWindowPos": 1}, desktop={"zOrder": ["notes", MAIN]})

    geometry = Geometry("place-refused-and-back", "a refused place leaves the compact form in force")
    geometry.set_bounds(x=40, y=40, width=200, height=480, reply=False, known=refused)
    geometry.drag((10, 10, 60, 60))
    assert geometry.placed.bounds == [10, 10, 160, 170]
    geometry.set_bounds(x=40, y=40, width=640, height=480)
    yield geometry.end(faults=[fault("SetWindowPos", False)])

    geometry = Geometry("place-refused-iconic", "a minimized window is restored before its place is refused")
    geometry.do(user(minimize=MAIN))
    geometry.set_bounds(x=40, y=40, width=640, height=480, reply=False, known=refused)
    yield geometry.end([notes()], [fault("SetWindowPos", False)], foreground="notes")

    geometry = Geometry("restore-refused", "a refused restore has changed style and title, and brings nothing up")
    geometry.set_bounds(x=40, y=40, width=200, height=480)
    geometry.do(user(foreground="notes"))
    geometry.restore(reply=False, is_placed=False)
    yield geometry.end([notes()], [fault("SetWindowPos", False, nth=2)], foreground="notes",
                       calls={"SetForegroundWindow": 1, "SetWindowPos": 2})

    geometry = Geometry("restore-without-a-monitor", "a restore that knows no monitor changes nothing")
    geometry.set_bounds(x=40, y=40, width=200, height=480)
    geometry.do(user(minimize=MAIN))
    geometry.ask("emergencyRestore", ..., FAILED)
    geometry.do(user(foreground="notes"))
    yield geometry.end([notes()], [fault("GetMonitorInfoW", False, nth=2)], foreground="notes", minimized=True,
                       calls={"SetForegroundWindow": 1, "SetWindowPos": 1})

    geometry = Geometry("restore-without-a-monitor-stays-compact", "a restore that knows no monitor leaves the form")
    geometry.set_bounds(x=40, y=40, width=200, height=480)
    geometry.ask("emergencyRestore", ..., FAILED)
    geometry.drag((10, 10, 60, 60))
    assert geometry.placed.bounds == [10, 10, 160, 170]
    yield geometry.end(faults=[fault("GetMonitorInfoW", False, nth=2)])


def unimportant_failures():
    """What isn't looked at stops nothing."""
    geometry = Geometry("foreground-refused", "a place is a success though the window can't come to the front")
    geometry.do(user(foreground="notes"))
    geometry.set_bounds(x=40, y=40, width=640, height=480)
    geometry.restore()
    yield geometry.end([notes()], [fault("SetForegroundWindow", False, times=2)], foreground="notes",
                       calls={"SetForegroundWindow": 2})

    for call, untouched in (("SetWindowTextW", "title"), ("SetWindowLongPtrW", "style")):
        geometry = Geometry(f"{call}-fails".lower(), f"a {untouched} that can't be set stops nothing")
        before = getattr(geometry.placed, untouched)
        geometry.set_bounds(x=40, y=40, width=200, height=480, asks=False)
        setattr(geometry.placed, untouched, before)
        geometry.read_bounds()
        # The first style word written is the window's own, at its creation.
        nth = 2 if call == "SetWindowLongPtrW" else 1
        yield geometry.end(faults=[fault(call, 0, nth=nth)])

    geometry = Geometry("not-restored", "a window that can't be restored is placed while it is minimized")
    geometry.do(user(minimize=MAIN))
    geometry.set_bounds(x=40, y=40, width=640, height=480, asks=False)
    geometry.do(user(foreground=MAIN))
    yield geometry.end([notes()], [fault("ShowWindow", False, nth=2)], minimized=True)


def marked():
    """The main window with the backdrop's mark: it keeps its form and goes behind the program's own windows."""
    mark = fault("GetPropW", 1, window=MAIN)
    for file, arguments in (("narrow", dict(x=40, y=40, width=200, height=480)),
                            ("high", dict(x=9000, y=9000, width=640, height=480)),
                            ("least-width", dict(x=40, y=40, width=30, height=150))):
        geometry = Geometry(f"marked-window-{file}",
                            "a window with the backdrop's mark keeps its form and stays inside")
        geometry.do(user(foreground="notes"))
        geometry.ask("setBounds", arguments, DONE)
        placed = geometry.placed
        request = placed.request(**arguments)
        placed.place(fit(request, geometry.monitors[0]["work"], request[3] - request[1], True))
        geometry.read_bounds()
        other = {**notes("page"), "process": OTHER_INSTANCE}
        yield geometry.end([other, notes()], [mark], foreground="notes", calls={"SetForegroundWindow": 0},
                           desktop={"zOrder": ["notes", "page", MAIN]})

    geometry = Geometry("marked-window-iconic",
                        "a minimized window with the backdrop's mark is shown without activation")
    geometry.do(user(minimize=MAIN))
    geometry.ask("setBounds", {"x": 40, "y": 40, "width": 640, "height": 480}, DONE)
    geometry.placed.place([40, 40, 680, 520])
    geometry.read_bounds()
    yield geometry.end([notes()], [mark], foreground="notes", calls={"SetForegroundWindow": 0})

    geometry = Geometry("marked-window-ends-compact", "the backdrop's mark ends the compact form's tracking size")
    geometry.set_bounds(x=40, y=40, width=200, height=480)
    geometry.ask("setBounds", {"x": 40, "y": 40, "width": 200, "height": 480}, DONE)
    geometry.placed.compact = False
    geometry.placed.place([40, 40, 240, 520])
    geometry.drag((10, 10, 20, 20))
    assert geometry.placed.bounds == [10, 10, 146, 49]
    yield geometry.end(faults=[{**mark, "nth": 2}])


def scenarios():
    for part in (reads, unknown_monitors, frames, refused_places, unimportant_failures, marked):
        yield from part()
