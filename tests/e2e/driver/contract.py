"""The contract suite against the real platform."""
import re

from driver.known_differences import CONTRACT_SKIPPED
from driver.run import RunError

LIST_SECONDS = 30
RUN_SECONDS = 180

PASSED = re.compile(r"^\[  PASSED  \] (\d+) tests?\.", re.MULTILINE)
FAILED_NAME = re.compile(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)$", re.MULTILINE)
FAILED_BODY = re.compile(r"^\[ RUN      \] (\S+)\n(.*?)^\[  FAILED  \] \1 ", re.MULTILINE | re.DOTALL)


def names(listing):
    """Every test of a listing as Suite.Name."""
    found, suite = set(), ""
    for line in listing.splitlines():
        if line.startswith("  "):
            found.add(suite + line.split()[0])
        elif line.endswith("."):
            suite = line
    return found


def check(session, program):
    """How many passed, and what failed: a line or more for each. Says what is left out and why."""
    _, listing = session.run_program([program, "--gtest_list_tests"], LIST_SECONDS)
    unknown = sorted(set(CONTRACT_SKIPPED) - names(listing))
    if unknown:
        raise RunError(f"the contract has no test {unknown[0]} to leave out")
    for name, reason in CONTRACT_SKIPPED.items():
        print(f"skip           contract {name}: {reason}", flush=True)
    exit_code, output = session.run_program([program, f"--gtest_filter=-{':'.join(CONTRACT_SKIPPED)}"], RUN_SECONDS)
    passed = PASSED.search(output)
    failures = [f"{name}\n{body.rstrip()}" for name, body in FAILED_BODY.findall(output)]
    if exit_code is None or passed is None or (exit_code != 0) != bool(FAILED_NAME.search(output)):
        last = output.strip().splitlines()[-1] if output.strip() else "nothing"
        failures.append(f"the suite didn't end (status {exit_code}); its last line: {last}")
    return int(passed.group(1)) if passed else 0, failures
