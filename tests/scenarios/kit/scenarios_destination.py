"""A ChatGPT page that is selected in its window already: which window is chosen, and that nothing but the foreground
changes."""
from .activation import Activation
from .activation_cases import (CHATGPT_URL, CLAUDE_URL, MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, case,
                               chatgpt_tab, claude_tab, desk, mail_tab, provider_arguments, quiet_home, report_tab,
                               work)
from .activation_routes import (AFTER_RESTORE_MS, ALREADY_FOREGROUND, BROWSER_CHANGED, FIRST_VERIFIED, FORCE_PASS_MS,
                                INCOMPLETE, NOT_CONFIRMED, ONLY_SELECTED, REMEMBERED_INDEX,
                                REMEMBERED_VALID)
from .activation_tabs import INDEX_AND_TITLE, S_OK, UNIQUE_TITLE, live, seen, trace_safe, window
from .core import E_FAIL, at, bring_up, browser, close_window, fault, tab, user, wait
from .warm import QUIET_HOME, memory

LISBON, PORTO = "Trip to Lisbon - ChatGPT", "Trip to Porto - ChatGPT"
NEVER = sum(FORCE_PASS_MS)


def upper(**facts):
    return browser("upper", "chrome.exe", [mail_tab(), chatgpt_tab(LISBON)], 1, **facts)


def lower(process="msedge.exe", **facts):
    return browser("lower", process, [chatgpt_tab(PORTO, "https://chatgpt.com/c/19"), report_tab()], 0,
                   bounds=(300, 80, 1800, 1000), **facts)


def chosen(file, windows, code, title, index, *, shown="Chrome", front, selected, candidates=1, takes_ms=None,
           start=..., remembered=None, automation_id="", name="ChatGPT", calls=None, **more):
    """A window is chosen and comes forward: no tab is selected, no window dumped, nothing else looked at."""
    activation = Activation(name)
    activation.destination(code, title, candidates=candidates,
                           takes_ms=FORCE_PASS_MS[0] if takes_ms is None else takes_ms)
    activation.destination_ready(shown, seen(index, title, id=automation_id))
    return case(f"{file}", windows, activation, provider_arguments("ChatGPT", name=name, **(remembered or {})),
                selected=selected, selections=0, foreground=front, start=start, folder="destination",
                calls={"EnumWindows": 1, **(calls or {})}, **more)


BOTH = {"upper": 1, "lower": 0}


def foreground_first():
    in_front = {"code": ALREADY_FOREGROUND, "takes_ms": 0, "selected": BOTH, "candidates": 2,
                "calls": {"SetForegroundWindow": 0, "AttachThreadInput": 0, "SetWindowPos": 0}}
    windows = desk(upper(), lower())
    yield chosen("second-of-two-windows-in-front-is-chosen", windows, title=PORTO, index=0, shown="Edge", front="lower",
                 start="lower", **in_front)
    yield chosen("first-of-two-windows-in-front-is-chosen", windows, title=LISBON, index=1, front="upper",
                 start="upper", **in_front)
    for remembered, word in ((memory(0, window_id="lower", browser="Edge"), "position"),
                             ({"rememberedTitle": PORTO}, "title"),
                             (memory(0, PORTO, window_id="lower", browser="Edge"), "target")):
        yield chosen(f"window-in-front-outweighs-the-remembered-{word}", windows, title=LISBON, index=1, front="upper",
                     start="upper", remembered=remembered, **in_front)
    yield chosen("only-window-in-front-is-chosen-as-such", desk(upper()), ALREADY_FOREGROUND, LISBON, 1, front="upper",
                 start="upper", takes_ms=0, selected={"upper": 1}, calls={"SetForegroundWindow": 0})
    yield chosen("foreign-window-in-front-decides-nothing", windows, FIRST_VERIFIED, LISBON, 1, front="upper",
                 start="editor", selected=BOTH, candidates=2, calls={"AttachThreadInput": 4})
    yield chosen("no-window-in-front-decides-nothing", windows, FIRST_VERIFIED, LISBON, 1, front="upper", start=None,
                 selected=BOTH, candidates=2, calls={"AttachThreadInput": 2})


