#!/usr/bin/env python3
"""Runs clang-tidy, cppcheck and the compiler's own analyzer over what ships, src/ and tools/, several
files at once. A file that was clean is looked at again only when it, what it includes, its command,
the checks or the tool have changed.
"""
import argparse
import concurrent.futures
import hashlib
import json
import os
import shlex
import subprocess
import sys
import time
from pathlib import Path
from typing import Callable, NamedTuple

ROOT = Path(__file__).resolve().parent.parent
FOLDERS = (ROOT / "src", ROOT / "tools")
PROGRESS_SECONDS = 20

TIDY_CHECKS = ROOT / ".clang-tidy"
CPPCHECK_SUPPRESSIONS = ROOT / ".cppcheck-suppressions"
CPPCHECK = ["cppcheck", "--quiet", "--std=c++20", "--language=c++", "--enable=warning,style,performance,portability",
            "--error-exitcode=1", "--inline-suppr", f"--suppressions-list={CPPCHECK_SUPPRESSIONS}"]
# What GCC's analyzer can't judge in C++ yet. It follows neither the constructors of members nor the
# destructors of owners, so that all of its uninitialized values and leaks are none; and it takes
# operator new, and the memory of a vector that isn't empty, for what may be null. clang-tidy's
# analyzer and the sanitizers look for these. What is left on: freed twice, used after it was freed,
# freed as what it is not, frames that have ended, jumps through null, calls in signal handlers,
# shifts that are too far, writes to constants, files left open.
ANALYZER = ["-fanalyzer", "-Wno-analyzer-too-complex", "-Wno-analyzer-use-of-uninitialized-value",
            "-Wno-analyzer-malloc-leak", "-Wno-analyzer-null-dereference", "-Wno-analyzer-possible-null-dereference"]


class Tool(NamedTuple):
    name: str
    identity: str  # what a change of makes all files be looked at again
    command: Callable  # of a compile command's entry


def read_dependencies(build):
    """Object file -> the files that it was compiled from."""
    text = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=True).stdout
    dependencies = {}
    current = []
    for line in text.splitlines():
        if line.startswith("    "):
            current.append(line.strip())
        elif ":" in line:
            current = dependencies.setdefault(line.split(":")[0], [])
    return dependencies


def version_of(program):
    return subprocess.run([program, "--version"], capture_output=True, text=True, check=True).stdout


def words_of(entry):
    """The compiler and what it is told, without the cache in front of it."""
    words = shlex.split(entry["command"])
    return words[1:] if Path(words[0]).name == "ccache" else words


def object_file(entry):
    words = words_of(entry)
    return words[words.index("-o") + 1]


def analyzer_command(entry):
    words = words_of(entry)
    place = words.index("-o")
    words[place + 1] = os.devnull
    # Its dependencies stand with the object file; nothing may be written beside it.
    for flag, count in (("-MD", 1), ("-MT", 2), ("-MF", 2)):
        if flag in words:
            start = words.index(flag)
            del words[start:start + count]
    return [*words, *ANALYZER]


def cppcheck_command(entry):
    return [*CPPCHECK, *[word for word in words_of(entry) if word.startswith(("-I", "-D"))], entry["file"]]


def tools_for(build, compiler, is_quick):
    # The platform's own VARIANT is a union of records without names.
    tidy = ["clang-tidy", "--quiet", "--extra-arg=-Wno-nested-anon-types",
            *(["--checks=-clang-analyzer-*"] if is_quick else [])]
    tools = [
        Tool("clang-tidy", version_of("clang-tidy") + TIDY_CHECKS.read_text() + " ".join(tidy),
             lambda entry: [*tidy, "-p", str(build), entry["file"]]),
        Tool("cppcheck", version_of("cppcheck") + CPPCHECK_SUPPRESSIONS.read_text() + " ".join(CPPCHECK),
             cppcheck_command),
    ]
    if not is_quick:
        tools.append(Tool("analyzer", version_of(compiler) + " ".join(ANALYZER), analyzer_command))
    return tools


def fingerprint(build, tool, entry, dependencies):
    digest = hashlib.sha256((tool.name + tool.identity + entry["command"]).encode())
    for name in sorted({entry["file"], *dependencies.get(object_file(entry), [])}):
        path = build / name
        # What the system brings changes with the tool.
        if path.resolve().is_relative_to(ROOT):
            digest.update(name.encode() + b"\0" + path.read_bytes())
    return digest.hexdigest()


def lint(build, tool, entry):
    """None when clean, else what the tool says."""
    result = subprocess.run(tool.command(entry), cwd=build, capture_output=True, text=True, check=False)
    if result.returncode == 0:
        return None
    return f"{tool.name}: {entry['file']}\n{result.stdout.strip() or result.stderr.strip()}"


def report_progress(done, count, since):
    now = time.monotonic()
    if now - since < PROGRESS_SECONDS:
        return since
    print(f"[{done}/{count}] looks at a file", flush=True)
    return now


def read_arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=Path, help="a folder that Ninja has built; what was clean is noted in it")
    parser.add_argument("jobs", type=int, nargs="?", default=os.cpu_count() or 1, help="how many at a time")
    parser.add_argument("--quick", action="store_true",
                        help="leave out the compilers' analyzers, which take three quarters of the time")
    return parser.parse_args()


def read_entries(build):
    """The compile commands of what ships."""
    commands = build / "compile_commands.json"
    if not commands.is_file():
        sys.exit(f"lint.py: {commands}: not there; configure that build first")
    entries = json.loads(commands.read_text())
    entries = [entry for entry in entries if any(Path(entry["file"]).is_relative_to(folder) for folder in FOLDERS)]
    if not entries:
        sys.exit("no source to look at")
    return entries


def main():
    arguments = read_arguments()
    build = arguments.build.resolve()
    entries = read_entries(build)
    clean = build / "lint"
    clean.mkdir(exist_ok=True)
    dependencies = read_dependencies(build)
    looks = [(tool, entry) for tool in tools_for(build, words_of(entries[0])[0], arguments.quick) for entry in entries]
    marks = [clean / fingerprint(build, tool, entry, dependencies) for tool, entry in looks]
    waiting = [number for number, mark in enumerate(marks) if not mark.exists()]

    failures = 0
    since = time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        runs = {pool.submit(lint, build, *looks[number]): number for number in waiting}
        for done, run in enumerate(concurrent.futures.as_completed(runs), 1):
            if complaint := run.result():
                failures += 1
                print(complaint, flush=True)
            else:
                marks[runs[run]].touch()
            since = report_progress(done, len(waiting), since)
    for mark in set(clean.iterdir()) - set(marks):
        mark.unlink()
    print(f"{len(looks) - failures} clean, {failures} not")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
