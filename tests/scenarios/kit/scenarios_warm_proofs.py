"""What the selected tab must show, the way back to the tab before it, and the window that comes forward or doesn't."""
from .activation_cases import (CHATGPT_URL, GEMINI_URL, MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, chatgpt_page,
                               chatgpt_tab, desk, gemini_tab, mail_tab, quiet_home, report_tab, work)
from .activation_routes import (FORCE_PASS_MS, NOT_CONFIRMED, REMEMBERED_INDEX, REMEMBERED_INDEX_AND_TITLE, REQUESTED,
                                VERIFICATION_ATTEMPTS)
from .activation_tabs import (E_INVALIDARG, E_NOINTERFACE, INDEX_AND_TITLE, INDEX_FALLBACK, INDEX_LOST, S_OK,
                              UIA_E_ELEMENTNOTAVAILABLE, UNIQUE_TITLE, live, seen, window)
from .core import E_FAIL, add, at, close_window, edit, element, fault, on_read, on_select, tab, wait
from .warm import (MAIL_BACK, NOTES, NOTES_AT_1, QUIET_HOME, ROOT, SEEN_REPORT, SELECT, STRIP, begin, discovers_notes,
                   gemini_desk, memory, selected_notes, warm_case)

NEVER = sum(FORCE_PASS_MS)
READ_BACK_MS = 100
BETWEEN_MS = 20
ABOUT = "https://gemini.google/about/"
BOTH = {"work": 1, "home": 0}


def attempt_ms(number):
    """When the proof is looked for the n-th time behind a selection at the start."""
    return READ_BACK_MS + (number - 1) * BETWEEN_MS


def falls_back(activation, *, address="", back=MAIL_BACK, original=SEEN_MAIL):
    """The proof fails, the tab before is selected again and proves nothing either; the discovery finds the notes."""
    activation.warm_failed(address)
    activation.warm_restore(original, S_OK, back, INDEX_AND_TITLE, 0).warm_restored_verified(False, "")
    return activation.warm_fallback()


def loading():
    """The address comes while the page loads: the k-th of 25 looks proves it, a later one doesn't exist."""
    for number in (1, 2, 3, 12, 24, 25):
        windows = gemini_desk(mail_tab(), gemini_tab(address="", rules=[
            on_select(NOTES, {"address": GEMINI_URL}, after=attempt_ms(number))]), report_tab())
        activation = selected_notes(begin(), REMEMBERED_INDEX)
        activation.warm_verified(True, GEMINI_URL, attempts=number).warm_ready("Chrome")
        yield warm_case(f"gemini-page-that-loads-by-look-{number}-is-proven", windows, activation, memory(1),
                        selected=BOTH, selections=1, foreground="work")

    late = on_select(NOTES, {"address": GEMINI_URL}, after=attempt_ms(25) + 1)
    windows = gemini_desk(mail_tab(), gemini_tab(address="", rules=[late]), report_tab())
    activation = falls_back(selected_notes(begin(), REMEMBERED_INDEX))
    yield warm_case("gemini-page-that-loads-behind-the-last-look-is-found-by-the-discovery", windows,
                    discovers_notes(activation, windows), memory(1), selected=BOTH, selections=3, foreground="work")

    # First a page of the company, then the chat.
    windows = gemini_desk(mail_tab(), gemini_tab(address=ABOUT, rules=[
        on_select(NOTES, {"address": GEMINI_URL}, after=attempt_ms(7))]), report_tab())
    activation = selected_notes(begin(), REMEMBERED_INDEX)
    activation.warm_verified(True, GEMINI_URL, attempts=7).warm_ready("Chrome")
    yield warm_case("gemini-page-that-turns-into-the-chat-is-proven", windows, activation, memory(1), selected=BOTH,
                    selections=1, foreground="work")