def remembered_second():
    windows = desk(upper(), lower())

    def valid(file, remembered):
        return chosen(file, windows, REMEMBERED_VALID, PORTO, 0, shown="Edge", front="lower", selected=BOTH,
                      candidates=2, remembered=remembered)

    yield valid("remembered-position-identifies-a-window", memory(0, window_id="lower", browser="Edge"))
    # The browser's name takes no part, nor does a title that fits nothing.
    yield valid("remembered-position-needs-no-browser", memory(0, window_id="lower", browser=""))
    yield valid("remembered-position-of-another-browsers-name-counts", memory(0, window_id="lower", browser="Vivaldi"))
    yield valid("remembered-position-counts-beside-a-title-of-none", memory(0, "Shopping list", window_id="lower"))
    yield valid("remembered-title-identifies-a-window", {"rememberedTitle": PORTO})
    yield valid("remembered-title-may-be-a-part", {"rememberedTitle": "to porto"})
    yield valid("remembered-title-may-be-longer", {"rememberedTitle": f"Notes on {PORTO} - Memory saver - 9 MB"})
    yield valid("remembered-title-identifies-beside-a-position-of-none", memory(7, PORTO, window_id="editor"))
    yield valid("remembered-title-identifies-beside-a-handle-without-an-index", memory(-1, PORTO, window_id="upper"))

    def first(file, remembered):
        return chosen(file, windows, FIRST_VERIFIED, LISBON, 1, front="upper", selected=BOTH, candidates=2,
                      remembered=remembered)

    yield first("remembered-handle-without-an-index-identifies-nothing", memory("", window_id="lower"))
    yield first("remembered-handle-with-an-index-below-zero-identifies-nothing", memory(-1, window_id="lower"))
    yield first("remembered-index-without-a-handle-identifies-nothing", memory(0) | {"rememberedWindowHandle": ""})
    yield first("remembered-index-of-another-tab-identifies-nothing", memory(1, window_id="lower"))
    yield first("remembered-title-of-none-identifies-nothing", {"rememberedTitle": "Shopping list"})
    yield first("remembered-title-of-seven-signs-is-no-part", {"rememberedTitle": "o Porto"})
    yield first("remembered-title-of-blanks-identifies-nothing", {"rememberedTitle": "   "})

    # The first that either sign fits: a title in front of a position.
    yield chosen("first-window-that-either-sign-fits-is-chosen", windows, REMEMBERED_VALID, LISBON, 1, front="upper",
                 selected=BOTH, candidates=2, remembered=memory(0, LISBON, window_id="lower"))
    yield chosen("remembered-position-whose-tab-is-no-longer-selected-is-passed-over", windows, FIRST_VERIFIED, LISBON,
                 1, front="upper", selected=BOTH, candidates=2, remembered=memory(0, window_id="upper"))
    yield chosen("remembered-target-counts-for-the-only-window-too", desk(lower()), REMEMBERED_VALID, PORTO, 0,
                 shown="Edge", front="lower", selected={"lower": 0}, remembered={"rememberedTitle": PORTO})


