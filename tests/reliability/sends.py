"""At most one send per call, and none behind one whose outcome is unknown."""
import chords
from traces import DELIVER, EXPERIMENTAL, replies_of, steps_of, step_named

SEND_NAMES = {"send", "send message", "send prompt", "submit", "submit query", "send query", "submit search"}
SEND_WORDS = "send message"
BUTTON_STEPS = ("Claude Send Button", "ChatGPT Send Button", "Perplexity Send Button")
RETRY_STEP = "Claude Send Retry"
INVOKED = "PASS: invoked exact send button"
ENTER_STEPS = {"Send", "Claude Enter Fallback", "ChatGPT Enter Fallback", EXPERIMENTAL + "Submit"}
BEFORE_ROUTE = {"Foreground Verification", "Dispatch Context"}
INVOKE = "IUIAutomationInvokePattern::Invoke"


def _is_send_name(name):
    return isinstance(name, str) and (name.lower() in SEND_NAMES or SEND_WORDS in name.lower())


def send_controls(node):
    """The ids of all elements that are, or become, a Send control; None for one without an id."""
    found = set()
    if isinstance(node, dict):
        if _is_send_name(node.get("name")) and node.get("type", "button") == "button":
            found.add(node.get("id", node.get("element")))
        node = list(node.values())
    if isinstance(node, list):
        for child in node:
            found |= send_controls(child)
    return found


def _retry_breaches(reply, steps):
    if "claude" not in str(step_named(steps, "Dispatch Context").result).lower():
        yield f"{reply['as']}: a retry of another provider than Claude"
    conditions = (("Claude Delivery Verification", "RETRY:"), ("Claude Responding State", "INFO:"),
                  ("Claude Retry Readiness", "PASS:"))
    for name, opening in conditions:
        if not step_named(steps, name).opens(opening):
            yield f"{reply['as']}: a retry although {name!r} says {step_named(steps, name).result!r}"


def _call_breaches(reply, enters):
    steps = steps_of(reply)
    names = [step.name for step in steps if step.opens(INVOKED)]
    first_invocations = sum(name in BUTTON_STEPS for name in names)
    if first_invocations + enters > 1:
        yield f"{reply['as']}: {enters} Enter and {first_invocations} invocations"
    if names.count(RETRY_STEP) > 1:
        yield f"{reply['as']}: {names.count(RETRY_STEP)} retries"
    if RETRY_STEP in names:
        yield from _retry_breaches(reply, steps)
    told = sum(step.name in ENTER_STEPS and step.opens("PASS", "ATTEMPTED") for step in steps)
    if reply["value"]["success"] and first_invocations + told == 0:
        yield f"{reply['as']}: a success without a send"


def _enters_by_call(run):
    enters = {}
    for told, as_name, events in chords.match_keys(run)[0]:
        if told.what in ENTER_STEPS:
            enters[as_name] = enters.get(as_name, 0) + sum(event["vk"] == chords.ENTER_KEY and not event["up"]
                                                           for event in events)
    return enters


def _invocation_breaches(run):
    controls = send_controls(run.scenario)
    claimed = sum(step.opens(INVOKED) for reply in replies_of(run, DELIVER) for step in steps_of(reply))
    invoked = sum(count for place, count in run.report["desktop"]["invoked"].items()
                  if place.partition("/")[2] in controls)
    if invoked > claimed and all(reply["kind"] != "none" for reply in run.report["replies"]):
        yield f"Send was invoked {invoked} times, the traces tell of {claimed}"
    can_lie = any(fault["call"] == INVOKE for fault in (*run.faults, *run.scenario["desktop"].get("faults", [])))
    if claimed > invoked and not can_lie and None not in controls:
        yield f"the traces tell of {claimed} invocations of Send, it was invoked {invoked} times"


def _copy_targets(node, is_late=False):
    """Elements that show what was sent, as (id, whether the page takes it later than the key)."""
    found = set()
    if isinstance(node, dict):
        is_late = is_late or node.get("after", 0) > 0
        if isinstance(node.get("copyValue"), dict):
            found.add((node["copyValue"]["to"], is_late))
        node = list(node.values())
    if isinstance(node, list):
        for child in node:
            found |= _copy_targets(child, is_late)
    return found


def _values_at_start(node, ids):
    found = set()
    if isinstance(node, dict):
        if node.get("id") in ids and isinstance(node.get("value"), str):
            found.add(node["value"])
        node = list(node.values())
    if isinstance(node, list):
        for child in node:
            found |= _values_at_start(child, ids)
    return found


def _with_plain_lines(text):
    return text.replace("\r\n", "\n")


def foreign_text_breaches(run):
    """The experimental route submits exactly what it pasted, whoever types meanwhile."""
    steps = [step for reply in replies_of(run, DELIVER) for step in steps_of(reply)]
    windows = run.scenario.get("desktop", {}).get("windows", [])
    if not steps or not all(step.name.startswith(EXPERIMENTAL) or step.name in BEFORE_ROUTE for step in steps):
        return
    if run.report["desktop"]["clipboard"]["sequence"] != 1:
        return
    targets = _copy_targets(windows)
    shown = {name for name, _ in targets}
    if run.meddling:
        # What a page takes some time after the key it takes as somebody has left it by then.
        shown -= {name for name, is_late in targets if is_late}
    known = _values_at_start(windows, shown)
    prompt = _with_plain_lines(run.report["desktop"]["clipboard"]["text"] or "")
    for place, value in run.report["desktop"]["values"].items():
        if place.partition("/")[2] not in shown or value is None or value in known:
            continue
        # A block that is read short is a shorter prompt.
        if not prompt.startswith(_with_plain_lines(value)):
            yield f"{place} shows a text that was not the prompt"


def send_breaches(run):
    enters = _enters_by_call(run)
    deliveries = replies_of(run, DELIVER)
    for reply in deliveries:
        yield from _call_breaches(reply, enters.get(reply["as"], 0))
    if deliveries:
        yield from _invocation_breaches(run)
