"""What the host promises, whatever fails: a scenario and its report in, the broken promises out."""
import re
import sys
from pathlib import Path
from typing import NamedTuple, Optional

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))

import chords
from determinism import channels_of, holds_text, prompts_of, secret_places
from failing_ways import CALLS
from sends import foreign_text_breaches, send_breaches
from tabs import tab_breaches
from traces import verdict_breaches

SCRIPT_ENDED = "a step acts on the window"
START_FAILED = 1
# The longest branch takes about 27 s, all others together less.
LONGEST_CALL_MS = 28_000
CLIPBOARD_WRITERS = {"writeOrvaneDraftClipboard"}


class Breach(NamedTuple):
    promise: str
    detail: str


class Run(NamedTuple):
    scenario: dict
    report: Optional[dict]
    failure: str = ""
    faults: tuple = ()     # those injected, beside the scenario's own
    meddling: tuple = ()   # (ms, kind) of what a person does in the middle
    baseline: Optional[dict] = None  # the report without either


def all_faults(run):
    return [*run.faults, *run.scenario.get("desktop", {}).get("faults", [])]


def faulted_calls(run):
    return {fault["call"] for fault in all_faults(run)}


def has_script_ended(run):
    """The run stopped at a step on a window that has gone: no word about the host."""
    return run.report is None and SCRIPT_ENDED in run.failure


def has_model_ended(run):
    """What the fault itself left behind is something that the simulation doesn't go on with."""
    stops = [stop for call in faulted_calls(run) if call in CALLS for stop in CALLS[call].stops]
    return run.report is None and "as the simulation stopped it" in run.failure and any(
        stop in run.failure for stop in stops)


def own_exit(run):
    if run.report is None:
        yield f"no report: {run.failure}"
    elif run.report["exitCode"] not in (0, START_FAILED):
        yield f"exit code {run.report['exitCode']}"
    elif run.report["exitCode"] == START_FAILED and run.report["replies"]:
        yield "the exit code of a start that failed, behind replies"


def _may(run, what):
    return any(getattr(CALLS[call], what) for call in faulted_calls(run) if call in CALLS)


def one_reply(run):
    """Every call of the script has one reply that can be read."""
    report = run.report
    for reply in report["replies"]:
        if reply["kind"] == "malformed" or (reply["kind"] == "none" and not _may(run, "may_silence")):
            yield f"{reply['as']}: {reply['kind']}"
    calls = len(channels_of(run.scenario))
    expected = 0 if run.baseline is None else len(run.baseline["replies"])
    if len(report["replies"]) > calls:
        yield f"{len(report['replies'])} replies to {calls} calls"
    elif len(report["replies"]) < expected and not _may(run, "may_end"):
        yield f"{len(report['replies'])} replies, not {expected}: the host ended in the middle"


def in_time(run):
    for reply in run.report["replies"]:
        if reply["endMs"] - reply["startMs"] > LONGEST_CALL_MS:
            yield f"{reply['as']} took {reply['endMs'] - reply['startMs']} ms"


def prompt_is_secret(run):
    """A prompt that the run tells without any fault too, where a window's own title says it, is no secret."""
    prompts = prompts_of(run.scenario)
    for place, content in secret_places(run.scenario, run.report):
        told = {prompt for prompt in prompts if holds_text(content, prompt)}
        if any(not _is_told_anyway(run, prompt) for prompt in told):
            yield f"{place} holds the prompt"


def _is_told_anyway(run, prompt):
    return run.baseline is not None and any(holds_text(content, prompt)
                                            for _, content in secret_places(run.scenario, run.baseline))


def _actions(node):
    """Every action of every rule and step, by name."""
    if isinstance(node, dict):
        for action in node.get("do", ()):
            yield next(iter(action))
        node = list(node.values())
    if isinstance(node, list):
        for child in node:
            yield from _actions(child)


def clipboard_unchanged(run):
    """A delivery reads the clipboard at most."""
    if any(reply["method"] in CLIPBOARD_WRITERS for reply in run.report["replies"]):
        return
    if any(kind == "clipboard" for _, kind in run.meddling) or "clipboard" in set(_actions(run.scenario)):
        return
    now, before = run.report["desktop"]["clipboard"], run.scenario.get("desktop", {}).get("clipboard") or {}
    html = before.get("html")
    if now["sequence"] != 1:
        yield f"its sequence number is {now['sequence']}"
    if "textBlock" not in before and now["text"] != before.get("text"):
        yield "its text changed"
    if now["html"] != (html and html.removesuffix("\0")):
        yield "its html changed"


def nothing_held(run):
    faults = faulted_calls(run)
    excused = {kind for call in faults if call in CALLS for kind in CALLS[call].releases}
    for kind, count in run.report["live"].items():
        if count != 0 and kind not in excused:
            yield f"{count} of {kind}"


def _has_lost_release(run):
    """Whether a refused call may have been the one that lets a modifier go: the event before it let a key go too."""
    lost = {fault.get("nth", 1) + i for fault in all_faults(run) if fault["call"] == "SendInput"
            for i in range(fault.get("times", 1))}
    releases = {event["batch"] for event in run.report["input"] if event["up"]}
    return any(number - 1 in releases | lost for number in lost)


def no_modifier_down(run):
    """A modifier that went down goes up again, whatever came of the keys between; a refused release is Windows' own."""
    down = set()
    for event in run.report["input"]:
        if event["vk"] not in chords.MODIFIERS:
            continue
        if not event["up"] and event["vk"] in down:
            yield f"{event['vk']} was still down at {event['ms']} ms"
        (down.discard if event["up"] else down.add)(event["vk"])
    if down and not _has_lost_release(run):
        yield f"down at the end: {sorted(down)}"


def keys_are_told(run):
    yield from chords.breaches(run)


def keys_hit_the_target(run):
    yield from chords.strays(run).breaches


CHECKS = {
    "ends by its own exit": own_exit,
    "one reply to each call": one_reply,
    "no call goes on for ever": in_time,
    "the last step names the place of the stop": verdict_breaches,
    "one send, and none after it": send_breaches,
    "only the prompt is sent": foreign_text_breaches,
    "no key without proof": keys_are_told,
    "nothing typed elsewhere": keys_hit_the_target,
    "the prompt is told nowhere": prompt_is_secret,
    "the user's tab is given back": tab_breaches,
    "the clipboard is left alone": clipboard_unchanged,
    "no modifier stays down": no_modifier_down,
    "nothing is held at the end": nothing_held,
}


def broken_promises(run):
    """Breaches of one run. A run that its script couldn't finish is judged by `has_script_ended`."""
    if run.report is None:
        return [Breach("ends by its own exit", detail) for detail in own_exit(run)]
    return [Breach(name, detail) for name, check in CHECKS.items() for detail in check(run)]


def normal_form(detail):
    """The detail without what differs between equal breaches: numbers and quoted texts."""
    return re.sub(r"\d+", "#", detail.splitlines()[0] if detail else detail)
