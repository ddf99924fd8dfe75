"""What `activateProvider` must answer: its reply, its trace step by step, and the time it takes.

An `Activation` is written the way the call runs: each method appends the steps of one stretch of
the route and lets the waits of that stretch pass. What a stretch finds (which tab holds which
mark, which reason decides, what a restoration comes to) is said by the scenario, never worked out
here from its desktop. A score is said too; it is checked against the points of the marks, so that
a slip of the pen shows when the files are written.
"""

from dataclasses import dataclass, field

from .activation_assist import TabSearch
from .activation_routes import (AFTER_RESTORE_MS, BRING_FORWARD_MS, CONFIRMED, FORCE_PASS_MS,  # noqa: F401
                                NOT_CONFIRMED, REQUESTED, FastRoutes)
from .activation_tabs import S_OK, tab_line, trace_safe, yes_no
from .activation_xray import WindowDump, pair_with_desktop

# ---- waits, in milliseconds

BEFORE_SECOND_PASS_MS = 150
BEFORE_THIRD_PASS_MS = 300
BEFORE_SECOND_ATTEMPT_MS = 120
BEFORE_THIRD_ATTEMPT_MS = 280
BEFORE_SELECTION_READ_BACK_MS = 100
AFTER_SELECTION_MS = 120
BEFORE_CHATGPT_IDENTITY_MS = 180
BEFORE_FOREGROUND_MS = 100
FIRST_FOLLOW_UP_MS = 180
SECOND_FOLLOW_UP_MS = 270


