"""The dump of every browser window in every pass: what it shows, and what stands in the place of what can't be read."""
from .activation import Activation
from .activation_cases import (MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, case, desk,
                               mail_tab, provider_arguments, quiet_home, report_tab, work)
from .activation_tabs import S_OK, seen, window
from .core import ALWAYS, E_FAIL, at, browser, element, fault, tab
from .desktops import editor, mail

QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
FIND = "IUIAutomationElement::FindAll"


def dumped(file, name, windows, *passes, selected, faults=(), start=..., front=None, top_level=None, titles=None,
           calls=None):
    """Three passes that find nothing; the dump is all that differs."""
    activation = Activation(name)
    activation.discover(*passes, desktop=windows, front=front, top_level=top_level).no_session()
    return case(file, windows, activation, provider_arguments(name), selected=selected, selections=0, faults=faults,
                start=start, titles=titles, calls=calls, folder="xray", foreground=front)


def states():
    """Windows in each state, in z-order, the one in front first, with all that a tab item tells of itself."""
    shop = tab("Shopping list", "https://shop.example/list", automationId="view_1", className="EdgeTab",
               frameworkId="XAML")
    radio = tab("Radio", "https://radio.example", className="Tab", frameworkId="Chrome", selection="none")
    windows = [browser("hidden", "brave.exe", [radio], visible=False, pid=4711),
               browser("small", "vivaldi.exe", [tab("Recipes", "https://recipes.example")], minimized=True),
               editor(), browser("shop", "msedge.exe", [mail_tab(), shop], 1, pid=815, bounds=(10, 20, 411, 620)),
               browser("deaf", "firefox.exe", [report_tab()], uia=False), mail()]
    seen_windows = [
        window("Edge", seen(0, MAIL_TITLE), seen(1, "Shopping list", "selected", url="https://shop.example/list",
                                                 id="view_1")),
        window("Brave", seen(0, "Radio", "selected", url="https://radio.example")),
        window("Vivaldi", seen(0, "Recipes", "selected", url="https://recipes.example")),
        window("Firefox", has_root=False)]
    yield dumped("windows-and-tabs-in-every-state", "Gemini", windows, *[seen_windows] * 3, start="shop",
                 front="shop", selected={"hidden": 0, "small": 0, "shop": 1, "deaf": 0})


def counts():
    windows = desk(browser("bare", "chrome.exe", [], None, title="Google Chrome"))
    yield dumped("window-without-tabs-has-two-lines", "Gemini", windows, *[[window("Chrome")]] * 3,
                 selected={"bare": None})
    windows = desk(work(*(tab(f"Page {number}", f"https://pages.example/{number}") for number in range(60))),
                   quiet_home())
    tabs = [seen(0, "Page 0", "selected", url="https://pages.example/0"),
            *(seen(number, f"Page {number}") for number in range(1, 60))]
    yield dumped("lines-are-not-limited", "Gemini", windows, *[[window("Chrome", *tabs), QUIET_HOME]] * 3,
                 selected={"work": 0, "home": 0})

    windows = desk(work(mail_tab(), tab(""), tab(""), report_tab()), quiet_home())
    tabs = window("Chrome", SEEN_MAIL, seen(3, REPORT_TITLE), nameless_tabs=2)
    yield dumped("tabs-without-a-name-have-a-line-and-no-place-in-the-inventory", "Gemini", windows,
                 *[[tabs, QUIET_HOME]] * 3, selected={"work": 0, "home": 0})

    opening = desk(work(mail_tab(), rules=[at(300, {"openTab": report_tab()})]), quiet_home())
    less, more = window("Chrome", SEEN_MAIL), window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE))
    yield dumped("each-pass-shows-the-desktop-as-it-is", "Gemini", opening, [less, QUIET_HOME], [less, QUIET_HOME],
                 [more, QUIET_HOME], selected={"work": 0, "home": 0}, titles={"work": [MAIL_TITLE, REPORT_TITLE]})
    closing = desk(work(mail_tab(), rules=[at(200, {"closeWindow": "work"})]), quiet_home())
    yield dumped("ordinals-begin-anew-in-each-pass", "Gemini", closing, [less, QUIET_HOME], [less, QUIET_HOME],
                 [QUIET_HOME], selected={"home": 0}, top_level=len(closing))


