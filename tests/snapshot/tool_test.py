#!/usr/bin/env python3
"""The tool in front of small simulated desktops: tool_test.py SIMULATED_SNAPSHOT ORVANE_SIM"""
import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM, SIMULATOR = sys.argv[1:3]

NAMES = ['quote " and \\ back', "tab\tand line\r\n\u0001", "😀 größer 房租", ""]


def browser(**more):
    return {"id": "b", "process": "Chrome.EXE", "bounds": [0, 0, 1200, 800], "tabs": [
        {"title": "Plan - Claude", "address": "https://claude.ai/new", "selected": True, "page": [
            {"id": "composer", "type": "edit", "name": "Write your prompt", "value": "my draft",
             "bounds": [300, 640, 1100, 700]},
            {"id": "secret", "type": "edit", "name": "PIN", "value": "1234", "password": True},
            *({"type": "text", "name": name} for name in NAMES)]},
        {"title": "Mail"}]} | more


class Tool(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.folder = Path(self._folder.name)

    def take(self, *options, windows=None, output="page.json", **desktop):
        """What the tool's run came to, and the scenario that it wrote."""
        scenario, report, written = self.folder / "live.json", self.folder / "report.json", self.folder / (output or "none")
        windows = [browser()] if windows is None else windows
        scenario.write_text(json.dumps({"desktop": {"windows": windows} | desktop}), encoding="utf-8")
        subprocess.run([PROGRAM, scenario, report, *options, *(["-o", written] if output else [])], check=True)
        text = written.read_text(encoding="utf-8") if written.is_file() else None
        return json.loads(report.read_text(encoding="utf-8")), text and json.loads(text)

    def assert_refused(self, status, line, report):
        self.assertEqual((report["exitStatus"], report["complaint"]), (status, f"orvane-snapshot: {line}\n"))
        self.assertEqual(report["told"], "")

    def test_texts_of_every_kind_are_written_as_they_are_when_asked_for(self):
        report, scenario = self.take("--plain")
        self.assertEqual(report["exitStatus"], 0)
        page = scenario["desktop"]["windows"][0]["tabs"][0]["page"]
        self.assertEqual([each.get("name", "") for each in page[2:]], NAMES)
        self.assertIn("as private as the pages", report["told"])

    def test_texts_of_every_kind_keep_their_length(self):
        _, scenario = self.take()
        window = scenario["desktop"]["windows"][0]
        page = window["tabs"][0]["page"]
        units = [len(each.get("name", "").encode("utf-16-le")) for each in page[2:]]
        self.assertEqual(units, [len(name.encode("utf-16-le")) for name in NAMES])
        self.assertRegex(window["tabs"][0]["title"], "^[xzj]{4} - Claude$")
        self.assertRegex(window["tabs"][1]["title"], "^[xzj]{4}$")

    def test_a_password_is_not_even_read(self):
        report, scenario = self.take("--plain")
        secret = scenario["desktop"]["windows"][0]["tabs"][0]["page"][1]
        self.assertTrue(secret["password"])
        self.assertNotIn("value", secret)
        self.assertNotIn("1234", json.dumps(scenario))
        self.assertEqual(report["calls"].get("IUIAutomationValuePattern::SetValue", 0), 0)

    def test_a_draft_keeps_its_length_alone(self):
        _, scenario = self.take()
        self.assertEqual(scenario["desktop"]["windows"][0]["tabs"][0]["page"][0]["value"], "xx xxxxx")

    def test_steps_are_those_of_the_page_that_is_shown(self):
        _, scenario = self.take()
        arguments = [step["call"]["arguments"] for step in scenario["steps"]]
        self.assertEqual([(each["name"], each["patterns"]) for each in arguments], [("Claude", ["claude"])] * 2)
        self.assertEqual(arguments[0]["domain"], "claude.ai")

    def test_steps_are_those_of_the_provider_that_is_named(self):
        _, scenario = self.take("--provider", "PERPLEXITY")
        self.assertEqual(scenario["steps"][0]["call"]["arguments"]["name"], "Perplexity")

    def test_without_a_providers_page_there_are_no_steps(self):
        mail = browser(tabs=[{"title": "Mail", "address": "https://mail.example/", "selected": True}])
        report, scenario = self.take(windows=[mail])
        self.assertEqual(scenario["steps"], [])
        self.assertIn("name one with --provider", report["told"])

    def test_windows_of_other_programs_are_taken_only_when_named(self):
        windows = [{"id": "n", "process": "notes.exe", "title": "Notes", "elements": [{"type": "edit", "value": ""}]}, browser()]
        self.assertEqual([window["process"] for window in self.take(windows=windows)[1]["desktop"]["windows"]],
                         ["chrome.exe"])
        _, scenario = self.take("--window", "Notes.exe", windows=windows)
        self.assertEqual([window["process"] for window in scenario["desktop"]["windows"]], ["notes.exe"])
        self.assertEqual(scenario["desktop"]["windows"][0]["elements"][0]["type"], "edit")

    def test_a_window_without_automation_says_so(self):
        report, scenario = self.take(windows=[browser(uia=False)])
        self.assertFalse(scenario["desktop"]["windows"][0]["uia"])
        self.assertIn("shows nothing to UI Automation", report["told"])

    def test_the_window_in_front_stays_in_front(self):
        self.assertEqual(self.take(foreground="b")[1]["desktop"]["foreground"], "window1")
        self.assertNotIn("foreground", self.take(foreground=None)[1]["desktop"])

    def test_what_is_written_runs(self):
        for options in ([], ["--plain"]):
            self.take(*options)
            done = subprocess.run([SIMULATOR, self.folder / "page.json"], check=False, capture_output=True)
            self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_a_delay_passes_first(self):
        self.assertEqual(self.take("--delay", "7")[0]["virtualMs"], 7000)

    def test_wrong_requests_end_with_status_2(self):
        for options, line in (
                (["--colour"], "unknown option --colour (see orvane-snapshot --help)"),
                (["page.json"], "unknown option page.json (see orvane-snapshot --help)"),
                (["--window"], "--window needs a value"),
                (["--window", ""], "--window needs a value"),
                (["--delay", "61"], "--delay takes whole seconds, 0 to 60"),
                (["--delay", "-1"], "--delay takes whole seconds, 0 to 60"),
                (["--delay", "1s"], "--delay takes whole seconds, 0 to 60"),
                (["--provider", "Nobody"], 'unknown provider "Nobody"; known: ChatGPT, Claude, Gemini, Perplexity, '
                                           "DeepSeek, Grok, Qwen, Doubao"),
                ([], "where to? Name a file with --output")):
            with self.subTest(options=options):
                report, scenario = self.take(*options, output=None)
                self.assert_refused(2, line, report)
                self.assertIsNone(scenario)
                self.assertNotIn("EnumWindows", report["calls"])

    def test_a_file_that_cannot_be_written_ends_with_status_2(self):
        report, _ = self.take(output="nowhere/page.json")
        self.assert_refused(2, f"{self.folder}/nowhere/page.json: can't be written", report)

    def test_without_a_window_it_ends_with_status_1(self):
        report, scenario = self.take("--window", "vivaldi.exe", "--window", "brave.exe")
        self.assert_refused(1, "no window of vivaldi.exe, brave.exe is open", report)
        self.assertIsNone(scenario)

    def test_without_automation_it_ends_with_status_1(self):
        report, scenario = self.take(faults=[{"call": "CoCreateInstance", "result": "0x80040154"}])
        self.assert_refused(1, "UI Automation is unavailable", report)
        self.assertIsNone(scenario)

    def test_calls_that_fail_leave_nothing_held(self):
        for call in ("IUIAutomation::ElementFromHandle", "IUIAutomation::CreateTrueCondition", "IUIAutomationElement::FindAll",
                     "IUIAutomationElementArray::GetElement", "IUIAutomationElement::GetCurrentPatternAs",
                     "IUIAutomationElement::get_CurrentName", "IUIAutomationElement::get_CurrentBoundingRectangle",
                     "IUIAutomationValuePattern::get_CurrentValue", "OpenProcess", "GetWindowRect"):
            with self.subTest(call=call):
                report, _ = self.take(faults=[{"call": call, "times": 1000, "result": "0x80004005"}
                                              if "IUI" in call else {"call": call, "times": 1000, "result": 0}])
                self.assertIn(report["exitStatus"], (0, 1))
                self.assertEqual([kind for kind, count in report["held"].items() if count], [])

    def test_help_and_version_need_no_file(self):
        self.assertTrue(self.take("--help", output=None)[0]["told"].startswith("Usage: orvane-snapshot"))
        self.assertRegex(self.take("--version", output=None)[0]["told"], r"^orvane-snapshot \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
