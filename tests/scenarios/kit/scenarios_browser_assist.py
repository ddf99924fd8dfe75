"""The search for a ChatGPT tab by Chrome's Search tabs box: each stage as it goes well, and each way it fails."""
from .activation_assist import FIELD_NOT_SET, OPENING_EVENTS
from .activation_cases import (CHATGPT_URL, MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, chatgpt_page, desk, mail_tab,
                               quiet_home, report_tab, tab)
from .activation_tabs import seen, window
from .browser_assist import (BOX, ENTER_MS, FIELD, FIELD_MS, KEY, KEYS_MS, LISBON, PASSES_MS, QUIET_HOME, SEEN_CHROME,
                             assist_case, begin, chrome, closes, fails, field, field_stage, foreground_stage, found,
                             leads_to, opens, plain)
from .core import E_FAIL, at, bring_up, browser, fault, move_focus, on_key, on_read, remove, wait


# ---- it goes well

def successes():
    windows = plain()
    there = {"work": 2, "home": 0}
    yield assist_case("box-leads-to-the-chatgpt-page", windows, found(begin(windows)), selected=there,
                      foreground="work", values={"work/composer": ""},
                      calls={"SetForegroundWindow": 1, "IUIAutomationValuePattern::SetValue": 1})
    for address, word in (("https://www.chatgpt.com/", "www-host"), ("https://chat.openai.com/c/8", "legacy-host"),
                          ("HTTPS://ChatGPT.com:443/c/1", "host-with-a-port"), ("chatgpt.com?m=1", "host-and-a-query"),
                          ("chatgpt.com#top", "host-and-a-fragment")):
        windows = plain(chrome(address=address))
        yield assist_case(f"address-of-a-{word}-is-proof", windows, found(begin(windows), address=address),
                          selected=there, foreground="work")
    for name, word in (("SEARCH TABS", "in-capitals"), ("Type to search tabs and history", "among-other-words")):
        windows = plain(chrome(opens(name=name), leads_to({"selectTab": LISBON})))
        yield assist_case(f"field-named-{word}-is-the-box", windows, found(begin(windows)), selected=there,
                          foreground="work")
    # The title is that of the tab that says so, and may be empty.
    silent = tab(LISBON, CHATGPT_URL, chatgpt_page(), selection="none")
    windows = plain(chrome(strip=(mail_tab(), report_tab(), silent)))
    yield assist_case("tab-that-reports-no-selection-gives-no-title", windows, found(begin(windows), title=""),
                      selected=there, foreground="work")
    windows = plain()
    yield assist_case("follow-up-asks-once-more-for-the-window", windows, found(begin(windows)), selected=there,
                      foreground="work", behind=[wait(1000)], looks=False, calls={"SetForegroundWindow": 2})

    windows = plain(chrome(minimized=True))
    yield assist_case("minimised-chrome-is-restored", windows, found(begin(windows)), selected=there,
                      foreground="work", windows_at_end={"work": {"minimized": False}})


