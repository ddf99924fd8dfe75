"""Perplexity: the exact host and the named composer, sent by the Send control alone, Enter never."""
from .core import (E_FAIL, add, at, button, change, count_descendants, count_of_type, edit, element, on_focus,
                   on_invoke, remove)
from .delivery import Delivery
from .delivery_texts import (AFTER_SEND_MS, BEFORE_PASTE_MS, BEFORE_SELECT_ALL_MS, BOX_CHECKS, BOX_PAUSE_MS,
                             NOT_EXPOSED, PASTE_MS, PERPLEXITY_EXTRA_SETTLE_MS, PERPLEXITY_FOCUS_ELSEWHERE,
                             PERPLEXITY_PASSES, PERPLEXITY_PAUSE_MS, PERPLEXITY_SEND_CHECKS, PERPLEXITY_VALUE_CHECKS,
                             PLAIN_SETTLE_MS, SEND_PAUSE_MS, SIGN_IN, STILL_TEXT, VALUE_NEVER_SEEN, VALUE_PAUSE_MS,
                             VALUE_UNSTABLE, WRONG_HOST, no_perplexity_composer, perplexity_verified, send_not_invoked)
from .delivery_scenes import BETWEEN_MS, PROMPT, SECOND_PROMPT, SENT, scene, twice
from .desktops import chat_browser
from .pages import (COMPOSER, EARLIER_MESSAGE, PERPLEXITY, pasted_page, ready_page, send_enabled_on_paste, sign_in_elements, stop_button,
                    takes_message, working_page)

SEND = PERPLEXITY.send_name
READY_CHAT = chat_browser(ready_page(PERPLEXITY).tab())
BUTTONS = count_of_type(READY_CHAT, "button")
CONTROLS = count_descendants(READY_CHAT)
NO_SUBMIT = f"FAIL/UNVERIFIED: {VALUE_UNSTABLE}; draft preserved; no submit"
NEVER_SEEN = f"INFO: {VALUE_NEVER_SEEN}; continuing to exact Send readiness"

# The shortest run: the text seen three times, Send pressed at its third sighting, the first pass 350 ms later.
VALUE_CHECK_MS = PASTE_MS + PLAIN_SETTLE_MS + PERPLEXITY_EXTRA_SETTLE_MS
SEND_CHECK_MS = VALUE_CHECK_MS + 2 * VALUE_PAUSE_MS
INVOKE_MS = SEND_CHECK_MS + 2 * SEND_PAUSE_MS
FIRST_PASS_MS = INVOKE_MS + AFTER_SEND_MS


def opened(last=None, composer="composer", **more):
    return Delivery("Perplexity", composer=composer).open(last=last or perplexity_verified(), **more)


def pressed():
    return opened().perplexity_paste_held().perplexity_button(SEND).sent()


def pass_ms(number):
    return FIRST_PASS_MS + (number - 1) * PERPLEXITY_PAUSE_MS


def evidence():
    yield scene("perplexity-responding-control-proves-delivery", working_page(PERPLEXITY),
                pressed().perplexity_responds().delivered(), "", SENT, send=1)

    page = pasted_page(PERPLEXITY).with_rules(on_invoke("send", *takes_message()))
    yield scene("perplexity-empty-composer-proves-delivery", page, pressed().perplexity_cleared().delivered(), "", SENT,
                send=1)

    page = pasted_page(PERPLEXITY).with_rules(at(pass_ms(5) - 100, *takes_message()))
    yield scene("perplexity-composer-cleared-at-the-fifth-pass-is-delivered", page,
                pressed().perplexity_cleared(5).delivered(), "", SENT, send=1)

    page = pasted_page(PERPLEXITY).with_rules(at(pass_ms(PERPLEXITY_PASSES) - 100, add(stop_button(PERPLEXITY))))
    yield scene("perplexity-responding-at-the-last-pass-is-delivered", page,
                pressed().perplexity_responds(PERPLEXITY_PASSES).delivered(), PROMPT, send=1)

    page = pasted_page(PERPLEXITY).with_rules(on_invoke("send", change("send", enabled=False)))
    yield scene("perplexity-nothing-seen-send-never-stable-counts-as-probable", page,
                pressed().perplexity_probable().delivered(), PROMPT, send=1)

    yield scene("perplexity-nothing-seen-send-stable-again-fails", pasted_page(PERPLEXITY),
                pressed().perplexity_unobserved(SEND, STILL_TEXT).unverified(), PROMPT, send=1)

    page = pasted_page(PERPLEXITY).with_rules(at(FIRST_PASS_MS - 100, remove("composer")))
    yield scene("perplexity-composer-gone-after-send-fails-with-the-counts", page,
                pressed().perplexity_unobserved(SEND, no_perplexity_composer(CONTROLS - 1)).unverified(), None, send=1)

    panel = sign_in_elements(PERPLEXITY)
    page = pasted_page(PERPLEXITY).with_rules(at(FIRST_PASS_MS - 100, *[add(one) for one in panel]))
    yield scene("perplexity-sign-in-panel-after-send-fails", page,
                pressed().perplexity_unobserved(SEND, SIGN_IN).unverified(), PROMPT, send=1)


