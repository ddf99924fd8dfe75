#!/usr/bin/env python3
"""Takes snapshots of shipped scenarios' desktops and holds their replays to the live runs.

replay.py SIMULATED_SNAPSHOT ORVANE_SIM [NAME...]   (NAME: parts of paths; without one a share of all)

A desktop stands still here: what pages and people do is taken out of it, and the tab that the run
ends on is selected, as by the person who takes the snapshot. Then the replay of a plain snapshot and
of a private one must decide, press, type and answer as the live run did.
"""
import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

SCENARIOS = Path(__file__).resolve().parents[1] / "scenarios"
FOLDERS = ("run", "activation", "best-effort", "browser-assist", "delivery", "destination", "focus", "response-state",
           "warm", "xray")
SHARE = 6
LEAST_REPLAYS = 100
SHOWN_COMPLAINTS = 12
BROWSERS = ("chrome.exe", "msedge.exe", "brave.exe", "firefox.exe", "vivaldi.exe")
METHODS = ("activateProvider", "pasteAndSubmit", "focusProviderInput", "getProviderResponseState")
# What a snapshot doesn't have: acts, and answers that only an act would bring.
MOVING = ("rules", "foregroundRequests", "acceptsFocus", "unreadable", "minimized", "pid", "path", "cleanBackground")
# Calls that read; a snapshot makes no other.
READING = {
    "CoCreateInstance", "CoInitializeEx", "CoUninitialize", "CloseHandle", "EnumWindows", "GetAncestor", "GetClassNameW",
    "GetForegroundWindow", "GetWindowLongPtrW", "GetWindowRect", "GetWindowTextLengthW", "GetWindowTextW",
    "GetWindowThreadProcessId", "IsIconic", "IsWindow", "IsWindowVisible", "MultiByteToWideChar", "OpenProcess",
    "QueryFullProcessImageNameW", "Sleep", "SysAllocString", "SysFreeString", "SysStringLen", "VariantClear",
    "VariantInit", "WideCharToMultiByte", "IUIAutomation::CreatePropertyCondition", "IUIAutomation::CreateTrueCondition",
    "IUIAutomation::ElementFromHandle", "IUIAutomationElement::FindAll", "IUIAutomationElement::GetCurrentPatternAs",
    "IUIAutomationElement::GetCurrentPropertyValue", "IUIAutomationElementArray::GetElement",
    "IUIAutomationElementArray::get_Length", "IUIAutomationSelectionItemPattern::get_CurrentIsSelected",
    "IUIAutomationValuePattern::get_CurrentValue",
}
READING_PREFIX = "IUIAutomationElement::get_Current"
# Counts what isn't in a snapshot.
OTHER_WINDOWS_STEP = "Top-level windows"
LEAST_SECRET_LETTERS = 5


def still(node):
    """The same without what moves."""
    if isinstance(node, dict):
        kept = {key: still(value) for key, value in node.items() if key not in MOVING}
        if isinstance(kept.get("invoke"), str):
            kept["invoke"] = "ok"
        return kept
    return [still(child) for child in node] if isinstance(node, list) else node


def is_browser(window):
    return window.get("process", "").lower() in BROWSERS


def holds_key(node, wanted):
    if isinstance(node, dict):
        return any(key in wanted or holds_key(value, wanted) for key, value in node.items())
    return isinstance(node, list) and any(holds_key(child, wanted) for child in node)


def still_scenario(scenario):
    """The scenario as it stands still; None when there is nothing that a snapshot could show of it."""
    desktop = still(scenario.get("desktop", {}))
    desktop.pop("faults", None)
    windows = desktop.get("windows", [])
    steps = [step for step in scenario.get("steps", []) if step.get("call", {}).get("method") in METHODS][:2]
    # A remembered title or window is the interface's, and isn't in a snapshot.
    if not steps or not any(is_browser(window) and window.get("tabs") for window in windows):
        return None
    arguments = [step["call"].get("arguments") for step in steps]
    if holds_key(arguments, ("$window", "$windowText", "$map")):
        return None
    if any(isinstance(each, dict) and each.get("rememberedTitle") for each in arguments):
        return None
    return {"name": scenario.get("name", ""), "desktop": desktop, "steps": steps}


def run(simulator, files):
    result = subprocess.run([simulator, "--json", *map(str, files)], capture_output=True, check=False)
    if result.returncode != 0:
        sys.exit(f"orvane-sim ended with status {result.returncode}: {result.stderr.decode(errors='replace').strip()}")
    return [json.loads(line) for line in result.stdout.splitlines()]


