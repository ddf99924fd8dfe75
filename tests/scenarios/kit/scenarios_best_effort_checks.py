"""From the clipboard to the cleared composer of DeepSeek, Qwen and Doubao: what the clipboard may hold, what a page makes
of the text, and who meddles before each check."""
from .best_effort import (DELIVERY_CHECKS, DELIVERY_PAUSE_MS, NOT_SUBMITTED, PASTE_CHECKS, PASTE_PAUSE_MS,
                          ROUTE_MS, SCANS, SCAN_PAUSE_MS, BestEffort, best_effort_scene)
from .core import E_FAIL, add, at, bring_up, change, close_window, fault, on_key, on_paste, remove, rule
from .delivery_scenes import PROMPT, SENT
from .pages import DEEPSEEK, DOUBAO, QWEN, ready_page, takes_message, working_page

GONE = ...
PROVIDERS = (DEEPSEEK, QWEN, DOUBAO)
EDITOR_TEXT = {"editor/source": "# Lease\n\n- deposit\n- repairs\n"}
# Behind the key that fired a rule, before anything else.
SOON_MS = 10
TWO_LINES = "Which questions come first?\r\nAnd which can wait?"


def lower(provider):
    return provider.name.lower()


def before_paste_check(check):
    """A time in the pause before this check of a run that pasted at once."""
    return ROUTE_MS + check * PASTE_PAUSE_MS - 50


def before_delivery_check(check):
    """The same for the checks after an Enter that followed the first paste check."""
    return ROUTE_MS + PASTE_PAUSE_MS + check * DELIVERY_PAUSE_MS - 50


def clipboards():
    def refused(stem, provider, clipboard=..., opened=True, **more):
        run = BestEffort(provider).unread() if opened else BestEffort(provider).unopened()
        return best_effort_scene(stem, working_page(provider), run, clipboard=clipboard, **more)

    yield refused("deepseek-clipboard-without-text-types-nothing", DEEPSEEK, {"html": "<b>lease</b>"})
    yield refused("qwen-clipboard-with-an-empty-text-types-nothing", QWEN, {"text": ""})
    yield refused("doubao-clipboard-that-begins-with-a-zero-types-nothing", DOUBAO, {"text": "\0lease"})
    for provider in PROVIDERS:
        yield refused(f"{lower(provider)}-clipboard-held-by-another-window-types-nothing", provider,
                      {"text": PROMPT, "lockedBy": "editor"}, opened=False)
    yield refused("deepseek-clipboard-that-cannot-be-opened-types-nothing", DEEPSEEK, opened=False,
                  faults=[fault("OpenClipboard", False)])
    for stem, name, result in (("whose-data-is-null", "GetClipboardData", None),
                               ("whose-block-has-no-size", "GlobalSize", 0),
                               ("whose-block-has-one-byte", "GlobalSize", 1),
                               ("whose-block-exceeds-eight-mebibytes-by-one-byte", "GlobalSize", 8388609),
                               ("whose-block-exceeds-eight-mebibytes-by-one-unit", "GlobalSize", 8388610),
                               ("whose-block-cannot-be-locked", "GlobalLock", None)):
        yield refused(f"qwen-clipboard-{stem}-types-nothing", QWEN, faults=[fault(name, result)])
    for stem, name, result in (("deepseek-focus-lost-while-the-clipboard-is-read-types-nothing",
                                "IUIAutomation::GetFocusedElement", E_FAIL),
                               ("deepseek-focus-elsewhere-behind-the-clipboard-types-nothing",
                                "IUIAutomation::CompareElements", "0x00000000")):
        yield refused(stem, DEEPSEEK, faults=[fault(name, result, nth=2)])

    # A block without a closing zero ends with its bytes; an odd last byte is no unit.
    for stem, size in (("ends-with-its-block", 10), ("ends-before-an-odd-byte", 11)):
        page = working_page(DEEPSEEK).with_rules(on_paste("composer", change("composer", value=PROMPT[:5])))
        yield best_effort_scene(f"deepseek-clipboard-text-without-a-zero-{stem}", page,
                                BestEffort(DEEPSEEK).submitted().cleared(), message={"chat/lastMessage": PROMPT[:5]},
                                faults=[fault("GlobalSize", size)])
    yield best_effort_scene("qwen-clipboard-text-of-two-bytes-is-one-unit", ready_page(QWEN),
                            BestEffort(QWEN).pasted().unmatched(), PROMPT, faults=[fault("GlobalSize", 2)])
    # The size may be the greatest allowed: the text ends at its zero.
    yield best_effort_scene("doubao-clipboard-block-of-eight-mebibytes-is-read", working_page(DOUBAO),
                            BestEffort(DOUBAO).submitted().cleared(), message=SENT,
                            faults=[fault("GlobalSize", 8388608)])


