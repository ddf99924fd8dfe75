"""Claude: sent by its Send control or else by Enter, judged by the composer alone, one retry at most."""
from .core import (E_FAIL, add, at, button, change, count_of_type, fault, on_invoke, on_key, remove, scenario, text,
                   wait)
from .delivery import Delivery, deliver, expect
from .delivery_texts import (BEFORE_PASTE_MS, BEFORE_SELECT_ALL_MS, BOX_CHECKS, BOX_PAUSE_MS, CLAUDE_AFTER_SEND_MS,
                             CLAUDE_RETRY_CHECKS, CLAUDE_SEND_CHECKS, CLAUDE_SETTLE_MS, CLAUDE_TRIES, CLAUDE_TRY_MS,
                             NO_CANDIDATE, NOT_EXPOSED, PASTE_MS, SEND_PAUSE_MS, responding, send_not_invoked)
from .delivery_scenes import (BETWEEN_MS, NOT_SENT, PROMPT, SECOND_PROMPT, SENT, named, scene, searches_fail,
                              twice)
from .desktops import chat_browser, desk
from .pages import (CLAUDE, EARLIER_MESSAGE, attachments, becomes_sign_in, pasted_page, ready_page, send_enabled_on_paste, stop_button,
                    takes_message, working_page)

SEND = CLAUDE.send_name
BUTTONS = count_of_type(chat_browser(ready_page(CLAUDE).tab()), "button")

# The shortest run: Send pressed at its second sighting, the composer first read 450 ms into the verification.
FIRST_SEND_CHECK_MS = PASTE_MS + CLAUDE_SETTLE_MS
INVOKE_MS = FIRST_SEND_CHECK_MS + SEND_PAUSE_MS
FIRST_TRY_MS = INVOKE_MS + CLAUDE_AFTER_SEND_MS + CLAUDE_TRY_MS
RETRY_MS = FIRST_TRY_MS + 2 * SEND_PAUSE_MS

# The run without a stable Send control.
ENTER_MS = FIRST_SEND_CHECK_MS + CLAUDE_SEND_CHECKS * SEND_PAUSE_MS
FIRST_TRY_AFTER_ENTER_MS = ENTER_MS + CLAUDE_AFTER_SEND_MS + CLAUDE_TRY_MS
RETRY_AFTER_ENTER_MS = FIRST_TRY_AFTER_ENTER_MS + 2 * SEND_PAUSE_MS


def opened(name="Claude", removed=0, **more):
    return Delivery(name).open(removed=removed, **more)


def pressed():
    return opened().claude_button(SEND)


def entered():
    return opened().claude_not_stable().claude_enter().sent(CLAUDE_AFTER_SEND_MS)


def text_seen(delivery):
    return delivery.claude_text_remains().claude_not_responding()


