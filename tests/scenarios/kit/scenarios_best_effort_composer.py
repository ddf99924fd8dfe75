"""The composer of DeepSeek, Qwen and Doubao: which controls the scan counts, when one appears, and what keeps it from
being typed into."""
from .best_effort import (DRAFT, NO_COMPOSER, NO_VALUE, NOT_FOCUSED, ROUTE_MS, SCANS, SCAN_PAUSE_MS, BestEffort,
                          best_effort_scene)
from .core import (ALWAYS, E_FAIL, add, at, bring_up, change, close_window, edit, fault, on_focus, on_read, remove)
from .delivery_scenes import SENT
from .pages import DEEPSEEK, DOUBAO, QWEN, becomes_sign_in, ready_page, working_page

# The window of the page is 1000 pixels high: a fifth of it ends here.
LINE_Y = 220
SECOND_COMPOSER = (560, 700, 1360, 760)
NOT_THERE = ...


def ends_well(run):
    """From a focused composer on."""
    return run.focus_taken().keys_pasted().matched().enter_sent().cleared()


def delivered(stem, provider, page, **counts):
    run = ends_well(BestEffort(provider).found(**counts))
    return best_effort_scene(stem, page, run, message=SENT)


def undelivered(stem, provider, page, composer="", **counts):
    """Eight scans count the same and none finds it."""
    return best_effort_scene(stem, page, BestEffort(provider).no_composer(**counts), composer, focus=None)


def between_scans(scan):
    """A time in the pause before this scan."""
    return ROUTE_MS + (scan - 1) * SCAN_PAUSE_MS - 100


def facts():
    for stem, changes, usable in (
            ("in-the-top-fifth-is-usable-and-no-candidate", {"bounds": [560, LINE_Y - 1, 1360, LINE_Y + 59]}, 3),
            ("of-179-pixels-is-usable-and-no-candidate", {"bounds": [560, 900, 739, 960]}, 3),
            ("without-a-name-is-usable-and-no-candidate", {"name": None}, 3),
            ("with-an-empty-name-is-usable-and-no-candidate", {"name": ""}, 3),
            ("whose-name-cannot-be-read-is-usable-and-no-candidate", {"unreadable": ["name"]}, 3),
            ("that-is-a-password-field-is-not-usable", {"password": True}, 2),
            ("whose-password-fact-cannot-be-read-is-not-usable", {"unreadable": ["password"]}, 2),
            ("out-of-view-is-not-usable", {"offscreen": True}, 2),
            ("that-is-disabled-is-not-usable", {"enabled": False}, 2),
            ("that-takes-no-focus-is-not-usable", {"focusable": False}, 2),
            ("without-a-size-is-not-usable", {"bounds": [560, 900, 560, 960]}, 2),
            ("whose-place-cannot-be-read-is-not-usable", {"unreadable": ["bounds"]}, 2)):
        yield undelivered(f"deepseek-composer-{stem}", DEEPSEEK, working_page(DEEPSEEK).set("composer", **changes),
                          named_candidates=0, usable=usable)
    yield undelivered("qwen-composer-that-is-a-document-is-not-counted", QWEN,
                      working_page(QWEN).set("composer", type="document"), edits=2, usable=2)
    for stem, bounds in (("on-the-line", [560, LINE_Y, 1360, LINE_Y + 60]), ("of-180-pixels", [560, 900, 740, 960])):
        yield delivered(f"deepseek-composer-{stem}-is-typed-into", DEEPSEEK,
                        working_page(DEEPSEEK).set("composer", bounds=bounds))
    # A fifth of 1004 pixels is cut to 200.
    page = working_page(QWEN).set("composer", bounds=[560, LINE_Y, 1360, LINE_Y + 60])
    yield best_effort_scene("qwen-composer-on-the-line-of-a-height-that-five-does-not-divide", page,
                            ends_well(BestEffort(QWEN).found()), message=SENT,
                            chat_facts={"bounds": [40, 20, 1640, 1024]})