def settling():
    def again(first):
        second = Delivery("Perplexity", first.now + BETWEEN_MS, batch=first.batch)
        second.open(settled=True, last=perplexity_verified())
        return second.perplexity_paste_held().perplexity_button(SEND).sent()

    first = pressed().perplexity_responds().delivered()
    yield twice("perplexity-settled-by-a-delivery-waits-no-first-use-again", working_page(PERPLEXITY, answer_ms=3000),
                first, again(first).perplexity_responds().delivered(), "", SECOND_PROMPT, send=2)

    page = pasted_page(PERPLEXITY).with_rules(on_invoke("send", change("send", enabled=False)))
    first = pressed().perplexity_probable().delivered()
    yield twice("perplexity-settled-by-probable-evidence", page, first, again(first).perplexity_probable().delivered(),
                SECOND_PROMPT, EARLIER_MESSAGE, send=2)


def pasted_texts():
    delivery = opened().perplexity_settle()
    delivery.value_check("Perplexity Paste Verification", PERPLEXITY_VALUE_CHECKS, NEVER_SEEN)
    delivery.perplexity_button(SEND).sent().perplexity_responds()
    page = working_page(PERPLEXITY).without_value()
    page.rules = [one for one in page.rules if not any("copyValue" in act for act in one["do"])]
    yield scene("perplexity-value-never-exposed-goes-on-to-send", page, delivery.delivered(), None, send=1)

    delivery = opened().perplexity_settle()
    delivery.value_check("Perplexity Paste Verification", PERPLEXITY_VALUE_CHECKS, NEVER_SEEN)
    delivery.perplexity_button(SEND).sent().perplexity_unobserved(SEND, NOT_EXPOSED)
    yield scene("perplexity-value-never-exposed-send-stable-again-fails", pasted_page(PERPLEXITY).without_value(),
                delivery.unverified(), None, send=1)

    page = working_page(PERPLEXITY).with_rules(at(PASTE_MS + 100, change("composer", value="")))
    delivery = opened().perplexity_settle()
    delivery.value_check("Perplexity Paste Verification", PERPLEXITY_VALUE_CHECKS, NO_SUBMIT).sent()
    yield scene("perplexity-pasted-text-that-does-not-stay-is-not-sent", page, delivery.unverified(), "")

    page = working_page(PERPLEXITY).with_rules(
        at(VALUE_CHECK_MS + 100, change("composer", value="")),
        at(VALUE_CHECK_MS + VALUE_PAUSE_MS + 100, change("composer", value=PROMPT)))
    delivery = opened().perplexity_settle().value_held("Perplexity Paste Verification", 5).perplexity_button(SEND)
    yield scene("perplexity-pasted-text-that-flickers-is-counted-again", page,
                delivery.sent().perplexity_responds().delivered(), "", SENT, send=1)


def send_controls():
    page = pasted_page(PERPLEXITY).set("send", invoke=E_FAIL)
    delivery = opened().perplexity_paste_held().send_ready("Perplexity Send Readiness", SEND)
    delivery.step("Perplexity Send Button", f"FAIL/UNVERIFIED: {send_not_invoked(BUTTONS, 1, 1, 1)}; draft preserved; "
                  "no Enter fallback").sent()
    yield scene("perplexity-send-that-refuses-stops-without-enter", page, delivery.unverified(), PROMPT)

    delivery = opened().perplexity_paste_held()
    delivery.send_never_ready("Perplexity Send Readiness", PERPLEXITY_SEND_CHECKS)
    delivery.step("Perplexity Send Button", "FAIL/UNVERIFIED: exact enabled Send button not stable; draft preserved; "
                  "no Enter fallback").sent()
    yield scene("perplexity-send-never-stable-stops-without-enter", ready_page(PERPLEXITY), delivery.unverified(),
                PROMPT)

    page = working_page(PERPLEXITY).set("send", name="Submit query")
    delivery = opened().perplexity_paste_held().perplexity_button("Submit query").sent().perplexity_responds()
    yield scene("perplexity-submit-query-is-pressed", page, delivery.delivered(), "", SENT, send=1)