def first_readings():
    yield scene("claude-empty-composer-proves-delivery", working_page(CLAUDE),
                pressed().claude_empty().claude_done().delivered(None), "", SENT, send=1)

    page = ready_page(CLAUDE).with_rules(
        send_enabled_on_paste(), on_invoke("send", *takes_message(), change("composer", enabled=False)),
        at(FIRST_TRY_MS + CLAUDE_TRY_MS + 10, change("composer", enabled=True)))
    yield scene("claude-composer-that-comes-back-is-read-at-the-third-try", page,
                pressed().claude_empty(3).claude_done().delivered(None), "", SENT, send=1)

    yield scene("claude-value-not-exposed-in-ten-tries-fails", pasted_page(CLAUDE).without_value(),
                pressed().claude_unknown(NOT_EXPOSED).claude_done().unverified(), None, NOT_SENT, send=1)

    page = pasted_page(CLAUDE).with_rules(on_invoke("send", remove("composer")))
    yield scene("claude-composer-gone-in-ten-tries-fails", page,
                pressed().claude_unknown(NO_CANDIDATE).claude_done().unverified(), None, NOT_SENT, send=1)

    page = pasted_page(CLAUDE).with_rules(becomes_sign_in(INVOKE_MS + 100, CLAUDE))
    yield scene("claude-page-that-turns-into-sign-in-after-send-fails", page,
                pressed().claude_unknown(NO_CANDIDATE).claude_done().unverified(), None, {}, send=1,
                values={"chat/email": "", "chat/password": ""})

    page = pasted_page(CLAUDE).with_rules(on_invoke("send", change("composer", value=None)))
    yield scene("claude-value-exposed-without-text-counts-as-empty", page,
                pressed().claude_empty().claude_done().delivered(None), None, NOT_SENT, send=1,
                values={"chat/composer": None})

    page = pasted_page(CLAUDE).with_rules(on_invoke("send", add(stop_button(CLAUDE))))
    yield scene("claude-text-remains-while-responding-is-delivered", page,
                pressed().claude_text_remains().step("Claude Responding State", responding(CLAUDE.stop_name))
                .claude_done().delivered(None), PROMPT, send=1)


    # The attachments, three checks of the box, two sightings of Send, the press, the reading of the composer.
    delivery = pressed().claude_text_remains().claude_not_responding("").claude_retry_skipped().claude_probable()
    page = pasted_page(CLAUDE).with_rules(on_invoke("send", change("send", enabled=False)))
    yield scene("claude-responding-search-that-fails-leaves-no-text", page,
                delivery.claude_done().delivered(None), PROMPT, send=1, faults=searches_fail(1 + 3 + 2 + 1 + 1, 1, 1))


def retries():
    page = pasted_page(CLAUDE).with_rules(at(RETRY_MS + 50, *takes_message()))
    delivery = text_seen(pressed()).claude_retry(SEND)
    delivery.claude_retry_reading(1, "PASS: composer is empty after retry; attempt=1")
    yield scene("claude-retry-empties-the-composer", page, delivery.claude_done().delivered(None), "", SENT, send=2)

    page = pasted_page(CLAUDE).with_rules(
        at(RETRY_MS + 50, change("composer", enabled=False)),
        at(RETRY_MS + 2 * CLAUDE_TRY_MS + 50, *takes_message(), change("composer", enabled=True)))
    delivery = text_seen(pressed()).claude_retry(SEND)
    delivery.claude_retry_reading(3, "PASS: composer is empty after retry; attempt=3")
    yield scene("claude-retry-is-judged-by-the-first-known-value", page, delivery.claude_done().delivered(None),
                "", SENT, send=2)

    delivery = text_seen(pressed()).claude_retry(SEND)
    delivery.claude_retry_reading(1, "FAIL: prompt still present after retry; draft preserved")
    yield scene("claude-text-remains-after-retry-fails-at-once", pasted_page(CLAUDE),
                delivery.claude_done().unverified(), PROMPT, send=2)

    page = pasted_page(CLAUDE).with_rules(at(RETRY_MS + 50, change("composer", without=["value"])))
    delivery = text_seen(pressed()).claude_retry(SEND)
    delivery.claude_retry_reading(CLAUDE_TRIES, f"UNVERIFIED: {NOT_EXPOSED}; draft preserved")
    yield scene("claude-value-not-exposed-after-retry-fails", page, delivery.claude_done().unverified(), None,
                NOT_SENT, send=2)

    page = pasted_page(CLAUDE).with_rules(at(RETRY_MS + 50, remove("composer")))
    delivery = text_seen(pressed()).claude_retry(SEND)
    delivery.claude_retry_reading(CLAUDE_TRIES, f"UNVERIFIED: {NO_CANDIDATE}; draft preserved")
    yield scene("claude-composer-gone-after-retry-fails", page, delivery.claude_done().unverified(), None, NOT_SENT,
                send=2)

    page = pasted_page(CLAUDE).with_rules(at(FIRST_TRY_MS + 100, change("send", invoke=E_FAIL)))
    delivery = text_seen(pressed()).send_ready("Claude Retry Readiness", SEND)
    delivery.step("Claude Send Retry", "FAIL: " + send_not_invoked(BUTTONS, 1, 1, 1))
    yield scene("claude-send-refuses-the-retry-fails", page, delivery.claude_done().unverified(), PROMPT, send=1)

    page = pasted_page(CLAUDE).with_rules(on_invoke("send", change("send", enabled=False)))
    delivery = text_seen(pressed()).claude_retry_skipped().claude_probable()
    yield scene("claude-text-remains-send-never-stable-counts-as-probable", page,
                delivery.claude_done().delivered(None), PROMPT, send=1)

    page = pasted_page(CLAUDE).with_rules(on_invoke("send", change("send", enabled=False)),
                                          at(FIRST_TRY_MS + 100, add(stop_button(CLAUDE))))
    delivery = text_seen(pressed()).claude_retry_skipped().claude_probable()
    yield scene("claude-responding-after-the-single-look-counts-as-probable", page,
                delivery.claude_done().delivered(None), PROMPT, send=1)


