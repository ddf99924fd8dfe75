"""The remembered tab can't be named or read: nothing is touched, and the full discovery follows."""
from .activation import Activation
from .activation_cases import (MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, claude_tab, desk, gemini_tab, home, mail_tab,
                               new_tab, quiet_home, report_tab, work)
from .activation_routes import BROWSER_CHANGED, CURRENT_UNKNOWN, INCOMPLETE, NO_TABS_READ, NOT_RESOLVED, WINDOW_GONE
from .activation_tabs import live, seen, window
from .core import E_FAIL, browser, fault, tab
from .warm import (NOTES, NOTES_AT_1, QUIET_HOME, ROOT, SEEN_REPORT, discovers_notes, gemini_desk, memory, warm_case)

SEARCH = "IUIAutomationElement::FindAll"
CONDITION = "IUIAutomation::CreatePropertyCondition"


def missed(file, reason, remembered, *, windows=None, faults=(), selected=None, **more):
    """The discovery behind it finds the notes, as if nothing had been remembered."""
    windows = windows or gemini_desk()
    activation = Activation("Gemini").warm_missed(reason)
    discovers_notes(activation, windows)
    return warm_case(f"gemini-{file}", windows, activation, remembered, selected=selected or {"work": 1, "home": 0},
                     selections=1, foreground="work", faults=faults, **more)


def incomplete():
    whole = memory(1)
    for key, values in (("rememberedWindowHandle", ("", "0", "no window", None)),
                        ("rememberedTabIndex", ("", "-1", "-7", None)), ("rememberedBrowser", ("", None))):
        words = {"": "empty", "0": "zero", "no window": "without-digits", None: "absent", "-1": "below-zero",
                 "-7": "far-below-zero"}
        names = {"rememberedWindowHandle": "handle", "rememberedTabIndex": "index", "rememberedBrowser": "browser"}
        for value in values:
            yield missed(f"remembered-{names[key]}-that-is-{words[value]}-is-incomplete", INCOMPLETE,
                         whole | {key: value})


def window_gone():
    for handle, word in (("4294901760", "never-lived"), ("18446744073709551615", "is-the-largest-number"),
                         ("99999999999999999999999", "is-beyond-the-largest-number")):
        yield missed(f"window-that-{word}-does-not-exist", WINDOW_GONE,
                     memory(1) | {"rememberedWindowHandle": handle})


def browser_changed():
    """The handle belongs to another program's window by now."""
    yield missed("window-of-another-browser-is-not-the-remembered-one", BROWSER_CHANGED, memory(1, window_id="home"))
    yield missed("window-of-no-browser-is-not-the-remembered-one", BROWSER_CHANGED, memory(1, window_id="editor"))
    yield missed("hosts-own-window-is-not-the-remembered-one", BROWSER_CHANGED, memory(1, window_id="main"))
    yield missed("remembered-browser-is-compared-whole", BROWSER_CHANGED, memory(1, browser="Chrom"))
    yield missed("remembered-browser-is-no-image-name", BROWSER_CHANGED, memory(1, browser="chrome.exe"))
    for call, word in (("OpenProcess", "be-opened"), ("QueryFullProcessImageNameW", "be-named")):
        yield missed(f"window-whose-process-cannot-{word}-is-not-the-remembered-one", BROWSER_CHANGED, memory(1),
                     faults=[fault(call, 0)])


