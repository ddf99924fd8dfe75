"""The native menu: its entries and their ids, how it is drawn and where it opens, what is chosen, and what fails."""
from .core import ALWAYS, fault, user, window
from .menus import COLOURS, NOTHING_CHOSEN, OTHER_COLOURS, THREE, Menu, MenuTalk, font_size, item
from .monitors import monitor

WIDE = (0, 0, 3840, 2160)
NEVER_SHOWN = {"CreatePopupMenu": 1, "DestroyMenu": 1, "CreateFontW": 0, "InsertMenuItemW": 0, "TrackPopupMenuEx": 0}


def screen(dpi):
    return monitor(dpi) if dpi <= 96 else monitor(dpi, WIDE)


def mail():
    return window("mail", "OUTLOOK.EXE", "Inbox - Outlook", (0, 0, 1400, 900))


def choices():
    for nth, one in enumerate(THREE, 1):
        talk = MenuTalk(f"chosen-{nth}", f"the action of entry {nth} comes back")
        talk.choose(nth)
        talk.open(THREE, chosen=nth)
        yield talk.made(calls={"CreatePopupMenu": 1, "InsertMenuItemW": 3, "TrackPopupMenuEx": 1, "DestroyMenu": 1,
                               "CreateFontW": 1})
        assert talk.replies[0]["value"]["action"] == one["action"]

    for stem, acts, name in (("dismissed", [], "nobody chooses: nothing comes back"),
                             ("dismissed-by-a-person", [user(chooseMenu=None)], "a dismissed menu gives no action"),
                             ("chosen-beyond-the-entries", [user(chooseMenu=4)], "there is no fourth of three entries"),
                             ("choice-taken-back", [user(chooseMenu=2), user(chooseMenu=None)],
                              "the last act before the menu counts")):
        talk = MenuTalk(stem, name)
        talk.do(*acts)
        talk.open(THREE)
        yield talk.made()

    talk = MenuTalk("menus-in-a-row", "each menu stands for itself: a choice holds for the next one alone")
    talk.choose(3)
    talk.open(THREE, chosen=3)
    talk.open(THREE)
    talk.choose(1)
    talk.open(THREE[1:], chosen=1)
    talk.choose(3)
    talk.open(THREE[1:])
    yield talk.made(calls={"CreatePopupMenu": 4, "DestroyMenu": 4, "CreateFontW": 4})

    talk = MenuTalk("equal-actions-and-labels", "equal entries are told apart by their ids alone")
    talk.choose(2)
    talk.open([item("same", "Same"), item("same", "Same"), item("other", "Same")], chosen=2)
    yield talk.made()

    many = [item(f"action-{at}", f"Entry {at}") for at in range(1, 41)]
    talk = MenuTalk("forty-entries", "the fortieth entry is chosen as any other")
    talk.choose(40)
    talk.open(many, chosen=40)
    yield talk.made()


# What becomes an entry: (what the element is, whether it is kept)
ELEMENTS = {
    "without-a-shortcut": ({"action": "a", "label": "A"}, True),
    "with-an-empty-shortcut": (item("a", "A", ""), True),
    "with-a-shortcut-that-is-no-text": (item("a", "A", 7), True),
    "with-more-keys": ({**item("a", "A"), "enabled": False, "icon": {"$bytes": "AA=="}}, True),
    "without-a-label": ({"action": "a", "shortcut": "F1"}, False),
    "with-an-empty-label": (item("a", ""), False),
    "with-a-label-that-is-no-text": (item("a", 5), False),
    "without-an-action": ({"label": "A", "shortcut": "F1"}, False),
    "with-an-empty-action": (item("", "A"), False),
    "with-an-action-that-is-no-text": (item(True, "A"), False),
    "that-is-an-empty-map": ({}, False),
    "that-is-a-number": (7, False),
    "that-is-a-text": ("A", False),
    "that-is-null": (None, False),
    "that-is-a-list": ([item("a", "A")], False),
    "that-is-a-byte-list": ({"$bytes": "AA=="}, False),
    "that-is-a-map-with-number-keys": ({"$map": [[1, "a"], [2, "A"]]}, False),
}


