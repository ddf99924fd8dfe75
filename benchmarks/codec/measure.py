#!/usr/bin/env python3
"""The codec's speed: times as ratios to a peer's, to a copy of the tree and to a copy of the bytes,
and what it allocates. How it is called and what it writes is told in report.py."""
import json
import statistics
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from part import option_parser, write_rows  # noqa: E402

PAYLOADS = {
    "A": "a reply of 60 steps",
    "B": "a reply of 5,000 steps",
    "C": "the arguments of a call",
    "D": "a reply of 8 MiB",
    "E": "a reply of geometry",
    "F": "100,000 integers",
}
PEERS = {"msgpack": "msgpack-cxx", "msgpack-buffer": "msgpack-cxx into its own buffer", "cbor": "nlohmann CBOR",
         "flexbuffers": "FlexBuffers"}
ENCODE_LIMIT = 0.8
DECODE_LIMIT = 0.75
TREE_LIMIT = 1.25
# Of the payload that is a list of bytes and little else.
BYTES_PAYLOAD = "D"
BYTES_LIMIT = 1.3
ENCODE_ALLOCATIONS = 2
# What a copy doesn't do for a tree that is little but maps, and a decoder must: put keys in order.
ACCEPTED_TREE = {"C": 1.75, "E": 2.0}
# Both sides are one copy of 8 MiB.
ACCEPTED_DECODE = {"D": BYTES_LIMIT}


class Failure(Exception):
    """The benchmark didn't run to its end."""


def run_benchmark(build, is_brief):
    """Name -> (the median of the CPU times in ns, allocations)."""
    program = build / "bin" / "orvane-codec-benchmark"
    if not program.is_file():
        raise Failure(f"{program} hasn't been built")
    options = ["--benchmark_format=json", "--benchmark_enable_random_interleaving=true"]
    if is_brief:
        options += ["--benchmark_repetitions=5", "--benchmark_min_time=0.01",
                    "--benchmark_filter=orvane|msgpack|copy"]
    else:
        options += ["--benchmark_repetitions=11", "--benchmark_min_time=0.02"]
    result = subprocess.run([str(program), *options], capture_output=True, text=True, check=False)
    if result.returncode != 0:
        raise Failure(result.stderr.strip() or f"{program.name} ended with {result.returncode}")
    times = {}
    allocations = {}
    for entry in json.loads(result.stdout)["benchmarks"]:
        if entry["run_type"] == "iteration":
            times.setdefault(entry["run_name"], []).append(entry["cpu_time"])
            allocations[entry["run_name"]] = int(entry["allocations"])
    return {name: (statistics.median(values), allocations[name]) for name, values in times.items()}


def make_rows(measured):
    def ratio(name, other):
        return measured[name][0] / measured[other][0]

    rows = []

    def add(name, value, limit, unit="times", accepted=None):
        row = {"name": name, "value": round(value, 3), "limit": limit, "unit": unit}
        rows.append(row if accepted is None else {**row, "accepted": accepted})

    for payload, title in PAYLOADS.items():
        encode, decode = f"{payload}/encode", f"{payload}/decode"
        tree, memory = f"{payload}/copy/tree", f"{payload}/copy/bytes"
        head = f"{payload} ({title})"
        for peer, name in PEERS.items():
            if f"{encode}/{peer}" in measured:
                limit = ENCODE_LIMIT if peer == "msgpack" else None
                add(f"{head}: encoding / {name}", ratio(f"{encode}/orvane", f"{encode}/{peer}"), limit)
        limit = BYTES_LIMIT if payload == BYTES_PAYLOAD else None
        add(f"{head}: encoding / copy of the bytes", ratio(f"{encode}/orvane", memory), limit)
        for peer, name in PEERS.items():
            if f"{decode}/{peer}" in measured:
                limit, accepted = (DECODE_LIMIT, ACCEPTED_DECODE.get(payload)) if peer == "msgpack" else (None, None)
                value = ratio(f"{decode}/orvane", f"{decode}/{peer}")
                add(f"{head}: decoding / {name}", value, limit, accepted=accepted)
        value = ratio(f"{decode}/orvane", tree)
        add(f"{head}: decoding / copy of the tree", value, TREE_LIMIT, accepted=ACCEPTED_TREE.get(payload))
        inserted = f"{payload}/copy/inserted"
        add(f"{head}: decoding / the tree built key by key", ratio(f"{decode}/orvane", inserted), None)
        if payload == BYTES_PAYLOAD:
            add(f"{head}: decoding / copy of the bytes", ratio(f"{decode}/orvane", memory), BYTES_LIMIT)
        add(f"{head}: allocations of encoding", measured[f"{encode}/orvane"][1], ENCODE_ALLOCATIONS, "count")
        # A copy of the tree allocates what the tree needs.
        add(f"{head}: allocations of decoding", measured[f"{decode}/orvane"][1], measured[tree][1], "count")
    return rows


def measure(options):
    measured = run_benchmark(options.build, options.brief)
    if options.times:
        for name, (nanoseconds, allocations) in sorted(measured.items()):
            print(f"{name:<24}{nanoseconds:>14,.0f} ns{allocations:>8} allocations")
    return make_rows(measured)


def main():
    parser = option_parser(__doc__)
    parser.add_argument("--times", action="store_true", help="print the times themselves, in ns")
    options = parser.parse_args()
    write_rows("codec", options, lambda: measure(options), Failure)


if __name__ == "__main__":
    main()