def composer_names():
    for stem, provider, name in (
            ("deepseek-composer-named-by-one-chinese-word-is-typed-into", DEEPSEEK, "给 DeepSeek 发送消息"),
            ("deepseek-composer-named-in-capitals-is-typed-into", DEEPSEEK, "MESSAGE DEEPSEEK"),
            ("qwen-composer-named-by-its-prompt-is-typed-into", QWEN, "Your prompt"),
            ("doubao-composer-named-in-english-is-typed-into", DOUBAO, "Ask Doubao")):
        yield delivered(stem, provider, working_page(provider).set("composer", name=name))
    for stem, provider, name in (
            ("deepseek-control-named-search-messages-is-denied", DEEPSEEK, "Search messages"),
            ("deepseek-control-with-the-word-of-another-provider-is-none", DEEPSEEK, "Ask anything"),
            ("qwen-control-for-an-e-mail-message-is-denied", QWEN, "Ask by EMAIL"),
            ("doubao-control-that-asks-for-a-code-is-denied", DOUBAO, "输入验证码"),
            ("doubao-control-that-searches-messages-is-denied", DOUBAO, "搜索发消息的人")):
        yield undelivered(stem, provider, working_page(provider).set("composer", name=name))

    denied = edit("searchMessages", "Search messages", SECOND_COMPOSER, value="")
    yield best_effort_scene("deepseek-control-that-is-denied-does-not-rival-the-composer",
                            working_page(DEEPSEEK).with_elements(denied),
                            ends_well(BestEffort(DEEPSEEK).found(edits=4, usable=4)), message=SENT,
                            values={"chat/searchMessages": ""})
    fields = [edit("loginName", "Phone or email, never a message", (660, 420, 1260, 468), value=""),
              edit("loginPassword", "Ask for a password", (660, 480, 1260, 528), value="", password=True)]
    page = ready_page(QWEN).without("composer").with_elements(*fields)
    yield best_effort_scene("qwen-sign-in-fields-are-never-typed-into", page,
                            BestEffort(QWEN).no_composer(edits=4, usable=3), NOT_THERE,
                            values={"chat/loginName": "", "chat/loginPassword": ""})


def rivals():
    second = edit("second", "Message DeepSeek again", SECOND_COMPOSER, value="")
    for provider, name in ((DEEPSEEK, "Message DeepSeek again"), (QWEN, "Ask again"), (DOUBAO, "问豆包")):
        rival = edit("second", name, SECOND_COMPOSER, value="")
        yield best_effort_scene(f"{provider.name.lower()}-two-composers-are-no-choice",
                                working_page(provider).with_elements(rival),
                                BestEffort(provider).no_composer(edits=4, usable=4, named_candidates=2), focus=None,
                                values={"chat/second": ""})
    page = working_page(DEEPSEEK).with_first(second).with_rules(at(between_scans(4), remove("second")))
    run = BestEffort(DEEPSEEK).identified().scans(1, 3, edits=4, usable=4, named_candidates=2).scan(4)
    yield best_effort_scene("deepseek-second-composer-that-leaves-makes-the-first-unique", page, ends_well(run),
                            message=SENT)
    page = working_page(DEEPSEEK).with_elements({**second, "enabled": False})
    yield best_effort_scene("deepseek-second-composer-that-is-disabled-is-no-rival", page,
                            ends_well(BestEffort(DEEPSEEK).found(edits=4, usable=3)), message=SENT,
                            values={"chat/second": ""})


def late():
    for provider, scan in ((DEEPSEEK, 2), (QWEN, 5), (DOUBAO, SCANS)):
        page = working_page(provider)
        composer = page.element("composer")
        page.without("composer").with_rules(at(between_scans(scan), add(composer)))
        run = BestEffort(provider).identified().scans(1, scan - 1, edits=2, usable=2).scan(scan)
        yield best_effort_scene(f"{provider.name.lower()}-composer-that-appears-for-scan-{scan}-is-typed-into", page,
                                ends_well(run), message=SENT)
    page = working_page(DEEPSEEK)
    composer = page.element("composer")
    page.without("composer").with_rules(at(between_scans(SCANS + 1), add(composer)))
    yield best_effort_scene("deepseek-composer-that-appears-behind-the-last-scan-is-too-late", page,
                            BestEffort(DEEPSEEK).no_composer(edits=2, usable=2))