def elements():
    for stem, (element, is_kept) in ELEMENTS.items():
        verdict = "is kept" if is_kept else "is dropped and uses up no id"
        talk = MenuTalk(f"element-{stem}", f"an element {stem.replace('-', ' ')} {verdict}")
        kept = [THREE[0], *([element] if is_kept else []), THREE[2]]
        talk.choose(len(kept))
        talk.open([THREE[0], element, THREE[2]], chosen=len(kept), kept=kept)
        yield talk.made(calls={"InsertMenuItemW": len(kept)})

    rows = (
        ("absent", "no menu without items", {}), ("null", "null is no list of items", {"items": None}),
        ("text", "a text is no list of items", {"items": "Copy"}),
        ("map", "a map is no list of items", {"items": item("a", "A")}),
        ("number-list", "a list of plain numbers is no list of items", {"items": {"$int32List": [1, 2]}}),
        ("empty", "no menu for an empty list", {"items": []}),
        ("numbers", "numbers in place of maps show no menu", {"items": [1, 2.5, {"$int64": 3}]}),
        ("all-dropped", "no menu when every element is dropped", {"items": [{}, item("", ""), {"action": "a"}]}),
        ("other-key", "the key's case counts", {"Items": THREE}))
    for stem, name, arguments in rows:
        talk = MenuTalk(f"items-{stem}", name, [mail()], foreground="mail")
        talk.choose(1)
        talk.answer(arguments, was_opened=False)
        yield talk.made(calls=NEVER_SHOWN, end={"foreground": "mail"})

    talk = MenuTalk("arguments-that-are-no-map", "without a map of arguments there is no menu")
    for arguments in (..., None, THREE, "items", 7):
        talk.answer(arguments, was_opened=False)
    yield talk.made(calls={"CreatePopupMenu": 5, "DestroyMenu": 5, "TrackPopupMenuEx": 0})


def fonts():
    rows = [(scale, dpi) for dpi in (96, 120, 144, 192) for scale in (1.0, 0.85, 1.2)]
    rows += [(2.0, 96), (0.1, 96), (-3.0, 96), (2.0, 144), (0.1, 144), (1.1, 120), (0.93, 96), (0.85, 48), (1.2, 48)]
    for scale, dpi in rows:
        stem = f"font-{str(scale).replace('.', '-').replace('--', 'minus-')}-at-{dpi}"
        stem = stem.replace("font--", "font-minus-")
        talk = MenuTalk(stem, f"scale {scale} at {dpi} dpi: the font is {font_size(scale, dpi)} pixels high",
                        monitors=[screen(dpi)])
        talk.choose(2)
        talk.open(THREE, chosen=2, arguments={"fontScale": scale}, scale=scale)
        yield talk.made()
    assert (font_size(1.0, 96), font_size(0.85, 48), font_size(2.0, 96), font_size(0.1, 96)) == (
        14, 10, font_size(1.2, 96), font_size(0.85, 96))

    talk = MenuTalk("font-scale-kinds", "a scale is any number; what is none counts as 1")
    for given, scale in ((1, 1), (2, 1.2), ({"$int64": 0}, 0.85), ({"$double": 1.1}, 1.1), ("1.2", 1), (True, 1),
                         (None, 1), ([1.2], 1), ({"$double": "Infinity"}, 1.2), ({"$double": "-Infinity"}, 0.85)):
        talk.open(THREE[:1], arguments={"fontScale": given}, scale=scale)
    yield talk.made()


