#!/usr/bin/env python3
"""How the host's work grows with the world around it: instructions, fitted as a power of the size.

Of each size one run is counted by valgrind's callgrind, from the arrival of the interface's message to the end of its
answer; whose an instruction is, instructions.py says. The figure is the exponent b of a + c·n^b: a is taken away with
the smallest size, n being counted from there, and b is the slope of the least squares line through the logarithms of
the larger sizes, those from a hundredth of the largest on. Counts repeat exactly, so a brief run has smaller sizes and
the same limit. How it is called and what it writes is told in report.py.
"""
import json
import math
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from instructions import Reader  # noqa: E402
from part import option_parser, write_rows  # noqa: E402
from worlds import WORLDS  # noqa: E402

LIMIT = 1.05
FITTED_FROM = 100
CALL = "orvane::BinaryMessengerImpl::forwardMessage*"


class Failure(Exception):
    """A run that came to no count."""


def count_run(folder, command, toggle):
    """The dump with the most instructions: the scenario's own process, or the only one."""
    for old in folder.glob("counted.*"):
        old.unlink()
    options = ["--tool=callgrind", "--compress-pos=no", "--dump-line=no", f"--callgrind-out-file={folder}/counted.%p"]
    if toggle:
        options.append(f"--toggle-collect={toggle}")
    ended = subprocess.run(["valgrind", *options, *command], capture_output=True, text=True, check=False)
    if ended.returncode != 0:
        raise Failure(f"{Path(command[0]).name} ended with {ended.returncode}: {ended.stderr[-500:].strip()}")
    profiles = [one for path in folder.glob("counted.*") for one in Reader().read(path)]
    profile = max(profiles, key=lambda one: sum(one.own.values()), default=None)
    if profile is None or not profile.own:
        raise Failure(f"{Path(command[0]).name}: nothing was counted")
    return profile


def run_size(build, folder, world, size):
    if world.scene is None:
        program = build / "bin" / "orvane-codec-growth"
        return program, count_run(folder, [str(program), str(size)], None)
    program = build / "bin" / "orvane-sim"
    scene = folder / "scene.json"
    made = {key: value for key, value in world.scene(size).items() if key != "expect"}
    scene.write_text(json.dumps(made), encoding="utf-8")
    return program, count_run(folder, [str(program), "--json", str(scene)], CALL)


def fit_exponent(counts):
    """`counts`: size -> instructions."""
    least, largest = min(counts), max(counts)
    points = [(math.log(size - least), math.log(max(count - counts[least], 1))) for size, count in counts.items()
              if size > least and size * FITTED_FROM >= largest]
    mean_x = sum(x for x, _ in points) / len(points)
    mean_y = sum(y for _, y in points) / len(points)
    return sum((x - mean_x) * (y - mean_y) for x, y in points) / sum((x - mean_x) ** 2 for x, _ in points)


def measure(build, is_brief):
    rows = []
    with tempfile.TemporaryDirectory() as folder:
        for world in WORLDS:
            sizes = world.brief_sizes if is_brief else world.sizes
            over = f"over {sizes[0]:,} to {sizes[-1]:,} {world.things}"
            counts = {f"{part} {over}": {} for part in world.parts}
            for size in sizes:
                program, profile = run_size(build, Path(folder), world, size)
                for counted, within in zip(counts.values(), world.parts.values()):
                    counted[size] = profile.host_instructions(str(program), within)
            for name, counted in counts.items():
                print(f"{name}: " + ", ".join(f"{size:,} {count:,}" for size, count in counted.items()),
                      file=sys.stderr, flush=True)
                exponent = round(fit_exponent(counted), 3)
                rows.append({"name": name, "value": exponent, "limit": LIMIT, "unit": "exponent"})
    return rows


def main():
    options = option_parser(__doc__).parse_args()
    write_rows("growth", options, lambda: measure(options.build.resolve(), options.brief), (Failure, OSError, ValueError))


if __name__ == "__main__":
    main()
