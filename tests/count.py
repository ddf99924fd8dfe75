#!/usr/bin/env python3
"""Prints "PASSED FAILED" of a ctest run: count.py LOG.

A scenario or check counts as one; of a sharded test program each of its tests counts, as its
results file in the build folder tells.
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

OUTCOME = re.compile(r"^\s*\d+/\d+ Test\s+#\d+: (\S+) \.*\s*(Passed|\*\*\*.*)", re.MULTILINE)
PROJECT = re.compile(r"^Test project (.+)$", re.MULTILINE)


def count_program(results):
    """Passed and failed tests of one shard; a shard that left no results has failed as a whole."""
    if not results.is_file():
        return 0, 1
    root = ElementTree.parse(results).getroot()
    failed = int(root.get("failures")) + int(root.get("errors"))
    return int(root.get("tests")) - failed - int(root.get("disabled")), failed


def count(log):
    project = PROJECT.search(log)
    passed = failed = 0
    for name, outcome in OUTCOME.findall(log):
        good, bad = (1, 0) if outcome == "Passed" else (0, 1)
        if re.search(r"\.shard\d+$", name):
            good, seen = count_program(pathlib.Path(project.group(1)) / "test-results" / (name + ".xml"))
            bad = max(bad, seen)
        passed, failed = passed + good, failed + bad
    return (passed, failed) if passed + failed else (0, 1)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__.strip())
    print(*count(pathlib.Path(sys.argv[1]).read_text(errors="replace")))