def composers():
    """Without an address the composer proves ChatGPT, and no other provider."""
    title = "Trip to Lisbon - ChatGPT"
    there = live((MAIL_TITLE, "S"), (title, "IT"))

    def run(file, page, attempts, rules=(), faults=(), **facts):
        windows = desk(work(mail_tab(), tab(title, "", page, rules), **facts), quiet_home())
        activation = begin("ChatGPT", 2).warm_choice(REMEMBERED_INDEX_AND_TITLE, seen(1, title))
        activation.warm_select(S_OK, there, INDEX_AND_TITLE, 1)
        activation.warm_verified(True, "", attempts=attempts, composer=1).warm_ready("Chrome")
        return warm_case(f"chatgpt-{file}", windows, activation, memory(1, title), selected=BOTH, selections=1,
                         foreground="work", faults=faults)

    yield run("page-without-an-address-is-proven-by-its-composer", chatgpt_page(), 1)
    yield run("window-without-an-address-bar-is-proven-by-the-composer", chatgpt_page(), 1, addressBar=None)
    late = edit("late", "Message ChatGPT", (500, 880, 1300, 940), value="")
    yield run("composer-that-comes-by-the-ninth-look-proves-the-page", (), 9,
              [on_select(title, add(late), after=attempt_ms(9))])

    # The looser words count in a window whose title carries the mark; it does once the tab is in front.
    asks = [edit("composer", "Ask anything", (500, 880, 1300, 940), value="")]
    for shown, proves in (("Roadmap · Work", True), ("Roadmap", False)):
        windows = desk(work(mail_tab(), tab(shown, "", asks)), quiet_home())
        activation = begin("ChatGPT", 2).warm_choice(REMEMBERED_INDEX_AND_TITLE, seen(1, shown))
        activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (shown, "IT")), INDEX_AND_TITLE, 1)
        back = live((MAIL_TITLE, "IT"), (shown, "S"))
        if proves:
            activation.warm_verified(True, "", composer=1).warm_ready("Chrome")
        else:
            activation.warm_failed().warm_restore(SEEN_MAIL, S_OK, back, INDEX_AND_TITLE, 0)
            activation.warm_restored_verified(False, "").warm_fallback()
            found = seen(1, shown, "remembered strictTitle rememberedPosition", score=830)
            activation.discover([window("Chrome", SEEN_MAIL, found), QUIET_HOME], desktop=windows,
                                remembered=[{"step": "Remembered title", "result": shown}])
            activation.choose("Chrome", found).select(live((MAIL_TITLE, "S"), (shown, "IT")), UNIQUE_TITLE, 1)
            activation.settle().chatgpt_identity(passes=False, composer=False)
            activation.restore("ChatGPT final restoration", SEEN_MAIL, back, INDEX_AND_TITLE, 0).finish_blocked()
        yield warm_case(f"chatgpt-window-{'with' if proves else 'without'}-the-workspace-mark-is-"
                        f"{'' if proves else 'not-'}proven-by-a-looser-name", windows, activation, memory(1, shown),
                        selected=BOTH if proves else {"work": 0, "home": 0}, selections=1 if proves else 4,
                        foreground="work" if proves else None)

    # An address that is there and proves nothing outweighs the composer.
    windows = desk(work(mail_tab(), tab(title, "https://intranet.example/chat", chatgpt_page())), quiet_home())
    activation = begin("ChatGPT", 2).warm_choice(REMEMBERED_INDEX, seen(1, title))
    activation.warm_select(S_OK, there, INDEX_AND_TITLE, 1).warm_failed("https://intranet.example/chat")
    activation.warm_restore(SEEN_MAIL, S_OK, live((MAIL_TITLE, "IT"), (title, "S")), INDEX_AND_TITLE, 0)
    activation.warm_restored_verified(False, "").warm_fallback()
    target = seen(1, title, "anchoredTitle strictTitle rememberedPosition rawTitle", score=770)
    activation.discover([window("Chrome", SEEN_MAIL, target), QUIET_HOME], desktop=windows).choose("Chrome", target)
    activation.select(there, UNIQUE_TITLE, 1).settle().chatgpt_identity(passes=False, composer=True)
    activation.restore("ChatGPT final restoration", SEEN_MAIL, live((MAIL_TITLE, "IT"), (title, "S")),
                       INDEX_AND_TITLE, 0).finish_blocked()
    yield warm_case("chatgpt-unknown-address-outweighs-the-composer", windows, activation, memory(1),
                    selected={"work": 0, "home": 0}, selections=4)