@dataclass
class Activation(FastRoutes, TabSearch):
    """The trace of one call as it grows, and the virtual time at which it stands."""

    name: str
    start_ms: int = 0
    search_id: int = 1
    steps: list = field(default_factory=list)
    elapsed_ms: int = 0

    def __post_init__(self):
        self.passes = 0
        self.target = None
        self.browser = None
        self.resolved = ("", "")
        self.succeeds = False
        self.front = None
        self.last_seen = []
        self.input = []
        self.sent_calls = 0
        self.front_at_end = "main"
        self.front_requests = 0
        self.reply_value = None
        self._destination_said = self._warm_said = False
        self._begin()

    @property
    def end_ms(self):
        return self.start_ms + self.elapsed_ms

    @property
    def is_chatgpt(self):
        return self.name.lower() == "chatgpt"

    def step(self, name, result):
        self.steps.append({"step": name, "result": result})

    def wait(self, ms):
        self.elapsed_ms += ms

    # ---- start

    def _begin(self):
        self.step("Search ID", str(self.search_id))
        self.step(
            "Safety",
            "Discovery never types, pastes, sends, or changes the clipboard; ambiguous ChatGPT tabs may be selected "
            "briefly and are restored on failure",
        )
        if self.is_chatgpt:
            self.step("ChatGPT Method 1", "Standard UIA discovery started")

    def automation_unavailable(self):
        self.step("Native UIA", "Initialization failed")
        return self._end_without_target()

    # ---- discovery

    def discover(self, *passes, desktop, top_level=None, front=None, remembered=()):
        """The silent passes, each a list of the browser windows in z-order, and the counters.

        `desktop` lists the windows of the desktop; `top_level` counts them in the last pass, the
        host's own included, where that isn't one more; `front` is the browser window in front, if
        one is; `remembered` holds the steps on what the interface remembered, see
        `remembered_steps`.
        """
        self.fast_routes_missed()
        self.last_seen = pair_with_desktop(passes[-1], desktop)
        self.front = front
        for number, windows in enumerate(passes):
            self.wait((0, BEFORE_SECOND_PASS_MS, BEFORE_THIRD_PASS_MS)[number])
            accepted = self._discovery_pass(pair_with_desktop(windows, desktop), remembered)
        if len(passes) < 3 and not accepted:
            raise ValueError("a pass that finds nothing is followed by another, up to three")
        last = passes[-1]
        readable = [one for one in last if one.has_root and one.has_tab_items]
        self.step("Top-level windows", str(len(desktop) + 1 if top_level is None else top_level))
        self.step("Browser HWNDs", str(len(last)))
        self.step("UIA roots", str(sum(one.has_root for one in last)))
        self.step("Tab items", str(sum(len(one.tabs) + one.nameless_tabs for one in readable)))
        self.step("Silent retries", str(len(passes) - 1))
        self.step("Visible probes", "0")
        self.step("Provider candidates", str(len(accepted)))
        if self.is_chatgpt:
            self.step(
                "ChatGPT Method 1",
                "CANDIDATE FOUND: UIA activation and verification pending"
                if accepted
                else "FAIL: standard UIA found no explicit or verified candidate",
            )
        return self

    def _discovery_pass(self, pairs, remembered):
        self.passes += 1
        for ordinal, (seen_window, window) in enumerate(pairs, 1):
            self._window_read(seen_window, WindowDump(self.passes, ordinal, seen_window, window, self.front))
        inventory = [(one.browser, tab) for one, _ in pairs if one.has_root and one.has_tab_items for tab in one.tabs]
        for ordinal, (_, tab) in enumerate(inventory, 1):
            self.step("Trace tab", tab_line(ordinal, tab))
        accepted = [entry for entry in inventory if entry[1].accepted]
        if not accepted and self.is_chatgpt:
            self.step("ChatGPT inactive-tab probes", "DISABLED: provider isolation safeguard")
            self.step("ChatGPT fallback", "No explicit candidate or verified session tab was found")
        self.steps += remembered
        self.step(f"Timing discovery pass {self.passes}", "0 ms")
        return accepted

    def _window_read(self, seen_window, dump):
        """What is written while one browser window is read, before any tab of the pass is judged."""
        self.step(*dump.window_line())
        if not seen_window.has_root:
            self.step(*dump.root_line())
            return
        if seen_window.proves_composer:
            self.composer_proven()
        self.step(*dump.tabs_line())
        if seen_window.has_tab_items:
            for line in dump.tab_lines():
                self.step(*line)

    # ---- no candidate

    def no_session(self, assist=None):
        """No route has found anything; `assist` says what became of the tab search, see `TabSearch`."""
        if self.is_chatgpt:
            self.search_tabs(assist)
            self.step("ChatGPT Method 2", "FAIL: bounded Tab Search did not verify ChatGPT")
            self.step("ChatGPT Diagnostic Summary", "Method 1=FAIL; Method 2=FAIL; overall=FAIL")
        self.step("Result", f"No ongoing {self.name or 'AI'} session found.")
        return self._end_without_target()

    # ---- a target

    def choose(self, browser, tab):
        """The best candidate, in the browser of this display name."""
        if not tab.accepted:
            raise ValueError(f"{tab.title}: a tab that was not accepted is no target")
        self.browser, self.target = browser, tab
        self.step("Selected", f"{tab.title} [score {tab.score}]")
        if tab.url:
            self.step("URL", tab.url)
        self.resolved = (tab.title, tab.automation_id)
        return self

    def already_selected(self):
        self.step("Fresh tab resolution", "Skipped because target tab is already selected")
        self.step("Tab selection", "PASS")
        return self

    def select(self, tabs, reason, at, *, requested=None):
        """The first attempt succeeds: the tab at index `at` of the live tabs, for this reason."""
        return self.attempt(1, S_OK, tabs, reason, at, requested=requested).selection_passed()

    def attempt(self, number, hr, tabs=None, reason=None, at=None, *, requested=None, read_back=None, length=None):
        """One attempt. Without live tabs the window or the search failed; without `at` no tab was
        resolved; `read_back` says whether the tab was found selected, None where nothing was read;
        `length` counts the tab items where one of them could not be had. `at` is a place in `tabs`."""
        self.wait((0, BEFORE_SECOND_ATTEMPT_MS, BEFORE_THIRD_ATTEMPT_MS)[number - 1])
        if tabs is not None:
            self._resolve(requested or self.target, tabs, reason, at, length)
        title, automation_id = (tabs[at].title, tabs[at].id) if at is not None else ("", "")
        if read_back is None:
            read_back = True if hr == S_OK else None
        if read_back is not None:
            self._read_back(read_back)
        self.step(
            "Fresh tab resolution",
            f'attempt={number}; hr={hr}; title="{trace_safe(title)}"; automationId="{trace_safe(automation_id)}"',
        )
        self.resolved = (title, automation_id)
        return self

    def selection_passed(self):
        self.step("Tab selection", "PASS")
        return self

    def selection_failed(self, hr):
        self.step("Tab selection", f"FAILED ({hr})")
        return self

    def _resolve(self, requested, tabs, reason, at, length=None):
        length = len(tabs) if length is None else length
        self.step(
            "Activation target",
            f'requestedIndex={requested.index}; requestedTitle="{trace_safe(requested.title)}"; '
            f'requestedAutomationId="{trace_safe(requested.automation_id)}"; enumeratedTabs={length}',
        )
        for tab in tabs:
            self.step(
                "Activation tab",
                f'index={tab.index}; title="{trace_safe(tab.title)}"; automationId="{trace_safe(tab.id)}"; '
                f"selected={yes_no('S' in tab.marks)}; indexMatch={yes_no('I' in tab.marks)}; "
                f"titleMatch={yes_no('T' in tab.marks)}; automationMatch={yes_no('A' in tab.marks)}",
            )
        if at is None:
            self.step("Activation choice", reason)
        else:
            self.step(
                "Activation choice",
                f'reason={reason}; resolvedTitle="{trace_safe(tabs[at].title)}"; '
                f'resolvedAutomationId="{trace_safe(tabs[at].id)}"',
            )

    def _read_back(self, is_selected):
        self.wait(BEFORE_SELECTION_READ_BACK_MS)
        self.step(
            "Activation verification",
            "PASS: resolved tab is selected"
            if is_selected
            else "FAILED: Select returned success but resolved tab is not selected",
        )

    # ---- final identity

    def settle(self):
        """The pause between the selection and the checks behind it."""
        self.wait(AFTER_SELECTION_MS)
        return self

    def company_homepage(self):
        self.step(
            "Company homepage safeguard", "BLOCKED: selected page is provider information, not an AI session"
        )
        return self

    def chatgpt_identity(self, *, passes, composer):
        self.wait(BEFORE_CHATGPT_IDENTITY_MS)
        if composer:
            self.composer_proven()
        self.step(
            "ChatGPT final identity",
            "PASS: selected tab verified before foreground"
            if passes
            else "FAIL: selected tab is not verified ChatGPT",
        )
        return self

    def claude_identity(self, *, passes):
        self.step(
            "Claude final identity",
            "PASS: selected URL is a usable Claude chat/composer page"
            if passes
            else "FAIL: selected Claude page is not a usable chat/composer URL",
        )
        return self

    def restore(self, step_name, original, tabs=None, reason=None, at=None, *, read_back=True):
        """The tab that was selected before is selected again; `read_back` None: nothing was read."""
        if tabs is not None:
            self._resolve(original, tabs, reason, at)
        if read_back is not None and at is not None:
            self._read_back(read_back)
        restored = at is not None and read_back
        self.step(
            step_name, "PASS: original tab restored" if restored else "FAIL: original tab could not be restored"
        )
        return self

    # ---- closing

    def finish(self, *, foreground=CONFIRMED, takes_ms=None):
        """The target is verified. `takes_ms`: what bringing the window forward takes."""
        self.wait(BEFORE_FOREGROUND_MS)
        self.wait((FORCE_PASS_MS[0] if self.is_chatgpt else BRING_FORWARD_MS) if takes_ms is None else takes_ms)
        self.step("Foreground", foreground)
        self.succeeds = foreground == CONFIRMED or not self.is_chatgpt
        return self._close()

    def finish_blocked(self):
        """The target is not verified: its window is left where it is."""
        self.wait(BEFORE_FOREGROUND_MS)
        self.step("Foreground", "BLOCKED: provider identity was not verified")
        self.succeeds = False
        return self._close()

    def _close(self):
        self.step("Cleanup", "By design, no UIA element is cached after activation")
        if self.is_chatgpt and self.succeeds:
            self.step("ChatGPT Method 1", "PASS: UIA candidate activated successfully")
            self.step("ChatGPT Method 2", "DISABLED: standard activation succeeded")
            self.step("ChatGPT Diagnostic Summary", "Method 1=PASS; Method 2=DISABLED; overall=PASS")
        elif self.is_chatgpt:
            self.step("ChatGPT Method 1", "FAIL: UIA candidate activation failed")
            self.step("ChatGPT Method 2", "DISABLED: no visible browser fallback is allowed")
            self.step("ChatGPT Diagnostic Summary", "Method 1=FAIL; Method 2=DISABLED; overall=FAIL")
        self.step("Result", "Ready" if self.succeeds else "Activation failed")
        return self._end()

    def _end_without_target(self):
        self.browser = self.target = None
        return self._end()

    def _end(self):
        self.step("Timing activation total", f"{self.elapsed_ms} ms")
        return self

    def value(self):
        """The reply map. The handle is any 64-bit integer here: a later call proves whose it is."""
        if self.reply_value is not None:
            return self.reply_value | {"logs": self.steps}
        value = {"success": self.succeeds}
        if self.target is not None:
            explicit = self.target.marks & {"domain", "verifiedContent" if self.is_chatgpt else "anchoredTitle"}
            value |= {
                "browser": self.browser,
                "windowHandle": {},
                "selectedTitle": self.resolved[0] or self.target.title,
                "selectedTabIndex": self.target.index,
                "selectedAutomationId": (self.resolved[1] or self.target.automation_id) if explicit else "",
            }
        return value | {"logs": self.steps}

    def reply(self, name):
        return {
            "as": name,
            "method": "activateProvider",
            "kind": "success",
            "error": None,
            "value": self.value(),
            "startMs": self.start_ms,
            "endMs": self.end_ms,
        }
