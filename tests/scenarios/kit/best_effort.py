"""What the best-effort route must answer: its trace step by step with the time that each step shows, the keys it sends,
and how often it opens the clipboard.

A `BestEffort` is written the way the call runs, as a `Delivery` is; a scenario says at which scan or check something
holds.
"""
from .core import VK_RETURN, VK_V, call, chord, scenario
from .delivery import Delivery, expect
from .delivery_scenes import NOT_SENT, PROMPT, named
from .delivery_texts import EXPERIMENTAL_STOPPED
from .desktops import chat_browser, desk

SCANS, SCAN_PAUSE_MS = 8, 350
PASTE_CHECKS, PASTE_PAUSE_MS = 10, 200
DELIVERY_CHECKS, DELIVERY_PAUSE_MS = 12, 250

# When the route begins in a call that begins at 0: scans, then the paste, stand at this time where all goes well.
ROUTE_MS = 260

EXPERIMENTAL_CLEARED = "Experimental: composer cleared after submit; verify response on page"

# The edit controls of a page at rest: the address bar, the search box and the composer.
EDITS = 3

WRONG_HOST = "FAIL: foreground or exact chat host mismatch; nothing pasted"
NO_AUTOMATION = "FAIL: automation unavailable"
NO_ROOT = "FAIL: browser root unavailable"
NO_CONDITION = "FAIL: edit condition unavailable"
NO_COMPOSER = "FAIL: no unique named composer; check login/page readiness; nothing pasted"
NOT_FOCUSED = "FAIL: exact composer focus not verified; nothing pasted"
NO_VALUE = "FAIL: ValuePattern unavailable; nothing pasted"
DRAFT = "BLOCKED: composer is nonempty; clear or save it manually; nothing pasted"
NO_PROMPT = "FAIL: empty clipboard or focus changed; nothing pasted"
NOT_PASTED = "FAIL: Ctrl+V not confirmed; no submit or automatic retry"
NO_MATCH = "FAIL/UNVERIFIED: no exact text match; no submit; inspect draft manually"
NOT_SUBMITTED = "FAIL/UNVERIFIED: focus changed or Enter failed; no retry"
NOT_CLEARED = "UNVERIFIED: composer did not expose a cleared state; check page; do not resend blindly"


