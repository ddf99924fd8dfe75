"""Plays scenarios one after another in one session: a display, a prefix, a desktop."""
import dataclasses
import json
import selectors
import shutil
import subprocess
import time
from pathlib import Path

from driver import processes
from driver.prefix import Prefix
from driver.screen import Display

LIBRARIES = ("dwmapi", "flutter_windows", "desktop_drop_plugin", "url_launcher_windows_plugin", "webview_windows_plugin")
BROWSERS_SECONDS = 25
# What a run may take beyond its virtual time: the start of its processes, and a machine that is busy.
EXTRA_SECONDS = 30
POLL_SECONDS = 0.02


class RunError(Exception):
    """A scenario that couldn't be played; the text says why."""


@dataclasses.dataclass(frozen=True)
class Programs:
    """What is played: the host, the folder of its stand-ins, the simulation, and a folder for what a run leaves."""

    host: Path
    standins: Path
    simulator: Path
    work: Path

    @classmethod
    def of_builds(cls, builds, work=None):
        """Those of a folder of builds; what runs leave goes to its e2e where nobody says another folder."""
        builds = builds.resolve()
        return cls(host=builds / "windows" / "bin" / "orvane.exe", standins=builds / "standins" / "bin",
                   simulator=builds / "native" / "bin" / "orvane-sim", work=(work or builds / "e2e").resolve())


def groups_of(windows):
    """The image names of the processes that own a scenario's windows, in the order of their first windows."""
    processes_seen = {}
    for window in windows:
        image = window.get("process", "program.exe")
        key = ("pid", window["pid"]) if window.get("pid") is not None else ("image", image)
        processes_seen.setdefault(key, image)
    return list(processes_seen.values())


