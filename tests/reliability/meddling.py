#!/usr/bin/env python3
"""A person who meddles: in every wait of every route somebody switches, closes, moves, types or copies.

meddling.py [--simulator PATH] [--folder PATH] [--budget N] [--seed N] [--jobs N] [--by-action]
meddling.py [--simulator PATH] --replay 'FILE|MS|ACTION'

The shipped scenarios of the routes run once for the times at which they waited. Then each action happens at each of
these times, 1 ms behind, and in longer waits along the way, in one run each. A budget thins that by seed.
Exit status: 0 when all promises held, 1 when one was broken, 2 when it can't be done.
"""
import collections
import json
import random
import sys
from pathlib import Path

import harness
from harness import Variant
from runs import deep_copy, load_scenario
from sweep import check_baselines, choose_files, show
from traces import ACTIVATE, DELIVER

FOLDERS = ("activation", "best-effort", "browser-assist", "delivery", "destination", "focus", "keys", "response-state",
           "warm", "window", "day")
WAITING_METHODS = {ACTIVATE, DELIVER, "sendNewLineToPreviousWindow", "focusProviderInput"}
BYSTANDER = "bystander"
# Between two steps a route may have looked several times.
LONGEST_UNSEEN_MS = 170
TYPED = "words that a person typed meanwhile"
COPIED = "something that a person copied meanwhile"


def with_bystander(scenario):
    """A window of another program at the bottom, to switch to."""
    prepared = deep_copy(scenario)
    windows = prepared.setdefault("desktop", {}).setdefault("windows", [])
    if all(window["id"] != BYSTANDER for window in windows):
        windows.append({"id": BYSTANDER, "process": "notepad.exe", "title": "Notes", "bounds": [1500, 40, 1900, 400]})
    return prepared


def browsers(scenario):
    return [window for window in scenario["desktop"]["windows"] if window.get("tabs")]


def _composers(tab):
    """Ids of edits with a value on a tab's page."""
    def visit(elements):
        for element in elements:
            if element.get("type") == "edit" and isinstance(element.get("value"), str) and "id" in element:
                yield element["id"]
            yield from visit(element.get("children", []))
    return list(visit(tab.get("page", [])))


def actions_on(window):
    """What a person may do with one browser: kind → actions. Titles and ids are those of the start."""
    tabs = window["tabs"]
    selected = next((tab for tab in tabs if tab.get("selected")), None)
    others = [tab for tab in tabs if tab is not selected]
    found = {
        "closeWindow": [{"closeWindow": window["id"]}],
        "minimize": [{"minimize": window["id"]}],
        "openTab": [{"openTab": {"title": "New Tab", "address": "chrome://newtab/", "selected": True}}],
        "openTabBehind": [{"openTab": {"title": "News", "address": "https://news.example/"}}],
        "focusNowhere": [{"focus": None}],
    }
    for number, tab in enumerate(tabs[:4]):
        title = tab.get("title", "")
        found[f"closeTab{number}"] = [{"closeTab": title}]
        found[f"selectTab{number}"] = [{"selectTab": title}]
        moved = dict(deep_copy(tab), selected=bool(tab.get("selected")))
        found[f"moveTab{number}"] = [{"closeTab": title}, {"openTab": moved}]
    if others:
        found["swapTabs"] = [{"closeTab": others[0].get("title", "")}, {"openTab": deep_copy(others[0])}]
    for tab in tabs:
        for composer in _composers(tab)[:2]:
            found[f"type:{composer}"] = [{"set": {"element": composer, "value": TYPED}}]
            found[f"clear:{composer}"] = [{"set": {"element": composer, "value": ""}}]
    return found


ANYWHERE = {
    "foreground": [{"foreground": BYSTANDER}],
    "foregroundNothing": [{"foreground": None}],
    "foregroundHost": [{"foreground": "main"}],
    "clipboard": [{"clipboard": {"text": COPIED}}],
    "clipboardEmpty": [{"clipboard": {}}],
    "clipboardLocked": [{"clipboard": {"lockedBy": BYSTANDER}}],
}


def every_action(scenario):
    """Name → (window whose rule it is, actions)."""
    found = {name: (BYSTANDER, actions) for name, actions in ANYWHERE.items()}
    for window in browsers(scenario):
        found.update((f"{window['id']}.{name}", (window["id"], actions))
                     for name, actions in actions_on(window).items())
        found[f"{window['id']}.foreground"] = (BYSTANDER, [{"foreground": window["id"]}])
    return found


