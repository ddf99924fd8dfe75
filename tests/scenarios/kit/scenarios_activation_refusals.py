"""Platform calls that fail while discovery reads: a window or a tab is passed over, and the search goes on."""
from .activation import Activation
from .activation_cases import (CHATGPT_URL, MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, case, chatgpt_tab,
                               desk, gemini_tab, mail_tab, provider_arguments, quiet_home, report_tab,
                               work)
from .activation_tabs import S_OK, live, seen, window
from .core import ALWAYS, E_FAIL, fault
from .scenarios_activation_discovery import NOTES, NOTES_AT_1, finds_notes, finds_nothing

QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
BOTH_IN_FRONT = {"work": 0, "home": 0}


def notes_desk():
    return desk(work(mail_tab(), gemini_tab()), quiet_home())


def found_once_readable(file, unreadable, *faults):
    """The first pass can't read the window, the second can."""
    return finds_notes(file, notes_desk(), [unreadable, QUIET_HOME],
                       [window("Chrome", SEEN_MAIL, NOTES_AT_1), QUIET_HOME], selected={"work": 1, "home": 0},
                       faults=faults)


def windows():
    root, search = "IUIAutomation::ElementFromHandle", "IUIAutomationElement::FindAll"
    deaf = window("Chrome", has_root=False, root_hr=E_FAIL)

    def tabless(**failure):
        return window("Chrome", SEEN_MAIL, NOTES_AT_1, has_tab_items=False, **failure)

    yield found_once_readable("gemini-window-that-gives-no-root-once-is-read-in-the-next-pass", deaf,
                              fault(root, E_FAIL, window="work"))
    yield found_once_readable("gemini-window-that-gives-an-empty-root-is-read-in-the-next-pass",
                              window("Chrome", has_root=False, root_hr=S_OK),
                              fault(root, None, window="work"))
    yield found_once_readable("gemini-window-that-gives-no-tab-items-is-read-in-the-next-pass",
                              tabless(search_hr="0x80131505"),
                              fault(search, "0x80131505", 3, window="work"))
    yield found_once_readable("gemini-window-that-gives-no-list-of-tab-items-is-read-in-the-next-pass",
                              tabless(search_hr=S_OK),
                              fault(search, None, 3, window="work"))
    # Three conditions for each window: edit controls, tab controls, tab items.
    yield found_once_readable("gemini-condition-for-tab-items-that-fails-passes-the-window-over",
                              tabless(condition_hr="0x8007000E"),
                              fault("IUIAutomation::CreatePropertyCondition", "0x8007000E", 3))
    yield found_once_readable("gemini-length-of-the-tab-items-that-fails-is-none",
                              window("Chrome", title=f"{MAIL_TITLE} - Google Chrome"),
                              fault("IUIAutomationElementArray::get_Length", E_FAIL, 3))
    yield finds_nothing("gemini-window-that-never-gives-its-tab-items-is-passed-over", "Gemini", notes_desk(),
                        [tabless(), QUIET_HOME],
                        *[[tabless(tab_controls=0), QUIET_HOME]] * 2, selected=BOTH_IN_FRONT,
                        faults=[fault(search, E_FAIL, 3, ALWAYS, window="work")])


def processes():
    # The windows come in z-order: the host's own, the browser, the editor, the other browser.
    unknown = [QUIET_HOME]
    known = [window("Chrome", SEEN_MAIL, NOTES_AT_1), QUIET_HOME]
    for call, word in (("OpenProcess", "be-opened"), ("QueryFullProcessImageNameW", "be-named")):
        yield finds_notes(f"gemini-browser-whose-process-cannot-{word}-is-no-browser-for-now", notes_desk(), unknown,
                          known, selected={"work": 1, "home": 0}, faults=[fault(call, 0, 2)])
    yield finds_notes("gemini-walk-over-the-windows-that-fails-is-an-empty-pass", notes_desk(), [], known,
                      selected={"work": 1, "home": 0}, faults=[fault("EnumWindows", 0)])


