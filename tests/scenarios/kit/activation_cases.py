"""What the activation scenarios share: arguments, desktops around a provider's tab, and what every run must show."""
from .activation_tabs import REJECT_NON_CHAT_CLAUDE_PAGE, seen
from .core import NOTHING_HELD, browser, call, scenario, tab
from .desktops import editor, mail, terminal
from .pages import CHATGPT, CLAUDE, GEMINI, PERPLEXITY, ready_page

CLIPBOARD = "Three questions about the deposit"

# As the interface sends them: the name it shows, the address of the chat, further words of titles.
CALLS = {
    "ChatGPT": ("chatgpt.com", ["chatgpt"]),
    "Claude": ("claude.ai", ["claude"]),
    "Gemini": ("gemini.google.com", ["gemini"]),
    "Perplexity": ("perplexity.ai", ["perplexity"]),
    "DeepSeek": ("chat.deepseek.com", ["deepseek"]),
    "Grok": ("x.com/i/grok", ["grok"]),
    "Qwen": ("chat.qwen.ai", ["qwen", "通义千问"]),
    "Doubao": ("doubao.com", ["豆包"]),
}

# Titles of the tabs that say nothing about a provider.
MAIL_TITLE = "Inbox (3) - Northwind Mail"
REPORT_TITLE = "Quarterly report - Pages"
WEATHER_TITLE = "Weather for the weekend"
RAMEN_TITLE = "Ramen at home - Cooking notes"
SLEEPING_TITLE = "Rent index 2026 - Sleeping tab - 84 MB"
WEATHER_URL = "https://weather.example/weekend"
RAMEN_URL = "https://cooking.example/ramen"
CHATGPT_URL = "chatgpt.com/c/6821-7f"
CLAUDE_URL = "https://claude.ai/chat/77b1"
GEMINI_URL = "https://gemini.google.com/app/5c"


def provider_arguments(name, /, **more):
    """The whole map for a provider; an entry given as None is left out."""
    domain, patterns = CALLS.get(name, ("", []))
    arguments = {
        "name": name, "domain": domain, "patterns": patterns, "rememberedTitle": "", "rememberedAutomationId": "",
        "rememberedBrowser": "", "rememberedWindowHandle": "", "rememberedTabIndex": "",
    }
    arguments |= more
    return {key: value for key, value in arguments.items() if value is not None}


# Tabs and windows. Chrome hides the scheme of what it shows, so such an address is known only where it names a
# provider; the other browsers show theirs whole.

def mail_tab():
    return tab(MAIL_TITLE, "mail.northwind.example/inbox")


def report_tab():
    return tab(REPORT_TITLE, "pages.northwind.example/d/report")


def weather_tab():
    return tab(WEATHER_TITLE, WEATHER_URL)


def ramen_tab():
    return tab(RAMEN_TITLE, RAMEN_URL)


def sleeping_tab():
    return tab(SLEEPING_TITLE, "https://city.example/rent-index")


def new_tab():
    return tab("New tab")


def chatgpt_page():
    return ready_page(CHATGPT).elements


def claude_page():
    return ready_page(CLAUDE).elements


def gemini_page():
    return ready_page(GEMINI).elements


def perplexity_page():
    return ready_page(PERPLEXITY).elements


def chatgpt_tab(title="Trip to Lisbon - ChatGPT", address=CHATGPT_URL, **facts):
    return tab(title, address, chatgpt_page(), **facts)


def claude_tab(title="Release notes - Claude", address=CLAUDE_URL, **facts):
    return tab(title, address, claude_page(), **facts)


def gemini_tab(title="Notes - Google Gemini", address=GEMINI_URL, **facts):
    return tab(title, address, gemini_page(), **facts)


def work(*tabs, selected=0, **facts):
    return browser("work", "chrome.exe", tabs, selected, **facts)


def home(*tabs, selected=0, **facts):
    return browser("home", "msedge.exe", tabs, selected, bounds=(300, 80, 1800, 1000), **facts)


def reading(*tabs, selected=0, **facts):
    return browser("reading", "firefox.exe", tabs, selected, bounds=(80, 60, 1480, 960), **facts)


def quiet_home():
    return home(weather_tab(), sleeping_tab(), new_tab())


def quiet_reading():
    return reading(ramen_tab())


# What discovery sees of the quiet ones.

