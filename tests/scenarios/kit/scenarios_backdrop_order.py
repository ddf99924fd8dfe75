"""The backdrop among other windows: behind the program's own, out of the way of others, found by other instances."""
from .backdrop import (EXIT_SIZE_MOVE, IMAGE_PATH, PANEL, PANEL_EX_STYLE, RESTORE, Backdrop, another_instance,
                       another_panel)
from .core import ALWAYS, fault, window
from .window_talk import INTERNAL_ERROR, PLAIN_FAILURE, posted


def mail(**facts):
    return window("mail", "OUTLOOK.EXE", "Inbox - Outlook", (0, 0, 1400, 900), **facts)


def notes(**facts):
    return window("notes", "notepad.exe", "Notes", (300, 300, 900, 700), **facts)


def anchors():
    content = another_instance
    rows = (
        ("alone", "it stands behind the main window", [], ["main", PANEL]),
        ("among-others", "it stands right behind the main window, before other programs", [mail(), notes()],
         ["main", PANEL, "mail", "notes"]),
        ("behind-another-instance", "another instance's window counts as own, the lowest one is the anchor",
         [mail(), content("content"), notes()], ["main", "mail", "content", PANEL, "notes"]),
        ("behind-the-lowest-of-three", "the lowest of the program's windows is the anchor",
         [content("one"), mail(), content("two", pid=9001), notes(), content("three", pid=9002)],
         ["main", "one", "mail", "two", "notes", "three", PANEL]),
        ("topmost-is-no-anchor", "a topmost own window isn't the anchor", [content("tool", topmost=True), mail()],
         ["tool", "main", PANEL, "mail"]),
        ("hidden-is-no-anchor", "a hidden own window isn't the anchor", [mail(), content("content", visible=False)],
         ["main", PANEL, "mail", "content"]),
        ("minimized-is-no-anchor", "a minimized own window isn't the anchor",
         [mail(), content("content", minimized=True)], ["main", PANEL, "mail", "content"]),
        ("panel-is-no-anchor", "another instance's backdrop isn't the anchor", [mail(), another_panel("theirs")],
         ["main", PANEL, "mail", "theirs"]),
        ("image-of-that-name-elsewhere", "an image of the same name in another folder is another program",
         [mail(), content("stranger", path="C:\\Other\\orvane.exe")], ["main", PANEL, "mail", "stranger"]),
        ("image-in-other-case", "the image's path is compared without its case",
         [mail(), content("content", path=IMAGE_PATH.upper())], ["main", "mail", "content", PANEL]),
    )
    for stem, name, windows, expected in rows:
        talk = Backdrop(f"order-{stem}", name, windows)
        talk.sync()
        assert talk.order == expected, (stem, talk.order)
        yield talk.made()

    talk = Backdrop("order-without-an-anchor", "without an anchor it comes to the top", [mail(), notes()])
    talk.minimize_main()
    talk.sync()
    assert talk.order == [PANEL, "main", "mail", "notes"]
    yield talk.made()

    talk = Backdrop("order-without-an-anchor-below-topmost", "without an anchor it comes below what is topmost",
                    [notes(topmost=True), mail()])
    talk.minimize_main()
    talk.sync()
    assert talk.order == ["notes", PANEL, "main", "mail"]
    yield talk.made()

    for call, result in (("OpenProcess", None), ("QueryFullProcessImageNameW", False), ("GetModuleFileNameW", 0)):
        talk = Backdrop(f"order-when-{call.lower()}-fails", f"no window is known as own when {call} fails", [mail()])
        talk.knows_own_windows = False
        talk.sync()
        assert talk.order == [PANEL, "main", "mail"]
        yield talk.made([fault(call, result, times=ALWAYS)])