def unreadable():
    """Roots of the window: the inspection, the selection, and then one for each look."""
    windows = gemini_desk()
    activation = selected_notes(begin(), REMEMBERED_INDEX)
    activation.warm_verified(True, GEMINI_URL, attempts=4).warm_ready("Chrome")
    for result, word in ((E_FAIL, "fails"), (None, "is-empty")):
        yield warm_case(f"gemini-root-that-{word}-three-times-is-asked-for-again", windows, activation, memory(1),
                        selected=BOTH, selections=1, foreground="work",
                        faults=[fault(ROOT, result, 3, 3, window="work")])

    # The address that was read last is the one that is told, though later looks read none.
    elsewhere = "https://notes.example/plan"
    windows = gemini_desk(mail_tab(), gemini_tab(address=elsewhere), report_tab())
    activation = falls_back(selected_notes(begin(), REMEMBERED_INDEX), address=elsewhere)
    yield warm_case("gemini-last-address-that-was-read-is-told", windows, discovers_notes(activation, windows),
                    memory(1), selected=BOTH, selections=3, foreground="work",
                    faults=[fault(ROOT, E_FAIL, 4, 24, window="work")])

    windows = gemini_desk()
    activation = falls_back(selected_notes(begin(), REMEMBERED_INDEX))
    yield warm_case("gemini-root-that-always-fails-proves-nothing", windows, discovers_notes(activation, windows),
                    memory(1), selected=BOTH, selections=3, foreground="work",
                    faults=[fault(ROOT, E_FAIL, 3, VERIFICATION_ATTEMPTS, window="work")])


def claude_pages():
    """The address is Claude's, but no chat."""
    settings = "https://claude.ai/settings/profile"
    title = "Settings - Claude"
    windows = desk(work(mail_tab(), tab(title, settings)))
    there, back = live((MAIL_TITLE, "S"), (title, "IT")), live((MAIL_TITLE, "IT"), (title, "S"))
    activation = begin("Claude", 2).warm_choice(REMEMBERED_INDEX, seen(1, title))
    activation.warm_select(S_OK, there, INDEX_AND_TITLE, 1).warm_failed(settings)
    activation.warm_restore(SEEN_MAIL, S_OK, back, INDEX_AND_TITLE, 0).warm_restored_verified(False, "")
    activation.warm_fallback()
    target = seen(1, title, "anchoredTitle rawTitle", score=200)
    activation.discover([window("Chrome", SEEN_MAIL, target)], desktop=windows).choose("Chrome", target)
    activation.select(there, INDEX_AND_TITLE, 1).settle().claude_identity(passes=False)
    activation.restore("Claude final restoration", SEEN_MAIL, back, INDEX_AND_TITLE, 0).finish_blocked()
    yield warm_case("claude-settings-page-is-left-again-by-both-ways", windows, activation, memory(1),
                    selected={"work": 0}, selections=4)

    # It stands in front: there is no other tab to go back to.
    windows = desk(work(mail_tab(), tab(title, settings), selected=1))
    activation = begin("Claude", 2).warm_choice(REMEMBERED_INDEX, seen(1, title)).warm_already_selected()
    activation.warm_failed(settings).warm_fallback()
    turned_down = seen(1, title, "selected domain anchoredTitle rawTitle", url=settings,
                       decision="REJECT_NON_CHAT_CLAUDE_PAGE")
    activation.discover(*[[window("Chrome", seen(0, MAIL_TITLE), turned_down)]] * 3, desktop=windows).no_session()
    yield warm_case("claude-settings-page-in-front-has-no-way-back", windows, activation, memory(1),
                    selected={"work": 1}, selections=0)


