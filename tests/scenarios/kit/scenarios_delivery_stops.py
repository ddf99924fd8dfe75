"""Where `pasteAndSubmit` stops before it sends: the wrong window, no composer, keys that Windows doesn't take; and what
happens when somebody meddles on the way there."""
from .core import E_FAIL, ALWAYS, at, bring_up, call, change, close_window, edit, fault, on_focus, scenario
from .delivery import Delivery, expect
from .delivery_texts import (ADDRESS_FIELD, BEFORE_FOREGROUND_READ_MS, BOX_CHECKS, BOX_PAUSE_MS, BOX_READY_MS,
                             FIRST_USE_MS, FOCUS_UNKNOWN, HANDLE_DIFFERS, NO_AUTOMATION, NO_CANDIDATE, NO_CONDITION,
                             NO_ROOT, NO_SEARCH, NO_WINDOW, NOT_LOWER_PAGE, NOT_PASTED, NOT_SELECTED, PASTE_MS,
                             SELECT_ALL_MS, SET_FOCUS_FAILED, WRONG_WINDOW)
from .delivery_scenes import NOT_SENT, PROMPT, SENT, final_values, named, scene
from .desktops import chat_browser, desk
from .pages import (CHATGPT, CLAUDE, GEMINI, GROK, becomes_sign_in, composer_vanishes, ready_page, sign_in_elements,
                    working_page)

CHAT_TITLE = "Lease questions - Claude - Google Chrome"


def wrong_window(stem, arguments, verdict, foreground="chat", windows=None, tab_index=1):
    """Blocked at the first check: one step, nothing typed."""
    delivery = Delivery("Claude").foreground(verdict).reply(False, WRONG_WINDOW)
    return named("delivery", stem, scenario(
        "", windows or desk(chat_browser(working_page(CLAUDE).tab())),
        [call("pasteAndSubmit", arguments, "deliver")],
        expect(delivery, foreground=foreground, tab_index=tab_index, values=final_values("", NOT_SENT),
               invoked={"chat/send": 0}),
        foreground=foreground, clipboard=PROMPT))


def wrong_windows():
    title_fails = "FAIL: foreground title is " + CHAT_TITLE
    yield wrong_window("foreground-of-another-handle-blocks-the-send",
                       {"name": "Claude", "expectedWindowHandle": {"$window": "reading"}}, HANDLE_DIFFERS)
    yield wrong_window("foreground-of-another-program-blocks-the-send",
                       {"name": "Claude", "expectedWindowHandle": {"$window": "chat"}}, HANDLE_DIFFERS, "editor")
    yield wrong_window("handle-zero-blocks-the-send", {"name": "Claude", "expectedWindowHandle": 0}, HANDLE_DIFFERS)
    yield wrong_window("handle-outranks-a-title-that-would-fit",
                       {"name": "Claude", "expectedWindowHandle": {"$window": "editor"}, "patterns": ["lease"]},
                       HANDLE_DIFFERS)
    yield wrong_window("no-foreground-window-blocks-the-send",
                       {"name": "Claude", "expectedWindowHandle": {"$window": "chat"}}, "No foreground window", None)
    yield wrong_window("no-handle-and-no-fitting-title-blocks-the-send",
                       {"name": "Gemini", "patterns": ["google gemini", ""]}, title_fails)
    yield wrong_window("no-handle-and-empty-patterns-block-the-send", {"name": "", "patterns": ["", ""]}, title_fails)
    yield wrong_window("patterns-that-are-no-texts-are-skipped", {"name": "", "patterns": [7, None, ["claude"]]},
                       title_fails)
    yield wrong_window("no-arguments-block-the-send", None, title_fails)
    yield wrong_window("arguments-that-are-a-list-block-the-send", ["Claude"], title_fails)
    yield wrong_window("arguments-that-are-a-text-block-the-send", "Claude", title_fails)
    untitled = desk(chat_browser(working_page(CLAUDE).tab(), title=""))
    yield wrong_window("foreground-without-a-title-fits-no-pattern", {"name": "Claude"}, "FAIL: foreground title is ",
                       windows=untitled)


def title_verdicts():
    def by_title(stem, arguments):
        delivery = Delivery("Claude").open(removed=0, expected=False, verdict="PASS: foreground title is " + CHAT_TITLE)
        delivery.claude_button(CLAUDE.send_name).claude_empty().claude_done().delivered(None)
        return scene(stem, working_page(CLAUDE), delivery, "", SENT, send=1,
                     steps=[call("pasteAndSubmit", arguments, "deliver")])

    yield by_title("no-handle-and-a-fitting-pattern-passes", {"name": "Claude", "patterns": ["nothing", "LEASE Quest"]})
    yield by_title("no-handle-and-a-fitting-name-passes", {"name": "Claude"})
    yield by_title("handle-as-text-counts-as-absent",
                   {"name": "Claude", "expectedWindowHandle": {"$windowText": "chat"}})


