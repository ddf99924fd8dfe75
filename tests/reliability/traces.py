"""Traces as the reports show them, and what the end of each must say."""
import sys
from pathlib import Path
from typing import NamedTuple

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))

from determinism import BROWSER_CHANNEL, channels_of

ACTIVATE = "activateProvider"
DELIVER = "pasteAndSubmit"
TOTAL_OF_ACTIVATION = "Timing activation total"
TOTAL_OF_DELIVERY = "Timing Submit Total"
EXPERIMENTAL = "Experimental "
EXPERIMENTAL_STOP = "Experimental: stopped or delivery unverified; inspect trace and page before retry"
EXPERIMENTAL_PASS = "Experimental: composer cleared after submit; verify response on page"
DELIVERED = "Prompt pasted and submitted"
UNVERIFIED = "Prompt pasted, but submit could not be verified"
# By message: the step that a delivery which was stopped early ends with.
EARLY_STOPS = {
    "Wrong AI is in the foreground; send blocked": "Foreground Verification",
    "Could not select existing draft text": "Clear Existing Draft",
    "Paste failed": "Paste",
}
NO_WINDOW = "No foreground window"
EXPERIMENTAL_STOPS = {
    "Identity", "UIA", "Input", "Focus", "Input Value", "Existing Draft", "Clipboard", "Paste", "Paste Verification",
    "Submit", "Delivery",
}
STOP_OPENINGS = ("FAIL", "BLOCKED", "UNVERIFIED")
# What can keep a chosen tab from being activated.
ACTIVATION_STOPS = ("Tab selection", "Company homepage safeguard", "ChatGPT final identity", "Claude final identity",
                    "Foreground")


class Step(NamedTuple):
    name: str
    result: str
    ms: int

    def opens(self, *words):
        return self.result.startswith(words)


NO_STEP = Step("", "", -1)


def steps_of(reply):
    """The trace of a reply; empty where it has none."""
    value = reply.get("value")
    logs = value.get("logs") if isinstance(value, dict) else None
    if not isinstance(logs, list):
        return []
    times = reply.get("stepMs") or [reply["endMs"]] * len(logs)
    return [Step(step["step"], step["result"], ms) for step, ms in zip(logs, times)]


def step_named(steps, name):
    """The last one of that name."""
    return next((step for step in reversed(steps) if step.name == name), NO_STEP)


def replies_of(run, method):
    """Replies of one method of the browser channel that carry a verdict."""
    return [reply for channel, reply in zip(channels_of(run.scenario), run.report["replies"])
            if channel == BROWSER_CHANNEL and reply["method"] == method and reply["kind"] == "success" and isinstance(reply["value"], dict)
            and "success" in reply["value"]]


def _says_stop(step):
    return step.opens(*STOP_OPENINGS)


def _ends_with(steps, name, is_stop):
    last = steps[-1] if steps else NO_STEP
    return last.name == name and is_stop(last)


def _delivery_fault(reply):
    """What is wrong with the end of a delivery's trace, or nothing."""
    value, steps = reply["value"], steps_of(reply)
    message, last = value.get("message"), (steps[-1] if steps else NO_STEP)
    before = steps[-2] if len(steps) > 1 else NO_STEP
    if message in (EXPERIMENTAL_STOP, EXPERIMENTAL_PASS):
        is_stop = last.name.removeprefix(EXPERIMENTAL) in EXPERIMENTAL_STOPS and _says_stop(last)
        is_pass = last.name == EXPERIMENTAL + "Delivery" and last.opens("OBSERVED:")
        right = is_pass if value["success"] else is_stop
        right = right and (message == EXPERIMENTAL_PASS) == value["success"]
    elif message in (DELIVERED, UNVERIFIED):
        opening = "PASS:" if value["success"] else "FAIL/UNVERIFIED:"
        right = last.name == TOTAL_OF_DELIVERY and before.name == "Result" and before.opens(opening)
        right = right and (message == DELIVERED) == value["success"]
    elif message in EARLY_STOPS:
        right = not value["success"] and _ends_with(
            steps, EARLY_STOPS[message], lambda step: _says_stop(step) or step.result == NO_WINDOW)
    else:
        right = not value["success"] and (last.name, last.result) == ("Focus Input", f"FAIL: {message}")
    return None if right else f"success {value['success']}, {message!r} ends with {last.name!r}: {last.result!r}"


def _activation_fault(reply):
    value, steps = reply["value"], steps_of(reply)
    ends = [(step.name, step.result) for step in steps[-2:]]
    names = [name for name, _ in ends]
    result = dict(ends).get("Result", "")
    if TOTAL_OF_ACTIVATION not in names:
        return f"no total at the end, but {names}"
    if value["success"]:
        return None if result == "Ready" else f"success with the result {result!r}"
    if names[-1] != TOTAL_OF_ACTIVATION:
        return f"a failure ends with {names[-1]!r}"
    if ends[0] == ("Native UIA", "Initialization failed"):
        return None
    if result.startswith("No ongoing ") and result.endswith(" session found."):
        return None
    if result != "Activation failed":
        return f"a failure with {ends[0]}"
    if not any(step.name in ACTIVATION_STOPS and _says_stop(step) for step in steps):
        return "an activation failed and no step says where"
    return None


def verdict_breaches(run):
    for method, fault_of in ((DELIVER, _delivery_fault), (ACTIVATE, _activation_fault)):
        for reply in replies_of(run, method):
            fault = fault_of(reply)
            if fault:
                yield f"{reply['as']}: {fault}"
