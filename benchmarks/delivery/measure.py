#!/usr/bin/env python3
"""Deliveries of orvane.exe under Wine: the real time over the sum of the waits that each must make,
and what the rest is made of. How it is called and what it writes is told in ../report.py."""
import statistics
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests" / "e2e"), str(ROOT / "benchmarks")]

from driver import simulation  # noqa: E402
from driver.prefix import PrefixError  # noqa: E402
from driver.run import Programs, RunError, Session  # noqa: E402
from driver.screen import Screen, ScreenError  # noqa: E402
from part import option_parser, write_rows  # noqa: E402

BUILDS = ROOT / "build"
SCENARIOS = ROOT / "tests" / "scenarios"
# One of each route.
ROUTES = {
    "Claude": "delivery/claude-empty-composer-proves-delivery.json",
    "ChatGPT": "delivery/chatgpt-empty-composer-proves-delivery.json",
    "Gemini": "delivery/gemini-empty-composer-proves-delivery.json",
    "Perplexity": "delivery/perplexity-empty-composer-proves-delivery.json",
    "plain Enter": "delivery/grok-enter-taken-counts-as-delivered.json",
}
LIMIT = 1.02
ROUNDS = 10
BRIEF_ROUNDS = 3
CALL = "pasteAndSubmit"
# The kinds of calls that reach another process and come back.
REACHING = {"questions to UI Automation": "IUIAutomation"}


class Failure(Exception):
    """What couldn't be measured, and why."""


def call_ms(report, file):
    for reply in report["replies"]:
        if reply["method"] == CALL:
            return reply["endMs"] - reply["startMs"]
    raise Failure(f"{file.name}: calls no {CALL}")


def measure_route(session, file, expected, rounds):
    """The waits' sum and the median of the real times, in ms."""
    virtual = call_ms(expected, file)
    return virtual, statistics.median(call_ms(session.play(file, expected["virtualMs"] / 1000), file) for _ in range(rounds))


def rows_of(route, expected, virtual, real):
    rows = [{"name": f"{route}: real time over its waits", "value": real / virtual, "limit": LIMIT, "unit": "times"},
            {"name": f"{route}: waits", "value": virtual, "limit": None, "unit": "ms"},
            {"name": f"{route}: the rest", "value": round(real - virtual), "limit": None, "unit": "ms"}]
    for kind, prefix in REACHING.items():
        count = sum(calls for name, calls in expected["platformCalls"].items() if name.startswith(prefix))
        rows.append({"name": f"{route}: {kind} in the whole run", "value": count, "limit": None, "unit": "count"})
    return rows


def measure(is_brief):
    programs = Programs.of_builds(BUILDS, BUILDS / "bench-program")
    files = {route: SCENARIOS / name for route, name in ROUTES.items()}
    reports = dict(zip(files, simulation.reports(programs.simulator, list(files.values()))))
    rows = []
    with Session(programs, Screen(), lambda line: print(line, file=sys.stderr, flush=True)) as session:
        for route, file in files.items():
            virtual, real = measure_route(session, file, reports[route], BRIEF_ROUNDS if is_brief else ROUNDS)
            print(f"{route}: {real:.0f} ms of {virtual} ms", file=sys.stderr, flush=True)
            rows += rows_of(route, reports[route], virtual, real)
    return rows


def main():
    options = option_parser(__doc__).parse_args()
    write_rows("delivery", options, lambda: measure(options.brief),
               (Failure, PrefixError, RunError, ScreenError, simulation.SimulationError, OSError))


if __name__ == "__main__":
    main()