def refused_selections():
    """The proof is not looked for; the tab that was in front is selected again all the same."""
    def run(file, hr, faults, *, tabs=STRIP, reason=INDEX_AND_TITLE, place=1, read_back=None, selections=3,
            back=live((MAIL_TITLE, "SIT"), (NOTES,), (REPORT_TITLE,)), strip=(), **more):
        windows = gemini_desk(*strip)
        activation = begin().warm_choice(REMEMBERED_INDEX, NOTES_AT_1)
        activation.warm_select(hr, tabs, reason, place, read_back=read_back).warm_failed(attempts=0)
        activation.warm_restore(SEEN_MAIL, S_OK, back, INDEX_AND_TITLE, 0).warm_restored_verified(False, "")
        discovers_notes(activation.warm_fallback(), windows)
        return warm_case(f"gemini-{file}", windows, activation, memory(1), selected=BOTH, selections=selections,
                         foreground="work", faults=faults, **more)

    for hr, word in ((E_FAIL, "failure"), ("0x80070005", "denial"), (UIA_E_ELEMENTNOTAVAILABLE, "unavailability")):
        yield run(f"selection-that-ends-in-{word}-is-not-tried-again", hr, [fault(SELECT, hr)])
    yield run("selection-without-effect-is-a-failure", UIA_E_ELEMENTNOTAVAILABLE, [fault(SELECT, "0x0")],
              read_back=False)
    # Of the window: a root for the inspection and one for the selection, a search for each as well.
    yield run("selection-whose-root-fails-has-no-steps-of-its-own", E_FAIL, [fault(ROOT, E_FAIL, 2, window="work")],
              tabs=None, place=None, selections=2)
    yield run("selection-whose-search-is-empty-has-no-steps-of-its-own", E_FAIL,
              [fault("IUIAutomationElement::FindAll", None, 2, window="work")], tabs=None, place=None, selections=2)

    windows = gemini_desk(mail_tab(), gemini_tab(selection="none"), report_tab())
    activation = begin().warm_choice(REMEMBERED_INDEX, NOTES_AT_1)
    activation.warm_select(E_NOINTERFACE, STRIP, INDEX_AND_TITLE, 1).warm_failed(attempts=0)
    activation.warm_restore(SEEN_MAIL, S_OK, live((MAIL_TITLE, "SIT"), (NOTES,), (REPORT_TITLE,)), INDEX_AND_TITLE, 0)
    activation.warm_restored_verified(False, "").warm_fallback()
    activation.discover([window("Chrome", SEEN_MAIL, NOTES_AT_1, SEEN_REPORT), QUIET_HOME], desktop=windows)
    activation.choose("Chrome", NOTES_AT_1).attempt(1, E_NOINTERFACE, STRIP, INDEX_AND_TITLE, 1)
    activation.selection_failed(E_NOINTERFACE).finish_blocked()
    yield warm_case("gemini-tab-without-a-selection-pattern-cannot-be-selected", windows, activation, memory(1),
                    selected={"work": 0, "home": 0}, selections=1)


