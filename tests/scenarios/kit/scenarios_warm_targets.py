"""The remembered tab is found, proven and brought forward: each provider, each browser, each reason."""
from .activation import Activation
from .activation_cases import (GEMINI_URL, MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, case, chatgpt_tab, desk, gemini_tab,
                               mail_tab, provider_arguments, quiet_home, report_tab, work)
from .activation_routes import (AFTER_RESTORE_MS, FORCE_PASS_MS, REMEMBERED_INDEX, REMEMBERED_INDEX_AND_TITLE,
                                UNIQUE_REMEMBERED_TITLE, VERIFICATION_ATTEMPTS)
from .activation_tabs import INDEX_AND_TITLE, INDEX_FALLBACK, S_OK, UNIQUE_TITLE, live, seen, window
from .core import E_FAIL, browser, element, fault, on_read, tab
from .warm import (NOTES, NOTES_AT_1, PAGES, QUIET_HOME, STRIP, begin, gemini_desk, memory, selected_notes, warm_case)


def providers():
    """The six whose address names them."""
    for name in ("ChatGPT", "Claude", "Gemini", "Perplexity", "DeepSeek", "Grok"):
        title, address = PAGES[name]["title"], PAGES[name]["address"]
        windows = desk(work(mail_tab(), PAGES[name] | {"automationId": "view_7"}, report_tab()), quiet_home())
        target = seen(1, title, id="view_7")
        activation = begin(name).warm_choice(REMEMBERED_INDEX_AND_TITLE, target)
        activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (title, "ITA", "view_7"), (REPORT_TITLE,)),
                               INDEX_AND_TITLE, 1)
        activation.warm_verified(True, address).warm_ready("Chrome")
        yield warm_case(f"{name.lower()}-remembered-tab-is-selected-proven-and-brought-forward", windows, activation,
                        memory(1, title), selected={"work": 1, "home": 0}, selections=1, foreground="work",
                        calls={"EnumWindows": 1 if name == "ChatGPT" else 0})

        if name == "ChatGPT":
            continue  # in front it is the page that is selected already
        windows = desk(work(mail_tab(), PAGES[name] | {"automationId": "view_7"}, selected=1), quiet_home())
        activation = begin(name, 2).warm_choice(REMEMBERED_INDEX_AND_TITLE, target).warm_already_selected()
        activation.warm_verified(True, address).warm_ready("Chrome")
        yield warm_case(f"{name.lower()}-remembered-tab-that-is-selected-stays-so", windows, activation,
                        memory(1, title), selected={"work": 1, "home": 0}, selections=0, foreground="work",
                        calls={"EnumWindows": 0})


def automation_ids():
    """The remembered id says nothing here. What the reply gives is the id that the tab shows, or did at first."""
    windows = gemini_desk(mail_tab(), gemini_tab(automationId="view_5"), report_tab())
    target = seen(1, NOTES, id="view_5")
    activation = begin().warm_choice(REMEMBERED_INDEX_AND_TITLE, target)
    activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (NOTES, "ITA", "view_5"), (REPORT_TITLE,)), INDEX_AND_TITLE,
                           1)
    activation.warm_verified(True, GEMINI_URL).warm_ready("Chrome")
    yield warm_case("gemini-remembered-id-of-another-tab-changes-nothing", windows, activation,
                    memory(1, NOTES, rememberedAutomationId="view_9"), selected={"work": 1, "home": 0}, selections=1,
                    foreground="work")

    # Of the tab item: read by the inspection, and by the selection.
    activation = begin().warm_choice(REMEMBERED_INDEX_AND_TITLE, target)
    activation.warm_select(S_OK, live((MAIL_TITLE, "S"), ("", "I"), (REPORT_TITLE,)), INDEX_FALLBACK, 1)
    activation.warm_verified(True, GEMINI_URL).warm_ready("Chrome")
    yield warm_case("gemini-tab-whose-title-and-id-cannot-be-read-any-more-keeps-those-that-were", windows, activation,
                    memory(1, NOTES), selected={"work": 1, "home": 0}, selections=1, foreground="work",
                    faults=[fault(f"IUIAutomationElement::get_Current{fact}", E_FAIL, 2, element=NOTES)
                            for fact in ("Name", "AutomationId")])


