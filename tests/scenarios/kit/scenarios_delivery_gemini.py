"""Gemini: sent by Enter alone; a text that remains is weighed against other evidence."""
from .core import add, at, change, fault, on_invoke, on_key, remove
from .delivery import Delivery
from .delivery_texts import (AFTER_SEND_MS, BEFORE_PASTE_MS, BEFORE_SELECT_ALL_MS, BOX_CHECKS, BOX_PAUSE_MS,
                             GEMINI_POLLS, GEMINI_SETTLE_MS, GEMINI_VALUE_CHECKS, NO_CANDIDATE, NOT_RESPONDING, PASTE_MS,
                             POST_SEND_CHECKS, POST_SUBMIT_MS, RESPONDING_PAUSE_MS, SEND_PAUSE_MS, VALUE_NEVER_SEEN,
                             VALUE_PAUSE_MS, VALUE_UNSTABLE)
from .delivery_scenes import BETWEEN_MS, PROMPT, SENT, scene, searches_fail, twice
from .pages import GEMINI, pasted_page, ready_page, stop_button, takes_message, working_page

SEND = GEMINI.send_name
EMPTY = "PASS: prompt composer is empty after Enter"
UNSTABLE_PASTE = f"INFO: {VALUE_UNSTABLE}; Enter retained without automatic retry"
BRIDGE = "Gemini and ChatGPT"

# The shortest run: the text seen three times, then Enter, one reading 1150 ms later.
VALUE_CHECK_MS = PASTE_MS + GEMINI_SETTLE_MS
ENTER_MS = VALUE_CHECK_MS + 2 * VALUE_PAUSE_MS
READ_MS = ENTER_MS + AFTER_SEND_MS + POST_SUBMIT_MS
POST_SEND_MS = READ_MS + GEMINI_POLLS * RESPONDING_PAUSE_MS


def opened(name="Gemini", **more):
    return Delivery(name).open(**more)


def entered(name="Gemini"):
    return opened(name).gemini_paste_held().enter().sent().observe()


def readings():
    yield scene("gemini-empty-composer-proves-delivery", working_page(GEMINI), entered().verified(EMPTY).delivered(),
                "", SENT)

    page = pasted_page(GEMINI).with_rules(on_key("Enter", *takes_message(), remove("composer"), after=10))
    yield scene("gemini-composer-gone-after-enter-is-a-remark", page,
                entered().verified("INFO: " + NO_CANDIDATE).delivered(False), None, SENT)

    delivery = opened().gemini_settle().value_check("Gemini Prompt Readiness", GEMINI_VALUE_CHECKS, VALUE_NEVER_SEEN)
    delivery.enter().sent().observe().verified("INFO: prompt value is not exposed after Enter")
    yield scene("gemini-value-never-exposed-counts-as-delivered", pasted_page(GEMINI).without_value(),
                delivery.delivered(), None)

    for poll in (1, 5, GEMINI_POLLS):
        page = pasted_page(GEMINI).with_rules(
            at(READ_MS + (poll - 1) * RESPONDING_PAUSE_MS - 100, add(stop_button(GEMINI))))
        yield scene(f"gemini-text-remains-responding-at-poll-{poll}-is-delivered", page,
                    entered().responding_seen("Gemini", GEMINI.stop_name, poll).delivered(), PROMPT)

    page = pasted_page(GEMINI).with_rules(on_key("Enter", change("send", enabled=False)))
    yield scene("gemini-text-remains-send-never-stable-counts-as-probable", page,
                entered().responding_missed("Gemini").probable("Gemini").delivered(), PROMPT)

    yield scene("gemini-text-remains-send-stable-again-fails", pasted_page(GEMINI),
                entered().responding_missed("Gemini").send_is_back("Gemini", SEND).unverified(), PROMPT)

    page = pasted_page(GEMINI).with_rules(
        at(POST_SEND_MS - 100, change("send", enabled=False)),
        at(POST_SEND_MS + SEND_PAUSE_MS - 100, change("send", enabled=True)),
        at(POST_SEND_MS + 3 * SEND_PAUSE_MS - 100, change("send", enabled=False)),
        at(POST_SEND_MS + 4 * SEND_PAUSE_MS - 100, change("send", enabled=True)))
    yield scene("gemini-send-that-flickers-is-back-at-the-seventh-check-fails", page,
                entered().responding_missed("Gemini").send_is_back("Gemini", SEND, 7).unverified(), PROMPT)


