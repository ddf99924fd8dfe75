"""All tests of this folder, one after another, on displays that are shared by those of one scale."""
import argparse
import importlib
import sys
import time
import unittest
from pathlib import Path

from driver import processes
from driver.prefix import PrefixError
from driver.run import Programs, RunError
from driver.screen import ScreenError
from real import stage
from real.left_out import LEFT_OUT

ROOT = Path(__file__).resolve().parents[3]
UNUSABLE = 2


class TellingResult(unittest.TestResult):
    """A line for each test, as the driver tells of a scenario."""

    def startTest(self, test):
        super().startTest(test)
        self._began = time.monotonic()

    def addSuccess(self, test):
        self._tell("ok  ", test)

    def addError(self, test, err):
        if err[0] is SystemExit:
            # The signal that ends all of it is no test's failure.
            raise err[1]
        super().addError(test, err)
        self._tell("FAIL", test, f"{err[0].__name__}: {err[1]}")

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._tell("FAIL", test, str(err[1]))

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err is not None:
            self._tell("FAIL", subtest, str(err[1]))

    def _tell(self, word, test, why=""):
        seconds = time.monotonic() - getattr(self, "_began", time.monotonic())
        print(f"{word}  {seconds:5.1f} s  real: {test.id().removeprefix('real.')}", flush=True)
        for line in why.splitlines():
            print(f"      {line}", flush=True)


def tests_of(names):
    modules = [importlib.import_module(f"real.{file.stem}") for file in sorted(Path(__file__).parent.glob("test_*.py"))]
    suite = unittest.TestSuite(unittest.defaultTestLoader.loadTestsFromModule(module) for module in modules)
    return [test for test in flattened(suite) if not names or any(name in test.id() for name in names)]


def flattened(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from flattened(test)
        else:
            yield test


def run(programs, names=()):
    """How many passed and failed."""
    result = TellingResult()
    tests = tests_of(names)
    # One scale after the other: a display and a prefix for each.
    tests.sort(key=lambda test: getattr(test, "dpi", 96))
    for what, reason in LEFT_OUT.items():
        print(f"skip           real: {what}: {reason}", flush=True)
    with stage.opened(programs):
        for test in tests:
            test.run(result)
    failed = {test.id().split(" ")[0] for test, _ in result.errors + result.failures}
    return result.testsRun - len(failed), len(failed)


def main():
    parser = argparse.ArgumentParser(prog="python3 tests/e2e/real", description=__doc__)
    parser.add_argument("names", nargs="*", metavar="NAME", help="a part of the names of the tests to run; all without one")
    parser.add_argument("--build", type=Path, default=ROOT / "build", metavar="FOLDER", help="of the builds (build/)")
    parser.add_argument("--work", type=Path, metavar="FOLDER", help="for what runs leave (e2e of the builds)")
    options = parser.parse_args()
    processes.end_on_signal()
    programs = Programs.of_builds(options.build, options.work)
    try:
        passed, failed = run(programs, options.names)
    except (PrefixError, RunError, ScreenError) as error:
        print(f"e2e: {error}", file=sys.stderr)
        return UNUSABLE
    except KeyboardInterrupt:
        return 130
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or passed == 0 else 0
