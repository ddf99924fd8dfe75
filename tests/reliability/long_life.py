#!/usr/bin/env python3
"""A long life: calls of all kinds, one round after the other, in one process of the simulated host.

long_life.py --program PATH [--calls N] [--no-memory] [--keep FILE]

One desktop holds the pages of all eight providers; a round delivers a prompt to each and asks for what the interface
asks for over a day. Every round must answer as the second one did, hold as much as the first, and leave no file open;
the process's memory must not grow in its second half, and at the end nothing may be held.
Exit status: 0 when all that holds, 1 when not, 2 when the rounds can't be played.
"""
import argparse
import copy
import json
import subprocess
import sys
import tempfile
from pathlib import Path

from runs import MEMORY_FOLDER

SCENARIOS = Path(__file__).resolve().parents[1] / "scenarios"
BROWSER, WINDOW = "orvane/browser", "orvane/window"
PROMPT = "What may a landlord keep of the deposit?"
DRAFT = "<p>What may a landlord <b>keep</b> of the deposit?</p>"
PICTURE = "iVBORw0KGgoAAQIDBAUGBwgJCgsMDQ4PEBESExQVFhcYGRobHB0eHyAhIiMkJSYnKCkqKywtLi8wMTIzNDU2Nzg5Ojs8PT4/"
ANSWER_MS = 12_000
# What the second half of a life may add. The allocator's own arrangement moves by pages.
GREATEST_RESIDENT_GROWTH_KB = 512
GREATEST_IN_USE_GROWTH_BYTES = 16_384

SPELLING = {"en-US": {"words": ["What", "may", "a", "landlord", "keep", "deposit"],
                      "suggest": {"landlrod": ["landlord"], "depositt": ["deposit", "deposits"]}}}
MENU = {"items": [{"action": "newLine", "label": "New line", "shortcut": "Ctrl+Enter"},
                  {"action": "capture", "label": "Capture the screen", "shortcut": "Win+Shift+S"}],
        "anchorX": 250, "anchorY": 30, "appearance": "White"}


def call(channel, method, arguments=None, name=None):
    step = {"call": {"channel": channel, "method": method}}
    if arguments is not None:
        step["call"]["arguments"] = arguments
    if name:
        step["as"] = name
    return step


def lasting_page(tab):
    """The tab with a control that comes and goes there all the time, off screen in between: pages don't grow."""
    added = {}

    def settle(action):
        if "add" in action:
            added[action["add"]["id"]] = dict(action["add"], offscreen=True)
            return {"set": {"element": action["add"]["id"], "offscreen": False}}
        return {"set": {"element": action["remove"], "offscreen": True}} if "remove" in action else action

    for rule in tab.get("rules", []):
        rule["do"] = [settle(action) for action in rule["do"]]
    tab["page"] = [*tab.get("page", []), *added.values()]


def provider_window(file):
    """The provider's window of one shipped run, and how its search is called."""
    scenario = json.loads(file.read_text(encoding="utf-8"))
    window = next(window for window in scenario["desktop"]["windows"] if window["id"] == "chat")
    window = dict(copy.deepcopy(window), id=file.stem)
    for tab in window["tabs"]:
        lasting_page(tab)
    search = next(step["call"]["arguments"] for step in scenario["steps"]
                  if step.get("call", {}).get("method") == "activateProvider")
    return window, search


def provider_steps(key, search):
    handle = {"$from": f"find-{key}.windowHandle"}
    about = {"name": search["name"], "expectedWindowHandle": handle, "patterns": search["patterns"]}
    return [
        call(WINDOW, "writeOrvaneDraftClipboard", {"text": PROMPT, "html": DRAFT}),
        call(BROWSER, "activateProvider", search, f"find-{key}"),
        call(BROWSER, "pasteAndSubmit", about, f"deliver-{key}"),
        call(BROWSER, "getProviderResponseState", about),
        {"wait": ANSWER_MS},
        call(BROWSER, "getProviderResponseState", about),
        call(BROWSER, "focusProviderInput", about),
        call(BROWSER, "activateOrvaneWindow"),
    ]


def daily_steps():
    """Each method of the window channel that leaves the program open."""
    folder = {"workingDirectory": "C:\\jobs"}
    return [
        call(WINDOW, "getWorkArea"),
        call(WINDOW, "setBounds", {"x": 600, "y": 40, "width": 260, "height": 110}),
        call(WINDOW, "getBounds"),
        call(WINDOW, "syncCleanBackground", {"appearance": "White", "height": 150}),
        call(WINDOW, "restoreCleanBackground"),
        *[call(WINDOW, "checkSpelling", {"word": word, "language": "en-US"}) for word in ("landlrod", "deposit", "depositt")],
        call(WINDOW, "readOrvaneDraftClipboard"),
        call(WINDOW, "clipboardSequenceNumber"),
        {"do": [{"clipboard": {"png": PICTURE}}]},
        call(WINDOW, "readClipboardImage"),
        call(WINDOW, "openScreenCapture"),
        call(WINDOW, "openTaskManager"),
        call(WINDOW, "openCommandPromptAt", folder),
        call(WINDOW, "openCommandWindow", folder),
        call(WINDOW, "runBatchFile", dict(folder, batchPath="C:\\jobs\\night.bat")),
        call(WINDOW, "openTextFile", {"filePath": "C:\\jobs\\night.bat"}),
        call(BROWSER, "openExternalUrl", {"url": "https://example.org/rent"}),
        call(BROWSER, "foregroundWindowHandle"),
        {"user": {"chooseMenu": 1}},
        call(WINDOW, "showNativeHotKeysMenu", MENU),
        call(WINDOW, "sendWindowsHotKey", {"keys": "Win+D"}),
        {"user": {"foreground": "editor"}},
        {"user": {"foreground": "main"}},
        call(WINDOW, "sendNewLineToPreviousWindow"),
        call(WINDOW, "activateContentProcess", {"processId": 9000, "showToolBoxMenu": 1}),
        call(WINDOW, "minimizeWindow"),
        call(BROWSER, "activateOrvaneWindow"),
        call(WINDOW, "emergencyRestore"),
        call(WINDOW, "setBounds", {"x": 100, "y": 100, "width": 1000, "height": 640}),
        call(WINDOW, "syncCleanBackground", {"appearance": "Sepia", "reopen": 1, "resetHeight": 1}),
        call(WINDOW, "noSuchMethod"),
        {"bytes": "ff00", "channel": BROWSER},
    ]


