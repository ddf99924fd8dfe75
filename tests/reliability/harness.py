"""Runs many variants on several cores, holds each to the promises, and says what broke."""
import argparse
import collections
import json
import multiprocessing
import os
import sys
import time
from pathlib import Path
from typing import NamedTuple

import chords
from promises import Breach, Run, broken_promises, has_model_ended, has_script_ended, normal_form
from runs import BrokenSimulator, load_scenario, run_all

ROOT = Path(__file__).resolve().parents[2]
SCENARIOS = ROOT / "tests" / "scenarios"
SIMULATOR = ROOT / "build" / "native" / "bin" / "orvane-sim"
CHUNK = 100  # variants per call of the simulator
PROGRESS_SECONDS = 20
SHOWN_EXAMPLES = 40


def option_parser(description, counted):
    """What both programs are told; `counted`: what a budget is of."""
    parser = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--simulator", type=Path, default=SIMULATOR)
    parser.add_argument("--folder", type=Path, default=SCENARIOS)
    parser.add_argument("--budget", type=int, help=f"{counted} at most; all without it")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=0, help="processes at a time; 0: one for each core")
    return parser


def perform(options, replay, play_all):
    """The program's exit status."""
    try:
        return replay(options) if options.replay else play_all(options)
    except BrokenSimulator as error:
        print(f"orvane-sim: {error}", file=sys.stderr)
        return 2


class Variant(NamedTuple):
    """One run: `key` is what --replay takes, behind the file."""
    key: str
    group: str  # what it is counted under
    faults: tuple = ()
    meddling: tuple = ()  # of (ms, kind)


class Chunk(NamedTuple):
    file: str
    variants: list
    baseline: bytes  # the report without a variant; empty where that is what is to be run


class Broken(NamedTuple):
    file: str
    key: str
    group: str
    breach: Breach


class Tally:
    def __init__(self):
        self.runs = collections.Counter()
        self.script_ended = 0
        self.model_ended = 0
        self.unnoticed = []  # (file, key, detail)
        self.broken = []

    def add(self, other):
        self.runs.update(other.runs)
        self.script_ended += other.script_ended
        self.model_ended += other.model_ended
        self.unnoticed += other.unnoticed
        self.broken += other.broken


def scenario_files(folder=SCENARIOS):
    files = sorted(str(path) for path in Path(folder).rglob("*.json"))
    if not files:
        sys.exit(f"{folder}: no scenarios")
    return files


def short_name(file):
    try:
        return str(Path(file).resolve().relative_to(SCENARIOS))
    except ValueError:
        return file


def find_file(name):
    return str(SCENARIOS / name) if not Path(name).is_file() else name


def baselines_of(simulator, prepare, files):
    """The report, as bytes, of each file as `prepare` makes it; empty where the run didn't end."""
    outcomes = run_all(simulator, [prepare(load_scenario(file)) for file in files])
    return [json.dumps(outcome.report).encode() if outcome.report else b"" for outcome in outcomes]


class Worker:
    """`prepare` makes of a scenario what all variants share; `apply` makes one variant of that."""

    def __init__(self, simulator, prepare, apply):
        self.simulator, self.prepare, self.apply = simulator, prepare, apply

    def baselines(self, files):
        return files, baselines_of(self.simulator, self.prepare, files)

    def check(self, chunk):
        scenario = self.prepare(load_scenario(chunk.file))
        baseline = json.loads(chunk.baseline)
        applied = [self.apply(scenario, variant) for variant in chunk.variants]
        tally = Tally()
        for variant, variant_scenario, outcome in zip(chunk.variants, applied, run_all(self.simulator, applied)):
            tally.runs[variant.group] += 1
            played = variant_scenario if variant.meddling else scenario
            run = Run(played, outcome.report, outcome.failure, variant.faults, variant.meddling, baseline)
            self._judge(chunk.file, variant, run, tally)
        return tally

    @staticmethod
    def _judge(file, variant, run, tally):
        if has_script_ended(run):
            tally.script_ended += 1
            return
        if has_model_ended(run):
            tally.model_ended += 1
            return
        tally.broken += [Broken(file, variant.key, variant.group, breach) for breach in broken_promises(run)]
        if run.report is not None and run.meddling:
            tally.unnoticed += [(file, variant.key, detail) for detail in chords.strays(run).unnoticed]


class Progress:
    def __init__(self, title, total):
        self.title, self.total, self.done = title, total, 0
        self.began = self.told = time.monotonic()
        self.is_terminal = sys.stderr.isatty()

    def add(self, count):
        self.done += count
        now = time.monotonic()
        if now - self.told < (0.5 if self.is_terminal else PROGRESS_SECONDS):
            return
        self.told = now
        line = f"{self.title}: {self.done} of {self.total}, {now - self.began:.0f} s"
        print(("\r\033[K" if self.is_terminal else "") + line, end="" if self.is_terminal else "\n", file=sys.stderr,
              flush=True)

    def tell(self, line):
        """A line of its own that stays."""
        self.close()
        print(line, file=sys.stderr, flush=True)

    def close(self):
        if self.is_terminal:
            print("\r\033[K", end="", file=sys.stderr, flush=True)


def in_pool(jobs, function, items):
    jobs = jobs or os.cpu_count()
    if jobs == 1:
        yield from map(function, items)
        return
    with multiprocessing.Pool(jobs) as pool:
        yield from pool.imap_unordered(function, items)


def run_baselines(worker, files, jobs):
    """file → report as bytes, without those that don't end by themselves."""
    parts = [files[i:i + CHUNK // 2] for i in range(0, len(files), CHUNK // 2)]
    progress, found = Progress("scenarios", len(files)), {}
    for part, reports in in_pool(jobs, worker.baselines, parts):
        found.update((file, report) for file, report in zip(part, reports) if report)
        progress.add(len(part))
    progress.close()
    return {file: found[file] for file in files if file in found}


def chunks_of(variant_lists, baselines):
    for file, variants in variant_lists:
        for start in range(0, len(variants), CHUNK):
            yield Chunk(file, variants[start:start + CHUNK], baselines[file])


def run_variants(worker, variant_lists, baselines, jobs, title, total):
    """`variant_lists` are (file, variants), made as they are needed: all at once would fill the memory."""
    tally, progress, told = Tally(), Progress(title, total), set()
    for part in in_pool(jobs, worker.check, chunks_of(variant_lists, baselines)):
        tally.add(part)
        for broken in part.broken:
            # What broke is known long before the end; of each kind the first.
            if kind_of(broken) not in told:
                told.add(kind_of(broken))
                progress.tell(f"broken: {broken.breach.promise}: {short_name(broken.file)}|{broken.key}")
        progress.add(sum(part.runs.values()))
    progress.close()
    return tally


def kind_of(broken):
    return broken.breach.promise, normal_form(broken.breach.detail), broken.group


def print_broken(tally, script):
    """Equal breaches together, each with how often and the command that shows the first."""
    groups = collections.defaultdict(list)
    for broken in tally.broken:
        groups[kind_of(broken)].append(broken)
    by_count = sorted(groups.items(), key=lambda item: (-len(item[1]), item[0]))
    for (promise, _, group), found in by_count[:SHOWN_EXAMPLES]:
        first = min(found)
        print(f"BROKEN {len(found)} x {promise}: {group}")
        print("    " + first.breach.detail.replace("\n", "\n    ")[:2000])
        print(f"    python3 {script} --replay '{short_name(first.file)}|{first.key}'")
    if len(groups) > SHOWN_EXAMPLES:
        print(f"… and {len(groups) - SHOWN_EXAMPLES} kinds more")
    return len(tally.broken)