def scan_faults():
    # The first search is that for the address; behind each scan without a composer there is another.
    searches = [fault("IUIAutomationElement::FindAll", result, nth=2 * scan)
                for scan, result in zip(range(1, SCANS + 1), [E_FAIL, None] * (SCANS // 2))]
    yield best_effort_scene("deepseek-search-that-always-fails-counts-no-control", working_page(DEEPSEEK),
                            BestEffort(DEEPSEEK).no_composer(edits=0, usable=0), faults=searches)
    for stem, name, result, counts in (
            ("search-that-fails-once-counts-no-control-then", "IUIAutomationElement::FindAll", E_FAIL, (0, 0)),
            ("search-that-gives-null-once-counts-no-control-then", "IUIAutomationElement::FindAll", None, (0, 0)),
            ("length-that-fails-once-counts-no-control-then", "IUIAutomationElementArray::get_Length", E_FAIL, (0, 0)),
            ("window-whose-place-is-unknown-has-no-candidate-then", "GetWindowRect", False, (3, 3)),
            ("control-that-cannot-be-had-is-skipped", "IUIAutomationElementArray::GetElement", E_FAIL, (3, 2)),
            ("control-that-is-null-is-skipped", "IUIAutomationElementArray::GetElement", None, (3, 2))):
        # The address bar is the first control of both searches, the composer the last of the scan.
        which = {"GetWindowRect": {"nth": 1, "window": "chat"}, "IUIAutomationElementArray::GetElement": {"nth": 4}}
        run = BestEffort(DEEPSEEK).identified().scans(1, 1, edits=counts[0], usable=counts[1]).scan(2)
        yield best_effort_scene(f"deepseek-{stem}", working_page(DEEPSEEK), ends_well(run), message=SENT,
                                faults=[fault(name, result, **which.get(name, {"nth": 2}))])


def lost_while_scanning():
    for provider in (DEEPSEEK, QWEN, DOUBAO):
        page = ready_page(provider).without("composer").with_rules(at(between_scans(3), bring_up("editor")))
        run = BestEffort(provider).identified().scans(1, 2, edits=2, usable=2)
        run.scan(3, edits=2, usable=2, named_candidates=0).stop("Input", NO_COMPOSER)
        yield best_effort_scene(f"{provider.name.lower()}-window-left-between-scans-ends-them-at-the-next", page, run,
                                NOT_THERE, foreground="editor")

    page = ready_page(DEEPSEEK).without("composer").with_rules(at(between_scans(2), bring_up("editor")),
                                                               at(between_scans(2) + 50, bring_up("chat")))
    yield best_effort_scene("deepseek-window-left-and-back-between-two-scans-is-scanned-on", page,
                            BestEffort(DEEPSEEK).no_composer(edits=2, usable=2), NOT_THERE)

    page = ready_page(QWEN).without("composer").with_rules(at(between_scans(2), {"address": "https://courier.example/"}))
    run = BestEffort(QWEN).identified().scans(1, 1, edits=2, usable=2)
    run.scan(2, edits=2, usable=2, named_candidates=0).stop("Input", NO_COMPOSER)
    yield best_effort_scene("qwen-page-that-leaves-its-host-between-scans-ends-them", page, run, NOT_THERE)

    page = ready_page(DOUBAO).without("composer").with_rules(at(between_scans(2), close_window("chat")))
    run = BestEffort(DOUBAO).identified().scans(1, 1, edits=2, usable=2)
    run.scan(2, edits=0, usable=0, named_candidates=0).stop("Input", NO_COMPOSER)
    yield best_effort_scene("doubao-window-closed-between-scans-ends-them", page, run, NOT_THERE, message={},
                            foreground="main", tab_index=None)

    page = ready_page(DEEPSEEK).without("composer").with_rules(becomes_sign_in(between_scans(2), DEEPSEEK))
    page.rules[-1]["do"] = [one for one in page.rules[-1]["do"] if one != {"remove": "composer"}]
    run = BestEffort(DEEPSEEK).identified().scans(1, 1, edits=2, usable=2).scans(2, SCANS, edits=4, usable=3)
    yield best_effort_scene("deepseek-page-that-turns-into-sign-in-is-never-typed-into", page,
                            run.stop("Input", NO_COMPOSER), NOT_THERE, message={},
                            values={"chat/email": "", "chat/password": ""})


def focus():
    def stopped(stem, provider, page=None, **more):
        return best_effort_scene(stem, page or working_page(provider),
                                 BestEffort(provider).found().stop("Focus", NOT_FOCUSED), **more)

    yield stopped("deepseek-focus-that-jumps-to-the-search-box-types-nothing", DEEPSEEK,
                  working_page(DEEPSEEK).with_rules(on_focus("composer", {"focus": "searchChats"})),
                  focus="chat/searchChats", values={"chat/searchChats": ""})
    yield stopped("qwen-focus-that-brings-up-another-window-types-nothing", QWEN,
                  working_page(QWEN).with_rules(on_focus("composer", bring_up("editor"))), foreground="editor")
    yield stopped("doubao-focus-that-leaves-the-host-types-nothing", DOUBAO, working_page(DOUBAO).with_rules(
        on_focus("composer", {"address": "https://courier.example/"})))
    # The scan reads the composer in full and finds it; the window has gone by then.
    yield stopped("deepseek-window-left-during-the-scan-is-not-focused", DEEPSEEK,
                  working_page(DEEPSEEK).with_rules(on_read("composer", bring_up("editor"), times=1)),
                  foreground="editor")
    # The composer has the focus already; a refusal counts all the same.
    yield stopped("qwen-focus-refused-by-a-composer-that-has-it-types-nothing", QWEN,
                  working_page(QWEN).with_rules(at(ROUTE_MS - 100, {"focus": "composer"})), focus="chat/composer",
                  faults=[fault("IUIAutomationElement::SetFocus", E_FAIL)])
    for stem, name, result in (
            ("deepseek-focus-that-fails-types-nothing", "IUIAutomationElement::SetFocus", E_FAIL),
            ("qwen-focus-that-cannot-be-read-types-nothing", "IUIAutomation::GetFocusedElement", E_FAIL),
            ("doubao-focus-on-nothing-types-nothing", "IUIAutomation::GetFocusedElement", None),
            ("deepseek-focus-that-cannot-be-compared-types-nothing", "IUIAutomation::CompareElements", E_FAIL),
            ("qwen-focus-that-compares-as-another-types-nothing", "IUIAutomation::CompareElements", "0x00000000")):
        yield stopped(stem, QWEN if stem.startswith("qwen") else DOUBAO if stem.startswith("doubao") else DEEPSEEK,
                      faults=[fault(name, result, times=ALWAYS)])


def values():
    for stem, provider, changes in (
            ("deepseek-composer-whose-value-is-null-types-nothing", DEEPSEEK, {"value": None}),
            ("qwen-composer-whose-value-cannot-be-read-types-nothing", QWEN, {"unreadable": ["value"]})):
        yield best_effort_scene(stem, working_page(provider).set("composer", **changes),
                                BestEffort(provider).focused().stop("Input Value", NO_VALUE),
                                None if "value" in changes else "")
    for stem, provider, draft in (("deepseek-composer-with-one-blank-is-not-empty", DEEPSEEK, " "),
                                  ("qwen-composer-with-one-line-end-is-not-empty", QWEN, "\r\n"),
                                  ("doubao-composer-with-a-lone-carriage-return-is-not-empty", DOUBAO, "\r")):
        yield best_effort_scene(stem, working_page(provider, draft=draft),
                                BestEffort(provider).focused().stop("Existing Draft", DRAFT), draft)
    page = working_page(DEEPSEEK).with_rules(on_focus("composer", change("composer", value="Restored draft")))
    yield best_effort_scene("deepseek-draft-that-comes-back-with-the-focus-blocks-the-prompt", page,
                            BestEffort(DEEPSEEK).focused().stop("Existing Draft", DRAFT), "Restored draft")


def scenarios():
    for group in (facts, composer_names, rivals, late, scan_faults, lost_while_scanning, focus, values):
        yield from group()