def tabs_unread():
    # A browser that isn't supported goes by its image name, which may be remembered, and is not read.
    other = browser("other", "opera.exe", [tab(NOTES)], title="Opera")
    windows = [*gemini_desk(), other]
    yield missed("unsupported-browser-is-not-read", NO_TABS_READ, memory(0, browser="Opera.EXE", window_id="other"),
                 windows=windows, selected={"work": 1, "home": 0, "other": 0})
    for call, word in ((ROOT, "root"), (SEARCH, "search"), (CONDITION, "condition")):
        for result, how in ((E_FAIL, "fails"), (None, "is-empty")):
            about = {} if call == CONDITION else {"window": "work"}
            yield missed(f"inspection-whose-{word}-{how}-is-a-miss", NO_TABS_READ, memory(1),
                         faults=[fault(call, result, **about)])

    windows = desk(work(mail_tab(), gemini_tab(), report_tab()), home(mail_tab(), gemini_tab(), uia=False))
    activation = Activation("Gemini").warm_missed(NO_TABS_READ)
    discovers_notes(activation, windows,
                    windows_seen=[window("Chrome", SEEN_MAIL, NOTES_AT_1, SEEN_REPORT), window("Edge", has_root=False)])
    yield warm_case("gemini-window-without-automation-is-not-read", windows, activation,
                    memory(1, browser="Edge", window_id="home"), selected={"work": 1, "home": 0}, selections=1,
                    foreground="work")


def not_resolved():
    def run(file, index, title, strip, tabs, live_tabs, *, inspected=None, remembered=(), faults=(), target=None):
        windows = gemini_desk(*strip)
        activation = Activation("Gemini").warm_inspected("Chrome", inspected if inspected is not None else len(strip),
                                                         NOT_RESOLVED)
        discovers_notes(activation, windows, tabs, live_tabs, remembered=remembered, target=target)
        return warm_case(f"gemini-{file}", windows, activation, memory(index, title),
                         selected={"work": activation.target.index, "home": 0}, selections=1, foreground="work",
                         faults=faults)

    whole = live((MAIL_TITLE, "S"), (NOTES, "IT"), (REPORT_TITLE,))
    strip = (mail_tab(), gemini_tab(), report_tab())
    tabs = (SEEN_MAIL, NOTES_AT_1, SEEN_REPORT)
    shopping = [{"step": "Remembered title", "result": "Shopping list"}]
    yield run("index-beyond-the-tabs-and-no-title-name-no-tab", 3, "", strip, tabs, whole)
    yield run("index-beyond-the-tabs-and-a-title-of-none-name-no-tab", 9, "Shopping list", strip, tabs, whole,
              remembered=shopping)
    # A number beyond its range is the greatest there is.
    yield run("index-too-large-for-a-number-names-no-tab", "4294967297", "", strip, tabs, whole)

    for title in ("New tab", "Settings", "Downloads", "History", "Extensions", "Bookmarks", "Chrome"):
        other = (mail_tab(), gemini_tab(), tab(title))
        yield run(f"index-of-a-{title.lower().replace(' ', '-')}-page-names-no-tab", 2, "", other,
                  (SEEN_MAIL, NOTES_AT_1, seen(2, title, "selected" if title == "Chrome" else "")),
                  live((MAIL_TITLE, "S"), (NOTES, "IT"), (title,)))

    # Twins of the remembered title and no tab at the index, or a page that is no chat at it.
    twins = [{"step": "Remembered title", "result": NOTES}]
    for index, extra in ((5, ()), (3, (new_tab(),))):
        strip_of_twins = (mail_tab(), gemini_tab(), gemini_tab(), *extra)
        marks = "remembered anchoredTitle rawTitle"
        tabs_of_twins = (SEEN_MAIL, seen(1, NOTES, marks, score=460), seen(2, NOTES, marks, score=460),
                         *(seen(3, "New tab") for _ in extra))
        yield run(f"two-tabs-of-the-title-and-{'a-new-tab' if extra else 'none'}-at-the-index-name-no-tab", index,
                  NOTES, strip_of_twins, tabs_of_twins,
                  live((MAIL_TITLE, "S"), (NOTES, "IT"), (NOTES, "T"), *(("New tab",) for _ in extra)),
                  remembered=twins)

    hole = (mail_tab(), tab(""), gemini_tab())
    windows = gemini_desk(*hole)
    activation = Activation("Gemini").warm_inspected("Chrome", 2, NOT_RESOLVED)
    target = seen(2, NOTES, "anchoredTitle rawTitle", score=200)
    discovers_notes(activation, windows, target=target, live_tabs=live((MAIL_TITLE, "S"), ("",), (NOTES, "IT")),
                    windows_seen=[window("Chrome", SEEN_MAIL, target, nameless_tabs=1), QUIET_HOME])
    yield warm_case("gemini-index-of-a-tab-without-a-name-names-no-tab", windows, activation, memory(1),
                    selected={"work": 2, "home": 0}, selections=1, foreground="work")

    yield run("length-that-cannot-be-read-is-no-tab", 1, NOTES, strip, (SEEN_MAIL, seen(
        1, NOTES, "remembered anchoredTitle rawTitle", score=460), SEEN_REPORT), whole, inspected=0, remembered=twins,
        faults=[fault("IUIAutomationElementArray::get_Length", E_FAIL)])


