#!/usr/bin/env python3
"""Makes each call of the platform fail, in every shipped scenario, and holds the host to its promises all the same.

sweep.py [--simulator PATH] [--folder PATH] [--budget N] [--pairs N] [--seed N] [--jobs N] [--by-call]
sweep.py [--simulator PATH] --replay 'FILE|CALL|NTH|RESULT[|CALL|NTH|RESULT…]'

Each scenario runs once for its calls. Then the 1st, 2nd, … n-th call of each operation fails, in each way it can.
A budget thins that, spread over operations and scenarios; pairs are two such faults in one run, chosen by seed.
Exit status: 0 when all promises held, 1 when one was broken, 2 when the sweep itself can't be done.
"""
import collections
import json
import random
import subprocess
import sys
import tempfile
from pathlib import Path

import harness
from failing_ways import CALLS, unknown_calls
from harness import Variant
from promises import Run, broken_promises, has_model_ended, has_script_ended
from runs import load_scenario, run_all, with_faults

# With a budget: so many scenarios take part that each can have about this many faults.
FAULTS_PER_SCENARIO = 10
LEAST_SCENARIOS = 60


def result_text(result):
    return "null" if result is None else str(result)


def result_value(text):
    if text == "null":
        return None
    return text if text.startswith("0x") else int(text)


def make_fault(call, nth, result):
    return {"call": call, "nth": nth, "times": 1, "result": result}


def make_variant(*faults):
    key = "|".join(f"{fault['call']}|{fault['nth']}|{result_text(fault['result'])}" for fault in faults)
    return Variant(key, " + ".join(fault["call"] for fault in faults), tuple(faults))


def unchanged(scenario):
    return scenario


def apply_faults(scenario, variant):
    return with_faults(scenario, variant.faults)


def calls_of(report):
    """How often each call that can fail was made."""
    return {call: count for call, count in json.loads(report)["platformCalls"].items() if call in CALLS}


def every_variant(calls):
    """All single faults of one scenario."""
    return [make_variant(make_fault(call, nth, way)) for call, count in calls.items()
            for nth in range(1, count + 1) for way in CALLS[call].ways]


def count_variants(counts):
    return sum(count * len(CALLS[call].ways) for calls in counts.values() for call, count in calls.items())


def some_variants(counts, budget, chooser):
    """Round after round one fault of each call and way, in a scenario that makes the call."""
    places = collections.defaultdict(list)
    for file, calls in counts.items():
        for call in calls:
            places[call].append(file)
    kinds = [(call, way) for call in sorted(places) for way in CALLS[call].ways]
    left = {(call, way): sum(counts[file][call] for file in places[call]) for call, way in kinds}
    chosen, taken = collections.defaultdict(set), 0
    while taken < budget and kinds:
        chooser.shuffle(kinds)
        for call, way in kinds[:budget - taken]:
            file = chooser.choice(places[call])
            one = (call, chooser.randint(1, counts[file][call]), way)
            taken += one not in chosen[file]
            chosen[file].add(one)
            left[call, way] -= 1
        kinds = [kind for kind in kinds if left[kind] > 0]
    return {file: [make_variant(make_fault(*one)) for one in sorted(ones, key=str)] for file, ones in chosen.items()}


def some_pairs(counts, pairs, chooser):
    chosen, files = collections.defaultdict(list), sorted(counts)
    for _ in range(pairs):
        file = chooser.choice(files)
        faults = []
        for call in chooser.choices(sorted(counts[file]), k=2):
            faults.append(make_fault(call, chooser.randint(1, counts[file][call]), chooser.choice(CALLS[call].ways)))
        chosen[file].append(make_variant(*faults))
    return chosen


