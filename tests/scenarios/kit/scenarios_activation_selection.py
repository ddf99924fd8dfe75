"""Which live tab a candidate stands for, the attempts to select it, and what becomes of them."""
from .activation import Activation
from .activation_cases import (MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, case, desk, gemini_tab, mail_tab,
                               provider_arguments, quiet_home, report_tab, work)
from .activation_tabs import (E_NOINTERFACE, INDEX_AND_TITLE, INDEX_FALLBACK, INDEX_LOST, RPC_E_DISCONNECTED, S_OK,
                              UIA_E_ELEMENTNOTAVAILABLE, live, seen, window)
from .core import ALWAYS, E_FAIL, fault, on_select

SELECT = "IUIAutomationSelectionItemPattern::Select"
NOTES = "Notes - Google Gemini"
QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
WHOLE = live((MAIL_TITLE, "S"), (REPORT_TITLE,), (NOTES, "IT"))
TARGET = seen(2, NOTES, "anchoredTitle rawTitle", score=200)


def notes_windows(*rules, **target_facts):
    return desk(work(mail_tab(), report_tab(), gemini_tab(**target_facts), rules=rules), quiet_home())


def begin(windows, target=TARGET, others=(SEEN_MAIL, seen(1, REPORT_TITLE))):
    activation = Activation("Gemini")
    activation.discover([window("Chrome", *others, target), QUIET_HOME], desktop=windows)
    return activation.choose("Chrome", target)


def ends(file, windows, activation, selected, *, selections, faults=(), titles=None, remembered=None):
    """The run of a search for Gemini in the window "work", the other window untouched."""
    return case(file, windows, activation, provider_arguments("Gemini", **(remembered or {})),
                selected={"home": 0} if selected is None else {"work": selected, "home": 0}, selections=selections,
                faults=faults, titles=titles, foreground="work" if activation.succeeds else None)


def refused_attempts():
    """A refusal that may pass is tried three times in all, any other once."""
    windows = notes_windows()
    for hr, word in ((UIA_E_ELEMENTNOTAVAILABLE, "unavailable"), (RPC_E_DISCONNECTED, "disconnected")):
        for refusals, times in ((1, "once"), (2, "twice")):
            activation = begin(windows)
            for number in range(1, refusals + 1):
                activation.attempt(number, hr, WHOLE, INDEX_AND_TITLE, 2)
            activation.attempt(refusals + 1, S_OK, WHOLE, INDEX_AND_TITLE, 2).selection_passed().settle().finish()
            yield ends(f"gemini-tab-that-is-{word}-{times}-is-selected-at-a-later-attempt", windows, activation, 2,
                       selections=refusals + 1, faults=[fault(SELECT, hr, times=refusals, element=NOTES)])
        activation = begin(windows)
        for number in (1, 2, 3):
            activation.attempt(number, hr, WHOLE, INDEX_AND_TITLE, 2)
        activation.selection_failed(hr).finish_blocked()
        yield ends(f"gemini-tab-that-is-{word}-three-times-is-given-up", windows, activation, 0, selections=3,
                   faults=[fault(SELECT, hr, times=ALWAYS)])
    for hr, word in ((E_FAIL, "failure"), ("0x80070005", "denial"), ("0x80131509", "invalid-operation")):
        activation = begin(windows).attempt(1, hr, WHOLE, INDEX_AND_TITLE, 2).selection_failed(hr).finish_blocked()
        yield ends(f"gemini-selection-that-ends-in-{word}-is-not-tried-again", windows, activation, 0, selections=1,
                   faults=[fault(SELECT, hr)])
    activation = begin(windows).attempt(1, UIA_E_ELEMENTNOTAVAILABLE, WHOLE, INDEX_AND_TITLE, 2)
    activation.attempt(2, "0x80070005", WHOLE, INDEX_AND_TITLE, 2).selection_failed("0x80070005").finish_blocked()
    yield ends("gemini-second-attempt-that-is-denied-is-the-last", windows, activation, 0, selections=2,
               faults=[fault(SELECT, UIA_E_ELEMENTNOTAVAILABLE), fault(SELECT, "0x80070005", 2)])


def without_effect():
    """Success is believed only when the tab is found selected afterwards."""
    windows = notes_windows()
    for times, word in ((1, "once"), (3, "three-times")):
        activation = begin(windows)
        for number in range(1, times + 1):
            activation.attempt(number, UIA_E_ELEMENTNOTAVAILABLE, WHOLE, INDEX_AND_TITLE, 2, read_back=False)
        if times == 3:
            activation.selection_failed(UIA_E_ELEMENTNOTAVAILABLE).finish_blocked()
        else:
            activation.attempt(2, S_OK, WHOLE, INDEX_AND_TITLE, 2).selection_passed().settle().finish()
        yield ends(f"gemini-selection-without-effect-{word}", windows, activation, 0 if times == 3 else 2,
                   selections=3 if times == 3 else 2, faults=[fault(SELECT, "0x0", times=times)])

    jumps = on_select(NOTES, {"selectTab": MAIL_TITLE}, after=100, times=1)
    windows = notes_windows(jumps)
    activation = begin(windows).attempt(1, UIA_E_ELEMENTNOTAVAILABLE, WHOLE, INDEX_AND_TITLE, 2, read_back=False)
    activation.attempt(2, S_OK, WHOLE, INDEX_AND_TITLE, 2).selection_passed().settle().finish()
    yield ends("gemini-browser-that-jumps-back-before-the-reading-is-asked-again", windows, activation, 2,
               selections=2)

    late = on_select(NOTES, {"selectTab": MAIL_TITLE}, after=101)
    windows = notes_windows(late)
    activation = begin(windows).attempt(1, S_OK, WHOLE, INDEX_AND_TITLE, 2).selection_passed().settle().finish()
    yield ends("gemini-browser-that-jumps-back-after-the-reading-goes-unnoticed", windows, activation, 0, selections=1)

    windows = notes_windows()
    activation = begin(windows).attempt(1, UIA_E_ELEMENTNOTAVAILABLE, WHOLE, INDEX_AND_TITLE, 2, read_back=False)
    kept = live((MAIL_TITLE,), (REPORT_TITLE,), (NOTES, "SIT"))
    activation.attempt(2, S_OK, kept, INDEX_AND_TITLE, 2).selection_passed().settle().finish()
    # Of the tab: read in the inventory, in the list of the attempt, and behind the selection.
    yield ends("gemini-selection-that-cannot-be-read-back-is-made-again", windows, activation, 2, selections=2,
               faults=[fault("IUIAutomationSelectionItemPattern::get_CurrentIsSelected", E_FAIL, 3,
                             element=NOTES)])


