"""The backdrop's life: absent, shown, disabled, closed, and every way from one to the other; its flags and colours."""
from .backdrop import COLOURS, OTHER_COLOUR, PANEL, RESTORE, Backdrop
from .core import user

# How each state is reached.
REACHED = {
    "absent": lambda talk: None,
    "shown": lambda talk: talk.sync(height=200),
    "disabled": lambda talk: (talk.sync(height=200), talk.sync(height=200, enabled=0)),
    "closed": lambda talk: (talk.sync(height=200), talk.close()),
    "minimized": lambda talk: (talk.sync(height=200), talk.minimize()),
}

# What happens then.
EVENTS = {
    "a-sync": lambda talk: talk.sync(height=300),
    "a-sync-that-disables": lambda talk: talk.sync(height=300, enabled=0),
    "a-sync-that-reopens": lambda talk: talk.sync(height=300, reopen=1),
    "a-sync-that-resets": lambda talk: talk.sync(height=300, resetHeight=1),
    "a-sync-that-reopens-and-resets": lambda talk: talk.sync(height=300, reopen=1, resetHeight=1),
    "a-sync-that-reopens-disabled": lambda talk: talk.sync(height=300, enabled=0, reopen=1),
    "the-users-close": lambda talk: talk.close(),
    "the-restore-message": lambda talk: talk.post(RESTORE),
    "the-restore-call": lambda talk: talk.restore(),
}

NEEDS_A_PANEL = ("the-users-close", "the-restore-message")
# These have no reply that would tell what they did.
SILENT = ("the-users-close", "the-restore-message", "the-restore-call")


def outcome_of(talk):
    if talk.panel is None:
        return "there is none"
    if not talk.panel.visible:
        return "it is hidden, closed by the user" if talk.is_closed else "it is hidden"
    return "it is minimized" if talk.panel.minimized else "it is shown"


def arrows():
    for state, reach in REACHED.items():
        for event, act in EVENTS.items():
            if state == "absent" and event in NEEDS_A_PANEL:
                continue
            if event in SILENT:
                talk = Backdrop(f"{state}-then-{event}", "")
                reach(talk)
                act(talk)
                talk.name = f"{state}, then {event.replace('-', ' ')}: {outcome_of(talk)}"
                yield talk.made()
            # The state shows in what a plain sync makes of it.
            talk = Backdrop(f"{state}-then-{event}-then-a-sync", "")
            reach(talk)
            act(talk)
            talk.sync(height=300)
            talk.name = f"{state}, then {event.replace('-', ' ')}, then a sync: {outcome_of(talk)}"
            yield talk.made()


def closings():
    talk = Backdrop("closed-twice", "closing it twice is harmless")
    talk.sync()
    talk.close()
    talk.close()
    talk.sync()
    talk.sync(reopen=1)
    yield talk.made(calls={"CreateWindowExW": 2})

    talk = Backdrop("closed-again-and-again", "it comes back as often as it was closed, one window all the time")
    for _ in range(3):
        talk.sync(reopen=1)
        talk.close()
        talk.restore()
        talk.close()
    yield talk.made(calls={"CreateWindowExW": 2, "RegisterClassW": 2, "SetPropW": 1, "RemovePropW": 1})

    for stem, state in (("shown", "shown"), ("closed", "closed"), ("minimized", "minimized")):
        talk = Backdrop(f"goes-with-the-main-window-{stem}", f"a {state} backdrop goes with the main window")
        REACHED[state](talk)
        talk.do(user(close="main"))
        talk.expect_gone()
        path, made = talk.made(calls={"RemovePropW": 1, "PostQuitMessage": 1})
        made["expect"]["desktop"] = {"foreground": None, "zOrder": []}
        yield path, made

    talk = Backdrop("goes-with-the-main-window-that-is-told-to-close", "the call that closes the main window ends both")
    talk.sync()
    talk.ask("closeWindow", ..., {"success": True})
    talk.posts.append({"window": "main", "message": 0x10, "wParam": 0, "lParam": 0})
    path, made = talk.made(calls={"RemovePropW": 1, "PostQuitMessage": 1})
    made["expect"]["desktop"] = {"foreground": None, "zOrder": []}
    yield path, made

    talk = Backdrop("closed-while-in-front", "the main window follows a closed backdrop that was in front")
    talk.sync()
    talk.front(PANEL)
    talk.close()
    yield talk.made()


