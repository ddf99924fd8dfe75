#!/usr/bin/env python3
"""A run as a page, as far as no browser is needed: page_test.py ORVANE_SIM."""
import json
import os
import re
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "e2e"))

import pages  # noqa: E402
from driver.show import print_run  # noqa: E402

SIMULATOR = Path(sys.argv.pop(1)).resolve() if len(sys.argv) > 1 else None


class PageTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.page = self.folder / "run.html"

    def make(self, scenario, *options, status=0):
        """The page's text."""
        result = pages.make(SIMULATOR, self.page, scenario, *options)
        self.assertEqual(result.returncode, status, result.stderr)
        return self.page.read_text(encoding="utf-8")

    def scenario(self, content, name="own.json"):
        file = self.folder / name
        file.write_text(content if isinstance(content, str) else json.dumps(content), encoding="utf-8")
        return file

    def refuse(self, *arguments, status=2):
        """The one line that says why."""
        result = pages.run(SIMULATOR, *arguments)
        self.assertEqual(result.returncode, status, result.stderr)
        self.assertRegex(result.stderr, r"\A[^\n]+\n\Z")
        return result.stderr.rstrip("\n")


class Content(PageTest):
    def test_data_is_the_report_and_the_scenario(self):
        for scenario in (pages.DELIVERED, pages.MENUS):
            with self.subTest(scenario.stem):
                result = pages.make(SIMULATOR, self.page, scenario, "--json")
                data = pages.data_of(self.page)
                self.assertEqual(data["report"], json.loads(result.stdout))
                self.assertEqual(data["scenario"], json.loads(scenario.read_text(encoding="utf-8")))
                self.assertEqual((data["file"], data["unmet"]), (scenario.name, []))

    def test_output_is_the_same_as_without_a_page(self):
        with_page = pages.make(SIMULATOR, self.page, pages.DELIVERED)
        without = pages.run(SIMULATOR, pages.DELIVERED)
        self.assertEqual((with_page.stdout, with_page.stderr), (without.stdout, without.stderr))

    def test_page_is_the_same_each_time(self):
        self.assertEqual(self.make(pages.MANY_WINDOWS), self.make(pages.MANY_WINDOWS))

    def test_page_names_no_resource_and_forbids_requests(self):
        shell = pages.DATA.sub("", self.make(pages.DELIVERED))
        policy = re.search(r'http-equiv="Content-Security-Policy" content="([^"]*)"', shell).group(1)
        self.assertIn("default-src 'none'", policy)
        self.assertNotRegex(policy, r"https?:|data:|\*")
        # The one address is a name: that of the drawings' namespace.
        self.assertEqual(re.findall(r"\w+://[^'\"\s]*", shell), ["http://www.w3.org/2000/svg"])
        self.assertNotRegex(shell, r"<(link|img|iframe|object|embed|base)\b|\bsrc\s*=|@import|url\(|innerHTML|document\.write|eval\(")
        self.assertEqual(re.findall(r'href="(?!#)', shell), [])

    def test_record_tells_of_waits_questions_and_both_scenes(self):
        self.make(pages.DELIVERED)
        data = pages.data_of(self.page)
        record, report = data["record"], data["report"]
        self.assertEqual(len(record["replies"]), len(report["replies"]))
        for index, reply in enumerate(report["replies"]):
            own = [wait for wait in record["waits"] if wait["reply"] == index and wait["thread"] == 0]
            self.assertEqual(sum(wait["endMs"] - wait["ms"] for wait in own), reply["endMs"] - reply["startMs"])
        counted = {}
        for call in record["calls"]:
            counted[call["call"]] = counted.get(call["call"], 0) + call["count"]
        for name in ("SendInput", "IUIAutomationElement::FindAll", "IUIAutomationInvokePattern::Invoke"):
            self.assertEqual(counted[name], report["platformCalls"][name], name)
        self.assertEqual((record["before"]["foreground"], record["after"]["foreground"]), ("terminal", "chat"))
        self.assertEqual([window["id"] for window in record["after"]["windows"]], report["desktop"]["zOrder"])
        self.assertEqual(record["after"]["focus"], report["desktop"]["focus"])

    def test_hostile_texts_stay_data(self):
        hostile = pages.hostile_scenario()
        page = self.make(self.scenario(hostile), status=1)
        self.assertEqual(len(re.findall(r"<script", page, re.IGNORECASE)), 2)
        self.assertEqual(len(re.findall(r"</script", page, re.IGNORECASE)), 2)
        for sign in ("<!--", "\u2028", "\u2029", "onerror=hostile=1>"):
            self.assertNotIn(sign, page)
        data = pages.data_of(self.page)
        self.assertEqual(data["scenario"], hostile)
        self.assertEqual(data["report"]["name"], pages.HOSTILE)

    def test_prompt_stands_in_place_of_the_scenarios_text(self):
        self.make(pages.DELIVERED, "--prompt", "Is this so?")
        data = pages.data_of(self.page)
        self.assertEqual(data["scenario"]["desktop"]["clipboard"], {"text": "Is this so?"})
        self.assertEqual(data["report"]["desktop"]["values"]["chat/lastMessage"], "Is this so?")

    def test_unmet_expectations_are_told(self):
        scenario = self.scenario({"expect": {"exitCode": 7}})
        result = pages.make(SIMULATOR, self.page, scenario)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(pages.data_of(self.page)["unmet"], ["exitCode: expected 7, came 0"])

    def test_kept_report_makes_a_page_without_a_record(self):
        kept = self.scenario(pages.run(SIMULATOR, "--json", pages.DELIVERED).stdout, "kept.json")
        self.make(pages.DELIVERED, "--report", str(kept))
        data = pages.data_of(self.page)
        self.assertEqual(data["report"], json.loads(kept.read_text(encoding="utf-8")))
        self.assertIsNone(data["record"])


    def test_run_of_the_real_program_makes_a_page(self):
        report = pages.as_real(json.loads(pages.run(SIMULATOR, "--json", pages.DELIVERED).stdout))
        for key in ("virtualMs", "painted"):
            del report[key]
        with open(os.devnull, "w", encoding="utf-8") as nowhere:
            kept, own = os.dup(1), nowhere.fileno()
            os.dup2(own, 1)
            try:
                print_run(SIMULATOR, pages.DELIVERED, report, self.page)
            finally:
                os.dup2(kept, 1)
                os.close(kept)
        data = pages.data_of(self.page)
        self.assertEqual(data["report"], report | {"painted": [], "virtualMs": report["realMs"]})
        self.assertIsNone(data["record"])