def composers():
    def not_ready(stem, page, last, invoked=None, **more):
        delivery = Delivery("Perplexity").foreground().dispatch().first_use().box_not_ready(last)
        return scene(stem, page, delivery, "", invoked=invoked, **more)

    page = working_page(PERPLEXITY)
    page.address = "https://blog.perplexity.ai/lease"
    yield not_ready("perplexity-on-a-sub-domain-takes-nothing", page, WRONG_HOST)

    page = working_page(PERPLEXITY)
    page.address = "perplexity.ai:443/c/lease"
    yield scene("perplexity-host-without-scheme-with-a-port-is-exact", page,
                pressed().perplexity_responds().delivered(), "", SENT, send=1)

    page = working_page(PERPLEXITY).with_elements(button("google", "Continue with Google", (660, 400, 1260, 448)))
    yield not_ready("perplexity-sign-in-panel-takes-nothing", page, SIGN_IN, {"chat/google": 0})

    hidden = button("google", "Continue with Google", (660, 400, 1260, 448), offscreen=True)
    yield scene("perplexity-hidden-sign-in-does-not-stop-it", working_page(PERPLEXITY).with_elements(hidden),
                pressed().perplexity_responds().delivered(), "", SENT, send=1)

    yield not_ready("perplexity-composer-of-another-name-is-none",
                    working_page(PERPLEXITY).set("composer", name="Prompt"), no_perplexity_composer(CONTROLS))

    yield not_ready("perplexity-disabled-composer-is-none", working_page(PERPLEXITY).set("composer", enabled=False),
                    no_perplexity_composer(CONTROLS, named=1))

    page = working_page(PERPLEXITY).set("composer", bounds=[560, 219, 1360, 279], focusable=False, acceptsFocus=True)
    page.with_elements(element("pane", "askHint", "Ask anything, or paste a link", (560, 500, 1360, 540)))
    yield not_ready("perplexity-composer-above-the-line-is-none", page,
                    no_perplexity_composer(CONTROLS + 1, named=2, visible=2, non_focusable=1, wrong_type=1))

    page = working_page(PERPLEXITY).set("composer", bounds=[560, 220, 1360, 280])
    yield scene("perplexity-composer-on-the-line-is-taken", page, pressed().perplexity_responds().delivered(), "", SENT,
                send=1)

    page = ready_page(PERPLEXITY).without("composer").with_elements(
        element("document", "composer", "Ask anything…", COMPOSER, focusable=False, acceptsFocus=True)).with_rules(
        send_enabled_on_paste(), on_invoke("send", add(stop_button(PERPLEXITY))))
    delivery = opened(perplexity_verified(role=50030, focusable="false")).perplexity_settle()
    delivery.value_check("Perplexity Paste Verification", PERPLEXITY_VALUE_CHECKS, NEVER_SEEN)
    delivery.perplexity_button(SEND).sent().perplexity_responds()
    yield scene("perplexity-document-that-is-not-focusable-is-a-composer", page, delivery.delivered(), None, send=1)

    inner = edit("inner", "", (570, 910, 1350, 950), value="")
    page = ready_page(PERPLEXITY).with_elements(inner).with_rules(
        on_focus("composer", {"focus": "inner"}), {"on": {"paste": "inner"}, "do": [change("send", enabled=True)]},
        on_invoke("send", change("inner", value="")))
    delivery = opened(perplexity_verified(focus="contained proxy"), composer="inner").perplexity_paste_held()
    delivery.perplexity_button(SEND).sent().perplexity_cleared()
    yield scene("perplexity-focus-inside-the-composer-is-accepted", page, delivery.delivered(), "", send=1,
                values={"chat/inner": ""})

    outer = edit("outer", "", (550, 890, 1370, 970), value="")
    page = working_page(PERPLEXITY).with_elements(outer).with_rules(on_focus("composer", {"focus": "outer"}))
    yield not_ready("perplexity-focus-around-the-composer-takes-nothing", page, PERPLEXITY_FOCUS_ELSEWHERE,
                    values={"chat/outer": ""})


def longest():
    delivery = opened(attempt=BOX_CHECKS)
    ready_ms = delivery.now - BEFORE_PASTE_MS - BEFORE_SELECT_ALL_MS
    delivery.perplexity_settle().value_check("Perplexity Paste Verification", PERPLEXITY_VALUE_CHECKS, NEVER_SEEN)
    send_ms = delivery.now
    delivery.perplexity_button(SEND, PERPLEXITY_SEND_CHECKS).sent().perplexity_probable().delivered()
    page = ready_page(PERPLEXITY).set("composer", enabled=False).without_value().with_rules(
        at(ready_ms - 2 * BOX_PAUSE_MS - 100, change("composer", enabled=True)),
        at(send_ms + (PERPLEXITY_SEND_CHECKS - 3) * SEND_PAUSE_MS - 100, change("send", enabled=True)),
        on_invoke("send", change("send", enabled=False)))
    yield scene("perplexity-longest-run-takes-about-19-seconds", page, delivery, None, send=1)


def scenarios():
    for group in (evidence, settling, pasted_texts, send_controls, composers, longest):
        yield from group()
