"""Bringing the target's window forward: refused and late requests, and the follow-up behind the reply."""
from .activation import (AFTER_RESTORE_MS, AFTER_SELECTION_MS, BEFORE_CHATGPT_IDENTITY_MS, BEFORE_FOREGROUND_MS,
                         BRING_FORWARD_MS, CONFIRMED, FIRST_FOLLOW_UP_MS, FORCE_PASS_MS, NOT_CONFIRMED, REQUESTED,
                         SECOND_FOLLOW_UP_MS, Activation)
from .activation_cases import (CLAUDE_URL, MAIL_TITLE, case, chatgpt_tab, claude_tab, desk, mail_tab,
                               provider_arguments, work)
from .activation_tabs import seen, window
from .core import ALWAYS, at, bring_up, close_window, fault, user, wait

# When the window of a proven tab that was selected already is first asked for.
FRONT_MS = {
    "ChatGPT": AFTER_SELECTION_MS + BEFORE_CHATGPT_IDENTITY_MS + BEFORE_FOREGROUND_MS,
    "Claude": AFTER_SELECTION_MS + BEFORE_FOREGROUND_MS,
}
NEVER = sum(FORCE_PASS_MS)


def run(file, name, *, foreground=CONFIRMED, takes_ms=None, asked, end="work", rules=(), looks=None, behind=(),
        faults=(), start=..., attached=None, windows_at_end=None, calls=None, gone=False, **facts):
    """The target stands in front of its window; `asked` is how often the window is asked to come forward."""
    make_tab = chatgpt_tab if name == "ChatGPT" else claude_tab
    title = f"Trip to Lisbon - {name}"
    if name == "ChatGPT":
        # Without an address it is the full discovery that finds it.
        facts |= {"addressBar": None}
        marks, url, score = "selected anchoredTitle verifiedContent rawTitle", "", 500
    else:
        marks, url, score = "selected domain anchoredTitle rawTitle", CLAUDE_URL, 520
    windows = desk(work(mail_tab(), make_tab(title), selected=1, rules=rules, **facts))
    target = seen(1, title, marks, url=url, score=score)
    activation = Activation(name)
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target, proves_composer=name == "ChatGPT")],
                        desktop=windows, front=start if isinstance(start, str) else None)
    activation.choose("Chrome", target).already_selected().settle()
    if name == "ChatGPT":
        activation.chatgpt_identity(passes=True, composer=True)
    else:
        activation.claude_identity(passes=True)
    activation.finish(foreground=foreground, takes_ms=takes_ms)
    counted = {"SetForegroundWindow": asked, **(calls or {})}
    if attached is not None:
        counted["AttachThreadInput"] = 2 * attached
    return case(f"{name.lower()}-{file}", windows, activation, provider_arguments(name),
                selected={} if gone else {"work": 1}, selections=0, foreground=end, looks=looks, behind=behind,
                faults=faults, start=start, windows_at_end=windows_at_end, calls=counted)


def requests():
    """ChatGPT is asked for up to three times, the others once; only ChatGPT must be seen in front."""
    first, second, third = FORCE_PASS_MS
    yield run("window-comes-forward-at-the-second-request", "ChatGPT", foregroundRequests=1, takes_ms=first + second,
              asked=2)
    yield run("window-comes-forward-at-the-third-request", "ChatGPT", foregroundRequests=2, takes_ms=NEVER, asked=3)
    yield run("window-that-never-comes-forward-fails-and-keeps-its-tab", "ChatGPT", foregroundRequests="refused",
              foreground=NOT_CONFIRMED, takes_ms=NEVER, asked=3, end="main")
    yield run("window-that-refuses-once-is-only-requested", "Claude", foregroundRequests=1, foreground=REQUESTED,
              asked=1, end="main", looks=False)
    yield run("window-that-always-refuses-is-only-requested", "Claude", foregroundRequests="refused",
              foreground=REQUESTED, asked=1, end="main", looks=False)


def in_front_already():
    yield run("window-in-front-is-not-asked-for", "ChatGPT", start="work", takes_ms=0, asked=0, attached=0,
              calls={"ShowWindowAsync": 1, "SetWindowPos": 0})
    # It is the window in front and the target at once: its input is joined as both.
    yield run("window-in-front-is-asked-for-all-the-same", "Claude", start="work", asked=1, attached=2)


def shown_states():
    back = {"work": {"minimized": False, "visible": True}}
    yield run("minimised-window-is-restored-first", "ChatGPT", minimized=True,
              takes_ms=AFTER_RESTORE_MS + FORCE_PASS_MS[0], asked=1, windows_at_end=back)
    yield run("minimised-window-that-refuses-is-restored-once", "ChatGPT", minimized=True,
              foregroundRequests="refused", foreground=NOT_CONFIRMED, takes_ms=AFTER_RESTORE_MS + NEVER, asked=3,
              end="main", windows_at_end=back)
    yield run("minimised-window-that-comes-forward-when-restored-is-not-asked-for", "ChatGPT", minimized=True,
              rules=[at(FRONT_MS["ChatGPT"] + AFTER_RESTORE_MS, bring_up("work"))], takes_ms=AFTER_RESTORE_MS, asked=0,
              attached=0, windows_at_end=back)
    yield run("minimised-window-is-restored-without-a-pause", "Claude", minimized=True, asked=1, windows_at_end=back)
    yield run("hidden-window-is-shown", "ChatGPT", visible=False, asked=1, windows_at_end=back)