def unknown_to_addresses():
    """Two providers whose addresses prove nothing: the tab is selected, left again, and found by the discovery."""
    for name in ("Qwen", "Doubao"):
        title, address = PAGES[name]["title"], PAGES[name]["address"]
        windows = desk(work(mail_tab(), PAGES[name]), quiet_home())
        target = seen(1, title, "remembered rawTitle", score=320)
        there, back = live((MAIL_TITLE, "S"), (title, "IT")), live((MAIL_TITLE, "IT"), (title, "S"))
        activation = begin(name, 2).warm_choice(REMEMBERED_INDEX_AND_TITLE, target)
        activation.warm_select(S_OK, there, INDEX_AND_TITLE, 1).warm_failed(address)
        activation.warm_restore(SEEN_MAIL, S_OK, back, INDEX_AND_TITLE, 0).warm_restored_verified(False, "")
        activation.warm_fallback()
        activation.discover([window("Chrome", SEEN_MAIL, target), QUIET_HOME], desktop=windows,
                            remembered=[{"step": "Remembered title", "result": title}])
        activation.choose("Chrome", target).select(there, INDEX_AND_TITLE, 1).settle().finish()
        yield warm_case(f"{name.lower()}-remembered-tab-is-left-again-and-found-by-the-discovery", windows, activation,
                        memory(1, title), selected={"work": 1, "home": 0}, selections=3, foreground="work")


def browsers():
    kinds = (("msedge.exe", "Edge"), ("brave.exe", "Brave"), ("firefox.exe", "Firefox"), ("vivaldi.exe", "Vivaldi"))
    for process, shown in kinds:
        windows = desk(work(report_tab()), browser("chat", process, [mail_tab(), gemini_tab()]), quiet_home())
        activation = begin(tabs=2, browser=shown)
        activation.warm_choice(REMEMBERED_INDEX_AND_TITLE, NOTES_AT_1)
        activation.warm_select(S_OK, STRIP[:2], INDEX_AND_TITLE, 1).warm_verified(True, GEMINI_URL).warm_ready(shown)
        yield warm_case(f"gemini-in-{shown.lower()}-whose-name-counts-without-case", windows, activation,
                        memory(1, NOTES, browser=shown.swapcase(), window_id="chat"),
                        selected={"work": 0, "chat": 1, "home": 0}, selections=1, foreground="chat")

    other = browser("spare", "chrome.exe", [mail_tab(), gemini_tab(), report_tab()], bounds=(80, 60, 1480, 960))
    windows = desk(work(mail_tab(), report_tab()), other, quiet_home())
    activation = selected_notes(begin(), REMEMBERED_INDEX_AND_TITLE).warm_verified(True, GEMINI_URL)
    activation.warm_ready("Chrome")
    yield warm_case("gemini-another-window-of-the-same-browser-is-judged-by-its-tabs", windows, activation,
                    memory(1, NOTES, window_id="spare"), selected={"work": 0, "spare": 1, "home": 0}, selections=1,
                    foreground="spare")


def reasons():
    def run(file, reason, place, live_tabs, index, title, *strip, choice=INDEX_AND_TITLE, name="Gemini",
            address=GEMINI_URL):
        windows = gemini_desk(*strip)
        target = seen(place, live_tabs[place].title)
        activation = begin(name, len(strip)).warm_choice(reason, target)
        activation.warm_select(S_OK, live_tabs, choice, place).warm_verified(True, address).warm_ready("Chrome")
        return warm_case(f"gemini-{file}", windows, activation, memory(index, title), name=name,
                         selected={"work": place, "home": 0}, selections=1, foreground="work")

    moved = (mail_tab(), report_tab(), gemini_tab())
    moved_live = live((MAIL_TITLE, "S"), (REPORT_TITLE,), (NOTES, "IT"))
    unique = UNIQUE_REMEMBERED_TITLE
    yield run("title-that-another-single-tab-has-leaves-the-tab-at-the-index-untouched", unique, 2, moved_live, 1,
              NOTES, *moved)
    yield run("title-that-a-single-tab-has-needs-no-tab-at-the-index", unique, 2, moved_live, 7, NOTES, *moved)
    yield run("index-that-is-too-large-for-a-number-still-leaves-the-title", unique, 2, moved_live,
              "99999999999999999999", NOTES, *moved)

    strip = (mail_tab(), gemini_tab(), report_tab())
    pending = REMEMBERED_INDEX
    yield run("title-that-no-tab-has-any-more-leaves-the-index-to-be-proven", pending, 1, STRIP, 1, "Shopping list",
              *strip)
    yield run("empty-title-leaves-the-index-to-be-proven", pending, 1, STRIP, 1, "", *strip)
    yield run("index-reads-the-digits-in-front-of-other-signs", pending, 1, STRIP, " 1st", "", *strip)
    yield run("title-of-seven-signs-is-no-part-of-another", pending, 1, STRIP, 1, "Notes -", *strip)
    yield run("title-of-eight-signs-is-part-of-another", REMEMBERED_INDEX_AND_TITLE, 1, STRIP, 1, "NOTES - g", *strip)
    yield run("title-of-a-tab-asleep-fits-it-awake", REMEMBERED_INDEX_AND_TITLE, 1, STRIP, 1,
              f"{NOTES} - Memory saver - 212 MB", *strip)
    yield run("provider-name-in-capitals-is-the-same", REMEMBERED_INDEX_AND_TITLE, 1, STRIP, 1, NOTES, *strip,
              name="GEMINI")

    # Of twins the index tells; without a tab of the title at the index they are no help.
    twins = (mail_tab(), gemini_tab(), gemini_tab())
    yield run("index-tells-two-tabs-of-one-title-apart", REMEMBERED_INDEX_AND_TITLE, 2,
              live((MAIL_TITLE, "S"), (NOTES, "T"), (NOTES, "IT")), 2, NOTES, *twins)
    plan = gemini_tab("Plan for the week")
    yield run("two-tabs-of-the-title-leave-the-index-to-be-proven", pending, 3,
              live((MAIL_TITLE, "S"), (NOTES,), (NOTES,), ("Plan for the week", "IT")), 3, NOTES, *twins, plan)