def other_windows():
    """The page that was found stands in another window."""
    # At the time of the search it shows nothing of ChatGPT.
    spare = browser("spare", "chrome.exe", [tab("Porto", "pages.example/porto")], bounds=(200, 100, 1500, 900),
                    rules=[at(ENTER_MS + 1, {"address": "chatgpt.com/c/2"})])
    windows = plain(chrome(opens(), leads_to(bring_up("spare"))), spare)
    tabs = [SEEN_CHROME, window("Chrome", seen(0, "Porto", "selected")), QUIET_HOME]
    activation = begin(windows, *tabs)
    activation.assist_begins().assist_foreground().assist_keys_opening("work").assist_field_set()
    activation.assist_enter("work", window_behind="spare").assist_landed("chatgpt.com/c/2", "Porto", True)
    activation.assist_ready("Porto")
    yield assist_case("page-in-another-chrome-window-is-that-windows", windows, activation,
                      selected={"work": 0, "spare": 0, "home": 0}, foreground="spare")

    spare = spare | {"rules": []}
    windows = plain(chrome(opens(), leads_to(bring_up("spare"))), spare)
    activation = begin(windows, *tabs)
    activation.front_at_end = "spare"

    def elsewhere(one):
        one.assist_begins().assist_foreground().assist_keys_opening("work").assist_field_set()
        one.assist_enter("work", window_behind="spare").assist_landed("", "Porto", False, window="spare")

    activation.no_session(elsewhere)
    yield assist_case("page-of-another-chrome-window-that-proves-nothing-is-escaped", windows, activation,
                      selected={"work": 0, "spare": 0, "home": 0})

    for target, word in (("home", "another-browser"), ("editor", "no-browser"), (None, "nothing")):
        windows = plain(chrome(opens(), leads_to(bring_up(target))))
        activation = begin(windows)

        def not_chrome(one, target=target):
            field_stage(one).assist_enter("work", window_behind=target).assist_not_chrome()

        activation.no_session(not_chrome)
        activation.front_at_end = target
        yield assist_case(f"landing-on-{word}-is-not-chrome", windows, activation, values={})


# ---- which window

def choices():
    for windows, seen_windows, word in (
            (desk(quiet_home()), [QUIET_HOME], "only-edge-is-open"),
            (desk(chrome(visible=False), quiet_home()), [SEEN_CHROME, QUIET_HOME], "chrome-is-hidden"),
            (desk(chrome(uia=False), quiet_home()), [window("Chrome", has_root=False), QUIET_HOME],
             "chrome-shows-no-tabs")):
        activation = begin(windows, *seen_windows)
        activation.front_at_end, activation.front_requests = "main", 0
        activation.no_session(lambda one: one.assist_without_chrome())
        selected = {one["id"]: 0 for one in windows if "tabs" in one}
        yield assist_case(f"no-key-is-sent-where-{word}", windows, activation, selected=selected)

    few = chrome(identifier="few", strip=(mail_tab(),))
    seen_few = window("Chrome", SEEN_MAIL, id="few")
    seen_work = window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), seen(2, LISBON), id="work")
    windows = plain(few, chrome())
    activation = found(begin(windows, seen_few, seen_work, QUIET_HOME))
    yield assist_case("window-with-the-most-tabs-is-used", windows, activation,
                      selected={"few": 0, "work": 2, "home": 0}, foreground="work")
    activation = begin(windows, seen_few, seen_work, QUIET_HOME, front="few")
    activation.front_at_end = "few"

    def nowhere(one):
        one.assist_begins().assist_foreground().assist_keys_opening("few").assist_field_set()
        one.assist_enter("few").assist_landed("", MAIL_TITLE, False, window="few")

    activation.no_session(nowhere)
    yield assist_case("window-in-front-is-used-though-another-has-more-tabs", windows, activation,
                      selected={"few": 0, "work": 0, "home": 0}, start="few")


# ---- it fails

def unconfirmed(one):
    one.assist_begins().assist_foreground(confirmed=False)


def foreground():
    windows = plain(chrome(foregroundRequests="refused"))
    activation = begin(windows)
    activation.front_at_end = "main"
    yield assist_case("no-key-is-sent-without-the-foreground", windows, activation.no_session(unconfirmed),
                      calls={"SetForegroundWindow": 1})
    for ms, target, word in ((PASSES_MS + 60, "editor", "loses-it-at-once"), (PASSES_MS + 60, None, "leaves-it-empty")):
        windows = plain(chrome(opens(), at(ms, bring_up(target))))
        activation = begin(windows)
        activation.front_at_end = target
        yield assist_case(f"no-key-is-sent-to-a-window-that-{word}", windows, activation.no_session(unconfirmed))

    windows = plain(chrome(opens(), at(PASSES_MS + 60, {"closeWindow": "work"})))
    activation = begin(windows)
    activation.front_at_end = "main"
    yield assist_case("no-key-is-sent-to-a-window-that-closes", windows, activation.no_session(unconfirmed),
                      selected={"home": 0})