def vanished():
    """The tab closes behind the inspection; the page in front shows a tab item of its own, read as the last one."""
    preview = element("tabItem", "preview", "Preview", (300, 200, 500, 240))
    mail = tab(MAIL_TITLE, "mail.northwind.example/inbox", [preview])
    windows = gemini_desk(mail, report_tab(), gemini_tab(),
                          rules=[on_read("preview", {"closeTab": NOTES}, {"closeTab": REPORT_TITLE},
                                         {"remove": "preview"}, times=1)])
    activation = begin(tabs=4).warm_choice(REMEMBERED_INDEX_AND_TITLE, seen(2, NOTES))
    activation.warm_select(UIA_E_ELEMENTNOTAVAILABLE, live((MAIL_TITLE, "S")), INDEX_LOST).warm_failed(attempts=0)
    activation.warm_restore(SEEN_MAIL, S_OK, live((MAIL_TITLE, "SIT")), INDEX_AND_TITLE, 0)
    activation.warm_restored_verified(False, "").warm_fallback()
    activation.discover(*[[window("Chrome", SEEN_MAIL), QUIET_HOME]] * 3,
                        desktop=[windows[0] | {"tabs": [mail_tab() | {"selected": True}]}, *windows[1:]],
                        remembered=[{"step": "Remembered title", "result": NOTES}]).no_session()
    yield warm_case("gemini-tab-that-closes-behind-the-inspection-is-not-resolved", windows, activation,
                    memory(2, NOTES), selected={"work": 0, "home": 0}, selections=1, titles={"work": [MAIL_TITLE]})

    # Its place is another tab's now, which is selected, proves nothing, and is left again.
    mail = tab(MAIL_TITLE, "mail.northwind.example/inbox", [preview])
    windows = gemini_desk(mail, gemini_tab(), report_tab(), rules=[on_read("preview", {"closeTab": NOTES}, times=1)])
    activation = begin(tabs=4).warm_choice(REMEMBERED_INDEX_AND_TITLE, NOTES_AT_1)
    activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (REPORT_TITLE, "I"), ("Preview",)), INDEX_FALLBACK, 1)
    activation.warm_failed()
    activation.warm_restore(SEEN_MAIL, S_OK, live((MAIL_TITLE, "IT"), (REPORT_TITLE, "S")), INDEX_AND_TITLE, 0)
    activation.warm_restored_verified(False, "").warm_fallback()
    activation.discover(*[[window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), seen(2, "Preview")), QUIET_HOME]] * 3,
                        desktop=windows, remembered=[{"step": "Remembered title", "result": NOTES}]).no_session()
    yield warm_case("gemini-tab-that-closes-leaves-its-place-to-one-that-proves-nothing", windows, activation,
                    memory(1, NOTES), selected={"work": 0, "home": 0}, selections=2,
                    titles={"work": [MAIL_TITLE, REPORT_TITLE]})

    windows = gemini_desk(mail_tab(), gemini_tab(address=""), report_tab(), rules=[at(250, close_window("work"))])
    activation = selected_notes(begin(), REMEMBERED_INDEX).warm_failed()
    activation.warm_restore(SEEN_MAIL, E_INVALIDARG).warm_fallback()
    activation.discover(*[[QUIET_HOME]] * 3, desktop=windows, top_level=len(windows)).no_session()
    yield warm_case("gemini-window-that-closes-during-the-proof-has-no-way-back", windows, activation, memory(1),
                    selected={"home": 0}, selections=1)


def failed_restorations():
    """The window stays on the wrong tab; the discovery finds it there."""
    def run(file, faults, *, hr=E_FAIL, tabs=MAIL_BACK, reason=INDEX_AND_TITLE, place=0, read_back=None, selections):
        windows = gemini_desk(mail_tab(), gemini_tab(address=ABOUT), report_tab())
        activation = selected_notes(begin(), REMEMBERED_INDEX).warm_failed(ABOUT)
        activation.warm_restore(SEEN_MAIL, hr, tabs, reason, place, read_back=read_back).warm_fallback()
        turned_down = seen(1, NOTES, "selected anchoredTitle rawTitle", url=ABOUT, decision="REJECT_COMPANY_HOMEPAGE")
        activation.discover(*[[window("Chrome", seen(0, MAIL_TITLE), turned_down, SEEN_REPORT), QUIET_HOME]] * 3,
                            desktop=windows).no_session()
        return warm_case(f"gemini-{file}", windows, activation, memory(1), selected=BOTH, selections=selections,
                         faults=faults)

    yield run("original-tab-that-refuses-is-not-restored", [fault(SELECT, E_FAIL, element=MAIL_TITLE)], selections=2)
    yield run("original-tab-whose-selection-has-no-effect-is-not-restored",
              [fault(SELECT, "0x0", element=MAIL_TITLE)], hr=UIA_E_ELEMENTNOTAVAILABLE, read_back=False, selections=2)
    yield run("window-without-a-root-is-not-restored", [fault(ROOT, E_FAIL, 28, window="work")], tabs=None, place=None,
              selections=1)