def attachments():
    """The host joins the input of the window in front and of the target, each for the calls alone."""
    yield run("no-window-in-front-attaches-the-target-alone", "ChatGPT", start=None, asked=1, attached=1)
    yield run("own-window-in-front-attaches-the-target-alone", "ChatGPT", start="main", asked=1, attached=1)
    yield run("foreign-window-in-front-attaches-both", "ChatGPT", start="editor", asked=1, attached=2)
    yield run("foreign-window-in-front-attaches-both", "Claude", start="editor", asked=1, attached=2)
    yield run("each-request-attaches-anew", "ChatGPT", start="editor", foregroundRequests="refused",
              foreground=NOT_CONFIRMED, takes_ms=NEVER, asked=3, attached=6, end="editor")
    # An attachment that failed isn't taken back.
    yield run("attachments-that-fail-keep-nothing-from-being-asked", "ChatGPT", start="editor", asked=1,
              calls={"AttachThreadInput": 2}, faults=[fault("AttachThreadInput", 0, times=2)])
    yield run("attachment-to-the-target-alone-fails", "Claude", start="editor", asked=1,
              calls={"AttachThreadInput": 3}, faults=[fault("AttachThreadInput", 0, 2)])


def believed():
    """What the calls return is not believed, only what stands in front afterwards."""
    granted = fault("SetForegroundWindow", 1, times=ALWAYS)
    yield run("request-that-claims-success-is-not-believed", "ChatGPT", faults=[granted], foreground=NOT_CONFIRMED,
              takes_ms=NEVER, asked=3, end="main")
    yield run("request-that-claims-success-is-not-believed", "Claude", faults=[granted], foreground=REQUESTED, asked=1,
              end="main", looks=False)
    yield run("request-that-claims-failure-counts-by-what-is-in-front", "Claude",
              faults=[fault("SetForegroundWindow", 0)], rules=[at(FRONT_MS["Claude"] + 120, bring_up("work"))], asked=1)


def people():
    """Someone else brings a window up meanwhile, or closes the target."""
    asked_at = FRONT_MS["ChatGPT"]
    yield run("window-that-loses-the-foreground-at-once-is-asked-for-again", "ChatGPT",
              rules=[at(asked_at + 60, bring_up("editor"))], takes_ms=sum(FORCE_PASS_MS[:2]), asked=2)
    yield run("window-that-loses-the-foreground-at-once-is-only-requested", "Claude", foreground=REQUESTED, asked=1,
              rules=[at(FRONT_MS["Claude"] + 60, bring_up("editor"))], end="editor", looks=False)
    yield run("window-that-closes-between-two-requests-ends-them", "ChatGPT", foregroundRequests="refused",
              rules=[at(asked_at + 60, close_window("work"))], foreground=NOT_CONFIRMED, takes_ms=FORCE_PASS_MS[0],
              asked=1, end="main", gone=True)
    yield run("window-that-closed-before-the-first-request-is-not-asked-for", "ChatGPT",
              rules=[at(asked_at - 50, close_window("work"))], foreground=NOT_CONFIRMED, takes_ms=0, asked=0,
              end="main", gone=True)
    yield run("window-that-closed-before-the-request-counts-as-requested", "Claude",
              rules=[at(FRONT_MS["Claude"] - 50, close_window("work"))], foreground=REQUESTED, takes_ms=0, asked=0,
              end="main", gone=True, looks=False, behind=[wait(1000)])


# The follow-up asks once at 180 ms behind the reply, looks again 120 + 270 ms later.
FIRST_ASK = FIRST_FOLLOW_UP_MS
SECOND_LOOK = FIRST_FOLLOW_UP_MS + BRING_FORWARD_MS + SECOND_FOLLOW_UP_MS


def follow_up():
    done = [wait(SECOND_LOOK + BRING_FORWARD_MS + 100)]
    for name in ("ChatGPT", "Claude"):
        yield run("follow-up-asks-once-more-for-a-window-that-stays-in-front", name, asked=2, behind=done)
        yield run("follow-up-does-not-come-early", name, asked=1, behind=[wait(FIRST_ASK - 1)])
        yield run("follow-up-brings-a-window-back-that-was-covered", name, asked=2,
                  behind=[wait(100), user(foreground="editor"), wait(FIRST_ASK)])
        yield run("follow-up-asks-a-second-time-for-a-window-that-was-covered-again", name, asked=3,
                  behind=[wait(SECOND_LOOK - 1), user(foreground="editor"), wait(2)])
        yield run("follow-up-leaves-the-person-alone-afterwards", name, asked=2, end="editor",
                  behind=[wait(SECOND_LOOK + 1), user(foreground="editor"), wait(1000)], looks=True)
        yield run("follow-up-on-a-window-that-closed-asks-for-nothing", name, asked=1, end="main", gone=True,
                  behind=[wait(50), user(close="work"), wait(1000)], looks=True)
    yield run("follow-up-reaches-a-window-that-refused-the-first-request", "Claude", foregroundRequests=1,
              foreground=REQUESTED, asked=2, behind=done, looks=False)
    yield run("follow-up-reaches-a-window-that-refused-twice", "Claude", foregroundRequests=2, foreground=REQUESTED,
              asked=3, behind=done, looks=False)
    yield run("no-follow-up-behind-a-failure", "ChatGPT", foregroundRequests="refused", foreground=NOT_CONFIRMED,
              takes_ms=NEVER, asked=3, end="main", behind=[wait(1000)])


def scenarios():
    for part in (requests, in_front_already, shown_states, attachments, believed, people, follow_up):
        yield from part()