def make_scenario():
    windows, steps = [], []
    for file in sorted((SCENARIOS / "run").glob("*.json")):
        window, search = provider_window(file)
        windows.append(window)
        steps += provider_steps(file.stem, search)
    windows += [
        {"id": "editor", "process": "Code.exe", "title": "lease.md", "bounds": [0, 0, 900, 900]},
        {"id": "content", "process": "orvane.exe", "pid": 9000, "title": "Orvane", "bounds": [900, 0, 1800, 900]},
    ]
    return {"name": "a long life", "desktop": {"windows": windows, "foreground": "editor", "spelling": SPELLING},
            "steps": [*steps, *daily_steps()]}


def calls_of(scenario):
    return sum("call" in step or "bytes" in step for step in scenario["steps"])


def first_use_faults(lines):
    """The rounds that the others are held against must be what they should: found, delivered, answered."""
    for line in lines:
        for reply in line.get("replies", ()):
            is_provider = reply["as"].startswith(("find-", "deliver-"))
            if is_provider and not (isinstance(reply["value"], dict) and reply["value"].get("success") is True):
                yield f"round {line['round']}: {reply['as']} didn't succeed"
            if reply["kind"] in ("none", "malformed"):
                yield f"round {line['round']}: {reply['as']}: {reply['kind']}"


def growth_faults(measures, is_memory_judged):
    first, middle, last = measures[0], measures[len(measures) // 2], measures[-1]
    if last["held"] != first["held"]:
        yield f"held after the first round {first['held']}, after the last {last['held']}"
    if last["openFiles"] != first["openFiles"]:
        yield f"{first['openFiles']} open files after the first round, {last['openFiles']} after the last"
    if not is_memory_judged:
        return
    for key, limit in (("residentKb", GREATEST_RESIDENT_GROWTH_KB), ("inUseBytes", GREATEST_IN_USE_GROWTH_BYTES)):
        if last[key] - middle[key] > limit:
            yield f"{key} grew from {middle[key]} to {last[key]} in the second half, by more than {limit}"


def end_faults(last):
    if last["exitCode"] != 0:
        yield f"exit code {last['exitCode']}"
    yield from (f"held at the end: {count} of {kind}" for kind, count in last["live"].items() if count != 0)
    if last["differing"]:
        yield f"{last['differing']} of {last['rounds']} rounds answered otherwise than the second"


def play(program, scenario, rounds):
    parent = MEMORY_FOLDER if Path(MEMORY_FOLDER).is_dir() else None
    with tempfile.TemporaryDirectory(prefix="orvane-", dir=parent) as folder:
        file = Path(folder) / "long_life.json"
        file.write_text(json.dumps(scenario), encoding="utf-8")
        lines = []
        with subprocess.Popen([str(program), str(file), str(rounds)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as process:
            for text in process.stdout:
                lines.append(json.loads(text))
                if "residentKb" in lines[-1]:
                    line = lines[-1]
                    print(f"{line['calls']:8d} calls  {line['residentKb']:7d} KB resident  {line['inUseBytes']:9d} bytes in "
                          f"use  {line['openFiles']} open files", flush=True)
    return process.returncode, lines


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", type=Path, required=True, help="orvane_long_life")
    parser.add_argument("--calls", type=int, default=100_000, help="at least so many")
    parser.add_argument("--no-memory", action="store_true", help="don't judge memory: an instrument keeps what is freed")
    parser.add_argument("--keep", type=Path, help="write the scenario to this file, too")
    options = parser.parse_args()
    scenario = make_scenario()
    if options.keep:
        options.keep.write_text(json.dumps(scenario, indent=1), encoding="utf-8")
    per_round = calls_of(scenario)
    rounds = max(3, -(-options.calls // per_round))
    status, lines = play(options.program, scenario, rounds)
    last = next((line["last"] for line in lines if "last" in line), None)
    measures = [line for line in lines if "residentKb" in line]
    if status not in (0, 1) or last is None or not measures:
        print(f"the rounds ended with status {status}", file=sys.stderr)
        return 2
    differing = next((line for line in lines if "differsIn" in line), None)
    faults = [*first_use_faults(lines), *growth_faults(measures, not options.no_memory), *end_faults(last)]
    for fault in faults:
        print(f"BROKEN {fault}")
    if differing:
        print(f"  round 2: {json.dumps(differing['first'])[:1500]}\n  round {differing['differsIn']}: "
              f"{json.dumps(differing['now'])[:1500]}")
    print(f"{rounds * per_round} calls in {rounds} rounds of {per_round}, {last['virtualMs'] / 3_600_000:.1f} hours of "
          f"virtual time; {len(faults)} broken promises")
    print(f"{rounds - min(rounds, len(faults))} passed, {len(faults)} failed")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
