#!/usr/bin/env python3
"""Builds the fuzz targets and lets each look for inputs that break a promise.

A find is kept below the build's finds/ and its replay is printed. The last line counts targets:
"N clean, N not". Exit status 0 only when all are clean.
"""
import argparse
import concurrent.futures
import os
import re
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CORPUS = ROOT / "fuzz/corpus"
TARGETS = sorted(path.name for path in CORPUS.iterdir() if path.is_dir())

# On the clock: long enough for a machine that is busy with something else.
LONGEST_INPUT_SECONDS = 120
MEMORY_MB = 2500
SHOWN_CHARACTERS = 2000  # of the log of a run that ended otherwise
# Beyond these sizes an input is only slower.
LONGEST_BYTES = {"codec": 2100, "command_line": 1024, "identity": 1024, "messages": 8192, "scenario_reader": 8192}
# Each run of the host leaves its clock behind by design: threads may still stand in it.
LEAVING = {"messages"}

STATUS = re.compile(r"#\d+\s+\S+\s+cov: (\d+) ft: (\d+) corp: (\d+)")
EXECUTIONS = re.compile(r"stat::number_of_executed_units:\s+(\d+)")
CAUSE = re.compile(r"^(FIND: .*|SUMMARY: .*|.*runtime error: .*|==\d+== ?ERROR: .*)$", re.MULTILINE)


def build(folder):
    """What building says is shown only when it fails."""
    commands = [["cmake", "--preset", "fuzz"], ["cmake", "--build", "--preset", "fuzz"]]
    if folder != ROOT / "build/fuzz":
        commands = [["cmake", "--build", str(folder)]]
    for command in commands:
        run = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        if run.returncode != 0:
            print(run.stdout)
            sys.exit("fuzz/run.py: the targets can't be built")


def options_of(target):
    # Without its weighing of inputs, which takes half of the time where a run passes many edges.
    options = [f"-timeout={LONGEST_INPUT_SECONDS}", f"-rss_limit_mb={MEMORY_MB}", "-close_fd_mask=1", "-entropic=0"]
    if target in LONGEST_BYTES:
        options.append(f"-max_len={LONGEST_BYTES[target]}")
    if target in LEAVING:
        options.append("-detect_leaks=0")
    return options


def last_number(pattern, log, group=1):
    found = list(pattern.finditer(log))
    return int(found[-1].group(group)) if found else 0


def run_and_measure(command, log_file):
    """Exit status (negative: a signal), seconds on the clock and on the processor."""
    began = time.monotonic()
    with open(log_file, "wb") as log:
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=log)
        _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return process.returncode, time.monotonic() - began, usage.ru_utime + usage.ru_stime


def fuzz(target, folder, seconds):
    """The target's line, and whether it is clean."""
    program = folder / "bin" / f"orvane_fuzz_{target}"
    grown, finds = folder / "corpus" / target, folder / "finds" / target
    for path in (grown, finds):
        path.mkdir(parents=True, exist_ok=True)
    command = [str(program), *options_of(target), f"-max_total_time={seconds}", "-print_final_stats=1",
               f"-artifact_prefix={finds}/", str(grown), str(CORPUS / target)]
    log_file = folder / "finds" / f"{target}.log"
    status, wall_seconds, cpu_seconds = run_and_measure(command, log_file)
    log = log_file.read_text(encoding="utf-8", errors="replace")
    line = (f"{target:16} {last_number(EXECUTIONS, log):9} runs  {last_number(STATUS, log):6} edges  "
            f"{last_number(STATUS, log, 2):6} features  {wall_seconds:6.0f} s  {cpu_seconds:6.0f} s of processor")
    if status == 0:
        return f"{line}  clean", True
    kept = re.search(r"Test unit written to (\S+)", log)
    if not kept:
        return f"{line}  STOPPED with status {status}\n{log[-SHOWN_CHARACTERS:]}", False
    causes = "".join(f"\n    {cause}" for cause in CAUSE.findall(log)[:4])
    return f"{line}  FIND{causes}\n    replay: {program} {kept.group(1)}", False


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("targets", nargs="*", metavar="TARGET", help=f"those to run (default: all): {', '.join(TARGETS)}")
    parser.add_argument("--seconds", type=int, default=10, help="how long each looks (default: 10)")
    parser.add_argument("--jobs", type=int, default=1, help="targets that run at a time (default: 1)")
    parser.add_argument("--build", type=Path, default=ROOT / "build/fuzz", help="another build folder of the preset")
    parser.add_argument("--as-built", action="store_true", help="run what is in the build folder, without building")
    arguments = parser.parse_args()
    unknown = set(arguments.targets) - set(TARGETS)
    if unknown or arguments.seconds < 1 or arguments.jobs < 1:
        parser.error(f"no target: {', '.join(sorted(unknown))}" if unknown else "--seconds and --jobs begin at 1")
    if not arguments.as_built:
        build(arguments.build.resolve())
    clean = []
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        runs = [pool.submit(fuzz, target, arguments.build.resolve(), arguments.seconds)
                for target in arguments.targets or TARGETS]
        for run in runs:
            line, is_clean = run.result()
            print(line, flush=True)
            clean.append(is_clean)
    print(f"{sum(clean)} clean, {len(clean) - sum(clean)} not")
    return 0 if all(clean) else 1


if __name__ == "__main__":
    sys.exit(main())