def refused_keys():
    """Each of the six events may be refused; what is down goes up again."""
    control, shift = OPENING_EVENTS[0], OPENING_EVENTS[1]
    control_up = OPENING_EVENTS[5]
    for nth, attempted, refused in ((1, (control,), (0,)), (2, (control, shift, control_up), (1,)),
                                    (3, OPENING_EVENTS, (2,)), (4, OPENING_EVENTS, (3,))):
        def stages(one, attempted=attempted, refused=refused, nth=nth):
            foreground_stage(one).assist_keys("work", attempted=attempted, refused=refused, sent=False,
                                              opened=nth == 4 and FIELD or None)

        windows = plain()
        yield fails(f"opening-event-{nth}-that-is-refused-ends-the-search", windows, stages,
                    faults=[fault("SendInput", 0, nth)], values={f"work/{FIELD}": ""} if nth == 4 else {})
    # The key that stays down makes another key of Enter; this Chrome takes it for the same.
    for nth, held in ((5, "Shift"), (6, "Ctrl")):
        held_enter = on_key(f"{held}+Enter", remove(FIELD), {"selectTab": LISBON})
        windows = plain(chrome(opens(), held_enter))
        activation = begin(windows)
        activation.assist_begins().assist_foreground().assist_keys_opening("work", refused=(nth - 1,))
        activation.assist_field_set().assist_enter("work").assist_landed(CHATGPT_URL, LISBON, True)
        activation.assist_ready(LISBON)
        yield assist_case(f"opening-event-{nth}-that-is-refused-ends-nothing", windows, activation,
                          selected={"work": 2, "home": 0}, foreground="work", faults=[fault("SendInput", 0, nth)])

    def enter_refused(refused, attempted):
        def stages(one):
            field_stage(one).assist_enter("work", result="FAILED", refused=refused, attempted=attempted)
        return stages

    down, up = (13, False), (13, True)
    windows = plain()
    yield fails("enter-that-is-refused-is-not-released", windows, enter_refused((0,), (down,)),
                faults=[fault("SendInput", 0, 7)], values={f"work/{FIELD}": "chatgpt.com"})
    yield fails("enter-whose-release-is-refused-has-failed", windows, enter_refused((1,), (down, up)),
                selected={"work": 2, "home": 0}, faults=[fault("SendInput", 0, 8)])


