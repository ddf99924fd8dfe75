"""Each provider is found among the tabs of an ordinary day, proven, and brought to the front."""
from .activation import Activation
from .activation_cases import (CHATGPT_URL, CLAUDE_SEES_RAMEN, CLAUDE_URL, GEMINI_URL, MAIL_TITLE, RAMEN_TITLE,
                               REPORT_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, SEEN_RAMEN, WEATHER_TITLE, case, chatgpt_page,
                               chatgpt_tab, claude_tab, desk, gemini_tab, home, mail_tab, perplexity_page,
                               provider_arguments, quiet_home, quiet_reading, ramen_tab, reading, report_tab,
                               weather_tab, work)
from .activation_tabs import INDEX_AND_TITLE, UNIQUE_TITLE, live, seen, window
from .core import browser, on_select, tab

QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
QUIET_READING = window("Firefox", SEEN_RAMEN)


def chatgpt_selected():
    """The window is hidden, so its page doesn't stand in front already."""
    windows = desk(work(mail_tab(), chatgpt_tab(automationId="view_1042"), report_tab(), selected=1, visible=False),
                   quiet_home(), quiet_reading())
    target = seen(1, "Trip to Lisbon - ChatGPT", "selected domain anchoredTitle verifiedContent rawTitle",
                  url=CHATGPT_URL, id="view_1042", score=800)
    activation = Activation("ChatGPT")
    activation.discover(
        [window("Chrome", seen(0, MAIL_TITLE), target, seen(2, REPORT_TITLE), proves_composer=True), QUIET_HOME,
         QUIET_READING], desktop=windows)
    activation.choose("Chrome", target).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    yield case("chatgpt-selected-tab-is-proven-by-address-and-composer", windows, activation,
               provider_arguments("ChatGPT"), selected={"work": 1, "home": 0, "reading": 0}, selections=0,
               foreground="work", values={"work/composer": ""}, windows_at_end={"work": {"visible": True}})


def chatgpt_sleeping():
    sleeping = "ChatGPT - Sleeping tab - 35 MB saved"
    waking = chatgpt_tab(sleeping, rules=[on_select(sleeping, {"title": "ChatGPT"})])
    windows = desk(work(mail_tab(), report_tab()), home(weather_tab(), waking), quiet_reading())
    target = seen(1, sleeping, "anchoredTitle strictTitle rawTitle", score=450)
    activation = Activation("ChatGPT")
    activation.discover(
        [window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE)), window("Edge", SEEN_QUIET_HOME[0], target), QUIET_READING],
        desktop=windows)
    activation.choose("Edge", target)
    activation.select(live((WEATHER_TITLE, "S"), (sleeping, "IT")), UNIQUE_TITLE, 1).settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    yield case("chatgpt-sleeping-tab-is-known-by-its-title-alone-then-proven", windows, activation,
               provider_arguments("ChatGPT"), selected={"work": 0, "home": 1, "reading": 0}, selections=1,
               foreground="home", titles={"home": [WEATHER_TITLE, "ChatGPT"]})


def claude_selected():
    windows = desk(work(mail_tab(), report_tab()), home(weather_tab(), claude_tab(), selected=1), quiet_reading())
    target = seen(1, "Release notes - Claude", "selected domain anchoredTitle rawTitle", url=CLAUDE_URL, score=520)
    activation = Activation("Claude")
    activation.discover(
        [window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE)), window("Edge", seen(0, WEATHER_TITLE), target),
         window("Firefox", CLAUDE_SEES_RAMEN)], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().claude_identity(passes=True).finish()
    yield case("claude-selected-chat-page-is-brought-to-the-front", windows, activation, provider_arguments("Claude"),
               selected={"work": 0, "home": 1, "reading": 0}, selections=0, foreground="home")