class Session:
    """As a context: everything that was started ends with it, after a failure and an interrupt too."""

    def __init__(self, programs, screen, say):
        self._programs = programs
        self._screen = screen
        self._say = say
        self._display = Display(screen)
        self._prefix = Prefix(programs.work, screen.dpi, programs.standins)
        self._folder = programs.work / f"run-{screen.dpi}"
        self._keeper = None
        self._started = []

    def __enter__(self):
        self._display.__enter__()
        try:
            self._prefix.hold(self._display.name, self._say)
            self._keeper = processes.start(["wine", str(self._programs.standins / "session.exe")], env=self.environment(),
                                           stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self._end_started()
        if self._keeper is not None:
            processes.end(self._keeper)
        self._prefix.release(self._display.name)
        self._display.__exit__()

    def environment(self, **more):
        return self._prefix.environment(self._display.name) | more

    def play(self, file, seconds, picture=None):
        """The report of one scenario. `seconds`: its virtual time. `picture`: where to leave a picture of its end."""
        return self._play(Path(file).resolve(), seconds,
                          None if picture is None else lambda: self._display.take_picture(picture))

    def run_program(self, command, seconds):
        """Runs a Windows program to its end: exit code, null when it had to be ended, and output."""
        log = self._programs.work / f"{Path(command[0]).stem}.log"
        with open(log, "wb") as output:
            process = processes.start(["wine", *map(str, command)], env=self.environment(), stdout=output,
                                      stderr=subprocess.STDOUT)
            self._started.append(process)
            try:
                process.wait(seconds)
                exit_code = process.returncode
            except subprocess.TimeoutExpired:
                exit_code = None
            finally:
                self._end_started()
        return exit_code, log.read_bytes().decode(errors="replace").replace("\r\n", "\n")

    def _play(self, file, seconds, at_end):
        """`at_end`: a function without parameters, for which the host waits behind its last step; or nothing."""
        scenario = json.loads(file.read_text(encoding="utf-8"))
        try:
            return self._play_scenario(file, scenario, seconds, at_end)
        finally:
            self._end_started()

    def _play_scenario(self, file, scenario, seconds, at_end):
        images = groups_of(scenario.get("desktop", {}).get("windows", []))
        self._lay_out(images)
        files = {name: self._folder / name for name in ("report.json", "signal", "stderr.txt")}
        environment = self.environment(ORVANE_SCENARIO=processes.windows_path(file),
                                       ORVANE_REPORT=processes.windows_path(files["report.json"]))
        if at_end is not None:
            environment |= {"ORVANE_HOLD": "1", "ORVANE_SIGNAL": processes.windows_path(files["signal"])}
        self._set_scene(file)
        browsers = [self._start_browser(image, number, environment) for number, image in enumerate(images)]
        self._await_browsers(browsers)
        host = self._start_host(scenario.get("arguments", []), environment, files["stderr.txt"])
        self._see_through(host, files["signal"], time.monotonic() + seconds * 1.1 + EXTRA_SECONDS, at_end)
        self._await_end(browsers)
        return self._read_report(files, host.returncode)

    def _lay_out(self, images):
        shutil.rmtree(self._folder, ignore_errors=True)
        self._folder.mkdir(parents=True)
        shutil.copyfile(self._programs.host, self._folder / "orvane.exe")
        for name in LIBRARIES:
            shutil.copyfile(self._programs.standins / f"{name}.dll", self._folder / f"{name}.dll")
        # Copies: Wine takes two links of one file for one program.
        for image in {image.lower(): image for image in images}.values():
            shutil.copyfile(self._programs.standins / "browser.exe", self._folder / image)

    def _set_scene(self, file):
        self._keeper.stdin.write(f"scene {processes.windows_path(file)}\n".encode())
        self._keeper.stdin.flush()
        answer = self._keeper.stdout.readline().decode(errors="replace").strip()
        if answer != "ready":
            raise RunError(f"the clipboard couldn't be set: {answer or 'the session has ended'}")

    def _start_browser(self, image, number, environment):
        # Two spellings of one name share a file.
        name = next(entry for entry in self._folder.iterdir() if entry.name.lower() == image.lower())
        process = processes.start(["wine", str(name), "--group", str(number)], env=environment, cwd=self._folder,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self._started.append(process)
        return process

    @staticmethod
    def _await_browsers(browsers):
        """Each says when its windows stand."""
        deadline = time.monotonic() + BROWSERS_SECONDS
        with selectors.DefaultSelector() as selector:
            for browser in browsers:
                selector.register(browser.stdout, selectors.EVENT_READ, browser)
            while selector.get_map():
                ready = selector.select(max(0, deadline - time.monotonic()))
                if not ready:
                    raise RunError("a window of the scenario didn't open")
                for key, _ in ready:
                    line = key.fileobj.readline().decode(errors="replace").strip()
                    if line != "ready":
                        raise RunError(line or "a browser ended before its windows stood")
                    selector.unregister(key.fileobj)

    def _start_host(self, arguments, environment, error_file):
        with open(error_file, "wb") as errors:
            host = processes.start(["wine", str(self._folder / "orvane.exe"), *arguments], env=environment,
                                   cwd=self._folder, stdout=subprocess.DEVNULL, stderr=errors)
        self._started.append(host)
        return host

    def _see_through(self, host, signal, deadline, at_end):
        """Waits until the host has ended. `signal` is the file that it leaves when it waits for `at_end`."""
        while host.poll() is None:
            self._look_on()
            if at_end is not None and signal.is_file():
                at_end()
                at_end = None
                signal.unlink(missing_ok=True)
            if time.monotonic() > deadline:
                raise RunError("the host didn't end in time")
            time.sleep(POLL_SECONDS)

    def _look_on(self):
        """Is called again and again while the host runs."""

    @staticmethod
    def _await_end(browsers):
        """They were told to end by the interface; the others are ended with what was started."""
        deadline = time.monotonic() + processes.END_SECONDS
        while any(browser.poll() is None for browser in browsers) and time.monotonic() < deadline:
            time.sleep(POLL_SECONDS)

    @staticmethod
    def _read_report(files, exit_code):
        lines = files["stderr.txt"].read_bytes().decode("utf-8", "replace").replace("\r\n", "\n").split("\n")
        if not files["report.json"].is_file():
            said = "; ".join(line for line in lines if line)
            raise RunError(f"the host ended with {exit_code} and left no report" + (f": {said}" if said else ""))
        report = json.loads(files["report.json"].read_text(encoding="utf-8"))
        report["exitCode"] = exit_code
        report["stderr"] = lines[:-1] if lines[-1] == "" else lines
        return report

    def _end_started(self):
        for process in self._started:
            processes.end(process)
            if process.stdout is not None:
                process.stdout.close()
        self._started.clear()