def line_ends():
    def shown(stem, provider, clipboard, value, matches):
        """A page that makes `value` of the text."""
        page = working_page(provider).with_rules(on_paste("composer", change("composer", value=value)))
        run = BestEffort(provider).pasted()
        if matches:
            return best_effort_scene(stem, page, run.matched().enter_sent().cleared(), "", {"chat/lastMessage": value},
                                     clipboard={"text": clipboard})
        return best_effort_scene(stem, page, run.unmatched(), value, clipboard={"text": clipboard})

    line_feeds = TWO_LINES.replace("\r\n", "\n")
    for stem, provider, clipboard, value, matches in (
            ("deepseek-page-that-shows-line-feeds-for-both-characters-matches", DEEPSEEK, TWO_LINES, line_feeds, True),
            ("qwen-page-that-shows-both-characters-for-line-feeds-matches", QWEN, line_feeds, TWO_LINES, True),
            ("doubao-page-that-keeps-both-characters-matches", DOUBAO, TWO_LINES, TWO_LINES, True),
            ("deepseek-page-that-drops-a-trailing-line-end-does-not-match", DEEPSEEK, TWO_LINES + "\r\n", line_feeds,
             False),
            ("qwen-page-that-adds-a-trailing-line-end-does-not-match", QWEN, TWO_LINES, line_feeds + "\n", False),
            ("doubao-page-that-makes-a-blank-of-a-line-end-does-not-match", DOUBAO, TWO_LINES,
             line_feeds.replace("\n", " "), False),
            ("deepseek-page-that-doubles-a-line-end-does-not-match", DEEPSEEK, TWO_LINES,
             line_feeds.replace("\n", "\n\n"), False),
            ("qwen-lone-carriage-return-is-no-line-feed", QWEN, "first\rsecond", "first\nsecond", False),
            ("qwen-lone-carriage-return-that-stays-matches", QWEN, "first\rsecond", "first\rsecond", True),
            ("doubao-carriage-return-before-a-line-end-stays", DOUBAO, "first\r\r\nsecond", "first\r\nsecond", False),
            ("deepseek-page-that-changes-the-case-does-not-match", DEEPSEEK, TWO_LINES, TWO_LINES.upper(), False),
            ("deepseek-page-that-composes-accents-does-not-match", DEEPSEEK, "cafe\u0301 near the flat",
             "caf\u00e9 near the flat", False),
            ("doubao-text-beyond-the-first-plane-matches", DOUBAO, "签约前要问什么？🏠🔑", "签约前要问什么？🏠🔑", True)):
        yield shown(stem, provider, clipboard, value, matches)


def slow_pastes():
    def late(provider, check):
        """A page that shows the text only before this check."""
        return ready_page(provider).with_rules(
            on_paste("composer", change("composer", value="")), on_key("Enter", *takes_message()),
            rule({"paste": "composer"}, change("composer", value=PROMPT), after=check * PASTE_PAUSE_MS - 50))

    for provider, check in ((DEEPSEEK, 2), (QWEN, 7), (DOUBAO, PASTE_CHECKS)):
        run = BestEffort(provider).submitted(check).cleared()
        yield best_effort_scene(f"{lower(provider)}-text-that-shows-for-check-{check}-is-submitted",
                                late(provider, check), run, message=SENT)
    yield best_effort_scene("deepseek-text-that-shows-behind-the-last-check-is-not-submitted",
                            late(DEEPSEEK, PASTE_CHECKS + 1), BestEffort(DEEPSEEK).pasted().unmatched(), "")
    page = working_page(QWEN).with_rules(on_paste("composer", change("composer", value=None)),
                                         at(before_paste_check(3), change("composer", value=PROMPT)))
    yield best_effort_scene("qwen-value-that-is-null-for-two-checks-is-looked-at-again", page,
                            BestEffort(QWEN).submitted(3).cleared(), message=SENT)
    page = ready_page(DOUBAO).with_rules(on_paste("composer", change("composer", without=["value"])))
    yield best_effort_scene("doubao-value-that-vanishes-with-the-paste-is-not-submitted", page,
                            BestEffort(DOUBAO).pasted().unmatched(), GONE)
    page = ready_page(DEEPSEEK).with_rules(on_paste("composer", change("composer", value="")))
    yield best_effort_scene("deepseek-page-that-refuses-the-paste-is-not-pasted-into-again", page,
                            BestEffort(DEEPSEEK).pasted().unmatched(), "")