def tab_items():
    item = "IUIAutomationElementArray::GetElement"
    desktop = desk(work(mail_tab(), report_tab(), gemini_tab()), quiet_home())
    target = seen(2, NOTES, "anchoredTitle rawTitle", score=200)
    whole = live((MAIL_TITLE, "S"), (REPORT_TITLE,), (NOTES, "IT"))
    yield finds_notes("gemini-tab-item-that-cannot-be-had-leaves-a-hole-in-the-indexes", desktop,
                      [window("Chrome", SEEN_MAIL, target, nameless_tabs=1, lost_tabs={1: E_FAIL}), QUIET_HOME],
                      target=target, live_tabs=whole, selected={"work": 2, "home": 0},
                      faults=[fault(item, E_FAIL, element=REPORT_TITLE)])
    yield finds_notes("gemini-tab-item-that-is-empty-leaves-a-hole-in-the-indexes", desktop,
                      [window("Chrome", SEEN_MAIL, target, nameless_tabs=1, lost_tabs={1: S_OK}), QUIET_HOME],
                      target=target, live_tabs=whole, selected={"work": 2, "home": 0},
                      faults=[fault(item, None, element=REPORT_TITLE)])
    yield finds_notes("gemini-tab-whose-name-cannot-be-read-leaves-a-hole-in-the-indexes", desktop,
                      [window("Chrome", SEEN_MAIL, target, nameless_tabs=1), QUIET_HOME], target=target,
                      live_tabs=whole, selected={"work": 2, "home": 0},
                      faults=[fault("IUIAutomationElement::get_CurrentName", E_FAIL, element=REPORT_TITLE)])
    ids = desk(work(mail_tab(), gemini_tab(automationId="tab-7")), quiet_home())
    yield finds_notes("gemini-tab-whose-id-cannot-be-read-has-none", ids,
                      [window("Chrome", SEEN_MAIL, NOTES_AT_1), QUIET_HOME],
                      live_tabs=live((MAIL_TITLE, "S"), (NOTES, "IT", "tab-7")), selected={"work": 1, "home": 0},
                      faults=[fault("IUIAutomationElement::get_CurrentAutomationId", E_FAIL, element=NOTES)])


def selection_states():
    """Where the pattern can't tell, the window's title still does."""
    desktop = desk(work(mail_tab(), gemini_tab(), selected=1))
    target = seen(1, NOTES, "selected domain anchoredTitle rawTitle", url="https://gemini.google.com/app/5c", score=520)
    for call, word in (("IUIAutomationElement::GetCurrentPatternAs", "pattern"),
                       ("IUIAutomationSelectionItemPattern::get_CurrentIsSelected", "state")):
        activation = Activation("Gemini")
        activation.discover([window("Chrome", seen(0, MAIL_TITLE), target, pattern_selected=-1)], desktop=desktop)
        activation.choose("Chrome", target).already_selected().settle().finish()
        yield case(f"gemini-selection-{word}-that-cannot-be-read-leaves-the-windows-title-to-tell", desktop, activation,
                   provider_arguments("Gemini"), selected={"work": 1}, selections=0, foreground="work",
                   faults=[fault(call, E_FAIL, element=NOTES)])


def page_reads():
    """Without the address the composer still proves the page; without both nothing does."""
    # Hidden, so that it doesn't count as selected already; all is read once before for such pages.
    desktop = desk(work(mail_tab(), chatgpt_tab("Lisbon"), selected=1, visible=False))
    search = "IUIAutomationElement::FindAll"
    target = seen(1, "Lisbon", "selected verifiedContent", score=300)
    activation = Activation("ChatGPT")
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target, proves_composer=True)],
                        desktop=desktop)
    activation.choose("Chrome", target).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    for call, word, nth in ((search, "search", 5), ("IUIAutomation::CreatePropertyCondition", "condition", 6)):
        yield case(f"chatgpt-address-{word}-that-fails-leaves-the-composer-to-prove-the-page", desktop, activation,
                   provider_arguments("ChatGPT"), selected={"work": 1}, selections=0, foreground="work",
                   faults=[fault(call, E_FAIL, nth)])

    target = seen(1, "Lisbon", "selected domain", url=CHATGPT_URL, score=320)
    # A property condition for the address, two for the composer and one that joins them.
    refusals = [(search, "search", 6, E_FAIL), (search, "list", 6, None),
                ("IUIAutomation::CreatePropertyCondition", "edit-condition", 7, E_FAIL),
                ("IUIAutomation::CreatePropertyCondition", "document-condition", 8, None),
                ("IUIAutomation::CreateOrCondition", "joined-condition", 2, E_FAIL)]
    activation = Activation("ChatGPT")
    activation.discover([window("Chrome", seen(0, MAIL_TITLE), target)], desktop=desktop)
    activation.choose("Chrome", target).already_selected().settle()
    activation.chatgpt_identity(passes=True, composer=True).finish()
    for call, word, nth, result in refusals:
        yield case(f"chatgpt-composer-{word}-that-fails-leaves-the-address-to-prove-the-page", desktop, activation,
                   provider_arguments("ChatGPT"), selected={"work": 1}, selections=0, foreground="work",
                   faults=[fault(call, result, nth)])


def scenarios():
    for part in (windows, processes, tab_items, selection_states, page_reads):
        yield from part()