def looks():
    for appearance in (*COLOURS, "", "white", "Sepia", 7):
        stem = str(appearance).lower().replace(" ", "-") if appearance != "white" else "white-in-lower-case"
        talk = MenuTalk(f"colours-{stem or 'empty'}", f"the colours of {appearance!r}, also of the entry chosen")
        talk.choose(1)
        talk.open(THREE, chosen=1, arguments={"appearance": appearance},
                  appearance=appearance if isinstance(appearance, str) else "")
        colours = COLOURS.get(appearance, OTHER_COLOURS)
        assert {one["fill"] for one in talk.painted if "fill" in one} == {colours[0], colours[2]}
        yield talk.made()

    for given, is_rtl in ((1, True), (0, False), (-1, True), (0.5, True), ({"$int64": 1}, True), (True, False),
                          ("1", False), (None, False), (0.0, False)):
        stem = str(given).replace(".", "-").lower() if not isinstance(given, (dict, str)) else {
            dict: "wide-1", str: "text"}[type(given)]
        stem = stem.replace("-1", "minus-1") if given == -1 else stem
        talk = MenuTalk(f"rtl-{stem}", "texts are drawn from right to left" if is_rtl
                        else "texts are drawn from left to right")
        talk.choose(2)
        talk.open(THREE, chosen=2, arguments={"rtl": given}, is_rtl=is_rtl)
        yield talk.made()

    labels = ("Cut & paste", "&File", "a&&b", "Tab\tStop", "Zeile 1\nZeile 2", "هنا القائمة", "豆包 菜单", "😀 é",
              " ", "x" * 300)
    talk = MenuTalk("labels-as-they-stand", "a label is drawn and measured as it stands, whatever is in it")
    talk.choose(1)
    talk.open([item(f"action {at}", label) for at, label in enumerate(labels)], chosen=1)
    yield talk.made()

    talk = MenuTalk("shortcuts-are-not-drawn", "a shortcut is neither drawn nor measured")
    talk.open([item("a", "Copy", "Ctrl+Alt+Shift+Insert"), item("b", "Copy", "")])
    widths = {one["width"] for one in talk.painted[0]["entries"]}
    assert len(widths) == 1 and all("Ctrl" not in one.get("text", "") for one in talk.painted)
    yield talk.made()

    talk = MenuTalk("action-in-any-script", "an action comes back byte for byte")
    talk.choose(1)
    talk.open([item("öffne 豆包 😀\u0000end", "Open")], chosen=1)
    yield talk.made()


def anchors():
    rows = (("origin", 0, 0), ("whole", 200, 40), ("fractions", 10.9, 20.4), ("negative", -30.5, -12.9),
            ("outside", 5000, 3000))
    for stem, x, y in rows:
        for dpi in (96, 120, 144):
            talk = MenuTalk(f"anchor-{stem}-at-{dpi}", f"its right edge lies on the point ({x}, {y}), at {dpi} dpi",
                            monitors=[screen(dpi)])
            talk.open(THREE[:2], arguments={"anchorX": x, "anchorY": y}, point=talk.point(x, y))
            yield talk.made()

    talk = MenuTalk("anchor-kinds", "a coordinate is any number; what is none counts as 0")
    for given, x in (({"$int64": 7}, 7), ({"$double": 7.9}, 7), ("7", 0), (True, 0), (None, 0), ([7], 0)):
        talk.open(THREE[:1], arguments={"anchorX": given, "anchorY": given}, point=talk.point(x, x))
    yield talk.made()

    talk = MenuTalk("anchor-right-to-left", "the point is the right edge from right to left too")
    talk.open(THREE, arguments={"anchorX": 300, "anchorY": 10, "rtl": 1}, point=talk.point(300, 10), is_rtl=True)
    yield talk.made()

    talk = MenuTalk("anchor-in-a-moved-window", "the point is one of the window's client area, wherever that is")
    talk.do(user(resize={"window": "main", "bounds": [500, 300, 900, 700]}))
    talk.client = (508, 331)
    talk.open(THREE, arguments={"anchorX": 40, "anchorY": 50}, point=(548, 381))
    yield talk.made()

    second = [monitor(), monitor(144, (1920, 0, 5760, 2160))]
    talk = MenuTalk("anchor-on-a-second-screen", "density and place are those of the window's screen", monitors=second)
    talk.do(user(resize={"window": "main", "bounds": [2000, 100, 2600, 500]}))
    talk.dpi, talk.client = 144, (2000 + 12, 100 + 47)
    talk.choose(1)
    talk.open(THREE, chosen=1, arguments={"anchorX": 40.5, "anchorY": 50}, point=talk.point(40.5, 50))
    yield talk.made()


