"""Runs variants of scenarios in orvane-sim, many at a time."""
import copy
import json
import os
import subprocess
import tempfile
from pathlib import Path
from typing import NamedTuple, Optional

# A folder in memory where there is one: the files live for one run.
MEMORY_FOLDER = "/dev/shm"


class Outcome(NamedTuple):
    report: Optional[dict]
    failure: str  # why there is no report


class BrokenSimulator(Exception):
    """orvane-sim couldn't use what it was given."""


def load_scenario(path):
    """A shipped scenario without what it expects."""
    scenario = json.loads(Path(path).read_text(encoding="utf-8"))
    scenario.pop("expect", None)
    return scenario


def with_faults(scenario, faults):
    """Injected faults stand in front of the scenario's own: the first that is due decides."""
    variant = dict(scenario)
    desktop = dict(variant.get("desktop", {}))
    desktop["faults"] = [*faults, *desktop.get("faults", [])]
    variant["desktop"] = desktop
    return variant


def deep_copy(scenario):
    return copy.deepcopy(scenario)


def _failures_by_file(text, prefix):
    """What stood on the error stream, by file number: a message may have several lines."""
    found, current = {}, None
    for line in text.splitlines():
        if line.startswith(prefix):
            number, _, message = line[len(prefix):].partition(".json: ")
            current = int(number)
            found[current] = message
        elif current is not None:
            found[current] += "\n" + line
    return found


def run_all(simulator, variants):
    """One Outcome per variant, in their order."""
    parent = MEMORY_FOLDER if os.path.isdir(MEMORY_FOLDER) else None
    with tempfile.TemporaryDirectory(prefix="orvane-", dir=parent) as folder:
        files = []
        for number, variant in enumerate(variants):
            files.append(f"{folder}/{number}.json")
            with open(files[-1], "w", encoding="utf-8") as file:
                file.write(json.dumps(dict(variant, name=str(number))))
        result = subprocess.run([str(simulator), "--json", "--jobs", "1", *files], capture_output=True, check=False)
        failures = _failures_by_file(result.stderr.decode(errors="replace"), folder + "/")
    if result.returncode not in (0, 1):
        raise BrokenSimulator(f"status {result.returncode}: {result.stderr.decode(errors='replace').strip()}")
    reports = {int(report["name"]): report for report in map(json.loads, result.stdout.splitlines())}
    return [Outcome(reports.get(i), failures.get(i, "" if i in reports else "no report")) for i in range(len(variants))]
