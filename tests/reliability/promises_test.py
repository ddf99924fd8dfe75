#!/usr/bin/env python3
"""The checker itself: each promise holds for a clean run, and is seen when it is broken."""
import copy
import unittest

import chords
import meddling
import sweep
from made_up_runs import (CLAUDE_REFUSED, CLEAN_LIVE, DELIVERY_KEYS, ENDED_BADLY, ENDED_WELL, ENTER_SENT, HANDLE, PROMPT,
                          activation_run, delivery_steps, grok_run, key_events, x_ray)
from promises import CHECKS, broken_promises, has_model_ended, has_script_ended
from traces import EXPERIMENTAL_PASS, EXPERIMENTAL_STOP, UNVERIFIED


class PromisesTest(unittest.TestCase):
    def assertHolds(self, run):
        self.assertEqual(broken_promises(run), [])

    def assertBreaks(self, promise, run):
        self.assertIn(promise, CHECKS)
        self.assertIn(promise, [breach.promise for breach in broken_promises(run)])

    def changed(self, run, change):
        report = copy.deepcopy(run.report)
        change(report)
        return run._replace(report=report)

    def test_CleanRuns_BreakNothing(self):
        self.assertHolds(grok_run())
        self.assertHolds(activation_run(CLAUDE_REFUSED))

    def test_Exit_IsBroken_WhenTheRunHasNoReport(self):
        for failure in ("the run ended by a signal: Aborted", "the run ended as it hung",
                        "the run ended with status 1:\nERROR: AddressSanitizer: heap-use-after-free",
                        "the run ended as the simulation stopped it: simulation: SendInput: an unknown flag"):
            self.assertBreaks("ends by its own exit", grok_run()._replace(report=None, failure=failure))

    def test_Exit_IsNotTheHosts_WhenTheScriptOrTheFaultItselfStopsTheModel(self):
        stopped = grok_run()._replace(report=None, failure='the run ended as the simulation stopped it: simulation: '
                                      'scenario: a step acts on the window "chat", which isn\'t there')
        self.assertTrue(has_script_ended(stopped))
        locked = stopped._replace(
            failure="the run ended as the simulation stopped it: simulation: CloseClipboard: a block is still locked")
        self.assertFalse(has_model_ended(locked))
        self.assertTrue(has_model_ended(locked._replace(faults=(sweep.make_fault("GlobalUnlock", 1, 0),))))

    def test_Exit_IsBroken_WhenItsCodeIsStrange(self):
        self.assertBreaks("ends by its own exit", self.changed(grok_run(), lambda r: r.update(exitCode=7)))
        self.assertBreaks("ends by its own exit", self.changed(grok_run(), lambda r: r.update(exitCode=1)))

    def test_Replies_AreMissed_WhenOneIsNoneOrTwice(self):
        none = self.changed(grok_run(), lambda r: r["replies"][0].update(kind="none"))
        self.assertBreaks("one reply to each call", none)
        twice = self.changed(grok_run(), lambda r: r["replies"].append(copy.deepcopy(r["replies"][0])))
        self.assertBreaks("one reply to each call", twice)

    def test_Replies_AreMissed_WhenTheHostEndsInTheMiddle(self):
        run = grok_run()
        early = self.changed(run, lambda r: r["replies"].clear())._replace(baseline=run.report)
        self.assertBreaks("one reply to each call", early)
        excused = early._replace(faults=(sweep.make_fault("CreateWindowExW", 1, None),))
        self.assertNotIn("one reply to each call", [breach.promise for breach in broken_promises(excused)])

    def test_Time_IsBroken_WhenACallIsTooLong(self):
        self.assertBreaks("no call goes on for ever",
                          self.changed(grok_run(), lambda r: r["replies"][0].update(endMs=40_000)))

    def test_LastStep_IsBroken_WhenItDoesntSayWhy(self):
        promise = "the last step names the place of the stop"
        self.assertBreaks(promise, grok_run(delivery_steps(ENTER_SENT), success=False, message=UNVERIFIED))
        self.assertBreaks(promise, grok_run(success=False))
        self.assertBreaks(promise, grok_run(delivery_steps(), success=False, message="Paste failed"))
        self.assertBreaks(promise, grok_run([], (), False, EXPERIMENTAL_STOP))
        self.assertBreaks(promise, grok_run([("Focus Input", "FAIL: other words", 0)], (), False, "No window"))
        self.assertHolds(grok_run([("Focus Input", "FAIL: No window", 0)], (), False, "No window"))
        self.assertBreaks(promise, activation_run(CLAUDE_REFUSED[:-1]))
        self.assertBreaks(promise, activation_run([("Result", "Activation failed", 1), CLAUDE_REFUSED[-1]]))
        self.assertBreaks(promise, activation_run(CLAUDE_REFUSED, success=True, selected=1))

    def test_LastStep_IsAskedFor_OnTheBrowsersChannelAlone(self):
        run = self.changed(grok_run([], (), False, "No window"), lambda r: r["replies"][0]["value"].pop("message"))
        self.assertNotEqual(broken_promises(run), [])
        run.scenario["steps"][0]["call"]["channel"] = "orvane/window"
        self.assertHolds(run)

    def test_Send_IsBroken_WhenThereAreTwo(self):
        promise = "one send, and none after it"
        two = delivery_steps(ENTER_SENT, ENTER_SENT, *ENDED_WELL)
        self.assertBreaks(promise, grok_run(two, (*DELIVERY_KEYS, *key_events(chords.ENTER, 1000))))
        button = ("ChatGPT Send Button", "PASS: invoked exact send button Send for ChatGPT", 900)
        self.assertBreaks(promise, grok_run(delivery_steps(button, ENTER_SENT, *ENDED_WELL), invoked={"chat/send": 1}))

    def test_Send_IsBroken_WhenThePageSawMoreThanTheTraceTells(self):
        self.assertBreaks("one send, and none after it", grok_run(invoked={"chat/send": 1}))

    def test_Send_IsBroken_WhenASuccessHasNone(self):
        self.assertBreaks("one send, and none after it", grok_run(delivery_steps(*ENDED_WELL), DELIVERY_KEYS[:8]))

    def test_Retry_IsBroken_WhenItsConditionsAreNot(self):
        retry = [("Claude Send Button", "PASS: invoked exact send button Send for Claude", 900),
                 ("Claude Delivery Verification", "RETRY: prompt remains in composer after first Send", 1000),
                 ("Claude Responding State", "INFO: none", 1000), ("Claude Retry Readiness", "PASS: stable", 1500),
                 ("Claude Send Retry", "PASS: invoked exact send button Send for Claude", 1500)]

        def run(steps):
            steps = delivery_steps(*steps, *ENDED_WELL)
            steps[1] = ("Dispatch Context", f"Provider=Claude; foreground HWND={HANDLE}; expected HWND=0", 260)
            return grok_run(steps, DELIVERY_KEYS[:8], invoked={"chat/send": 2})

        self.assertHolds(run(retry))
        for index in (1, 2, 3):
            self.assertBreaks("one send, and none after it", run(retry[:index] + retry[index + 1:]))
        self.assertBreaks("one send, and none after it", run([*retry, retry[-1]]))

    def experimental_run(self, shown, keys=None):
        steps = [*delivery_steps()[:2], ("Experimental Focus", "PASS: exact editable composer focused", 300),
                 ("Experimental Paste", "KEY SENT: awaiting exact text verification", 300),
                 ("Experimental Paste Verification", "PASS: exact clipboard text matched; content omitted", 500),
                 ("Experimental Submit", "ATTEMPTED: Enter once; no automatic resend", 500),
                 ("Experimental Delivery", "OBSERVED: verified composer cleared after Enter", 750)]
        keys = keys or (*key_events(chords.PASTE, 300), *key_events(chords.ENTER, 500))
        run = grok_run(steps, keys, message=EXPERIMENTAL_PASS)
        run.report["desktop"]["values"]["chat/sent"] = shown
        return run

    def test_Prompt_IsBroken_WhenAnotherTextWasSent(self):
        self.assertHolds(self.experimental_run(PROMPT))
        self.assertBreaks("only the prompt is sent", self.experimental_run(meddling.TYPED))

    def test_Prompt_IsExcused_OnlyWhenSomebodyTypedBeforeALatePageTookIt(self):
        run = self.experimental_run(meddling.TYPED)
        run.scenario["desktop"]["windows"][0]["tabs"][1]["rules"][0]["after"] = 300
        self.assertBreaks("only the prompt is sent", run)
        self.assertHolds(run._replace(meddling=((600, "tab"),)))

    def test_Keys_AreBroken_WhenNothingTellsOfThemOrTheyDidntCome(self):
        promise = "no key without proof"
        self.assertBreaks(promise, grok_run(keys=(*DELIVERY_KEYS, *key_events(chords.ENTER, 1400))))
        self.assertBreaks(promise, grok_run(keys=DELIVERY_KEYS[:-2]))
        refused = delivery_steps(("Send", "FAIL: Windows could not send Enter", 1000), *ENDED_BADLY)
        told_as_refused = grok_run(refused, success=False, message=UNVERIFIED)
        self.assertBreaks(promise, told_as_refused)
        self.assertBreaks(promise, told_as_refused._replace(faults=(sweep.make_fault("SendInput", 3, 0),)))

    def test_Keys_AreBroken_WhenTheStepBeforeIsNoProof(self):
        steps = delivery_steps(ENTER_SENT, *ENDED_WELL)
        steps[3] = ("Focus Input", "FAIL: Prompt focus could not be verified", 500)
        self.assertBreaks("no key without proof", grok_run(steps))
        wrong_window = delivery_steps(ENTER_SENT, *ENDED_WELL)
        wrong_window[0] = ("Foreground Verification", "FAIL: foreground HWND does not match activated AI window", 260)
        self.assertBreaks("no key without proof", grok_run(wrong_window))
        run = self.experimental_run(PROMPT)
        run.report["replies"][0]["value"]["logs"][4]["result"] = "FAIL/UNVERIFIED: no exact text match"
        self.assertBreaks("no key without proof", run)

    def test_Target_IsBroken_WhenAKeyGoesElsewhere(self):
        promise = "nothing typed elsewhere"
        astray = (*DELIVERY_KEYS[:8], *key_events(chords.ENTER, 1000, window="mail"))
        self.assertBreaks(promise, grok_run(keys=astray))
        in_the_bar = (*DELIVERY_KEYS[:8], *key_events(chords.ENTER, 1000, element="addressBar"))
        self.assertBreaks(promise, grok_run(keys=in_the_bar))
        strayed = (*key_events(chords.PASTE, 300, window="mail"), *key_events(chords.ENTER, 500))
        run = self.experimental_run(PROMPT, strayed)
        self.assertBreaks(promise, run._replace(meddling=((299, "foreground"),)))

    def test_Target_IsUnnoticed_OnlyWhenTheSwitchCameBehindTheProof(self):
        astray = grok_run(keys=(*DELIVERY_KEYS[:8], *key_events(chords.ENTER, 1000, window="mail")))
        self.assertBreaks("nothing typed elsewhere", astray._replace(meddling=((500, "foreground"),)))
        late = astray._replace(meddling=((501, "foreground"),))
        self.assertHolds(late)
        self.assertEqual(len(chords.strays(late).unnoticed), 1)

    def test_Secret_IsBroken_WhereverThePromptStands(self):
        changes = (lambda r: r["replies"][0]["value"].update(message=PROMPT),
                   lambda r: r["stderr"].append(f"x {PROMPT}"),
                   lambda r: r["toInterface"].append({"arguments": {"text": PROMPT}}))
        for change in changes:
            self.assertBreaks("the prompt is told nowhere", self.changed(grok_run(), change))

    def test_Tab_IsBroken_WhenItIsNotGivenBack(self):
        promise = "the user's tab is given back"
        self.assertBreaks(promise, activation_run(CLAUDE_REFUSED, selected=1))
        self.assertBreaks(promise, activation_run([step for step in CLAUDE_REFUSED if "restoration" not in step[0]]))
        warm = [("Warm tab selection", "PASS", 100), ("Warm provider verification", "FAIL; provider=Claude", 600)]
        ended = [("Result", "No ongoing Claude session found.", 700), CLAUDE_REFUSED[-1]]
        self.assertBreaks(promise, activation_run(warm + ended, selected=1))
        self.assertHolds(activation_run([*warm, ("Warm restoration", "PASS: original tab restored", 700), *ended]))

    def test_Tab_IsExcused_WhenAProvenWarmTargetJustWasNotBroughtToTheFront(self):
        proven = [("Warm tab selection", "PASS", 100), ("Warm provider verification", "PASS; provider=ChatGPT", 200)]
        ended = [("Result", "No ongoing ChatGPT session found.", 700), CLAUDE_REFUSED[-1]]
        self.assertHolds(activation_run([*proven, ("Warm foreground", "REQUESTED", 300), *ended], selected=1))
        self.assertBreaks("the user's tab is given back",
                          activation_run([*proven, ("Warm foreground", "PASS", 300), *ended], selected=1))

    def test_Tab_IsBroken_WhenASuccessStandsOnAnother(self):
        ready = [("Activation choice", "reason=INDEX_AND_TITLE; resolvedTitle=\"Chat\"", 100),
                 ("Result", "Ready", 400), ("Timing activation total", "400 ms", 400)]
        self.assertHolds(activation_run(ready, success=True, selected=1))
        self.assertBreaks("the user's tab is given back", activation_run(ready, success=True, selected=0))

    def test_Tab_IsExcused_WhenDiscoveryKnewNone(self):
        left = [step for step in CLAUDE_REFUSED[1:] if "restoration" not in step[0]]
        self.assertHolds(activation_run([x_ray(0, True, title=""), *left], selected=1))

    def test_Tab_IsExcused_WhenTheTraceSaysSo(self):
        steps = [(name, "FAIL: original tab could not be restored" if "restoration" in name else result, ms)
                 for name, result, ms in CLAUDE_REFUSED]
        self.assertHolds(activation_run(steps, selected=1))

    def test_Clipboard_IsBroken_WhenItChanged(self):
        for change in ({"sequence": 2}, {"text": "other"}, {"html": "<b>x</b>"}):
            run = self.changed(grok_run(), lambda r, change=change: r["desktop"]["clipboard"].update(change))
            self.assertBreaks("the clipboard is left alone", run)

    def test_Modifier_IsBroken_WhenItStaysDown(self):
        down = self.changed(grok_run(), lambda r: r["input"].pop(3))
        self.assertBreaks("no modifier stays down", down)
        whole = key_events(chords.SEARCH_TABS, 700)
        for number, event in enumerate(whole, 1):
            event["batch"] = number

        def torn(lost, *missing):
            keys = [event for event in whole if event["batch"] not in missing]
            return grok_run(keys=keys)._replace(faults=(sweep.make_fault("SendInput", lost, 0),))

        promises = [[breach.promise for breach in broken_promises(torn(*one))] for one in ((5, 5), (3, 3), (3, 3, 5))]
        self.assertEqual(["no modifier stays down" in found for found in promises], [False, False, True])

    def test_Held_IsBroken_UnlessTheReleaseItselfFailed(self):
        for kind in CLEAN_LIVE:
            held = self.changed(grok_run(), lambda r, kind=kind: r["live"].update({kind: 1}))
            self.assertBreaks("nothing is held at the end", held)
        excused = held._replace(faults=(sweep.make_fault("AttachThreadInput", 2, 0),))
        self.assertHolds(excused)
        self.assertBreaks("nothing is held at the end",
                          excused._replace(faults=(sweep.make_fault("CloseHandle", 2, 0),)))


if __name__ == "__main__":
    unittest.main()