def no_composer(stem, provider, last, page=None, faults=(), composer="", **more):
    delivery = Delivery(provider.name).foreground().dispatch().first_use()
    if provider is CLAUDE:
        delivery.attachments(0)
    delivery.box_not_ready(last)
    return scene(stem, page or working_page(provider), delivery, composer, faults=faults, **more)


def no_composers():
    yield no_composer("no-composer-on-the-page-types-nothing", CHATGPT, NO_CANDIDATE,
                      ready_page(CHATGPT).without("composer"), composer=None)
    yield no_composer("disabled-composer-types-nothing", GEMINI, NO_CANDIDATE,
                      working_page(GEMINI).set("composer", enabled=False))
    yield no_composer("composer-out-of-view-types-nothing", GEMINI, NO_CANDIDATE,
                      working_page(GEMINI).set("composer", offscreen=True))
    yield no_composer("composer-one-pixel-above-the-line-types-nothing", GROK, NO_CANDIDATE,
                      working_page(GROK).set("composer", bounds=[560, 569, 1360, 629]))
    yield no_composer("search-box-in-the-lower-page-is-no-composer", GROK, NO_CANDIDATE,
                      working_page(GROK).set("composer", name="Search this chat"))
    yield no_composer("composer-that-is-a-document-types-nothing", CLAUDE, NO_CANDIDATE,
                      working_page(CLAUDE).set("composer", type="document"))
    yield no_composer("composer-that-refuses-the-focus-types-nothing", CLAUDE, SET_FOCUS_FAILED,
                      working_page(CLAUDE).set("composer", acceptsFocus=False))
    yield no_composer("focus-that-jumps-to-the-address-bar-types-nothing", CHATGPT, ADDRESS_FIELD,
                      working_page(CHATGPT).with_rules(on_focus("composer", {"focus": "addressBar"})))
    notes = edit("notes", "Notes", (760, 440, 1360, 500), value="")
    yield no_composer("focus-that-jumps-up-the-page-types-nothing", CLAUDE, NOT_LOWER_PAGE,
                      working_page(CLAUDE).with_elements(notes).with_rules(on_focus("composer", {"focus": "notes"})),
                      values={"chat/notes": ""})
    proxy = edit("proxy", "", (0, 0, 0, 0), focusable=False, acceptsFocus=True)
    yield no_composer("focus-on-a-proxy-without-a-place-types-nothing-but-on-chatgpt", CLAUDE, NOT_LOWER_PAGE,
                      working_page(CLAUDE).with_elements(proxy).with_rules(on_focus("composer", {"focus": "proxy"})))
    page = ready_page(CLAUDE)
    page.elements = sign_in_elements(CLAUDE)
    yield no_composer("sign-in-page-types-nothing", CLAUDE, NO_CANDIDATE, page, composer=None, message={},
                      values={"chat/email": "", "chat/password": ""})
    yield no_composer("browser-that-shows-no-tree-types-nothing", CLAUDE, NO_ROOT, chat_facts={"uia": False})

    def refused(stem, call_name, last, result=E_FAIL, **about):
        return no_composer(stem, GEMINI, last, faults=[fault(call_name, result, times=ALWAYS, **about)])

    yield refused("no-automation-object-types-nothing", "CoCreateInstance", NO_AUTOMATION)
    yield refused("null-automation-object-types-nothing", "CoCreateInstance", NO_AUTOMATION, None)
    yield refused("no-search-condition-types-nothing", "IUIAutomation::CreatePropertyCondition", NO_CONDITION)
    yield refused("no-joined-condition-types-nothing", "IUIAutomation::CreateOrCondition", NO_CONDITION)
    yield refused("search-that-fails-types-nothing", "IUIAutomationElement::FindAll", NO_SEARCH)
    yield refused("search-that-gives-null-types-nothing", "IUIAutomationElement::FindAll", NO_SEARCH, None)
    yield refused("focus-that-cannot-be-read-types-nothing", "IUIAutomation::GetFocusedElement", FOCUS_UNKNOWN)
    yield refused("focus-on-nothing-types-nothing", "IUIAutomation::GetFocusedElement", FOCUS_UNKNOWN, None)


