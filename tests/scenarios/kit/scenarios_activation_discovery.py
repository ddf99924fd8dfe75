"""Which windows and tabs discovery sees, what it does where one can't be read, and its silent retries."""
from .activation import Activation
from .activation_cases import (CLAUDE_URL, GEMINI_URL, MAIL_TITLE, RAMEN_TITLE, REPORT_TITLE, SEEN_MAIL,
                               SEEN_QUIET_HOME, SEEN_RAMEN, WEATHER_TITLE, case, chatgpt_tab, claude_page, claude_tab,
                               desk, gemini_tab, home, mail_tab, provider_arguments, quiet_home, ramen_tab, reading,
                               top_level, weather_tab, work)
from .activation_tabs import INDEX_AND_TITLE, REJECT_NON_CHAT_CLAUDE_PAGE, live, seen, window
from .core import at, browser, close_window, element, tab
from .desktops import editor, mail, terminal

QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
NOTES = "Notes - Google Gemini"
NOTES_AT_1 = seen(1, NOTES, "anchoredTitle rawTitle", score=200)
NOTES_LIVE = live((MAIL_TITLE, "S"), (NOTES, "IT"))


def finds_notes(file, windows, *passes, browser_name="Chrome", target=NOTES_AT_1, live_tabs=NOTES_LIVE, selected,
                foreground="work", faults=(), top=None, titles=None, start=..., windows_at_end=None):
    """A search for Gemini that ends at an inactive tab of this title."""
    activation = Activation("Gemini")
    front = start if isinstance(start, str) else None
    activation.discover(*passes, desktop=windows, top_level=top, front=front).choose(browser_name, target)
    activation.select(live_tabs, INDEX_AND_TITLE, target.index).settle().finish()
    return case(file, windows, activation, provider_arguments("Gemini"), selected=selected, selections=1,
                foreground=foreground, faults=faults, titles=titles, start=start, windows_at_end=windows_at_end)


def finds_nothing(file, name, windows, *passes, selected, faults=(), top=None, titles=None, calls=None):
    activation = Activation(name)
    activation.discover(*passes, desktop=windows, top_level=top).no_session()
    return case(file, windows, activation, provider_arguments(name), selected=selected, selections=0, faults=faults,
                titles=titles, calls=calls)


def no_browser():
    for name in ("ChatGPT", "Claude"):
        yield finds_nothing(f"{name.lower()}-no-browser-is-open", name, [editor(), mail(), terminal()], [], [], [],
                            selected={})
    windows = desk(browser("other", "opera.exe", [chatgpt_tab("ChatGPT")], title="ChatGPT - Opera"))
    yield finds_nothing("chatgpt-unsupported-browser-is-no-browser", "ChatGPT", windows, [], [], [],
                        selected={"other": 0})
    windows = desk(work(), quiet_home())
    windows[0] = work(selected=None, title="Google Chrome")
    yield finds_nothing("gemini-browser-window-without-tabs", "Gemini", windows,
                        *[[window("Chrome"), QUIET_HOME]] * 3, selected={"work": None, "home": 0})


def windows_of_all_kinds():
    """Topmost windows come first, hidden and minimised ones count like any other, whatever stands in front."""
    windows = [browser("hidden", "brave.exe", [tab("Recipes", "https://recipes.example")], visible=False),
               editor(), work(mail_tab(), gemini_tab(), minimized=True), mail(),
               browser("pinned", "vivaldi.exe", [tab("Radio", "https://radio.example")], topmost=True), quiet_home(),
               browser("deaf", "chrome.exe", [gemini_tab()], uia=False)]
    radio = seen(0, "Radio", "selected", url="https://radio.example")
    recipes = seen(0, "Recipes", "selected", url="https://recipes.example")
    yield finds_notes("gemini-in-a-minimised-window-among-topmost-hidden-and-deaf-ones", windows,
                      [window("Vivaldi", radio), QUIET_HOME, window("Brave", recipes),
                       window("Chrome", SEEN_MAIL, NOTES_AT_1), window("Chrome", has_root=False)],
                      selected={"pinned": 0, "home": 0, "hidden": 0, "work": 1, "deaf": 0}, start="home",
                      windows_at_end={"work": {"minimized": False}, "hidden": {"visible": False},
                                      "pinned": {"topmost": True}})

    windows = desk(browser("work", "Chrome.EXE", [mail_tab(), gemini_tab()], 0, title=f"{MAIL_TITLE} - Google Chrome"))
    yield finds_notes("gemini-image-name-in-capitals-is-the-same-browser", windows,
                      [window("Chrome", SEEN_MAIL, NOTES_AT_1)], selected={"work": 1})