def others():
    yield chosen("only-selected-window-is-chosen", desk(work(mail_tab()), lower()), ONLY_SELECTED, PORTO, 0,
                 shown="Edge", front="lower", selected={"work": 0, "lower": 0})
    yield chosen("first-of-several-windows-is-the-upper-one", desk(lower(), upper()), FIRST_VERIFIED, PORTO, 0,
                 shown="Edge", front="lower", selected=BOTH, candidates=2)
    third = browser("third", "brave.exe", [chatgpt_tab("ChatGPT")], topmost=True)
    yield chosen("topmost-window-comes-first", desk(upper(), lower(), third), FIRST_VERIFIED, "ChatGPT", 0,
                 shown="Brave", front="third", selected={**BOTH, "third": 0}, candidates=3)
    for process, shown in (("chrome.exe", "Chrome"), ("msedge.exe", "Edge"), ("brave.exe", "Brave"),
                           ("firefox.exe", "Firefox"), ("vivaldi.exe", "Vivaldi")):
        yield chosen(f"page-in-{shown.lower()}-is-chosen", desk(lower(process)), ONLY_SELECTED, PORTO, 0, shown=shown,
                     front="lower", selected={"lower": 0})
    # The title says nothing, the address all; the id goes back as it is.
    for address, word in (("chatgpt.com", "bare-host"), ("https://www.chatgpt.com/?m=1", "www-host"),
                          ("https://chat.openai.com/c/4", "legacy-host"), ("HTTPS://ChatGPT.com/C/1", "capitals"),
                          ("https://search.example/?q=chatgpt.com", "query-that-holds-the-host")):
        windows = desk(work(mail_tab(), tab("Lisbon", address, automationId="view_8"), selected=1))
        yield chosen(f"address-of-a-{word}-proves-the-page", windows, ONLY_SELECTED, "Lisbon", 1, front="work",
                     selected={"work": 1}, automation_id="view_8")
    windows = desk(work(claude_tab("Plan - Claude", CHATGPT_URL)))
    yield chosen("title-of-another-provider-does-not-count-against-the-address", windows, ONLY_SELECTED,
                 "Plan - Claude", 0, front="work", selected={"work": 0})
    yield chosen("provider-name-in-capitals-is-the-same", desk(upper()), ONLY_SELECTED, LISBON, 1, front="upper",
                 selected={"upper": 1}, name="ChatGPT".upper())
    long = "Trip to Lisbon\nand " + "on and on " * 20
    windows = desk(work(chatgpt_tab(long)))
    yield chosen("long-title-is-cut-in-the-trace-alone", windows, ONLY_SELECTED, long, 0, front="work",
                 selected={"work": 0})
    assert trace_safe(long) != long

    # Two tabs of one window bear the marks of being selected, so both stand on the list.
    windows = desk(work(chatgpt_tab("ChatGPT"), chatgpt_tab("Trip - ChatGPT"), selected=1))
    yield chosen("second-tab-marked-by-the-windows-title-stands-on-the-list", windows, FIRST_VERIFIED, "ChatGPT", 0,
                 front="work", selected={"work": 1}, candidates=2)
    # A page with the address in front, without a sign of its own.
    windows = desk(work(mail_tab(), chatgpt_tab(LISBON, selection="none"), selected=1))
    yield chosen("tab-that-reports-no-selection-is-known-by-the-windows-title", windows, ONLY_SELECTED, LISBON, 1,
                 front="work", selected={"work": 1})


def shown_states():
    back = {"upper": {"minimized": False}}
    yield chosen("minimised-window-is-restored", desk(upper(minimized=True)), ONLY_SELECTED, LISBON, 1, front="upper",
                 selected={"upper": 1}, takes_ms=AFTER_RESTORE_MS + FORCE_PASS_MS[0], windows_at_end=back)
    yield chosen("hidden-window-is-passed-over", desk(upper(visible=False), lower()), ONLY_SELECTED, PORTO, 0,
                 shown="Edge", front="lower", selected=BOTH, windows_at_end={"upper": {"visible": False}})
    yield chosen("window-without-automation-is-passed-over", desk(upper(uia=False), lower()), ONLY_SELECTED, PORTO, 0,
                 shown="Edge", front="lower", selected=BOTH)
    yield chosen("window-without-an-address-is-passed-over", desk(upper(addressBar=None), lower()), ONLY_SELECTED,
                 PORTO, 0, shown="Edge", front="lower", selected=BOTH)
    faults = (("IUIAutomation::ElementFromHandle", E_FAIL, 1, "root"),
              ("IUIAutomationElement::FindAll", None, 4, "tabs"),
              ("IUIAutomationElement::FindAll", E_FAIL, 1, "address"))
    for call, result, nth, word in faults:
        yield chosen(f"window-whose-{word}-cannot-be-read-is-passed-over", desk(upper(), lower()), ONLY_SELECTED, PORTO,
                     0, shown="Edge", front="lower", selected=BOTH, faults=[fault(call, result, nth, window="upper")])
    for requests, takes_ms in ((1, sum(FORCE_PASS_MS[:2])), (2, NEVER)):
        yield chosen(f"window-comes-at-request-{requests + 1}", desk(upper(foregroundRequests=requests)), ONLY_SELECTED,
                     LISBON, 1, front="upper", selected={"upper": 1}, takes_ms=takes_ms,
                     calls={"SetForegroundWindow": requests + 1})


