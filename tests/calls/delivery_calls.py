"""What a delivery demands, and the reads of a page that stand by themselves."""
from formula import calls, size
from reading import (NOTHING, answered, condition, element, exact_host, facts, fields_condition, pattern, root,
                     search, session, sleeps, text_facts, utf8, value, wide)

# Of the page: further fields, buttons before and behind the others, other elements, files to be removed.
FIELDS, BEFORE, BEHIND, ELEMENTS, FILES = size("e"), size("b"), size("a"), size("x"), size("f")
TABS, CHECKS, READY, SCANS, PASTE_CHECKS, RUNS = size("t"), size("k"), size("r"), size("s"), size("v"), size("n")
HOSTS, PATTERNS = size("h"), size("p")

# What the page has by itself.
PAGE_BUTTONS = 6
PAGE_ELEMENTS = 14
# Tab control, address bar and document; the tabs come to them.
BROWSER_ELEMENTS = 3

INVOKE = "IUIAutomationInvokePattern::Invoke"
TICK = calls("GetTickCount64")
KEYS = calls("SendInput")


# ---- the prompt box

def field_begun():
    return element() + facts("ControlType") + text_facts("Name")


def judged():
    return facts("IsEnabled", "IsOffscreen", "BoundingRectangle", "IsKeyboardFocusable")


def box_looked_for(composer):
    """The address bar and the page's own search field are refused by name; the document and the further fields are
    looked at to the end. `composer` is what its own look costs."""
    refused = 2 * field_begun()
    read = (FIELDS + 1) * (field_begun() + judged())
    return (wide() + calls("IsWindow") + session() + root() + calls("GetWindowRect") + fields_condition() + search() +
            refused + read + composer)


def focused_name():
    return calls("IUIAutomationElement::SetFocus", "IUIAutomation::GetFocusedElement") + text_facts("Name")


def box_verified():
    return box_looked_for(field_begun() + judged()) + focused_name() + judged()


def box_without_composer():
    return box_looked_for(NOTHING)


def box_disabled():
    return box_looked_for(field_begun() + facts("IsEnabled"))


def all_elements():
    return BROWSER_ELEMENTS + TABS + PAGE_ELEMENTS + FIELDS + BEFORE + BEHIND + ELEMENTS


def everything_searched():
    return calls("IUIAutomation::CreateTrueCondition") + search()


def perplexity_box_verified():
    """The exact host, every element for a sign-in panel, every element for the composer, and what has the focus."""
    panel = everything_searched() + all_elements() * (element() + facts("IsOffscreen") + text_facts("Name"))
    scan = (fields_condition() + everything_searched() + all_elements() * field_begun() + judged())
    return (wide() + calls("IsWindow") + session() + root() + exact_host() + panel + calls("GetWindowRect") + scan +
            focused_name() + calls("IUIAutomation::CompareElements") + facts("BoundingRectangle"))


def stable(check, checks=3):
    """The last of the checks isn't followed by a wait."""
    return checks * (check + sleeps()) - sleeps()


# ---- buttons, from the last to the first

def buttons_searched():
    return calls("IsWindow") + session() + root() + condition() + search()


def passed_over(buttons):
    return buttons * (element() + text_facts("Name"))


def enabled_on_screen():
    return facts("IsEnabled", "IsOffscreen")


def last_button_fits():
    """The `a` buttons behind it come first."""
    return buttons_searched() + passed_over(BEHIND + 1) + enabled_on_screen()


def stop_seen():
    """It came last to the page."""
    return buttons_searched() + passed_over(1) + enabled_on_screen() + utf8()


def no_stop():
    return buttons_searched() + passed_over(PAGE_BUTTONS + BEFORE + BEHIND)


def send_stable(checks):
    return stable(last_button_fits(), checks) + utf8()


def send_pressed():
    return wide() + last_button_fits() + pattern(INVOKE) + utf8()


