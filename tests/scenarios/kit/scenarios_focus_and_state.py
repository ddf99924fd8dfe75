"""`focusProviderInput` and `getProviderResponseState`: one look at the window in front, nothing typed."""
from .core import E_FAIL, NOTHING_HELD, call, fault, on_focus, scenario
from .delivery_scenes import PROMPT, named
from .delivery_texts import (ADDRESS_FIELD, HANDLE_DIFFERS, NO_CANDIDATE, NO_ROOT, NOT_RESPONDING,
                             SIGN_IN, responding)
from .desktops import chat_browser, desk
from .pages import CHATGPT, CLAUDE, PERPLEXITY, ready_page, sign_in_elements, stop_button

PLACED = "PASS: cursor placed in final AI chat input"
TITLE = "Lease questions - Claude - Google Chrome"


def one_call(folder, stem, method, arguments, value, page, foreground="chat", focus=None, faults=(), chat_facts=None):
    expected = {
        "exitCode": 0,
        "replies": [{"as": "0", "method": method, "kind": "success", "value": value, "startMs": 0, "endMs": 0}],
        "input": [],
        "desktop": {"foreground": foreground, "focus": focus, "tabs": {"chat": {"selected": 1}},
                    "values": {"chat/composer": ""}, "invoked": {"chat/send": 0, "chat/stop": 0}},
        "stderr": [],
        "live": dict(NOTHING_HELD),
    }
    windows = desk(chat_browser(page.tab(), **(chat_facts or {})))
    return named(folder, stem, scenario("", windows, [call(method, arguments)], expected, foreground=foreground,
                                        clipboard=PROMPT, faults=faults))


def focus_inputs():
    def focus(stem, name, success, message, page, focus="chat/composer", arguments=..., **more):
        given = {"name": name} if arguments is ... else arguments
        return one_call("focus", stem, "focusProviderInput", given, {"success": success, "message": message}, page,
                        focus=focus, **more)

    yield focus("cursor-goes-to-the-composer", "Claude", True, PLACED, ready_page(CLAUDE))
    yield focus("window-is-not-compared-with-any-other", "Gemini", True, PLACED, ready_page(CLAUDE))
    yield focus("no-arguments-read-as-an-empty-name", None, True, PLACED, ready_page(CLAUDE), arguments=None)
    yield focus("perplexity-cursor-goes-to-the-named-composer", "Perplexity", True, PLACED, ready_page(PERPLEXITY))
    yield focus("perplexity-sign-in-panel-is-not-touched", "perplexity", False, "FAIL: " + SIGN_IN,
                ready_page(PERPLEXITY).with_elements(*sign_in_elements(PERPLEXITY)), focus=None)
    yield focus("no-composer-fails-with-the-reason", "ChatGPT", False, "FAIL: " + NO_CANDIDATE,
                ready_page(CHATGPT).set("composer", enabled=False), focus=None)
    yield focus("focus-that-jumps-to-the-address-bar-fails", "ChatGPT", False, "FAIL: " + ADDRESS_FIELD,
                ready_page(CHATGPT).with_rules(on_focus("composer", {"focus": "addressBar"})), focus="chat/addressBar")
    yield focus("no-foreground-window-fails-without-a-reason", "Claude", False, "FAIL: ", ready_page(CLAUDE),
                focus=None, foreground=None)
    yield focus("window-that-shows-no-tree-fails", "Claude", False, "FAIL: " + NO_ROOT, ready_page(CLAUDE), focus=None,
                chat_facts={"uia": False})


def response_states():
    def state(stem, arguments, observed, is_responding, detail, page=None, **more):
        value = {"observed": observed, "responding": is_responding, "detail": detail}
        return one_call("response-state", stem, "getProviderResponseState", arguments, value,
                        page or answering_page(), **more)

    def answering_page(**facts):
        return ready_page(CLAUDE).with_elements({**stop_button(CLAUDE), **facts})

    here = {"name": "Claude", "expectedWindowHandle": {"$window": "chat"}}
    seen = responding(CLAUDE.stop_name)
    yield state("stop-control-is-seen", here, True, True, seen)
    yield state("stop-control-is-seen-by-the-title", {"patterns": ["claude"]}, True, True, seen)
    yield state("stop-control-in-other-letter-case-is-seen", here, True, True, responding("STOP Generating"),
                answering_page(name="STOP Generating"))
    yield state("cancel-response-is-a-stop-control", here, True, True, responding("Cancel response"),
                answering_page(name="Cancel response"))
    yield state("page-at-rest-is-not-responding", here, True, False, NOT_RESPONDING, ready_page(CLAUDE))
    yield state("control-named-stop-alone-is-none", here, True, False, NOT_RESPONDING, answering_page(name="Stop"))
    yield state("disabled-stop-control-is-none", here, True, False, NOT_RESPONDING, answering_page(enabled=False))
    yield state("stop-control-out-of-view-is-none", here, True, False, NOT_RESPONDING, answering_page(offscreen=True))
    yield state("stop-text-that-is-no-button-is-none", here, True, False, NOT_RESPONDING, answering_page(type="text"))
    yield state("search-that-fails-is-observed-without-a-text", here, True, False, "",
                faults=[fault("IUIAutomationElement::FindAll", E_FAIL)])
    yield state("another-window-in-front-is-not-observed", here, False, False, HANDLE_DIFFERS, foreground="editor")
    yield state("another-title-in-front-is-not-observed", {"name": "Gemini", "patterns": ["google gemini"]}, False,
                False, "FAIL: foreground title is " + TITLE)
    yield state("no-arguments-are-not-observed", None, False, False, "FAIL: foreground title is " + TITLE)
    yield state("no-foreground-window-is-not-observed", here, False, False, "No foreground window", foreground=None)


def scenarios():
    yield from focus_inputs()
    yield from response_states()