def follow_up():
    yield chosen("follow-up-asks-once-more", desk(upper()), ONLY_SELECTED, LISBON, 1, front="upper",
                 selected={"upper": 1}, behind=[wait(1000)], calls={"SetForegroundWindow": 2})
    yield chosen("follow-up-brings-the-window-back", desk(upper()), ONLY_SELECTED, LISBON, 1, front="upper",
                 selected={"upper": 1}, behind=[wait(100), user(foreground="editor"), wait(1000)],
                 calls={"SetForegroundWindow": 2})


def none():
    """No window stands on the list: the other routes follow, and find an inactive tab."""
    def run(file, strip, seen_tabs, live_tabs, place, *, selected_at=0, warm=None, remembered=None, composer=True,
            proves=False, more_steps=(), **facts):
        windows = desk(work(*strip, selected=selected_at, **facts), quiet_home())
        activation = Activation("ChatGPT").no_destination().warm_missed(warm or INCOMPLETE)
        activation.discover([window("Chrome", *seen_tabs, proves_composer=proves), QUIET_HOME], desktop=windows,
                            remembered=more_steps)
        target = next(one for one in seen_tabs if one.accepted)
        activation.choose("Chrome", target).select(live_tabs, UNIQUE_TITLE, place).settle()
        activation.chatgpt_identity(passes=True, composer=composer).finish()
        return case(file, windows, activation, provider_arguments("ChatGPT", **(remembered or {})),
                    selected={"work": target.index, "home": 0}, selections=1, foreground="work", folder="destination")

    inactive = seen(1, "ChatGPT", "anchoredTitle strictTitle rawTitle", score=450)
    claude = claude_tab("Plan - Claude")
    yield run("tab-behind-one-of-claude-is-not-on-the-list", (claude, chatgpt_tab("ChatGPT")),
              (seen(0, "Plan - Claude", "selected", url=CLAUDE_URL,
                    decision="REJECT_OTHER_PROVIDER"), inactive),
              live(("Plan - Claude", "S"), ("ChatGPT", "IT")), 1)
    yield run(
        "title-alone-puts-no-tab-on-the-list", (tab("Trips of ChatGPT"), chatgpt_tab("Plan - ChatGPT"), mail_tab()),
        (seen(0, "Trips of ChatGPT", "selected rawTitle"),
         seen(1, "Plan - ChatGPT", "anchoredTitle strictTitle rawTitle", score=450), seen(2, MAIL_TITLE)),
        live(("Trips of ChatGPT", "S"), ("Plan - ChatGPT", "IT"), (MAIL_TITLE,)), 1)
    yield run("remembered-tab-that-is-not-selected-is-not-on-the-list", (mail_tab(), chatgpt_tab("ChatGPT")),
              (SEEN_MAIL, inactive), live((MAIL_TITLE, "S"), ("ChatGPT", "IT")), 1, warm=BROWSER_CHANGED,
              remembered=memory(1, browser="Edge"))