def long_texts():
    """Every value ends at 180 bytes by itself, and a line stays one line."""
    for length in (180, 181, 300):
        title = "Quarterly " + "x" * (length - 10)
        windows = desk(work(tab(title, "https://pages.example/" + "y" * 200, automationId="a" * length,
                                className="c" * length, frameworkId="f" * length)))
        tabs = [seen(0, title, "selected", url="https://pages.example/" + "y" * 200, id="a" * length)]
        yield dumped(f"values-of-{length}-bytes", "Gemini", windows, *[[window("Chrome", *tabs)]] * 3,
                     selected={"work": 0})
    title = "First line\nsecond\r\nthird; title=\"x\""
    windows = desk(work(tab(title)))
    yield dumped("line-feeds-show-as-blanks", "Gemini", windows,
                 *[[window("Chrome", seen(0, title, "selected"))]] * 3, selected={"work": 0})
    cjk = "关于押金的三个问题" * 8
    windows = desk(work(tab(cjk)))
    yield dumped("cut-may-fall-within-a-sign", "Gemini", windows, *[[window("Chrome", seen(0, cjk, "selected"))]] * 3,
                 selected={"work": 0})


BOTH = {"work": 0, "home": 0}


def failures():
    """One failure line in the place of what can't be read, in the pass in which it can't; the other window is whole."""
    windows = desk(work(mail_tab(), report_tab()), quiet_home())
    whole = window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE))

    def tabless(**facts):
        return window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), has_tab_items=False, **facts)

    def lost(hr):
        return window("Chrome", SEEN_MAIL, nameless_tabs=1, lost_tabs={1: hr})

    # How often each call is made for the window in one pass, and which of them it is: the address is searched for
    # first, then the tab controls, then the tab items; conditions are made for the other window too.
    kinds = []
    for result, hr, how in ((E_FAIL, E_FAIL, "fails"), ("0x80070005", "0x80070005", "is-denied"),
                            (None, S_OK, "is-empty")):
        kinds += [
            (f"root-that-{how}", "IUIAutomation::ElementFromHandle", result, {"window": "work"}, 1, 1,
             window("Chrome", has_root=False, root_hr=hr)),
            (f"search-for-tab-items-that-{how}", FIND, result, {"window": "work"}, 3, 3, tabless(search_hr=hr)),
            (f"condition-for-tab-items-that-{how}", "IUIAutomation::CreatePropertyCondition", result, {}, 3, 6,
             tabless(condition_hr=hr)),
            (f"tab-item-that-{how}", "IUIAutomationElementArray::GetElement", result, {"element": REPORT_TITLE}, 1, 1,
             lost(hr)),
            (f"search-for-tab-controls-that-{how}", FIND, result, {"window": "work"}, 2, 3,
             window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), tab_controls=0)),
            (f"condition-for-tab-controls-that-{how}", "IUIAutomation::CreatePropertyCondition", result, {}, 2, 6,
             window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), tab_controls=0)),
        ]
    for word, call, result, about, first, each, broken in kinds:
        for number in range(3):
            passes = [[whole, QUIET_HOME] for _ in range(3)]
            passes[number] = [broken, QUIET_HOME]
            yield dumped(f"{word}-in-pass-{number + 1}", "Gemini", windows, *passes, selected=BOTH,
                         faults=[fault(call, result, first + number * each, **about)])

    yield dumped("length-of-the-tab-controls-that-fails-is-none", "Gemini", windows,
                 [window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), tab_controls=0), QUIET_HOME],
                 *[[whole, QUIET_HOME]] * 2, selected=BOTH,
                 faults=[fault("IUIAutomationElementArray::get_Length", E_FAIL, 2)])
    yield dumped("no-search-works-anywhere", "Gemini", windows,
                 *[[tabless(tab_controls=0),
                    window("Edge", *SEEN_QUIET_HOME, has_tab_items=False, tab_controls=0)]] * 3, selected=BOTH,
                 faults=[fault(FIND, E_FAIL, 1, ALWAYS)])