def lost_before_the_paste_checks():
    def lost(stem, provider, check, actions, composer="", page=None, **more):
        """Something happens before this check, which ends the run; the text would match at none."""
        page = page or ready_page(provider)
        page.with_rules(on_paste("composer", change("composer", value="")), at(before_paste_check(check), *actions))
        return best_effort_scene(stem, page, BestEffort(provider).pasted().unmatched(check), composer, **more)

    for provider, check in ((DEEPSEEK, 1), (QWEN, 2), (DOUBAO, PASTE_CHECKS)):
        yield lost(f"{lower(provider)}-window-left-before-paste-check-{check}-is-not-submitted", provider, check,
                   [bring_up("editor")], foreground="editor", values=EDITOR_TEXT)
    for provider in PROVIDERS:
        page = working_page(provider).with_rules(at(before_paste_check(1), bring_up("editor")))
        yield best_effort_scene(f"{lower(provider)}-window-left-with-the-text-in-place-is-not-submitted", page,
                                BestEffort(provider).pasted().unmatched(1), PROMPT, foreground="editor",
                                values=EDITOR_TEXT)
    yield lost("deepseek-focus-that-moves-before-a-paste-check-is-not-submitted", DEEPSEEK, 3,
               [{"focus": "searchChats"}], focus="chat/searchChats", values={"chat/searchChats": ""})
    yield lost("qwen-focus-that-is-lost-before-a-paste-check-is-not-submitted", QWEN, 2, [{"focus": None}], focus=None)
    yield lost("doubao-page-that-leaves-its-host-before-a-paste-check-is-not-submitted", DOUBAO, 2,
               [{"address": "https://courier.example/"}])
    yield lost("deepseek-other-tab-before-a-paste-check-is-not-submitted", DEEPSEEK, 2,
               [{"selectTab": "(3) Inbox - Proton Mail"}], GONE, message={}, tab_index=0)
    yield lost("qwen-composer-removed-before-a-paste-check-is-not-submitted", QWEN, 4, [remove("composer")], GONE)
    page = ready_page(DOUBAO)
    again = {**page.element("composer"), "value": PROMPT}
    yield lost("doubao-composer-replaced-by-another-with-the-text-is-not-submitted", DOUBAO, 2,
               [remove("composer"), add(again), {"focus": "composer"}], PROMPT, page)
    yield lost("deepseek-window-closed-before-a-paste-check-is-not-submitted", DEEPSEEK, 2, [close_window("chat")], GONE,
               message={}, foreground="main", tab_index=None)

    page = working_page(QWEN).with_rules(
        on_paste("composer", change("composer", value="")), at(before_paste_check(2), bring_up("editor")),
        at(before_paste_check(2) + 20, bring_up("chat")), at(before_paste_check(3), change("composer", value=PROMPT)))
    yield best_effort_scene("qwen-window-left-and-back-between-two-paste-checks-goes-on", page,
                            BestEffort(QWEN).submitted(3).cleared(), message=SENT, values=EDITOR_TEXT)