def restored_targets():
    """The tab that the person was on is itself the provider's."""
    plan = "Plan for the week"
    windows = gemini_desk(gemini_tab(plan, automationId="view_3"), report_tab())
    original, target = seen(0, plan, id="view_3"), seen(1, REPORT_TITLE)

    def recover():
        activation = begin(tabs=2).warm_choice(REMEMBERED_INDEX, target)
        activation.warm_select(S_OK, live((plan, "S", "view_3"), (REPORT_TITLE, "IT")), INDEX_AND_TITLE, 1)
        activation.warm_failed()
        return activation.warm_restore(original, S_OK, live((plan, "ITA", "view_3"), (REPORT_TITLE, "S")),
                                       INDEX_AND_TITLE, 0)

    activation = recover().warm_restored_verified(True, GEMINI_URL).warm_ready("Chrome", recovered=True)
    yield warm_case("gemini-tab-that-was-in-front-is-itself-the-providers", windows, activation, memory(1),
                    selected={"work": 0, "home": 0}, selections=2, foreground="work")

    activation = recover().warm_restored_verified(True, GEMINI_URL)
    activation.warm_ready("Chrome", recovered=True, foreground=REQUESTED)
    refusing = gemini_desk(gemini_tab(plan, automationId="view_3"), report_tab(), foregroundRequests="refused")
    yield warm_case("gemini-restored-tab-whose-window-refuses-is-only-requested", refusing, activation, memory(1),
                    selected={"work": 0, "home": 0}, selections=2, foreground="main", looks=False,
                    calls={"SetForegroundWindow": 1})

    # Roots: the inspection, the selection, 25 looks, the restoration, and then the looks at the restored tab.
    activation = recover().warm_restored_verified(True, GEMINI_URL, attempts=6).warm_ready("Chrome", recovered=True)
    yield warm_case("gemini-restored-tab-is-proven-at-the-sixth-look", windows, activation, memory(1),
                    selected={"work": 0, "home": 0}, selections=2, foreground="work",
                    faults=[fault(ROOT, E_FAIL, 29, 5, window="work")])

    title = "Trip to Lisbon - ChatGPT"
    original = seen(0, title)

    def chatgpt(**facts):
        made = desk(work(chatgpt_tab(title), report_tab(), addressBar=None, **facts), quiet_home())
        activation = begin("ChatGPT", 2).warm_choice(REMEMBERED_INDEX, target)
        activation.warm_select(S_OK, live((title, "S"), (REPORT_TITLE, "IT")), INDEX_AND_TITLE, 1).warm_failed()
        activation.warm_restore(original, S_OK, live((title, "IT"), (REPORT_TITLE, "S")), INDEX_AND_TITLE, 0)
        return made, activation.warm_restored_verified(True, "", composer=1)

    windows, activation = chatgpt()
    activation.warm_ready("Chrome", recovered=True)
    yield warm_case("chatgpt-tab-that-was-in-front-is-proven-by-its-composer", windows, activation, memory(1),
                    selected={"work": 0, "home": 0}, selections=2, foreground="work")

    windows, activation = chatgpt(foregroundRequests="refused")
    activation.warm_foreground(foreground=REQUESTED, takes_ms=NEVER, recovered=True)
    found = seen(0, title, "selected anchoredTitle verifiedContent rawTitle", score=500)
    other = seen(1, REPORT_TITLE, "rememberedPosition", score=320)
    activation.discover([window("Chrome", found, other, proves_composer=True), QUIET_HOME], desktop=windows)
    activation.choose("Chrome", found).already_selected().settle().chatgpt_identity(passes=True, composer=True)
    activation.finish(foreground=NOT_CONFIRMED, takes_ms=NEVER)
    yield warm_case("chatgpt-restored-tab-whose-window-refuses-falls-on-to-the-discovery", windows, activation,
                    memory(1), selected={"work": 0, "home": 0}, selections=2, foreground="main",
                    calls={"SetForegroundWindow": 6})


