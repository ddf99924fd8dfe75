"""The arguments in all their forms, calls behind calls, and a platform without UI Automation."""
from .activation import Activation
from .activation_cases import (CHATGPT_URL, CLIPBOARD, MAIL_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, case, chatgpt_tab,
                               claude_tab, desk, expectation, mail_tab, provider_arguments, quiet_home,
                               work)
from .activation_tabs import INDEX_AND_TITLE, REJECT_OTHER_PROVIDER, live, seen, window
from .core import E_FAIL, call, fault, scenario, tab

QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
CHATGPT_TITLE = "Trip to Lisbon - ChatGPT"


def chatgpt_in_front():
    return desk(work(mail_tab(), chatgpt_tab(), selected=1))


def chatgpt_without_address():
    """Proven by its composer alone: no page that is known by its address stands in front."""
    return desk(work(mail_tab(), chatgpt_tab(), selected=1, addressBar=None))


def as_chatgpt(windows, *, start_ms=0, search_id=1, takes_ms=None, name="ChatGPT"):
    target = seen(1, CHATGPT_TITLE, "selected anchoredTitle verifiedContent rawTitle", score=500)
    activation = Activation(name, start_ms=start_ms, search_id=search_id)
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target, proves_composer=True)],
                        desktop=windows, front="work" if takes_ms == 0 else None)
    activation.choose("Chrome", target).already_selected().settle()
    return activation.chatgpt_identity(passes=True, composer=True).finish(takes_ms=takes_ms)


def names():
    windows = chatgpt_without_address()
    yield case("chatgpt-name-in-any-case-is-the-same-provider", windows, as_chatgpt(windows, name="CHATGPT"),
               provider_arguments("ChatGPT", name="CHATGPT"), selected={"work": 1}, selections=0, foreground="work")

    # The composer is looked for wherever the name holds the word, and proves nothing for another key.
    for name, word, raw in ((" chatgpt", "a-leading-blank", "rawTitle"), ("ChatGPT Plus", "a-further-word", "")):
        windows = chatgpt_in_front()
        tabs = [seen(0, MAIL_TITLE), seen(1, CHATGPT_TITLE, f"selected domain {raw}", url=CHATGPT_URL,
                                          decision=REJECT_OTHER_PROVIDER)]
        activation = Activation(name)
        activation.discover(*[[window("Chrome", *tabs, proves_composer=True)]] * 3, desktop=windows)
        activation.no_session()
        yield case(f"name-of-chatgpt-with-{word}-is-another-provider", windows, activation,
                   provider_arguments("ChatGPT", name=name, patterns=[]), selected={"work": 1}, selections=0)

        windows = desk(work(mail_tab(), chatgpt_tab("Lisbon"), selected=1))
        target = seen(1, "Lisbon", "selected domain", url=CHATGPT_URL, score=320)
        activation = Activation(name)
        activation.discover([window("Chrome", seen(0, MAIL_TITLE), target, proves_composer=True)],
                            desktop=windows)
        activation.choose("Chrome", target).already_selected().settle().finish()
        yield case(f"name-of-chatgpt-with-{word}-has-no-rule-but-the-domain", windows, activation,
                   provider_arguments("ChatGPT", name=name, patterns=[]), selected={"work": 1}, selections=0,
                   foreground="work")


def unknown_names():
    windows = desk(work(mail_tab(), tab("New chat", "https://chat.tutor.example/c/1"), selected=1), quiet_home())
    target = seen(1, "New chat", "selected domain", url="https://chat.tutor.example/c/1", score=320)
    activation = Activation("Tutor")
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target), QUIET_HOME], desktop=windows)
    activation.choose("Chrome", target).already_selected().settle().finish()
    yield case("unknown-name-is-found-by-the-domain", windows, activation,
               provider_arguments("Tutor", domain="Chat.Tutor.Example"), selected={"work": 1, "home": 0}, selections=0,
               foreground="work")

    windows = desk(work(mail_tab(), tab("Hausaufgaben bei Frau Ebner", "https://chat.tutor.example/c/1")))
    target = seen(1, "Hausaufgaben bei Frau Ebner", "rawTitle", score=60)
    activation = Activation("Tutor")
    activation.discover([window("Chrome", SEEN_MAIL, target)], desktop=windows)
    activation.choose("Chrome", target)
    activation.select(live((MAIL_TITLE, "S"), (target.title, "IT")), INDEX_AND_TITLE, 1).settle().finish()
    yield case("unknown-name-is-found-by-a-further-word", windows, activation,
               provider_arguments("Tutor", patterns=["tutor", "HAUSAUFGABEN"]), selected={"work": 1}, selections=1,
               foreground="work")

    windows = chatgpt_in_front()
    tabs = [seen(0, MAIL_TITLE), seen(1, CHATGPT_TITLE, "selected", url=CHATGPT_URL, decision=REJECT_OTHER_PROVIDER)]
    for name, arguments, word in (("Tutor", provider_arguments("Tutor"), "unknown-name-without-a-tab"),
                                  ("", provider_arguments(""), "empty-name"), ("", {}, "empty-map")):
        activation = Activation(name)
        activation.discover(*[[window("Chrome", *tabs)]] * 3, desktop=windows).no_session()
        yield case(f"{word}-finds-no-session", windows, activation, arguments, selected={"work": 1}, selections=0)

    windows = desk(work(mail_tab(), chatgpt_tab("Lisbon"), selected=1))
    target = seen(1, "Lisbon", "selected domain", url=CHATGPT_URL, score=320)
    activation = Activation("")
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target)], desktop=windows)
    activation.choose("Chrome", target).already_selected().settle().finish()
    yield case("empty-name-is-found-by-the-domain", windows, activation, provider_arguments("", domain="chatgpt.com"),
               selected={"work": 1}, selections=0, foreground="work", looks=False)