def holes():
    """A tab without a name is no tab to be remembered, though it keeps its place."""
    windows = gemini_desk(mail_tab(), tab(""), gemini_tab())
    target = seen(2, NOTES)
    activation = begin(tabs=2).warm_choice(REMEMBERED_INDEX_AND_TITLE, target)
    activation.warm_select(S_OK, live((MAIL_TITLE, "S"), ("",), (NOTES, "IT")), INDEX_AND_TITLE, 2)
    activation.warm_verified(True, GEMINI_URL).warm_ready("Chrome")
    yield warm_case("gemini-tab-without-a-name-leaves-a-hole-in-the-indexes", windows, activation, memory(2, NOTES),
                    selected={"work": 2, "home": 0}, selections=1, foreground="work")

    for result, word in ((E_FAIL, "cannot-be-had"), (None, "is-empty")):
        windows = gemini_desk()
        activation = selected_notes(begin(tabs=2), REMEMBERED_INDEX_AND_TITLE).warm_verified(True, GEMINI_URL)
        activation.warm_ready("Chrome")
        yield warm_case(f"gemini-tab-item-that-{word}-is-skipped-silently", windows, activation, memory(1, NOTES),
                        selected={"work": 1, "home": 0}, selections=1, foreground="work",
                        faults=[fault("IUIAutomationElementArray::GetElement", result, element=REPORT_TITLE)])


def first_tab():
    windows = gemini_desk(gemini_tab(), mail_tab(), selected=0)
    target = seen(0, NOTES)
    activation = begin(tabs=2).warm_choice(REMEMBERED_INDEX_AND_TITLE, target).warm_already_selected()
    activation.warm_verified(True, GEMINI_URL).warm_ready("Chrome")
    yield warm_case("gemini-index-zero-is-a-valid-index", windows, activation, memory(0, NOTES),
                    selected={"work": 0, "home": 0}, selections=0, foreground="work")

    windows = gemini_desk(mail_tab(), report_tab())
    activation = Activation("").warm_inspected("Chrome", 2)
    activation.warm_choice(REMEMBERED_INDEX_AND_TITLE, seen(0, MAIL_TITLE)).warm_already_selected()
    activation.warm_verified(True, "").warm_ready("Chrome")
    yield case("empty-name-passes-a-page-of-no-known-provider", windows, activation,
               provider_arguments("", **memory(0, MAIL_TITLE)), selected={"work": 0, "home": 0}, selections=0,
               foreground="work", looks=False, folder="warm")

    windows = gemini_desk(mail_tab(), gemini_tab(), selected=1)
    activation = Activation("").warm_inspected("Chrome", 2)
    activation.warm_choice(REMEMBERED_INDEX, seen(1, NOTES)).warm_already_selected()
    activation.warm_verified(False, GEMINI_URL, attempts=VERIFICATION_ATTEMPTS).warm_fallback()
    tabs = window("Chrome", seen(0, MAIL_TITLE), seen(1, NOTES, "selected", url=GEMINI_URL,
                                                      decision="REJECT_OTHER_PROVIDER"))
    activation.discover(*[[tabs, QUIET_HOME]] * 3, desktop=windows).no_session()
    yield case("empty-name-turns-down-a-page-of-a-known-provider", windows, activation,
               provider_arguments("", **memory(1)), selected={"work": 1, "home": 0}, selections=0,
               folder="warm")