def foregrounds():
    windows = gemini_desk(foregroundRequests="refused")
    activation = selected_notes(begin(), REMEMBERED_INDEX).warm_verified(True, GEMINI_URL)
    activation.warm_ready("Chrome", foreground=REQUESTED)
    yield warm_case("gemini-window-that-refuses-is-only-requested", windows, activation, memory(1), selected=BOTH,
                    selections=1, foreground="main", looks=False, calls={"SetForegroundWindow": 1})
    windows = gemini_desk(foregroundRequests=1)
    yield warm_case("gemini-window-that-refuses-once-comes-with-the-follow-up", windows, activation, memory(1),
                    selected=BOTH, selections=1, foreground="work", looks=False, behind=[wait(1000)],
                    calls={"SetForegroundWindow": 2})

    title = "Trip to Lisbon - ChatGPT"
    for refusals, comes in (("refused", False), (3, True)):
        windows = desk(work(mail_tab(), chatgpt_tab(title), foregroundRequests=refusals), quiet_home())
        activation = begin("ChatGPT", 2).warm_choice(REMEMBERED_INDEX, seen(1, title))
        activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (title, "IT")), INDEX_AND_TITLE, 1)
        activation.warm_verified(True, CHATGPT_URL).warm_foreground(foreground=REQUESTED, takes_ms=NEVER)
        marks = "selected domain rememberedPosition anchoredTitle verifiedContent rawTitle"
        found = seen(1, title, marks, url=CHATGPT_URL, score=1120)
        activation.discover([window("Chrome", seen(0, MAIL_TITLE), found, proves_composer=True), QUIET_HOME],
                            desktop=windows)
        activation.choose("Chrome", found).already_selected().settle().chatgpt_identity(passes=True, composer=True)
        if comes:
            activation.finish()
        else:
            activation.finish(foreground=NOT_CONFIRMED, takes_ms=NEVER)
        yield warm_case(f"chatgpt-window-that-{'comes-at-the-fourth' if comes else 'refuses-every'}-request-falls-on-"
                        "to-the-discovery", windows, activation, memory(1), selected=BOTH, selections=1,
                        foreground="work" if comes else "main", calls={"SetForegroundWindow": 4 if comes else 6})
    for refusals, takes_ms in ((1, sum(FORCE_PASS_MS[:2])), (2, NEVER)):
        windows = desk(work(mail_tab(), chatgpt_tab(title), foregroundRequests=refusals), quiet_home())
        activation = begin("ChatGPT", 2).warm_choice(REMEMBERED_INDEX, seen(1, title))
        activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (title, "IT")), INDEX_AND_TITLE, 1)
        activation.warm_verified(True, CHATGPT_URL).warm_ready("Chrome", takes_ms=takes_ms)
        yield warm_case(f"chatgpt-window-comes-at-request-{refusals + 1}", windows, activation, memory(1),
                        selected=BOTH, selections=1, foreground="work", calls={"SetForegroundWindow": refusals + 1})


def scenarios():
    for part in (loading, composers, unreadable, claude_pages, refused_selections, vanished, failed_restorations,
                 restored_targets, foregrounds):
        yield from part()