def send_gone():
    """A page that has disabled it: the button is found by name and refused."""
    return buttons_searched() + passed_over(PAGE_BUTTONS + BEFORE + BEHIND) + enabled_on_screen()


def send_missed(checks):
    return checks * (send_gone() + sleeps())


def attachments_removed():
    all_buttons = buttons_searched() + passed_over(PAGE_BUTTONS + BEFORE + BEHIND + FILES)
    return all_buttons + FILES * (enabled_on_screen() + pattern(INVOKE) + sleeps())


# ---- the value of what has the focus

def prompt_read():
    return session() + calls("IUIAutomation::GetFocusedElement") + value()


def responding_state():
    return calls("GetForegroundWindow", "IsWindow") + no_stop() + answered()


def responding_state_seen():
    return calls("GetForegroundWindow", "IsWindow") + stop_seen() + answered()


def responding_state_by_title():
    """Without a handle the title must hold the name or one of `p` patterns, all of which are taken in."""
    return (calls("GetForegroundWindow", "IsWindow", "GetWindowTextLengthW", "GetWindowTextW") + wide(PATTERNS + 1) +
            utf8() + no_stop() + answered())


def input_focused():
    return calls("GetForegroundWindow") + box_verified() + answered()


# ---- the pipeline

def entered():
    """Up to the route: the tick of the start, the window in front, the key."""
    return TICK + sleeps() + calls("GetForegroundWindow", "IsWindow") + wide()


def pipeline(box, submit, verification, ready=None, before=NOTHING, is_settled=False, ends_focused=True):
    first_use = NOTHING if is_settled else sleeps()
    readiness = TICK + (stable(box) if ready is None else ready) + TICK
    draft = sleeps() + KEYS + sleeps() + KEYS
    sent = TICK + submit + TICK
    return (entered() + first_use + before + readiness + draft + sent + verification +
            (box if ends_focused else NOTHING) + TICK + answered())


def claude(verification):
    submit = sleeps() + send_stable(2) + send_pressed() + sleeps()
    return pipeline(box_verified(), submit, TICK + verification + TICK, before=attachments_removed(),
                    ends_focused=False)


def composer_emptied(tries):
    """Of the tries all but the last find no composer."""
    return (tries - 1) * (sleeps() + box_without_composer()) + sleeps() + box_verified() + prompt_read()


CLAUDE = claude(composer_emptied(CHECKS))
CLAUDE_PROBABLE = claude(sleeps() + box_verified() + prompt_read() + no_stop() +
                         send_missed(20))


def retried():
    """The text stays, nothing answers, and Send stands ready again: it is pressed once more."""
    return (sleeps() + box_verified() + prompt_read() + no_stop() + send_stable(3) + send_pressed() + sleeps() +
            box_verified() + prompt_read())


CLAUDE_RETRIED = claude(retried())
CLAUDE_BY_ENTER = pipeline(
    box_verified(), sleeps() + send_missed(20) + KEYS + sleeps(),
    TICK + sleeps() + box_verified() + prompt_read() + TICK, before=attachments_removed(), ends_focused=False)


def settled_and_read():
    return sleeps() + stable(prompt_read())


def observed():
    return sleeps() + box_verified() + prompt_read()


def responding_at(polls):
    return observed() + (polls - 1) * (no_stop() + sleeps()) + stop_seen()


CHATGPT_SUBMIT = settled_and_read() + send_stable(3) + send_pressed() + sleeps()
GEMINI_SUBMIT = settled_and_read() + KEYS + sleeps()
CHATGPT = pipeline(box_verified(), CHATGPT_SUBMIT, observed())
CHATGPT_RESPONDING = pipeline(box_verified(), CHATGPT_SUBMIT, responding_at(CHECKS))
GEMINI = pipeline(box_verified(), GEMINI_SUBMIT, observed())
GEMINI_RESPONDING = pipeline(box_verified(), GEMINI_SUBMIT, responding_at(CHECKS))

