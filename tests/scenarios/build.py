#!/usr/bin/env python3
"""Writes the scenario files out of the kit.

build.py           writes each file that is missing or differs
build.py --check   writes nothing; fails when a file is missing, differs, or is written by no part of the kit
"""
import importlib
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER))
sys.dont_write_bytecode = True

from kit.core import format_scenario  # noqa: E402  (the kit is found through the path above)


def all_scenarios():
    """File content by path, from every kit/scenarios_*.py; each yields (path, scenario)."""
    contents = {}
    for source in sorted((FOLDER / "kit").glob("scenarios_*.py")):
        for path, scenario in importlib.import_module(f"kit.{source.stem}").scenarios():
            if path in contents:
                sys.exit(f"{source.name}: {path} is written twice")
            contents[path] = format_scenario(scenario)
    return contents


def differences(contents):
    for path, content in contents.items():
        file = FOLDER / path
        if not file.is_file():
            yield f"{path}: missing"
        elif file.read_text(encoding="utf-8") != content:
            yield f"{path}: differs from what the kit writes"
    for file in sorted(FOLDER.rglob("*.json")):
        path = file.relative_to(FOLDER).as_posix()
        if path not in contents:
            yield f"{path}: no part of the kit writes it"


def write(contents):
    written = 0
    for path, content in contents.items():
        file = FOLDER / path
        if file.is_file() and file.read_text(encoding="utf-8") == content:
            continue
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(content, encoding="utf-8")
        written += 1
    return written


def main():
    arguments = sys.argv[1:]
    if arguments not in ([], ["--check"]):
        sys.exit(__doc__.strip())
    contents = all_scenarios()
    if not arguments:
        print(f"{len(contents)} scenarios, {write(contents)} written")
        return 0
    found = list(differences(contents))
    for line in found:
        print(line, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
