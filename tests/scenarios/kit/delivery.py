"""What `pasteAndSubmit` must answer: its trace step by step, the keys it sends, and the time it takes.

A `Delivery` is written the way the call runs: each method appends the steps of one stretch and lets its waits pass.
Whether a check holds, and at which attempt, is said by the scenario.
"""
from .core import NOTHING_HELD, VK_A, VK_RETURN, VK_V, call, chord, key_events, same_text
from .delivery_texts import *  # noqa: F403  (all of them are this module's vocabulary)


class Delivery:
    """One call. `name` is the argument as the trace shows it, `start` the time at which the call begins, `batch` the
    number of the SendInput call before its first."""

    def __init__(self, name, start=0, window="chat", batch=0, composer="composer"):
        self.name = name
        self.start = start
        self.now = start
        self.window = window
        self.batch = batch
        self.composer = composer
        self.steps = []
        self.input = []
        self.send_begin = None

    def step(self, name, result):
        self.steps.append({"step": name, "result": result})
        return self

    def wait(self, milliseconds):
        self.now += milliseconds
        return self

    def timing(self, what, since):
        return self.step("Timing " + what, f"{self.now - since} ms")

    # The common path.

    def foreground(self, verdict=HANDLE_MATCHES):
        return self.wait(BEFORE_FOREGROUND_READ_MS).step("Foreground Verification", verdict)

    def dispatch(self, expected=True):
        """`expected`: the call brought the handle of the window in front."""
        handle = r"\1" if expected else "0"
        return self.step("Dispatch Context", "~^" + same_text(f"Provider={self.name}; foreground HWND=")
                         + r"([1-9][0-9]*); expected HWND=" + handle + "$")

    def first_use(self):
        return self.wait(FIRST_USE_MS).step("First-Use Page Settle",
                                            "PASS: waited 1800 ms after initial provider activation")

    def attachments(self, removed=0):
        result = (f"PASS: removed {removed} pending attachment control(s)" if removed
                  else "PASS: no pending attachment control was exposed")
        return self.wait(removed * AFTER_REMOVAL_MS).step("Claude Attachment Cleanup", result)

    def box_ready(self, attempt=EARLIEST_STABLE, last=None):
        begin = self.now
        self.wait((attempt - 1) * BOX_PAUSE_MS)
        detail = (f"PASS: verified prompt box remained ready across three checks; attempt={attempt}; "
                  f"{last or box_verified(self.name)}")
        self.timing("Prompt Readiness", begin).step("Prompt Box Readiness", detail)
        return self.step("Focus Input", "PASS: stable verified lower-page AI prompt box focused")

    def box_not_ready(self, last):
        begin = self.now
        self.wait(BOX_CHECKS * BOX_PAUSE_MS)
        detail = f"FAIL: prompt box did not become stable; last result={last}"
        self.timing("Prompt Readiness", begin).step("Prompt Box Readiness", detail)
        self.step("Focus Input", "FAIL: " + detail)
        return self.reply(False, detail)

    def keys(self, *keys, into=None):
        """One SendInput call that went to (window, element), by default to the composer."""
        self.batch += 1
        window, element = into or (self.window, self.composer)
        self.input += key_events(self.now, window, element, self.batch, *keys)
        return self

    def select_all(self, into=None):
        self.wait(BEFORE_SELECT_ALL_MS).keys(*chord(VK_A), into=into)
        return self.step("Clear Existing Draft", "PASS: Ctrl+A sent before paste")

    def paste(self, into=None):
        self.wait(BEFORE_PASTE_MS).keys(*chord(VK_V), into=into)
        self.step("Paste", "PASS: existing draft replaced with current prompt")
        self.send_begin = self.now
        return self

    def open(self, settled=False, removed=None, attempt=EARLIEST_STABLE, last=None, expected=True,
             verdict=HANDLE_MATCHES):
        """All up to the paste. `removed` attachments: only Claude's are looked for."""
        self.foreground(verdict).dispatch(expected)
        if not settled:
            self.first_use()
        if removed is not None:
            self.attachments(removed)
        return self.box_ready(attempt, last).select_all().paste()

    def enter(self, step="Send", passed="PASS: Enter sent to verified AI input", into=None):
        return self.keys((VK_RETURN, False), (VK_RETURN, True), into=into).step(step, passed)

    def enter_fails(self, step="Send"):
        return self.step(step, "FAIL: Windows could not send Enter")

    def sent(self, after=AFTER_SEND_MS):
        return self.wait(after).timing("Send Action", self.send_begin)

    def observe(self):
        return self.wait(POST_SUBMIT_MS).step("Post-Submit Observation",
                                              "PASS/OBSERVED: Enter was delivered; no automatic retry performed")

    def verified(self, result):
        return self.step("Submit Verification", result)

    def delivered(self, focus_again=True):
        """The end of a delivered prompt. `focus_again`: whether the composer took the focus; None for Claude."""
        if focus_again is not None:
            self.step("AI Input Focus", "PASS: cursor placed in ongoing AI chat input" if focus_again
                      else "INFO: ongoing AI input was not available yet")
        self.step("Result", "PASS: activation, foreground, paste, and submit completed")
        return self.timing("Submit Total", self.start).reply(True, DELIVERED)

    def unverified(self):
        self.step("Result", "FAIL/UNVERIFIED: submit did not pass verification; page left untouched")
        return self.timing("Submit Total", self.start).reply(False, UNVERIFIED)

    def reply(self, success, message):
        self.value = {"success": success, "message": message, "logs": self.steps}
        return self

    # The wait for a Send control, in whichever step.

    def send_ready(self, step, name, sightings=SIGHTINGS, attempt=None):
        attempt = attempt or sightings
        return self.wait((attempt - 1) * SEND_PAUSE_MS).step(step, send_stable(name, sightings, attempt))

    def send_never_ready(self, step, checks):
        return self.wait(checks * SEND_PAUSE_MS).step(step, send_unstable(checks))

    # Claude.

    def claude_settle(self):
        return self.wait(CLAUDE_SETTLE_MS).step("Claude First-Use Paste Settle",
                                                "PASS: waited 1100 ms for Claude composer readiness")

    def claude_button(self, send_name, attempt=CLAUDE_SEND_SIGHTINGS):
        self.claude_settle().send_ready("Claude Send Readiness", send_name, CLAUDE_SEND_SIGHTINGS, attempt)
        return self.step("Claude Send Button", send_invoked(send_name, self.name)).sent(CLAUDE_AFTER_SEND_MS)

    def claude_enter(self, into=None):
        return self.enter("Claude Enter Fallback", "PASS: Enter sent to verified Claude input", into)

    def claude_not_stable(self):
        self.claude_settle().send_never_ready("Claude Send Readiness", CLAUDE_SEND_CHECKS)
        return self.step("Claude Send Button", "INFO: Send invocation skipped until stable")

    def claude_refused(self, send_name, detail):
        self.claude_settle().send_ready("Claude Send Readiness", send_name, CLAUDE_SEND_SIGHTINGS)
        return self.step("Claude Send Button", "INFO: " + detail)

    def claude_first_reading(self, tries, result):
        self.verify_begin = self.now
        return self.wait(tries * CLAUDE_TRY_MS).step("Claude Delivery Verification", result)

    def claude_empty(self, attempt=1):
        return self.claude_first_reading(attempt, f"PASS: composer is empty after Send; attempt={attempt}")

    def claude_text_remains(self, attempt=1):
        return self.claude_first_reading(attempt, "RETRY: prompt remains in composer after first Send")

    def claude_unknown(self, detail):
        return self.claude_first_reading(CLAUDE_TRIES, f"UNVERIFIED: {detail}; prompt was not deleted")

    def claude_not_responding(self, detail=NOT_RESPONDING):
        return self.step("Claude Responding State", "INFO: " + detail)

    def claude_retry(self, send_name, attempt=SIGHTINGS):
        self.send_ready("Claude Retry Readiness", send_name, SIGHTINGS, attempt)
        return self.step("Claude Send Retry", send_invoked(send_name, self.name))

    def claude_retry_skipped(self):
        self.send_never_ready("Claude Retry Readiness", CLAUDE_RETRY_CHECKS)
        return self.step("Claude Send Retry", "INFO: retry skipped; Send never became stable")

    def claude_probable(self):
        return self.step("Claude Delivery Evidence",
                         "PASS/PROBABLE: exact Send was invoked and the enabled Send control left its ready state; "
                         "stale composer value ignored; duplicate retry blocked")

    def claude_retry_reading(self, tries, result):
        return self.wait(tries * CLAUDE_TRY_MS).step("Claude Retry Verification", result)

    def claude_done(self):
        return self.timing("Claude Verification", self.verify_begin)

    # ChatGPT and Gemini.

    def chatgpt_settle(self):
        return self.wait(CHATGPT_SETTLE_MS).step("ChatGPT Paste Settle", "PASS: waited 500 ms before Enter")

    def gemini_settle(self):
        return self.wait(GEMINI_SETTLE_MS).step("Gemini Paste Settle", "PASS: waited 650 ms before Enter")

    def value_check(self, step, pauses, detail):
        return self.wait(pauses * VALUE_PAUSE_MS).step(step, detail)

    def value_held(self, step, attempt=EARLIEST_STABLE):
        return self.value_check(step, attempt - 1, value_stable(attempt))

    def chatgpt_paste_held(self):
        return self.chatgpt_settle().value_held("ChatGPT Prompt Readiness")

    def gemini_paste_held(self):
        return self.gemini_settle().value_held("Gemini Prompt Readiness")

    def chatgpt_button(self, send_name, attempt=SIGHTINGS):
        self.send_ready("ChatGPT Send Readiness", send_name, SIGHTINGS, attempt)
        return self.step("ChatGPT Send Button", send_invoked(send_name, self.name))

    def chatgpt_not_stable(self):
        self.send_never_ready("ChatGPT Send Readiness", CHATGPT_SEND_CHECKS)
        return self.step("ChatGPT Send Button", "INFO: exact Send button unavailable")

    def chatgpt_enter(self, into=None):
        return self.enter("ChatGPT Enter Fallback", "PASS: Enter sent because exact Send was unavailable", into)

    def responding_seen(self, branch, stop_name, poll):
        self.wait((poll - 1) * RESPONDING_PAUSE_MS).step(f"{branch} Responding State", responding(stop_name))
        return self.step(f"{branch} Delivery Evidence", f"PASS: {branch} entered a responding state; stale composer "
                         "value ignored; duplicate retry blocked")

    def responding_missed(self, branch, detail=NOT_RESPONDING):
        """`detail`: the text of the last poll whose search worked; empty when none did."""
        polls = CHATGPT_POLLS if branch == "ChatGPT" else GEMINI_POLLS
        return self.wait(polls * RESPONDING_PAUSE_MS).step(f"{branch} Responding State", "INFO: " + detail)

    def probable(self, branch):
        self.send_never_ready(f"{branch} Post-Send Readiness", POST_SEND_CHECKS)
        how = "Submit was invoked" if branch == "ChatGPT" else "Enter was delivered"
        return self.step(f"{branch} Delivery Evidence", f"PASS/PROBABLE: {how} and the enabled Send control did not "
                         "return to a stable ready state; stale composer value ignored; duplicate retry blocked")

    def send_is_back(self, branch, send_name, attempt=SIGHTINGS):
        self.send_ready(f"{branch} Post-Send Readiness", send_name, SIGHTINGS, attempt)
        return self.step(f"{branch} Delivery Evidence", "UNVERIFIED: composer still exposes the prompt and no "
                         "post-send state transition was confirmed; draft preserved; no retry")

    # Perplexity.

    def perplexity_settle(self):
        return self.wait(PLAIN_SETTLE_MS).wait(PERPLEXITY_EXTRA_SETTLE_MS)

    def perplexity_paste_held(self):
        return self.perplexity_settle().value_held("Perplexity Paste Verification")

    def perplexity_button(self, send_name, attempt=SIGHTINGS):
        self.send_ready("Perplexity Send Readiness", send_name, SIGHTINGS, attempt)
        return self.step("Perplexity Send Button", send_invoked(send_name, self.name))

    def perplexity_pass(self, number, evidence):
        """Seen at this pass: the pauses of the passes before it are over."""
        return self.wait((number - 1) * PERPLEXITY_PAUSE_MS).step("Perplexity Delivery Evidence", evidence)

    def perplexity_responds(self, number=1):
        return self.perplexity_pass(number, "PASS/OBSERVED: responding state appeared after exact Send; duplicate "
                                    "retry blocked")

    def perplexity_cleared(self, number=1):
        return self.perplexity_pass(number, "PASS/OBSERVED: composer cleared after exact Send; duplicate retry blocked")

    def perplexity_probable(self):
        self.wait(PERPLEXITY_PASSES * PERPLEXITY_PAUSE_MS)
        self.send_never_ready("Perplexity Post-Send Readiness", POST_SEND_CHECKS)
        return self.step("Perplexity Delivery Evidence", "PASS/PROBABLE: exact Submit was invoked and its enabled Send "
                         "control did not return to a stable ready state; stale composer value ignored; duplicate "
                         "retry blocked")

    def perplexity_unobserved(self, send_name, composer_detail):
        self.wait(PERPLEXITY_PASSES * PERPLEXITY_PAUSE_MS)
        self.send_ready("Perplexity Post-Send Readiness", send_name)
        return self.step("Perplexity Delivery Evidence", "FAIL/UNVERIFIED: exact Send was invoked but no responding "
                         "state, empty composer, or Send-state transition was observed; no retry; " + composer_detail)

    # Plain Enter.

    def plain_settle(self):
        return self.wait(PLAIN_SETTLE_MS)

    def plain_unlooked(self):
        return self.verified("INFO: prompt-value verification is not configured for this provider")


def deliver(name, window="chat", as_="deliver", **arguments):
    """The call as the interface makes it, with the handle of the provider's window."""
    return call("pasteAndSubmit", {"name": name, "expectedWindowHandle": {"$window": window}, **arguments}, as_)


def replies(*deliveries, names=("deliver",)):
    return [{"as": as_, "method": "pasteAndSubmit", "kind": "success", "value": one.value, "startMs": one.start,
             "endMs": one.now} for as_, one in zip(names, deliveries)]


def expect(*deliveries, names=("deliver",), foreground="chat", tab_index=1, **desktop):
    """All that a delivery must leave behind; `desktop` holds what matters of "values" and "invoked"."""
    selected = {} if tab_index is None else {"tabs": {"chat": {"selected": tab_index}}}
    return {
        "exitCode": 0,
        "replies": replies(*deliveries, names=names),
        "input": [event for one in deliveries for event in one.input],
        "desktop": {"foreground": foreground, **selected, **desktop},
        "stderr": [],
        "live": dict(NOTHING_HELD),
    }
