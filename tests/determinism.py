#!/usr/bin/env python3
"""Runs the shipped scenarios twice and holds the reports to three promises.

determinism.py ORVANE_SIM FOLDER

- The same scenario gives the same bytes: the second time in reverse order and one after the other.
- A run that ended holds nothing: every number under "live" is 0.
- A prompt ends on the clipboard and in the page, and is in no reply of the browser channel, in no
  message to the interface and on no error line.
"""
import json
import subprocess
import sys
from pathlib import Path

BROWSER_CHANNEL = "orvane/browser"
# A shorter text can be part of any sentence by accident.
LEAST_PROMPT_CHARACTERS = 8
SHOWN_COMPLAINTS = 20


def run(simulator, files, options=()):
    """One report line per file, and what stood on the error stream."""
    command = [str(simulator), "--json", *options, *map(str, files)]
    result = subprocess.run(command, capture_output=True, check=False)
    if result.returncode not in (0, 1):
        sys.exit(f"orvane-sim ended with status {result.returncode}: {result.stderr.decode(errors='replace').strip()}")
    return result.stdout.splitlines()


def prompts_of(scenario):
    """Every text that the scenario puts on the clipboard, at its start or by a rule."""
    found = set()

    def visit(node):
        if isinstance(node, dict):
            clipboard = node.get("clipboard")
            if isinstance(clipboard, dict) and isinstance(clipboard.get("text"), str):
                found.add(clipboard["text"])
            node = list(node.values())
        if isinstance(node, list):
            for child in node:
                visit(child)

    visit(scenario)
    return {text for text in found if len(text) >= LEAST_PROMPT_CHARACTERS}


def channels_of(scenario):
    """The channel of each reply, in order."""
    calls = (step.get("call", step) for step in scenario.get("steps", []) if "call" in step or "bytes" in step)
    return [call.get("channel") for call in calls]


def secret_places(scenario, report):
    """What of the report the prompt must not be in, by name."""
    for channel, reply in zip(channels_of(scenario), report["replies"]):
        if channel == BROWSER_CHANNEL:
            yield f"reply {reply.get('as')}", reply
    for i, message in enumerate(report["toInterface"]):
        yield f"toInterface[{i}]", message
    for i, line in enumerate(report["stderr"]):
        yield f"stderr[{i}]", line


def holds_text(node, text):
    """Whether a text inside `node` holds `text`, as itself or as the bytes of a raw message."""
    as_bytes = text.encode("utf-8", "replace").hex()

    def is_in(child):
        if isinstance(child, str):
            return text in child or as_bytes in child.lower()
        if isinstance(child, dict):
            return any(map(is_in, child.keys())) or any(map(is_in, child.values()))
        return isinstance(child, list) and any(map(is_in, child))

    return is_in(node)


def complaints(scenario, report):
    # What a fault keeps from being given back, the scenario itself expects.
    is_faulted = scenario.get("desktop", {}).get("faults")
    expected = scenario.get("expect", {}).get("live", {}) if is_faulted else {}
    for name, count in report["live"].items():
        if count != expected.get(name, 0):
            yield f"still held at the end: {count} of {name}"
    if len(channels_of(scenario)) < len(report["replies"]):
        yield "more replies than calls"
    for place, content in secret_places(scenario, report):
        if any(holds_text(content, prompt) for prompt in prompts_of(scenario)):
            yield f"{place} holds the prompt"


def check(simulator, folder):
    """Complaints, a line each, and how many prompts were looked for."""
    files = sorted(folder.rglob("*.json"))
    if not files:
        return [f"{folder}: no scenarios"], 0
    first = run(simulator, files)
    second = run(simulator, files[::-1], ("--jobs", "1"))[::-1]
    if not len(files) == len(first) == len(second):
        return [f"{len(files)} scenarios gave {len(first)} and {len(second)} reports"], 0
    found = []
    prompt_count = 0
    for file, line, again in zip(files, first, second):
        scenario = json.loads(file.read_text(encoding="utf-8"))
        prompt_count += len(prompts_of(scenario))
        if line != again:
            place = next((i for i, (a, b) in enumerate(zip(line, again)) if a != b), min(len(line), len(again)))
            found.append(f"{file}: the second report differs from byte {place} on: "
                         f"{line[place:place + 40]!r} and {again[place:place + 40]!r}")
        found.extend(f"{file}: {complaint}" for complaint in complaints(scenario, json.loads(line)))
    if prompt_count == 0:
        found.append("no scenario has a prompt to look for")
    return found, prompt_count


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__.strip())
    found, prompt_count = check(Path(sys.argv[1]), Path(sys.argv[2]))
    for line in found[:SHOWN_COMPLAINTS]:
        print(line, file=sys.stderr)
    if len(found) > SHOWN_COMPLAINTS:
        print(f"… and {len(found) - SHOWN_COMPLAINTS} more", file=sys.stderr)
    print(f"{prompt_count} prompts looked for")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
