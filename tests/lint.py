#!/usr/bin/env python3
"""Runs clang-tidy over src/, several files at once. A file that was clean is looked at again only
when it, what it includes, its command, the checks or the tool have changed.

lint.py BUILD_FOLDER [JOBS]   (a folder that Ninja has built; what was clean is noted in it)
"""
import concurrent.futures
import hashlib
import json
import os
import shlex
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PROGRESS_SECONDS = 20


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


def describe_tool():
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True, check=True).stdout
    return version + (ROOT / ".clang-tidy").read_text()


def object_file(entry):
    words = shlex.split(entry["command"])
    return words[words.index("-o") + 1]


def fingerprint(build, tool, entry, dependencies):
    digest = hashlib.sha256((tool + entry["command"]).encode())
    for name in sorted({entry["file"], *dependencies.get(object_file(entry), [])}):
        path = build / name
        # What the system brings changes with the tool.
        if path.resolve().is_relative_to(ROOT):
            digest.update(name.encode() + b"\0" + path.read_bytes())
    return digest.hexdigest()


def lint(build, file):
    """None when clean, else what clang-tidy says."""
    result = subprocess.run(["clang-tidy", "--quiet", "-p", build, file], capture_output=True, text=True, check=False)
    if result.returncode == 0:
        return None
    return result.stdout.strip() or result.stderr.strip()


def report_progress(done, count, since):
    now = time.monotonic()
    if now - since < PROGRESS_SECONDS:
        return since
    print(f"[{done}/{count}] files looked at", flush=True)
    return now


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__.strip())
    build = Path(sys.argv[1]).resolve()
    jobs = int(sys.argv[2]) if len(sys.argv) == 3 else os.cpu_count() or 1
    entries = json.loads((build / "compile_commands.json").read_text())
    entries = [entry for entry in entries if Path(entry["file"]).is_relative_to(ROOT / "src")]
    if not entries:
        sys.exit("no source to look at")
    clean = build / "lint"
    clean.mkdir(exist_ok=True)
    tool, dependencies = describe_tool(), read_dependencies(build)
    marks = {entry["file"]: clean / fingerprint(build, tool, entry, dependencies) for entry in entries}
    waiting = [file for file, mark in marks.items() if not mark.exists()]

    failures = 0
    since = time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        runs = {pool.submit(lint, build, file): file for file in waiting}
        for done, run in enumerate(concurrent.futures.as_completed(runs), 1):
            if complaint := run.result():
                failures += 1
                print(complaint, flush=True)
            else:
                marks[runs[run]].touch()
            since = report_progress(done, len(waiting), since)
    for mark in set(clean.iterdir()) - set(marks.values()):
        mark.unlink()
    print(f"{len(entries) - failures} clean, {failures} not")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