def responding_searches():
    # Three checks of the box, the reading of the composer.
    before = 3 + 1
    for stem, first, last, detail in (("gemini-responding-search-that-never-works-leaves-no-text", 1, GEMINI_POLLS, ""),
                                      ("gemini-responding-search-that-fails-last-keeps-the-text-before", GEMINI_POLLS,
                                       GEMINI_POLLS, NOT_RESPONDING),
                                      ("gemini-responding-search-that-works-at-last-has-its-text", 1, GEMINI_POLLS - 1,
                                       NOT_RESPONDING)):
        delivery = entered().responding_missed("Gemini", detail).send_is_back("Gemini", SEND).unverified()
        yield scene(stem, pasted_page(GEMINI), delivery, PROMPT, faults=searches_fail(before, first, last))


def settling():
    page = pasted_page(GEMINI).with_rules(on_key("Enter", *takes_message(), remove("composer"), after=10))
    first = entered().verified("INFO: " + NO_CANDIDATE).delivered(False)
    second = Delivery("Gemini", first.now + BETWEEN_MS).foreground().dispatch().box_not_ready(NO_CANDIDATE)
    yield twice("gemini-settled-although-the-composer-was-gone", page, first, second, None, PROMPT)


def pasted_texts():
    page = pasted_page(GEMINI).with_rules(
        at(VALUE_CHECK_MS + VALUE_PAUSE_MS + 100, change("composer", value="")),
        at(VALUE_CHECK_MS + 2 * VALUE_PAUSE_MS + 100, change("composer", value=PROMPT)),
        on_key("Enter", *takes_message()))
    delivery = opened().gemini_settle().value_held("Gemini Prompt Readiness", 6).enter().sent().observe()
    yield scene("gemini-pasted-text-that-flickers-is-counted-again", page, delivery.verified(EMPTY).delivered(), "",
                SENT)

    page = pasted_page(GEMINI).with_rules(
        at(PASTE_MS + 100, change("composer", value="")),
        at(VALUE_CHECK_MS + GEMINI_VALUE_CHECKS * VALUE_PAUSE_MS - 100, change("composer", value=PROMPT)),
        on_key("Enter", *takes_message()))
    delivery = opened().gemini_settle().value_check("Gemini Prompt Readiness", GEMINI_VALUE_CHECKS, UNSTABLE_PASTE)
    yield scene("gemini-pasted-text-never-seen-is-sent-all-the-same", page,
                delivery.enter().sent().observe().verified(EMPTY).delivered(), "", SENT)


def stops():
    delivery = opened().gemini_paste_held().enter_fails().sent()
    yield scene("gemini-enter-not-sent-skips-the-verification", working_page(GEMINI), delivery.unverified(), PROMPT,
                faults=[fault("SendInput", 0, nth=3)])


def both_names():
    """Gemini's settle and attempts, ChatGPT's Send and verification."""
    page = working_page(GEMINI)
    delivery = opened(BRIDGE).gemini_paste_held().chatgpt_button(SEND).sent().observe()
    yield scene("gemini-and-chatgpt-in-one-name-presses-send", page, delivery.verified(EMPTY).delivered(), "", SENT,
                send=1, name=BRIDGE)

    page = ready_page(GEMINI).without_value().with_rules(on_invoke("send", change("send", enabled=False)))
    delivery = opened(BRIDGE).gemini_settle()
    delivery.value_check("Gemini Prompt Readiness", GEMINI_VALUE_CHECKS, VALUE_NEVER_SEEN)
    delivery.chatgpt_not_stable().chatgpt_enter().sent().observe()
    page.with_rules(at(delivery.now - 100, change("composer", value=PROMPT)))
    delivery.responding_missed("ChatGPT").probable("ChatGPT")
    yield scene("gemini-and-chatgpt-in-one-name-is-verified-as-chatgpt", page, delivery.delivered(), PROMPT,
                name=BRIDGE)


def longest():
    delivery = opened(attempt=BOX_CHECKS)
    ready_ms = delivery.now - BEFORE_PASTE_MS - BEFORE_SELECT_ALL_MS
    delivery.gemini_settle().value_check("Gemini Prompt Readiness", GEMINI_VALUE_CHECKS, VALUE_NEVER_SEEN)
    delivery.enter().sent().observe()
    read_ms = delivery.now
    delivery.responding_missed("Gemini")
    post_send_ms = delivery.now
    page = ready_page(GEMINI).set("composer", enabled=False).without_value().with_rules(
        at(ready_ms - 2 * BOX_PAUSE_MS - 100, change("composer", enabled=True)),
        at(read_ms - 100, change("composer", value=PROMPT)),
        at(post_send_ms + (POST_SEND_CHECKS - 2) * SEND_PAUSE_MS - 100, change("send", enabled=True)))
    yield scene("gemini-longest-run-takes-about-13-seconds", page, delivery.probable("Gemini").delivered(), PROMPT)


def scenarios():
    for group in (readings, responding_searches, settling, pasted_texts, stops, both_names, longest):
        yield from group()