def types():
    """A value of another type reads as absent."""
    windows = desk(work(mail_tab(), claude_tab("Claude")))
    wrong = {"name": 7, "domain": ["claude.ai"], "patterns": "claude", "rememberedTitle": True,
             "rememberedAutomationId": 1.5, "rememberedBrowser": None, "rememberedWindowHandle": {"$window": "work"},
             "rememberedTabIndex": 1}
    activation = Activation("")
    tabs = [SEEN_MAIL, seen(1, "Claude")]
    activation.discover(*[[window("Chrome", *tabs)]] * 3, desktop=windows).no_session()
    yield case("arguments-of-other-types-read-as-absent", windows, activation, wrong, selected={"work": 0},
               selections=0)

    # Whatever else stands in the map is passed over.
    activation = Activation("Claude")
    target = seen(1, "Claude", "anchoredTitle rawTitle", score=200)
    activation.discover([window("Chrome", SEEN_MAIL, target)], desktop=windows)
    activation.choose("Chrome", target)
    activation.select(live((MAIL_TITLE, "S"), ("Claude", "IT")), INDEX_AND_TITLE, 1).settle()
    activation.claude_identity(passes=True).finish()
    yield case("arguments-need-no-more-than-the-name", windows, activation,
               {"name": "Claude", "prompt": "What does it cover?", "Domain": "chatgpt.com"}, selected={"work": 1},
               selections=1, foreground="work")


def no_map():
    """Without a map there is no search: an error, and no number is used up."""
    windows = chatgpt_without_address()
    steps, replies = [], []
    for name, arguments in (("none", None), ("list", ["ChatGPT"]), ("text", "ChatGPT"), ("number", 5),
                            ("bytes", {"$bytes": "Q2xhdWRl"})):
        steps.append(call("activateProvider", arguments, name))
        replies.append({"as": name, "method": "activateProvider", "kind": "error", "value": None, "startMs": 0,
                        "endMs": 0, "error": {"code": "bad_arguments",
                                              "message": "Expected a provider argument map.", "details": None}})
    steps.append(call("ActivateProvider", provider_arguments("ChatGPT"), "case"))
    replies.append({"as": "case", "method": "ActivateProvider", "kind": "notImplemented", "value": None,
                    "error": None, "startMs": 0, "endMs": 0})
    steps.append(call("activateProvider", provider_arguments("ChatGPT"), "map"))
    replies.append(as_chatgpt(windows).reply("map"))
    expect = expectation(replies, windows, "work", {"work": 1}, calls={"EnumWindows": 2, "SetForegroundWindow": 1})
    file = "arguments-that-are-no-map-are-an-error-and-no-search"
    yield f"activation/{file}.json", scenario(file.replace("-", " "), windows, steps, expect, clipboard=CLIPBOARD)


def search_ids():
    """The number counts every search of the process, successes, failures and failed starts alike."""
    windows = chatgpt_without_address()
    tabs = [seen(0, MAIL_TITLE), seen(1, CHATGPT_TITLE, "selected", decision=REJECT_OTHER_PROVIDER)]
    first = Activation("Gemini")
    first.discover(*[[window("Chrome", *tabs)]] * 3, desktop=windows).no_session()
    second = Activation("Claude", start_ms=first.end_ms, search_id=2).automation_unavailable()
    third = as_chatgpt(windows, start_ms=second.end_ms, search_id=3)
    fourth = as_chatgpt(windows, start_ms=third.end_ms, search_id=4, takes_ms=0)
    later = [(second, provider_arguments("Claude")), (third, provider_arguments("ChatGPT")),
             (fourth, provider_arguments("ChatGPT"))]
    yield case("search-number-counts-every-search", windows, first, provider_arguments("Gemini"), selected={"work": 1},
               selections=0, foreground="work", looks=False, then=later, calls={"SetForegroundWindow": 2},
               faults=[fault("CoCreateInstance", "0x80040154", 2)])


def automation():
    windows = chatgpt_without_address()
    for result, word in (("0x80040154", "not-registered"), (E_FAIL, "failing"), (None, "empty")):
        for name in ("ChatGPT", "Claude"):
            activation = Activation(name).automation_unavailable()
            # The process holds an apartment of its own; the search leaves the one that it entered.
            yield case(f"{name.lower()}-automation-{word}-ends-the-search-at-its-start", windows, activation,
                       provider_arguments(name), selected={"work": 1}, selections=0,
                       faults=[fault("CoCreateInstance", result)],
                       calls={"EnumWindows": 0, "CoCreateInstance": 1, "CoInitializeEx": 2, "CoUninitialize": 2})

    yield case("chatgpt-apartment-of-another-kind-is-used-as-it-is", windows, as_chatgpt(windows),
               provider_arguments("ChatGPT"), selected={"work": 1}, selections=0, foreground="work",
               faults=[fault("CoInitializeEx", "0x80010106", 2)], calls={"CoInitializeEx": 2, "CoUninitialize": 1})
    yield case("chatgpt-apartment-that-was-entered-is-left-again", windows, as_chatgpt(windows),
               provider_arguments("ChatGPT"), selected={"work": 1}, selections=0, foreground="work",
               calls={"CoInitializeEx": 2, "CoUninitialize": 2})


def scenarios():
    for part in (names, unknown_names, types, no_map, search_ids, automation):
        yield from part()
