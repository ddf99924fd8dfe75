#!/usr/bin/env python3
"""Holds the host's calls of the platform to the numbers that each route demands: none too many, none too few.

platform_calls_test.py SIMULATOR [TITLE…]: runs each route's scenes, or those whose title has one of the texts in it,
each once with its calls and once with its waits alone. The difference of the two must be what the route demands, for
every operation, whether the route names it or not.
"""
import json
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "scenarios"))

from routes import SECTIONS  # noqa: E402

SCENES_AT_A_TIME = 200


def without_calls(made):
    """Calls take no virtual time that anything here would notice."""
    quiet = [step for step in made["steps"] if "call" not in step]
    return {**made, "steps": quiet}


def scenes_of(titles):
    for _, routes in SECTIONS:
        for route in routes:
            if titles and not any(title in route.title for title in titles):
                continue
            for at, sizes in enumerate(route.sizes):
                family = route.families[at % len(route.families)]
                yield route, sizes, family, route.scene(sizes, family)


def reports_of(simulator, folder, scenes):
    """Of each scene the report with its calls and the one without."""
    paths = []
    for at, (_, _, _, made) in enumerate(scenes):
        for kind, one in (("full", made), ("quiet", without_calls(made))):
            path = folder / f"{at}-{kind}.json"
            path.write_text(json.dumps({key: value for key, value in one.items() if key != "expect"}))
            paths.append(str(path))
    ended = subprocess.run([simulator, "--json", *paths], capture_output=True, text=True, check=False)
    if ended.returncode != 0:
        sys.exit(f"the simulator ended with status {ended.returncode}: {ended.stderr[:2000]}")
    reports = [json.loads(line) for line in ended.stdout.splitlines()]
    return zip(reports[::2], reports[1::2])


def differences(full, quiet, demanded):
    made = {name: count - quiet["platformCalls"].get(name, 0) for name, count in full["platformCalls"].items()}
    wrong = []
    for name in sorted({**made, **demanded}):
        if made.get(name, 0) != demanded.get(name, 0):
            wrong.append(f"{name}: demanded {demanded.get(name, 0)}, made {made.get(name, 0)}")
    return wrong


def main(simulator, titles):
    scenes = list(scenes_of(titles))
    if not scenes:
        sys.exit("no route has such a title")
    failed = numbers = 0
    with tempfile.TemporaryDirectory() as folder:
        for begin in range(0, len(scenes), SCENES_AT_A_TIME):
            some = scenes[begin:begin + SCENES_AT_A_TIME]
            for (route, sizes, family, _), (full, quiet) in zip(some, reports_of(simulator, Path(folder), some)):
                demanded = route.demanded.values(sizes)
                numbers += len(demanded)
                wrong = differences(full, quiet, demanded)
                if wrong:
                    failed += 1
                    print(f"{route.title}, {sizes}, {family}:", *wrong, sep="\n  ")
    print(f"{len(scenes)} scenes, {numbers} numbers, {failed} scenes with other numbers")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit("usage: platform_calls_test.py SIMULATOR [TITLE…]")
    sys.exit(main(sys.argv[1], sys.argv[2:]))
