#!/usr/bin/env python3
"""orvane.exe under Wine beside a program that only shows a window: its start, its memory at rest, and what
its file is made of. How it is called and what it writes is told in ../report.py."""
import json
import re
import shutil
import statistics
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests" / "e2e"), str(ROOT / "benchmarks")]

from driver import processes  # noqa: E402
from driver.prefix import PrefixError  # noqa: E402
from driver.run import Programs, RunError, Session  # noqa: E402
from driver.screen import Screen, ScreenError  # noqa: E402
from part import option_parser, write_rows  # noqa: E402

BUILDS = ROOT / "build"
START_LIMIT = 1.3
MEMORY_LIMIT_BYTES = 3 << 20
FILE_LIMIT_BYTES = 1 << 20
ROUNDS = 15
BRIEF_ROUNDS = 5
ROUNDS_SECONDS = 180
AT_REST_SECONDS = 60
# For pages that are touched right behind the start.
SETTLING_SECONDS = 1.5
STRIP = "x86_64-w64-mingw32-strip"
# In a linker's map: a section that was kept, its size, and the object that it came from.
SECTION = re.compile(r"^ \.[\w$.]+(?:\s*\n)?\s+0x[0-9a-f]+\s+0x([0-9a-f]+)\s+(\S.*)$", re.MULTILINE)
FOLDER = re.compile(r"/src/(\w+)/[^/]+\.obj$")
# Sections of debug information aren't part of what ships.
DEBUG = re.compile(r"^ \.debug", re.MULTILINE)


class Failure(Exception):
    """What couldn't be measured, and why."""


def started_at_rest(session, command, environment, is_resting):
    """The private bytes of a program that was started and has come to rest."""
    process = processes.start(["wine", str(command)], env=environment, cwd=session.folder, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL)
    try:
        deadline = time.monotonic() + AT_REST_SECONDS
        while not is_resting():
            if process.poll() is not None or time.monotonic() > deadline:
                raise Failure(f"{command.name} didn't come to rest")
            time.sleep(0.05)
        time.sleep(SETTLING_SECONDS)
        return private_bytes(process.pid)
    finally:
        processes.end(process)


def private_bytes(process_id):
    """What the process holds that stands in no file: pages of a file that weren't written to are the file's, even
    when nobody else has them mapped."""
    rollup = Path(f"/proc/{process_id}/smaps_rollup").read_text(encoding="ascii")
    return int(re.search(r"^Anonymous:\s+(\d+) kB", rollup, re.MULTILINE).group(1)) * 1024


class MeasuredSession(Session):
    """A session in which programs of a run are started by hand."""

    @property
    def folder(self):
        return self._folder

    def lay_out(self, *programs):
        """With the host, and without debug information, as they ship: Wine reads all of a file into memory."""
        self._lay_out([])
        for program in programs:
            shutil.copy(program, self._folder)
        for program in self._folder.glob("*.exe"):
            subprocess.run([STRIP, str(program)], check=True)


def measure_runs(work, is_brief):
    windows = BUILDS / "windows" / "bin"
    programs = Programs.of_builds(BUILDS, work)
    work.mkdir(parents=True, exist_ok=True)
    scenario = work / "rest.json"
    scenario.write_text(json.dumps({"name": "at rest", "desktop": {}, "steps": []}), encoding="utf-8")
    with MeasuredSession(programs, Screen(), lambda line: print(line, file=sys.stderr, flush=True)) as session:
        session.lay_out(windows / "idle.exe", windows / "stopwatch.exe")
        signal = session.folder / "signal"
        environment = session.environment(
            ORVANE_SCENARIO=processes.windows_path(scenario),
            ORVANE_REPORT=processes.windows_path(session.folder / "report.json"),
            ORVANE_HOLD="1", ORVANE_SIGNAL=processes.windows_path(signal))
        starts = time_starts(session, environment, BRIEF_ROUNDS if is_brief else ROUNDS)
        began = time.monotonic()
        idle = started_at_rest(session, session.folder / "idle.exe", environment,
                               lambda: time.monotonic() - began > SETTLING_SECONDS)
        host = started_at_rest(session, session.folder / "orvane.exe", environment, signal.is_file)
    idle_start, host_start = (statistics.median(times) for times in zip(*starts))
    return [
        {"name": "start to the message loop, beside a program that only shows a window", "value": host_start / idle_start,
         "limit": START_LIMIT, "unit": "times"},
        {"name": "the start itself", "value": round(host_start), "limit": None, "unit": "µs"},
        {"name": "private memory at rest, over that program's", "value": host - idle, "limit": MEMORY_LIMIT_BYTES,
         "unit": "bytes"},
        {"name": "private memory at rest", "value": host, "limit": None, "unit": "bytes"},
    ]


def time_starts(session, environment, rounds):
    """Pairs of microseconds: the program that only shows a window, and the host."""
    folder = session.folder
    command = ["wine", str(folder / "stopwatch.exe"), str(rounds),
               *(processes.windows_path(folder / name) for name in ("idle.exe", "orvane.exe"))]
    stopwatch = processes.start(command, env=environment, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    try:
        output = stopwatch.communicate(timeout=ROUNDS_SECONDS)[0].decode(errors="replace")
    except subprocess.TimeoutExpired as failure:
        raise Failure("the starts took too long") from failure
    finally:
        processes.end(stopwatch)
    pairs = [tuple(map(int, line.split())) for line in output.splitlines() if re.fullmatch(r"\d+ \d+\s*", line)]
    if stopwatch.returncode != 0 or len(pairs) != rounds:
        raise Failure(output.strip() or f"the stopwatch ended with {stopwatch.returncode}")
    return pairs


def measure_file(program, work):
    stripped = work / "stripped.exe"
    subprocess.run([STRIP, "-o", str(stripped), str(program)], check=True)
    rows = [{"name": "orvane.exe, stripped", "value": stripped.stat().st_size, "limit": FILE_LIMIT_BYTES, "unit": "bytes"}]
    sizes = sizes_by_origin(program.parents[1] / "orvane.map")
    return rows + [{"name": f"of it {origin}", "value": size, "limit": None, "unit": "bytes"}
                   for origin, size in sorted(sizes.items(), key=lambda entry: -entry[1])]


def sizes_by_origin(file):
    """What stands in the file, by the folder or library that it came from. A template counts for the folder that
    uses it first."""
    text = file.read_text(encoding="utf-8", errors="replace")
    kept = text[text.index("Linker script and memory map"):]
    sizes = {}
    for match in SECTION.finditer(kept):
        if DEBUG.match(match.group(0)) or match.group(0).startswith((" .bss", " .idata$4 ")):
            continue
        size = int(match.group(1), 16)
        if size:
            origin = origin_of(match.group(2))
            sizes[origin] = sizes.get(origin, 0) + size
    if not sizes:
        raise Failure(f"{file}: names no section")
    return sizes


def origin_of(source):
    if folder := FOLDER.search(source):
        return f"src/{folder.group(1)}"
    if "libstdc++" in source:
        return "the C++ library"
    if "libgcc" in source:
        return "the compiler's library"
    if source.endswith(".rc.res"):
        return "resources"
    return "the C runtime and imports"


def main():
    options = option_parser(__doc__).parse_args()
    work = BUILDS / "bench-program"
    write_rows("program", options,
               lambda: measure_runs(work, options.brief) + measure_file(BUILDS / "windows" / "bin" / "orvane.exe", work),
               (Failure, PrefixError, RunError, ScreenError, OSError, subprocess.CalledProcessError))


if __name__ == "__main__":
    main()
