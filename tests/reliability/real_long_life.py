#!/usr/bin/env python3
"""A long life of the program itself: 200 prompts to one page, in one process of orvane.exe under Wine.

real_long_life.py [--deliveries N] [--build FOLDER] [--work FOLDER]

Each prompt is a search for the tab and a delivery by plain Enter. Handles, open files, threads and memory are read
while it lasts; from the twentieth delivery on none of them may grow, and every prompt must have been sent once.
Exit status: 0 when all that holds, 1 when not, 2 when it can't be played.
"""
import argparse
import json
import sys
import time
from pathlib import Path

TESTS = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TESTS / "e2e"))

from driver import processes
from driver.prefix import PrefixError
from driver.run import Programs, RunError
from driver.screen import ScreenError
from long_life import BROWSER, call, provider_window
from real.stage import SCREENS, WatchedSession

PROVIDER_FILE = TESTS / "scenarios" / "run" / "grok.json"
PAGE = PROVIDER_FILE.stem
PROMPT = "What may a landlord keep of the deposit?"
ENTER_KEY = 13
SETTLED_DELIVERIES = 20
SAMPLE_SECONDS = 3
# What one prompt may take on a machine that is busy.
GREATEST_SECONDS_EACH = 20
# The stand-in for the interface's library lives in the same process: it keeps no more than these of the answers.
KEPT_REPLIES = 4
GREATEST_GROWTH = {"handles": 2, "files": 2, "threads": 1, "privateKb": 1024}


def make_scenario(deliveries):
    window, search = provider_window(PROVIDER_FILE)
    steps = []
    for number in range(deliveries):
        about = {"name": search["name"], "expectedWindowHandle": {"$from": f"find{number}.windowHandle"},
                 "patterns": search["patterns"]}
        steps += [call(BROWSER, "activateProvider", search, f"find{number}"), call(BROWSER, "pasteAndSubmit", about)]
    editor = {"id": "editor", "process": "Code.exe", "title": "lease.md", "bounds": [0, 0, 900, 900]}
    return {"name": f"{deliveries} prompts",
            "desktop": {"windows": [window, editor], "foreground": "editor", "clipboard": {"text": PROMPT}},
            "steps": steps}


def status_of(process):
    lines = Path(f"/proc/{process}/status").read_text(encoding="utf-8").splitlines()
    fields = dict(line.split(":", 1) for line in lines)
    return {"privateKb": int(fields["RssAnon"].split()[0]), "threads": int(fields["Threads"])}


class Watch:
    """Reads the host every few seconds, as long as it runs."""

    def __init__(self, session):
        self._session = session
        self._next = 0.0
        self.samples = []

    def look(self):
        """Goes on being called, since it returns nothing."""
        now = time.monotonic()
        if now < self._next:
            return
        self._next = now + SAMPLE_SECONDS
        process = self._session.host_process
        handles = self._session.handles_of_host()
        try:
            sample = status_of(process) | {"files": len(list(Path(f"/proc/{process}/fd").iterdir()))}
        except (OSError, KeyError):
            return  # it is just ending
        if handles >= 0:
            self.samples.append(sample | {"at": now, "handles": handles})


def by_deliveries(samples, deliveries):
    """Those from the twentieth delivery on: each takes as long as the others."""
    began, ended = samples[0]["at"], samples[-1]["at"]
    settled_at = began + (ended - began) * SETTLED_DELIVERIES / deliveries
    return [sample for sample in samples if sample["at"] >= settled_at]


def least(samples, key):
    """Within one delivery a value goes up and down; what stays is the least."""
    return min(sample[key] for sample in samples)


def faults_of(report, samples, deliveries):
    if report.get("problem") or report["exitCode"] != 0:
        yield f"exit code {report['exitCode']}, {report.get('problem')}"
    if not all(isinstance(reply["value"], dict) and reply["value"].get("success") is True for reply in report["replies"]):
        yield "one of the last calls didn't succeed"
    enters = sum(key["vk"] == ENTER_KEY and not key["up"] and key["window"] == PAGE for key in report["input"])
    if enters != deliveries:
        yield f"{enters} prompts were sent, not {deliveries}"
    if any(key["window"] != PAGE for key in report["input"]):
        yield "a key went to another window"
    if any(report["live"].values()):
        yield f"held at the end: {report['live']}"
    half = len(samples) // 2
    for key, limit in GREATEST_GROWTH.items():
        early, late = least(samples[:half], key), least(samples[half:], key)
        if late - early > limit:
            yield f"{key} grew from {early} to {late}, by more than {limit}"


def tell(samples):
    for sample in samples[::max(1, len(samples) // 10)]:
        print(f"{sample['at'] - samples[0]['at']:7.0f} s  {sample['handles']:4d} handles  {sample['files']:4d} files  "
              f"{sample['threads']:3d} threads  {sample['privateKb']:7d} KB private", flush=True)


def play(programs, deliveries):
    file = programs.work / "real" / "long_life.json"
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(json.dumps(make_scenario(deliveries)), encoding="utf-8")
    with WatchedSession(programs, SCREENS[96], lambda line: print(line, file=sys.stderr, flush=True)) as session:
        watch = Watch(session)
        report = session.watch(file, meanwhile=watch.look, seconds=deliveries * GREATEST_SECONDS_EACH,
                               environment={"ORVANE_KEPT_REPLIES": str(KEPT_REPLIES)})
    return report, watch.samples


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--deliveries", type=int, default=200)
    parser.add_argument("--build", type=Path, default=TESTS.parent / "build", metavar="FOLDER", help="of the builds (build/)")
    parser.add_argument("--work", type=Path, metavar="FOLDER", help="for what runs leave (e2e of the builds)")
    options = parser.parse_args()
    if options.deliveries <= SETTLED_DELIVERIES:
        parser.error(f"--deliveries begins at {SETTLED_DELIVERIES + 1}")
    processes.end_on_signal()
    programs = Programs.of_builds(options.build, options.work)
    try:
        report, samples = play(programs, options.deliveries)
    except (PrefixError, RunError, ScreenError) as error:
        print(f"real_long_life: {error}", file=sys.stderr)
        return 2
    settled = by_deliveries(samples, options.deliveries) if samples else []
    if len(settled) < 4:
        print("real_long_life: the host ended before it could be read", file=sys.stderr)
        return 2
    tell(settled)
    faults = list(faults_of(report, settled, options.deliveries))
    for fault in faults:
        print(f"BROKEN {fault}")
    print(f"{options.deliveries} deliveries in {samples[-1]['at'] - samples[0]['at']:.0f} s; {len(faults)} broken promises")
    print(f"{options.deliveries - min(options.deliveries, len(faults))} passed, {len(faults)} failed")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
