"""A provider's page of growing size, and one delivery to it."""
from kit.activation_cases import CALLS
from kit.core import (add, at, browser, button, call, change, edit, on_invoke, on_key, on_paste, remove, rule, scenario,
                      tab, text, wait, window)
from kit.pages import (CHATGPT, CLAUDE, DEEPSEEK, GEMINI, GROK, PERPLEXITY, QWEN, attachments, pasted_page, ready_page,
                       stop_button, working_page)

PROMPT = "Which three questions should I ask before I sign a lease?"
QWEN_SECOND_ADDRESS = "https://www.qianwen.com/c/7d20-lease"

# Waits of the pipeline, in milliseconds, as far as a page has to know when it is looked at.
BEFORE_FOREGROUND, FIRST_USE = 260, 1800
BETWEEN_READINESS_CHECKS = 250
AFTER_SEND, POST_SUBMIT, BETWEEN_POLLS = 350, 800, 250
AFTER_CLAUDE_SEND, BEFORE_CLAUDE_TRY = 900, 450
BETWEEN_SCANS, BEFORE_PASTE_CHECK, BEFORE_DELIVERY_CHECK = 350, 200, 250
# Earlier than the check that is to see it, later than the one before.
EARLY = 100


def grown(page, sizes):
    """More of everything: fields, buttons and texts before, buttons behind."""
    chips = [button(None, f"Suggestion {at}", (560, 200, 700, 230)) for at in range(sizes.get("b", 0))]
    more_fields = [edit(None, f"Field {at}", (700, 300, 800, 330), value="") for at in range(sizes.get("e", 0))]
    words = [text(None, f"Paragraph {at}", (560, 260, 1360, 280)) for at in range(sizes.get("x", 0))]
    behind = [button(None, f"Reaction {at}", (560, 700, 600, 730)) for at in range(sizes.get("a", 0))]
    return page.with_first(*chips, *more_fields, *words).with_elements(*behind)


def chat_window(page, sizes):
    strip = [tab(f"Paper {at:05d}", f"https://papers.example/{at}") for at in range(sizes.get("t", 1) - 1)]
    return browser("chat", "chrome.exe", [*strip, page.tab()], len(strip))


def arguments(provider):
    return {"name": provider.name, "patterns": CALLS[provider.name][1], "expectedWindowHandle": {"$window": "chat"}}


def run(page, sizes, steps):
    """Files that wait come first, so that a search from the last button sees all others before them."""
    files = attachments(sizes.get("f", 0))
    page = grown(page, sizes).with_first(*files).with_rules(*[on_invoke(one["id"], remove(one["id"])) for one in files])
    return scenario("calls", [chat_window(page, sizes)], steps, {}, "chat", PROMPT)


def delivered(page, sizes):
    return run(page, sizes, [call("pasteAndSubmit", arguments(page.provider))])


def at_work(provider):
    return lambda sizes, _: delivered(working_page(provider), sizes)


def emptied_late(sizes, _):
    """Claude's composer is gone until the k-th look at it."""
    page = pasted_page(CLAUDE)
    composer = {**page.element("composer"), "value": ""}
    back = AFTER_CLAUDE_SEND + BEFORE_CLAUDE_TRY * sizes["k"] - EARLY
    page.with_rules(on_invoke("send", remove("composer")), on_invoke("send", add(composer), after=back))
    return delivered(page, sizes)


def send_never_back(sizes, _):
    return delivered(pasted_page(CLAUDE).with_rules(on_invoke("send", change("send", enabled=False))), sizes)


def sent_again(sizes, _):
    """Claude's page takes what is sent only when it is sent once more, two readings of the box later."""
    second = AFTER_CLAUDE_SEND + BEFORE_CLAUDE_TRY + 2 * BETWEEN_POLLS
    page = pasted_page(CLAUDE).with_rules(on_invoke("send", change("composer", value=""), after=second + EARLY))
    return delivered(page, sizes)


def send_never_ready(sizes, _):
    return delivered(ready_page(CLAUDE).with_rules(on_key("Enter", change("composer", value=""))), sizes)


