"""The routes in front of the full discovery: a ChatGPT page that is selected already, and the remembered tab."""
from .activation_tabs import S_OK, trace_safe
from .core import same_text

BRING_FORWARD_MS = 120
AFTER_RESTORE_MS = 60
FORCE_PASS_MS = (120, 200, 280)
VERIFICATION_ATTEMPTS = 25
BETWEEN_VERIFICATIONS_MS = 20

# ---- what becomes of the foreground

CONFIRMED = "PASS"
REQUESTED = "REQUESTED"
NOT_CONFIRMED = "FAIL: foreground not confirmed"

# ---- why a selected ChatGPT window is chosen

ALREADY_FOREGROUND = "ALREADY_FOREGROUND_CHATGPT_WINDOW"
REMEMBERED_VALID = "REMEMBERED_VALID_CHATGPT_WINDOW"
ONLY_SELECTED = "ONLY_SELECTED_CHATGPT_WINDOW"
FIRST_VERIFIED = "FIRST_VERIFIED_CHATGPT_WINDOW"

# ---- why a remembered tab is chosen

REMEMBERED_INDEX_AND_TITLE = "REMEMBERED_INDEX_AND_TITLE"
UNIQUE_REMEMBERED_TITLE = "UNIQUE_REMEMBERED_TITLE"
REMEMBERED_INDEX = "REMEMBERED_INDEX_PENDING_PROVIDER_VERIFICATION"

# ---- where the warm route ends before it has touched anything

INCOMPLETE = "SKIP: remembered target is incomplete"
WINDOW_GONE = "MISS: remembered window no longer exists"
BROWSER_CHANGED = "MISS: remembered window browser changed"
NO_TABS_READ = "MISS: targeted tab enumeration failed"
NOT_RESOLVED = "MISS: remembered tab cannot be resolved safely"
CURRENT_UNKNOWN = "MISS: current tab is unknown, so warm selection was not attempted"