def deaf_browser():
    windows = desk(work(mail_tab(), chatgpt_tab("ChatGPT"), uia=False), quiet_home())
    yield finds_nothing("chatgpt-browser-without-automation-counts-as-a-window-alone", "ChatGPT", windows,
                        *[[window("Chrome", has_root=False), QUIET_HOME]] * 3, selected={"work": 0, "home": 0})


def nameless_tabs():
    windows = desk(work(mail_tab(), tab(""), gemini_tab()), quiet_home())
    target = seen(2, NOTES, "anchoredTitle rawTitle", score=200)
    yield finds_notes("gemini-tab-without-a-name-leaves-a-hole-in-the-indexes", windows,
                      [window("Chrome", SEEN_MAIL, target, nameless_tabs=1), QUIET_HOME], target=target,
                      live_tabs=live((MAIL_TITLE, "S"), ("",), (NOTES, "IT")), selected={"work": 2, "home": 0})


def title_marks():
    """A tab whose title lies within the window's title counts as selected, and has the window's address."""
    windows = desk(home(weather_tab(), tab("Plan"), claude_tab("Plan - Claude"), selected=2))
    plan = seen(1, "Plan", "selected domain", url=CLAUDE_URL, score=320)
    target = seen(2, "Plan - Claude", "selected domain anchoredTitle rawTitle", url=CLAUDE_URL, score=520)
    activation = Activation("Claude")
    activation.discover([window("Edge", seen(0, WEATHER_TITLE), plan, target)], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().claude_identity(passes=True).finish()
    yield case("claude-title-within-the-windows-title-marks-a-second-tab", windows, activation,
               provider_arguments("Claude"), selected={"home": 2}, selections=0, foreground="home")

    windows = desk(reading(ramen_tab(), claude_tab("Plan - Claude", selection="none"), selected=1))
    target = seen(1, "Plan - Claude", "selected domain anchoredTitle rawTitle", url=CLAUDE_URL, score=520)
    activation = Activation("Claude")
    activation.discover([window("Firefox", seen(0, RAMEN_TITLE), target)], desktop=windows)
    activation.choose("Firefox", target).already_selected().settle().claude_identity(passes=True).finish()
    yield case("claude-tab-that-reports-no-selection-is-known-by-the-windows-title", windows, activation,
               provider_arguments("Claude"), selected={"reading": 1}, selections=0, foreground="reading")

    # "ChatGPT" lies within "Trip - ChatGPT": both are in front, so neither stands on its title.
    windows = desk(work(chatgpt_tab("ChatGPT"), chatgpt_tab("Trip - ChatGPT"), selected=1, addressBar=None))
    first = seen(0, "ChatGPT", "selected anchoredTitle verifiedContent rawTitle", score=500)
    second = seen(1, "Trip - ChatGPT", "selected anchoredTitle verifiedContent rawTitle", score=500)
    activation = Activation("ChatGPT")
    activation.discover([window("Chrome", first, second, proves_composer=True)], desktop=windows)
    activation.choose("Chrome", first).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    yield case("chatgpt-first-of-two-tabs-marked-by-the-windows-title-is-the-target", windows, activation,
               provider_arguments("ChatGPT"), selected={"work": 1}, selections=0, foreground="work")


def tabs_within_the_page():
    """Tab items that a page shows count after those of the strip; they can't be selected."""
    inner = [element("tabItem", "preview", NOTES, (300, 200, 500, 240)),
             element("tabItem", "source", "Source", (500, 200, 700, 240))]
    windows = desk(work(mail_tab(), tab(REPORT_TITLE, "", inner), selected=1), quiet_home())
    target = seen(2, NOTES, "anchoredTitle rawTitle", score=200)
    activation = Activation("Gemini")
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), seen(1, REPORT_TITLE, "selected"), target,
                                seen(3, "Source")), QUIET_HOME], desktop=windows)
    activation.choose("Chrome", target)
    activation.attempt(1, "0x80004002", live((MAIL_TITLE,), (REPORT_TITLE, "S"), (NOTES, "IT"), ("Source",)),
                       INDEX_AND_TITLE, 2).selection_failed("0x80004002").finish_blocked()
    yield case("gemini-tab-within-a-page-cannot-be-selected", windows, activation, provider_arguments("Gemini"),
               selected={"work": 1, "home": 0}, selections=0)


