"""Desktops of growing size for an activation, and the call."""
from kit.activation_cases import provider_arguments
from kit.core import add, browser, call, edit, fault, move_focus, on_key, remove, rule, scenario, tab, wait, window

CHAT_TITLES = {"Gemini": "Lease questions - Google Gemini", "Claude": "Lease questions - Claude",
               "ChatGPT": "Lease questions - ChatGPT"}
CHAT_ADDRESSES = {"Gemini": "https://gemini.google.com/app/5c", "Claude": "https://claude.ai/chat/77b1",
                  "ChatGPT": "https://chatgpt.com/c/6821"}
LISBON = "Trip to Lisbon"
FAMILIES = {"chrome.exe": "Chrome", "msedge.exe": "Edge", "brave.exe": "Brave", "firefox.exe": "Firefox",
            "vivaldi.exe": "Vivaldi"}
# The thread behind a success has ended by then.
AFTERWARDS = wait(2000)


def fields(count):
    """Where neither an address bar nor a composer lies."""
    return [edit(None, f"Field {at}", (700, 300, 800, 330), value="") for at in range(count)]


def named_tab(title, address, page=(), at=0):
    return tab(title, address, page, automationId=f"tab-{at}", className="TabStrip", frameworkId="Shell")


def paper(window_at, at, count_of_fields):
    """Says nothing about a provider; no title holds another."""
    return named_tab(f"Paper {window_at:03d}-{at:05d}", f"https://papers.example/{window_at}/{at}",
                     fields(count_of_fields), at)


def paper_window(window_at, sizes, last=None, family="chrome.exe", selected=0, **facts):
    """`last` takes the place of the last tab."""
    strip = [paper(window_at, at, sizes.get("e", 0) if at == selected else 0) for at in range(sizes["t"])]
    if last is not None:
        strip[-1] = last
    return browser(f"browser{window_at}", family, strip, selected, **facts)


def others(sizes):
    return [window(f"other{at}", "notes.exe", f"Notes {at}", (0, 0, 400, 300)) for at in range(sizes.get("o", 0))]


def run(windows, sizes, provider, foreground="browser0", **remembered):
    steps = [call("activateProvider", provider_arguments(provider, **remembered)), AFTERWARDS]
    return scenario("calls", [*windows, *others(sizes)], steps, {}, foreground)


def chat_tab(provider, page=(), at=0):
    return named_tab(CHAT_TITLES[provider], CHAT_ADDRESSES[provider], page, at)


def desk_with_chat(provider, is_selected=False, page=(), front="browser0", **facts):
    """The chat is the last tab of the upper browser window."""

    def build(sizes, family):
        first = paper_window(0, sizes, chat_tab(provider, page), family, sizes["t"] - 1 if is_selected else 0, **facts)
        rest = [paper_window(at, sizes, family=family) for at in range(1, sizes["w"])]
        return run([first, *rest], sizes, provider, front)

    return build


def composer():
    return [edit("composer", "Message ChatGPT", (560, 900, 1360, 960), automationId="prompt-textarea", value="")]


def forced(sizes, family):
    return desk_with_chat("ChatGPT", page=composer(), front="other0", foregroundRequests=sizes["p"] - 1)(sizes, family)


def destinations(sizes, family):
    """The upper `c` windows show ChatGPT."""
    windows = []
    for at in range(sizes["w"]):
        shown = named_tab(f"Chat {at:03d}", f"https://chatgpt.com/c/{at}", fields(sizes["e"]), at)
        is_chat = at < sizes["c"]
        windows.append(paper_window(at, sizes, shown if is_chat else None, family, sizes["t"] - 1 if is_chat else 0))
    return run(windows, sizes, "ChatGPT")


def no_chat(provider):
    def build(sizes, family):
        return run([paper_window(at, sizes, family=family) for at in range(sizes["w"])], sizes, provider)

    return build


def refused_at_first(sizes, family):
    """The browser breaks off all selections but the n-th."""
    made = desk_with_chat("Gemini")(sizes, family)
    if sizes["n"] > 1:
        made["desktop"]["faults"] = [fault("IUIAutomationSelectionItemPattern::Select", "0x80010108",
                                           times=sizes["n"] - 1)]
    return made


def company_page(sizes, family):
    """The title is the provider's, the page isn't."""
    page = named_tab(CHAT_TITLES["Gemini"], "https://www.google.com/about")
    first = paper_window(0, sizes, page, family)
    return run([first, *[paper_window(at, sizes, family=family) for at in range(1, sizes["w"])]], sizes, "Gemini")


def remembered(provider, family, index):
    return {"rememberedTitle": CHAT_TITLES[provider], "rememberedAutomationId": "tab-0",
            "rememberedBrowser": FAMILIES[family], "rememberedWindowHandle": {"$windowText": "browser0"},
            "rememberedTabIndex": str(index)}


def warm(provider, is_selected=False, is_elsewhere=False):
    """With `k` the address shows at the k-th look at it; elsewhere it is another page's."""

    def build(sizes, family):
        last = sizes["t"] - 1
        chat, rules = chat_tab(provider), []
        if is_elsewhere:
            chat["address"] = "https://papers.example/elsewhere"
        if "k" in sizes:
            chat["address"] = "loading"
            shows = {"address": CHAT_ADDRESSES[provider]}
            rules = [rule({"select": CHAT_TITLES[provider]}, shows, after=100 + 20 * (sizes["k"] - 1) - 10)]
        first = paper_window(0, sizes, chat, family, last if is_selected else 0, rules=rules)
        rest = [paper_window(at, sizes, family=family) for at in range(1, sizes["w"])]
        return run([first, *rest], sizes, provider, **remembered(provider, family, last))

    return build


def assisted(sizes, _):
    """Every window is Chrome's; its tab search leads to a page whose title says nothing."""
    box = edit("searchTabs", "Search tabs", (560, 60, 1120, 100), value="")
    rules = [on_key("Ctrl+Shift+A", add(box), move_focus("searchTabs")),
             on_key("Enter", remove("searchTabs"), {"selectTab": LISBON})]
    lisbon = named_tab(LISBON, CHAT_ADDRESSES["ChatGPT"])
    first = paper_window(0, sizes, lisbon, rules=rules)
    return run([first, *[paper_window(at, sizes) for at in range(1, sizes["w"])]], sizes, "ChatGPT")