def facts():
    """A fact that can't be read shows as the least that is known."""
    report = seen(1, REPORT_TITLE)
    windows = desk(work(mail_tab(), tab(REPORT_TITLE, "pages.example", className="Tab", frameworkId="Chrome")),
                   quiet_home())
    plain = desk(work(mail_tab(), report_tab()), quiet_home())
    whole = window("Chrome", SEEN_MAIL, report)
    for call, word in (("get_CurrentClassName", "className"), ("get_CurrentFrameworkId", "frameworkId")):
        bare = tab(REPORT_TITLE, "pages.example", **{key: text for key, text in
                                                     (("className", "Tab"), ("frameworkId", "Chrome")) if key != word})
        activation = Activation("Gemini")
        activation.discover(*[[whole, QUIET_HOME]] * 3, desktop=desk(work(mail_tab(), bare), quiet_home())).no_session()
        yield case(f"{word.lower()}-that-cannot-be-read-is-empty", windows, activation, provider_arguments("Gemini"),
                   selected=BOTH, selections=0, folder="xray",
                   faults=[fault(f"IUIAutomationElement::{call}", E_FAIL, times=ALWAYS, element=REPORT_TITLE)])
    placeless = window("Chrome", SEEN_MAIL, report, bounds={1: "<unavailable>"})
    yield dumped("bounds-that-cannot-be-read-are-unavailable", "Gemini", plain, *[[placeless, QUIET_HOME]] * 3,
                 selected=BOTH, faults=[fault("IUIAutomationElement::get_CurrentBoundingRectangle", E_FAIL,
                                              times=ALWAYS, element=REPORT_TITLE)])
    inner = [element("tabItem", "preview", "Preview", (300, 200, 500, 240), offscreen=True)]
    windows = desk(work(tab(MAIL_TITLE, "mail.northwind.example", inner), report_tab()), quiet_home())
    tabs = window("Chrome", SEEN_MAIL, report, seen(2, "Preview"))
    yield dumped("tab-item-off-the-screen-says-so", "Gemini", windows, *[[tabs, QUIET_HOME]] * 3, selected=BOTH)
    shown = [inner[0] | {"offscreen": False}]
    activation = Activation("Gemini")
    activation.discover(*[[tabs, QUIET_HOME]] * 3, desktop=desk(
        work(tab(MAIL_TITLE, "mail.northwind.example", shown), report_tab()), quiet_home())).no_session()
    yield case("tab-item-whose-place-on-the-screen-cannot-be-read-counts-as-on-it", windows, activation,
               provider_arguments("Gemini"), selected=BOTH, selections=0, folder="xray",
               faults=[fault("IUIAutomationElement::get_CurrentIsOffscreen", E_FAIL, times=ALWAYS, element="preview")])
    unknown = window("Chrome", SEEN_MAIL, report, pattern_selected=-1)
    yield dumped("selection-that-cannot-be-read-leaves-the-windows-title", "Gemini", plain,
                 *[[unknown, QUIET_HOME]] * 3, selected=BOTH,
                 faults=[fault("IUIAutomationSelectionItemPattern::get_CurrentIsSelected", E_FAIL, times=ALWAYS,
                               element=MAIL_TITLE)])
    marked = seen(0, MAIL_TITLE, "selected")
    windows = desk(work(mail_tab(), report_tab(), title="Northwind"), quiet_home())
    yield dumped("windows-title-of-its-own-leaves-the-pattern", "Gemini", windows,
                 *[[window("Chrome", marked, report), QUIET_HOME]] * 3, selected=BOTH)


def silence():
    """The walk for a selected ChatGPT page writes no line and doesn't read whether a tab item lies on the screen; its
    class and framework are read all the same. The address bar's class and the two fields' states are looked at for
    the address and the composer, the minimised state to bring the window forward."""
    windows = desk(work(mail_tab(), tab("Lisbon", "chatgpt.com/c/1"), selected=1))
    activation = Activation("ChatGPT").destination("ONLY_SELECTED_CHATGPT_WINDOW", "Lisbon")
    activation.destination_ready("Chrome", seen(1, "Lisbon"))
    yield case("walk-for-selected-pages-writes-no-dump-and-reads-no-place-for-it", windows, activation,
               provider_arguments("ChatGPT"), selected={"work": 1}, selections=0, foreground="work", folder="xray",
               calls={"IUIAutomationElement::get_CurrentClassName": 2 + 1,
                      "IUIAutomationElement::get_CurrentFrameworkId": 2,
                      "IUIAutomationElement::get_CurrentIsOffscreen": 2, "IsIconic": 1})


def scenarios():
    for part in (states, counts, long_texts, failures, facts, silence):
        yield from part()
