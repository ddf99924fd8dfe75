"""The snapshot tool among real windows: what it writes is the page that the program then works on."""
import subprocess
import sys
from pathlib import Path

from driver import processes
from real.stage import RealTest

sys.path.append(str(Path(__file__).resolve().parents[2] / "snapshot"))

from replay import Normal, first_difference, still_scenario, told_secrets, with_steps, words_of_rules  # noqa: E402

TOOL_SECONDS = 30


class Snapshot(RealTest):
    def still(self, name, title):
        """A shipped desktop whose pages don't react, with the tab of this title selected."""
        scenario = still_scenario(self.shipped(f"run/{name}.json"))
        for window in scenario["desktop"]["windows"]:
            tabs = window.get("tabs") or []
            if any(tab["title"] == title for tab in tabs):
                for tab in tabs:
                    tab["selected"] = tab["title"] == title
        return scenario

    def take(self, *options):
        """Runs the tool on the stage that stands; it must leave the stage as it is."""
        written = self.session.folder / "page.json"
        program = self.session.programs.host.with_name("orvane-snapshot.exe")
        before = self.session.windows()
        process = processes.start(
            ["wine", str(program), "--output", processes.windows_path(written), *options],
            env=self.session.environment(), cwd=self.session.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        try:
            told, complaint = process.communicate(timeout=TOOL_SECONDS)
        finally:
            processes.end(process)
        self.assertEqual(self.session.windows(), before)
        self.taken = (process.returncode, told.decode(), complaint.decode())
        if written.is_file():
            kept = self.session.programs.work / "real" / f"{self._testMethodName}.snapshot.json"
            kept.write_bytes(written.read_bytes())
            self.written = kept

    def assert_replays(self, scenario, *options):
        live = self.session.watch(self.file_of(scenario), before=lambda: self.take(*options))
        status, told, complaint = self.taken
        self.assertEqual((status, complaint), (0, ""))
        self.assertIn("Nothing was pressed, typed, selected or sent", told)
        is_private = "--plain" not in options
        replay = self.simulated(with_steps(self.written, scenario))
        normal = [Normal(is_private, has_times=False).report(report) for report in (live, replay)]
        self.assertIsNone(first_difference(*normal))
        return live, told

    def test_private_one_of_claude_replays_to_the_same_verdict(self):
        scenario = self.still("claude", "Lease questions - Claude")
        live, told = self.assert_replays(scenario)
        self.assertFalse(live["replies"][1]["value"]["success"])
        self.assertIn("find Claude's tab", told)
        self.assertEqual([], told_secrets(scenario, self.written, words_of_rules()))

    def test_plain_one_of_deepseek_replays_to_the_same_verdict(self):
        scenario = self.shipped("run/deepseek.json")
        title = next(tab["title"] for window in scenario["desktop"]["windows"] for tab in window.get("tabs", [])
                     if "deepseek" in tab.get("address", ""))
        live, _ = self.assert_replays(self.still("deepseek", title), "--plain", "--provider", "deepseek")
        self.assertTrue(live["replies"][0]["value"]["success"])
        self.assertIn(title, self.written.read_text(encoding="utf-8"))

    def test_wrong_requests_end_in_one_line(self):
        scenario = self.still("claude", "Lease questions - Claude") | {"steps": []}
        outcomes = []

        def ask():
            for options in (["--window", "nothing.exe"], ["--colour"], ["--output", r"Z:\nowhere\page.json"]):
                self.take(*options)
                outcomes.append((self.taken[0], self.taken[2].strip()))

        self.session.watch(self.file_of(scenario), before=ask)
        self.assertEqual(outcomes, [
            (1, "orvane-snapshot: no window of nothing.exe is open"),
            (2, "orvane-snapshot: unknown option --colour (see orvane-snapshot --help)"),
            (2, r"orvane-snapshot: Z:\nowhere\page.json: can't be written"),
        ])
