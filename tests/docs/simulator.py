"""Runs scenarios in orvane-sim, many at once."""
import json
import subprocess
import tempfile
from pathlib import Path

from markdown import DocumentError

TIMEOUT_SECONDS = 300
FILES_AT_ONCE = 400


class Simulator:
    def __init__(self, program):
        self.program = Path(program)
        if not self.program.is_file():
            raise DocumentError(f"{program}: there is no such simulator")

    def run_files(self, files):
        """The report of each file, in their order. What a file expects is held there, by the tests of scenarios."""
        reports = []
        for first in range(0, len(files), FILES_AT_ONCE):
            share = [str(file) for file in files[first : first + FILES_AT_ONCE]]
            ended = subprocess.run(
                [self.program, "--json", *share], capture_output=True, timeout=TIMEOUT_SECONDS, check=False
            )
            lines = ended.stdout.decode("utf-8").splitlines()
            if ended.returncode == 2 or len(lines) != len(share):
                raise DocumentError(f"the simulator refused or lost a run: {ended.stderr.decode('utf-8')[:2000]}")
            reports += [json.loads(line) for line in lines]
        return reports

    def run_scenarios(self, scenarios):
        """The report of each scenario, a dict in the form of a scenario file."""
        with tempfile.TemporaryDirectory(prefix="orvane-docs-") as folder:
            files = []
            for number, scenario in enumerate(scenarios):
                files.append(Path(folder) / f"{number}.json")
                files[-1].write_text(json.dumps(scenario), encoding="utf-8")
            return self.run_files(files)
