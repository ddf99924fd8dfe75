"""Grok and every unknown name: Enter is sent and nothing is looked at afterwards."""
from .core import at, bring_up, change, fault, on_key, remove
from .delivery import Delivery
from .delivery_texts import (BEFORE_PASTE_MS, BEFORE_SELECT_ALL_MS, BOX_CHECKS, BOX_PAUSE_MS, NO_CANDIDATE, PASTE_MS,
                             PLAIN_SETTLE_MS)
from .delivery_scenes import BETWEEN_MS, PROMPT, SECOND_PROMPT, SENT, scene, twice
from .pages import GROK, PERPLEXITY, pasted_page, ready_page, takes_message, working_page


def opened(name="Grok", **more):
    return Delivery(name).open(**more)


def entered(name="Grok", **more):
    return opened(name, **more).plain_settle().enter().sent().observe().plain_unlooked()


def sends():
    yield scene("grok-enter-taken-counts-as-delivered", working_page(GROK), entered().delivered(), "", SENT)

    yield scene("grok-text-that-remains-is-not-looked-at", pasted_page(GROK), entered().delivered(), PROMPT)

    page = pasted_page(GROK).with_rules(on_key("Enter", *takes_message(), remove("composer"), after=10))
    yield scene("grok-composer-gone-after-enter-leaves-no-cursor", page, entered().delivered(False), None, SENT)

    delivery = opened().plain_settle().enter_fails().sent().unverified()
    yield scene("grok-enter-not-sent-skips-the-verification", working_page(GROK), delivery, PROMPT,
                faults=[fault("SendInput", 0, nth=3)])

    page = working_page(GROK).with_rules(at(PASTE_MS + PLAIN_SETTLE_MS - 100, bring_up("editor")))
    delivery = opened().plain_settle().enter(into=("editor", None)).sent().observe().plain_unlooked()
    delivery.delivered(False)
    yield scene("grok-window-that-takes-the-foreground-before-enter-is-not-noticed", page, delivery, PROMPT,
                foreground="editor", values={"editor/source": "# Lease\n\n- deposit\n- repairs\n"})


def names():
    yield scene("unknown-provider-takes-the-plain-enter-branch", working_page(GROK),
                entered("Lumen").delivered(), "", SENT, name="Lumen")

    yield scene("perplexity-with-a-word-behind-it-takes-the-plain-enter-branch", working_page(PERPLEXITY),
                entered("Perplexity Pro").delivered(), "", SENT, name="Perplexity Pro")

    yield scene("perplexity-with-a-word-before-it-takes-the-plain-enter-branch", working_page(PERPLEXITY),
                entered("My Perplexity").delivered(), "", SENT, name="My Perplexity")

    yield scene("deepseek-inside-a-longer-name-takes-the-plain-enter-branch", working_page(GROK),
                entered("DeepSeek R1").delivered(), "", SENT, name="DeepSeek R1")


def settling():
    def answering():
        return working_page(GROK, answer_ms=3000)

    for stem, first_name, second_name in (("grok-settled-by-a-delivery-waits-no-first-use-again", "Grok", "grok"),
                                          ("empty-name-is-settled-under-the-empty-key", "", "")):
        first = entered(first_name).delivered()
        second = Delivery(second_name, first.now + BETWEEN_MS, batch=first.batch).open(settled=True)
        second.plain_settle().enter().sent().observe().plain_unlooked().delivered()
        yield twice(stem, answering(), first, second, "", SECOND_PROMPT)

    first = opened().plain_settle().enter_fails().sent().unverified()
    second = Delivery("Grok", first.now + BETWEEN_MS, batch=3).open().plain_settle().enter()
    second.sent().observe().plain_unlooked().delivered()
    yield twice("grok-failed-first-delivery-leaves-it-unsettled", answering(), first, second, "", SECOND_PROMPT,
                faults=[fault("SendInput", 0, nth=3)])

    first = entered("Grok").delivered()
    second = Delivery("Grok beta", first.now + BETWEEN_MS, batch=first.batch).open().plain_settle().enter()
    second.sent().observe().plain_unlooked().delivered()
    yield twice("grok-settled-does-not-settle-another-name", answering(), first, second, "", SECOND_PROMPT)

    page = pasted_page(GROK).with_rules(on_key("Enter", *takes_message(), remove("composer"), after=10))
    first = entered().delivered(False)
    second = Delivery("Grok", first.now + BETWEEN_MS).foreground().dispatch().box_not_ready(NO_CANDIDATE)
    yield twice("grok-settled-although-no-cursor-could-be-left", page, first, second, None, PROMPT)


def longest():
    delivery = entered(attempt=BOX_CHECKS).delivered()
    ready_ms = PASTE_MS - BEFORE_PASTE_MS - BEFORE_SELECT_ALL_MS + (BOX_CHECKS - 3) * BOX_PAUSE_MS
    page = ready_page(GROK).set("composer", enabled=False).with_rules(
        at(ready_ms - 2 * BOX_PAUSE_MS - 100, change("composer", enabled=True)))
    yield scene("plain-enter-longest-run-takes-about-7-seconds", page, delivery, PROMPT)


def scenarios():
    for group in (sends, names, settling, longest):
        yield from group()