def shown_states():
    back = {"work": {"minimized": False, "visible": True}}
    windows = gemini_desk(minimized=True)
    activation = selected_notes(begin(), REMEMBERED_INDEX_AND_TITLE).warm_verified(True, GEMINI_URL)
    activation.warm_ready("Chrome")
    yield warm_case("gemini-minimised-window-is-restored", windows, activation, memory(1, NOTES),
                    selected={"work": 1, "home": 0}, selections=1, foreground="work", windows_at_end=back)

    for word, facts, takes_ms in (("minimised", {"minimized": True}, AFTER_RESTORE_MS + FORCE_PASS_MS[0]),
                                  ("hidden", {"visible": False}, FORCE_PASS_MS[0])):
        title = "Trip to Lisbon - ChatGPT"
        windows = desk(work(mail_tab(), chatgpt_tab(title), **facts), quiet_home())
        activation = begin("ChatGPT", 2).warm_choice(REMEMBERED_INDEX_AND_TITLE, seen(1, title))
        activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (title, "IT")), INDEX_AND_TITLE, 1)
        activation.warm_verified(True, PAGES["ChatGPT"]["address"]).warm_ready("Chrome", takes_ms=takes_ms)
        yield warm_case(f"chatgpt-{word}-window-is-shown", windows, activation, memory(1, title),
                        selected={"work": 1, "home": 0}, selections=1, foreground="work", windows_at_end=back)


def given_back():
    """What the reply of a full discovery says leads the next call to the tab at once, wherever it has moved."""
    windows = gemini_desk()
    first = Activation("Gemini")
    first.discover([window("Chrome", SEEN_MAIL, NOTES_AT_1, seen(2, REPORT_TITLE)), QUIET_HOME], desktop=windows)
    first.choose("Chrome", NOTES_AT_1).select(STRIP, INDEX_AND_TITLE, 1).settle().finish()
    again = {f"remembered{key}": {form: f"activation.{entry}"}
             for key, form, entry in (("Title", "$from", "selectedTitle"), ("Browser", "$from", "browser"),
                                      ("AutomationId", "$from", "selectedAutomationId"),
                                      ("WindowHandle", "$fromText", "windowHandle"),
                                      ("TabIndex", "$fromText", "selectedTabIndex"))}
    second = Activation("Gemini", start_ms=first.end_ms, search_id=2).warm_inspected("Chrome", 3)
    second.warm_choice(REMEMBERED_INDEX_AND_TITLE, NOTES_AT_1).warm_already_selected()
    second.warm_verified(True, GEMINI_URL).warm_ready("Chrome")
    yield warm_case("gemini-reply-given-back-leads-to-the-tab-without-a-search", windows, first, {},
                    selected={"work": 1, "home": 0}, selections=1, foreground="work", looks=False,
                    then=[(second, provider_arguments("Gemini", **again))], calls={"EnumWindows": 1})


def moved_meanwhile():
    """A tab in front of it closes behind the inspection: the live tabs decide. The page in front shows a tab item of
    its own, which is read as the last one."""
    preview = element("tabItem", "preview", "Preview", (300, 200, 500, 240))
    mail = tab(MAIL_TITLE, "mail.northwind.example/inbox", [preview])
    windows = gemini_desk(mail, report_tab(), gemini_tab(),
                          rules=[on_read("preview", {"closeTab": REPORT_TITLE}, times=1)])
    target = seen(2, NOTES)
    activation = begin(tabs=4).warm_choice(REMEMBERED_INDEX_AND_TITLE, target)
    activation.warm_select(S_OK, live((MAIL_TITLE, "S"), (NOTES, "T"), ("Preview", "I")), UNIQUE_TITLE, 1)
    activation.warm_verified(True, GEMINI_URL).warm_ready("Chrome")
    yield warm_case("gemini-tab-that-moves-behind-the-inspection-is-found-by-its-title", windows, activation,
                    memory(2, NOTES), selected={"work": 1, "home": 0}, selections=1, foreground="work",
                    titles={"work": [MAIL_TITLE, NOTES]})


def scenarios():
    for part in (providers, automation_ids, unknown_to_addresses, browsers, reasons, holes, first_tab, shown_states, given_back,
                 moved_meanwhile):
        yield from part()
