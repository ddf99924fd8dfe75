"""DeepSeek, Qwen and Doubao: the run that ends in a cleared composer, every place where the route stops, who counts as
one of them and on which host, and what is in front or behind meanwhile."""
from .best_effort import (DRAFT, NO_AUTOMATION, NO_CONDITION, NO_ROOT, NO_VALUE, NOT_FOCUSED, ROUTE_MS,
                          WRONG_HOST, BestEffort, best_effort_scene, expect_best_effort)
from .core import ALWAYS, E_FAIL, at, bring_up, browser, call, change, fault, on_paste, scenario, wait
from .delivery import Delivery, deliver
from .delivery_scenes import NOT_SENT, PROMPT, SECOND_PROMPT, SENT, named
from .delivery_texts import HANDLE_DIFFERS, WRONG_WINDOW
from .desktops import chat_browser, desk
from .pages import DEEPSEEK, DOUBAO, GROK, QWEN, ready_page, working_page

PROVIDERS = (DEEPSEEK, QWEN, DOUBAO)
OLD_DRAFT = "A draft that nobody sent"


def delivered(provider, name=None, **how):
    run = BestEffort(provider, name).identified(**how).scan().focus_taken().keys_pasted()
    return run.matched().enter_sent().cleared()


# The search for the address is the first to need each of these, once for each host until one passes.
AUTOMATION_CALLS = (("automation", "CoCreateInstance", NO_AUTOMATION),
                    ("root", "IUIAutomation::ElementFromHandle", NO_ROOT),
                    ("condition", "IUIAutomation::CreatePropertyCondition", NO_CONDITION))


def ways_out(provider):
    """Every step at which the route can stop, with each of the three."""
    def out(stem, page, delivery, composer="", **more):
        return best_effort_scene(f"{provider.name.lower()}-{stem}", page, delivery, composer, **more)

    yield out("composer-that-clears-after-enter-is-delivered", working_page(provider), delivered(provider), "",
              message=SENT, focus="chat/composer")

    page = working_page(provider)
    page.address = "https://courier.example/chat"
    yield out("page-on-another-host-types-nothing", page, BestEffort(provider).begun().stop("Identity", WRONG_HOST))

    for what, call_name, text in AUTOMATION_CALLS:
        yield out(f"{what}-that-is-refused-types-nothing", working_page(provider),
                  BestEffort(provider).identified().stop("UIA", text), faults=[fault(call_name, E_FAIL, nth=2)])

    yield out("page-without-a-composer-types-nothing", ready_page(provider).without("composer"),
              BestEffort(provider).no_composer(edits=2, usable=2), ...)

    yield out("composer-that-refuses-the-focus-types-nothing", working_page(provider).set("composer", acceptsFocus=False),
              BestEffort(provider).found().stop("Focus", NOT_FOCUSED), focus=None)

    yield out("composer-without-a-value-types-nothing", working_page(provider).without_value(),
              BestEffort(provider).focused().stop("Input Value", NO_VALUE), ...)

    yield out("draft-blocks-the-prompt-and-stays", working_page(provider, draft=OLD_DRAFT),
              BestEffort(provider).focused().stop("Existing Draft", DRAFT), OLD_DRAFT)

    yield out("empty-clipboard-types-nothing", working_page(provider), BestEffort(provider).unread(), clipboard=None)

    yield out("paste-not-sent-is-not-tried-again", working_page(provider), BestEffort(provider).paste_fails(),
              faults=[fault("SendInput", 0)])

    page = ready_page(provider).with_rules(on_paste("composer", change("composer", value=PROMPT[:-1])))
    yield out("page-that-drops-a-character-is-not-submitted", page, BestEffort(provider).pasted().unmatched(),
              PROMPT[:-1])

    yield out("enter-not-sent-leaves-the-verified-draft", working_page(provider), BestEffort(provider).enter_fails(),
              PROMPT, faults=[fault("SendInput", 0, nth=2)])

    yield out("text-that-remains-after-enter-is-left-alone", ready_page(provider),
              BestEffort(provider).submitted().uncleared(), PROMPT)


def names():
    def by_name(stem, provider, name):
        return best_effort_scene(stem, working_page(provider), delivered(provider, name), message=SENT)

    yield by_name("doubao-by-its-own-name-is-delivered", DOUBAO, "豆包")
    yield by_name("qwen-by-its-own-name-is-delivered", QWEN, "通义千问")
    yield by_name("deepseek-in-capitals-is-delivered", DEEPSEEK, "DEEPSEEK")


