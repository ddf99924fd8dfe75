"""Every key event of a run, told by a trace or a reply, behind its proof and in the window that was proven."""
import re
from typing import NamedTuple, Optional

from traces import ACTIVATE, DELIVER, EXPERIMENTAL, NO_STEP, steps_of, step_named

ENTER_KEY, SHIFT, CTRL, ALT, ESCAPE_KEY, WIN = 13, 16, 17, 18, 27, 0x5B
MODIFIERS = {SHIFT, CTRL, ALT, WIN}


def chord(*keys):
    """Down in order, up in reverse."""
    return tuple((key, False) for key in keys) + tuple((key, True) for key in reversed(keys))


ENTER = chord(ENTER_KEY)
SELECT_ALL = chord(CTRL, ord("A"))
PASTE = chord(CTRL, ord("V"))
SEARCH_TABS = chord(CTRL, SHIFT, ord("A"))
ESCAPE = chord(ESCAPE_KEY)
NEW_LINE = chord(SHIFT, ENTER_KEY)
HOT_KEYS = {
    "Win+Shift+R": chord(WIN, SHIFT, ord("R")), "Win+Alt+R": chord(WIN, ALT, ord("R")),
    "Alt+PrtSc": chord(ALT, 0x2C), "Win+PrtSc": chord(WIN, 0x2C), "Win+D": chord(WIN, ord("D")),
    "Win+E": chord(WIN, ord("E")), "Win+H": chord(WIN, ord("H")), "Win+V": chord(WIN, ord("V")),
}

ASSIST = "Browser Assist"  # works on the browser's own fields
FIRST_HANDLE, HANDLE_STEP = 0x10104, 0x22  # of the windows of other programs, in the order of the file


class Told(NamedTuple):
    """Keys that a reply tells of."""
    events: tuple
    ms: int
    what: str
    was_sent: bool = True        # else the step says that they couldn't be sent
    is_optional: bool = False
    has_proof: bool = True
    window: Optional[str] = None  # where they must go; None: anywhere
    proof_ms: Optional[int] = None  # since when the window is unproven; None: proven at the very moment


class Match(NamedTuple):
    told: Told
    as_name: str
    events: list  # of the report


class Strays(NamedTuple):
    breaches: list
    unnoticed: list  # behind the proof a person took the foreground, in a wait without a check


def window_of_handle(scenario, handle):
    windows = scenario.get("desktop", {}).get("windows", [])
    index, rest = divmod(handle - FIRST_HANDLE, HANDLE_STEP)
    return windows[index]["id"] if rest == 0 and 0 <= index < len(windows) else None


def _passed(steps, name):
    return step_named(steps, name).opens("PASS")


def _target(run, steps, name, pattern, base):
    found = re.search(pattern, step_named(steps, name).result)
    return window_of_handle(run.scenario, int(found.group(1), base)) if found else None


def _told_by_delivery(run, reply):
    steps = steps_of(reply)
    window = _target(run, steps, "Dispatch Context", r"foreground HWND=(-?\d+)", 10)
    proof_ms = step_named(steps, "Prompt Box Readiness").ms
    is_right = _passed(steps, "Foreground Verification")
    for index, step in enumerate(steps):
        before, earlier = (steps[index - 1] if index else NO_STEP), steps[:index]
        if step.name == "Clear Existing Draft":
            yield Told(SELECT_ALL, step.ms, step.name, step.opens("PASS"),
                       has_proof=is_right and before.name == "Focus Input" and before.opens("PASS"), window=window,
                       proof_ms=proof_ms)
        elif step.name == "Paste":
            yield Told(PASTE, step.ms, step.name, step.opens("PASS"),
                       has_proof=before.name == "Clear Existing Draft" and before.opens("PASS"), window=window,
                       proof_ms=proof_ms)
        elif step.name in ("Send", "Claude Enter Fallback", "ChatGPT Enter Fallback"):
            yield Told(ENTER, step.ms, step.name, step.opens("PASS"), has_proof=_passed(earlier, "Paste"),
                       window=window, proof_ms=proof_ms)
        elif step.name == EXPERIMENTAL + "Paste":
            yield Told(PASTE, step.ms, step.name, step.opens("KEY SENT"), window=window,
                       has_proof=is_right and before.name == EXPERIMENTAL + "Focus" and before.opens("PASS"))
        elif step.name == EXPERIMENTAL + "Submit":
            yield Told(ENTER, step.ms, step.name, step.opens("ATTEMPTED"), window=window,
                       has_proof=before.name == EXPERIMENTAL + "Paste Verification" and before.opens("PASS"))


def _told_by_activation(run, reply):
    steps = steps_of(reply)
    window = _target(run, steps, "Browser Assist target", r"hwnd=0x([0-9a-f]+)", 16)
    proof = step_named(steps, "Browser Assist foreground")
    for step in steps:
        if step.name == "Browser Assist keys":
            yield Told(SEARCH_TABS, step.ms, step.name, step.opens("Ctrl+Shift+A sent"), has_proof=proof.opens("PASS"),
                       window=window, proof_ms=proof.ms)
        elif step.name == "Browser Assist search field":
            yield Told(ESCAPE, step.ms, step.name, is_optional=True, window=window)
        elif step.name == "Browser Assist enter" and not step.opens("SKIPPED"):
            yield Told(ENTER, step.ms, step.name, step.opens("Sent"), window=window,
                       has_proof=step_named(steps, "Browser Assist type").ms >= 0)
        elif step.name == "Browser Assist verification" and step.result.endswith("verified=N"):
            yield Told(ESCAPE, step.ms, step.name)