class BestEffort(Delivery):
    """`provider` is the name that the trace shows, `name` the argument where it is another."""

    def __init__(self, provider, name=None, start=0, batch=0):
        super().__init__(name if name is not None else provider.name, start, batch=batch)
        self.provider = provider
        self.calls = {"OpenClipboard": 0, "CloseClipboard": 0, "SendInput": 0}

    def report(self, name, result):
        return self.step("Experimental " + name, f"{result}; elapsed={self.now - self.route_start} ms")

    def count(self, *names):
        for name in names:
            self.calls[name] += 1
        return self

    # The stretches of a run that goes well, each with those before it.

    def begun(self, expected=True, verdict=None):
        self.foreground(verdict) if verdict else self.foreground()
        self.dispatch(expected)
        self.route_start = self.now
        return self.report("Profile", f"RC340 best-effort; provider={self.provider.name}; automatic resend=OFF; "
                                      "prompt/labels/values not logged")

    def identified(self, **how):
        return self.begun(**how).report("Identity", "PASS: exact chat host and foreground verified")

    def scan(self, attempt=1, edits=EDITS, usable=EDITS, named_candidates=1):
        return self.report("Input Scan", f"attempt={attempt}; edits={edits}; usable={usable}; "
                                         f"namedCandidates={named_candidates}")

    def scans(self, first, last, **counts):
        """Fruitless ones, each with the pause behind it."""
        for attempt in range(first, last + 1):
            self.scan(attempt, **{"named_candidates": 0, **counts}).wait(SCAN_PAUSE_MS)
        return self

    def found(self, **counts):
        return self.identified().scan(**counts)

    def focus_taken(self):
        return self.report("Focus", "PASS: exact editable composer focused")

    def focused(self, **counts):
        return self.found(**counts).focus_taken()

    def clipboard_read(self):
        return self.count("OpenClipboard", "CloseClipboard")

    def keys_pasted(self):
        self.clipboard_read().count("SendInput").keys(*chord(VK_V))
        return self.report("Paste", "KEY SENT: awaiting exact text verification")

    def pasted(self):
        return self.focused().keys_pasted()

    def matched(self, check=1):
        """The text is seen at this check, counted from 1."""
        return self.wait(check * PASTE_PAUSE_MS).report("Paste Verification",
                                                        "PASS: exact clipboard text matched; content omitted")

    def enter_sent(self):
        self.count("SendInput").keys((VK_RETURN, False), (VK_RETURN, True))
        return self.report("Submit", "ATTEMPTED: Enter once; no automatic resend")

    def submitted(self, check=1):
        return self.pasted().matched(check).enter_sent()

    def cleared(self, check=1):
        self.wait(check * DELIVERY_PAUSE_MS)
        self.report("Delivery", "OBSERVED: verified composer cleared after Enter; server receipt not independently "
                                "verified")
        return self.reply(True, EXPERIMENTAL_CLEARED)

    # Where it stops.

    def stop(self, name, result):
        return self.report(name, result).reply(False, EXPERIMENTAL_STOPPED)

    def no_composer(self, **counts):
        """Eight scans, none with a unique composer."""
        return self.identified().scans(1, SCANS, **counts).stop("Input", NO_COMPOSER)

    def unopened(self):
        return self.focused().count("OpenClipboard").stop("Clipboard", NO_PROMPT)

    def unread(self):
        return self.focused().clipboard_read().stop("Clipboard", NO_PROMPT)

    def paste_fails(self):
        return self.focused().clipboard_read().count("SendInput").stop("Paste", NOT_PASTED)

    def unmatched(self, checks=PASTE_CHECKS):
        """The last of these checks ends it."""
        return self.wait(checks * PASTE_PAUSE_MS).stop("Paste Verification", NO_MATCH)

    def enter_fails(self):
        return self.pasted().matched().count("SendInput").stop("Submit", NOT_SUBMITTED)

    def uncleared(self, checks=DELIVERY_CHECKS):
        return self.wait(checks * DELIVERY_PAUSE_MS).stop("Delivery", NOT_CLEARED)


def counted_calls(delivery):
    """Of a delivery on another route, all of whose keys were taken, too."""
    if isinstance(delivery, BestEffort):
        return delivery.calls
    return {"SendInput": len({event["batch"] for event in delivery.input})}


def expect_best_effort(*deliveries, names=("deliver",), clipboard=None, sequence=1, **desktop):
    """A delivery's expectation, and: `clipboard` (its forms, as at the start) as it was, one reading of it, no key and
    no press beside the trace's, no foreground asked for."""
    calls = {name: sum(counted_calls(one).get(name, 0) for one in deliveries)
             for name in ("OpenClipboard", "CloseClipboard", "SendInput")}
    made = expect(*deliveries, names=names, **desktop)
    made["desktop"]["clipboard"] = {"text": (clipboard or {}).get("text"), "sequence": sequence}
    made["platformCalls"] = {**calls, "SetForegroundWindow": 0, "IUIAutomationInvokePattern::Invoke": 0,
                             "IUIAutomationValuePattern::SetValue": 0}
    return made


def best_effort_scene(stem, page, delivery, composer="", message=NOT_SENT, values=None, foreground="chat", focus=...,
                      clipboard=..., faults=(), windows=None, chat_facts=None, tab_index=1, steps=None, **arguments):
    """One delivery on one desktop. `composer`: its text at the end, ... where it is gone; `message`: the last message at
    the end; `focus`: at the end, where it matters; `clipboard`: its forms, None for an empty one."""
    chat = chat_browser(page.tab(), **(chat_facts or {}))
    shown = {} if composer is ... else {"chat/composer": composer}
    held = {"text": PROMPT} if clipboard is ... else clipboard
    rest = {} if focus is ... else {"focus": focus}
    target = {"name": delivery.name, "expectedWindowHandle": {"$window": "chat"}, **arguments}
    expected = expect_best_effort(
        delivery, clipboard=held, foreground=foreground, tab_index=tab_index,
        values={**shown, **message, **(values or {})}, invoked={"chat/send": 0}, **rest)
    made = scenario("", windows or desk(chat), steps or [call("pasteAndSubmit", target, "deliver")], expected,
                    foreground="chat", clipboard=held, faults=faults)
    return named("best-effort", stem, made)
