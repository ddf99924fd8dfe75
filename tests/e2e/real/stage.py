"""Where the tests play: a session for each scale, in which a run can be watched while it lasts."""
import contextlib
import json
import subprocess
import sys
import unittest
from pathlib import Path

from driver import processes
from driver.compare import differences
from driver.run import RunError, Session
from driver.screen import Screen
from driver.simulation import reports
from real.pixels import Picture

SCENARIOS = Path(__file__).resolve().parents[2] / "scenarios"
SCREENS = {
    96: Screen(),
    144: Screen(2880, 1800, (0, 0, 2880, 1760), 144),
}
# Long enough for all waits of a scenario of these tests, activation and delivery among them.
RUN_SECONDS = 40


class WatchedSession(Session):
    """Runs with hands on them: before the host starts, while it runs, and when its last step is done."""

    def __init__(self, programs, screen, say):
        super().__init__(programs, screen, say)
        self._more = {}
        self._before = self._meanwhile = None
        self._host = None

    def environment(self, **more):
        return super().environment(**more) | self._more

    @property
    def programs(self):
        return self._programs

    @property
    def display(self):
        return self._display.name

    @property
    def folder(self):
        """Where the programs of the present run lie."""
        return self._folder

    @property
    def host_process(self):
        """The number of the present run's host as this machine counts processes."""
        return self._host.pid

    def handles_of_host(self):
        """How many handles the host has open; -1 when that can't be told."""
        window = next((window for window in self.windows() if window["name"] == "main"), None)
        if window is None:
            return -1
        self._keeper.stdin.write(f"handles {window['process']}\n".encode())
        self._keeper.stdin.flush()
        return int(self._keeper.stdout.readline())

    def watch(self, file, *, before=None, meanwhile=None, at_end=None, environment=None, seconds=RUN_SECONDS):
        """The report of one run. Each hand is a function without parameters; `meanwhile` is called again and
        again until it returns something; the host waits a while for what `at_end` does."""
        self._more = environment or {}
        self._before, self._meanwhile = before, meanwhile
        try:
            return self._play(file.resolve(), seconds, at_end)
        finally:
            self._more, self._before, self._meanwhile = {}, None, None

    def windows(self):
        """What stands on the desktop, the uppermost window first, as another program sees it."""
        self._keeper.stdin.write(b"windows\n")
        self._keeper.stdin.flush()
        return json.loads(self._keeper.stdout.readline())

    def picture(self):
        return Picture.of(self.display, self._screen)

    def icon_sizes(self, title):
        """The sizes of a window's icons as the display shows them to all programs, the smallest first."""
        told = subprocess.run(["xprop", "-display", self.display, "-name", title, "-notype", "32c", "_NET_WM_ICON"],
                              check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE).stdout.decode()
        words = [int(word) for word in told.partition("=")[2].split(",") if word.strip()]
        sizes = []
        # Width, height, and that many pixels, one icon behind the other.
        while words:
            width, height = words[:2]
            sizes.append((width, height))
            words = words[2 + width * height:]
        return sorted(sizes)

    def start_beside(self, command, errors, **environment):
        """Starts another program of the run; it is ended with the run's others."""
        process = processes.start(["wine", *map(str, command)], env=self.environment(**environment), cwd=self._folder,
                                  stdout=subprocess.DEVNULL, stderr=errors)
        self._started.append(process)
        return process

    def _start_host(self, arguments, environment, error_file):
        if self._before is not None:
            self._before()
        self._host = super()._start_host(arguments, environment, error_file)
        return self._host

    def _see_through(self, host, signal, deadline, at_end):
        awaited = [] if at_end is None else [at_end]
        super()._see_through(host, signal, deadline, None if at_end is None else lambda: awaited.pop()())
        if awaited:
            raise RunError("the host ended before its last step was done")

    def _look_on(self):
        if self._meanwhile is not None and self._meanwhile() is not None:
            self._meanwhile = None


class Stage:
    """Opens a session when a test first needs its scale, and the one of another scale no longer."""

    def __init__(self, programs):
        self.programs = programs
        self._session = None
        self._dpi = None

    def session(self, dpi):
        if self._dpi != dpi:
            self.close()
            session = WatchedSession(self.programs, SCREENS[dpi], lambda line: print(line, file=sys.stderr, flush=True))
            self._session = session.__enter__()
            self._dpi = dpi
        return self._session

    def close(self):
        if self._session is not None:
            self._session.__exit__()
        self._session = self._dpi = None


_stages = []


@contextlib.contextmanager
def opened(programs):
    """The stage of all tests that run inside; whatever was started ends with it."""
    stage = Stage(programs)
    _stages.append(stage)
    try:
        yield
    finally:
        _stages.remove(stage)
        stage.close()


class RealTest(unittest.TestCase):
    """A test that plays scenarios of its own."""

    dpi = 96
    maxDiff = 2000

    def setUp(self):
        self.session = _stages[-1].session(self.dpi)

    def file_of(self, scenario, name=None):
        """Writes a scenario to where a run can read it."""
        file = self.session.programs.work / "real" / f"{name or self._testMethodName}.json"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(json.dumps({"name": self._testMethodName} | scenario, ensure_ascii=False), encoding="utf-8")
        return file

    def run_scenario(self, scenario, **hands):
        report = self.session.watch(self.file_of(scenario), **hands)
        self.assertNotIn("problem", report)
        self.assertEqual(report["exitCode"], 0)
        return report

    def simulated(self, file):
        return reports(self.session.programs.simulator, [file])[0]

    def assert_agrees_with_simulation(self, file, report):
        found = differences(self.simulated(file), report)
        self.assertEqual([], [str(difference) for difference in found if not difference.is_time])

    def shipped(self, name):
        """One of the scenarios of the repository."""
        return json.loads((SCENARIOS / name).read_text(encoding="utf-8"))


def window_call(method, arguments=None, **more):
    call = {"channel": "orvane/window", "method": method}
    return {"call": call if arguments is None else call | {"arguments": arguments}, **more}
