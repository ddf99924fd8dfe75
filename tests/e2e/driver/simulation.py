"""The simulation's reports, kept in one run of orvane-sim."""
import json
import subprocess


class SimulationError(Exception):
    """orvane-sim couldn't play a file; the text says why."""


def reports(simulator, files):
    """One report for each file. `expect` isn't looked at: that is the simulation's own test."""
    result = subprocess.run([str(simulator), "--json", *map(str, files)], capture_output=True, check=False)
    lines = result.stdout.splitlines()
    if result.returncode not in (0, 1) or len(lines) != len(files):
        raise SimulationError(result.stderr.decode(errors="replace").strip() or "orvane-sim ended without reports")
    return [json.loads(line) for line in lines]
