"""What the routes of an activation demand."""
from formula import calls, size
from reading import (NOBODY, NOTHING, SELECTION, STRANGER, address, answered, bring_forward, condition,
                     element, facts, fields_condition, follow_up, force, force_at_once, heard, image, is_selected,
                     pattern, root, search, session, sleeps, text_facts, time_begins, time_read, utf8, wide,
                     window_title)

TABS, WINDOWS, OTHERS = size("t"), size("w"), size("o")
ATTEMPTS, FIELDS, PASSES, PROVIDERS, TRIES = size("k"), size("e"), size("p"), size("c"), size("n")


# ---- what is read of one window

def composer_search():
    """What may be a composer, and where the window lies."""
    return fields_condition() + search() + facts("BoundingRectangle")


def field_out_of_place():
    """On screen and focusable, and not where a composer lies."""
    return element() + facts("IsOffscreen", "IsKeyboardFocusable", "BoundingRectangle")


def document_field():
    """The page's document can't be focused."""
    return element() + facts("IsOffscreen", "IsKeyboardFocusable")


def composer_field():
    return field_out_of_place() + text_facts("Name", "AutomationId")


def composer_missing(fields):
    """Address bar, document and `fields` more."""
    return composer_search() + (fields + 1) * field_out_of_place() + document_field()


def composer_proven():
    """Behind address bar and document the composer comes first."""
    return composer_search() + field_out_of_place() + document_field() + composer_field()


def tab_read(is_traced):
    """Class and framework are read in every pass; offscreen and bounds only where the trace shows them."""
    read = element() + text_facts("Name", "AutomationId", "ClassName", "FrameworkId") + is_selected()
    return read + facts("IsOffscreen", "BoundingRectangle") + utf8(4) if is_traced else read


def browser_window(is_traced, composer=NOTHING):
    recognized = calls("IsWindow", "GetAncestor") + image() + window_title()
    shown = calls("IsWindowVisible", "IsIconic", "GetForegroundWindow") + utf8(3) if is_traced else NOTHING
    tab_controls = condition() + search()
    tab_items = condition() + search() + (utf8(1) if is_traced else NOTHING)
    return (recognized + shown + root() + address() + composer + tab_controls + tab_items + TABS * tab_read(is_traced))


def other_window():
    return calls("IsWindow", "GetAncestor") + image()


# The host's own window is one of the others.
OTHER_WINDOWS = (OTHERS + 1) * other_window()


def discovery_pass(composer=NOTHING):
    """Title and id of each tab, and the address of each selected one, stand in the decisions too."""
    decisions = WINDOWS * (2 * TABS + 1) * utf8()
    return (time_begins() + wide() + calls("EnumWindows") + WINDOWS * browser_window(True, composer) + OTHER_WINDOWS +
            decisions + time_read())


# ---- choosing, selecting and proving

def tab_asked_to_be_selected():
    """Every tab of the window is looked at anew, then one is selected."""
    enumerated = calls("IsWindow") + root() + condition() + search() + utf8(2)
    each = element() + text_facts("Name", "AutomationId") + is_selected() + utf8(2)
    return enumerated + TABS * each + utf8(2) + pattern(SELECTION + "Select")


def select_tab():
    """The tab is invoked and asked to act by default too, which tabs don't offer, and is looked at again."""
    return tab_asked_to_be_selected() + 2 * pattern() + sleeps() + is_selected()


def look_at_address():
    return root() + address()


def beginning(remembered=NOTHING, name_and_domain=2):
    return time_begins() + wide(name_and_domain) + remembered + calls("CoInitializeEx") + session()


def ending(reply_texts=3):
    """Browser, title and, of a target found on explicit grounds, id."""
    return time_read() + utf8(reply_texts) + calls("CoUninitialize") + answered()


def warm_skipped():
    return time_begins()


def cold(provider_proof, selection=NOTHING, foreground=bring_forward(STRANGER), before=NOTHING, composer=NOTHING,
         chosen_texts=1, reply_texts=3):
    """`chosen_texts`: the target's title, and its address where it is selected already."""
    settled = sleeps() + look_at_address() + provider_proof
    return (beginning() + before + warm_skipped() + discovery_pass(composer) + utf8(chosen_texts) + selection +
            settled + sleeps() + foreground + ending(reply_texts) + follow_up())


def selected_anew():
    """The selection, and what was resolved."""
    return select_tab() + utf8(2)


def selected_at_last():
    """At the n-th attempt."""
    return (TRIES - 1) * (tab_asked_to_be_selected() + utf8(2) + sleeps()) + selected_anew()


def destination_pass(composer):
    return (calls("EnumWindows") + WINDOWS * browser_window(False, composer) + OTHER_WINDOWS +
            calls("GetForegroundWindow"))


CLAUDE_PROOF = look_at_address()
CHATGPT_PROOF = sleeps() + look_at_address() + window_title() + composer_proven()
NO_COMPOSER = composer_missing(FIELDS)


def warm_tab_chosen():
    """In the remembered window alone."""
    known = calls("IsWindow") + image()
    inspected = calls("IsWindow") + image() + root() + condition() + search() + utf8()
    each = element() + text_facts("Name", "AutomationId") + is_selected()
    return time_begins() + known + inspected + TABS * each + utf8()