def keys():
    for provider in PROVIDERS:
        yield best_effort_scene(f"{lower(provider)}-paste-in-part-sent-is-not-tried-again", working_page(provider),
                                BestEffort(provider).paste_fails(), faults=[fault("SendInput", 3)])
        yield best_effort_scene(f"{lower(provider)}-enter-in-part-sent-is-not-tried-again", working_page(provider),
                                BestEffort(provider).enter_fails(), PROMPT, faults=[fault("SendInput", 1, nth=2)])

    def unentered(stem, provider, **more):
        return best_effort_scene(stem, working_page(provider),
                                 BestEffort(provider).pasted().matched().stop("Submit", NOT_SUBMITTED), PROMPT, **more)

    # The focus is looked at once after taking it, once behind the clipboard, at each paste check, and before Enter.
    for stem, provider, name, result in (
            ("deepseek-focus-that-cannot-be-read-before-enter-sends-none", DEEPSEEK, "IUIAutomation::GetFocusedElement",
             E_FAIL),
            ("qwen-focus-on-nothing-before-enter-sends-none", QWEN, "IUIAutomation::GetFocusedElement", None),
            ("doubao-focus-elsewhere-before-enter-sends-none", DOUBAO, "IUIAutomation::CompareElements", "0x00000000")):
        yield unentered(stem, provider, faults=[fault(name, result, nth=4)])
    # The common path looks at the foreground once, the route at its identity, before and behind the focus, behind the
    # clipboard, at the paste check, and before Enter.
    yield unentered("deepseek-window-left-between-the-match-and-enter-sends-none", DEEPSEEK,
                    faults=[fault("GetForegroundWindow", None, nth=7)])


def clearing():
    def clears(provider, check):
        return ready_page(provider).with_rules(
            on_key("Enter", *takes_message(), after=check * DELIVERY_PAUSE_MS - 50))

    for provider, check in ((DEEPSEEK, 2), (QWEN, 6), (DOUBAO, DELIVERY_CHECKS)):
        yield best_effort_scene(f"{lower(provider)}-composer-that-clears-for-check-{check}-is-delivered",
                                clears(provider, check), BestEffort(provider).submitted().cleared(check), message=SENT)
    # The run ends before the message is taken.
    yield best_effort_scene("deepseek-composer-that-clears-behind-the-last-check-is-unverified",
                            clears(DEEPSEEK, DELIVERY_CHECKS + 1), BestEffort(DEEPSEEK).submitted().uncleared(), PROMPT)

    page = ready_page(DEEPSEEK).with_rules(on_key("Enter", change("composer", value=PROMPT + "\n")))
    yield best_effort_scene("deepseek-enter-that-only-breaks-the-line-is-not-sent-again", page,
                            BestEffort(DEEPSEEK).submitted().uncleared(), PROMPT + "\n")
    page = working_page(QWEN).with_rules(on_key("Enter", change("composer", value="\n")))
    yield best_effort_scene("qwen-composer-that-keeps-a-line-end-is-unverified", page,
                            BestEffort(QWEN).submitted().uncleared(), "\n", SENT)
    page = working_page(DOUBAO).with_rules(on_key("Enter", change("composer", value="Next question"), after=100))
    yield best_effort_scene("doubao-composer-that-fills-again-is-unverified", page,
                            BestEffort(DOUBAO).submitted().uncleared(), "Next question", SENT)


def hidden():
    for provider, how, facts in ((DEEPSEEK, "out-of-view", {"offscreen": True}),
                                 (QWEN, "disabled", {"enabled": False}),
                                 (DOUBAO, "not-focusable", {"focusable": False}),
                                 (DEEPSEEK, "without-a-size", {"bounds": [0, 0, 0, 0]})):
        page = working_page(provider).with_rules(on_key("Enter", change("composer", **facts)))
        yield best_effort_scene(f"{lower(provider)}-composer-cleared-but-{how}-is-unverified", page,
                                BestEffort(provider).submitted().uncleared(), "", SENT)
    page = working_page(DEEPSEEK).with_rules(on_key("Enter", change("composer", offscreen=True)),
                                             at(before_delivery_check(4), change("composer", offscreen=False)))
    yield best_effort_scene("deepseek-composer-that-comes-back-cleared-is-delivered", page,
                            BestEffort(DEEPSEEK).submitted().cleared(4), message=SENT)
    for stem, provider, changes, composer in (
            ("qwen-composer-whose-value-is-null-after-enter-is-unverified", QWEN, [change("composer", value=None)], None),
            ("doubao-composer-without-a-value-after-enter-is-unverified", DOUBAO,
             [change("composer", without=["value"])], GONE),
            ("qwen-composer-whose-value-cannot-be-read-after-enter-is-unverified", QWEN,
             [change("composer", unreadable=["value"])], ""),
            ("deepseek-composer-removed-after-enter-is-unverified", DEEPSEEK, [remove("composer")], GONE)):
        page = working_page(provider).with_rules(on_key("Enter", *changes, after=SOON_MS))
        yield best_effort_scene(stem, page, BestEffort(provider).submitted().uncleared(), composer, SENT)
    page = working_page(DOUBAO)
    fresh = dict(page.element("composer"))
    page.with_rules(on_key("Enter", remove("composer"), add(fresh), after=SOON_MS))
    yield best_effort_scene("doubao-new-empty-composer-in-place-of-the-old-is-unverified", page,
                            BestEffort(DOUBAO).submitted().uncleared(), "", SENT)