def addresses():
    windows = desk(home(tab("Talking to Claude", CLAUDE_URL), weather_tab(), addressBar=None))
    target = seen(0, "Talking to Claude", "selected rawTitle", score=80)
    activation = Activation("Claude")
    activation.discover([window("Edge", target, seen(1, WEATHER_TITLE))], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().claude_identity(passes=False).finish_blocked()
    yield case("claude-window-without-an-address-bar-lists-its-tabs", windows, activation,
               provider_arguments("Claude"), selected={"home": 0}, selections=0)

    # Nameless and 180 wide, its top one pixel above 35 % of the window: still the address bar.
    bar = element("edit", "bar", "", (300, 401, 480, 521), value="", legacyValue="https://gemini.google.com/app/5c")
    windows = desk(home(gemini_tab(), addressBar=bar))
    target = seen(0, NOTES, "selected domain anchoredTitle rawTitle", url=GEMINI_URL, score=520)
    activation = Activation("Gemini")
    activation.discover([window("Edge", target)], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().finish()
    yield case("gemini-nameless-field-is-an-address-bar-by-its-place", windows, activation,
               provider_arguments("Gemini"), selected={"home": 0}, selections=0, foreground="home")

    for word, bounds in (("narrow", (300, 120, 479, 160)), ("high", (300, 120, 800, 241)),
                         ("low", (300, 402, 800, 440)), ("above", (300, 79, 800, 120))):
        bar = element("edit", "bar", "", bounds, value=GEMINI_URL)
        windows = desk(home(tab("Lisbon", GEMINI_URL), addressBar=bar))
        yield finds_nothing(f"gemini-field-that-lies-too-{word}-is-no-address-bar", "Gemini", windows,
                            *[[window("Edge", seen(0, "Lisbon", "selected"))]] * 3, selected={"home": 0})

    # The field has the right name and nothing to say; the next one has.
    bar = element("edit", "bar", "Location", (300, 120, 400, 160), value="", children=[
        element("edit", "inner", "Omnibox of this window", (0, 0, 0, 0), helpText=GEMINI_URL)])
    windows = desk(home(gemini_tab("Lisbon"), addressBar=bar))
    target = seen(0, "Lisbon", "selected domain", url=GEMINI_URL, score=320)
    activation = Activation("Gemini")
    activation.discover([window("Edge", target)], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().finish()
    yield case("gemini-address-field-with-empty-texts-is-passed-over", windows, activation,
               provider_arguments("Gemini"), selected={"home": 0}, selections=0, foreground="home")


def long_titles():
    """The trace shows 180 bytes on one line; what is remembered and shown to the person stays whole."""
    long = "Claude on\r\n" + "a title that never ends, " * 8
    cjk = "Claude 对话:" + "关于押金的三个问题" * 10
    windows = desk(home(weather_tab(), tab(long, CLAUDE_URL, claude_page())), work(mail_tab(), tab(cjk)))
    weather = seen(0, WEATHER_TITLE, "selected", url="https://weather.example/weekend",
                   decision=REJECT_NON_CHAT_CLAUDE_PAGE)
    target = seen(1, long, "rawTitle", score=60)
    activation = Activation("Claude")
    activation.discover([window("Edge", weather, target),
                         window("Chrome", SEEN_MAIL, seen(1, cjk, "rawTitle", score=60))],
                        desktop=windows)
    activation.choose("Edge", target)
    activation.select(live((WEATHER_TITLE, "S"), (long, "IT")), INDEX_AND_TITLE, 1).settle()
    activation.claude_identity(passes=True).finish()
    yield case("claude-long-title-is-cut-in-the-trace-alone", windows, activation, provider_arguments("Claude"),
               selected={"home": 1, "work": 0}, selections=1, foreground="home")

    for length, cut in ((180, "whole"), (181, "cut")):
        exact = "Talking to Claude " + "x" * (length - 18)
        windows = desk(work(mail_tab(), tab(exact, CLAUDE_URL)))
        target = seen(1, exact, "rawTitle", score=60)
        activation = Activation("Claude")
        activation.discover([window("Chrome", SEEN_MAIL, target)], desktop=windows)
        activation.choose("Chrome", target)
        activation.select(live((MAIL_TITLE, "S"), (exact, "IT")), INDEX_AND_TITLE, 1).settle()
        activation.claude_identity(passes=True).finish()
        yield case(f"claude-title-of-{length}-bytes-is-{cut}-in-the-trace", windows, activation,
                   provider_arguments("Claude"), selected={"work": 1}, selections=1, foreground="work")


def retries():
    """The tab opens by itself while the search waits, or after it."""
    def windows_with_tab_at(ms):
        return desk(work(mail_tab(), rules=[at(ms, {"openTab": gemini_tab()})]), quiet_home())

    without = [window("Chrome", SEEN_MAIL), QUIET_HOME]
    found = [window("Chrome", SEEN_MAIL, NOTES_AT_1), QUIET_HOME]
    titles = {"work": [MAIL_TITLE, NOTES]}
    for ms, passes, retry in ((150, [without, found], "first"), (151, [without, without, found], "second"),
                              (450, [without, without, found], "last-moment-of-the-second")):
        yield finds_notes(f"gemini-tab-that-opens-before-the-{retry}-silent-retry-is-found", windows_with_tab_at(ms),
                          *passes, selected={"work": 1, "home": 0}, titles=titles)
    windows = desk(work(mail_tab(), rules=[at(451, {"openTab": gemini_tab()})]), quiet_home())
    yield finds_nothing("gemini-tab-that-opens-after-the-second-silent-retry-comes-too-late", "Gemini", windows,
                        without, without, without, selected={"work": 0, "home": 0})

    closing = desk(work(mail_tab()), reading(ramen_tab(), rules=[at(200, close_window("reading"))]))
    first = [window("Chrome", SEEN_MAIL), window("Firefox", SEEN_RAMEN)]
    yield finds_nothing("gemini-counters-are-those-of-the-last-pass", "Gemini", closing, first, first,
                        first[:1], selected={"work": 0}, top=top_level(closing) - 1)


def scans():
    """Four searches in each window for ChatGPT, the same for the page that is selected already, and three behind the
    selection; nothing is cached or read twice."""
    windows = desk(work(chatgpt_tab(), addressBar=None), quiet_home())
    target = seen(0, "Trip to Lisbon - ChatGPT", "selected anchoredTitle verifiedContent rawTitle", score=500)
    activation = Activation("ChatGPT")
    activation.discover([window("Chrome", target, proves_composer=True), QUIET_HOME], desktop=windows)
    activation.choose("Chrome", target).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    yield case("chatgpt-search-scans-each-window-four-times", windows, activation, provider_arguments("ChatGPT"),
               selected={"work": 0, "home": 0}, selections=0, foreground="work", looks=False,
               calls={"IUIAutomationElement::FindAll": 2 * 2 * 4 + 3, "EnumWindows": 2})

    windows = desk(work(mail_tab()), quiet_home())
    passes = [[window("Chrome", SEEN_MAIL), QUIET_HOME]] * 3
    yield finds_nothing("gemini-search-scans-each-window-three-times-in-each-pass", "Gemini", windows, *passes,
                        selected={"work": 0, "home": 0},
                        calls={"IUIAutomationElement::FindAll": 3 * 2 * 3, "EnumWindows": 3})


def scenarios():
    for part in (no_browser, windows_of_all_kinds, deaf_browser, nameless_tabs, title_marks, tabs_within_the_page,
                 addresses, long_titles, retries, scans):
        yield from part()