def kind_of(name, where):
    """What it is to whoever judges: that the foreground may have moved, or a clipboard changed."""
    plain = name.removeprefix(where + ".") if where != BYSTANDER else name
    if plain.startswith(("foreground", "closeWindow", "minimize", "clipboard")):
        return "clipboard" if plain.startswith("clipboard") else "foreground"
    return "foreground" if name.endswith(".foreground") else "tab"


def waiting_times(report):
    """Times at which somebody may come in between: where a step was written, just behind, and along longer waits."""
    times = set()
    for reply in report["replies"]:
        if reply["method"] not in WAITING_METHODS or reply["endMs"] == reply["startMs"]:
            continue
        marks = sorted({reply["startMs"], reply["endMs"], *reply.get("stepMs", [])})
        for begin, end in zip(marks, marks[1:] + [marks[-1]]):
            times |= {begin, begin + 1, *range(begin + 1, end, LONGEST_UNSEEN_MS)}
    return sorted(times)


def make_variant(name, where, ms):
    return Variant(f"{ms}|{name}", name.rpartition(".")[2].partition(":")[0].rstrip("0123456789"), (),
                   ((ms, kind_of(name, where)),))


def apply_meddling(scenario, variant):
    ms, _, name = variant.key.partition("|")
    where, actions = every_action(scenario)[name]
    changed = deep_copy(scenario)
    for window in changed["desktop"]["windows"]:
        if window["id"] == where:
            rule = {"on": {"time": int(ms)}, "do": actions}
            window["rules"] = [*window.get("rules", []), rule]
    return changed


def variants_of(scenario, report):
    actions = every_action(scenario)
    return [make_variant(name, where, ms) for ms in waiting_times(report) for name, (where, _) in actions.items()]


def route_files(folder):
    """Scenarios with a browser in them and a call that waits."""
    found = []
    for file in harness.scenario_files(folder):
        scenario = load_scenario(file)
        methods = {step.get("call", {}).get("method") for step in scenario.get("steps", [])}
        if Path(file).parent.name in FOLDERS and methods & WAITING_METHODS:
            found.append(file)
    return found


def thin(variants, budget, chooser):
    """So many of all, spread evenly over the files."""
    everything = collections.defaultdict(list)
    for file in sorted(variants):
        chooser.shuffle(variants[file])
    taken = 0
    for turn in range(max(map(len, variants.values()), default=0)):
        for file, found in variants.items():
            if turn < len(found) and taken < budget:
                everything[file].append(found[turn])
                taken += 1
    return everything


def lists_of(baselines):
    for file, report in baselines.items():
        yield file, variants_of(with_bystander(load_scenario(file)), json.loads(report))


def meddle(options):
    chooser = random.Random(options.seed)
    files = route_files(options.folder)
    if options.budget is not None:
        files = choose_files(files, options.budget, chooser)
    worker = harness.Worker(options.simulator, with_bystander, apply_meddling)
    baselines = harness.run_baselines(worker, files, options.jobs)
    wrong = check_baselines(baselines, files)
    for line in wrong:
        print(f"BROKEN without meddling: {line}")
    lists = lists_of(baselines)
    if options.budget is not None:
        lists = thin(dict(lists), options.budget, chooser).items()
        total = sum(len(variants) for _, variants in lists)
    else:
        total = sum(len(variants) for _, variants in lists_of(baselines))
    tally = harness.run_variants(worker, lists, baselines, options.jobs, "meddling", total)
    if options.by_action:
        for group, count in sorted(tally.runs.items(), key=lambda item: (-item[1], item[0])):
            print(f"{count:8d} {group}")
    broken = harness.print_broken(tally, "tests/reliability/meddling.py") + len(wrong)
    print(f"{total} runs with a person who meddles in {len(baselines)} scenarios; {len(tally.runs)} kinds of action; "
          f"{tally.script_ended} whose script couldn't go on; {len(tally.unnoticed)} in which a switch between proof "
          f"and key went unseen; {broken} broken promises")
    print(f"{total - min(broken, total)} passed, {broken} failed")
    return 1 if broken else 0


def replay(options):
    name, ms, action = options.replay.split("|", 2)
    scenario = with_bystander(load_scenario(harness.find_file(name)))
    variant = make_variant(action, every_action(scenario)[action][0], int(ms))
    return show(options.simulator, scenario, apply_meddling(scenario, variant), (), variant.meddling)


def read_options():
    parser = harness.option_parser(__doc__, "runs")
    parser.add_argument("--by-action", action="store_true", help="print how many runs each action got")
    parser.add_argument("--replay", metavar="FILE|MS|ACTION")
    return parser.parse_args()


def main():
    return harness.perform(read_options(), replay, meddle)


if __name__ == "__main__":
    sys.exit(main())