def choose_files(files, budget, chooser):
    wanted = max(LEAST_SCENARIOS, budget // FAULTS_PER_SCENARIO)
    return files if wanted >= len(files) else sorted(chooser.sample(files, wanted))


def check_baselines(baselines, files):
    """The promises without any fault."""
    wrong = [f"{file}: didn't run to its end" for file in files if file not in baselines]
    for file, report in baselines.items():
        broken = broken_promises(Run(load_scenario(file), json.loads(report)))
        wrong += [f"{harness.short_name(file)}: {breach.promise}: {breach.detail}" for breach in broken]
    return wrong


def sweep(options):
    chooser = random.Random(options.seed)
    files = harness.scenario_files(options.folder)
    if options.budget is not None:
        files = choose_files(files, options.budget, chooser)
    worker = harness.Worker(options.simulator, unchanged, apply_faults)
    baselines = harness.run_baselines(worker, files, options.jobs)
    unknown = unknown_calls(name for report in baselines.values() for name in json.loads(report)["platformCalls"])
    if unknown:
        print(f"no way to fail is known of: {', '.join(unknown)}", file=sys.stderr)
        return 2
    wrong = check_baselines(baselines, files)
    for line in wrong:
        print(f"BROKEN without a fault: {line}")
    counts = {file: calls_of(report) for file, report in baselines.items()}
    some = None if options.budget is None else some_variants(counts, options.budget, chooser)
    pairs = some_pairs(counts, options.pairs, chooser)
    total = options.pairs + (count_variants(counts) if some is None else sum(map(len, some.values())))
    lists = ((file, (every_variant(calls) if some is None else some.get(file, [])) + pairs.get(file, []))
             for file, calls in counts.items())
    tally = harness.run_variants(worker, lists, baselines, options.jobs, "faults", total)
    if options.by_call:
        for group, count in sorted(tally.runs.items(), key=lambda item: (-item[1], item[0])):
            if " + " not in group:
                print(f"{count:8d} {group}")
    broken = harness.print_broken(tally, "tests/reliability/sweep.py") + len(wrong)
    calls = len({name for group in tally.runs for name in group.split(" + ")})
    print(f"{total} runs with faults in {len(baselines)} scenarios, {options.pairs} of them with two; {calls} calls; "
          f"{tally.script_ended} whose script couldn't go on, {tally.model_ended} that the model couldn't go on with; "
          f"{broken} broken promises")
    print(f"{total - min(broken, total)} passed, {broken} failed")
    return 1 if broken else 0


def replay(options):
    name, *parts = options.replay.split("|")
    faults = [make_fault(parts[i], int(parts[i + 1]), result_value(parts[i + 2])) for i in range(0, len(parts) - 2, 3)]
    scenario = load_scenario(harness.find_file(name))
    return show(options.simulator, scenario, with_faults(scenario, faults), tuple(faults), ())


def show(simulator, scenario, variant, faults, meddling):
    """The person's report of one run, and what it broke."""
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder) / "replay.json"
        file.write_text(json.dumps(variant), encoding="utf-8")
        subprocess.run([str(simulator), str(file)], check=False)
    baseline, outcome = run_all(simulator, [scenario, variant])
    run = Run(variant if meddling else scenario, outcome.report, outcome.failure, faults, meddling, baseline.report)
    print()
    if has_script_ended(run) or has_model_ended(run):
        print("no word about the host: its script or its model couldn't go on")
        return 0
    broken = broken_promises(run)
    for breach in broken:
        print(f"BROKEN {breach.promise}: {breach.detail}")
    print(f"{len(broken)} broken promises")
    return 1 if broken else 0


def read_options():
    parser = harness.option_parser(__doc__, "faults")
    parser.add_argument("--pairs", type=int, default=0, help="runs with two faults")
    parser.add_argument("--by-call", action="store_true", help="print how many faults each call got")
    parser.add_argument("--replay", metavar="FILE|CALL|NTH|RESULT")
    return parser.parse_args()


def main():
    return harness.perform(read_options(), replay, sweep)


if __name__ == "__main__":
    sys.exit(main())
