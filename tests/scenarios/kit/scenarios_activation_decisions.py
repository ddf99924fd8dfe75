"""What discovery accepts, what it turns down, and what a candidate is worth."""
from .activation import Activation
from .activation_cases import (CLAUDE_SEES_WEATHER, MAIL_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, WEATHER_TITLE, case,
                               chatgpt_tab, claude_page, claude_tab, desk, gemini_tab, home, mail_tab,
                               provider_arguments, quiet_home, reading, sleeping_tab, weather_tab, work)
from .activation_tabs import (INDEX_AND_TITLE, REJECT_COMPANY_HOMEPAGE, REJECT_NON_CHAT_CLAUDE_PAGE,
                              REJECT_OTHER_PROVIDER, live, seen, window)
from .core import edit, tab

QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)


def begin(name, warm):
    """`warm` appends what becomes of the remembered tab; without it nothing is remembered of one."""
    activation = Activation(name)
    if warm:
        warm(activation)
    return activation


def not_found(file, name, windows, seen_windows, *, remembered=(), warm=None, faults=(), **more):
    """Three passes see the same, and nothing is accepted: no tab moves."""
    activation = begin(name, warm)
    activation.discover(*[seen_windows] * 3, desktop=windows, remembered=remembered).no_session()
    selected = {one["id"]: next(i for i, each in enumerate(one["tabs"]) if each.get("selected"))
                for one in windows if "tabs" in one}
    return case(file, windows, activation, provider_arguments(name, **more), selected=selected, selections=0,
                faults=faults)


def found_selected(file, name, windows, seen_windows, browser, target, *, composer=False, foreground, selected,
                   remembered=(), warm=None, faults=(), **more):
    """One pass; the target stands in front of its window already, is proven, and comes to the front."""
    activation = begin(name, warm)
    activation.discover(seen_windows, desktop=windows, remembered=remembered)
    activation.choose(browser, target).already_selected().settle()
    if name == "ChatGPT":
        activation.chatgpt_identity(passes=True, composer=composer)
    if name == "Claude":
        activation.claude_identity(passes=True)
    activation.finish()
    return case(file, windows, activation, provider_arguments(name, **more), selected=selected, selections=0,
                foreground=foreground, faults=faults)


def found_inactive(file, name, windows, seen_windows, browser, target, live_tabs, reason, *, composer=False,
                   foreground, selected, remembered=(), warm=None, faults=(), **more):
    """One pass; the target is selected at the first attempt, proven, and comes to the front."""
    activation = begin(name, warm)
    activation.discover(seen_windows, desktop=windows, remembered=remembered)
    activation.choose(browser, target).select(live_tabs, reason, target.index).settle()
    if name == "ChatGPT":
        activation.chatgpt_identity(passes=True, composer=composer)
    if name == "Claude":
        activation.claude_identity(passes=True)
    activation.finish()
    return case(file, windows, activation, provider_arguments(name, **more), selected=selected, selections=1,
                foreground=foreground, faults=faults)


def turned_down_by_address():
    """A window whose page has ChatGPT's address is hidden, so that it doesn't count as selected already."""
    windows = desk(work(mail_tab(), chatgpt_tab("ChatGPT"), selected=1, visible=False))
    tabs = [seen(0, MAIL_TITLE), seen(1, "ChatGPT", "selected anchoredTitle verifiedContent rawTitle",
                                      url="chatgpt.com/c/6821-7f", decision=REJECT_OTHER_PROVIDER)]
    yield not_found("chatgpt-without-a-domain-its-own-selected-page-counts-as-another-providers", "ChatGPT", windows,
                    [window("Chrome", *tabs, proves_composer=True)], domain="")

    address = "https://openai.com/index/new-in-chatgpt/"
    windows = desk(home(tab("New in ChatGPT", address)))
    tabs = [seen(0, "New in ChatGPT", "selected domain rawTitle", url=address, decision=REJECT_COMPANY_HOMEPAGE)]
    yield not_found("chatgpt-company-page-is-turned-down-even-when-the-domain-matches", "ChatGPT", windows,
                    [window("Edge", *tabs)], domain="openai.com")

    address = "https://help.openai.com/articles/chatgpt"
    windows = desk(home(tab("Help", address)))
    yield not_found("chatgpt-page-on-a-sub-domain-of-the-company-is-turned-down", "ChatGPT", windows,
                    [window("Edge", seen(0, "Help", "selected", url=address, decision=REJECT_COMPANY_HOMEPAGE))])

    address = "https://www.google.com/search?q=claude"
    windows = desk(home(weather_tab(), tab("claude - Google Search", address), selected=1), work(mail_tab()))
    tabs = [seen(0, WEATHER_TITLE), seen(1, "claude - Google Search", "selected rawTitle", url=address,
                                         decision=REJECT_COMPANY_HOMEPAGE)]
    yield not_found("claude-search-results-page-is-company-material", "Claude", windows,
                    [window("Edge", *tabs), window("Chrome", SEEN_MAIL)])

    address = "https://claude.ai/settings/profile"
    windows = desk(home(weather_tab(), tab("Settings - Claude", address), selected=1))
    tabs = [seen(0, WEATHER_TITLE), seen(1, "Settings - Claude", "selected domain anchoredTitle rawTitle", url=address,
                                         decision=REJECT_NON_CHAT_CLAUDE_PAGE)]
    yield not_found("claude-settings-page-is-no-chat", "Claude", windows, [window("Edge", *tabs)])

    address = "https://search.example/?q=chatgpt.com"
    windows = desk(home(weather_tab(), tab("chatgpt.com - Search", address), selected=1))
    tabs = [seen(0, WEATHER_TITLE), seen(1, "chatgpt.com - Search", "selected", url=address,
                                         decision=REJECT_OTHER_PROVIDER)]
    yield not_found("gemini-address-that-names-another-provider-in-its-query-is-that-providers", "Gemini", windows,
                    [window("Edge", *tabs)])

    windows = desk(home(weather_tab(), claude_tab("Plan - Claude", "https://chatgpt.com/c/1"), selected=1,
                        visible=False))
    tabs = [seen(0, WEATHER_TITLE), seen(1, "Plan - Claude", "selected domain", url="https://chatgpt.com/c/1",
                                         decision=REJECT_OTHER_PROVIDER)]
    yield not_found("chatgpt-title-of-another-provider-outweighs-the-domain", "ChatGPT", windows,
                    [window("Edge", *tabs)])