def fallbacks():
    page = ready_page(CLAUDE).with_rules(on_key("Enter", *takes_message()))
    yield scene("claude-enter-stands-in-for-an-unstable-send", page,
                entered().claude_empty().claude_done().delivered(None), "", SENT)

    yield scene("claude-text-remains-after-enter-without-stable-send-fails", ready_page(CLAUDE),
                text_seen(entered()).claude_retry_skipped().claude_done().unverified(), PROMPT)

    page = ready_page(CLAUDE).with_rules(at(FIRST_TRY_AFTER_ENTER_MS - 100, change("send", enabled=True)),
                                         at(RETRY_AFTER_ENTER_MS + 50, *takes_message()))
    delivery = text_seen(entered()).claude_retry(SEND)
    delivery.claude_retry_reading(1, "PASS: composer is empty after retry; attempt=1")
    yield scene("claude-retry-by-send-after-a-first-enter", page, delivery.claude_done().delivered(None), "", SENT,
                send=1)

    page = pasted_page(CLAUDE).set("send", invoke=E_FAIL).with_rules(on_key("Enter", *takes_message()))
    delivery = opened().claude_refused(SEND, send_not_invoked(BUTTONS, 1, 1, 1)).claude_enter()
    yield scene("claude-enter-stands-in-for-a-send-that-refuses", page,
                delivery.sent(CLAUDE_AFTER_SEND_MS).claude_empty().claude_done().delivered(None), "", SENT)

    page = pasted_page(CLAUDE).set("send", invoke=None).with_rules(on_key("Enter", *takes_message()))
    delivery = opened().claude_refused(SEND, send_not_invoked(BUTTONS, 1, 1, 0)).claude_enter()
    yield scene("claude-enter-stands-in-for-a-send-without-invoke", page,
                delivery.sent(CLAUDE_AFTER_SEND_MS).claude_empty().claude_done().delivered(None), "", SENT)

    page = pasted_page(CLAUDE).set("send", name="Send query").with_rules(on_key("Enter", *takes_message()))
    delivery = opened().claude_refused("Send query", send_not_invoked(BUTTONS)).claude_enter()
    yield scene("claude-send-query-satisfies-the-wait-and-is-not-pressed", page,
                delivery.sent(CLAUDE_AFTER_SEND_MS).claude_empty().claude_done().delivered(None), "", SENT)

    delivery = opened().claude_not_stable().enter_fails("Claude Enter Fallback").sent(CLAUDE_AFTER_SEND_MS)
    yield scene("claude-enter-not-sent-skips-the-verification", ready_page(CLAUDE), delivery.unverified(), PROMPT,
                faults=[fault("SendInput", 0, nth=3)])


