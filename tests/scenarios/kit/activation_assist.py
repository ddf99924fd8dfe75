"""The search for a ChatGPT tab by Chrome's own Search tabs box, for which alone an activation sends keys."""
from .activation_routes import BRING_FORWARD_MS
from .activation_tabs import trace_safe, yes_no
from .core import VK_CONTROL, VK_RETURN

AFTER_FOREGROUND_MS = 120
AFTER_KEYS_MS = 220
AFTER_FIELD_SET_MS = 300
AFTER_ENTER_MS = 450

VK_SHIFT, VK_ESCAPE, VK_A = 16, 27, 65
OPENING_EVENTS = ((VK_CONTROL, False), (VK_SHIFT, False), (VK_A, False), (VK_A, True), (VK_SHIFT, True),
                  (VK_CONTROL, True))
ESCAPE_EVENTS = ((VK_ESCAPE, False), (VK_ESCAPE, True))
ENTER_EVENTS = ((VK_RETURN, False), (VK_RETURN, True))

FIELD_REFUSED = "FAIL: Search tabs input not verified; no text or Enter sent"
FIELD_NOT_SET = "FAIL: cannot set verified search field"


class TabSearch:
    """The steps of the tab search, appended to the trace of an `Activation`, and the keys that it sends."""

    def search_tabs(self, assist=None):
        """`assist` appends the steps; without it the search goes as in a browser that knows no such key."""
        if assist is not None:
            assist(self)
            return
        chosen = self._usual_chrome()
        if chosen is None:
            self.assist_without_chrome()
            return
        self.front_at_end, self.front_requests = chosen, 1
        self.assist_begins().assist_foreground().assist_keys(chosen).assist_field_refused(chosen)

    def _usual_chrome(self):
        """The id of the visible Chrome window with the most tabs in the last pass, None without one."""
        counts = {window["id"]: len(one.tabs) for one, window in self.last_seen
                  if one.browser == "Chrome" and one.has_root and one.has_tab_items and one.tabs
                  and window.get("visible", True)}
        return max(counts, key=counts.get) if counts else None

    def assist_without_chrome(self):
        self.step("Browser Assist", "provider=ChatGPT; browser=Chrome; strategy=Tab Search")
        self.step("Browser Assist", "No visible Chrome window is available")
        return self

    def assist_begins(self):
        self.step("Browser Assist", "provider=ChatGPT; browser=Chrome; strategy=Tab Search")
        self.step("Browser Assist target", "~^hwnd=0x[0-9a-f]+$")
        return self

    def assist_foreground(self, *, confirmed=True, takes_ms=BRING_FORWARD_MS):
        self.wait(takes_ms)
        self.step("Browser Assist foreground",
                  "PASS" if confirmed else "FAIL: no input sent without confirmed Chrome foreground")
        return self

    def assist_keys(self, window, *, attempted=OPENING_EVENTS, refused=(), opened=None, sent=True):
        """`attempted` are the events that were tried, `refused` the places of those that didn't come through;
        `opened` has the focus once A has gone down."""
        self.wait(AFTER_FOREGROUND_MS)
        for number, event in enumerate(attempted):
            self._send(window, [event], (0,) if number in refused else (), opened if number > 2 else None)
        self.step("Browser Assist keys", "Ctrl+Shift+A sent" if sent else "FAILED sending Ctrl+Shift+A")
        return self

    def assist_keys_opening(self, window, **facts):
        """The box opens."""
        return self.assist_keys(window, opened="searchTabs", **facts)

    def assist_field_refused(self, window, *, result=FIELD_REFUSED, element=None, element_behind=None, escapes=True):
        """`element` has the focus at Escape, `element_behind` once it is down."""
        self.wait(AFTER_KEYS_MS)
        self.step("Browser Assist search field", result)
        if escapes:
            self._send(window, ESCAPE_EVENTS[:1], (), element)
            self._send(window, ESCAPE_EVENTS[1:], (), element_behind)
        return self

    def assist_field_set(self):
        self.wait(AFTER_KEYS_MS)
        self.step("Browser Assist type", "chatgpt.com (verified Search tabs field)")
        return self

    def assist_enter(self, window, *, result="Sent", attempted=ENTER_EVENTS, refused=(), element="searchTabs",
                     element_behind=None, window_behind=...):
        """`element_behind` has the focus once Enter is down, in `window_behind` where another one has come up."""
        self.wait(AFTER_FIELD_SET_MS)
        self._send(window, attempted[:1], [one for one in refused if one < 1], element)
        self._send(window if window_behind is ... else window_behind, attempted[1:],
                   [one - 1 for one in refused if one], element_behind)
        self.step("Browser Assist enter", result)
        return self

    def assist_enter_skipped(self):
        self.wait(AFTER_FIELD_SET_MS)
        self.step("Browser Assist enter", "SKIPPED: search field lost focus")
        return self

    def assist_not_chrome(self):
        self.wait(AFTER_ENTER_MS)
        self.step("Browser Assist verification", "FAIL: selected window is not Chrome")
        return self

    def assist_landed(self, address, title, verified, *, window=None, element=None):
        """An unproven page is left by Escape, sent to `window`."""
        self.wait(AFTER_ENTER_MS)
        self.step("Browser Assist verification",
                  f'address="{trace_safe(address)}"; selectedTitle="{trace_safe(title)}"; '
                  f'verified={yes_no(verified)}')
        if not verified:
            self._send(window, ESCAPE_EVENTS, (), element)
        return self

    def assist_ready(self, title):
        self.step("ChatGPT Method 2", "PASS: bounded Tab Search selected a verified ChatGPT page")
        self.step("ChatGPT Diagnostic Summary", "Method 1=FAIL; Method 2=PASS; overall=PASS")
        self.step("Result", "Ready")
        self._end()
        self.succeeds = True
        self.reply_value = {
            "success": True, "browser": "Chrome", "windowHandle": {}, "selectedTitle": title,
            "selectedTabIndex": -1, "selectedAutomationId": "",
        }
        return self

    def _send(self, window, attempted, refused=(), element=None):
        """One SendInput call for each event."""
        for number, (vk, up) in enumerate(attempted):
            self.sent_calls += 1
            if number not in refused:
                self.input.append({"ms": self.end_ms, "window": window, "element": element, "vk": vk, "up": up,
                                   "batch": self.sent_calls})