SEEN_MAIL = seen(0, MAIL_TITLE, "selected")
SEEN_WEATHER = seen(0, WEATHER_TITLE, "selected", url=WEATHER_URL)
SEEN_SLEEPING = seen(1, SLEEPING_TITLE)
SEEN_NEW_TAB = seen(2, "New tab")
SEEN_RAMEN = seen(0, RAMEN_TITLE, "selected", url=RAMEN_URL)
SEEN_QUIET_HOME = (SEEN_WEATHER, SEEN_SLEEPING, SEEN_NEW_TAB)
# Claude alone turns down every page in front whose address is none of its own.
CLAUDE_SEES_WEATHER = seen(0, WEATHER_TITLE, "selected", url=WEATHER_URL, decision=REJECT_NON_CHAT_CLAUDE_PAGE)
CLAUDE_SEES_RAMEN = seen(0, RAMEN_TITLE, "selected", url=RAMEN_URL, decision=REJECT_NON_CHAT_CLAUDE_PAGE)


def desk(*browsers):
    """The browsers among other programs' windows, the host's window in front of all."""
    first, *rest = browsers
    return [first, editor(), *rest, mail(), terminal()]


def top_level(windows):
    """All windows of the desktop at the start and the host's own."""
    return len(windows) + 1


# Scenarios.

def tabs_at_end(windows, selected, titles=None):
    """The strips as they must stand at the end; a window that isn't named in `selected` has gone or is no browser."""
    strips = {one["id"]: [each["title"] for each in one["tabs"]] for one in windows if "tabs" in one}
    strips |= titles or {}
    return {window: {"titles": strips[window], "selected": index} for window, index in selected.items()}


def expectation(replies, windows, foreground, selected, *, titles=None, calls=None, windows_at_end=None, values=None,
                keys=()):
    """What every activation must show besides its reply: no key but `keys`, no clipboard, nothing invoked, nothing
    held."""
    desktop = {"foreground": foreground}
    if windows_at_end:
        desktop["windows"] = windows_at_end
    desktop["tabs"] = tabs_at_end(windows, selected, titles)
    if values:
        desktop["values"] = values
    desktop["invoked"] = {f"{one['id']}/send": 0 for one in windows if "tabs" in one}
    desktop["clipboard"] = {"text": CLIPBOARD}
    return {
        "exitCode": 0,
        "replies": replies,
        "toInterface": [],
        "input": list(keys),
        "shell": [],
        "desktop": desktop,
        "stderr": [],
        "platformCalls": {"SendInput": 0, "OpenClipboard": 0, **(calls or {})},
        "live": NOTHING_HELD,
    }


def sees_foreground(activation, reply, name="look"):
    """A call behind a success: the window in front is the one whose handle the reply gave."""
    step = call("getProviderResponseState",
                {"expectedWindowHandle": {"$from": f"{reply}.windowHandle"}, "patterns": [], "name": activation.name},
                name)
    value = {"observed": True, "responding": False, "detail": "No visible AI responding control found"}
    return step, {"as": name, "method": "getProviderResponseState", "kind": "success", "error": None, "value": value,
                  "startMs": activation.end_ms, "endMs": activation.end_ms}


def case(file, windows, activation, arguments, *, selected, selections, foreground=None, looks=None, behind=(),
         faults=(), start=..., titles=None, calls=None, windows_at_end=None, values=None, then=(), folder="activation"):
    """One call of `activateProvider`.

    selected     where the selected tab of each browser window stands at the end
    selections   how often a tab is selected in all: a tab that isn't named in the trace is never touched
    foreground   the window in front at the end; the host's own stays there unless it is given
    looks        whether the call is followed by a look at the window in front; a success with it in front is
    behind       steps after the call
    then         further calls of `activateProvider` behind it: the activation and its arguments
    """
    reply = activation.reply("activation")
    steps, replies = [call("activateProvider", arguments, "activation")], [reply]
    if looks if looks is not None else activation.succeeds and foreground is not None:
        step, seen_in_front = sees_foreground(activation, "activation")
        steps.append(step)
        replies.append(seen_in_front)
    for number, (later, later_arguments) in enumerate(then, 2):
        steps.append(call("activateProvider", later_arguments, f"activation{number}"))
        replies.append(later.reply(f"activation{number}"))
    counted = {"IUIAutomationSelectionItemPattern::Select": selections, "SendInput": activation.sent_calls,
               **(calls or {})}
    if not activation.succeeds and activation.target is None:
        counted.setdefault("SetForegroundWindow", activation.front_requests)
    expect = expectation(replies, windows, foreground or activation.front_at_end, selected, titles=titles,
                         calls=counted, windows_at_end=windows_at_end, values=values, keys=activation.input)
    made = scenario(file.replace("-", " "), windows, [*steps, *behind], expect, start, CLIPBOARD, faults)
    return f"{folder}/{file}.json", made