def hosts():
    def on_host(stem, provider, address, passes):
        page = working_page(provider)
        page.address = address
        if passes:
            return best_effort_scene(stem, page, delivered(provider), message=SENT)
        return best_effort_scene(stem, page, BestEffort(provider).begun().stop("Identity", WRONG_HOST), focus=None)

    good = (
        ("deepseek-host-behind-www-is-its-host", DEEPSEEK, "https://www.chat.deepseek.com/"),
        ("deepseek-host-without-a-scheme-is-its-host", DEEPSEEK, "chat.deepseek.com/a/chat"),
        ("deepseek-host-with-a-port-is-its-host", DEEPSEEK, "https://chat.deepseek.com:443/a/chat"),
        ("deepseek-host-in-capitals-is-its-host", DEEPSEEK, "HTTPS://Chat.DeepSeek.com/a/chat"),
        ("qwen-second-host-is-its-host", QWEN, "https://qianwen.com/chat/7d20"),
        ("qwen-second-host-behind-www-is-its-host", QWEN, "https://www.qianwen.com?from=home"),
        ("doubao-host-without-www-is-its-host", DOUBAO, "https://doubao.com#chat"),
    )
    for stem, provider, address in good:
        yield on_host(stem, provider, address, True)
    bad = (
        ("deepseek-sub-domain-types-nothing", DEEPSEEK, "https://eu.chat.deepseek.com/a/chat"),
        ("deepseek-domain-above-its-host-types-nothing", DEEPSEEK, "https://www.deepseek.com/en"),
        ("deepseek-host-with-more-behind-it-types-nothing", DEEPSEEK, "https://chat.deepseek.com.mirror.example/"),
        ("deepseek-host-in-a-query-types-nothing", DEEPSEEK, "https://find.example/?q=chat.deepseek.com"),
        ("deepseek-on-the-page-of-qwen-types-nothing", DEEPSEEK, "https://chat.qwen.ai/c/7d20"),
        ("qwen-sub-domain-of-its-second-host-types-nothing", QWEN, "https://chat.qianwen.com/7d20"),
        ("qwen-host-without-a-scheme-is-no-address-and-types-nothing", QWEN, "chat.qwen.ai/c/7d20"),
        ("doubao-sub-domain-types-nothing", DOUBAO, "https://team.doubao.com/chat"),
        ("doubao-page-without-an-address-types-nothing", DOUBAO, ""),
    )
    for stem, provider, address in bad:
        yield on_host(stem, provider, address, False)


def identity():
    def mismatch(stem, provider, **more):
        return best_effort_scene(stem, working_page(provider),
                                 BestEffort(provider).begun().stop("Identity", WRONG_HOST), focus=None, **more)

    yield mismatch("deepseek-window-without-an-address-bar-types-nothing", DEEPSEEK, chat_facts={"addressBar": None})
    yield mismatch("qwen-browser-that-shows-no-tree-types-nothing", QWEN, chat_facts={"uia": False})
    yield mismatch("doubao-automation-that-is-never-there-types-nothing", DOUBAO,
                   faults=[fault("CoCreateInstance", None, times=ALWAYS)])
    # The first look is that of the common path, the second the route's own.
    yield mismatch("deepseek-foreground-that-left-behind-the-first-look-types-nothing", DEEPSEEK,
                   faults=[fault("GetForegroundWindow", None, nth=2)])

    for what, call_name, text in AUTOMATION_CALLS:
        yield best_effort_scene(f"qwen-{what}-that-is-null-types-nothing", working_page(QWEN),
                                BestEffort(QWEN).identified().stop("UIA", text),
                                faults=[fault(call_name, None, nth=2)])
    page = working_page(QWEN)
    page.address = "https://www.qianwen.com/chat/7d20"
    yield best_effort_scene("qwen-second-host-looks-at-the-address-twice-before-the-route-begins", page,
                            BestEffort(QWEN).identified().stop("UIA", NO_AUTOMATION),
                            faults=[fault("CoCreateInstance", E_FAIL, nth=3)])


def same_host_window(provider, identifier="other"):
    """Another window of another browser on the same host, with a conversation of its own."""
    page = working_page(provider)
    page.title = "Moving house - " + provider.name
    return browser(identifier, "brave.exe", [page.tab()], bounds=(100, 60, 1700, 1060))