def refused():
    """The chosen window doesn't come forward; there is no second choice, and the other routes follow."""
    windows = desk(upper(foregroundRequests="refused"), lower())
    activation = Activation("ChatGPT").destination(FIRST_VERIFIED, LISBON, candidates=2, foreground=NOT_CONFIRMED,
                                                   takes_ms=NEVER)
    target = seen(1, LISBON, "selected domain anchoredTitle verifiedContent rawTitle", url=CHATGPT_URL, score=800)
    other = seen(0, PORTO, "selected domain anchoredTitle verifiedContent rawTitle", url="https://chatgpt.com/c/19",
                 score=800)
    seen_windows = [window("Chrome", seen(0, MAIL_TITLE), target, proves_composer=True),
                    window("Edge", other, seen(1, REPORT_TITLE), proves_composer=True)]
    activation.discover(seen_windows, desktop=windows).choose("Chrome", target).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish(foreground=NOT_CONFIRMED, takes_ms=NEVER)
    yield case("window-that-refuses-is-tried-again-by-the-discovery-alone", windows, activation,
               provider_arguments("ChatGPT"), selected=BOTH, selections=0, folder="destination",
               calls={"SetForegroundWindow": 6, "EnumWindows": 2})

    windows = desk(upper(foregroundRequests=3), lower())
    activation = Activation("ChatGPT").destination(FIRST_VERIFIED, LISBON, candidates=2, foreground=NOT_CONFIRMED,
                                                   takes_ms=NEVER)
    activation.discover(seen_windows, desktop=windows).choose("Chrome", target).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    yield case("window-that-comes-late-is-brought-forward-by-the-discovery", windows, activation,
               provider_arguments("ChatGPT"), selected=BOTH, selections=0, foreground="upper", folder="destination",
               calls={"SetForegroundWindow": 4, "EnumWindows": 2})

    # The remembered tab is in another window, which comes.
    windows = desk(upper(foregroundRequests="refused"), work(mail_tab(), chatgpt_tab("ChatGPT")))
    activation = Activation("ChatGPT").destination(ONLY_SELECTED, LISBON, foreground=NOT_CONFIRMED, takes_ms=NEVER)
    activation.warm_inspected("Chrome", 2).warm_choice(REMEMBERED_INDEX, seen(1, "ChatGPT"))
    activation.warm_select(S_OK, live((MAIL_TITLE, "S"), ("ChatGPT", "IT")), INDEX_AND_TITLE, 1)
    activation.warm_verified(True, CHATGPT_URL).warm_ready("Chrome")
    yield case("window-that-refuses-leaves-the-remembered-tab", windows, activation,
               provider_arguments("ChatGPT", **memory(1)), selected={"upper": 1, "work": 1}, selections=1,
               foreground="work", folder="destination", calls={"EnumWindows": 1})

    # It closes between two requests: no further pass, and nothing is left to be found.
    for when, takes_ms, asked in ((60, FORCE_PASS_MS[0], 1), (200, sum(FORCE_PASS_MS[:2]), 2)):
        windows = desk(upper(foregroundRequests="refused", rules=[at(when, close_window("upper"))]))
        activation = Activation("ChatGPT").destination(ONLY_SELECTED, LISBON, foreground=NOT_CONFIRMED,
                                                       takes_ms=takes_ms)
        activation.discover([], [], [], desktop=windows, top_level=len(windows)).no_session()
        yield case(f"window-that-closes-behind-request-{asked}-is-given-up", windows, activation,
                   provider_arguments("ChatGPT"), selected={}, selections=0, folder="destination",
                   calls={"SetForegroundWindow": asked, "EnumWindows": 4})

    # Someone else's window comes up each time.
    rules = [at(60, bring_up("editor")), at(220, bring_up("editor")), at(420, bring_up("editor"))]
    windows = desk(upper(rules=rules))
    activation = Activation("ChatGPT").destination(ONLY_SELECTED, LISBON, foreground=NOT_CONFIRMED, takes_ms=NEVER)
    target = seen(1, LISBON, "selected domain anchoredTitle verifiedContent rawTitle", url=CHATGPT_URL, score=800)
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target, proves_composer=True)], desktop=windows)
    activation.choose("Chrome", target).already_selected().settle().chatgpt_identity(passes=True, composer=True)
    activation.finish()
    yield case("window-that-loses-the-foreground-thrice-is-brought-forward-by-the-discovery", windows, activation,
               provider_arguments("ChatGPT"), selected={"upper": 1}, selections=0, foreground="upper",
               folder="destination", calls={"SetForegroundWindow": 4})


def other_names():
    """The route is ChatGPT's alone."""
    windows = desk(upper(), lower())
    first = Activation("Gemini")
    tabs = [window("Chrome", seen(0, MAIL_TITLE), seen(1, LISBON, "selected", url=CHATGPT_URL,
                                                       decision="REJECT_OTHER_PROVIDER")),
            window("Edge", seen(0, PORTO, "selected", url="https://chatgpt.com/c/19",
                                decision="REJECT_OTHER_PROVIDER"), seen(1, REPORT_TITLE))]
    first.discover(*[tabs] * 3, desktop=windows).no_session()
    yield case("gemini-does-not-look-for-selected-chatgpt-pages", windows, first, provider_arguments("Gemini"),
               selected=BOTH, selections=0, folder="destination", calls={"EnumWindows": 3})


def scenarios():
    for part in (foreground_first, remembered_second, others, shown_states, follow_up, none, refused, other_names):
        yield from part()