class FastRoutes:
    """The steps of both routes, appended to the trace of an `Activation`."""

    def composer_proven(self):
        self.step(
            "ChatGPT content verification", "PASS: selected tab exposes a verified lower-page ChatGPT composer"
        )

    def fast_routes_missed(self):
        """The routes in front of the full discovery end without success, each for its usual reason unless said."""
        if not self._warm_said:
            self.warm_missed(INCOMPLETE)
        self.step("Activation route", "FULL DISCOVERY: warm path unavailable")

    # ---- a ChatGPT page that is selected already

    def no_destination(self):
        self._destination_said = True
        self.step("ChatGPT destination priority",
                  "No verified selected ChatGPT tab; remembered target may be used")
        return self

    def destination(self, code, title, *, candidates=1, foreground=CONFIRMED, takes_ms=FORCE_PASS_MS[0]):
        """A window is chosen and asked to come forward; the caller goes on with `ready` or another route."""
        self._destination_said = True
        self.step("ChatGPT destination priority",
                  f'{code}; selectedCandidates={candidates}; title="{trace_safe(title)}"')
        self.wait(takes_ms)
        self.step("Selected ChatGPT foreground", foreground)
        return self

    def destination_ready(self, browser, tab):
        return self._ready("SELECTED CHATGPT: PASS", browser, tab.title, tab.index, tab.automation_id)

    # ---- the remembered tab

    def _begin_warm(self):
        if self.is_chatgpt and not self._destination_said:
            self.no_destination()
        self._warm_said = True
        self._warm_start_ms = self.elapsed_ms
        self.step("Activation route", "WARM TARGETED: remembered browser first")

    def warm_missed(self, reason):
        self._begin_warm()
        self.step("Warm target", reason)
        return self

    def warm_inspected(self, browser, tabs, missed=None):
        """The window's tabs were read; `missed` says why none of them is taken."""
        self._begin_warm()
        self.step("Warm target inspection", f"~^hwnd=0x[0-9a-f]+{same_text(f'; browser={browser}; tabs={tabs}')}$")
        if missed:
            self.step("Warm target", missed)
        return self

    def warm_choice(self, reason, tab):
        """`tab` is the remembered one as a `SeenTab`."""
        self.target = tab
        self.resolved = (tab.title, tab.automation_id)
        self.step("Warm target choice", f'{reason}; title="{trace_safe(tab.title)}"')
        return self

    def warm_already_selected(self):
        self.step("Warm tab selection", "PASS: target was already selected")
        return self

    def warm_select(self, hr, tabs=None, reason=None, at=None, *, read_back=None, requested=None):
        """The selection of the chosen tab; arguments as those of `attempt`."""
        self._warm_resolve(hr, requested or self.target, tabs, reason, at, read_back)
        self.step("Warm tab selection", "PASS" if hr == S_OK else f"FAIL: {hr}")
        return self

    def _warm_resolve(self, hr, requested, tabs, reason, at, read_back):
        if tabs is not None:
            self._resolve(requested, tabs, reason, at)
        if read_back is None and hr == S_OK:
            read_back = True
        if read_back is not None:
            self._read_back(read_back)
        self.resolved = (tabs[at].title, tabs[at].id) if at is not None else ("", "")

    def warm_verified(self, passes, address, *, attempts=1, composer=0, step="Warm provider verification"):
        """`attempts` of 25 were made (none behind a failed selection); in `composer` of them the composer was
        proven."""
        if attempts:
            self.wait((attempts - 1) * BETWEEN_VERIFICATIONS_MS)
        for _ in range(composer):
            self.composer_proven()
        self.step(step, f'{"PASS" if passes else "FAIL"}; provider={trace_safe(self.name)}; '
                        f'address="{trace_safe(address)}"')
        return self

    def warm_failed(self, address="", *, attempts=VERIFICATION_ATTEMPTS):
        return self.warm_verified(False, address, attempts=attempts)

    def warm_restore(self, original, hr, tabs=None, reason=None, at=None, *, read_back=None):
        """The tab that was in front before is selected again."""
        self._warm_resolve(hr, original, tabs, reason, at, read_back)
        self.target = original
        self.step("Warm restoration",
                  "PASS: original tab restored" if hr == S_OK else "FAIL: original tab could not be restored")
        return self

    def warm_restored_verified(self, passes, address, *, attempts=None, composer=0):
        attempts = (1 if passes else VERIFICATION_ATTEMPTS) if attempts is None else attempts
        return self.warm_verified(passes, address, attempts=attempts, composer=composer,
                                  step="Warm restored-provider verification")

    def warm_fallback(self):
        self._warm_total("fallback=YES")
        return self

    def _warm_total(self, outcome):
        self.step("Timing warm targeted", f"{self.elapsed_ms - self._warm_start_ms} ms; {outcome}")

    def warm_foreground(self, *, foreground=CONFIRMED, takes_ms=None, recovered=False):
        self.wait((FORCE_PASS_MS[0] if self.is_chatgpt else BRING_FORWARD_MS) if takes_ms is None else takes_ms)
        self.step("Warm foreground", foreground)
        self._warm_total("fallback=NO" + ("; recovered=RESTORED_TARGET" if recovered else ""))
        return self

    def warm_ready(self, browser, **foreground):
        """The proven tab's window comes forward, and that is the end."""
        self.warm_foreground(**foreground)
        title, automation_id = self.resolved
        return self._ready("WARM TARGETED: PASS", browser, title or self.target.title, self.target.index,
                           automation_id or self.target.automation_id)

    def _ready(self, route, browser, title, index, automation_id):
        self.step("Activation route", route)
        self._end()
        self.step("Result", "Ready")
        self.succeeds = True
        self.reply_value = {
            "success": True, "browser": browser, "windowHandle": {}, "selectedTitle": title,
            "selectedTabIndex": index, "selectedAutomationId": automation_id,
        }
        return self