def select_as_at_end(scenario, report):
    for window in scenario["desktop"]["windows"]:
        shown = report["desktop"]["tabs"].get(window["id"], {}).get("selected")
        for index, tab in enumerate(window.get("tabs") or []):
            tab["selected"] = index == shown


class Normal:
    """Of one report what must agree. Handles become their order of appearance; times count on one clock alone."""

    def __init__(self, is_private, has_times=True):
        self._handles = {}
        self._is_private = is_private
        self._has_times = has_times

    def _handle(self, match):
        name = self._handles.setdefault(int(match[2], 0), f"window {len(self._handles) + 1}")
        return match[1] + name

    def text(self, text):
        text = re.sub(r"(hwnd=|HWND=|handle=)(0x[0-9a-f]+|[1-9][0-9]*)", self._handle, text)
        text = re.sub(r"pid=\d+", "pid", text)
        return re.sub(r'"[^"]*"|(?<=title is ).*', '""', text) if self._is_private else text

    def trace(self, logs):
        for entry in logs:
            step, result = entry["step"], entry["result"]
            if step == OTHER_WINDOWS_STEP or (self._is_private and step in ("Selected", "URL")):
                result = ""
            if not self._has_times:
                result = re.sub(r"\b\d+ ms\b", "ms", result)
            yield step, self.text(result)

    def report(self, report):
        answers = []
        for reply in report["replies"]:
            value = reply.get("value")
            if not isinstance(value, dict):
                answers.append((reply["method"], reply["kind"], value))
                continue
            facts = {key: fact for key, fact in value.items()
                     if key not in ("logs", "windowHandle") and not (self._is_private and key.startswith("selected")
                                                                     and key != "selectedTabIndex")}
            facts = {key: self.text(fact) if isinstance(fact, str) else fact for key, fact in facts.items()}
            answers.append((reply["method"], reply["kind"], facts, list(self.trace(value.get("logs", [])))))
        keys = [(key["vk"], key["up"], key["ms"] if self._has_times else 0) for key in report["input"]]
        return {"answers": answers, "keys": keys, "pressed": sum(report["desktop"]["invoked"].values()),
                "virtualMs": report["virtualMs"] if self._has_times else 0}


def first_difference(live, replay, place=""):
    if isinstance(live, dict) and isinstance(replay, dict) and live.keys() == replay.keys():
        pairs = [(f"{place}.{key}", live[key], replay[key]) for key in live]
    elif isinstance(live, (list, tuple)) and isinstance(replay, (list, tuple)) and len(live) == len(replay):
        pairs = [(f"{place}[{i}]", a, b) for i, (a, b) in enumerate(zip(live, replay))]
    else:
        return None if live == replay else f"{place}: live {json.dumps(live, ensure_ascii=False)[:400]}, " \
                                           f"replay {json.dumps(replay, ensure_ascii=False)[:400]}"
    return next((found for name, a, b in pairs if (found := first_difference(a, b, name))), None)


def texts_of_pages(node, key=""):
    if isinstance(node, dict):
        for name, value in node.items():
            yield from texts_of_pages(value, name)
    elif isinstance(node, list):
        for child in node:
            yield from texts_of_pages(child, key)
    elif isinstance(node, str) and key in ("title", "name", "value"):
        yield node


def secrets_of(scenario, kept):
    """Words of titles, names and values that no rule looks for."""
    words = {word for text in texts_of_pages(scenario["desktop"]["windows"])
             for word in re.findall(rf"[A-Za-z]{{{LEAST_SECRET_LETTERS},}}", text)}
    return {word for word in words - {"https"}
            if set(word) != {"x"} and not any(word.lower() in text or text in word.lower() for text in kept)}


def words_of_rules():
    source = (Path(__file__).resolve().parents[2] / "tools" / "snapshot" / "rule_words.cpp").read_text(encoding="utf-8")
    tables = (Path(__file__).resolve().parents[2] / "src" / "provider_identity" / "provider_tables.h").read_text(
        encoding="utf-8")
    return {word for word in re.findall(r'L"([^"]+)"', source + tables)}


def told_secrets(scenario, snapshot, kept):
    told = " ".join(texts_of_pages(json.loads(snapshot.read_text(encoding="utf-8"))["desktop"]["windows"]))
    # The bar that a window has without one of its own.
    told = told.replace("Address and search bar", "")
    return [word for word in secrets_of(scenario, kept) if re.search(rf"\b{word}\b", told)]