def fields():
    """What has the keyboard behind the keys is not the box: nothing is written, and Escape closes what opened."""
    def refused(element=None, opened=None, escaped=...):
        def stages(one):
            foreground_stage(one).assist_keys("work", opened=opened)
            one.assist_field_refused("work", element=element, element_behind=element if escaped is ... else escaped)
        return stages

    def not_set(one):
        foreground_stage(one).assist_keys_opening("work")
        one.assist_field_refused("work", result=FIELD_NOT_SET, element=FIELD, element_behind=None)

    untouched = {"IUIAutomationValuePattern::SetValue": 0}
    yield fails("chrome-that-knows-no-such-key-is-left", plain(chrome(on_key("Ctrl+J"))), refused(), calls=untouched)
    # Another field has the keyboard.
    bar = on_key(KEY, move_focus("addressBar"))
    yield fails("address-bar-is-not-the-box", plain(chrome(bar)), refused("addressBar", "addressBar"), calls=untouched)
    for facts, word in (({"name": "Search"}, "other-name"), ({"name": "Search  tabs"}, "two-blanks"),
                        ({"name": ""}, "no-name"), ({"unreadable": ["name"]}, "unreadable-name"),
                        ({"unreadable": ["controlType"]}, "unreadable-type")):
        windows = plain(chrome(opens(**facts), closes()))
        yield fails(f"field-with-{word}-is-not-the-box", windows, refused(FIELD, FIELD, None), calls=untouched)
    windows = plain(chrome(opens(field(type="document", focusable=True)), closes()))
    yield fails("document-of-the-name-is-not-the-box", windows, refused(FIELD, FIELD, None), calls=untouched)
    for result, word in ((E_FAIL, "cannot-be-had"), (None, "is-empty")):
        yield fails(f"focus-that-{word}-is-not-the-box", plain(), refused(FIELD, FIELD, None), calls=untouched,
                    faults=[fault("IUIAutomation::GetFocusedElement", result)])

    for faults, word in (([fault("IUIAutomationValuePattern::SetValue", E_FAIL)], "refused-value"),
                         ([fault("IUIAutomationElement::GetCurrentPatternAs", E_FAIL, element=FIELD)],
                          "failing-pattern"),
                         ([fault("IUIAutomationElement::GetCurrentPatternAs", None, element=FIELD)], "empty-pattern"),
                         ([fault("SysAllocString", None)], "text-without-memory")):
        windows = plain(chrome(opens(), closes(), leads_to()))
        yield fails(f"field-with-{word}-cannot-be-set", windows, not_set, faults=faults)

    def no_pattern(one):
        foreground_stage(one).assist_keys_opening("work")
        one.assist_field_refused("work", result=FIELD_NOT_SET, element=FIELD, element_behind=None)

    # The editor comes up while the field is looked at.
    def not_set_behind(one):
        foreground_stage(one).assist_keys_opening("work")
        one.assist_field_refused("work", result=FIELD_NOT_SET, escapes=False)
        one.front_at_end = "editor"

    windows = plain(chrome(opens(), closes(), on_read(FIELD, bring_up("editor"))))
    yield fails("field-that-cannot-be-set-behind-another-window-gets-no-escape", windows, not_set_behind,
                faults=[fault("IUIAutomationValuePattern::SetValue", E_FAIL)], values={f"work/{FIELD}": ""})

    bare = {"type": "edit", "id": FIELD, "name": "Search tabs", "bounds": list(BOX)}
    yield fails("field-without-a-value-cannot-be-set", plain(chrome(opens(bare), closes())), not_set)


def people():
    """Someone switches windows at one of the waits: no key goes where it isn't meant."""
    def run(file, ms, stages, rules=(), **more):
        windows = plain(chrome(opens(), leads_to({"selectTab": LISBON}), closes(), at(ms, bring_up("editor")), *rules))
        activation = begin(windows)
        activation.front_at_end = "editor"
        activation.no_session(stages)
        return assist_case(file, windows, activation, **more)

    def unfocused(one):
        foreground_stage(one).assist_keys_opening("work").assist_field_refused("work", escapes=False)

    yield run("person-who-switches-behind-the-keys-gets-no-escape", KEYS_MS + 100, unfocused,
              values={f"work/{FIELD}": ""})

    def skipped(one):
        field_stage(one).assist_enter_skipped()

    yield run("person-who-switches-behind-the-text-gets-no-enter", FIELD_MS + 100, skipped,
              values={f"work/{FIELD}": "chatgpt.com"})

    def not_chrome(one):
        field_stage(one).assist_enter("work").assist_not_chrome()

    yield run("person-who-switches-behind-enter-gets-no-escape", ENTER_MS + 100, not_chrome,
              selected={"work": 2, "home": 0})

    # Between the foreground and the keys nothing is looked at: they go to the window that came up.
    def astray(one):
        foreground_stage(one).assist_keys("editor").assist_field_refused("work", escapes=False)

    yield run("person-who-switches-in-front-of-the-keys-gets-them-and-no-more", KEYS_MS - 60, astray)

    # The window stays in front, its box closes or loses the keyboard.
    for action, word in ((remove(FIELD), "closes"), (move_focus("addressBar"), "loses-the-keyboard"),
                         (move_focus(None), "leaves-the-keyboard-to-nobody")):
        windows = plain(chrome(opens(), leads_to(), at(FIELD_MS + 100, action)))
        yield fails(f"box-that-{word}-behind-the-text-gets-no-enter", windows, skipped)
    windows = plain()
    yield fails("comparison-of-the-fields-that-fails-gets-no-enter", windows, skipped,
                faults=[fault("IUIAutomation::CompareElements", E_FAIL)], values={f"work/{FIELD}": "chatgpt.com"})
    yield fails("focus-that-cannot-be-had-again-gets-no-enter", windows, skipped,
                faults=[fault("IUIAutomation::GetFocusedElement", E_FAIL, 2)], values={f"work/{FIELD}": "chatgpt.com"})

    # The box closes in front of the first look.
    windows = plain(chrome(opens(), at(KEYS_MS + 100, remove(FIELD))))

    def lost(one):
        foreground_stage(one).assist_keys_opening("work").assist_field_refused("work")

    yield fails("box-that-closes-at-once-is-not-verified", windows, lost)


