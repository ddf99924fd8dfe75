#!/usr/bin/env python3
"""What the comparison of the two worlds lets pass, and what it doesn't."""
import copy
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from driver.compare import differences  # noqa: E402
from driver.contract import names  # noqa: E402
from driver.run import groups_of  # noqa: E402
from driver.screen import Screen, ScreenError  # noqa: E402
from driver.selection import why_not  # noqa: E402
from driver.show import has_succeeded  # noqa: E402


def step(name, result):
    return {"step": name, "result": result}


def report():
    """A run of one activation, as the simulation tells of it."""
    logs = [step("Top-level windows", "5"), step("X-Ray window", "hwnd=0x10126; pid=71008; title=\"a\""),
            step("X-Ray tabs", "hwnd=0x10148; tabItems=2"), step("Timing activation total", "440 ms"),
            step("Paste Settle", "PASS: waited 500 ms before Enter")]
    value = {"success": True, "windowHandle": {"$int64": 0x10126}, "logs": logs}
    return {
        "name": "one", "exitCode": 0, "virtualMs": 440,
        "replies": [{"as": "0", "method": "activateProvider", "kind": "success", "value": value, "error": None,
                     "replyHex": "00", "startMs": 0, "endMs": 440, "stepMs": [0]}],
        "input": [{"ms": 3, "window": "chat", "element": "box", "vk": 17, "up": False, "batch": 1},
                  {"ms": 3, "window": "main", "element": None, "vk": 17, "up": True, "batch": 1}],
        "shell": [], "engine": {"size": [1, 2]}, "stderr": [],
        "desktop": {"foreground": "chat", "zOrder": ["main", "backdrop", "chat"], "windows": {"main": {"style": 0xC00000}},
                    "clipboard": {"text": "t", "sequence": 4}},
        "platformCalls": {"IUIAutomation::GetFocusedElement": 10}, "live": {"comReferences": 0},
    }


def real(change=None):
    """The same run on another day's desktop; `change` makes it differ."""
    came = copy.deepcopy(report())
    value = came["replies"][0]["value"]
    value["windowHandle"]["$int64"] = 0x90
    value["logs"][0]["result"] = "9"
    value["logs"][1]["result"] = "hwnd=0x90; pid=268; title=\"a\""
    value["logs"][2]["result"] = "hwnd=0x9a; tabItems=2"
    value["logs"][3]["result"] = "612 ms"
    came["replies"][0].update(startMs=7, endMs=619, replyHex="01")
    came["input"] = [{"ms": 9, "window": "chat", "element": "box", "vk": 17, "up": False}]
    came["desktop"]["zOrder"] = ["backdrop", "main", "chat"]
    came["desktop"]["clipboard"] = {"text": "t"}
    came["live"] = {"automation": 0}
    came["realMs"] = 700
    for key in ("platformCalls", "shell", "virtualMs"):
        del came[key]
    if change is not None:
        change(came, value)
    return came