def send_controls():
    flips = [at(FIRST_SEND_CHECK_MS + i * SEND_PAUSE_MS + 100, change("send", name=("Send", SEND)[i % 2]))
             for i in range(CLAUDE_SEND_CHECKS - 1)]
    page = pasted_page(CLAUDE).with_rules(*flips, on_key("Enter", *takes_message()))
    yield scene("claude-send-that-flips-its-name-is-never-stable", page,
                entered().claude_empty().claude_done().delivered(None), "", SENT)

    page = pasted_page(CLAUDE).with_rules(
        at(FIRST_SEND_CHECK_MS + 100, change("send", enabled=False)),
        at(FIRST_SEND_CHECK_MS + SEND_PAUSE_MS + 100, change("send", enabled=True)),
        on_invoke("send", *takes_message()))
    yield scene("claude-send-that-flickers-starts-the-count-again", page,
                opened().claude_button(SEND, attempt=4).claude_empty().claude_done().delivered(None), "", SENT, send=1)

    page = ready_page(CLAUDE).with_rules(
        at(FIRST_SEND_CHECK_MS + (CLAUDE_SEND_CHECKS - 2) * SEND_PAUSE_MS - 100, change("send", enabled=True)),
        on_invoke("send", *takes_message()))
    delivery = opened().claude_button(SEND, attempt=CLAUDE_SEND_CHECKS)
    yield scene("claude-send-stable-at-the-last-check-is-pressed", page,
                delivery.claude_empty().claude_done().delivered(None), "", SENT, send=1)

    page = working_page(CLAUDE).with_elements(button("sendLater", "Send message now", (1210, 965, 1250, 1005)))
    delivery = opened().claude_button("Send message now").claude_first_reading(
        1, "RETRY: prompt remains in composer after first Send").claude_not_responding()
    delivery.claude_retry("Send message now")
    delivery.claude_retry_reading(1, "FAIL: prompt still present after retry; draft preserved")
    yield scene("claude-of-two-send-controls-the-later-is-pressed", page, delivery.claude_done().unverified(), PROMPT,
                invoked={"chat/sendLater": 2})


def attachment_cleanups():
    page = working_page(CLAUDE).with_elements(*attachments(12))
    page.with_rules(*[on_invoke(f"removeFile{i}", remove(f"removeFile{i}")) for i in range(1, 13)])
    counts = {f"chat/removeFile{i}": 1 if i > 2 else 0 for i in range(1, 13)}
    yield scene("claude-of-twelve-attachments-ten-are-removed", page,
                opened(removed=10).claude_button(SEND).claude_empty().claude_done().delivered(None), "", SENT, send=1,
                invoked=counts)

    files = attachments(5)
    files[0]["enabled"] = False
    files[1]["offscreen"] = True
    files[2]["invoke"] = E_FAIL
    files[3]["invoke"] = None
    others = [button("removeChat", "Remove", (60, 420, 100, 450)),
              button("upload", "Upload file", (620, 965, 660, 1005)),
              text("fileName", "Remove file lease-page-9.pdf", (560, 850, 700, 890)),
              button("clearUpload", "Clear upload", (1100, 850, 1140, 890))]
    page = working_page(CLAUDE).with_elements(*files, *others)
    counts = {"chat/clearUpload": 1, "chat/removeFile5": 1, "chat/removeChat": 0, "chat/upload": 0,
              **{f"chat/removeFile{i}": 0 for i in range(1, 5)}}
    yield scene("claude-only-usable-remove-buttons-of-attachments-are-pressed", page,
                opened(removed=2).claude_button(SEND).claude_empty().claude_done().delivered(None), "", SENT, send=1,
                invoked=counts)

    yield scene("claude-attachment-search-that-fails-stops-nothing", working_page(CLAUDE),
                pressed().claude_empty().claude_done().delivered(None), "", SENT, send=1,
                faults=[fault("IUIAutomationElement::FindAll", E_FAIL, window="chat")])


