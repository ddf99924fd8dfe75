"""The command line."""
import argparse
import json
import subprocess
import sys
import time
from pathlib import Path

from driver import contract, processes, simulation
from driver.compare import differences
from driver.prefix import PrefixError
from driver.run import Programs, RunError, Session
from driver.screen import Screen, ScreenError
from driver.selection import read, why_not
from driver.show import has_succeeded, print_run, with_prompt
from real import suite

ROOT = Path(__file__).resolve().parents[3]
SHIPPED = ROOT / "tests" / "e2e" / "scenarios.txt"
SHOWN_DIFFERENCES = 12
UNUSABLE = 2
# How often a run is played whose times alone differ: the machine may have been busy with something else.
ATTEMPTS = 3
# What a run takes beyond its virtual time, about.
START_SECONDS = 4


def arguments():
    parser = argparse.ArgumentParser(
        prog="python3 tests/e2e", description="Plays scenarios with orvane.exe under Wine, on a display of its own, and "
        "compares each run with the simulation's. Exit status: 0 all agree, 1 some differ, 2 nothing could be played.")
    parser.add_argument("scenarios", nargs="*", type=Path, metavar="SCENARIO", help="scenario files")
    parser.add_argument("--all", action="store_true", help=f"those listed in {SHIPPED.relative_to(ROOT)}")
    parser.add_argument("--contract", action="store_true", help="the contract suite first")
    parser.add_argument("--real", action="store_true", help="the tests of what only the real world shows")
    parser.add_argument("--show", action="store_true", help="print the one scenario's run for a person and compare nothing")
    parser.add_argument("--prompt", metavar="TEXT", help="with --show: text on the clipboard, in place of the scenario's")
    parser.add_argument("--screenshot", type=Path, metavar="FILE", help="leave a picture of the end of the last one")
    parser.add_argument("--html", type=Path, metavar="FILE", help="with --show: leave the run as a page")
    parser.add_argument("--keep", action="store_true", help="leave each run's report in the work folder")
    parser.add_argument("--build", type=Path, default=ROOT / "build", metavar="FOLDER", help="of the builds (build/)")
    parser.add_argument("--work", type=Path, metavar="FOLDER", help="for what runs leave (e2e of the builds)")
    options = parser.parse_args()
    if options.show and (len(options.scenarios) != 1 or options.all or options.contract or options.real):
        parser.error("--show takes one scenario")
    if options.prompt is not None and not options.show:
        parser.error("--prompt goes with --show")
    if options.html is not None and not options.show:
        parser.error("--html goes with --show")
    if not (options.scenarios or options.all or options.contract or options.real):
        parser.error("no scenario is named")
    return options


def say(line):
    print(line, file=sys.stderr, flush=True)


def shipped():
    lines = SHIPPED.read_text(encoding="utf-8").splitlines()
    return [ROOT / "tests" / "scenarios" / line for line in lines if line and not line.startswith("#")]


class Player:
    """Plays files one after another and tells of each in a line."""

    def __init__(self, programs, options):
        self._programs = programs
        self._options = options
        self.passed = self.failed = 0

    def check_contract(self):
        with Session(self._programs, Screen(), say) as session:
            began = time.monotonic()
            passed, failures = contract.check(session, self._programs.standins / "orvane_contract.exe")
        self.passed += passed
        self.failed += len(failures)
        print(f"{'FAIL' if failures else 'ok  '}  {time.monotonic() - began:5.1f} s  contract: {passed} tests", flush=True)
        for failure in failures:
            print("      " + failure.replace("\n", "\n      "), flush=True)

    def look_at_the_real_world(self):
        passed, failed = suite.run(self._programs)
        self.passed += passed
        self.failed += failed

    def play(self, files):
        by_screen = {}
        for file, expected in zip(files, simulation.reports(self._programs.simulator, files)):
            scenario = read(file)
            reason = why_not(scenario, expected)
            if reason is None:
                by_screen.setdefault(Screen.of(scenario.get("desktop", {})), []).append((file, expected))
            else:
                self._tell(file, 0, [f"can't be played: {reason}"])
        for screen, of_screen in by_screen.items():
            with Session(self._programs, screen, say) as session:
                for file, expected in of_screen:
                    self._play_one(session, file, expected)

    def _play_one(self, session, file, expected):
        began = time.monotonic()
        try:
            for _ in range(ATTEMPTS):
                found = self._compare_run(session, file, expected)
                if not found or not all(difference.is_time for difference in found):
                    break
        except RunError as error:
            found = [str(error)]
        self._tell(file, time.monotonic() - began, found)

    def _compare_run(self, session, file, expected):
        came = session.play(file, expected["virtualMs"] / 1000, self._options.screenshot)
        if self._options.keep:
            report = self._programs.work / "reports" / f"{file.stem}.json"
            report.parent.mkdir(parents=True, exist_ok=True)
            report.write_text(json.dumps(came, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")
        return differences(expected, came)

    def _tell(self, file, seconds, found):
        name = file.relative_to(ROOT) if file.is_relative_to(ROOT) else file
        if found:
            self.failed += 1
        else:
            self.passed += 1
        print(f"{'FAIL' if found else 'ok  '}  {seconds:5.1f} s  {name}", flush=True)
        for line in found[:SHOWN_DIFFERENCES]:
            print(f"      {line}", flush=True)
        if len(found) > SHOWN_DIFFERENCES:
            print(f"      … and {len(found) - SHOWN_DIFFERENCES} more", flush=True)


def show(programs, file, options):
    """Plays one scenario for a person: 0 when all that was asked for succeeded."""
    if options.prompt is not None:
        file = with_prompt(file, options.prompt, programs.work / "shown")
    expected = simulation.reports(programs.simulator, [file])[0]
    scenario = read(file)
    reason = why_not(scenario, expected)
    if reason is not None:
        say(f"{file.name} can't be played by the real program: {reason}")
        return UNUSABLE
    with Session(programs, Screen.of(scenario.get("desktop", {})), say) as session:
        say(f"Playing it: about {round(expected['virtualMs'] / 1000) + START_SECONDS} s …")
        came = session.play(file, expected["virtualMs"] / 1000, options.screenshot)
    try:
        print_run(programs.simulator, file, came, options.html)
    except subprocess.CalledProcessError:
        return UNUSABLE
    return 0 if has_succeeded(came) else 1


def check_files(programs, files):
    """One line for the first thing that isn't there; None when all is."""
    needed = (programs.host, programs.simulator, programs.standins / "session.exe",
              programs.standins / "flutter_windows.dll", *files)
    return next((f"{file}: isn't there" for file in needed if not file.is_file()), None)


def perform(programs, files, options):
    if options.show:
        return show(programs, files[0], options)
    player = Player(programs, options)
    if options.contract:
        player.check_contract()
    if files:
        player.play(files)
    if options.real:
        player.look_at_the_real_world()
    print(f"{player.passed} passed, {player.failed} failed")
    return 1 if player.failed else 0


def main():
    options = arguments()
    processes.end_on_signal()
    programs = Programs.of_builds(options.build, options.work)
    files = [file.resolve() for file in (shipped() if options.all else []) + options.scenarios]
    problem = check_files(programs, files)
    if problem is not None:
        say(f"e2e: {problem}")
        return UNUSABLE
    try:
        return perform(programs, files, options)
    except (PrefixError, RunError, ScreenError, simulation.SimulationError) as error:
        say(f"e2e: {error}")
        return UNUSABLE
    except KeyboardInterrupt:
        return 130
