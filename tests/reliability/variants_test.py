#!/usr/bin/env python3
"""What is played, and what is made of it: the sweep's variants, the meddling's, and the long life's measures."""
import unittest

import failing_ways
import long_life
import meddling
import sweep
from made_up_runs import grok_run, scenario_of


class SweepTest(unittest.TestCase):
    COUNTS = {"a.json": {"SendInput": 2, "IsWindow": 3}, "b.json": {"IUIAutomationElement::FindAll": 1}}

    def test_EveryVariant_IsEachCallInEachWay(self):
        send_ways = len(failing_ways.CALLS["SendInput"].ways)
        self.assertEqual(len(sweep.every_variant(self.COUNTS["a.json"])), 2 * send_ways + 3)
        self.assertEqual(sweep.count_variants(self.COUNTS), 2 * send_ways + 3 + 4)
        self.assertEqual({variant.key for variant in sweep.every_variant(self.COUNTS["b.json"])}, {
            f"IUIAutomationElement::FindAll|1|{way}" for way in ("0x80004005", "0x80040201", "0x80010108", "null")})

    def test_Budget_TakesEachCallAndWayFirst(self):
        variants = sweep.some_variants(self.COUNTS, 10, sweep.random.Random(1))
        faults = [fault for found in variants.values() for one in found for fault in one.faults]
        chosen = {(fault["call"], fault["result"]) for fault in faults}
        self.assertEqual(chosen, {(call, way) for calls in self.COUNTS.values() for call in calls
                                  for way in failing_ways.CALLS[call].ways})

    def test_Results_ReadBackAsTheyWereWritten(self):
        for call_ways in failing_ways.CALLS.values():
            for way in call_ways.ways:
                self.assertEqual(sweep.result_value(sweep.result_text(way)), way)

    def test_Tables_KnowEachCallOnce(self):
        self.assertEqual(failing_ways.CALLS.keys() & failing_ways.UNFAILING.keys(), set())
        self.assertEqual(failing_ways.unknown_calls(["Sleep", "SendInput", "NoSuchCall"]), ["NoSuchCall"])
        self.assertTrue(all(reason for reason in failing_ways.UNFAILING.values()))


class LongLifeTest(unittest.TestCase):
    MEASURES = [{"held": {"hooks": 1}, "openFiles": 3, "residentKb": 8000, "inUseBytes": 2_000_000} for _ in range(5)]
    END = {"exitCode": 0, "live": {"hooks": 0}, "differing": 0, "rounds": 9}

    def grown(self, **more):
        return [*self.MEASURES[:-1], self.MEASURES[-1] | more]

    def test_Growth_IsSeen_WhereverItIs(self):
        self.assertEqual(list(long_life.growth_faults(self.MEASURES, True)), [])
        for more in ({"residentKb": 8600}, {"inUseBytes": 2_020_000}, {"openFiles": 4}, {"held": {"hooks": 2}}):
            self.assertEqual(len(list(long_life.growth_faults(self.grown(**more), True))), 1, more)

    def test_Memory_IsNotJudged_UnderAnInstrument(self):
        self.assertEqual(list(long_life.growth_faults(self.grown(inUseBytes=9_000_000), False)), [])

    def test_End_IsBroken_WhenSomethingIsHeldOrARoundDiffered(self):
        self.assertEqual(list(long_life.end_faults(self.END)), [])
        for change in ({"exitCode": 3}, {"live": {"hooks": 1}}, {"differing": 1}):
            self.assertEqual(len(list(long_life.end_faults(self.END | change))), 1, change)

    def test_FirstRounds_MustSucceed(self):
        reply = {"as": "deliver-grok", "kind": "success", "value": {"success": False}}
        self.assertEqual(len(list(long_life.first_use_faults([{"round": 1, "replies": [reply]}]))), 1)

    def test_Pages_DontGrow(self):
        steps = [action for window in long_life.make_scenario()["desktop"]["windows"] for tab in window.get("tabs", [])
                 for rule in tab.get("rules", []) for action in rule["do"]]
        self.assertTrue(steps)
        self.assertFalse([action for action in steps if "add" in action or "remove" in action])


class MeddlingTest(unittest.TestCase):
    def test_Times_AreTheStepsAndJustBehind(self):
        run = grok_run()
        times = meddling.waiting_times(run.report)
        for step_ms in (0, 260, 261, 500, 501, 700, 800, 1000, 1001, 2000, 5000):
            self.assertIn(step_ms, times)
        self.assertLessEqual(max(b - a for a, b in zip(times, times[1:])), meddling.LONGEST_UNSEEN_MS)

    def test_Action_StandsAsARuleOfItsWindow(self):
        scenario = meddling.with_bystander(scenario_of())
        variant = meddling.make_variant("chat.selectTab1", "chat", 300)
        rules = meddling.apply_meddling(scenario, variant)["desktop"]["windows"][0]["rules"]
        self.assertEqual(rules, [{"on": {"time": 300}, "do": [{"selectTab": "Chat"}]}])
        self.assertEqual(variant.meddling, ((300, "tab"),))

    def test_Actions_TellWhoMovesTheForeground(self):
        actions = meddling.every_action(meddling.with_bystander(scenario_of()))
        kinds = {name: meddling.kind_of(name, where) for name, (where, _) in actions.items()}
        self.assertEqual(kinds["foreground"], "foreground")
        self.assertEqual(kinds["chat.foreground"], "foreground")
        self.assertEqual(kinds["chat.closeWindow"], "foreground")
        self.assertEqual(kinds["chat.minimize"], "foreground")
        self.assertEqual(kinds["clipboardLocked"], "clipboard")
        self.assertEqual(kinds["chat.type:composer"], "tab")


if __name__ == "__main__":
    unittest.main()