class Comparison(unittest.TestCase):
    def found(self, change):
        return [difference.line for difference in differences(report(), real(change))]

    def assert_one(self, change, path):
        found = self.found(change)
        self.assertEqual(len(found), 1, found)
        self.assertTrue(found[0].startswith(path), found)

    def test_lets_handles_processes_and_times_differ(self):
        self.assertEqual(self.found(None), [])

    def test_holds_each_handle_to_one_window(self):
        self.assert_one(lambda came, value: value["logs"][2].update(result="hwnd=0x90; tabItems=2"),
                        "replies.0.value.logs.2 (X-Ray tabs)")
        self.assert_one(lambda came, value: value["windowHandle"].update({"$int64": 0x91}),
                        "replies.0.value.logs.1 (X-Ray window)")

    def test_names_the_step_that_is_one_too_many(self):
        found = self.found(lambda came, value: value["logs"].insert(1, step("More", "x")))
        self.assertEqual(found[0], 'replies.0.value.logs.1: the simulation "X-Ray window: hwnd=0x10126; pid=71008; '
                                   'title=\\"a\\"", came "More: x"')

    def test_holds_results_and_end_state(self):
        self.assert_one(lambda came, value: value.update(success=False), "replies.0.value.success")
        self.assert_one(lambda came, value: came["desktop"].update(foreground="main"), "desktop.foreground")
        self.assert_one(lambda came, value: came.update(exitCode=3), "exitCode")
        self.assertEqual(len(self.found(lambda came, value: came["desktop"].update(zOrder=["chat", "main"]))), 2)
        self.assertEqual(len(self.found(lambda came, value: came.update(stderr=["a line"]))), 2)

    def test_holds_times_as_times(self):
        slow = differences(report(), real(lambda came, value: came["replies"][0].update(endMs=900)))
        self.assertEqual([difference.is_time for difference in slow], [True])
        fast = differences(report(), real(lambda came, value: value["logs"][3].update(result="300 ms")))
        self.assertEqual([difference.is_time for difference in fast], [True])
        fixed = differences(report(), real(lambda came, value: value["logs"][4].update(
            result="PASS: waited 510 ms before Enter")))
        self.assertEqual([difference.is_time for difference in fixed], [False])

    def test_holds_keys_but_those_of_the_host(self):
        self.assert_one(lambda came, value: came["input"][0].update(vk=18), "input.0.vk")

    def test_holds_the_bytes_of_a_reply_without_made_up_values(self):
        expected, came = report(), real()
        for one in (expected, came):
            one["replies"][0]["value"] = True
        self.assertEqual([difference.line.split(":")[0] for difference in differences(expected, came)],
                         ["replies.0.replyHex"])

    def test_tells_what_is_still_held(self):
        self.assert_one(lambda came, value: came["live"].update(automation=2), "live.automation")

    def test_tells_one_and_true_apart(self):
        self.assert_one(lambda came, value: value.update(success=1), "replies.0.value.success")


class Selection(unittest.TestCase):
    def test_takes_a_plain_scenario(self):
        self.assertIsNone(why_not({"desktop": {"windows": [{"id": "chat", "process": "chrome.exe"}]}}, report()))

    def test_says_what_keeps_one_out(self):
        for desktop in ({"faults": [{"call": "SendInput"}]}, {"windows": [{"id": "a", "pid": 7}]}, {"foreground": None},
                        {"windows": [{"id": "a", "foregroundRequests": "refused"}]}, {"monitors": [{}, {}]},
                        {"monitors": [{"bounds": [0, 0, 800, 600], "dpi": 120}]}):
            self.assertIsNotNone(why_not({"desktop": desktop}, report()), desktop)


class Parts(unittest.TestCase):
    def test_groups_are_processes_in_the_order_of_their_first_windows(self):
        windows = [{"process": "a.exe"}, {"process": "b.exe"}, {"process": "a.exe"}, {"process": "a.exe", "pid": 5}, {}]
        self.assertEqual(groups_of(windows), ["a.exe", "b.exe", "a.exe", "program.exe"])

    def test_screen_is_that_of_the_only_monitor(self):
        self.assertEqual(Screen.of({}), Screen(1920, 1080, (0, 0, 1920, 1040), 96))
        self.assertEqual(Screen.of({"monitors": [{"bounds": [0, 0, 800, 600]}]}), Screen(800, 600, (0, 0, 800, 600), 96))
        with self.assertRaises(ScreenError):
            Screen.of({"monitors": [{"bounds": [10, 0, 800, 600]}]})

    def test_listing_gives_whole_names(self):
        self.assertEqual(names("Menus.\n  Opens\n  Shuts\nInput.\n  Goes\n"), {"Menus.Opens", "Menus.Shuts", "Input.Goes"})

    def test_success_is_that_of_every_reply(self):
        self.assertTrue(has_succeeded(report()))
        failed = report()
        failed["replies"][0]["value"]["success"] = False
        self.assertFalse(has_succeeded(failed))


if __name__ == "__main__":
    unittest.main()