def lost_before_the_delivery_checks():
    def lost(stem, provider, check, actions, composer=PROMPT, **more):
        page = ready_page(provider).with_rules(at(before_delivery_check(check), *actions))
        return best_effort_scene(stem, page, BestEffort(provider).submitted().uncleared(check), composer, **more)

    for provider, check in ((DEEPSEEK, 1), (QWEN, 5), (DOUBAO, DELIVERY_CHECKS)):
        yield lost(f"{lower(provider)}-window-left-before-delivery-check-{check}-is-unverified", provider, check,
                   [bring_up("editor")], foreground="editor", values=EDITOR_TEXT)
    yield lost("deepseek-page-that-leaves-its-host-before-a-delivery-check-is-unverified", DEEPSEEK, 2,
               [{"address": "https://courier.example/"}, change("composer", value="")], "")
    yield lost("qwen-other-tab-before-a-delivery-check-is-unverified", QWEN, 3,
               [{"selectTab": "(3) Inbox - Proton Mail"}], GONE, message={}, tab_index=0)
    yield lost("doubao-window-closed-before-a-delivery-check-is-unverified", DOUBAO, 2, [close_window("chat")], GONE,
               message={}, foreground="main", tab_index=None)

    page = working_page(DEEPSEEK).with_rules(on_key("Enter", bring_up("editor"), after=SOON_MS))
    yield best_effort_scene("deepseek-window-left-with-enter-is-unverified-though-it-cleared", page,
                            BestEffort(DEEPSEEK).submitted().uncleared(1), "", SENT, foreground="editor")
    # Behind Enter the focus may be anywhere on the page, and the conversation may get an address of its own.
    page = working_page(QWEN).with_rules(on_key("Enter", {"focus": "stop"}, after=SOON_MS))
    yield best_effort_scene("qwen-focus-that-moves-with-enter-is-delivered", page, BestEffort(QWEN).submitted().cleared(),
                            message=SENT, focus="chat/stop")
    page = working_page(DOUBAO).with_rules(on_key("Enter", {"address": "https://www.doubao.com/chat/97531"}))
    yield best_effort_scene("doubao-conversation-that-gets-its-address-with-enter-is-delivered", page,
                            BestEffort(DOUBAO).submitted().cleared(), message=SENT)
    page = ready_page(DEEPSEEK).with_rules(
        on_key("Enter", *takes_message(), after=2 * DELIVERY_PAUSE_MS), at(before_delivery_check(1), bring_up("editor")),
        at(before_delivery_check(1) + 20, bring_up("chat")))
    yield best_effort_scene("deepseek-window-left-and-back-between-two-delivery-checks-goes-on", page,
                            BestEffort(DEEPSEEK).submitted().cleared(2), message=SENT)


def longest():
    """The composer shows for the last scan, the text for the last paste check, the cleared composer for the last."""
    page = ready_page(QWEN)
    composer = page.element("composer")
    last_scan = ROUTE_MS + (SCANS - 1) * SCAN_PAUSE_MS
    page.without("composer").with_rules(
        at(last_scan - 50, add(composer)), on_paste("composer", change("composer", value="")),
        rule({"paste": "composer"}, change("composer", value=PROMPT), after=PASTE_CHECKS * PASTE_PAUSE_MS - 50),
        on_key("Enter", *takes_message(), after=DELIVERY_CHECKS * DELIVERY_PAUSE_MS - 50))
    run = BestEffort(QWEN).identified().scans(1, SCANS - 1, edits=2, usable=2).scan(SCANS).focus_taken().keys_pasted()
    run.matched(PASTE_CHECKS).enter_sent().cleared(DELIVERY_CHECKS)
    yield best_effort_scene("qwen-longest-run-takes-less-than-eight-seconds", page, run, message=SENT)


def scenarios():
    for group in (clipboards, line_ends, slow_pastes, lost_before_the_paste_checks, keys, clearing, hidden,
                  lost_before_the_delivery_checks, longest):
        yield from group()