def foregrounds():
    talk = MenuTalk("comes-to-the-front", "the main window is brought to the front before its menu opens", [mail()],
                    foreground="mail")
    talk.choose(1)
    talk.open(THREE, chosen=1)
    yield talk.made(calls={"SetForegroundWindow": 1})

    talk = MenuTalk("front-refused", "a menu opens also when the main window doesn't get the foreground", [mail()],
                    foreground="mail")
    talk.choose(1)
    talk.open(THREE, chosen=1)
    yield talk.made([fault("SetForegroundWindow", False)], end={"foreground": "mail"})


def failures():
    talk = MenuTalk("failure-no-menu", "without a menu nothing is shown, nor posted")
    talk.answer({"items": THREE}, was_opened=False)
    yield talk.made([fault("CreatePopupMenu", None)],
                    calls={"CreatePopupMenu": 1, "DestroyMenu": 0, "TrackPopupMenuEx": 0})

    talk = MenuTalk("failure-no-font", "without its font the stock one is measured and drawn")
    talk.choose(2)
    talk.open(THREE, chosen=2, has_font=False)
    yield talk.made([fault("CreateFontW", None)], calls={"CreateFontW": 1, "GetStockObject": 7})

    for nth, others in ((1, (2, 3)), (2, (1, 3)), (3, (1, 2))):
        talk = MenuTalk(f"failure-entry-{nth}-not-inserted", f"entry {nth} is missing, the others keep their ids")
        labels = {at: one["label"] for at, one in enumerate(THREE, 1)}
        talk.choose(2)
        talk.painted = Menu([(at, labels[at]) for at in others]).painted(talk.point(0, 0), others[1])
        talk.answer({"items": THREE}, THREE[others[1] - 1]["action"])
        yield talk.made([fault("InsertMenuItemW", False, nth=nth)], calls={"InsertMenuItemW": 3})

    talk = MenuTalk("failure-no-entry-inserted", "a menu without an entry shows nothing")
    talk.choose(1)
    talk.answer({"items": THREE})
    yield talk.made([fault("InsertMenuItemW", False, times=ALWAYS)], calls={"TrackPopupMenuEx": 1, "DestroyMenu": 1})

    for result, action in ((0, None), (2, "paste"), (3, "settings"), (4, None), (-1, None)):
        stem = str(result).replace("-", "minus-")
        talk = MenuTalk(f"failure-loop-gives-{stem}", "the answer goes by the id alone that the loop gives back")
        talk.answer({"items": THREE}, action)
        yield talk.made([fault("TrackPopupMenuEx", result)], calls={"DestroyMenu": 1, "PostMessageW": 1})

    talk = MenuTalk("failure-null-message", "a message that can't be posted afterwards costs nothing")
    talk.choose(1)
    talk.open(THREE, chosen=1)
    talk.posts.clear()
    yield talk.made([fault("PostMessageW", False)], calls={"PostMessageW": 1})

    talk = MenuTalk("failure-no-density", "without a density the point isn't scaled and the font is the least")
    talk.choose(1)
    talk.open(THREE, chosen=1, arguments={"anchorX": 30, "anchorY": 20}, point=talk.point(30, 20), metrics_dpi=0)
    yield talk.made([fault("GetDpiForWindow", 0, times=ALWAYS)])


def strangers():
    # Without a structure behind it such a message goes the way of any other.
    talk = MenuTalk("measuring-nothing", "a message to measure or to draw nothing is harmless")
    for message in (0x2C, 0x2B):
        talk.do({"post": {"window": "main", "message": message}})
    talk.open(THREE)
    for message in (0x2C, 0x2B):
        talk.do({"post": {"window": "main", "message": message}})
    talk.answer({"items": []}, was_opened=False)
    assert talk.replies[1]["value"] == NOTHING_CHOSEN
    yield talk.made()


def scenarios():
    for part in (choices, elements, fonts, looks, anchors, foregrounds, failures, strangers):
        yield from part()
