#!/usr/bin/env python3
"""The checker itself: each promise holds for a clean run, and is seen when it is broken."""
import copy
import unittest

import chords
import failing_ways
import long_life
import meddling
import sweep
from promises import CHECKS, Run, broken_promises, has_model_ended, has_script_ended
from traces import DELIVERED, EXPERIMENTAL_PASS, EXPERIMENTAL_STOP, UNVERIFIED

PROMPT = "What may a landlord keep of the deposit?"
HANDLE = chords.FIRST_HANDLE
CLEAN_LIVE = {"comReferences": 0, "openClipboard": 0, "processHandles": 0, "threadInputs": 0}


def call(method, **arguments):
    return {"call": {"channel": "orvane/browser", "method": method, "arguments": arguments}}


def scenario_of(*steps):
    page = [{"id": "composer", "type": "edit", "name": "Message", "value": ""},
            {"id": "sent", "type": "text", "name": "You said", "value": ""},
            {"id": "send", "type": "button", "name": "Send message"}]
    tabs = [{"title": "News", "address": "https://news.example/", "selected": True},
            {"title": "Chat", "address": "https://chat.example/", "page": page,
             "rules": [{"on": {"key": "Enter"}, "do": [{"copyValue": {"from": "composer", "to": "sent"}}]}]}]
    windows = [{"id": "chat", "process": "chrome.exe", "tabs": tabs}, {"id": "mail", "process": "mail.exe"}]
    return {"desktop": {"windows": windows, "clipboard": {"text": PROMPT}}, "steps": list(steps)}


def reply_of(method, value, steps=(), as_name="0", start=0, end=5000):
    value = dict(value, logs=[{"step": name, "result": result} for name, result, _ in steps])
    return {"as": as_name, "method": method, "kind": "success", "value": value, "error": None, "startMs": start,
            "endMs": end, "stepMs": [ms for _, _, ms in steps]}


def report_of(*replies, keys=(), invoked=None, selected=0):
    return {
        "name": "", "exitCode": 0, "replies": list(replies), "toInterface": [], "stderr": [], "input": list(keys),
        "desktop": {"tabs": {"chat": {"titles": ["News", "Chat"], "selected": selected}}, "values": {},
                    "invoked": invoked or {}, "clipboard": {"text": PROMPT, "html": None, "sequence": 1}},
        "live": dict(CLEAN_LIVE),
    }


def key_events(events, ms, window="chat", element="composer"):
    return [{"ms": ms, "window": window, "element": element, "vk": key, "up": is_up, "batch": 1}
            for key, is_up in events]


DELIVERY_KEYS = (*key_events(chords.SELECT_ALL, 700), *key_events(chords.PASTE, 800), *key_events(chords.ENTER, 1000))


def delivery_steps(*behind_paste, context=HANDLE):
    return [
        ("Foreground Verification", "PASS: foreground HWND matches activated AI window", 260),
        ("Dispatch Context", f"Provider=Grok; foreground HWND={context}; expected HWND={context}", 260),
        ("Prompt Box Readiness", "PASS: verified", 500),
        ("Focus Input", "PASS: stable verified lower-page AI prompt box focused", 500),
        ("Clear Existing Draft", "PASS: Ctrl+A sent before paste", 700),
        ("Paste", "PASS: existing draft replaced with current prompt", 800),
        *behind_paste,
    ]


ENTER_SENT = ("Send", "PASS: Enter sent to verified AI input", 1000)
ENDED_WELL = (("Result", "PASS: activation, foreground, paste, and submit completed", 2000),
              ("Timing Submit Total", "2000 ms", 2000))
ENDED_BADLY = (("Result", "FAIL/UNVERIFIED: submit did not pass verification; page left untouched", 2000),
               ("Timing Submit Total", "2000 ms", 2000))


def grok_run(steps=None, keys=DELIVERY_KEYS, success=True, message=DELIVERED, **more):
    steps = delivery_steps(ENTER_SENT, *ENDED_WELL) if steps is None else steps
    reply = reply_of("pasteAndSubmit", {"success": success, "message": message}, steps)
    return Run(scenario_of(call("pasteAndSubmit", name="Grok")), report_of(reply, keys=keys, **more))


def activation_run(steps, success=False, selected=0):
    value = {"success": success, "windowHandle": {"$int64": HANDLE}, "selectedTabIndex": 1}
    return Run(scenario_of(call("activateProvider", name="Claude")),
               report_of(reply_of("activateProvider", value, steps), selected=selected))


def x_ray(index, is_selected, title="News"):
    selected = "Y" if is_selected else "N"
    text = (f"pass=1; browser#=1; hwnd=0x{HANDLE:x}; index={index}; selected={selected}; uiaSelected=Y; "
            f'windowTitleSelected=N; offscreen=N; title="{title}"; automationId=""')
    return "X-Ray tab", text, 0


CLAUDE_REFUSED = [
    x_ray(0, True), x_ray(1, False), ("Tab selection", "PASS", 100),
    ("Claude final identity", "FAIL: selected Claude page is not a usable chat/composer URL", 200),
    ("Claude final restoration", "PASS: original tab restored", 300),
    ("Foreground", "BLOCKED: provider identity was not verified", 400),
    ("Result", "Activation failed", 400), ("Timing activation total", "400 ms", 400),
]


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