def legacy_host():
    """In hidden windows, as above."""
    address = "https://chat.openai.com/c/19"
    windows = desk(home(weather_tab(), chatgpt_tab("Lisbon", address), selected=1, visible=False))
    target = seen(1, "Lisbon", "selected domain verifiedContent", url=address, score=600)
    yield found_selected("chatgpt-legacy-host-is-no-company-page", "ChatGPT", windows,
                         [window("Edge", seen(0, WEATHER_TITLE), target, proves_composer=True)], "Edge", target,
                         composer=True, foreground="home", selected={"home": 1}, domain="chat.openai.com")

    address = "https://search.example/?q=chatgpt.com"
    windows = desk(home(tab("Search", address), visible=False))
    target = seen(0, "Search", "selected domain", url=address, score=320)
    yield found_selected("chatgpt-search-page-whose-query-holds-the-host-counts-as-chatgpt", "ChatGPT", windows,
                         [window("Edge", target)], "Edge", target, foreground="home", selected={"home": 0})


def turned_down_by_title():
    windows = desk(work(mail_tab(), claude_tab("Plan - Claude")))
    tabs = [SEEN_MAIL, seen(1, "Plan - Claude", decision=REJECT_OTHER_PROVIDER)]
    seen_windows = [window("Chrome", *tabs)]
    for name in ("ChatGPT", "Gemini"):
        yield not_found(f"{name.lower()}-inactive-tab-of-claude-is-another-providers", name, windows, seen_windows)

    windows = desk(work(mail_tab(), gemini_tab("Google Gemini")))
    tabs = [SEEN_MAIL, seen(1, "Google Gemini", decision=REJECT_OTHER_PROVIDER)]
    yield not_found("claude-inactive-tab-of-gemini-is-another-providers", "Claude", windows, [window("Chrome", *tabs)])

    windows = desk(home(tab("Plan - ChatGPT"), addressBar=None))
    yield not_found("chatgpt-selected-title-without-address-and-composer-proves-nothing", "ChatGPT", windows,
                    [window("Edge", seen(0, "Plan - ChatGPT", "selected anchoredTitle rawTitle"))])

    windows = desk(work(mail_tab(), tab("How ChatGPT works"), tab("OpenAI: what is new - ChatGPT")), quiet_home())
    tabs = [SEEN_MAIL, seen(1, "How ChatGPT works", "rawTitle"),
            seen(2, "OpenAI: what is new - ChatGPT", "anchoredTitle rawTitle")]
    yield not_found("chatgpt-mention-or-company-title-of-an-inactive-tab-proves-nothing", "ChatGPT", windows,
                    [window("Chrome", *tabs), QUIET_HOME])