def landings():
    """The page that Enter leads to is none of ChatGPT's."""
    def landed(address, title):
        def stages(one):
            field_stage(one).assist_enter("work").assist_landed(address, title, False, window="work")
        return stages

    for address, shown, word in (("https://claude.ai/chat/1", None, "another-provider"),
                                 ("https://www.chat.openai.com/", None, "www-form-of-the-legacy-host"),
                                 ("https://chatgpt.com.example/c/1", None, "host-that-begins-alike"),
                                 ("https://beta.chatgpt.com/c/1", None, "sub-domain"),
                                 ("https://search.example/?q=chatgpt.com", None, "query-that-holds-the-host"),
                                 ("pages.example/porto", "", "unknown-host"), ("", "", "no-address")):
        windows = plain(chrome(address=address))
        shown = address if shown is None else shown
        yield fails(f"page-of-a-{word}-is-escaped", windows, landed(shown, LISBON), selected={"work": 2, "home": 0})
    windows = plain(chrome(opens(), leads_to()))
    yield fails("search-that-leads-nowhere-is-escaped", windows, landed("", MAIL_TITLE))
    # Roots of the window: three passes and the one of the selected page in front of them, the address, the tab.
    windows = plain()
    yield fails("address-that-cannot-be-read-is-no-proof", windows, landed("", LISBON), selected={"work": 2, "home": 0},
                faults=[fault("IUIAutomation::ElementFromHandle", E_FAIL, 5, window="work")])
    # Five conditions for each of two windows in every pass, one for the address, one for the title where there is a
    # root, and one for the look at the window in front.
    for call, nth, conditions, word in (("IUIAutomation::ElementFromHandle", 6, 4 * 2 * 5 + 1 + 1, "root"),
                                        ("IUIAutomationElement::FindAll", 4 * 4 + 2, 4 * 2 * 5 + 1 + 1 + 1, "search")):
        activation = found(begin(windows), title="")
        yield assist_case(f"title-whose-{word}-fails-is-empty", windows, activation, selected={"work": 2, "home": 0},
                          foreground="work", faults=[fault(call, E_FAIL, nth, window="work")],
                          calls={"IUIAutomation::CreatePropertyCondition": conditions})
    yield fails("process-that-cannot-be-opened-is-not-chrome", windows,
                lambda one: field_stage(one).assist_enter("work").assist_not_chrome(), selected={"work": 2, "home": 0},
                faults=[fault("OpenProcess", 0, 4 * top(windows) + 1)])


def top(windows):
    """Processes that one walk over the windows looks at: each window's, the host's own among them."""
    return len(windows) + 1


def scenarios():
    for part in (successes, other_windows, choices, foreground, refused_keys, fields, people, landings):
        yield from part()
