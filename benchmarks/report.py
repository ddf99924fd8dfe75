#!/usr/bin/env python3
"""Runs parts of the benchmark, prints one table of what they measured and writes it as JSON.

Each part is a folder with a program of its own:

  measure.py --build FOLDER --out FILE [--brief]

It measures with what was built in FOLDER and writes {"rows": [ROW...]} to FILE. A ROW has

  name   what was measured, unlike any other row's of the part
  value  the figure
  limit  what it is to be at most; null where it is shown for comparison only
  unit   "times" for a ratio of two times, else what is counted: "count", "bytes", "instructions"…

and where a limit can't be reached, for a reason that docs/performance.md gives,

  accepted  what it may be instead: the row is shown as missed, and only beyond this it fails

Both sides of a ratio are measured in the same run. --brief is for the tests: seconds, and for times
with room for noise. A part that can't measure says why on its error stream and ends with a status
other than 0; a broken limit is no such failure, it is found here.
"""
import argparse
import json
import subprocess
import sys
import tempfile
from pathlib import Path

BENCH = Path(__file__).resolve().parent
# What a brief run of a loaded machine may add to a ratio of times. Counts have no noise.
ROOM_FOR_NOISE = 1.5
HEADINGS = ("name", "measured", "limit", "verdict")


def find_parts():
    return sorted(program.parent.name for program in BENCH.glob("*/measure.py"))


def measure(part, options):
    """The rows of one part, or None when it failed."""
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder) / "rows.json"
        command = [sys.executable, str(BENCH / part / "measure.py"), "--build", str(options.build), "--out", str(file)]
        if options.brief:
            command.append("--brief")
        if subprocess.run(command, check=False).returncode != 0 or not file.is_file():
            return None
        return json.loads(file.read_text(encoding="utf-8"))["rows"]


def judge(row, is_brief):
    """"ok", "missed", "OVER", or "" for a row without a limit."""
    if row["limit"] is None:
        return ""
    room = ROOM_FOR_NOISE if is_brief and row["unit"] == "times" else 1.0
    if row["value"] <= row["limit"] * room:
        return "ok"
    return "missed" if row["value"] <= row.get("accepted", row["limit"]) * room else "OVER"


def write_figure(figure, unit):
    if figure is None:
        return "-"
    return f"{figure:.2f}" if unit == "times" else f"{figure:,.6g}" if isinstance(figure, float) else f"{figure:,}"


def print_table(report):
    lines = [HEADINGS]
    for part, rows in report["parts"].items():
        for row in rows:
            unit = "x" if row["unit"] == "times" else "" if row["unit"] == "count" else f" {row['unit']}"
            lines.append((f"{part}: {row['name']}", write_figure(row["value"], row["unit"]) + unit,
                          write_figure(row["limit"], row["unit"]), row["verdict"]))
    widths = [max(len(line[column]) for line in lines) for column in range(len(HEADINGS))]
    for name, value, limit, verdict in lines:
        print(f"{name:<{widths[0]}}  {value:>{widths[1]}}  {limit:>{widths[2]}}  {verdict}".rstrip())


def main():
    parser = argparse.ArgumentParser(description="Measures, and judges what was measured by its limits.")
    parser.add_argument("--build", type=Path, required=True, help="the folder that was built")
    parser.add_argument("--out", type=Path, help="where the table is written as JSON")
    parser.add_argument("--brief", action="store_true", help="in seconds, with room for noise")
    parser.add_argument("parts", nargs="*", help="the parts to run; all when none is said")
    options = parser.parse_args()
    unknown = sorted(set(options.parts) - set(find_parts()))
    if unknown:
        parser.error(f"unknown part {unknown[0]}; there are: {' '.join(find_parts())}")

    report = {"brief": options.brief, "parts": {}}
    failed = []
    for part in options.parts or find_parts():
        rows = measure(part, options)
        if rows is None:
            failed.append(part)
            continue
        report["parts"][part] = [{**row, "verdict": judge(row, options.brief)} for row in rows]
    rows = [row for part in report["parts"].values() for row in part]
    over, missed, held = (sum(row["verdict"] == verdict for row in rows) for verdict in ("OVER", "missed", "ok"))
    if rows:
        print_table(report)
    if options.out:
        options.out.parent.mkdir(parents=True, exist_ok=True)
        options.out.write_text(json.dumps(report, indent=2) + "\n", encoding="utf-8")
    for part in failed:
        print(f"{part}: could not be measured", file=sys.stderr)
    print(f"{held} limits held, {missed} missed as known, {over} broken")
    return 0 if over == 0 and held > 0 and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