def pattern_missing():
    windows = notes_windows(selection="none")
    activation = begin(windows).attempt(1, E_NOINTERFACE, WHOLE, INDEX_AND_TITLE, 2)
    activation.selection_failed(E_NOINTERFACE).finish_blocked()
    yield ends("gemini-tab-without-a-selection-pattern-cannot-be-selected", windows, activation, 0, selections=0)

    windows = notes_windows()
    activation = begin(windows).attempt(1, RPC_E_DISCONNECTED, WHOLE, INDEX_AND_TITLE, 2)
    activation.attempt(2, S_OK, WHOLE, INDEX_AND_TITLE, 2).selection_passed().settle().finish()
    yield ends("gemini-selection-pattern-that-is-refused-once-is-asked-for-again", windows, activation, 2,
               selections=1, faults=[fault("IUIAutomationElement::GetCurrentPatternAs", RPC_E_DISCONNECTED, 3,
                                           element=NOTES)])


def search_fails():
    """The window, the condition or the search fails in the attempt: it leaves no step of its own."""
    windows = notes_windows()
    root, search = "IUIAutomation::ElementFromHandle", "IUIAutomationElement::FindAll"
    condition = "IUIAutomation::CreatePropertyCondition"
    # Discovery takes one root and three searches of the window, and three conditions for each of two windows.
    for call, about, nth, word in ((root, {"window": "work"}, 2, "root"), (condition, {}, 7, "condition"),
                                   (search, {"window": "work"}, 4, "search")):
        for result, hr, how in (("0x80070005", "0x80070005", "fails"), (None, E_FAIL, "is-empty")):
            activation = begin(windows).attempt(1, hr).selection_failed(hr).finish_blocked()
            yield ends(f"gemini-selection-whose-{word}-{how}-ends-at-once", windows, activation, 0, selections=0,
                       faults=[fault(call, result, nth, **about)])
        activation = begin(windows).attempt(1, UIA_E_ELEMENTNOTAVAILABLE)
        activation.attempt(2, S_OK, WHOLE, INDEX_AND_TITLE, 2).selection_passed().settle().finish()
        yield ends(f"gemini-selection-whose-{word}-is-unavailable-once-is-tried-again", windows, activation, 2,
                   selections=1, faults=[fault(call, UIA_E_ELEMENTNOTAVAILABLE, nth, **about)])

    # Of a tab item: had once in the inventory, then in the attempt.
    windows = notes_windows()
    partial = (WHOLE[0], WHOLE[2])
    activation = begin(windows)
    activation.attempt(1, S_OK, partial, INDEX_AND_TITLE, 1, length=3).selection_passed().settle().finish()
    yield ends("gemini-tab-item-that-cannot-be-had-is-skipped-in-the-attempt", windows, activation, 2, selections=1,
               faults=[fault("IUIAutomationElementArray::GetElement", E_FAIL, 2, element=REPORT_TITLE)])
    activation = begin(windows)
    for number in (1, 2, 3):
        activation.attempt(number, UIA_E_ELEMENTNOTAVAILABLE, WHOLE[:2], INDEX_LOST, length=3)
    activation.selection_failed(UIA_E_ELEMENTNOTAVAILABLE).finish_blocked()
    yield ends("gemini-target-that-cannot-be-had-is-not-resolved", windows, activation, 0, selections=0,
               faults=[fault("IUIAutomationElementArray::GetElement", E_FAIL, 2, ALWAYS, element=NOTES)])


def unread_tab():
    """The tab at the index shows neither its title nor its id when it is selected: the reply has those of the
    inventory."""
    windows = notes_windows(automationId="view_5")
    target = seen(2, NOTES, "anchoredTitle rawTitle", id="view_5", score=200)
    activation = begin(windows, target)
    nameless = live((MAIL_TITLE, "S"), (REPORT_TITLE,), ("", "I"))
    activation.attempt(1, S_OK, nameless, INDEX_FALLBACK, 2).selection_passed().settle().finish()
    # Of the tab item: read in the inventory, and in the attempt.
    yield ends("gemini-tab-whose-title-and-id-cannot-be-read-any-more-keeps-those-that-were", windows, activation, 2,
               selections=1, faults=[fault(f"IUIAutomationElement::get_Current{fact}", E_FAIL, 2, element=NOTES)
                                     for fact in ("Name", "AutomationId")])


def scenarios():
    for part in (refused_attempts, without_effect, pattern_missing, search_fails, unread_tab):
        yield from part()