def warm_proof(attempts):
    """Provider and address stand in the verdict."""
    return attempts * (look_at_address() + sleeps()) - sleeps() + utf8(2)


def warm(selection, foreground, attempts=1):
    return warm_tab_chosen() + selection + warm_proof(attempts) + foreground + time_read()


def warm_in_vain():
    """Neither the remembered tab nor the one before it proves the provider."""
    return warm_tab_chosen() + 2 * (select_tab() + warm_proof(25)) + time_read()


REMEMBERED = wide(3)


def found_warm(selection, foreground, attempts=1, before=NOTHING):
    return (beginning(REMEMBERED) + before + warm(selection, foreground, attempts) + ending() + follow_up())


def nothing_found(before=NOTHING, composer=NOTHING, assist=NOTHING):
    """Three passes, and a reply without a target."""
    return (beginning() + before + warm_skipped() + 3 * discovery_pass(composer) + 2 * sleeps() + assist +
            time_read() + calls("CoUninitialize") + answered())


# ---- Chrome's own tab search

def assist_found():
    """All windows are Chrome's: each tab of the inventory is asked for. The box is the only field in focus."""
    chosen = WINDOWS * TABS * calls("IsWindow", "IsWindowVisible") + calls("GetForegroundWindow")
    brought = bring_forward(STRANGER) + calls("GetForegroundWindow") + sleeps()
    keys = calls(SendInput=6) + sleeps()
    field = calls("GetForegroundWindow", "IUIAutomation::GetFocusedElement") + facts("ControlType") + text_facts("Name")
    filled = (pattern("IUIAutomationValuePattern::SetValue") + calls("SysAllocString", "SysFreeString") + utf8() +
              sleeps())
    confirmed = (calls("GetForegroundWindow", "IUIAutomation::GetFocusedElement", "IUIAutomation::CompareElements") +
                 calls(SendInput=2) + sleeps())
    landed = calls("GetForegroundWindow") + image() + look_at_address()
    name = (calls("IsWindow") + root() + condition() + search() + TABS * (element() + is_selected()) +
            text_facts("Name"))
    return chosen + brought + keys + field + filled + confirmed + landed + name + utf8(2)


def found_by_assist(composer):
    """Browser and title stand in the reply; the id is empty."""
    return (beginning() + destination_pass(composer) + warm_skipped() + 3 * discovery_pass(composer) + 2 * sleeps() +
            assist_found() + time_read() + utf8(2) + calls("CoUninitialize") + answered() + follow_up())


def destination(foreground):
    """`c` windows show ChatGPT; each is looked at, one is brought forward."""
    shown = PROVIDERS * calls("IsWindow", "IsWindowVisible")
    return (beginning() + destination_pass(NO_COMPOSER) + shown + utf8() + foreground + ending() + follow_up())


def cold_chatgpt(foreground):
    """An id is given for a target found on explicit grounds, which a title isn't."""
    return cold(CHATGPT_PROOF, selected_anew(), foreground, destination_pass(NO_COMPOSER), NO_COMPOSER, reply_texts=2)


def cold_behind_warm():
    """What was remembered stands in the trace of the pass."""
    settled = sleeps() + look_at_address()
    return (beginning(REMEMBERED) + warm_in_vain() + discovery_pass() + utf8(2) + utf8(1) + selected_anew() + settled +
            sleeps() + bring_forward(STRANGER) + ending() + follow_up())


def cold_restored():
    """A company's page: the tab from before is selected again, and no window brought forward."""
    settled = sleeps() + look_at_address()
    return (beginning() + warm_skipped() + discovery_pass() + utf8(1) + selected_anew() + settled + select_tab() +
            sleeps() + ending())


COLD_SELECTED = cold(NOTHING, chosen_texts=2)
COLD = cold(NOTHING, selected_anew())
COLD_FROM_AFAR = COLD + heard()
COLD_FROM_NOBODY = cold(NOTHING, selected_anew(), bring_forward(NOBODY)) + heard()
COLD_AT_LAST = cold(NOTHING, selected_at_last())
COLD_BEHIND_WARM = cold_behind_warm()
COLD_RESTORED = cold_restored()
COLD_CLAUDE = cold(CLAUDE_PROOF, selected_anew())
COLD_CHATGPT = cold_chatgpt(force_at_once())
COLD_CHATGPT_FORCED = cold_chatgpt(force(STRANGER, PASSES)) + heard()
WARM_SELECTED = found_warm(NOTHING, bring_forward(STRANGER))
WARM = found_warm(select_tab(), bring_forward(STRANGER), ATTEMPTS)
WARM_CHATGPT = found_warm(select_tab(), force_at_once(), before=destination_pass(NO_COMPOSER))
DESTINATION = destination(force_at_once())
NOTHING_FOUND = nothing_found()
NOTHING_FOUND_CHATGPT = nothing_found(destination_pass(NO_COMPOSER), NO_COMPOSER, calls("GetForegroundWindow"))
ASSISTED = found_by_assist(NO_COMPOSER)