def answers_unseen(provider, trigger):
    """The text stays, no Stop control shows, and Send isn't ready again."""
    return lambda sizes, _: delivered(pasted_page(provider).with_rules(rule(trigger, change("send", enabled=False))),
                                      sizes)


def other_window_in_front(sizes, _):
    made = delivered(ready_page(GROK), sizes)
    made["desktop"]["windows"].append(window("notes", "notes.exe", "Notes", (0, 0, 400, 300)))
    return {**made, "desktop": {**made["desktop"], "foreground": "notes"}}


def never_ready(sizes, _):
    return delivered(ready_page(GROK).set("composer", enabled=False), sizes)


def draft_in_the_way(sizes, _):
    usable = BEFORE_FOREGROUND + BETWEEN_SCANS * (sizes["s"] - 1) - EARLY
    page = ready_page(DEEPSEEK, draft="Dear landlord,").set("composer", enabled=False)
    return delivered(page.with_rules(at(usable, change("composer", enabled=True))), {**sizes, "h": 1})


def looked_at_by_title(sizes, _):
    """The last pattern is the one that fits."""
    patterns = [*[f"word{at}" for at in range(sizes["p"] - 1)], "gemini"]
    asked = {"name": "Lease", "patterns": patterns}
    return run(ready_page(GEMINI), sizes, [call("getProviderResponseState", asked)])


def responds_late(provider, trigger):
    """The text stays, and the Stop control shows at the k-th look for it."""

    def build(sizes, _):
        shown = AFTER_SEND + POST_SUBMIT + BETWEEN_POLLS * (sizes["k"] - 1) - EARLY
        page = pasted_page(provider).with_rules(rule(trigger, add(stop_button(provider)), after=shown))
        return delivered(page, sizes)

    return build


def cleared_late(sizes, _):
    """Perplexity's composer is empty at the k-th look."""
    shown = AFTER_SEND + BETWEEN_POLLS * (sizes["k"] - 1) - EARLY
    return delivered(pasted_page(PERPLEXITY).with_rules(on_invoke("send", change("composer", value=""), after=shown)),
                     sizes)


def ready_late(sizes, _):
    """The composer can be used from the third check before the r-th on."""
    usable = BEFORE_FOREGROUND + FIRST_USE + BETWEEN_READINESS_CHECKS * (sizes["r"] - 3) - EARLY
    page = working_page(GROK).set("composer", enabled=False)
    return delivered(page.with_rules(at(usable, change("composer", enabled=True))), sizes)


def delivered_again(sizes, _):
    page = working_page(GROK)
    steps = [call("pasteAndSubmit", arguments(GROK)), wait(10000)] * sizes["n"]
    return run(page, sizes, steps)


def best_effort(sizes, _):
    """Qwen's page stands on the second of its hosts."""
    page = ready_page(DEEPSEEK if sizes["h"] == 1 else QWEN).set("composer", enabled=False)
    if sizes["h"] == 2:
        page.address = QWEN_SECOND_ADDRESS
    usable = BEFORE_FOREGROUND + BETWEEN_SCANS * (sizes["s"] - 1) - EARLY
    page.with_rules(
        at(usable, change("composer", enabled=True)),
        on_paste("composer", change("composer", value="")),
        on_paste("composer", change("composer", value=PROMPT), after=BEFORE_PASTE_CHECK * sizes["v"] - EARLY),
        on_key("Enter", change("composer", value=""), after=BEFORE_DELIVERY_CHECK * sizes["k"] - EARLY))
    return delivered(page, sizes)


def looked_at(method, with_stop=False):
    def build(sizes, _):
        page = grown(ready_page(GEMINI), sizes)
        if with_stop:
            page.with_elements(stop_button(GEMINI))
        return scenario("calls", [chat_window(page, sizes)], [call(method, arguments(GEMINI))], {}, "chat")

    return build


CHATGPT_RESPONDS = responds_late(CHATGPT, {"invoke": "send"})
GEMINI_RESPONDS = responds_late(GEMINI, {"key": "Enter"})
