"""The tab that the user was on: selected again when the one that was tried turned out wrong."""
import re

from chords import window_of_handle
from traces import ACTIVATE, replies_of, steps_of, step_named

TAB_ACTIONS = {"selectTab", "openTab", "closeTab", "title", "closeWindow"}
IDENTITY_STEPS = ("Company homepage safeguard", "ChatGPT final identity", "Claude final identity")
RESTORATIONS = {"Company homepage safeguard": "Company homepage restoration",
                "ChatGPT final identity": "ChatGPT final restoration",
                "Claude final identity": "Claude final restoration"}
X_RAY = re.compile(r'pass=(\d+); browser#=\d+; hwnd=0x([0-9a-f]+); index=(\d+); selected=([YN]);.*? '
                   r'title="(.*?)"; auto')
SELECTED_ALREADY = "PASS: target was already selected"


def _warm_breaches(reply, steps):
    """A warm target that wasn't proven is left again; it was only selected with a tab to go back to."""
    verdict = step_named(steps, "Warm provider verification")
    was_tried = step_named(steps, "Warm tab selection")
    if verdict.opens("FAIL") and was_tried.result != SELECTED_ALREADY:
        if step_named(steps, "Warm restoration").ms < 0:
            yield f"{reply['as']}: a warm target failed and no restoration was tried"


def _last_pass(steps):
    """The X-Ray's tabs of the last pass: (handle, index, selected). Without a title there is no way back to one."""
    lines = [X_RAY.match(step.result) for step in steps if step.name == "X-Ray tab"]
    tabs = [line.groups() for line in lines if line]
    last = max((int(tab[0]) for tab in tabs), default=0)
    return [(int(handle, 16), int(index), selected == "Y") for number, handle, index, selected, title in tabs
            if int(number) == last and title]


def _plain(number):
    """A report marks a 64-bit integer that would fit 32 bits."""
    return number.get("$int64") if isinstance(number, dict) else number


def _known_tab(reply, steps):
    """The index of the tab to go back to, as discovery saw it; None when it saw none."""
    value = reply["value"]
    return next((index for handle, index, is_selected in _last_pass(steps)
                 if handle == _plain(value.get("windowHandle")) and index != value.get("selectedTabIndex")
                 and is_selected), None)


def _identity_breaches(reply, steps):
    for name in IDENTITY_STEPS:
        if not step_named(steps, name).opens("FAIL", "BLOCKED") or _known_tab(reply, steps) is None:
            continue
        if step_named(steps, RESTORATIONS[name]).ms < 0:
            yield f"{reply['as']}: {name!r} failed and no restoration was tried"


def _touches_tabs(node):
    if isinstance(node, dict):
        if "switchTab" in node.get("user", {}):
            return True
        if any(isinstance(action, dict) and TAB_ACTIONS & action.keys() for action in node.get("do", ())):
            return True
        node = list(node.values())
    return isinstance(node, list) and any(_touches_tabs(child) for child in node)


def _selected_at_start(window):
    return next((i for i, tab in enumerate(window.get("tabs", [])) if tab.get("selected")), None)


def _says_why(steps):
    """Whether the trace itself says that the tab stayed switched, or that what was selected is right and its window
    just wasn't brought to the front, by the warm route or by the search."""
    if any("restor" in step.name and step.opens("FAIL") for step in steps):
        return True
    if (step_named(steps, "Warm provider verification").opens("PASS")
            and step_named(steps, "Warm foreground").opens("REQUESTED")):
        return True
    return step_named(steps, "Tab selection").opens("FAILED") or step_named(steps, "Foreground").opens("FAIL:")


def _state_breaches(run, reply, steps):
    """Only for a run with one activation, where nobody else moves tabs."""
    for window in run.scenario.get("desktop", {}).get("windows", []):
        tabs = run.report["desktop"]["tabs"].get(window["id"])
        before = _selected_at_start(window)
        if tabs is None or tabs["selected"] == before or before is None:
            continue
        if not (reply["value"]["success"] or _says_why(steps) or _could_do_no_better(reply, steps, tabs["selected"])):
            yield (f"{reply['as']}: the activation failed and {window['id']} stands on tab {tabs['selected']}, "
                   f"not {before}")


def _could_do_no_better(reply, steps, selected):
    """Whether discovery knew no tab to go back to, or took another for it and went there; the warm route knows."""
    if not any(step_named(steps, name).opens("FAIL", "BLOCKED") for name in IDENTITY_STEPS):
        return False
    return _known_tab(reply, steps) in (None, selected)


def _success_breaches(run, reply, steps):
    """What was selected by its index stands there: a title may have led to another, and a title bar to none."""
    if not step_named(steps, "Activation choice").opens("reason=INDEX"):
        return
    window = window_of_handle(run.scenario, _plain(reply["value"].get("windowHandle")))
    tabs, index = run.report["desktop"]["tabs"].get(window), reply["value"].get("selectedTabIndex")
    if tabs is not None and index is not None and index >= 0 and tabs["selected"] != index:
        yield f"{reply['as']}: a success with tab {index}, and {window} stands on tab {tabs['selected']}"


def tab_breaches(run):
    activations = replies_of(run, ACTIVATE)
    for reply in activations:
        steps = steps_of(reply)
        yield from _warm_breaches(reply, steps)
        yield from _identity_breaches(reply, steps)
    if len(activations) == 1 and not _touches_tabs(run.scenario):
        yield from _state_breaches(run, activations[0], steps_of(activations[0]))
        if activations[0]["value"]["success"]:
            yield from _success_breaches(run, activations[0], steps_of(activations[0]))
