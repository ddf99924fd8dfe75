#!/usr/bin/env python3
"""What determinism.py must object to, and what it must not."""
import json
import os
import tempfile
import unittest
from pathlib import Path

from determinism import check, complaints

PROMPT = "Grüße an alle"
SCENARIO = {
    "desktop": {"clipboard": {"text": PROMPT}},
    "steps": [
        {"wait": 5},
        {"call": {"channel": "orvane/browser", "method": "pasteAndSubmit"}},
        {"bytes": "00", "channel": "orvane/window"},
    ],
}


def report(**changes):
    whole = {
        "replies": [{"as": "0", "value": {"logs": ["fine"]}}, {"as": "1", "value": PROMPT}],
        "toInterface": [],
        "stderr": [],
        "desktop": {"values": {"chrome/box": PROMPT}, "clipboard": {"text": PROMPT}},
        "live": {"references": 0},
    }
    return {**whole, **changes}


class Complaints(unittest.TestCase):
    def test_none_when_the_prompt_is_only_where_it_belongs(self):
        self.assertEqual(list(complaints(SCENARIO, report())), [])

    def test_one_when_something_is_held(self):
        self.assertEqual(list(complaints(SCENARIO, report(live={"references": 2}))),
                         ["still held at the end: 2 of references"])

    def test_none_when_a_fault_keeps_it_and_the_scenario_says_so(self):
        faulted = {**SCENARIO, "desktop": {"faults": [{"call": "Unhook", "result": False}]},
                   "expect": {"live": {"references": 2}}}
        self.assertEqual(list(complaints(faulted, report(live={"references": 2}))), [])
        self.assertEqual(len(list(complaints(faulted, report(live={"references": 1})))), 1)
        self.assertEqual(len(list(complaints({**faulted, "desktop": {}}, report(live={"references": 2})))), 1)

    def test_one_when_the_prompt_is_in_a_trace(self):
        replies = [{"as": "0", "value": {"logs": [f"Pasted {PROMPT}."]}}, {"as": "1"}]
        self.assertEqual(list(complaints(SCENARIO, report(replies=replies))), ["reply 0 holds the prompt"])

    def test_one_when_the_prompt_is_in_raw_bytes(self):
        replies = [{"as": "0", "replyHex": "0700" + PROMPT.encode().hex() + "ff"}, {"as": "1"}]
        self.assertEqual(list(complaints(SCENARIO, report(replies=replies))), ["reply 0 holds the prompt"])

    def test_one_when_the_prompt_is_on_an_error_line(self):
        self.assertEqual(list(complaints(SCENARIO, report(stderr=[PROMPT]))), ["stderr[0] holds the prompt"])


class Check(unittest.TestCase):
    def check_with(self, simulator_text):
        with tempfile.TemporaryDirectory() as folder:
            simulator = Path(folder, "simulator")
            simulator.write_text("#!/bin/sh\n" + simulator_text)
            os.chmod(simulator, 0o755)
            scenarios = Path(folder, "scenarios")
            scenarios.mkdir()
            (scenarios / "one.json").write_text(json.dumps(SCENARIO))
            Path(folder, "report").write_text(json.dumps(report()) + "\n")
            return check(simulator, scenarios)

    def test_no_complaint_when_both_reports_agree(self):
        self.assertEqual(self.check_with('cat "$(dirname "$0")/report"'), ([], 1))

    def test_complains_when_the_reports_differ(self):
        found, _ = self.check_with('folder=$(dirname "$0"); sed "s/fine/$#/" "$folder/report"')
        self.assertEqual(len(found), 1)
        self.assertIn("the second report differs from byte", found[0])

    def test_complains_when_a_report_is_missing(self):
        self.assertEqual(self.check_with("exit 1")[0], ["1 scenarios gave 0 and 0 reports"])

    def test_ends_when_the_scenario_cannot_be_read(self):
        with self.assertRaisesRegex(SystemExit, "status 2: one.json: bad"):
            self.check_with("echo 'one.json: bad' >&2; exit 2")


if __name__ == "__main__":
    unittest.main()