def never_responding(polls):
    return observed() + polls * (no_stop() + sleeps()) + send_missed(8)


CHATGPT_PROBABLE = pipeline(box_verified(), CHATGPT_SUBMIT, never_responding(10))
GEMINI_PROBABLE = pipeline(box_verified(), GEMINI_SUBMIT, never_responding(8))

PERPLEXITY_BOX = perplexity_box_verified()
PERPLEXITY_SUBMIT = 2 * sleeps() + stable(prompt_read()) + send_stable(3) + send_pressed() + sleeps()
PERPLEXITY_LOOK = no_stop() + PERPLEXITY_BOX + prompt_read() + sleeps()
PERPLEXITY = pipeline(PERPLEXITY_BOX, PERPLEXITY_SUBMIT, CHECKS * PERPLEXITY_LOOK - sleeps())
PERPLEXITY_PROBABLE = pipeline(PERPLEXITY_BOX, PERPLEXITY_SUBMIT, 24 * PERPLEXITY_LOOK + send_missed(8))

PLAIN_SUBMIT = sleeps() + KEYS + sleeps()
PLAIN_READY = (READY - 3) * (box_disabled() + sleeps()) + stable(box_verified())
PLAIN = pipeline(box_verified(), PLAIN_SUBMIT, sleeps(), PLAIN_READY)
# The first delivery settles the provider.
PLAIN_AGAIN = (pipeline(box_verified(), PLAIN_SUBMIT, sleeps()) +
               (RUNS - 1) * pipeline(box_verified(), PLAIN_SUBMIT, sleeps(), is_settled=True))


# The window in front is another than the one named; the key isn't needed any more.
WRONG_WINDOW = TICK + sleeps() + calls("GetForegroundWindow", "IsWindow") + answered()
NEVER_READY = entered() + sleeps() + TICK + 14 * (box_disabled() + sleeps()) + TICK + answered()

# ---- best effort

def usable_field():
    """Usable, and too narrow or too high up for its name to matter."""
    return element() + facts("IsEnabled", "IsKeyboardFocusable", "IsOffscreen", "BoundingRectangle", "IsPassword")


def scan(composer):
    return calls("GetWindowRect") + search() + (FIELDS + 2) * usable_field() + composer


def exactly_in_front():
    return calls("GetForegroundWindow") + exact_host(HOSTS)


def still_focused():
    return exactly_in_front() + calls("IUIAutomation::GetFocusedElement", "IUIAutomation::CompareElements")


def usable():
    return facts("IsEnabled", "IsKeyboardFocusable", "IsOffscreen", "BoundingRectangle")


def best_effort_focused():
    """Each step reads the clock, and so does the start."""
    identified = TICK + utf8() + TICK + exactly_in_front() + TICK
    opened = session() + root() + condition()
    missed = scan(element() + facts("IsEnabled")) + TICK + exactly_in_front() + sleeps()
    found = scan(usable_field() + text_facts("Name")) + TICK
    focused = exactly_in_front() + calls("IUIAutomationElement::SetFocus") + still_focused() + TICK + value()
    return entered() + identified + opened + (SCANS - 1) * missed + found + focused


def best_effort():
    prompt = calls("OpenClipboard", "GetClipboardData", "GlobalSize", "GlobalLock", "GlobalUnlock",
                   "CloseClipboard") + still_focused()
    pasted = KEYS + TICK + PASTE_CHECKS * (sleeps() + still_focused() + value()) + TICK
    sent = still_focused() + KEYS + TICK
    delivered = CHECKS * (sleeps() + exactly_in_front() + usable() + value()) + TICK
    return best_effort_focused() + prompt + pasted + sent + delivered + answered()


BEST_EFFORT = best_effort()
# A draft stands in the composer.
BEST_EFFORT_BLOCKED = best_effort_focused() + TICK + answered()