def gemini_inactive():
    windows = desk(work(mail_tab(), report_tab()), quiet_home(),
                   reading(ramen_tab(), tab("(2) Cup final - Sports"), gemini_tab(automationId="tab-7")))
    target = seen(2, "Notes - Google Gemini", "anchoredTitle rawTitle", id="tab-7", score=200)
    activation = Activation("Gemini")
    activation.discover(
        [window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE)), QUIET_HOME,
         window("Firefox", SEEN_RAMEN, seen(1, "(2) Cup final - Sports"), target)], desktop=windows)
    activation.choose("Firefox", target)
    activation.select(
        live((RAMEN_TITLE, "S"), ("(2) Cup final - Sports",), ("Notes - Google Gemini", "ITA", "tab-7")),
        INDEX_AND_TITLE, 2)
    activation.settle().finish()
    yield case("gemini-inactive-tab-is-selected-by-index-and-title", windows, activation, provider_arguments("Gemini"),
               selected={"work": 0, "home": 0, "reading": 2}, selections=1, foreground="reading")


def raw_title(file, name, title, address, page=()):
    """A provider without a title rule of its own, known by a word of an inactive tab."""
    windows = desk(work(mail_tab(), tab(title, address, page)), quiet_home())
    target = seen(1, title, "rawTitle", score=60)
    activation = Activation(name)
    activation.discover([window("Chrome", SEEN_MAIL, target), QUIET_HOME], desktop=windows)
    activation.choose("Chrome", target)
    activation.select(live((MAIL_TITLE, "S"), (title, "IT")), INDEX_AND_TITLE, 1).settle().finish()
    return case(file, windows, activation, provider_arguments(name), selected={"work": 1, "home": 0}, selections=1,
                foreground="work")


def raw_titles():
    yield raw_title("perplexity-inactive-tab-is-known-by-a-word-of-its-title", "Perplexity",
                    "best ramen in town - Perplexity", "perplexity.ai/search/best-ramen", perplexity_page())
    yield raw_title("deepseek-inactive-tab-is-known-by-a-word-of-its-title", "DeepSeek",
                    "DeepSeek - Into the Unknown", "chat.deepseek.com/a/chat/s/91")
    yield raw_title("qwen-inactive-tab-is-known-by-a-further-word", "Qwen", "通义千问 - 我的对话",
                    "https://chat.qwen.ai/c/91")


def perplexity_anchored():
    windows = desk(work(mail_tab(), tab("Perplexity", "perplexity.ai")))
    target = seen(1, "Perplexity", "anchoredTitle rawTitle", score=200)
    activation = Activation("Perplexity")
    activation.discover([window("Chrome", SEEN_MAIL, target)], desktop=windows)
    activation.choose("Chrome", target)
    activation.select(live((MAIL_TITLE, "S"), ("Perplexity", "IT")), INDEX_AND_TITLE, 1).settle().finish()
    yield case("perplexity-title-equal-to-the-name-is-anchored", windows, activation, provider_arguments("Perplexity"),
               selected={"work": 1}, selections=1, foreground="work")


def by_address(file, name, process, shown, title, address):
    """A provider without a title rule of its own, known by the address of its selected tab."""
    windows = desk(browser("chat", process, [ramen_tab(), tab(title, address)], 1), quiet_home())
    target = seen(1, title, "selected domain rawTitle", url=address, score=380)
    activation = Activation(name)
    activation.discover([window(shown, seen(0, RAMEN_TITLE), target), QUIET_HOME], desktop=windows)
    activation.choose(shown, target).already_selected().settle().finish()
    return case(file, windows, activation, provider_arguments(name), selected={"chat": 1, "home": 0}, selections=0,
                foreground="chat")


def addresses():
    yield by_address("grok-on-its-second-host-is-known-by-the-path", "Grok", "vivaldi.exe", "Vivaldi", "Grok / X",
                     "https://x.com/i/grok?conversation=19")
    yield by_address("doubao-selected-tab-is-known-by-its-address", "Doubao", "brave.exe", "Brave",
                     "豆包 - 字节跳动旗下 AI 智能助手", "https://www.doubao.com/chat/")
    yield by_address("perplexity-selected-tab-is-known-by-its-address", "Perplexity", "chrome.exe", "Chrome",
                     "ramen broth - Perplexity", "perplexity.ai/search/ramen-broth")