def restacking():
    def stacked(stem, name, windows, act, **more):
        talk = Backdrop(f"restack-{stem}", name, windows)
        talk.sync()
        act(talk)
        return talk.made(**more)

    def behind(window_id, *then):
        def act(talk):
            talk.front(window_id)
            for step in then:
                step(talk)
        return act

    yield stacked("not-while-another-program-is-in-front", "a sync leaves the order alone behind another program",
                  [mail(), notes()], behind(PANEL, lambda talk: talk.front("mail"), lambda talk: talk.sync(),
                                            lambda talk: talk.sync(height=300, appearance="White")))
    yield stacked("not-while-nothing-is-in-front", "a sync leaves the order alone when no window is in front",
                  [mail()], behind(PANEL, lambda talk: talk.front(None), lambda talk: talk.sync()))
    yield stacked("not-while-itself-in-front", "the backdrop in front stays in front", [mail()],
                  behind(PANEL, lambda talk: talk.sync(), lambda talk: talk.sync(resetHeight=1)))
    yield stacked("when-the-main-window-is-in-front", "with the main window in front a sync puts it behind",
                  [mail()], behind(PANEL, lambda talk: talk.front("mail"), lambda talk: talk.front("main"),
                                   lambda talk: talk.sync()))
    yield stacked("when-another-instance-is-in-front", "with another instance in front a sync puts it behind that too",
                  [mail(), another_instance("content")],
                  behind(PANEL, lambda talk: talk.front("content"), lambda talk: talk.sync()))
    yield stacked("forced-by-reopen", "reopening moves it behind another program's window too", [mail(), notes()],
                  behind(PANEL, lambda talk: talk.front("mail"), lambda talk: talk.sync(reopen=1)))
    yield stacked("forced-when-hidden", "what was hidden is put in its place, whatever is in front", [mail(), notes()],
                  behind(PANEL, lambda talk: talk.sync(enabled=0), lambda talk: talk.front("notes"),
                         lambda talk: talk.sync()))
    yield stacked("not-by-a-reset", "a reset of the height moves nothing in the order", [mail()],
                  behind(PANEL, lambda talk: talk.front("mail"), lambda talk: talk.sync(resetHeight=1)))
    yield stacked("after-a-drag", "the end of a drag puts it behind when the main window is in front",
                  [mail()], behind(PANEL, lambda talk: talk.front("main"), lambda talk: talk.front(PANEL),
                                   lambda talk: talk.front("mail"), lambda talk: talk.front("main"),
                                   lambda talk: talk.drag(100, 500, 700, 900)))
    yield stacked("not-after-a-drag-behind-another-program", "the end of a drag leaves the order alone behind others",
                  [mail()], behind(PANEL, lambda talk: talk.front("mail"), lambda talk: talk.drag(100, 500, 700, 900)))
    yield stacked("by-the-end-of-a-move", "the end of a move alone puts it behind", [mail()],
                  behind(PANEL, lambda talk: talk.front("mail"), lambda talk: talk.front("main"),
                         lambda talk: talk.post(EXIT_SIZE_MOVE)))
    yield stacked("forced-by-the-message", "its message puts it behind the own windows behind another program",
                  [mail(), another_instance("content")],
                  behind(PANEL, lambda talk: talk.front("mail"), lambda talk: talk.post(RESTORE)))
    yield stacked("not-when-minimized", "a minimized one isn't moved without force", [mail()],
                  behind(PANEL, lambda talk: talk.minimize(), lambda talk: talk.front("main"),
                         lambda talk: talk.sync()))


def other_messages():
    # A window of the size protocol without its parameters, an erasure and a null message.
    talk = Backdrop("messages-without-effect", "messages that carry nothing leave it as it is")
    talk.sync()
    for message in (0x0000, 0x0014, 0x0024, 0x0231, 0x8147, 0x8153):
        talk.post(message)
    talk.sync()
    yield talk.made()


def restored():
    theirs, further = another_panel("theirs"), another_panel("further", pid=9001)
    rows = (
        ("nobodys", "without a backdrop anywhere nothing is restored", [mail(), another_instance("content")], False),
        ("another-instances", "another instance's backdrop is told", [mail(), theirs], False),
        ("the-first-of-two", "the first in the z-order is told, and no other", [mail(), theirs, further], False),
        ("another-instances-before-the-own", "one that lies above the own is told", [theirs, mail()], True),
        ("the-own-before-another-instances", "the own is told when it lies above", [mail(), theirs], True),
        ("hidden", "a hidden one is told", [another_panel("theirs", visible=False), mail()], False),
        ("minimized", "a minimized one is told", [another_panel("theirs", minimized=True), mail()], False),
        ("another-programs", "another program's window with that property isn't told",
         [window("stranger", "other.exe", "Stranger", (0, 0, 100, 100), cleanBackground=True), mail()], False),
        ("another-programs-then-own", "the search goes on behind another program's window",
         [another_panel("stranger", pid=7000, path="D:\\orvane.exe"), theirs], False),
        ("main-windows-alone", "a main window isn't told", [another_instance("content")], False),
    )
    for stem, name, windows, makes_own in rows:
        talk = Backdrop(f"restore-{stem}", name, windows)
        if makes_own:
            talk.sync()
            if stem == "another-instances-before-the-own":
                talk.front("theirs")
        talk.restore()
        yield talk.made(calls={"PostMessageW": len(talk.posts)})

    talk = Backdrop("restore-twice", "each call posts anew")
    talk.sync()
    talk.close()
    talk.restore()
    talk.restore()
    yield talk.made()

    talk = Backdrop("restore-with-arguments", "arguments are not looked at", [theirs])
    for arguments in (None, {}, {"enabled": 0}, "x"):
        talk.ask("restoreCleanBackground", arguments, {"success": True})
        talk.posts.append(posted("theirs", RESTORE))
    yield talk.made()

    talk = Backdrop("restore-that-cant-be-posted",
                    "a message that can't be posted is a failure, and none else is tried", [theirs, further])
    talk.ask("restoreCleanBackground", ..., PLAIN_FAILURE)
    yield talk.made([fault("PostMessageW", False)], calls={"PostMessageW": 1})

    talk = Backdrop("restore-without-the-property", "without its property the own backdrop isn't found")
    talk.sync()
    talk.ask("restoreCleanBackground", ..., PLAIN_FAILURE)
    yield talk.made([fault("SetPropW", False)], calls={"PostMessageW": 0})

    talk = Backdrop("restore-follows-the-main-window", "brought back it hangs below the main window where that is now")
    talk.drag_main(100, 100, 700, 400)
    talk.sync(height=150)
    talk.close()
    talk.drag_main(500, 300, 900, 600)
    talk.restore()
    talk.sync(height=150)
    yield talk.made()


