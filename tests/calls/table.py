#!/usr/bin/env python3
"""Writes the table of docs/platform-calls.md from the routes; --check says whether it stands there as it must."""
import difflib
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "scenarios"))

from routes import SECTIONS  # noqa: E402

TABLE = Path(__file__).resolve().parent.parent.parent / "docs" / "platform-calls.md"

OPENING = """# Platform calls

How often each route calls each operation of the platform: no call more, and none fewer. The formulas say what the order
of a route's steps demands, reads that serve the trace alone among them. They are put together in `tests/calls`, step by
step, from what each step has to find out; this page is written from them by `tests/calls/table.py`, and the test
`calls.exact` holds the host to them over ranges of sizes. What isn't in a route's table isn't called by it.

A number is what the route adds to a run that only waits as long. It includes the channel's part of taking a message and
answering it (`FlutterDesktopMessenger…`, six calls), and for a successful activation the thread that follows it.

Some operations follow from others everywhere. A string that the platform hands out costs one `SysStringLen` and one
`SysFreeString`. A text that isn't empty costs two calls of `MultiByteToWideChar` on its way in and two of
`WideCharToMultiByte` on its way into a trace or a reply: its size, and its bytes. A condition holds one VARIANT, and so
does a property that is read: one `VariantInit`, one `VariantClear`.
"""

SIZES = {
    "Activation": {
        "w": "browser windows", "t": "tabs in each of them, every one with a name, an id, a class and a framework",
        "o": "other programs' windows; the host's own comes to them",
        "e": "fields of each page in front besides the address bar, none of them a composer",
        "c": "windows that show ChatGPT", "k": "looks at the address until it proves the page, 1 to 25",
        "p": "passes until the window is in front, 1 to 3", "n": "attempts until the tab is selected, 1 to 3",
    },
    "Delivery": {
        "e": "fields of the page that are no composer, besides its own search field",
        "b": "buttons ahead of the page's own six", "a": "buttons behind them, Send being the last of the six",
        "f": "files to be removed, 0 to 10", "x": "other elements", "t": "tabs of the window",
        "k": "looks until the evidence is there", "r": "checks until the composer has been ready three times, 3 to 14",
        "n": "deliveries", "h": "hosts tried until one fits", "s": "scans until the composer is found, 1 to 8",
        "v": "checks until the pasted text is there, 1 to 10", "p": "words that a title may hold, besides the name",
    },
    "Window channel and small calls": {
        "m": "menu entries with label and shortcut", "c": "1 when an entry is chosen, 0 when the menu is dismissed",
        "s": "suggestions, 0 to 7", "o": "other programs' windows",
    },
}

def rows_of(route):
    """(formula, operations with this number of calls): single numbers first, then what grows."""
    groups = {}
    for name, count in sorted(route.demanded.counts.items()):
        if count.terms:
            groups.setdefault(str(count), []).append(f"`{name}`")
    return sorted(groups.items(), key=lambda group: (len(group[0]), group[0]))


def table():
    written = OPENING
    for section, routes in SECTIONS:
        written += f"\n## {section}\n\n| size | stands for |\n|---|---|\n"
        written += "".join(f"| {name} | {meaning} |\n" for name, meaning in SIZES[section].items())
        for route in routes:
            written += f"\n### {route.title}\n\n| calls | of |\n|---|---|\n"
            written += "".join(f"| {formula} | {', '.join(names)} |\n" for formula, names in rows_of(route))
    return written


def main(arguments):
    if arguments not in ([], ["--check"]):
        sys.exit("usage: table.py [--check]")
    if not arguments:
        TABLE.write_text(table(), encoding="utf-8")
        return 0
    stands = TABLE.read_text(encoding="utf-8") if TABLE.is_file() else ""
    wanted = table()
    changed = list(difflib.unified_diff(stands.splitlines(), wanted.splitlines(), TABLE.name, "routes", lineterm=""))
    if changed:
        print(*changed[:40], "docs/platform-calls.md differs; tests/calls/table.py writes it", sep="\n")
    return 1 if changed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