def current_unknown():
    """No tab says that it is selected, so there would be no way back; the window's title is not asked."""
    windows = gemini_desk(tab(MAIL_TITLE, "mail.northwind.example/inbox", selection="none"), gemini_tab(),
                          report_tab())
    activation = Activation("Gemini").warm_inspected("Chrome", 3, CURRENT_UNKNOWN)
    discovers_notes(activation, windows, live_tabs=live((MAIL_TITLE,), (NOTES, "IT"), (REPORT_TITLE,)))
    yield warm_case("gemini-current-tab-that-reports-no-selection-is-unknown", windows, activation, memory(1),
                    selected={"work": 1, "home": 0}, selections=1, foreground="work")

    windows = gemini_desk(mail_tab(), gemini_tab(), report_tab(), selected=None)
    activation = Activation("Gemini").warm_inspected("Chrome", 3, CURRENT_UNKNOWN)
    discovers_notes(activation, windows, (seen(0, MAIL_TITLE), NOTES_AT_1, SEEN_REPORT),
                    live((MAIL_TITLE,), (NOTES, "IT"), (REPORT_TITLE,)))
    yield warm_case("gemini-window-that-shows-no-tab-has-no-way-back", windows, activation, memory(1),
                    selected={"work": 1, "home": 0}, selections=1, foreground="work")

    # The remembered tab itself stands in front, but doesn't say so.
    url = "https://claude.ai/new"
    windows = desk(work(mail_tab(), claude_tab("Plan - Claude", url, selection="none"), selected=1), quiet_home())
    activation = Activation("Claude").warm_inspected("Chrome", 2, CURRENT_UNKNOWN)
    target = seen(1, "Plan - Claude", "selected domain anchoredTitle rawTitle", url=url, score=520)
    weather = seen(0, "Weather for the weekend", "selected", url="https://weather.example/weekend",
                   decision="REJECT_NON_CHAT_CLAUDE_PAGE")
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target),
                         window("Edge", weather, seen(1, "Rent index 2026 - Sleeping tab - 84 MB"),
                                seen(2, "New tab"))], desktop=windows)
    activation.choose("Chrome", target).already_selected().settle().claude_identity(passes=True).finish()
    yield warm_case("claude-tab-in-front-that-reports-no-selection-is-found-by-the-discovery", windows, activation,
                    memory(1), selected={"work": 1, "home": 0}, selections=0, foreground="work")

    for call, word in (("IUIAutomationElement::GetCurrentPatternAs", "pattern"),
                       ("IUIAutomationSelectionItemPattern::get_CurrentIsSelected", "state")):
        windows = gemini_desk()
        activation = Activation("Gemini").warm_inspected("Chrome", 3, CURRENT_UNKNOWN)
        discovers_notes(activation, windows)
        yield warm_case(f"gemini-current-tab-whose-selection-{word}-fails-is-unknown", windows, activation, memory(1),
                        selected={"work": 1, "home": 0}, selections=1, foreground="work",
                        faults=[fault(call, E_FAIL, element=MAIL_TITLE)])


def scenarios():
    for part in (incomplete, window_gone, browser_changed, tabs_unread, not_resolved, current_unknown):
        yield from part()