def late_composers():
    delivery = Delivery("Grok").open(attempt=BOX_CHECKS).plain_settle().enter().sent().observe().plain_unlooked()
    page = working_page(GROK).set("composer", enabled=False).with_rules(
        at(BOX_READY_MS + (BOX_CHECKS - 5) * BOX_PAUSE_MS - 100, change("composer", enabled=True)))
    yield scene("composer-stable-at-the-last-check-is-typed-into", page, delivery.delivered(), "", SENT)

    page = working_page(GROK).set("composer", enabled=False).with_rules(
        at(BOX_READY_MS + (BOX_CHECKS - 4) * BOX_PAUSE_MS - 100, change("composer", enabled=True)))
    delivery = Delivery("Grok").foreground().dispatch().first_use()
    detail = "Verified lower-page AI prompt box focused for Grok"
    yield scene("composer-ready-one-check-too-late-types-nothing", page, delivery.box_not_ready(detail), "")

    page = working_page(GROK).set("composer", bounds=[560, 570, 1360, 630])
    delivery = Delivery("Grok").open().plain_settle().enter().sent().observe().plain_unlooked()
    yield scene("composer-on-the-line-is-typed-into", page, delivery.delivered(), "", SENT)

    page = working_page(GROK, draft="A draft that nobody sent")
    delivery = Delivery("Grok").open().plain_settle().enter().sent().observe().plain_unlooked()
    yield scene("draft-is-replaced-by-the-prompt", page, delivery.delivered(), "", SENT)


def keys_not_sent():
    def up_to_select_all(sent):
        delivery = Delivery("Claude").foreground().dispatch().first_use().attachments(0).box_ready()
        if sent:
            return delivery.select_all()
        delivery.wait(SELECT_ALL_MS - BOX_READY_MS)
        return delivery.step("Clear Existing Draft", "FAIL: Windows could not send Ctrl+A").reply(False, NOT_SELECTED)

    draft = "A draft that nobody sent"
    page = working_page(CLAUDE, draft=draft)
    for stem, inserted in (("select-all-not-sent-leaves-the-draft", 0),
                           ("select-all-in-part-sent-leaves-the-draft", 3)):
        yield scene(stem, page, up_to_select_all(False), draft, faults=[fault("SendInput", inserted)])
    for stem, inserted in (("paste-not-sent-leaves-the-draft", 0), ("paste-in-part-sent-leaves-the-draft", 2)):
        delivery = up_to_select_all(True).wait(PASTE_MS - SELECT_ALL_MS)
        delivery.step("Paste", "FAIL: Windows could not send Ctrl+V").reply(False, NOT_PASTED)
        yield scene(stem, page, delivery, draft, faults=[fault("SendInput", inserted, nth=2)])


def meddling():
    first_wait_ms = BEFORE_FOREGROUND_READ_MS + FIRST_USE_MS // 2
    yield no_composer("user-who-turns-to-another-window-stops-it", CLAUDE, FOCUS_UNKNOWN,
                      working_page(CLAUDE).with_rules(at(first_wait_ms, bring_up("editor"))), foreground="editor",
                      values={"editor/source": "# Lease\n\n- deposit\n- repairs\n"})

    back_ms = BOX_READY_MS + 4 * BOX_PAUSE_MS - 100
    page = working_page(GROK).with_rules(at(first_wait_ms, bring_up("editor")), at(back_ms, bring_up("chat")))
    delivery = Delivery("Grok").open(attempt=9).plain_settle().enter().sent().observe().plain_unlooked()
    yield scene("user-who-comes-back-lets-it-go-on", page, delivery.delivered(), "", SENT)

    page = working_page(GROK).with_rules(at(100, bring_up("editor")))
    yield scene("user-who-turns-away-before-the-first-look-blocks-the-send", page,
                Delivery("Grok").foreground(HANDLE_DIFFERS).reply(False, WRONG_WINDOW), "", foreground="editor")

    page = working_page(GROK).with_rules(at(first_wait_ms, close_window("chat")))
    delivery = Delivery("Grok").foreground().dispatch().first_use().box_not_ready(NO_WINDOW)
    yield scene("window-closed-in-the-first-wait-types-nothing", page, delivery, None, {}, foreground="main",
                tab_index=None, values={"editor/source": "# Lease\n\n- deposit\n- repairs\n"})

    yield no_composer("composer-that-vanishes-before-the-paste-types-nothing", GEMINI, NO_CANDIDATE,
                      working_page(GEMINI).with_rules(composer_vanishes(first_wait_ms)), composer=None)

    yield no_composer("page-that-turns-into-sign-in-before-the-paste-types-nothing", CHATGPT, NO_CANDIDATE,
                      working_page(CHATGPT).with_rules(becomes_sign_in(first_wait_ms, CHATGPT)), composer=None,
                      message={}, values={"chat/email": "", "chat/password": ""})

    page = working_page(GEMINI).with_rules(at(first_wait_ms, {"selectTab": "(3) Inbox - Proton Mail"}))
    yield no_composer("user-who-turns-to-another-tab-stops-it", GEMINI, NO_CANDIDATE, page, composer=None, message={},
                      tab_index=0)


def scenarios():
    for group in (wrong_windows, title_verdicts, no_composers, late_composers, keys_not_sent, meddling):
        yield from group()