def near_composers():
    """Controls that miss the composer's place by one pixel, or aren't for typing; windows are 800 pixels high."""
    bounds = (0, 0, 1280, 800)
    near = [edit("high", "Message ChatGPT", (400, 359, 1000, 420)),
            edit("narrow", "Message ChatGPT", (400, 640, 649, 700)),
            edit("away", "Message ChatGPT", (400, 640, 1000, 700), offscreen=True),
            edit("locked", "Message ChatGPT", (400, 640, 1000, 700), focusable=False),
            edit("placeless", "Message ChatGPT", (400, 640, 1000, 700), unreadable=["bounds"]),
            edit("other", "Ask anything", (400, 640, 1000, 700))]
    page = tab("Lisbon", "", near)
    windows = desk(work(page, bounds=bounds, addressBar=None))
    yield not_found("chatgpt-controls-that-miss-the-composers-place-prove-nothing", "ChatGPT", windows,
                    [window("Chrome", seen(0, "Lisbon", "selected"))])

    at_limits = tab("Lisbon", "", [edit("composer", "Message ChatGPT", (400, 360, 650, 400), value="")])
    windows = desk(work(at_limits, bounds=bounds, addressBar=None))
    target = seen(0, "Lisbon", "selected verifiedContent", score=300)
    yield found_selected("chatgpt-composer-at-the-limits-of-its-place-is-proof-enough", "ChatGPT", windows,
                         [window("Chrome", target, proves_composer=True)], "Chrome", target, composer=True,
                         foreground="work", selected={"work": 0})

    workspace = tab("Roadmap · Work", "", [edit("composer", "Ask anything", (400, 640, 1000, 700), value="")])
    windows = desk(work(workspace, bounds=bounds, addressBar=None))
    target = seen(0, "Roadmap · Work", "selected verifiedContent", score=300)
    yield found_selected("chatgpt-workspace-window-is-proven-by-looser-names", "ChatGPT", windows,
                         [window("Chrome", target, proves_composer=True)], "Chrome", target, composer=True,
                         foreground="work", selected={"work": 0})


def gemini_name():
    windows = desk(work(mail_tab(), gemini_tab("Google Gemini")))
    target = seen(1, "Google Gemini", "anchoredTitle rawTitle", score=200)
    yield found_inactive("gemini-bare-name-is-anchored-once", "Gemini", windows, [window("Chrome", SEEN_MAIL, target)],
                         "Chrome", target, live((MAIL_TITLE, "S"), ("Google Gemini", "IT")), INDEX_AND_TITLE,
                         foreground="work", selected={"work": 1})


def talking_to_claude():
    windows = desk(work(mail_tab(), tab("Talking to Claude", "claude.ai/chat/5", claude_page())), quiet_home())
    target = seen(1, "Talking to Claude", "rawTitle", score=60)
    seen_home = window("Edge", CLAUDE_SEES_WEATHER, *SEEN_QUIET_HOME[1:])
    yield found_inactive("claude-mention-in-an-inactive-title-is-the-weakest-candidate", "Claude", windows,
                         [window("Chrome", SEEN_MAIL, target), seen_home], "Chrome", target,
                         live((MAIL_TITLE, "S"), ("Talking to Claude", "IT")), INDEX_AND_TITLE, foreground="work",
                         selected={"work": 1, "home": 0})

    # In front but without an address: worth 80, chosen, and not proven. The other window's tab stays untouched.
    windows = desk(work(mail_tab(), tab("Talking to Claude", "claude.ai/chat/5", claude_page())),
                   reading(tab("Talking to Claude"), sleeping_tab(), addressBar=None))
    chosen = seen(0, "Talking to Claude", "selected rawTitle", score=80)
    activation = Activation("Claude")
    activation.discover([window("Chrome", SEEN_MAIL, target), window("Firefox", chosen, SEEN_QUIET_HOME[1])],
                        desktop=windows)
    activation.choose("Firefox", chosen).already_selected().settle().claude_identity(passes=False).finish_blocked()
    yield case("claude-mention-in-front-without-an-address-is-chosen-and-fails", windows, activation,
               provider_arguments("Claude"), selected={"work": 0, "reading": 0}, selections=0)


def patterns():
    words = ["", 7, None, ["claude"], "sonnet"]
    windows = desk(work(mail_tab(), tab("sonnet 18 analysed", "claude.ai/chat/18")), home(tab("Claude's letters")))
    target = seen(1, "sonnet 18 analysed", "rawTitle", score=60)
    letters = seen(0, "Claude's letters", "selected rawTitle", score=80)
    activation = Activation("Claude")
    activation.discover([window("Chrome", SEEN_MAIL, target), window("Edge", letters)], desktop=windows)
    activation.choose("Edge", letters).already_selected().settle().claude_identity(passes=False).finish_blocked()
    yield case("claude-patterns-count-as-far-as-they-are-texts-with-something-in-them", windows, activation,
               provider_arguments("Claude", patterns=words), selected={"work": 0, "home": 0}, selections=0)


def scenarios():
    for part in (turned_down_by_address, legacy_host, turned_down_by_title, near_composers, gemini_name,
                 talking_to_claude, patterns):
        yield from part()