class Refusals(PageTest):
    def test_place_that_cant_be_written(self):
        place = self.folder / "none" / "run.html"
        self.assertEqual(self.refuse("--html", place, pages.DELIVERED), f"{place}: No such file or directory")
        self.assertEqual(self.refuse("--html", self.folder, pages.DELIVERED), f"{self.folder}: Is a directory")
        self.assertEqual(self.refuse("--html", "", pages.DELIVERED), ": No such file or directory")

    def test_nothing_runs_where_the_page_cant_be_written(self):
        self.assertEqual(pages.make(SIMULATOR, self.folder, pages.DELIVERED).stdout, "")

    @unittest.skipUnless(os.path.exists("/dev/full"), "this system has no /dev/full")
    def test_page_that_doesnt_fit(self):
        self.assertEqual(self.refuse("--html", "/dev/full", pages.DELIVERED), "/dev/full: No space left on device")

    def test_file_that_isnt_there(self):
        self.assertEqual(self.refuse("--html", self.page, self.folder / "none.json"),
                         f"{self.folder}/none.json: No such file or directory")
        self.assertFalse(self.page.exists())

    def test_several_files(self):
        self.assertEqual(self.refuse("--html", self.page, pages.DELIVERED, pages.MENUS), "--html: goes with one scenario file")

    def test_options_that_arent_there_or_lack_their_word_are_told_in_one_line(self):
        for words, named in ((("--nope",), "--nope"), (("--nope", pages.DELIVERED), "--nope"), (("--html",), "--html"),
                             ((pages.DELIVERED, "--jobs", "many"), "--jobs"), ((), "no scenario file")):
            with self.subTest(words):
                self.assertRegex(self.refuse(*words), f"^orvane-sim: .*{named}.*see orvane-sim --help")

    def test_list(self):
        self.assertEqual(self.refuse("--html", self.page, "--list", pages.DELIVERED), "--html: doesn't go with --list")

    def test_report_that_is_none(self):
        none = self.scenario([], "none.json")
        self.refuse("--html", self.page, "--report", none, pages.DELIVERED)
        self.assertFalse(self.page.exists())

    def test_run_without_a_report_leaves_what_was_there(self):
        stopped = self.scenario({"steps": [{"post": {"window": "main", "message": 0x112, "wParam": 0xF010}}]})
        self.refuse("--html", self.page, stopped, status=1)
        self.assertFalse(self.page.exists())
        self.page.write_text("of another day", encoding="utf-8")
        self.refuse("--html", self.page, stopped, status=1)
        self.assertEqual(self.page.read_text(encoding="utf-8"), "of another day")


if __name__ == "__main__":
    if SIMULATOR is None:
        sys.exit("usage: page_test.py ORVANE_SIM")
    unittest.main()