def words_of_calls(steps):
    """What the calls compare with titles."""
    for step in steps:
        arguments = step["call"].get("arguments")
        if isinstance(arguments, dict):
            patterns = arguments.get("patterns")
            words = [arguments.get("name"), *(patterns if isinstance(patterns, list) else [])]
            yield from (word.lower() for word in words if isinstance(word, str) and word)


def take(program, file, options, folder):
    """Runs the tool; what it left in its report, and where it wrote."""
    written, report = folder / f"{file.stem}.snapshot.json", folder / "tool.json"
    subprocess.run([program, file, report, "-o", written, *options], check=True)
    return json.loads(report.read_text(encoding="utf-8")), written


def complaints_of_tool(report):
    if report["exitStatus"] != 0 or report["complaint"]:
        yield f"exit status {report['exitStatus']}: {report['complaint'].strip()}"
    if report["before"] != report["after"]:
        yield "the desktop has changed: " + str(first_difference(report["before"], report["after"]))
    for call in report["calls"]:
        if call not in READING and not call.startswith(READING_PREFIX):
            yield f"calls {call}"
    for kind, count in report["held"].items():
        if count:
            yield f"still holds {count} {kind}"
    if report["virtualMs"] != 0:
        yield f"waited {report['virtualMs']} ms"


def with_steps(written, steps):
    """The snapshot's desktop with the live run's own calls and prompt."""
    scenario = json.loads(written.read_text(encoding="utf-8"))
    scenario["steps"] = steps["steps"]
    scenario["desktop"]["clipboard"] = steps["desktop"].get("clipboard", {})
    written.write_text(json.dumps(scenario, ensure_ascii=False), encoding="utf-8")
    return written


def chosen(names):
    files = [file for folder in FOLDERS for file in sorted((SCENARIOS / folder).glob("*.json"))]
    if names:
        return [file for file in files if any(name in str(file) for name in names)]
    return [file for i, file in enumerate(files) if file.parent.name == "run" or i % SHARE == 0]


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__.strip())
    program, simulator = sys.argv[1:3]
    kept = words_of_rules()
    complaints, replays = [], 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        scenarios = {}
        for i, file in enumerate(chosen(sys.argv[3:])):
            scenario = still_scenario(json.loads(file.read_text(encoding="utf-8")))
            if scenario is not None:
                scenarios[folder / f"{i}.json"] = (file.relative_to(SCENARIOS), scenario)

        def write_all():
            for target, (_, scenario) in scenarios.items():
                target.write_text(json.dumps(scenario, ensure_ascii=False), encoding="utf-8")

        write_all()
        for (_, scenario), report in zip(scenarios.values(), run(simulator, scenarios)):
            select_as_at_end(scenario, report)
        write_all()
        live_reports = run(simulator, scenarios)
        by_path = {path: scenario for path, scenario in scenarios.values()}
        for options in (["--plain"], []):
            written = []
            for target, (path, scenario) in scenarios.items():
                report, snapshot = take(program, target, options, folder)
                complaints += [f"{path}: {complaint}" for complaint in complaints_of_tool(report)]
                if not options:
                    complaints += [f"{path}: the snapshot holds \"{word}\""
                                   for word in told_secrets(scenario, snapshot, kept)]
                written.append(with_steps(snapshot, scenario))
            for (path, _), live, replay in zip(scenarios.values(), live_reports, run(simulator, written)):
                # A page in the background is in no snapshot.
                if live["platformCalls"].get("IUIAutomationSelectionItemPattern::Select", 0):
                    continue
                # A desktop without a window in front is a matter of a moment.
                if by_path[path]["desktop"].get("foreground", "") is None:
                    continue
                # A word that only this one call looks for isn't kept.
                if not options and any(word not in kept for word in words_of_calls(by_path[path]["steps"])):
                    continue
                found = first_difference(Normal(not options).report(live), Normal(not options).report(replay))
                replays += 1
                if found:
                    complaints.append(f"{path} {' '.join(options) or 'private'}: {found}")
    for line in complaints[:SHOWN_COMPLAINTS]:
        print(line, file=sys.stderr)
    if len(complaints) > SHOWN_COMPLAINTS:
        print(f"… and {len(complaints) - SHOWN_COMPLAINTS} more", file=sys.stderr)
    if not sys.argv[3:] and replays < LEAST_REPLAYS:
        sys.exit(f"only {replays} replays")
    print(f"{replays} replays, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
