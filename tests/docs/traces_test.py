#!/usr/bin/env python3
"""Holds docs/traces.md to what the host writes: to every text in its sources that could enter a trace,
and to every step of every trace that the scenarios bring about.

traces_test.py SIMULATOR [DOCUMENT]
"""
import json
import sys
from pathlib import Path

from channels_document import ChannelsDocument
from markdown import DocumentError
from simulator import Simulator
from sources import read_texts, source_files
from traces_document import TracesDocument

ROOT = Path(__file__).resolve().parents[2]
SCENARIOS = ROOT / "tests" / "scenarios"
ROOMS = ("activation", "browser_channel", "composer", "provider_identity")
METHODS_WITH_TRACE = {"activateProvider", "pasteAndSubmit"}

# Texts of these rooms that no trace ever shows, with the reason. One that is shown is an error.
NEVER_SHOWN = {
    "Prompt is empty": "an empty composer decides the delivery before its text is told",
    "Prompt box not ready": "what a wait without a single check would end with",
    "Claude prompt box was not available": "replaced by what the first look at the prompt box says",
    "Claude prompt box was not available after retry": "the same",
    "Perplexity composer was not available after Send": "the same",
    "Verified selected ChatGPT windows could not be foregrounded": "of several windows one is always chosen",
}
# Scenarios in which all searches fail from the n-th on: what a page shows that can't be searched any more.
BLIND_SEARCHES = (
    ("delivery/claude-text-remains-after-retry-fails-at-once", 9),
    ("delivery/chatgpt-text-remains-send-stable-again-fails", 9),
    ("delivery/gemini-text-remains-send-stable-again-fails", 5),
)
# How the host writes what the placeholders stand for ("AI" for a provider without a name), and the keys of
# the maps that a trace is made of.
FORMS = {"0x", "0123456789ABCDEF", "0123456789abcdef", "Y", "N", "...", ",", "<unavailable>", "step", "result", "AI"}


def with_blind_searches(name, first):
    scenario = json.loads((SCENARIOS / f"{name}.json").read_text(encoding="utf-8"))
    fault = {"call": "IUIAutomationElement::FindAll", "nth": first, "times": 999, "result": "0x80004005"}
    scenario["desktop"].setdefault("faults", []).append(fault)
    del scenario["expect"]
    return scenario


def texts_of_rooms():
    """text -> where it stands first."""
    texts = {}
    for room in ROOMS:
        for path in source_files(ROOT / "src" / room):
            for line, text in read_texts(path.read_text(encoding="utf-8")):
                if text:
                    texts.setdefault(text, f"{path.relative_to(ROOT)}:{line}")
    return texts


class Composition:
    """How fixed texts are put together from the texts of the sources, one behind the other."""

    def __init__(self, texts):
        self.by_first = {}
        for text in texts:
            self.by_first.setdefault(text[0], []).append(text)

    def pieces(self, part):
        """The texts that some such row of all of the part uses; none when it can't be made of them."""
        fits = [
            [text for text in self.by_first.get(sign, ()) if part.startswith(text, start)]
            for start, sign in enumerate(part)
        ]
        leads_on = [False] * len(part) + [True]
        for start in reversed(range(len(part))):
            leads_on[start] = any(leads_on[start + len(text)] for text in fits[start])
        reached, used = {0}, set()
        for start in range(len(part)):
            for text in fits[start] if start in reached else ():
                if leads_on[start + len(text)]:
                    used.add(text)
                    reached.add(start + len(text))
        return used


def complain_about_texts(document, channels_text, texts):
    """Each row is made of texts of the sources, and each text of the sources is used by a row or told as it is."""
    composition = Composition(texts)
    used, looked_at = set(FORMS), set()
    for pattern in document.patterns():
        for part in set(pattern.fixed_parts) - looked_at:
            looked_at.add(part)
            pieces = composition.pieces(part)
            used |= pieces
            if not pieces:
                yield f"line {pattern.line}: nothing in the sources writes {part!r}"
    for text, place in texts.items():
        if text not in used and text not in NEVER_SHOWN and f'"{text}"' not in channels_text:
            yield f"{place}: {text!r} stands in no document"
    for text in NEVER_SHOWN:
        if text not in texts:
            yield f"{text!r} is excused and stands in no source"


class Traces:
    """The steps of all runs, each kind once, and what they have to do with the document."""

    def __init__(self, document):
        self.document = document
        self.known = {}
        self.shown_rows = set()
        self.steps = 0

    def complain_about(self, report):
        for reply in report["replies"]:
            value = reply["value"]
            if reply["method"] not in METHODS_WITH_TRACE or not isinstance(value, dict):
                continue
            for entry in value.get("logs", ()):
                yield from self.complain_about_step(entry["step"], entry["result"], report["name"])

    def complain_about_step(self, step, result, name):
        self.steps += 1
        if (step, result) not in self.known:
            self.known[step, result] = self.document.row_of(step, result)
        row = self.known[step, result]
        if row is None:
            yield f"no row for {step!r}: {result!r} of the run {name!r}"
        else:
            self.shown_rows.add(row.line)
        for text in NEVER_SHOWN:
            if text in result:
                yield f"{text!r} is excused and is shown by the run {name!r}"

    def complain_about_rows(self):
        for row in self.document.rows:
            if row.line not in self.shown_rows:
                yield f"line {row.line}: no scenario shows {row.step.text!r}: {row.result.text!r}"


def complain_about_waits(channels, reports):
    most = {(method.channel, method.name): method.most_ms for method in channels.methods}
    by_name = {name: ms for (_, name), ms in most.items()}
    for report in reports:
        for reply in report["replies"]:
            if reply["kind"] == "success" and reply["endMs"] - reply["startMs"] > by_name.get(reply["method"], 0):
                yield f"channels.md: {reply['method']} blocks for longer in the run {report['name']!r}"


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__.strip())
    path = Path(sys.argv[2]) if len(sys.argv) == 3 else ROOT / "docs" / "traces.md"
    channels_text = (ROOT / "docs" / "channels.md").read_text(encoding="utf-8")
    try:
        document = TracesDocument(path.read_text(encoding="utf-8"))
        channels = ChannelsDocument(channels_text)
        simulator = Simulator(sys.argv[1])
        reports = simulator.run_files(sorted(SCENARIOS.rglob("*.json")))
        reports += simulator.run_scenarios([with_blind_searches(*run) for run in BLIND_SEARCHES])
    except DocumentError as error:
        sys.exit(f"{path.name}: {error}")
    texts = texts_of_rooms()
    traces = Traces(document)
    complaints = list(complain_about_texts(document, channels_text, texts))
    for report in reports:
        complaints += traces.complain_about(report)
    complaints += traces.complain_about_rows()
    complaints += complain_about_waits(channels, reports)
    for complaint in complaints:
        print(f"{path.name}: {complaint}")
    counts = f"{len(document.rows)} rows, {len(texts)} texts of sources, {traces.steps} steps of {len(reports)} runs"
    print(f"{counts}, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