def names_and_settling():
    yield scene("claude-inside-a-longer-name-takes-the-claude-branch", working_page(CLAUDE),
                opened("Team Claude (work)").claude_button(SEND).claude_empty().claude_done().delivered(None), "", SENT,
                send=1, name="Team Claude (work)")

    yield scene("claude-and-chatgpt-in-one-name-takes-the-claude-branch", working_page(CLAUDE),
                opened("Claude and ChatGPT").claude_button(SEND).claude_empty().claude_done().delivered(None), "", SENT,
                send=1, name="Claude and ChatGPT")

    page = ready_page(CLAUDE).with_rules(on_key("Enter", *takes_message()))
    delivery = opened("Gemini Claude").claude_not_stable().claude_enter().sent(CLAUDE_AFTER_SEND_MS)
    yield scene("gemini-and-claude-in-one-name-takes-the-claude-branch", page,
                delivery.claude_empty().claude_done().delivered(None), "", SENT, name="Gemini Claude")

    page = pasted_page(CLAUDE).with_rules(on_invoke("send", change("send", enabled=False)))
    first = text_seen(pressed()).claude_retry_skipped().claude_probable().claude_done().delivered(None)
    second = Delivery("Claude", first.now + BETWEEN_MS, batch=first.batch).open(settled=True, removed=0)
    text_seen(second.claude_button(SEND)).claude_retry_skipped().claude_probable().claude_done().delivered(None)
    yield twice("claude-settled-by-probable-evidence", page, first, second, SECOND_PROMPT, EARLIER_MESSAGE, send=2)

    pause = 10000
    first = pressed().claude_empty().claude_done().delivered(None)
    second = Delivery("CLAUDE", first.now + pause, batch=first.batch).open(settled=True, removed=0)
    second.claude_button(SEND).claude_empty().claude_done().delivered(None)
    steps = [deliver("Claude", as_="first"), wait(pause), {"do": [{"clipboard": {"text": SECOND_PROMPT}}]},
             deliver("CLAUDE", as_="second")]
    yield named("delivery", "claude-settled-by-a-delivery-waits-no-first-use-again", scenario(
        "", desk(chat_browser(working_page(CLAUDE, answer_ms=4000).tab())), steps,
        expect(first, second, names=("first", "second"),
               values={"chat/composer": "", "chat/lastMessage": SECOND_PROMPT}, invoked={"chat/send": 2}),
        foreground="chat", clipboard=PROMPT))

    first = pressed().claude_unknown(NOT_EXPOSED).claude_done().unverified()
    second = Delivery("Claude", first.now + pause, batch=first.batch).open(removed=0)
    second.claude_button(SEND).claude_unknown(NOT_EXPOSED).claude_done().unverified()
    steps = [deliver("Claude", as_="first"), wait(pause), deliver("Claude", as_="second")]
    yield named("delivery", "claude-unverified-delivery-leaves-it-unsettled", scenario(
        "", desk(chat_browser(pasted_page(CLAUDE).without_value().tab())), steps,
        expect(first, second, names=("first", "second"), invoked={"chat/send": 2}), foreground="chat",
        clipboard=PROMPT))


def longest():
    """Every wait as long as it can be: ten attachments, the composer at its last check, Enter, ten tries twice."""
    delivery = opened(removed=10, attempt=BOX_CHECKS)
    ready_ms = delivery.now - BEFORE_PASTE_MS - BEFORE_SELECT_ALL_MS
    delivery.claude_not_stable().claude_enter().sent(CLAUDE_AFTER_SEND_MS)
    verify_ms = delivery.now
    delivery.claude_text_remains(CLAUDE_TRIES).claude_not_responding()
    retry_checks_ms = delivery.now
    delivery.claude_retry(SEND, CLAUDE_RETRY_CHECKS)
    retry_ms = delivery.now
    delivery.claude_retry_reading(CLAUDE_TRIES, f"PASS: composer is empty after retry; attempt={CLAUDE_TRIES}")
    delivery.claude_done().delivered(None)
    page = ready_page(CLAUDE).set("composer", enabled=False).with_elements(*attachments(10)).with_rules(
        at(ready_ms - 2 * BOX_PAUSE_MS - 100, change("composer", enabled=True)),
        at(verify_ms - 100, change("composer", enabled=False)),
        at(retry_checks_ms - 100, change("composer", enabled=True)),
        at(retry_ms - 2 * SEND_PAUSE_MS - 100, change("send", enabled=True)),
        at(retry_ms + 50, *takes_message(), change("composer", enabled=False)),
        at(delivery.now - 100, change("composer", enabled=True)))
    counts = {f"chat/removeFile{i}": 1 for i in range(1, 11)}
    yield scene("claude-longest-run-takes-about-27-seconds", page, delivery, "", SENT, send=1, invoked=counts)


def scenarios():
    for group in (first_readings, retries, fallbacks, send_controls, attachment_cleanups, names_and_settling, longest):
        yield from group()