def arguments_by_name(scenario):
    calls = [step for step in scenario.get("steps", []) if "call" in step or "bytes" in step]
    return {step.get("as", str(i)): step.get("call", {}).get("arguments") for i, step in enumerate(calls)}


def _hot_key(run, reply):
    arguments = arguments_by_name(run.scenario).get(reply["as"])
    name = arguments.get("keys") if isinstance(arguments, dict) else None
    return HOT_KEYS.get(name, ()) if isinstance(name, str) else ()


def _told_by_window_channel(run, reply):
    value = reply["value"]
    is_success = isinstance(value, dict) and value.get("success") is True
    if reply["method"] == "sendNewLineToPreviousWindow":
        yield Told(NEW_LINE, reply["endMs"], reply["method"], is_success, is_optional=not is_success)
    elif reply["method"] == "sendWindowsHotKey":
        keys = _hot_key(run, reply)
        yield Told(keys, reply["endMs"], reply["method"], is_success and bool(keys))


def told_keys(run, reply):
    if reply["method"] == DELIVER:
        return _told_by_delivery(run, reply)
    if reply["method"] == ACTIVATE:
        return _told_by_activation(run, reply)
    return _told_by_window_channel(run, reply)


def is_refusing(run):
    """Whether SendInput itself was made to fail or to lie."""
    faults = [*run.faults, *run.scenario.get("desktop", {}).get("faults", [])]
    return any(fault["call"] == "SendInput" for fault in faults)


def _take(told, events, position):
    taken = []
    for key, is_up in told.events:
        if position < len(events):
            event = events[position]
            if (event["vk"], event["up"], event["ms"]) == (key, is_up, told.ms):
                taken.append(event)
                position += 1
    return taken, position


def _match_lost(run, reply, events, position):
    """A reply that got lost took its trace with it: what came meanwhile is its own."""
    if reply["method"] == "sendWindowsHotKey":
        return _take(Told(_hot_key(run, reply), reply["endMs"], reply["method"]), events, position)[1]
    if reply["endMs"] > reply["startMs"]:
        while position < len(events) and events[position]["ms"] <= reply["endMs"]:
            position += 1
    return position


def match_keys(run):
    """What was told of and what came of it, and the events that nothing tells of."""
    events, position, matches = run.report["input"], 0, []
    for reply in run.report["replies"]:
        if reply["kind"] == "none":
            position = _match_lost(run, reply, events, position)
            continue
        for told in told_keys(run, reply):
            # A call that is refused inserts nothing; only Chrome's box is worked by a call for each event.
            can_have_come = told.was_sent or told.what.startswith(ASSIST)
            taken, position = _take(told, events, position) if can_have_come else ([], position)
            matches.append(Match(told, reply["as"], taken))
    return matches, events[position:]


def breaches(run):
    matches, untold = match_keys(run)
    refuses = is_refusing(run)
    if untold:
        first = untold[0]
        yield f"a key that nothing tells of: {first['vk']} at {first['ms']} ms into {first['window']}"
    for told, as_name, events in matches:
        place = f"{as_name}, {told.what}"
        if events and not told.has_proof:
            yield f"{place}: keys without the proof in the step before"
        if not told.was_sent and events and not refuses:
            yield f"{place}: keys came that are told as not sent"
        is_whole = len(events) == len(told.events) or (told.is_optional and not events)
        if told.was_sent and not is_whole and not refuses:
            yield f"{place}: {len(events)} of {len(told.events)} keys came"


def _moves_foreground(node, besides):
    """Whether a rule of the scenario takes the foreground away, besides those of a person at these times."""
    if isinstance(node, dict):
        moves = any(isinstance(action, dict) and action.keys() & {"foreground", "closeWindow", "minimize"}
                    for action in node.get("do", ()))
        if moves and node.get("on", {}).get("time") not in besides:
            return True
        node = list(node.values())
    return isinstance(node, list) and any(_moves_foreground(child, besides) for child in node)


def _is_unnoticed(run, told, ms):
    """Whether someone may have taken the foreground between the proof and the key, in a wait without a check."""
    if told.proof_ms is None:
        return False
    if _moves_foreground(run.scenario.get("desktop", {}).get("windows", []), {when for when, _ in run.meddling}):
        return True
    return any(told.proof_ms < moved <= ms for moved, kind in run.meddling)


def strays(run):
    found = Strays([], [])
    for told, as_name, events in match_keys(run)[0]:
        # What is let go may be let go elsewhere: the page moves on when the key goes down.
        for event in (event for event in events if not event["up"]):
            is_right = told.window is None or event["window"] == told.window
            is_page = told.what.startswith(ASSIST) or event["element"] != "addressBar"
            if is_right and is_page:
                continue
            place = f"{as_name}, {told.what}: a key into {event['window']}/{event['element']}, not {told.window}"
            (found.unnoticed if _is_unnoticed(run, told, event["ms"]) else found.breaches).append(place)
            break
    return found