def broken(stem, name, failing, *acts, **more):
    """What is done in turn while one call fails."""
    talk = Backdrop(f"failure-{stem}", name, [mail()])
    for act in acts:
        act(talk)
    return talk.made([failing], **more)


def works(talk):
    talk.sync(appearance="White", height=180)


def failing_with(code, call, result):
    """The second such call, after the main window's: with an error that is told, or without one."""
    return {**fault(call, result, nth=2), **({} if code == INTERNAL_ERROR else {"lastError": code})}


def failures_to_make():
    def fails(code):
        return lambda talk: talk.failed_sync(code)

    for code in (INTERNAL_ERROR, 8):
        yield broken(f"no-class-{code}", "without its class there is none, and the next sync makes it",
                     failing_with(code, "RegisterClassW", 0), fails(code), works,
                     calls={"RegisterClassW": 3, "CreateWindowExW": 2})
    for code in (INTERNAL_ERROR, 14):
        yield broken(f"no-window-{code}", "without a window there is none, and the next sync makes it",
                     failing_with(code, "CreateWindowExW", None), fails(code), works,
                     calls={"RegisterClassW": 3, "CreateWindowExW": 3})

    # The class that was there already is as good as a new one.
    talk = Backdrop("failure-class-exists-without-a-window", "a class that is said to exist leads on to the window")
    talk.failed_sync(1407)
    talk.sync()
    yield talk.made([failing_with(1410, "RegisterClassW", 0)], calls={"RegisterClassW": 3, "CreateWindowExW": 3})


def failures_of_a_new_one():
    def first_place_fails(talk):
        talk.create_hidden(180, 0xFFFFFF)
        talk.failed_sync(INTERNAL_ERROR, talk.panel.bounds, appearance="White", height=180)

    yield broken("not-shown", "it stays hidden when it can't be put in its place", fault("SetWindowPos", False),
                 first_place_fails)
    yield broken("not-shown-then-shown", "the next sync shows what couldn't be shown", fault("SetWindowPos", False),
                 first_place_fails, works)

    def reopen_of_a_new_one_fails(talk):
        talk.create_hidden(180)
        talk.failed_sync(INTERNAL_ERROR, talk.panel.bounds, reopen=1, height=180)

    yield broken("not-moved-when-new", "a new one that can't be moved isn't shown either, but marked for painting",
                 fault("SetWindowPos", False), reopen_of_a_new_one_fails,
                 calls={"SetWindowPos": 1, "InvalidateRect": 1})

    talk = Backdrop("failure-keeps-colour-and-height", "a failed sync keeps the colour and the height it brought")
    talk.create_hidden(333, 0x0F1403)
    talk.failed_sync(INTERNAL_ERROR, talk.panel.bounds, height=333, appearance="Deep Green")
    talk.post(RESTORE)
    yield talk.made([fault("SetWindowPos", False)])


def failures_to_move():
    def reset_fails(talk):
        talk.colour = 0x261406
        talk.failed_sync(INTERNAL_ERROR, talk.panel.bounds, True, resetHeight=1, height=400, appearance="Deep Blue")
        talk.painted.append(talk.fill())

    yield broken("not-moved", "one that can't be moved stays where it is, not restacked, yet painted in its new colour",
                 fault("SetWindowPos", False, nth=2), works, reset_fails,
                 calls={"SetWindowPos": 2, "InvalidateRect": 2})

    def reopen_moves_only(talk):
        talk.move_hidden(300, 0xFFFFFF)
        talk.failed_sync(INTERNAL_ERROR, talk.panel.bounds, reopen=1, height=300, appearance="White")

    yield broken("moved-but-not-shown", "a closed one that can't be put in its place stays hidden, no longer closed",
                 fault("SetWindowPos", False, nth=3), works, lambda talk: talk.close(), reopen_moves_only,
                 calls={"SetWindowPos": 3})

    def stays(code):
        return lambda talk: talk.failed_sync(code, talk.panel.bounds, talk.panel.visible, appearance="White")

    for code in (INTERNAL_ERROR, 5):
        yield broken(f"not-restacked-{code}", "a sync tells that the order couldn't be set",
                     failing_with(code, "SetWindowPos", False), works, stays(code),
                     lambda talk: talk.sync(appearance="White"))


def looks():
    talk = Backdrop("window-of-its-own", "it is a captioned, sizable window with a task bar button and no owner")
    talk.sync()
    path, made = talk.made(calls={"CreateWindowExW": 2, "SetPropW": 1, "CreateSolidBrush": 1, "DeleteObject": 1,
                                  "BeginPaint": 1, "EndPaint": 1, "FillRect": 1})
    assert made["expect"]["desktop"]["windows"][PANEL]["exStyle"] & PANEL_EX_STYLE
    yield path, made


def scenarios():
    for part in (anchors, restacking, other_messages, restored, failures_to_make, failures_of_a_new_one,
                 failures_to_move, looks):
        yield from part()