def flags():
    def kinds(stem, name, key, values):
        talk = Backdrop(f"flag-{stem}", name)
        talk.sync()
        for value in values:
            talk.sync(**{key: value})
            talk.sync(reopen=1)
        return talk.made()

    no_numbers = (False, True, None, "0", "1", [0], {}, {"$bytes": "AA=="}, {"$int32List": [0]})
    yield kinds("enabled-that-is-no-number", "what is no number leaves it enabled, false too", "enabled", no_numbers)
    yield kinds("enabled-zero", "nought of every kind disables it", "enabled",
                (0, 0.0, -0.0, {"$int32": 0}, {"$int64": 0}, {"$double": 0}))
    yield kinds("enabled-not-zero", "every other number enables it", "enabled",
                (1, 2, -1, 0.25, {"$int64": 1 << 40}, {"$int32": -7}))

    for key in ("reopen", "resetHeight"):
        talk = Backdrop(f"flag-{key.lower()}-that-is-no-number", f"{key} isn't set by what is no number, true too")
        talk.sync()
        talk.drag(50, 60, 450, 500)
        if key == "reopen":
            talk.close()
        for value in (True, "1", None, [1], {"$bytes": "AQ=="}, 0, 0.0, {"$int64": 0}):
            talk.sync(**{key: value}, height=222)
        yield talk.made()
        talk = Backdrop(f"flag-{key.lower()}-that-is-a-number", f"{key} is set by every number but nought")
        talk.sync()
        for value in (1, -1, 0.5, {"$int64": 1}, {"$int32": 2}):
            talk.drag(50, 60, 450, 500)
            if key == "reopen":
                talk.close()
            talk.sync(**{key: value}, height=222)
        yield talk.made()

    talk = Backdrop("arguments-that-are-no-map", "what is no map counts as an empty one")
    for arguments in (..., None, "White", ["White"], 7, True, {"$bytes": "AA=="}):
        talk.sync(arguments)
    talk.sync({})
    talk.sync(Enabled=0, unknown=None)
    yield talk.made()

    talk = Backdrop("heights-of-every-kind", "a height is any number, and nothing else")
    for height in (300, 300.7, {"$int64": 310}, {"$double": 320}, "300", True, None, [300], -5, {"$double": -0.0}):
        talk.sync(height=height, resetHeight=1)
    yield talk.made()


def colours():
    words = (("deep-green", "Deep Green"), ("deep-blue", "Deep Blue"), ("white", "White"), ("other", "Deep Black"),
             ("empty", ""), ("lower-case", "white"), ("with-a-space", "Deep Green "), ("number", 7), ("null", None))
    for stem, appearance in words:
        colour = COLOURS.get(appearance, OTHER_COLOUR)
        talk = Backdrop(f"colour-{stem}", f"the appearance {appearance!r} gives 0x{colour:06X}")
        talk.sync(appearance=appearance)
        assert talk.painted == [talk.fill(colour)]
        yield talk.made()

    talk = Backdrop("colour-changes", "it is painted again exactly when the colour changes")
    painted = 0
    for appearance, is_painted in (("White", True), ("White", False), ("Sepia", True), ("", False),
                                   ("Deep Green", True), ("Deep Green", False), ("Deep Blue", True), ("White", True)):
        talk.sync(appearance=appearance)
        painted += is_painted
        assert len(talk.painted) == painted
    yield talk.made(calls={"InvalidateRect": painted})

    talk = Backdrop("colour-while-disabled", "a colour set while it was disabled shows when it comes back")
    talk.sync(appearance="White")
    talk.sync(appearance="Deep Blue", enabled=0)
    talk.sync(appearance="Deep Blue")
    yield talk.made()

    talk = Backdrop("colour-while-closed", "a colour set while it was closed shows when its message brings it back")
    talk.sync(appearance="White")
    talk.close()
    talk.sync(appearance="Deep Green")
    talk.post(RESTORE)
    yield talk.made()

    talk = Backdrop("colour-before-it-exists", "a colour set before there is a backdrop is kept")
    talk.sync(appearance="White", enabled=0)
    talk.sync(appearance="White")
    yield talk.made(calls={"InvalidateRect": 1})

    talk = Backdrop("colour-while-minimized", "a minimized one is painted when it is restored")
    talk.sync(appearance="White")
    talk.minimize()
    talk.sync(appearance="Deep Blue")
    talk.front(PANEL)
    yield talk.made()

    talk = Backdrop("colour-left-out", "without an appearance the usual colour comes back")
    talk.sync(appearance="White")
    talk.sync()
    yield talk.made()


def minimized():
    talk = Backdrop("minimized-stays-minimized", "a sync leaves a minimized one where the user put it")
    talk.sync()
    talk.minimize()
    talk.sync()
    talk.sync(height=300, appearance="White")
    yield talk.made(calls={"ShowWindow": 1})

    talk = Backdrop("minimized-then-reset", "a reset sets the place it comes back to")
    talk.sync()
    talk.minimize()
    talk.sync(height=300, resetHeight=1)
    talk.front(PANEL)
    yield talk.made()

    talk = Backdrop("minimized-by-the-message", "its message restores a minimized one, places and shows it")
    talk.drag_main(100, 100, 700, 400)
    talk.sync(height=120)
    talk.minimize()
    talk.drag_main(300, 200, 900, 500)
    talk.post(RESTORE)
    yield talk.made()


def scenarios():
    for part in (arrows, closings, flags, colours, minimized):
        yield from part()