def grok_elsewhere():
    """The second host without the path is no provider: the tab counts by its title alone."""
    address = "https://x.com/home"
    windows = desk(work(mail_tab()), home(tab("Grok news / X", address)))
    target = seen(0, "Grok news / X", "selected rawTitle", url=address, score=80)
    activation = Activation("Grok")
    activation.discover([window("Chrome", SEEN_MAIL), window("Edge", target)], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().finish()
    yield case("grok-second-host-without-the-path-proves-nothing-beyond-the-title", windows, activation,
               provider_arguments("Grok"), selected={"work": 0, "home": 0}, selections=0, foreground="home")


def equal_windows():
    windows = desk(work(mail_tab(), chatgpt_tab("ChatGPT")), home(weather_tab(), chatgpt_tab("ChatGPT")))
    upper = seen(1, "ChatGPT", "anchoredTitle strictTitle rawTitle", score=450)
    activation = Activation("ChatGPT")
    activation.discover([window("Chrome", SEEN_MAIL, upper), window("Edge", SEEN_QUIET_HOME[0], upper)],
                        desktop=windows)
    activation.choose("Chrome", upper)
    activation.select(live((MAIL_TITLE, "S"), ("ChatGPT", "IT")), UNIQUE_TITLE, 1).settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    yield case("chatgpt-equal-tabs-in-two-windows-the-upper-window-wins", windows, activation,
               provider_arguments("ChatGPT"), selected={"work": 1, "home": 0}, selections=1, foreground="work")


def many_equal_windows():
    """More equal tabs than a sort that isn't stable leaves in their order."""
    notes = seen(1, "Notes - Google Gemini", "anchoredTitle rawTitle", score=200)
    names = [f"work{number}" for number in range(1, 21)]
    windows = desk(*(browser(name, "chrome.exe", [mail_tab(), tab(notes.title, GEMINI_URL)]) for name in names))
    activation = Activation("Gemini")
    activation.discover([window("Chrome", SEEN_MAIL, notes, id=name) for name in names], desktop=windows)
    activation.choose("Chrome", notes)
    activation.select(live((MAIL_TITLE, "S"), (notes.title, "IT")), INDEX_AND_TITLE, 1).settle().finish()
    yield case("gemini-equal-tabs-in-twenty-windows-the-uppermost-window-wins", windows, activation,
               provider_arguments("Gemini"), selected={name: 1 if name == "work1" else 0 for name in names},
               selections=1, foreground="work1")


def proven_below():
    """Without proof 450, with the address alone 520, with the composer too 800: the proven window lies lowest.
    Both pages with an address are hidden, so that neither stands in front already."""
    below = browser("spare", "brave.exe", [tab("ChatGPT", "https://chatgpt.com/", chatgpt_page())], visible=False)
    loading_window = home(tab("ChatGPT", "https://chatgpt.com/"), visible=False)
    windows = desk(work(mail_tab(), chatgpt_tab("ChatGPT")), loading_window, below)
    inactive = seen(1, "ChatGPT", "anchoredTitle strictTitle rawTitle", score=450)
    loading = seen(0, "ChatGPT", "selected domain anchoredTitle rawTitle", url="https://chatgpt.com/", score=520)
    proven = seen(0, "ChatGPT", "selected domain anchoredTitle verifiedContent rawTitle", url="https://chatgpt.com/",
                  score=800)
    activation = Activation("ChatGPT")
    activation.discover([window("Chrome", SEEN_MAIL, inactive), window("Edge", loading),
                         window("Brave", proven, proves_composer=True)], desktop=windows)
    activation.choose("Brave", proven).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    yield case("chatgpt-proven-tab-outranks-tabs-of-upper-windows", windows, activation, provider_arguments("ChatGPT"),
               selected={"work": 0, "home": 0, "spare": 0}, selections=0, foreground="spare")


def scenarios():
    for part in (chatgpt_selected, chatgpt_sleeping, claude_selected, gemini_inactive, raw_titles, perplexity_anchored,
                 addresses, grok_elsewhere, equal_windows, many_equal_windows, proven_below):
        yield from part()