def windows():
    chat = chat_browser(working_page(DEEPSEEK).tab())
    other = same_host_window(DEEPSEEK)
    untouched = {"other/composer": "", "other/lastMessage": NOT_SENT["chat/lastMessage"]}
    yield best_effort_scene("deepseek-second-window-on-the-same-host-is-not-looked-at", working_page(DEEPSEEK),
                            delivered(DEEPSEEK), message=SENT, values=untouched, windows=[chat, other, *desk(chat)[1:]])

    page = ready_page(DEEPSEEK).with_rules(at(ROUTE_MS + 100, bring_up("other")))
    yield best_effort_scene("deepseek-second-window-on-the-same-host-that-comes-up-stops-it", page,
                            BestEffort(DEEPSEEK).pasted().unmatched(1), PROMPT, foreground="other", values=untouched,
                            windows=[chat_browser(page.tab()), other])

    blocked = Delivery("DeepSeek").foreground(HANDLE_DIFFERS).reply(False, WRONG_WINDOW)
    made = scenario("", [other, chat], [deliver("DeepSeek")],
                    expect_best_effort(blocked, clipboard={"text": PROMPT}, foreground="other",
                                       values={"chat/composer": "", **untouched}, invoked={"chat/send": 0}),
                    foreground="other", clipboard=PROMPT)
    yield named("best-effort", "deepseek-other-window-on-the-same-host-in-front-blocks-the-send", made)

    by_title = delivered(QWEN, expected=False, verdict="PASS: foreground title is Lease questions - Qwen - Google Chrome")
    yield best_effort_scene("qwen-window-known-by-its-title-is-delivered", working_page(QWEN), by_title, message=SENT,
                            steps=[call("pasteAndSubmit", {"name": "Qwen", "patterns": ["qwen"]}, "deliver")])

    left = {"bounds": [-1600, -1000, 0, 0]}
    monitors = [{"bounds": [0, 0, 1920, 1080], "work": [0, 0, 1920, 1040], "dpi": 96},
                {"bounds": [-1920, -1080, 0, 0], "work": [-1920, -1080, 0, 0], "dpi": 96}]
    for stem, top, named_candidates in (("on", -800, 1), ("above", -801, 0)):
        page = working_page(DEEPSEEK).set("composer", bounds=[-1400, top, -400, top + 60])
        run = delivered(DEEPSEEK) if named_candidates else BestEffort(DEEPSEEK).no_composer()
        scene = best_effort_scene(f"deepseek-composer-{stem}-the-line-of-a-window-at-negative-coordinates", page, run,
                                  message=SENT if named_candidates else NOT_SENT, chat_facts=left)
        scene[1]["desktop"]["monitors"] = monitors
        yield scene


def twice(stem, first, second, pages, second_name, message, pause=8000, faults=()):
    """Two calls, with a second prompt on the clipboard for the second."""
    steps = [deliver(first.name, as_="first"), wait(pause), {"do": [{"clipboard": {"text": SECOND_PROMPT}}]},
             deliver(second_name, as_="second")]
    held = {"text": SECOND_PROMPT}
    expected = expect_best_effort(first, second, names=("first", "second"), clipboard=held, sequence=2,
                                  values={"chat/composer": "", "chat/lastMessage": message}, invoked={"chat/send": 0})
    return named("best-effort", stem, scenario("", desk(chat_browser(pages.tab())), steps, expected, foreground="chat",
                                               clipboard=PROMPT, faults=faults))


def second_run(provider, first, pause):
    run = BestEffort(provider, start=first.now + pause, batch=first.batch).identified().scan().focus_taken()
    return run.keys_pasted().matched().enter_sent().cleared()


def settling():
    pause = 8000
    for provider in PROVIDERS:
        first = delivered(provider)
        yield twice(f"{provider.name.lower()}-never-waits-for-a-first-use", first, second_run(provider, first, pause),
                    working_page(provider, answer_ms=3000), provider.name, SECOND_PROMPT)

    failed = BestEffort(DEEPSEEK).enter_fails()
    again = BestEffort(DEEPSEEK, start=failed.now + pause, batch=failed.batch).focused().stop("Existing Draft", DRAFT)
    made = twice("deepseek-draft-left-by-a-first-call-blocks-the-second", failed, again, working_page(DEEPSEEK),
                 "DeepSeek", NOT_SENT["chat/lastMessage"], faults=[fault("SendInput", 0, nth=2)])
    made[1]["expect"]["desktop"]["values"]["chat/composer"] = PROMPT
    yield made

    # Its delivery settles nothing for another name: a page on its host that Grok is asked to use.
    first = delivered(DEEPSEEK)
    second = Delivery("Grok", first.now + pause, batch=first.batch).open().plain_settle().enter().sent().observe()
    second.plain_unlooked().delivered()
    yield twice("deepseek-delivered-leaves-other-names-unsettled", first, second,
                working_page(DEEPSEEK, answer_ms=3000), GROK.name, SECOND_PROMPT)


def scenarios():
    for provider in PROVIDERS:
        yield from ways_out(provider)
    for group in (names, hosts, identity, windows, settling):
        yield from group()
